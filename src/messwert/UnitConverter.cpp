// SPDX-License-Identifier: BSD-3-Clause
#include "UnitConverter.h"

#include "UnitDef.h"
#include "Utility.h"
#include "core/PowerOfTen.h"
#include "core/Rounding.h"
#include "core/SaturatingCast.h"
#include "messwert/FixedPointText.h"

#include <utility>

namespace Brimvale
{

namespace
{

struct UnitFactor
{
    double factor;
    int exponent;
};

/// A name of up to four UTF-16 code units as one number, so that the table is one switch.
template <typename CodeUnit>
constexpr quint64 nameKey(const CodeUnit* name, int length)
{
    quint64 key = 0;
    for (int i = 0; i < length; ++i) {
        key = key << 16 | name[i];
    }
    return key;
}

constexpr quint64 operator""_unit(const char16_t* name, std::size_t length)
{
    return nameKey(name, static_cast<int>(length));
}

/// Units per 10^exponent gram.
UnitFactor unitFactor(const QString& name)
{
    constexpr int LongestName = 4;
    // A leading null would vanish in the key.
    if (name.isEmpty() || name.size() > LongestName || name.at(0).isNull()) {
        return {1.0, 0};
    }
    switch (nameKey(name.utf16(), name.size())) {
    case u"mg"_unit:
        return {1.0, -3};
    case u"kg"_unit:
        return {1.0, 3};
    case u"GN"_unit:
        return {1.543235835, -1};
    case u"dwt"_unit:
        return {0.643014931, 0};
    case u"ozt"_unit:
        return {0.321507466, 1};
    case u"oz"_unit:
        return {0.352739619, 1};
    case u"lb"_unit:
        return {2.20462262, 3};
    case u"ct"_unit:
    case u"C.M."_unit:
        return {5.0, 0};
    case u"tlh"_unit:
        return {0.267172513, 1};
    case u"tls"_unit:
        return {0.2645547, 1};
    case u"tlt"_unit:
        return {0.266666667, 1};
    case u"mom"_unit:
        return {0.266666667, 0};
    case u"tola"_unit:
        return {0.8573532418300794, 1}; // 1 / 1.16638038
    case u"bht"_unit:
        return {0.6578947368421053, 1}; // 1 / 1.52
    default:
        return {1.0, 0};
    }
}

int saturatedDifference(int a, int b)
{
    return static_cast<int>(
        qBound<qint64>(std::numeric_limits<int>::min(), qint64(a) - b, std::numeric_limits<int>::max()));
}

/// The decimal places that are left after the reduction. One beyond the decimals is ignored.
int shownPlaces(int decimals, int reduction)
{
    return reduction > 0 && reduction <= decimals ? decimals - reduction : decimals;
}

QString overflowText()
{
    return QStringLiteral("OF");
}

/// Fills in the numeric value and the texts of a record whose decimals are set.
void setValue(UnitConverter& converter, MesswertData& record, double value, int maxReduction,
              bool isGrobRange, bool isReducible, QString unitName)
{
    if (isReducible) {
        if (record.decimals > 0 && isGrobRange) {
            --record.decimals;
        } else if (record.decimals < 0) {
            record.decimals = 0;
        }
        record.resolutionReduction =
            converter.CalculateResolutionReduction(record.decimals, maxReduction, isGrobRange);
    }
    const int places = saturatedDifference(record.decimals, record.resolutionReduction);
    const RoundedValue rounded = roundToPlaces(value, places);
    record.value = rounded.value;
    const int shown = shownPlaces(record.decimals, record.resolutionReduction);
    record.messwert = shown == places ? fixedPointText(rounded, shown) : fixedPointText(rounded.value, shown);
    if (record.messwert.isNull()) {
        record.messwert = overflowText();
    } else {
        record.unit = std::move(unitName);
    }
    record.isGrobRange = isGrobRange;
}

} // namespace

void UnitConverter::getUnitFactor(QString unit, double* factor, int* exponent)
{
    const UnitFactor found = unitFactor(unit);
    *factor = found.factor;
    *exponent = found.exponent;
}

double UnitConverter::Round(double value, int k, bool oneMore)
{
    return Utility::Round(value, -(oneMore ? 1 : 0) - qMax(k, 0));
}

double UnitConverter::Round(double value, int k, bool oneMore, const UnitDef& unit, QString mode)
{
    const QString name = unit.name();
    const bool isCarat = name == QLatin1String("ct") || name == QLatin1String("C.M.");
    // In the mode "single" the first place is rounded to the step too; otherwise only with one place more.
    const int firstPlace = mode == QLatin1String("single") || oneMore ? 1 : 2;
    if (!isCarat || unit.rounding() == 1 || k < firstPlace) {
        return Round(value, k, oneMore);
    }
    const double step = unit.rounding();
    const double steps = Utility::Round(step * value, -(oneMore ? 1 : 0) - k);
    return saturatingCast<qint32>(Utility::Round(steps / step));
}

double UnitConverter::RoundToInt(double x)
{
    return Utility::Round(x);
}

double UnitConverter::GetDigitValue(double value, int decimals, QString unit, int fraction)
{
    const UnitFactor found = unitFactor(unit);
    const double x = value / found.factor;
    const qint64 places = qint64(decimals) + found.exponent;
    if (fraction == 0) {
        return RoundToInt(powerOfTen(places) * x);
    }
    return RoundToInt(powerOfTen(places + fraction) * x) / powerOfTen(fraction);
}

QString UnitConverter::GetValueString(double value, int decimals, int reduction)
{
    QString text = fixedPointText(value, shownPlaces(decimals, reduction));
    if (text.isNull()) {
        text = overflowText();
    }
    return text;
}

int UnitConverter::CalculateResolutionReduction(int decimals, int requested, bool isGrobRange)
{
    Q_UNUSED(isGrobRange)
    return qMin(decimals, requested);
}

MesswertData UnitConverter::ConvertDigitToUnit(double digits, int decimals, int maxReduction,
                                               bool isGrobRange, const UnitDef& unit)
{
    MesswertData record;
    const double factor = unit.getCalculatedFactor();
    double scaled = digits * factor;
    if (unit.rounding() != 1) {
        const double step = unit.rounding() * powerOfTen(qint64(decimals) - unit.format());
        scaled = RoundToInt(factor * digits / step) * step;
    }
    record.decimals = unit.format();
    record.unitPrintName = unit.printName();
    setValue(*this, record, scaled / powerOfTen(decimals), maxReduction, isGrobRange, decimals > 0,
             unit.name());
    return record;
}

MesswertData UnitConverter::ConvertDigitToUnit(double digits, int decimals, int maxReduction,
                                               bool isGrobRange, QString unit)
{
    MesswertData record;
    const UnitFactor found = unitFactor(unit);
    const double whole = RoundToInt(digits * found.factor);
    record.decimals = saturatedDifference(decimals, -found.exponent);
    setValue(*this, record, whole / powerOfTen(qint64(decimals) + found.exponent), maxReduction, isGrobRange,
             true, std::move(unit));
    return record;
}

} // namespace Brimvale
