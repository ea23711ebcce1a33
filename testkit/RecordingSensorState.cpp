// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingSensorState.h"

#include "CallRecorder.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingSensorState::RecordingSensorState(std::shared_ptr<CallRecorder> recorder)
    : m_recorder(std::move(recorder))
{
}

RecordingSensorState::~RecordingSensorState() = default;

bool RecordingSensorState::IsLevellingNotAdjusted()
{
    return m_recorder->call<bool>("ISensorState::IsLevellingNotAdjusted");
}

} // namespace Brimvale::TestKit
