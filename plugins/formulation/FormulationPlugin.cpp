// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationPlugin.h"

#include "FormulationMenu.h"
#include "FormulationProtocol.h"
#include "Procedure.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <ActionBase.h>
#include <IActionbar.h>
#include <IInfobox.h>
#include <IMenuList.h>
#include <IPluginViewManager.h>
#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <InfoboxListItem.h>
#include <SelectListItem.h>
#include <SettingsProfile.h>

using namespace Brimvale;

namespace
{

/// Sets the plug-in's one view up when the host asks for it.
class FormulationViewManager : public QObject, public IPluginViewManager
{
public:
    explicit FormulationViewManager(FormulationPlugin* plugin)
        : m_plugin(plugin)
    {
    }

    void Setup(int mode) override
    {
        Q_UNUSED(mode) // there is one view only
        m_plugin->showPage();
    }

private:
    FormulationPlugin* const m_plugin;
};

} // namespace

FormulationPlugin::FormulationPlugin() = default;

FormulationPlugin::~FormulationPlugin()
{
    // The base makes the settings profile and asks the host for the protocol menu, but leaves both to the plug-in.
    delete m_settingsProfile;
    delete m_protocolMenu;
}

// Identity ---------------------------------------------------------------------------------------------------------

void FormulationPlugin::FillPluginId(PluginId& id)
{
    id.identifier = QStringLiteral("formulation");
    id.kind = QStringLiteral("plugin");
    id.addonNumber = 4;
    id.hasProtocol = true;
    id.protocolName = tr("Print-outs");
    id.checkPrintOnClose = true;
    id.usesCalibrationService = true;
    id.usesLevellingService = true;
}

QString FormulationPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Formulation") : QStringLiteral("Formulation");
}

QString FormulationPlugin::GetPluginIcon()
{
    return QStringLiteral(":/formulation/formulation.svg");
}

// Parts that the base asks for -------------------------------------------------------------------------------------

IMenuList* FormulationPlugin::CreatePluginMenu()
{
    auto* const menu = new FormulationMenu(this);
    menu->initMenuListBase(m_system);
    return menu;
}

QObject* FormulationPlugin::CreateViewModel()
{
    m_formulationModel = new FormulationViewModel; // without a parent: the base deletes it at the close
    return m_formulationModel;
}

QString FormulationPlugin::GetViewModelName()
{
    return QStringLiteral("formulation");
}

QString FormulationPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/formulation/FormulationScreen.qml");
}

IPluginViewManager* FormulationPlugin::CreateViewManager()
{
    return new FormulationViewManager(this);
}

// Settings ---------------------------------------------------------------------------------------------------------

QString FormulationPlugin::dataFolder()
{
    const QString chosen = qEnvironmentVariable("BRIMVALE_PLUGIN_DATA");
    const QString folder =
        chosen.isEmpty()
            ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/plugins")
            : chosen;
    return folder + QStringLiteral("/formulation");
}

bool FormulationPlugin::PostInitPlugin()
{
    // The terminal hands the stored settings over after this, and asks the menu whether they are valid.
    m_store = std::make_unique<BatchStore>(dataFolder());
    readRecipes();
    return true;
}

QVariant FormulationPlugin::setting(int id) const
{
    switch (id) {
    case ChosenRecipe:
        return chosenRecipe() != nullptr ? chosenRecipe()->name : QString();
    case DefaultTolerance:
        return m_defaultTolerance;
    case ToleranceEnforced:
        return m_toleranceEnforced;
    default:
        return QVariant();
    }
}

QStringList FormulationPlugin::recipeNames() const
{
    QStringList names;
    for (const Recipe& recipe : m_recipes.recipes) {
        names.append(recipe.name);
    }
    return names;
}

bool FormulationPlugin::isRecipeFree() const
{
    return !isWorking() && !m_interrupted;
}

void FormulationPlugin::ApplyProfileItem(int id, QVariant value)
{
    switch (id) {
    case ChosenRecipe:
        m_chosenName = value.toString();
        break;
    case DefaultTolerance:
        m_defaultTolerance = value.toDouble();
        break;
    case ToleranceEnforced:
        m_toleranceEnforced = value.toBool();
        break;
    default:
        return;
    }
    if (m_procedure) {
        m_procedure->setToleranceEnforced(m_toleranceEnforced);
        if (!isWorking()) {
            readRecipes();
            showPage();
        }
    }
}

// Life cycle -------------------------------------------------------------------------------------------------------

bool FormulationPlugin::PreStartPlugin()
{
    if (m_system->GetWorkflowManager() == nullptr) {
        qWarning("Formulation: the terminal has no workflow manager, which the application needs.");
        return false;
    }
    // Owns all that lives from start to close. The base deletes it and leaves the pointer, so it is set at every start.
    m_pluginObject = new QObject;
    m_previousAction = makeAction(QStringLiteral("formulation.previous"), "onPrevious(QVariant)");
    m_nextAction = makeAction(QStringLiteral("formulation.next"), "onNext(QVariant)");
    m_startAction = makeAction(QStringLiteral("formulation.start"), "onStart(QVariant)");
    m_zeroAction = makeAction(QStringLiteral("formulation.zero"), "onZero(QVariant)");
    m_resumeAction = makeAction(QStringLiteral("formulation.resume"), "onResume(QVariant)");
    m_discardAction = makeAction(QStringLiteral("formulation.discard"), "onDiscard(QVariant)");

    m_procedure = new Procedure(m_system, m_store.get(), m_pluginObject);
    m_procedure->setToleranceEnforced(m_toleranceEnforced);
    connect(m_procedure, &Procedure::changed, this, &FormulationPlugin::onProcedureChanged);
    connect(m_procedure, &Procedure::completed, this, &FormulationPlugin::onBatchCompleted);
    connect(m_procedure, &Procedure::ended, this, &FormulationPlugin::onProcedureEnded);
    connect(m_procedure, &Procedure::failed, this, &FormulationPlugin::onFailed);
    return true;
}

void FormulationPlugin::InitPluginProtocolItems()
{
    m_protocol = std::make_unique<FormulationProtocol>(m_system);
}

void FormulationPlugin::AddToPoolPluginProtocolItems()
{
    m_protocol->addToPool();
}

void FormulationPlugin::RemoveFromPoolPluginProtocolItems()
{
    m_protocol->removeFromPool();
}

bool FormulationPlugin::PostStartPlugin()
{
    connect(m_formulationModel, &FormulationViewModel::chosen, this, &FormulationPlugin::onRecipeChosen);
    m_message = Message::None;
    readRecipes();
    QString error;
    m_interrupted = m_store->unfinished(&error);
    if (!error.isEmpty()) {
        setMessage(Message::Text, error);
    }
    translateTexts();

    // The interface is no QObject, but the object behind it is.
    connect(dynamic_cast<QObject*>(m_system->GetWeighing()), SIGNAL(NotifyNewMeasurementValue()), this,
            SLOT(onNewMeasurementValue()));
    onNewMeasurementValue(); // the present weight, without waiting for the next
    return true;
}

bool FormulationPlugin::ClosePlugin()
{
    if (m_started) {
        // Before the terminal abandons the workflow, which would count as an abort by the user: an unfinished batch
        // stays and is offered at the next start.
        m_procedure->stop();
    }
    return PluginBase::ClosePlugin();
}

bool FormulationPlugin::PreClosePlugin()
{
    // The base cuts the plug-in's own signals. Those that it receives it cuts itself, before the view model goes.
    disconnect(dynamic_cast<QObject*>(m_system->GetWeighing()), nullptr, this, nullptr);
    disconnect(m_procedure, nullptr, this, nullptr);
    delete m_procedure;
    setActions({});
    m_infobox->SetItems({});
    m_infoItems.clear();
    m_infoTitles.clear();
    return true;
}

// Recipes ----------------------------------------------------------------------------------------------------------

void FormulationPlugin::readRecipes()
{
    QString file = QDir(m_store->folder()).filePath(QStringLiteral("recipes.json"));
    if (!QFile::exists(file)) {
        file = QStringLiteral(":/formulation/recipes.json");
    }
    const QStringList before = m_recipes.faults;
    m_recipes = RecipeFile::read(file, m_defaultTolerance);
    if (m_recipes.faults != before) {
        for (const QString& fault : qAsConst(m_recipes.faults)) {
            qWarning("%s", qUtf8Printable(fault));
        }
    }
    m_chosen = m_recipes.recipes.isEmpty() ? -1 : 0;
    for (int index = 0; index < m_recipes.recipes.size(); ++index) {
        if (m_recipes.recipes.at(index).name == m_chosenName) {
            m_chosen = index;
        }
    }
}

const Recipe* FormulationPlugin::chosenRecipe() const
{
    return m_chosen >= 0 && m_chosen < m_recipes.recipes.size() ? &m_recipes.recipes.at(m_chosen) : nullptr;
}

/// The recipe at work, or the one that is chosen.
const Recipe* FormulationPlugin::shownRecipe() const
{
    return isWorking()     ? &m_procedure->batch().recipe
           : m_interrupted ? &m_interrupted->recipe
                           : chosenRecipe();
}

void FormulationPlugin::choose(int recipe)
{
    if (!isRecipeFree() || recipe < 0 || recipe >= m_recipes.recipes.size()) {
        return;
    }
    m_chosen = recipe;
    setMessage(Message::None);
    // In the profile too, so that it holds what is in force. That reads the recipes again.
    SetProfileItem(ChosenRecipe, m_recipes.recipes.at(recipe).name, QString());
    showPage();
}

void FormulationPlugin::onRecipeChosen(int recipe)
{
    choose(recipe);
}

QVariant FormulationPlugin::onPrevious(QVariant data)
{
    Q_UNUSED(data)
    choose(m_chosen - 1);
    return QVariant();
}

QVariant FormulationPlugin::onNext(QVariant data)
{
    Q_UNUSED(data)
    choose(m_chosen + 1);
    return QVariant();
}

QVariant FormulationPlugin::onZero(QVariant data)
{
    Q_UNUSED(data)
    return m_system->GetWeighing()->Zero(); // the terminal itself says why it was refused
}

// Batches ----------------------------------------------------------------------------------------------------------

bool FormulationPlugin::isWorking() const
{
    return m_procedure && m_procedure->phase() != Procedure::Idle;
}

QVariant FormulationPlugin::onStart(QVariant data)
{
    Q_UNUSED(data)
    const Recipe* const recipe = chosenRecipe();
    if (recipe == nullptr || isWorking()) {
        return false;
    }
    if (!m_procedure->refusalOf(*recipe).isEmpty()) {
        setMessage(Message::Refused);
        return false;
    }
    Batch batch;
    batch.number = m_store->nextNumber();
    batch.recipe = *recipe;
    setMessage(Message::None);
    return m_procedure->start(batch);
}

QVariant FormulationPlugin::onResume(QVariant data)
{
    Q_UNUSED(data)
    if (!m_interrupted || isWorking()) {
        return false;
    }
    setMessage(Message::None);
    return m_procedure->start(*m_interrupted);
}

QVariant FormulationPlugin::onDiscard(QVariant data)
{
    Q_UNUSED(data)
    if (!m_interrupted || isWorking()) {
        return false;
    }
    Batch batch = *m_interrupted;
    batch.state = Batch::Aborted;
    QString error;
    if (!m_store->save(batch, &error)) {
        setMessage(Message::Text, error);
        return false;
    }
    m_interrupted.reset();
    m_last = batch;
    m_protocol->setBatch(m_last, decimals());
    setMessage(Message::Aborted);
    showPage();
    return true;
}

void FormulationPlugin::onBatchCompleted()
{
    m_last = m_procedure->batch();
    m_protocol->setBatch(m_last, decimals());
    m_protocol->batchCompleted();
}

void FormulationPlugin::onProcedureEnded()
{
    const Batch batch = m_procedure->batch();
    m_interrupted.reset();
    if (batch.vessel > 0.0) {
        m_last = batch;
        m_protocol->setBatch(m_last, decimals());
    }
    if (!m_procedure->isSaved()) {
        // The message that says why stays.
    } else if (batch.state == Batch::Complete) {
        setMessage(Message::Complete);
    } else {
        setMessage(batch.vessel > 0.0 ? Message::Aborted : Message::NothingWeighed);
    }
    showPage();
    onNewMeasurementValue();
}

void FormulationPlugin::onFailed(const QString& text)
{
    qWarning("%s", qUtf8Printable(text));
    setMessage(Message::Text, text);
}

void FormulationPlugin::onDoPrint()
{
    if (m_formulationModel == nullptr) {
        return; // not started
    }
    if (m_last.number == 0) {
        setMessage(Message::NothingToPrint);
        return;
    }
    MesswertData total;
    total.value = roundedWeight(m_last.total(), decimals());
    total.messwert = weightText(total.value, decimals());
    total.unit = QStringLiteral("g");
    total.unitPrintName = total.unit;
    total.decimals = decimals();
    total.isValid = true;
    total.isStable = true;
    total.isCalculated = true;
    total.net = true;
    PluginBase::onDoPrint();
    MeasurementDatatransfer(total, MesswertData());
}

// Display ----------------------------------------------------------------------------------------------------------

void FormulationPlugin::onNewMeasurementValue()
{
    m_procedure->onReading(); // which tells of the change
}

void FormulationPlugin::onProcedureChanged()
{
    if (m_formulationModel == nullptr) {
        return;
    }
    showPage();
    showReading();
    showComponent();
}

int FormulationPlugin::decimals() const
{
    return m_procedure->decimals();
}

/// The weight; while a component is added, that of the component.
void FormulationPlugin::showReading()
{
    MesswertData reading = m_system->GetRegisterValueProvider()->GetMesswert(
        m_system->GetCurrentUnit(), ISystemRegister::CurrentRegister);
    MesswertInfo* const info = m_formulationModel->messwertInfo();
    const std::optional<double> amount = m_procedure->amount();
    const bool isDosing = amount.has_value();
    if (isDosing) {
        reading = m_procedure->gross();
        reading.value = *amount;
        reading.messwert = weightText(*amount, decimals());
        reading.isCalculated = true;
        reading.net = true;
    }
    info->setFromMesswertData(&reading);
    info->setPtVisible(!isDosing && reading.isPresetTare); // loading a reading has switched the mark off
    info->setMesswertKleinVisible(isDosing);
    if (isDosing) {
        info->setMesswertKlein(
            weightText(m_procedure->gross().value - m_procedure->batch().vessel, decimals()));
        info->setUnitKlein(QStringLiteral("g"));
    }
}

void FormulationPlugin::showComponent()
{
    const Procedure::Phase phase = m_procedure->phase();
    if (phase != Procedure::Dosing && phase != Procedure::Judging && phase != Procedure::Refused) {
        return;
    }
    const Component& component = m_procedure->batch().recipe.components.at(m_procedure->component());
    FormulationViewModel::Component shown;
    shown.name = component.name;
    shown.lowerLimit = weightText(lowestReading(component, decimals()), decimals());
    shown.target = weightText(component.target, decimals());
    shown.upperLimit = weightText(highestReading(component, decimals()), decimals());
    if (const std::optional<double> amount = m_procedure->amount()) {
        const double missing = component.target - *amount;
        const double range = FormulationViewModel::FineRange * component.target * component.tolerance / 100.0;
        shown.remaining = weightText(qAbs(missing), decimals());
        shown.coarse = qBound(0.0, *amount / component.target, 1.0);
        shown.fine = qBound(0.0, 0.5 - missing / range / 2.0, 1.0);
        shown.level = isWithinTolerance(component, *amount, decimals()) ? FormulationViewModel::Within
                      : missing > 0.0                                   ? FormulationViewModel::TooLittle
                                                                        : FormulationViewModel::TooMuch;
    }
    m_formulationModel->setComponent(shown);
}

/// The page, its keys and its texts.
void FormulationPlugin::showPage()
{
    if (m_formulationModel == nullptr) {
        return;
    }
    if (isWorking()) {
        m_formulationModel->setPage(FormulationViewModel::Dosing);
        setActions({});
    } else if (m_interrupted) {
        const Batch& batch = *m_interrupted;
        m_formulationModel->setTexts(
            tr("Batch %1 was interrupted").arg(batch.numberText()),
            tr("%1: %2 of %3 components are weighed in. Resume it, or discard it and keep its record.")
                .arg(shortName(batch.recipe.name), QString::number(batch.nextComponent()),
                     QString::number(batch.recipe.components.size())));
        m_formulationModel->setPage(FormulationViewModel::Interrupted);
        setActions({m_resumeAction, m_discardAction});
    } else {
        const Recipe* const recipe = chosenRecipe();
        const int count = recipe == nullptr ? 0 : recipe->components.size();
        m_formulationModel->setTexts(
            recipe == nullptr ? tr("There is no recipe") : recipe->name,
            recipe == nullptr
                ? QString()
                : tr("%1, together %2 g").arg(countText(count), weightText(recipe->total(), decimals())));
        showRecipes();
        m_formulationModel->setPage(FormulationViewModel::Selection);
        m_previousAction->setEnable(m_chosen > 0);
        m_nextAction->setEnable(m_chosen + 1 < m_recipes.recipes.size());
        m_startAction->setEnable(recipe != nullptr);
        setActions({m_previousAction, m_nextAction, m_startAction, m_zeroAction});
    }
    showMessage();
    showInfoLines();
}

QString FormulationPlugin::countText(int components)
{
    return components == 1 ? tr("1 component") : tr("%1 components").arg(components);
}

void FormulationPlugin::showRecipes()
{
    const QList<QObject*> shown = m_formulationModel->recipes();
    bool isSame = shown.size() == m_recipes.recipes.size();
    for (int index = 0; isSame && index < shown.size(); ++index) {
        isSame = shown.at(index)->property("name").toString() == m_recipes.recipes.at(index).name;
    }
    QList<QObject*> entries = shown;
    if (!isSame) {
        delete m_recipeEntries;
        m_recipeEntries = new QObject(m_pluginObject);
        entries.clear();
        for (const Recipe& recipe : qAsConst(m_recipes.recipes)) {
            auto* const entry = new SelectListItem(m_recipeEntries);
            entry->setName(recipe.name);
            entries.append(entry);
        }
    }
    for (int index = 0; index < entries.size(); ++index) {
        auto* const entry = static_cast<SelectListItem*>(entries.at(index));
        const int count = m_recipes.recipes.at(index).components.size();
        entry->setAdditionalInformation(countText(count));
        entry->setSelected(index == m_chosen);
    }
    m_formulationModel->setRecipes(entries, m_chosen);
}

void FormulationPlugin::setMessage(Message message, const QString& text)
{
    m_message = message;
    m_messageText = text;
    showMessage();
}

void FormulationPlugin::showMessage()
{
    if (m_formulationModel == nullptr) {
        return;
    }
    QString text;
    FormulationViewModel::Severity severity = FormulationViewModel::Info;
    switch (m_message) {
    case Message::None:
        break;
    case Message::Text:
        text = m_messageText;
        severity = FormulationViewModel::Wrong;
        break;
    case Message::Refused:
        text = chosenRecipe() != nullptr ? m_procedure->refusalOf(*chosenRecipe()) : QString();
        severity = FormulationViewModel::Wrong;
        break;
    case Message::Complete:
        text =
            tr("Batch %1 is complete: %2 g").arg(m_last.numberText(), weightText(m_last.total(), decimals()));
        break;
    case Message::Aborted:
        text = tr("Batch %1 was aborted; its record with %2 of %3 components is kept.")
                   .arg(m_last.numberText())
                   .arg(m_last.weighed.size())
                   .arg(m_last.recipe.components.size());
        severity = FormulationViewModel::Attention;
        break;
    case Message::NothingWeighed:
        text = tr("Aborted before anything was weighed in.");
        severity = FormulationViewModel::Attention;
        break;
    case Message::NothingToPrint:
        text = tr("There is no batch to print yet.");
        severity = FormulationViewModel::Attention;
        break;
    }
    if (text.isEmpty() && !m_recipes.faults.isEmpty()) {
        text = m_recipes.faults.first();
        if (m_recipes.faults.size() > 1) {
            text += QLatin1Char('\n') + tr("and %1 more").arg(m_recipes.faults.size() - 1);
        }
        severity = FormulationViewModel::Wrong;
    }
    m_formulationModel->setMessage(text, severity);
}

/// The components with their states: in the selection what they weigh, later what was weighed in.
void FormulationPlugin::showInfoLines()
{
    const Recipe* const recipe = shownRecipe();
    const int count = recipe == nullptr ? 0 : recipe->components.size();
    QStringList titles;
    for (int index = 0; index < count; ++index) {
        titles.append(recipe->components.at(index).name);
    }
    if (count > 0) {
        titles.append(tr("Total"));
    }
    if (m_infoTitles != titles) {
        // New lines: a line does not tell of a change of its title.
        m_infobox->SetItems({});
        delete m_infoLines;
        m_infoLines = new QObject(m_pluginObject);
        m_infoItems.clear();
        m_infoTitles = titles;
        for (const QString& title : qAsConst(titles)) {
            m_infoItems.append(
                new InfoboxListItem(m_infoLines, QString(), title, QString(), true, true, false));
        }
        m_infobox->SetItems(m_infoItems);
    }
    if (titles.isEmpty()) {
        return;
    }
    const Batch* const batch = isWorking()     ? &m_procedure->batch()
                               : m_interrupted ? &*m_interrupted
                                               : nullptr;
    const auto line = [this](int index) { return static_cast<InfoboxListItem*>(m_infoItems.at(index)); };
    const QString unit = QStringLiteral(" g");
    line(0)->setItemGroupTitle(batch == nullptr ? recipe->name : tr("Batch %1").arg(batch->numberText()));
    for (int index = 0; index < count; ++index) {
        const Component& component = recipe->components.at(index);
        QString value = weightText(component.target, decimals()) + unit;
        bool isOut = false;
        if (batch != nullptr && index < batch->weighed.size()) {
            value = QStringLiteral("✓ ") + weightText(batch->weighed.at(index), decimals()) + unit;
            isOut = !batch->isWithinTolerance(index, decimals());
        } else if (batch != nullptr) {
            const bool isAtWork = isWorking() && m_procedure->phase() != Procedure::Vessel
                                  && m_procedure->phase() != Procedure::Return
                                  && index == m_procedure->component();
            value = isAtWork ? tr("at work") : QStringLiteral("–");
        }
        line(index)->setItemValue(value);
        line(index)->setIsItemValueInvalid(isOut);
    }
    line(count)->setItemValue(weightText(batch == nullptr ? recipe->total() : batch->total(), decimals())
                              + unit);
}

// Texts ------------------------------------------------------------------------------------------------------------

void FormulationPlugin::TranslateWarnInfo()
{
    if (m_formulationModel == nullptr) {
        return; // not started: the next start makes its texts in the new language
    }
    m_formulationModel->translateTexts();
    if (!isWorking()) {
        readRecipes(); // the texts of their faults
    }
    translateTexts();
    onNewMeasurementValue();
}

void FormulationPlugin::translateTexts()
{
    m_previousAction->setName(tr("Previous recipe"));
    m_nextAction->setName(tr("Next recipe"));
    m_startAction->setName(tr("Start"));
    m_zeroAction->setName(tr("Zero"));
    m_resumeAction->setName(tr("Resume"));
    m_discardAction->setName(tr("Discard"));
    m_procedure->translate();
    m_protocol->translate();
    showPage();
}

// Keys -------------------------------------------------------------------------------------------------------------

/// Shows these keys and no others.
void FormulationPlugin::setActions(const QList<ActionBase*>& actions)
{
    if (m_shownActions == actions) {
        return;
    }
    IActionbar* const actionbar = m_system->GetActionbar();
    for (ActionBase* const action : qAsConst(m_shownActions)) {
        actionbar->RemoveAction(action);
    }
    m_shownActions = actions;
    for (ActionBase* const action : actions) {
        actionbar->AddAction(action);
    }
}

/// Makes an enabled action whose work is the slot `worker` of this plug-in.
ActionBase* FormulationPlugin::makeAction(const QString& uid, const char* worker)
{
    auto* const action = new ActionBase(m_pluginObject);
    action->setUid(uid);
    action->setRank(m_pluginObject->findChildren<ActionBase*>().size()); // in the order of making
    action->setEnable(true);
    action->setWorker(this, metaObject()->method(metaObject()->indexOfSlot(worker)));
    return action;
}
