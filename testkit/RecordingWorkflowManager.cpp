// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingWorkflowManager.h"

#include "CallRecorder.h"
#include "HandedOver.h"
#include "IStepFunction.h"
#include "IWorkflowStep.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingWorkflowManager::RecordingWorkflowManager(std::shared_ptr<CallRecorder> recorder)
    : m_recorder(std::move(recorder))
    , m_stepFunctions(std::make_unique<HandedOver<IStepFunction>>())
{
}

RecordingWorkflowManager::~RecordingWorkflowManager() = default;

QList<IStepFunction*> RecordingWorkflowManager::stepFunctions() const
{
    return m_stepFunctions->objects();
}

void RecordingWorkflowManager::Reset()
{
    m_recorder->call("IWfM::Reset");
}

void RecordingWorkflowManager::AddStepFunction(IStepFunction* function)
{
    m_stepFunctions->add(function);
    m_recorder->call("IWfM::AddStepFunction", function);
}

void RecordingWorkflowManager::RemoveStepFunction(IStepFunction* function)
{
    m_stepFunctions->remove(function);
    m_recorder->call("IWfM::RemoveStepFunction", function);
}

bool RecordingWorkflowManager::StartWorkflow(const QList<IWorkflowStep*>& steps)
{
    return m_recorder->call<bool>("IWfM::StartWorkflow", steps);
}

void RecordingWorkflowManager::AbortWorkflow()
{
    m_recorder->call("IWfM::AbortWorkflow");
}

void RecordingWorkflowManager::onPrintButtonEnableChange(bool enable)
{
    m_recorder->call("IWfM::onPrintButtonEnableChange", enable);
}

} // namespace Brimvale::TestKit
