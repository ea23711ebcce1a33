// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTERPLUGIN_H
#define COUNTERPLUGIN_H

#include <PluginBase.h>

/// The smallest plug-in: a screen, a name in two languages, no menu, no view manager.
class CounterPlugin : public Brimvale::PluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "counter.json")

public:
    CounterPlugin() = default;
    ~CounterPlugin() override;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;

protected:
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;
};

#endif
