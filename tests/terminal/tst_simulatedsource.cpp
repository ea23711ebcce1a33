// SPDX-License-Identifier: BSD-3-Clause
#include "SourceRecorder.h"
#include "clock/VirtualClock.h"
#include "clock/WallClock.h"
#include "source/SimulatedSource.h"

#include <QCryptographicHash>
#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Brimvale::Terminal;

namespace
{
const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();
} // namespace

class tst_SimulatedSource : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void defaults();
    void capacityFollowsTheReadability();
    void silentUntilStarted();
    void rate_data();
    void rate();
    void readingTimes();
    void startTwice();
    void stopEnds();
    void startAgain();
    void stopFromASlot();
    void deleteFromASlot();
    void destroyedWhileRunning();

    void settlesOnTheLoad_data();
    void settlesOnTheLoad();
    void settlesInTime();
    void overshoots();
    void weightsAddUp();
    void loadChangedIsSentOnChanges();
    void loadIsBounded();
    void notFiniteIsIgnored();
    void roundsToTheReadability_data();
    void roundsToTheReadability();

    void overload_data();
    void overload();
    void underload_data();
    void underload();
    void noUnderloadWhileTheCellSwings_data();
    void noUnderloadWhileTheCellSwings();
    void overloadEnds();
    void noise();
    void noiseOff();
    void noiseIsSteered();
    void seedsDiffer();
    void sameEverywhere();
    void drift();
    void driftIsTakenBack();
    void driftIsIndependentOfTheRate();
    void cableOut();
    void cableOutWhileStopped();
    void cableOutAndInTwice();
    void lateWallClockDoesNotPileUp();
    void hundredReadingsASecondWithoutLoss();

private:
    void make(const SimulationSettings& settings);
    static SimulationSettings quiet()
    {
        SimulationSettings settings;
        settings.noise = 0.0;
        return settings;
    }

    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<SimulatedSource> m_source;
    std::unique_ptr<SourceRecorder> m_recorder;
};

void tst_SimulatedSource::init()
{
    m_recorder.reset();
    m_source.reset();
    m_clock = std::make_unique<VirtualClock>();
    make(quiet());
}

void tst_SimulatedSource::make(const SimulationSettings& settings)
{
    m_recorder.reset();
    m_source = std::make_unique<SimulatedSource>(*m_clock, settings);
    m_recorder = std::make_unique<SourceRecorder>(*m_source);
}

void tst_SimulatedSource::defaults()
{
    make(SimulationSettings());
    QCOMPARE(m_source->readability(), 0.1);
    QCOMPARE(m_source->capacity(), 6000.0);
    QCOMPARE(m_source->noise(), 0.2);
    QCOMPARE(m_source->drift(), 0.0);
    QCOMPARE(m_source->load(), 0.0);
    QVERIFY(m_source->isConnected());
    QVERIFY(!m_source->isLive());
    QCOMPARE(m_source->description(), QStringLiteral("Simulated scale, 6000 g, readability 0.1 g"));
}

void tst_SimulatedSource::capacityFollowsTheReadability()
{
    SimulationSettings settings;
    settings.readability = *Readability::parse(QStringLiteral("0.002"));
    make(settings);
    QCOMPARE(m_source->capacity(), 120.0);
    settings.capacity = 50.0;
    make(settings);
    QCOMPARE(m_source->capacity(), 50.0);
    QCOMPARE(m_source->readability(), 0.002);
}

void tst_SimulatedSource::silentUntilStarted()
{
    m_source->putOn(100.0);
    m_clock->advance(5000);
    QVERIFY(m_recorder->events.isEmpty());
}

void tst_SimulatedSource::rate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("readingsIn10s");
    QTest::newRow("10") << 10.0 << 101;
    QTest::newRow("100") << 100.0 << 1001;
    QTest::newRow("120, not whole milliseconds") << 120.0 << 1201;
    QTest::newRow("4.6") << 4.6 << 47;
    QTest::newRow("1000") << 1000.0 << 10001;
    QTest::newRow("too fast is 1000") << 1e9 << 10001;
    QTest::newRow("too slow is 0.1") << 0.0 << 2;
    QTest::newRow("negative is 0.1") << -5.0 << 2;
    QTest::newRow("not a number is 10") << NaN << 101;
}

void tst_SimulatedSource::rate()
{
    QFETCH(double, rate);
    SimulationSettings settings = quiet();
    settings.readingsPerSecond = rate;
    make(settings);
    m_source->start();
    m_clock->advance(10000);
    QTEST(m_recorder->readings.size(), "readingsIn10s");
}

void tst_SimulatedSource::readingTimes()
{
    SimulationSettings settings = quiet();
    settings.readingsPerSecond = 3.0;
    make(settings);
    m_clock->advance(77);
    m_source->start();
    m_clock->advance(1000);
    QVector<qint64> times;
    for (const Reading& reading : qAsConst(m_recorder->readings))
        times.append(reading.timeMs - VirtualClock::DefaultStartMs);
    QCOMPARE(times, QVector<qint64>({77, 410, 744, 1077}));
}

void tst_SimulatedSource::startTwice()
{
    m_source->start();
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(m_recorder->readings.size(), 11);
}

void tst_SimulatedSource::stopEnds()
{
    m_source->start();
    m_clock->advance(500);
    const int count = m_recorder->readings.size();
    m_source->stop();
    m_clock->advance(5000);
    QCOMPARE(m_recorder->readings.size(), count);
    QVERIFY(!m_clock->nextDueMs());
}

void tst_SimulatedSource::startAgain()
{
    m_source->start();
    m_clock->advance(450);
    m_source->stop();
    m_clock->advance(1000);
    m_recorder->readings.clear();
    m_source->start();
    m_clock->advance(200);
    QCOMPARE(m_recorder->readings.size(), 3);
    QCOMPARE(m_recorder->readings.first().timeMs, VirtualClock::DefaultStartMs + 1450);
}

void tst_SimulatedSource::stopFromASlot()
{
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [this] { m_source->stop(); });
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(m_recorder->readings.size(), 1);
}

void tst_SimulatedSource::deleteFromASlot()
{
    connect(m_source.get(), &WeightSource::reading, this, [this] { m_source.reset(); });
    m_source->start();
    m_clock->advance(1000);
    QVERIFY(!m_source);
    QCOMPARE(m_recorder->readings.size(), 1);
}

void tst_SimulatedSource::destroyedWhileRunning()
{
    m_source->start();
    m_source.reset();
    m_clock->advance(1000);
    QVERIFY(m_recorder->readings.isEmpty());
}

void tst_SimulatedSource::settlesOnTheLoad_data()
{
    QTest::addColumn<double>("load");
    QTest::newRow("nothing") << 0.0;
    QTest::newRow("one increment") << 0.1;
    QTest::newRow("100 g") << 100.0;
    QTest::newRow("capacity") << 6000.0;
    QTest::newRow("a little below zero") << -1.5;
}

void tst_SimulatedSource::settlesOnTheLoad()
{
    QFETCH(double, load);
    m_source->start();
    m_source->putOn(load);
    m_clock->advance(5000);
    QCOMPARE(m_recorder->readings.last().status, Reading::Status::Valid);
    QCOMPARE(m_recorder->readings.last().grams, load);
    QVERIFY(!m_recorder->readings.last().stableMark);
}

void tst_SimulatedSource::settlesInTime()
{
    m_source->start();
    m_source->putOn(1000.0);
    m_clock->advance(5000);
    qint64 lastAway = 0;
    for (const Reading& reading : qAsConst(m_recorder->readings)) {
        if (reading.grams != 1000.0)
            lastAway = reading.timeMs - VirtualClock::DefaultStartMs;
    }
    QVERIFY2(lastAway >= 1000 && lastAway < 1600, qPrintable(QString::number(lastAway)));
}

void tst_SimulatedSource::overshoots()
{
    SimulationSettings settings = quiet();
    settings.readingsPerSecond = 100.0;
    make(settings);
    m_source->start();
    m_source->putOn(1000.0);
    m_clock->advance(5000);
    double largest = 0.0;
    for (const Reading& reading : qAsConst(m_recorder->readings))
        largest = qMax(largest, reading.grams);
    // exp(-pi z / sqrt(1 - z^2)) = 1.5 % for the damping ratio 0.8.
    QVERIFY2(largest > 1010.0 && largest < 1020.0, qPrintable(QString::number(largest)));
}

void tst_SimulatedSource::weightsAddUp()
{
    m_source->putOn(100.0);
    m_source->putOn(50.0);
    QCOMPARE(m_source->load(), 150.0);
    m_source->takeOff(100.0);
    QCOMPARE(m_source->load(), 50.0);
    m_source->takeOff(60.0);
    QCOMPARE(m_source->load(), -10.0);
    m_source->clear();
    QCOMPARE(m_source->load(), 0.0);
}

void tst_SimulatedSource::loadChangedIsSentOnChanges()
{
    QVector<double> loads;
    connect(m_source.get(), &SimulatedSource::loadChanged, this,
            [&loads](double grams) { loads.append(grams); });
    m_source->clear();
    m_source->putOn(10.0);
    m_source->putOn(0.0);
    m_source->putOn(NaN);
    m_source->clear();
    QCOMPARE(loads, QVector<double>({10.0, 0.0}));
}

void tst_SimulatedSource::loadIsBounded()
{
    m_source->start();
    for (int i = 0; i < 10; ++i)
        m_source->putOn(1e300);
    QCOMPARE(m_source->load(), 1e9);
    m_clock->advance(3000);
    QCOMPARE(m_recorder->readings.last().status, Reading::Status::Overload);
    m_source->clear();
    m_clock->advance(5000);
    QCOMPARE(m_recorder->readings.last().grams, 0.0);
}

void tst_SimulatedSource::notFiniteIsIgnored()
{
    m_source->putOn(5.0);
    for (const double value : {NaN, Inf, -Inf}) {
        m_source->putOn(value);
        m_source->takeOff(value);
        m_source->setNoise(value);
        m_source->setDrift(value);
    }
    QCOMPARE(m_source->load(), 5.0);
    QCOMPARE(m_source->noise(), 0.0);
    QCOMPARE(m_source->drift(), 0.0);
    m_source->setNoise(-1.0);
    QCOMPARE(m_source->noise(), 0.0);
}

void tst_SimulatedSource::roundsToTheReadability_data()
{
    QTest::addColumn<QString>("readability");
    QTest::addColumn<double>("load");
    QTest::addColumn<double>("reading");
    QTest::newRow("0.1 down") << QStringLiteral("0.1") << 36.44 << 36.4;
    QTest::newRow("0.1 half") << QStringLiteral("0.1") << 36.45 << 36.5;
    QTest::newRow("0.05") << QStringLiteral("0.05") << 12.37 << 12.35;
    QTest::newRow("20 g") << QStringLiteral("20") << 109.0 << 100.0;
    QTest::newRow("0.001") << QStringLiteral("0.001") << 1.2344 << 1.234;
}

void tst_SimulatedSource::roundsToTheReadability()
{
    QFETCH(QString, readability);
    QFETCH(double, load);
    SimulationSettings settings = quiet();
    settings.readability = *Readability::parse(readability);
    make(settings);
    m_source->start();
    m_source->putOn(load);
    m_clock->advance(5000);
    QTEST(m_recorder->readings.last().grams, "reading");
}

void tst_SimulatedSource::overload_data()
{
    QTest::addColumn<double>("load");
    QTest::addColumn<bool>("isOverload");
    QTest::newRow("capacity") << 6000.0 << false;
    QTest::newRow("nine increments more") << 6000.9 << false;
    QTest::newRow("ten increments more") << 6001.0 << true;
    QTest::newRow("much more") << 100000.0 << true;
}

void tst_SimulatedSource::overload()
{
    QFETCH(double, load);
    QFETCH(bool, isOverload);
    m_source->start();
    m_source->putOn(load);
    m_clock->advance(5000);
    const Reading last = m_recorder->readings.last();
    QCOMPARE(last.status, isOverload ? Reading::Status::Overload : Reading::Status::Valid);
    QCOMPARE(std::isnan(last.grams), isOverload);
    QCOMPARE(last.detail, isOverload ? QStringLiteral("More than 6000 g.") : QString());
}

void tst_SimulatedSource::underload_data()
{
    QTest::addColumn<double>("load");
    QTest::addColumn<bool>("isUnderload");
    QTest::newRow("twenty increments below") << -2.0 << false;
    QTest::newRow("twenty-one increments below") << -2.1 << true;
    QTest::newRow("pan off") << -500.0 << true;
}

void tst_SimulatedSource::underload()
{
    QFETCH(double, load);
    QFETCH(bool, isUnderload);
    m_source->start();
    m_source->takeOff(-load);
    m_clock->advance(5000);
    const Reading last = m_recorder->readings.last();
    QCOMPARE(last.status, isUnderload ? Reading::Status::Underload : Reading::Status::Valid);
    QCOMPARE(std::isnan(last.grams), isUnderload);
    QCOMPARE(last.detail, isUnderload ? QStringLiteral("The load is below zero.") : QString());
}

void tst_SimulatedSource::noUnderloadWhileTheCellSwings_data()
{
    QTest::addColumn<double>("load");
    QTest::newRow("500 g") << 500.0;
    QTest::newRow("6 kg") << 6000.0;
}

void tst_SimulatedSource::noUnderloadWhileTheCellSwings()
{
    QFETCH(double, load);
    m_source->start();
    m_source->putOn(load);
    m_clock->advance(5000);
    m_recorder->readings.clear();
    m_source->takeOff(load);
    m_clock->advance(5000);
    double lowest = 0.0;
    for (const Reading& reading : qAsConst(m_recorder->readings)) {
        QCOMPARE(reading.status, Reading::Status::Valid);
        lowest = qMin(lowest, reading.grams);
    }
    // It does swing below what counts as underload where it stays.
    QVERIFY(lowest < -2.0);
    QCOMPARE(m_recorder->readings.last().grams, 0.0);
}

void tst_SimulatedSource::overloadEnds()
{
    m_source->start();
    m_source->putOn(7000.0);
    m_clock->advance(5000);
    QCOMPARE(m_recorder->readings.last().status, Reading::Status::Overload);
    m_source->takeOff(6500.0);
    m_clock->advance(5000);
    QCOMPARE(m_recorder->readings.last().grams, 500.0);
}

void tst_SimulatedSource::noise()
{
    SimulationSettings settings;
    settings.noise = 10.0;
    settings.readingsPerSecond = 100.0;
    make(settings);
    m_source->putOn(1000.0);
    m_clock->advance(10000);
    m_source->start();
    m_clock->advance(100000);
    QCOMPARE(m_recorder->readings.size(), 10001);
    double sum = 0.0;
    double squares = 0.0;
    double largest = 0.0;
    for (const Reading& reading : qAsConst(m_recorder->readings)) {
        const double increments = (reading.grams - 1000.0) / 0.1;
        sum += increments;
        squares += increments * increments;
        largest = qMax(largest, std::fabs(increments));
    }
    // The mean of 10001 readings lies within 0.1 (its standard deviation), their deviation within 0.07, times
    // five.
    QVERIFY2(std::fabs(sum / 10001) < 0.5, qPrintable(QString::number(sum / 10001)));
    QVERIFY2(std::fabs(std::sqrt(squares / 10001) - 10.0) < 0.35,
             qPrintable(QString::number(squares / 10001)));
    QVERIFY2(largest > 25.0 && largest <= 60.0, qPrintable(QString::number(largest)));
}

void tst_SimulatedSource::noiseOff()
{
    m_source->putOn(123.4);
    m_clock->advance(10000);
    m_source->start();
    m_clock->advance(60000);
    for (const Reading& reading : qAsConst(m_recorder->readings))
        QCOMPARE(reading.grams, 123.4);
}

void tst_SimulatedSource::noiseIsSteered()
{
    m_source->start();
    m_clock->advance(1000);
    m_source->setNoise(50.0);
    m_clock->advance(1000);
    bool moved = false;
    for (const Reading& reading : qAsConst(m_recorder->readings)) {
        if (reading.timeMs <= VirtualClock::DefaultStartMs + 1000)
            QCOMPARE(reading.grams, 0.0);
        else
            moved = moved || reading.grams != 0.0;
    }
    QVERIFY(moved);
}

void tst_SimulatedSource::seedsDiffer()
{
    QStringList runs[3];
    const quint64 seeds[] = {1, 2, 1};
    for (int i = 0; i < 3; ++i) {
        SimulationSettings settings;
        settings.noise = 5.0;
        settings.seed = seeds[i];
        make(settings);
        m_source->start();
        m_clock->advance(5000);
        runs[i] = m_recorder->events;
    }
    QVERIFY(runs[0] != runs[1]);
    QCOMPARE(runs[0], runs[2]);
}

void tst_SimulatedSource::sameEverywhere()
{
    // The readings of a run with everything in it, as a second program in another language computed them:
    // every processor, compiler and library must agree.
    SimulationSettings settings;
    settings.readability = *Readability::parse(QStringLiteral("0.001"));
    settings.capacity = 1000.0;
    settings.noise = 1.5;
    settings.readingsPerSecond = 60.0;
    settings.seed = 42;
    make(settings);
    m_source->start();
    m_source->setDrift(0.7);
    m_source->putOn(123.456);
    m_clock->advance(1234);
    m_source->putOn(500.0);
    m_clock->advance(4000);
    m_source->takeOff(623.456);
    m_clock->advance(3000);
    QCOMPARE(m_recorder->events.size(), 495);
    QCOMPARE(QCryptographicHash::hash(m_recorder->events.join(QLatin1Char('\n')).toLatin1(),
                                      QCryptographicHash::Sha256)
                 .toHex(),
             QByteArray("b64528ce1a40a30729a0e13eb77f7d8b4ce80a1f357b9dadd2689e4cdb26011c"));
}

void tst_SimulatedSource::drift()
{
    m_source->start();
    m_source->setDrift(6.0);
    m_clock->advance(60000);
    QCOMPARE(m_recorder->readings.last().grams, 6.0);
    m_source->setDrift(-12.0);
    m_clock->advance(30000);
    QCOMPARE(m_recorder->readings.last().grams, 0.0);
    QCOMPARE(m_source->load(), 0.0);
}

void tst_SimulatedSource::driftIsTakenBack()
{
    m_source->start();
    m_source->setDrift(6.0);
    m_clock->advance(10000);
    m_source->setDrift(0.0);
    m_clock->advance(10000);
    QCOMPARE(m_recorder->readings.last().grams, 1.0);
    m_source->resetDrift();
    m_clock->advance(100);
    QCOMPARE(m_recorder->readings.last().grams, 0.0);
}

void tst_SimulatedSource::driftIsIndependentOfTheRate()
{
    SimulationSettings settings = quiet();
    settings.readingsPerSecond = 100.0;
    make(settings);
    m_source->start();
    m_source->setDrift(6.0);
    m_clock->advance(60000);
    QCOMPARE(m_recorder->readings.last().grams, 6.0);
}

void tst_SimulatedSource::cableOut()
{
    m_source->start();
    m_clock->advance(150);
    m_source->setConnected(false);
    QVERIFY(!m_source->isConnected());
    m_clock->advance(200);
    m_source->setConnected(true);
    m_clock->advance(100);
    QCOMPARE(m_recorder->events,
             QStringList({QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("disconnected"),
                          QStringLiteral("no data"), QStringLiteral("no data"), QStringLiteral("no data"),
                          QStringLiteral("connected"), QStringLiteral("0")}));
    QCOMPARE(m_recorder->readings.at(2).detail, QStringLiteral("The cable is out."));
    QCOMPARE(m_recorder->readings.at(2).timeMs, VirtualClock::DefaultStartMs + 150);
    QCOMPARE(m_recorder->connectionDetails,
             QStringList({QStringLiteral("The cable is out."), QStringLiteral("The cable is plugged in.")}));
}

void tst_SimulatedSource::cableOutWhileStopped()
{
    m_source->setConnected(false);
    QVERIFY(m_recorder->events.isEmpty());
    m_source->start();
    m_clock->advance(0);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("no data")}));
}

void tst_SimulatedSource::cableOutAndInTwice()
{
    m_source->start();
    m_source->setConnected(true);
    QVERIFY(m_recorder->events.isEmpty());
    m_source->setConnected(false);
    m_source->setConnected(false);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("disconnected"), QStringLiteral("no data")}));
}

void tst_SimulatedSource::lateWallClockDoesNotPileUp()
{
    // An hour of readings is due at the first turn of the event loop; only the newest are delivered.
    WallClock clock(3.6e6);
    SimulatedSource source(clock, quiet());
    SourceRecorder recorder(source);
    source.start();
    QTest::qSleep(20);
    QCoreApplication::processEvents();
    QVERIFY(!recorder.readings.isEmpty());
    source.stop();
    QVERIFY2(recorder.readings.size() < 2000, qPrintable(QString::number(recorder.readings.size())));
    QVERIFY(recorder.readings.last().timeMs > recorder.readings.first().timeMs);
}

void tst_SimulatedSource::hundredReadingsASecondWithoutLoss()
{
    SimulationSettings settings;
    settings.readingsPerSecond = 100.0;
    make(settings);
    m_source->start();
    m_clock->advance(100000 - 1);
    QCOMPARE(m_recorder->readings.size(), 10000);
    for (int i = 0; i < 10000; ++i)
        QCOMPARE(m_recorder->readings.at(i).timeMs - VirtualClock::DefaultStartMs, qint64(10) * i);
}

QTEST_GUILESS_MAIN(tst_SimulatedSource)
#include "tst_simulatedsource.moc"
