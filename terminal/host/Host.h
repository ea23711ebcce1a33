// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOST_H
#define BRIMVALE_HOST_H

#include "WeighingParameters.h"
#include "host/ActionBar.h"
#include "host/AddonHost.h"
#include "host/ApprovedMode.h"
#include "host/AutomaticTransfer.h"
#include "host/CalibrationService.h"
#include "host/HostCallLog.h"
#include "host/HostMenuList.h"
#include "host/HostRangeSwitch.h"
#include "host/InfoBox.h"
#include "host/LifecycleObserver.h"
#include "host/LoadChangeMonitor.h"
#include "host/MSWParameterSource.h"
#include "host/MeasurementObserver.h"
#include "host/MeasurementTransfer.h"
#include "host/Notices.h"
#include "host/PluginController.h"
#include "host/PluginHost.h"
#include "host/PrintIndicator.h"
#include "host/ProtocolMenuFactory.h"
#include "host/ProtocolPool.h"
#include "host/RegisterValueProvider.h"
#include "host/SensorState.h"
#include "host/Sequencer.h"
#include "host/StatusInfo.h"
#include "host/StoredParameters.h"
#include "host/System.h"
#include "host/SystemRegisters.h"
#include "host/Units.h"
#include "host/ViewHost.h"
#include "host/Weighing.h"
#include "host/WeighingParameterService.h"
#include "host/WorkflowManager.h"
#include "loading/PluginManager.h"
#include "menu/MenuStore.h"
#include "menu/PluginProfiles.h"
#include "protocol/Protocol.h"

#include <QObject>
#include <QPointer>

namespace Brimvale
{
namespace Terminal
{

class Clock;
class Scale;
class ScreenHost;

/// How a host is set up.
struct HostSettings
{
    QString parameterFile; ///< INI file of the stored parameters; empty keeps them in memory.
    QString transferLog; ///< File of the transfer log (output 1), "-" for standard output; empty: no output.
    QString owner = QStringLiteral("user"); ///< Owner text of stored parameters and action bars.
    QString logPrefix =
        QStringLiteral("brimvale-terminal"); ///< Begins the log line of a started application.
    bool localTime = false; ///< Print-outs bear the time of the machine's time zone; otherwise UTC.
    int approvedModes = 0;  ///< Bits of IApprovedMode::Mode.
    int callLogCapacity = HostCallLog::DefaultCapacity;
};

/// The host: all services that plug-ins reach, the plug-ins, and what the terminal shows of both.
///
/// Whoever shows the terminal reads the state here and listens to the signals; what the person does is told
/// here.
///
/// A life: construct; connect notice() and the other signals; plugins().load(...); plugins().activate(...);
/// run the event loop; plugins().closeAll(); destroy. Scale, clock and screen host must outlive it.
/// Everything happens on the thread of the event loop.
///
/// An exception from a plug-in is caught wherever the host calls it directly. One that leaves a slot called
/// by the event loop (a timer of the plug-in, a queued signal, QML) passes the host by: the application's
/// notify() catches it and tells reportException().
class Host : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Host)

public:
    Host(Scale& scale, Clock& clock, ScreenHost& screen, const HostSettings& settings = {},
         QObject* parent = nullptr);
    ~Host() override;

    /// What of the settings could not be carried out, one whole message each: the file of the stored
    /// parameters could not be read, the transfer log not be opened. Empty when all is well.
    QStringList setupErrors() const { return m_setupErrors; }

    // The parts.
    HostCallLog& calls() { return m_calls; }
    Notices& notices() { return m_notices; }
    StoredParameters& storedParameters() { return m_storedParameters; }
    MenuStore& menuStore() { return m_menuStore; }
    PluginProfiles& pluginProfiles() { return m_pluginProfiles; }
    System& system() { return m_system; }
    ViewHost& view() { return m_view; }
    ActionBar& actionBar() { return m_actionBar; }
    Weighing& weighing() { return m_weighing; }
    Units& units() { return m_units; }
    ISystemRegister& systemRegisters() { return m_systemRegisters.unlogged(); }
    AutomaticTransfer& automaticTransfer() { return m_automaticTransfer; }
    /// Shows the load-change detector of the active plug-in, or else that of the automatic transfer. A plug-in's is
    /// found when it is a child, however far down, of the plug-in or of an object that it published.
    LoadChangeMonitor& loadChangeMonitor() { return m_loadChangeMonitor; }
    /// The sets of weighing parameters, as plug-ins switch them.
    IWeighingParameters& weighingParameterSets() { return m_weighingParameters; }
    RegisterValueProvider& registerValues() { return m_registerValueProvider; }
    MeasurementTransfer& measurementTransfer() { return m_measurementTransfer; }
    MeasurementObserver& measurementObserver() { return m_measurementObserver; }
    MSWParameterSource& mswParameterSource() { return m_mswParameterSource; }
    WeighingParameterService& weighingParameters() { return m_weighingParameterService; }
    HostRangeSwitch& rangeSwitch() { return m_rangeSwitch; }
    WorkflowManager& workflowManager() { return m_workflowManager; }
    PrintIndicator& printIndicator() { return m_printIndicator; }
    ProtocolPool& protocolPool() { return m_protocolPool; }
    Protocol& protocol() { return m_protocol; }
    PluginController& controller() { return m_controller; }
    Sequencer& sequencer() { return m_sequencer; }
    PluginManager& plugins() { return m_plugins; }

    // What is shown.

    /// The buttons of the active plug-in from left to right.
    QVector<ActionState> actions() const { return m_actionBar.actions(); }
    /// Whether the print button can be pressed: the transfer is switched on, an output is active, the plug-in
    /// has not switched its button off, and a step of a workflow that runs allows it.
    bool isPrintEnabled() const { return m_printEnabled; }
    /// What is shown of the workflow that the active plug-in runs, and its keys from left to right.
    const WorkflowView& workflow() const { return m_workflowManager.runner().view(); }
    QVector<ActionState> workflowKeys() const;
    Progressbar& workflowProgress() { return m_workflowManager.runner().progress(); }
    /// The lines of the info area.
    QList<QObject*> infoItems() const { return m_infoBox.items(); }
    /// The display model of the active plug-in: what the property "messwertInfo" of an object that it
    /// published holds. Null when there is none; the terminal then shows its own.
    QObject* display() const { return m_display; }
    /// The warnings of the active plug-in: what the invokable "warnInfo()" of an object that it published
    /// returns. Null when there is none.
    QObject* warnings() const { return m_warnings; }
    /// Whether a control application has the whole terminal.
    bool isControlMode() const { return m_controller.isControlMode(); }

    bool isLevelled() const { return m_sensorState.isLevelled(); }
    bool isCalibrationDue() const { return m_calibrationService.isDue(); }

    // What the person and the bench do.

    void setLevelled(bool levelled);
    void setCalibrationDue(bool due);

    /// Presses a button of the action bar. Returns false when there is none of that uid or it is disabled.
    /// What the plug-in has changed of its settings meanwhile is stored.
    bool pressAction(const QString& uid);

    /// Presses a key of workflowKeys(). Returns false when there is none of that uid or it is disabled. Stores like
    /// pressAction().
    bool pressWorkflowKey(const QString& uid);

    /// Presses the print button. With an active plug-in its slot onDoPrint() is called; without one the
    /// terminal transfers its own reading. When the measurement has been transferred and everything that
    /// belongs to it been told, the protocol is printed, if the print key is what starts it and items are chosen
    /// for it. Returns false when the button is disabled or the plug-in is just starting or closing.
    bool pressPrint();

    /// Switches the language ("en", "de") of the texts that the host and the plug-ins supply. The
    /// translations of the terminal itself are to be installed before.
    void setLanguage(const QString& language);

    /// Connects an output to the place @p number (1 to 5); null disconnects what is there.
    void setOutput(int number, std::unique_ptr<TransferOutput> output);

    /// An exception of plug-in code reached the event loop; @p exception is currentExceptionText().
    void reportException(const QString& exception);

signals:
    /// Something to tell the person.
    void notice(Brimvale::Terminal::NoticeSeverity severity, const QString& text);
    void actionsChanged();
    /// What the screen shows of a workflow, or its keys.
    void workflowChanged();
    void printEnabledChanged(bool enabled);
    /// The print indicator lights up or goes out.
    void printIndicatorChanged(bool lit);
    void infoItemsChanged();
    void displayChanged(QObject* display);
    void warningsChanged(QObject* warnings);
    void activePluginChanged();
    /// Names, states or number of the plug-ins have changed.
    void pluginsChanged();
    void controlModeChanged(bool control);
    void levelledChanged(bool levelled);
    void calibrationDueChanged(bool due);
    /// A measurement was handed over for the outputs.
    void transferred(const Brimvale::Terminal::TransferRecord& record);

private:
    void onInitialised(int index);
    void onAboutToStart();
    void onStarted();
    void storeProfile();
    void onReleased();
    void onFault(const PluginFault& fault);
    void updateModels();
    void updateProtocol();
    void onPrintButtonEnableChange(bool enable);
    void setPrintEnabled(bool enabled);
    void updatePrintEnabled();
    void onWorkflowChanged();
    void onTransferAvailabilityChanged();
    /// The detector at work that the running application has of its own; null for none.
    LoadChange* applicationDetector() const;
    LoadChange* shownDetector();
    void disconnectServices(QObject* receiver);

    // In the order of their construction: what a part needs stands before it.
    HostCallLog m_calls;
    Notices m_notices;
    StoredParameters m_storedParameters;
    StatusInfo m_statusInfo;
    ApprovedMode m_approvedMode;
    SensorState m_sensorState;
    CalibrationService m_calibrationService;
    Units m_units;
    SystemRegisters m_systemRegisters; // before the weighing, which passes the readings on
    Weighing m_weighing;
    RegisterValueProvider m_registerValueProvider;
    MeasurementTransfer m_measurementTransfer;
    MeasurementObserver m_measurementObserver;
    PrintIndicator m_printIndicator;
    HostRangeSwitch m_rangeSwitch;
    MSWParameterSource m_mswParameterSource;
    WeighingParameterService m_weighingParameterService;
    AddonHost m_addonHost;
    ActionBar m_actionBar;
    InfoBox m_infoBox;
    WorkflowManager m_workflowManager;
    PluginController m_controller;
    Sequencer m_sequencer;
    PluginHost m_pluginHost;
    ProtocolPool m_protocolPool;
    ProtocolMenuFactory m_protocolMenuFactory;
    LifecycleObserver m_lifecycleObserver;
    ViewHost m_view;
    MenuStore m_menuStore;
    PluginProfiles m_pluginProfiles;
    System m_system;
    Protocol m_protocol;
    HostMenuList m_menuList;
    WeighingParameters m_weighingParameters;
    PluginManager m_plugins;
    AutomaticTransfer m_automaticTransfer;
    LoadChangeMonitor m_loadChangeMonitor;

    bool m_printSwitchedOn = false; ///< By the plug-in and the outputs, whatever a workflow allows.
    bool m_printEnabled = false;
    QStringList m_setupErrors;
    QPointer<QObject> m_display;
    QPointer<QObject> m_warnings;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HOST_H
