// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGCALIBRATIONSERVICE_H
#define BRIMVALE_TESTKIT_RECORDINGCALIBRATIONSERVICE_H

#include "ICalibrationService.h"

#include <QObject>

#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;

/// The calibration service of a recording host. See RecordingHost::setCalibrationWarning().
class RecordingCalibrationService : public QObject, public ICalibrationService
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingCalibrationService)

public:
    /// Made by RecordingHost.
    explicit RecordingCalibrationService(std::shared_ptr<CallRecorder> recorder);
    ~RecordingCalibrationService() override;

    QString GetCalibrationWarningText() override;

Q_SIGNALS:
    /// The text of the warning has changed.
    void notifyCalibrationWarningChanged();

private:
    std::shared_ptr<CallRecorder> m_recorder;
};

} // namespace Brimvale::TestKit

#endif
