// SPDX-License-Identifier: BSD-3-Clause
#include "messwert/FixedPointText.h"

#include "core/PowerOfTen.h"
#include "core/Rounding.h"

#include <cmath>

namespace Brimvale
{

namespace
{

constexpr int LongestText = 9;
constexpr int MostPlaces = LongestText - 2; // a digit and the point stand before them
constexpr int TooManyDigits = 1000000000;   // LongestText digits and one more

// Below 1e9 a product departs from the exact one, which decides about a tie, by less than 1e-7.
constexpr double TieMargin = 1e-6;

/// Writes `digits`, which are at most ten, with the point before the last `places` of them.
QString pointedText(quint32 digits, int places, bool isNegative)
{
    constexpr int BufferSize = 12; // ten digits, point, sign
    ushort buffer[BufferSize];
    ushort* const end = buffer + BufferSize;
    ushort* begin = end;
    for (int i = 0; i < places; ++i) {
        *--begin = static_cast<ushort>('0' + digits % 10);
        digits /= 10;
    }
    if (places > 0) {
        *--begin = '.';
    }
    do {
        *--begin = static_cast<ushort>('0' + digits % 10);
        digits /= 10;
    } while (digits != 0);
    if (end - begin > LongestText) {
        return QString();
    }
    if (isNegative) {
        *--begin = '-';
    }
    // A QChar is one such number, but an array of QChar would first be filled with zeros.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    return QString(reinterpret_cast<const QChar*>(begin), static_cast<int>(end - begin));
}

/// As `fixedPointText()`, for every number and count of places.
QString generalText(double value, int places)
{
    // The formatter reserves room for all places even if it writes "inf".
    const QString text = QStringLiteral("%1").arg(value, 0, 'f', std::isfinite(value) ? places : 0);
    const int signs = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    return text.size() - signs > LongestText ? QString() : text;
}

} // namespace

QString fixedPointText(double value, int places)
{
    if (places < 0 || !std::isfinite(value)) {
        return generalText(value, places);
    }
    if (places > MostPlaces) {
        return QString();
    }
    const double scaled = std::fabs(value) * powerOfTen(places);
    if (scaled >= TooManyDigits) {
        return QString();
    }
    const auto whole = static_cast<qint32>(scaled);
    const double beyondTie = scaled - whole - 0.5;
    if (std::fabs(beyondTie) < TieMargin) {
        return generalText(value, places);
    }
    return pointedText(static_cast<quint32>(whole) + (beyondTie > 0.0 ? 1 : 0), places, value < 0.0);
}

QString fixedPointText(const RoundedValue& rounded, int places)
{
    if (places < 0 || places > MostPlaces || rounded.steps >= TooManyDigits) {
        return fixedPointText(rounded.value, places);
    }
    return pointedText(static_cast<quint32>(rounded.steps), places, rounded.value < 0.0);
}

} // namespace Brimvale
