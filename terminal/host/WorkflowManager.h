// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKFLOWMANAGER_H
#define BRIMVALE_WORKFLOWMANAGER_H

#include "IWfM.h"
#include "host/OfferedList.h"

#include <QList>
#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;

/// The workflow manager. It keeps the step functions that are offered and passes on whether the print button
/// is enabled. This terminal runs no workflows yet: StartWorkflow() returns false and a notice says so.
class WorkflowManager : public QObject, public IWfM
{
    Q_OBJECT
    Q_DISABLE_COPY(WorkflowManager)

public:
    WorkflowManager(HostCallLog& calls, Notices& notices, QObject* parent = nullptr);

    // IWfM
    void Reset() override;
    void AddStepFunction(IStepFunction* function) override;
    void RemoveStepFunction(IStepFunction* function) override;
    bool StartWorkflow(const QList<IWorkflowStep*>& steps) override;
    void AbortWorkflow() override;

    /// The offered step functions in the order in which they came.
    QList<IStepFunction*> stepFunctions() const { return m_stepFunctions.list(); }

public slots:
    /// The plug-in says whether the print button is enabled.
    void onPrintButtonEnableChange(bool enable);

signals:
    void printButtonEnableChanged(bool enable);

private:
    HostCallLog& m_calls;
    Notices& m_notices;
    OfferedList<IStepFunction> m_stepFunctions;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WORKFLOWMANAGER_H
