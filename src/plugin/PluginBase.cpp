// SPDX-License-Identifier: BSD-3-Clause
#include "PluginBase.h"

#include "IActionbar.h"
#include "IAddonHost.h"
#include "IAddonState.h"
#include "ICalibrationService.h"
#include "ILifecycleObserver.h"
#include "IMSWParameterSource.h"
#include "IMeasurementObserver.h"
#include "IMeasurementTransfer.h"
#include "IPluginController.h"
#include "IPluginHost.h"
#include "IPluginViewManager.h"
#include "IPrintIndicator.h"
#include "IProtocolMenuFactory.h"
#include "IRegisterValueProvider.h"
#include "IScreenLoader.h"
#include "ISensorState.h"
#include "ISequencer.h"
#include "IStatusInfo.h"
#include "ISystem.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "IView.h"
#include "IWfM.h"
#include "MesswertInfo.h"
#include "SettingsProfile.h"
#include "WarnInfo.h"
#include "core/Logging.h"

#include <QPointer>
#include <QTimer>
#include <QTranslator>

namespace Brimvale
{

namespace
{

/// Time from `ClosePlugin()` to the notification of the host, which first lets pending events run out.
constexpr int CloseNotificationDelayMs = 50;

// Where one statement of the life cycle makes several host calls, the receiver is fetched first and the arguments
// follow from left to right. Local variables fix that order, which the compiler would be free to choose.

/// The QObject face of a host object, or null when it has none.
template <typename Interface>
QObject* qobjectFace(Interface* hostObject)
{
    return dynamic_cast<QObject*>(hostObject);
}

} // namespace

PluginId PluginBase::GetId()
{
    m_id.name = GetPluginName(true);
    return m_id;
}

bool PluginBase::InitPlugin(ISystem* system, IView* view, IMenuList* menuList,
                            IWeighingParameters* weighingParameters, IInfobox* infobox)
{
    qRegisterMetaType<MesswertInfo*>("MesswertInfo*");

    m_system = system;
    m_view = view;
    m_menuList = menuList;
    m_weighingParameters = weighingParameters;
    m_infobox = infobox;
    m_version = QString();

    if (!PreInitPlugin()) {
        return false;
    }

    m_settingsProfile = new SettingsProfile;
    m_pluginObject = nullptr;
    m_viewModel = nullptr;
    m_viewManager = nullptr;
    m_spare = nullptr;

    m_pluginMenu = CreatePluginMenu();

    m_started = false;
    m_printRequested = false;
    FillPluginId(m_id);
    m_protocolMenu = nullptr;

    if (m_id.hasProtocol) {
        IProtocolMenuFactory* const factory = m_system->GetProtocolMenuFactory();
        m_protocolMenu = factory->CreateProtocolMenu(m_id.protocolName, m_id.parentNumber, m_id.protocolFlag);
        InitPluginProtocolItems();
    }

    if (!PostInitPlugin()) {
        return false;
    }

    if (IWfM* const workflowManager = m_system->GetWorkflowManager()) {
        connect(this, SIGNAL(notifyPrintButtonEnableChange(bool)), qobjectFace(workflowManager),
                SLOT(onPrintButtonEnableChange(bool)));
    }
    return true;
}

bool PluginBase::StartPlugin()
{
    if (m_started) {
        return true;
    }

    RegisterInfosectionProvider();

    if (!PreStartPlugin()) {
        ClosePlugin();
        return false;
    }

    m_viewModel = CreateViewModel();
    const QString viewModelName = GetViewModelName();
    const QString screen = GetPluginScreen();
    // LoadView() has no reason to return false so far. GCOVR_EXCL_START
    if (!LoadView(m_viewModel, viewModelName, screen)) {
        ClosePlugin();
        return false;
    }
    // GCOVR_EXCL_STOP

    m_viewManager = CreateViewManager();
    InitActionbar();

    if (m_id.resetOnStart) {
        m_system->GetWorkflowManager()->Reset();
        for (int entry = 0; entry < 3; ++entry) {
            m_system->GetActionbar()->SetEntry(entry, 0);
        }
    }

    if (m_id.hasProtocol) {
        AddToPoolPluginProtocolItems();
    }

    setPrintTransferEnabled(true);
    m_system->GetMeasurementTransfer()->SetTransferFlag(m_id.transferFlag);

    if (!PostStartPlugin()) {
        ClosePlugin();
        return false;
    }

    if (m_id.usesCalibrationService) {
        InitCalibrationService();
    }
    if (m_id.usesLevellingService) {
        InitLevellingService();
    }

    QString startLine = m_system->GetStatusInfo()->GetLogPrefix();
    startLine += QLatin1String(",Start application,");
    startLine += GetPluginName(false);
    BRIMVALE_LOG_ALWAYS(startLine);

    m_started = true;
    m_system->GetPluginController()->SetControlMode(m_id.kind == QLatin1String("control"));

    if (m_id.hasAddons) {
        IAddonHost* const addonHost = m_system->GetAddonHost();
        addonHost->BeginAddons();
        const QString addonText = m_system->GetStatusInfo()->GetAddonText();
        addonHost->StartAddon(m_id.addonNumber, addonText);
        addonHost->EndAddons();
    }
    return true;
}

bool PluginBase::ClosePlugin()
{
    if (!m_started) {
        return true;
    }

    if (m_id.hasProtocol) {
        RemoveFromPoolPluginProtocolItems();
    }

    m_system->GetLifecycleObserver()->NotifyPluginClosing();
    m_system->GetPluginController()->PluginClosed(m_id.kind);
    BRIMVALE_LOG_TRACE("PluginBase::ClosePlugin," << m_id.identifier);
    m_started = false;

    if (m_id.usesCalibrationService) {
        DeInitCalibrationService();
    }
    if (m_id.usesLevellingService) {
        DeInitLevellingService();
    }

    PreClosePlugin();
    UnRegisterInfosectionProvider();

    bool enable = m_id.checkPrintOnClose;
    if (enable && !m_system->IsHostPrintTransferEnabled()) {
        m_system->SetHostPrintTransferEnabled(true);
        enable = m_system->GetTransferTarget1()->IsActive() || m_system->GetTransferTarget2()->IsActive()
                 || m_system->GetTransferTarget3()->IsActive() || m_system->GetTransferTarget4()->IsActive()
                 || m_system->GetTransferTarget5()->IsActive();
    }
    emit notifyPrintButtonEnableChange(enable);

    disconnect(qobjectFace(m_viewManager), nullptr, nullptr, nullptr);
    if (m_viewModel != nullptr) {
        disconnect(m_viewModel, nullptr, nullptr, nullptr);
    }
    if (m_pluginObject != nullptr) {
        disconnect(m_pluginObject, nullptr, nullptr, nullptr);
    }
    disconnect(this, nullptr, nullptr, nullptr);

    delete m_viewManager;
    delete m_viewModel;
    delete m_pluginObject;

    QTimer::singleShot(CloseNotificationDelayMs, this, SLOT(onNotifyClosePlugin()));
    return true;
}

bool PluginBase::SetupView()
{
    if (m_viewManager == nullptr) {
        return false;
    }
    m_viewManager->Setup(0);
    return true;
}

IMenuList* PluginBase::GetPluginMenu()
{
    return m_pluginMenu;
}

IMenuList* PluginBase::GetProtocolMenu()
{
    return m_protocolMenu;
}

bool PluginBase::PluginTranslator(QTranslator* translator, QString name)
{
    // Delimiters and suffix are empty and not null, which would have Qt look for files of shortened names too.
    const QString none = QLatin1String("");
    return translator->load(QStringLiteral(":/translations/") + name + QStringLiteral(".qm"), none, none,
                            none);
}

QObject* PluginBase::GetSelfRefAsQObject()
{
    return this;
}

bool PluginBase::PostStartAddons()
{
    if (m_id.hasAddons) {
        m_system->GetAddonHost()->EndAddons();
    }
    PostInitPluginAndAddons();
    if (m_system->GetPluginHost()->GetAddonState()->IsPending()) {
        m_system->GetPluginHost()->GetSequencer()->Continue();
    }
    return true;
}

void PluginBase::TranslateWarnInfo() { }

QString PluginBase::getPluginScreenPath()
{
    return GetPluginScreen();
}

void PluginBase::setVersion(QString version)
{
    m_version = version;
}

QString PluginBase::version() const
{
    return m_version;
}

bool PluginBase::IsAddonAccepted(int addonNumber)
{
    Q_UNUSED(addonNumber)
    return false;
}

QString PluginBase::GetPluginNameShort(bool translated)
{
    return GetPluginName(translated);
}

void PluginBase::InitializeProfile()
{
    m_settingsProfile->SetProfileAccess(this);
    m_settingsProfile->EnableApplySettings();
}

void PluginBase::SetProfileItem(int id, QVariant value, QString text)
{
    Q_UNUSED(text)
    m_settingsProfile->SetProfileItem(id, value);
}

bool PluginBase::PreInitPlugin()
{
    return true;
}

bool PluginBase::PostInitPlugin()
{
    return true;
}

bool PluginBase::PreStartPlugin()
{
    return true;
}

bool PluginBase::PostStartPlugin()
{
    return true;
}

bool PluginBase::PreClosePlugin()
{
    return true;
}

bool PluginBase::PostClosePlugin()
{
    return true;
}

bool PluginBase::PostInitPluginAndAddons()
{
    return true;
}

void PluginBase::InitPluginProtocolItems() { }

void PluginBase::AddToPoolPluginProtocolItems() { }

void PluginBase::RemoveFromPoolPluginProtocolItems() { }

void PluginBase::InitActionbar()
{
    IPlugin* const activePlugin = m_system->GetPluginController()->GetActivePlugin();
    const int addonNumber = activePlugin->GetId().addonNumber;
    const QString addonText = m_system->GetStatusInfo()->GetAddonText();
    IActionbar* const actionbar = m_system->GetActionbar();
    actionbar->SetEnabled(1);
    actionbar->LoadEntries(addonNumber, addonText);
    actionbar->Refresh();
    actionbar->ApplyEntries(addonNumber, addonText);
}

void PluginBase::InitCalibrationService()
{
    if (!findWarnInfoMethod()) {
        return;
    }
    onCalibrationServiceStateChanged();
    connect(qobjectFace(m_system->GetCalibrationService()), SIGNAL(notifyCalibrationWarningChanged()), this,
            SLOT(onCalibrationServiceStateChanged()));
}

void PluginBase::DeInitCalibrationService()
{
    m_warnInfoMethod = QMetaMethod();
    disconnect(qobjectFace(m_system->GetCalibrationService()), SIGNAL(notifyCalibrationWarningChanged()),
               this, SLOT(onCalibrationServiceStateChanged()));
}

void PluginBase::InitLevellingService()
{
    if (!findWarnInfoMethod()) {
        return;
    }
    connect(qobjectFace(m_system), SIGNAL(NotifyNewLevellingValue(bool)), this,
            SLOT(onLevellingServiceStateChanged(bool)));
    if (!m_system->GetSensorState()->IsLevellingNotAdjusted()) {
        return;
    }
    onLevellingServiceStateChanged(false);
    connect(qobjectFace(m_system->GetSensorState()), SIGNAL(notifyLevellingNotAdjustedChanged()), this,
            SLOT(onLevellingNotAdjustedChanged()));
}

void PluginBase::DeInitLevellingService()
{
    m_warnInfoMethod = QMetaMethod();
    disconnect(qobjectFace(m_system), SIGNAL(NotifyNewLevellingValue(bool)), this,
               SLOT(onLevellingServiceStateChanged(bool)));
    disconnect(qobjectFace(m_system->GetSensorState()), SIGNAL(notifyLevellingNotAdjustedChanged()), this,
               SLOT(onLevellingNotAdjustedChanged()));
}

void PluginBase::RegisterInfosectionProvider()
{
    if (m_id.parentNumber == 0) {
        m_system->RegisterInfosectionProvider();
    }
}

void PluginBase::UnRegisterInfosectionProvider()
{
    if (m_id.parentNumber == 0) {
        m_system->UnRegisterInfosectionProvider();
    }
}

bool PluginBase::LoadView(QObject* model, QString name, QString screen)
{
    m_view->SetContextObject(name, model);
    m_view->GetScreenLoader()->LoadScreen(screen);
    return true;
}

void PluginBase::setPrintTransferEnabled(bool enable)
{
    if (!enable) {
        m_system->SetHostPrintTransferEnabled(false);
        emit notifyPrintButtonEnableChange(false);
        return;
    }
    // All five are asked, also after an active one.
    bool anyActive = m_system->GetTransferTarget1()->IsActive();
    anyActive |= m_system->GetTransferTarget2()->IsActive();
    anyActive |= m_system->GetTransferTarget3()->IsActive();
    anyActive |= m_system->GetTransferTarget4()->IsActive();
    anyActive |= m_system->GetTransferTarget5()->IsActive();
    emit notifyPrintButtonEnableChange(anyActive);
}

void PluginBase::MeasurementDatatransfer(MesswertData current, MesswertData previous)
{
    IRegisterValueProvider* provider = m_system->GetRegisterValueProvider();
    int unit = m_system->GetCurrentUnit();
    const MesswertData tare = provider->GetMesswert(unit, ISystemRegister::TareRegister);
    provider = m_system->GetRegisterValueProvider();
    unit = m_system->GetCurrentUnit();
    const MesswertData gross = provider->GetMesswert(unit, ISystemRegister::GrossRegister);
    m_system->GetMeasurementTransfer()->TransferMeasurement(current, gross, tare);

    if (m_printRequested) {
        m_printRequested = false;
        if (isPrintPressReported()) {
            m_system->GetPluginHost()->GetSequencer()->SetPrintPending(true);
            m_system->GetPluginHost()->GetSequencer()->NotifyHostEvent(QStringLiteral("printPressed"));
            m_system->GetPrintIndicator()->SetPrintPressed(true);
        }
    }

    m_system->GetPluginHost()->GetSequencer()->NotifyMeasurementTransferred();
    m_system->GetMeasurementObserver()->OnMeasurementTransferred(current, previous);
    IMeasurementObserver* const observer = m_system->GetMeasurementObserver();
    const double register72 = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::GrossRegister);
    const double register73 = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::TareRegister);
    observer->OnSystemRegistersRead(register72, register73);
}

void PluginBase::onCalibrationServiceStateChanged()
{
    WarnInfo* const warnings = warnInfo();
    if (warnings == nullptr) {
        return;
    }
    const QString text = m_system->GetCalibrationService()->GetCalibrationWarningText();
    warnings->setCalibrationRequiredText(text);
    warnings->setCalibrationRequiredVisible(!text.isEmpty());
}

void PluginBase::onLevellingServiceStateChanged(bool levelOk)
{
    if (WarnInfo* const warnings = warnInfo()) {
        warnings->setLevellingRequiredVisible(!levelOk);
    }
}

void PluginBase::onLevellingNotAdjustedChanged()
{
    onLevellingServiceStateChanged(!m_system->GetSensorState()->IsLevellingNotAdjusted());
}

void PluginBase::onNumericDialogClosed(int ptr, bool enterpressed, QString editstr)
{
    Q_UNUSED(ptr)
    Q_UNUSED(enterpressed)
    Q_UNUSED(editstr)
}

void PluginBase::onNotifyClosePlugin()
{
    // The host, or the plug-in itself, may delete the plug-in now that it has closed.
    const QPointer<PluginBase> self(this);
    ISystem* const system = m_system;
    system->GetPluginHost()->GetSequencer()->PluginClosed();
    if (self) {
        PostClosePlugin();
        system->GetPluginController()->SetControlMode(false);
    }
}

void PluginBase::onDoPrint()
{
    m_printRequested = true;
}

/// Looks for the view model's method `warnInfo()` and keeps it. Returns whether there is one.
bool PluginBase::findWarnInfoMethod()
{
    // A view model declares the return type as it stands in its own scope, with or without the namespace. Under both
    // names the pointer has one meta-type, by which the invocation accepts it.
    qRegisterMetaType<WarnInfo*>("WarnInfo*");
    if (m_viewModel == nullptr) {
        return false;
    }
    const QMetaObject* const metaObject = m_viewModel->metaObject();
    const int index = metaObject->indexOfMethod("warnInfo()");
    if (index < 0) {
        return false;
    }
    m_warnInfoMethod = metaObject->method(index);
    return true;
}

/// The view model's warning object, or null when there is none.
WarnInfo* PluginBase::warnInfo()
{
    WarnInfo* warnings = nullptr;
    if (m_warnInfoMethod.isValid()) {
        m_warnInfoMethod.invoke(m_viewModel, Qt::DirectConnection, Q_RETURN_ARG(WarnInfo*, warnings));
    }
    return warnings;
}

/// Whether a pressed print button is reported to the host: each query is asked only while the outcome is open.
bool PluginBase::isPrintPressReported()
{
    return !m_system->GetMSWParameterSource()->QueryFlagA()
           || !m_system->GetMSWParameterSource()->QueryFlagD()
           || m_system->GetMSWParameterSource()->QueryFlagB()
           || !m_system->GetMSWParameterSource()->QueryFlagC();
}

} // namespace Brimvale
