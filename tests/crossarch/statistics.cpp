// SPDX-License-Identifier: BSD-3-Clause
#include "Formula.h"
#include "ResultTable.h"
#include "StatisticsValue.h"
#include "operations.h"

#include <cstdio>

using namespace Brimvale;

namespace
{

using Map = QMap<QString, QString>;

StatisticsValue figure(Inputs& in)
{
    // Braces, see Inputs.cpp.
    return {
        in.longInteger(), in.integer(),
        in.text(),        QFlags<StatisticsValue::StatisticsFlag>(in.flag() ? in.below(16) : in.integer()),
        in.timestamp(),   in.flag()};
}

QByteArray written(const StatisticsValue& figure)
{
    return '{'
           + line(qint64(figure.value), figure.komma, figure.unit, int(figure.flags),
                  figure.timestamp.isValid(),
                  figure.timestamp.isValid() ? figure.timestamp.toMSecsSinceEpoch() : 0, figure.valid)
           + '}';
}

QByteArray written(const Map& map)
{
    QByteArray text = "{";
    for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry)
        text += line(entry.key(), entry.value()) + ' ';
    return text + '}';
}

/// A key/value text of our own or a damaged one.
QString keyValueText(Inputs& in)
{
    QString text = figure(in).ToString();
    if (in.flag()) {
        const Map fields{{QStringLiteral("value"), in.numberText()},
                         {QStringLiteral("komma"), in.numberText()},
                         {QStringLiteral("unit"), in.text()},
                         {QStringLiteral("flags"), in.numberText()}};
        text.clear();
        for (auto field = fields.constBegin(); field != fields.constEnd(); ++field)
            text += QStringLiteral("%1=\"%2\" ").arg(field.key(), field.value());
    }
    if (in.below(3) == 0 && !text.isEmpty()) {
        const int position = in.below(text.size());
        const int length = in.below(8);
        text.replace(position, length, in.flag() ? in.text() : in.numberText());
    }
    return text;
}

/// The exponential function may differ in its last bit: to ten digits it does not.
QByteArray shortened(double value)
{
    char text[40];
    std::snprintf(text, sizeof(text), "%.9e", value);
    return value == value ? text : "nan";
}

} // namespace

void writeStatistics(ResultTable& table)
{
    Inputs in = table.begin("StatisticsValue::ToString, ToDbString");
    for (int i = 0; i < 10000; ++i) {
        const StatisticsValue value = figure(in);
        table.row(written(value), value.ToString(), value.ToDbString());
    }

    in = table.begin("StatisticsValue::SetFromString");
    for (int i = 0; i < 20000; ++i) {
        const QString text = keyValueText(in);
        StatisticsValue value(-7, 3, QStringLiteral("?"), StatisticsValue::Deleted, QDateTime(), true);
        value.SetFromString(text);
        table.row(line(text), written(value));
    }

    in = table.begin("StatisticsValue: single steps of reading");
    for (int i = 0; i < 3000; ++i) {
        const QString text = keyValueText(in);
        StatisticsValue value(-7, 3, QStringLiteral("?"), StatisticsValue::Deleted, QDateTime(), true);
        Map map;
        value.ConvertStringToMap(text, &map);
        Map pair;
        const int position = in.below(text.size() + 1);
        const int next = value.AddKeyValPair(text, position, &pair);
        value.ConvertMapToStatsVal(&map);
        table.row(line(text, position), written(map), next, written(pair), written(value));
    }

    in = table.begin("StatisticsValue::SetStatsProperty");
    static const char* const Keys[] = {"value", "komma", "unit", "flags", "timestamp", "Value", ""};
    for (int i = 0; i < 5000; ++i) {
        const QString key = QLatin1String(Keys[in.below(7)]);
        QString text = in.numberText();
        if (in.flag()) {
            text = in.timestamp().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
            if (in.below(3) == 0 && !text.isEmpty()) {
                const int position = in.below(text.size());
                const int length = in.below(3);
                text.replace(position, length, in.numberText());
            }
        }
        StatisticsValue value(-7, 3, QStringLiteral("?"), StatisticsValue::Deleted, QDateTime(), true);
        value.SetStatsProperty(key, text);
        table.row(line(key, text), written(value));
    }

    in = table.begin("StatisticsValue: comparison, reset");
    for (int i = 0; i < 2000; ++i) {
        StatisticsValue value = figure(in);
        const StatisticsValue other = in.flag() ? figure(in) : value;
        const bool isEqual = value.isEqual(&other);
        const QByteArray before = written(value);
        value.Reset();
        table.row(line(before, written(other)), isEqual, written(value));
    }

    Formula formula(nullptr);
    in = table.begin("Formula::AirDensityExact");
    for (int i = 0; i < 5000; ++i) {
        const bool usual = in.flag();
        const double temperature = usual ? in.below(4000) / 100.0 : in.decimal();
        const double humidity = usual ? in.below(10000) / 100.0 : in.decimal();
        const double pressure = usual ? 800.0 + in.below(30000) / 100.0 : in.decimal();
        const int decimals = in.below(10) - 1;
        table.row(line(temperature, humidity, pressure, decimals),
                  shortened(formula.AirDensityExact(temperature, humidity, pressure, decimals)));
    }
    static const double Edges[] = {-273.15, -241.2, -241.20001, 0.0, 1e300, -1e300, 5e-324};
    for (const double temperature : Edges) {
        for (const double other : Edges) {
            table.row(line(temperature, other),
                      shortened(formula.AirDensityExact(temperature, other, 1000.0, 6)),
                      shortened(formula.AirDensityExact(temperature, 50.0, other, 6)),
                      shortened(formula.AirDensityNIST(temperature, 50.0, other, 6)));
        }
    }

    in = table.begin("Formula: others");
    for (int i = 0; i < 5000; ++i) {
        const double temperature = in.number();
        const double humidity = in.number();
        const double pressure = in.number();
        const int decimals = in.places();
        table.row(line(temperature, humidity, pressure, decimals),
                  formula.AirDensityNIST(temperature, humidity, pressure, decimals),
                  formula.AirDensity_CalWeight_CorrectionFactor(temperature), formula.AirDensityStandard(),
                  formula.SteelDensityOfStandardCalWeight());
    }
}
