// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingSystem.h"

#include "RecordingServices.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingSystem::RecordingSystem(std::shared_ptr<CallRecorder> recorder, RecordingServices& services)
    : m_recorder(std::move(recorder))
    , m_services(services)
{
}

RecordingSystem::~RecordingSystem() = default;

bool RecordingSystem::HasMenuFile(QString menuFilePath)
{
    return m_recorder->call<bool>("IUniversalMenuList::HasMenuFile", menuFilePath);
}

bool RecordingSystem::GetMenuItemList(QString menuFilePath, QList<MenuItem>* items)
{
    const bool scripted =
        m_recorder->call<bool>("IUniversalMenuList::GetMenuItemList", menuFilePath, out(items));
    return menuItemList ? menuItemList(menuFilePath, items) : scripted;
}

bool RecordingSystem::GetMenuItemById(QString menuFilePath, int id, MenuItem* item)
{
    const bool scripted =
        m_recorder->call<bool>("IUniversalMenuList::GetMenuItemById", menuFilePath, id, out(item));
    return menuItemById ? menuItemById(menuFilePath, id, item) : scripted;
}

QString RecordingSystem::GetStoredParameter(QString menuFilePath, QString owner, QString profile,
                                            QString defaultValue, int index)
{
    return m_recorder->callOr(defaultValue, "ISystem::GetStoredParameter", menuFilePath, owner, profile,
                              defaultValue, index);
}

IAddonHost* RecordingSystem::GetAddonHost()
{
    return m_recorder->callOr<IAddonHost*>(&m_services.addonHost, "ISystem::GetAddonHost");
}

IActionbar* RecordingSystem::GetActionbar()
{
    return m_recorder->callOr<IActionbar*>(&m_services.actionbar, "ISystem::GetActionbar");
}

ISensorState* RecordingSystem::GetSensorState()
{
    return m_recorder->callOr<ISensorState*>(&m_services.sensorState, "ISystem::GetSensorState");
}

IStatusInfo* RecordingSystem::GetStatusInfo()
{
    return m_recorder->callOr<IStatusInfo*>(&m_services.statusInfo, "ISystem::GetStatusInfo");
}

ITransferTarget* RecordingSystem::GetTransferTarget1()
{
    return m_recorder->callOr<ITransferTarget*>(&m_services.transferTarget1, "ISystem::GetTransferTarget1");
}

ITransferTarget* RecordingSystem::GetTransferTarget2()
{
    return m_recorder->callOr<ITransferTarget*>(&m_services.transferTarget2, "ISystem::GetTransferTarget2");
}

IMSWParameterSource* RecordingSystem::GetMSWParameterSource()
{
    return m_recorder->callOr<IMSWParameterSource*>(&m_services.mswParameterSource,
                                                    "ISystem::GetMSWParameterSource");
}

IMeasurementTransfer* RecordingSystem::GetMeasurementTransfer()
{
    return m_recorder->callOr<IMeasurementTransfer*>(&m_services.measurementTransfer,
                                                     "ISystem::GetMeasurementTransfer");
}

IRangeSwitch* RecordingSystem::GetRangeSwitch()
{
    return m_recorder->callOr<IRangeSwitch*>(&m_services.rangeSwitch, "ISystem::GetRangeSwitch");
}

ILifecycleObserver* RecordingSystem::GetLifecycleObserver()
{
    return m_recorder->callOr<ILifecycleObserver*>(&m_services.lifecycleObserver,
                                                   "ISystem::GetLifecycleObserver");
}

IWeighingParameterService* RecordingSystem::GetWeighingParameterService()
{
    return m_recorder->callOr<IWeighingParameterService*>(&m_services.weighingParameterService,
                                                          "ISystem::GetWeighingParameterService");
}

IPluginController* RecordingSystem::GetPluginController()
{
    return m_recorder->callOr<IPluginController*>(&m_services.pluginController,
                                                  "ISystem::GetPluginController");
}

IRegisterValueProvider* RecordingSystem::GetRegisterValueProvider()
{
    return m_recorder->callOr<IRegisterValueProvider*>(&m_services.registerValueProvider,
                                                       "ISystem::GetRegisterValueProvider");
}

IProtocolMenuFactory* RecordingSystem::GetProtocolMenuFactory()
{
    return m_recorder->callOr<IProtocolMenuFactory*>(&m_services.protocolMenuFactory,
                                                     "ISystem::GetProtocolMenuFactory");
}

IPluginHost* RecordingSystem::GetPluginHost()
{
    return m_recorder->callOr<IPluginHost*>(&m_services.pluginHost, "ISystem::GetPluginHost");
}

ITransferTarget* RecordingSystem::GetTransferTarget4()
{
    return m_recorder->callOr<ITransferTarget*>(&m_services.transferTarget4, "ISystem::GetTransferTarget4");
}

ITransferTarget* RecordingSystem::GetTransferTarget5()
{
    return m_recorder->callOr<ITransferTarget*>(&m_services.transferTarget5, "ISystem::GetTransferTarget5");
}

QString RecordingSystem::GetProtocolFormatName()
{
    return m_recorder->call<QString>("ISystem::GetProtocolFormatName");
}

int RecordingSystem::GetCurrentUnit()
{
    return m_recorder->call<int>("ISystem::GetCurrentUnit");
}

ICalibrationService* RecordingSystem::GetCalibrationService()
{
    return m_recorder->callOr<ICalibrationService*>(&m_services.calibrationService,
                                                    "ISystem::GetCalibrationService");
}

void RecordingSystem::SetHostPrintTransferEnabled(bool enabled)
{
    m_recorder->call("ISystem::SetHostPrintTransferEnabled", enabled);
}

bool RecordingSystem::IsHostPrintTransferEnabled()
{
    return m_recorder->call<bool>("ISystem::IsHostPrintTransferEnabled");
}

IWfM* RecordingSystem::GetWorkflowManager()
{
    return m_recorder->callOr<IWfM*>(&m_services.workflowManager, "ISystem::GetWorkflowManager");
}

ITransferTarget* RecordingSystem::GetTransferTarget3()
{
    return m_recorder->callOr<ITransferTarget*>(&m_services.transferTarget3, "ISystem::GetTransferTarget3");
}

void RecordingSystem::RegisterInfosectionProvider()
{
    m_recorder->call("ISystem::RegisterInfosectionProvider");
}

void RecordingSystem::UnRegisterInfosectionProvider()
{
    m_recorder->call("ISystem::UnRegisterInfosectionProvider");
}

IPrintIndicator* RecordingSystem::GetPrintIndicator()
{
    return m_recorder->callOr<IPrintIndicator*>(&m_services.printIndicator, "ISystem::GetPrintIndicator");
}

IMeasurementObserver* RecordingSystem::GetMeasurementObserver()
{
    return m_recorder->callOr<IMeasurementObserver*>(&m_services.measurementObserver,
                                                     "ISystem::GetMeasurementObserver");
}

ISystemRegister* RecordingSystem::GetSystemRegister()
{
    return m_recorder->callOr<ISystemRegister*>(&m_services.systemRegister, "ISystem::GetSystemRegister");
}

IWeighing* RecordingSystem::GetWeighing()
{
    return m_recorder->callOr<IWeighing*>(&m_services.weighing, "ISystem::GetWeighing");
}

IApprovedMode* RecordingSystem::GetApprovedMode()
{
    return m_recorder->callOr<IApprovedMode*>(&m_services.approvedMode, "ISystem::GetApprovedMode");
}

IProtocolPool* RecordingSystem::GetProtocolPool()
{
    return m_recorder->callOr<IProtocolPool*>(&m_services.protocolPool, "ISystem::GetProtocolPool");
}

int RecordingSystem::GetDecimals()
{
    return m_recorder->call<int>("ISystem::GetDecimals");
}

} // namespace Brimvale::TestKit
