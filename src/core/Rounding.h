// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ROUNDING_H
#define BRIMVALE_ROUNDING_H

#include "core/PowerOfTen.h"
#include "core/SaturatingCast.h"

#include <cmath>

namespace Brimvale
{

/// A value rounded by `Utility::Round()`, and the count of steps of the last place that its magnitude has.
struct RoundedValue
{
    double value;
    qint64 steps;
};

/// Rounds as `Utility::Round()` to a count of decimal places.
inline RoundedValue roundToPlaces(double value, int places)
{
    const double magnitude = std::fabs(value);
    const double power = powerOfTen(places);
    const double nudge = powerOfTen(qAbs(static_cast<qint64>(places)) - 14);
    const auto steps = saturatingCast<qint64>(magnitude * power + nudge + 0.5);
    double result = static_cast<double>(steps) / power + 1e-14;
    // Also true of the NaN of 0 steps of infinite size.
    if (!(result >= 1e-13))
        result = 0.0;
    return {value < 0.0 ? -result : result, steps};
}

} // namespace Brimvale

#endif
