// SPDX-License-Identifier: BSD-3-Clause
#include "Operation.h"

#include "FormattedValue.h"
#include "IActionbar.h"
#include "IAddonHost.h"
#include "IAddonState.h"
#include "IApprovedMode.h"
#include "ICalibrationService.h"
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
#include "IPluginViewManager.h"
#include "IPrintIndicator.h"
#include "IPrinter.h"
#include "IProtocolMenuFactory.h"
#include "IProtocolPool.h"
#include "IRangeSwitch.h"
#include "IRegisterValueProvider.h"
#include "IScreenLoader.h"
#include "ISensorState.h"
#include "ISequencer.h"
#include "IStatusInfo.h"
#include "ISystem.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "IView.h"
#include "IWeighing.h"
#include "IWeighingParameterService.h"
#include "IWeighingParameters.h"
#include "IWfM.h"
#include "MesswertData.h"
#include "TestKit/ArgumentText.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace Brimvale::TestKit
{

namespace
{

template <typename Answer>
Operation describe(int argumentCount)
{
    if constexpr (std::is_void_v<Answer>)
        return {argumentCount, QString(), [](const std::any&) { return std::any(); }};
    else
        return {argumentCount, typeName(typeid(Answer)), &Detail::convertAnswer<Answer>};
}

template <typename Interface, typename Answer, typename... Arguments>
Operation describe(Answer (Interface::*)(Arguments...))
{
    return describe<Answer>(int(sizeof...(Arguments)));
}

QMap<QString, Operation> makeOperations()
{
    QMap<QString, Operation> map;

#define OPERATION(INTERFACE, NAME)                                                                           \
    map.insert(QStringLiteral(#INTERFACE "::" #NAME), describe(&INTERFACE::NAME))

    OPERATION(ISystem, GetStoredParameter);
    OPERATION(ISystem, GetAddonHost);
    OPERATION(ISystem, GetActionbar);
    OPERATION(ISystem, GetSensorState);
    OPERATION(ISystem, GetStatusInfo);
    OPERATION(ISystem, GetTransferTarget1);
    OPERATION(ISystem, GetTransferTarget2);
    OPERATION(ISystem, GetMSWParameterSource);
    OPERATION(ISystem, GetMeasurementTransfer);
    OPERATION(ISystem, GetRangeSwitch);
    OPERATION(ISystem, GetLifecycleObserver);
    OPERATION(ISystem, GetWeighingParameterService);
    OPERATION(ISystem, GetPluginController);
    OPERATION(ISystem, GetRegisterValueProvider);
    OPERATION(ISystem, GetProtocolMenuFactory);
    OPERATION(ISystem, GetPluginHost);
    OPERATION(ISystem, GetTransferTarget4);
    OPERATION(ISystem, GetTransferTarget5);
    OPERATION(ISystem, GetProtocolFormatName);
    OPERATION(ISystem, GetCurrentUnit);
    OPERATION(ISystem, GetCalibrationService);
    OPERATION(ISystem, SetHostPrintTransferEnabled);
    OPERATION(ISystem, IsHostPrintTransferEnabled);
    OPERATION(ISystem, GetWorkflowManager);
    OPERATION(ISystem, GetTransferTarget3);
    OPERATION(ISystem, RegisterInfosectionProvider);
    OPERATION(ISystem, UnRegisterInfosectionProvider);
    OPERATION(ISystem, GetPrintIndicator);
    OPERATION(ISystem, GetMeasurementObserver);
    OPERATION(ISystem, GetSystemRegister);
    OPERATION(ISystem, GetWeighing);
    OPERATION(ISystem, GetApprovedMode);
    OPERATION(ISystem, GetProtocolPool);
    OPERATION(ISystem, GetDecimals);
    OPERATION(IUniversalMenuList, HasMenuFile);
    OPERATION(IUniversalMenuList, GetMenuItemList);
    OPERATION(IUniversalMenuList, GetMenuItemById);

    OPERATION(IActionbar, LoadEntries);
    OPERATION(IActionbar, ApplyEntries);
    OPERATION(IActionbar, Refresh);
    OPERATION(IActionbar, SetEntry);
    OPERATION(IActionbar, SetEnabled);
    OPERATION(IActionbar, AddAction);
    OPERATION(IActionbar, RemoveAction);
    OPERATION(IAddonHost, BeginAddons);
    OPERATION(IAddonHost, StartAddon);
    OPERATION(IAddonHost, EndAddons);
    OPERATION(IAddonState, IsPending);
    OPERATION(IApprovedMode, IsModeActive);
    OPERATION(ICalibrationService, GetCalibrationWarningText);
    OPERATION(IFormat, FormatText);
    OPERATION(IFormat, FormatDescriptionText);
    OPERATION(IFormat, FormatNameValueUnit);
    OPERATION(IFormat, FormatValue);
    OPERATION(IFormat, FormatNameValue);
    // Its answer is the record that it fills.
    map.insert(QStringLiteral("IFormat::ConvertValue"), describe<FormattedValue>(2));
    OPERATION(IInfobox, SetItems);
    OPERATION(IInfosectionItemProvider, getUId);
    OPERATION(IInfosectionItemProvider, getRank);
    OPERATION(ILifecycleObserver, NotifyPluginClosing);
    OPERATION(IMSWParameterSource, QueryFlagA);
    OPERATION(IMSWParameterSource, QueryFlagB);
    OPERATION(IMSWParameterSource, GetMSWParameter0);
    OPERATION(IMSWParameterSource, GetMSWParameter1);
    OPERATION(IMSWParameterSource, GetMSWParameter3);
    OPERATION(IMSWParameterSource, GetMSWParameter2);
    OPERATION(IMSWParameterSource, QueryFlagC);
    OPERATION(IMSWParameterSource, QueryFlagD);
    OPERATION(IMeasurementObserver, OnMeasurementTransferred);
    OPERATION(IMeasurementObserver, OnSystemRegistersRead);
    OPERATION(IMeasurementTransfer, SetTransferFlag);
    OPERATION(IMeasurementTransfer, TransferMeasurement);
    OPERATION(IMenuList, GetMenuFilePath);
    OPERATION(IMenuList, GetMenuName);
    OPERATION(IMenuList, SetMenuName);
    OPERATION(IMenuList, GetAddonMenuName);
    OPERATION(IMenuList, IsItemVisible);
    OPERATION(IMenuList, IsItemEnabled);
    OPERATION(IMenuList, IsItemBoolValueAllowedToToggle);
    OPERATION(IMenuList, GetItemValue);
    OPERATION(IMenuList, SetItemValue);
    OPERATION(IMenuList, GetItemText);
    OPERATION(IMenuList, GetItemUnit);
    OPERATION(IMenuList, GetItemRange);
    OPERATION(IMenuList, defineSelectionList);
    OPERATION(IMenuList, IsItemValueValid);
    OPERATION(IMenuList, GetSelectionList);
    OPERATION(IMenuList, GetSelectionListDataPtr);
    OPERATION(IMenuList, GetUniqueNameFromIndexInSelectionList);
    OPERATION(IMenuList, GetIndexFromUniqueNameInSelectionList);
    OPERATION(IMenuList, GetHelpFilePath);
    OPERATION(IMenuList, GetMenuItemList);
    OPERATION(IMenuList, GetMenuItemById);
    OPERATION(IMenuList, OnItemValueChanged);
    OPERATION(IMenuList, ExecuteCommand);
    OPERATION(IMenuList, SetPluginManager);
    OPERATION(IMenuList, OnCustomizeButton);
    OPERATION(IMenuList, OnCustomizeString);
    OPERATION(IPluginController, GetActivePlugin);
    OPERATION(IPluginController, SetControlMode);
    OPERATION(IPluginController, PluginClosed);
    OPERATION(IPluginHost, GetAddonState);
    OPERATION(IPluginHost, GetSequencer);
    OPERATION(IPluginManager, GetPlugins);
    OPERATION(IPluginViewManager, Setup);
    map.insert(QStringLiteral("IPluginViewManager::~IPluginViewManager"), describe<void>(0));
    OPERATION(IPrintIndicator, SetPrintPressed);
    OPERATION(IPrinter, GetPrintLayout);
    OPERATION(IPrinter, PrintLine);
    OPERATION(IProtocolMenuFactory, CreateProtocolMenu);
    OPERATION(IProtocolPool, AddItem);
    OPERATION(IProtocolPool, RemoveItem);
    OPERATION(IProtocolPool, AddTrigger);
    OPERATION(IProtocolPool, RemoveTrigger);
    OPERATION(IRangeSwitch, SetRangeSelection);
    OPERATION(IRangeSwitch, getCurrentRange);
    OPERATION(IRangeSwitch, setFixRange);
    OPERATION(IRangeSwitch, getFixRange);
    OPERATION(IRegisterValueProvider, GetMesswert);
    OPERATION(IScreenLoader, LoadScreen);
    OPERATION(ISensorState, IsLevellingNotAdjusted);
    OPERATION(ISequencer, Continue);
    OPERATION(ISequencer, PluginClosed);
    OPERATION(ISequencer, SetPrintPending);
    OPERATION(ISequencer, NotifyHostEvent);
    OPERATION(ISequencer, NotifyMeasurementTransferred);
    OPERATION(IStatusInfo, GetAddonText);
    OPERATION(IStatusInfo, GetLogPrefix);
    OPERATION(ISystemRegister, GetRegisterValue);
    OPERATION(ITransferTarget, IsActive);
    OPERATION(IView, SetContextObject);
    OPERATION(IView, GetScreenLoader);
    OPERATION(IWeighing, Tare);
    OPERATION(IWeighing, Zero);
    OPERATION(IWeighing, ClearTare);
    OPERATION(IWeighingParameterService, SetParameterProfile);
    OPERATION(IWeighingParameterService, SetParameter2);
    OPERATION(IWeighingParameterService, SetParameter0);
    OPERATION(IWeighingParameterService, SetParameter1);
    OPERATION(IWeighingParameterService, SetParameter3);
    OPERATION(IWeighingParameters, InitStandardWeighingParameters);
    OPERATION(IWeighingParameters, InitMSWWeighingParameters);
    OPERATION(IWeighingParameters, ResetWeighingParameters);
    OPERATION(IWfM, Reset);
    OPERATION(IWfM, AddStepFunction);
    OPERATION(IWfM, RemoveStepFunction);
    OPERATION(IWfM, StartWorkflow);
    OPERATION(IWfM, AbortWorkflow);
    // A slot of the workflow manager's object, not an operation of its interface.
    map.insert(QStringLiteral("IWfM::onPrintButtonEnableChange"), describe<void>(1));

#undef OPERATION

    const auto addLabelled = [&map](const QString& interfaceName, const QString& label) {
        const QString prefix = interfaceName + QStringLiteral("::");
        const QMap<QString, Operation> known = map;
        for (auto it = known.lowerBound(prefix); it != known.constEnd() && it.key().startsWith(prefix); ++it)
            map.insert(interfaceName + QLatin1Char('#') + label + it.key().mid(interfaceName.size()),
                       it.value());
    };
    for (int target = 1; target <= 5; ++target)
        addLabelled(QStringLiteral("ITransferTarget"), QString::number(target));
    addLabelled(QStringLiteral("IMenuList"), QStringLiteral("protocol"));
    return map;
}

/// The number of characters to insert, delete or replace to turn one text into the other.
int editDistance(const QString& from, const QString& to)
{
    QVector<int> row(to.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < to.size(); ++j) {
            const int replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.last();
}

} // namespace

const QMap<QString, Operation>& operations()
{
    static const QMap<QString, Operation> map = makeOperations();
    return map;
}

QString withoutLabel(const QString& operation)
{
    const int label = operation.indexOf(QLatin1Char('#'));
    const int name = operation.indexOf(QLatin1String("::"));
    return label < 0 || name < label ? operation : operation.left(label) + operation.mid(name);
}

QStringList similarOperations(const QString& name)
{
    // Either the whole name is nearly right, or the operation is and the interface is missing or another one.
    const auto distance = [](const QString& wanted, const QString& known) {
        return std::min(editDistance(wanted.toLower(), known.toLower()),
                        1 + editDistance(unqualified(wanted).toLower(), unqualified(known).toLower()));
    };
    QStringList names = operations().keys();
    QMap<QString, int> distances;
    for (const QString& known : qAsConst(names))
        distances.insert(known, distance(name, known));
    std::stable_sort(names.begin(), names.end(), [&distances](const QString& left, const QString& right) {
        return distances.value(left) < distances.value(right);
    });
    return names.mid(0, 5);
}

} // namespace Brimvale::TestKit
