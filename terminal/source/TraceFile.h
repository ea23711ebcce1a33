// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRACEFILE_H
#define BRIMVALE_TRACEFILE_H

#include <QString>
#include <QVector>

#include <optional>

class QIODevice;

namespace Brimvale
{
namespace Terminal
{

/// A recorded weighing: a text file (UTF-8, lines ended by LF or CR LF) whose first line is "time_s,weight_g"
/// and whose other lines are a time in seconds since the start of the recording and a weight in grams, both
/// plain decimal numbers with a point. The times never go backwards; two readings may bear the same time. No reading is
/// more than MaximumGapSeconds after the one before, the first after the start, since that time would be replayed.
/// Blank lines are allowed at the end only.
class TraceFile
{
public:
    struct Sample
    {
        qint64 timeMs; ///< Since the start of the recording.
        double grams;
    };

    static constexpr double MaximumSeconds = 1.0e8; ///< Some three years.
    static constexpr int MaximumGapSeconds = 86400;
    static constexpr double MaximumGrams = 1.0e9;

    /// Reads the file @p fileName. On failure nothing is returned and @p error tells the file, the line, what
    /// is wrong and what to do about it.
    static std::optional<TraceFile> load(const QString& fileName, QString* error);

    /// Reads from an open @p device; @p name names it in the messages.
    static std::optional<TraceFile> parse(QIODevice& device, const QString& name, QString* error);

    /// At least one.
    const QVector<Sample>& samples() const { return m_samples; }

    /// The largest number of decimal places that a weight is written with.
    int decimals() const { return m_decimals; }

    /// Line number (counted from 1) of the first weight that is written with decimals() places.
    int decimalsLine() const { return m_decimalsLine; }

    /// Time of the last sample.
    qint64 durationMs() const { return m_samples.last().timeMs; }

private:
    TraceFile() = default;

    QVector<Sample> m_samples;
    int m_decimals = 0;
    int m_decimalsLine = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TRACEFILE_H
