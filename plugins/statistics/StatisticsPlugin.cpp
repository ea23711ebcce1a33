// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsPlugin.h"

#include "SeriesExport.h"
#include "StatisticsViewManager.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QtMath>

#include <ActionBase.h>
#include <ActionBaseToggle.h>
#include <IActionbar.h>
#include <IInfobox.h>
#include <IMenuList.h>
#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <InfoboxListItem.h>
#include <LoadChange.h>
#include <SettingsProfile.h>
#include <cmath>

using namespace Brimvale;

namespace
{

const int LargestThresholdIndex = 21; // 10 kg
const QLatin1String AutomaticSetting("automatic");
const QLatin1String ThresholdSetting("threshold");

/// 1, 2, 5, 10, 20, … mg, in grams.
double thresholdGrams(int index)
{
    static const int Mantissas[] = {1, 2, 5};
    const int decade = index / 3;
    return Mantissas[index % 3] * qPow(10.0, decade) / 1000.0;
}

/// Digits as the detector takes them.
long wholeDigits(double digits)
{
    if (std::isnan(digits)) {
        return 0;
    }
    return static_cast<long>(qBound(-2147483648.0, std::trunc(digits), 2147483647.0));
}

InfoboxListItem* makeInfoItem(QObject* parent)
{
    return new InfoboxListItem(parent, QString(), QString(), QString(), false, true, false);
}

void showFigure(InfoboxListItem* item, const StatisticsValue& figure)
{
    item->setItemValue(figure.valid
                           ? (WeighingSeries::text(figure) + QLatin1Char(' ') + figure.unit).trimmed()
                           : QStringLiteral("–"));
}

} // namespace

StatisticsPlugin::StatisticsPlugin()
    : m_store(dataFolder())
{
}

StatisticsPlugin::~StatisticsPlugin()
{
    // The base makes the settings profile and asks the host for the protocol menu, but leaves both to the plug-in.
    delete m_settingsProfile;
    delete m_protocolMenu;
}

QString StatisticsPlugin::dataFolder()
{
    const QString chosen = qEnvironmentVariable("BRIMVALE_PLUGIN_DATA");
    const QString folder =
        chosen.isEmpty()
            ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/plugins")
            : chosen;
    return folder + QStringLiteral("/statistics");
}

// Identity ---------------------------------------------------------------------------------------------------------

void StatisticsPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("statistics");
    id.kind = QStringLiteral("plugin");
    id.addonNumber = 2;
    id.hasProtocol = true;
    id.protocolName = tr("Print-outs");
    id.checkPrintOnClose = true;
    id.usesCalibrationService = true;
    id.usesLevellingService = true;
}

QString StatisticsPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Statistics") : QStringLiteral("Statistics");
}

QString StatisticsPlugin::GetPluginIcon()
{
    return QStringLiteral(":/statistics/statistics.svg");
}

// Parts that the base asks for -------------------------------------------------------------------------------------

IMenuList* StatisticsPlugin::CreatePluginMenu()
{
    return nullptr; // there is no menu of its own
}

QObject* StatisticsPlugin::CreateViewModel()
{
    m_model = new StatisticsViewModel; // without a parent: the base deletes it at the close
    return m_model;
}

QString StatisticsPlugin::GetViewModelName()
{
    return QStringLiteral("statistics");
}

QString StatisticsPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/statistics/StatisticsScreen.qml");
}

IPluginViewManager* StatisticsPlugin::CreateViewManager()
{
    return new StatisticsViewManager(m_model);
}

void StatisticsPlugin::ApplyProfileItem(int id, QVariant value)
{
    // The settings are kept with the series, since the person changes them on the screen.
    Q_UNUSED(id)
    Q_UNUSED(value)
}

// Life cycle -------------------------------------------------------------------------------------------------------

void StatisticsPlugin::InitPluginProtocolItems()
{
    m_protocol = std::make_unique<StatisticsProtocol>(m_system);
}

void StatisticsPlugin::AddToPoolPluginProtocolItems()
{
    m_protocol->addToPool();
}

void StatisticsPlugin::RemoveFromPoolPluginProtocolItems()
{
    m_protocol->removeFromPool();
}

bool StatisticsPlugin::PreStartPlugin()
{
    // Owns all that lives from start to close. The base deletes it and leaves the pointer, so it is set at every start.
    m_pluginObject = new QObject;

    m_zeroAction = makeAction<ActionBase>(QStringLiteral("statistics.zero"), "onZero(QVariant)");
    m_tareAction = makeAction<ActionBase>(QStringLiteral("statistics.tare"), "onTare(QVariant)");
    m_recordAction = makeAction<ActionBase>(QStringLiteral("statistics.record"), "onRecord(QVariant)");
    m_automaticAction =
        makeAction<ActionBaseToggle>(QStringLiteral("statistics.automatic"), "onAutomaticToggled(QVariant)");
    m_automaticAction->setMaxToggleIndex(1);
    m_undoAction = makeAction<ActionBase>(QStringLiteral("statistics.undo"), "onUndo(QVariant)");
    m_clearAction = makeAction<ActionBase>(QStringLiteral("statistics.clear"), "onClear(QVariant)");
    m_exportAction = makeAction<ActionBase>(QStringLiteral("statistics.export"), "onExport(QVariant)");

    m_countItem = makeInfoItem(m_pluginObject);
    m_meanItem = makeInfoItem(m_pluginObject);
    m_deviationItem = makeInfoItem(m_pluginObject);
    m_minimumItem = makeInfoItem(m_pluginObject);
    m_maximumItem = makeInfoItem(m_pluginObject);
    return true;
}

void StatisticsPlugin::InitActionbar()
{
    translateTexts();
    IActionbar* const actionbar = m_system->GetActionbar();
    const QList<ActionBase*> actions = m_pluginObject->findChildren<ActionBase*>(); // in the order of making
    for (ActionBase* action : actions) {
        actionbar->AddAction(action);
    }
    PluginBase::InitActionbar();
}

bool StatisticsPlugin::PostStartPlugin()
{
    m_recordRequested = false;
    openStore();
    m_automatic = m_store.setting(AutomaticSetting, QStringLiteral("true")) == QLatin1String("true");
    m_decimals = m_system->GetDecimals();
    bool isNumber = false;
    m_thresholdIndex = m_store.setting(ThresholdSetting, QString()).toInt(&isNumber);
    if (!isNumber) {
        // At least ten steps of the display: more than a breath of air, less than any load.
        while (digitsOf(m_thresholdIndex) < 10.0 && m_thresholdIndex < LargestThresholdIndex) {
            ++m_thresholdIndex;
        }
    }
    m_thresholdIndex = qBound(0, m_thresholdIndex, LargestThresholdIndex);

    m_loadChange = new LoadChange(m_pluginObject, m_system->GetWeighing(), m_system->GetSystemRegister());
    connect(m_model, &StatisticsViewModel::thresholdStepRequested, this, &StatisticsPlugin::onThresholdStep);
    connect(m_model, &StatisticsViewModel::clearAnswered, this, &StatisticsPlugin::onClearAnswered);
    connect(m_model, &StatisticsViewModel::confirmingChanged, this, &StatisticsPlugin::translateTexts);

    // The interface is no QObject, but the object behind it is. The detector was connected first and takes each value
    // before this object does.
    QObject* const weighing = dynamic_cast<QObject*>(m_system->GetWeighing());
    connect(weighing, SIGNAL(NotifyNewMeasurementValue()), this, SLOT(onNewMeasurementValue()));
    connect(weighing, SIGNAL(NotifyLoadChanged(int, double)), this, SLOT(onStableValue(int, double)));

    showSeries();
    m_infobox->SetItems({m_countItem, m_meanItem, m_deviationItem, m_minimumItem, m_maximumItem});
    startDetector();
    return true;
}

bool StatisticsPlugin::PreClosePlugin()
{
    // The base cuts the plug-in's own signals. Those that it receives it cuts itself, before the view model goes.
    disconnect(dynamic_cast<QObject*>(m_system->GetWeighing()), nullptr, this, nullptr);
    delete m_loadChange; // it listens to the scale, too

    IActionbar* const actionbar = m_system->GetActionbar();
    const QList<ActionBase*> actions = m_pluginObject->findChildren<ActionBase*>();
    for (ActionBase* action : actions) {
        actionbar->RemoveAction(action);
    }
    m_infobox->SetItems({});
    m_store.close();
    return true;
}

/// Opens the store if it is not open, and tells what is wrong with it. Returns whether it is open.
bool StatisticsPlugin::openStore()
{
    if (m_store.isOpen()) {
        return true;
    }
    if (!m_store.open(&m_series)) {
        m_model->setState(StatisticsViewModel::NotStored, m_store.error());
        return false;
    }
    if (!m_store.damagedFile().isEmpty()) {
        m_model->setState(StatisticsViewModel::SetAside, QFileInfo(m_store.damagedFile()).fileName());
    }
    return true;
}

// Recording --------------------------------------------------------------------------------------------------------

MesswertData StatisticsPlugin::currentReading() const
{
    return m_system->GetRegisterValueProvider()->GetMesswert(m_system->GetCurrentUnit(),
                                                             ISystemRegister::CurrentRegister);
}

void StatisticsPlugin::onNewMeasurementValue()
{
    if (m_decimals != m_system->GetDecimals()) {
        startDetector(); // the digits have become others
    }
    const double load = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::CurrentRegister);
    m_wasUnloaded = m_wasUnloaded || load <= digitsOf(m_thresholdIndex); // never without a weight
    if (m_recordRequested) {
        serveRequest(currentReading());
    }
}

void StatisticsPlugin::onDoPrint()
{
    if (m_model == nullptr) {
        return; // not started
    }
    PluginBase::onDoPrint();
    request();
}

QVariant StatisticsPlugin::onRecord(QVariant data)
{
    Q_UNUSED(data)
    request();
    return true;
}

void StatisticsPlugin::request()
{
    m_model->setConfirming(false);
    m_recordRequested = true;
    serveRequest(currentReading());
}

void StatisticsPlugin::serveRequest(const MesswertData& reading)
{
    if (reading.isValid && !reading.isStable) {
        m_model->setState(StatisticsViewModel::WaitingForStable);
        return; // the request stays until the weight is stable
    }
    record(reading);
}

/// Records a stable reading, or tells why not. Only what is stored is shown. A request is served or refused with it.
void StatisticsPlugin::record(const MesswertData& reading)
{
    m_recordRequested = false;
    const StatisticsValue weighing = WeighingSeries::weighing(reading, QDateTime::currentDateTime());
    const bool wasOpen = m_store.isOpen();
    if (!weighing.valid) {
        m_model->setState(StatisticsViewModel::NoWeight);
    } else if (!openStore()) {
        // It has been told.
    } else if (m_series.count() > 0 && m_series.unit() != weighing.unit) {
        m_model->setState(StatisticsViewModel::OtherUnit, m_series.unit());
    } else if (m_series.isFull()) {
        m_model->setState(StatisticsViewModel::SeriesFull, QString::number(m_series.count()));
    } else if (!m_store.append(weighing)) {
        m_model->setState(StatisticsViewModel::NotStored, m_store.error());
    } else {
        m_series.append(weighing);
        showSeries();
        m_model->setState(StatisticsViewModel::Recorded, QString::number(m_series.count()));
        MeasurementDatatransfer(reading, m_previous); // takes a print request with it
        m_previous = reading;
    }
    m_printRequested = false;
    if (!wasOpen) {
        showSeries(); // what was in the store
    }
}

// Load changes -----------------------------------------------------------------------------------------------------

/// In digits of the gram reading, of which one is the least.
double StatisticsPlugin::digitsOf(int thresholdIndex) const
{
    return qMax(1.0, std::round(thresholdGrams(thresholdIndex) * qPow(10.0, m_decimals)));
}

/// Begins to watch, with the load that is on the scale now as the first reference.
void StatisticsPlugin::startDetector()
{
    m_decimals = m_system->GetDecimals();
    m_wasUnloaded = false;
    m_loadChange->Stop();
    if (m_automatic) {
        const long threshold = wholeDigits(digitsOf(m_thresholdIndex));
        // The empty scale may be the reference at first; afterwards a load is more than the threshold.
        if (m_loadChange->Start(LoadChange::Absolute, static_cast<unsigned long>(threshold), threshold,
                                true)) {
            const MesswertData reading = currentReading();
            if (reading.isValid && reading.isStable) {
                takeReference(
                    m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::CurrentRegister));
            }
        }
    }
    const bool refused = m_automatic && !m_loadChange->isActive();
    if (refused) {
        m_model->setState(StatisticsViewModel::NoAutomatic);
    } else if (m_model->state() == StatisticsViewModel::NoAutomatic) {
        m_model->setState(StatisticsViewModel::Ready);
    }
    showThreshold();
}

void StatisticsPlugin::takeReference(double digits)
{
    m_loadChange->ResetTrigger();
    m_loadChange->onLoadChanged(0, digits);
    m_reference = digits;
    m_wasUnloaded = false;
}

void StatisticsPlugin::onStableValue(int stableCounter, double netDigits)
{
    Q_UNUSED(stableCounter)
    if (!m_loadChange->isActive()) {
        return;
    }
    if (!m_loadChange->isValueAvailable(wholeDigits(netDigits))) {
        m_reference = netDigits; // the first value after the start, or the scale has been unloaded
        return;
    }
    // The detector also triggers when somebody touches the scale, overloads it or pulls its cable out. A load that is
    // the same afterwards, without having been taken off, is not another one.
    const bool isSameLoad = !m_wasUnloaded && std::abs(netDigits - m_reference) <= digitsOf(m_thresholdIndex);
    if (!isSameLoad) {
        m_model->setConfirming(false);
        record(currentReading());
    }
    takeReference(netDigits);
}

void StatisticsPlugin::store(const QString& setting, const QString& value)
{
    if (!m_store.setSetting(setting, value)) {
        m_model->setState(StatisticsViewModel::NotStored, m_store.error());
    }
}

void StatisticsPlugin::onThresholdStep(int step)
{
    const int index = qBound(0, m_thresholdIndex + step, LargestThresholdIndex);
    if (index == m_thresholdIndex) {
        return;
    }
    m_thresholdIndex = index;
    store(ThresholdSetting, QString::number(index));
    startDetector();
}

QVariant StatisticsPlugin::onAutomaticToggled(QVariant data)
{
    Q_UNUSED(data)
    m_automatic = !m_automatic;
    m_model->setState(StatisticsViewModel::Ready);
    store(AutomaticSetting, m_automatic ? QStringLiteral("true") : QStringLiteral("false"));
    startDetector();
    return m_automatic;
}

// The other keys ---------------------------------------------------------------------------------------------------

// The terminal itself says why zero or tare was refused.

QVariant StatisticsPlugin::onZero(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Zero();
}

QVariant StatisticsPlugin::onTare(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Tare();
}

QVariant StatisticsPlugin::onUndo(QVariant data)
{
    Q_UNUSED(data)
    m_model->setConfirming(false);
    if (!m_store.removeLast()) {
        m_model->setState(StatisticsViewModel::NotStored, m_store.error());
        return false;
    }
    m_model->setState(StatisticsViewModel::Undone, QString::number(m_series.count()));
    m_series.removeLast();
    showSeries();
    return true;
}

QVariant StatisticsPlugin::onClear(QVariant data)
{
    Q_UNUSED(data)
    if (m_model->confirming()) {
        onClearAnswered(true); // the second press is the answer
    } else {
        m_model->setConfirming(true);
    }
    return true;
}

void StatisticsPlugin::onClearAnswered(bool clear)
{
    m_model->setConfirming(false);
    if (!clear) {
        return;
    }
    if (!m_store.clear()) {
        m_model->setState(StatisticsViewModel::NotStored, m_store.error());
        return;
    }
    m_series.clear();
    m_model->setState(StatisticsViewModel::Cleared);
    showSeries();
}

QVariant StatisticsPlugin::onExport(QVariant data)
{
    Q_UNUSED(data)
    m_model->setConfirming(false);
    SeriesExport files;
    if (!files.write(m_series, dataFolder() + QStringLiteral("/export"))) {
        m_model->setState(StatisticsViewModel::NotExported, files.error());
        return false;
    }
    m_model->setState(StatisticsViewModel::Exported, files.fileName());
    return true;
}

// What is shown ----------------------------------------------------------------------------------------------------

void StatisticsPlugin::showSeries()
{
    const SeriesFigures figures = m_series.figures();
    m_protocol->setFigures(figures);
    showFigure(m_countItem, figures.count);
    showFigure(m_meanItem, figures.mean);
    showFigure(m_deviationItem, figures.deviation);
    showFigure(m_minimumItem, figures.minimum);
    showFigure(m_maximumItem, figures.maximum);
    m_model->setSeries(m_series);
    const bool hasWeighings = m_series.count() > 0;
    m_undoAction->setEnable(hasWeighings);
    m_clearAction->setEnable(hasWeighings);
    m_exportAction->setEnable(hasWeighings);
}

void StatisticsPlugin::showThreshold()
{
    const double limit = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::UpperLimitRegister);
    const auto fits = [&](int index) {
        return index >= 0 && index <= LargestThresholdIndex && digitsOf(index) < limit
               && std::round(thresholdGrams(index) * qPow(10.0, m_decimals) * 10.0) >= 10.0;
    };
    const double grams = thresholdGrams(m_thresholdIndex);
    m_model->setThreshold(QString::number(grams) + QStringLiteral(" g"), fits(m_thresholdIndex - 1),
                          fits(m_thresholdIndex + 1), m_automatic);
    m_automaticAction->setToggleIndex(m_automatic ? 1 : 0);
}

void StatisticsPlugin::TranslateWarnInfo()
{
    if (m_model == nullptr) {
        return; // not started: the next start makes its texts in the new language
    }
    m_model->translateTexts();
    translateTexts();
}

void StatisticsPlugin::translateTexts()
{
    m_protocol->translate();
    m_zeroAction->setName(tr("Zero"));
    m_tareAction->setName(tr("Tare"));
    m_recordAction->setName(tr("Record"));
    m_automaticAction->setName(tr("Automatic"));
    m_undoAction->setName(tr("Undo last"));
    m_clearAction->setName(m_model->confirming() ? tr("Really clear") : tr("Clear"));
    m_exportAction->setName(tr("Export"));
    m_countItem->setItemValueTitle(tr("Weighings"));
    m_meanItem->setItemValueTitle(tr("Mean"));
    m_deviationItem->setItemValueTitle(tr("Standard deviation"));
    m_minimumItem->setItemValueTitle(tr("Minimum"));
    m_maximumItem->setItemValueTitle(tr("Maximum"));
}

// Helpers ----------------------------------------------------------------------------------------------------------

/// Makes an enabled action whose work is the slot `worker` of this plug-in.
template <typename Action>
Action* StatisticsPlugin::makeAction(const QString& uid, const char* worker)
{
    auto* const action = new Action(m_pluginObject);
    action->setUid(uid);
    action->setRank(m_pluginObject->findChildren<ActionBase*>().size()); // in the order of making
    action->setEnable(true);
    action->setWorker(this, metaObject()->method(metaObject()->indexOfSlot(worker)));
    return action;
}
