// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPLUGIN_H
#define BRIMVALE_IPLUGIN_H

#include "IProfileAccess.h"
#include "PluginId.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

class QTranslator;

namespace Brimvale
{

class IInfobox;
class IMenuList;
class ISystem;
class IView;
class IWeighingParameters;

/// A plug-in as the host sees it. The host loads the plug-in's `QObject`, finds this interface with
/// `qobject_cast<Brimvale::IPlugin*>` and calls `InitPlugin()` once, `StartPlugin()`, and at the end
/// `ClosePlugin()`, all on its event-loop thread. Authors derive from `PluginBase`.
///
/// The identifier carries no version, unlike those of all other interfaces.
class BRIMVALE_EXPORT IPlugin : public IProfileAccess
{
public:
    ~IPlugin() override;

    /// The identity record with the current `GetPluginName(true)` as its name.
    virtual PluginId GetId() = 0;

    /// The display name: in the language in force when `translated` is set, otherwise the name in the
    /// source language that logs carry.
    virtual QString GetPluginName(bool translated) = 0;

    /// A short form of the display name.
    virtual QString GetPluginNameShort(bool translated) = 0;

    /// The version text set with `setVersion()`.
    virtual QString version() const = 0;

    /// Stores the version text.
    virtual void setVersion(QString version) = 0;

    /// Hands over the host's services, which stay the host's and must outlive the plug-in. Returns false
    /// when the plug-in refuses to be initialised.
    virtual bool InitPlugin(ISystem* system, IView* view, IMenuList* menuList,
                            IWeighingParameters* weighingParameters, IInfobox* infobox) = 0;

    /// Starts the plug-in: view model, screen, action bar, warnings. Returns true at once when it is
    /// started already, false when it refuses to start.
    virtual bool StartPlugin() = 0;

    /// Ends the plug-in. Returns true in every case, at once when it is not started. 50 ms later the host
    /// is told that the plug-in has closed; the plug-in must outlive that.
    virtual bool ClosePlugin() = 0;

    /// Sets up the plug-in's view manager. Returns false when there is none.
    virtual bool SetupView() = 0;

    /// The plug-in's own menu; not owned by the caller, may be null.
    virtual IMenuList* GetPluginMenu() = 0;

    /// The plug-in's protocol menu; not owned by the caller, null when it prints no protocols.
    virtual IMenuList* GetProtocolMenu() = 0;

    /// Loads the translation `:/translations/<name>.qm` into `translator`. Returns whether there is one.
    virtual bool PluginTranslator(QTranslator* translator, QString name) = 0;

    /// Path of the plug-in's icon; empty for none.
    virtual QString GetPluginIcon() = 0;

    /// Whether the plug-in works together with that add-on.
    virtual bool IsAddonAccepted(int addonNumber) = 0;

    /// The plug-in as `QObject`.
    virtual QObject* GetSelfRefAsQObject() = 0;

    /// Path of the plug-in's screen file.
    virtual QString getPluginScreenPath() = 0;

    /// Told after the add-ons were started. Returns true in every case.
    virtual bool PostStartAddons() = 0;

    /// Translates the plug-in's warning texts again after a change of language.
    virtual void TranslateWarnInfo() = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IPlugin, "Brimvale.Plugin.IPlugin")

#endif
