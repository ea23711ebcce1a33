// SPDX-License-Identifier: BSD-3-Clause
#include "WorkflowStep.h"

#include "core/Logging.h"

#include <utility>

namespace Brimvale
{

WorkflowStep::WorkflowStep(QObject* parent, int stepId, QString functionId,
                           QFlags<StepFunctionButtonFlag> buttonFlags, TriggerType preWorkflowTrigger,
                           IWorkflowScreen* preWorkflowScreen, TriggerType postWorkflowTrigger,
                           IWorkflowScreen* postWorkflowScreen, QString actionButton, QVariant settings,
                           QString parameter, bool (*isEnabled)())
    : QObject(parent)
    , m_stepId(stepId)
    , m_functionId(std::move(functionId))
    , m_buttonFlags(buttonFlags)
    , m_preWorkflowTrigger(preWorkflowTrigger)
    , m_preWorkflowScreen(preWorkflowScreen)
    , m_postWorkflowTrigger(postWorkflowTrigger)
    , m_postWorkflowScreen(postWorkflowScreen)
    , m_actionButton(std::move(actionButton))
    , m_settings(std::move(settings))
    , m_parameter(std::move(parameter))
    , m_isEnabled(isEnabled)
{
}

WorkflowStep::~WorkflowStep()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

int WorkflowStep::stepId() const
{
    return m_stepId;
}

QString WorkflowStep::functionId() const
{
    return m_functionId;
}

QFlags<StepFunctionButtonFlag> WorkflowStep::getStepFunctionButtonsFlags() const
{
    return m_buttonFlags;
}

TriggerType WorkflowStep::preWorkflowTrigger() const
{
    return m_preWorkflowTrigger;
}

IWorkflowScreen* WorkflowStep::preWorkflowScreen() const
{
    return m_preWorkflowScreen;
}

TriggerType WorkflowStep::postWorkflowTrigger() const
{
    return m_postWorkflowTrigger;
}

IWorkflowScreen* WorkflowStep::postWorkflowScreen() const
{
    return m_postWorkflowScreen;
}

QString WorkflowStep::getActionButton() const
{
    return m_actionButton;
}

QVariant WorkflowStep::getSettings() const
{
    return m_settings;
}

QString WorkflowStep::getParameter() const
{
    return m_parameter;
}

bool WorkflowStep::isEnabled()
{
    return m_isEnabled();
}

bool WorkflowStep::isEqual(IWorkflowStep* other)
{
    return stepId() == other->stepId() && functionId() == other->functionId();
}

} // namespace Brimvale
