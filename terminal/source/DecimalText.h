// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_DECIMALTEXT_H
#define BRIMVALE_DECIMALTEXT_H

#include <QByteArray>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// A plain decimal number as scales and recordings write it: an optional sign, digits, optionally a point and
/// more digits. No exponent, no blanks, no decimal comma, no "nan" or "inf", whatever the locale.
class DecimalText
{
public:
    /// Reads @p text; nothing when it is not such a number.
    static std::optional<DecimalText> parse(const QByteArray& text);

    /// The number times 10^@p exponent: the double nearest to that decimal number.
    double value(int exponent = 0) const;

    /// The double nearest to 10^@p exponent.
    static double powerOfTen(int exponent);

    /// How many digits stand behind the point.
    int decimals() const { return m_decimals; }

private:
    QByteArray m_text;
    int m_decimals = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_DECIMALTEXT_H
