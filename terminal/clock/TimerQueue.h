// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TIMERQUEUE_H
#define BRIMVALE_TIMERQUEUE_H

#include "clock/Clock.h"

#include <map>
#include <unordered_map>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

/// Pending callbacks in the order in which they are due; those due at the same time in the order of their
/// ids, which is the order in which they were added.
class TimerQueue
{
public:
    /// Adds @p callback, due @p delayMs after @p nowMs (a negative delay counts as 0, one beyond the range of
    /// the time saturates).
    Clock::TimerId add(qint64 nowMs, qint64 delayMs, std::function<void()> callback);

    void remove(Clock::TimerId id);
    bool isEmpty() const { return m_callbacks.empty(); }

    /// When the first callback is due and its id. Only valid while the queue is not empty.
    qint64 firstDueMs() const { return m_callbacks.begin()->first.first; }
    Clock::TimerId firstId() const { return m_callbacks.begin()->first.second; }

    /// The id that the next added callback gets; ids only ever grow.
    Clock::TimerId nextId() const { return m_nextId; }

    /// Removes the first callback and hands it out. Only valid while the queue is not empty.
    std::function<void()> takeFirst();

private:
    std::map<std::pair<qint64, Clock::TimerId>, std::function<void()>> m_callbacks;
    std::unordered_map<Clock::TimerId, qint64> m_dueOfId;
    Clock::TimerId m_nextId = 1;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TIMERQUEUE_H
