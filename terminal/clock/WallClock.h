// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WALLCLOCK_H
#define BRIMVALE_WALLCLOCK_H

#include "clock/Clock.h"
#include "clock/TimerQueue.h"

#include <QElapsedTimer>
#include <QTimer>

namespace Brimvale
{
namespace Terminal
{

/// Real time, taken from the system's date once at construction and counted on by the monotonic timer, so
/// that setting the system's date neither delays nor hurries a weighing. Its callbacks run from the event
/// loop of the thread that made it.
class WallClock : public Clock
{
public:
    /// @param speed how many times as fast as real time the clock runs; what is not a positive finite number
    ///              counts as 1.
    explicit WallClock(double speed = 1.0);
    ~WallClock() override;

    qint64 nowMs() const override;
    TimerId callAfter(qint64 ms, std::function<void()> callback) override;
    void cancel(TimerId id) override;

    double speed() const { return m_speed; }

private:
    void arm();
    void runDue();

    double m_speed;
    qint64 m_startMs;
    QElapsedTimer m_elapsed;
    TimerQueue m_queue;
    QTimer m_timer;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WALLCLOCK_H
