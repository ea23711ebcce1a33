// SPDX-License-Identifier: BSD-3-Clause
//
// Converts as many weights as its argument says; tools/arm-instructions counts what one of them costs.
#include "UnitConverter.h"
#include "UnitDef.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <vector>

using namespace Brimvale;

int main(int argc, char** argv)
{
    constexpr int MaximumCount = 4000;
    const int count = argc > 1 ? std::min(std::atoi(argv[1]), MaximumCount) : 0;
    UnitConverter converter;
    const UnitDef unit(QStringLiteral("kg"), QStringLiteral("kg"), 0.001, 4, 1, false, UnitDef::Kilogram);
    // The same memory whatever the count is. The records are made in place and never destroyed.
    struct alignas(MesswertData) Place
    {
        char bytes[sizeof(MesswertData)];
    };
    std::vector<Place> places(MaximumCount);
    Place* place = places.data();
    double digits = 12846.0;
    for (int i = 0; i < count; ++i) {
        new (place++) MesswertData(converter.ConvertDigitToUnit(digits, 1, 0, false, unit));
        digits += 7.0;
    }
}
