// SPDX-License-Identifier: BSD-3-Clause
#include "host/Notices.h"
#include "menu/MenuStore.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Brimvale;
using namespace Brimvale::Terminal;

class tst_MenuStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void relativePathIsOfThePluginsFolder();
    void absolutePath();
    void fileUrl();
    void resource_data();
    void resource();
    void absentFile();
    void emptyPath();
    void faultIsToldOnce();
    void faultAfterAChangeIsToldAnew();
    void mendedFileIsUsed();

private:
    void write(const char* name, const QByteArray& content)
    {
        QFile file(m_folder->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static QByteArray menu(const char* text)
    {
        return QByteArray("{\"version\": 1, \"items\": [{\"id\": 1, \"kind\": \"bool\", \"text\": \"") + text
               + "\"}]}";
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Notices> m_notices;
    std::unique_ptr<MenuStore> m_store;
    QStringList m_told;
};

void tst_MenuStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_notices = std::make_unique<Notices>();
    m_store = std::make_unique<MenuStore>(*m_notices);
    m_store->setFolder(m_folder->path());
    m_told.clear();
    connect(m_notices.get(), &Notices::posted, this,
            [this](NoticeSeverity, const QString& text) { m_told.append(text); });
}

void tst_MenuStore::relativePathIsOfThePluginsFolder()
{
    write("a.json", menu("A"));
    QVERIFY(m_store->contains(QStringLiteral("a.json")));
    const MenuFile* const file = m_store->menu(QStringLiteral("a.json"));
    QVERIFY(file);
    QCOMPARE(file->items().first().text, QStringLiteral("A"));
    QTemporaryDir other;
    m_store->setFolder(other.path());
    QVERIFY(!m_store->contains(QStringLiteral("a.json")));
}

void tst_MenuStore::absolutePath()
{
    write("a.json", menu("A"));
    m_store->setFolder(QStringLiteral("/nowhere"));
    QVERIFY(m_store->menu(m_folder->filePath(QStringLiteral("a.json"))) != nullptr);
}

void tst_MenuStore::fileUrl()
{
    write("a.json", menu("A"));
    QVERIFY(m_store->contains(QUrl::fromLocalFile(m_folder->filePath(QStringLiteral("a.json"))).toString()));
}

void tst_MenuStore::resource_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("resource") << ":/menus/test.json";
    QTest::newRow("URL") << "qrc:/menus/test.json";
}

void tst_MenuStore::resource()
{
    QFETCH(QString, path);
    QVERIFY(m_store->contains(path));
    QVERIFY(m_store->menu(path) != nullptr);
    QCOMPARE(m_told, QStringList());
}

void tst_MenuStore::absentFile()
{
    QVERIFY(!m_store->contains(QStringLiteral("none.json")));
    QCOMPARE(m_told, QStringList());
    QVERIFY(m_store->menu(QStringLiteral("none.json")) == nullptr);
    QCOMPARE(m_told.size(), 1);
    QCOMPARE(m_told.first(),
             QStringLiteral(
                 "The menu file %1 does not exist. Correct the path, or add the file to the resources of "
                 "the plug-in.")
                 .arg(m_folder->filePath(QStringLiteral("none.json"))));
}

void tst_MenuStore::emptyPath()
{
    QVERIFY(!m_store->contains(QString()));
    QVERIFY(m_store->menu(QString()) == nullptr);
    QCOMPARE(m_told,
             (QStringList{QStringLiteral("The menu of the application names no menu file. Set m_menuFilePath "
                                         "in its constructor.")}));
}

void tst_MenuStore::faultIsToldOnce()
{
    write("a.json", "{\"version\": 1}");
    QVERIFY(!m_store->contains(QStringLiteral("a.json")));
    QVERIFY(m_store->menu(QStringLiteral("a.json")) == nullptr);
    QCOMPARE(m_told.size(), 1);
    QVERIFY2(m_told.first().contains(m_folder->filePath(QStringLiteral("a.json")) + QLatin1String(":1: ")),
             qPrintable(m_told.first()));
}

void tst_MenuStore::faultAfterAChangeIsToldAnew()
{
    write("a.json", "{\"version\": 1}");
    QVERIFY(!m_store->contains(QStringLiteral("a.json")));
    write("a.json", "{\"version\": 12}");
    QVERIFY(!m_store->contains(QStringLiteral("a.json")));
    QCOMPARE(m_told.size(), 2);
}

void tst_MenuStore::mendedFileIsUsed()
{
    write("a.json", "{\"version\": 1}");
    QVERIFY(!m_store->contains(QStringLiteral("a.json")));
    write("a.json", menu("Mended"));
    QVERIFY(m_store->menu(QStringLiteral("a.json")) != nullptr);
    QCOMPARE(m_store->menu(QStringLiteral("a.json"))->items().first().text, QStringLiteral("Mended"));
}

QTEST_GUILESS_MAIN(tst_MenuStore)
#include "tst_menustore.moc"
