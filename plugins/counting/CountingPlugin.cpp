// SPDX-License-Identifier: BSD-3-Clause
#include "CountingPlugin.h"

#include "CountingMenu.h"
#include "CountingProtocol.h"
#include "CountingViewManager.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <ActionBase.h>
#include <IActionbar.h>
#include <IInfobox.h>
#include <IMenuList.h>
#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <InfoboxListItem.h>
#include <SettingsProfile.h>
#include <UnitConverter.h>
#include <cmath>

using namespace Brimvale;

namespace
{

constexpr int GramUnit = 0; // as GetMesswert() takes it

/// The parts that were added may differ from a whole number of them by no more than this.
constexpr double LargestFraction = 0.25;

QString withUnit(const MesswertData& reading)
{
    return (reading.messwert + QLatin1Char(' ') + reading.unit).trimmed();
}

QString piecesText(int pieces)
{
    return QString::number(pieces) + QLatin1Char(' ') + CountingViewModel::pieceUnit();
}

} // namespace

CountingPlugin::CountingPlugin() = default;

CountingPlugin::~CountingPlugin()
{
    // The base makes the settings profile and asks the host for the protocol menu, but leaves both to the plug-in.
    delete m_settingsProfile;
    delete m_protocolMenu;
}

QString CountingPlugin::fileName()
{
    const QString chosen = qEnvironmentVariable("BRIMVALE_PLUGIN_DATA");
    const QString folder =
        chosen.isEmpty()
            ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/plugins")
            : chosen;
    return folder + QStringLiteral("/counting/counting.ini");
}

// Identity ---------------------------------------------------------------------------------------------------------

void CountingPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("counting");
    id.kind = QStringLiteral("plugin");
    id.addonNumber = 5;
    id.hasProtocol = true;
    id.protocolName = tr("Print-outs");
    id.checkPrintOnClose = true;
    id.usesCalibrationService = true;
    id.usesLevellingService = true;
}

QString CountingPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Counting") : QStringLiteral("Counting");
}

QString CountingPlugin::GetPluginIcon()
{
    return QStringLiteral(":/counting/counting.svg");
}

// Parts that the base asks for -------------------------------------------------------------------------------------

IMenuList* CountingPlugin::CreatePluginMenu()
{
    auto* const menu = new CountingMenu(*m_settingsProfile, *this, m_settings, this);
    menu->initMenuListBase(m_system);
    connect(menu, &CountingMenu::deleteReferenceRequested, this, &CountingPlugin::onDeleteReference);
    return menu;
}

QObject* CountingPlugin::CreateViewModel()
{
    m_model = new CountingViewModel(&m_settings); // without a parent: the base deletes it at the close
    return m_model;
}

QString CountingPlugin::GetViewModelName()
{
    return QStringLiteral("counting");
}

QString CountingPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/counting/CountingScreen.qml");
}

IPluginViewManager* CountingPlugin::CreateViewManager()
{
    return new CountingViewManager(m_model);
}

void CountingPlugin::ApplyProfileItem(int id, QVariant value)
{
    switch (id) {
    case CountingMenu::UsualCount:
        m_usualCount = value.toInt();
        break;
    case CountingMenu::OptimiseByItself:
        m_optimisesByItself = value.toBool();
        break;
    default:
        return;
    }
    if (m_model != nullptr) {
        onNewMeasurementValue();
    }
}

// Life cycle -------------------------------------------------------------------------------------------------------

void CountingPlugin::InitPluginProtocolItems()
{
    m_protocol = std::make_unique<CountingProtocol>(m_system);
}

void CountingPlugin::AddToPoolPluginProtocolItems()
{
    m_protocol->addToPool();
}

void CountingPlugin::RemoveFromPoolPluginProtocolItems()
{
    m_protocol->removeFromPool();
}

bool CountingPlugin::PreStartPlugin()
{
    // Owns all that lives from start to close. The base deletes it and leaves the pointer, so it is set at every start.
    m_pluginObject = new QObject;

    m_zeroAction = makeAction(QStringLiteral("counting.zero"), "onZero(QVariant)");
    m_tareAction = makeAction(QStringLiteral("counting.tare"), "onTare(QVariant)");
    m_referenceAction = makeAction(QStringLiteral("counting.reference"), "onReference(QVariant)");
    m_optimiseAction = makeAction(QStringLiteral("counting.optimise"), "onOptimise(QVariant)");
    m_partsAction = makeAction(QStringLiteral("counting.parts"), "onNextParts(QVariant)");
    m_targetAction = makeAction(QStringLiteral("counting.target"), "onTarget(QVariant)");
    m_enterAction = makeAction(QStringLiteral("counting.enter"), "onEnter(QVariant)");

    const auto makeItem = [this] {
        return new InfoboxListItem(m_pluginObject, QString(), QString(), QString(), false, true, false);
    };
    m_pieceItem = makeItem();
    m_partsItem = makeItem();
    m_referenceItem = makeItem();
    m_rightItem = makeItem();
    return true;
}

void CountingPlugin::InitActionbar()
{
    translateTexts();
    IActionbar* const actionbar = m_system->GetActionbar();
    const QList<ActionBase*> actions = m_pluginObject->findChildren<ActionBase*>(); // in the order of making
    for (ActionBase* action : actions) {
        actionbar->AddAction(action);
    }
    PluginBase::InitActionbar();
}

bool CountingPlugin::PostStartPlugin()
{
    m_settings = CountingSettings();
    if (!m_settings.load(fileName())) {
        m_model->setEvent(CountingViewModel::NotRead, {fileName()});
    }
    translateTexts(); // the number of parts
    m_infobox->SetItems({m_pieceItem, m_partsItem, m_referenceItem, m_rightItem});

    connect(m_model, &CountingViewModel::settingsChanged, this, &CountingPlugin::onSettingsChanged);
    connect(m_model, &CountingViewModel::entryChanged, this, &CountingPlugin::translateTexts);
    // The interface is no QObject, but the object behind it is.
    connect(dynamic_cast<QObject*>(m_system->GetWeighing()), SIGNAL(NotifyNewMeasurementValue()), this,
            SLOT(onNewMeasurementValue()));
    onNewMeasurementValue(); // the present weight, without waiting for the next
    return true;
}

bool CountingPlugin::PreClosePlugin()
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

// Counting ---------------------------------------------------------------------------------------------------------

void CountingPlugin::onNewMeasurementValue()
{
    const bool wasStable = m_current.isStable;
    IRegisterValueProvider* const registers = m_system->GetRegisterValueProvider();
    m_current = registers->GetMesswert(m_system->GetCurrentUnit(), ISystemRegister::CurrentRegister);
    m_grams = registers->GetMesswert(GramUnit, ISystemRegister::CurrentRegister);
    if (wasStable && !m_current.isStable) {
        m_model->clearEvent();
    }
    if (m_optimisesByItself) {
        optimiseByItself();
    }
    const MesswertData count = countReading();
    showReading(count);
    if (m_printRequested) {
        servePrintRequest(count);
    }
}

void CountingPlugin::onDoPrint()
{
    if (m_model == nullptr) {
        return; // not started
    }
    PluginBase::onDoPrint();
    onNewMeasurementValue();
}

/// The present weight as a count, or why there is none.
MesswertData CountingPlugin::countReading() const
{
    MesswertData count = m_current;
    count.messwert.clear();
    count.unit = CountingViewModel::pieceUnit();
    count.unitPrintName = count.unit;
    count.eichDigit = 0;
    count.decimals = 0;
    count.resolutionReduction = 0;
    count.value = 0.0;
    count.tareValue = 0.0;
    count.isCalculated = true;
    if (!m_current.isValid) {
        return count;
    }
    if (!m_settings.reference().isValid()) {
        count.isValid = false;
        count.errorText = tr("No reference");
        return count;
    }
    const PieceCount counted = m_settings.reference().count(ShownWeight::ofGrams(m_grams));
    count.messwert = QString::number(counted.pieces);
    count.value = counted.pieces;
    if (counted.isTooMany) {
        count.isValid = false;
        count.errorText = tr("Too many pieces");
    }
    return count;
}

/// A calculated weight in the unit of the display, with as many decimal places of a gram as there is room for.
MesswertData CountingPlugin::inCurrentUnit(double grams, int decimals) const
{
    const QString unit = m_current.unit.isEmpty() ? QStringLiteral("g") : m_current.unit;
    MesswertData converted;
    for (int places = decimals; places >= 0; --places) {
        converted =
            UnitConverter().ConvertDigitToUnit(grams * std::pow(10.0, places), places, 0, false, unit);
        if (!converted.unit.isEmpty()) {
            break; // it has not become too long
        }
    }
    converted.unitPrintName = converted.unit;
    converted.isCalculated = true;
    converted.isStable = true; // as the reference was
    return converted;
}

void CountingPlugin::showReading(const MesswertData& count)
{
    const PieceReference& reference = m_settings.reference();
    MesswertInfo* const info = m_model->messwertInfo();
    // Until there is a reference, the weight stands in the place of the count.
    MesswertData shown = reference.isValid() ? count : m_current;
    info->setFromMesswertData(&shown);
    info->setPtVisible(shown.isPresetTare); // loading a reading has switched the mark off
    info->setMesswertKlein(m_current.messwert);
    info->setUnitKlein(m_current.unit);
    info->setMesswertKleinVisible(reference.isValid() && m_current.isValid);

    MesswertData piece = count; // why there is none
    QString referenceText = QStringLiteral("–");
    if (reference.isValid()) {
        // One decimal place more for each digit of the number of parts.
        const int decimals = reference.weight().decimals;
        const int more = reference.parts() > 1 ? QString::number(reference.parts() - 1).size() : 0;
        piece = inCurrentUnit(reference.pieceGrams(), decimals + more);
        referenceText = withUnit(inCurrentUnit(reference.weight().grams(), decimals));
    }
    const bool isKnown = reference.isValid();
    m_pieceItem->setItemValue(isKnown ? withUnit(piece) : QStringLiteral("–"));
    m_partsItem->setItemValue(isKnown ? piecesText(reference.parts()) : QStringLiteral("–"));
    m_referenceItem->setItemValue(referenceText);
    m_protocol->setValues(count, piece, reference.parts());

    const int pieces = static_cast<int>(count.value);
    m_model->setCheck(count.isValid ? m_settings.check(pieces) : CountingSettings::NoTarget,
                      count.isValid ? m_settings.difference(pieces) : 0);
    showAccuracy(count);
}

/// How far counts are right, and what to do when that is not far enough.
void CountingPlugin::showAccuracy(const MesswertData& count)
{
    const PieceReference& reference = m_settings.reference();
    if (!reference.isValid()) {
        m_rightItem->setItemValue(QStringLiteral("–"));
        m_model->setStanding(CountingViewModel::NoReference, {piecesText(m_model->parts())});
        return;
    }
    const int decimals =
        m_grams.isValid ? ShownWeight::ofGrams(m_grams).decimals : reference.weight().decimals;
    const int rightUpTo = reference.rightUpTo(decimals);
    m_rightItem->setItemValue(rightUpTo > 0 ? piecesText(rightUpTo) : QStringLiteral("–"));

    // The target is what will be counted.
    const int target = m_settings.value(CountingSettings::Target);
    const qint64 planned =
        target > 0 ? qint64(target) + m_settings.value(CountingSettings::Tolerance) : m_usualCount;
    const int pieces =
        static_cast<int>(qBound(qAbs(qint64(count.value)), planned, qint64(PieceReference::LargestCount)));
    if (rightUpTo >= pieces) {
        m_model->setStanding(CountingViewModel::Right, {QString::number(rightUpTo)});
        return;
    }
    const double error = reference.uncertainty(pieces, decimals);
    const QStringList details{QString::number(error, 'f', error < 10.0 ? 1 : 0), QString::number(pieces)};
    const int needed = reference.partsNeeded(pieces, decimals);
    const int added = qMin(needed, rightUpTo) - reference.parts(); // as many as are counted right
    if (needed == 0) {
        m_model->setStanding(CountingViewModel::TooLight, details);
    } else if (added > 0) {
        m_model->setStanding(CountingViewModel::TooSmall, details + QStringList(QString::number(added)));
    } else {
        m_model->setStanding(CountingViewModel::TooFew, details + QStringList(QString::number(needed)));
    }
}

void CountingPlugin::servePrintRequest(const MesswertData& count)
{
    if (!count.isValid) {
        m_printRequested = false;
        m_model->setEvent(CountingViewModel::NotPrinted);
        return;
    }
    if (!count.isStable) {
        m_model->setEvent(CountingViewModel::WaitingForStable);
        return; // the request stays until the weight is stable
    }
    MeasurementDatatransfer(count, m_previous); // takes the request with it
    m_previous = count;
    m_model->setEvent(CountingViewModel::Printed);
}

// Reference and target ---------------------------------------------------------------------------------------------

/// Whether the present weight can be taken over; tells why not.
bool CountingPlugin::isWeightReady()
{
    m_model->cancelEntry();
    if (!m_current.isValid) {
        m_model->setEvent(CountingViewModel::NoWeight);
    } else if (!m_current.isStable) {
        m_model->setEvent(CountingViewModel::NotStable);
    } else if (ShownWeight::ofGrams(m_grams).increments < 0.0) {
        m_model->setEvent(CountingViewModel::Negative);
    } else {
        return true;
    }
    return false;
}

void CountingPlugin::takeReference(const PieceReference& reference, CountingViewModel::State told)
{
    m_settings.setReference(reference);
    onSettingsChanged();
    if (m_model->stateKind() == CountingViewModel::Plain) { // nothing more urgent is told
        m_model->setEvent(told, {QString::number(reference.parts()), m_pieceItem->itemValue()});
    }
}

QVariant CountingPlugin::onReference(QVariant data)
{
    Q_UNUSED(data)
    if (!isWeightReady()) {
        return false;
    }
    const ShownWeight weight = ShownWeight::ofGrams(m_grams);
    const PieceReference reference(weight, m_model->parts());
    if (!reference.isValid()) {
        const MesswertData increment = inCurrentUnit(weight.incrementGrams(), weight.decimals);
        m_model->setEvent(CountingViewModel::NothingOn, {withUnit(increment)});
        return false;
    }
    takeReference(reference, CountingViewModel::ReferenceTaken);
    return true;
}

QVariant CountingPlugin::onOptimise(QVariant data)
{
    Q_UNUSED(data)
    if (!isWeightReady()) {
        return false;
    }
    const PieceReference better = betterReference();
    QStringList details;
    const CountingViewModel::State state = optimisation(better, &details);
    if (state != CountingViewModel::Optimised) {
        m_model->setEvent(state, details);
        return false;
    }
    takeReference(better, state);
    return true;
}

/// The parts on the scale as a reference: as many as they are counted.
PieceReference CountingPlugin::betterReference() const
{
    const ShownWeight weight = ShownWeight::ofGrams(m_grams);
    const PieceReference& reference = m_settings.reference();
    return reference.isValid() ? PieceReference(weight, reference.count(weight).pieces) : PieceReference();
}

/// `Optimised` when they are indeed better than the present reference, otherwise why not.
CountingViewModel::State CountingPlugin::optimisation(const PieceReference& better,
                                                      QStringList* details) const
{
    const PieceReference& reference = m_settings.reference();
    if (!reference.isValid()) {
        return CountingViewModel::ReferenceNeeded;
    }
    const int rightUpTo = reference.rightUpTo(better.weight().decimals);
    if (rightUpTo <= reference.parts()) {
        return CountingViewModel::NotOptimisable;
    }
    if (better.parts() <= reference.parts()) {
        *details = QStringList(QString::number(reference.parts()));
        return CountingViewModel::MoreNeeded;
    }
    if (better.parts() > rightUpTo) {
        *details = QStringList(QString::number(rightUpTo - reference.parts()));
        return CountingViewModel::AddedTooMany;
    }
    const double exact = reference.count(better.weight()).exact;
    if (std::abs(exact - better.parts()) > LargestFraction) {
        *details = QStringList(QString::number(exact, 'f', 2));
        return CountingViewModel::NotWhole;
    }
    return CountingViewModel::Optimised;
}

void CountingPlugin::optimiseByItself()
{
    QStringList details;
    const PieceReference better = betterReference();
    if (m_current.isValid && m_current.isStable
        && optimisation(better, &details) == CountingViewModel::Optimised) {
        takeReference(better, CountingViewModel::Optimised);
    }
}

void CountingPlugin::onDeleteReference()
{
    if (m_model != nullptr) {
        takeReference(PieceReference(), CountingViewModel::ReferenceDeleted);
    }
}

QVariant CountingPlugin::onNextParts(QVariant data)
{
    Q_UNUSED(data)
    const QVariantList presets = CountingViewModel::presets();
    int next = presets.first().toInt();
    for (const QVariant& preset : presets) {
        if (preset.toInt() > m_model->parts()) {
            next = preset.toInt();
            break;
        }
    }
    m_model->change(CountingSettings::Parts, next);
    return next;
}

/// The present count becomes the target; an empty scale takes the target back.
QVariant CountingPlugin::onTarget(QVariant data)
{
    Q_UNUSED(data)
    if (!isWeightReady()) {
        return false;
    }
    const MesswertData count = countReading();
    if (!count.isValid) {
        m_model->setEvent(m_settings.reference().isValid() ? CountingViewModel::NoCount
                                                           : CountingViewModel::ReferenceNeeded);
        return false;
    }
    const int pieces = static_cast<int>(count.value);
    m_model->change(CountingSettings::Target, pieces);
    if (m_areSettingsKept) {
        m_model->setEvent(pieces > 0 ? CountingViewModel::TargetTaken : CountingViewModel::TargetTakenBack,
                          {QString::number(pieces)});
    }
    return true;
}

// Settings ---------------------------------------------------------------------------------------------------------

void CountingPlugin::onSettingsChanged()
{
    const QString file = fileName();
    m_areSettingsKept = QDir().mkpath(QFileInfo(file).path()) && m_settings.save(file);
    if (m_areSettingsKept) {
        m_model->setEvent(CountingViewModel::Nothing);
    } else {
        m_model->setEvent(CountingViewModel::NotKept, {file});
    }
    translateTexts(); // the number of parts
    onNewMeasurementValue();
}

QVariant CountingPlugin::onEnter(QVariant data)
{
    Q_UNUSED(data)
    if (m_model->editing()) {
        m_model->cancelEntry();
    } else {
        m_model->openEntry(m_model->selected());
    }
    return m_model->editing();
}

// The terminal itself says why zero or tare was refused.

QVariant CountingPlugin::onZero(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Zero();
}

QVariant CountingPlugin::onTare(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Tare();
}

// Texts ------------------------------------------------------------------------------------------------------------

void CountingPlugin::TranslateWarnInfo()
{
    if (m_model == nullptr) {
        return; // not started: the next start makes its texts in the new language
    }
    m_model->translateTexts();
    translateTexts();
    onNewMeasurementValue();
}

void CountingPlugin::translateTexts()
{
    m_zeroAction->setName(tr("Zero"));
    m_tareAction->setName(tr("Tare"));
    m_referenceAction->setName(tr("Reference"));
    m_optimiseAction->setName(tr("Optimise"));
    m_partsAction->setName(tr("Parts: %1").arg(m_model->parts()));
    m_targetAction->setName(tr("Count as target"));
    m_enterAction->setName(m_model->editing() ? tr("Close pad") : tr("Number pad"));
    m_pieceItem->setItemValueTitle(tr("Piece weight"));
    m_partsItem->setItemValueTitle(tr("Reference parts"));
    m_referenceItem->setItemValueTitle(tr("Reference weight"));
    m_rightItem->setItemValueTitle(tr("Right up to"));
    m_protocol->translate();
}

// Helpers ----------------------------------------------------------------------------------------------------------

/// Makes an enabled action whose work is the slot `worker` of this plug-in.
ActionBase* CountingPlugin::makeAction(const QString& uid, const char* worker)
{
    auto* const action = new ActionBase(m_pluginObject);
    action->setUid(uid);
    action->setRank(m_pluginObject->findChildren<ActionBase*>().size()); // in the order of making
    action->setEnable(true);
    action->setWorker(this, metaObject()->method(metaObject()->indexOfSlot(worker)));
    return action;
}
