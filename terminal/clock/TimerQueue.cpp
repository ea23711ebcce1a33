// SPDX-License-Identifier: BSD-3-Clause
#include "clock/TimerQueue.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

Clock::TimerId TimerQueue::add(qint64 nowMs, qint64 delayMs, std::function<void()> callback)
{
    const qint64 delay = qMax<qint64>(0, delayMs);
    const qint64 latest = std::numeric_limits<qint64>::max();
    const qint64 due = nowMs > latest - delay ? latest : nowMs + delay;
    const Clock::TimerId id = m_nextId++;
    m_callbacks.emplace(std::make_pair(due, id), std::move(callback));
    m_dueOfId.emplace(id, due);
    return id;
}

void TimerQueue::remove(Clock::TimerId id)
{
    const auto found = m_dueOfId.find(id);
    if (found == m_dueOfId.end())
        return;
    m_callbacks.erase(std::make_pair(found->second, id));
    m_dueOfId.erase(found);
}

std::function<void()> TimerQueue::takeFirst()
{
    const auto first = m_callbacks.begin();
    std::function<void()> callback = std::move(first->second);
    m_dueOfId.erase(first->first.second);
    m_callbacks.erase(first);
    return callback;
}

} // namespace Terminal
} // namespace Brimvale
