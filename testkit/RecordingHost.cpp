// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingHost.h"

#include "CallRecorder.h"
#include "Operation.h"
#include "RecordingServices.h"
#include "TestKit/SignalRecorder.h"

#include <QMetaObject>
#include <QtTest>

#include <algorithm>

namespace Brimvale::TestKit
{

class RecordingHost::Objects
{
public:
    Objects()
        : recorder(std::make_shared<CallRecorder>())
        , services(recorder)
        , system(recorder, services)
        , view(*recorder)
        , menuList(*recorder, "IMenuList")
        , weighingParameters(*recorder)
        , infobox(*recorder)
        , printer(*recorder)
        , formatter(*recorder)
        , pluginManager(*recorder)
        , infosectionItem(*recorder)
    {
        emittedSignals.setSink([this](const QString& sender, const QString& signal) {
            recorder->note(QStringLiteral("signal %1::%2").arg(sender, signal));
        });
    }

    const std::shared_ptr<CallRecorder> recorder;
    RecordingServices services;
    RecordingSystem system;
    RecordingView view;
    RecordingMenuList menuList;
    RecordingWeighingParameters weighingParameters;
    RecordingInfobox infobox;
    RecordingPrinter printer;
    RecordingFormat formatter;
    RecordingPluginManager pluginManager;
    RecordingInfosectionItem infosectionItem;
    SignalRecorder emittedSignals;
};

RecordingHost::RecordingHost()
    : m_objects(std::make_unique<Objects>())
{
}

RecordingHost::~RecordingHost() = default;

RecordingSystem* RecordingHost::system() const
{
    return &m_objects->system;
}

IView* RecordingHost::view() const
{
    return &m_objects->view;
}

IMenuList* RecordingHost::menuList() const
{
    return &m_objects->menuList;
}

IWeighingParameters* RecordingHost::weighingParameters() const
{
    return &m_objects->weighingParameters;
}

IInfobox* RecordingHost::infobox() const
{
    return &m_objects->infobox;
}

RecordingCalibrationService* RecordingHost::calibrationService() const
{
    return &m_objects->services.calibrationService;
}

RecordingSensorState* RecordingHost::sensorState() const
{
    return &m_objects->services.sensorState;
}

RecordingWeighing* RecordingHost::weighing() const
{
    return &m_objects->services.weighing;
}

RecordingWorkflowManager* RecordingHost::workflowManager() const
{
    return &m_objects->services.workflowManager;
}

ISystemRegister* RecordingHost::systemRegister() const
{
    return &m_objects->services.systemRegister;
}

IApprovedMode* RecordingHost::approvedMode() const
{
    return &m_objects->services.approvedMode;
}

IPrinter* RecordingHost::printer() const
{
    return &m_objects->printer;
}

IFormat* RecordingHost::formatter() const
{
    return &m_objects->formatter;
}

IMenuList* RecordingHost::protocolMenu() const
{
    return m_objects->services.protocolMenuFactory.newest();
}

IPluginManager* RecordingHost::pluginManager() const
{
    return &m_objects->pluginManager;
}

IInfosectionItemProvider* RecordingHost::infosectionItem() const
{
    return &m_objects->infosectionItem;
}

RecordingViewManager* RecordingHost::createViewManager() const
{
    return new RecordingViewManager(m_objects->recorder);
}

QStringList RecordingHost::calls() const
{
    return m_objects->recorder->calls();
}

QStringList RecordingHost::takeCalls()
{
    QStringList taken = calls();
    clearCalls();
    return taken;
}

void RecordingHost::clearCalls()
{
    m_objects->recorder->clearCalls();
}

QStringList RecordingHost::callsTo(const Text& pattern) const
{
    return m_objects->recorder->callsTo(pattern);
}

int RecordingHost::callCount(const Text& operation) const
{
    return m_objects->recorder->callCount(operation);
}

void RecordingHost::ignore(const Text& pattern)
{
    m_objects->recorder->ignore(pattern);
}

void RecordingHost::recordAll()
{
    m_objects->recorder->recordAll();
}

void RecordingHost::note(const Text& text)
{
    m_objects->recorder->note(text);
}

void RecordingHost::onCall(const Text& key, const std::function<void()>& hook)
{
    m_objects->recorder->setHook(key, hook);
}

QStringList RecordingHost::operations()
{
    return TestKit::operations().keys();
}

QStringList RecordingHost::unusedAnswers() const
{
    return m_objects->recorder->unusedAnswers();
}

void RecordingHost::setRegister(int registerNumber, double digits)
{
    answer(QStringLiteral("ISystemRegister::GetRegisterValue(%1)").arg(registerNumber), digits);
}

void RecordingHost::setRegister(int registerNumber, const MesswertData& value)
{
    m_objects->services.registerValueProvider.registers.insert(registerNumber, value);
}

void RecordingHost::emitNewMeasurement(double netDigits)
{
    setRegister(ISystemRegister::CurrentRegister, netDigits);
    Q_EMIT weighing()->NotifyNewMeasurementValue();
}

void RecordingHost::emitLoadChanged(int stableCounter, double netDigits)
{
    setRegister(ISystemRegister::CurrentRegister, netDigits);
    Q_EMIT weighing()->NotifyLoadChanged(stableCounter, netDigits);
}

void RecordingHost::setLevelled(bool levelled)
{
    answer("ISensorState::IsLevellingNotAdjusted", !levelled);
    Q_EMIT sensorState()->notifyLevellingNotAdjustedChanged();
    Q_EMIT system()->NotifyNewLevellingValue(levelled);
}

void RecordingHost::setCalibrationWarning(const Text& text)
{
    answer("ICalibrationService::GetCalibrationWarningText", text);
    Q_EMIT calibrationService()->notifyCalibrationWarningChanged();
}

void RecordingHost::setActiveTargets(const QList<int>& targets)
{
    for (int target = 1; target <= 5; ++target)
        answer(QStringLiteral("ITransferTarget#%1::IsActive").arg(target), targets.contains(target));
}

bool RecordingHost::init(IPlugin& plugin)
{
    setActivePlugin(&plugin);
    m_objects->pluginManager.plugins.remove(&plugin);
    m_objects->pluginManager.plugins.add(&plugin);
    return plugin.InitPlugin(system(), view(), menuList(), weighingParameters(), infobox());
}

bool RecordingHost::start(IPlugin& plugin)
{
    setActivePlugin(&plugin);
    return plugin.StartPlugin();
}

bool RecordingHost::close(IPlugin& plugin, int timeoutMs)
{
    const bool isClosed = plugin.ClosePlugin();
    return waitForClosed(timeoutMs) && isClosed;
}

bool RecordingHost::waitForClosed(int timeoutMs)
{
    return QTest::qWaitFor(
        [this] {
            return callCount("ISequencer::PluginClosed")
                   >= callCount("ILifecycleObserver::NotifyPluginClosing");
        },
        timeoutMs);
}

void RecordingHost::setActivePlugin(IPlugin* plugin)
{
    m_objects->services.pluginController.activePlugin = plugin;
}

bool RecordingHost::pressPrint(IPlugin& plugin)
{
    QObject* const object = plugin.GetSelfRefAsQObject();
    if (object->metaObject()->indexOfSlot("onDoPrint()") < 0)
        return false;
    return QMetaObject::invokeMethod(object, "onDoPrint", Qt::DirectConnection);
}

bool RecordingHost::pressAction(const Text& uid)
{
    const QList<IAction*> all = actions();
    const auto pressed = std::find_if(all.begin(), all.end(), [&uid](const IAction* action) {
        return action->uid() == uid.toString() && action->enabled();
    });
    if (pressed == all.end())
        return false;
    (*pressed)->doAction();
    return true;
}

QList<IAction*> RecordingHost::actions() const
{
    return m_objects->services.actionbar.actions.objects();
}

QList<IPrintableItem*> RecordingHost::printItems() const
{
    return m_objects->services.protocolPool.items.objects();
}

QList<ITrigger*> RecordingHost::triggers() const
{
    return m_objects->services.protocolPool.triggers.objects();
}

QList<IStepFunction*> RecordingHost::stepFunctions() const
{
    return workflowManager()->stepFunctions();
}

QList<QObject*> RecordingHost::infoItems() const
{
    QList<QObject*> items;
    for (const QPointer<QObject>& item : qAsConst(m_objects->infobox.items)) {
        if (item)
            items.append(item);
    }
    return items;
}

QObject* RecordingHost::contextObject(const Text& name) const
{
    return m_objects->view.contextObjects.value(name);
}

QString RecordingHost::loadedScreen() const
{
    return m_objects->view.screenLoader.screen;
}

void RecordingHost::setAnswer(const QString& key, const std::any& answer)
{
    m_objects->recorder->setAnswer(key, answer);
}

void RecordingHost::queueAnswer(const QString& key, const std::any& answer)
{
    m_objects->recorder->queueAnswer(key, answer);
}

void RecordingHost::recordSignalText(const QObject* sender, const Text& signal)
{
    m_objects->emittedSignals.record(sender, signal);
}

void RecordingHost::recordSignalMethod(const QObject* sender, const QMetaMethod& signal)
{
    m_objects->emittedSignals.record(sender, signal);
}

std::function<void(const QString&)> RecordingHost::noteFunction() const
{
    return [recorder = m_objects->recorder](const QString& text) { recorder->note(text); };
}

} // namespace Brimvale::TestKit
