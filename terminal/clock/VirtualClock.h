// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_VIRTUALCLOCK_H
#define BRIMVALE_VIRTUALCLOCK_H

#include "clock/Clock.h"
#include "clock/TimerQueue.h"

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// A clock that stands still until it is told to go on: headless runs and tests are as fast as they can be
/// computed and the same on every machine. It needs no event loop.
class VirtualClock : public Clock
{
public:
    /// 2026-01-01T08:00:00 UTC, where every virtual clock starts that is not told otherwise.
    static constexpr qint64 DefaultStartMs = 1767254400000;

    explicit VirtualClock(qint64 startMs = DefaultStartMs);
    explicit VirtualClock(const QDateTime& start);

    qint64 nowMs() const override { return m_nowMs; }
    TimerId callAfter(qint64 ms, std::function<void()> callback) override;
    void cancel(TimerId id) override;

    /// Moves the time on to the next pending callback and runs it.
    /// @return false, with the time unchanged, when none is pending.
    bool runNext();

    /// Moves the time on by @p ms (nothing happens when that is negative) and runs every callback that is due
    /// by then, each at its own time, those included that are asked for meanwhile. May be called from a
    /// callback.
    void advance(qint64 ms);

    /// When the next callback is due, if one is pending.
    std::optional<qint64> nextDueMs() const;

private:
    qint64 m_nowMs;
    TimerQueue m_queue;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_VIRTUALCLOCK_H
