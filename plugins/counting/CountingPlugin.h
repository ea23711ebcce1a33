// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGPLUGIN_H
#define COUNTINGPLUGIN_H

#include "CountingSettings.h"
#include "CountingViewModel.h"

#include <QPointer>

#include <MesswertData.h>
#include <PluginBase.h>
#include <memory>

namespace Brimvale
{
class ActionBase;
class InfoboxListItem;
} // namespace Brimvale

class CountingProtocol;

/// Counts parts by their weight: a reference of counted parts gives the piece weight, every other net weight is that many
/// pieces. The print key hands the count to the outputs.
///
/// The settings of the menu (see CountingMenu) are the terminal's to keep. What is entered on the screen and the reference
/// are kept in `counting/counting.ini` below the folder that the environment variable
/// BRIMVALE_PLUGIN_DATA names, or else below `plugins` in the application's data folder
/// (`~/.local/share/brimvale-terminal/plugins` on a desktop).
class CountingPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "counting.json")

public:
    CountingPlugin();
    ~CountingPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

    /// Where settings and reference are kept.
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
    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    void InitActionbar() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;

private slots:
    void onNewMeasurementValue();
    void onSettingsChanged();
    void onDeleteReference();

    // The workers of the actions: one argument and one result, both QVariant.
    QVariant onZero(QVariant data);
    QVariant onTare(QVariant data);
    QVariant onReference(QVariant data);
    QVariant onOptimise(QVariant data);
    QVariant onNextParts(QVariant data);
    QVariant onTarget(QVariant data);
    QVariant onEnter(QVariant data);

private:
    Brimvale::MesswertData countReading() const;
    Brimvale::MesswertData inCurrentUnit(double grams, int decimals) const;
    void showReading(const Brimvale::MesswertData& count);
    void showAccuracy(const Brimvale::MesswertData& count);
    void servePrintRequest(const Brimvale::MesswertData& count);
    bool isWeightReady();
    CountingViewModel::State optimisation(const PieceReference& better, QStringList* details) const;
    PieceReference betterReference() const;
    void optimiseByItself();
    void takeReference(const PieceReference& reference, CountingViewModel::State told);
    void translateTexts();
    Brimvale::ActionBase* makeAction(const QString& uid, const char* worker);

    CountingSettings m_settings;
    bool m_areSettingsKept = true;
    int m_usualCount = 100;
    bool m_optimisesByItself = false;
    std::unique_ptr<CountingProtocol> m_protocol;
    Brimvale::MesswertData m_current; ///< the net weight in the unit of the display
    Brimvale::MesswertData m_grams;   ///< the same in grams
    Brimvale::MesswertData m_previous;

    // What lives from start to close: null in between, unlike the base's own pointers. The base deletes the view model,
    // and m_pluginObject with all the others.
    QPointer<CountingViewModel> m_model;
    QPointer<Brimvale::ActionBase> m_zeroAction;
    QPointer<Brimvale::ActionBase> m_tareAction;
    QPointer<Brimvale::ActionBase> m_referenceAction;
    QPointer<Brimvale::ActionBase> m_optimiseAction;
    QPointer<Brimvale::ActionBase> m_partsAction;
    QPointer<Brimvale::ActionBase> m_targetAction;
    QPointer<Brimvale::ActionBase> m_enterAction;
    QPointer<Brimvale::InfoboxListItem> m_pieceItem;
    QPointer<Brimvale::InfoboxListItem> m_partsItem;
    QPointer<Brimvale::InfoboxListItem> m_referenceItem;
    QPointer<Brimvale::InfoboxListItem> m_rightItem;
};

#endif
