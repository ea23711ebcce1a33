// SPDX-License-Identifier: BSD-3-Clause
#include "app/Session.h"

#include "ISystemRegister.h"
#include "QsLog.h"
#include "app/CommandLine.h"
#include "app/PluginFaults.h"
#include "print/FilePrinter.h"
#include "print/PdfPrinter.h"
#include "print/SicsPrinter.h"
#include "print/TcpPrinter.h"
#include "sics/SicsScale.h"
#include "sics/SicsServer.h"
#include "source/SimulatedSource.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>
#include <QScreen>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Texts of the library that screens show. The library has no translations of its own: they are the host's.
[[maybe_unused]] constexpr const char* LibraryTexts[] = {
    QT_TRANSLATE_NOOP("Brimvale::WarnInfo", "Levelling required"),
    QT_TRANSLATE_NOOP("Brimvale::PrintableItemBase", "Measurement"),
    QT_TRANSLATE_NOOP("Brimvale::PrintableItemBase", "General"),
    QT_TRANSLATE_NOOP("Brimvale::PrintableItemBase", "Application"),
    QT_TRANSLATE_NOOP("Brimvale::PrintableItemBase", "Device"),
    QT_TRANSLATE_NOOP("Brimvale::PrintItemCurrentMeasurement", "Current measurement"),
    QT_TRANSLATE_NOOP("Brimvale::PrintItemCurrentMeasurement", "Measurement"),
};

const QString ApplicationKey = QStringLiteral("terminal/application");
const QString LanguageKey = QStringLiteral("terminal/language");
const QString SerialNumberKey = QStringLiteral("terminal/serialNumber");
// What was chosen of units, approval and automatic transfer.
const QString MainUnitKey = QStringLiteral("units/main");
const QString SmallUnitKey = QStringLiteral("units/small");
const QString UnitsOnlyKey = QStringLiteral("approval/approvedUnitsOnly");
const QString CaratKey = QStringLiteral("approval/caratAllowed");
const QString DecimalsKey = QStringLiteral("approval/minimumDecimals");
const QString AuxiliaryKey = QStringLiteral("approval/auxiliaryDigit");
const QString ReducedKey = QStringLiteral("approval/reducedDigits");
const QString TransferModeKey = QStringLiteral("automaticTransfer/mode");
const QString ThresholdKey = QStringLiteral("automaticTransfer/threshold");
const QString MinimumLoadKey = QStringLiteral("automaticTransfer/minimumLoad");
const QString OperatorKey = QStringLiteral("terminal/operator");
const QString PositionKey = QStringLiteral("terminal/windowPosition");

/// How long a notice stays that only informs; the screen does the same in a window.
constexpr qint64 InformationMs = 6000;

/// The place of the output that is the terminal's own screen.
constexpr int ScreenOutputNumber = 2;

/// The output that every terminal has: its screen, which shows the last measurement on the status line. With it
/// printing can be tried without a printer.
class ScreenOutput : public TransferOutput
{
public:
    bool isActive() const override { return true; }
    bool write(const TransferRecord&) override { return true; } // The session shows every record.
};

/// Where the settings are kept; empty: nowhere.
QString settingsFile(const Options& options)
{
    if (!options.settings.isEmpty() || options.headless)
        return options.settings;
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/brimvale/terminal.ini");
}

/// Where print-outs are kept until they are printed; empty: nowhere.
QString printJournalFile(const Options& options)
{
    const QString settings = settingsFile(options);
    if (settings.isEmpty())
        return QString();
    const QFileInfo info(settings);
    return info.path() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral(".print-queue");
}

/// Where a crash of a plug-in is noted; empty: nowhere. A run without a window does what it was told to, whatever the
/// last one came to.
QString crashNoteFile(const Options& options)
{
    return options.headless ? QString() : settingsFile(options) + QStringLiteral(".crash");
}

HostSettings hostSettings(const Options& options)
{
    HostSettings settings;
    settings.parameterFile = settingsFile(options);
    settings.transferLog = options.transferLog;
    settings.localTime = !options.headless; // A run without a window prints the same time everywhere.
    return settings;
}

ScaleSettings scaleSettings(const Options& options)
{
    ScaleSettings settings;
    settings.readability = options.readability;
    settings.capacity = options.capacity;
    settings.stability = options.stability;
    settings.coarseAbove = options.coarseAbove;
    return settings;
}

/// @p grams without needless zeros: "3200", "0.05".
QString gramsText(double grams)
{
    QString text = QString::number(grams, 'f', Readability::MaximumDecimals);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text + QStringLiteral(" g");
}

QVector<ActionEntry> entriesOf(const QVector<ActionState>& states)
{
    QVector<ActionEntry> entries;
    for (const ActionState& state : states) {
        ActionEntry entry;
        entry.uid = state.uid;
        entry.name = state.name;
        entry.enabled = state.enabled;
        entry.toggle = state.toggle;
        entry.toggleIndex = state.toggleIndex;
        entry.maxToggleIndex = state.maxToggleIndex;
        entries.append(entry);
    }
    return entries;
}

/// What stands @p step places behind @p value, round and round.
template <typename Value>
Value stepped(const QVector<Value>& values, const Value& value, int step)
{
    const int index = values.indexOf(value) + step;
    return values.at((index + values.size()) % values.size());
}

} // namespace

Session::Session(const Options& options, Clock& clock, std::unique_ptr<WeightSource> source, LogOutput& log)
    : m_options(options)
    , m_clock(clock)
    , m_log(log)
    , m_source(std::move(source))
    , m_simulation(qobject_cast<SimulatedSource*>(m_source.get()))
    , m_scale(scaleSettings(options))
    , m_printQueue(clock, printJournalFile(options))
    // No weight yet; the bar graph is shown, everything else as readings come.
    , m_display(nullptr, QString(), QString(), true, 0, false, false, false, 0, QString(), QString(), false,
                0, true, false, 0, QString(), QString(), QString(), 0, -1, false, false, true, false, true)
    , m_window(m_instrument, m_bench, m_workflow)
    , m_screen(m_instrument, m_window)
    , m_host(std::make_unique<Host>(m_scale, clock, m_screen, hostSettings(options)))
{
    m_faults = std::make_unique<PluginFaults>(*m_host, m_instrument, crashNoteFile(options));
    m_settingsModel =
        std::make_unique<SettingsModel>(m_host->menuStore(), m_host->pluginProfiles(), m_host->notices());
    m_instrument.setSettings(m_settingsModel.get());
    const QString file = settingsFile(options);
    if (!file.isEmpty() && m_host->storedParameters().error().isEmpty())
        m_settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
    if (m_settings)
        m_host->protocol().terminalItems().setSerialNumber(m_settings->value(SerialNumberKey).toString());
    m_host->setOutput(ScreenOutputNumber, std::make_unique<ScreenOutput>());
    if (options.traceHostCalls) {
        m_host->calls().setTrace([](const QString& call) {
            QsLogging::Logger::Helper(QsLogging::OffLevel).stream().noquote() << "host call" << call;
        });
    }
    connectScale();
    connectHost();
    connectBench();
    connectPrinter();
    connectSimulation();
    connectInstrument();
    connectProtocol();
    connectUnits();
    connectTransfer();
    m_scale.setSource(m_source.get());
    updatePlate();
}

Session::~Session()
{
    m_clock.cancel(m_timeTimer);
    m_clock.cancel(m_noticeTimer);
    // What the host tells while it goes finds nobody to listen.
    disconnect(m_host.get(), nullptr, this, nullptr);
    disconnect(&m_instrument, nullptr, this, nullptr);
    m_instrument.setSettings(nullptr);
    m_host->calls().setTrace({});
    m_host->plugins().deleteAll(); // while a crash is still noted
    m_faults.reset();
}

void Session::connectScale()
{
    connect(m_source.get(), &WeightSource::reading, this, [this](const Reading& reading) {
        ++m_readings;
        m_scaleAnswered = m_scaleAnswered || reading.status != Reading::Status::Disconnected;
    });
    connect(m_source.get(), &WeightSource::finished, this, [this] { m_sourceFinished = true; });
    connect(&m_scale, &Scale::newMeasurement, this, &Session::logStatus);
    connect(&m_scale, &Scale::newMeasurement, this, &Session::updateDisplay);
    connect(&m_scale, &Scale::stateChanged, this, &Session::updateDisplay);
    connect(&m_scale, &Scale::stateChanged, this, &Session::updateHostActions);
    connect(&m_scale, &Scale::decimalsChanged, this, &Session::updatePlate);
    connect(m_source.get(), &WeightSource::readabilityChanged, this, &Session::updatePlate);
    m_instrument.setTerminalDisplay(&m_display);
}

void Session::connectHost()
{
    Host* const host = m_host.get();
    connect(host, &Host::notice, this, &Session::onNotice);
    connect(host, &Host::transferred, this, &Session::onTransferred);
    connect(host, &Host::displayChanged, &m_instrument, &InstrumentModel::setDisplay);
    connect(host, &Host::warningsChanged, &m_instrument, &InstrumentModel::setWarnings);
    connect(host, &Host::actionsChanged, this, &Session::updateActions);
    connect(host, &Host::workflowChanged, this, &Session::updateWorkflow);
    connect(host, &Host::actionsChanged, this, &Session::updateWorkflow);
    m_workflow.setProgress(&host->workflowProgress());
    connect(host, &Host::printEnabledChanged, &m_instrument, &InstrumentModel::setPrintEnabled);
    connect(host, &Host::infoItemsChanged, this, [this] { m_instrument.setInfoItems(m_host->infoItems()); });
    connect(host, &Host::levelledChanged, &m_instrument, &InstrumentModel::setLevelOk);
    connect(host, &Host::levelledChanged, &m_bench, &BenchModel::setLevel);
    connect(host, &Host::calibrationDueChanged, &m_bench, &BenchModel::setCalibrationDue);
    connect(host, &Host::pluginsChanged, this, &Session::updatePlugins);
    connect(host, &Host::activePluginChanged, this, &Session::updatePlugins);
    connect(host, &Host::activePluginChanged, this, &Session::updateSettings);
    connect(&m_instrument, &InstrumentModel::screenLoaded, &host->view(), &ViewHost::onScreenLoaded);
    m_instrument.setPrintEnabled(host->isPrintEnabled());
    m_instrument.setLevelOk(host->isLevelled());
}

void Session::connectBench()
{
    connect(&m_bench, &BenchModel::levelChanged, m_host.get(), &Host::setLevelled);
    connect(&m_bench, &BenchModel::calibrationDueChanged, m_host.get(), &Host::setCalibrationDue);
    m_bench.setAvailable(m_simulation != nullptr);
    m_bench.setLevel(m_host->isLevelled());
    m_bench.setCalibrationDue(m_host->isCalibrationDue());
}

void Session::connectPrinter()
{
    connect(&m_printQueue, &PrintQueue::failed, this, &Session::reportPrintFault);
    connect(&m_printQueue, &PrintQueue::notKept, this,
            [this](const QString& text) { onNotice(NoticeSeverity::Warning, text); });
    connect(&m_printQueue, &PrintQueue::changed, this, &Session::updateHostActions);
    connect(&m_printQueue, &PrintQueue::changed, this,
            [this] { m_instrument.setFailedPrints(m_printQueue.failedCount()); });
    connect(&m_instrument, &InstrumentModel::repeatPrintsPressed, this, [this] { m_printQueue.repeat(); });
    const PrinterSpec& printer = m_options.printer;
    switch (printer.kind) {
    case PrinterSpec::Kind::Roll:
        m_printQueue.setPrinter(std::make_unique<RollPrinter>(m_paper));
        break;
    case PrinterSpec::Kind::File:
        m_printQueue.setPrinter(std::make_unique<FilePrinter>(printer.path));
        break;
    case PrinterSpec::Kind::Pdf:
        m_printQueue.setPrinter(std::make_unique<PdfPrinter>(printer.path, [this] { return localTime(); }));
        break;
    case PrinterSpec::Kind::Tcp:
        m_printQueue.setPrinter(std::make_unique<TcpPrinter>(printer.host, printer.port));
        break;
    case PrinterSpec::Kind::None:
        break;
    }
    m_bench.setPrinter(&m_printer);
    m_host->protocol().setLayout(m_options.printColumns);
    m_host->protocol().setOutput(
        m_formatter, [this](const PrintJob& job, QString* error) { return m_printQueue.submit(job, error); });
}

void Session::reportPrintFault(const QString& fault)
{
    if (!m_errors.contains(fault))
        m_errors.append(fault);
    QLOG_ERROR().noquote() << fault;
    m_clock.cancel(m_noticeTimer);
    m_noticeTimer = 0;
    m_instrument.showNotice(InstrumentModel::Severity::Error, fault);
}

void Session::waitForPrinter()
{
    while (m_printQueue.awaitsDevice())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Session::connectSimulation()
{
    if (!m_simulation)
        return;
    connect(&m_bench, &BenchModel::putOn, m_simulation, &SimulatedSource::putOn);
    connect(&m_bench, &BenchModel::takeOff, m_simulation, &SimulatedSource::takeOff);
    connect(&m_bench, &BenchModel::clear, m_simulation, &SimulatedSource::clear);
    connect(&m_bench, &BenchModel::noiseChanged, m_simulation, &SimulatedSource::setNoise);
    connect(&m_bench, &BenchModel::driftChanged, m_simulation, &SimulatedSource::setDrift);
    connect(&m_bench, &BenchModel::connectedChanged, m_simulation, &SimulatedSource::setConnected);
    connect(m_simulation, &SimulatedSource::loadChanged, &m_bench, &BenchModel::setLoad);
    m_bench.setNoise(m_simulation->noise());
    m_bench.setDrift(m_simulation->drift());
    m_bench.setConnected(m_simulation->isConnected());
    m_bench.setLoad(m_simulation->load());
}

void Session::connectInstrument()
{
    connect(m_instrument.actions(), &ActionListModel::actionPressed, this, [this](const QString& uid) {
        // The press may close the plug-in that the button belongs to.
        m_host->pressAction(uid);
        // It may have switched a load-change detector.
        m_host->loadChangeMonitor().update();
    });
    connect(m_workflow.keys(), &ActionListModel::actionPressed, this,
            [this](const QString& uid) { m_host->pressWorkflowKey(uid); });
    connect(m_instrument.hostActions(), &ActionListModel::actionPressed, this, &Session::pressHostAction);
    connect(&m_instrument, &InstrumentModel::printPressed, this, [this] { m_host->pressPrint(); });
    connect(&m_instrument, &InstrumentModel::pluginSelected, this, &Session::selectPlugin);
    connect(&m_instrument, &InstrumentModel::languageSelected, this, [this](const QString& language) {
        setLanguage(language);
        if (m_settings)
            m_settings->setValue(LanguageKey, language);
    });
    connect(&m_window, &TerminalWindow::closed, this, &Session::closed);
}

void Session::connectProtocol()
{
    ProtocolModel* const model = m_instrument.protocol();
    Protocol* const protocol = &m_host->protocol();
    if (m_settings)
        protocol->terminalItems().setOperatorName(m_settings->value(OperatorKey).toString());
    // A terminal without a SICS port shows its answers on the paper roll.
    if (!m_options.sics)
        m_printQueue.setSicsOutput(std::make_unique<RollPrinter>(m_paper));
    connect(model, &ProtocolModel::operatorEntered, this, [this, model, protocol](const QString& name) {
        protocol->terminalItems().setOperatorName(name.simplified());
        model->setOperatorName(name.simplified());
        if (m_settings)
            m_settings->setValue(OperatorKey, name.simplified());
    });
    connect(protocol, &Protocol::changed, this, &Session::updateProtocol);
    connect(model, &ProtocolModel::openChanged, this, &Session::updateProtocol);
    connect(model, &ProtocolModel::itemToggled, protocol, &Protocol::setChosen);
    connect(model, &ProtocolModel::kindStepped, this, [protocol](int step) {
        ProtocolChoice choice = protocol->choice();
        choice.type = stepped(protocolTypes(), choice.type, step);
        protocol->setChoice(choice);
    });
    connect(model, &ProtocolModel::partStepped, this, [protocol](int step) {
        ProtocolChoice choice = protocol->choice();
        choice.part = stepped(protocolParts(), choice.part, step);
        protocol->setChoice(choice);
    });
    connect(model, &ProtocolModel::triggerStepped, this, [protocol](int step) {
        ProtocolChoice choice = protocol->choice();
        const QVector<ProtocolTriggerEntry> triggers = protocol->triggers();
        QVector<QString> uids;
        for (const ProtocolTriggerEntry& trigger : triggers)
            uids.append(trigger.uid);
        choice.trigger = stepped(uids, choice.trigger, step);
        protocol->setChoice(choice);
    });
}

/// Shows what the protocol is, in its menu. While the menu is closed nothing is asked of the plug-in.
void Session::updateProtocol()
{
    ProtocolModel* const model = m_instrument.protocol();
    if (!model->isOpen())
        return;
    const Protocol& protocol = m_host->protocol();
    const ProtocolChoice& choice = protocol.choice();
    model->setOperatorName(m_host->protocol().terminalItems().operatorName());
    const QVector<ProtocolEntry> entries = protocol.entries();
    QVector<ProtocolRow> rows;
    for (const ProtocolEntry& entry : entries)
        rows.append({entry.uid, entry.name, entry.section, entry.chosen});
    model->setRows(rows);
    QString trigger = tr("Not offered: %1").arg(choice.trigger);
    const QVector<ProtocolTriggerEntry> triggers = protocol.triggers();
    for (const ProtocolTriggerEntry& entry : triggers) {
        if (entry.uid == choice.trigger)
            trigger = entry.name;
    }
    model->setSelection(Protocol::nameOf(choice.type), Protocol::nameOf(choice.part), trigger);
}

void Session::connectUnits()
{
    Units* const units = &m_host->units();
    connect(units, &Units::changed, this, &Session::updateDisplay);
    connect(units, &Units::changed, this, &Session::updateBenchUnits);
    connect(units, &Units::changed, this, [this, units] {
        store(MainUnitKey, units->chosenMainUnit());
        store(SmallUnitKey, units->chosenSmallUnit());
    });
    connect(&m_host->weighingParameters(), &WeighingParameterService::changed, this,
            &Session::updateBenchUnits);
    // What the small display shows depends on whether an application has a display of its own.
    connect(&m_instrument, &InstrumentModel::displayChanged, this, &Session::updateDisplay);
    connect(&m_instrument, &InstrumentModel::unitPressed, units, &Units::stepMainUnit);
    connect(&m_instrument, &InstrumentModel::smallUnitPressed, units, &Units::stepSmallUnit);

    BenchUnitsModel* const bench = &m_bench.units();
    connect(bench, &BenchUnitsModel::mainUnitRequested, units, &Units::setMainUnit);
    connect(bench, &BenchUnitsModel::parameterSetRequested, this, &Session::useParameterSet);
    connect(bench, &BenchUnitsModel::approvedUnitsOnlyRequested, this,
            [this](bool on) { changeApproval([on](ApprovalSettings& a) { a.approvedUnitsOnly = on; }); });
    connect(bench, &BenchUnitsModel::caratAllowedRequested, this,
            [this](bool on) { changeApproval([on](ApprovalSettings& a) { a.caratAllowed = on; }); });
    connect(bench, &BenchUnitsModel::auxiliaryDigitRequested, this,
            [this](bool on) { changeApproval([on](ApprovalSettings& a) { a.auxiliaryDigit = on; }); });
    connect(bench, &BenchUnitsModel::minimumDecimalsRequested, this, [this](int decimals) {
        changeApproval([decimals](ApprovalSettings& a) { a.minimumDecimals = decimals; });
    });
    connect(bench, &BenchUnitsModel::reducedDigitsRequested, this, [this](int digits) {
        changeApproval([digits](ApprovalSettings& a) { a.reducedDigits = digits; });
    });
    units->setEnabledUnits(m_options.units);
    updateBenchUnits();
}

void Session::changeApproval(const std::function<void(ApprovalSettings&)>& change)
{
    ApprovalSettings approval = m_host->units().approval();
    change(approval);
    m_host->units().setApproval(approval);
    approval = m_host->units().approval();
    store(UnitsOnlyKey, approval.approvedUnitsOnly);
    store(CaratKey, approval.caratAllowed);
    store(DecimalsKey, approval.minimumDecimals);
    store(AuxiliaryKey, approval.auxiliaryDigit);
    store(ReducedKey, approval.reducedDigits);
}

void Session::connectTransfer()
{
    AutomaticTransfer* const transfer = &m_host->automaticTransfer();
    connect(&m_host->loadChangeMonitor(), &LoadChangeMonitor::changed, this, &Session::updateBenchTransfer);
    connect(transfer, &AutomaticTransfer::decisionChanged, this, &Session::updateBenchTransfer);
    connect(transfer, &AutomaticTransfer::settingsChanged, this, [this, transfer] {
        store(TransferModeKey, AutomaticTransferSettings::nameOf(transfer->settings().mode));
        store(ThresholdKey, transfer->settings().threshold);
        store(MinimumLoadKey, transfer->settings().minimumLoad);
    });
    connect(&m_bench.transfer(), &BenchTransferModel::settingsRequested, this,
            [this](const QString& mode, double threshold, double minimumLoad) {
                AutomaticTransferSettings settings;
                bool known = false;
                settings.mode = AutomaticTransferSettings::modeOf(mode, &known);
                settings.threshold = threshold;
                settings.minimumLoad = minimumLoad;
                QString error;
                if (known && !m_host->automaticTransfer().setSettings(settings, &error))
                    m_host->notices().post(NoticeSeverity::Warning, error);
            });
    updateBenchTransfer();
}

template <typename Value>
void Session::store(const QString& key, const Value& value)
{
    if (m_settings && !m_restoring && m_settings->value(key) != QVariant(value))
        m_settings->setValue(key, value);
}

/// What was chosen in an earlier run. What the file says wrongly is told and left as it was at first.
void Session::restoreSettings()
{
    if (!m_settings)
        return;
    ApprovalSettings approval;
    approval.approvedUnitsOnly = m_settings->value(UnitsOnlyKey, false).toBool();
    approval.caratAllowed = m_settings->value(CaratKey, false).toBool();
    approval.minimumDecimals = m_settings->value(DecimalsKey, 0).toInt();
    approval.auxiliaryDigit = m_settings->value(AuxiliaryKey, false).toBool();
    approval.reducedDigits = m_settings->value(ReducedKey, 0).toInt();
    m_host->units().setApproval(approval);
    const QString mainUnit = m_settings->value(MainUnitKey, QStringLiteral("g")).toString();
    const QString smallUnit = m_settings->value(SmallUnitKey).toString();
    for (const QString& unit : {mainUnit, smallUnit}) {
        if (!unit.isEmpty() && !Units::allNames().contains(unit))
            reportError(tr("%1: there is no unit \"%2\"; there are: %3")
                            .arg(m_settings->fileName(), unit, Units::allNames().join(QStringLiteral(", "))));
    }
    m_host->units().restore(mainUnit, smallUnit);

    AutomaticTransferSettings transfer;
    const QString mode = m_settings->value(TransferModeKey, QStringLiteral("off")).toString();
    bool known = false;
    transfer.mode = AutomaticTransferSettings::modeOf(mode, &known);
    transfer.threshold = m_settings->value(ThresholdKey, 0.0).toDouble();
    transfer.minimumLoad = m_settings->value(MinimumLoadKey, 0.0).toDouble();
    QString error;
    if (!known)
        reportError(tr("%1: the automatic transfer has no mode \"%2\"; there are: %3")
                        .arg(m_settings->fileName(), mode,
                             AutomaticTransferSettings::modeNames().join(QStringLiteral(", "))));
    else if (!m_host->automaticTransfer().setSettings(transfer, &error))
        reportError(m_settings->fileName() + QStringLiteral(": ") + error);
    m_restoring = false;
}

void Session::updateBenchUnits()
{
    const Units& units = m_host->units();
    const WeighingParameterService& parameters = m_host->weighingParameters();
    BenchUnitsState state;
    state.offered = units.offered();
    state.mainUnit = units.mainUnit();
    state.smallUnit = units.smallUnit();
    const ApprovalSettings approval = units.approval();
    state.approvedUnitsOnly = approval.approvedUnitsOnly;
    state.caratAllowed = approval.caratAllowed;
    state.auxiliaryDigit = approval.auxiliaryDigit;
    state.minimumDecimals = approval.minimumDecimals;
    state.reducedDigits = approval.reducedDigits;
    switch (parameters.set()) {
    case WeighingParameterService::Set::None:
        state.parameterSet = tr("None was set yet");
        break;
    case WeighingParameterService::Set::Standard:
        state.parameterSet = tr("Standard");
        break;
    case WeighingParameterService::Set::MSW:
        state.parameterSet = tr("MSW");
        break;
    case WeighingParameterService::Set::System:
        state.parameterSet = tr("The user's own");
        break;
    }
    QStringList values;
    for (int number = 0; number < WeighingParameterService::ParameterCount; ++number) {
        const QString value = parameters.parameter(number);
        values.append(value.isEmpty() ? QStringLiteral("\u2013") : value);
    }
    if (parameters.set() != WeighingParameterService::Set::None)
        state.parameterValues = values.join(QStringLiteral(" \u00B7 "));
    m_bench.units().setState(state);
}

void Session::updateBenchTransfer()
{
    const AutomaticTransfer& transfer = m_host->automaticTransfer();
    const LoadChangeMonitor& monitor = m_host->loadChangeMonitor();
    const LoadChange* const detector = monitor.detector();
    const Readability readability = m_scale.readability();
    BenchTransferState state;
    state.mode = AutomaticTransferSettings::nameOf(transfer.settings().mode);
    state.threshold = transfer.settings().threshold;
    state.minimumLoad = transfer.settings().minimumLoad;
    const bool own = detector == m_host->automaticTransfer().detector();
    if (own)
        state.decision = transfer.decision();
    else if (transfer.isLeftToApplication())
        state.decision = tr("The terminal leaves it to the application");
    state.owner = own ? tr("Terminal") : m_host->plugins().activeName();
    state.decimals = m_scale.decimals();
    state.reason = monitor.reasonText();
    state.lastTrigger = monitor.lastTriggerText();
    state.triggerCount = monitor.triggerCount();
    const double digits = m_host->systemRegisters().GetRegisterValue(ISystemRegister::CurrentRegister);
    state.value = m_scale.netGrams();
    state.registerText = std::isnan(digits) ? QStringLiteral("\u2013") : QString::number(digits, 'f', 0);
    if (monitor.reason() != LoadChangeMonitor::Reason::Off && detector) {
        const bool percent =
            detector->mode() == ILoadChange::Percent || detector->mode() == ILoadChange::PercentFixed;
        const bool fixed =
            detector->mode() == ILoadChange::AbsoluteFixed || detector->mode() == ILoadChange::PercentFixed;
        const QString range = percent ? QStringLiteral("%1 %").arg(detector->range())
                                      : gramsText(readability.toGrams(detector->range()));
        state.modeText = fixed ? tr("\u00B1 %1, fixed").arg(range) : tr("\u00B1 %1").arg(range);
        state.state = detector->state();
        state.reference = readability.toGrams(monitor.reference());
        state.bandLow = readability.toGrams(detector->bandLow());
        state.bandHigh = readability.toGrams(detector->bandHigh());
    }
    m_bench.transfer().setState(state);
}

QStringList Session::parameterSets()
{
    return {QStringLiteral("standard"), QStringLiteral("msw"), QStringLiteral("system")};
}

void Session::useParameterSet(const QString& set)
{
    IWeighingParameters& sets = m_host->weighingParameterSets();
    if (set == QLatin1String("standard"))
        sets.InitStandardWeighingParameters();
    else if (set == QLatin1String("msw"))
        sets.InitMSWWeighingParameters();
    else if (set == QLatin1String("system"))
        sets.ResetWeighingParameters();
}

QString Session::parameterSet()
{
    return (QStringList{QStringLiteral("none")} + parameterSets())
        .value(static_cast<int>(m_host->weighingParameters().set()));
}

bool Session::prepare(QStringList* errors)
{
    const QStringList setupErrors = m_host->setupErrors();
    if (!setupErrors.isEmpty()) {
        // A file that was asked for by name must be usable; the user's own settings are not worth a refusal.
        if (!m_options.settings.isEmpty() || !m_options.transferLog.isEmpty()) {
            *errors = setupErrors;
            return false;
        }
        for (const QString& error : setupErrors)
            reportError(error);
        m_settings.reset();
    }

    restoreSettings();
    QString queueError;
    if (!m_printQueue.load(&queueError))
        reportError(queueError);
    if (m_printQueue.failedCount() > 0)
        onNotice(NoticeSeverity::Warning, tr("Print-outs that were not printed: %1. Repeat them with the key "
                                             "on the status line, or delete them "
                                             "on the bench.")
                                              .arg(m_printQueue.failedCount()));

    m_window.setAnimationsEnabled(!m_options.headless);
    m_window.setBenchVisible(m_options.bench);
    QString language = m_options.language;
    if (language.isEmpty() && m_settings)
        language = m_settings->value(LanguageKey).toString();
    if (language.isEmpty() && !m_options.headless && QLocale::system().language() == QLocale::German)
        language = QStringLiteral("de");
    m_instrument.setLanguage(language);
    QString error;
    if (!m_window.load(&error)) {
        errors->append(error);
        return false;
    }
    setLanguage(language);
    updateTime();
    if (m_settings && m_settings->contains(PositionKey) && m_window.window()) {
        const QPoint position = m_settings->value(PositionKey).toPoint();
        const QSize size = m_window.size();
        const QList<QScreen*> screens = QGuiApplication::screens();
        for (const QScreen* screen : screens) {
            if (screen->availableGeometry().contains(QRect(position, size)))
                m_window.window()->setPosition(position);
        }
    }
    return true;
}

bool Session::listen(QString* error)
{
    if (!m_options.sics)
        return true;
    // The protocol has no answer without a serial number.
    const QString serialNumber = m_host->protocol().terminalItems().serialNumber();
    m_sicsScale = std::make_unique<SicsScale>(*m_host, m_scale, m_formatter,
                                              serialNumber.isEmpty() ? QStringLiteral("0") : serialNumber);
    auto server = std::make_unique<SicsServer>(*m_sicsScale, m_clock);
    if (!server->listen(*m_options.sics, error))
        return false;
    connect(server.get(), &SicsServer::clientCountChanged, &m_instrument, &InstrumentModel::setSicsClients);
    connect(server.get(), &SicsServer::refused, this,
            [this](const QString& text) { m_host->notices().post(NoticeSeverity::Warning, text); });
    m_sicsServer = std::move(server);
    m_printQueue.setSicsOutput(std::make_unique<SicsPrinter>(
        [this](const QByteArray& answer) { return m_sicsServer ? m_sicsServer->send(answer) : 0; }));
    m_instrument.setSicsClients(0);
    QLOG_INFO().noquote() << "SICS server at" << m_sicsServer->address().text();
    return true;
}

void Session::loadPlugins()
{
    m_faults->lookForCrash();
    for (const QString& file : m_options.plugins)
        reportLoad(m_host->plugins().load(file));
    m_namedPlugins = m_host->plugins().count();
    for (const QString& directory : m_options.pluginDirectories) {
        const QVector<LoadResult> results = m_host->plugins().loadFolder(directory);
        for (const LoadResult& result : results)
            reportLoad(result);
    }
    updatePlugins();
}

bool Session::start()
{
    PluginManager& plugins = m_host->plugins();
    bool started = true;
    if (!m_options.startId.isEmpty()) {
        const int index = plugins.indexOf(m_options.startId);
        started = index >= 0 && startPlugin(index);
        if (index < 0) {
            const QVector<PluginInfo> infos = plugins.plugins();
            QStringList ids;
            for (const PluginInfo& plugin : infos)
                ids.append(plugin.identifier);
            reportError(
                tr("There is no plug-in \"%1\" to start. Loaded are: %2.")
                    .arg(m_options.startId, ids.isEmpty() ? tr("none") : ids.join(QStringLiteral(", "))));
        }
    } else if (!m_options.withoutPlugin && !m_faults->hasCrashed()) {
        const QVector<int> order = startOrder();
        started = std::any_of(order.begin(), order.end(), [this](int index) { return startPlugin(index); });
    }
    m_source->start();
    return started;
}

/// The plug-ins in the order in which the first that starts is looked for: the one that was chosen last, then those
/// named on the command line as they stand there, those of folders by their number.
QVector<int> Session::startOrder() const
{
    const QVector<PluginInfo> infos = m_host->plugins().plugins();
    const QString chosen = m_settings ? m_settings->value(ApplicationKey).toString() : QString();
    QVector<int> order(infos.size());
    std::iota(order.begin(), order.end(), 0);
    const auto place = [&](int index) {
        const PluginInfo& info = infos.at(index);
        const bool named = index < m_namedPlugins;
        return std::make_tuple(info.identifier != chosen, !named, named ? 0 : info.number);
    };
    std::stable_sort(order.begin(), order.end(),
                     [&place](int left, int right) { return place(left) < place(right); });
    return order;
}

bool Session::startPlugin(int index)
{
    PluginManager& plugins = m_host->plugins();
    return plugins.activate(index) && plugins.waitUntilSettled()
           && plugins.plugins().at(index).state == PluginState::Running;
}

void Session::shutDown()
{
    m_sicsServer.reset();
    m_host->plugins().closeAll();
    m_source->stop();
    waitForPrinter();
    const int lost = m_printQueue.count() - m_printQueue.failedCount();
    if (lost > 0 && !m_printQueue.isKept())
        reportError(tr("Print-outs that were still waiting for the printer and are lost: %1. Wait for the "
                       "printer before the end, or keep them with --settings FILE.")
                        .arg(lost));
    storeSettings();
}

void Session::reportLoad(const LoadResult& result)
{
    if (!result.ok)
        reportError(result.message);
}

void Session::reportError(const QString& error)
{
    if (m_errors.contains(error))
        return;
    m_errors.append(error);
    m_pluginFaults.append(error);
    m_bench.setPluginFaults(m_pluginFaults);
    QLOG_ERROR().noquote() << error;
}

void Session::forgiveErrors(const QString& part)
{
    m_errors.erase(std::remove_if(m_errors.begin(), m_errors.end(),
                                  [&part](const QString& error) { return error.contains(part); }),
                   m_errors.end());
}

void Session::onNotice(NoticeSeverity severity, const QString& text)
{
    m_clock.cancel(m_noticeTimer);
    m_noticeTimer = 0;
    switch (severity) {
    case NoticeSeverity::Info:
        QLOG_INFO().noquote() << text;
        m_instrument.showNotice(InstrumentModel::Severity::Info, text);
        if (m_options.headless)
            m_noticeTimer = m_clock.callAfter(InformationMs, [this] { m_instrument.clearNotice(); });
        break;
    case NoticeSeverity::Warning:
        QLOG_WARN().noquote() << text;
        m_instrument.showNotice(InstrumentModel::Severity::Warning, text);
        break;
    case NoticeSeverity::Error:
        reportError(text);
        m_instrument.showNotice(InstrumentModel::Severity::Error, text);
        break;
    }
}

void Session::onTransferred(const TransferRecord& record)
{
    const MesswertData& measurement = record.current;
    m_lastTransfer = measurement.errorText.isEmpty()
                         ? measurement.messwert + QLatin1Char(' ') + measurement.unit
                         : measurement.errorText;
    m_lastTransferTaken = record.taken;
    updateStatusText();
}

void Session::updateStatusText()
{
    if (!m_lastTransfer.isEmpty())
        m_instrument.setStatusText(m_lastTransferTaken ? tr("Sent: %1").arg(m_lastTransfer)
                                                       : tr("Not sent: %1").arg(m_lastTransfer));
}

void Session::updateDisplay()
{
    MesswertData reading = m_host->registerValues().reading(ISystemRegister::CurrentRegister);
    const MesswertData gross = m_host->registerValues().reading(ISystemRegister::GrossRegister);
    m_display.setFromMesswertData(&reading);
    // The small display shows the weight in a unit of its own, or else the gross weight beside a net one.
    const QString smallUnit = m_host->units().smallUnit();
    const MesswertData small =
        smallUnit.isEmpty() ? gross
                            : m_host->registerValues().reading(ISystemRegister::CurrentRegister, smallUnit);
    m_display.setMesswertKlein(small.messwert);
    m_display.setUnitKlein(small.unit);
    m_display.setIsGrobRangeKlein(small.isGrobRange);
    m_display.setResoluionReductionKlein(small.resolutionReduction);
    m_display.setEichDigitKlein(small.eichDigit);
    m_display.setMesswertKleinVisible(
        small.isValid && (!smallUnit.isEmpty() || (reading.net && m_instrument.display() == &m_display)));
    // Without a known capacity a bar would say nothing.
    const bool capacityKnown = m_scale.capacity() > 0.0;
    const double part =
        capacityKnown && m_scale.isValid() ? m_scale.grossDigits() / m_scale.upperLimitDigits() : 0.0;
    m_display.setBargraphVisible(capacityKnown);
    m_display.setBargraphValue(static_cast<int>(std::floor(std::clamp(part, 0.0, 1.0) * 100.0)));
    m_instrument.setSourceOk(m_scale.status() != Reading::Status::Disconnected);
}

/// Logs what is wrong with the scale: every change of its status, and every new reason for a missing connection.
/// Unreadable lines are not logged one by one, since there may be very many.
void Session::logStatus()
{
    const Reading::Status status = m_scale.status();
    const QString detail = m_scale.statusDetail();
    const bool anotherReason = status == Reading::Status::Disconnected && detail != m_loggedDetail;
    if (status == m_loggedStatus && !anotherReason)
        return;
    if (status == Reading::Status::Valid) {
        QLOG_INFO().noquote() << m_source->description() + QStringLiteral(": readings arrive");
    } else {
        QStringList parts{m_source->description(), m_scale.statusText(), detail};
        parts.removeAll(QString());
        QLOG_WARN().noquote() << parts.join(QStringLiteral(": "));
    }
    m_loggedStatus = status;
    m_loggedDetail = detail;
}

void Session::updatePlate()
{
    const double capacity = m_scale.capacity();
    const bool known = m_source->readability() > 0.0 || m_options.readability;
    QStringList parts;
    if (capacity > 0.0)
        parts.append(tr("Max %1").arg(gramsText(capacity)));
    if (known)
        parts.append(QStringLiteral("d = %1").arg(gramsText(m_scale.readability().grams())));
    m_instrument.setScalePlate(parts.join(QStringLiteral("   ")));
    m_bench.setCapacity(capacity);
    m_bench.setReadability(known ? m_scale.readability().grams() : 0.0);
    m_instrument.setSourceText(m_simulation ? tr("Simulated scale") : m_source->description());
}

ActionListModel& Session::actions()
{
    if (m_workflow.running())
        return *m_workflow.keys();
    return m_instrument.pluginActive() ? *m_instrument.actions() : *m_instrument.hostActions();
}

void Session::updateActions()
{
    m_instrument.actions()->setActions(entriesOf(m_host->actions()));
}

void Session::updateWorkflow()
{
    m_workflow.keys()->setActions(entriesOf(m_host->workflowKeys()));
    m_workflow.setView(m_host->workflow());
}

void Session::updateHostActions()
{
    ActionEntry zero;
    zero.uid = QStringLiteral("zero");
    zero.name = tr("Zero");
    ActionEntry tare;
    tare.uid = QStringLiteral("tare");
    tare.name = tr("Tare");
    ActionEntry clearTare;
    clearTare.uid = QStringLiteral("clearTare");
    clearTare.name = tr("Clear tare");
    clearTare.enabled = m_scale.isTareSet();
    ActionEntry unit;
    unit.uid = QStringLiteral("unit");
    unit.name = tr("Unit");
    QVector<ActionEntry> entries{zero, tare, clearTare, unit};
    if (m_printQueue.failedCount() > 0) {
        ActionEntry repeatPrint;
        repeatPrint.uid = QStringLiteral("repeatPrint");
        repeatPrint.name = tr("Repeat print");
        entries.append(repeatPrint);
    }
    m_instrument.hostActions()->setActions(entries);
}

void Session::pressHostAction(const QString& uid)
{
    if (uid == QLatin1String("zero"))
        m_host->weighing().zero();
    else if (uid == QLatin1String("tare"))
        m_host->weighing().tare();
    else if (uid == QLatin1String("clearTare"))
        m_host->weighing().clearTare();
    else if (uid == QLatin1String("unit"))
        m_host->units().stepMainUnit();
    else if (uid == QLatin1String("repeatPrint"))
        m_printQueue.repeat();
}

void Session::updatePlugins()
{
    const PluginManager& plugins = m_host->plugins();
    QVector<PluginEntry> entries;
    m_pluginIds.clear();
    const QVector<PluginInfo> infos = plugins.plugins();
    for (int index = 0; index < infos.size(); ++index) {
        const PluginInfo& info = infos.at(index);
        if (info.state == PluginState::Failed)
            continue;
        entries.append({info.identifier, info.name, info.icon, index == plugins.activeIndex()});
        m_pluginIds.append(info.identifier);
    }
    m_instrument.setPlugins(entries);
}

void Session::updateSettings()
{
    const PluginManager& plugins = m_host->plugins();
    SettingsSubject subject;
    if (plugins.isRunning()) {
        const PluginInfo info = plugins.plugins().at(plugins.activeIndex());
        subject = {plugins.activePlugin(), plugins.activeObject(), info.identifier, info.name};
    }
    m_settingsModel->setSubject(subject);
}

void Session::selectPlugin(int index)
{
    if (index >= 0 && index < m_pluginIds.size() && m_host->plugins().activate(m_pluginIds.at(index)))
        store(ApplicationKey, m_pluginIds.at(index));
}

/// A run without a window has the same time everywhere.
QDateTime Session::localTime() const
{
    return m_options.headless ? m_clock.dateTime() : m_clock.dateTime().toLocalTime();
}

void Session::updateTime()
{
    const QDateTime now = localTime();
    const bool german = m_instrument.language() == QLatin1String("de");
    m_instrument.setDateTimeText(
        now.toString(german ? QStringLiteral("dd.MM.yyyy  HH:mm") : QStringLiteral("yyyy-MM-dd  HH:mm")));
    constexpr qint64 MinuteMs = 60000;
    m_clock.cancel(m_timeTimer);
    m_timeTimer = m_clock.callAfter(MinuteMs - m_clock.nowMs() % MinuteMs, [this] { updateTime(); });
}

void Session::setLanguage(const QString& language)
{
    // The texts of the terminal first: those of the plug-ins may be made with them.
    m_instrument.setLanguage(language);
    m_host->setLanguage(m_instrument.language());
    m_printer.retranslate();
    m_window.retranslate();
    updateSettings(); // the name of the plug-in is another one
    m_settingsModel->setLanguage(m_instrument.language());
    m_display.setNetText(tr("NET"));
    m_display.setPtText(tr("PT"));
    updateHostActions();
    updatePlugins();
    updateProtocol();
    updatePlate();
    updateBenchUnits();
    m_host->loadChangeMonitor().update();
    updateStatusText();
    updateDisplay();
    updateTime();
}

void Session::storeSettings()
{
    if (!m_settings || m_options.headless)
        return;
    if (m_window.window())
        m_settings->setValue(PositionKey, m_window.window()->position());
    m_settings->sync();
    if (m_settings->status() != QSettings::NoError)
        QLOG_WARN().noquote() << "the settings cannot be written to" << m_settings->fileName();
}

} // namespace Terminal
} // namespace Brimvale
