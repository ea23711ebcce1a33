// SPDX-License-Identifier: BSD-3-Clause
#include "host/Host.h"

#include "ISystemRegister.h"
#include "WarnInfo.h"
#include "host/PluginGuard.h"
#include "host/TransferLog.h"

#include <QMetaMethod>
#include <QVariant>

#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

constexpr int TransferLogTarget = 1;

/// The display model that an object has in its property "messwertInfo"; null for none.
QObject* displayOf(const QObject* object)
{
    QObject* display = nullptr;
    // Code of the plug-in: that it fails is told when the screen reads the property.
    exceptionOf([&] { display = object->property("messwertInfo").value<QObject*>(); });
    return display;
}

/// The warnings that the invokable warnInfo() of an object returns; null for none. Authors write its type
/// with or without the namespace, as the base class of plug-ins allows.
QObject* warningsOf(QObject* object)
{
    const int index = object->metaObject()->indexOfMethod("warnInfo()");
    if (index < 0) {
        return nullptr;
    }
    const QMetaMethod method = object->metaObject()->method(index);
    const QByteArray type = method.typeName();
    if (type != "WarnInfo*" && type != "Brimvale::WarnInfo*") {
        return nullptr;
    }
    WarnInfo* warnings = nullptr;
    exceptionOf([&] {
        method.invoke(object, Qt::DirectConnection, QGenericReturnArgument(type.constData(), &warnings));
    });
    return warnings;
}

} // namespace

Host::Host(Scale& scale, Clock& clock, ScreenHost& screen, const HostSettings& settings, QObject* parent)
    : QObject(parent)
    , m_calls(settings.callLogCapacity)
    , m_storedParameters(settings.parameterFile)
    , m_statusInfo(m_calls, settings.owner, settings.logPrefix)
    , m_approvedMode(m_calls, settings.approvedModes)
    , m_sensorState(m_calls)
    , m_calibrationService(m_calls)
    , m_units(m_approvedMode, scale)
    , m_systemRegisters(m_calls, scale)
    , m_weighing(m_calls, m_notices, scale)
    , m_registerValueProvider(m_calls, scale, m_units)
    , m_measurementTransfer(m_calls, m_notices, clock)
    , m_measurementObserver(m_calls)
    , m_printIndicator(m_calls, clock)
    , m_rangeSwitch(m_calls, scale)
    , m_mswParameterSource(m_calls, m_storedParameters, m_statusInfo)
    , m_weighingParameterService(m_calls, m_mswParameterSource)
    , m_addonHost(m_calls, m_notices)
    , m_actionBar(m_calls, m_notices, m_storedParameters)
    , m_infoBox(m_calls)
    , m_workflowManager(m_calls, m_notices, clock, scale)
    , m_controller(m_calls)
    , m_sequencer(m_calls)
    , m_pluginHost(m_calls, m_addonHost, m_sequencer)
    , m_protocolPool(m_calls)
    , m_protocolMenuFactory(m_calls)
    , m_lifecycleObserver(m_calls)
    , m_view(m_calls, m_notices, screen)
    , m_menuStore(m_notices)
    , m_pluginProfiles(m_menuStore, m_storedParameters, m_statusInfo, m_notices)
    , m_system(m_calls, m_notices,
               SystemServices{m_addonHost,
                              m_actionBar,
                              m_sensorState,
                              m_statusInfo,
                              m_mswParameterSource,
                              m_measurementTransfer,
                              m_rangeSwitch,
                              m_lifecycleObserver,
                              m_weighingParameterService,
                              m_controller,
                              m_registerValueProvider,
                              m_protocolMenuFactory,
                              m_pluginHost,
                              m_calibrationService,
                              m_workflowManager,
                              m_printIndicator,
                              m_measurementObserver,
                              m_systemRegisters,
                              m_weighing,
                              m_approvedMode,
                              m_protocolPool,
                              m_storedParameters,
                              scale,
                              m_units,
                              m_menuStore})
    , m_protocol({m_notices, m_protocolPool, m_storedParameters, m_system, m_weighing, scale, clock},
                 settings.owner, settings.localTime)
    , m_menuList(m_storedParameters, m_statusInfo)
    , m_weighingParameters(nullptr, &m_system, &m_menuList)
    , m_plugins(PluginEnvironment{m_system, m_view, m_menuList, m_weighingParameters, m_infoBox, m_controller,
                                  m_lifecycleObserver, m_sequencer, m_addonHost})
    , m_automaticTransfer(m_weighing, m_systemRegisters.unlogged(), scale)
    , m_loadChangeMonitor(m_weighing, scale, [this] { return shownDetector(); })
{
    m_automaticTransfer.setApplicationDetects([this] { return applicationDetector() != nullptr; });
    m_menuList.initMenuListBase(&m_system);
    m_protocolMenuFactory.setProtocol(&m_protocol);

    if (!m_storedParameters.error().isEmpty()) {
        m_setupErrors.append(m_storedParameters.error());
    }
    if (!settings.transferLog.isEmpty()) {
        auto log = std::make_unique<TransferLog>(settings.transferLog);
        if (!log->error().isEmpty()) {
            m_setupErrors.append(log->error());
        }
        m_measurementTransfer.setOutput(TransferLogTarget, std::move(log));
    }
    m_printSwitchedOn = m_measurementTransfer.isAnyTargetActive();
    m_printEnabled = m_printSwitchedOn;

    connect(&m_notices, &Notices::posted, this, &Host::notice);
    connect(&m_actionBar, &ActionBar::actionsChanged, this, &Host::actionsChanged);
    connect(&m_infoBox, &InfoBox::itemsChanged, this, &Host::infoItemsChanged);
    connect(&m_controller, &PluginController::controlModeChanged, this, &Host::controlModeChanged);
    connect(&m_printIndicator, &PrintIndicator::litChanged, this, &Host::printIndicatorChanged);
    connect(&m_measurementTransfer, &MeasurementTransfer::transferred, this, &Host::transferred);
    connect(&m_measurementTransfer, &MeasurementTransfer::transferred, &m_protocol, &Protocol::onTransferred);
    connect(&m_sequencer, &Sequencer::hostEvent, &m_protocol, [this](const QString& event) {
        if (event == QLatin1String("printPressed")) {
            m_protocol.onPrintReported();
        }
    });
    connect(&m_measurementObserver, &MeasurementObserver::registersRead, &m_protocol,
            &Protocol::onTransferFinished);
    connect(&m_measurementTransfer, &MeasurementTransfer::availabilityChanged, this,
            &Host::onTransferAvailabilityChanged);
    connect(&m_workflowManager, &WorkflowManager::printButtonEnableChanged, this,
            &Host::onPrintButtonEnableChange);
    WorkflowRunner& workflow = m_workflowManager.runner();
    connect(&workflow, &WorkflowRunner::changed, this, &Host::onWorkflowChanged);
    connect(&scale, &Scale::newMeasurement, &workflow, &WorkflowRunner::onMeasurement);
    connect(&scale, &Scale::loadChanged, &workflow, &WorkflowRunner::onStableValue);
    connect(&m_view, &ViewHost::publishedObjectsChanged, this, &Host::updateModels);
    connect(&m_plugins, &PluginManager::entered, this,
            [this](const QString& folder) { m_menuStore.setFolder(folder); });
    connect(&m_plugins, &PluginManager::initialised, this, &Host::onInitialised);
    connect(&m_plugins, &PluginManager::aboutToStart, this, &Host::onAboutToStart);
    connect(&m_plugins, &PluginManager::pluginStarted, this, &Host::onStarted);
    connect(&m_plugins, &PluginManager::aboutToClose, this, &Host::storeProfile);
    connect(&m_plugins, &PluginManager::released, this, &Host::onReleased);
    connect(&m_plugins, &PluginManager::faultOccurred, this, &Host::onFault);
    connect(&m_plugins, &PluginManager::activePluginChanged, this, &Host::updateProtocol);
    connect(&m_plugins, &PluginManager::activePluginChanged, this, &Host::activePluginChanged);
    connect(&m_plugins, &PluginManager::pluginsChanged, this, &Host::pluginsChanged);
    // A plug-in reads its weights anew, in the other unit.
    connect(&m_units, &Units::changed, &m_weighing, &Weighing::announceValue);
    connect(&m_automaticTransfer, &AutomaticTransfer::transferDue, this, &Host::pressPrint);
    connect(&m_plugins, &PluginManager::activePluginChanged, &m_loadChangeMonitor,
            &LoadChangeMonitor::update);
    connect(&m_automaticTransfer, &AutomaticTransfer::settingsChanged, &m_loadChangeMonitor,
            &LoadChangeMonitor::update);
}

Host::~Host()
{
    // The plug-ins are closed while every service still exists and can tell of it.
    m_plugins.closeAll();
}

void Host::setLevelled(bool levelled)
{
    if (m_sensorState.isLevelled() == levelled) {
        return;
    }
    const auto exception = exceptionOf([&] {
        m_sensorState.setLevelled(levelled);
        m_system.announceLevel(levelled);
    });
    if (exception) {
        m_notices.postPluginFault(
            tr("The application failed while it was told about the level: %1").arg(*exception));
    }
    emit levelledChanged(levelled);
}

void Host::setCalibrationDue(bool due)
{
    if (m_calibrationService.isDue() == due) {
        return;
    }
    if (const auto exception = exceptionOf([&] { m_calibrationService.setDue(due); })) {
        m_notices.postPluginFault(
            tr("The application failed while it was told about the calibration: %1").arg(*exception));
    }
    emit calibrationDueChanged(due);
}

QVector<ActionState> Host::workflowKeys() const
{
    const WorkflowRunner& workflow = m_workflowManager.runner();
    QVector<ActionState> keys = workflow.keys();
    if (workflow.isRunning() && !workflow.actionUid().isEmpty()) {
        const QVector<ActionState> actions = m_actionBar.actions();
        for (const ActionState& action : actions) {
            if (action.uid == workflow.actionUid()) {
                keys.append(action);
            }
        }
    }
    return keys;
}

bool Host::pressAction(const QString& uid)
{
    const bool pressed = m_actionBar.press(uid);
    storeProfile();
    return pressed;
}

bool Host::pressWorkflowKey(const QString& uid)
{
    WorkflowRunner& workflow = m_workflowManager.runner();
    const bool pressed = workflow.press(uid)
                         || (workflow.isRunning() && uid == workflow.actionUid() && m_actionBar.press(uid));
    storeProfile();
    return pressed;
}

bool Host::pressPrint()
{
    if (!m_printEnabled) {
        m_notices.post(
            NoticeSeverity::Warning,
            !m_workflowManager.runner().isPrintAllowed()
                ? tr("This step of the workflow has nothing to print.")
            : m_measurementTransfer.isAnyTargetActive()
                ? tr("Printing is switched off.")
                : tr("There is no output that could take the measurement: neither a printer nor the "
                     "transfer log is connected."));
        return false;
    }
    QObject* const plugin = m_plugins.activeObject();
    if (plugin == nullptr) {
        if (m_registerValueProvider.reading(ISystemRegister::CurrentRegister).messwert
            == Units::overflowText()) {
            m_notices.post(NoticeSeverity::Warning,
                           tr("The weight does not fit into the display: choose a larger unit."));
            return false;
        }
        m_protocol.requestByPrintKey();
        m_measurementTransfer.transfer(m_registerValueProvider.reading(ISystemRegister::CurrentRegister),
                                       m_registerValueProvider.reading(ISystemRegister::GrossRegister),
                                       m_registerValueProvider.reading(ISystemRegister::TareRegister));
        m_protocol.onTransferFinished();
        m_protocol.endRequest(); // if no output took it
        return true;
    }
    if (!m_plugins.isRunning()) {
        return false; // it could serve the request only at its next start
    }
    m_protocol.requestByPrintKey();
    if (const auto exception =
            exceptionOf("onDoPrint()", [plugin] { QMetaObject::invokeMethod(plugin, "onDoPrint"); })) {
        m_notices.postPluginFault(tr("The application failed at the print request: %1").arg(*exception));
    }
    m_protocol.endRequest();
    return true;
}

void Host::setLanguage(const QString& language)
{
    m_plugins.setLanguage(language);
    m_protocol.terminalItems().setLanguage(language);
    if (const auto exception = exceptionOf([this] { m_calibrationService.retranslate(); })) {
        m_notices.postPluginFault(
            tr("The application failed while it was told about the calibration: %1").arg(*exception));
    }
    m_actionBar.refresh();
    m_workflowManager.runner().refresh();
    updateProtocol();
}

void Host::setOutput(int number, std::unique_ptr<TransferOutput> output)
{
    m_measurementTransfer.setOutput(number, std::move(output));
}

void Host::reportException(const QString& exception)
{
    const QString name = m_plugins.activeName();
    m_notices.postPluginFault(name.isEmpty() ? tr("An application failed: %1").arg(exception)
                                             : tr("The application \"%1\" failed: %2").arg(name, exception));
}

void Host::onAboutToStart()
{
    m_notices.forgetPluginFaults();
    updateProtocol(); // what the plug-in offers at its start meets its own choice
    // A plug-in makes this connection when it is initialised and cuts it when it closes: it is due again at a
    // second start.
    QObject* const plugin = m_plugins.activeObject();
    if (plugin->metaObject()->indexOfSignal("notifyPrintButtonEnableChange(bool)") >= 0) {
        connect(plugin, SIGNAL(notifyPrintButtonEnableChange(bool)), &m_workflowManager,
                SLOT(onPrintButtonEnableChange(bool)), Qt::UniqueConnection);
    }
}

void Host::onInitialised(int index)
{
    const QString identifier = m_plugins.plugins().at(index).identifier;
    m_pluginProfiles.load(*m_plugins.plugin(index), identifier, m_plugins);
}

void Host::onStarted()
{
    const QString identifier = m_plugins.plugins().at(m_plugins.activeIndex()).identifier;
    m_pluginProfiles.apply(*m_plugins.activePlugin(), identifier);
    updateModels();
}

/// Stores what the running plug-in has changed in its profile of its own accord.
void Host::storeProfile()
{
    if (m_plugins.isRunning()) {
        const int index = m_plugins.activeIndex();
        m_pluginProfiles.storeChanges(*m_plugins.activePlugin(), m_plugins.plugins().at(index).identifier);
    }
}

void Host::onReleased()
{
    m_protocolPool.clear();
    const QList<QObject*> published = m_view.publishedObjects();
    for (QObject* const object : published) {
        disconnectServices(object);
    }
    // The screen goes first: its bindings must not meet objects that are about to die.
    m_view.clear();
    m_workflowManager.clear();
    m_actionBar.clear();
    m_infoBox.clear();
}

void Host::onFault(const PluginFault& fault)
{
    m_notices.post(NoticeSeverity::Error, fault.message);
    if (fault.object != nullptr) {
        disconnectServices(fault.object);
    }
    m_system.resetInfosectionProvider();
}

void Host::disconnectServices(QObject* receiver)
{
    const QList<QObject*> senders{&m_system, &m_sensorState, &m_calibrationService, &m_weighing};
    for (QObject* const sender : senders) {
        QObject::disconnect(sender, nullptr, receiver, nullptr);
    }
}

/// The protocol is that of the active plug-in.
void Host::updateProtocol()
{
    const int index = m_plugins.activeIndex();
    if (index < 0) {
        m_protocol.setApplication(QString(), ApplicationType::Weighing, QString());
        return;
    }
    const PluginInfo plugin = m_plugins.plugins().at(index);
    const ApplicationType type = plugin.kind == QLatin1String("addon")     ? ApplicationType::Addon
                                 : plugin.kind == QLatin1String("control") ? ApplicationType::Control
                                                                           : ApplicationType::Weighing;
    m_protocol.setApplication(plugin.identifier, type, plugin.name);
}

void Host::updateModels()
{
    QObject* display = nullptr;
    QObject* warnings = nullptr;
    const QList<QObject*> objects = m_view.publishedObjects();
    for (QObject* const object : objects) {
        if (display == nullptr) {
            display = displayOf(object);
        }
        if (warnings == nullptr) {
            warnings = warningsOf(object);
        }
    }
    if (m_display != display) {
        m_display = display;
        emit displayChanged(display);
    }
    if (m_warnings != warnings) {
        m_warnings = warnings;
        emit warningsChanged(warnings);
    }
}

LoadChange* Host::shownDetector()
{
    LoadChange* const own = applicationDetector();
    return own ? own : m_automaticTransfer.detector();
}

LoadChange* Host::applicationDetector() const
{
    if (QObject* const plugin = m_plugins.activeObject()) {
        const QList<QObject*> objects = QList<QObject*>{plugin} + m_view.publishedObjects();
        for (QObject* const object : objects) {
            const QList<LoadChange*> detectors = object->findChildren<LoadChange*>();
            for (LoadChange* const detector : detectors) {
                if (detector->isActive()) {
                    return detector;
                }
            }
        }
    }
    return nullptr;
}

void Host::onPrintButtonEnableChange(bool enable)
{
    if (enable) {
        // A plug-in that enables its button wants its prints to go out; what it switched off before is on
        // again.
        m_measurementTransfer.setEnabled(true);
    }
    setPrintEnabled(enable && m_measurementTransfer.isAnyTargetActive());
}

void Host::onTransferAvailabilityChanged()
{
    setPrintEnabled(m_measurementTransfer.isEnabled() && m_measurementTransfer.isAnyTargetActive());
}

void Host::setPrintEnabled(bool enabled)
{
    m_printSwitchedOn = enabled;
    updatePrintEnabled();
}

void Host::updatePrintEnabled()
{
    const bool enabled = m_printSwitchedOn && m_workflowManager.runner().isPrintAllowed();
    if (m_printEnabled != enabled) {
        m_printEnabled = enabled;
        emit printEnabledChanged(enabled);
    }
}

void Host::onWorkflowChanged()
{
    updatePrintEnabled();
    emit workflowChanged();
}

} // namespace Terminal
} // namespace Brimvale
