// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingSeries.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

using namespace Brimvale;

namespace
{

long long powerOfTen(int exponent)
{
    long long power = 1;
    for (int i = 0; i < exponent; ++i) {
        power *= 10;
    }
    return power;
}

/// `dividend` / `divisor`, rounded half away from zero.
long long roundedQuotient(long long dividend, long long divisor)
{
    const long long half = divisor / 2;
    return (dividend < 0 ? dividend - half : dividend + half) / divisor;
}

StatisticsValue noFigure()
{
    return StatisticsValue(0, 0, QString(), StatisticsValue::NoFlag, QDateTime(), false);
}

} // namespace

StatisticsValue WeighingSeries::weighing(const MesswertData& reading, const QDateTime& time)
{
    bool isNumber = false;
    reading.messwert.toDouble(&isNumber); // what does not fit the display is shown as "OF"
    if (!reading.isValid || !reading.errorText.isEmpty() || !isNumber || !std::isfinite(reading.value)) {
        return noFigure();
    }
    const int decimals = qBound(0, reading.decimals - reading.resolutionReduction, MaximumDecimals);
    const double digits = reading.value * static_cast<double>(powerOfTen(decimals));
    if (std::abs(digits) > static_cast<double>(MaximumDigits)) {
        return noFigure();
    }
    return StatisticsValue(qRound64(digits), decimals, reading.unit, StatisticsValue::NoFlag, time, true);
}

QString WeighingSeries::text(const StatisticsValue& figure)
{
    return text(figure.value, figure.komma);
}

QString WeighingSeries::text(long long digits, int decimals)
{
    QString text = QString::number(std::abs(digits)).rightJustified(decimals + 1, QLatin1Char('0'));
    if (decimals > 0) {
        text.insert(text.size() - decimals, QLatin1Char('.'));
    }
    return digits < 0 ? QLatin1Char('-') + text : text;
}

long long WeighingSeries::digits(int index) const
{
    const StatisticsValue& weighing = m_weighings.at(static_cast<std::size_t>(index));
    const long long factor = powerOfTen(m_decimals - weighing.komma);
    const long long limit = MaximumDigits / factor;
    return qBound(-limit, weighing.value, limit) * factor;
}

void WeighingSeries::append(const StatisticsValue& weighing)
{
    m_weighings.push_back(weighing);
    m_decimals = qMax(m_decimals, weighing.komma);
}

void WeighingSeries::removeLast()
{
    if (m_weighings.empty()) {
        return;
    }
    m_weighings.pop_back();
    m_decimals = 0;
    for (const StatisticsValue& weighing : m_weighings) {
        m_decimals = qMax(m_decimals, weighing.komma);
    }
}

void WeighingSeries::clear()
{
    m_weighings.clear();
    m_decimals = 0;
}

SeriesFigures WeighingSeries::figures() const
{
    const StatisticsValue none = noFigure();
    SeriesFigures figures{none, none, none, none, none};
    const int n = count();
    const QDateTime last = n == 0 ? QDateTime() : m_weighings.back().timestamp;
    figures.count = StatisticsValue(n, 0, QString(), StatisticsValue::Calculated, last, true);
    if (n == 0) {
        return figures;
    }

    long long sum = 0;
    int smallest = 0;
    int largest = 0;
    for (int i = 0; i < n; ++i) {
        sum += digits(i);
        smallest = digits(i) < digits(smallest) ? i : smallest;
        largest = digits(i) > digits(largest) ? i : largest;
    }
    const auto extreme = [this](int index) {
        return StatisticsValue(digits(index), m_decimals, unit(), StatisticsValue::Extreme,
                               m_weighings.at(static_cast<std::size_t>(index)).timestamp, true);
    };
    figures.minimum = extreme(smallest);
    figures.maximum = extreme(largest);
    figures.mean = StatisticsValue(roundedQuotient(sum * 10, n), m_decimals + 1, unit(),
                                   StatisticsValue::Calculated, last, true);
    if (n > 1) {
        // Twice through the series: the difference of two sums of squares would lose the digits that matter.
        const double mean = static_cast<double>(sum) / n;
        double squares = 0.0;
        for (int i = 0; i < n; ++i) {
            const double difference = static_cast<double>(digits(i)) - mean;
            squares += difference * difference;
        }
        figures.deviation = StatisticsValue(qRound64(std::sqrt(squares / (n - 1)) * 10.0), m_decimals + 1,
                                            unit(), StatisticsValue::Calculated, last, true);
    }
    return figures;
}
