// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISYSTEM_H
#define BRIMVALE_ISYSTEM_H

#include "IUniversalMenuList.h"
#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class IActionbar;
class IAddonHost;
class IApprovedMode;
class ICalibrationService;
class ILifecycleObserver;
class IMSWParameterSource;
class IMeasurementObserver;
class IMeasurementTransfer;
class IPluginController;
class IPluginHost;
class IPrintIndicator;
class IProtocolMenuFactory;
class IProtocolPool;
class IRangeSwitch;
class IRegisterValueProvider;
class ISensorState;
class IStatusInfo;
class ISystemRegister;
class ITransferTarget;
class IWeighing;
class IWeighingParameterService;
class IWfM;

/// The host's system services, handed to `IPlugin::InitPlugin()`. Implemented by the host in a `QObject`,
/// which has the signal `NotifyNewLevellingValue(bool levelOk)`.
///
/// Every returned object is the host's and never null unless that is said. The library asks for it anew on
/// every use and keeps none, so the host may replace any of them between two calls. All operations are
/// called on the host's event-loop thread.
class BRIMVALE_EXPORT ISystem : public IUniversalMenuList
{
public:
    ~ISystem() override;

    /// The stored value of setting `index` of a menu file, for the given owner and profile, or
    /// `defaultValue` when none is stored.
    virtual QString GetStoredParameter(QString menuFilePath, QString owner, QString profile,
                                       QString defaultValue, int index) = 0;

    /// The hand-over of add-ons.
    virtual IAddonHost* GetAddonHost() = 0;

    /// The action bar.
    virtual IActionbar* GetActionbar() = 0;

    /// The state of the balance's sensors.
    virtual ISensorState* GetSensorState() = 0;

    /// Texts about the terminal's state.
    virtual IStatusInfo* GetStatusInfo() = 0;

    /// The first of five outputs that can take measured values.
    virtual ITransferTarget* GetTransferTarget1() = 0;

    /// The second output.
    virtual ITransferTarget* GetTransferTarget2() = 0;

    /// The MSW parameter set and the queries about a pressed print button.
    virtual IMSWParameterSource* GetMSWParameterSource() = 0;

    /// The transfer of measured values to the outputs.
    virtual IMeasurementTransfer* GetMeasurementTransfer() = 0;

    /// The switch of the weighing ranges.
    virtual IRangeSwitch* GetRangeSwitch() = 0;

    /// Told when a plug-in closes.
    virtual ILifecycleObserver* GetLifecycleObserver() = 0;

    /// The setters of the weighing parameters.
    virtual IWeighingParameterService* GetWeighingParameterService() = 0;

    /// Knows which plug-in is active.
    virtual IPluginController* GetPluginController() = 0;

    /// Registers as measured values.
    virtual IRegisterValueProvider* GetRegisterValueProvider() = 0;

    /// Makes protocol menus.
    virtual IProtocolMenuFactory* GetProtocolMenuFactory() = 0;

    /// The start-up sequence of plug-ins.
    virtual IPluginHost* GetPluginHost() = 0;

    /// The fourth output.
    virtual ITransferTarget* GetTransferTarget4() = 0;

    /// The fifth output.
    virtual ITransferTarget* GetTransferTarget5() = 0;

    /// The name of the active output format; "sics" selects the SICS weight answer.
    virtual QString GetProtocolFormatName() = 0;

    /// The number of the unit shown now, as `IRegisterValueProvider::GetMesswert()` takes it.
    virtual int GetCurrentUnit() = 0;

    /// The calibration service.
    virtual ICalibrationService* GetCalibrationService() = 0;

    /// Switches the transfer to the outputs on or off for the whole terminal.
    virtual void SetHostPrintTransferEnabled(bool enabled) = 0;

    /// Whether the transfer to the outputs is switched on.
    virtual bool IsHostPrintTransferEnabled() = 0;

    /// The workflow manager; may be null.
    virtual IWfM* GetWorkflowManager() = 0;

    /// The third output.
    virtual ITransferTarget* GetTransferTarget3() = 0;

    /// Makes the current plug-in provide the info section.
    virtual void RegisterInfosectionProvider() = 0;

    /// Withdraws the current plug-in from the info section.
    virtual void UnRegisterInfosectionProvider() = 0;

    /// The indicator of a pressed print button.
    virtual IPrintIndicator* GetPrintIndicator() = 0;

    /// Told of every transferred measurement.
    virtual IMeasurementObserver* GetMeasurementObserver() = 0;

    /// The numbered system registers.
    virtual ISystemRegister* GetSystemRegister() = 0;

    /// The scale: tare, zero and the signals of new values.
    virtual IWeighing* GetWeighing() = 0;

    /// The approval mode of the terminal.
    virtual IApprovedMode* GetApprovedMode() = 0;

    /// The pool of print items and triggers.
    virtual IProtocolPool* GetProtocolPool() = 0;

    /// The count of decimal places of the gram reading ("koma"): registers count steps of 10^-koma g.
    virtual int GetDecimals() = 0;
};

} // namespace Brimvale

#endif
