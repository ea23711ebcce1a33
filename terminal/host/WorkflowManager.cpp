// SPDX-License-Identifier: BSD-3-Clause
#include "host/WorkflowManager.h"

#include "IStepFunction.h"
#include "host/HostCallLog.h"
#include "host/Notices.h"

namespace Brimvale
{
namespace Terminal
{

WorkflowManager::WorkflowManager(HostCallLog& calls, Notices& notices, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
{
}

void WorkflowManager::Reset()
{
    m_calls.command("IWfM::Reset"); // nothing can be running
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
}

bool WorkflowManager::StartWorkflow(const QList<IWorkflowStep*>& steps)
{
    m_calls.command("IWfM::StartWorkflow", steps.size());
    m_notices.post(NoticeSeverity::Warning, tr("Workflows are not available on this terminal yet."));
    return false;
}

void WorkflowManager::AbortWorkflow()
{
    m_calls.command("IWfM::AbortWorkflow"); // nothing can be running
}

void WorkflowManager::onPrintButtonEnableChange(bool enable)
{
    m_calls.command("IWfM::onPrintButtonEnableChange", enable);
    emit printButtonEnableChanged(enable);
}

} // namespace Terminal
} // namespace Brimvale
