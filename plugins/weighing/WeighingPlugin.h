// SPDX-License-Identifier: BSD-3-Clause
#ifndef WEIGHINGPLUGIN_H
#define WEIGHINGPLUGIN_H

#include "WeighingViewModel.h"

#include <QPointer>

#include <MesswertData.h>
#include <PluginBase.h>
#include <memory>

namespace Brimvale
{
class ActionBase;
class ActionBaseToggle;
class LoadChange;
class InfoboxListItem;
} // namespace Brimvale

class WeighingProtocol;

/// Plain weighing: shows the weight, tares, sets zero, and prints on request.
class WeighingPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "weighing.json")

public:
    /// The items of the settings profile, by their numbers.
    enum Setting
    {
        PrintOnlyStable = 1,   ///< bool: a print request waits for a stable weight
        MinimumWeight = 2,     ///< double, in grams: a smaller weight is not printed
        WeighingPlace = 3,     ///< text: where is weighed, for the head of print-outs
        AutomaticMode = 4,     ///< text, one of automaticModes(): when the weight is printed by itself
        AutomaticThreshold = 5 ///< double: half the band, in grams or percent
    };

    WeighingPlugin();

    ~WeighingPlugin() override;

    /// "off", and the modes of the load-change detector by their numbers: "absolute", "percent", "absolute-fixed",
    /// "percent-fixed".
    static QStringList automaticModes();

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;
    void TranslateWarnInfo() override;

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

    bool PostInitPlugin() override;
    bool PreStartPlugin() override;
    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    void InitActionbar() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;

private slots:
    void onNewMeasurementValue();

    // The workers of the actions: one argument and one result, both QVariant.
    QVariant onZero(QVariant data);
    QVariant onTare(QVariant data);
    QVariant onClearTare(QVariant data);
    QVariant onPrintModeToggled(QVariant data);
    QVariant onAutomaticToggled(QVariant data);

private:
    Brimvale::MesswertData readRegister(int registerNumber) const;
    void showSettings();
    void showReading(Brimvale::MesswertData current);
    void restartDetector();
    bool startDetector();
    void serveLoadChange(const Brimvale::MesswertData& current);
    void servePrintRequest(const Brimvale::MesswertData& current);
    void translateTexts();

    template <typename Action>
    Action* makeAction(const QString& uid, const char* worker);

    bool m_printOnlyStable = true;
    double m_minimumWeight = 0.0;
    QString m_automaticMode;
    QString m_automaticModeWhenOn;
    double m_automaticThreshold = 0.0;
    int m_decimals = 0; ///< In the digits of which the detector counts.
    QString m_weighingPlace;
    Brimvale::MesswertData m_current; ///< The last reading, which print items read.
    Brimvale::MesswertData m_previous;
    int m_transferCount = 0;
    std::unique_ptr<WeighingProtocol> m_protocol; ///< From the initialisation on.

    // What lives from start to close: null in between, unlike the base's own pointers. The base deletes the view model,
    // and m_pluginObject with all the others.
    QPointer<WeighingViewModel> m_weighingModel;
    QPointer<Brimvale::ActionBase> m_zeroAction;
    QPointer<Brimvale::ActionBase> m_tareAction;
    QPointer<Brimvale::ActionBase> m_clearTareAction;
    QPointer<Brimvale::ActionBaseToggle> m_printModeAction;
    QPointer<Brimvale::ActionBaseToggle> m_automaticAction;
    QPointer<Brimvale::LoadChange> m_detector; ///< a child of the view model, where the terminal finds it
    QPointer<Brimvale::InfoboxListItem> m_grossItem;
    QPointer<Brimvale::InfoboxListItem> m_tareItem;
    QPointer<Brimvale::InfoboxListItem> m_countItem;
};

#endif
