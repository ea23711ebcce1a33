// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTS_PLUGIN_TESTPLUGIN_H
#define BRIMVALE_TESTS_PLUGIN_TESTPLUGIN_H

#include "PluginBase.h"
#include "SettingsProfile.h"
#include "WarnInfo.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <TestKit/RecordingHost.h>
#include <functional>

/// Sets the flag of that name, "spare flags" for all eight of them. An unknown name is an error of the test.
void setFlag(Brimvale::PluginId& id, const QString& flag);

/// Notes its end in the host's list of calls. As a view model it shows warnings, if it is given any.
class NotedObject : public QObject
{
    Q_OBJECT

public:
    NotedObject(Brimvale::TestKit::RecordingHost& host, const char* name);
    ~NotedObject() override;

    Q_INVOKABLE Brimvale::WarnInfo* warnInfo() { return warnings; }

    Brimvale::WarnInfo* warnings = nullptr;
    std::function<void()> onEnd; ///< runs in the destructor after its note

signals:
    void changed();

private:
    Brimvale::TestKit::RecordingHost& m_host;
    const QString m_name;
};

/// A plug-in that notes every hook in the host's list of calls, so that a test sees one sequence of hooks, host
/// calls and signals. Its class is that of an ordinary plug-in; the members of the base are open to tests.
class TestPlugin : public Brimvale::PluginBase
{
    Q_OBJECT

public:
    explicit TestPlugin(Brimvale::TestKit::RecordingHost& host);
    ~TestPlugin() override;

    Brimvale::PluginId id;                                           ///< what `FillPluginId()` fills in
    QSet<QString> refusing;                                          ///< hooks that answer false
    std::function<QObject*()> viewModelMaker;                        ///< a `NotedObject` unless set
    std::function<Brimvale::IPluginViewManager*()> viewManagerMaker; ///< the host's recorder unless set
    std::function<void(const QString&)> onHook; ///< runs in every hook after it was noted
    QString translatedName = QStringLiteral("Prüfung");
    Brimvale::IMenuList* menu = nullptr; ///< what `CreatePluginMenu()` returns

    using PluginBase::m_id;
    using PluginBase::m_infobox;
    using PluginBase::m_menuList;
    using PluginBase::m_pluginMenu;
    using PluginBase::m_pluginObject;
    using PluginBase::m_printRequested;
    using PluginBase::m_protocolMenu;
    using PluginBase::m_settingsProfile;
    using PluginBase::m_spare;
    using PluginBase::m_started;
    using PluginBase::m_system;
    using PluginBase::m_version;
    using PluginBase::m_view;
    using PluginBase::m_viewManager;
    using PluginBase::m_viewModel;
    using PluginBase::m_warnInfoMethod;
    using PluginBase::m_weighingParameters;

    using PluginBase::DeInitCalibrationService;
    using PluginBase::DeInitLevellingService;
    using PluginBase::InitActionbar;
    using PluginBase::InitCalibrationService;
    using PluginBase::InitLevellingService;

    QString GetPluginName(bool translated) override;
    QString GetPluginIcon() override;
    void ApplyProfileItem(int id, QVariant value) override;

protected:
    bool PreInitPlugin() override;
    bool PostInitPlugin() override;
    bool PreStartPlugin() override;
    bool PostStartPlugin() override;
    bool PreClosePlugin() override;
    bool PostClosePlugin() override;
    bool PostInitPluginAndAddons() override;
    void InitPluginProtocolItems() override;
    void AddToPoolPluginProtocolItems() override;
    void RemoveFromPoolPluginProtocolItems() override;
    void FillPluginId(Brimvale::PluginId& id) override;
    Brimvale::IMenuList* CreatePluginMenu() override;
    QObject* CreateViewModel() override;
    QString GetViewModelName() override;
    QString GetPluginScreen() override;
    Brimvale::IPluginViewManager* CreateViewManager() override;

private:
    bool hook(const char* name);

    Brimvale::TestKit::RecordingHost& m_host;
};

#endif
