// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SIMULATEDSOURCE_H
#define BRIMVALE_SIMULATEDSOURCE_H

#include "clock/Clock.h"
#include "measuring/Readability.h"
#include "source/WeightSource.h"

namespace Brimvale
{
namespace Terminal
{

/// What the simulated load cell is made like.
struct SimulationSettings
{
    Readability readability;         ///< 0.1 g unless set.
    double capacity = 0.0;           ///< Grams; 0 or less: DefaultCapacityIncrements times the readability.
    double readingsPerSecond = 10.0; ///< Brought into 0.1 to 1000.
    double noise = 0.2;              ///< Standard deviation in increments, as setNoise().
    quint64 seed = 1;                ///< Of the noise: the same seed gives the same noise on every machine.

    static constexpr double DefaultCapacityIncrements = 60000.0; ///< 6000 g at 0.1 g.
};

/// A simulated load cell: a spring and mass that settle with a touch of overshoot (1.5 %, within half an
/// increment of 1000 g at 0.1 g after some 1.5 s), under noise and drift.
///
/// It only adds, subtracts, multiplies and divides, in steps of one millisecond, and has its own noise
/// generator: the functions of the mathematics library and the distributions of the C++ library differ
/// between machines.
///
/// Overload is reported above capacity plus OverloadIncrements, underload below minus UnderloadIncrements,
/// both judged from the cell's own zero. The cable out is reported as Disconnected, at once and then at every
/// reading.
class SimulatedSource : public WeightSource
{
    Q_OBJECT

public:
    static constexpr double OverloadIncrements = 9.0;
    static constexpr double UnderloadIncrements = 20.0;

    /// @param clock not owned, must outlive the source.
    explicit SimulatedSource(Clock& clock, const SimulationSettings& settings = {},
                             QObject* parent = nullptr);
    ~SimulatedSource() override;

    void start() override;
    void stop() override;
    QString description() const override;
    double readability() const override;
    double capacity() const override { return m_capacity; }
    bool isLive() const override { return false; }

    /// Puts @p grams on the pan. What is not finite is ignored, here and in the other operations.
    void putOn(double grams);

    /// Takes @p grams off. More may be taken off than lies there: that lifts the pan and ends in underload.
    void takeOff(double grams);

    /// Takes everything off.
    void clear();

    /// What lies on the pan, in grams: what the cell settles to, without noise and drift.
    double load() const { return m_load; }

    /// Standard deviation of the noise in increments; negative counts as 0. No noise goes beyond six times
    /// that.
    void setNoise(double increments);
    double noise() const { return m_noise; }

    /// Drift in grams per minute, from now on; what has drifted so far stays. See resetDrift().
    void setDrift(double gramsPerMinute);
    double drift() const { return m_drift; }

    /// Takes back what has drifted so far.
    void resetDrift();

    /// Pulls the cable out (false) or plugs it in.
    void setConnected(bool connected);
    bool isConnected() const { return m_connected; }

signals:
    /// load() has changed.
    void loadChanged(double grams);

private:
    void scheduleNext();
    void deliverDue();
    void deliver(qint64 timeMs);
    void advanceTo(qint64 timeMs);
    void setLoad(double grams);
    double gaussian();
    quint64 nextRandom();

    Clock& m_clock;
    const Readability m_readability;
    const double m_capacity;
    const double m_rate;
    double m_noise;
    double m_drift = 0.0;
    bool m_connected = true;
    double m_load = 0.0;

    // The cell: position and velocity in grams and grams per millisecond, and what has drifted.
    double m_position = 0.0;
    double m_velocity = 0.0;
    double m_drifted = 0.0;
    qint64 m_cellTimeMs = 0;

    quint64 m_random;
    bool m_running = false;
    qint64 m_startMs = 0;
    qint64 m_delivered = 0; ///< Readings since m_startMs; the next is due at m_startMs + m_delivered / rate.
    Clock::TimerId m_timer = 0;
    quint64 m_run = 0; ///< Counts start() and stop(), so that a delivery notices either.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SIMULATEDSOURCE_H
