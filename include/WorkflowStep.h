// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWSTEP_H
#define BRIMVALE_WORKFLOWSTEP_H

#include "IWorkflowStep.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// The description of one step of a workflow. It does nothing by itself, and nothing of it can be changed.
class BRIMVALE_EXPORT WorkflowStep : public QObject, public IWorkflowStep
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowStep)
    Q_INTERFACES(Brimvale::IWorkflowStep)

public:
    /// Stores everything. The screens may be null; they are not owned and must outlive the step. `isEnabled` must not
    /// be null: it is called whenever the step is asked. `parent` owns the step.
    WorkflowStep(QObject* parent, int stepId, QString functionId, QFlags<StepFunctionButtonFlag> buttonFlags,
                 TriggerType preWorkflowTrigger, IWorkflowScreen* preWorkflowScreen,
                 TriggerType postWorkflowTrigger, IWorkflowScreen* postWorkflowScreen, QString actionButton,
                 QVariant settings, QString parameter, bool (*isEnabled)());
    ~WorkflowStep() override;

    int stepId() const override;
    QString functionId() const override;
    QFlags<StepFunctionButtonFlag> getStepFunctionButtonsFlags() const override;
    TriggerType preWorkflowTrigger() const override;
    IWorkflowScreen* preWorkflowScreen() const override;
    TriggerType postWorkflowTrigger() const override;
    IWorkflowScreen* postWorkflowScreen() const override;
    QString getActionButton() const override;
    QVariant getSettings() const override;
    QString getParameter() const override;
    bool isEnabled() override;

    /// True when step id and function id are equal; screens, triggers and all else are not looked at.
    bool isEqual(IWorkflowStep* other) override;

private:
    int m_stepId;
    QString m_functionId;
    QFlags<StepFunctionButtonFlag> m_buttonFlags;
    TriggerType m_preWorkflowTrigger;
    IWorkflowScreen* m_preWorkflowScreen;
    TriggerType m_postWorkflowTrigger;
    IWorkflowScreen* m_postWorkflowScreen;
    QString m_actionButton;
    QVariant m_settings;
    QString m_parameter;
    bool (*m_isEnabled)();
};

} // namespace Brimvale

#endif
