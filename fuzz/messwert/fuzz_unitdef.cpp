// SPDX-License-Identifier: BSD-3-Clause
//
// The text record of a unit definition.
#include "Fuzzing.h"
#include "ProjectException.h"
#include "UnitDef.h"

#include <QTextStream>

using Brimvale::ProjectException;
using Brimvale::UnitDef;

namespace
{

constexpr QChar Separator(0x00A0);

UnitDef unlikelyUnit()
{
    return {QStringLiteral("name before"),  QStringLiteral("print name before"), 0.625, -4711, 4712, true,
            UnitDef::UnitEnableFlag(0x5555)};
}

QString written(const UnitDef& unit)
{
    QString text;
    QTextStream stream(&text);
    stream << unit;
    return text;
}

/// Whether the text holds a record. One that is refused must leave the unit as it was.
bool read(QString text, UnitDef* unit)
{
    const QString before = written(*unit);
    QTextStream stream(&text);
    try {
        stream >> *unit;
        return true;
    } catch (const ProjectException& exception) {
        const QString message = exception.Message();
        REQUIRE(message
                    == QLatin1String("UnitDef::extractFromDataStream() failed because of a header mismatch.")
                || message
                       == QLatin1String(
                           "UnitDef::extractFromDataStream() failed because of a version compatibility."));
        Fuzzing::requireEqual(written(*unit), before, "a refused record changes nothing");
        return false;
    }
}

void checkFlags(UnitDef unit, int flags)
{
    REQUIRE(flags >= 0 && flags <= 0xFFFF);
    for (const int mask : {0, 0xFFFF, flags, ~flags, flags | 0x10000, flags & (flags - 1), -1}) {
        REQUIRE(unit.CheckEnableFlag(mask) == ((flags & ~mask) == 0 && (mask == 0 || flags != 0)));
    }
}

bool isWord(const QString& text)
{
    return !text.isEmpty()
           && std::none_of(text.cbegin(), text.cend(), [](QChar character) { return character.isSpace(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = Fuzzing::textOf(Fuzzing::Input(data, size).rest());
    UnitDef unit = unlikelyUnit();
    const bool accepted = read(text, &unit);

    // Every kind of white space separates.
    QString blanks = text;
    std::replace_if(
        blanks.begin(), blanks.end(), [](QChar character) { return character.isSpace(); }, QLatin1Char(' '));
    UnitDef fromBlanks = unlikelyUnit();
    REQUIRE(read(blanks, &fromBlanks) == accepted);
    Fuzzing::requireEqual(written(fromBlanks), written(unit), "every kind of white space separates");
    if (!accepted) {
        return 0;
    }

    const QString record = written(unit);
    const QStringList items = record.split(Separator);
    REQUIRE(items.first() == QLatin1String("4269603477") && items.at(1) == QLatin1String("1"));
    REQUIRE(items.last().isEmpty());
    checkFlags(unit, items.at(items.size() - 2).toInt());
    REQUIRE(std::isnan(unit.factor()) || std::isinf(unit.factor()) || unit == unit);
    REQUIRE((unit == fromBlanks) != (unit != fromBlanks));
    REQUIRE(
        Fuzzing::isSame(unit.getCalculatedFactor(), unit.isInverse() ? 1.0 / unit.factor() : unit.factor()));

    // Only a name that is a word survives.
    if (!isWord(unit.name()) || !isWord(unit.printName())) {
        return 0;
    }
    REQUIRE(items.size() == 10);
    UnitDef again = unlikelyUnit();
    REQUIRE(read(record, &again));
    REQUIRE(again.name() == unit.name() && again.printName() == unit.printName());
    REQUIRE(again.format() == unit.format() && again.rounding() == unit.rounding());
    REQUIRE(again.isInverse() == unit.isInverse());
    REQUIRE(Fuzzing::isSame(again.factor(), QString::number(unit.factor(), 'g', 6).toDouble()));
    Fuzzing::requireEqual(written(again), record, "six digits of the factor survive");
    return 0;
}
