// SPDX-License-Identifier: BSD-3-Clause
#ifndef STATISTICSPLUGIN_H
#define STATISTICSPLUGIN_H

#include "SeriesStore.h"
#include "StatisticsProtocol.h"
#include "StatisticsViewModel.h"
#include "WeighingSeries.h"

#include <QPointer>

#include <MesswertData.h>
#include <PluginBase.h>
#include <memory>

namespace Brimvale
{
class ActionBase;
class ActionBaseToggle;
class InfoboxListItem;
class LoadChange;
} // namespace Brimvale

/// Collects weighings and shows their statistics. A weighing is recorded when a new load has become stable, by the key,
/// or by the print key, and is handed to the outputs. The series survives the end of the terminal, however it comes.
///
/// The series and the settings are kept in `statistics/series.sqlite`, exports in `statistics/export`, below the folder
/// that the environment variable BRIMVALE_PLUGIN_DATA names, or else below `plugins` in the application's data folder
/// (`~/.local/share/brimvale-terminal/plugins` on a desktop).
class StatisticsPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "statistics.json")

public:
    StatisticsPlugin();
    ~StatisticsPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

    /// Where the plug-in keeps its files.
    static QString dataFolder();

public slots:
    /// The print key records, as the key of the plug-in does. The host calls the slot by its name and finds this one in
    /// place of the base's.
    void onDoPrint();

protected:
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;

    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    bool PreStartPlugin() override;
    void InitActionbar() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;

private slots:
    void onNewMeasurementValue();
    void onStableValue(int stableCounter, double netDigits);
    void onThresholdStep(int step);
    void onClearAnswered(bool clear);

    // The workers of the actions: one argument and one result, both QVariant.
    QVariant onZero(QVariant data);
    QVariant onTare(QVariant data);
    QVariant onRecord(QVariant data);
    QVariant onAutomaticToggled(QVariant data);
    QVariant onUndo(QVariant data);
    QVariant onClear(QVariant data);
    QVariant onExport(QVariant data);

private:
    bool openStore();
    Brimvale::MesswertData currentReading() const;
    void request();
    void serveRequest(const Brimvale::MesswertData& reading);
    void record(const Brimvale::MesswertData& reading);
    void store(const QString& setting, const QString& value);

    void startDetector();
    void takeReference(double digits);
    double digitsOf(int thresholdIndex) const;

    void showSeries();
    void showThreshold();
    void translateTexts();
    template <typename Action>
    Action* makeAction(const QString& uid, const char* worker);

    SeriesStore m_store;
    WeighingSeries m_series;
    std::unique_ptr<StatisticsProtocol> m_protocol;
    Brimvale::MesswertData m_previous;
    bool m_recordRequested = false;

    bool m_automatic = true;
    int m_thresholdIndex = 0;   ///< into 1, 2, 5, 10, 20, … mg
    int m_decimals = 0;         ///< of the gram reading, with which the detector was started
    double m_reference = 0.0;   ///< stable value around which the detector watches, in digits
    bool m_wasUnloaded = false; ///< since that value

    // What lives from start to close: null in between, unlike the base's own pointers. The base deletes the view model,
    // and m_pluginObject with all the others.
    QPointer<StatisticsViewModel> m_model;
    QPointer<Brimvale::LoadChange> m_loadChange;
    QPointer<Brimvale::ActionBase> m_zeroAction;
    QPointer<Brimvale::ActionBase> m_tareAction;
    QPointer<Brimvale::ActionBase> m_recordAction;
    QPointer<Brimvale::ActionBaseToggle> m_automaticAction;
    QPointer<Brimvale::ActionBase> m_undoAction;
    QPointer<Brimvale::ActionBase> m_clearAction;
    QPointer<Brimvale::ActionBase> m_exportAction;
    QPointer<Brimvale::InfoboxListItem> m_countItem;
    QPointer<Brimvale::InfoboxListItem> m_meanItem;
    QPointer<Brimvale::InfoboxListItem> m_deviationItem;
    QPointer<Brimvale::InfoboxListItem> m_minimumItem;
    QPointer<Brimvale::InfoboxListItem> m_maximumItem;
};

#endif
