// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRACESOURCE_H
#define BRIMVALE_TRACESOURCE_H

#include "clock/Clock.h"
#include "measuring/Readability.h"
#include "source/TraceFile.h"
#include "source/WeightSource.h"

namespace Brimvale
{
namespace Terminal
{

/// Plays a recorded weighing: every reading comes at its recorded time after start(), and bears that time
/// even when the event loop was late. None is left out. The weights are handed on as they were recorded.
class TraceSource : public WeightSource
{
    Q_OBJECT

public:
    /// @param clock       not owned, must outlive the source.
    /// @param trace       the recording.
    /// @param name        names it in description().
    /// @param readability what a display shall resolve; see readabilityOf() for the recording's own.
    TraceSource(Clock& clock, const TraceFile& trace, const QString& name, const Readability& readability,
                QObject* parent = nullptr);
    ~TraceSource() override;

    /// The recording's own readability: as many decimal places as its weights are written with. Nothing when
    /// they have more than Readability::MaximumDecimals.
    static std::optional<Readability> readabilityOf(const TraceFile& trace);

    void start() override;
    void stop() override;
    QString description() const override;
    double readability() const override { return m_readability.grams(); }
    bool isLive() const override { return false; }

    bool isFinished() const { return m_finished; }
    const TraceFile& trace() const { return m_trace; }

private:
    void scheduleNext();
    void deliverDue();

    Clock& m_clock;
    const TraceFile m_trace;
    const QString m_name;
    const Readability m_readability;
    bool m_running = false;
    bool m_finished = false;
    qint64 m_startMs = 0;
    int m_next = 0; ///< Index of the next sample.
    Clock::TimerId m_timer = 0;
    quint64 m_run = 0; ///< Counts start() and stop(), so that a delivery notices either.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TRACESOURCE_H
