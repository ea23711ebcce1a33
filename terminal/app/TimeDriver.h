// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TIMEDRIVER_H
#define BRIMVALE_TIMEDRIVER_H

#include <QElapsedTimer>
#include <QtGlobal>

#include <functional>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

class Clock;
class VirtualClock;

/// Lets the time of a run without a window pass: what an event loop is to a window.
class TimeDriver
{
public:
    enum class Result
    {
        Met,        ///< The condition holds.
        TimedOut,   ///< It did not come about in time.
        Interrupted ///< interrupt() was called.
    };

    TimeDriver() = default;
    virtual ~TimeDriver();
    Q_DISABLE_COPY(TimeDriver)

    /// Lets the time pass until @p condition holds (it is asked at once and after everything that happens), or
    /// @p limitMs of the clock are over.
    virtual Result runUntil(const std::function<bool()>& condition, qint64 limitMs) = 0;

    /// Lets @p ms of the clock pass.
    Result run(qint64 ms);

    /// Carries out what waits for the event loop, without letting time pass.
    static void settle();

    /// Ends the present and every further run. May be called from a callback.
    void interrupt() { m_interrupted = true; }
    bool isInterrupted() const { return m_interrupted; }

private:
    bool m_interrupted = false;
};

/// Moves a virtual clock on from one callback to the next, and carries out what waits for the event loop in between.
class VirtualTimeDriver : public TimeDriver
{
public:
    /// @param clock not owned, must outlive the driver.
    /// @param speed how many times as fast as real time; unset: as fast as can be computed.
    explicit VirtualTimeDriver(VirtualClock& clock, std::optional<double> speed = std::nullopt);

    Result runUntil(const std::function<bool()>& condition, qint64 limitMs) override;

private:
    void waitFor(qint64 timeMs);

    VirtualClock& m_clock;
    const std::optional<double> m_speed;
    // Since the first run; invalid before it.
    QElapsedTimer m_elapsed;
    qint64 m_startMs = 0;
};

/// Runs the event loop while the time of a real clock passes.
class RealTimeDriver : public TimeDriver
{
public:
    /// @param clock not owned, must outlive the driver.
    explicit RealTimeDriver(const Clock& clock);

    Result runUntil(const std::function<bool()>& condition, qint64 limitMs) override;

private:
    const Clock& m_clock;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TIMEDRIVER_H
