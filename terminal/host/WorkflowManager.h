// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWMANAGER_H
#define BRIMVALE_WORKFLOWMANAGER_H

#include "IWfM.h"
#include "host/OfferedList.h"
#include "workflow/WorkflowRunner.h"

#include <QList>
#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;

/// The workflow manager as plug-ins see it. It keeps the step functions that are offered, runs workflows with its
/// runner(), and passes on whether the print button is enabled.
///
/// A plug-in hears of its workflow by the signals NotifyWorkflowStepEntered(int) and NotifyWorkflowFinished(bool),
/// which it connects to by a dynamic cast of `IWfM` to `QObject`.
class WorkflowManager : public QObject, public IWfM
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowManager)

public:
    WorkflowManager(HostCallLog& calls, Notices& notices, Clock& clock, Scale& scale,
                    QObject* parent = nullptr);

    // IWfM
    void Reset() override;
    void AddStepFunction(IStepFunction* function) override;
    void RemoveStepFunction(IStepFunction* function) override;
    bool StartWorkflow(const QList<IWorkflowStep*>& steps) override;
    void AbortWorkflow() override;

    /// The offered step functions in the order in which they came.
    QList<IStepFunction*> stepFunctions() const { return m_stepFunctions.list(); }

    WorkflowRunner& runner() { return m_runner; }
    const WorkflowRunner& runner() const { return m_runner; }

    /// The plug-in has closed: abandons its workflow and forgets its functions.
    void clear();

public slots:
    /// The plug-in says whether the print button is enabled.
    void onPrintButtonEnableChange(bool enable);

signals:
    /// The step with that `IWorkflowStep::stepId()` was entered.
    void NotifyWorkflowStepEntered(int stepId);
    /// The workflow has ended: @p completed after its last step, otherwise it was abandoned. The next may be started.
    void NotifyWorkflowFinished(bool completed);

    void printButtonEnableChanged(bool enable);

private:
    HostCallLog& m_calls;
    Notices& m_notices;
    OfferedList<IStepFunction> m_stepFunctions;
    WorkflowRunner m_runner;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WORKFLOWMANAGER_H
