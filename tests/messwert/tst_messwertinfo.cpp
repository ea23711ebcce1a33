// SPDX-License-Identifier: BSD-3-Clause

#include "MesswertData.h"
#include "MesswertInfo.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QtTest>

#include <limits>
#include <memory>

using Brimvale::MesswertData;
using Brimvale::MesswertInfo;

Q_DECLARE_METATYPE(Brimvale::MesswertData)

namespace
{

struct Property
{
    const char* name;
    QVariant (*get)(const MesswertInfo&);
    void (*set)(MesswertInfo&, const QVariant&);
};

#define PROPERTY(name, setter, type)                                                                         \
    {                                                                                                        \
#name,                                                                                               \
            [](const MesswertInfo&                                                                           \
                   info) { return QVariant(info.name()); },                                                  \
                                                         [](MesswertInfo & info,                             \
                                                            const QVariant&                                  \
                                                                value) { info.setter(value.value<type>()); } \
    }

// In the order of the properties and of the constructor's arguments.
const Property Properties[] = {
    PROPERTY(messwert, setMesswert, QString),
    PROPERTY(unit, setUnit, QString),
    PROPERTY(messwertVisible, setMesswertVisible, bool),
    PROPERTY(eichDigit, setEichDigit, int),
    PROPERTY(isValid, setIsValid, bool),
    PROPERTY(isCalculated, setIsCalculated, bool),
    PROPERTY(isGrobRange, setIsGrobRange, bool),
    PROPERTY(resolutionReduction, setResoluionReduction, int),
    PROPERTY(messwertKlein, setMesswertKlein, QString),
    PROPERTY(unitKlein, setUnitKlein, QString),
    PROPERTY(messwertKleinVisible, setMesswertKleinVisible, bool),
    PROPERTY(eichDigitKlein, setEichDigitKlein, int),
    PROPERTY(isValidKlein, setIsValidKlein, bool),
    PROPERTY(isGrobRangeKlein, setIsGrobRangeKlein, bool),
    PROPERTY(resolutionReductionKlein, setResoluionReductionKlein, int),
    PROPERTY(netText, setNetText, QString),
    PROPERTY(ptText, setPtText, QString),
    PROPERTY(errorText, setErrorText, QString),
    PROPERTY(bargraphValue, setBargraphValue, int),
    PROPERTY(stabilityValue, setStabilityValue, int),
    PROPERTY(netVisible, setNetVisible, bool),
    PROPERTY(ptVisible, setPtVisible, bool),
    PROPERTY(bargraphVisible, setBargraphVisible, bool),
    PROPERTY(stabilityVisible, setStabilityVisible, bool),
    PROPERTY(allVisible, setAllVisible, bool),
};
constexpr int PropertyCount = sizeof Properties / sizeof Properties[0];
static_assert(PropertyCount == 25, "a property is missing");

// A value of its own in every property but the flags.
QVariantList initialValues()
{
    return {QStringLiteral("12.34"),
            QStringLiteral("g"),
            false,
            1,
            false,
            false,
            false,
            2,
            QStringLiteral("56.7"),
            QStringLiteral("mg"),
            false,
            3,
            false,
            false,
            4,
            QStringLiteral("Net"),
            QStringLiteral("PT"),
            QStringLiteral("E1"),
            5,
            6,
            false,
            false,
            false,
            false,
            false};
}

// The record that the initial values show.
MesswertData shownRecord()
{
    MesswertData record;
    record.messwert = QStringLiteral("12.34");
    record.unit = QStringLiteral("g");
    record.errorText = QStringLiteral("E1");
    record.stabilityValue = 6;
    record.eichDigit = 1;
    record.resolutionReduction = 2;
    record.isValid = false;
    return record;
}

// A record that differs from the initial values in everything that is shown.
MesswertData otherRecord()
{
    return MesswertData(QStringLiteral("98.7"), QStringLiteral("kg"), QStringLiteral("kilogram"),
                        QStringLiteral("E2"), 9, 10, 11, 13, 12, 98.7, 1.5, true, true, true, true, true,
                        true, true, 74);
}

// Another value than the initial one.
QVariant otherValue(int property)
{
    const QVariant value = initialValues().at(property);
    if (value.type() == QVariant::String)
        return value.toString() + QLatin1Char('x');
    if (value.type() == QVariant::Int)
        return value.toInt() + 100;
    return !value.toBool();
}

std::unique_ptr<MesswertInfo> made(const QVariantList& v, QObject* parent = nullptr)
{
    return std::make_unique<MesswertInfo>(
        parent, v[0].toString(), v[1].toString(), v[2].toBool(), v[3].toInt(), v[4].toBool(), v[5].toBool(),
        v[6].toBool(), v[7].toInt(), v[8].toString(), v[9].toString(), v[10].toBool(), v[11].toInt(),
        v[12].toBool(), v[13].toBool(), v[14].toInt(), v[15].toString(), v[16].toString(), v[17].toString(),
        v[18].toInt(), v[19].toInt(), v[20].toBool(), v[21].toBool(), v[22].toBool(), v[23].toBool(),
        v[24].toBool());
}

// All properties through their getters.
QVariantList valuesOf(const MesswertInfo& info)
{
    QVariantList values;
    for (const Property& property : Properties)
        values.append(property.get(info));
    return values;
}

// Collects the signals of a model in the order in which they are emitted, and how the model looked at each.
class Recorder : public QObject
{
    Q_OBJECT

public:
    explicit Recorder(MesswertInfo* info)
        : m_info(info)
    {
        const QMetaObject& type = MesswertInfo::staticMetaObject;
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("record()"));
        for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
            if (type.method(i).methodType() == QMetaMethod::Signal)
                connect(info, type.method(i), this, slot);
        }
    }

    QStringList emitted;
    QVector<QVariantList> seen;

private slots:
    void record()
    {
        emitted.append(QString::fromLatin1(m_info->metaObject()->method(senderSignalIndex()).name()));
        seen.append(valuesOf(*m_info));
    }

private:
    MesswertInfo* m_info;
};

QStringList lines(const char* text)
{
    QStringList result;
    for (const QString& line : QString::fromLatin1(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        result.append(line.trimmed());
    return result;
}

void addPropertyRows()
{
    QTest::addColumn<int>("property");
    for (int i = 0; i < PropertyCount; ++i)
        QTest::newRow(Properties[i].name) << i;
}

} // namespace

class TestMesswertInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void constructorStoresEachArgument_data() { addPropertyRows(); }
    void constructorStoresEachArgument();
    void parentOwnsTheModel();
    void setterStoresAndEmitsOnce_data() { addPropertyRows(); }
    void setterStoresAndEmitsOnce();
    void setterOfTheSameValueEmitsNothing_data() { addPropertyRows(); }
    void setterOfTheSameValueEmitsNothing();
    void everyChangeIsAnnounced_data() { addPropertyRows(); }
    void everyChangeIsAnnounced();
    void propertyIsReadAndWrittenByName_data() { addPropertyRows(); }
    void propertyIsReadAndWrittenByName();
    void textsAreComparedByContent();
    void everyCharacterOfATextCounts_data();
    void everyCharacterOfATextCounts();
    void translateTextDoesNothing();

    void loadingTakesOverTheMainDisplay();
    void loadingEmitsInOrder();
    void loadingTheSameRecordAgainEmitsNothing();
    void loadingOneChangeEmitsItsSignals_data();
    void loadingOneChangeEmitsItsSignals();
    void membersThatAreNotShownChangeNothing_data();
    void membersThatAreNotShownChangeNothing();
    void loadingHidesThePresetTare_data();
    void loadingHidesThePresetTare();
    void stabilityIndicatorIsHiddenByMinusOneOnly_data();
    void stabilityIndicatorIsHiddenByMinusOneOnly();
    void loadingKeepsTheRecord();
    void recordIsNotKept();
    void pointerTypeIsRegisteredByItsPlainName();

private:
    std::unique_ptr<MesswertInfo> m_info;
    std::unique_ptr<Recorder> m_recorder;
    MesswertData m_record; // what the model shows initially
};

void TestMesswertInfo::init()
{
    m_info = made(initialValues());
    m_recorder = std::make_unique<Recorder>(m_info.get());

    m_record = shownRecord();
    // The only contradiction of the initial values: an indicator that is not shown although it has a value.
    m_info->setStabilityVisible(true);
    m_recorder->emitted.clear();
    m_recorder->seen.clear();
}

void TestMesswertInfo::cleanup()
{
    m_recorder.reset();
    m_info.reset();
}

void TestMesswertInfo::constructorStoresEachArgument()
{
    QFETCH(int, property);
    QVariantList values = initialValues();
    values[property] = otherValue(property);
    QCOMPARE(valuesOf(*made(values)), values);
}

void TestMesswertInfo::parentOwnsTheModel()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<MesswertInfo> info = made(initialValues(), parent.get()).release();
    QCOMPARE(info->parent(), parent.get());
    parent.reset();
    QVERIFY(info.isNull());
}

void TestMesswertInfo::setterStoresAndEmitsOnce()
{
    QFETCH(int, property);
    m_info = made(initialValues());
    Recorder recorder(m_info.get());
    Properties[property].set(*m_info, otherValue(property));

    QVariantList expected = initialValues();
    expected[property] = otherValue(property);
    QCOMPARE(valuesOf(*m_info), expected);
    QCOMPARE(recorder.emitted,
             QStringList(QLatin1String(Properties[property].name) + QLatin1String("Changed")));
    // The value is there when its signal is emitted.
    QCOMPARE(recorder.seen.first(), expected);
}

void TestMesswertInfo::setterOfTheSameValueEmitsNothing()
{
    QFETCH(int, property);
    const QVariantList before = valuesOf(*m_info);
    Properties[property].set(*m_info, before.at(property));
    QCOMPARE(m_recorder->emitted, QStringList());
    QCOMPARE(valuesOf(*m_info), before);
}

void TestMesswertInfo::everyChangeIsAnnounced()
{
    QFETCH(int, property);
    m_info = made(initialValues());
    Recorder recorder(m_info.get());
    Properties[property].set(*m_info, otherValue(property));
    Properties[property].set(*m_info, initialValues().at(property));
    QCOMPARE(recorder.emitted.size(), 2);
    QCOMPARE(valuesOf(*m_info), initialValues());
}

void TestMesswertInfo::propertyIsReadAndWrittenByName()
{
    QFETCH(int, property);
    m_info = made(initialValues());
    Recorder recorder(m_info.get());
    const char* const name = Properties[property].name;
    QCOMPARE(m_info->property(name), initialValues().at(property));
    QVERIFY(m_info->setProperty(name, otherValue(property)));
    QCOMPARE(m_info->property(name), otherValue(property));
    QCOMPARE(recorder.emitted, QStringList(QLatin1String(name) + QLatin1String("Changed")));
}

void TestMesswertInfo::textsAreComparedByContent()
{
    m_info->setErrorText(QString());
    m_recorder->emitted.clear();
    m_info->setErrorText(QStringLiteral(""));
    m_info->setMesswert(QStringLiteral("12.3") + QLatin1Char('4'));
    QCOMPARE(m_recorder->emitted, QStringList());
}

void TestMesswertInfo::everyCharacterOfATextCounts_data()
{
    QTest::addColumn<int>("size");
    for (int size = 0; size <= 13; ++size) {
        QTest::addRow("%d characters", size) << size;
    }
}

void TestMesswertInfo::everyCharacterOfATextCounts()
{
    QFETCH(int, size);
    const QString text = QStringLiteral("0123456789abc").left(size);
    m_info->setMesswert(text);
    QSignalSpy spy(m_info.get(), &MesswertInfo::messwertChanged);
    m_info->setMesswert(QString(text.constData(), size)); // the same characters elsewhere
    QCOMPARE(spy.count(), 0);
    for (int i = 0; i < size; ++i) {
        // Both bytes of a character count.
        for (ushort other : {ushort('x'), ushort(text.at(i).unicode() + 0x100)}) {
            QString changed = text;
            changed[i] = QChar(other);
            m_info->setMesswert(changed);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(m_info->messwert(), changed);
            m_info->setMesswert(text);
            QCOMPARE(spy.count(), 2);
            spy.clear();
        }
    }
    m_info->setMesswert(text + QLatin1Char('0'));
    QCOMPARE(spy.count(), 1);
}

void TestMesswertInfo::translateTextDoesNothing()
{
    const QVariantList before = valuesOf(*m_info);
    m_info->translateText();
    QCOMPARE(m_recorder->emitted, QStringList());
    QCOMPARE(valuesOf(*m_info), before);
}

void TestMesswertInfo::loadingTakesOverTheMainDisplay()
{
    QVariantList expected = valuesOf(*m_info);
    const auto expect = [&expected](const char* name, const QVariant& value) {
        for (int i = 0; i < PropertyCount; ++i) {
            if (qstrcmp(Properties[i].name, name) == 0)
                expected[i] = value;
        }
    };
    expect("messwert", QStringLiteral("98.7"));
    expect("unit", QStringLiteral("kg"));
    expect("stabilityValue", 9);
    expect("stabilityVisible", true);
    expect("netVisible", true);
    expect("ptVisible", false);
    expect("isGrobRange", true);
    expect("resolutionReduction", 12);
    expect("eichDigit", 11);
    expect("isValid", true);
    expect("isCalculated", true);
    expect("errorText", QStringLiteral("E2"));

    MesswertData record = otherRecord();
    m_info->setFromMesswertData(&record);
    QCOMPARE(valuesOf(*m_info), expected);
}

void TestMesswertInfo::loadingEmitsInOrder()
{
    m_info->setPtVisible(true);
    m_info->setStabilityVisible(false);
    m_recorder->emitted.clear();
    MesswertData record = otherRecord();
    m_info->setFromMesswertData(&record);
    QCOMPARE(m_recorder->emitted, lines(R"(
        messwertChanged
        unitChanged
        stabilityValueChanged
        stabilityVisibleChanged
        netVisibleChanged
        ptVisibleChanged
        isGrobRangeChanged
        resolutionReductionChanged
        eichDigitChanged
        isValidChanged
        isCalculatedChanged
        errorTextChanged)"));
}

void TestMesswertInfo::loadingTheSameRecordAgainEmitsNothing()
{
    MesswertData record = otherRecord();
    m_info->setFromMesswertData(&record);
    QCOMPARE(m_recorder->emitted.isEmpty(), false);
    m_recorder->emitted.clear();
    MesswertData same(record);
    m_info->setFromMesswertData(&same);
    QCOMPARE(m_recorder->emitted, QStringList());
}

void TestMesswertInfo::loadingOneChangeEmitsItsSignals_data()
{
    QTest::addColumn<MesswertData>("record");
    QTest::addColumn<QStringList>("emitted");

    const auto row = [](const char* name, auto member, auto value, const char* emitted) {
        MesswertData record = shownRecord();
        record.*member = value;
        QTest::newRow(name) << record << lines(emitted);
    };
    row("nothing", &MesswertData::messwert, QStringLiteral("12.34"), "");
    row("messwert", &MesswertData::messwert, QStringLiteral("12.35"), "messwertChanged");
    row("unit", &MesswertData::unit, QStringLiteral("mg"), "unitChanged");
    row("errorText", &MesswertData::errorText, QString(), "errorTextChanged");
    row("stabilityValue", &MesswertData::stabilityValue, 7, "stabilityValueChanged");
    row("no stability indicator", &MesswertData::stabilityValue, -1,
        "stabilityValueChanged\nstabilityVisibleChanged");
    row("net", &MesswertData::net, true, "netVisibleChanged");
    row("isGrobRange", &MesswertData::isGrobRange, true, "isGrobRangeChanged");
    row("resolutionReduction", &MesswertData::resolutionReduction, 0, "resolutionReductionChanged");
    row("eichDigit", &MesswertData::eichDigit, 0, "eichDigitChanged");
    row("isValid", &MesswertData::isValid, true, "isValidChanged");
    row("isCalculated", &MesswertData::isCalculated, true, "isCalculatedChanged");
}

void TestMesswertInfo::loadingOneChangeEmitsItsSignals()
{
    QFETCH(MesswertData, record);
    m_info->setFromMesswertData(&record);
    QTEST(m_recorder->emitted, "emitted");
}

void TestMesswertInfo::membersThatAreNotShownChangeNothing_data()
{
    QTest::addColumn<MesswertData>("record");

    const auto row = [](const char* name, auto member, auto value) {
        MesswertData record = shownRecord();
        record.*member = value;
        QTest::newRow(name) << record;
    };
    row("unitPrintName", &MesswertData::unitPrintName, QStringLiteral("gram"));
    row("rangeNumber", &MesswertData::rangeNumber, 2);
    row("decimals", &MesswertData::decimals, 5);
    row("value", &MesswertData::value, 99.0);
    row("tareValue", &MesswertData::tareValue, 99.0);
    row("isStable", &MesswertData::isStable, true);
    row("isPresetTare", &MesswertData::isPresetTare, true);
    row("isOverload", &MesswertData::isOverload, true);
    row("registerNumber", &MesswertData::registerNumber, 74);
}

void TestMesswertInfo::membersThatAreNotShownChangeNothing()
{
    QFETCH(MesswertData, record);
    const QVariantList before = valuesOf(*m_info);
    m_info->setFromMesswertData(&record);
    QCOMPARE(m_recorder->emitted, QStringList());
    QCOMPARE(valuesOf(*m_info), before);
}

void TestMesswertInfo::loadingHidesThePresetTare_data()
{
    QTest::addColumn<bool>("isPresetTare");
    QTest::newRow("record of a weighed tare") << false;
    QTest::newRow("record of a preset tare") << true;
}

void TestMesswertInfo::loadingHidesThePresetTare()
{
    QFETCH(bool, isPresetTare);
    m_info->setPtVisible(true);
    m_recorder->emitted.clear();
    m_record.isPresetTare = isPresetTare;
    m_info->setFromMesswertData(&m_record);
    QCOMPARE(m_info->ptVisible(), false);
    QCOMPARE(m_recorder->emitted, QStringList(QStringLiteral("ptVisibleChanged")));
}

void TestMesswertInfo::stabilityIndicatorIsHiddenByMinusOneOnly_data()
{
    QTest::addColumn<int>("stabilityValue");
    QTest::addColumn<bool>("visible");

    QTest::newRow("-1") << -1 << false;
    QTest::newRow("0") << 0 << true;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("-2") << -2 << true;
    QTest::newRow("highest") << std::numeric_limits<int>::max() << true;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << true;
}

void TestMesswertInfo::stabilityIndicatorIsHiddenByMinusOneOnly()
{
    QFETCH(int, stabilityValue);
    QFETCH(bool, visible);
    for (const bool before : {false, true}) {
        m_info->setStabilityVisible(before);
        m_record.stabilityValue = stabilityValue;
        m_info->setFromMesswertData(&m_record);
        QCOMPARE(m_info->stabilityVisible(), visible);
        QCOMPARE(m_info->stabilityValue(), stabilityValue);
    }
}

void TestMesswertInfo::loadingKeepsTheRecord()
{
    MesswertData record = m_record;
    record.isPresetTare = true;
    MesswertData copy = record;
    m_info->setFromMesswertData(&record);
    QVERIFY(copy.isEqual(&record));
}

void TestMesswertInfo::recordIsNotKept()
{
    auto record = std::make_unique<MesswertData>(m_record);
    record->messwert = QStringLiteral("98.7");
    m_info->setFromMesswertData(record.get());
    record->messwert[0] = QLatin1Char('0');
    record.reset();
    QCOMPARE(m_info->messwert(), QStringLiteral("98.7"));
}

void TestMesswertInfo::pointerTypeIsRegisteredByItsPlainName()
{
    QVERIFY(QMetaType::type("MesswertInfo*") != QMetaType::UnknownType);
    QCOMPARE(QMetaType::type("MesswertInfo*"), qMetaTypeId<MesswertInfo*>());
}

QTEST_APPLESS_MAIN(TestMesswertInfo)
#include "tst_messwertinfo.moc"
