// SPDX-License-Identifier: BSD-3-Clause
#include "messwert/FixedPointText.h"

#include "core/PowerOfTen.h"

#include <cmath>

namespace Brimvale
{

namespace
{

constexpr int MostPlaces = 9;
constexpr double MostDigits = 1e15;

/// Whether rounding `scaled`, a product with one rounding error, to an integer is certain to round the exact product.
/// It is not within the error of a tie, where the exact value decides. Below 1e15 the error is at most 1/16.
bool isRoundingCertain(double scaled)
{
    constexpr double Margin = 1.0 / 8.0;
    const double fraction = scaled - std::floor(scaled);
    return std::fabs(fraction - 0.5) > Margin;
}

} // namespace

QString fixedPointText(double value, int places)
{
    const double magnitude = std::fabs(value);
    const double scaled = places >= 0 && places <= MostPlaces ? magnitude * powerOfTen(places) : MostDigits;
    // Written so that a NaN takes the general way too. So does zero, whose sign is a matter of its own.
    if (!(scaled >= 0.5 && scaled < MostDigits) || !isRoundingCertain(scaled)) {
        return QStringLiteral("%1").arg(value, 0, 'f', places);
    }

    constexpr int LongestText = 20; // sign, 16 digits, point, and a leading zero
    ushort buffer[LongestText + MostPlaces];
    ushort* const end = buffer + LongestText + MostPlaces;
    ushort* begin = end;
    auto rest = static_cast<quint64>(std::floor(scaled + 0.5));
    for (int written = 0; rest != 0 || written <= places; ++written) {
        if (written == places && places > 0) {
            *--begin = '.';
        }
        *--begin = static_cast<ushort>('0' + rest % 10);
        rest /= 10;
    }
    if (value < 0.0) {
        *--begin = '-';
    }
    return QString(reinterpret_cast<const QChar*>(begin), static_cast<int>(end - begin));
}

} // namespace Brimvale
