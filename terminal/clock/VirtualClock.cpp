// SPDX-License-Identifier: BSD-3-Clause
#include "clock/VirtualClock.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

VirtualClock::VirtualClock(qint64 startMs)
    : m_nowMs(startMs)
{
}

VirtualClock::VirtualClock(const QDateTime& start)
    : m_nowMs(start.isValid() ? start.toMSecsSinceEpoch() : DefaultStartMs)
{
}

Clock::TimerId VirtualClock::callAfter(qint64 ms, std::function<void()> callback)
{
    if (!callback)
        return 0;
    return m_queue.add(m_nowMs, ms, std::move(callback));
}

void VirtualClock::cancel(TimerId id)
{
    m_queue.remove(id);
}

bool VirtualClock::runNext()
{
    if (m_queue.isEmpty())
        return false;
    m_nowMs = m_queue.firstDueMs();
    const std::function<void()> callback = m_queue.takeFirst();
    callback();
    return true;
}

void VirtualClock::advance(qint64 ms)
{
    if (ms < 0)
        return;
    const qint64 latest = std::numeric_limits<qint64>::max();
    const qint64 end = m_nowMs > latest - ms ? latest : m_nowMs + ms;
    while (!m_queue.isEmpty() && m_queue.firstDueMs() <= end)
        runNext();
    m_nowMs = qMax(m_nowMs, end);
}

std::optional<qint64> VirtualClock::nextDueMs() const
{
    if (m_queue.isEmpty())
        return std::nullopt;
    return m_queue.firstDueMs();
}

} // namespace Terminal
} // namespace Brimvale
