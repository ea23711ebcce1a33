// SPDX-License-Identifier: BSD-3-Clause
#include "Procedure.h"

#include <IRegisterValueProvider.h>
#include <ISystem.h>
#include <ISystemRegister.h>
#include <IWeighing.h>
#include <IWfM.h>
#include <InfoValueUnit.h>
#include <StepFunctionBase.h>
#include <StepFunctionButtonFlag.h>
#include <WorkflowStep.h>
#include <cmath>

using namespace Brimvale;

namespace
{

// Recipes are in grams, whatever unit the terminal shows.
constexpr int GramUnit = 0;
// In the register of the upper limit.
constexpr double UnknownLimit = 999999999.0;

const StepFunctionButtonFlags AbortOnly = StepFunctionButtonFlag::Abort;
const StepFunctionButtonFlags PrintOnly = StepFunctionButtonFlag::Print;
const StepFunctionButtonFlags ComponentKeys =
    StepFunctionButtonFlag::Back | StepFunctionButtonFlag::Repeat | StepFunctionButtonFlag::Abort;

// How the terminal shows a screen: in place of the plug-in's, or in a band above it.
constexpr int FullScreen = 0;
constexpr int BandScreen = 1;

} // namespace

Procedure::Procedure(ISystem* system, BatchStore* store, QObject* parent)
    : QObject(parent)
    , m_system(system)
    , m_store(store)
    , m_vesselFunction(makeFunction("formulation.vessel", "onVessel(QVariant,QVariant)", true))
    , m_returnFunction(makeFunction("formulation.return", "onReturn(QVariant,QVariant)", true))
    , m_weighFunction(makeFunction("formulation.weigh", "onAccept(QVariant,QVariant)", true))
    , m_finishFunction(makeFunction("formulation.finish", "onFinish(QVariant,QVariant)", false))
{
    translate();
    for (StepFunctionBase* const function : qAsConst(m_functions)) {
        workflows()->AddStepFunction(function);
    }
    // The interface is no QObject, but the object behind it is.
    auto* const manager = dynamic_cast<QObject*>(workflows());
    connect(manager, SIGNAL(NotifyWorkflowStepEntered(int)), this, SLOT(onStepEntered(int)));
    connect(manager, SIGNAL(NotifyWorkflowFinished(bool)), this, SLOT(onWorkflowFinished(bool)));
}

Procedure::~Procedure()
{
    stop();
    for (StepFunctionBase* const function : qAsConst(m_functions)) {
        workflows()->RemoveStepFunction(function);
    }
}

StepFunctionBase* Procedure::makeFunction(const char* uid, const char* worker, bool isProcess)
{
    const auto slot = [](const char* signature) {
        return staticMetaObject.method(staticMetaObject.indexOfSlot(signature));
    };
    auto* const function = new StepFunctionBase(this);
    function->setUid(QLatin1String(uid));
    function->setEnable(true);
    function->setIsProcess(isProcess);
    function->setWorker(this, slot(worker));
    function->setScreenWorker(this, slot("showResult(QVariant,Brimvale::IWorkflowScreen*)"));
    function->setResetWorker(this, slot("onReset()"));
    m_functions.append(function);
    return function;
}

IWfM* Procedure::workflows() const
{
    return m_system->GetWorkflowManager();
}

// Start and end ----------------------------------------------------------------------------------------------------

QString Procedure::refusalOf(const Recipe& recipe) const
{
    const double limit = capacity();
    if (recipe.total() > limit) {
        return tr("%1 cannot be weighed in: it needs %2, the scale goes up to %3.")
            .arg(shortName(recipe.name), grams(recipe.total()), grams(limit));
    }
    for (const Component& component : recipe.components) {
        if (lowestReading(component, decimals()) > highestReading(component, decimals())) {
            return tr("%1 cannot be weighed in: the scale shows no weight between %2 g and %3 g. Widen the "
                      "tolerance of the recipe.")
                .arg(shortName(component.name), QString::number(component.lowerLimit()),
                     QString::number(component.upperLimit()));
        }
    }
    return QString();
}

bool Procedure::start(const Batch& batch)
{
    if (m_phase != Idle) {
        return false;
    }
    forgetSteps();
    m_batch = batch;
    m_isSaved = true;
    m_component = -1;
    m_stepOwner = new QObject(this);
    const bool isResumed = m_batch.vessel > 0.0;
    if (isResumed && m_batch.isWeighedIn()) {
        // It lacks nothing but its end.
    } else if (isResumed) {
        addStep(ReturnStep, m_returnFunction, AbortOnly, TriggerType::None, FullScreen,
                QStringLiteral(":/formulation/vessel.svg"), TriggerType::None);
    } else {
        addStep(VesselStep, m_vesselFunction, AbortOnly, TriggerType::LoadChange, FullScreen,
                QStringLiteral(":/formulation/vessel.svg"), TriggerType::None);
    }
    for (int index = m_batch.nextComponent(); index < m_batch.recipe.components.size(); ++index) {
        addStep(FirstComponentStep + index, m_weighFunction, ComponentKeys, TriggerType::Button, BandScreen,
                QString(), TriggerType::Button);
    }
    addStep(FinishStep, m_finishFunction, PrintOnly, TriggerType::None, FullScreen, QString(),
            TriggerType::Button);
    translate();
    if (!workflows()->StartWorkflow(m_steps)) {
        setPhase(Idle);
        return false;
    }
    return true;
}

void Procedure::stop()
{
    disconnect(dynamic_cast<QObject*>(workflows()), nullptr, this, nullptr);
    if (m_phase != Idle) {
        m_phase = Idle;
        workflows()->AbortWorkflow();
    }
}

void Procedure::addStep(int id, StepFunctionBase* function, StepFunctionButtonFlags flags, TriggerType before,
                        int screenType, const QString& image, TriggerType after)
{
    m_texts.push_back({id, {}, {}});
    Step& texts = m_texts.back();
    auto* const screen = new WorkflowScreen(m_stepOwner, screenType, &texts.before, image, 0);
    WorkflowScreen* result = nullptr;
    if (after == TriggerType::Button) {
        result = new WorkflowScreen(m_stepOwner, FullScreen, &texts.after, QString(), 0);
    }
    QVariantMap settings;
    settings.insert(QStringLiteral("timeoutMs"), 0); // people take their time
    m_steps.append(new WorkflowStep(m_stepOwner, id, function->uid(), flags, before, screen, after, result,
                                    QString(), settings, QString(), [] { return true; }));
}

void Procedure::forgetSteps()
{
    delete m_stepOwner;
    m_steps.clear();
    m_texts.clear();
    m_resultScreen = nullptr;
}

void Procedure::onWorkflowFinished(bool completed)
{
    if (m_phase == Idle) {
        return;
    }
    if (!completed && m_phase != Finished && m_batch.vessel > 0.0) {
        m_batch.state = Batch::Aborted;
        save();
    } else if (!completed && m_phase != Finished) {
        m_batch.state = Batch::Aborted; // nothing was weighed: there is nothing to keep
    }
    m_resultScreen = nullptr;
    setPhase(Idle);
    emit ended();
}

void Procedure::onStepEntered(int stepId)
{
    m_resultScreen = nullptr;
    m_isFunctionRunning = false;
    if (stepId == VesselStep) {
        m_phase = Vessel; // before the tare, whose end comes with a reading
        m_component = -1;
        m_batch.weighed.clear();
        if (m_system->GetRegisterValueProvider()
                ->GetMesswert(GramUnit, ISystemRegister::CurrentRegister)
                .net) {
            m_system->GetWeighing()->ClearTare(); // that of the vessel before
        }
        setPhase(Vessel);
    } else if (stepId == ReturnStep) {
        setPhase(Return);
    } else if (stepId >= FirstComponentStep) {
        m_component = stepId - FirstComponentStep;
        if (m_batch.weighed.size() > m_component) {
            // The user went back: this component and those after it are weighed anew.
            m_batch.weighed.resize(m_component);
            save();
        }
        setPhase(Dosing);
    }
    onReading();
}

void Procedure::onReset()
{
    // What was weighed is withdrawn when its step is entered again, and kept when the batch is aborted.
    if (m_phase == Judging || m_phase == Refused || m_phase == Weighed) {
        m_phase = Dosing;
        tellDosing();
        emit changed();
    }
}

void Procedure::save()
{
    QString error;
    m_isSaved = m_store->save(m_batch, &error);
    if (!m_isSaved) {
        emit failed(error);
    }
}

void Procedure::setPhase(Phase phase)
{
    m_phase = phase;
    emit changed();
}

// The work of the steps --------------------------------------------------------------------------------------------

QVariant Procedure::onVessel(QVariant argument, QVariant data)
{
    Q_UNUSED(argument)
    Q_UNUSED(data)
    m_isFunctionRunning = true; // the vessel is looked for from the next reading on
    return QVariant();
}

QVariant Procedure::onReturn(QVariant argument, QVariant data)
{
    Q_UNUSED(argument)
    Q_UNUSED(data)
    m_isFunctionRunning = true;
    return QVariant();
}

QVariant Procedure::onAccept(QVariant argument, QVariant data)
{
    Q_UNUSED(argument)
    Q_UNUSED(data)
    if (m_batch.weighed.size() > m_component) {
        m_batch.weighed.resize(m_component); // repeated after its result was shown
        save();
    }
    m_phase = Judging;
    tellDosing();
    emit changed();
    return QVariant();
}

QVariant Procedure::onFinish(QVariant argument, QVariant data)
{
    Q_UNUSED(argument)
    Q_UNUSED(data)
    m_batch.state = Batch::Complete;
    save();
    translateStep(*stepOf(FinishStep)); // whether it is saved
    setPhase(Finished);
    emit completed();
    return m_batch.total();
}

void Procedure::onReading()
{
    m_gross = m_system->GetRegisterValueProvider()->GetMesswert(GramUnit, ISystemRegister::GrossRegister);
    switch (m_phase) {
    case Vessel:
        tellVessel();
        break;
    case Return:
        tellReturn();
        break;
    case Dosing:
    case Refused:
        tellDosing();
        break;
    case Judging:
        tellDosing();
        judge();
        break;
    case Idle:
    case Weighed:
    case Finished:
        break;
    }
    emit changed();
}

/// Looks for the empty vessel: tells what is missing, or takes it.
void Procedure::tellVessel()
{
    Step* const step = stepOf(VesselStep);
    QString& state = step->before.infoTextLine3;
    if (!isWeightValid()) {
        state = m_gross.errorText;
        return;
    }
    const double vessel = roundedWeight(m_gross.value, decimals());
    if (vessel < -MinimumVessel * increment()) {
        state = tr("The scale shows less than nothing. Empty it and set it to zero.");
    } else if (vessel < MinimumVessel * increment()) {
        state = tr("Nothing is on the scale.");
    } else if (vessel + m_batch.recipe.total() > capacity()) {
        state = tr("The vessel is too heavy: with %1 of the recipe the scale would go beyond %2.")
                    .arg(grams(m_batch.recipe.total()), grams(capacity()));
    } else if (!m_gross.isStable || !m_isFunctionRunning) {
        state.clear();
    } else if (m_system->GetWeighing()->Tare()) {
        state.clear();
        m_batch.vessel = vessel;
        save();
        m_vesselFunction->functionDone(vessel);
    }
}

/// Looks for the vessel of a resumed batch.
void Procedure::tellReturn()
{
    Step* const step = stepOf(ReturnStep);
    QString& state = step->before.infoTextLine3;
    if (!isWeightValid()) {
        state = m_gross.errorText;
        return;
    }
    const double more = roundedWeight(m_gross.value - base(), decimals());
    const double allowed = ReturnTolerance * increment();
    if (!m_gross.isStable) {
        state = tr("Waiting for a stable weight");
    } else if (more < -allowed) {
        state = tr("%1 are missing.").arg(grams(-more));
    } else if (m_isFunctionRunning) {
        if (more <= allowed) {
            m_batch.vessel += more; // the zero point has drifted
            save();
        }
        m_returnFunction->functionDone(m_gross.value);
    }
}

void Procedure::tellDosing()
{
    Step* const step = stepOf(FirstComponentStep + m_component);
    const Component& component = m_batch.recipe.components.at(m_component);
    QString& instruction = step->before.infoTextLine1;
    QString& state = step->before.infoTextLine2;
    instruction = tr("Add %1 of %2").arg(grams(component.target), component.name);
    state = tr("%1 to %2")
                .arg(weightText(lowestReading(component, decimals()), decimals()),
                     grams(highestReading(component, decimals())));
    if (!isWeightValid()) {
        state = m_gross.errorText;
    } else if (m_phase == Dosing && !m_isSaved) {
        state = tr("The batch could not be saved");
    } else if (m_phase == Judging) {
        state = tr("Waiting for a stable weight");
    } else if (m_phase == Refused) {
        const double deviation = *amount() - component.target;
        if (isWithinTolerance(component, *amount(), decimals())) {
            instruction = tr("%1: within the tolerance now").arg(shortName(component.name));
            state = tr("Press Repeat");
        } else if (deviation > 0.0) {
            instruction = tr("Refused: %1 too much").arg(grams(deviation));
            state = tr("Take some out, press Repeat");
        } else {
            instruction = tr("Refused: %1 too little").arg(grams(-deviation));
            state = tr("Add some, press Repeat");
        }
    }
}

/// Takes the component over once the weight is stable, or refuses it.
void Procedure::judge()
{
    const std::optional<double> weighed = amount();
    if (!weighed || !m_gross.isStable) {
        return;
    }
    const Component& component = m_batch.recipe.components.at(m_component);
    // Nothing is never a component, whatever the tolerance.
    const bool isGood = isWithinTolerance(component, *weighed, decimals());
    if (!isGood && (m_toleranceEnforced || *weighed <= 0.0)) {
        setPhase(Refused);
        tellDosing();
        return;
    }
    m_batch.weighed.append(*weighed);
    save();
    translateStep(*stepOf(FirstComponentStep + m_component)); // whether it is out of tolerance
    setPhase(Weighed);
    m_weighFunction->functionDone(*weighed);
}

// Texts ------------------------------------------------------------------------------------------------------------

void Procedure::showResult(QVariant result, IWorkflowScreen* screen)
{
    Q_UNUSED(result)
    m_resultScreen = screen;
    fillResult(screen);
}

/// The result fields of the screen that is shown: of a component, or of the whole.
void Procedure::fillResult(IWorkflowScreen* screen)
{
    double weighed = m_batch.total();
    double target = m_batch.recipe.total();
    QString title = tr("Total");
    if (m_phase == Weighed) {
        weighed = m_batch.weighed.last();
        target = m_batch.recipe.components.at(m_component).target;
        title = tr("Weighed in");
    }
    const QString unit = QStringLiteral("g");
    screen->getResult1()->setInfo(title);
    screen->getResult1()->setValue(weightText(weighed, decimals()));
    screen->getResult1()->setUnit(unit);
    screen->getResult1()->setVisble(true);
    screen->getResult2()->setInfo(
        tr("Deviation (%1 %)").arg(weightText(100.0 * (weighed - target) / target, 2, true)));
    screen->getResult2()->setValue(weightText(weighed - target, decimals(), true));
    screen->getResult2()->setUnit(unit);
    screen->getResult2()->setVisble(true);
}

void Procedure::translate()
{
    m_vesselFunction->setName(tr("Taring"));
    m_returnFunction->setName(tr("Resuming"));
    m_weighFunction->setName(tr("Dosing"));
    m_finishFunction->setName(tr("Batch %1").arg(m_batch.numberText()));
    for (Step& step : m_texts) {
        translateStep(step);
    }
    if (m_resultScreen != nullptr) {
        fillResult(m_resultScreen);
    }
}

void Procedure::translateStep(Step& step)
{
    const QString batch = tr("Batch %1: %2").arg(m_batch.numberText(), shortName(m_batch.recipe.name));
    const int count = m_batch.recipe.components.size();
    if (step.id == VesselStep) {
        step.before.infoTextLine1 = tr("Put the empty vessel on the scale");
        step.before.infoTextLine2 = batch;
        step.before.rightButtonText = tr("Vessel is on");
    } else if (step.id == ReturnStep) {
        step.before.infoTextLine1 = tr("Put the vessel with its contents back");
        step.before.infoTextLine2 =
            tr("%1, %2 of %3 components are weighed in: together with the vessel %4")
                .arg(batch, QString::number(m_batch.nextComponent()), QString::number(count), grams(base()));
    } else if (step.id == FinishStep) {
        step.before.infoTextLine1 = tr("%1 is complete").arg(shortName(m_batch.recipe.name));
        step.before.infoTextLine2 =
            count == 1 ? tr("1 component weighed in") : tr("%1 components weighed in").arg(count);
        step.before.infoTextLine3 = m_isSaved ? QString() : tr("The batch could not be saved");
        step.before.rightButtonText = tr("Finish");
        step.after = step.before;
    } else {
        const int index = step.id - FirstComponentStep;
        const Component& component = m_batch.recipe.components.at(index);
        step.before.infoTextLine1 = tr("Add %1 of %2").arg(grams(component.target), component.name);
        step.before.rightButtonText = tr("Accept");
        step.after.infoTextLine1 = tr("%1 is weighed in").arg(shortName(component.name));
        step.after.infoTextLine2 =
            tr("Component %1 of %2, target %3").arg(index + 1).arg(count).arg(grams(component.target));
        const bool isOut = index < m_batch.weighed.size() && !m_batch.isWithinTolerance(index, decimals());
        step.after.infoTextLine3 = !m_isSaved ? tr("The batch could not be saved")
                                   : isOut    ? tr("Out of tolerance")
                                              : QString();
        step.after.rightButtonText = index + 1 < count ? tr("Next component") : tr("Complete the batch");
    }
}

Procedure::Step* Procedure::stepOf(int id)
{
    for (Step& step : m_texts) {
        if (step.id == id) {
            return &step;
        }
    }
    Q_UNREACHABLE();
}

// Weights ----------------------------------------------------------------------------------------------------------

int Procedure::decimals() const
{
    return qBound(0, m_system->GetDecimals(), 9);
}

double Procedure::increment() const
{
    return std::pow(10.0, -decimals());
}

double Procedure::capacity() const
{
    const double limit = m_system->GetSystemRegister()->GetRegisterValue(ISystemRegister::UpperLimitRegister);
    return limit > 0.0 && limit < UnknownLimit ? limit * increment() : HUGE_VAL;
}

bool Procedure::isWeightValid() const
{
    return m_gross.isValid && m_gross.errorText.isEmpty() && std::isfinite(m_gross.value);
}

/// The gross weight before the component at work.
double Procedure::base() const
{
    double weight = m_batch.vessel;
    const int count = m_component < 0 ? m_batch.weighed.size() : qMin(m_component, m_batch.weighed.size());
    for (int index = 0; index < count; ++index) {
        weight += m_batch.weighed.at(index);
    }
    return weight;
}

std::optional<double> Procedure::amount() const
{
    const bool isAtWork = m_phase == Dosing || m_phase == Judging || m_phase == Refused || m_phase == Weighed;
    if (!isAtWork || !isWeightValid()) {
        return std::nullopt;
    }
    return roundedWeight(m_gross.value - base(), decimals());
}

QString Procedure::grams(double weight, bool sign) const
{
    return weightText(weight, decimals(), sign) + QStringLiteral(" g");
}
