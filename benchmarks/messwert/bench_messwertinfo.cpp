// SPDX-License-Identifier: BSD-3-Clause

// What it costs to show a reading. A scale sends up to a hundred a second, and most are like the one before.

#include "AllocationCount.h"
#include "MesswertData.h"
#include "MesswertInfo.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QObject>
#include <QQmlPropertyMap>

using Brimvale::MesswertData;
using Brimvale::MesswertInfo;

namespace
{

MesswertData reading(bool other)
{
    return MesswertData(other ? QStringLiteral("12.35") : QStringLiteral("12.34"),
                        other ? QStringLiteral("kg") : QStringLiteral("g"), QStringLiteral("g"),
                        other ? QStringLiteral("E1") : QStringLiteral("E0"), other ? 5 : -1, 0, other ? 1 : 0,
                        2, other ? 1 : 0, 12.34, 0.0, other, other, other, other, false, other, false, 74);
}

// The display model that one would write by hand for these properties alone.
class HandWritten : public QObject
{
    Q_OBJECT

public:
    // Returns whether the model shows this record.
    bool shows(const MesswertData& data) const
    {
        return m_messwert == data.messwert && m_unit == data.unit && m_stabilityValue == data.stabilityValue
               && m_stabilityVisible == (data.stabilityValue != -1) && m_netVisible == data.net
               && !m_ptVisible && m_isGrobRange == data.isGrobRange
               && m_resolutionReduction == data.resolutionReduction && m_eichDigit == data.eichDigit
               && m_isValid == data.isValid && m_isCalculated == data.isCalculated
               && m_errorText == data.errorText;
    }

    void show(const MesswertData& data)
    {
        set(m_messwert, data.messwert, &HandWritten::messwertChanged);
        set(m_unit, data.unit, &HandWritten::unitChanged);
        set(m_stabilityValue, data.stabilityValue, &HandWritten::stabilityValueChanged);
        set(m_stabilityVisible, data.stabilityValue != -1, &HandWritten::stabilityVisibleChanged);
        set(m_netVisible, data.net, &HandWritten::netVisibleChanged);
        set(m_ptVisible, false, &HandWritten::ptVisibleChanged);
        set(m_isGrobRange, data.isGrobRange, &HandWritten::isGrobRangeChanged);
        set(m_resolutionReduction, data.resolutionReduction, &HandWritten::resolutionReductionChanged);
        set(m_eichDigit, data.eichDigit, &HandWritten::eichDigitChanged);
        set(m_isValid, data.isValid, &HandWritten::isValidChanged);
        set(m_isCalculated, data.isCalculated, &HandWritten::isCalculatedChanged);
        set(m_errorText, data.errorText, &HandWritten::errorTextChanged);
    }

signals:
    void messwertChanged();
    void unitChanged();
    void stabilityValueChanged();
    void stabilityVisibleChanged();
    void netVisibleChanged();
    void ptVisibleChanged();
    void isGrobRangeChanged();
    void resolutionReductionChanged();
    void eichDigitChanged();
    void isValidChanged();
    void isCalculatedChanged();
    void errorTextChanged();

private:
    template <typename Type>
    void set(Type& member, const Type& value, void (HandWritten::*changed)())
    {
        if (member == value)
            return;
        member = value;
        emit(this->*changed)();
    }

    QString m_messwert;
    QString m_unit;
    QString m_errorText;
    int m_stabilityValue = 0;
    int m_resolutionReduction = 0;
    int m_eichDigit = 0;
    bool m_stabilityVisible = false;
    bool m_netVisible = false;
    bool m_ptVisible = false;
    bool m_isGrobRange = false;
    bool m_isValid = false;
    bool m_isCalculated = false;
};

MesswertInfo* newModel(QObject* parent)
{
    const QString none;
    return new MesswertInfo(parent, none, none, true, 0, false, false, false, 0, none, none, false, 0, false,
                            false, 0, none, none, none, 0, 0, false, false, false, false, true);
}

// A model whose one property is listened to, as by a screen.
template <typename Model>
void listen(Model* model, long* changes)
{
    QObject::connect(model, &Model::messwertChanged, model, [changes] { ++*changes; });
}

// The yardstick: twelve comparisons, of texts that are not shared.
void comparisonsByHand(benchmark::State& state)
{
    HandWritten model;
    model.show(reading(false));
    const MesswertData data = reading(false);
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(model.shows(data));
}
BENCHMARK(comparisonsByHand)->Name("MesswertInfo::setFromMesswertData unchanged/limit:twelve comparisons");

void unchangedRecord(benchmark::State& state)
{
    QObject parent;
    MesswertInfo* const model = newModel(&parent);
    MesswertData data = reading(false);
    model->setFromMesswertData(&data);
    data = reading(false);
    long changes = 0;
    listen(model, &changes);
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            model->setFromMesswertData(&data);
            benchmark::ClobberMemory();
        }
    }
    if (changes != 0)
        state.SkipWithError("an unchanged record has changed the model");
}
BENCHMARK(unchangedRecord)->Name("MesswertInfo::setFromMesswertData unchanged/ours");

// The yardstick: the same change with setters written by hand.
void changedRecordByHand(benchmark::State& state)
{
    HandWritten model;
    const MesswertData data[] = {reading(false), reading(true)};
    model.show(data[1]);
    long changes = 0;
    listen(&model, &changes);
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        model.show(data[i++ % 2]);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(changedRecordByHand)->Name("MesswertInfo::setFromMesswertData changed/limit:setters by hand");

// The generic model of the framework for QML, with the same properties.
void showInMap(QQmlPropertyMap& map, const MesswertData& data)
{
    map.insert(QStringLiteral("messwert"), data.messwert);
    map.insert(QStringLiteral("unit"), data.unit);
    map.insert(QStringLiteral("stabilityValue"), data.stabilityValue);
    map.insert(QStringLiteral("stabilityVisible"), data.stabilityValue != -1);
    map.insert(QStringLiteral("netVisible"), data.net);
    map.insert(QStringLiteral("ptVisible"), false);
    map.insert(QStringLiteral("isGrobRange"), data.isGrobRange);
    map.insert(QStringLiteral("resolutionReduction"), data.resolutionReduction);
    map.insert(QStringLiteral("eichDigit"), data.eichDigit);
    map.insert(QStringLiteral("isValid"), data.isValid);
    map.insert(QStringLiteral("isCalculated"), data.isCalculated);
    map.insert(QStringLiteral("errorText"), data.errorText);
}

// Whom the map tells about a change.
class Listener : public QObject
{
    Q_OBJECT

public slots:
    void onChanged() { ++changes; }

public:
    long changes = 0;
};

void recordInMap(benchmark::State& state, bool isChanged)
{
    QQmlPropertyMap map;
    const MesswertData data[] = {reading(false), reading(isChanged)};
    showInMap(map, data[1]);
    const QMetaObject* const type = map.metaObject();
    Listener listener;
    QObject::connect(
        &map, type->property(type->indexOfProperty("messwert")).notifySignal(), &listener,
        Listener::staticMetaObject.method(Listener::staticMetaObject.indexOfMethod("onChanged()")));
    std::size_t i = 0;
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            showInMap(map, data[i++ % 2]);
            benchmark::ClobberMemory();
        }
    }
    if (listener.changes != (isChanged ? long(i) : 0))
        state.SkipWithError("the changes of the map were not told");
}

void unchangedRecordInMap(benchmark::State& state)
{
    recordInMap(state, false);
}
BENCHMARK(unchangedRecordInMap)->Name("MesswertInfo::setFromMesswertData unchanged/peer:QQmlPropertyMap");

void changedRecordInMap(benchmark::State& state)
{
    recordInMap(state, true);
}
BENCHMARK(changedRecordInMap)->Name("MesswertInfo::setFromMesswertData changed/peer:QQmlPropertyMap");

void changedRecord(benchmark::State& state)
{
    QObject parent;
    MesswertInfo* const model = newModel(&parent);
    MesswertData data[] = {reading(false), reading(true)};
    model->setFromMesswertData(&data[1]);
    long changes = 0;
    listen(model, &changes);
    std::size_t i = 0;
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state) {
            model->setFromMesswertData(&data[i++ % 2]);
            benchmark::ClobberMemory();
        }
    }
    if (changes != long(i))
        state.SkipWithError("a changed record has not changed the model");
}
BENCHMARK(changedRecord)->Name("MesswertInfo::setFromMesswertData changed/ours");

} // namespace

#include "bench_messwertinfo.moc"
