// SPDX-License-Identifier: BSD-3-Clause
#include "ProjectException.h"
#include "UnitDef.h"

#include <QBuffer>
#include <QTextStream>
#include <QtTest>

#include <cmath>

using namespace Brimvale;

namespace
{

const QChar Separator(0x00A0);

UnitDef gram()
{
    return UnitDef(QStringLiteral("g"), QStringLiteral("g"), 1.0, 2, 1, false, UnitDef::UnitEnableFlag(3));
}

UnitDef ounce()
{
    return UnitDef(QStringLiteral("oz"), QStringLiteral("ounce"), 0.035274, 3, 5, true, UnitDef::Ounce);
}

QString record(const QStringList& items)
{
    QString text;
    for (const QString& item : items) {
        text += item + Separator;
    }
    return text;
}

QString written(const UnitDef& unit)
{
    QString text;
    QTextStream stream(&text);
    stream << unit;
    return text;
}

/// All fields but the flags, which have no getter, and the flags as the only mask of one to four bits that fits.
QString described(const UnitDef& unit)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6")
        .arg(unit.name(), unit.printName())
        .arg(unit.factor())
        .arg(unit.format())
        .arg(unit.rounding())
        .arg(unit.isInverse());
}

} // namespace

class TestUnitDef : public QObject
{
    Q_OBJECT

private slots:
    void storesWhatItIsGiven();
    void setters();
    void copiesAllFields();
    void calculatedFactor_data();
    void calculatedFactor();
    void enableFlag_data();
    void enableFlag();
    void equality_data();
    void equality();
    void factorsAreEqualWithinTheTolerance();
    void writesTheRecord();
    void leavesTheStreamsSettingsAlone();
    void readsBack_data();
    void readsBack();
    void longFactorLosesDigits();
    void nameWithWhiteSpaceDoesNotSurvive_data();
    void nameWithWhiteSpaceDoesNotSurvive();
    void refuses_data();
    void refuses();
    void acceptsVersions_data();
    void acceptsVersions();
    void shortRecordGivesZeros_data();
    void shortRecordGivesZeros();
    void enableBitsAreCutTo16();
    void readsSeveralRecordsFromADevice();
};

void TestUnitDef::storesWhatItIsGiven()
{
    const UnitDef unit = ounce();
    QCOMPARE(unit.name(), QStringLiteral("oz"));
    QCOMPARE(unit.printName(), QStringLiteral("ounce"));
    QCOMPARE(unit.factor(), 0.035274);
    QCOMPARE(unit.format(), 3);
    QCOMPARE(unit.rounding(), 5);
    QVERIFY(unit.isInverse());
    QVERIFY(UnitDef(unit).CheckEnableFlag(UnitDef::Ounce));
}

void TestUnitDef::setters()
{
    UnitDef unit = gram();
    unit.setName(QStringLiteral("oz"));
    unit.setPrintName(QStringLiteral("ounce"));
    unit.setFactor(0.035274);
    unit.setFormat(3);
    unit.setRounding(5);
    unit.setIsInverse(true);
    unit.setEnableFlag(UnitDef::Ounce);
    QCOMPARE(described(unit), described(ounce()));
    QVERIFY(unit == ounce());
}

void TestUnitDef::copiesAllFields()
{
    const UnitDef copy(ounce());
    QVERIFY(copy == ounce());
    UnitDef assigned = gram();
    assigned = ounce();
    QVERIFY(assigned == ounce());
}

void TestUnitDef::calculatedFactor_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<bool>("inverse");
    QTest::addColumn<double>("expected");
    QTest::newRow("plain") << 4.0 << false << 4.0;
    QTest::newRow("inverted") << 4.0 << true << 0.25;
    QTest::newRow("inverted zero") << 0.0 << true << qInf();
}

void TestUnitDef::calculatedFactor()
{
    QFETCH(double, factor);
    QFETCH(bool, inverse);
    QFETCH(double, expected);
    UnitDef unit = gram();
    unit.setFactor(factor);
    unit.setIsInverse(inverse);
    QCOMPARE(unit.getCalculatedFactor(), expected);
}

void TestUnitDef::enableFlag_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("mask");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("no flags, empty mask") << 0 << 0 << true;
    QTest::newRow("no flags, some mask") << 0 << 7 << false;
    QTest::newRow("flags, empty mask") << 1 << 0 << false;
    QTest::newRow("all flags in the mask") << 3 << 7 << true;
    QTest::newRow("flags are the mask") << 3 << 3 << true;
    QTest::newRow("one flag in, one outside") << 3 << 5 << false;
    QTest::newRow("flags outside") << 8 << 7 << false;
    QTest::newRow("highest flag") << 0x8000 << 0xFFFF << true;
    QTest::newRow("mask of all bits") << 0xFFFF << -1 << true;
}

void TestUnitDef::enableFlag()
{
    QFETCH(int, flags);
    QFETCH(int, mask);
    UnitDef unit = gram();
    unit.setEnableFlag(static_cast<UnitDef::UnitEnableFlag>(flags));
    QTEST(unit.CheckEnableFlag(mask), "enabled");
}

void TestUnitDef::equality_data()
{
    QTest::addColumn<int>("field");
    const char* const fields[] = {"name",     "print name", "factor",      "format",
                                  "rounding", "inverse",    "enable flag", "none"};
    int field = 0;
    for (const char* const name : fields) {
        QTest::newRow(name) << field++;
    }
}

void TestUnitDef::equality()
{
    QFETCH(int, field);
    UnitDef other = gram();
    switch (field) {
    case 0:
        other.setName(QStringLiteral("G"));
        break;
    case 1:
        other.setPrintName(QStringLiteral("gram"));
        break;
    case 2:
        other.setFactor(1.1);
        break;
    case 3:
        other.setFormat(3);
        break;
    case 4:
        other.setRounding(2);
        break;
    case 5:
        other.setIsInverse(true);
        break;
    case 6:
        other.setEnableFlag(UnitDef::Gram);
        break;
    default:
        break;
    }
    const bool equal = field == 7;
    QCOMPARE(gram() == other, equal);
    QCOMPARE(gram() != other, !equal);
}

void TestUnitDef::factorsAreEqualWithinTheTolerance()
{
    UnitDef near = gram();
    near.setFactor(1.0 + 0.9e-6);
    QVERIFY(gram() == near);
    QVERIFY(!(gram() != near));

    // The tolerance is relative to the left side only.
    UnitDef zero = gram();
    zero.setFactor(0.0);
    UnitDef tiny = gram();
    tiny.setFactor(1e-12);
    QVERIFY(zero != tiny);
}

void TestUnitDef::writesTheRecord()
{
    QCOMPARE(written(gram()), record({QStringLiteral("4269603477"), QStringLiteral("1"), QStringLiteral("g"),
                                      QStringLiteral("g"), QStringLiteral("1"), QStringLiteral("2"),
                                      QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("3")}));
    UnitDef pound = ounce();
    pound.setFactor(453.59237);
    pound.setFormat(-1);
    pound.setEnableFlag(UnitDef::Baht);
    QCOMPARE(written(pound), record({QStringLiteral("4269603477"), QStringLiteral("1"), QStringLiteral("oz"),
                                     QStringLiteral("ounce"), QStringLiteral("453.592"), QStringLiteral("-1"),
                                     QStringLiteral("5"), QStringLiteral("1"), QStringLiteral("32768")}));
}

void TestUnitDef::leavesTheStreamsSettingsAlone()
{
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream.setRealNumberPrecision(9);
    stream << ounce();
    QVERIFY(text.contains(QStringLiteral("0.035274000") + Separator));
    QCOMPARE(stream.realNumberNotation(), QTextStream::FixedNotation);
    QCOMPARE(stream.realNumberPrecision(), 9);
}

void TestUnitDef::readsBack_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("one") << 1.0;
    QTest::newRow("six digits") << 453.592;
    QTest::newRow("small") << 2.20462e-06;
    QTest::newRow("large") << 1.23456e+20;
    QTest::newRow("negative") << -7.5;
}

void TestUnitDef::readsBack()
{
    QFETCH(double, factor);
    UnitDef unit = ounce();
    unit.setFactor(factor);
    QString text = written(unit);
    QTextStream stream(&text);
    UnitDef read = gram();
    stream >> read;
    QVERIFY(read == unit);
    QCOMPARE(read.factor(), factor);
}

void TestUnitDef::longFactorLosesDigits()
{
    UnitDef unit = gram();
    unit.setFactor(453.59237);
    QString text = written(unit);
    QTextStream stream(&text);
    UnitDef read = ounce();
    stream >> read;
    QCOMPARE(read.factor(), 453.592);
    unit.setFactor(453.59999);
    QVERIFY(read != unit);
}

void TestUnitDef::nameWithWhiteSpaceDoesNotSurvive_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank") << QStringLiteral("fine gram");
    QTest::newRow("no-break space") << QStringLiteral("fine") + Separator + QStringLiteral("gram");
}

void TestUnitDef::nameWithWhiteSpaceDoesNotSurvive()
{
    QFETCH(QString, name);
    UnitDef unit = gram();
    unit.setName(name);
    QString text = written(unit);
    QTextStream stream(&text);
    UnitDef read = ounce();
    stream >> read;
    QCOMPARE(read.name(), QStringLiteral("fine"));
    QCOMPARE(read.printName(), QStringLiteral("gram"));
}

void TestUnitDef::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    const QString header =
        QStringLiteral("UnitDef::extractFromDataStream() failed because of a header mismatch.");
    const QString version =
        QStringLiteral("UnitDef::extractFromDataStream() failed because of a version compatibility.");
    QTest::newRow("empty") << QString() << header;
    QTest::newRow("no number") << record({QStringLiteral("unit"), QStringLiteral("1")}) << header;
    QTest::newRow("another number") << record({QStringLiteral("4269603476"), QStringLiteral("1")}) << header;
    QTest::newRow("version 2") << record(
        {QStringLiteral("4269603477"), QStringLiteral("2"), QStringLiteral("x")})
                               << version;
    QTest::newRow("version 65535") << record({QStringLiteral("4269603477"), QStringLiteral("65535")})
                                   << version;
}

void TestUnitDef::refuses()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    QTextStream stream(&text);
    UnitDef unit = ounce();
    QString caught;
    try {
        unit.extractFromDataStream(stream);
    } catch (const ProjectException& exception) {
        caught = exception.Message();
    }
    QCOMPARE(caught, message);
    QVERIFY(unit == ounce()); // untouched
}

void TestUnitDef::acceptsVersions_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("1") << QStringLiteral("1");
    QTest::newRow("unreadable counts as 0") << QStringLiteral("?");
}

void TestUnitDef::acceptsVersions()
{
    QFETCH(QString, version);
    QString text = record({QStringLiteral("4269603477"), version, QStringLiteral("x"), QStringLiteral("y"),
                           QStringLiteral("2.5"), QStringLiteral("1"), QStringLiteral("2"),
                           QStringLiteral("1"), QStringLiteral("4")});
    QTextStream stream(&text);
    UnitDef unit = gram();
    stream >> unit;
    if (version == QLatin1String("?")) {
        // What cannot be read as a number stays in the stream and becomes the name.
        QCOMPARE(unit.name(), version);
        return;
    }
    QCOMPARE(described(unit), QStringLiteral("x y 2.5 1 2 1"));
}

void TestUnitDef::shortRecordGivesZeros_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("expected");
    const QStringList start = {QStringLiteral("4269603477"), QStringLiteral("1")};
    QTest::newRow("ends after the version") << start << QStringLiteral("  0 0 0 0");
    QTest::newRow("ends after the name")
        << start + QStringList{QStringLiteral("x")} << QStringLiteral("x  0 0 0 0");
    QTest::newRow("ends after the factor")
        << start + QStringList{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("2.5")}
        << QStringLiteral("x y 2.5 0 0 0");
    QTest::newRow("ends after the format") << start
                                                  + QStringList{QStringLiteral("x"), QStringLiteral("y"),
                                                                QStringLiteral("2.5"), QStringLiteral("7")}
                                           << QStringLiteral("x y 2.5 7 0 0");
}

void TestUnitDef::shortRecordGivesZeros()
{
    QFETCH(QStringList, items);
    QString text = record(items);
    QTextStream stream(&text);
    UnitDef unit = ounce();
    stream >> unit;
    QTEST(described(unit), "expected");
    QVERIFY(unit.CheckEnableFlag(0)); // no enable bits
}

void TestUnitDef::enableBitsAreCutTo16()
{
    QString text = record({QStringLiteral("4269603477"), QStringLiteral("1"), QStringLiteral("x"),
                           QStringLiteral("y"), QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1"),
                           QStringLiteral("-3"), QStringLiteral("65540")});
    QTextStream stream(&text);
    UnitDef unit = gram();
    stream >> unit;
    QVERIFY(unit.isInverse()); // any number but 0
    QVERIFY(unit.CheckEnableFlag(4));
}

void TestUnitDef::readsSeveralRecordsFromADevice()
{
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        QTextStream stream(&buffer);
        stream.setCodec("UTF-8");
        // More than the stream reads from its device at once, so that records lie across the seams.
        for (int i = 0; i < 2000; ++i) {
            UnitDef unit = ounce();
            unit.setName(QStringLiteral("unit%1").arg(i));
            unit.setFormat(i);
            stream << unit;
        }
    }
    QVERIFY(bytes.size() > 3 * 16384);
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QTextStream stream(&buffer);
    stream.setCodec("UTF-8");
    UnitDef unit = gram();
    for (int i = 0; i < 2000; ++i) {
        stream >> unit;
        QCOMPARE(unit.name(), QStringLiteral("unit%1").arg(i));
        QCOMPARE(unit.format(), i);
        QCOMPARE(unit.factor(), 0.035274);
    }
}

QTEST_APPLESS_MAIN(TestUnitDef)
#include "tst_unitdef.moc"
