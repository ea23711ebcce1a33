// SPDX-License-Identifier: BSD-3-Clause
#include "clock/WallClock.h"

#include <QDateTime>

#include <cmath>
#include <limits>

namespace Brimvale
{
namespace Terminal
{

WallClock::WallClock(double speed)
    : m_speed(std::isfinite(speed) && speed > 0.0 ? speed : 1.0)
    , m_startMs(QDateTime::currentMSecsSinceEpoch())
{
    m_elapsed.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { runDue(); });
}

WallClock::~WallClock() = default;

qint64 WallClock::nowMs() const
{
    const double elapsedMs = static_cast<double>(m_elapsed.nsecsElapsed()) / 1.0e6 * m_speed;
    // An absurd speed must not leave the range of the time.
    return m_startMs + static_cast<qint64>(qMin(elapsedMs, 4.0e18));
}

Clock::TimerId WallClock::callAfter(qint64 ms, std::function<void()> callback)
{
    if (!callback)
        return 0;
    const TimerId id = m_queue.add(nowMs(), ms, std::move(callback));
    if (m_queue.firstId() == id)
        arm();
    return id;
}

void WallClock::cancel(TimerId id)
{
    m_queue.remove(id);
    // The timer stays as it is: it finds nothing due and is set anew.
}

void WallClock::arm()
{
    if (m_queue.isEmpty()) {
        m_timer.stop();
        return;
    }
    const double waitMs = std::ceil(static_cast<double>(m_queue.firstDueMs() - nowMs()) / m_speed);
    // A wait beyond the range of a timer is taken in several.
    m_timer.start(
        static_cast<int>(qBound(0.0, waitMs, static_cast<double>(std::numeric_limits<int>::max()))));
}

void WallClock::runDue()
{
    // Callbacks that are asked for meanwhile wait for the next turn, so that one that always asks for another
    // at once does not keep the event loop from its other work.
    const qint64 now = nowMs();
    const TimerId end = m_queue.nextId();
    while (!m_queue.isEmpty() && m_queue.firstDueMs() <= now && m_queue.firstId() < end) {
        const std::function<void()> callback = m_queue.takeFirst();
        arm(); // Before the call, which may run an event loop of its own.
        callback();
    }
    arm();
}

} // namespace Terminal
} // namespace Brimvale
