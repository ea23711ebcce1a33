// SPDX-License-Identifier: BSD-3-Clause
#include "IApprovedMode.h"
#include "ProjectException.h"
#include "ResultTable.h"
#include "UnitConverter.h"
#include "UnitDef.h"
#include "UnitsList.h"
#include "core/Rounding.h"
#include "messwert/FixedPointText.h"
#include "operations.h"

#include <QTextStream>

using namespace Brimvale;

namespace
{

QByteArray written(const UnitDef& unit)
{
    UnitDef copy = unit; // the check is not const
    int flags = 0;
    for (int bit = 1; bit < 0x10000 && !copy.CheckEnableFlag(0); bit <<= 1)
        flags |= copy.CheckEnableFlag(~bit) ? 0 : bit;
    return '{'
           + line(unit.name(), unit.printName(), unit.factor(), unit.format(), unit.rounding(),
                  unit.isInverse(), unit.getCalculatedFactor(), flags)
           + '}';
}

/// A host in a given approval mode.
class ApprovedMode : public IApprovedMode
{
public:
    explicit ApprovedMode(int flags)
        : m_flags(flags)
    {
    }
    bool IsModeActive(int modeFlag) override { return (m_flags & modeFlag) != 0; }

private:
    int m_flags;
};

/// Reads a record over a unit that says what stays unread.
QByteArray readRecord(QString record)
{
    UnitDef unit(QStringLiteral("?"), QStringLiteral("?"), 0.25, 77, 78, true, UnitDef::Tola);
    QTextStream stream(&record);
    try {
        stream >> unit;
    } catch (const ProjectException& exception) {
        return line(exception.Message(), written(unit));
    }
    return written(unit);
}

} // namespace

void writeUnits(ResultTable& table)
{
    UnitConverter converter;

    Inputs in = table.begin("fixedPointText(double, int)");
    for (int i = 0; i < 20000; ++i) {
        const double value = in.number();
        const int places = in.below(8) == 0 ? in.places() : in.below(12) - 2;
        table.row(line(value, places), fixedPointText(value, places));
    }

    in = table.begin("fixedPointText(RoundedValue, int)");
    for (int i = 0; i < 10000; ++i) {
        const double value = in.number();
        const int places = in.below(12) - 2;
        const RoundedValue rounded = roundToPlaces(value, places);
        table.row(line(value, places), rounded.value, rounded.steps, fixedPointText(rounded, places));
    }

    in = table.begin("UnitConverter::getUnitFactor");
    for (int i = 0; i < 500; ++i) {
        const QString name = in.unitName();
        double factor = 0.0;
        int exponent = 0;
        converter.getUnitFactor(name, &factor, &exponent);
        table.row(line(name), factor, exponent);
    }

    in = table.begin("UnitConverter::Round(double, int, bool)");
    for (int i = 0; i < 5000; ++i) {
        const double value = in.number();
        const int k = in.places();
        const bool oneMore = in.flag();
        table.row(line(value, k, oneMore), converter.Round(value, k, oneMore), converter.RoundToInt(value));
    }

    in = table.begin("UnitConverter::Round(double, int, bool, UnitDef, QString)");
    for (int i = 0; i < 10000; ++i) {
        const double value = in.number();
        const int k = in.places();
        const bool oneMore = in.flag();
        UnitDef unit = in.unit();
        if (in.flag())
            unit.setName(in.flag() ? QStringLiteral("ct") : QStringLiteral("C.M."));
        const QString mode = in.flag() ? QStringLiteral("single") : QStringLiteral("multi");
        table.row(line(value, k, oneMore, written(unit), mode),
                  converter.Round(value, k, oneMore, unit, mode));
    }

    in = table.begin("UnitConverter::GetDigitValue");
    for (int i = 0; i < 10000; ++i) {
        const double value = in.number();
        const int decimals = in.places();
        const QString unit = in.unitName();
        const int fraction = in.flag() ? 0 : in.places();
        table.row(line(value, decimals, unit, fraction),
                  converter.GetDigitValue(value, decimals, unit, fraction));
    }

    in = table.begin("UnitConverter::GetValueString");
    for (int i = 0; i < 10000; ++i) {
        const double value = in.number();
        const int decimals = in.places();
        const int reduction = in.places();
        table.row(line(value, decimals, reduction), converter.GetValueString(value, decimals, reduction),
                  converter.CalculateResolutionReduction(decimals, reduction, in.flag()));
    }

    in = table.begin("UnitConverter::ConvertDigitToUnit(UnitDef), units of the list");
    for (int decimals = 0; decimals <= 8; ++decimals) {
        UnitsList units(nullptr, decimals);
        ApprovedMode mode(0);
        const QStringList names = units.getUnitNames(&mode, 0, 0xFFFF);
        for (const QString& name : names) {
            const UnitDef unit = units.getUnitByName(name);
            for (int i = 0; i < 200; ++i) {
                const double digits = in.below(4) == 0 ? in.number() : in.decimal();
                const int reduction = in.below(5) - 1;
                const bool isGrobRange = in.flag();
                table.row(line(digits, decimals, reduction, isGrobRange, name),
                          converter.ConvertDigitToUnit(digits, decimals, reduction, isGrobRange, unit));
            }
        }
    }

    in = table.begin("UnitConverter::ConvertDigitToUnit(UnitDef)");
    for (int i = 0; i < 20000; ++i) {
        const double digits = in.number();
        const int decimals = in.places();
        const int reduction = in.places();
        const bool isGrobRange = in.flag();
        const UnitDef unit = in.unit();
        table.row(line(digits, decimals, reduction, isGrobRange, written(unit)),
                  converter.ConvertDigitToUnit(digits, decimals, reduction, isGrobRange, unit));
    }

    in = table.begin("UnitConverter::ConvertDigitToUnit(QString)");
    for (int i = 0; i < 20000; ++i) {
        const double digits = in.number();
        const int decimals = in.places();
        const int reduction = in.places();
        const bool isGrobRange = in.flag();
        const QString unit = in.unitName();
        table.row(line(digits, decimals, reduction, isGrobRange, unit),
                  converter.ConvertDigitToUnit(digits, decimals, reduction, isGrobRange, unit));
    }

    in = table.begin("UnitDef: text record");
    for (int i = 0; i < 5000; ++i) {
        const UnitDef unit = in.unit();
        QString record;
        QTextStream stream(&record);
        stream << unit;
        stream.flush();
        table.row(line(written(unit)), record, readRecord(record));
    }

    in = table.begin("UnitDef: damaged text record");
    for (int i = 0; i < 5000; ++i) {
        QString record;
        QTextStream stream(&record);
        stream << in.unit();
        stream.flush();
        QStringList items = record.split(QChar(0x00A0));
        // Seldom the header, without which nothing is read.
        const int first = in.below(8) == 0 ? 0 : 1;
        items[first + in.below(items.size() - first)] = in.numberText();
        record = items.mid(0, in.below(4) == 0 ? in.below(items.size()) : -1).join(QChar(0x00A0));
        table.row(line(record), readRecord(record));
    }

    in = table.begin("UnitDef: comparison and flags");
    for (int i = 0; i < 3000; ++i) {
        UnitDef unit = in.unit();
        UnitDef other = in.flag() ? in.unit() : unit;
        other.setFactor(in.flag() ? in.number() : other.factor() * (1.0 + in.below(3) * 9e-7));
        const int mask = in.integer();
        table.row(line(written(unit), written(other), mask), unit == other, other != unit,
                  unit.CheckEnableFlag(mask));
    }

    in = table.begin("UnitsList");
    for (int i = 0; i < 1000; ++i) {
        const int decimals = in.places();
        const int minDecimals = in.places();
        const int mask = in.flag() ? 0xFFFF : in.integer();
        ApprovedMode mode(in.below(0x4000));
        const QString name = in.unitName();
        UnitsList units(nullptr, decimals);
        units.setReferenzUnit(name);
        table.row(line(decimals, minDecimals, mask, name, mode.IsModeActive(16), mode.IsModeActive(32),
                       mode.IsModeActive(4096), mode.IsModeActive(8192)),
                  units.getUnitNames(&mode, minDecimals, mask),
                  units.getApprovedUnitNames(&mode, minDecimals), units.UnitListContainsName(name),
                  written(units.getUnitByName(name)), written(units.getReferenzUnit()));
    }
}
