// SPDX-License-Identifier: BSD-3-Clause
#include "measuring/Readability.h"

#include "source/DecimalText.h"

#include <QCoreApplication>

#include <array>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Part of an increment by which a half may be missed and still be one: 1.005 g has no exact double.
constexpr double HalfTolerance = 1.0e-6;

constexpr std::array<double, Readability::MaximumDecimals + 1> PowersOfTen{1.0,   1.0e1, 1.0e2, 1.0e3,
                                                                           1.0e4, 1.0e5, 1.0e6, 1.0e7};

double powerOfTen(int exponent)
{
    return PowersOfTen[static_cast<std::size_t>(exponent)];
}

} // namespace

std::optional<Readability> Readability::fromGrams(double grams)
{
    const std::optional<Readability> found = notCoarserThan(grams);
    if (found && std::fabs(grams - found->grams()) <= grams * 1.0e-9)
        return found;
    return std::nullopt;
}

std::optional<Readability> Readability::fromDecimals(int decimals)
{
    if (decimals < 0 || decimals > MaximumDecimals)
        return std::nullopt;
    return Readability(decimals, 1);
}

std::optional<Readability> Readability::notCoarserThan(double grams)
{
    if (!std::isfinite(grams))
        return std::nullopt;
    const double limit = grams * (1.0 + 1.0e-9);
    for (int digits = 50000, leading = 5; digits >= 10; leading = leading == 5 ? 2 : leading == 2 ? 1 : 5) {
        if (digits <= limit)
            return Readability(0, digits);
        digits = leading == 5 ? digits / 5 * 2 : digits / 2;
    }
    for (int decimals = 0; decimals <= MaximumDecimals; ++decimals) {
        for (const int digits : {5, 2, 1}) {
            if (digits / powerOfTen(decimals) <= limit)
                return Readability(decimals, digits);
        }
    }
    return std::nullopt;
}

std::optional<Readability> Readability::parse(const QString& text, QString* error)
{
    const std::optional<DecimalText> number = DecimalText::parse(text.trimmed().toUtf8());
    const std::optional<Readability> readability = number ? fromGrams(number->value()) : std::nullopt;
    if (!readability && error) {
        *error = QCoreApplication::translate(
                     "Readability",
                     "\"%1\" is not a readability: give 1, 2 or 5 times a power of ten in grams, from "
                     "0.0000001 to 50000, such as 0.1, 0.02 or 5.")
                     .arg(text);
    }
    return readability;
}

double Readability::grams() const
{
    return toGrams(m_incrementDigits);
}

double Readability::toDigits(double grams) const
{
    return grams * powerOfTen(m_decimals);
}

double Readability::toGrams(double digits) const
{
    return digits / powerOfTen(m_decimals);
}

double Readability::round(double grams, int multiple) const
{
    if (!std::isfinite(grams))
        return grams;
    const double increment = static_cast<double>(m_incrementDigits) * multiple;
    const double steps = std::floor(std::fabs(toDigits(grams)) / increment + 0.5 + HalfTolerance);
    if (steps == 0.0)
        return 0.0;
    return std::copysign(steps * increment, grams);
}

QString Readability::format(double digits) const
{
    if (!std::isfinite(digits))
        return QString();
    // 1e15 digits are far beyond any scale, and still whole numbers.
    const qint64 whole = qRound64(qBound(-1.0e15, digits, 1.0e15));
    QString text = QString::number(qAbs(whole));
    if (m_decimals > 0) {
        text = text.rightJustified(m_decimals + 1, QLatin1Char('0'));
        text.insert(text.size() - m_decimals, QLatin1Char('.'));
    }
    if (whole < 0)
        text.prepend(QLatin1Char('-'));
    return text;
}

} // namespace Terminal
} // namespace Brimvale
