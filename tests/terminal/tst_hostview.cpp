// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IScreenLoader.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

/// The screen as plug-ins see it.
class tst_HostView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void screenUrl_data();
    void screenUrl();

    void publishing();
    void publishingAgainReplaces();
    void aNullObjectIsReported();
    void aDestroyedObjectIsNotListed();

    void aFileIsShown();
    void aRelativePathBeginsAtThePluginsFolder();
    void missingScreens_data();
    void missingScreens();
    void aScreenThatCannotBeShownIsReported();
    void clearing();
    void clearingNothingTellsNothing();

private:
    ViewHost& view() { return m_fixture->host->view(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_screenFile;
    std::unique_ptr<HostFixture> m_fixture;
};

void tst_HostView::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_screenFile = m_folder->filePath(QStringLiteral("Screen.qml"));
    QFile file(m_screenFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    m_fixture = std::make_unique<HostFixture>();
}

void tst_HostView::cleanup()
{
    m_fixture.reset();
}

void tst_HostView::screenUrl_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("url");
    QTest::newRow("resource") << ":/weighing/Main.qml"
                              << "qrc:/weighing/Main.qml";
    QTest::newRow("resource URL") << "qrc:/weighing/Main.qml"
                                  << "qrc:/weighing/Main.qml";
    QTest::newRow("absolute path") << "/opt/plugins/Main.qml"
                                   << "file:///opt/plugins/Main.qml";
    QTest::newRow("file URL") << "file:///opt/plugins/Main.qml"
                              << "file:///opt/plugins/Main.qml";
    QTest::newRow("relative path") << "qml/Main.qml"
                                   << "file:///plugins/qml/Main.qml";
    QTest::newRow("relative path upwards") << "../Main.qml"
                                           << "file:///Main.qml";
    QTest::newRow("path with a blank and a percent sign") << "/a b/50%.qml"
                                                          << "file:///a b/50%25.qml";
}

void tst_HostView::screenUrl()
{
    QFETCH(QString, path);
    QFETCH(QString, url);
    QCOMPARE(ViewHost::screenUrl(path, QStringLiteral("/plugins")).toString(), url);
}

void tst_HostView::publishing()
{
    QObject first;
    QObject second;
    QSignalSpy changed(&view(), &ViewHost::publishedObjectsChanged);
    view().SetContextObject(QStringLiteral("a"), &first);
    view().SetContextObject(QStringLiteral("b"), &second);
    QCOMPARE(view().publishedObjects(), (QList<QObject*>{&first, &second}));
    QCOMPARE(m_fixture->screen.calls,
             (QStringList{QStringLiteral("publish a QObject"), QStringLiteral("publish b QObject")}));
    QCOMPARE(changed.count(), 2);
}

void tst_HostView::publishingAgainReplaces()
{
    QObject first;
    QObject second;
    view().SetContextObject(QStringLiteral("a"), &first);
    view().SetContextObject(QStringLiteral("a"), &second);
    QCOMPARE(view().publishedObjects(), QList<QObject*>{&second});
}

void tst_HostView::aNullObjectIsReported()
{
    view().SetContextObject(QStringLiteral("a"), nullptr);
    QVERIFY(view().publishedObjects().isEmpty());
    QCOMPARE(m_fixture->screen.calls, QStringList{QStringLiteral("publish a null")});
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral(
                 "warning: The application has published nothing under the name \"a\": its view "
                 "model is null. CreateViewModel() must return an object.")});
}

void tst_HostView::aDestroyedObjectIsNotListed()
{
    auto object = std::make_unique<QObject>();
    view().SetContextObject(QStringLiteral("a"), object.get());
    object.reset();
    QVERIFY(view().publishedObjects().isEmpty());
}

void tst_HostView::aFileIsShown()
{
    QSignalSpy changed(&view(), &ViewHost::screenChanged);
    view().GetScreenLoader()->LoadScreen(m_screenFile);
    const QUrl url = QUrl::fromLocalFile(m_screenFile);
    QCOMPARE(view().screen(), url);
    QCOMPARE(m_fixture->screen.calls, QStringList{QStringLiteral("show ") + url.toString()});
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_fixture->notices.isEmpty());
}

void tst_HostView::aRelativePathBeginsAtThePluginsFolder()
{
    view().setFolder(m_folder->path());
    view().LoadScreen(QStringLiteral("Screen.qml"));
    QCOMPARE(view().screen(), QUrl::fromLocalFile(m_screenFile));
}

void tst_HostView::missingScreens_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("part");
    QTest::newRow("no path") << ""
                             << "error: The application names no screen.";
    QTest::newRow("missing resource")
        << ":/none/Main.qml"
        << "error: The screen :/none/Main.qml of the application does not exist";
    QTest::newRow("missing resource, as URL")
        << "qrc:/none/Main.qml"
        << "error: The screen :/none/Main.qml of the application does not exist";
    QTest::newRow("missing file") << "/none/Main.qml"
                                  << "error: The screen /none/Main.qml of the application does not exist";
    QTest::newRow("a folder") << "/"
                              << "error: The screen / of the application does not exist";
}

void tst_HostView::missingScreens()
{
    QFETCH(QString, path);
    QFETCH(QString, part);
    view().LoadScreen(path);
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY2(m_fixture->notices.at(0).startsWith(part), qPrintable(m_fixture->notices.at(0)));
    QVERIFY(m_fixture->screen.calls.isEmpty());
    QVERIFY(view().screen().isEmpty());
}

void tst_HostView::aScreenThatCannotBeShownIsReported()
{
    view().onScreenLoaded(true, QString());
    QVERIFY(m_fixture->notices.isEmpty());
    view().onScreenLoaded(false, QStringLiteral("Main.qml:3: Expected token"));
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("error: The screen of the application cannot be shown.\n"
                                        "Main.qml:3: Expected token")});
}

void tst_HostView::clearing()
{
    QObject object;
    view().SetContextObject(QStringLiteral("a"), &object);
    view().LoadScreen(m_screenFile);
    view().clear();
    QCOMPARE(m_fixture->screen.calls.last(), QStringLiteral("clear"));
    QVERIFY(view().screen().isEmpty());
    QVERIFY(view().publishedObjects().isEmpty());
}

void tst_HostView::clearingNothingTellsNothing()
{
    QSignalSpy changed(&view(), &ViewHost::publishedObjectsChanged);
    view().clear();
    QVERIFY(m_fixture->screen.calls.isEmpty());
    QCOMPARE(changed.count(), 0);
}

QTEST_GUILESS_MAIN(tst_HostView)

#include "tst_hostview.moc"
