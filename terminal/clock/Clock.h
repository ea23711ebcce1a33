// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_CLOCK_H
#define BRIMVALE_CLOCK_H

#include <QDateTime>
#include <QtGlobal>

#include <functional>

namespace Brimvale
{
namespace Terminal
{

/// The one clock of the terminal. Everything that measures, waits or stamps a time asks it, so that a run can
/// be repeated on a VirtualClock with the same result, byte for byte.
///
/// Callbacks run on the thread of the clock, in the order of their due times; those due at the same time run
/// in the order in which they were asked for. A callback may ask for further callbacks and cancel any.
class Clock
{
public:
    /// Names a pending callback. No pending callback ever has the value 0.
    using TimerId = quint64;

    Clock() = default;
    virtual ~Clock();
    Q_DISABLE_COPY(Clock)

    /// Milliseconds since 1970-01-01T00:00:00 UTC. Never goes backwards.
    virtual qint64 nowMs() const = 0;

    /// nowMs() as date and time in UTC.
    QDateTime dateTime() const;

    /// Calls @p callback once, @p ms milliseconds of this clock from now; a negative @p ms counts as 0. The
    /// callback never runs inside this call. Without a callback nothing is planned and 0 is returned.
    virtual TimerId callAfter(qint64 ms, std::function<void()> callback) = 0;

    /// Forgets a pending callback. An id that has run already, was cancelled or is 0 is ignored.
    virtual void cancel(TimerId id) = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_CLOCK_H
