// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWORKFLOWSTEP_H
#define BRIMVALE_IWORKFLOWSTEP_H

#include "SharedLibsGlobal.h"
#include "StepFunctionButtonFlag.h"
#include "TriggerType.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

class IWorkflowScreen;

/// One step of a workflow: which function runs, what starts it and what follows it. Implemented by
/// `WorkflowStep`.
class BRIMVALE_EXPORT IWorkflowStep
{
public:
    virtual ~IWorkflowStep();

    /// The number of the step within its workflow.
    virtual int stepId() const = 0;

    /// The uid of the step function to run; empty for none.
    virtual QString functionId() const = 0;

    /// The buttons offered while the function runs.
    virtual QFlags<StepFunctionButtonFlag> getStepFunctionButtonsFlags() const = 0;

    /// What starts the function.
    virtual TriggerType preWorkflowTrigger() const = 0;

    /// The screen shown before the function; not owned by the step, may be null.
    virtual IWorkflowScreen* preWorkflowScreen() const = 0;

    /// What ends the step after the function.
    virtual TriggerType postWorkflowTrigger() const = 0;

    /// The screen shown after the function; not owned by the step, may be null.
    virtual IWorkflowScreen* postWorkflowScreen() const = 0;

    /// The uid of the action offered with the step; empty for none.
    virtual QString getActionButton() const = 0;

    /// The settings handed to the step function.
    virtual QVariant getSettings() const = 0;

    /// The parameter handed to the step function.
    virtual QString getParameter() const = 0;

    /// Whether the step is to be run. Asked anew every time.
    virtual bool isEnabled() = 0;

    /// True when number and function id are those of `other`, which must not be null.
    virtual bool isEqual(IWorkflowStep* other) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IWorkflowStep, "Brimvale.Workflow.IWorkflowStep/1.0")

#endif
