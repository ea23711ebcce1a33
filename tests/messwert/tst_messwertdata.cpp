// SPDX-License-Identifier: BSD-3-Clause

#include "MesswertData.h"

#include <QtTest>

#include <limits>
#include <memory>

using Brimvale::MesswertData;

namespace
{

const char* const Names[] = {"messwert",      "unit",           "unitPrintName",
                             "errorText",     "stabilityValue", "rangeNumber",
                             "eichDigit",     "decimals",       "resolutionReduction",
                             "value",         "tareValue",      "isValid",
                             "isCalculated",  "isStable",       "net",
                             "isPresetTare",  "isGrobRange",    "isOverload",
                             "registerNumber"};
constexpr int MemberCount = 19;

// The members in their order.
QVariantList membersOf(const MesswertData& data)
{
    return {data.messwert,      data.unit,           data.unitPrintName,
            data.errorText,     data.stabilityValue, data.rangeNumber,
            data.eichDigit,     data.decimals,       data.resolutionReduction,
            data.value,         data.tareValue,      data.isValid,
            data.isCalculated,  data.isStable,       data.net,
            data.isPresetTare,  data.isGrobRange,    data.isOverload,
            data.registerNumber};
}

MesswertData made(const QVariantList& v)
{
    return MesswertData(v[0].toString(), v[1].toString(), v[2].toString(), v[3].toString(), v[4].toInt(),
                        v[5].toInt(), v[6].toInt(), v[7].toInt(), v[8].toInt(), v[9].toDouble(),
                        v[10].toDouble(), v[11].toBool(), v[12].toBool(), v[13].toBool(), v[14].toBool(),
                        v[15].toBool(), v[16].toBool(), v[17].toBool(), v[18].toInt());
}

// A reading with a value of its own in every member but the flags.
QVariantList reading()
{
    return {QStringLiteral("12.34"),
            QStringLiteral("g"),
            QStringLiteral("gram"),
            QStringLiteral("E1"),
            1,
            2,
            3,
            4,
            5,
            6.5,
            7.5,
            false,
            false,
            false,
            false,
            false,
            false,
            false,
            8};
}

// The same with another value in one member.
QVariantList readingWithOther(int member)
{
    QVariantList values = reading();
    QVariant& value = values[member];
    switch (value.type()) {
    case QVariant::String:
        value = value.toString() + QLatin1Char('x');
        break;
    case QVariant::Int:
        value = value.toInt() + 100;
        break;
    case QVariant::Double:
        value = value.toDouble() + 100.0;
        break;
    default:
        value = !value.toBool();
    }
    return values;
}

void addMemberRows()
{
    QTest::addColumn<int>("member");
    for (int i = 0; i < MemberCount; ++i)
        QTest::newRow(Names[i]) << i;
}

} // namespace

class TestMesswertData : public QObject
{
    Q_OBJECT

private slots:
    void defaultIsTheEmptyRecord();
    void emptyRecordIsTheSameFromEitherConstructor();
    void constructorStoresEachArgument_data() { addMemberRows(); }
    void constructorStoresEachArgument();
    void constructorDerivesNothing();
    void recordsWithEqualMembersAreEqual();
    void recordIsEqualToItself();
    void oneDifferingMemberMakesUnequal_data() { addMemberRows(); }
    void oneDifferingMemberMakesUnequal();
    void twoDifferencesDoNotCancelOut_data() { addMemberRows(); }
    void twoDifferencesDoNotCancelOut();
    void textsAreComparedExactly_data();
    void textsAreComparedExactly();
    void numbersAreComparedWithTolerance_data();
    void numbersAreComparedWithTolerance();
    void copyHasEveryMember_data() { addMemberRows(); }
    void copyHasEveryMember();
    void assignmentCopiesEveryMember_data() { addMemberRows(); }
    void assignmentCopiesEveryMember();
    void copyIsIndependent();
    void assignmentToItselfKeepsTheRecord();
    void derivedRecordIsDestroyedThroughTheBase();
};

void TestMesswertData::defaultIsTheEmptyRecord()
{
    const QVariantList empty{QString(), QString(), QString(), QString(), -1,    0,     0,     0,     0, 0.0,
                             0.0,       true,      false,     false,     false, false, false, false, -1};
    QCOMPARE(membersOf(MesswertData()), empty);
}

void TestMesswertData::emptyRecordIsTheSameFromEitherConstructor()
{
    const QString none;
    const MesswertData empty(none, none, none, none, -1, 0, 0, 0, 0, 0.0, 0.0, true, false, false, false,
                             false, false, false, -1);
    QVERIFY(MesswertData().isEqual(&empty));
}

void TestMesswertData::constructorStoresEachArgument()
{
    QFETCH(int, member);
    const QVariantList values = readingWithOther(member);
    QCOMPARE(membersOf(made(values)), values);
}

void TestMesswertData::constructorDerivesNothing()
{
    // A reading that contradicts itself in every way.
    const QVariantList values{QString(), QStringLiteral("kg"),
                              QString(), QStringLiteral("Overload"),
                              -1,        -5,
                              99,        -3,
                              1000,      1e300,
                              -1.0,      true,
                              true,      true,
                              true,      true,
                              true,      true,
                              -7};
    QCOMPARE(membersOf(made(values)), values);
}

void TestMesswertData::recordsWithEqualMembersAreEqual()
{
    const MesswertData other = made(reading());
    QVERIFY(made(reading()).isEqual(&other));
}

void TestMesswertData::recordIsEqualToItself()
{
    MesswertData data = made(reading());
    QVERIFY(data.isEqual(&data));
}

void TestMesswertData::oneDifferingMemberMakesUnequal()
{
    QFETCH(int, member);
    MesswertData data = made(reading());
    MesswertData other = made(readingWithOther(member));
    QVERIFY(!data.isEqual(&other));
    QVERIFY(!other.isEqual(&data));
}

void TestMesswertData::twoDifferencesDoNotCancelOut()
{
    QFETCH(int, member);
    for (int another = 0; another < MemberCount; ++another) {
        if (another == member)
            continue;
        QVariantList values = readingWithOther(member);
        values[another] = readingWithOther(another).at(another);
        const MesswertData other = made(values);
        QVERIFY2(!made(reading()).isEqual(&other), Names[another]);
    }
}

void TestMesswertData::textsAreComparedExactly_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("equal");

    QTest::newRow("same") << QStringLiteral("12.34") << QStringLiteral("12.34") << true;
    QTest::newRow("null and empty") << QString() << QStringLiteral("") << true;
    QTest::newRow("case") << QStringLiteral("G") << QStringLiteral("g") << false;
    QTest::newRow("blank at the end") << QStringLiteral("g") << QStringLiteral("g ") << false;
    QTest::newRow("same number") << QStringLiteral("1.0") << QStringLiteral("1.00") << false;
    QTest::newRow("composed and decomposed")
        << QString(QChar(0x00E4)) << QStringLiteral("a") + QChar(0x0308) << false;
    QTest::newRow("behind a zero character") << QStringLiteral("a") + QChar(0) + QLatin1Char('b')
                                             << QStringLiteral("a") + QChar(0) + QLatin1Char('c') << false;
}

void TestMesswertData::textsAreComparedExactly()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    for (QString MesswertData::*text : {&MesswertData::messwert, &MesswertData::unit,
                                        &MesswertData::unitPrintName, &MesswertData::errorText}) {
        MesswertData data;
        MesswertData other;
        data.*text = first;
        other.*text = second;
        QTEST(data.isEqual(&other), "equal");
    }
}

void TestMesswertData::numbersAreComparedWithTolerance_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<bool>("equal");

    const double infinite = std::numeric_limits<double>::infinity();
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("same") << 1.5 << 1.5 << true;
    QTest::newRow("within a millionth") << 1000000.0 << 1000000.5 << true;
    QTest::newRow("below, within a millionth") << 1000000.0 << 999999.5 << true;
    QTest::newRow("a millionth") << 1000000.0 << 1000001.0 << true;
    QTest::newRow("beyond a millionth") << 1000000.0 << 1000001.5 << false;
    QTest::newRow("negative, within a millionth") << -1000000.0 << -1000000.5 << true;
    QTest::newRow("other sign") << 1.0 << -1.0 << false;
    // The tolerance belongs to the first number.
    QTest::newRow("larger second") << 1000000.0 << 1000001.0000005 << false;
    QTest::newRow("larger first") << 1000001.0000005 << 1000000.0 << true;
    QTest::newRow("zero and almost zero") << 0.0 << 1e-12 << false;
    QTest::newRow("almost zero and zero") << 1e-12 << 0.0 << false;
    QTest::newRow("zeros of both signs") << 0.0 << -0.0 << true;
    QTest::newRow("not a number") << notANumber << notANumber << false;
    QTest::newRow("infinite") << infinite << infinite << false;
}

void TestMesswertData::numbersAreComparedWithTolerance()
{
    QFETCH(double, first);
    QFETCH(double, second);
    for (double MesswertData::*number : {&MesswertData::value, &MesswertData::tareValue}) {
        MesswertData data;
        MesswertData other;
        data.*number = first;
        other.*number = second;
        QTEST(data.isEqual(&other), "equal");
    }
}

void TestMesswertData::copyHasEveryMember()
{
    QFETCH(int, member);
    const MesswertData data = made(readingWithOther(member));
    const MesswertData copy(data);
    QCOMPARE(membersOf(copy), membersOf(data));
    QCOMPARE(membersOf(data), readingWithOther(member));
}

void TestMesswertData::assignmentCopiesEveryMember()
{
    QFETCH(int, member);
    const MesswertData data = made(readingWithOther(member));
    MesswertData copy;
    copy = data;
    QCOMPARE(membersOf(copy), membersOf(data));
    QCOMPARE(membersOf(data), readingWithOther(member));
}

void TestMesswertData::copyIsIndependent()
{
    const MesswertData data = made(reading());
    MesswertData copy = data;
    copy.messwert.append(QLatin1Char('0'));
    copy.value = 1.0;
    QCOMPARE(membersOf(data), reading());
}

void TestMesswertData::assignmentToItselfKeepsTheRecord()
{
    MesswertData data = made(reading());
    const MesswertData& same = data;
    data = same;
    QCOMPARE(membersOf(data), reading());
}

void TestMesswertData::derivedRecordIsDestroyedThroughTheBase()
{
    struct Derived : MesswertData
    {
        explicit Derived(bool* destroyed)
            : destroyed(destroyed)
        {
        }
        ~Derived() override { *destroyed = true; }
        bool* destroyed;
    };
    bool destroyed = false;
    std::unique_ptr<MesswertData> data = std::make_unique<Derived>(&destroyed);
    data.reset();
    QVERIFY(destroyed);
}

QTEST_APPLESS_MAIN(TestMesswertData)
#include "tst_messwertdata.moc"
