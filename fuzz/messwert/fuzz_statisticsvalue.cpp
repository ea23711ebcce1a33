// SPDX-License-Identifier: BSD-3-Clause
//
// The key/value form and the database form of a statistics value, against a plain reading of their description.
#include "Fuzzing.h"
#include "StatisticsValue.h"

#include <limits>

using Brimvale::StatisticsValue;

namespace
{

using Map = QMap<QString, QString>;
using Flags = QFlags<StatisticsValue::StatisticsFlag>;

const QString TimestampFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz");

StatisticsValue figureBefore()
{
    return {-123456789012345,
            7,
            QStringLiteral("before"),
            Flags(77),
            QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59, 999)),
            true};
}

Map expectedMap(const QString& text)
{
    Map map;
    int position = 0;
    while (position < text.size()) {
        const int equals = text.indexOf(QStringLiteral("=\""), position);
        const int quote = text.indexOf(QLatin1Char('"'), equals + 2);
        map.insert(text.mid(position, equals - position), text.mid(equals + 2, quote - (equals + 2)));
        if (quote + 2 <= position) {
            break;
        }
        position = quote + 2;
    }
    return map;
}

StatisticsValue expectedFigure(const Map& map)
{
    StatisticsValue figure = figureBefore();
    if (map.contains(QStringLiteral("value"))) {
        figure.value = map.value(QStringLiteral("value")).toInt();
    }
    if (map.contains(QStringLiteral("komma"))) {
        figure.komma = map.value(QStringLiteral("komma")).toInt();
    }
    if (map.contains(QStringLiteral("unit"))) {
        figure.unit = map.value(QStringLiteral("unit"));
    }
    if (map.contains(QStringLiteral("flags"))) {
        figure.flags = Flags(map.value(QStringLiteral("flags")).toInt());
    }
    if (map.contains(QStringLiteral("timestamp"))) {
        figure.timestamp = QDateTime::fromString(map.value(QStringLiteral("timestamp")), TimestampFormat);
    }
    return figure;
}

QString expectedText(const StatisticsValue& figure)
{
    return QStringLiteral("value=\"") + QString::number(figure.value) + QStringLiteral("\" komma=\"")
           + QString::number(figure.komma) + QStringLiteral("\" unit=\"") + figure.unit
           + QStringLiteral("\" flags=\"") + QString::number(static_cast<uint>(int(figure.flags)))
           + QStringLiteral("\" timestamp=\"") + figure.timestamp.toString(TimestampFormat)
           + QLatin1Char('"');
}

void checkForms(const StatisticsValue& figure)
{
    const QString text = figure.ToString();
    Fuzzing::requireEqual(text, expectedText(figure), "the key/value form");
    const QString quote = QStringLiteral("','");
    Fuzzing::requireEqual(figure.ToDbString(),
                          QLatin1Char('\'') + QString::number(figure.value) + quote
                              + QString::number(figure.komma) + quote + figure.unit + quote
                              + QString::number(static_cast<uint>(int(figure.flags))) + quote
                              + figure.timestamp.toString(TimestampFormat) + QLatin1Char('\''),
                          "the database form");

    if (figure.unit.contains(QLatin1Char('"'))) {
        return;
    }
    StatisticsValue again = figure;
    again.Reset();
    again.SetFromString(text);
    const bool fits = figure.value >= std::numeric_limits<qint32>::min()
                      && figure.value <= std::numeric_limits<qint32>::max();
    REQUIRE(again.value == (fits ? figure.value : 0));
    REQUIRE(again.komma == figure.komma);
    REQUIRE(again.unit == figure.unit);
    // Written without a sign, read with one.
    REQUIRE(again.flags == (int(figure.flags) >= 0 ? figure.flags : Flags()));
    REQUIRE(again.timestamp.toString(TimestampFormat) == figure.timestamp.toString(TimestampFormat));
    REQUIRE(!again.isValid());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Clocks that change twice a year, on any machine.
    ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzzing::Input input(data, size);
    const int position = input.take<std::int32_t>();
    const qint64 value = input.take<std::int64_t>();
    const QString text = Fuzzing::textOf(input.rest());

    const Map expected = expectedMap(text);
    StatisticsValue byParts = figureBefore();
    Map map;
    byParts.ConvertStringToMap(text, &map);
    REQUIRE(map == expected);
    byParts.ConvertMapToStatsVal(&map);
    StatisticsValue figure = figureBefore();
    figure.SetFromString(text);
    StatisticsValue wanted = expectedFigure(expected);
    REQUIRE(figure.isEqual(&wanted) && byParts.isEqual(&wanted));
    REQUIRE(figure.isValid());
    StatisticsValue invalid = figure;
    invalid.setIsValid(false);
    REQUIRE(!figure.isEqual(&invalid) && !invalid.isEqual(&figure));

    // Anywhere in the text, and outside of it.
    Map pair;
    figure.AddKeyValPair(text, position % (text.size() + 3), &pair);
    figure.AddKeyValPair(text, position, &pair);
    REQUIRE(!pair.isEmpty() && pair.size() <= 2);

    checkForms(figure);
    figure.value = value;
    checkForms(figure);
    return 0;
}
