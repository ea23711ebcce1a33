// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGSERVICES_H
#define BRIMVALE_TESTKIT_RECORDINGSERVICES_H

#include "CallRecorder.h"
#include "FormattedValue.h"
#include "HandedOver.h"
#include "IAction.h"
#include "IActionbar.h"
#include "IAddonHost.h"
#include "IAddonState.h"
#include "IApprovedMode.h"
#include "IFormat.h"
#include "IInfobox.h"
#include "IInfosectionItemProvider.h"
#include "ILifecycleObserver.h"
#include "IMSWParameterSource.h"
#include "IMeasurementObserver.h"
#include "IMeasurementTransfer.h"
#include "IMenuList.h"
#include "IPlugin.h"
#include "IPluginController.h"
#include "IPluginHost.h"
#include "IPluginManager.h"
#include "IPrintIndicator.h"
#include "IPrintableItem.h"
#include "IPrinter.h"
#include "IProtocolMenuFactory.h"
#include "IProtocolPool.h"
#include "IRangeSwitch.h"
#include "IRegisterValueProvider.h"
#include "IScreenLoader.h"
#include "ISequencer.h"
#include "IStatusInfo.h"
#include "IStepFunction.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "ITrigger.h"
#include "IView.h"
#include "IWeighingParameterService.h"
#include "IWeighingParameters.h"
#include "MesswertData.h"
#include "TestKit/RecordingCalibrationService.h"
#include "TestKit/RecordingSensorState.h"
#include "TestKit/RecordingWeighing.h"
#include "TestKit/RecordingWorkflowManager.h"

#include <QMap>
#include <QPointer>

#include <algorithm>
#include <memory>
#include <vector>

namespace Brimvale::TestKit
{

/// What the recorders have in common.
class RecordingObject
{
public:
    explicit RecordingObject(CallRecorder& recorder)
        : m_recorder(recorder)
    {
    }

protected:
    CallRecorder& m_recorder;
};

class RecordingActionbar : public IActionbar, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void LoadEntries(int addonNumber, QString text) override
    {
        m_recorder.call("IActionbar::LoadEntries", addonNumber, text);
    }
    void ApplyEntries(int addonNumber, QString text) override
    {
        m_recorder.call("IActionbar::ApplyEntries", addonNumber, text);
    }
    void Refresh() override { m_recorder.call("IActionbar::Refresh"); }
    void SetEntry(int index, int value) override { m_recorder.call("IActionbar::SetEntry", index, value); }
    void SetEnabled(int enabled) override { m_recorder.call("IActionbar::SetEnabled", enabled); }
    void AddAction(IAction* action) override
    {
        actions.add(action);
        m_recorder.call("IActionbar::AddAction", action);
    }
    void RemoveAction(IAction* action) override
    {
        actions.remove(action);
        m_recorder.call("IActionbar::RemoveAction", action);
    }

    HandedOver<IAction> actions;
};

class RecordingAddonHost : public IAddonHost, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void BeginAddons() override { m_recorder.call("IAddonHost::BeginAddons"); }
    void StartAddon(int addonNumber, QString text) override
    {
        m_recorder.call("IAddonHost::StartAddon", addonNumber, text);
    }
    void EndAddons() override { m_recorder.call("IAddonHost::EndAddons"); }
};

class RecordingAddonState : public IAddonState, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    bool IsPending() override { return m_recorder.call<bool>("IAddonState::IsPending"); }
};

class RecordingApprovedMode : public IApprovedMode, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    bool IsModeActive(int modeFlag) override
    {
        return m_recorder.call<bool>("IApprovedMode::IsModeActive", modeFlag);
    }
};

class RecordingFormat : public IFormat, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    QString FormatText(int layout, const QString& text) override
    {
        return m_recorder.call<QString>("IFormat::FormatText", layout, text);
    }
    QString FormatDescriptionText(int layout, const QString& description, const QString& text) override
    {
        return m_recorder.call<QString>("IFormat::FormatDescriptionText", layout, description, text);
    }
    QString FormatNameValueUnit(int layout, const QString& name, const QString& value,
                                const QString& unit) override
    {
        return m_recorder.call<QString>("IFormat::FormatNameValueUnit", layout, name, value, unit);
    }
    QString FormatValue(int layout, const FormattedValue& value, bool sics) override
    {
        return m_recorder.call<QString>("IFormat::FormatValue", layout, value, sics);
    }
    QString FormatNameValue(int layout, const QString& name, const FormattedValue& value, bool flag) override
    {
        return m_recorder.call<QString>("IFormat::FormatNameValue", layout, name, value, flag);
    }
    void ConvertValue(const MesswertData& value, FormattedValue& out) override
    {
        out = m_recorder.callOr(out, "IFormat::ConvertValue", value, out);
    }
};

class RecordingInfobox : public IInfobox, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void SetItems(const QList<QObject*>& items) override
    {
        this->items.clear();
        for (QObject* item : items)
            this->items.append(item);
        m_recorder.call("IInfobox::SetItems", items);
    }

    QList<QPointer<QObject>> items;
};

class RecordingInfosectionItem : public IInfosectionItemProvider, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    QString getUId() override { return m_recorder.call<QString>("IInfosectionItemProvider::getUId"); }
    int getRank() override { return m_recorder.call<int>("IInfosectionItemProvider::getRank"); }
};

class RecordingLifecycleObserver : public ILifecycleObserver, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void NotifyPluginClosing() override { m_recorder.call("ILifecycleObserver::NotifyPluginClosing"); }
};

class RecordingMSWParameterSource : public IMSWParameterSource, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    bool QueryFlagA() override { return m_recorder.call<bool>("IMSWParameterSource::QueryFlagA"); }
    bool QueryFlagB() override { return m_recorder.call<bool>("IMSWParameterSource::QueryFlagB"); }
    QString GetMSWParameter0() override
    {
        return m_recorder.call<QString>("IMSWParameterSource::GetMSWParameter0");
    }
    QString GetMSWParameter1() override
    {
        return m_recorder.call<QString>("IMSWParameterSource::GetMSWParameter1");
    }
    QString GetMSWParameter3() override
    {
        return m_recorder.call<QString>("IMSWParameterSource::GetMSWParameter3");
    }
    QString GetMSWParameter2() override
    {
        return m_recorder.call<QString>("IMSWParameterSource::GetMSWParameter2");
    }
    bool QueryFlagC() override { return m_recorder.call<bool>("IMSWParameterSource::QueryFlagC"); }
    bool QueryFlagD() override { return m_recorder.call<bool>("IMSWParameterSource::QueryFlagD"); }
};

class RecordingMeasurementObserver : public IMeasurementObserver, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void OnMeasurementTransferred(MesswertData current, MesswertData previous) override
    {
        m_recorder.call("IMeasurementObserver::OnMeasurementTransferred", current, previous);
    }
    void OnSystemRegistersRead(double register72, double register73) override
    {
        m_recorder.call("IMeasurementObserver::OnSystemRegistersRead", register72, register73);
    }
};

class RecordingMeasurementTransfer : public IMeasurementTransfer, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void SetTransferFlag(bool flag) override
    {
        m_recorder.call("IMeasurementTransfer::SetTransferFlag", flag);
    }
    bool TransferMeasurement(MesswertData current, MesswertData register72, MesswertData register73) override
    {
        return m_recorder.call<bool>("IMeasurementTransfer::TransferMeasurement", current, register72,
                                     register73);
    }
};

/// A menu that only records; a plug-in's own menu derives from `MenuListBase`.
class RecordingMenuList : public IMenuList, private RecordingObject
{
public:
    RecordingMenuList(CallRecorder& recorder, const Text& name)
        : RecordingObject(recorder)
        , m_name(name)
    {
    }

    QString GetMenuFilePath() override { return call<QString>("GetMenuFilePath"); }
    QString GetMenuName() override { return call<QString>("GetMenuName"); }
    void SetMenuName(QString name) override { call("SetMenuName", name); }
    QString GetAddonMenuName() override { return call<QString>("GetAddonMenuName"); }
    bool IsItemVisible(int id, ListModel* model) override
    {
        return call<bool>("IsItemVisible", id, modelText(model));
    }
    bool IsItemEnabled(int id, ListModel* model) override
    {
        return call<bool>("IsItemEnabled", id, modelText(model));
    }
    bool IsItemBoolValueAllowedToToggle(int id, ListModel* model) override
    {
        return call<bool>("IsItemBoolValueAllowedToToggle", id, modelText(model));
    }
    QVariant GetItemValue(int id) override { return call<QVariant>("GetItemValue", id); }
    bool SetItemValue(int id, QVariant value) override { return call<bool>("SetItemValue", id, value); }
    QString GetItemText(int id) override { return call<QString>("GetItemText", id); }
    QString GetItemUnit(int id) override { return call<QString>("GetItemUnit", id); }
    bool GetItemRange(int id, double* minimum, double* maximum) override
    {
        return call<bool>("GetItemRange", id, out(minimum), out(maximum));
    }
    QPair<QString, QString> defineSelectionList(int id) override
    {
        return call<QPair<QString, QString>>("defineSelectionList", id);
    }
    bool IsItemValueValid(int id, QVariant value) override
    {
        return call<bool>("IsItemValueValid", id, value);
    }
    bool GetSelectionList(int id, QStringList* names, QStringList* values) override
    {
        return call<bool>("GetSelectionList", id, out(names), out(values));
    }
    int GetSelectionListDataPtr(int id, QString value) override
    {
        return call<int>("GetSelectionListDataPtr", id, value);
    }
    QString GetUniqueNameFromIndexInSelectionList(int id, int index) override
    {
        return call<QString>("GetUniqueNameFromIndexInSelectionList", id, index);
    }
    int GetIndexFromUniqueNameInSelectionList(int id, QString name) override
    {
        return call<int>("GetIndexFromUniqueNameInSelectionList", id, name);
    }
    QString GetHelpFilePath(int id) override { return call<QString>("GetHelpFilePath", id); }
    bool GetMenuItemList(QList<MenuItem>* items) override
    {
        return call<bool>("GetMenuItemList", out(items));
    }
    bool GetMenuItemById(int id, MenuItem* item) override
    {
        return call<bool>("GetMenuItemById", id, out(item));
    }
    void OnItemValueChanged(int id) override { call("OnItemValueChanged", id); }
    void ExecuteCommand(int id, ListModel* model) override { call("ExecuteCommand", id, modelText(model)); }
    void SetPluginManager(IPluginManager* manager) override { call("SetPluginManager", manager); }
    void OnCustomizeButton(int id) override { call("OnCustomizeButton", id); }
    void OnCustomizeString(QObject* object, int id) override { call("OnCustomizeString", object, id); }

private:
    template <typename Result = void, typename... Arguments>
    Result call(const char* operation, const Arguments&... arguments)
    {
        return m_recorder.call<Result>(m_name + QStringLiteral("::") + QLatin1String(operation),
                                       arguments...);
    }

    /// The host defines what a list model is; here there is only its address.
    static Verbatim modelText(const ListModel* model)
    {
        return {model ? QStringLiteral("ListModel") : QStringLiteral("null")};
    }

    const QString m_name;
};

class RecordingPluginController : public IPluginController, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    IPlugin* GetActivePlugin() override
    {
        return m_recorder.callOr(activePlugin, "IPluginController::GetActivePlugin");
    }
    void SetControlMode(bool control) override
    {
        m_recorder.call("IPluginController::SetControlMode", control);
    }
    void PluginClosed(QString kind) override { m_recorder.call("IPluginController::PluginClosed", kind); }

    IPlugin* activePlugin = nullptr;
};

class RecordingSequencer : public ISequencer, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void Continue() override { m_recorder.call("ISequencer::Continue"); }
    void PluginClosed() override { m_recorder.call("ISequencer::PluginClosed"); }
    void SetPrintPending(bool pending) override { m_recorder.call("ISequencer::SetPrintPending", pending); }
    void NotifyHostEvent(QString event) override { m_recorder.call("ISequencer::NotifyHostEvent", event); }
    void NotifyMeasurementTransferred() override
    {
        m_recorder.call("ISequencer::NotifyMeasurementTransferred");
    }
};

class RecordingPluginHost : public IPluginHost, private RecordingObject
{
public:
    explicit RecordingPluginHost(CallRecorder& recorder)
        : RecordingObject(recorder)
        , m_addonState(recorder)
        , m_sequencer(recorder)
    {
    }

    IAddonState* GetAddonState() override
    {
        return m_recorder.callOr<IAddonState*>(&m_addonState, "IPluginHost::GetAddonState");
    }
    ISequencer* GetSequencer() override
    {
        return m_recorder.callOr<ISequencer*>(&m_sequencer, "IPluginHost::GetSequencer");
    }

private:
    RecordingAddonState m_addonState;
    RecordingSequencer m_sequencer;
};

class RecordingPluginManager : public IPluginManager, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    QList<IPlugin*> GetPlugins() override
    {
        return m_recorder.callOr(plugins.objects(), "IPluginManager::GetPlugins");
    }

    HandedOver<IPlugin> plugins;
};

class RecordingPrintIndicator : public IPrintIndicator, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void SetPrintPressed(bool pressed) override
    {
        m_recorder.call("IPrintIndicator::SetPrintPressed", pressed);
    }
};

class RecordingPrinter : public IPrinter, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    int GetPrintLayout() override { return m_recorder.call<int>("IPrinter::GetPrintLayout"); }
    bool PrintLine(const QString& text) override
    {
        return m_recorder.call<bool>("IPrinter::PrintLine", text);
    }
};

/// Makes the protocol menus, each of which the caller owns. What no caller has deleted goes with the factory.
class RecordingProtocolMenuFactory : public IProtocolMenuFactory, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    ~RecordingProtocolMenuFactory() override
    {
        while (!m_menus.empty()) {
            delete m_menus.back();
        }
    }

    IMenuList* CreateProtocolMenu(QString name, int number, bool flag) override
    {
        if (m_handedOut) {
            makeMenu();
        }
        IMenuList* const menu = newest();
        IMenuList* const answer = m_recorder.callOr<IMenuList*>(
            menu, "IProtocolMenuFactory::CreateProtocolMenu", name, number, flag);
        m_handedOut = answer == menu;
        return answer;
    }

    /// The menu that was handed out last, or the one that will be.
    IMenuList* newest()
    {
        if (m_menus.empty()) {
            makeMenu();
        }
        return m_menus.back();
    }

private:
    class Menu : public RecordingMenuList
    {
    public:
        Menu(CallRecorder& recorder, RecordingProtocolMenuFactory& factory)
            : RecordingMenuList(recorder, "IMenuList#protocol")
            , m_factory(factory)
        {
            m_factory.m_menus.push_back(this);
        }
        ~Menu() override
        {
            m_factory.m_menus.erase(std::find(m_factory.m_menus.begin(), m_factory.m_menus.end(), this));
        }
        Q_DISABLE_COPY(Menu)

    private:
        RecordingProtocolMenuFactory& m_factory;
    };

    void makeMenu()
    {
        new Menu(m_recorder, *this); // enters itself
        m_handedOut = false;
    }

    std::vector<Menu*> m_menus;
    bool m_handedOut = false;
};

class RecordingProtocolPool : public IProtocolPool, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void AddItem(IPrintableItem* item) override
    {
        items.add(item);
        m_recorder.call("IProtocolPool::AddItem", item);
    }
    void RemoveItem(IPrintableItem* item) override
    {
        items.remove(item);
        m_recorder.call("IProtocolPool::RemoveItem", item);
    }
    void AddTrigger(ITrigger* trigger) override
    {
        triggers.add(trigger);
        m_recorder.call("IProtocolPool::AddTrigger", trigger);
    }
    void RemoveTrigger(ITrigger* trigger) override
    {
        triggers.remove(trigger);
        m_recorder.call("IProtocolPool::RemoveTrigger", trigger);
    }

    HandedOver<IPrintableItem> items;
    HandedOver<ITrigger> triggers;
};

class RecordingRangeSwitch : public IRangeSwitch, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void SetRangeSelection(int selection) override
    {
        m_recorder.call("IRangeSwitch::SetRangeSelection", selection);
    }
    int getCurrentRange() override { return m_recorder.call<int>("IRangeSwitch::getCurrentRange"); }
    void setFixRange(int range) override { m_recorder.call("IRangeSwitch::setFixRange", range); }
    int getFixRange() override { return m_recorder.call<int>("IRangeSwitch::getFixRange"); }
};

class RecordingRegisterValueProvider : public IRegisterValueProvider, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    MesswertData GetMesswert(int unit, int registerNumber) override
    {
        return m_recorder.callOr(registers.value(registerNumber), "IRegisterValueProvider::GetMesswert", unit,
                                 registerNumber);
    }

    QMap<int, MesswertData> registers;
};

class RecordingScreenLoader : public IScreenLoader, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void LoadScreen(QString path) override
    {
        screen = path;
        m_recorder.call("IScreenLoader::LoadScreen", path);
    }

    QString screen;
};

class RecordingStatusInfo : public IStatusInfo, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    QString GetAddonText() override { return m_recorder.call<QString>("IStatusInfo::GetAddonText"); }
    QString GetLogPrefix() override { return m_recorder.call<QString>("IStatusInfo::GetLogPrefix"); }
};

class RecordingSystemRegister : public ISystemRegister, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    double GetRegisterValue(int registerNumber) override
    {
        return m_recorder.call<double>("ISystemRegister::GetRegisterValue", registerNumber);
    }
};

class RecordingTransferTarget : public ITransferTarget, private RecordingObject
{
public:
    RecordingTransferTarget(CallRecorder& recorder, int number)
        : RecordingObject(recorder)
        , m_number(number)
    {
    }

    bool IsActive() override
    {
        return m_recorder.call<bool>(QStringLiteral("ITransferTarget#%1::IsActive").arg(m_number));
    }

private:
    const int m_number;
};

class RecordingView : public IView, private RecordingObject
{
public:
    explicit RecordingView(CallRecorder& recorder)
        : RecordingObject(recorder)
        , screenLoader(recorder)
    {
    }

    void SetContextObject(const QString& name, QObject* object) override
    {
        contextObjects.insert(name, object);
        m_recorder.call("IView::SetContextObject", name, object);
    }
    IScreenLoader* GetScreenLoader() override
    {
        return m_recorder.callOr<IScreenLoader*>(&screenLoader, "IView::GetScreenLoader");
    }

    RecordingScreenLoader screenLoader;
    QMap<QString, QPointer<QObject>> contextObjects;
};

class RecordingWeighingParameterService : public IWeighingParameterService, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    void SetParameterProfile(QString profile) override
    {
        m_recorder.call("IWeighingParameterService::SetParameterProfile", profile);
    }
    void SetParameter2(QString value, int range) override
    {
        m_recorder.call("IWeighingParameterService::SetParameter2", value, range);
    }
    void SetParameter0(QString value) override
    {
        m_recorder.call("IWeighingParameterService::SetParameter0", value);
    }
    void SetParameter1(QString value) override
    {
        m_recorder.call("IWeighingParameterService::SetParameter1", value);
    }
    void SetParameter3(QString value) override
    {
        m_recorder.call("IWeighingParameterService::SetParameter3", value);
    }
};

class RecordingWeighingParameters : public IWeighingParameters, private RecordingObject
{
public:
    using RecordingObject::RecordingObject;

    bool InitStandardWeighingParameters() override
    {
        return m_recorder.call<bool>("IWeighingParameters::InitStandardWeighingParameters");
    }
    bool InitMSWWeighingParameters() override
    {
        return m_recorder.call<bool>("IWeighingParameters::InitMSWWeighingParameters");
    }
    bool ResetWeighingParameters() override
    {
        return m_recorder.call<bool>("IWeighingParameters::ResetWeighingParameters");
    }
};

/// All host objects that the system hands out.
struct RecordingServices
{
    explicit RecordingServices(const std::shared_ptr<CallRecorder>& recorder)
        : calibrationService(recorder)
        , sensorState(recorder)
        , weighing(recorder)
        , workflowManager(recorder)
        , actionbar(*recorder)
        , addonHost(*recorder)
        , approvedMode(*recorder)
        , lifecycleObserver(*recorder)
        , measurementObserver(*recorder)
        , measurementTransfer(*recorder)
        , mswParameterSource(*recorder)
        , pluginController(*recorder)
        , pluginHost(*recorder)
        , printIndicator(*recorder)
        , protocolMenuFactory(*recorder)
        , protocolPool(*recorder)
        , rangeSwitch(*recorder)
        , registerValueProvider(*recorder)
        , statusInfo(*recorder)
        , systemRegister(*recorder)
        , transferTarget1(*recorder, 1)
        , transferTarget2(*recorder, 2)
        , transferTarget3(*recorder, 3)
        , transferTarget4(*recorder, 4)
        , transferTarget5(*recorder, 5)
        , weighingParameterService(*recorder)
    {
    }

    RecordingCalibrationService calibrationService;
    RecordingSensorState sensorState;
    RecordingWeighing weighing;
    RecordingWorkflowManager workflowManager;
    RecordingActionbar actionbar;
    RecordingAddonHost addonHost;
    RecordingApprovedMode approvedMode;
    RecordingLifecycleObserver lifecycleObserver;
    RecordingMeasurementObserver measurementObserver;
    RecordingMeasurementTransfer measurementTransfer;
    RecordingMSWParameterSource mswParameterSource;
    RecordingPluginController pluginController;
    RecordingPluginHost pluginHost;
    RecordingPrintIndicator printIndicator;
    RecordingProtocolMenuFactory protocolMenuFactory;
    RecordingProtocolPool protocolPool;
    RecordingRangeSwitch rangeSwitch;
    RecordingRegisterValueProvider registerValueProvider;
    RecordingStatusInfo statusInfo;
    RecordingSystemRegister systemRegister;
    RecordingTransferTarget transferTarget1;
    RecordingTransferTarget transferTarget2;
    RecordingTransferTarget transferTarget3;
    RecordingTransferTarget transferTarget4;
    RecordingTransferTarget transferTarget5;
    RecordingWeighingParameterService weighingParameterService;
};

} // namespace Brimvale::TestKit

#endif
