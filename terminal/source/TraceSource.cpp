// SPDX-License-Identifier: BSD-3-Clause
#include "source/TraceSource.h"

#include <QPointer>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// How many readings are delivered in one turn when the clock is far ahead of them.
constexpr int MaximumBatch = 1000;

} // namespace

TraceSource::TraceSource(Clock& clock, const TraceFile& trace, const QString& name,
                         const Readability& readability, QObject* parent)
    : WeightSource(parent)
    , m_clock(clock)
    , m_trace(trace)
    , m_name(name)
    , m_readability(readability)
{
}

TraceSource::~TraceSource()
{
    m_clock.cancel(m_timer);
}

std::optional<Readability> TraceSource::readabilityOf(const TraceFile& trace)
{
    return Readability::fromDecimals(trace.decimals());
}

void TraceSource::start()
{
    if (m_running)
        return;
    m_running = true;
    m_finished = false;
    ++m_run;
    m_startMs = m_clock.nowMs();
    m_next = 0;
    scheduleNext();
}

void TraceSource::stop()
{
    m_running = false;
    ++m_run;
    m_clock.cancel(m_timer);
    m_timer = 0;
}

QString TraceSource::description() const
{
    return tr("Recording %1").arg(m_name);
}

void TraceSource::scheduleNext()
{
    const qint64 dueMs = m_startMs + m_trace.samples().at(m_next).timeMs;
    m_timer = m_clock.callAfter(dueMs - m_clock.nowMs(), [this] { deliverDue(); });
}

void TraceSource::deliverDue()
{
    m_timer = 0;
    const quint64 run = m_run;
    const QPointer<TraceSource> self(this);
    const qint64 now = m_clock.nowMs();
    const QVector<TraceFile::Sample>& samples = m_trace.samples();
    for (int count = 0; count < MaximumBatch && m_next < samples.size(); ++count) {
        const TraceFile::Sample& sample = samples.at(m_next);
        const qint64 timeMs = m_startMs + sample.timeMs;
        if (timeMs > now)
            break;
        ++m_next;
        emit reading(Reading::valid(timeMs, sample.grams));
        if (!self || run != m_run)
            return;
    }
    if (m_next < samples.size()) {
        scheduleNext();
        return;
    }
    m_running = false;
    m_finished = true;
    emit finished();
}

} // namespace Terminal
} // namespace Brimvale
