// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STABILITYDETECTOR_H
#define BRIMVALE_STABILITYDETECTOR_H

#include <QString>
#include <QtGlobal>

#include <deque>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// What it means to be stable: over the last @c seconds no two readings were more than @c increments display
/// increments apart.
struct StabilitySettings
{
    double seconds = 1.0;    ///< 0.05 to 60.
    double increments = 1.0; ///< 0 to 1000.

    bool isValid() const;

    /// Reads "SECONDS,INCREMENTS" ("1.0,1"), independent of the locale. On failure nothing is returned and @p
    /// error tells what is wrong and what is right.
    static std::optional<StabilitySettings> parse(const QString& text, QString* error = nullptr);
};

/// Judges whether a weight is stable: by time and spread, never by a count of readings, so that the judgement
/// is the same at 4 and at 100 readings a second and with irregular ones.
///
/// A reading stands for the weight until the next one comes. The weight is stable when readings are known for
/// the whole time span and their spread (largest minus smallest, the reading that was current when the span
/// began included) is within the limit. When two readings are further apart than the span, nobody knows what
/// was between them: the later one begins anew. A source that is always that slow is therefore never stable.
class StabilityDetector
{
public:
    /// Settings that are not valid are replaced by the default ones. The display increment is 0.1 g until
    /// set.
    explicit StabilityDetector(const StabilitySettings& settings = {});

    /// The display increment in grams; the readings so far are judged anew by it.
    void setIncrement(double grams);

    /// Forgets all readings: what an invalid reading calls for.
    void reset();

    /// Takes a reading and judges. A time before that of the last reading begins anew; a weight that is not
    /// finite resets.
    /// @return isStable().
    bool add(qint64 timeMs, double grams);

    bool isStable() const { return m_stable; }

    /// Largest minus smallest reading of the span so far, in grams.
    double spread() const;

    const StabilitySettings& settings() const { return m_settings; }

private:
    struct Entry
    {
        qint64 timeMs;
        double grams;
        quint64 number;
    };

    void judge();

    StabilitySettings m_settings;
    qint64 m_spanMs;
    double m_increment = 0.1;
    bool m_stable = false;
    quint64 m_number = 0;
    std::deque<Entry> m_entries;
    // Candidates for the smallest and the largest entry, oldest first, so that each reading costs the same
    // however long the span is.
    std::deque<Entry> m_smallest;
    std::deque<Entry> m_largest;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_STABILITYDETECTOR_H
