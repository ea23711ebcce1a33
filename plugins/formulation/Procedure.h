// SPDX-License-Identifier: BSD-3-Clause
#ifndef PROCEDURE_H
#define PROCEDURE_H

#include "Batch.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <MesswertData.h>
#include <StepFunctionButtonFlag.h>
#include <TriggerType.h>
#include <WorkflowScreen.h>
#include <deque>
#include <optional>

namespace Brimvale
{
class IStepFunction;
class ISystem;
class IWfM;
class IWorkflowStep;
class StepFunctionBase;
} // namespace Brimvale

/// Guides through a batch as a workflow of the terminal: the vessel, each component, the end.
///
/// A component is weighed as the gross weight less that of the vessel and of the components before it. So the parts add
/// up to the total exactly, and a batch can be resumed on a scale that has forgotten its tare. The tare is set for the
/// terminal's own display and outputs.
///
/// The batch is written at the vessel and after every component. A restart in the middle loses what was not accepted
/// yet, and even that is still in the vessel: the resumed procedure counts it for the component at work.
class Procedure : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Procedure)

public:
    enum Phase
    {
        Idle,
        Vessel,  ///< waits for the empty vessel
        Return,  ///< waits for the vessel of a resumed batch
        Dosing,  ///< a component is being added
        Judging, ///< accepted by the user; waits for a stable weight
        Refused, ///< out of tolerance
        Weighed, ///< a component is done
        Finished ///< all are done
    };

    /// A vessel, and what may be missing or too much at the return of one, in display increments.
    static constexpr double MinimumVessel = 10.0;
    static constexpr double ReturnTolerance = 5.0;

    /// @param system the host's services; not owned, must outlive the object.
    explicit Procedure(Brimvale::ISystem* system, BatchStore* store, QObject* parent);
    ~Procedure() override;

    /// Whether a component out of its tolerance is refused; otherwise it is taken over, and marked.
    void setToleranceEnforced(bool enforced) { m_toleranceEnforced = enforced; }

    /// Why the scale cannot weigh a recipe in; empty when it can.
    QString refusalOf(const Recipe& recipe) const;

    /// Starts a batch, or resumes one whose vessel is known. Returns false when the terminal refuses; it then says why.
    bool start(const Batch& batch);

    /// Ends the workflow and leaves the batch unfinished; for the close of the plug-in.
    void stop();

    /// The scale has a new reading.
    void onReading();

    /// Makes all texts anew, in the present language.
    void translate();

    Phase phase() const { return m_phase; }
    const Batch& batch() const { return m_batch; }
    /// Whether the batch could be written as it is now.
    bool isSaved() const { return m_isSaved; }
    /// The place in the recipe of the component at work or weighed last.
    int component() const { return m_component; }
    int decimals() const;
    /// What is in the vessel of the component at work; nothing while there is no weight.
    std::optional<double> amount() const;
    /// The gross reading, in grams whatever unit is shown.
    const Brimvale::MesswertData& gross() const { return m_gross; }

signals:
    /// The phase, the amount or the batch has changed.
    void changed();
    /// The batch is complete and written.
    void completed();
    /// The workflow has ended; the batch is complete or aborted.
    void ended();
    /// Something went wrong that the user must know.
    void failed(QString text);

private slots:
    QVariant onVessel(QVariant argument, QVariant data);
    QVariant onReturn(QVariant argument, QVariant data);
    QVariant onAccept(QVariant argument, QVariant data);
    QVariant onFinish(QVariant argument, QVariant data);
    void onReset();
    void showResult(QVariant result, Brimvale::IWorkflowScreen* screen);
    void onStepEntered(int stepId);
    void onWorkflowFinished(bool completed);

private:
    enum StepId
    {
        VesselStep = 1,
        ReturnStep = 2,
        FinishStep = 3,
        FirstComponentStep = 100
    };

    struct Step
    {
        int id;
        Brimvale::WorkflowScreen::ScreenTexte before;
        Brimvale::WorkflowScreen::ScreenTexte after;
    };

    Brimvale::StepFunctionBase* makeFunction(const char* uid, const char* worker, bool isProcess);
    void addStep(int id, Brimvale::StepFunctionBase* function, Brimvale::StepFunctionButtonFlags flags,
                 Brimvale::TriggerType before, int screenType, const QString& image,
                 Brimvale::TriggerType after);
    void translateStep(Step& step);
    void tellVessel();
    void tellReturn();
    void tellDosing();
    void judge();
    void fillResult(Brimvale::IWorkflowScreen* screen);
    Step* stepOf(int id);
    void save();
    void setPhase(Phase phase);
    bool isWeightValid() const;
    double increment() const;
    double capacity() const;
    double base() const;
    QString grams(double weight, bool sign = false) const;
    Brimvale::IWfM* workflows() const;
    void forgetSteps();

    Brimvale::ISystem* const m_system;
    BatchStore* const m_store;
    bool m_toleranceEnforced = true;
    Phase m_phase = Idle;
    Batch m_batch;
    bool m_isSaved = true; ///< The batch as it is now.
    int m_component = -1;
    bool m_isFunctionRunning = false; ///< Of the step with the vessel.
    Brimvale::MesswertData m_gross;

    QList<Brimvale::StepFunctionBase*>
        m_functions; ///< All of the following; before them, since they fill it.
    Brimvale::StepFunctionBase* m_vesselFunction;
    Brimvale::StepFunctionBase* m_returnFunction;
    Brimvale::StepFunctionBase* m_weighFunction;
    Brimvale::StepFunctionBase* m_finishFunction;

    // Of the workflow at work. The screens read the texts through pointers, so these do not move.
    QPointer<QObject> m_stepOwner;
    std::deque<Step> m_texts;
    QList<Brimvale::IWorkflowStep*> m_steps;
    Brimvale::IWorkflowScreen* m_resultScreen = nullptr;
};

#endif
