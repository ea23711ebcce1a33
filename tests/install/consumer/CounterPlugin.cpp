// SPDX-License-Identifier: BSD-3-Clause
#include "CounterPlugin.h"

#include <SettingsProfile.h>

CounterPlugin::~CounterPlugin()
{
    delete m_settingsProfile;
}

QString CounterPlugin::GetPluginName(bool translated)
{
    return translated ? tr("Counter") : QStringLiteral("Counter");
}

QString CounterPlugin::GetPluginIcon()
{
    return QString();
}

void CounterPlugin::ApplyProfileItem(int, QVariant) { }

void CounterPlugin::FillPluginId(Brimvale::PluginId& id)
{
    id.identifier = QStringLiteral("counter");
    id.kind = QStringLiteral("plugin");
}

Brimvale::IMenuList* CounterPlugin::CreatePluginMenu()
{
    return nullptr;
}

QObject* CounterPlugin::CreateViewModel()
{
    return new QObject;
}

QString CounterPlugin::GetViewModelName()
{
    return QStringLiteral("counterModel");
}

QString CounterPlugin::GetPluginScreen()
{
    return QStringLiteral("qrc:/counter/Counter.qml");
}

Brimvale::IPluginViewManager* CounterPlugin::CreateViewManager()
{
    return nullptr;
}
