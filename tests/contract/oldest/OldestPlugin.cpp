// SPDX-License-Identifier: BSD-3-Clause
#include "OldestPlugin.h"

#include <QDateTime>
#include <QTextStream>

#include <CategorySort.h>
#include <Error.h>
#include <IActionbar.h>
#include <IFormat.h>
#include <IPrinter.h>
#include <IProtocolPool.h>
#include <ISystem.h>
#include <IWfM.h>
#include <InfoValueUnit.h>
#include <LoadChange.h>
#include <MesswertInfo.h>
#include <PrintItemDescriptionText.h>
#include <Progressbar.h>
#include <ProjectException.h>
#include <SelectListItem.h>
#include <SettingsProfile.h>
#include <StatisticsValue.h>
#include <UnitConverter.h>
#include <UnitDef.h>
#include <UnitsList.h>
#include <Utility.h>
#include <WorkflowScreen.h>
#include <WorkflowStep.h>
#include <memory>

using namespace Brimvale;

namespace
{

bool isNeverEnabled()
{
    return false;
}

MesswertData reading()
{
    return MesswertData(QStringLiteral("12.3"), QStringLiteral("g"), QStringLiteral("gram"), QString(), 3, 1,
                        0, 1, 0, 12.3, 4.5, true, false, true, true, false, false, false, 74);
}

} // namespace

void Checks::that(bool holds, const char* what)
{
    ++m_count;
    if (!holds)
        m_failed.append(QString::fromLatin1(what));
}

QString Checks::result() const
{
    if (m_failed.isEmpty())
        return QStringLiteral("%1 passed").arg(m_count);
    return QStringLiteral("failed: ") + m_failed.join(QStringLiteral("; "));
}

// ---- the classes that derive from the library's

OldestAction::OldestAction(QObject* parent)
    : ActionBase(parent)
{
}

void OldestAction::setRank(int rank)
{
    ActionBase::setRank(rank + 100);
}

OldestStep::OldestStep(QObject* parent)
    : StepFunctionBase(parent)
{
}

void OldestStep::reset()
{
    ++resets;
}

OldestItem::OldestItem(QObject* parent)
    : PrintableItemBase(parent)
{
    setUid(QStringLiteral("oldest.item"));
    setCategory(QStringLiteral("plugin"));
    setRank(2);
    setEnable(ProtocolType::Measurement);
    setProtocolArea(ProtocolArea::Body);
}

QString OldestItem::getName() const
{
    return QStringLiteral("Item");
}

bool OldestItem::Print(IPrinter* printer, IFormat* format)
{
    return printer->PrintLine(format->FormatText(printer->GetPrintLayout(), QStringLiteral("Old item")));
}

void OldestItem::setValue()
{
    ++snapshots;
}

OldestTrigger::OldestTrigger(QObject* parent)
    : TriggerBase(parent)
{
}

QString OldestTrigger::getName() const
{
    return QStringLiteral("Trigger");
}

bool OldestTrigger::Check()
{
    return allowed;
}

OldestMenu::OldestMenu(QObject* parent)
    : MenuListBase(parent)
{
    m_menuFilePath = QStringLiteral(":/oldest/menu.json");
}

QString OldestMenu::GetMenuName()
{
    return QStringLiteral("Menu");
}

bool OldestMenu::IsItemVisible(int, ListModel*)
{
    return true;
}

bool OldestMenu::IsItemEnabled(int, ListModel*)
{
    return true;
}

QVariant OldestMenu::GetItemValue(int id)
{
    return id;
}

bool OldestMenu::SetItemValue(int, QVariant)
{
    return false;
}

QString OldestMenu::GetItemText(int)
{
    return QStringLiteral("Item");
}

QString OldestMenu::GetItemUnit(int)
{
    return QStringLiteral("g");
}

bool OldestMenu::GetItemRange(int, double* minimum, double* maximum)
{
    *minimum = 1;
    *maximum = 2;
    return true;
}

bool OldestMenu::IsItemValueValid(int, QVariant)
{
    return true;
}

void OldestMenu::OnItemValueChanged(int) { }

QPair<QString, QString> OldestMenu::defineSelectionList(int)
{
    return {QStringLiteral("one;two"), QStringLiteral("1;2")};
}

void OldestViewManager::Setup(int)
{
    ++setups;
}

// ---- the plug-in

OldestPlugin::OldestPlugin()
    : m_check(new OldestAction(this))
    , m_transfer(new OldestAction(this))
    , m_step(new OldestStep(this))
{
}

OldestPlugin::~OldestPlugin()
{
    delete m_settingsProfile;
    delete m_protocolMenu;
}

QString OldestPlugin::GetPluginName(bool)
{
    return QStringLiteral("Oldest");
}

QString OldestPlugin::GetPluginIcon()
{
    return QString();
}

void OldestPlugin::ApplyProfileItem(int id, QVariant value)
{
    m_appliedItem = id;
    m_appliedValue = value;
}

QMetaMethod OldestPlugin::method(const char* signature) const
{
    return metaObject()->method(metaObject()->indexOfMethod(signature));
}

bool OldestPlugin::PostInitPlugin()
{
    InitializeProfile();
    m_check->setUid(QStringLiteral("oldest.check"));
    m_check->setName(QStringLiteral("Check"));
    m_check->setWorker(this, method("onCheck(QVariant)"));
    m_transfer->setUid(QStringLiteral("oldest.transfer"));
    m_transfer->setName(QStringLiteral("Transfer"));
    m_transfer->setWorker(this, method("onTransfer(QVariant)"));
    m_step->setUid(QStringLiteral("oldest.step"));
    m_step->setWorker(this, method("onStep(QVariant,QVariant)"));
    for (OldestAction* action : {m_check, m_transfer}) {
        action->setRank(1);
        action->setEnable(true);
    }
    return true;
}

bool OldestPlugin::PostStartPlugin()
{
    m_system->GetActionbar()->AddAction(m_check);
    m_system->GetActionbar()->AddAction(m_transfer);
    m_system->GetWorkflowManager()->AddStepFunction(m_step);
    return true;
}

bool OldestPlugin::PreClosePlugin()
{
    m_system->GetWorkflowManager()->RemoveStepFunction(m_step);
    m_system->GetActionbar()->RemoveAction(m_transfer);
    m_system->GetActionbar()->RemoveAction(m_check);
    return true;
}

void OldestPlugin::InitPluginProtocolItems()
{
    const ProtocolDef everywhere = {ProtocolType::Measurement, ProtocolArea::Body};
    m_items = {new OldestItem(this),
               new PrintItemDescriptionText(this, QStringLiteral("oldest.text"), &m_itemName, everywhere,
                                            &m_itemName, &m_itemText, true, 1, &m_itemCategory)};
}

void OldestPlugin::AddToPoolPluginProtocolItems()
{
    for (IPrintableItem* item : qAsConst(m_items))
        m_system->GetProtocolPool()->AddItem(item);
}

void OldestPlugin::RemoveFromPoolPluginProtocolItems()
{
    for (IPrintableItem* item : qAsConst(m_items))
        m_system->GetProtocolPool()->RemoveItem(item);
}

void OldestPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("oldest");
    id.kind = QStringLiteral("plugin");
    id.protocolName = QStringLiteral("Oldest record");
    id.hasProtocol = true;
    id.transferFlag = true;
}

IMenuList* OldestPlugin::CreatePluginMenu()
{
    return nullptr;
}

QObject* OldestPlugin::CreateViewModel()
{
    return new QObject;
}

QString OldestPlugin::GetViewModelName()
{
    return QStringLiteral("oldest");
}

QString OldestPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/oldest/Oldest.qml");
}

IPluginViewManager* OldestPlugin::CreateViewManager()
{
    m_views = new OldestViewManager;
    return m_views;
}

QVariant OldestPlugin::onStep(QVariant argument, QVariant data)
{
    return argument.toInt() + data.toInt();
}

QVariant OldestPlugin::onTransfer(QVariant)
{
    MesswertData previous = reading();
    previous.messwert = QStringLiteral("12.2");
    MeasurementDatatransfer(reading(), previous);
    return true;
}

// ---- what the key "oldest.check" does

QVariant OldestPlugin::onCheck(QVariant data)
{
    Checks check;
    checkBase(check);
    checkRecords(check);
    checkExceptions(check);
    checkSignals(check);
    checkDerived(check);
    checkWorkflow(check);
    m_check->setName(check.result());
    return data;
}

// Members of the base by their offsets, its virtual operations by their slots.
void OldestPlugin::checkBase(Checks& check)
{
    IPlugin* const face = this;
    check.that(m_started, "m_started");
    check.that(!m_printRequested, "m_printRequested");
    check.that(m_system && m_view && m_infobox && m_settingsProfile && m_viewModel, "pointers of the host");
    check.that(m_id.identifier == QLatin1String("oldest") && m_id.transferFlag, "m_id");
    face->setVersion(QStringLiteral("1.2"));
    check.that(m_version == QLatin1String("1.2"), "setVersion() sets m_version");
    m_version = QStringLiteral("3.4");
    check.that(face->version() == QLatin1String("3.4"), "version() reads m_version");
    const PluginId id = face->GetId();
    check.that(id.name == QLatin1String("Oldest") && id.kind == QLatin1String("plugin") && id.hasProtocol
                   && !id.hasAddons && id.transferFlag,
               "GetId() returns the record");
    check.that(face->GetPluginNameShort(true) == QLatin1String("Oldest"), "GetPluginNameShort()");
    check.that(face->GetSelfRefAsQObject() == this, "GetSelfRefAsQObject()");
    check.that(face->GetPluginMenu() == nullptr && face->GetProtocolMenu() == m_protocolMenu, "the menus");
    check.that(face->getPluginScreenPath() == QLatin1String("qrc:/oldest/Oldest.qml"),
               "getPluginScreenPath()");
    check.that(qobject_cast<IPlugin*>(static_cast<QObject*>(this)) == face, "cast of the plug-in");

    const int setups = m_views->setups;
    check.that(m_viewManager == m_views && face->SetupView() && m_views->setups == setups + 1,
               "SetupView() calls the view manager");
    SetProfileItem(7, 42, QString());
    check.that(m_appliedItem == 7 && m_appliedValue == 42, "the profile calls ApplyProfileItem()");
    check.that(m_settingsProfile->GetProfileItem(7) == 42, "the profile keeps the value");
    check.that(m_marker == QLatin1String("behind the base") && m_check->marker == 0x4f4c4445,
               "size of the bases");
}

// Records in the plug-in's memory and on its stack, passed by value.
void OldestPlugin::checkRecords(Checks& check)
{
    const MesswertData none;
    check.that(none.stabilityValue == -1 && none.isValid && !none.isOverload && none.registerNumber == -1,
               "the empty MesswertData");
    MesswertData copy = reading();
    check.that(copy.unitPrintName == QLatin1String("gram") && copy.tareValue == 4.5 && copy.isStable
                   && copy.net && copy.registerNumber == 74,
               "members of MesswertData");
    check.that(!copy.isEqual(&none), "MesswertData::isEqual()");
    const MesswertData grams = UnitConverter().ConvertDigitToUnit(12345, 2, 0, false, QStringLiteral("g"));
    check.that(grams.messwert == QLatin1String("123.45") && Utility::isEqual(grams.value, 123.45)
                   && grams.decimals == 2,
               "MesswertData as a result");

    const UnitDef box(QStringLiteral("box"), QStringLiteral("Box"), 0.25, 3, 5, true, UnitDef::Tola);
    QString text;
    QTextStream stream(&text);
    stream << box;
    UnitDef read(QString(), QString(), 1, 0, 1, false, UnitDef::NoUnit);
    stream >> read;
    check.that(read == box && read.printName() == QLatin1String("Box") && read.rounding() == 5
                   && read.isInverse(),
               "the record of a UnitDef");
    check.that(UnitsList(nullptr, 2).getUnitByName(QStringLiteral("kg")).factor() == 0.001,
               "UnitDef as a result");

    const StatisticsValue figure(1234, 2, QStringLiteral("g"), StatisticsValue::Extreme, QDateTime(), true);
    StatisticsValue other(0, 0, QString(), StatisticsValue::NoFlag, QDateTime(), false);
    other.SetFromString(figure.ToString());
    check.that(other.value == 1234 && other.komma == 2 && other.unit == QLatin1String("g")
                   && other.flags == StatisticsValue::Extreme && figure.valid,
               "members of StatisticsValue");

    const Error error(Error::Failure, Error::PluginSource, 5, 6, true);
    check.that(error.source == Error::PluginSource && error.code == 5 && error.detail == 6
                   && error.type == Error::Failure && error.flag && error.reserved3 == 0,
               "members of Error");
    check.that(Utility::Round(2.5) == 3 && Utility().ButtonText(QStringLiteral("a")) == QLatin1String("[a]"),
               "Utility");
}

// Exceptions of the library in the plug-in, and the plug-in's own by the library's type.
void OldestPlugin::checkExceptions(Checks& check)
{
    QString message;
    try {
        QString text = QStringLiteral("nothing");
        QTextStream stream(&text);
        UnitDef unit(QString(), QString(), 1, 0, 1, false, UnitDef::NoUnit);
        unit.extractFromDataStream(stream);
    } catch (const ProjectException& exception) {
        message = exception.Message();
    }
    check.that(message.contains(QLatin1String("header mismatch")), "an exception of the library");
    message.clear();
    try {
        ProjectException(QStringLiteral("mine")).raise();
    } catch (const QException& exception) {
        if (const auto* own = dynamic_cast<const ProjectException*>(&exception))
            message = own->Message();
    }
    check.that(message == QLatin1String("mine"), "an exception by its base");
    const ProjectException original(QStringLiteral("copied"));
    const ProjectException copy = original; // NOLINT: an inline function
    const std::unique_ptr<ProjectException> clone(copy.clone());
    check.that(clone->Message() == QLatin1String("copied"), "clone()");
}

// Signals by their index and by their name, properties, inline functions.
void OldestPlugin::checkSignals(Checks& check)
{
    MesswertInfo info(nullptr, QString(), QString(), false, 0, false, false, false, 0, QString(), QString(),
                      false, 0, false, false, 0, QString(), QString(), QString(), 0, -1, false, false, false,
                      false, true);
    QStringList received;
    connect(&info, &MesswertInfo::messwertChanged, this,
            [&] { received.append(QStringLiteral("messwert")); });
    connect(&info, &MesswertInfo::stabilityValueChanged, this,
            [&] { received.append(QStringLiteral("stabilityValue")); });
    check.that(connect(&info, SIGNAL(unitChanged()), m_step, SLOT(deleteLater()))
                   && disconnect(&info, SIGNAL(unitChanged()), m_step, SLOT(deleteLater())),
               "a signal by its name");
    MesswertData data = reading();
    info.setFromMesswertData(&data);
    check.that(received == QStringList({QStringLiteral("messwert"), QStringLiteral("stabilityValue")}),
               "signals");
    check.that(info.property("messwert") == QLatin1String("12.3") && info.property("stabilityValue") == 3
                   && info.setProperty("unitKlein", QStringLiteral("kg"))
                   && info.unitKlein() == QLatin1String("kg"),
               "properties");

    LoadChange detector(nullptr, m_system->GetWeighing(), m_system->GetSystemRegister());
    check.that(detector.Start(LoadChange::Absolute, 50, 10, false), "LoadChange::Start()");
    detector.onLoadChanged(1, 1000.0);
    check.that(detector.mode() == LoadChange::Absolute && detector.range() == 50 && detector.minimum() == 10
                   && !detector.isMinimumIgnored() && detector.bandLow() == 950 && detector.bandHigh() == 1050
                   && detector.state() == LoadChange::Watching,
               "inline functions of LoadChange");
}

// Classes that the plug-in derives: calls of the library into them, and through their interfaces.
void OldestPlugin::checkDerived(Checks& check)
{
    OldestAction action(nullptr);
    IAction* const actionFace = qobject_cast<IAction*>(static_cast<QObject*>(&action));
    check.that(actionFace == &action, "cast of an action");
    int updates = 0;
    connect(&action, &ActionBase::actionUpdated, this, [&] { ++updates; });
    ActionBase* const base = &action;
    base->setRank(1);
    base->setUid(QStringLiteral("uid"));
    check.that(actionFace && actionFace->getRank() == 101 && actionFace->uid() == QLatin1String("uid")
                   && updates >= 1,
               "slots of an action");

    OldestTrigger trigger(nullptr);
    trigger.setUid(QStringLiteral("trigger"));
    QString triggered;
    connect(&trigger, &TriggerBase::notifyTriggered, this, [&](const QString& uid) { triggered = uid; });
    ITrigger* const triggerFace = qobject_cast<ITrigger*>(static_cast<QObject*>(&trigger));
    check.that(triggerFace && !triggerFace->Check(), "a slot of a trigger");
    trigger.allowed = true;
    trigger.notifyTriggered(QStringLiteral("trigger"));
    check.that(triggerFace && triggerFace->Check() && triggered == QLatin1String("trigger"), "a trigger");

    OldestMenu menu(nullptr);
    menu.initMenuListBase(m_system);
    IMenuList* const menuFace = dynamic_cast<IMenuList*>(static_cast<QObject*>(&menu));
    check.that(menu.system() == m_system, "a member of the menu's base");
    QStringList names;
    QStringList values;
    check.that(menuFace && menuFace->GetSelectionList(1, &names, &values) && names.size() == 2
                   && values.last() == QLatin1String("2"),
               "the base calls defineSelectionList()");
    double minimum = 0;
    double maximum = 0;
    check.that(menuFace && menuFace->GetMenuFilePath() == QLatin1String(":/oldest/menu.json")
                   && menuFace->GetItemRange(1, &minimum, &maximum) && maximum == 2
                   && menuFace->GetItemValue(9) == 9 && menuFace->GetHelpFilePath(1).isEmpty()
                   && menuFace->IsItemBoolValueAllowedToToggle(1, nullptr),
               "slots of a menu");

    const QList<IPrintableItem*> sorted = CategorySort().SortByCategory(m_items);
    check.that(sorted.size() == 2 && sorted.contains(m_items.first()) && sorted.contains(m_items.last()),
               "a list of interfaces by value");
    check.that(m_items.last()->getName() == QLatin1String("Text")
                   && m_items.first()->isEnabled(ProtocolType::Measurement)
                   && m_items.first()->isAvailableIn(ProtocolArea::Body),
               "slots of print items");

    SelectListItem one(nullptr, QStringLiteral("a"), QStringLiteral("b"), 3, QStringLiteral("c"), true,
                       false);
    SelectListItem two(nullptr);
    two = one;
    check.that(two.name() == QLatin1String("a") && two.dateSort() == 3 && two.selected()
                   && !two.isProtected(),
               "SelectListItem");
}

void OldestPlugin::checkWorkflow(Checks& check)
{
    QVariant result;
    connect(m_step, &StepFunctionBase::workDone, this, [&](const QVariant& value) { result = value; });
    IStepFunction* const face = m_step;
    face->startFunction(2, 3);
    check.that(result == 5, "a step function");
    m_step->disconnect(this);
    const int resets = m_step->resets;
    face->reset();
    check.that(m_step->resets == resets + 1, "a slot of a step function");

    WorkflowScreen::ScreenTexte texts;
    texts.infoTextLine2 = QStringLiteral("second");
    texts.leftButtonText = QStringLiteral("left");
    WorkflowScreen screen(nullptr, 4, &texts, QStringLiteral("image"), 1);
    InfoValueUnit* const first = screen.getResult1();
    first->setValue(QStringLiteral("1"));
    check.that(screen.infoTextLine2() == QLatin1String("second")
                   && screen.leftButtonText() == QLatin1String("left") && screen.screenType() == 4
                   && first->parent() == &screen,
               "a workflow screen");
    const WorkflowStep step(nullptr, 8, QStringLiteral("oldest.step"), StepFunctionButtonFlag::Back,
                            TriggerType::Button, &screen, TriggerType::None, nullptr, QString(), 12,
                            QStringLiteral("p"), isNeverEnabled);
    IWorkflowStep* const stepFace = const_cast<WorkflowStep*>(&step);
    check.that(stepFace->stepId() == 8 && stepFace->preWorkflowScreen() == &screen
                   && stepFace->getSettings() == 12 && !stepFace->isEnabled(),
               "a workflow step");

    QList<QObject*> model;
    Progressbar bar(nullptr, model, 3, true);
    bar.setModel({this});
    check.that(model.size() == 1 && bar.steps() == 3, "a progress bar writes the list of the plug-in");
}
