// SPDX-License-Identifier: BSD-3-Clause
#ifndef DENSITYPLUGIN_H
#define DENSITYPLUGIN_H

#include "DensityViewModel.h"
#include "Parameters.h"

#include <QPointer>

#include <MesswertData.h>
#include <PluginBase.h>

namespace Brimvale
{
class ActionBase;
class ActionBaseToggle;
class InfoboxListItem;
} // namespace Brimvale

/// Weighing corrected for the buoyancy of the air, with the state of the air and the densities as they were entered. The
/// print key hands the corrected weight to the outputs.
///
/// What is entered is kept in `density/density.ini` below the folder that the environment variable BRIMVALE_PLUGIN_DATA
/// names, or else below `plugins` in the application's data folder (`~/.local/share/brimvale-terminal/plugins` on a
/// desktop).
class DensityPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "density.json")

public:
    ~DensityPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

    /// Where the parameters are kept.
    static QString fileName();

public slots:
    /// Serves a print request at once with the present weight, instead of with the next reading. The host calls the
    /// slot by its name and finds this one in place of the base's.
    void onDoPrint();

protected:
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;

    bool PreStartPlugin() override;
    void InitActionbar() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;

private slots:
    void onNewMeasurementValue();
    void onParametersChanged();

    // The workers of the actions: one argument and one result, both QVariant.
    QVariant onZero(QVariant data);
    QVariant onTare(QVariant data);
    QVariant onNextField(QVariant data);
    QVariant onDecrease(QVariant data);
    QVariant onIncrease(QVariant data);
    QVariant onEnter(QVariant data);
    QVariant onFormulaToggled(QVariant data);

private:
    void showReading(const Brimvale::MesswertData& reading, Brimvale::MesswertData corrected, double factor);
    void servePrintRequest(const Brimvale::MesswertData& reading, const Brimvale::MesswertData& corrected);
    void translateTexts();
    template <typename Action>
    Action* makeAction(const QString& uid, const char* worker);

    Parameters m_parameters;
    Brimvale::MesswertData m_previous;

    // What lives from start to close: null in between, unlike the base's own pointers. The base deletes the view model,
    // and m_pluginObject with all the others.
    QPointer<DensityViewModel> m_model;
    QPointer<Brimvale::ActionBase> m_zeroAction;
    QPointer<Brimvale::ActionBase> m_tareAction;
    QPointer<Brimvale::ActionBase> m_fieldAction;
    QPointer<Brimvale::ActionBase> m_decreaseAction;
    QPointer<Brimvale::ActionBase> m_increaseAction;
    QPointer<Brimvale::ActionBase> m_enterAction;
    QPointer<Brimvale::ActionBaseToggle> m_formulaAction;
    QPointer<Brimvale::InfoboxListItem> m_readingItem;
    QPointer<Brimvale::InfoboxListItem> m_correctionItem;
    QPointer<Brimvale::InfoboxListItem> m_correctedItem;
    QPointer<Brimvale::InfoboxListItem> m_airItem;
    QPointer<Brimvale::InfoboxListItem> m_factorItem;
};

#endif
