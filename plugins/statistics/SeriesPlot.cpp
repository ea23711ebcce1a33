// SPDX-License-Identifier: BSD-3-Clause
#include "SeriesPlot.h"

#include <QVariantMap>

#include <cmath>

namespace
{

const int MaximumIntervals = 4;

/// The smallest of 1, 2, 5, 10, 20, … with which `span` has no more than `MaximumIntervals` steps.
long long stepFor(long long span)
{
    long long step = 1;
    for (int i = 0; span > step * MaximumIntervals; ++i) {
        step = i % 3 == 1 ? step / 2 * 5 : step * 2;
    }
    return step;
}

long long floorTo(long long value, long long step)
{
    const long long quotient = value / step;
    return (value % step < 0 ? quotient - 1 : quotient) * step;
}

} // namespace

SeriesPlot::SeriesPlot(const WeighingSeries& series)
{
    if (series.count() == 0) {
        return;
    }
    lastNumber = series.count();
    firstNumber = qMax(1, lastNumber - MaximumPoints + 1);

    const SeriesFigures figures = series.figures();
    const double meanDigits = static_cast<double>(figures.mean.value) / 10.0;
    const double deviation = static_cast<double>(figures.deviation.value) / 10.0; // 0 when there is none

    long long lowest = static_cast<long long>(std::floor(meanDigits - deviation));
    long long highest = static_cast<long long>(std::ceil(meanDigits + deviation));
    for (int i = firstNumber - 1; i < lastNumber; ++i) {
        lowest = qMin(lowest, series.digits(i));
        highest = qMax(highest, series.digits(i));
    }
    // No point lies on the edge, and equal weighings lie in the middle.
    const long long step = stepFor(highest - lowest + 2);
    lowest = floorTo(lowest - 1, step);
    highest = floorTo(highest + step, step);

    const double span = static_cast<double>(highest - lowest);
    const auto height = [&](double digits) { return (static_cast<double>(highest) - digits) / span; };
    for (int i = firstNumber - 1; i < lastNumber; ++i) {
        points.append(height(static_cast<double>(series.digits(i))));
    }
    for (long long tick = lowest; tick <= highest; tick += step) {
        ticks.append(QVariantMap{{QStringLiteral("height"), height(static_cast<double>(tick))},
                                 {QStringLiteral("text"), WeighingSeries::text(tick, series.decimals())}});
    }
    mean = height(meanDigits);
    if (figures.deviation.valid) {
        bandTop = height(meanDigits + deviation);
        bandBottom = height(meanDigits - deviation);
    }
}
