// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingViewManager.h"

#include "CallRecorder.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingViewManager::RecordingViewManager(std::shared_ptr<CallRecorder> recorder)
    : m_recorder(std::move(recorder))
{
}

// The operation is known; only a hook of the test could throw.
RecordingViewManager::~RecordingViewManager() // NOLINT(bugprone-exception-escape)
{
    m_recorder->call("IPluginViewManager::~IPluginViewManager");
}

void RecordingViewManager::Setup(int mode)
{
    m_recorder->call("IPluginViewManager::Setup", mode);
}

} // namespace Brimvale::TestKit
