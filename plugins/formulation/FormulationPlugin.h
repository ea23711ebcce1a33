// SPDX-License-Identifier: BSD-3-Clause
#ifndef FORMULATIONPLUGIN_H
#define FORMULATIONPLUGIN_H

#include "Batch.h"
#include "FormulationViewModel.h"
#include "Recipe.h"

#include <QPointer>
#include <QVector>

#include <MesswertData.h>
#include <PluginBase.h>
#include <memory>

namespace Brimvale
{
class ActionBase;
class InfoboxListItem;
} // namespace Brimvale

class FormulationProtocol;
class Procedure;

/// Weighs the components of a recipe in, one after the other, each to its target within its tolerance.
class FormulationPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "formulation.json")

public:
    /// The items of the settings profile, by their numbers.
    enum Setting
    {
        ChosenRecipe = 1,     ///< text: the name of the recipe that is chosen at the start
        DefaultTolerance = 2, ///< double, in percent: of components whose recipe states none
        ToleranceEnforced = 3 ///< bool: a component out of its tolerance is refused
    };

    FormulationPlugin();
    ~FormulationPlugin() override;

    /// Where batches are kept and recipes are looked for ("recipes.json"; without it, the plug-in's own are used): below
    /// the folder of the environment variable `BRIMVALE_PLUGIN_DATA`, or the data folder of the application.
    static QString dataFolder();

    /// The value of a setting that is in force.
    QVariant setting(int id) const;
    QStringList recipeNames() const;
    /// Whether another recipe can be chosen: no batch is at work or waits to be resumed.
    bool isRecipeFree() const;

    /// Shows the page, its keys and its texts.
    void showPage();

    bool ClosePlugin() override;
    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

public slots:
    /// Transfers the total of the last batch. The host calls the slot by its name and finds this one in place of the
    /// base's.
    void onDoPrint();

protected:
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;

    bool PostInitPlugin() override;
    bool PreStartPlugin() override;
    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;

private slots:
    void onNewMeasurementValue();
    void onProcedureChanged();
    void onBatchCompleted();
    void onProcedureEnded();
    void onFailed(const QString& text);
    void onRecipeChosen(int recipe);

    // The workers of the actions: one argument and one result, both QVariant.
    QVariant onPrevious(QVariant data);
    QVariant onNext(QVariant data);
    QVariant onStart(QVariant data);
    QVariant onZero(QVariant data);
    QVariant onResume(QVariant data);
    QVariant onDiscard(QVariant data);

private:
    /// What the screen says below; its texts are made when the language is known.
    enum class Message
    {
        None,
        Text,    ///< of an error, in the language in which it came
        Refused, ///< The chosen recipe cannot be weighed in.
        Complete,
        Aborted,
        NothingWeighed,
        NothingToPrint
    };

    bool isWorking() const;
    void readRecipes();
    void choose(int recipe);
    static QString countText(int components);
    void showRecipes();
    void showMessage();
    void showReading();
    void showComponent();
    void showInfoLines();
    void setMessage(Message message, const QString& text = QString());
    void translateTexts();
    void setActions(const QList<Brimvale::ActionBase*>& actions);
    Brimvale::ActionBase* makeAction(const QString& uid, const char* worker);
    const Recipe* chosenRecipe() const;
    const Recipe* shownRecipe() const;
    int decimals() const;

    QString m_chosenName;
    double m_defaultTolerance = 1.0;
    bool m_toleranceEnforced = true;
    std::unique_ptr<BatchStore> m_store;
    RecipeFile m_recipes;
    int m_chosen = -1;
    std::optional<Batch> m_interrupted;
    Batch m_last; ///< Finished or aborted last, for print-outs.
    Message m_message = Message::None;
    QString m_messageText;
    std::unique_ptr<FormulationProtocol> m_protocol; ///< From the initialisation on.

    // What lives from start to close: null in between, unlike the base's own pointers. The base deletes the view model,
    // and m_pluginObject with all the others.
    QPointer<FormulationViewModel> m_formulationModel;
    QPointer<Procedure> m_procedure;
    QPointer<Brimvale::ActionBase> m_previousAction;
    QPointer<Brimvale::ActionBase> m_nextAction;
    QPointer<Brimvale::ActionBase> m_startAction;
    QPointer<Brimvale::ActionBase> m_zeroAction;
    QPointer<Brimvale::ActionBase> m_resumeAction;
    QPointer<Brimvale::ActionBase> m_discardAction;
    QList<Brimvale::ActionBase*> m_shownActions;
    QPointer<QObject> m_recipeEntries; ///< Owner of the entries of the list.
    QPointer<QObject> m_infoLines;     ///< Owner of the info lines.
    QStringList m_infoTitles;
    QList<QObject*> m_infoItems; ///< A line for each component, then the total.
};

#endif
