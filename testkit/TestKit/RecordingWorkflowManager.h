// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGWORKFLOWMANAGER_H
#define BRIMVALE_TESTKIT_RECORDINGWORKFLOWMANAGER_H

#include "IWfM.h"

#include <QList>
#include <QObject>

#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;
template <typename Interface>
class HandedOver;

/// The workflow manager of a recording host. The state of the print button reaches it as
/// `IWfM::onPrintButtonEnableChange(true)`.
class RecordingWorkflowManager : public QObject, public IWfM
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingWorkflowManager)

public:
    /// Made by RecordingHost.
    explicit RecordingWorkflowManager(std::shared_ptr<CallRecorder> recorder);
    ~RecordingWorkflowManager() override;

    void Reset() override;
    void AddStepFunction(IStepFunction* function) override;
    void RemoveStepFunction(IStepFunction* function) override;
    bool StartWorkflow(const QList<IWorkflowStep*>& steps) override;
    void AbortWorkflow() override;

    /// The step functions that were added, not removed, and still exist.
    QList<IStepFunction*> stepFunctions() const;

public Q_SLOTS:
    void onPrintButtonEnableChange(bool enable);

Q_SIGNALS:
    // Never sent by itself: a test emits them as the terminal would.

    /// The step with that `stepId()` was entered.
    void NotifyWorkflowStepEntered(int stepId);
    /// The workflow has ended, after its last step (`completed`) or abandoned.
    void NotifyWorkflowFinished(bool completed);

private:
    std::shared_ptr<CallRecorder> m_recorder;
    std::unique_ptr<HandedOver<IStepFunction>> m_stepFunctions;
};

} // namespace Brimvale::TestKit

#endif
