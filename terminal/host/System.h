// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SYSTEM_H
#define BRIMVALE_SYSTEM_H

#include "ISystem.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class MeasurementTransfer;
class MenuStore;
class Notices;
class Scale;
class StoredParameters;
class Units;

/// What System hands out; nothing is owned, everything must outlive it.
struct SystemServices
{
    IAddonHost& addonHost;
    IActionbar& actionBar;
    ISensorState& sensorState;
    IStatusInfo& statusInfo;
    IMSWParameterSource& mswParameterSource;
    MeasurementTransfer& measurementTransfer;
    IRangeSwitch& rangeSwitch;
    ILifecycleObserver& lifecycleObserver;
    IWeighingParameterService& weighingParameterService;
    IPluginController& pluginController;
    IRegisterValueProvider& registerValueProvider;
    IProtocolMenuFactory& protocolMenuFactory;
    IPluginHost& pluginHost;
    ICalibrationService& calibrationService;
    IWfM& workflowManager;
    IPrintIndicator& printIndicator;
    IMeasurementObserver& measurementObserver;
    ISystemRegister& systemRegister;
    IWeighing& weighing;
    IApprovedMode& approvedMode;
    IProtocolPool& protocolPool;
    const StoredParameters& storedParameters;
    const Scale& scale;
    const Units& units;
    MenuStore& menuStore;
};

/// The host's services, as plug-ins get them.
class System : public QObject, public ISystem
{
    Q_OBJECT
    Q_DISABLE_COPY(System)

public:
    System(HostCallLog& calls, Notices& notices, const SystemServices& services, QObject* parent = nullptr);

    // IUniversalMenuList
    /// Whether there is such a menu file and it is without fault; see MenuStore for the paths.
    bool HasMenuFile(QString menuFilePath) override;
    bool GetMenuItemList(QString menuFilePath, QList<MenuItem>* items) override;
    bool GetMenuItemById(QString menuFilePath, int id, MenuItem* item) override;

    // ISystem
    QString GetStoredParameter(QString menuFilePath, QString owner, QString profile, QString defaultValue,
                               int index) override;
    IAddonHost* GetAddonHost() override;
    IActionbar* GetActionbar() override;
    ISensorState* GetSensorState() override;
    IStatusInfo* GetStatusInfo() override;
    ITransferTarget* GetTransferTarget1() override;
    ITransferTarget* GetTransferTarget2() override;
    IMSWParameterSource* GetMSWParameterSource() override;
    IMeasurementTransfer* GetMeasurementTransfer() override;
    IRangeSwitch* GetRangeSwitch() override;
    ILifecycleObserver* GetLifecycleObserver() override;
    IWeighingParameterService* GetWeighingParameterService() override;
    IPluginController* GetPluginController() override;
    IRegisterValueProvider* GetRegisterValueProvider() override;
    IProtocolMenuFactory* GetProtocolMenuFactory() override;
    IPluginHost* GetPluginHost() override;
    ITransferTarget* GetTransferTarget4() override;
    ITransferTarget* GetTransferTarget5() override;
    /// "text", unless a ProtocolFormatScope says otherwise.
    QString GetProtocolFormatName() override;
    int GetCurrentUnit() override;
    ICalibrationService* GetCalibrationService() override;
    void SetHostPrintTransferEnabled(bool enabled) override;
    bool IsHostPrintTransferEnabled() override;
    IWfM* GetWorkflowManager() override;
    ITransferTarget* GetTransferTarget3() override;
    void RegisterInfosectionProvider() override;
    void UnRegisterInfosectionProvider() override;
    IPrintIndicator* GetPrintIndicator() override;
    IMeasurementObserver* GetMeasurementObserver() override;
    ISystemRegister* GetSystemRegister() override;
    IWeighing* GetWeighing() override;
    IApprovedMode* GetApprovedMode() override;
    IProtocolPool* GetProtocolPool() override;
    int GetDecimals() override;

    /// Whether the active plug-in provides the info section.
    bool isInfosectionProvided() const { return m_infosectionProvided; }
    /// The plug-in has gone without withdrawing itself.
    void resetInfosectionProvider() { m_infosectionProvided = false; }

    /// Announces to the plug-ins whether the balance is level.
    void announceLevel(bool levelled) { emit NotifyNewLevellingValue(levelled); }

signals:
    void NotifyNewLevellingValue(bool levelOk);

private:
    friend class ProtocolFormatScope;

    HostCallLog& m_calls;
    Notices& m_notices;
    const SystemServices m_services;
    QString m_protocolFormatName = QStringLiteral("text");
    bool m_infosectionProvided = false;
};

/// While it lives, print items are laid out for another output format: "sics" makes a current-measurement item print
/// a SICS weight answer. Scopes may be nested.
class ProtocolFormatScope
{
    Q_DISABLE_COPY(ProtocolFormatScope)

public:
    /// @param system not owned, must outlive the scope.
    ProtocolFormatScope(System& system, const QString& formatName)
        : m_system(system)
        , m_outerFormatName(system.m_protocolFormatName)
    {
        m_system.m_protocolFormatName = formatName;
    }
    ~ProtocolFormatScope() { m_system.m_protocolFormatName = m_outerFormatName; }

private:
    System& m_system;
    const QString m_outerFormatName;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SYSTEM_H
