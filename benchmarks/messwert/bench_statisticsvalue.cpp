// SPDX-License-Identifier: BSD-3-Clause

// What it costs to write statistics figures as text and to read them back, as when a series is stored and reloaded.

#include "AllocationCount.h"
#include "StatisticsValue.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringBuilder>

using Brimvale::StatisticsValue;

namespace
{

const QLatin1String TimestampFormat("yyyy-MM-dd HH:mm:ss.zzz");

StatisticsValue figure()
{
    return StatisticsValue(123456, 2, QStringLiteral("g"), StatisticsValue::Calculated,
                           QDateTime(QDate(2021, 3, 5), QTime(14, 7, 9, 42)), true);
}

QString builtText(const StatisticsValue& figure)
{
    return QLatin1String("value=\"") % QString::number(figure.value) % QLatin1String("\" komma=\"")
           % QString::number(figure.komma) % QLatin1String("\" unit=\"") % figure.unit
           % QLatin1String("\" flags=\"") % QString::number(uint(figure.flags))
           % QLatin1String("\" timestamp=\"") % figure.timestamp.toString(TimestampFormat) % QLatin1Char('"');
}

QJsonObject jsonObject(const StatisticsValue& figure)
{
    return {{QStringLiteral("value"), figure.value},
            {QStringLiteral("komma"), figure.komma},
            {QStringLiteral("unit"), figure.unit},
            {QStringLiteral("flags"), int(figure.flags)},
            {QStringLiteral("timestamp"), figure.timestamp.toString(TimestampFormat)}};
}

void write(benchmark::State& state)
{
    const StatisticsValue value = figure();
    if (value.ToString() != builtText(value)) {
        state.SkipWithError("the texts differ");
        return;
    }
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(value.ToString());
}
BENCHMARK(write)->Name("StatisticsValue::ToString/ours");

void writeForDatabase(benchmark::State& state)
{
    const StatisticsValue value = figure();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(value.ToDbString());
}
BENCHMARK(writeForDatabase)->Name("StatisticsValue::ToDbString/ours");

void writeWithStringBuilder(benchmark::State& state)
{
    const StatisticsValue value = figure();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(builtText(value));
}
BENCHMARK(writeWithStringBuilder)->Name("StatisticsValue::ToString/peer:QStringBuilder");

void writeJson(benchmark::State& state)
{
    const StatisticsValue value = figure();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument(jsonObject(value)).toJson(QJsonDocument::Compact));
}
BENCHMARK(writeJson)->Name("StatisticsValue::ToString/peer:QJsonDocument");

// Whether the figure was read back completely.
void expectSample(benchmark::State& state, StatisticsValue value)
{
    value.valid = true;
    StatisticsValue expected = figure();
    if (!value.isEqual(&expected))
        state.SkipWithError("the figure was not read back");
}

void read(benchmark::State& state)
{
    StatisticsValue value = figure();
    const QString text = value.ToString();
    value.Reset();
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            value.SetFromString(text);
            benchmark::ClobberMemory();
        }
    }
    expectSample(state, value);
}
BENCHMARK(read)->Name("StatisticsValue::SetFromString/ours");

void readWithoutTimestamp(benchmark::State& state)
{
    StatisticsValue value = figure();
    const QDateTime timestamp = value.timestamp;
    value.timestamp = QDateTime();
    const QString text = value.ToString();
    value.Reset();
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            value.SetFromString(text);
            benchmark::ClobberMemory();
        }
    }
    value.timestamp = timestamp;
    expectSample(state, value);
}
BENCHMARK(readWithoutTimestamp)->Name("StatisticsValue::SetFromString without time stamp/ours");

// The steps one by one, through the map.
void readByStep(benchmark::State& state)
{
    StatisticsValue value = figure();
    const QString text = value.ToString();
    value.Reset();
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            QMap<QString, QString> map;
            value.ConvertStringToMap(text, &map);
            value.ConvertMapToStatsVal(&map);
            benchmark::ClobberMemory();
        }
    }
    expectSample(state, value);
}
BENCHMARK(readByStep)->Name("StatisticsValue::SetFromString/peer:through the map");

void readTimestamp(benchmark::State& state)
{
    const QString text = figure().timestamp.toString(TimestampFormat);
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(QDateTime::fromString(text, TimestampFormat));
}
BENCHMARK(readTimestamp)->Name("StatisticsValue::SetFromString/peer:QDateTime::fromString alone");

void makeTimestamp(benchmark::State& state)
{
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(QDateTime(QDate(2021, 3, 5), QTime(14, 7, 9, 42)));
}
BENCHMARK(makeTimestamp)->Name("StatisticsValue::SetFromString/limit:QDateTime alone");

// Only the text is parsed: no member is asked for, and the time stamp stays a text.
void readJson(benchmark::State& state, const StatisticsValue& value)
{
    const QByteArray text = QJsonDocument(jsonObject(value)).toJson(QJsonDocument::Compact);
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
}

void readWholeJson(benchmark::State& state)
{
    readJson(state, figure());
}
BENCHMARK(readWholeJson)->Name("StatisticsValue::SetFromString/peer:QJsonDocument");

void readJsonWithoutTimestamp(benchmark::State& state)
{
    StatisticsValue value = figure();
    value.timestamp = QDateTime();
    readJson(state, value);
}
BENCHMARK(readJsonWithoutTimestamp)
    ->Name("StatisticsValue::SetFromString without time stamp/peer:QJsonDocument");

} // namespace
