// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGHOST_H
#define BRIMVALE_TESTKIT_RECORDINGHOST_H

#include "IPlugin.h"
#include "TestKit/ArgumentText.h"
#include "TestKit/CompareCalls.h"
#include "TestKit/RecordingCalibrationService.h"
#include "TestKit/RecordingSensorState.h"
#include "TestKit/RecordingSystem.h"
#include "TestKit/RecordingViewManager.h"
#include "TestKit/RecordingWeighing.h"
#include "TestKit/RecordingWorkflowManager.h"
#include "TestKit/Text.h"

#include <QList>
#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QStringList>

#include <any>
#include <functional>
#include <memory>
#include <type_traits>

namespace Brimvale
{

class IAction;
class IApprovedMode;
class IFormat;
class IInfobox;
class IInfosectionItemProvider;
class IMenuList;
class IPluginManager;
class IPrintableItem;
class IPrinter;
class IStepFunction;
class ISystemRegister;
class ITrigger;
class IView;
class IWeighingParameters;
class MesswertData;

namespace TestKit
{

/// A host for tests: it implements every interface that a host hands to a plug-in, records every call with its
/// arguments as one list of texts, and gives scripted answers.
///
///     RecordingHost host;
///     WeighingPlugin plugin;
///     QVERIFY(host.init(plugin));
///     QVERIFY(host.start(plugin));
///     host.clearCalls();
///     QVERIFY(host.pressPrint(plugin));
///     …
///     BRIMVALE_COMPARE_CALLS(host, "ISystem::GetCurrentUnit()", …);
///     QVERIFY(host.close(plugin));
///
/// **Calls** are written as `Interface::Operation(arguments)`, see ArgumentText.h for the arguments. Where an
/// interface has several objects their label follows its name: `ITransferTarget#1::IsActive()` to
/// `ITransferTarget#5::IsActive()`, and `IMenuList#protocol::…` for the menu made by the protocol menu factory
/// (`IMenuList::…` is the menu handed to `InitPlugin()`).
///
/// **Answers** are given for an operation, `"ISystemRegister::GetRegisterValue"`, or for one call of it,
/// `"ISystemRegister::GetRegisterValue(74)"`. Without label they hold for all objects of the interface. What is
/// not scripted is answered by false, 0, the empty text, the empty record, null, except that
/// - getters of host objects answer with the object of this host,
/// - `ISystem::GetStoredParameter()` answers with the default it is given,
/// - `IPluginController::GetActivePlugin()` answers with the plug-in that was initialised or started last, and
///   `IPluginManager::GetPlugins()` with those that were initialised and still exist.
///
/// A misspelt operation, a wrong number of arguments and an answer of a wrong type are refused by
/// std::invalid_argument, so that no script is silently without effect.
///
/// Declare the host before the plug-in: a plug-in must be destroyed before its host. A test needs an event loop
/// (`QTEST_GUILESS_MAIN` or any other that makes an application object). Everything runs on one thread.
class RecordingHost
{
    Q_DISABLE_COPY(RecordingHost)

public:
    RecordingHost();
    ~RecordingHost();

    /// \name What InitPlugin() takes
    /// @{
    RecordingSystem* system() const;
    IView* view() const;
    IMenuList* menuList() const;
    IWeighingParameters* weighingParameters() const;
    IInfobox* infobox() const;
    /// @}

    /// \name Host objects that tests need without recording the call that fetches them
    /// @{
    RecordingCalibrationService* calibrationService() const;
    RecordingSensorState* sensorState() const;
    RecordingWeighing* weighing() const;
    RecordingWorkflowManager* workflowManager() const;
    ISystemRegister* systemRegister() const;
    IApprovedMode* approvedMode() const;
    IPrinter* printer() const;
    IFormat* formatter() const;
    /// What the protocol menu factory answered last, or will answer; the plug-in that asked for it owns it.
    IMenuList* protocolMenu() const;
    IPluginManager* pluginManager() const;
    IInfosectionItemProvider* infosectionItem() const;
    /// @}

    /// A new view manager, for `CreateViewManager()` of a plug-in under test, which owns it.
    RecordingViewManager* createViewManager() const;

    /// \name The list of calls
    /// @{

    /// Everything recorded since the list was last cleared.
    QStringList calls() const;

    /// Everything recorded since the list was last cleared; the list starts anew.
    QStringList takeCalls();

    void clearCalls();

    /// The recorded calls of an interface ("IActionbar") or of the operations that match a pattern
    /// ("ISystem::Get*"), in their order. Throws std::invalid_argument when nothing can match.
    QStringList callsTo(const Text& pattern) const;

    /// How often an operation was called since the host was made, ignored and cleared calls included.
    int callCount(const Text& operation) const;

    /// Leaves calls that match the pattern (as callsTo()) out of the list from now on. They are still answered
    /// and counted. Throws std::invalid_argument when nothing can match.
    void ignore(const Text& pattern);

    /// Records everything again.
    void recordAll();

    /// Adds a line of the test's own, for example from a hook of the plug-in.
    void note(const Text& text);

    /// Adds a line `signal Class::name(arguments)` whenever the signal is emitted (`signal objectName::…` when the
    /// sender has a name). The signal is given as `"name(types)"`, `SIGNAL(name(types))` or `&Class::name`.
    template <typename Signal>
    void recordSignal(const QObject* sender, const Signal& signal)
    {
        if constexpr (std::is_member_function_pointer_v<Signal>)
            recordSignalMethod(sender, QMetaMethod::fromSignal(signal));
        else
            recordSignalText(sender, signal);
    }
    /// @}

    /// \name Answers
    /// @{

    /// Answers an operation, or one call of it, with `value` from now on. The value is a bool, an integer, a
    /// double, a text (literal or `QString`), a `QVariant` with one of these, `MesswertData`, `FormattedValue`
    /// (for what `IFormat::ConvertValue()` fills in), or null for an operation that returns a pointer. A pointer
    /// is given with the type of its interface: `answer<IWfM*>("ISystem::GetWorkflowManager", &manager)`.
    template <typename Value>
    void answer(const Text& key, Value value)
    {
        setAnswer(key, toAnswer(value));
    }

    /// Answers the next call, or the next one after those already queued. Queued answers precede the lasting one.
    template <typename Value>
    void answerOnce(const Text& key, Value value)
    {
        queueAnswer(key, toAnswer(value));
    }

    /// Runs `hook` whenever the operation, or one call of it, is called: after it was recorded, before it is
    /// answered. An empty function takes the hook back.
    void onCall(const Text& key, const std::function<void()>& hook);

    /// The names of all operations that are recorded, and can be scripted if they return something, sorted.
    static QStringList operations();

    /// What was scripted and never asked for, sorted. A test that ends on an empty list has no misspelt call among
    /// its answers.
    QStringList unusedAnswers() const;
    /// @}

    /// \name The scale and its environment
    /// @{

    /// Sets the value of a system register, in digits of the gram reading.
    void setRegister(int registerNumber, double digits);

    /// Sets a register as a measured value, for every unit. Scripted answers to
    /// `IRegisterValueProvider::GetMesswert` precede it.
    void setRegister(int registerNumber, const MesswertData& value);

    /// Sets register 74 and signals a new measured value.
    void emitNewMeasurement(double netDigits);

    /// Sets register 74 and signals a new stable value.
    void emitLoadChanged(int stableCounter, double netDigits);

    /// Levels the balance or takes it out of level, and signals that: first the sensor state, then the system.
    void setLevelled(bool levelled);

    /// Sets the calibration warning and signals that; an empty text takes it back.
    void setCalibrationWarning(const Text& text);

    /// Sets which of the transfer targets 1 to 5 are active; all others are not.
    void setActiveTargets(const QList<int>& targets);
    /// @}

    /// \name Driving a plug-in
    /// @{

    /// Makes the plug-in the active one and calls its InitPlugin(). Returns its answer.
    bool init(IPlugin& plugin);

    /// Makes the plug-in the active one and calls its StartPlugin(). Returns its answer.
    bool start(IPlugin& plugin);

    /// Calls ClosePlugin() and waits for the notification that follows it. Returns the answer of the plug-in, or
    /// false when the notification does not come.
    bool close(IPlugin& plugin, int timeoutMs = 5000);

    /// Waits until every plug-in that announced its end (`ILifecycleObserver::NotifyPluginClosing()`) has reported
    /// it (`ISequencer::PluginClosed()`), with the event loop running. Returns false when that does not happen.
    bool waitForClosed(int timeoutMs = 5000);

    /// Makes a plug-in the active one; null for none.
    void setActivePlugin(IPlugin* plugin);

    /// Presses the print button: calls the plug-in's slot onDoPrint(). Returns false when it has none.
    bool pressPrint(IPlugin& plugin);

    /// Presses the button of an action that was added to the action bar. Returns false when there is none with
    /// that id or it is not enabled.
    bool pressAction(const Text& uid);
    /// @}

    /// \name What plug-ins have handed over and not taken back
    /// Objects that have been destroyed since are left out.
    /// @{
    QList<IAction*> actions() const;
    QList<IPrintableItem*> printItems() const;
    QList<ITrigger*> triggers() const;
    QList<IStepFunction*> stepFunctions() const;
    QList<QObject*> infoItems() const;

    /// The object last published to the screen under that name; null when there is none.
    QObject* contextObject(const Text& name) const;

    /// The path of the screen loaded last.
    QString loadedScreen() const;
    /// @}

private:
    friend class LogCapture;
    class Objects;

    template <typename Value>
    static std::any toAnswer(const Value& value)
    {
        constexpr bool isKept =
            std::is_same_v<Value,
                           bool> || std::is_same_v<Value, std::nullptr_t> || std::is_same_v<Value, QVariant>;
        if constexpr (!isKept && (std::is_integral_v<Value> || std::is_enum_v<Value>))
            return static_cast<int>(value);
        else if constexpr (std::is_floating_point_v<Value>)
            return static_cast<double>(value);
        else if constexpr (!isKept && std::is_convertible_v<Value, Text>)
            return Text(value).toString();
        else
            return value;
    }

    void setAnswer(const QString& key, const std::any& answer);
    void queueAnswer(const QString& key, const std::any& answer);
    void recordSignalText(const QObject* sender, const Text& signal);
    void recordSignalMethod(const QObject* sender, const QMetaMethod& signal);
    std::function<void(const QString&)> noteFunction() const;

    std::unique_ptr<Objects> m_objects;
};

} // namespace TestKit
} // namespace Brimvale

#endif
