// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SENSORSTATE_H
#define BRIMVALE_SENSORSTATE_H

#include "ISensorState.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Whether the balance stands level, as the level bubble of the bench says.
class SensorState : public QObject, public ISensorState
{
    Q_OBJECT
    Q_DISABLE_COPY(SensorState)

public:
    explicit SensorState(HostCallLog& calls, QObject* parent = nullptr);

    // ISensorState
    bool IsLevellingNotAdjusted() override;

    bool isLevelled() const { return m_levelled; }
    /// Returns whether that is a change.
    bool setLevelled(bool levelled);

signals:
    void notifyLevellingNotAdjustedChanged();

private:
    HostCallLog& m_calls;
    bool m_levelled = true;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SENSORSTATE_H
