// SPDX-License-Identifier: BSD-3-Clause
#ifndef WEIGHINGSERIES_H
#define WEIGHINGSERIES_H

#include <QDateTime>
#include <QString>

#include <MesswertData.h>
#include <StatisticsValue.h>
#include <vector>

/// The figures of a series. One that does not exist is marked as not valid: the mean of nothing, the deviation of a
/// single weighing.
struct SeriesFigures
{
    Brimvale::StatisticsValue count;
    Brimvale::StatisticsValue mean;      ///< with one decimal place more than the weighings
    Brimvale::StatisticsValue deviation; ///< sample standard deviation (n - 1); one decimal place more
    Brimvale::StatisticsValue minimum;   ///< with the time of its weighing
    Brimvale::StatisticsValue maximum;   ///< with the time of its weighing
};

/// Weighings in one unit, in the order in which they were recorded. Digits are whole numbers throughout, so that every
/// machine gives the same figures.
class WeighingSeries
{
public:
    static constexpr int MaximumCount = 100000;
    static constexpr int MaximumDecimals = 9;
    /// Largest weighing, in digits at the most decimal places of the series: sums of a full series fit into 64 bits.
    static constexpr long long MaximumDigits = 1000000000000;

    /// What a reading is as a weighing; not valid when the reading is no weight (overload, no connection, a value that
    /// does not fit the display).
    static Brimvale::StatisticsValue weighing(const Brimvale::MesswertData& reading, const QDateTime& time);

    /// The number of a figure as text, without its unit: `12.34`.
    static QString text(const Brimvale::StatisticsValue& figure);
    static QString text(long long digits, int decimals);

    const std::vector<Brimvale::StatisticsValue>& weighings() const { return m_weighings; }
    int count() const { return static_cast<int>(m_weighings.size()); }
    bool isFull() const { return count() >= MaximumCount; }
    QString unit() const { return m_weighings.empty() ? QString() : m_weighings.front().unit; }
    /// The most decimal places of a weighing.
    int decimals() const { return m_decimals; }
    /// Weighing `index`, from 0, in digits at `decimals()` places.
    long long digits(int index) const;

    void append(const Brimvale::StatisticsValue& weighing);
    void removeLast();
    void clear();

    SeriesFigures figures() const;

private:
    std::vector<Brimvale::StatisticsValue> m_weighings;
    int m_decimals = 0;
};

#endif
