// SPDX-License-Identifier: BSD-3-Clause
//
// The life cycle of a plug-in: every step in its order, as whole sequences of hooks, host calls, signals and log
// lines. Warnings and measurement transfer have tests of their own.
#include "IActionbar.h"
#include "IMenuList.h"
#include "IPluginViewManager.h"
#include "IScreenLoader.h"
#include "ISystem.h"
#include "ITransferTarget.h"
#include "IView.h"
#include "IWfM.h"
#include "TestPlugin.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QObject>
#include <QPointer>
#include <QTranslator>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <TestKit/SignalRecorder.h>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

/// A workflow manager that is no QObject.
class PlainWorkflowManager : public IWfM
{
public:
    void Reset() override { }
    void AddStepFunction(IStepFunction*) override { }
    void RemoveStepFunction(IStepFunction*) override { }
    bool StartWorkflow(const QList<IWorkflowStep*>&) override { return false; }
    void AbortWorkflow() override { }
};

/// A view manager that is no QObject.
class PlainViewManager : public IPluginViewManager
{
public:
    explicit PlainViewManager(RecordingHost& host)
        : m_host(host)
    {
    }
    ~PlainViewManager() override { m_host.note("delete plain view manager"); }
    void Setup(int) override { }

private:
    RecordingHost& m_host;
};

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

// The parts of the sequences that several tests share.

QStringList createView()
{
    return {s("CreateViewModel"),          s("GetViewModelName"),
            s("GetPluginScreen"),          s("IView::SetContextObject(\"test\", viewModel)"),
            s("IView::GetScreenLoader()"), s("IScreenLoader::LoadScreen(\"qrc:/Test.qml\")"),
            s("CreateViewManager")};
}

QStringList initActionbar()
{
    return {s("ISystem::GetPluginController()"),
            s("IPluginController::GetActivePlugin()"),
            s("GetPluginName(true)"),
            s("ISystem::GetStatusInfo()"),
            s("IStatusInfo::GetAddonText()"),
            s("ISystem::GetActionbar()"),
            s("IActionbar::SetEnabled(1)"),
            s("IActionbar::LoadEntries(7, \"addon text\")"),
            s("IActionbar::Refresh()"),
            s("IActionbar::ApplyEntries(7, \"addon text\")")};
}

QStringList resetHost()
{
    return {s("ISystem::GetWorkflowManager()"), s("IWfM::Reset()"),
            s("ISystem::GetActionbar()"),       s("IActionbar::SetEntry(0, 0)"),
            s("ISystem::GetActionbar()"),       s("IActionbar::SetEntry(1, 0)"),
            s("ISystem::GetActionbar()"),       s("IActionbar::SetEntry(2, 0)")};
}

QStringList printButton(bool enable)
{
    const QString value = argumentText(enable);
    return {s("signal TestPlugin::notifyPrintButtonEnableChange(%1)").arg(value),
            s("IWfM::onPrintButtonEnableChange(%1)").arg(value)};
}

QStringList askTarget(int target)
{
    return {s("ISystem::GetTransferTarget%1()").arg(target), s("ITransferTarget#%1::IsActive()").arg(target)};
}

QStringList enablePrintTransfer()
{
    return askTarget(1) + askTarget(2) + askTarget(3) + askTarget(4) + askTarget(5) + printButton(false);
}

QStringList setTransferFlag(bool flag)
{
    return {s("ISystem::GetMeasurementTransfer()"),
            s("IMeasurementTransfer::SetTransferFlag(%1)").arg(argumentText(flag))};
}

QStringList logStart()
{
    return {s("ISystem::GetStatusInfo()"), s("IStatusInfo::GetLogPrefix()"), s("GetPluginName(false)"),
            s("log off: \"prefix,Start application,Test\"")};
}

QStringList setControlMode(bool control)
{
    return {s("ISystem::GetPluginController()"),
            s("IPluginController::SetControlMode(%1)").arg(argumentText(control))};
}

QStringList startAddons()
{
    return {s("ISystem::GetAddonHost()"),
            s("IAddonHost::BeginAddons()"),
            s("ISystem::GetStatusInfo()"),
            s("IStatusInfo::GetAddonText()"),
            s("IAddonHost::StartAddon(7, \"addon text\")"),
            s("IAddonHost::EndAddons()")};
}

QStringList reportClose(const QString& kind = s("plugin"))
{
    return {s("ISystem::GetLifecycleObserver()"), s("ILifecycleObserver::NotifyPluginClosing()"),
            s("ISystem::GetPluginController()"),
            s("IPluginController::PluginClosed(%1)").arg(argumentText(kind)),
            s("log trace: PluginBase::ClosePlugin, \"test\"")};
}

QStringList deleteView()
{
    return {s("IPluginViewManager::~IPluginViewManager()"), s("delete viewModel")};
}

QStringList notifyClosed()
{
    return QStringList({s("ISystem::GetPluginHost()"), s("IPluginHost::GetSequencer()"),
                        s("ISequencer::PluginClosed()"), s("PostClosePlugin")})
           + setControlMode(false);
}

/// The whole start of a plug-in that uses nothing.
QStringList plainStart()
{
    return QStringList({s("ISystem::RegisterInfosectionProvider()"), s("PreStartPlugin")}) + createView()
           + initActionbar() + enablePrintTransfer() + setTransferFlag(false)
           + QStringList(s("PostStartPlugin")) + logStart() + setControlMode(false);
}

/// The whole close of a plug-in that uses nothing, up to the notification.
QStringList plainClose()
{
    return reportClose() + QStringList({s("PreClosePlugin"), s("ISystem::UnRegisterInfosectionProvider()")})
           + printButton(false) + deleteView();
}

/// A plug-in with add-ons and a protocol that overrides what it must and nothing else.
class PlainPlugin : public PluginBase
{
public:
    ~PlainPlugin() override { delete m_settingsProfile; } // which the base leaves to the plug-in

    QString GetPluginName(bool) override { return s("Plain"); }
    QString GetPluginIcon() override { return QString(); }
    void ApplyProfileItem(int, QVariant) override { }

protected:
    void FillPluginId(PluginId& id) override { id.hasProtocol = true; }
    IMenuList* CreatePluginMenu() override { return nullptr; }
    QObject* CreateViewModel() override { return nullptr; }
    QString GetViewModelName() override { return s("model"); }
    QString GetPluginScreen() override { return s("qrc:/Plain.qml"); }
    IPluginViewManager* CreateViewManager() override { return nullptr; }
};

/// The disconnect call is made also where there is no object; Qt warns of that.
void expectDisconnectOfNull()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(s("^QObject::disconnect: Unexpected null")));
}

} // namespace

class TestPluginBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // before InitPlugin()
    void isInertAfterConstruction();

    // InitPlugin()
    void initSteps();
    void initStepsWithProtocol();
    void initSetsTheStateBetweenTheSteps();
    void initRegistersTheMetaType();
    void initRefusedBefore();
    void initRefusedAfter();
    void initWithoutWorkflowManager();
    void initWithWorkflowManagerThatIsNoQObject();
    void initTwiceMakesAnotherProfile();

    // StartPlugin()
    void startSteps();
    void startStepsWithEverything();
    void startFlag_data();
    void startFlag();
    void startSetsStartedBeforeTheControlMode();
    void startTwice();
    void startRefusedBefore();
    void startRefusedAfter();
    void startAfterARefusedStart();
    void printButtonAtStart_data();
    void printButtonAtStart();
    void controlMode_data();
    void controlMode();
    void infoSection_data();
    void infoSection();
    void startLineAtEveryLevel_data();
    void startLineAtEveryLevel();

    // ClosePlugin()
    void closeSteps();
    void closeStepsWithEverything();
    void closeFlag_data();
    void closeFlag();
    void closeWithoutStart();
    void closeTwice();
    void closeIgnoresRefusals();
    void closeClearsStartedAfterItsReport();
    void closeLineAtTraceOnly_data();
    void closeLineAtTraceOnly();
    void printButtonAtClose_data();
    void printButtonAtClose();
    void closeCutsConnectionsBeforeItDeletes();
    void closeDeletesThePluginObjectLast();
    void closeLeavesThePointers();
    void closeWithoutViewManagerAndModel();
    void closeWithViewManagerThatIsNoQObject();

    // the notification
    void notificationComesAfter50ms();
    void notificationEndsWithThePlugin();
    void hostMayDeleteThePluginWhenItHasClosed();
    void notificationSteps();
    void startAgainAfterClose();
    void startAgainBeforeTheNotification();

    // the other operations
    void postStartAddons_data();
    void postStartAddons();
    void idCarriesTheCurrentName();
    void idCarriesEveryField();
    void setupView();
    void loadsTheView();
    void translatorLoadsEmbeddedFile();
    void translatorRefusesMissingFile();
    void menus();
    void profile();
    void smallOperations();
    void printRequestIsKept();
    void hooksMayBeLeftOut();
    void metaObject();

private:
    void initPlugin();
    void startPlugin();

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<TestPlugin> m_plugin;
    std::unique_ptr<LogCapture> m_log;
};

void TestPluginBase::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->answer("IStatusInfo::GetAddonText", "addon text");
    m_host->answer("IStatusInfo::GetLogPrefix", "prefix");
    m_plugin = std::make_unique<TestPlugin>(*m_host);
    m_plugin->id.addonNumber = 7;
    m_host->recordSignal(m_plugin.get(), &PluginBase::notifyPrintButtonEnableChange);
}

void TestPluginBase::cleanup()
{
    m_log.reset();
    // A plug-in that is started yet gives back what it owns.
    if (m_plugin)
        m_plugin->ClosePlugin();
    m_plugin.reset();
    m_host.reset();
}

/// Initialises the plug-in and forgets what that took. Log lines of level trace are recorded from here on.
void TestPluginBase::initPlugin()
{
    QVERIFY(m_host->init(*m_plugin));
    m_log = std::make_unique<LogCapture>(*m_host);
    m_host->clearCalls();
}

/// Initialises and starts the plug-in and forgets what that took.
void TestPluginBase::startPlugin()
{
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    m_host->clearCalls();
}

void TestPluginBase::isInertAfterConstruction()
{
    QVERIFY(m_plugin->ClosePlugin());
    QVERIFY(!m_plugin->SetupView());
    QVERIFY(m_plugin->GetPluginMenu() == nullptr);
    QVERIFY(m_plugin->GetProtocolMenu() == nullptr);
    QCOMPARE(m_plugin->version(), QString());
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::initSteps()
{
    QVERIFY(m_host->init(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "PreInitPlugin", "CreatePluginMenu", "FillPluginId", "PostInitPlugin",
                           "ISystem::GetWorkflowManager()");
}

void TestPluginBase::initStepsWithProtocol()
{
    m_plugin->id.hasProtocol = true;
    m_plugin->id.protocolName = s("Protocol");
    m_plugin->id.parentNumber = 3;
    m_plugin->id.protocolFlag = true;
    QVERIFY(m_host->init(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "PreInitPlugin", "CreatePluginMenu", "FillPluginId",
                           "ISystem::GetProtocolMenuFactory()",
                           "IProtocolMenuFactory::CreateProtocolMenu(\"Protocol\", 3, true)",
                           "InitPluginProtocolItems", "PostInitPlugin", "ISystem::GetWorkflowManager()");
    QCOMPARE(m_plugin->GetProtocolMenu(), m_host->protocolMenu());
}

/// What each hook finds: the pointers are there from the first one on, everything else follows step by step.
void TestPluginBase::initSetsTheStateBetweenTheSteps()
{
    NotedObject stale(*m_host, "stale");
    const std::unique_ptr<RecordingViewManager> staleManager(m_host->createViewManager());
    m_plugin->m_version = s("stale");
    m_plugin->m_pluginObject = &stale;
    m_plugin->m_viewModel = &stale;
    m_plugin->m_viewManager = staleManager.get();
    m_plugin->m_spare = &stale;
    m_plugin->m_protocolMenu = m_host->menuList();
    m_plugin->m_started = true;
    m_plugin->m_printRequested = true;
    m_plugin->menu = m_host->menuList();
    m_plugin->id.hasProtocol = true;

    m_plugin->onHook = [this, &stale](const QString& hook) {
        const auto state = [this](bool value, const char* text) {
            if (value)
                m_host->note(QLatin1String("  ") + s(text));
        };
        const TestPlugin& p = *m_plugin;
        state(
            p.m_system == m_host->system() && p.m_view == m_host->view() && p.m_menuList == m_host->menuList()
                && p.m_weighingParameters == m_host->weighingParameters() && p.m_infobox == m_host->infobox(),
            "host pointers");
        state(p.m_version.isEmpty(), "empty version");
        state(p.m_settingsProfile != nullptr, "profile");
        state(!p.m_pluginObject && !p.m_viewModel && !p.m_viewManager && !p.m_spare, "null objects");
        state(p.m_pluginObject == &stale && p.m_viewModel == &stale && p.m_spare == &stale, "stale objects");
        state(p.m_pluginMenu == m_host->menuList(), "plug-in menu");
        state(!p.m_started && !p.m_printRequested, "cleared flags");
        state(p.m_protocolMenu == m_host->protocolMenu(), "protocol menu");
        Q_UNUSED(hook)
    };
    QVERIFY(m_host->init(*m_plugin));
    m_plugin->onHook = nullptr;
    m_host->ignore("ISystem");
    BRIMVALE_COMPARE_CALLS(*m_host,                                                                  //
                           "PreInitPlugin", "  host pointers", "  empty version", "  stale objects", //
                           "CreatePluginMenu", "  host pointers", "  empty version", "  profile",
                           "  null objects", //
                           "FillPluginId", "  host pointers", "  empty version", "  profile",
                           "  null objects", "  plug-in menu", "  cleared flags", //
                           "ISystem::GetProtocolMenuFactory()",
                           "IProtocolMenuFactory::CreateProtocolMenu(\"\", 0, false)", //
                           "InitPluginProtocolItems", "  host pointers", "  empty version", "  profile",
                           "  null objects", "  plug-in menu", "  cleared flags", "  protocol menu", //
                           "PostInitPlugin", "  host pointers", "  empty version", "  profile",
                           "  null objects", "  plug-in menu", "  cleared flags", "  protocol menu",
                           "ISystem::GetWorkflowManager()");

    // Without protocol the menu is taken back.
    delete m_plugin->m_settingsProfile;
    m_plugin->id.hasProtocol = false;
    QVERIFY(m_host->init(*m_plugin));
    QVERIFY(m_plugin->GetProtocolMenu() == nullptr);
}

void TestPluginBase::initRegistersTheMetaType()
{
    QVERIFY(m_host->init(*m_plugin));
    QVERIFY(QMetaType::type("MesswertInfo*") != QMetaType::UnknownType);
}

void TestPluginBase::initRefusedBefore()
{
    m_plugin->refusing = {s("PreInitPlugin")};
    QVERIFY(!m_host->init(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "PreInitPlugin");
    QVERIFY(m_plugin->m_settingsProfile == nullptr);
    QCOMPARE(m_plugin->m_system, m_host->system());
}

void TestPluginBase::initRefusedAfter()
{
    m_plugin->refusing = {s("PostInitPlugin")};
    QVERIFY(!m_host->init(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "PreInitPlugin", "CreatePluginMenu", "FillPluginId", "PostInitPlugin");
    QVERIFY(m_plugin->m_settingsProfile != nullptr);

    // The print button is not connected to the workflow manager.
    emit m_plugin->notifyPrintButtonEnableChange(true);
    BRIMVALE_COMPARE_CALLS(*m_host, "signal TestPlugin::notifyPrintButtonEnableChange(true)");
}

void TestPluginBase::initWithoutWorkflowManager()
{
    m_host->answer("ISystem::GetWorkflowManager", nullptr);
    QVERIFY(m_host->init(*m_plugin));
    m_host->clearCalls();
    emit m_plugin->notifyPrintButtonEnableChange(true);
    BRIMVALE_COMPARE_CALLS(*m_host, "signal TestPlugin::notifyPrintButtonEnableChange(true)");
}

void TestPluginBase::initWithWorkflowManagerThatIsNoQObject()
{
    PlainWorkflowManager manager;
    m_host->answer<IWfM*>("ISystem::GetWorkflowManager", &manager);
    // The connect call is made all the same.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(s("^QObject::connect: Cannot connect")));
    QVERIFY(m_host->init(*m_plugin));
    m_host->clearCalls();
    emit m_plugin->notifyPrintButtonEnableChange(true);
    BRIMVALE_COMPARE_CALLS(*m_host, "signal TestPlugin::notifyPrintButtonEnableChange(true)");
}

void TestPluginBase::initTwiceMakesAnotherProfile()
{
    QVERIFY(m_host->init(*m_plugin));
    const std::unique_ptr<SettingsProfile> first(m_plugin->m_settingsProfile);
    first->SetProfileItem(1, 5);
    QVERIFY(m_host->init(*m_plugin));
    QVERIFY(m_plugin->m_settingsProfile != first.get());
    QVERIFY(!m_plugin->m_settingsProfile->GetProfileItem(1).isValid());
}

void TestPluginBase::startSteps()
{
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, plainStart());
    QVERIFY(m_plugin->m_started);
    QCOMPARE(m_host->contextObject("test"), m_plugin->m_viewModel);
}

void TestPluginBase::startStepsWithEverything()
{
    m_plugin->id.hasProtocol = true;
    m_plugin->id.resetOnStart = true;
    m_plugin->id.usesCalibrationService = true;
    m_plugin->id.usesLevellingService = true;
    m_plugin->id.hasAddons = true;
    m_plugin->id.transferFlag = true;
    m_plugin->id.kind = s("control");
    m_plugin->viewModelMaker = [this] {
        auto* const model = new NotedObject(*m_host, "viewModel");
        model->warnings = new WarnInfo(model, QString(), QString(), false, false);
        return model;
    };
    m_host->setActiveTargets({2});
    m_host->answer("ISensorState::IsLevellingNotAdjusted", true);
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, //
                           "ISystem::RegisterInfosectionProvider()", "PreStartPlugin", createView(),
                           initActionbar(), resetHost(), "AddToPoolPluginProtocolItems", //
                           askTarget(1), askTarget(2), askTarget(3), askTarget(4), askTarget(5),
                           printButton(true), setTransferFlag(true), "PostStartPlugin", //
                           "ISystem::GetCalibrationService()",
                           "ICalibrationService::GetCalibrationWarningText()",
                           "ISystem::GetCalibrationService()", //
                           "ISystem::GetSensorState()", "ISensorState::IsLevellingNotAdjusted()",
                           "ISystem::GetSensorState()", //
                           logStart(), setControlMode(true), startAddons());
}

void TestPluginBase::startFlag_data()
{
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QStringList>("expected");
    const QStringList begin = QStringList({s("ISystem::RegisterInfosectionProvider()"), s("PreStartPlugin")})
                              + createView() + initActionbar();
    const QStringList middle =
        enablePrintTransfer() + setTransferFlag(false) + QStringList(s("PostStartPlugin"));
    const QStringList end = logStart() + setControlMode(false);

    QTest::newRow("resetOnStart") << s("resetOnStart") << begin + resetHost() + middle + end;
    QTest::newRow("hasProtocol") << s("hasProtocol")
                                 << begin + QStringList(s("AddToPoolPluginProtocolItems")) + middle + end;
    QTest::newRow("transferFlag") << s("transferFlag")
                                  << begin + enablePrintTransfer() + setTransferFlag(true)
                                         + QStringList(s("PostStartPlugin")) + end;
    // The view model of this test has no warnings to show.
    QTest::newRow("usesCalibrationService")
        << s("usesCalibrationService")
        << begin + middle + QStringList(s("ISystem::GetCalibrationService()")) + end;
    QTest::newRow("usesLevellingService")
        << s("usesLevellingService")
        << begin + middle
               + QStringList({s("ISystem::GetSensorState()"), s("ISensorState::IsLevellingNotAdjusted()")})
               + end;
    QTest::newRow("hasAddons") << s("hasAddons") << plainStart() + startAddons();
    // These flags say nothing at the start.
    QTest::newRow("checkPrintOnClose") << s("checkPrintOnClose") << plainStart();
    QTest::newRow("protocolFlag") << s("protocolFlag") << plainStart();
    QTest::newRow("spare flags") << s("spare flags") << plainStart();
}

void TestPluginBase::startFlag()
{
    QFETCH(QString, flag);
    QFETCH(QStringList, expected);
    setFlag(m_plugin->id, flag);
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, expected);
}

void TestPluginBase::startSetsStartedBeforeTheControlMode()
{
    initPlugin();
    m_host->ignore("I*::*");
    m_host->onCall("IStatusInfo::GetLogPrefix",
                   [this] { m_host->note(s("log prefix: %1").arg(m_plugin->m_started)); });
    m_host->onCall("IPluginController::SetControlMode",
                   [this] { m_host->note(s("control mode: %1").arg(m_plugin->m_started)); });
    m_host->clearCalls();
    QVERIFY(m_host->start(*m_plugin));
    QStringList calls = m_host->takeCalls().filter(QStringLiteral(": "));
    calls.removeAll(s("log off: \"prefix,Start application,Test\""));
    BRIMVALE_COMPARE_CALLS(calls, "log prefix: 0", "control mode: 1");
}

void TestPluginBase::startTwice()
{
    startPlugin();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::startRefusedBefore()
{
    m_plugin->refusing = {s("PreStartPlugin")};
    initPlugin();
    QVERIFY(!m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::RegisterInfosectionProvider()", "PreStartPlugin");
    QVERIFY(!m_plugin->m_started);
    QVERIFY(m_plugin->m_viewModel == nullptr);
}

void TestPluginBase::startRefusedAfter()
{
    m_plugin->refusing = {s("PostStartPlugin")};
    initPlugin();
    QVERIFY(!m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::RegisterInfosectionProvider()", "PreStartPlugin", createView(),
                           initActionbar(), enablePrintTransfer(), setTransferFlag(false), "PostStartPlugin");
    QVERIFY(!m_plugin->m_started);

    // What the start made stays, also when the plug-in is closed: it was not started.
    QVERIFY(m_plugin->m_viewModel != nullptr);
    QVERIFY(m_plugin->m_viewManager != nullptr);
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host);

    delete m_plugin->m_viewManager;
    delete m_plugin->m_viewModel;
}

void TestPluginBase::startAfterARefusedStart()
{
    m_plugin->refusing = {s("PostStartPlugin")};
    initPlugin();
    QVERIFY(!m_host->start(*m_plugin));
    const std::unique_ptr<QObject> model(m_plugin->m_viewModel);
    const std::unique_ptr<IPluginViewManager> manager(m_plugin->m_viewManager);
    m_host->clearCalls();

    m_plugin->refusing.clear();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, plainStart());
    QVERIFY(m_plugin->m_viewModel != model.get());
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, plainClose(), notifyClosed());
}

void TestPluginBase::printButtonAtStart_data()
{
    QTest::addColumn<QList<int>>("active");
    QTest::addColumn<bool>("expected");

    QTest::newRow("no output") << QList<int>() << false;
    for (int target = 1; target <= 5; ++target)
        QTest::newRow(qPrintable(s("output %1").arg(target))) << QList<int>{target} << true;
    QTest::newRow("all outputs") << QList<int>{1, 2, 3, 4, 5} << true;
}

void TestPluginBase::printButtonAtStart()
{
    QFETCH(QList<int>, active);
    QFETCH(bool, expected);
    m_host->setActiveTargets(active);
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("ITransferTarget"), "ITransferTarget#1::IsActive()",
                           "ITransferTarget#2::IsActive()", "ITransferTarget#3::IsActive()",
                           "ITransferTarget#4::IsActive()", "ITransferTarget#5::IsActive()");
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IWfM"),
                           s("IWfM::onPrintButtonEnableChange(%1)").arg(argumentText(expected)));
}

void TestPluginBase::controlMode_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("control");

    QTest::newRow("control") << s("control") << true;
    QTest::newRow("other case") << s("Control") << false;
    QTest::newRow("all capitals") << s("CONTROL") << false;
    QTest::newRow("with blank") << s("control ") << false;
    QTest::newRow("plugin") << s("plugin") << false;
    QTest::newRow("addon") << s("addon") << false;
    QTest::newRow("empty") << QString() << false;
}

void TestPluginBase::controlMode()
{
    QFETCH(QString, kind);
    QFETCH(bool, control);
    m_plugin->id.kind = kind;
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IPluginController"), "IPluginController::GetActivePlugin()",
                           s("IPluginController::SetControlMode(%1)").arg(argumentText(control)),
                           s("IPluginController::PluginClosed(%1)").arg(argumentText(kind)),
                           "IPluginController::SetControlMode(false)");
}

void TestPluginBase::infoSection_data()
{
    QTest::addColumn<int>("parentNumber");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("provider") << 0
                              << QStringList({s("ISystem::RegisterInfosectionProvider()"),
                                              s("ISystem::UnRegisterInfosectionProvider()")});
    QTest::newRow("child of another") << 1 << QStringList();
    QTest::newRow("negative number") << -1 << QStringList();
}

void TestPluginBase::infoSection()
{
    QFETCH(int, parentNumber);
    QFETCH(QStringList, expected);
    m_plugin->id.parentNumber = parentNumber;
    initPlugin();
    QVERIFY(m_host->start(*m_plugin));
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("ISystem::*InfosectionProvider"), expected);

    m_host->clearCalls();
    m_plugin->RegisterInfosectionProvider();
    m_plugin->UnRegisterInfosectionProvider();
    BRIMVALE_COMPARE_CALLS(*m_host, expected);
}

void TestPluginBase::startLineAtEveryLevel_data()
{
    QTest::addColumn<int>("level");

    QTest::newRow("trace") << int(QsLogging::TraceLevel);
    QTest::newRow("fatal") << int(QsLogging::FatalLevel);
    QTest::newRow("off") << int(QsLogging::OffLevel);
}

void TestPluginBase::startLineAtEveryLevel()
{
    QFETCH(int, level);
    QVERIFY(m_host->init(*m_plugin));
    LogCapture log(static_cast<QsLogging::Level>(level));
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(log.takeLines(), "off: \"prefix,Start application,Test\"");
}

void TestPluginBase::closeSteps()
{
    startPlugin();
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, plainClose());
    QVERIFY(!m_plugin->m_started);
    QVERIFY(m_host->waitForClosed());
    BRIMVALE_COMPARE_CALLS(*m_host, notifyClosed());
}

void TestPluginBase::closeStepsWithEverything()
{
    m_plugin->id.hasProtocol = true;
    m_plugin->id.checkPrintOnClose = true;
    m_plugin->id.usesCalibrationService = true;
    m_plugin->id.usesLevellingService = true;
    m_plugin->id.hasAddons = true;
    m_plugin->id.kind = s("control");
    startPlugin();
    m_plugin->m_pluginObject = new NotedObject(*m_host, "pluginObject");
    m_host->setActiveTargets({5});
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, //
                           "RemoveFromPoolPluginProtocolItems", reportClose(s("control")),
                           "ISystem::GetCalibrationService()", "ISystem::GetSensorState()", "PreClosePlugin",
                           "ISystem::UnRegisterInfosectionProvider()", //
                           "ISystem::IsHostPrintTransferEnabled()",
                           "ISystem::SetHostPrintTransferEnabled(true)", askTarget(1), askTarget(2),
                           askTarget(3), askTarget(4), askTarget(5),
                           printButton(true), //
                           deleteView(), "delete pluginObject");
    QVERIFY(m_host->waitForClosed());
    BRIMVALE_COMPARE_CALLS(*m_host, notifyClosed());
}

void TestPluginBase::closeFlag_data()
{
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QStringList>("expected");
    const QStringList end = QStringList({s("PreClosePlugin"), s("ISystem::UnRegisterInfosectionProvider()")})
                            + printButton(false) + deleteView();

    QTest::newRow("hasProtocol") << s("hasProtocol")
                                 << QStringList(s("RemoveFromPoolPluginProtocolItems")) + plainClose();
    QTest::newRow("usesCalibrationService")
        << s("usesCalibrationService")
        << reportClose() + QStringList(s("ISystem::GetCalibrationService()")) + end;
    QTest::newRow("usesLevellingService")
        << s("usesLevellingService") << reportClose() + QStringList(s("ISystem::GetSensorState()")) + end;
    // These flags say nothing at the close.
    QTest::newRow("resetOnStart") << s("resetOnStart") << plainClose();
    QTest::newRow("transferFlag") << s("transferFlag") << plainClose();
    QTest::newRow("hasAddons") << s("hasAddons") << plainClose();
    QTest::newRow("protocolFlag") << s("protocolFlag") << plainClose();
    QTest::newRow("spare flags") << s("spare flags") << plainClose();
}

void TestPluginBase::closeFlag()
{
    QFETCH(QString, flag);
    QFETCH(QStringList, expected);
    setFlag(m_plugin->id, flag);
    startPlugin();
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, expected);
}

void TestPluginBase::closeWithoutStart()
{
    initPlugin();
    SignalRecorder signals_(m_plugin.get());
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(signals_);
    // No timer was started: nothing comes later either.
    QTest::qWait(100);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::closeTwice()
{
    startPlugin();
    QVERIFY(m_host->close(*m_plugin));
    m_host->clearCalls();
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::closeIgnoresRefusals()
{
    m_plugin->refusing = {s("PreClosePlugin"), s("PostClosePlugin")};
    startPlugin();
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, plainClose(), notifyClosed());
}

void TestPluginBase::closeClearsStartedAfterItsReport()
{
    m_plugin->id.usesCalibrationService = true;
    startPlugin();
    m_host->ignore("I*::*");
    const auto noteState = [this](const char* where) {
        return [this, where] { m_host->note(s("%1: %2").arg(s(where)).arg(m_plugin->m_started)); };
    };
    m_host->onCall("IPluginController::PluginClosed", noteState("report"));
    m_host->onCall("ISystem::GetCalibrationService", noteState("services"));
    QVERIFY(m_plugin->ClosePlugin());
    const QStringList calls = m_host->takeCalls();
    BRIMVALE_COMPARE_CALLS(calls.mid(0, 3), "report: 1", "log trace: PluginBase::ClosePlugin, \"test\"",
                           "services: 0");
}

void TestPluginBase::closeLineAtTraceOnly_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("trace") << int(QsLogging::TraceLevel)
                           << QStringList(s("trace: PluginBase::ClosePlugin, \"test\""));
    QTest::newRow("debug") << int(QsLogging::DebugLevel) << QStringList();
    QTest::newRow("off") << int(QsLogging::OffLevel) << QStringList();
}

void TestPluginBase::closeLineAtTraceOnly()
{
    QFETCH(int, level);
    QFETCH(QStringList, expected);
    startPlugin();
    LogCapture log(static_cast<QsLogging::Level>(level));
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(log.takeLines(), expected);
}

void TestPluginBase::printButtonAtClose_data()
{
    QTest::addColumn<bool>("checks");
    QTest::addColumn<bool>("transferEnabled");
    QTest::addColumn<QList<int>>("active");
    QTest::addColumn<QStringList>("expected");
    const QStringList asked(s("ISystem::IsHostPrintTransferEnabled()"));
    const QStringList enabled = asked + QStringList(s("ISystem::SetHostPrintTransferEnabled(true)"));

    QTest::newRow("without check") << false << false << QList<int>{1} << printButton(false);
    QTest::newRow("without check, transfer on") << false << true << QList<int>{1} << printButton(false);
    QTest::newRow("transfer on: outputs are not asked")
        << true << true << QList<int>() << asked + printButton(true);
    QTest::newRow("first output") << true << false << QList<int>{1}
                                  << enabled + askTarget(1) + printButton(true);
    QTest::newRow("second output") << true << false << QList<int>{2, 3, 4, 5}
                                   << enabled + askTarget(1) + askTarget(2) + printButton(true);
    QTest::newRow("third output") << true << false << QList<int>{3}
                                  << enabled + askTarget(1) + askTarget(2) + askTarget(3) + printButton(true);
    QTest::newRow("fourth output") << true << false << QList<int>{4, 5}
                                   << enabled + askTarget(1) + askTarget(2) + askTarget(3) + askTarget(4)
                                          + printButton(true);
    QTest::newRow("fifth output") << true << false << QList<int>{5}
                                  << enabled + askTarget(1) + askTarget(2) + askTarget(3) + askTarget(4)
                                         + askTarget(5) + printButton(true);
    QTest::newRow("no output") << true << false << QList<int>()
                               << enabled + askTarget(1) + askTarget(2) + askTarget(3) + askTarget(4)
                                      + askTarget(5) + printButton(false);
}

void TestPluginBase::printButtonAtClose()
{
    QFETCH(bool, checks);
    QFETCH(bool, transferEnabled);
    QFETCH(QList<int>, active);
    QFETCH(QStringList, expected);
    m_plugin->id.checkPrintOnClose = checks;
    startPlugin();
    m_host->answer("ISystem::IsHostPrintTransferEnabled", transferEnabled);
    m_host->setActiveTargets(active);
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, reportClose(), "PreClosePlugin",
                           "ISystem::UnRegisterInfosectionProvider()", expected, deleteView());
}

/// Each of the four senders would be heard if it were deleted, or if another one signalled at its end, before all
/// connections are cut.
void TestPluginBase::closeCutsConnectionsBeforeItDeletes()
{
    QPointer<RecordingViewManager> manager;
    m_plugin->viewManagerMaker = [this, &manager] {
        manager = m_host->createViewManager();
        return manager;
    };
    startPlugin();
    auto* const model = static_cast<NotedObject*>(m_plugin->m_viewModel);
    auto* const object = new NotedObject(*m_host, "pluginObject");
    m_plugin->m_pluginObject = object;
    for (QObject* sender : {static_cast<QObject*>(manager), static_cast<QObject*>(model),
                            static_cast<QObject*>(object), static_cast<QObject*>(m_plugin.get())})
        connect(sender, &QObject::destroyed, this, [this] { m_host->note("a connection is left"); });
    m_host->recordSignal(model, &NotedObject::changed);
    m_host->recordSignal(object, &NotedObject::changed);
    // At the end of the view model, which is deleted first, all of them still exist.
    model->onEnd = [this, model, object] {
        emit m_plugin->notifyPrintButtonEnableChange(true);
        emit object->changed();
        emit model->changed();
    };

    m_host->ignore("I*::*");
    m_host->recordSignal(m_plugin.get(), &PluginBase::notifyPrintButtonEnableChange);
    QVERIFY(m_plugin->ClosePlugin());
    // The signal of the close itself comes twice, since it is recorded twice here.
    BRIMVALE_COMPARE_CALLS(*m_host, "log trace: PluginBase::ClosePlugin, \"test\"", "PreClosePlugin",
                           "signal TestPlugin::notifyPrintButtonEnableChange(false)",
                           "signal TestPlugin::notifyPrintButtonEnableChange(false)", "delete viewModel",
                           "delete pluginObject");
    QVERIFY(m_host->waitForClosed());
    m_plugin.reset();
    QVERIFY(!m_host->calls().contains(s("a connection is left")));
}

void TestPluginBase::closeDeletesThePluginObjectLast()
{
    startPlugin();
    m_plugin->m_pluginObject = new NotedObject(*m_host, "pluginObject");
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, plainClose(), "delete pluginObject");
}

void TestPluginBase::closeLeavesThePointers()
{
    startPlugin();
    const QObject* const model = m_plugin->m_viewModel;
    const IPluginViewManager* const manager = m_plugin->m_viewManager;
    QObject* const object = new NotedObject(*m_host, "pluginObject");
    m_plugin->m_pluginObject = object;
    QVERIFY(m_plugin->ClosePlugin());
    QVERIFY(m_plugin->m_viewModel == model);
    QVERIFY(m_plugin->m_viewManager == manager);
    QVERIFY(m_plugin->m_pluginObject == object);
}

void TestPluginBase::closeWithoutViewManagerAndModel()
{
    m_plugin->viewManagerMaker = [] { return nullptr; };
    m_plugin->viewModelMaker = [] { return nullptr; };
    startPlugin();
    expectDisconnectOfNull();
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, reportClose(), "PreClosePlugin",
                           "ISystem::UnRegisterInfosectionProvider()", printButton(false));
}

void TestPluginBase::closeWithViewManagerThatIsNoQObject()
{
    m_plugin->viewManagerMaker = [this] { return new PlainViewManager(*m_host); };
    startPlugin();
    expectDisconnectOfNull();
    QVERIFY(m_plugin->ClosePlugin());
    BRIMVALE_COMPARE_CALLS(*m_host, reportClose(), "PreClosePlugin",
                           "ISystem::UnRegisterInfosectionProvider()", printButton(false),
                           "delete plain view manager", "delete viewModel");
}

void TestPluginBase::notificationComesAfter50ms()
{
    startPlugin();
    QElapsedTimer timer;
    qint64 elapsed = -1;
    m_host->onCall("ISequencer::PluginClosed", [&] { elapsed = timer.elapsed(); });
    timer.start();
    QVERIFY(m_plugin->ClosePlugin());
    m_host->clearCalls();
    QVERIFY(m_host->waitForClosed());
    QVERIFY2(elapsed >= 50, qPrintable(QString::number(elapsed)));
    BRIMVALE_COMPARE_CALLS(*m_host, notifyClosed());
    // It comes once.
    QTest::qWait(100);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::notificationEndsWithThePlugin()
{
    startPlugin();
    QVERIFY(m_plugin->ClosePlugin());
    m_plugin.reset();
    m_host->clearCalls();
    QTest::qWait(100);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::hostMayDeleteThePluginWhenItHasClosed()
{
    startPlugin();
    QVERIFY(m_plugin->ClosePlugin());
    m_host->clearCalls();
    m_host->onCall("ISequencer::PluginClosed", [this] { m_plugin.reset(); });
    QVERIFY(m_host->waitForClosed());
    QVERIFY(m_plugin == nullptr);
    QCOMPARE(m_host->callsTo("ISequencer"), QStringList(s("ISequencer::PluginClosed()")));
    QCOMPARE(m_host->callsTo("IPluginController"), QStringList());
}

void TestPluginBase::notificationSteps()
{
    initPlugin();
    m_plugin->onNotifyClosePlugin();
    BRIMVALE_COMPARE_CALLS(*m_host, notifyClosed());
}

void TestPluginBase::startAgainAfterClose()
{
    startPlugin();
    QVERIFY(m_host->close(*m_plugin));
    m_host->clearCalls();

    // The close has cut the connections of the plug-in's signals, that to the workflow manager included.
    m_host->recordSignal(m_plugin.get(), &PluginBase::notifyPrintButtonEnableChange);
    const auto withoutSlot = [](QStringList calls) {
        calls.removeAll(s("IWfM::onPrintButtonEnableChange(false)"));
        return calls;
    };
    QVERIFY(m_host->start(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, withoutSlot(plainStart()));
    QVERIFY(m_host->close(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host, withoutSlot(plainClose()), notifyClosed());
}

void TestPluginBase::startAgainBeforeTheNotification()
{
    startPlugin();
    QVERIFY(m_plugin->ClosePlugin());
    QVERIFY(m_host->start(*m_plugin));
    m_host->clearCalls();
    // The notification of the first close comes all the same.
    QVERIFY(m_host->waitForClosed());
    BRIMVALE_COMPARE_CALLS(*m_host, notifyClosed());
    QVERIFY(m_plugin->m_started);
}

void TestPluginBase::postStartAddons_data()
{
    QTest::addColumn<bool>("hasAddons");
    QTest::addColumn<bool>("isPending");
    QTest::addColumn<bool>("isRefused");
    QTest::addColumn<QStringList>("expected");
    const QStringList endAddons{s("ISystem::GetAddonHost()"), s("IAddonHost::EndAddons()")};
    const QStringList ask{s("PostInitPluginAndAddons"), s("ISystem::GetPluginHost()"),
                          s("IPluginHost::GetAddonState()"), s("IAddonState::IsPending()")};
    const QStringList goOn{s("ISystem::GetPluginHost()"), s("IPluginHost::GetSequencer()"),
                           s("ISequencer::Continue()")};

    QTest::newRow("no add-ons") << false << false << false << ask;
    QTest::newRow("no add-ons, host waits") << false << true << false << ask + goOn;
    QTest::newRow("add-ons") << true << false << false << endAddons + ask;
    QTest::newRow("add-ons, host waits") << true << true << false << endAddons + ask + goOn;
    QTest::newRow("hook refuses") << true << true << true << endAddons + ask + goOn;
}

void TestPluginBase::postStartAddons()
{
    QFETCH(bool, hasAddons);
    QFETCH(bool, isPending);
    QFETCH(bool, isRefused);
    QFETCH(QStringList, expected);
    m_plugin->id.hasAddons = hasAddons;
    if (isRefused)
        m_plugin->refusing = {s("PostInitPluginAndAddons")};
    startPlugin();
    m_host->answer("IAddonState::IsPending", isPending);
    QVERIFY(m_plugin->PostStartAddons());
    BRIMVALE_COMPARE_CALLS(*m_host, expected);
}

void TestPluginBase::idCarriesTheCurrentName()
{
    m_plugin->id.name = s("name of FillPluginId");
    initPlugin();
    QCOMPARE(m_plugin->GetId().name, s("Prüfung"));
    BRIMVALE_COMPARE_CALLS(*m_host, "GetPluginName(true)");
    m_plugin->translatedName = s("Essai");
    QCOMPARE(m_plugin->GetId().name, s("Essai"));
    QCOMPARE(m_plugin->m_id.name, s("Essai"));
}

void TestPluginBase::idCarriesEveryField()
{
    m_plugin->id = {s("identifier"),
                    s("kind"),
                    s("name"),
                    s("text1"),
                    s("text2"),
                    s("text3"),
                    s("protocol"),
                    11,
                    12,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false,
                    true,
                    false};
    initPlugin();
    const PluginId id = m_plugin->GetId();
    QCOMPARE(id.identifier, s("identifier"));
    QCOMPARE(id.kind, s("kind"));
    QCOMPARE(id.name, s("Prüfung"));
    QCOMPARE(id.text1, s("text1"));
    QCOMPARE(id.text2, s("text2"));
    QCOMPARE(id.text3, s("text3"));
    QCOMPARE(id.protocolName, s("protocol"));
    QCOMPARE(id.addonNumber, 11);
    QCOMPARE(id.parentNumber, 12);
    QCOMPARE(id.hasProtocol, true);
    QCOMPARE(id.protocolFlag, false);
    QCOMPARE(id.flag1, true);
    QCOMPARE(id.flag2, false);
    QCOMPARE(id.flag3, true);
    QCOMPARE(id.flag4, false);
    QCOMPARE(id.flag5, true);
    QCOMPARE(id.checkPrintOnClose, false);
    QCOMPARE(id.resetOnStart, true);
    QCOMPARE(id.usesCalibrationService, false);
    QCOMPARE(id.usesLevellingService, true);
    QCOMPARE(id.hasAddons, false);
    QCOMPARE(id.flag6, true);
    QCOMPARE(id.flag7, false);
    QCOMPARE(id.flag8, true);
    QCOMPARE(id.transferFlag, false);
}

void TestPluginBase::setupView()
{
    initPlugin();
    QVERIFY(!m_plugin->SetupView());
    BRIMVALE_COMPARE_CALLS(*m_host);
    QVERIFY(m_host->start(*m_plugin));
    m_host->clearCalls();
    QVERIFY(m_plugin->SetupView());
    BRIMVALE_COMPARE_CALLS(*m_host, "IPluginViewManager::Setup(0)");
}

void TestPluginBase::loadsTheView()
{
    initPlugin();
    QObject model;
    QVERIFY(m_plugin->LoadView(&model, s("name"), s("qrc:/Other.qml")));
    BRIMVALE_COMPARE_CALLS(*m_host, "IView::SetContextObject(\"name\", QObject)", "IView::GetScreenLoader()",
                           "IScreenLoader::LoadScreen(\"qrc:/Other.qml\")");
    QCOMPARE(m_host->contextObject("name"), &model);
}

void TestPluginBase::translatorLoadsEmbeddedFile()
{
    QTranslator translator;
    QVERIFY(m_plugin->PluginTranslator(&translator, s("test_plugin_de")));
    QCOMPARE(translator.translate("TestPlugin", "Gross weight"), s("Bruttogewicht"));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::translatorRefusesMissingFile()
{
    LogCapture log;
    QTranslator translator;
    QVERIFY(!m_plugin->PluginTranslator(&translator, s("test_plugin_xx")));
    QVERIFY(!m_plugin->PluginTranslator(&translator, s("test_plugin_de_AT"))); // not that of a shorter name
    BRIMVALE_COMPARE_CALLS(log.takeLines());
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::menus()
{
    m_plugin->menu = m_host->menuList();
    initPlugin();
    QCOMPARE(m_plugin->GetPluginMenu(), m_host->menuList());
    QVERIFY(m_plugin->GetProtocolMenu() == nullptr);
}

void TestPluginBase::profile()
{
    initPlugin();
    m_plugin->SetProfileItem(3, 5, s("not used"));
    QCOMPARE(m_plugin->m_settingsProfile->GetProfileItem(3), QVariant(5));
    // Applying is off until the profile is initialised.
    BRIMVALE_COMPARE_CALLS(*m_host);

    m_plugin->InitializeProfile();
    m_plugin->SetProfileItem(3, 6, QString());
    BRIMVALE_COMPARE_CALLS(*m_host, "ApplyProfileItem(3, QVariant(int, 6))");
    m_plugin->SetProfileItem(3, 6, QString());
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::smallOperations()
{
    initPlugin();
    QCOMPARE(m_plugin->GetPluginNameShort(true), s("Prüfung"));
    QCOMPARE(m_plugin->GetPluginNameShort(false), s("Test"));
    QCOMPARE(m_plugin->getPluginScreenPath(), s("qrc:/Test.qml"));
    BRIMVALE_COMPARE_CALLS(*m_host, "GetPluginName(true)", "GetPluginName(false)", "GetPluginScreen");

    QCOMPARE(m_plugin->GetSelfRefAsQObject(), m_plugin.get());
    QCOMPARE(m_plugin->IsAddonAccepted(0), false);
    QCOMPARE(m_plugin->IsAddonAccepted(7), false);
    QCOMPARE(m_plugin->version(), QString());
    m_plugin->setVersion(s("1.2"));
    QCOMPARE(m_plugin->version(), s("1.2"));
    m_plugin->onNumericDialogClosed(1, true, s("5"));
    m_plugin->TranslateWarnInfo();
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::printRequestIsKept()
{
    startPlugin();
    QVERIFY(!m_plugin->m_printRequested);
    m_plugin->onDoPrint();
    QVERIFY(m_plugin->m_printRequested);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPluginBase::hooksMayBeLeftOut()
{
    PlainPlugin plugin;
    QVERIFY(m_host->init(plugin));
    QVERIFY(plugin.GetProtocolMenu() != nullptr);
    const std::unique_ptr<IMenuList> menu(plugin.GetProtocolMenu());
    QVERIFY(m_host->start(plugin));
    QVERIFY(plugin.StartPlugin()); // started, hence nothing to do
    m_host->clearCalls();

    QVERIFY(plugin.PostStartAddons());
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetPluginHost()", "IPluginHost::GetAddonState()",
                           "IAddonState::IsPending()");
    expectDisconnectOfNull();
    QVERIFY(m_host->close(plugin));
    QCOMPARE(m_host->takeCalls().filter(s("PluginClosed")),
             QStringList({s("IPluginController::PluginClosed(\"\")"), s("ISequencer::PluginClosed()")}));
}

void TestPluginBase::metaObject()
{
    const QMetaObject& meta = PluginBase::staticMetaObject;
    QCOMPARE(meta.className(), "Brimvale::PluginBase");
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        methods.append(s(method.methodType() == QMetaMethod::Signal ? "signal " : "slot ")
                       + QString::fromLatin1(method.methodSignature()));
    }
    BRIMVALE_COMPARE_CALLS(
        methods, "signal notifyPrintButtonEnableChange(bool)", "slot onCalibrationServiceStateChanged()",
        "slot onLevellingServiceStateChanged(bool)", "slot onLevellingNotAdjustedChanged()",
        "slot onNumericDialogClosed(int,bool,QString)", "slot onNotifyClosePlugin()", "slot onDoPrint()");
}

QTEST_GUILESS_MAIN(TestPluginBase)
#include "tst_pluginbase.moc"
