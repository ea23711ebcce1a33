// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingWeighing.h"

#include "CallRecorder.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingWeighing::RecordingWeighing(std::shared_ptr<CallRecorder> recorder)
    : m_recorder(std::move(recorder))
{
}

RecordingWeighing::~RecordingWeighing() = default;

bool RecordingWeighing::Tare()
{
    return m_recorder->call<bool>("IWeighing::Tare");
}

bool RecordingWeighing::Zero()
{
    return m_recorder->call<bool>("IWeighing::Zero");
}

bool RecordingWeighing::ClearTare()
{
    return m_recorder->call<bool>("IWeighing::ClearTare");
}

} // namespace Brimvale::TestKit
