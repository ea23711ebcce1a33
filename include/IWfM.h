// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWFM_H
#define BRIMVALE_IWFM_H

#include "SharedLibsGlobal.h"

#include <QList>

namespace Brimvale
{

class IStepFunction;
class IWorkflowStep;

/// The workflow manager. Implemented by the host in a `QObject` with the slot
/// `onPrintButtonEnableChange(bool enable)`.
class BRIMVALE_EXPORT IWfM
{
public:
    virtual ~IWfM();

    /// Abandons what is running and returns to the idle state.
    virtual void Reset() = 0;

    /// Offers a step function under its uid. It is not owned and must be removed before it dies.
    virtual void AddStepFunction(IStepFunction* function) = 0;

    /// Withdraws a step function; one that is not there is ignored.
    virtual void RemoveStepFunction(IStepFunction* function) = 0;

    /// Runs steps in their order. They are not owned and must live until the workflow has ended. Returns
    /// false when one is running, the list is empty or a step names an unknown function. The host's object
    /// tells of the course by the signals `NotifyWorkflowStepEntered(int stepId)` and
    /// `NotifyWorkflowFinished(bool completed)`.
    virtual bool StartWorkflow(const QList<IWorkflowStep*>& steps) = 0;

    /// Abandons the running workflow and resets its functions.
    virtual void AbortWorkflow() = 0;
};

} // namespace Brimvale

#endif
