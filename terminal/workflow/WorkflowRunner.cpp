// SPDX-License-Identifier: BSD-3-Clause
#include "workflow/WorkflowRunner.h"

#include "IStepFunction.h"
#include "IWorkflowScreen.h"
#include "IWorkflowStep.h"
#include "InfoValueUnit.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "measuring/Scale.h"

#include <QMetaMethod>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

std::optional<double> numberOf(const QVariant& value)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<qint64> millisecondsOf(const QVariant& value)
{
    const std::optional<double> number = numberOf(value);
    if (!number || *number < 0.0 || *number > static_cast<double>(WorkflowRunner::MaximumTimeMs)) {
        return std::nullopt;
    }
    return static_cast<qint64>(*number);
}

ActionState key(const QString& uid, const QString& name, bool enabled)
{
    ActionState state;
    state.uid = uid;
    state.name = name;
    state.enabled = enabled;
    return state;
}

} // namespace

bool WorkflowView::operator==(const WorkflowView& other) const
{
    return running == other.running && screenType == other.screenType && title == other.title
           && lines == other.lines && image == other.image && auxiliaryOn == other.auxiliaryOn
           && result1 == other.result1 && result2 == other.result2 && waiting == other.waiting
           && fault == other.fault;
}

template <typename Interface>
WorkflowRunner::Ref<Interface>::Ref(Interface* interface)
    : pointer(interface)
    , object(dynamic_cast<QObject*>(interface))
    , guarded(object != nullptr)
{
}

WorkflowRunner::WorkflowRunner(std::function<QList<IStepFunction*>()> functions, Clock& clock, Scale& scale,
                               Notices& notices, QObject* parent)
    : QObject(parent)
    , m_functions(std::move(functions))
    , m_clock(clock)
    , m_scale(scale)
    , m_notices(notices)
    , m_progress(nullptr, m_progressItems, 0, true)
{
}

WorkflowRunner::~WorkflowRunner()
{
    cancelTimers();
}

bool WorkflowRunner::start(const QList<IWorkflowStep*>& steps, QString* error)
{
    if (isRunning() || m_processing) {
        *error = tr("A workflow is running already.");
        return false;
    }
    if (steps.isEmpty()) {
        *error = tr("The workflow has no steps.");
        return false;
    }
    const QList<IStepFunction*> functions = m_functions();
    QVector<Ref<IWorkflowStep>> refs;
    for (IWorkflowStep* const step : steps) {
        QString refusal;
        const auto exception = exceptionOf([&] { refusal = refusalOf(step, refs.size() + 1, functions); });
        if (exception) {
            refusal = tr("Step %1 of the workflow failed: %2").arg(refs.size() + 1).arg(*exception);
        }
        if (!refusal.isEmpty()) {
            *error = refusal;
            return false;
        }
        refs.append(Ref<IWorkflowStep>(step));
    }
    m_steps = refs;
    m_history.clear();
    m_started.clear();
    m_progress.setSteps(0);
    m_progress.setSteps(m_steps.size());
    m_nextIndex = 0;
    proceed(Transition::Enter);
    return true;
}

QString WorkflowRunner::refusalOf(IWorkflowStep* step, int number, const QList<IStepFunction*>& functions)
{
    if (step == nullptr) {
        return tr("Step %1 of the workflow is missing.").arg(number);
    }
    const QString uid = step->functionId();
    if (!uid.isEmpty()) {
        const auto function =
            std::find_if(functions.begin(), functions.end(),
                         [&uid](const IStepFunction* offered) { return offered->uid() == uid; });
        if (function == functions.end()) {
            return tr("Step %1 of the workflow names the function \"%2\", which the application does not "
                      "offer.")
                .arg(number)
                .arg(uid);
        }
        const QObject* const object = dynamic_cast<const QObject*>(*function);
        if (object == nullptr || object->metaObject()->indexOfSignal("workDone(QVariant)") < 0) {
            return tr("The function \"%1\" of the workflow has no signal workDone(QVariant).").arg(uid);
        }
    }
    const bool timed =
        step->preWorkflowTrigger() == TriggerType::Timer || step->postWorkflowTrigger() == TriggerType::Timer;
    if (timed && !settingsOf(step->getSettings()).timerMs) {
        return tr("Step %1 of the workflow waits for a time, but its settings name none: a number of "
                  "milliseconds up to 24 hours is needed.")
            .arg(number);
    }
    return QString();
}

WorkflowRunner::StepSettings WorkflowRunner::settingsOf(const QVariant& settings)
{
    StepSettings result;
    if (settings.type() != QVariant::Map) {
        result.timerMs = millisecondsOf(settings);
        return result;
    }
    const QVariantMap map = settings.toMap();
    result.timerMs = millisecondsOf(map.value(QStringLiteral("timerMs")));
    result.timeoutMs = millisecondsOf(map.value(QStringLiteral("timeoutMs"))).value_or(DefaultTimeoutMs);
    result.loadChangeGrams = numberOf(map.value(QStringLiteral("loadChange")));
    return result;
}

void WorkflowRunner::abort()
{
    if (isRunning()) {
        proceed(Transition::Abandon);
    }
}

void WorkflowRunner::onFunctionRemoved(IStepFunction* function)
{
    m_started.erase(
        std::remove_if(m_started.begin(), m_started.end(),
                       [function](const Ref<IStepFunction>& ref) { return ref.pointer == function; }),
        m_started.end());
    if (m_function.pointer == function && function != nullptr) {
        m_function = Ref<IStepFunction>();
        abort();
    }
}

bool WorkflowRunner::isPrintAllowed() const
{
    return m_printAllowed;
}

bool WorkflowRunner::press(const QString& uid)
{
    const auto found = std::find_if(m_keys.begin(), m_keys.end(),
                                    [&uid](const ActionState& state) { return state.uid == uid; });
    if (found == m_keys.end() || !found->enabled) {
        return false;
    }
    if (uid == continueKey()) {
        fireTrigger();
    } else if (uid == repeatKey()) {
        proceed(Transition::Run);
    } else if (uid == backKey()) {
        proceed(Transition::GoBack);
    } else {
        proceed(Transition::Abandon);
    }
    return true;
}

/// Carries out a transition and those that follow from it. Called again meanwhile, out of plug-in code, it only notes
/// the transition; that a workflow is abandoned comes before all others.
void WorkflowRunner::proceed(Transition transition)
{
    if (m_pending != Transition::Abandon) {
        m_pending = transition;
    }
    if (m_processing) {
        return;
    }
    m_processing = true;
    while (m_pending != Transition::None) {
        carryOut(std::exchange(m_pending, Transition::None));
    }
    m_processing = false;
    updateView();
    if (std::exchange(m_ended, false)) {
        emit finished(m_completed);
    }
}

void WorkflowRunner::carryOut(Transition transition)
{
    const bool asksStep = transition == Transition::Run || transition == Transition::ShowAfter;
    if (asksStep && !isStepAlive()) {
        abandonStep();
        return;
    }
    switch (transition) {
    case Transition::None:
        break;
    case Transition::Enter:
        enter();
        break;
    case Transition::GoBack:
        goBack();
        break;
    case Transition::Run:
        runFunction();
        break;
    case Transition::ShowAfter:
        showAfter();
        break;
    case Transition::Leave:
        leave();
        break;
    case Transition::Complete:
        end(true);
        break;
    case Transition::Abandon:
        end(false);
        break;
    }
}

void WorkflowRunner::enter()
{
    forgetStep();
    for (; m_nextIndex < m_steps.size(); ++m_nextIndex) {
        const Ref<IWorkflowStep>& step = m_steps.at(m_nextIndex);
        if (!step.isAlive()) {
            abandon(tr("Step %1 of the workflow is gone.").arg(m_nextIndex + 1));
            return;
        }
        bool enabled = false;
        const bool asked = guarded([&] {
            const IStepFunction* const function = findFunction(step.pointer->functionId());
            enabled = function == nullptr || function->enabled();
            enabled = step.pointer->isEnabled() && enabled;
        });
        if (!asked || m_pending == Transition::Abandon) {
            return;
        }
        if (!step.isAlive()) { // destroyed by its own enable check
            abandon(tr("Step %1 of the workflow is gone.").arg(m_nextIndex + 1));
            return;
        }
        if (enabled) {
            m_index = m_nextIndex;
            begin();
            return;
        }
        m_progress.setStepDone(m_nextIndex, true);
    }
    proceed(Transition::Complete);
}

void WorkflowRunner::begin()
{
    IWorkflowStep* const step = m_steps.at(m_index).pointer;
    TriggerType trigger = TriggerType::None;
    IWorkflowScreen* screen = nullptr;
    QString uid;
    int id = 0;
    const bool read = guarded([&] {
        id = step->stepId();
        m_settings = settingsOf(step->getSettings());
        trigger = step->preWorkflowTrigger();
        screen = step->preWorkflowScreen();
        uid = step->functionId();
        m_actionUid = step->getActionButton();
    });
    if (!read) {
        return;
    }
    if (!uid.isEmpty()) {
        m_function = Ref<IStepFunction>(findFunction(uid));
        if (m_function.isNull()) {
            abandon(tr("The function \"%1\" of the workflow is not offered any more.").arg(uid));
            return;
        }
    }
    m_state = State::Before;
    showScreen(Ref<IWorkflowScreen>(screen));
    emit stepEntered(id);
    if (m_pending != Transition::Abandon) {
        waitFor(trigger);
    }
}

void WorkflowRunner::goBack()
{
    resetFunction(m_function);
    if (m_history.isEmpty() || m_pending == Transition::Abandon) {
        return;
    }
    m_nextIndex = m_history.takeLast();
    for (int index = m_nextIndex; index < m_steps.size(); ++index) {
        m_progress.setStepDone(index, false);
    }
    enter();
}

void WorkflowRunner::runFunction()
{
    cancelTimers();
    m_didNotRun = false;
    m_timedOut = false;
    m_result = QVariant();
    m_trigger = TriggerType::None;
    if (m_function.isNull()) {
        proceed(Transition::ShowAfter);
        return;
    }
    if (!m_function.isAlive()) {
        abandon(tr("The function \"%1\" of the workflow is gone.").arg(m_functionName));
        return;
    }
    const bool ranBefore =
        std::any_of(m_started.begin(), m_started.end(), [this](const Ref<IStepFunction>& started) {
            return started.pointer == m_function.pointer;
        });
    if (ranBefore) {
        resetFunction(m_function);
        if (m_pending == Transition::Abandon) {
            return;
        }
        if (!m_function.isAlive()) {
            abandon(tr("The function \"%1\" of the workflow is gone.").arg(m_functionName));
            return;
        }
        if (!isStepAlive()) {
            abandonStep();
            return;
        }
    } else {
        m_started.append(m_function);
    }

    IWorkflowStep* const step = m_steps.at(m_index).pointer;
    disconnect(m_workDone);
    m_workDone = connect(m_function.object, SIGNAL(workDone(QVariant)), this, SLOT(onWorkDone(QVariant)));
    m_state = State::Running;
    bool isProcess = false;
    const bool started = guarded([&] {
        m_functionName = m_function.pointer->name();
        isProcess = m_function.pointer->isProcess();
        const QVariant argument = step->getParameter();
        const QVariant data = step->getSettings();
        m_function.pointer->startFunction(argument, data);
    });
    if (!started || m_pending != Transition::None || m_state != State::Running) {
        return;
    }
    if (!m_function.isAlive()) {
        abandon(tr("The function \"%1\" of the workflow is gone.").arg(m_functionName));
    } else if (!isProcess) {
        m_didNotRun = true;
    } else if (m_settings.timeoutMs > 0) {
        m_timeoutTimer = m_clock.callAfter(m_settings.timeoutMs, [this] { onTimeout(); });
    }
}

void WorkflowRunner::onWorkDone(const QVariant& result)
{
    if (m_state != State::Running || sender() != m_function.object) {
        return;
    }
    m_result = result;
    proceed(Transition::ShowAfter);
}

void WorkflowRunner::onTimeout()
{
    m_timeoutTimer = 0;
    m_timedOut = true;
    m_notices.post(NoticeSeverity::Warning, faultText());
    updateView();
}

void WorkflowRunner::showAfter()
{
    cancelTimers();
    m_didNotRun = false;
    m_timedOut = false;
    IWorkflowStep* const step = m_steps.at(m_index).pointer;
    TriggerType trigger = TriggerType::None;
    Ref<IWorkflowScreen> screen;
    const bool read = guarded([&] {
        trigger = step->postWorkflowTrigger();
        screen = Ref<IWorkflowScreen>(step->postWorkflowScreen());
        if (!screen.isNull() && m_function.isAlive()) {
            m_function.pointer->prepareResultForScreen(m_result, screen.pointer);
        }
    });
    if (!read || m_pending == Transition::Abandon) {
        return;
    }
    m_state = State::After;
    if (!screen.isNull()) {
        showScreen(screen);
    }
    waitFor(trigger);
}

void WorkflowRunner::leave()
{
    m_progress.setStepDone(m_index, true);
    m_history.append(m_index);
    m_nextIndex = m_index + 1;
    enter();
}

void WorkflowRunner::end(bool completed)
{
    if (!completed) {
        resetFunctions();
    }
    forgetStep();
    m_pending = Transition::None;
    m_steps.clear();
    m_history.clear();
    m_started.clear();
    m_progress.Reset();
    m_state = State::Idle;
    m_completed = completed;
    m_ended = true;
}

void WorkflowRunner::resetFunctions()
{
    const QVector<Ref<IStepFunction>> functions = m_started;
    for (auto function = functions.crbegin(); function != functions.crend(); ++function) {
        if (function->isAlive()) {
            const auto exception = exceptionOf([&] { function->pointer->reset(); });
            if (exception) {
                m_notices.postPluginFault(tr("The workflow could not be reset: %1").arg(*exception));
            }
        }
    }
}

/// Resets a function that has run in this workflow; what it works at is forgotten.
void WorkflowRunner::resetFunction(const Ref<IStepFunction>& function)
{
    const bool ran =
        std::any_of(m_started.begin(), m_started.end(), [&function](const Ref<IStepFunction>& started) {
            return started.pointer == function.pointer;
        });
    if (ran && function.isAlive()) {
        disconnect(m_workDone);
        IStepFunction* const pointer = function.pointer;
        guarded([pointer] { pointer->reset(); });
    }
}

void WorkflowRunner::forgetStep()
{
    cancelTimers();
    disconnect(m_workDone);
    m_index = -1;
    m_function = Ref<IStepFunction>();
    m_functionName.clear();
    m_screen = Ref<IWorkflowScreen>();
    m_settings = StepSettings();
    m_actionUid.clear();
    m_result = QVariant();
    m_trigger = TriggerType::None;
    m_timedOut = false;
    m_didNotRun = false;
}

/// Runs code of the plug-in. When it throws, the workflow is abandoned and false returned.
bool WorkflowRunner::guarded(const std::function<void()>& code)
{
    const auto exception = exceptionOf(code);
    if (exception) {
        m_notices.postPluginFault(tr("The application failed in its workflow: %1").arg(*exception));
        proceed(Transition::Abandon);
    }
    return !exception;
}

void WorkflowRunner::abandon(const QString& why)
{
    m_notices.postPluginFault(why);
    proceed(Transition::Abandon);
}

/// Whether the step at work still exists; the plug-in may destroy it at any time.
bool WorkflowRunner::isStepAlive() const
{
    return m_steps.at(m_index).isAlive();
}

void WorkflowRunner::abandonStep()
{
    abandon(tr("Step %1 of the workflow is gone.").arg(m_index + 1));
}

IStepFunction* WorkflowRunner::findFunction(const QString& uid) const
{
    const QList<IStepFunction*> functions = m_functions();
    for (IStepFunction* const function : functions) {
        QString offered;
        exceptionOf([&] { offered = function->uid(); });
        if (offered == uid) {
            return function;
        }
    }
    return nullptr;
}

void WorkflowRunner::showScreen(const Ref<IWorkflowScreen>& screen)
{
    m_screen = screen;
    if (!m_function.isAlive()) {
        return;
    }
    guarded([this] { m_functionName = m_function.pointer->name(); });
}

void WorkflowRunner::waitFor(TriggerType trigger)
{
    m_trigger = trigger;
    switch (trigger) {
    case TriggerType::None:
        fireTrigger();
        break;
    case TriggerType::Timer:
        m_triggerTimer = m_clock.callAfter(m_settings.timerMs.value_or(0), [this] {
            m_triggerTimer = 0;
            fireTrigger();
        });
        break;
    case TriggerType::LoadChange:
        m_referenceGrams = m_scale.isValid() ? std::optional<double>(m_scale.grossGrams()) : std::nullopt;
        break;
    case TriggerType::Button:
    case TriggerType::StableValue:
        break;
    }
}

void WorkflowRunner::fireTrigger()
{
    cancelTimers();
    m_trigger = TriggerType::None;
    if (m_state == State::Before) {
        proceed(Transition::Run);
    } else if (m_state == State::After) {
        proceed(Transition::Leave);
    }
}

void WorkflowRunner::cancelTimers()
{
    m_clock.cancel(std::exchange(m_triggerTimer, 0));
    m_clock.cancel(std::exchange(m_timeoutTimer, 0));
}

void WorkflowRunner::onStableValue()
{
    if (isRunning() && m_trigger == TriggerType::StableValue) {
        fireTrigger();
    }
}

void WorkflowRunner::onMeasurement()
{
    if (!isRunning()) {
        return;
    }
    if (m_trigger == TriggerType::LoadChange && m_scale.isValid()) {
        // The gross weight: zero and tare change no load.
        const double grams = m_scale.grossGrams();
        if (!m_referenceGrams) {
            m_referenceGrams = grams;
        }
        const double increment = m_scale.readability().grams();
        const double threshold = m_settings.loadChangeGrams.value_or(DefaultLoadChange * increment);
        if (std::abs(grams - *m_referenceGrams) >= std::max(threshold, increment)) {
            fireTrigger();
            return;
        }
    }
    refresh();
}

void WorkflowRunner::refresh()
{
    if (!m_processing) {
        updateView();
    }
}

void WorkflowRunner::updateView()
{
    WorkflowView view;
    view.running = isRunning();
    QString texts[3];
    bool printAllowed = true;
    if (isRunning() && !isStepAlive()) {
        abandonStep();
        return;
    }
    StepFunctionButtonFlags flags;
    if (isRunning()) {
        view.lines = QStringList{QString(), QString(), QString()};
        const auto exception = exceptionOf([&] {
            if (m_function.isAlive()) {
                m_functionName = m_function.pointer->name();
            }
            flags = m_steps.at(m_index).pointer->getStepFunctionButtonsFlags();
            printAllowed = m_state == State::After && flags.testFlag(StepFunctionButtonFlag::Print);
            if (!m_screen.isAlive()) {
                return;
            }
            IWorkflowScreen* const screen = m_screen.pointer;
            view.screenType = screen->screenType();
            view.lines =
                QStringList{screen->infoTextLine1(), screen->infoTextLine2(), screen->infoTextLine3()};
            view.image = screen->image();
            view.auxiliaryOn = screen->auxiliaryOn() != 0;
            view.result1 = screen->getResult1();
            view.result2 = screen->getResult2();
            texts[0] = screen->leftButtonText();
            texts[1] = screen->centerButtonText();
            texts[2] = screen->rightButtonText();
        });
        if (exception) {
            abandon(tr("The application failed in its workflow: %1").arg(*exception));
            return;
        }
        view.title = m_functionName;
        view.waiting = waitingText();
        view.fault = faultText();
    }
    QVector<ActionState> keys;
    if (isRunning()) {
        const bool back = flags.testFlag(StepFunctionButtonFlag::Back);
        const bool repeat = flags.testFlag(StepFunctionButtonFlag::Repeat) || isFaulty();
        const bool waits = m_trigger != TriggerType::None;
        if (back || !texts[0].isEmpty()) {
            keys.append(
                key(backKey(), texts[0].isEmpty() ? tr("Back") : texts[0], back && !m_history.isEmpty()));
        }
        if (repeat || !texts[1].isEmpty()) {
            keys.append(key(repeatKey(), texts[1].isEmpty() ? tr("Repeat") : texts[1],
                            repeat && !m_function.isNull() && m_state != State::Before));
        }
        if (!texts[2].isEmpty() || m_trigger == TriggerType::Button) {
            keys.append(key(continueKey(), texts[2].isEmpty() ? tr("Continue") : texts[2], waits));
        }
        if (flags.testFlag(StepFunctionButtonFlag::Abort) || isFaulty()) {
            keys.append(key(abortKey(), tr("Abort"), true));
        }
    }
    if (m_view != view || m_keys != keys || m_printAllowed != printAllowed) {
        m_view = view;
        m_keys = keys;
        m_printAllowed = printAllowed;
        emit changed();
    }
}

/// Made anew each time it is shown, in the language of the terminal.
QString WorkflowRunner::faultText() const
{
    if (m_didNotRun) {
        return tr("\"%1\" did not run: the application has no worker for it.").arg(m_functionName);
    }
    if (m_timedOut) {
        return tr("\"%1\" has not finished after %2 s. It may still do so; otherwise repeat it or abort.")
            .arg(m_functionName)
            .arg(static_cast<double>(m_settings.timeoutMs) / 1000.0);
    }
    return QString();
}

QString WorkflowRunner::waitingText() const
{
    if (m_state == State::Running) {
        return !isFaulty() ? tr("%1 in progress").arg(m_functionName) : QString();
    }
    switch (m_trigger) {
    case TriggerType::LoadChange:
        return tr("Waiting for a change of the load");
    case TriggerType::StableValue:
        return tr("Waiting for a stable weight");
    case TriggerType::Timer:
        return tr("Goes on by itself");
    case TriggerType::None:
    case TriggerType::Button:
        break;
    }
    return QString();
}

} // namespace Terminal
} // namespace Brimvale
