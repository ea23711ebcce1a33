// SPDX-License-Identifier: BSD-3-Clause
#include "app/TimeDriver.h"

#include "clock/VirtualClock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Runs the event loop until something happened or @p ms of real time are over.
void waitForEvents(qint64 ms)
{
    QTimer timer(QCoreApplication::instance());
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(static_cast<int>(std::clamp<qint64>(ms, 0, 3600000)));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    TimeDriver::settle();
}

} // namespace

TimeDriver::~TimeDriver() = default;

TimeDriver::Result TimeDriver::run(qint64 ms)
{
    const Result result = runUntil([] { return false; }, ms);
    return result == Result::TimedOut ? Result::Met : result;
}

void TimeDriver::settle()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    // Outside of exec() the event loop leaves these to us.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

VirtualTimeDriver::VirtualTimeDriver(VirtualClock& clock, std::optional<double> speed)
    : m_clock(clock)
    , m_speed(speed)
{
}

TimeDriver::Result VirtualTimeDriver::runUntil(const std::function<bool()>& condition, qint64 limitMs)
{
    const qint64 endMs = m_clock.nowMs() + limitMs;
    while (true) {
        settle();
        if (isInterrupted())
            return Result::Interrupted;
        if (condition())
            return Result::Met;
        if (m_clock.nowMs() >= endMs)
            return Result::TimedOut;
        const qint64 nextMs = std::min(m_clock.nextDueMs().value_or(endMs), endMs);
        if (m_speed)
            waitFor(nextMs);
        if (isInterrupted())
            return Result::Interrupted;
        if (m_clock.nextDueMs().value_or(endMs + 1) <= endMs)
            m_clock.runNext();
        else
            m_clock.advance(endMs - m_clock.nowMs());
    }
}

/// Waits until the real time has come at which the clock is to show @p timeMs.
void VirtualTimeDriver::waitFor(qint64 timeMs)
{
    if (!m_elapsed.isValid()) {
        m_elapsed.start();
        m_startMs = m_clock.nowMs();
    }
    const auto realMs = static_cast<qint64>(std::ceil(static_cast<double>(timeMs - m_startMs) / *m_speed));
    while (!isInterrupted() && m_elapsed.elapsed() < realMs)
        waitForEvents(realMs - m_elapsed.elapsed());
}

RealTimeDriver::RealTimeDriver(const Clock& clock)
    : m_clock(clock)
{
}

TimeDriver::Result RealTimeDriver::runUntil(const std::function<bool()>& condition, qint64 limitMs)
{
    const qint64 endMs = m_clock.nowMs() + limitMs;
    settle();
    while (true) {
        if (isInterrupted())
            return Result::Interrupted;
        if (condition())
            return Result::Met;
        const qint64 nowMs = m_clock.nowMs();
        if (nowMs >= endMs)
            return Result::TimedOut;
        waitForEvents(endMs - nowMs);
    }
}

} // namespace Terminal
} // namespace Brimvale
