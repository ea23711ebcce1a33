// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_READABILITY_H
#define BRIMVALE_READABILITY_H

#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// The display increment of a scale: 1, 2 or 5 times a power of ten, in grams, from 0.0000001 g to 50000 g.
///
/// Weights are counted in digits: steps of 10^-decimals() gram. A scale of 0.05 g has 2 decimals and an
/// increment of 5 digits; one of 20 g has 0 decimals and an increment of 20 digits.
class Readability
{
public:
    static constexpr int MaximumDecimals = 7;

    /// 0.1 g.
    Readability() = default;

    /// The readability of @p grams; nothing when that is not 1, 2 or 5 times a power of ten or is out of
    /// range.
    static std::optional<Readability> fromGrams(double grams);

    /// 10^-@p decimals gram; nothing outside 0 to MaximumDecimals.
    static std::optional<Readability> fromDecimals(int decimals);

    /// The coarsest readability that is not coarser than @p grams; nothing when there is none.
    static std::optional<Readability> notCoarserThan(double grams);

    /// Reads a number of grams as a person writes it ("0.1", "0.05", "20"), independent of the locale. On
    /// failure nothing is returned and @p error, if given, tells what is wrong and what is right.
    static std::optional<Readability> parse(const QString& text, QString* error = nullptr);

    double grams() const;

    /// Decimal places of the gram reading.
    int decimals() const { return m_decimals; }

    /// The increment in digits: 1, 2 or 5, followed by zeros where the increment is 10 g or more.
    int incrementDigits() const { return m_incrementDigits; }

    /// @p grams in digits, not rounded.
    double toDigits(double grams) const;
    /// @p digits in grams; the double nearest to the decimal number for whole digits.
    double toGrams(double digits) const;

    /// @p grams in digits, rounded to the increment times @p multiple, half away from zero. A millionth of an
    /// increment is given in, so that a decimal half that has no exact double is still a half. Never -0. What
    /// is not finite stays what it is.
    double round(double grams, int multiple = 1) const;

    /// @p digits (a whole number) as a decimal number in grams with decimals() places and a point, whatever
    /// the locale; never "-0.0". Empty for what is not finite.
    QString format(double digits) const;

    friend bool operator==(const Readability& a, const Readability& b)
    {
        return a.m_decimals == b.m_decimals && a.m_incrementDigits == b.m_incrementDigits;
    }
    friend bool operator!=(const Readability& a, const Readability& b) { return !(a == b); }

private:
    Readability(int decimals, int incrementDigits)
        : m_decimals(decimals)
        , m_incrementDigits(incrementDigits)
    {
    }

    int m_decimals = 1;
    int m_incrementDigits = 1;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_READABILITY_H
