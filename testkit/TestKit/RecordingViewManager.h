// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGVIEWMANAGER_H
#define BRIMVALE_TESTKIT_RECORDINGVIEWMANAGER_H

#include "IPluginViewManager.h"

#include <QObject>

#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;

/// A view manager that a plug-in under test returns from `CreateViewManager()`. Its end is recorded too, as
/// `IPluginViewManager::~IPluginViewManager()`. See RecordingHost::createViewManager().
class RecordingViewManager : public QObject, public IPluginViewManager
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingViewManager)

public:
    /// Made by RecordingHost.
    explicit RecordingViewManager(std::shared_ptr<CallRecorder> recorder);
    ~RecordingViewManager() override; // NOLINT(bugprone-exception-escape): as at its definition

    void Setup(int mode) override;

private:
    std::shared_ptr<CallRecorder> m_recorder;
};

} // namespace Brimvale::TestKit

#endif
