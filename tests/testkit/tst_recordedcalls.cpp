// SPDX-License-Identifier: BSD-3-Clause
//
// Every operation of every recorder: the text of its call, its built-in answer and its scripted answer.
#include "FormattedValue.h"
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
#include "IPluginController.h"
#include "IPluginHost.h"
#include "IPluginManager.h"
#include "IPrintIndicator.h"
#include "IPrinter.h"
#include "IProtocolMenuFactory.h"
#include "IProtocolPool.h"
#include "IRangeSwitch.h"
#include "IRegisterValueProvider.h"
#include "IScreenLoader.h"
#include "ISequencer.h"
#include "IStatusInfo.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "IView.h"
#include "IWeighingParameterService.h"
#include "IWeighingParameters.h"
#include "MesswertData.h"
#include "Stubs.h"

#include <QObject>
#include <QSet>
#include <QVector>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <functional>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

using Operate = std::function<void(RecordingHost&)>;

struct Case
{
    QString call;
    Operate operate;
};

/// Fetches a host object without leaving a trace of that in the list of calls.
template <typename Fetch>
auto quietly(RecordingHost& host, const Fetch& fetch)
{
    auto* const object = fetch(host.system());
    host.clearCalls();
    return object;
}

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

MesswertData reading(const char* value)
{
    MesswertData data;
    data.messwert = s(value);
    return data;
}

QVector<Case> cases()
{
    QVector<Case> list;
    const auto add = [&list](const char* call, const Operate& operate) { list.append({s(call), operate}); };

    // The system, and what it answers: null pointers fail below, since a getter of a host object answers with it.
#define GETTER(NAME)                                                                                         \
    add("ISystem::" #NAME "()", [](RecordingHost& host) { QVERIFY(host.system()->NAME() != nullptr); })
    GETTER(GetAddonHost);
    GETTER(GetActionbar);
    GETTER(GetSensorState);
    GETTER(GetStatusInfo);
    GETTER(GetTransferTarget1);
    GETTER(GetTransferTarget2);
    GETTER(GetMSWParameterSource);
    GETTER(GetMeasurementTransfer);
    GETTER(GetRangeSwitch);
    GETTER(GetLifecycleObserver);
    GETTER(GetWeighingParameterService);
    GETTER(GetPluginController);
    GETTER(GetRegisterValueProvider);
    GETTER(GetProtocolMenuFactory);
    GETTER(GetPluginHost);
    GETTER(GetTransferTarget4);
    GETTER(GetTransferTarget5);
    GETTER(GetCalibrationService);
    GETTER(GetWorkflowManager);
    GETTER(GetTransferTarget3);
    GETTER(GetPrintIndicator);
    GETTER(GetMeasurementObserver);
    GETTER(GetSystemRegister);
    GETTER(GetWeighing);
    GETTER(GetApprovedMode);
    GETTER(GetProtocolPool);
#undef GETTER
    add("ISystem::GetStoredParameter(\"menu.xml\", \"owner\", \"system\", \"default\", 2)",
        [](RecordingHost& host) {
            QCOMPARE(
                host.system()->GetStoredParameter(s("menu.xml"), s("owner"), s("system"), s("default"), 2),
                s("default"));
        });
    add("ISystem::GetProtocolFormatName()",
        [](RecordingHost& host) { QCOMPARE(host.system()->GetProtocolFormatName(), QString()); });
    add("ISystem::GetCurrentUnit()",
        [](RecordingHost& host) { QCOMPARE(host.system()->GetCurrentUnit(), 0); });
    add("ISystem::SetHostPrintTransferEnabled(true)",
        [](RecordingHost& host) { host.system()->SetHostPrintTransferEnabled(true); });
    add("ISystem::IsHostPrintTransferEnabled()",
        [](RecordingHost& host) { QCOMPARE(host.system()->IsHostPrintTransferEnabled(), false); });
    add("ISystem::RegisterInfosectionProvider()",
        [](RecordingHost& host) { host.system()->RegisterInfosectionProvider(); });
    add("ISystem::UnRegisterInfosectionProvider()",
        [](RecordingHost& host) { host.system()->UnRegisterInfosectionProvider(); });
    add("ISystem::GetDecimals()", [](RecordingHost& host) { QCOMPARE(host.system()->GetDecimals(), 0); });
    add("IUniversalMenuList::HasMenuFile(\"menu.xml\")",
        [](RecordingHost& host) { QCOMPARE(host.system()->HasMenuFile(s("menu.xml")), false); });
    add("IUniversalMenuList::GetMenuItemList(\"menu.xml\", null)",
        [](RecordingHost& host) { QCOMPARE(host.system()->GetMenuItemList(s("menu.xml"), nullptr), false); });
    add("IUniversalMenuList::GetMenuItemById(\"menu.xml\", 7, null)", [](RecordingHost& host) {
        QCOMPARE(host.system()->GetMenuItemById(s("menu.xml"), 7, nullptr), false);
    });

    const auto actionbar = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetActionbar(); });
    };
    add("IActionbar::LoadEntries(12, \"text\")",
        [=](RecordingHost& host) { actionbar(host)->LoadEntries(12, s("text")); });
    add("IActionbar::ApplyEntries(12, \"text\")",
        [=](RecordingHost& host) { actionbar(host)->ApplyEntries(12, s("text")); });
    add("IActionbar::Refresh()", [=](RecordingHost& host) { actionbar(host)->Refresh(); });
    add("IActionbar::SetEntry(2, 0)", [=](RecordingHost& host) { actionbar(host)->SetEntry(2, 0); });
    add("IActionbar::SetEnabled(1)", [=](RecordingHost& host) { actionbar(host)->SetEnabled(1); });
    add("IActionbar::AddAction(StubAction(\"uid\"))", [=](RecordingHost& host) {
        StubAction action;
        actionbar(host)->AddAction(&action);
    });
    add("IActionbar::RemoveAction(StubAction(\"uid\"))", [=](RecordingHost& host) {
        StubAction action;
        actionbar(host)->RemoveAction(&action);
    });

    const auto addonHost = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetAddonHost(); });
    };
    add("IAddonHost::BeginAddons()", [=](RecordingHost& host) { addonHost(host)->BeginAddons(); });
    add("IAddonHost::StartAddon(12, \"text\")",
        [=](RecordingHost& host) { addonHost(host)->StartAddon(12, s("text")); });
    add("IAddonHost::EndAddons()", [=](RecordingHost& host) { addonHost(host)->EndAddons(); });

    const auto pluginHost = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetPluginHost(); });
    };
    add("IPluginHost::GetAddonState()",
        [=](RecordingHost& host) { QVERIFY(pluginHost(host)->GetAddonState() != nullptr); });
    add("IPluginHost::GetSequencer()",
        [=](RecordingHost& host) { QVERIFY(pluginHost(host)->GetSequencer() != nullptr); });
    add("IAddonState::IsPending()", [=](RecordingHost& host) {
        IAddonState* const state =
            quietly(host, [](ISystem* system) { return system->GetPluginHost()->GetAddonState(); });
        QCOMPARE(state->IsPending(), false);
    });
    const auto sequencer = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetPluginHost()->GetSequencer(); });
    };
    add("ISequencer::Continue()", [=](RecordingHost& host) { sequencer(host)->Continue(); });
    add("ISequencer::PluginClosed()", [=](RecordingHost& host) { sequencer(host)->PluginClosed(); });
    add("ISequencer::SetPrintPending(true)",
        [=](RecordingHost& host) { sequencer(host)->SetPrintPending(true); });
    add("ISequencer::NotifyHostEvent(\"printPressed\")",
        [=](RecordingHost& host) { sequencer(host)->NotifyHostEvent(s("printPressed")); });
    add("ISequencer::NotifyMeasurementTransferred()",
        [=](RecordingHost& host) { sequencer(host)->NotifyMeasurementTransferred(); });

    add("IApprovedMode::IsModeActive(4096)",
        [](RecordingHost& host) { QCOMPARE(host.approvedMode()->IsModeActive(4096), false); });
    add("ICalibrationService::GetCalibrationWarningText()", [](RecordingHost& host) {
        QCOMPARE(host.calibrationService()->GetCalibrationWarningText(), QString());
    });
    add("ISensorState::IsLevellingNotAdjusted()",
        [](RecordingHost& host) { QCOMPARE(host.sensorState()->IsLevellingNotAdjusted(), false); });

    add("IFormat::FormatText(24, \"text\")",
        [](RecordingHost& host) { QCOMPARE(host.formatter()->FormatText(24, s("text")), QString()); });
    add("IFormat::FormatDescriptionText(24, \"description\", \"text\")", [](RecordingHost& host) {
        QCOMPARE(host.formatter()->FormatDescriptionText(24, s("description"), s("text")), QString());
    });
    add("IFormat::FormatNameValueUnit(24, \"name\", \"1.0\", \"g\")", [](RecordingHost& host) {
        QCOMPARE(host.formatter()->FormatNameValueUnit(24, s("name"), s("1.0"), s("g")), QString());
    });
    FormattedValue formatted;
    formatted.text = s("1.0 g");
    add("IFormat::FormatValue(24, FormattedValue(text=\"1.0 g\"), true)", [=](RecordingHost& host) {
        QCOMPARE(host.formatter()->FormatValue(24, formatted, true), QString());
    });
    add("IFormat::FormatNameValue(24, \"name\", FormattedValue(text=\"1.0 g\"), false)",
        [=](RecordingHost& host) {
            QCOMPARE(host.formatter()->FormatNameValue(24, s("name"), formatted, false), QString());
        });
    add("IFormat::ConvertValue(MesswertData(messwert=\"1.0\"), FormattedValue(text=\"1.0 g\"))",
        [=](RecordingHost& host) {
            FormattedValue out = formatted;
            host.formatter()->ConvertValue(reading("1.0"), out);
            QCOMPARE(out.text, s("1.0 g"));
        });

    add("IInfobox::SetItems([QObject, null])", [](RecordingHost& host) {
        QObject item;
        host.infobox()->SetItems({&item, nullptr});
    });
    add("IInfosectionItemProvider::getUId()",
        [](RecordingHost& host) { QCOMPARE(host.infosectionItem()->getUId(), QString()); });
    add("IInfosectionItemProvider::getRank()",
        [](RecordingHost& host) { QCOMPARE(host.infosectionItem()->getRank(), 0); });
    add("ILifecycleObserver::NotifyPluginClosing()", [](RecordingHost& host) {
        quietly(host, [](ISystem* system) { return system->GetLifecycleObserver(); })->NotifyPluginClosing();
    });

    const auto mswSource = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetMSWParameterSource(); });
    };
    add("IMSWParameterSource::QueryFlagA()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->QueryFlagA(), false); });
    add("IMSWParameterSource::QueryFlagB()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->QueryFlagB(), false); });
    add("IMSWParameterSource::GetMSWParameter0()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->GetMSWParameter0(), QString()); });
    add("IMSWParameterSource::GetMSWParameter1()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->GetMSWParameter1(), QString()); });
    add("IMSWParameterSource::GetMSWParameter3()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->GetMSWParameter3(), QString()); });
    add("IMSWParameterSource::GetMSWParameter2()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->GetMSWParameter2(), QString()); });
    add("IMSWParameterSource::QueryFlagC()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->QueryFlagC(), false); });
    add("IMSWParameterSource::QueryFlagD()",
        [=](RecordingHost& host) { QCOMPARE(mswSource(host)->QueryFlagD(), false); });

    const auto observer = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetMeasurementObserver(); });
    };
    add("IMeasurementObserver::OnMeasurementTransferred(MesswertData(messwert=\"1\"), "
        "MesswertData(messwert=\"2\"))",
        [=](RecordingHost& host) { observer(host)->OnMeasurementTransferred(reading("1"), reading("2")); });
    add("IMeasurementObserver::OnSystemRegistersRead(1.5, -2)",
        [=](RecordingHost& host) { observer(host)->OnSystemRegistersRead(1.5, -2.0); });

    const auto transfer = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetMeasurementTransfer(); });
    };
    add("IMeasurementTransfer::SetTransferFlag(true)",
        [=](RecordingHost& host) { transfer(host)->SetTransferFlag(true); });
    add("IMeasurementTransfer::TransferMeasurement(MesswertData(messwert=\"1\"), "
        "MesswertData(messwert=\"2\"), "
        "MesswertData())",
        [=](RecordingHost& host) {
            QCOMPARE(transfer(host)->TransferMeasurement(reading("1"), reading("2"), MesswertData()), false);
        });

    // Both menus alike.
    using FetchMenu = std::function<IMenuList*(RecordingHost&)>;
    const auto addMenu = [&list](const QString& name, const FetchMenu& menu) {
        const auto addOperation = [&](const char* call, const std::function<void(IMenuList*)>& operate) {
            list.append({name + s("::") + s(call), [=](RecordingHost& host) { operate(menu(host)); }});
        };
        addOperation("GetMenuFilePath()",
                     [](IMenuList* menu) { QCOMPARE(menu->GetMenuFilePath(), QString()); });
        addOperation("GetMenuName()", [](IMenuList* menu) { QCOMPARE(menu->GetMenuName(), QString()); });
        addOperation("SetMenuName(\"name\")", [](IMenuList* menu) { menu->SetMenuName(s("name")); });
        addOperation("GetAddonMenuName()",
                     [](IMenuList* menu) { QCOMPARE(menu->GetAddonMenuName(), QString()); });
        addOperation("IsItemVisible(5, null)",
                     [](IMenuList* menu) { QCOMPARE(menu->IsItemVisible(5, nullptr), false); });
        addOperation("IsItemEnabled(5, null)",
                     [](IMenuList* menu) { QCOMPARE(menu->IsItemEnabled(5, nullptr), false); });
        addOperation("IsItemBoolValueAllowedToToggle(5, null)", [](IMenuList* menu) {
            QCOMPARE(menu->IsItemBoolValueAllowedToToggle(5, nullptr), false);
        });
        addOperation("GetItemValue(5)", [](IMenuList* menu) { QCOMPARE(menu->GetItemValue(5), QVariant()); });
        addOperation("SetItemValue(5, QVariant(int, 3))",
                     [](IMenuList* menu) { QCOMPARE(menu->SetItemValue(5, 3), false); });
        addOperation("GetItemText(5)", [](IMenuList* menu) { QCOMPARE(menu->GetItemText(5), QString()); });
        addOperation("GetItemUnit(5)", [](IMenuList* menu) { QCOMPARE(menu->GetItemUnit(5), QString()); });
        addOperation("GetItemRange(5, out, null)", [](IMenuList* menu) {
            double minimum = 0.0;
            QCOMPARE(menu->GetItemRange(5, &minimum, nullptr), false);
        });
        addOperation("defineSelectionList(5)", [](IMenuList* menu) {
            QCOMPARE(menu->defineSelectionList(5), qMakePair(QString(), QString()));
        });
        addOperation("IsItemValueValid(5, QVariant(QString, \"a\"))",
                     [](IMenuList* menu) { QCOMPARE(menu->IsItemValueValid(5, s("a")), false); });
        addOperation("GetSelectionList(5, out, out)", [](IMenuList* menu) {
            QStringList names{s("kept")};
            QCOMPARE(menu->GetSelectionList(5, &names, &names), false);
            QCOMPARE(names, QStringList{s("kept")});
        });
        addOperation("GetSelectionListDataPtr(5, \"a\")",
                     [](IMenuList* menu) { QCOMPARE(menu->GetSelectionListDataPtr(5, s("a")), 0); });
        addOperation("GetUniqueNameFromIndexInSelectionList(5, 1)", [](IMenuList* menu) {
            QCOMPARE(menu->GetUniqueNameFromIndexInSelectionList(5, 1), QString());
        });
        addOperation("GetIndexFromUniqueNameInSelectionList(5, \"a\")", [](IMenuList* menu) {
            QCOMPARE(menu->GetIndexFromUniqueNameInSelectionList(5, s("a")), 0);
        });
        addOperation("GetHelpFilePath(5)",
                     [](IMenuList* menu) { QCOMPARE(menu->GetHelpFilePath(5), QString()); });
        addOperation("GetMenuItemList(null)",
                     [](IMenuList* menu) { QCOMPARE(menu->GetMenuItemList(nullptr), false); });
        addOperation("GetMenuItemById(5, null)",
                     [](IMenuList* menu) { QCOMPARE(menu->GetMenuItemById(5, nullptr), false); });
        addOperation("OnItemValueChanged(5)", [](IMenuList* menu) { menu->OnItemValueChanged(5); });
        addOperation("ExecuteCommand(5, null)", [](IMenuList* menu) { menu->ExecuteCommand(5, nullptr); });
        addOperation("SetPluginManager(null)", [](IMenuList* menu) { menu->SetPluginManager(nullptr); });
        addOperation("OnCustomizeButton(5)", [](IMenuList* menu) { menu->OnCustomizeButton(5); });
        addOperation("OnCustomizeString(QObject, 5)", [](IMenuList* menu) {
            QObject object;
            menu->OnCustomizeString(&object, 5);
        });
    };
    addMenu(s("IMenuList"), [](RecordingHost& host) { return host.menuList(); });
    addMenu(s("IMenuList#protocol"), [](RecordingHost& host) { return host.protocolMenu(); });

    const auto controller = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetPluginController(); });
    };
    add("IPluginController::GetActivePlugin()",
        [=](RecordingHost& host) { QVERIFY(controller(host)->GetActivePlugin() == nullptr); });
    add("IPluginController::SetControlMode(true)",
        [=](RecordingHost& host) { controller(host)->SetControlMode(true); });
    add("IPluginController::PluginClosed(\"plugin\")",
        [=](RecordingHost& host) { controller(host)->PluginClosed(s("plugin")); });
    add("IPluginManager::GetPlugins()",
        [](RecordingHost& host) { QVERIFY(host.pluginManager()->GetPlugins().isEmpty()); });

    add("IPluginViewManager::Setup(0)", [](RecordingHost& host) {
        const std::unique_ptr<RecordingViewManager> manager(host.createViewManager());
        manager->Setup(0);
        host.ignore("IPluginViewManager::~IPluginViewManager");
    });
    add("IPluginViewManager::~IPluginViewManager()",
        [](RecordingHost& host) { delete host.createViewManager(); });
    add("IPrintIndicator::SetPrintPressed(true)", [](RecordingHost& host) {
        quietly(host, [](ISystem* system) { return system->GetPrintIndicator(); })->SetPrintPressed(true);
    });
    add("IPrinter::GetPrintLayout()",
        [](RecordingHost& host) { QCOMPARE(host.printer()->GetPrintLayout(), 0); });
    add("IPrinter::PrintLine(\"a\\nb\")",
        [](RecordingHost& host) { QCOMPARE(host.printer()->PrintLine(s("a\nb")), false); });
    add("IProtocolMenuFactory::CreateProtocolMenu(\"Protocol\", 0, true)", [](RecordingHost& host) {
        IProtocolMenuFactory* const factory =
            quietly(host, [](ISystem* system) { return system->GetProtocolMenuFactory(); });
        QCOMPARE(factory->CreateProtocolMenu(s("Protocol"), 0, true), host.protocolMenu());
    });

    const auto pool = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetProtocolPool(); });
    };
    add("IProtocolPool::AddItem(StubItem(\"uid\"))", [=](RecordingHost& host) {
        StubItem item;
        pool(host)->AddItem(&item);
    });
    add("IProtocolPool::RemoveItem(StubItem(\"uid\"))", [=](RecordingHost& host) {
        StubItem item;
        pool(host)->RemoveItem(&item);
    });
    add("IProtocolPool::AddTrigger(StubTrigger(\"uid\"))", [=](RecordingHost& host) {
        StubTrigger trigger;
        pool(host)->AddTrigger(&trigger);
    });
    add("IProtocolPool::RemoveTrigger(StubTrigger(\"uid\"))", [=](RecordingHost& host) {
        StubTrigger trigger;
        pool(host)->RemoveTrigger(&trigger);
    });

    const auto rangeSwitch = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetRangeSwitch(); });
    };
    add("IRangeSwitch::SetRangeSelection(1)",
        [=](RecordingHost& host) { rangeSwitch(host)->SetRangeSelection(1); });
    add("IRangeSwitch::getCurrentRange()",
        [=](RecordingHost& host) { QCOMPARE(rangeSwitch(host)->getCurrentRange(), 0); });
    add("IRangeSwitch::setFixRange(-1)", [=](RecordingHost& host) { rangeSwitch(host)->setFixRange(-1); });
    add("IRangeSwitch::getFixRange()",
        [=](RecordingHost& host) { QCOMPARE(rangeSwitch(host)->getFixRange(), 0); });

    add("IRegisterValueProvider::GetMesswert(1, 73)", [](RecordingHost& host) {
        IRegisterValueProvider* const provider =
            quietly(host, [](ISystem* system) { return system->GetRegisterValueProvider(); });
        const MesswertData empty;
        QVERIFY(provider->GetMesswert(1, 73).isEqual(&empty));
    });
    add("ISystemRegister::GetRegisterValue(74)",
        [](RecordingHost& host) { QCOMPARE(host.systemRegister()->GetRegisterValue(74), 0.0); });
    add("IScreenLoader::LoadScreen(\"qrc:/a.qml\")", [](RecordingHost& host) {
        IScreenLoader* const loader = host.view()->GetScreenLoader();
        host.clearCalls();
        loader->LoadScreen(s("qrc:/a.qml"));
    });
    add("IStatusInfo::GetAddonText()", [](RecordingHost& host) {
        QCOMPARE(quietly(host, [](ISystem* system) { return system->GetStatusInfo(); })->GetAddonText(),
                 QString());
    });
    add("IStatusInfo::GetLogPrefix()", [](RecordingHost& host) {
        QCOMPARE(quietly(host, [](ISystem* system) { return system->GetStatusInfo(); })->GetLogPrefix(),
                 QString());
    });

    const auto addTarget = [&add](const char* call, ITransferTarget* (ISystem::*getter)()) {
        add(call, [=](RecordingHost& host) {
            ITransferTarget* const target =
                quietly(host, [=](ISystem* system) { return (system->*getter)(); });
            QCOMPARE(target->IsActive(), false);
        });
    };
    addTarget("ITransferTarget#1::IsActive()", &ISystem::GetTransferTarget1);
    addTarget("ITransferTarget#2::IsActive()", &ISystem::GetTransferTarget2);
    addTarget("ITransferTarget#3::IsActive()", &ISystem::GetTransferTarget3);
    addTarget("ITransferTarget#4::IsActive()", &ISystem::GetTransferTarget4);
    addTarget("ITransferTarget#5::IsActive()", &ISystem::GetTransferTarget5);

    add("IView::SetContextObject(\"weighing\", QObject)", [](RecordingHost& host) {
        QObject model;
        host.view()->SetContextObject(s("weighing"), &model);
    });
    add("IView::GetScreenLoader()",
        [](RecordingHost& host) { QVERIFY(host.view()->GetScreenLoader() != nullptr); });
    add("IWeighing::Tare()", [](RecordingHost& host) { QCOMPARE(host.weighing()->Tare(), false); });
    add("IWeighing::Zero()", [](RecordingHost& host) { QCOMPARE(host.weighing()->Zero(), false); });
    add("IWeighing::ClearTare()", [](RecordingHost& host) { QCOMPARE(host.weighing()->ClearTare(), false); });

    const auto parameterService = [](RecordingHost& host) {
        return quietly(host, [](ISystem* system) { return system->GetWeighingParameterService(); });
    };
    add("IWeighingParameterService::SetParameterProfile(\"standard\")",
        [=](RecordingHost& host) { parameterService(host)->SetParameterProfile(s("standard")); });
    add("IWeighingParameterService::SetParameter2(\"a\", 1)",
        [=](RecordingHost& host) { parameterService(host)->SetParameter2(s("a"), 1); });
    add("IWeighingParameterService::SetParameter0(\"a\")",
        [=](RecordingHost& host) { parameterService(host)->SetParameter0(s("a")); });
    add("IWeighingParameterService::SetParameter1(\"a\")",
        [=](RecordingHost& host) { parameterService(host)->SetParameter1(s("a")); });
    add("IWeighingParameterService::SetParameter3(\"a\")",
        [=](RecordingHost& host) { parameterService(host)->SetParameter3(s("a")); });
    add("IWeighingParameters::InitStandardWeighingParameters()", [](RecordingHost& host) {
        QCOMPARE(host.weighingParameters()->InitStandardWeighingParameters(), false);
    });
    add("IWeighingParameters::InitMSWWeighingParameters()",
        [](RecordingHost& host) { QCOMPARE(host.weighingParameters()->InitMSWWeighingParameters(), false); });
    add("IWeighingParameters::ResetWeighingParameters()",
        [](RecordingHost& host) { QCOMPARE(host.weighingParameters()->ResetWeighingParameters(), false); });

    add("IWfM::Reset()", [](RecordingHost& host) { host.workflowManager()->Reset(); });
    add("IWfM::AddStepFunction(StubStepFunction(\"uid\"))", [](RecordingHost& host) {
        StubStepFunction function;
        host.workflowManager()->AddStepFunction(&function);
    });
    add("IWfM::RemoveStepFunction(StubStepFunction(\"uid\"))", [](RecordingHost& host) {
        StubStepFunction function;
        host.workflowManager()->RemoveStepFunction(&function);
    });
    add("IWfM::StartWorkflow([StubStep(3, \"fill\"), null])", [](RecordingHost& host) {
        StubStep step;
        QCOMPARE(host.workflowManager()->StartWorkflow({&step, nullptr}), false);
    });
    add("IWfM::AbortWorkflow()", [](RecordingHost& host) { host.workflowManager()->AbortWorkflow(); });
    add("IWfM::onPrintButtonEnableChange(true)",
        [](RecordingHost& host) { host.workflowManager()->onPrintButtonEnableChange(true); });
    return list;
}

QString operationOf(const QString& call)
{
    return call.left(call.indexOf(QLatin1Char('(')));
}

} // namespace

class TestRecordedCalls : public QObject
{
    Q_OBJECT

private slots:
    void call_data();
    void call();
    void casesAreComplete();
    void slotOfTheWorkflowManagerIsKnownByName();
    void signalsAreKnownByName_data();
    void signalsAreKnownByName();

private:
    const QVector<Case> m_cases = cases();
};

void TestRecordedCalls::call_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < m_cases.size(); ++i)
        QTest::newRow(qPrintable(operationOf(m_cases[i].call))) << i;
}

void TestRecordedCalls::call()
{
    QFETCH(int, index);
    RecordingHost host;
    m_cases[index].operate(host);
    BRIMVALE_COMPARE_CALLS(host, m_cases[index].call);
    QCOMPARE(host.callCount(operationOf(m_cases[index].call)), 1);
}

void TestRecordedCalls::casesAreComplete()
{
    QSet<QString> tested;
    for (const Case& tested_case : m_cases)
        tested.insert(operationOf(tested_case.call));
    QStringList untested;
    for (const QString& operation : RecordingHost::operations()) {
        // The name without label stands for the five objects.
        if (!tested.contains(operation) && operation != QLatin1String("ITransferTarget::IsActive"))
            untested.append(operation);
    }
    QCOMPARE(untested, QStringList());
}

void TestRecordedCalls::slotOfTheWorkflowManagerIsKnownByName()
{
    RecordingHost host;
    const QMetaObject* const metaObject = host.workflowManager()->metaObject();
    QVERIFY(metaObject->indexOfSlot("onPrintButtonEnableChange(bool)") >= 0);
    QVERIFY(metaObject->indexOfSignal("NotifyWorkflowStepEntered(int)") >= 0);
    QVERIFY(metaObject->indexOfSignal("NotifyWorkflowFinished(bool)") >= 0);
}

void TestRecordedCalls::signalsAreKnownByName_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<QByteArray>("signal");

    QTest::newRow("levelling value") << s("system") << QByteArray("NotifyNewLevellingValue(bool)");
    QTest::newRow("calibration warning")
        << s("calibration") << QByteArray("notifyCalibrationWarningChanged()");
    QTest::newRow("levelling") << s("sensor") << QByteArray("notifyLevellingNotAdjustedChanged()");
    QTest::newRow("stable value") << s("weighing") << QByteArray("NotifyLoadChanged(int,double)");
    QTest::newRow("measured value") << s("weighing") << QByteArray("NotifyNewMeasurementValue()");
}

void TestRecordedCalls::signalsAreKnownByName()
{
    QFETCH(QString, object);
    QFETCH(QByteArray, signal);
    RecordingHost host;
    // The library reaches the QObject by a dynamic cast from the interface.
    ISystem* const system = host.system();
    const QMap<QString, QObject*> objects{
        {s("system"), dynamic_cast<QObject*>(system)},
        {s("calibration"), dynamic_cast<QObject*>(system->GetCalibrationService())},
        {s("sensor"), dynamic_cast<QObject*>(system->GetSensorState())},
        {s("weighing"), dynamic_cast<QObject*>(system->GetWeighing())},
    };
    QVERIFY(objects.value(object));
    QVERIFY(objects.value(object)->metaObject()->indexOfSignal(signal) >= 0);
}

QTEST_GUILESS_MAIN(TestRecordedCalls)
#include "tst_recordedcalls.moc"
