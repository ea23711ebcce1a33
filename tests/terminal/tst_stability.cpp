// SPDX-License-Identifier: BSD-3-Clause
#include "measuring/StabilityDetector.h"

#include <QtTest>

#include <limits>

using namespace Brimvale::Terminal;

Q_DECLARE_METATYPE(Brimvale::Terminal::StabilitySettings)

class tst_Stability : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void parse_data();
    void parse();
    void parseRefuses_data();
    void parseRefuses();
    void settingsOutOfRangeAreReplaced();

    void notStableWithoutReadings();
    void sameAtEveryRate_data();
    void sameAtEveryRate();
    void manyReadingsAtOnceAreNotTime();
    void spread_data();
    void spread();
    void spreadIsMeasuredInIncrements();
    void oldReadingsLeaveTheSpan();
    void theReadingThatWasCurrentCounts();
    void irregularReadings();
    void slowDriftIsNotStableForever();
    void gapBeginsAnew_data();
    void gapBeginsAnew();
    void aSourceSlowerThanTheSpanIsNeverStable();
    void resetForgets();
    void notFiniteResets();
    void timeGoingBackBeginsAnew();
    void incrementChangeJudgesAnew();
    void longRunAgreesWithTheDefinition();
};

void tst_Stability::defaults()
{
    const StabilityDetector detector;
    QCOMPARE(detector.settings().seconds, 1.0);
    QCOMPARE(detector.settings().increments, 1.0);
    QVERIFY(detector.settings().isValid());
}

void tst_Stability::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("increments");
    QTest::newRow("plain") << QStringLiteral("1.0,1") << 1.0 << 1.0;
    QTest::newRow("blanks") << QStringLiteral(" 0.5 , 2 ") << 0.5 << 2.0;
    QTest::newRow("smallest") << QStringLiteral("0.05,0") << 0.05 << 0.0;
    QTest::newRow("largest") << QStringLiteral("60,1000") << 60.0 << 1000.0;
}

void tst_Stability::parse()
{
    QFETCH(QString, text);
    const std::optional<StabilitySettings> settings = StabilitySettings::parse(text);
    QVERIFY(settings);
    QTEST(settings->seconds, "seconds");
    QTEST(settings->increments, "increments");
}

void tst_Stability::parseRefuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("one number") << QStringLiteral("1.0");
    QTest::newRow("three numbers") << QStringLiteral("1,1,1");
    QTest::newRow("word") << QStringLiteral("1,few");
    QTest::newRow("too short") << QStringLiteral("0.04,1");
    QTest::newRow("too long") << QStringLiteral("61,1");
    QTest::newRow("negative") << QStringLiteral("1,-1");
    QTest::newRow("too many increments") << QStringLiteral("1,1001");
    QTest::newRow("nan") << QStringLiteral("nan,1");
}

void tst_Stability::parseRefuses()
{
    QFETCH(QString, text);
    QString error;
    QVERIFY(!StabilitySettings::parse(text, &error));
    QVERIFY2(
        error.startsWith(QStringLiteral("\"%1\" does not say what stable means: give seconds").arg(text)),
        qPrintable(error));
}

void tst_Stability::settingsOutOfRangeAreReplaced()
{
    const StabilityDetector detector({std::numeric_limits<double>::quiet_NaN(), 5.0});
    QCOMPARE(detector.settings().seconds, 1.0);
    QCOMPARE(detector.settings().increments, 1.0);
}

void tst_Stability::notStableWithoutReadings()
{
    StabilityDetector detector;
    QVERIFY(!detector.isStable());
    QVERIFY(!detector.add(0, 1.0));
    QCOMPARE(detector.spread(), 0.0);
}

void tst_Stability::sameAtEveryRate_data()
{
    QTest::addColumn<int>("intervalMs");
    QTest::addColumn<int>("stableAtMs");
    QTest::newRow("1000 Hz") << 1 << 1000;
    QTest::newRow("100 Hz") << 10 << 1000;
    QTest::newRow("10 Hz") << 100 << 1000;
    QTest::newRow("4 Hz") << 250 << 1000;
    QTest::newRow("1 Hz") << 1000 << 1000;
    QTest::newRow("3 Hz: the first reading at or after the span") << 333 << 1332;
}

void tst_Stability::sameAtEveryRate()
{
    QFETCH(int, intervalMs);
    QFETCH(int, stableAtMs);
    StabilityDetector detector;
    int time = 0;
    while (!detector.add(time, 12.3) && time < 5000)
        time += intervalMs;
    QCOMPARE(time, stableAtMs);
}

void tst_Stability::manyReadingsAtOnceAreNotTime()
{
    StabilityDetector detector;
    for (int i = 0; i < 100000; ++i)
        QVERIFY(!detector.add(500, 12.3));
    QVERIFY(!detector.add(1499, 12.3));
    QVERIFY(detector.add(1500, 12.3));
}

void tst_Stability::spread_data()
{
    QTest::addColumn<double>("increments");
    QTest::addColumn<double>("other");
    QTest::addColumn<bool>("stable");
    QTest::newRow("equal, limit 0") << 0.0 << 10.0 << true;
    QTest::newRow("one increment, limit 0") << 0.0 << 10.1 << false;
    QTest::newRow("one increment up") << 1.0 << 10.1 << true;
    QTest::newRow("one increment down") << 1.0 << 9.9 << true;
    QTest::newRow("a little more") << 1.0 << 10.11 << false;
    QTest::newRow("two increments") << 1.0 << 10.2 << false;
    QTest::newRow("two increments, limit 2") << 2.0 << 9.8 << true;
    QTest::newRow("half increments count") << 0.5 << 10.06 << false;
}

void tst_Stability::spread()
{
    QFETCH(double, increments);
    QFETCH(double, other);
    StabilityDetector detector({1.0, increments});
    detector.setIncrement(0.1);
    detector.add(0, 10.0);
    detector.add(300, other);
    detector.add(600, 10.0);
    QTEST(detector.add(1000, 10.0), "stable");
}

void tst_Stability::spreadIsMeasuredInIncrements()
{
    StabilityDetector fine;
    StabilityDetector coarse;
    fine.setIncrement(0.01);
    coarse.setIncrement(1.0);
    for (int time = 0; time <= 1000; time += 100) {
        fine.add(time, time % 200 == 0 ? 50.0 : 50.5);
        coarse.add(time, time % 200 == 0 ? 50.0 : 50.5);
    }
    QVERIFY(!fine.isStable());
    QVERIFY(coarse.isStable());
    QCOMPARE(fine.spread(), 0.5);
}

void tst_Stability::oldReadingsLeaveTheSpan()
{
    StabilityDetector detector;
    detector.setIncrement(0.1);
    int firstStable = -1;
    for (int time = 0; time <= 3000; time += 100) {
        // A load of 100 g from 1.0 s on.
        if (detector.add(time, time < 1000 ? 0.0 : 100.0) && time > 1000 && firstStable < 0)
            firstStable = time;
        if (time == 1000)
            QVERIFY(!detector.isStable());
    }
    QCOMPARE(firstStable, 2000);
}

void tst_Stability::theReadingThatWasCurrentCounts()
{
    // At 1.3 s the span began at 0.3 s, when the reading of 0.0 s was still the current one.
    StabilityDetector detector;
    detector.add(0, 5.0);
    detector.add(800, 0.0);
    detector.add(1300, 0.0);
    QVERIFY(!detector.isStable());
    QCOMPARE(detector.spread(), 5.0);
    detector.add(1800, 0.0);
    QVERIFY(detector.isStable());
}

void tst_Stability::irregularReadings()
{
    StabilityDetector detector;
    const int times[] = {76, 300, 450, 675, 930, 1076, 1320};
    bool stable = false;
    for (const int time : times) {
        stable = detector.add(time, time == 450 ? 7.1 : 7.0);
        QCOMPARE(stable, time >= 1076);
    }
    QVERIFY(stable);
}

void tst_Stability::slowDriftIsNotStableForever()
{
    // 0.5 g/s: five increments in each span.
    StabilityDetector detector;
    for (int time = 0; time <= 20000; time += 200)
        QVERIFY(!detector.add(time, 0.0005 * time));
}

void tst_Stability::gapBeginsAnew_data()
{
    QTest::addColumn<int>("gapMs");
    QTest::addColumn<bool>("stable");
    QTest::newRow("as long as the span") << 1000 << true;
    QTest::newRow("longer than the span") << 1001 << false;
    QTest::newRow("much longer") << 60000 << false;
}

void tst_Stability::gapBeginsAnew()
{
    QFETCH(int, gapMs);
    StabilityDetector detector;
    for (int time = 0; time <= 2000; time += 100)
        detector.add(time, 3.0);
    QVERIFY(detector.isStable());
    QTEST(detector.add(2000 + gapMs, 3.0), "stable");
    // Whatever the gap, a full span of readings after it is stable.
    for (int time = 100; time < 1000; time += 100)
        detector.add(2000 + gapMs + time, 3.0);
    QVERIFY(detector.add(2000 + gapMs + 1000, 3.0));
}

void tst_Stability::aSourceSlowerThanTheSpanIsNeverStable()
{
    StabilityDetector detector;
    for (int time = 0; time <= 60000; time += 1500)
        QVERIFY(!detector.add(time, 3.0));
}

void tst_Stability::resetForgets()
{
    StabilityDetector detector;
    for (int time = 0; time <= 1000; time += 100)
        detector.add(time, 3.0);
    QVERIFY(detector.isStable());
    detector.reset();
    QVERIFY(!detector.isStable());
    QVERIFY(!detector.add(1100, 3.0));
    QVERIFY(!detector.add(2000, 3.0));
    QVERIFY(detector.add(2100, 3.0));
}

void tst_Stability::notFiniteResets()
{
    StabilityDetector detector;
    for (int time = 0; time <= 1000; time += 100)
        detector.add(time, 3.0);
    QVERIFY(!detector.add(1050, std::numeric_limits<double>::quiet_NaN()));
    QVERIFY(!detector.add(1100, 3.0));
    QVERIFY(detector.add(2100, 3.0));
}

void tst_Stability::timeGoingBackBeginsAnew()
{
    StabilityDetector detector;
    for (int time = 5000; time <= 6000; time += 100)
        detector.add(time, 3.0);
    QVERIFY(detector.isStable());
    QVERIFY(!detector.add(100, 3.0));
    QVERIFY(detector.add(1100, 3.0));
}

void tst_Stability::incrementChangeJudgesAnew()
{
    StabilityDetector detector;
    detector.setIncrement(0.1);
    for (int time = 0; time <= 1000; time += 100)
        detector.add(time, time == 500 ? 3.1 : 3.0);
    QVERIFY(detector.isStable());
    detector.setIncrement(0.01);
    QVERIFY(!detector.isStable());
    detector.setIncrement(-1.0); // ignored
    QVERIFY(!detector.isStable());
    detector.setIncrement(1.0);
    QVERIFY(detector.isStable());
}

void tst_Stability::longRunAgreesWithTheDefinition()
{
    // Against the definition computed the slow way, over irregular times and a wandering weight.
    struct Sample
    {
        qint64 timeMs;
        double grams;
    };
    StabilityDetector detector;
    detector.setIncrement(0.1);
    std::vector<Sample> samples;
    quint32 random = 12345;
    const auto next = [&random](quint32 below) {
        random = random * 1664525u + 1013904223u;
        return (random >> 8) % below;
    };
    qint64 time = 0;
    int digits = 0;
    int stableCount = 0;
    for (int i = 0; i < 20000; ++i) {
        time += next(100) == 0 ? 1200 : 1 + next(300);
        const quint32 dice = next(10);
        if (dice == 0)
            digits += static_cast<int>(next(5)) - 2;
        const double grams = digits / 10.0;
        if (!samples.empty() && time - samples.back().timeMs > 1000)
            samples.clear();
        samples.push_back({time, grams});
        std::size_t first = samples.size() - 1;
        while (first > 0 && samples[first].timeMs > time - 1000)
            --first;
        double smallest = grams;
        double largest = grams;
        for (std::size_t k = first; k < samples.size(); ++k) {
            smallest = qMin(smallest, samples[k].grams);
            largest = qMax(largest, samples[k].grams);
        }
        const bool expected = time - samples[first].timeMs >= 1000 && largest - smallest <= 0.1 + 1e-7;
        QCOMPARE(detector.add(time, grams), expected);
        stableCount += expected ? 1 : 0;
    }
    QVERIFY(stableCount > 1000);
    QVERIFY(stableCount < 19000);
}

QTEST_GUILESS_MAIN(tst_Stability)
#include "tst_stability.moc"
