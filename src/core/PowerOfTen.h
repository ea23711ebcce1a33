// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_POWEROFTEN_H
#define BRIMVALE_POWEROFTEN_H

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace Brimvale
{

/// Returns the number next to 10 to the power `exponent`, on every processor: the last bit of `std::pow()` is the
/// processor's. The exponents that weights need come from a table.
inline double powerOfTen(qint64 exponent)
{
    constexpr qint64 Smallest = -18;
    constexpr qint64 Largest = 18;
    static constexpr double Powers[] = {1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9,
                                        1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,
                                        1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,  1e11,
                                        1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18};
    static_assert(sizeof(Powers) / sizeof(Powers[0]) == Largest - Smallest + 1);
    if (exponent < Smallest || exponent > Largest) {
        constexpr qint64 BeyondAll = 400;
        char text[sizeof("1e-400")];
        static_cast<void>(std::snprintf(text, sizeof(text), "1e%d",
                                        static_cast<int>(qBound(-BeyondAll, exponent, BeyondAll))));
        return std::strtod(text, nullptr);
    }
    return Powers[exponent - Smallest];
}

} // namespace Brimvale

#endif
