// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWRUNNER_H
#define BRIMVALE_WORKFLOWRUNNER_H

#include "Progressbar.h"
#include "TriggerType.h"
#include "clock/Clock.h"
#include "host/ActionBar.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>
#include <optional>

namespace Brimvale
{

class IStepFunction;
class IWorkflowScreen;
class IWorkflowStep;

namespace Terminal
{

class Notices;
class Scale;

/// What the screen shows of a running workflow at one moment.
struct WorkflowView
{
    /// How a workflow screen is shown: its `screenType()`. A number that is not listed shows as Full.
    enum ScreenType
    {
        Full = 0, ///< In place of the plug-in's screen.
        Band = 1  ///< In a band above it: the first line, the progress and what is waited for.
    };

    bool running = false;
    int screenType = Full;
    QString title;     ///< Display name of the step's function; empty for a step without one.
    QStringList lines; ///< Three lines of information.
    QString image;     ///< As the screen names it.
    bool auxiliaryOn = false;
    QPointer<QObject>
        result1; ///< The result fields of the screen, objects with the properties of InfoValueUnit.
    QPointer<QObject> result2;
    QString waiting; ///< What the workflow waits for; empty when that is the user.
    QString fault;   ///< Why the step cannot go on by itself; empty when all is well.

    bool operator==(const WorkflowView& other) const;
    bool operator!=(const WorkflowView& other) const { return !(*this == other); }
};

/// Runs the steps of a workflow, one after the other.
///
/// A step goes through these states:
///
///     enabled? --no--> next step          (step and function are asked)
///        | yes
///     Before    shows the screen before the function and waits for the trigger before it
///        |
///     Running   the step function works; a process ends later, and has a time-out
///        |
///     After     shows the result on the screen after the function and waits for the trigger after it
///        |
///     next step
///
/// The user goes back to the step before, repeats the function or aborts, where the step's button flags allow it. A
/// function is reset before it runs a second time, when its step is left backwards, and at an abort; then those that
/// have run are reset in the reverse order of their first run.
///
/// Steps, screens and functions belong to the plug-in and are used through their interfaces only. What plug-in code
/// throws ends the workflow with a notice, and so does a step or a function that is gone. A worker may abort the
/// workflow or start it anew after it has ended; an abort out of a worker takes effect when the worker returns.
///
/// What the settings of a step say to the runner: a number is the time of the trigger `TriggerType::Timer` in
/// milliseconds. A map may have "timerMs" for that, "timeoutMs" for the time-out of a process (default 60 000, 0 for
/// none) and "loadChange", the change in grams that counts for `TriggerType::LoadChange` (default ten display
/// increments). The function gets the parameter of the step as its first and the settings as its second argument.
class WorkflowRunner : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowRunner)

public:
    static constexpr qint64 DefaultTimeoutMs = 60000;
    static constexpr qint64 MaximumTimeMs = Q_INT64_C(24) * 60 * 60 * 1000;
    /// In display increments.
    static constexpr double DefaultLoadChange = 10.0;

    // Keys of the workflow, as uids.
    static QString backKey() { return QStringLiteral("workflow.back"); }
    static QString repeatKey() { return QStringLiteral("workflow.repeat"); }
    static QString continueKey() { return QStringLiteral("workflow.continue"); }
    static QString abortKey() { return QStringLiteral("workflow.abort"); }

    enum class State
    {
        Idle,
        Before,
        Running,
        After
    };

    /// @param functions what step functions are offered now. Clock, scale and notices must outlive the runner.
    WorkflowRunner(std::function<QList<IStepFunction*>()> functions, Clock& clock, Scale& scale,
                   Notices& notices, QObject* parent = nullptr);
    ~WorkflowRunner() override;

    /// Starts a workflow. On failure nothing starts, and @p error says why: one runs already, there are no steps, one
    /// is null, names a function that is not offered, or has a timer without a time.
    bool start(const QList<IWorkflowStep*>& steps, QString* error);

    /// Abandons the workflow and resets the functions that have run; nothing happens when none runs.
    void abort();

    /// The function is withdrawn: a workflow that is at it is abandoned.
    void onFunctionRemoved(IStepFunction* function);

    State state() const { return m_state; }
    bool isRunning() const { return m_state != State::Idle; }
    /// The process of the step has not finished in time.
    bool isTimedOut() const { return m_timedOut; }
    /// The place of the step in the list of steps, from 0; -1 while idle.
    int stepIndex() const { return m_index; }

    /// What is shown now. Refreshed whenever something happens, and by refresh().
    const WorkflowView& view() const { return m_view; }
    /// The keys of the workflow from left to right; empty while idle.
    const QVector<ActionState>& keys() const { return m_keys; }
    /// A mark for every step, done when it was left forwards.
    Progressbar& progress() { return m_progress; }
    /// Whether the step lets its result be printed now. True while idle.
    bool isPrintAllowed() const;
    /// The uid of the action that the step offers; empty for none.
    QString actionUid() const { return m_actionUid; }

    /// Presses a key of keys(). Returns false when there is none of that uid or it is disabled.
    bool press(const QString& uid);

public slots:
    /// Reads the texts of the screen again; they belong to the plug-in and may have changed.
    void refresh();
    /// The scale has reached a stable value.
    void onStableValue();
    /// The scale has a new reading.
    void onMeasurement();

signals:
    /// view(), keys() or isPrintAllowed() have changed.
    void changed();
    /// The step with that stepId() was entered.
    void stepEntered(int stepId);
    /// The workflow has ended: @p completed after its last step, otherwise it was abandoned.
    void finished(bool completed);

private slots:
    void onWorkDone(const QVariant& result);

private:
    /// An object of the plug-in; when it is a QObject its end is noticed.
    template <typename Interface>
    struct Ref
    {
        Interface* pointer = nullptr;
        QPointer<QObject> object;
        bool guarded = false;

        Ref() = default;
        explicit Ref(Interface* interface);
        bool isNull() const { return pointer == nullptr; }
        bool isAlive() const { return pointer != nullptr && (!guarded || object); }
    };

    struct StepSettings
    {
        std::optional<qint64> timerMs;
        qint64 timeoutMs = DefaultTimeoutMs;
        std::optional<double> loadChangeGrams;
    };

    enum class Transition
    {
        None,
        Enter,     ///< m_nextIndex or the first enabled step after it
        GoBack,    ///< to the last step left
        Run,       ///< the function of the step
        ShowAfter, ///< the result is there
        Leave,     ///< the step is done
        Complete,
        Abandon
    };

    static StepSettings settingsOf(const QVariant& settings);
    static QString refusalOf(IWorkflowStep* step, int number, const QList<IStepFunction*>& functions);

    void proceed(Transition transition);
    void carryOut(Transition transition);
    void enter();
    void begin();
    void goBack();
    void runFunction();
    void showAfter();
    void leave();
    void end(bool completed);
    void resetFunctions();
    void resetFunction(const Ref<IStepFunction>& function);
    void forgetStep();

    bool guarded(const std::function<void()>& code);
    void abandon(const QString& why);
    bool isStepAlive() const;
    void abandonStep();
    IStepFunction* findFunction(const QString& uid) const;
    void showScreen(const Ref<IWorkflowScreen>& screen);
    void waitFor(TriggerType trigger);
    void fireTrigger();
    void cancelTimers();
    void onTimeout();
    void updateView();
    void updateKeys();
    bool isFaulty() const { return m_timedOut || m_didNotRun; }
    QString faultText() const;
    QString waitingText() const;

    const std::function<QList<IStepFunction*>()> m_functions;
    Clock& m_clock;
    Scale& m_scale;
    Notices& m_notices;

    QVector<Ref<IWorkflowStep>> m_steps;
    QVector<int> m_history; ///< The steps left forwards.
    QVector<Ref<IStepFunction>> m_started;
    State m_state = State::Idle;
    Transition m_pending = Transition::None;
    bool m_processing = false;
    bool m_completed = false;
    bool m_ended = false;

    // The step at work.
    int m_index = -1;
    int m_nextIndex = 0;
    Ref<IStepFunction> m_function;
    QMetaObject::Connection m_workDone;
    QString m_functionName;
    Ref<IWorkflowScreen> m_screen;
    StepSettings m_settings;
    QString m_actionUid;
    QVariant m_result;
    TriggerType m_trigger = TriggerType::None;
    std::optional<double> m_referenceGrams;
    Clock::TimerId m_triggerTimer = 0;
    Clock::TimerId m_timeoutTimer = 0;
    bool m_timedOut = false;
    bool m_didNotRun = false; ///< The function has no worker.

    WorkflowView m_view;
    QVector<ActionState> m_keys;
    bool m_printAllowed = true;
    QList<QObject*> m_progressItems;
    Progressbar m_progress;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WORKFLOWRUNNER_H
