// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/RecordingCalibrationService.h"

#include "CallRecorder.h"

#include <utility>

namespace Brimvale::TestKit
{

RecordingCalibrationService::RecordingCalibrationService(std::shared_ptr<CallRecorder> recorder)
    : m_recorder(std::move(recorder))
{
}

RecordingCalibrationService::~RecordingCalibrationService() = default;

QString RecordingCalibrationService::GetCalibrationWarningText()
{
    return m_recorder->call<QString>("ICalibrationService::GetCalibrationWarningText");
}

} // namespace Brimvale::TestKit
