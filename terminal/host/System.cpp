// SPDX-License-Identifier: BSD-3-Clause
#include "host/System.h"

#include "host/HostCallLog.h"
#include "host/MeasurementTransfer.h"
#include "host/MenuItem.h"
#include "host/Notices.h"
#include "host/StoredParameters.h"
#include "host/Units.h"
#include "measuring/Scale.h"
#include "menu/MenuStore.h"

namespace Brimvale
{
namespace Terminal
{

System::System(HostCallLog& calls, Notices& notices, const SystemServices& services, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_services(services)
{
}

bool System::HasMenuFile(QString menuFilePath)
{
    m_calls.query("IUniversalMenuList::HasMenuFile", menuFilePath);
    return m_services.menuStore.contains(menuFilePath);
}

bool System::GetMenuItemList(QString menuFilePath, QList<MenuItem>* items)
{
    m_calls.query("IUniversalMenuList::GetMenuItemList", menuFilePath);
    const MenuFile* const menu = m_services.menuStore.menu(menuFilePath);
    if (menu == nullptr) {
        return false;
    }
    *items = menu->items();
    return true;
}

bool System::GetMenuItemById(QString menuFilePath, int id, MenuItem* item)
{
    m_calls.query("IUniversalMenuList::GetMenuItemById", menuFilePath, id);
    const MenuFile* const menu = m_services.menuStore.menu(menuFilePath);
    const MenuItem* const found = menu != nullptr ? menu->item(id) : nullptr;
    if (found == nullptr) {
        return false;
    }
    *item = *found;
    return true;
}

QString System::GetStoredParameter(QString menuFilePath, QString owner, QString profile, QString defaultValue,
                                   int index)
{
    m_calls.query("ISystem::GetStoredParameter", menuFilePath, owner, profile, defaultValue, index);
    return m_services.storedParameters.value(menuFilePath, owner, profile, defaultValue, index);
}

IAddonHost* System::GetAddonHost()
{
    m_calls.query("ISystem::GetAddonHost");
    return &m_services.addonHost;
}

IActionbar* System::GetActionbar()
{
    m_calls.query("ISystem::GetActionbar");
    return &m_services.actionBar;
}

ISensorState* System::GetSensorState()
{
    m_calls.query("ISystem::GetSensorState");
    return &m_services.sensorState;
}

IStatusInfo* System::GetStatusInfo()
{
    m_calls.query("ISystem::GetStatusInfo");
    return &m_services.statusInfo;
}

ITransferTarget* System::GetTransferTarget1()
{
    m_calls.query("ISystem::GetTransferTarget1");
    return &m_services.measurementTransfer.target(1);
}

ITransferTarget* System::GetTransferTarget2()
{
    m_calls.query("ISystem::GetTransferTarget2");
    return &m_services.measurementTransfer.target(2);
}

IMSWParameterSource* System::GetMSWParameterSource()
{
    m_calls.query("ISystem::GetMSWParameterSource");
    return &m_services.mswParameterSource;
}

IMeasurementTransfer* System::GetMeasurementTransfer()
{
    m_calls.query("ISystem::GetMeasurementTransfer");
    return &m_services.measurementTransfer;
}

IRangeSwitch* System::GetRangeSwitch()
{
    m_calls.query("ISystem::GetRangeSwitch");
    return &m_services.rangeSwitch;
}

ILifecycleObserver* System::GetLifecycleObserver()
{
    m_calls.query("ISystem::GetLifecycleObserver");
    return &m_services.lifecycleObserver;
}

IWeighingParameterService* System::GetWeighingParameterService()
{
    m_calls.query("ISystem::GetWeighingParameterService");
    return &m_services.weighingParameterService;
}

IPluginController* System::GetPluginController()
{
    m_calls.query("ISystem::GetPluginController");
    return &m_services.pluginController;
}

IRegisterValueProvider* System::GetRegisterValueProvider()
{
    m_calls.query("ISystem::GetRegisterValueProvider");
    return &m_services.registerValueProvider;
}

IProtocolMenuFactory* System::GetProtocolMenuFactory()
{
    m_calls.query("ISystem::GetProtocolMenuFactory");
    return &m_services.protocolMenuFactory;
}

IPluginHost* System::GetPluginHost()
{
    m_calls.query("ISystem::GetPluginHost");
    return &m_services.pluginHost;
}

ITransferTarget* System::GetTransferTarget4()
{
    m_calls.query("ISystem::GetTransferTarget4");
    return &m_services.measurementTransfer.target(4);
}

ITransferTarget* System::GetTransferTarget5()
{
    m_calls.query("ISystem::GetTransferTarget5");
    return &m_services.measurementTransfer.target(5);
}

QString System::GetProtocolFormatName()
{
    m_calls.query("ISystem::GetProtocolFormatName");
    return m_protocolFormatName;
}

int System::GetCurrentUnit()
{
    m_calls.query("ISystem::GetCurrentUnit");
    return m_services.units.currentNumber();
}

ICalibrationService* System::GetCalibrationService()
{
    m_calls.query("ISystem::GetCalibrationService");
    return &m_services.calibrationService;
}

void System::SetHostPrintTransferEnabled(bool enabled)
{
    m_calls.command("ISystem::SetHostPrintTransferEnabled", enabled);
    m_services.measurementTransfer.setEnabled(enabled);
}

bool System::IsHostPrintTransferEnabled()
{
    m_calls.query("ISystem::IsHostPrintTransferEnabled");
    return m_services.measurementTransfer.isEnabled();
}

IWfM* System::GetWorkflowManager()
{
    m_calls.query("ISystem::GetWorkflowManager");
    return &m_services.workflowManager;
}

ITransferTarget* System::GetTransferTarget3()
{
    m_calls.query("ISystem::GetTransferTarget3");
    return &m_services.measurementTransfer.target(3);
}

void System::RegisterInfosectionProvider()
{
    m_calls.command("ISystem::RegisterInfosectionProvider");
    m_infosectionProvided = true;
}

void System::UnRegisterInfosectionProvider()
{
    m_calls.command("ISystem::UnRegisterInfosectionProvider");
    m_infosectionProvided = false;
}

IPrintIndicator* System::GetPrintIndicator()
{
    m_calls.query("ISystem::GetPrintIndicator");
    return &m_services.printIndicator;
}

IMeasurementObserver* System::GetMeasurementObserver()
{
    m_calls.query("ISystem::GetMeasurementObserver");
    return &m_services.measurementObserver;
}

ISystemRegister* System::GetSystemRegister()
{
    m_calls.query("ISystem::GetSystemRegister");
    return &m_services.systemRegister;
}

IWeighing* System::GetWeighing()
{
    m_calls.query("ISystem::GetWeighing");
    return &m_services.weighing;
}

IApprovedMode* System::GetApprovedMode()
{
    m_calls.query("ISystem::GetApprovedMode");
    return &m_services.approvedMode;
}

IProtocolPool* System::GetProtocolPool()
{
    m_calls.query("ISystem::GetProtocolPool");
    return &m_services.protocolPool;
}

int System::GetDecimals()
{
    m_calls.query("ISystem::GetDecimals");
    return m_services.scale.decimals();
}

} // namespace Terminal
} // namespace Brimvale
