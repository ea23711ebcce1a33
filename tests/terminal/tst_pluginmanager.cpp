// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IPlugin.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

QString fixture(const char* name)
{
    return QDir(QStringLiteral(BRIMVALE_FIXTURE_DIRECTORY))
        .filePath(QLatin1String(name) + QStringLiteral(".so"));
}

QStringList stepsOf(IPlugin* plugin)
{
    return plugin->GetSelfRefAsQObject()->property("steps").toStringList();
}

} // namespace

class tst_PluginManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadingInitialisesOnce();
    void theHostsServicesAreHandedOver();
    void aRefusedInitialisationIsReported_data();
    void aRefusedInitialisationIsReported();
    void oneBadPluginDoesNotStopTheOthers();
    void aFileIsLoadedOnce();
    void anIdentifierIsTakenOnce();
    void aFolderIsLoadedByName();
    void anEmptyFolderIsAFailure();

    void startingMakesActive();
    void startingOrder();
    void anUnknownOrFailedPluginIsNotActivated();
    void activatingTheRunningPluginDoesNothing();
    void closingWaitsForTheNotification();
    void switchingClosesBeforeItStarts();
    void theNextStartsAfterTheLastWordsOfThePrevious();
    void theLastWishCounts();
    void aClosedPluginStartsAgain();
    void aControlApplicationTakesAndGivesBackTheTerminal();
    void destructionClosesWhatRuns();

    void aFaultAtTheStartTakesThePluginOut_data();
    void aFaultAtTheStartTakesThePluginOut();
    void aFaultAfterTheStartClosesThePlugin();
    void aFaultAtTheCloseTakesThePluginOut_data();
    void aFaultAtTheCloseTakesThePluginOut();
    void aPluginThatNeverTellsItsCloseIsTakenOut();
    void theOthersGoOnAfterAFault();

    void translationsFollowTheLanguage();
    void aFaultInTranslatingClosesThePlugin();

private:
    PluginManager& plugins() { return m_fixture->host->plugins(); }
    bool load(const char* name);
    bool activate(const char* identifier);
    PluginInfo info(int index) { return plugins().plugins().at(index); }

    std::unique_ptr<HostFixture> m_fixture;
};

void tst_PluginManager::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_fixture->settle(36.4);
}

void tst_PluginManager::cleanup()
{
    m_fixture.reset();
}

bool tst_PluginManager::load(const char* name)
{
    const LoadResult result = plugins().load(fixture(name));
    if (!result.ok) {
        qWarning("%s", qPrintable(result.message));
    }
    return result.ok;
}

bool tst_PluginManager::activate(const char* identifier)
{
    return plugins().activate(QString::fromLatin1(identifier)) && plugins().waitUntilSettled();
}

void tst_PluginManager::loadingInitialisesOnce()
{
    QSignalSpy changed(&plugins(), &PluginManager::pluginsChanged);
    QVERIFY(load("fixture"));
    QCOMPARE(stepsOf(plugins().GetPlugins().at(0)),
             (QStringList{QStringLiteral("constructor"), QStringLiteral("PreInitPlugin"),
                          QStringLiteral("PostInitPlugin")}));
    QCOMPARE(plugins().count(), 1);
    const PluginInfo plugin = info(0);
    QCOMPARE(plugin.file, fixture("fixture"));
    QCOMPARE(plugin.identifier, QStringLiteral("fixture"));
    QCOMPARE(plugin.kind, QStringLiteral("plugin"));
    QCOMPARE(plugin.name, QStringLiteral("Fixture"));
    QCOMPARE(plugin.icon, QStringLiteral(":/fixture/icon.svg"));
    QCOMPARE(plugin.state, PluginState::Initialised);
    QCOMPARE(plugin.fault, QString());
    QCOMPARE(plugins().activeIndex(), -1);
    QVERIFY(plugins().activePlugin() == nullptr);
    QCOMPARE(changed.count(), 1);
}

void tst_PluginManager::theHostsServicesAreHandedOver()
{
    QVERIFY(load("fixture"));
    // The base asks for the workflow manager at the end of the initialisation.
    QCOMPARE(m_fixture->host->calls().calls(), QStringList{QStringLiteral("ISystem::GetWorkflowManager()")});
}

void tst_PluginManager::aRefusedInitialisationIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("cause");
    QTest::newRow("PreInitPlugin refuses")
        << "refuse_pre_init"
        << "InitPlugin() returned false: the plug-in refuses to be initialised";
    QTest::newRow("PostInitPlugin refuses")
        << "refuse_post_init"
        << "InitPlugin() returned false: the plug-in refuses to be initialised";
    QTest::newRow("PostInitPlugin throws")
        << "throw_init"
        << "InitPlugin() threw Brimvale::ProjectException: the record of the fixture cannot be read";
}

void tst_PluginManager::aRefusedInitialisationIsReported()
{
    QFETCH(QString, name);
    QFETCH(QString, cause);
    const QString file = fixture(name.toLatin1().constData());
    const LoadResult result = plugins().load(file);
    QVERIFY(!result.ok);
    QCOMPARE(loadStageName(result.stage), loadStageName(LoadStage::Initialise));
    QVERIFY2(result.message.contains(cause), qPrintable(result.message));
    QVERIFY2(result.message.contains(file), qPrintable(result.message));
    QVERIFY(plugins().GetPlugins().isEmpty());
    QCOMPARE(info(0).state, PluginState::Failed);
    QCOMPARE(info(0).fault, result.message);
}

void tst_PluginManager::oneBadPluginDoesNotStopTheOthers()
{
    QVERIFY(load("fixture"));
    for (const char* const bad : {"undefined_symbol", "missing_library", "throw_constructor", "throw_init",
                                  "refuse_pre_init", "wrong_identifier", "no_metadata", "no_interface"}) {
        QVERIFY2(!plugins().load(fixture(bad)).ok, bad);
    }
    QVERIFY(load("fixture_second"));
    QCOMPARE(plugins().GetPlugins().size(), 2);
    QVERIFY(activate("fixture_second"));
    QVERIFY(activate("fixture"));
}

void tst_PluginManager::aFileIsLoadedOnce()
{
    QVERIFY(load("fixture"));
    QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("link.so"));
    QVERIFY(QFile::link(fixture("fixture"), link));
    for (const QString& file : {fixture("fixture"), link}) {
        const LoadResult result = plugins().load(file);
        QVERIFY(!result.ok);
        QVERIFY2(result.message.contains(QLatin1String("it is loaded already")), qPrintable(result.message));
    }
    QCOMPARE(plugins().GetPlugins().size(), 1);
    QCOMPARE(info(0).state, PluginState::Initialised);
}

void tst_PluginManager::anIdentifierIsTakenOnce()
{
    QVERIFY(load("fixture"));
    const LoadResult result = plugins().load(fixture("fixture_same_identifier"));
    QVERIFY(!result.ok);
    QCOMPARE(loadStageName(result.stage), loadStageName(LoadStage::Identifier));
    QVERIFY2(result.message.contains(QStringLiteral("its identifier \"fixture\" is that of ")
                                     + fixture("fixture")),
             qPrintable(result.message));
    QCOMPARE(plugins().indexOf(QStringLiteral("fixture")), 0);
    QVERIFY(activate("fixture"));
}

void tst_PluginManager::aFolderIsLoadedByName()
{
    QTemporaryDir folder;
    const auto link = [&](const char* name, const char* target) {
        QVERIFY(QFile::link(fixture(target), folder.filePath(QLatin1String(name))));
    };
    link("2.so", "fixture_second");
    link("1.so", "refuse_pre_init");
    link("3.so", "fixture");
    const QVector<LoadResult> results = plugins().loadFolder(folder.path());
    QCOMPARE(results.size(), 3);
    QVERIFY(!results.at(0).ok);
    QVERIFY2(results.at(1).ok, qPrintable(results.at(1).message));
    QVERIFY2(results.at(2).ok, qPrintable(results.at(2).message));
    QCOMPARE(info(1).identifier, QStringLiteral("fixture_second"));
    QCOMPARE(info(2).identifier, QStringLiteral("fixture"));
}

void tst_PluginManager::anEmptyFolderIsAFailure()
{
    QTemporaryDir folder;
    for (const QString& path : {folder.path(), folder.filePath(QStringLiteral("missing"))}) {
        const QVector<LoadResult> results = plugins().loadFolder(path);
        QCOMPARE(results.size(), 1);
        QVERIFY(!results.at(0).ok);
        QCOMPARE(loadStageName(results.at(0).stage), loadStageName(LoadStage::Folder));
        QVERIFY2(results.at(0).message.contains(path), qPrintable(results.at(0).message));
    }
    QCOMPARE(plugins().count(), 0);
}

void tst_PluginManager::startingMakesActive()
{
    QVERIFY(load("fixture"));
    QSignalSpy active(&plugins(), &PluginManager::activePluginChanged);
    QSignalSpy started(&plugins(), &PluginManager::pluginStarted);
    QSignalSpy settled(&plugins(), &PluginManager::settled);
    QVERIFY(plugins().activate(0));
    QVERIFY(plugins().isSettled());
    QVERIFY(settled.count() > 0);
    QCOMPARE(started.count(), 1);
    QVERIFY(active.count() > 0);
    QCOMPARE(plugins().activeIndex(), 0);
    QCOMPARE(plugins().activeName(), QStringLiteral("Fixture"));
    QCOMPARE(plugins().activePlugin(), plugins().GetPlugins().at(0));
    QCOMPARE(m_fixture->host->controller().activePlugin(), plugins().activePlugin());
    QCOMPARE(info(0).state, PluginState::Running);
}

void tst_PluginManager::startingOrder()
{
    QVERIFY(load("fixture"));
    m_fixture->host->calls().clear();
    QVERIFY(plugins().activate(0));
    QCOMPARE(stepsOf(plugins().activePlugin()).mid(3),
             (QStringList{QStringLiteral("PreStartPlugin"), QStringLiteral("PostStartPlugin"),
                          QStringLiteral("PostInitPluginAndAddons")}));
    // The plug-in is active already when it asks who is.
    const QStringList calls = m_fixture->host->calls().calls();
    QVERIFY(calls.contains(QStringLiteral("IPluginController::GetActivePlugin()")));
    QCOMPARE(calls.filter(QStringLiteral("IActionbar::")),
             (QStringList{QStringLiteral("IActionbar::AddAction(Brimvale::ActionBase(\"fixture.action\"))"),
                          QStringLiteral("IActionbar::AddAction(Brimvale::ActionBase(\"fixture.delete\"))"),
                          QStringLiteral("IActionbar::SetEnabled(1)"),
                          QStringLiteral("IActionbar::LoadEntries(7, \"user\")"),
                          QStringLiteral("IActionbar::Refresh()"),
                          QStringLiteral("IActionbar::ApplyEntries(7, \"user\")")}));
    QCOMPARE(calls.filter(QStringLiteral("IView::")),
             (QStringList{QStringLiteral("IView::SetContextObject(\"fixture\", FixtureViewModel)"),
                          QStringLiteral("IView::GetScreenLoader()")}));
    QCOMPARE(m_fixture->screen.calls, (QStringList{QStringLiteral("publish fixture FixtureViewModel"),
                                                   QStringLiteral("show qrc:/fixture/Fixture.qml")}));
}

void tst_PluginManager::anUnknownOrFailedPluginIsNotActivated()
{
    QVERIFY(!plugins().activate(0));
    QVERIFY(!plugins().activate(-1));
    QVERIFY(!plugins().activate(QStringLiteral("fixture")));
    plugins().load(fixture("refuse_pre_init"));
    QVERIFY(!plugins().activate(0));
    QVERIFY(plugins().isSettled());
    QCOMPARE(plugins().activeIndex(), -1);
}

void tst_PluginManager::activatingTheRunningPluginDoesNothing()
{
    QVERIFY(load("fixture"));
    QVERIFY(activate("fixture"));
    const QStringList steps = stepsOf(plugins().activePlugin());
    QVERIFY(activate("fixture"));
    QCOMPARE(stepsOf(plugins().activePlugin()), steps);
}

void tst_PluginManager::closingWaitsForTheNotification()
{
    QVERIFY(load("fixture"));
    QVERIFY(activate("fixture"));
    IPlugin* const plugin = plugins().activePlugin();
    plugins().deactivate();
    QCOMPARE(info(0).state, PluginState::Closing);
    QVERIFY(!plugins().isSettled());
    QCOMPARE(plugins().activePlugin(), plugin);
    QVERIFY(!stepsOf(plugin).contains(QStringLiteral("PostClosePlugin")));
    // Its screen and its actions are gone at once, while its objects existed.
    QVERIFY(m_fixture->host->actions().isEmpty());
    QVERIFY(m_fixture->host->infoItems().isEmpty());
    QCOMPARE(m_fixture->screen.calls.last(), QStringLiteral("clear"));

    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(info(0).state, PluginState::Initialised);
    QCOMPARE(plugins().activeIndex(), -1);
    QVERIFY(m_fixture->host->controller().activePlugin() == nullptr);
    QVERIFY(stepsOf(plugin).contains(QStringLiteral("PostClosePlugin")));
}

void tst_PluginManager::switchingClosesBeforeItStarts()
{
    QVERIFY(load("fixture"));
    QVERIFY(load("fixture_second"));
    QVERIFY(activate("fixture"));
    m_fixture->host->calls().clear();
    QVERIFY(activate("fixture_second"));
    QCOMPARE(info(0).state, PluginState::Initialised);
    QCOMPARE(info(1).state, PluginState::Running);
    const QStringList calls = m_fixture->host->calls().calls();
    const int closing = calls.indexOf(QStringLiteral("ILifecycleObserver::NotifyPluginClosing()"));
    const int kind = calls.indexOf(QStringLiteral("IPluginController::PluginClosed(\"plugin\")"));
    const int closed = calls.indexOf(QStringLiteral("ISequencer::PluginClosed()"));
    const int started = calls.indexOf(QStringLiteral("ISystem::RegisterInfosectionProvider()"));
    QVERIFY(closing >= 0);
    QVERIFY(closing < kind);
    QVERIFY(kind < closed);
    QVERIFY(closed < started);
}

void tst_PluginManager::theNextStartsAfterTheLastWordsOfThePrevious()
{
    QVERIFY(load("fixture"));
    QVERIFY(load("fixture_control"));
    QVERIFY(activate("fixture"));
    m_fixture->host->calls().clear();
    QVERIFY(activate("fixture_control"));
    // The last words of the first end the control mode; the second must begin it after them.
    QCOMPARE(m_fixture->host->calls().calls().filter(QStringLiteral("SetControlMode")),
             (QStringList{QStringLiteral("IPluginController::SetControlMode(false)"),
                          QStringLiteral("IPluginController::SetControlMode(true)")}));
    QVERIFY(m_fixture->host->isControlMode());
    QVERIFY(stepsOf(plugins().GetPlugins().at(0)).contains(QStringLiteral("PostClosePlugin")));
}

void tst_PluginManager::theLastWishCounts()
{
    QVERIFY(load("fixture"));
    QVERIFY(load("fixture_second"));
    QVERIFY(load("fixture_control"));
    QVERIFY(activate("fixture"));
    QVERIFY(plugins().activate(1));
    QVERIFY(plugins().activate(2));
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(plugins().activeIndex(), 2);
    QVERIFY(!stepsOf(plugins().GetPlugins().at(1)).contains(QStringLiteral("PreStartPlugin")));

    QVERIFY(plugins().activate(0));
    plugins().deactivate();
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(plugins().activeIndex(), -1);
}

void tst_PluginManager::aClosedPluginStartsAgain()
{
    QVERIFY(load("fixture"));
    QVERIFY(activate("fixture"));
    plugins().deactivate();
    QVERIFY(plugins().activate(0)); // while it is still closing
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(info(0).state, PluginState::Running);
    QCOMPARE(stepsOf(plugins().activePlugin()).count(QStringLiteral("PostStartPlugin")), 2);
    QCOMPARE(m_fixture->host->actions().size(), 2);
    QVERIFY(m_fixture->host->display() != nullptr);
}

void tst_PluginManager::aControlApplicationTakesAndGivesBackTheTerminal()
{
    QVERIFY(load("fixture_control"));
    QSignalSpy mode(m_fixture->host.get(), &Host::controlModeChanged);
    QVERIFY(activate("fixture_control"));
    QVERIFY(m_fixture->host->isControlMode());
    QVERIFY(plugins().closeAll());
    QVERIFY(!m_fixture->host->isControlMode());
    QCOMPARE(mode.count(), 2);
}

void tst_PluginManager::destructionClosesWhatRuns()
{
    QVERIFY(load("fixture"));
    QVERIFY(activate("fixture"));
    QStringList calls;
    m_fixture->host->calls().setTrace([&calls](const QString& call) { calls.append(call); });
    QPointer<QObject> object = plugins().activeObject();
    m_fixture.reset();
    QVERIFY(object.isNull());
    QVERIFY(calls.contains(QStringLiteral("ISequencer::PluginClosed()")));
}

void tst_PluginManager::aFaultAtTheStartTakesThePluginOut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("cause");
    QTest::newRow("PreStartPlugin refuses") << "refuse_pre_start"
                                            << "StartPlugin() returned false: the plug-in refuses to start";
    QTest::newRow("PostStartPlugin refuses") << "refuse_post_start"
                                             << "StartPlugin() returned false: the plug-in refuses to start";
    QTest::newRow("PreStartPlugin throws")
        << "throw_pre_start"
        << "StartPlugin() threw std::runtime_error: the fixture failed on purpose";
    QTest::newRow("PostStartPlugin throws") << "throw_post_start"
                                            << "StartPlugin() threw int";
}

void tst_PluginManager::aFaultAtTheStartTakesThePluginOut()
{
    QFETCH(QString, name);
    QFETCH(QString, cause);
    QVERIFY(load(name.toLatin1().constData()));
    QSignalSpy faults(&plugins(), &PluginManager::faultOccurred);
    QVERIFY(!plugins().activate(0));
    QVERIFY(plugins().isSettled());

    QCOMPARE(faults.count(), 1);
    const PluginFault fault = faults.at(0).at(0).value<PluginFault>();
    QCOMPARE(fault.plugin, QStringLiteral("Fixture"));
    QCOMPARE(fault.step, QStringLiteral("StartPlugin"));
    QVERIFY2(fault.message.contains(cause), qPrintable(fault.message));
    QVERIFY2(fault.message.contains(fixture(name.toLatin1().constData())), qPrintable(fault.message));
    QCOMPARE(m_fixture->noticesWith(cause).size(), 1);

    QCOMPARE(info(0).state, PluginState::Failed);
    QCOMPARE(info(0).fault, fault.message);
    QCOMPARE(plugins().activeIndex(), -1);
    QVERIFY(m_fixture->host->controller().activePlugin() == nullptr);
    QVERIFY(m_fixture->host->actions().isEmpty());
    QVERIFY(m_fixture->host->display() == nullptr);
    QVERIFY(m_fixture->host->view().screen().isEmpty());

    // None of its code is called any more.
    IPlugin* const plugin = m_fixture->host->controller().activePlugin();
    QVERIFY(plugin == nullptr);
    QVERIFY(plugins().GetPlugins().isEmpty());
    m_fixture->feed(10.0);
    m_fixture->host->setLevelled(false);
}

void tst_PluginManager::aFaultAfterTheStartClosesThePlugin()
{
    QVERIFY(load("throw_post_start_addons"));
    IPlugin* const plugin = plugins().GetPlugins().at(0);
    QSignalSpy faults(&plugins(), &PluginManager::faultOccurred);
    plugins().activate(0);
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(faults.count(), 1);
    QCOMPARE(faults.at(0).at(0).value<PluginFault>().step, QStringLiteral("PostStartAddons"));
    QVERIFY(stepsOf(plugin).contains(QStringLiteral("PostClosePlugin")));
    QCOMPARE(info(0).state, PluginState::Failed);
}

void tst_PluginManager::aFaultAtTheCloseTakesThePluginOut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("cause");
    QTest::newRow("PreClosePlugin throws")
        << "throw_pre_close"
        << "ClosePlugin() threw std::runtime_error: the fixture failed on purpose";
    QTest::newRow("ClosePlugin throws at its end")
        << "throw_close"
        << "ClosePlugin() threw std::runtime_error: the fixture failed on purpose";
    QTest::newRow("ClosePlugin returns false") << "refuse_close"
                                               << "ClosePlugin() returned false";
}

void tst_PluginManager::aFaultAtTheCloseTakesThePluginOut()
{
    QFETCH(QString, name);
    QFETCH(QString, cause);
    QVERIFY(load(name.toLatin1().constData()));
    QVERIFY(activate(name.toLatin1().constData()));
    IPlugin* const plugin = plugins().activePlugin();
    QVERIFY(!plugins().closeAll());
    QCOMPARE(info(0).state, PluginState::Failed);
    QCOMPARE(m_fixture->noticesWith(cause).size(), 1);
    QVERIFY(m_fixture->host->actions().isEmpty());
    QVERIFY(m_fixture->host->display() == nullptr);

    // Nothing reaches it any more, although it may not have cut its connections.
    const QStringList steps = stepsOf(plugin);
    m_fixture->feed(10.0);
    QCOMPARE(stepsOf(plugin), steps);
}

void tst_PluginManager::aPluginThatNeverTellsItsCloseIsTakenOut()
{
    QVERIFY(load("silent_close"));
    QVERIFY(load("fixture"));
    QVERIFY(activate("silent_close"));
    QVERIFY(activate("fixture"));
    QCOMPARE(info(0).state, PluginState::Failed);
    QVERIFY2(info(0).fault.contains(QLatin1String("it has not told within 2 s that it has closed")),
             qPrintable(info(0).fault));
    QCOMPARE(info(1).state, PluginState::Running);
    // It believes that it runs; the buttons are those of the other one all the same.
    QCOMPARE(m_fixture->host->actions().size(), 2);
}

void tst_PluginManager::theOthersGoOnAfterAFault()
{
    QVERIFY(load("throw_post_start"));
    QVERIFY(load("fixture"));
    QVERIFY(!plugins().activate(0));
    QVERIFY(activate("fixture"));
    m_fixture->feed(20.0);
    QVERIFY(stepsOf(plugins().activePlugin()).contains(QStringLiteral("onNewMeasurementValue")));
    QVERIFY(plugins().closeAll());
}

void tst_PluginManager::translationsFollowTheLanguage()
{
    QVERIFY(load("fixture"));
    QVERIFY(activate("fixture"));
    m_fixture->host->setLanguage(QStringLiteral("de"));
    QCOMPARE(info(0).name, QString::fromUtf8("Prüfling"));
    QCOMPARE(plugins().activeName(), QString::fromUtf8("Prüfling"));
    QVERIFY(stepsOf(plugins().activePlugin()).contains(QStringLiteral("TranslateWarnInfo")));

    m_fixture->host->setLanguage(QStringLiteral("en"));
    QCOMPARE(info(0).name, QStringLiteral("Fixture"));

    // One that comes later speaks the language that is in force.
    m_fixture->host->setLanguage(QStringLiteral("de"));
    QVERIFY(load("fixture_second"));
    QCOMPARE(info(1).name,
             QString::fromUtf8("Prüfling")); // the translation of the first serves the same class
}

void tst_PluginManager::aFaultInTranslatingClosesThePlugin()
{
    QVERIFY(load("throw_translate"));
    QVERIFY(activate("throw_translate"));
    m_fixture->host->setLanguage(QStringLiteral("de"));
    QVERIFY(plugins().waitUntilSettled());
    QCOMPARE(info(0).state, PluginState::Failed);
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("TranslateWarnInfo() threw")).size(), 1);
}

QTEST_GUILESS_MAIN(tst_PluginManager)

#include "tst_pluginmanager.moc"
