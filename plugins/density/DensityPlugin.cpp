// SPDX-License-Identifier: BSD-3-Clause
#include "DensityPlugin.h"

#include "Buoyancy.h"
#include "DensityViewManager.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <ActionBase.h>
#include <ActionBaseToggle.h>
#include <IActionbar.h>
#include <IInfobox.h>
#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <InfoboxListItem.h>
#include <SettingsProfile.h>

using namespace Brimvale;

namespace
{

QString withUnit(const MesswertData& reading)
{
    return reading.errorText.isEmpty() ? reading.messwert + QLatin1Char(' ') + reading.unit
                                       : reading.errorText;
}

} // namespace

DensityPlugin::~DensityPlugin()
{
    // The base makes the settings profile but leaves it to the plug-in.
    delete m_settingsProfile;
}

QString DensityPlugin::fileName()
{
    const QString chosen = qEnvironmentVariable("BRIMVALE_PLUGIN_DATA");
    const QString folder =
        chosen.isEmpty()
            ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/plugins")
            : chosen;
    return folder + QStringLiteral("/density/density.ini");
}

// Identity ---------------------------------------------------------------------------------------------------------

void DensityPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("density");
    id.kind = QStringLiteral("plugin");
    id.addonNumber = 3;
    id.checkPrintOnClose = true;
    id.usesCalibrationService = true;
    id.usesLevellingService = true;
}

QString DensityPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Buoyancy") : QStringLiteral("Buoyancy");
}

QString DensityPlugin::GetPluginIcon()
{
    return QStringLiteral(":/density/density.svg");
}

// Parts that the base asks for -------------------------------------------------------------------------------------

IMenuList* DensityPlugin::CreatePluginMenu()
{
    return nullptr; // there is no menu of its own
}

QObject* DensityPlugin::CreateViewModel()
{
    // What is kept is there before the screen reads it.
    m_parameters = Parameters();
    const bool isRead = m_parameters.load(fileName());
    m_model = new DensityViewModel(&m_parameters); // without a parent: the base deletes it at the close
    if (!isRead) {
        m_model->setState(DensityViewModel::NotRead, fileName());
    }
    return m_model;
}

QString DensityPlugin::GetViewModelName()
{
    return QStringLiteral("density");
}

QString DensityPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/density/DensityScreen.qml");
}

IPluginViewManager* DensityPlugin::CreateViewManager()
{
    return new DensityViewManager(m_model);
}

void DensityPlugin::ApplyProfileItem(int id, QVariant value)
{
    // The parameters are entered on the screen and kept in a file of their own.
    Q_UNUSED(id)
    Q_UNUSED(value)
}

// Life cycle -------------------------------------------------------------------------------------------------------

bool DensityPlugin::PreStartPlugin()
{
    // Owns all that lives from start to close. The base deletes it and leaves the pointer, so it is set at every start.
    m_pluginObject = new QObject;

    m_zeroAction = makeAction<ActionBase>(QStringLiteral("density.zero"), "onZero(QVariant)");
    m_tareAction = makeAction<ActionBase>(QStringLiteral("density.tare"), "onTare(QVariant)");
    m_fieldAction = makeAction<ActionBase>(QStringLiteral("density.field"), "onNextField(QVariant)");
    m_decreaseAction = makeAction<ActionBase>(QStringLiteral("density.decrease"), "onDecrease(QVariant)");
    m_increaseAction = makeAction<ActionBase>(QStringLiteral("density.increase"), "onIncrease(QVariant)");
    m_enterAction = makeAction<ActionBase>(QStringLiteral("density.enter"), "onEnter(QVariant)");
    m_formulaAction =
        makeAction<ActionBaseToggle>(QStringLiteral("density.formula"), "onFormulaToggled(QVariant)");
    m_formulaAction->setMaxToggleIndex(1);

    const auto makeItem = [this] {
        return new InfoboxListItem(m_pluginObject, QString(), QString(), QString(), false, true, false);
    };
    m_readingItem = makeItem();
    m_correctionItem = makeItem();
    m_correctedItem = makeItem();
    m_airItem = makeItem();
    m_factorItem = makeItem();
    translateTexts();
    return true;
}

void DensityPlugin::InitActionbar()
{
    IActionbar* const actionbar = m_system->GetActionbar();
    const QList<ActionBase*> actions = m_pluginObject->findChildren<ActionBase*>(); // in the order of making
    for (ActionBase* action : actions) {
        actionbar->AddAction(action);
    }
    PluginBase::InitActionbar();
}

bool DensityPlugin::PostStartPlugin()
{
    m_formulaAction->setToggleIndex(m_parameters.isExact() ? 1 : 0);
    m_infobox->SetItems({m_readingItem, m_correctionItem, m_correctedItem, m_airItem, m_factorItem});

    connect(m_model, &DensityViewModel::parametersChanged, this, &DensityPlugin::onParametersChanged);
    connect(m_model, &DensityViewModel::entryChanged, this, &DensityPlugin::translateTexts);
    // The interface is no QObject, but the object behind it is.
    connect(dynamic_cast<QObject*>(m_system->GetWeighing()), SIGNAL(NotifyNewMeasurementValue()), this,
            SLOT(onNewMeasurementValue()));
    onNewMeasurementValue(); // the present weight, without waiting for the next
    return true;
}

bool DensityPlugin::PreClosePlugin()
{
    // The base cuts the plug-in's own signals. Those that it receives it cuts itself, before the view model goes.
    disconnect(dynamic_cast<QObject*>(m_system->GetWeighing()), nullptr, this, nullptr);

    IActionbar* const actionbar = m_system->GetActionbar();
    const QList<ActionBase*> actions = m_pluginObject->findChildren<ActionBase*>();
    for (ActionBase* action : actions) {
        actionbar->RemoveAction(action);
    }
    m_infobox->SetItems({});
    return true;
}

// Weighing ---------------------------------------------------------------------------------------------------------

void DensityPlugin::onNewMeasurementValue()
{
    const MesswertData reading = m_system->GetRegisterValueProvider()->GetMesswert(
        m_system->GetCurrentUnit(), ISystemRegister::CurrentRegister);
    const double air = Buoyancy::airDensity(m_parameters);
    const double factor = Buoyancy::factor(air, m_parameters.value(Parameters::SampleDensity),
                                           m_parameters.value(Parameters::WeightsDensity));
    const MesswertData corrected = Buoyancy::corrected(reading, factor);
    m_airItem->setItemValue(QString::number(air, 'f', 4) + QStringLiteral(" kg/m³"));
    showReading(reading, corrected, factor);
    if (m_printRequested) {
        servePrintRequest(reading, corrected);
    }
}

void DensityPlugin::onDoPrint()
{
    if (m_model == nullptr) {
        return; // not started
    }
    PluginBase::onDoPrint();
    onNewMeasurementValue();
}

void DensityPlugin::showReading(const MesswertData& reading, MesswertData corrected, double factor)
{
    MesswertInfo* const info = m_model->messwertInfo();
    info->setFromMesswertData(&corrected);
    info->setPtVisible(reading.isPresetTare); // loading a reading has switched the mark off
    info->setMesswertKlein(reading.messwert);
    info->setUnitKlein(reading.unit);
    info->setMesswertKleinVisible(corrected.isValid);
    m_model->setCorrected(corrected.isValid);

    m_readingItem->setItemValue(withUnit(reading));
    m_readingItem->setIsItemValueInvalid(!corrected.isValid);
    const QString none = QStringLiteral("–");
    m_correctedItem->setItemValue(corrected.isValid ? withUnit(corrected) : none);
    m_correctionItem->setItemValue(corrected.isValid ? Buoyancy::correction(reading, corrected)
                                                           + QLatin1Char(' ') + reading.unit
                                                     : none);
    m_factorItem->setItemValue(QString::number(factor, 'f', 7));
}

void DensityPlugin::servePrintRequest(const MesswertData& reading, const MesswertData& corrected)
{
    if (!corrected.isValid) {
        m_printRequested = false;
        m_model->setState(DensityViewModel::NoWeight);
        return;
    }
    if (!reading.isStable) {
        m_model->setState(DensityViewModel::WaitingForStable);
        return; // the request stays until the weight is stable
    }
    MeasurementDatatransfer(corrected, m_previous); // takes the request with it
    m_previous = corrected;
    m_model->setState(DensityViewModel::Printed);
}

// Parameters -------------------------------------------------------------------------------------------------------

void DensityPlugin::onParametersChanged()
{
    const QString file = fileName();
    const bool kept = QDir().mkpath(QFileInfo(file).path()) && m_parameters.save(file);
    m_model->setState(kept ? DensityViewModel::Ready : DensityViewModel::NotKept, kept ? QString() : file);
    onNewMeasurementValue();
}

// The terminal itself says why zero or tare was refused.

QVariant DensityPlugin::onZero(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Zero();
}

QVariant DensityPlugin::onTare(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Tare();
}

QVariant DensityPlugin::onNextField(QVariant data)
{
    Q_UNUSED(data)
    m_model->select((m_model->selected() + 1) % Parameters::Count);
    return m_model->selected();
}

QVariant DensityPlugin::onDecrease(QVariant data)
{
    Q_UNUSED(data)
    m_model->step(-1);
    return m_parameters.value(m_model->selected());
}

QVariant DensityPlugin::onIncrease(QVariant data)
{
    Q_UNUSED(data)
    m_model->step(1);
    return m_parameters.value(m_model->selected());
}

QVariant DensityPlugin::onEnter(QVariant data)
{
    Q_UNUSED(data)
    if (m_model->editing()) {
        m_model->cancelEntry();
    } else {
        m_model->openEntry();
    }
    return m_model->editing();
}

QVariant DensityPlugin::onFormulaToggled(QVariant data)
{
    Q_UNUSED(data)
    m_parameters.setExact(!m_parameters.isExact());
    m_formulaAction->setToggleIndex(m_parameters.isExact() ? 1 : 0);
    onParametersChanged();
    return m_parameters.isExact();
}

// Texts ------------------------------------------------------------------------------------------------------------

void DensityPlugin::TranslateWarnInfo()
{
    if (m_model == nullptr) {
        return; // not started: the next start makes its texts in the new language
    }
    m_model->translateTexts();
    translateTexts();
    onNewMeasurementValue();
}

void DensityPlugin::translateTexts()
{
    m_zeroAction->setName(tr("Zero"));
    m_tareAction->setName(tr("Tare"));
    m_fieldAction->setName(tr("Next value"));
    m_decreaseAction->setName(QStringLiteral("−"));
    m_increaseAction->setName(QStringLiteral("+"));
    m_enterAction->setName(m_model && m_model->editing() ? tr("Close pad") : tr("Number pad"));
    m_formulaAction->setName(tr("Exact formula"));
    m_readingItem->setItemValueTitle(tr("Reading"));
    m_correctionItem->setItemValueTitle(tr("Correction"));
    m_correctedItem->setItemValueTitle(tr("Corrected"));
    m_airItem->setItemValueTitle(tr("Air density"));
    m_factorItem->setItemValueTitle(tr("Factor"));
}

// Helpers ----------------------------------------------------------------------------------------------------------

/// Makes an enabled action whose work is the slot `worker` of this plug-in.
template <typename Action>
Action* DensityPlugin::makeAction(const QString& uid, const char* worker)
{
    auto* const action = new Action(m_pluginObject);
    action->setUid(uid);
    action->setRank(m_pluginObject->findChildren<ActionBase*>().size()); // in the order of making
    action->setEnable(true);
    action->setWorker(this, metaObject()->method(metaObject()->indexOfSlot(worker)));
    return action;
}
