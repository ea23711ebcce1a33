// SPDX-License-Identifier: BSD-3-Clause
#include "source/DecimalText.h"

namespace Brimvale
{
namespace Terminal
{
namespace
{

int skipDigits(const QByteArray& text, int position)
{
    while (position < text.size() && text.at(position) >= '0' && text.at(position) <= '9')
        ++position;
    return position;
}

} // namespace

std::optional<DecimalText> DecimalText::parse(const QByteArray& text)
{
    const int start = !text.isEmpty() && (text.at(0) == '-' || text.at(0) == '+') ? 1 : 0;
    int end = skipDigits(text, start);
    if (end == start)
        return std::nullopt;
    DecimalText number;
    if (end < text.size() && text.at(end) == '.') {
        const int fraction = end + 1;
        end = skipDigits(text, fraction);
        number.m_decimals = end - fraction;
        if (number.m_decimals == 0)
            return std::nullopt;
    }
    if (end != text.size())
        return std::nullopt;
    number.m_text = text;
    return number;
}

double DecimalText::value(int exponent) const
{
    // Adding 0 turns -0 into 0.
    return (m_text + 'e' + QByteArray::number(exponent)).toDouble() + 0.0;
}

double DecimalText::powerOfTen(int exponent)
{
    return ("1e" + QByteArray::number(exponent)).toDouble();
}

} // namespace Terminal
} // namespace Brimvale
