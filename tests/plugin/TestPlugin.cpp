// SPDX-License-Identifier: BSD-3-Clause
#include "TestPlugin.h"

#include <QMap>

using namespace Brimvale;
using namespace Brimvale::TestKit;

void setFlag(PluginId& id, const QString& flag)
{
    if (flag == QLatin1String("spare flags")) {
        for (bool* spare :
             {&id.flag1, &id.flag2, &id.flag3, &id.flag4, &id.flag5, &id.flag6, &id.flag7, &id.flag8})
            *spare = true;
        return;
    }
    const QMap<QString, bool*> flags{
        {QStringLiteral("hasProtocol"), &id.hasProtocol},
        {QStringLiteral("protocolFlag"), &id.protocolFlag},
        {QStringLiteral("checkPrintOnClose"), &id.checkPrintOnClose},
        {QStringLiteral("resetOnStart"), &id.resetOnStart},
        {QStringLiteral("usesCalibrationService"), &id.usesCalibrationService},
        {QStringLiteral("usesLevellingService"), &id.usesLevellingService},
        {QStringLiteral("hasAddons"), &id.hasAddons},
        {QStringLiteral("transferFlag"), &id.transferFlag},
    };
    bool* const found = flags.value(flag);
    if (!found)
        qFatal("PluginId has no flag %s", qPrintable(flag));
    *found = true;
}

NotedObject::NotedObject(RecordingHost& host, const char* name)
    : m_host(host)
    , m_name(QString::fromLatin1(name))
{
    setObjectName(m_name);
}

NotedObject::~NotedObject()
{
    m_host.note(QStringLiteral("delete ") + m_name);
    if (onEnd)
        onEnd();
}

TestPlugin::TestPlugin(RecordingHost& host)
    : m_host(host)
{
    id.identifier = QStringLiteral("test");
    id.kind = QStringLiteral("plugin");
}

TestPlugin::~TestPlugin()
{
    delete m_settingsProfile;
}

bool TestPlugin::hook(const char* name)
{
    const QString text = QString::fromLatin1(name);
    m_host.note(text);
    if (onHook)
        onHook(text);
    return !refusing.contains(text);
}

QString TestPlugin::GetPluginName(bool translated)
{
    hook(translated ? "GetPluginName(true)" : "GetPluginName(false)");
    return translated ? translatedName : QStringLiteral("Test");
}

QString TestPlugin::GetPluginIcon()
{
    return QStringLiteral("qrc:/test.svg");
}

void TestPlugin::ApplyProfileItem(int id, QVariant value)
{
    m_host.note(QStringLiteral("ApplyProfileItem(%1, %2)").arg(argumentText(id), argumentText(value)));
}

bool TestPlugin::PreInitPlugin()
{
    return hook("PreInitPlugin");
}

bool TestPlugin::PostInitPlugin()
{
    return hook("PostInitPlugin");
}

bool TestPlugin::PreStartPlugin()
{
    return hook("PreStartPlugin");
}

bool TestPlugin::PostStartPlugin()
{
    return hook("PostStartPlugin");
}

bool TestPlugin::PreClosePlugin()
{
    return hook("PreClosePlugin");
}

bool TestPlugin::PostClosePlugin()
{
    return hook("PostClosePlugin");
}

bool TestPlugin::PostInitPluginAndAddons()
{
    return hook("PostInitPluginAndAddons");
}

void TestPlugin::InitPluginProtocolItems()
{
    hook("InitPluginProtocolItems");
}

void TestPlugin::AddToPoolPluginProtocolItems()
{
    hook("AddToPoolPluginProtocolItems");
}

void TestPlugin::RemoveFromPoolPluginProtocolItems()
{
    hook("RemoveFromPoolPluginProtocolItems");
}

void TestPlugin::FillPluginId(PluginId& id)
{
    hook("FillPluginId");
    id = this->id;
}

IMenuList* TestPlugin::CreatePluginMenu()
{
    hook("CreatePluginMenu");
    return menu;
}

QObject* TestPlugin::CreateViewModel()
{
    hook("CreateViewModel");
    return viewModelMaker ? viewModelMaker() : new NotedObject(m_host, "viewModel");
}

QString TestPlugin::GetViewModelName()
{
    hook("GetViewModelName");
    return QStringLiteral("test");
}

QString TestPlugin::GetPluginScreen()
{
    hook("GetPluginScreen");
    return QStringLiteral("qrc:/Test.qml");
}

IPluginViewManager* TestPlugin::CreateViewManager()
{
    hook("CreateViewManager");
    return viewManagerMaker ? viewManagerMaker() : m_host.createViewManager();
}
