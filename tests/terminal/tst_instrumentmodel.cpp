// SPDX-License-Identifier: BSD-3-Clause
#include "ui/InstrumentModel.h"

#include <QDir>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;

class tst_InstrumentModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void initialState();
    void plainPropertyNotifiesOnChangeOnly_data();
    void plainPropertyNotifiesOnChangeOnly();

    void displayOfThePluginGoesFirst();
    void displayFallsBackWhenThePluginsIsDestroyed();
    void displayFallsBackWhenThePluginsIsTakenAway();
    void terminalDisplayBehindThePluginsIsNotNotified();
    void replacedDisplayIsNoLongerWatched();
    void destroyedWarningsAreNull();
    void replacedWarningsAreNoLongerWatched();

    void pluginsAreMaps();
    void activePlugin();
    void noActivePlugin();

    void destroyedInfoItemsDropOut();
    void nullInfoItemsAreLeftOut();
    void equalInfoItemsSayNothing();

    void language_data();
    void language();

    void noticeIsShownAndCleared();
    void noticeIsReplaced();
    void equalNoticeSaysNothing();
    void emptyNoticeClears();

    void urlFromPath_data();
    void urlFromPath();

private:
    std::unique_ptr<InstrumentModel> m_model;
};

void tst_InstrumentModel::init()
{
    m_model = std::make_unique<InstrumentModel>();
}

void tst_InstrumentModel::initialState()
{
    QVERIFY(!m_model->display());
    QVERIFY(!m_model->warnings());
    QCOMPARE(m_model->actions()->count(), 0);
    QCOMPARE(m_model->hostActions()->count(), 0);
    QVERIFY(m_model->actions() != m_model->hostActions());
    QVERIFY(!m_model->printEnabled());
    QVERIFY(m_model->plugins().isEmpty());
    QVERIFY(m_model->pluginScreen().isEmpty());
    QVERIFY(m_model->infoItems().isEmpty());
    QVERIFY(m_model->sourceOk());
    QVERIFY(m_model->levelOk());
    QCOMPARE(m_model->sicsClients(), -1);
    QCOMPARE(m_model->failedPrints(), 0);
    QVERIFY(!m_model->noticeVisible());
    QCOMPARE(m_model->language(), QStringLiteral("en"));
}

void tst_InstrumentModel::plainPropertyNotifiesOnChangeOnly_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("printEnabled") << QByteArray("printEnabled") << QVariant(true);
    QTest::newRow("pluginScreen") << QByteArray("pluginScreen")
                                  << QVariant(QUrl(QStringLiteral("qrc:/a.qml")));
    QTest::newRow("scalePlate") << QByteArray("scalePlate") << QVariant(QStringLiteral("Max 3200 g"));
    QTest::newRow("sourceText") << QByteArray("sourceText") << QVariant(QStringLiteral("Simulated scale"));
    QTest::newRow("sourceOk") << QByteArray("sourceOk") << QVariant(false);
    QTest::newRow("dateTimeText") << QByteArray("dateTimeText") << QVariant(QStringLiteral("2024-03-05"));
    QTest::newRow("statusText") << QByteArray("statusText") << QVariant(QStringLiteral("Supervisor"));
    QTest::newRow("sicsClients") << QByteArray("sicsClients") << QVariant(3);
    QTest::newRow("failedPrints") << QByteArray("failedPrints") << QVariant(2);
    QTest::newRow("levelOk") << QByteArray("levelOk") << QVariant(false);
    QTest::newRow("language") << QByteArray("language") << QVariant(QStringLiteral("de"));
}

void tst_InstrumentModel::plainPropertyNotifiesOnChangeOnly()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    const QMetaObject* meta = m_model->metaObject();
    const QMetaProperty metaProperty = meta->property(meta->indexOfProperty(property));
    QVERIFY(metaProperty.hasNotifySignal());
    QSignalSpy changed(m_model.get(), QByteArray("2") + metaProperty.notifySignal().methodSignature());
    QVERIFY(m_model->property(property) != value);
    QVERIFY(m_model->setProperty(property, value));
    QCOMPARE(m_model->property(property), value);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_model->setProperty(property, value));
    QCOMPARE(changed.count(), 1);
}

void tst_InstrumentModel::displayOfThePluginGoesFirst()
{
    QObject terminal;
    QObject plugin;
    QSignalSpy changed(m_model.get(), &InstrumentModel::displayChanged);
    m_model->setTerminalDisplay(&terminal);
    QCOMPARE(m_model->display(), &terminal);
    m_model->setDisplay(&plugin);
    QCOMPARE(m_model->display(), &plugin);
    QCOMPARE(changed.count(), 2);
    m_model->setDisplay(&plugin);
    QCOMPARE(changed.count(), 2);
}

void tst_InstrumentModel::displayFallsBackWhenThePluginsIsDestroyed()
{
    QObject terminal;
    auto plugin = std::make_unique<QObject>();
    m_model->setTerminalDisplay(&terminal);
    m_model->setDisplay(plugin.get());

    // At the moment of the signal the fallback must already be in place: this is when the screen reads it.
    QObject* seen = nullptr;
    connect(m_model.get(), &InstrumentModel::displayChanged, this,
            [this, &seen] { seen = m_model->display(); });
    plugin.reset();
    QCOMPARE(seen, &terminal);
    QCOMPARE(m_model->display(), &terminal);
}

void tst_InstrumentModel::displayFallsBackWhenThePluginsIsTakenAway()
{
    QObject terminal;
    QObject plugin;
    m_model->setTerminalDisplay(&terminal);
    m_model->setDisplay(&plugin);
    QSignalSpy changed(m_model.get(), &InstrumentModel::displayChanged);
    m_model->setDisplay(nullptr);
    QCOMPARE(m_model->display(), &terminal);
    QCOMPARE(changed.count(), 1);
}

void tst_InstrumentModel::terminalDisplayBehindThePluginsIsNotNotified()
{
    QObject terminal;
    QObject plugin;
    m_model->setDisplay(&plugin);
    QSignalSpy changed(m_model.get(), &InstrumentModel::displayChanged);
    m_model->setTerminalDisplay(&terminal);
    QCOMPARE(m_model->display(), &plugin);
    QCOMPARE(changed.count(), 0);
}

void tst_InstrumentModel::replacedDisplayIsNoLongerWatched()
{
    auto first = std::make_unique<QObject>();
    QObject second;
    m_model->setDisplay(first.get());
    m_model->setDisplay(&second);
    QSignalSpy changed(m_model.get(), &InstrumentModel::displayChanged);
    first.reset();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_model->display(), &second);
}

void tst_InstrumentModel::destroyedWarningsAreNull()
{
    auto warnings = std::make_unique<QObject>();
    QSignalSpy changed(m_model.get(), &InstrumentModel::warningsChanged);
    m_model->setWarnings(warnings.get());
    m_model->setWarnings(warnings.get());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_model->warnings(), warnings.get());
    warnings.reset();
    QCOMPARE(changed.count(), 2);
    QVERIFY(!m_model->warnings());
}

void tst_InstrumentModel::replacedWarningsAreNoLongerWatched()
{
    auto first = std::make_unique<QObject>();
    QObject second;
    m_model->setWarnings(first.get());
    m_model->setWarnings(&second);
    QSignalSpy changed(m_model.get(), &InstrumentModel::warningsChanged);
    first.reset();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_model->warnings(), &second);
}

void tst_InstrumentModel::pluginsAreMaps()
{
    QSignalSpy changed(m_model.get(), &InstrumentModel::pluginsChanged);
    const QVector<PluginEntry> plugins = {
        {QStringLiteral("w"), QStringLiteral("Weighing"), QStringLiteral(":/w.svg"), true},
        {QStringLiteral("c"), QStringLiteral("Counting"), QString(), false}};
    m_model->setPlugins(plugins);
    m_model->setPlugins(plugins);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_model->plugins().size(), 2);
    const QVariantMap first = m_model->plugins().first().toMap();
    QCOMPARE(first.value(QStringLiteral("id")).toString(), QStringLiteral("w"));
    QCOMPARE(first.value(QStringLiteral("name")).toString(), QStringLiteral("Weighing"));
    QCOMPARE(first.value(QStringLiteral("icon")).toUrl(), QUrl(QStringLiteral("qrc:/w.svg")));
    QCOMPARE(first.value(QStringLiteral("active")).toBool(), true);
}

void tst_InstrumentModel::activePlugin()
{
    m_model->setPlugins({{QStringLiteral("w"), QStringLiteral("Weighing"), QString(), false},
                         {QStringLiteral("c"), QStringLiteral("Counting"), QStringLiteral(":/c.svg"), true}});
    QVERIFY(m_model->pluginActive());
    QCOMPARE(m_model->activePluginName(), QStringLiteral("Counting"));
    QCOMPARE(m_model->activePluginIcon(), QUrl(QStringLiteral("qrc:/c.svg")));
}

void tst_InstrumentModel::noActivePlugin()
{
    m_model->setPlugins({{QStringLiteral("w"), QStringLiteral("Weighing"), QString(), false}});
    QVERIFY(!m_model->pluginActive());
    QCOMPARE(m_model->activePluginName(), QString());
    QVERIFY(m_model->activePluginIcon().isEmpty());
}

void tst_InstrumentModel::destroyedInfoItemsDropOut()
{
    auto first = std::make_unique<QObject>();
    QObject second;
    m_model->setInfoItems({first.get(), &second});
    QSignalSpy changed(m_model.get(), &InstrumentModel::infoItemsChanged);
    first.reset();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_model->infoItems(), QList<QObject*>{&second});
}

void tst_InstrumentModel::nullInfoItemsAreLeftOut()
{
    QObject item;
    m_model->setInfoItems({nullptr, &item, nullptr});
    QCOMPARE(m_model->infoItems(), QList<QObject*>{&item});
}

void tst_InstrumentModel::equalInfoItemsSayNothing()
{
    QObject item;
    QSignalSpy changed(m_model.get(), &InstrumentModel::infoItemsChanged);
    m_model->setInfoItems({&item});
    m_model->setInfoItems({&item});
    QCOMPARE(changed.count(), 1);
    m_model->setInfoItems({});
    QCOMPARE(changed.count(), 2);
}

void tst_InstrumentModel::language_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("shown");
    QTest::newRow("English") << QStringLiteral("en") << QStringLiteral("en");
    QTest::newRow("German") << QStringLiteral("de") << QStringLiteral("de");
    QTest::newRow("not offered") << QStringLiteral("fr") << QStringLiteral("en");
    QTest::newRow("empty") << QString() << QStringLiteral("en");
}

void tst_InstrumentModel::language()
{
    QFETCH(QString, asked);
    QFETCH(QString, shown);
    m_model->setLanguage(QStringLiteral("de"));
    m_model->setLanguage(asked);
    QCOMPARE(m_model->language(), shown);
}

void tst_InstrumentModel::noticeIsShownAndCleared()
{
    QSignalSpy changed(m_model.get(), &InstrumentModel::noticeChanged);
    m_model->showNotice(InstrumentModel::Severity::Error, QStringLiteral("The printer is off"),
                        QStringLiteral("Printing failed"));
    QVERIFY(m_model->noticeVisible());
    QCOMPARE(m_model->noticeSeverity(), InstrumentModel::Severity::Error);
    QCOMPARE(m_model->noticeText(), QStringLiteral("The printer is off"));
    QCOMPARE(m_model->noticeTitle(), QStringLiteral("Printing failed"));
    QCOMPARE(changed.count(), 1);
    m_model->clearNotice();
    QVERIFY(!m_model->noticeVisible());
    QCOMPARE(m_model->noticeTitle(), QString());
    QCOMPARE(changed.count(), 2);
    m_model->clearNotice();
    QCOMPARE(changed.count(), 2);
}

void tst_InstrumentModel::noticeIsReplaced()
{
    m_model->showNotice(InstrumentModel::Severity::Error, QStringLiteral("First"), QStringLiteral("Title"));
    m_model->showNotice(InstrumentModel::Severity::Info, QStringLiteral("Second"));
    QCOMPARE(m_model->noticeText(), QStringLiteral("Second"));
    QCOMPARE(m_model->noticeTitle(), QString());
    QCOMPARE(m_model->noticeSeverity(), InstrumentModel::Severity::Info);
}

void tst_InstrumentModel::equalNoticeSaysNothing()
{
    m_model->showNotice(InstrumentModel::Severity::Info, QStringLiteral("Text"));
    QSignalSpy changed(m_model.get(), &InstrumentModel::noticeChanged);
    m_model->showNotice(InstrumentModel::Severity::Info, QStringLiteral("Text"));
    QCOMPARE(changed.count(), 0);
}

void tst_InstrumentModel::emptyNoticeClears()
{
    m_model->showNotice(InstrumentModel::Severity::Info, QStringLiteral("Text"));
    m_model->showNotice(InstrumentModel::Severity::Error, QString(), QStringLiteral("Title"));
    QVERIFY(!m_model->noticeVisible());
    QCOMPARE(m_model->noticeTitle(), QString());
}

void tst_InstrumentModel::urlFromPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QUrl>("url");
    QTest::newRow("resource") << QStringLiteral(":/w/Main.qml") << QUrl(QStringLiteral("qrc:/w/Main.qml"));
    QTest::newRow("resource URL") << QStringLiteral("qrc:/w/Main.qml")
                                  << QUrl(QStringLiteral("qrc:/w/Main.qml"));
    QTest::newRow("file URL") << QStringLiteral("file:///w/Main.qml")
                              << QUrl(QStringLiteral("file:///w/Main.qml"));
    QTest::newRow("absolute path") << QStringLiteral("/w/Main.qml")
                                   << QUrl(QStringLiteral("file:///w/Main.qml"));
    QTest::newRow("relative path") << QStringLiteral(
        "w/Main.qml") << QUrl::fromLocalFile(QDir::currentPath() + QStringLiteral("/w/Main.qml"));
    QTest::newRow("path with blank and hash")
        << QStringLiteral("/a b#c/Main.qml") << QUrl::fromLocalFile(QStringLiteral("/a b#c/Main.qml"));
    QTest::newRow("empty") << QString() << QUrl();
}

void tst_InstrumentModel::urlFromPath()
{
    QFETCH(QString, path);
    QFETCH(QUrl, url);
    QCOMPARE(InstrumentModel::urlFromPath(path), url);
}

QTEST_GUILESS_MAIN(tst_InstrumentModel)
#include "tst_instrumentmodel.moc"
