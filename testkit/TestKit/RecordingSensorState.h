// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_RECORDINGSENSORSTATE_H
#define BRIMVALE_TESTKIT_RECORDINGSENSORSTATE_H

#include "ISensorState.h"

#include <QObject>

#include <memory>

namespace Brimvale::TestKit
{

class CallRecorder;

/// The sensor state of a recording host. See RecordingHost::setLevelled().
class RecordingSensorState : public QObject, public ISensorState
{
    Q_OBJECT
    Q_DISABLE_COPY(RecordingSensorState)

public:
    /// Made by RecordingHost.
    explicit RecordingSensorState(std::shared_ptr<CallRecorder> recorder);
    ~RecordingSensorState() override;

    bool IsLevellingNotAdjusted() override;

Q_SIGNALS:
    /// The balance has been levelled or has come out of level.
    void notifyLevellingNotAdjustedChanged();

private:
    std::shared_ptr<CallRecorder> m_recorder;
};

} // namespace Brimvale::TestKit

#endif
