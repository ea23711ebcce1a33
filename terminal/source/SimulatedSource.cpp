// SPDX-License-Identifier: BSD-3-Clause
#include "source/SimulatedSource.h"

#include <QPointer>

#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

// The cell as a damped oscillator: angular frequency 8.75 per second, damping ratio 0.8.
constexpr double StepSeconds = 0.001;
constexpr double Stiffness = 8.75 * 8.75;
constexpr double Damping = 2.0 * 0.8 * 8.75;

/// After so long without a step the cell has settled whatever happened before.
constexpr qint64 SettledMs = 20000;

/// When the event loop was so late that more readings are due, the older ones are left out.
constexpr qint64 MaximumCatchUp = 200;

constexpr double MaximumLoad = 1.0e9;

} // namespace

SimulatedSource::SimulatedSource(Clock& clock, const SimulationSettings& settings, QObject* parent)
    : WeightSource(parent)
    , m_clock(clock)
    , m_readability(settings.readability)
    , m_capacity(settings.capacity > 0.0
                     ? settings.capacity
                     : SimulationSettings::DefaultCapacityIncrements * settings.readability.grams())
    , m_rate(std::isfinite(settings.readingsPerSecond) ? qBound(0.1, settings.readingsPerSecond, 1000.0)
                                                       : 10.0)
    , m_noise(0.0)
    , m_cellTimeMs(clock.nowMs())
    , m_random(settings.seed)
{
    setNoise(settings.noise);
}

SimulatedSource::~SimulatedSource()
{
    m_clock.cancel(m_timer);
}

void SimulatedSource::start()
{
    if (m_running)
        return;
    m_running = true;
    ++m_run;
    m_startMs = m_clock.nowMs();
    m_delivered = 0;
    scheduleNext();
}

void SimulatedSource::stop()
{
    m_running = false;
    ++m_run;
    m_clock.cancel(m_timer);
    m_timer = 0;
}

QString SimulatedSource::description() const
{
    return tr("Simulated scale, %1 g, readability %2 g")
        .arg(QString::number(m_capacity, 'g', 10), m_readability.format(m_readability.incrementDigits()));
}

double SimulatedSource::readability() const
{
    return m_readability.grams();
}

void SimulatedSource::putOn(double grams)
{
    setLoad(m_load + grams);
}

void SimulatedSource::takeOff(double grams)
{
    setLoad(m_load - grams);
}

void SimulatedSource::clear()
{
    setLoad(0.0);
}

void SimulatedSource::setLoad(double grams)
{
    if (!std::isfinite(grams))
        return;
    const double load = qBound(-MaximumLoad, grams, MaximumLoad);
    if (load == m_load)
        return;
    advanceTo(m_clock.nowMs());
    m_load = load;
    emit loadChanged(m_load);
}

void SimulatedSource::setNoise(double increments)
{
    if (std::isfinite(increments))
        m_noise = qMax(0.0, increments);
}

void SimulatedSource::setDrift(double gramsPerMinute)
{
    if (!std::isfinite(gramsPerMinute))
        return;
    advanceTo(m_clock.nowMs());
    m_drift = gramsPerMinute;
}

void SimulatedSource::resetDrift()
{
    advanceTo(m_clock.nowMs());
    m_drifted = 0.0;
}

void SimulatedSource::setConnected(bool connected)
{
    if (connected == m_connected)
        return;
    m_connected = connected;
    if (!m_running)
        return;
    const QPointer<SimulatedSource> self(this);
    emit connectionChanged(connected, connected ? tr("The cable is plugged in.") : tr("The cable is out."));
    if (self && m_running && !m_connected)
        deliver(m_clock.nowMs());
}

void SimulatedSource::scheduleNext()
{
    const qint64 dueMs = m_startMs + qRound64(static_cast<double>(m_delivered) * 1000.0 / m_rate);
    m_timer = m_clock.callAfter(dueMs - m_clock.nowMs(), [this] { deliverDue(); });
}

void SimulatedSource::deliverDue()
{
    m_timer = 0;
    const quint64 run = m_run;
    const QPointer<SimulatedSource> self(this);
    const qint64 now = m_clock.nowMs();
    const qint64 due =
        static_cast<qint64>(std::floor(static_cast<double>(now - m_startMs) * m_rate / 1000.0));
    m_delivered = qMax(m_delivered, due - MaximumCatchUp);
    for (;;) {
        const qint64 dueMs = m_startMs + qRound64(static_cast<double>(m_delivered) * 1000.0 / m_rate);
        if (dueMs > now)
            break;
        ++m_delivered;
        deliver(dueMs);
        if (!self || run != m_run)
            return;
    }
    scheduleNext();
}

void SimulatedSource::deliver(qint64 timeMs)
{
    if (!m_connected) {
        emit reading(Reading::invalid(timeMs, Reading::Status::Disconnected, tr("The cable is out.")));
        return;
    }
    advanceTo(timeMs);
    const double noise = m_noise > 0.0 ? m_noise * m_readability.grams() * gaussian() : 0.0;
    const double digits = m_readability.round(m_position + m_drifted + noise);
    const double increment = m_readability.incrementDigits();
    if (digits > m_readability.toDigits(m_capacity) + OverloadIncrements * increment) {
        emit reading(Reading::invalid(timeMs, Reading::Status::Overload,
                                      tr("More than %1 g.").arg(QString::number(m_capacity, 'g', 10))));
    } else if (digits < -UnderloadIncrements * increment
               && m_readability.round(m_load + m_drifted) < -UnderloadIncrements * increment) {
        // A cell that swings below its end after a load was taken off has not lost its pan.
        emit reading(Reading::invalid(timeMs, Reading::Status::Underload, tr("The load is below zero.")));
    } else {
        emit reading(Reading::valid(timeMs, m_readability.toGrams(digits)));
    }
}

void SimulatedSource::advanceTo(qint64 timeMs)
{
    if (timeMs <= m_cellTimeMs)
        return;
    const qint64 elapsedMs = timeMs - m_cellTimeMs;
    m_cellTimeMs = timeMs;
    m_drifted += m_drift * static_cast<double>(elapsedMs) / 60000.0;
    // The drift, too, ends somewhere.
    m_drifted = qBound(-MaximumLoad, m_drifted, MaximumLoad);

    const double still = m_readability.grams() * 1.0e-6;
    for (qint64 step = 0; step < qMin(elapsedMs, SettledMs); ++step) {
        m_velocity += (Stiffness * (m_load - m_position) - Damping * m_velocity) * StepSeconds;
        m_position += m_velocity * StepSeconds;
        if (std::fabs(m_load - m_position) < still && std::fabs(m_velocity) < still) {
            m_position = m_load;
            m_velocity = 0.0;
            break;
        }
    }
    if (elapsedMs >= SettledMs) {
        m_position = m_load;
        m_velocity = 0.0;
    }
}

double SimulatedSource::gaussian()
{
    // The sum of twelve uniform numbers has the variance 1 and is close to a normal distribution; it needs
    // additions only, which come out alike everywhere.
    double sum = -6.0;
    for (int i = 0; i < 12; ++i)
        sum += static_cast<double>(nextRandom() >> 11) * (1.0 / 9007199254740992.0);
    return sum;
}

quint64 SimulatedSource::nextRandom()
{
    // SplitMix64, by Sebastiano Vigna (public domain): every seed is a good one.
    m_random += Q_UINT64_C(0x9e3779b97f4a7c15);
    quint64 z = m_random;
    z = (z ^ (z >> 30)) * Q_UINT64_C(0xbf58476d1ce4e5b9);
    z = (z ^ (z >> 27)) * Q_UINT64_C(0x94d049bb133111eb);
    return z ^ (z >> 31);
}

} // namespace Terminal
} // namespace Brimvale
