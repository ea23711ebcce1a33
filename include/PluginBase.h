// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINBASE_H
#define BRIMVALE_PLUGINBASE_H

#include "IPlugin.h"
#include "MesswertData.h"
#include "PluginId.h"
#include "SharedLibsGlobal.h"

#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

class IInfobox;
class IMenuList;
class IPluginViewManager;
class ISystem;
class IView;
class IWeighingParameters;
class SettingsProfile;
class WarnInfo;

/// The base class of every plug-in. It carries out the fixed part of the life cycle and calls a fixed set of hooks;
/// a concrete plug-in supplies the pure operations and overrides the hooks that it needs.
///
///     created ── InitPlugin ──> initialised ── StartPlugin ──> started ── ClosePlugin ──> closed
///                                    ^                                                      │ 50 ms later
///                                    └───────────── StartPlugin may follow again ── onNotifyClosePlugin
///
/// Everything runs on the host's event-loop thread, and the plug-in object must outlive the 50 ms after
/// `ClosePlugin()`. Host pointers are never owned; every service is asked for anew on every use.
///
/// **What the base owns.** `ClosePlugin()` deletes the view manager, the view model and `m_pluginObject`, and leaves
/// the pointers as they are: they dangle until the next start. `StartPlugin()` makes the first two anew; a plug-in
/// that uses `m_pluginObject` must set it anew at every start (in `PreStartPlugin()`, to null if there is nothing),
/// or the next close deletes it twice. The settings profile and the protocol menu are the concrete plug-in's to
/// delete in its destructor.
///
/// **After a failed start** `ClosePlugin()` does nothing, since the plug-in is not started: what the failed start
/// made stays, and the next start replaces it without deleting it.
///
/// **After a close** all connections of the plug-in's own signals are gone, that of the print button to the host's
/// workflow manager included; only `InitPlugin()` makes that one.
///
/// Members, virtual operations, signals and slots stand in the order of the binary contract.
class BRIMVALE_EXPORT PluginBase : public QObject, public IPlugin
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginBase)
    Q_INTERFACES(Brimvale::IPlugin)

public:
    PluginBase() = default;

    /// Sets the name in the identity record to `GetPluginName(true)` and returns a copy of the record.
    PluginId GetId() override;

    /// Initialises the plug-in, once. In this order:
    ///
    /// 1. registers the meta-type "MesswertInfo*";
    /// 2. stores the five pointers and empties the version text;
    /// 3. `PreInitPlugin()`; false ends here with false, nothing is made;
    /// 4. makes the settings profile;
    /// 5. sets `m_pluginObject`, the view model, the view manager and `m_spare` to null;
    /// 6. `CreatePluginMenu()`;
    /// 7. clears the started and print-requested flags, `FillPluginId()`, no protocol menu;
    /// 8. with `PluginId::hasProtocol`: takes the protocol menu from the host and calls `InitPluginProtocolItems()`;
    /// 9. `PostInitPlugin()`; false ends here with false;
    /// 10. connects `notifyPrintButtonEnableChange(bool)` to the slot `onPrintButtonEnableChange(bool)` of the host's
    ///     workflow manager, where that is a QObject.
    ///
    /// It is not guarded against a second call, which would lose the first settings profile.
    bool InitPlugin(ISystem* system, IView* view, IMenuList* menuList,
                    IWeighingParameters* weighingParameters, IInfobox* infobox) override;

    /// Starts the plug-in; returns true at once when it is started. In this order:
    ///
    /// 1. `RegisterInfosectionProvider()`;
    /// 2. `PreStartPlugin()`;
    /// 3. `CreateViewModel()`, then `LoadView()` with it, `GetViewModelName()` and `GetPluginScreen()`;
    /// 4. `CreateViewManager()`, `InitActionbar()`;
    /// 5. with `PluginId::resetOnStart`: resets the workflow manager and empties the bar's entries 0, 1 and 2;
    /// 6. with `PluginId::hasProtocol`: `AddToPoolPluginProtocolItems()`;
    /// 7. `setPrintTransferEnabled(true)`, and hands `PluginId::transferFlag` to the measurement transfer;
    /// 8. `PostStartPlugin()`;
    /// 9. `InitCalibrationService()` and `InitLevellingService()`, each if the `PluginId` asks for it;
    /// 10. logs the start, at every configured level;
    /// 11. is started; the host's control mode is set (`PluginId::kind` is exactly "control") or cleared;
    /// 12. with `PluginId::hasAddons`: has the host start them.
    ///
    /// A false result of steps 2, 3 or 8 calls `ClosePlugin()`, which does nothing, and returns false.
    bool StartPlugin() override;

    /// Ends the plug-in; does nothing when it is not started. Returns true in every case. In this order:
    ///
    /// 1. with `PluginId::hasProtocol`: `RemoveFromPoolPluginProtocolItems()`;
    /// 2. tells the host's lifecycle observer and plug-in controller, logs the close at trace level;
    /// 3. is no longer started;
    /// 4. `DeInitCalibrationService()` and `DeInitLevellingService()`, each if the `PluginId` asks for it;
    /// 5. `PreClosePlugin()`, `UnRegisterInfosectionProvider()`;
    /// 6. works out the state of the print button and emits it: without `PluginId::checkPrintOnClose` it is off. With
    ///    it and with the host-wide transfer switched off, the transfer is switched on and the outputs are asked, in
    ///    the order 1 to 5 up to the first active one; with the transfer switched on already it is on;
    /// 7. cuts all connections of the signals of the view manager, the view model, `m_pluginObject` and the plug-in;
    /// 8. deletes the view manager, the view model and `m_pluginObject`;
    /// 9. 50 ms later `onNotifyClosePlugin()` runs.
    bool ClosePlugin() override;

    /// Has the view manager set up its views (with 0). Returns false when there is no view manager.
    bool SetupView() override;

    IMenuList* GetPluginMenu() override;
    IMenuList* GetProtocolMenu() override;
    bool PluginTranslator(QTranslator* translator, QString name) override;
    QObject* GetSelfRefAsQObject() override;

    /// Ends the hand-over of add-ons if the plug-in has any, calls `PostInitPluginAndAddons()` and, when the host
    /// waits for add-ons, has its sequencer go on. Returns true.
    bool PostStartAddons() override;

    /// Does nothing. A plug-in overrides it to translate its `WarnInfo` again.
    void TranslateWarnInfo() override;

    /// Returns `GetPluginScreen()`.
    QString getPluginScreenPath() override;

    void setVersion(QString version) override;
    QString version() const override;

    /// Returns false: add-ons are not accepted.
    bool IsAddonAccepted(int addonNumber) override;

    /// Returns `GetPluginName(translated)`.
    QString GetPluginNameShort(bool translated) override;

    QString GetPluginName(bool translated) override = 0;
    QString GetPluginIcon() override = 0;

    /// Makes this plug-in the receiver of its settings profile and enables applying. Call it after `InitPlugin()`,
    /// for example in `PostInitPlugin()`.
    void InitializeProfile() override;

    /// Stores a setting in the profile; `text` is not used.
    void SetProfileItem(int id, QVariant value, QString text) override;

    void ApplyProfileItem(int id, QVariant value) override = 0;

protected:
    /// Hook before `InitPlugin()` makes anything; the host pointers are set. Base: true.
    virtual bool PreInitPlugin();

    /// Hook at the end of `InitPlugin()`. Base: true.
    virtual bool PostInitPlugin();

    /// Hook at the beginning of `StartPlugin()`. Base: true.
    virtual bool PreStartPlugin();

    /// Hook after screen, action bar and print transfer are there. Base: true.
    virtual bool PostStartPlugin();

    /// Hook in `ClosePlugin()`, before anything is deleted; the result is ignored. Base: true.
    virtual bool PreClosePlugin();

    /// Hook 50 ms after `ClosePlugin()`; the view model is gone. The result is ignored. Base: true.
    virtual bool PostClosePlugin();

    /// Hook after the host has started the add-ons; the result is ignored. Base: true.
    virtual bool PostInitPluginAndAddons();

    /// Makes the plug-in's print items, with `PluginId::hasProtocol`. Base: nothing.
    virtual void InitPluginProtocolItems();

    /// Puts the plug-in's print items into the host's pool at the start. Base: nothing.
    virtual void AddToPoolPluginProtocolItems();

    /// Takes the plug-in's print items out of the host's pool at the close. Base: nothing.
    virtual void RemoveFromPoolPluginProtocolItems();

    /// Has the host's action bar load and show the entries of the active plug-in. A plug-in that fills the bar itself
    /// overrides it.
    virtual void InitActionbar();

    /// Connects the calibration warning: shows its present state and follows the host's calibration service. Does
    /// nothing when the view model has no invokable `warnInfo()`.
    virtual void InitCalibrationService();

    /// Cuts the calibration warning off. It takes the levelling warning with it until the next initialisation, since
    /// both use the one method found on the view model.
    virtual void DeInitCalibrationService();

    /// Connects the levelling warning: follows the host's level signal and, only if the balance is out of level now,
    /// shows the warning and follows the sensor state too. Does nothing when the view model has no `warnInfo()`.
    virtual void InitLevellingService();

    /// Cuts the levelling warning off, and the calibration warning with it: see `DeInitCalibrationService()`.
    virtual void DeInitLevellingService();

    /// Fills the identity record. Called by `InitPlugin()`.
    virtual void FillPluginId(PluginId& id) = 0;

    /// Makes the plug-in's menu, or returns null. The base keeps the pointer and does not own the menu.
    virtual IMenuList* CreatePluginMenu() = 0;

    /// Makes the object that the screen binds to. `ClosePlugin()` deletes it: give it no other owner that does.
    virtual QObject* CreateViewModel() = 0;

    /// The name under which the screen finds the view model.
    virtual QString GetViewModelName() = 0;

    /// The path of the plug-in's screen file (QML).
    virtual QString GetPluginScreen() = 0;

    /// Makes the manager of the plug-in's views, or returns null. `ClosePlugin()` deletes it.
    virtual IPluginViewManager* CreateViewManager() = 0;

public:
    /// Has the host take this plug-in as provider of the info section, if `PluginId::parentNumber` is 0.
    void RegisterInfosectionProvider();

    /// Withdraws the plug-in from the info section, if `PluginId::parentNumber` is 0.
    void UnRegisterInfosectionProvider();

    /// Publishes `model` under `name` and loads the screen file. Returns true; the host reports what is wrong with a
    /// screen.
    bool LoadView(QObject* model, QString name, QString screen);

    /// Works out the state of the print button and emits it.
    ///
    /// `true`: asks all five outputs, in the order 1 to 5, and emits whether any is active; the host-wide transfer is
    /// left as it is. `false`: switches the host-wide transfer off and emits false.
    void setPrintTransferEnabled(bool enable);

    /// Hands a weighing to the host's outputs. Called by the concrete plug-in with the value to transfer and the one
    /// before it; the gross and tare registers (72, 73) are read and go with it.
    ///
    /// A print request (`onDoPrint()`) is consumed by the first transfer that follows. It is reported to the host's
    /// sequencer ("printPressed") and print indicator, unless the queries of the MSW parameter source keep it: A and D
    /// true, B false and C true. Last, the sequencer and the measurement observer are told of the transfer.
    void MeasurementDatatransfer(MesswertData current, MesswertData previous);

signals:
    /// The print button is to be enabled or disabled.
    void notifyPrintButtonEnableChange(bool enable);

public slots:
    /// Shows the calibration service's warning text; hides the warning when it is empty.
    void onCalibrationServiceStateChanged();

    /// Shows the levelling warning unless the level is correct.
    void onLevellingServiceStateChanged(bool levelOk);

    /// Shows the levelling warning according to the sensor state.
    void onLevellingNotAdjustedChanged();

    /// The host's numeric dialog was closed. Does nothing; a plug-in declares a slot of the same name to be told.
    void onNumericDialogClosed(int ptr, bool enterpressed, QString editstr);

    /// Runs 50 ms after `ClosePlugin()`: tells the host's sequencer, calls `PostClosePlugin()` and takes the host's
    /// control mode back.
    void onNotifyClosePlugin();

    /// The print button was pressed: the next `MeasurementDatatransfer()` reports it. Pressing twice counts once.
    void onDoPrint();

protected:
    ISystem* m_system = nullptr;                  ///< the host's services; not owned
    IView* m_view = nullptr;                      ///< the host's screen; not owned
    IMenuList* m_pluginMenu = nullptr;            ///< what `CreatePluginMenu()` returned
    IMenuList* m_protocolMenu = nullptr;          ///< made by the host; null without protocol
    SettingsProfile* m_settingsProfile = nullptr; ///< made by `InitPlugin()`; the concrete plug-in deletes it
    IMenuList* m_menuList = nullptr;              ///< the host's menu list; not owned
    IInfobox* m_infobox = nullptr;                ///< the host's info box; not owned
    IWeighingParameters* m_weighingParameters = nullptr; ///< weighing parameter sets; not owned
    PluginId m_id;                                       ///< the identity record
    QObject* m_pluginObject = nullptr;           ///< free for the plug-in, set anew at every start; owned
    QObject* m_viewModel = nullptr;              ///< what `CreateViewModel()` returned; owned
    IPluginViewManager* m_viewManager = nullptr; ///< what `CreateViewManager()` returned; owned
    void* m_spare = nullptr;                     ///< not used by the base
    QString m_version;                           ///< the version text
    QMetaMethod m_warnInfoMethod;                ///< the view model's `warnInfo()`; invalid when not in use
    bool m_started = false;                      ///< true from a successful start to the close
    bool m_printRequested = false;               ///< set by `onDoPrint()`, consumed by the next transfer

private:
    bool findWarnInfoMethod();
    WarnInfo* warnInfo();
    bool isPrintPressReported();
};

} // namespace Brimvale

#endif
