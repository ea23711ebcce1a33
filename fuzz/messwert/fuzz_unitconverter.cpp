// SPDX-License-Identifier: BSD-3-Clause
//
// Conversion with units as a record may define them, and with any number of digits.
#include "Fuzzing.h"
#include "MesswertData.h"
#include "UnitConverter.h"
#include "UnitDef.h"

using Brimvale::MesswertData;
using Brimvale::UnitConverter;
using Brimvale::UnitDef;

namespace
{

constexpr int LongestText = 9;

void checkText(const QString& text)
{
    REQUIRE(!text.isEmpty());
    REQUIRE(text.size() - (text.startsWith(QLatin1Char('-')) ? 1 : 0) <= LongestText);
}

void checkRecord(const MesswertData& record, const QString& unit, bool isGrobRange)
{
    checkText(record.messwert);
    REQUIRE(record.unit == (record.messwert == QLatin1String("OF") ? QString() : unit));
    REQUIRE(record.isGrobRange == isGrobRange && record.isValid);
    if (record.messwert != QLatin1String("OF") && record.resolutionReduction >= 0
        && record.resolutionReduction <= record.decimals && std::isfinite(record.value)) {
        const int places = record.decimals - record.resolutionReduction;
        const int point = record.messwert.indexOf(QLatin1Char('.'));
        REQUIRE((point < 0 ? 0 : record.messwert.size() - point - 1) == places);
        REQUIRE(std::fabs(record.messwert.toDouble() - record.value)
                <= 0.5 * std::pow(10.0, -places) + 1e-9 * std::fabs(record.value));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzzing::Input input(data, size);
    const double digits = input.take<double>();
    const double factor = input.take<double>();
    const int decimals = input.take<std::int32_t>();
    const int reduction = input.take<std::int32_t>();
    const int format = input.take<std::int32_t>();
    const int rounding = input.take<std::int32_t>();
    const auto flags = input.take<std::uint8_t>();
    const QString name = Fuzzing::textOf(input.rest());
    const bool isGrobRange = (flags & 1) != 0;
    const bool flag = (flags & 2) != 0;
    const UnitDef unit(name, QStringLiteral("print name"), factor, format, rounding, flag,
                       UnitDef::UnitEnableFlag(1));
    const QString mode = (flags & 4) != 0 ? QStringLiteral("single") : QStringLiteral("dual");

    UnitConverter converter;
    const MesswertData byUnit = converter.ConvertDigitToUnit(digits, decimals, reduction, isGrobRange, unit);
    checkRecord(byUnit, name, isGrobRange);
    REQUIRE(byUnit.unitPrintName == unit.printName());
    checkRecord(converter.ConvertDigitToUnit(digits, decimals, reduction, isGrobRange, name), name,
                isGrobRange);
    checkText(converter.GetValueString(digits, decimals, reduction));
    REQUIRE(converter.CalculateResolutionReduction(decimals, reduction, isGrobRange)
            == std::min(decimals, reduction));

    double named = 0.0;
    int exponent = 99;
    converter.getUnitFactor(name, &named, &exponent);
    REQUIRE(named > 0.0 && exponent >= -3 && exponent <= 3);
    REQUIRE(Fuzzing::isSame(converter.Round(digits, decimals, flag),
                            converter.Round(digits, std::max(decimals, 0), flag)));
    converter.GetDigitValue(digits, decimals, name, reduction);
    converter.Round(digits, decimals, flag, unit, mode);
    REQUIRE(std::fabs(converter.RoundToInt(digits)) <= 2147483648.0);
    return 0;
}
