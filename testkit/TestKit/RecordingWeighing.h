// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGWEIGHING_H
#define BRIMVALE_TESTKIT_RECORDINGWEIGHING_H

#include "IWeighing.h"

#include <QObject>

#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;

/// The scale of a recording host. See RecordingHost::emitNewMeasurement() and
/// RecordingHost::emitLoadChanged().
class RecordingWeighing : public QObject, public IWeighing
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingWeighing)

public:
    /// Made by RecordingHost.
    explicit RecordingWeighing(std::shared_ptr<CallRecorder> recorder);
    ~RecordingWeighing() override;

    bool Tare() override;
    bool Zero() override;
    bool ClearTare() override;

Q_SIGNALS:
    /// A new stable value, in digits of the gram reading.
    void NotifyLoadChanged(int stableCounter, double netDigits);

    /// A new value is ready in register 74.
    void NotifyNewMeasurementValue();

private:
    std::shared_ptr<CallRecorder> m_recorder;
};

} // namespace Brimvale::TestKit

#endif
