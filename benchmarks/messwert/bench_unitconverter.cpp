// SPDX-License-Identifier: BSD-3-Clause

// What it costs to show a weight in a unit: every reading is converted and written anew.

#include "AllocationCount.h"
#include "UnitConverter.h"
#include "UnitDef.h"

#include <QString>

#include <KUnitConversion/Converter>
#include <array>
#include <charconv>
#include <cstddef>
#include <fmt/format.h>

using Brimvale::MesswertData;
using Brimvale::UnitConverter;
using Brimvale::UnitDef;

namespace
{

constexpr int Decimals = 2;
constexpr double OuncePerGram = 0.0352739619;
constexpr int OunceDecimals = Decimals + 1;

const QString& ounceName()
{
    static const QString name = QStringLiteral("oz");
    return name;
}

const UnitDef& ounce()
{
    static const UnitDef unit(ounceName(), QStringLiteral("oz"), OuncePerGram, OunceDecimals, 1, false,
                              UnitDef::Ounce);
    return unit;
}

// Weights of a vessel that is filled from 300 g to 2 kg, in digits of 0.01 g: like one reading and the next, they
// have the same sign and mostly as many digits.
const std::array<double, 1024>& weights()
{
    static const auto values = [] {
        std::array<double, 1024> result{};
        for (std::size_t i = 0; i < result.size(); ++i)
            result[i] = double(30000 + i * 166);
        return result;
    }();
    return values;
}

template <typename Type>
std::array<Type, 1024> results(Type (*result)(const MesswertData&))
{
    std::array<Type, 1024> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = result(UnitConverter().ConvertDigitToUnit(weights()[i], Decimals, 0, false, ounce()));
    return all;
}

// The values that are shown.
const std::array<double, 1024>& values()
{
    static const auto all = results<double>([](const MesswertData& record) { return record.value; });
    return all;
}

const std::array<int, 1024>& digitCounts()
{
    static const auto all =
        results<int>([](const MesswertData& record) { return qRound(record.value * 1000.0); });
    return all;
}

// The yardstick: known digits and the point between them, written into a new text.
QString bareDigits(int digits)
{
    ushort buffer[16];
    ushort* const end = buffer + 16;
    ushort* begin = end;
    unsigned rest = digits < 0 ? 0u - unsigned(digits) : unsigned(digits);
    for (int written = 0; rest != 0 || written <= OunceDecimals; ++written) {
        if (written == OunceDecimals)
            *--begin = '.';
        *--begin = ushort('0' + rest % 10);
        rest /= 10;
    }
    if (digits < 0)
        *--begin = '-';
    return QString(reinterpret_cast<const QChar*>(begin), int(end - begin));
}

void digitsIntoText(benchmark::State& state)
{
    const auto& digits = digitCounts();
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(bareDigits(digits[i++ % digits.size()]));
}
BENCHMARK(digitsIntoText)->Name("UnitConverter::ConvertDigitToUnit/limit:bare digits");

template <typename Write>
void writing(benchmark::State& state, Write write)
{
    const auto& all = values();
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(write(all[i++ % all.size()]));
}

QString withArg(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'f', OunceDecimals);
}
BENCHMARK_CAPTURE(writing, arg, withArg)->Name("UnitConverter::ConvertDigitToUnit/peer:QString::arg");

QString withNumber(double value)
{
    return QString::number(value, 'f', OunceDecimals);
}
BENCHMARK_CAPTURE(writing, number, withNumber)
    ->Name("UnitConverter::ConvertDigitToUnit/peer:QString::number");

QString withToChars(double value)
{
    char buffer[400];
    const auto end =
        std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::fixed, OunceDecimals);
    return QString::fromLatin1(buffer, int(end.ptr - buffer));
}
BENCHMARK_CAPTURE(writing, toChars, withToChars)->Name("UnitConverter::GetValueString/peer:std::to_chars");

QString withFmt(double value)
{
    char buffer[400];
    const auto end = fmt::format_to(buffer, FMT_STRING("{:.3f}"), value);
    return QString::fromLatin1(buffer, int(end - buffer));
}
BENCHMARK_CAPTURE(writing, fmt, withFmt)->Name("UnitConverter::GetValueString/peer:fmt");

QString withValueString(double value)
{
    return UnitConverter().GetValueString(value, OunceDecimals, 0);
}
BENCHMARK_CAPTURE(writing, valueString, withValueString)->Name("UnitConverter::GetValueString/ours");

template <typename Unit>
void conversion(benchmark::State& state, const Unit& unit)
{
    UnitConverter converter;
    const auto& all = weights();
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            converter.ConvertDigitToUnit(all[i++ % all.size()], Decimals, 0, false, unit));
}

void convertWithDefinition(benchmark::State& state)
{
    conversion(state, ounce());
}
BENCHMARK(convertWithDefinition)->Name("UnitConverter::ConvertDigitToUnit/ours");

void convertByName(benchmark::State& state)
{
    conversion(state, ounceName());
}
BENCHMARK(convertByName)->Name("UnitConverter::ConvertDigitToUnit by name/ours");

// The yardstick of the conversion by name, measured beside it.
BENCHMARK(convertWithDefinition)->Name("UnitConverter::ConvertDigitToUnit by name/limit:with a definition");

// An idle scale shows zero.
void convertZero(benchmark::State& state)
{
    UnitConverter converter;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(converter.ConvertDigitToUnit(0.0, Decimals, 0, false, ounce()));
}
BENCHMARK(convertZero)->Name("UnitConverter::ConvertDigitToUnit of zero/ours");

void desktopFramework(benchmark::State& state)
{
    const KUnitConversion::Converter converter;
    const QString gram = QStringLiteral("g");
    const QString unit = ounceName();
    const auto& all = weights();
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        const KUnitConversion::Value value(all[i++ % all.size()] * 0.01, gram);
        benchmark::DoNotOptimize(converter.convert(value, unit).toSymbolString(0, 'f', OunceDecimals));
    }
}
BENCHMARK(desktopFramework)->Name("UnitConverter::ConvertDigitToUnit/peer:KUnitConversion");

} // namespace
