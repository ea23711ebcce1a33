// SPDX-License-Identifier: BSD-3-Clause
#include "measuring/Readability.h"

#include <QLocale>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace Brimvale::Terminal;

namespace
{
const double Inf = std::numeric_limits<double>::infinity();
const double NaN = std::numeric_limits<double>::quiet_NaN();
} // namespace

class tst_Readability : public QObject
{
    Q_OBJECT

private slots:
    void defaultIsATenthOfAGram();
    void parse_data();
    void parse();
    void parseRefuses_data();
    void parseRefuses();
    void parseIgnoresTheLocale();
    void fromDecimals();
    void notCoarserThan_data();
    void notCoarserThan();
    void round_data();
    void round();
    void roundIsNeverMinusZero();
    void roundToAMultiple();
    void everyIncrementIsAFixedPoint();
    void format_data();
    void format();
};

void tst_Readability::defaultIsATenthOfAGram()
{
    const Readability readability;
    QCOMPARE(readability.grams(), 0.1);
    QCOMPARE(readability.decimals(), 1);
    QCOMPARE(readability.incrementDigits(), 1);
}

void tst_Readability::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("grams");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("incrementDigits");
    QTest::newRow("0.1") << QStringLiteral("0.1") << 0.1 << 1 << 1;
    QTest::newRow("0.2") << QStringLiteral("0.2") << 0.2 << 1 << 2;
    QTest::newRow("0.05") << QStringLiteral("0.05") << 0.05 << 2 << 5;
    QTest::newRow("0.10, trailing zero") << QStringLiteral("0.10") << 0.1 << 1 << 1;
    QTest::newRow("1") << QStringLiteral("1") << 1.0 << 0 << 1;
    QTest::newRow("2") << QStringLiteral("2") << 2.0 << 0 << 2;
    QTest::newRow("10") << QStringLiteral("10") << 10.0 << 0 << 10;
    QTest::newRow("20") << QStringLiteral("20") << 20.0 << 0 << 20;
    QTest::newRow("500") << QStringLiteral("500") << 500.0 << 0 << 500;
    QTest::newRow("finest") << QStringLiteral("0.0000001") << 1e-7 << 7 << 1;
    QTest::newRow("coarsest") << QStringLiteral("50000") << 50000.0 << 0 << 50000;
    QTest::newRow("blanks around") << QStringLiteral(" 0.5 ") << 0.5 << 1 << 5;
}

void tst_Readability::parse()
{
    QFETCH(QString, text);
    QString error;
    const std::optional<Readability> readability = Readability::parse(text, &error);
    QVERIFY2(readability, qPrintable(error));
    QTEST(readability->grams(), "grams");
    QTEST(readability->decimals(), "decimals");
    QTEST(readability->incrementDigits(), "incrementDigits");
    QVERIFY(error.isEmpty());
}

void tst_Readability::parseRefuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("0.3") << QStringLiteral("0.3");
    QTest::newRow("0.25") << QStringLiteral("0.25");
    QTest::newRow("0.15") << QStringLiteral("0.15");
    QTest::newRow("15") << QStringLiteral("15");
    QTest::newRow("zero") << QStringLiteral("0");
    QTest::newRow("negative") << QStringLiteral("-0.1");
    QTest::newRow("too fine") << QStringLiteral("0.00000005");
    QTest::newRow("too coarse") << QStringLiteral("100000");
    QTest::newRow("empty") << QString();
    QTest::newRow("word") << QStringLiteral("fine");
    QTest::newRow("decimal comma") << QStringLiteral("0,1");
    QTest::newRow("exponent") << QStringLiteral("1e-1");
    QTest::newRow("unit") << QStringLiteral("0.1g");
    QTest::newRow("nan") << QStringLiteral("nan");
    QTest::newRow("inf") << QStringLiteral("inf");
}

void tst_Readability::parseRefuses()
{
    QFETCH(QString, text);
    QString error;
    QVERIFY(!Readability::parse(text, &error));
    QCOMPARE(error,
             QStringLiteral("\"%1\" is not a readability: give 1, 2 or 5 times a power of ten in grams, from "
                            "0.0000001 to 50000, such as 0.1, 0.02 or 5.")
                 .arg(text));
    QVERIFY(!Readability::parse(text));
}

void tst_Readability::parseIgnoresTheLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const bool point = Readability::parse(QStringLiteral("0.1")).has_value();
    const bool comma = Readability::parse(QStringLiteral("0,1")).has_value();
    const QString text = Readability().format(-123456);
    QLocale::setDefault(before);
    QVERIFY(point);
    QVERIFY(!comma);
    QCOMPARE(text, QStringLiteral("-12345.6"));
}

void tst_Readability::fromDecimals()
{
    QVERIFY(!Readability::fromDecimals(-1));
    QCOMPARE(Readability::fromDecimals(0)->grams(), 1.0);
    QCOMPARE(Readability::fromDecimals(3)->grams(), 0.001);
    QCOMPARE(Readability::fromDecimals(7)->decimals(), 7);
    QVERIFY(!Readability::fromDecimals(8));
}

void tst_Readability::notCoarserThan_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<double>("expected"); // 0: none
    QTest::newRow("0.1") << 0.1 << 0.1;
    QTest::newRow("between 0.2 and 0.5") << 0.453 << 0.2;
    QTest::newRow("just below 0.5") << 0.4999 << 0.2;
    QTest::newRow("28.3") << 28.3 << 20.0;
    QTest::newRow("above the coarsest") << 1e9 << 50000.0;
    QTest::newRow("below the finest") << 0.9e-7 << 0.0;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("negative") << -1.0 << 0.0;
    QTest::newRow("not a number") << NaN << 0.0;
    QTest::newRow("infinite") << Inf << 0.0;
}

void tst_Readability::notCoarserThan()
{
    QFETCH(double, grams);
    const std::optional<Readability> readability = Readability::notCoarserThan(grams);
    QTEST(readability ? readability->grams() : 0.0, "expected");
}

void tst_Readability::round_data()
{
    QTest::addColumn<QString>("readability");
    QTest::addColumn<double>("grams");
    QTest::addColumn<double>("digits");
    QTest::newRow("exact") << QStringLiteral("0.1") << 36.4 << 364.0;
    QTest::newRow("down") << QStringLiteral("0.1") << 36.44 << 364.0;
    QTest::newRow("half up") << QStringLiteral("0.1") << 36.45 << 365.0;
    QTest::newRow("half away from zero below zero") << QStringLiteral("0.1") << -36.45 << -365.0;
    QTest::newRow("half without an exact double") << QStringLiteral("0.01") << 1.005 << 101.0;
    QTest::newRow("negative half without an exact double") << QStringLiteral("0.01") << -1.005 << -101.0;
    QTest::newRow("almost a half") << QStringLiteral("0.01") << 1.00499 << 100.0;
    QTest::newRow("step of 2 down") << QStringLiteral("0.2") << 0.29 << 2.0;
    QTest::newRow("step of 2 half") << QStringLiteral("0.2") << 0.3 << 4.0;
    QTest::newRow("step of 5 down") << QStringLiteral("0.05") << 0.12 << 10.0;
    QTest::newRow("step of 5 half") << QStringLiteral("0.05") << 0.125 << 15.0;
    QTest::newRow("step of 20 g") << QStringLiteral("20") << 109.9 << 100.0;
    QTest::newRow("step of 20 g half") << QStringLiteral("20") << 110.0 << 120.0;
    QTest::newRow("large") << QStringLiteral("0.001") << 999999.9994 << 999999999.0;
    QTest::newRow("infinite") << QStringLiteral("0.1") << Inf << Inf;
    QTest::newRow("minus infinite") << QStringLiteral("0.1") << -Inf << -Inf;
}

void tst_Readability::round()
{
    QFETCH(QString, readability);
    QFETCH(double, grams);
    QFETCH(double, digits);
    QVERIFY(Readability::parse(readability)->round(grams) == digits);
    QVERIFY(std::isnan(Readability::parse(readability)->round(NaN)));
}

void tst_Readability::roundIsNeverMinusZero()
{
    QVERIFY(!std::signbit(Readability().round(-0.0)));
    QVERIFY(!std::signbit(Readability().round(-0.04)));
    QCOMPARE(Readability().round(-0.05), -1.0);
}

void tst_Readability::roundToAMultiple()
{
    const Readability readability = *Readability::parse(QStringLiteral("0.05"));
    QCOMPARE(readability.round(1.24, 10), 100.0);
    QCOMPARE(readability.round(1.25, 10), 150.0);
}

void tst_Readability::everyIncrementIsAFixedPoint()
{
    for (const char* text : {"0.1", "0.02", "0.005", "0.0001", "5", "20"}) {
        const Readability readability = *Readability::parse(QLatin1String(text));
        for (int i = -20000; i <= 20000; i += 7) {
            const double digits = static_cast<double>(i) * readability.incrementDigits();
            const double grams = readability.toGrams(digits);
            QCOMPARE(readability.round(grams), digits);
            // What is written is read back as the same double.
            QCOMPARE(readability.format(digits).toDouble(), grams);
        }
    }
}

void tst_Readability::format_data()
{
    QTest::addColumn<QString>("readability");
    QTest::addColumn<double>("digits");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << QStringLiteral("0.1") << 0.0 << QStringLiteral("0.0");
    QTest::newRow("minus zero") << QStringLiteral("0.1") << -0.0 << QStringLiteral("0.0");
    QTest::newRow("rounds to zero") << QStringLiteral("0.1") << -0.4 << QStringLiteral("0.0");
    QTest::newRow("less than one") << QStringLiteral("0.001") << 5.0 << QStringLiteral("0.005");
    QTest::newRow("negative less than one") << QStringLiteral("0.001") << -5.0 << QStringLiteral("-0.005");
    QTest::newRow("36.4") << QStringLiteral("0.1") << 364.0 << QStringLiteral("36.4");
    QTest::newRow("negative") << QStringLiteral("0.01") << -12345.0 << QStringLiteral("-123.45");
    QTest::newRow("no decimals") << QStringLiteral("2") << 1234.0 << QStringLiteral("1234");
    QTest::newRow("no grouping") << QStringLiteral("0.1") << 123456789.0 << QStringLiteral("12345678.9");
    QTest::newRow("not a number") << QStringLiteral("0.1") << NaN << QString();
    QTest::newRow("infinite") << QStringLiteral("0.1") << -Inf << QString();
    QTest::newRow("saturates") << QStringLiteral("1") << 1e300 << QStringLiteral("1000000000000000");
}

void tst_Readability::format()
{
    QFETCH(QString, readability);
    QFETCH(double, digits);
    QTEST(Readability::parse(readability)->format(digits), "text");
}

QTEST_GUILESS_MAIN(tst_Readability)
#include "tst_readability.moc"
