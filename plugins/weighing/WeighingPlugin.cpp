// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingPlugin.h"

#include "WeighingProtocol.h"
#include "WeighingViewManager.h"

#include <QtMath>

#include <ActionBase.h>
#include <ActionBaseToggle.h>
#include <IActionbar.h>
#include <IInfobox.h>
#include <IMenuList.h>
#include <IRegisterValueProvider.h>
#include <IStatusInfo.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <InfoboxListItem.h>
#include <LoadChange.h>
#include <SettingsProfile.h>
#include <UnitConverter.h>
#include <cmath>

using namespace Brimvale;

namespace
{

// Where the host keeps the stored values of the settings profile.
const QLatin1String SettingsPath("weighing");
const QLatin1String SettingsProfileName("system");

// In the register of the upper limit.
constexpr double UnknownLimit = 999999999.0;

QString withUnit(const MesswertData& reading)
{
    return reading.errorText.isEmpty() ? reading.messwert + QLatin1Char(' ') + reading.unit
                                       : reading.errorText;
}

/// What the display shows when the weight does not fit into it; that is no weight to print.
const QLatin1String Overflow("OF");

/// Below every weight that a scale can show.
constexpr long NoMinimum = -1000000000;

/// An automatic print needs a load of more digits than this, so that the empty scale is none.
constexpr double MinimumLoadDigits = 20.0;

/// The weight in grams, whatever unit it is shown in.
double inGrams(const MesswertData& reading)
{
    double factor = 1.0;
    int exponent = 0;
    UnitConverter().getUnitFactor(reading.unit, &factor, &exponent);
    return reading.value / factor * std::pow(10.0, exponent);
}

} // namespace

WeighingPlugin::WeighingPlugin() = default;

WeighingPlugin::~WeighingPlugin()
{
    // The base makes the settings profile and asks the host for the protocol menu, but leaves both to the plug-in.
    delete m_settingsProfile;
    delete m_protocolMenu;
}

// Identity ---------------------------------------------------------------------------------------------------------

void WeighingPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("weighing");
    id.kind = QStringLiteral("plugin");
    id.addonNumber = 1;
    id.hasProtocol = true;
    id.protocolName = tr("Print-outs");
    id.checkPrintOnClose = true;
    id.usesCalibrationService = true;
    id.usesLevellingService = true;
}

QString WeighingPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Weighing") : QStringLiteral("Weighing");
}

QString WeighingPlugin::GetPluginIcon()
{
    return QStringLiteral(":/weighing/weighing.svg");
}

// Parts that the base asks for -------------------------------------------------------------------------------------

IMenuList* WeighingPlugin::CreatePluginMenu()
{
    return nullptr; // there is no menu of its own
}

QObject* WeighingPlugin::CreateViewModel()
{
    m_weighingModel = new WeighingViewModel; // without a parent: the base deletes it at the close
    return m_weighingModel;
}

QString WeighingPlugin::GetViewModelName()
{
    return QStringLiteral("weighing");
}

QString WeighingPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/weighing/WeighingScreen.qml");
}

IPluginViewManager* WeighingPlugin::CreateViewManager()
{
    return new WeighingViewManager(m_weighingModel);
}

// Settings ---------------------------------------------------------------------------------------------------------

bool WeighingPlugin::PostInitPlugin()
{
    InitializeProfile();
    const QString owner = m_system->GetStatusInfo()->GetAddonText();
    const QString onlyStable = m_system->GetStoredParameter(SettingsPath, owner, SettingsProfileName,
                                                            QStringLiteral("true"), PrintOnlyStable);
    const QString minimum = m_system->GetStoredParameter(SettingsPath, owner, SettingsProfileName,
                                                         QStringLiteral("0"), MinimumWeight);
    const QString place =
        m_system->GetStoredParameter(SettingsPath, owner, SettingsProfileName, QString(), WeighingPlace);
    SetProfileItem(PrintOnlyStable, onlyStable == QLatin1String("true"), QString());
    SetProfileItem(MinimumWeight, minimum.toDouble(), QString());
    const QString mode = m_system->GetStoredParameter(SettingsPath, owner, SettingsProfileName,
                                                      automaticModes().constFirst(), AutomaticMode);
    const QString threshold = m_system->GetStoredParameter(SettingsPath, owner, SettingsProfileName,
                                                           QStringLiteral("5"), AutomaticThreshold);
    m_automaticModeWhenOn = automaticModes().at(1);
    SetProfileItem(AutomaticThreshold, threshold.toDouble(), QString());
    SetProfileItem(AutomaticMode, mode, QString());
    SetProfileItem(WeighingPlace, place, QString());
    return true;
}

void WeighingPlugin::ApplyProfileItem(int id, QVariant value)
{
    switch (id) {
    case PrintOnlyStable:
        m_printOnlyStable = value.toBool();
        break;
    case MinimumWeight:
        m_minimumWeight = qMax(0.0, value.toDouble());
        break;
    case AutomaticMode:
        // What is none of the modes switches it off.
        m_automaticMode =
            automaticModes().value(automaticModes().indexOf(value.toString()), automaticModes().constFirst());
        if (m_automaticMode != automaticModes().constFirst()) {
            m_automaticModeWhenOn = m_automaticMode;
        }
        break;
    case AutomaticThreshold:
        m_automaticThreshold = qBound(0.0, value.toDouble(), 1.0e9);
        break;
    case WeighingPlace:
        m_weighingPlace = value.toString();
        break;
    default:
        return;
    }
    showSettings();
}

void WeighingPlugin::showSettings()
{
    if (m_protocol) {
        m_protocol->setSettings(m_weighingPlace, m_minimumWeight);
    }
    if (m_weighingModel == nullptr) {
        return; // not started: the start shows what is in force
    }
    const QString minimum =
        m_minimumWeight > 0.0 ? QString::number(m_minimumWeight) + QStringLiteral(" g") : QString();
    m_weighingModel->setSettings(m_printOnlyStable, minimum);
    m_printModeAction->setToggleIndex(m_printOnlyStable ? 1 : 0);
    restartDetector();
}

// Life cycle -------------------------------------------------------------------------------------------------------

bool WeighingPlugin::PreStartPlugin()
{
    // Owns all that lives from start to close. The base deletes it and leaves the pointer, so it is set at every start.
    m_pluginObject = new QObject;

    m_zeroAction = makeAction<ActionBase>(QStringLiteral("weighing.zero"), "onZero(QVariant)");
    m_tareAction = makeAction<ActionBase>(QStringLiteral("weighing.tare"), "onTare(QVariant)");
    m_clearTareAction = makeAction<ActionBase>(QStringLiteral("weighing.clearTare"), "onClearTare(QVariant)");
    m_clearTareAction->setEnable(false);
    m_printModeAction =
        makeAction<ActionBaseToggle>(QStringLiteral("weighing.printMode"), "onPrintModeToggled(QVariant)");
    m_printModeAction->setMaxToggleIndex(1);
    m_automaticAction =
        makeAction<ActionBaseToggle>(QStringLiteral("weighing.automatic"), "onAutomaticToggled(QVariant)");
    m_automaticAction->setMaxToggleIndex(1);

    m_grossItem = new InfoboxListItem(m_pluginObject, QString(), QString(), QString(), false, true, false);
    m_tareItem = new InfoboxListItem(m_pluginObject, QString(), QString(), QString(), false, true, false);
    m_countItem = new InfoboxListItem(m_pluginObject, QString(), QString(), QString(), false, true, false);
    translateTexts();
    return true;
}

void WeighingPlugin::InitPluginProtocolItems()
{
    m_protocol = std::make_unique<WeighingProtocol>(m_system, &m_current);
}

void WeighingPlugin::AddToPoolPluginProtocolItems()
{
    m_protocol->addToPool();
}

void WeighingPlugin::RemoveFromPoolPluginProtocolItems()
{
    m_protocol->removeFromPool();
}

void WeighingPlugin::InitActionbar()
{
    IActionbar* const actionbar = m_system->GetActionbar();
    actionbar->AddAction(m_zeroAction);
    actionbar->AddAction(m_tareAction);
    actionbar->AddAction(m_clearTareAction);
    actionbar->AddAction(m_printModeAction);
    actionbar->AddAction(m_automaticAction);
    PluginBase::InitActionbar();
}

bool WeighingPlugin::PostStartPlugin()
{
    m_infobox->SetItems({m_grossItem, m_tareItem, m_countItem});
    m_detector = new LoadChange(m_weighingModel, m_system->GetWeighing(), m_system->GetSystemRegister());
    showSettings();

    // The interface is no QObject, but the object behind it is.
    connect(dynamic_cast<QObject*>(m_system->GetWeighing()), SIGNAL(NotifyNewMeasurementValue()), this,
            SLOT(onNewMeasurementValue()));
    onNewMeasurementValue(); // the present weight, without waiting for the next
    return true;
}

bool WeighingPlugin::PreClosePlugin()
{
    // The base cuts the plug-in's own signals. Those that it receives it cuts itself, before the view model goes.
    disconnect(dynamic_cast<QObject*>(m_system->GetWeighing()), nullptr, this, nullptr);
    delete m_detector;

    IActionbar* const actionbar = m_system->GetActionbar();
    actionbar->RemoveAction(m_zeroAction);
    actionbar->RemoveAction(m_tareAction);
    actionbar->RemoveAction(m_clearTareAction);
    actionbar->RemoveAction(m_printModeAction);
    actionbar->RemoveAction(m_automaticAction);
    m_infobox->SetItems({});
    return true;
}

// Weighing ---------------------------------------------------------------------------------------------------------

void WeighingPlugin::onNewMeasurementValue()
{
    m_current = readRegister(ISystemRegister::CurrentRegister);
    showReading(m_current);
    if (m_decimals != m_system->GetDecimals()) {
        restartDetector(); // its digits have become others
    }
    serveLoadChange(m_current);
    if (m_printRequested) {
        servePrintRequest(m_current);
    }
}

void WeighingPlugin::onDoPrint()
{
    if (m_weighingModel == nullptr) {
        return; // not started
    }
    PluginBase::onDoPrint();
    onNewMeasurementValue();
}

void WeighingPlugin::showReading(MesswertData current)
{
    const MesswertData gross = readRegister(ISystemRegister::GrossRegister);
    const MesswertData tare = readRegister(ISystemRegister::TareRegister);

    MesswertInfo* const info = m_weighingModel->messwertInfo();
    info->setFromMesswertData(&current);
    info->setPtVisible(current.isPresetTare); // loading a reading has switched the mark off

    info->setMesswertKlein(gross.messwert);
    info->setUnitKlein(gross.unit);
    info->setMesswertKleinVisible(current.net && gross.isValid);

    const double limit = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::UpperLimitRegister);
    const double load = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::GrossRegister);
    const bool isLimitKnown = limit > 0.0 && limit < UnknownLimit;
    info->setBargraphVisible(isLimitKnown);
    info->setBargraphValue(gross.isValid && isLimitKnown ? qFloor(qBound(0.0, load / limit, 1.0) * 100.0)
                                                         : 0);

    m_grossItem->setItemValue(withUnit(gross));
    m_grossItem->setIsItemValueInvalid(!gross.isValid);
    m_tareItem->setItemValue(withUnit(tare));
    m_clearTareAction->setEnable(current.net);
}

QStringList WeighingPlugin::automaticModes()
{
    return {QStringLiteral("off"), QStringLiteral("absolute"), QStringLiteral("percent"),
            QStringLiteral("absolute-fixed"), QStringLiteral("percent-fixed")};
}

void WeighingPlugin::restartDetector()
{
    const bool runs = startDetector();
    m_automaticAction->setToggleIndex(runs ? 1 : 0);
    const bool isWanted = m_detector != nullptr && m_automaticMode != automaticModes().constFirst();
    m_weighingModel->setAutomaticRefused(isWanted && !runs);
}

/// Starts the detector anew as it is set. Returns whether it runs: it does not when it is switched off, or when the
/// threshold is none for the mode or for this scale.
bool WeighingPlugin::startDetector()
{
    if (m_detector == nullptr) {
        return false;
    }
    m_detector->Stop();
    m_decimals = m_system->GetDecimals();
    const int index = automaticModes().indexOf(m_automaticMode) - 1;
    if (index < 0) {
        return false;
    }
    const auto mode = static_cast<ILoadChange::LoadChangeMode>(index);
    const bool percent = mode == ILoadChange::Percent || mode == ILoadChange::PercentFixed;
    const bool fixed = mode == ILoadChange::AbsoluteFixed || mode == ILoadChange::PercentFixed;
    const double digitsPerGram = std::pow(10.0, m_decimals);
    const double range = percent ? m_automaticThreshold : m_automaticThreshold * digitsPerGram;
    if (range < 1.0 || range > 1.0e9) {
        return false;
    }
    const double minimum = qBound(MinimumLoadDigits, m_minimumWeight * digitsPerGram, 1.0e9);
    if (!m_detector->Start(mode, static_cast<unsigned long>(qRound64(range)),
                           fixed ? static_cast<long>(minimum) : NoMinimum, !fixed)) {
        return false;
    }
    // A weight that is stable already is not announced again.
    const MesswertData current = readRegister(ISystemRegister::CurrentRegister);
    if (current.isValid && current.isStable) {
        m_detector->onLoadChanged(
            0, m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::CurrentRegister));
    }
    return true;
}

/// Prints a stable weight by itself after the detector has fired, and arms it again.
void WeighingPlugin::serveLoadChange(const MesswertData& current)
{
    if (m_detector == nullptr || !m_detector->isActive() || m_detector->state() != LoadChange::Triggered
        || !current.isValid || !current.isStable) {
        return;
    }
    const double digits = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::CurrentRegister);
    const double minimum = qBound(MinimumLoadDigits, m_minimumWeight * std::pow(10.0, m_decimals), 1.0e9);
    const bool due =
        digits > minimum && m_detector->isValueAvailable(static_cast<long>(qBound(-1.0e9, digits, 1.0e9)));
    const bool fixed =
        m_detector->mode() == ILoadChange::AbsoluteFixed || m_detector->mode() == ILoadChange::PercentFixed;
    if (due || !fixed) {
        // The band lies about this weight from now on.
        m_detector->ResetTrigger();
        m_detector->onLoadChanged(0, digits);
    }
    if (due) {
        PluginBase::onDoPrint();
    }
}

void WeighingPlugin::servePrintRequest(const MesswertData& current)
{
    if (!current.isValid || current.messwert == Overflow) {
        m_printRequested = false;
        m_weighingModel->setPrintState(WeighingViewModel::NoWeight);
        return;
    }
    if (m_printOnlyStable && !current.isStable) {
        m_weighingModel->setPrintState(WeighingViewModel::WaitingForStable);
        return; // the request stays until the weight is stable
    }
    if (inGrams(current) < m_minimumWeight) {
        m_printRequested = false;
        m_weighingModel->setPrintState(WeighingViewModel::BelowMinimum);
        return;
    }
    ++m_transferCount;
    m_protocol->setWeighing(m_transferCount, m_previous); // the host prints within the transfer
    MeasurementDatatransfer(current, m_previous);         // takes the request with it
    m_previous = current;
    m_countItem->setItemValue(QString::number(m_transferCount));
    m_weighingModel->setLastTransfer(withUnit(current), m_transferCount);
    m_weighingModel->setPrintState(WeighingViewModel::Printed);
}

// The terminal itself says why zero or tare was refused.

QVariant WeighingPlugin::onZero(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Zero();
}

QVariant WeighingPlugin::onTare(QVariant data)
{
    Q_UNUSED(data)
    const bool done = m_system->GetWeighing()->Tare();
    if (done) {
        m_protocol->tareTaken();
    }
    return done;
}

QVariant WeighingPlugin::onClearTare(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->ClearTare();
}

QVariant WeighingPlugin::onPrintModeToggled(QVariant data)
{
    Q_UNUSED(data)
    // Through the profile, so that it holds what is in force; it calls ApplyProfileItem().
    SetProfileItem(PrintOnlyStable, !m_printOnlyStable, QString());
    return m_printOnlyStable;
}

QVariant WeighingPlugin::onAutomaticToggled(QVariant data)
{
    Q_UNUSED(data)
    const bool off = m_automaticMode == automaticModes().constFirst();
    SetProfileItem(AutomaticMode, off ? m_automaticModeWhenOn : automaticModes().constFirst(), QString());
    return !off;
}

// Texts ------------------------------------------------------------------------------------------------------------

void WeighingPlugin::TranslateWarnInfo()
{
    if (m_weighingModel == nullptr) {
        return; // not started: the next start makes its texts in the new language
    }
    m_weighingModel->translateTexts();
    translateTexts();
    onNewMeasurementValue();
}

void WeighingPlugin::translateTexts()
{
    m_zeroAction->setName(tr("Zero"));
    m_tareAction->setName(tr("Tare"));
    m_clearTareAction->setName(tr("Clear tare"));
    m_printModeAction->setName(tr("Stable only"));
    m_automaticAction->setName(tr("Automatic"));
    m_grossItem->setItemValueTitle(tr("Gross"));
    m_tareItem->setItemValueTitle(tr("Tare weight"));
    m_countItem->setItemValueTitle(tr("Printed"));
    m_countItem->setItemValue(QString::number(m_transferCount));
    m_protocol->translate();
}

// Helpers ----------------------------------------------------------------------------------------------------------

MesswertData WeighingPlugin::readRegister(int registerNumber) const
{
    return m_system->GetRegisterValueProvider()->GetMesswert(m_system->GetCurrentUnit(), registerNumber);
}

/// Makes an enabled action whose work is the slot `worker` of this plug-in.
template <typename Action>
Action* WeighingPlugin::makeAction(const QString& uid, const char* worker)
{
    auto* const action = new Action(m_pluginObject);
    action->setUid(uid);
    action->setRank(m_pluginObject->findChildren<ActionBase*>().size()); // in the order of making
    action->setEnable(true);
    action->setWorker(this, metaObject()->method(metaObject()->indexOfSlot(worker)));
    return action;
}
