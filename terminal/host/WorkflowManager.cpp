// SPDX-License-Identifier: BSD-3-Clause
#include "host/WorkflowManager.h"

#include "IStepFunction.h"
#include "host/HostCallLog.h"
#include "host/Notices.h"

namespace Brimvale
{
namespace Terminal
{

WorkflowManager::WorkflowManager(HostCallLog& calls, Notices& notices, Clock& clock, Scale& scale,
                                 QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_runner([this] { return stepFunctions(); }, clock, scale, notices)
{
    connect(&m_runner, &WorkflowRunner::stepEntered, this, &WorkflowManager::NotifyWorkflowStepEntered);
    connect(&m_runner, &WorkflowRunner::finished, this, &WorkflowManager::NotifyWorkflowFinished);
}

void WorkflowManager::Reset()
{
    m_calls.command("IWfM::Reset");
    m_runner.abort();
}

void WorkflowManager::AddStepFunction(IStepFunction* function)
{
    m_calls.command("IWfM::AddStepFunction", function);
    m_stepFunctions.add(function);
}

void WorkflowManager::RemoveStepFunction(IStepFunction* function)
{
    m_calls.command("IWfM::RemoveStepFunction", function);
    m_stepFunctions.remove(function);
    m_runner.onFunctionRemoved(function);
}

bool WorkflowManager::StartWorkflow(const QList<IWorkflowStep*>& steps)
{
    m_calls.command("IWfM::StartWorkflow", steps.size());
    QString error;
    const bool started = m_runner.start(steps, &error);
    m_notices.post(NoticeSeverity::Warning, error);
    return started;
}

void WorkflowManager::AbortWorkflow()
{
    m_calls.command("IWfM::AbortWorkflow");
    m_runner.abort();
}

void WorkflowManager::clear()
{
    m_runner.abort();
    const QList<IStepFunction*> functions = stepFunctions();
    for (IStepFunction* const function : functions) {
        m_stepFunctions.remove(function);
    }
}

void WorkflowManager::onPrintButtonEnableChange(bool enable)
{
    m_calls.command("IWfM::onPrintButtonEnableChange", enable);
    emit printButtonEnableChanged(enable);
}

} // namespace Terminal
} // namespace Brimvale
