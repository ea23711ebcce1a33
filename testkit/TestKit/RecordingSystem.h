// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGSYSTEM_H
#define BRIMVALE_TESTKIT_RECORDINGSYSTEM_H

#include "ISystem.h"

#include <QObject>

#include <functional>
#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;
struct RecordingServices;

/// The system services of a recording host. Every operation is recorded; unless it is scripted, a getter
/// answers with the host's own object and `GetStoredParameter()` with the default that it was given.
class RecordingSystem : public QObject, public ISystem
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingSystem)

public:
    /// Made by RecordingHost.
    RecordingSystem(std::shared_ptr<CallRecorder> recorder, RecordingServices& services);
    ~RecordingSystem() override;

    /// Fills the list of `IUniversalMenuList::GetMenuItemList()` and gives its answer, when it is set. The item
    /// type is the host's, hence a function of the test.
    std::function<bool(const QString& menuFilePath, QList<MenuItem>* items)> menuItemList;

    /// Fills the item of `IUniversalMenuList::GetMenuItemById()` and gives its answer, when it is set.
    std::function<bool(const QString& menuFilePath, int id, MenuItem* item)> menuItemById;

    bool HasMenuFile(QString menuFilePath) override;
    bool GetMenuItemList(QString menuFilePath, QList<MenuItem>* items) override;
    bool GetMenuItemById(QString menuFilePath, int id, MenuItem* item) override;

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

Q_SIGNALS:
    /// The level of the balance was judged anew.
    void NotifyNewLevellingValue(bool levelOk);

private:
    std::shared_ptr<CallRecorder> m_recorder;
    RecordingServices& m_services;
};

} // namespace Brimvale::TestKit

#endif
