// SPDX-License-Identifier: BSD-3-Clause
#include "app/TimeDriver.h"
#include "clock/VirtualClock.h"
#include "clock/WallClock.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QtTest>

#include <memory>

using Brimvale::Terminal::Clock;
using Brimvale::Terminal::RealTimeDriver;
using Brimvale::Terminal::TimeDriver;
using Brimvale::Terminal::VirtualClock;
using Brimvale::Terminal::VirtualTimeDriver;
using Brimvale::Terminal::WallClock;

using Result = TimeDriver::Result;

class TestTimeDriver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void conditionThatHoldsAlready_data();
    void conditionThatHoldsAlready();
    void conditionThatComesAbout_data();
    void conditionThatComesAbout();
    void conditionThatDoesNot_data();
    void conditionThatDoesNot();
    void conditionAtTheVeryEnd();
    void virtualTimeNeedsNoRealTime();
    void virtualTimeStopsWhereTheConditionHolds();
    void virtualTimeAtASpeedTakesRealTime();
    void postedEventsAreCarriedOut_data();
    void postedEventsAreCarriedOut();
    void deletionsAreCarriedOut_data();
    void deletionsAreCarriedOut();
    void interruption_data();
    void interruption();
    void interruptionOfAPacedRun();
    void runPassesTheTime();

private:
    void addDrivers();
    TimeDriver& driver();
    Clock& clock();

    std::unique_ptr<VirtualClock> m_virtualClock;
    std::unique_ptr<WallClock> m_wallClock;
    std::unique_ptr<VirtualTimeDriver> m_virtualDriver;
    std::unique_ptr<RealTimeDriver> m_realDriver;
};

void TestTimeDriver::init()
{
    m_virtualClock = std::make_unique<VirtualClock>();
    m_wallClock = std::make_unique<WallClock>();
    m_virtualDriver = std::make_unique<VirtualTimeDriver>(*m_virtualClock);
    m_realDriver = std::make_unique<RealTimeDriver>(*m_wallClock);
}

void TestTimeDriver::addDrivers()
{
    QTest::addColumn<bool>("real");
    QTest::newRow("virtual time") << false;
    QTest::newRow("real time") << true;
}

TimeDriver& TestTimeDriver::driver()
{
    return *QTest::currentDataTag() == 'r' ? static_cast<TimeDriver&>(*m_realDriver) : *m_virtualDriver;
}

Clock& TestTimeDriver::clock()
{
    return *QTest::currentDataTag() == 'r' ? static_cast<Clock&>(*m_wallClock) : *m_virtualClock;
}

void TestTimeDriver::conditionThatHoldsAlready_data()
{
    addDrivers();
}

void TestTimeDriver::conditionThatHoldsAlready()
{
    QCOMPARE(driver().runUntil([] { return true; }, 0), Result::Met);
}

void TestTimeDriver::conditionThatComesAbout_data()
{
    addDrivers();
}

void TestTimeDriver::conditionThatComesAbout()
{
    bool done = false;
    clock().callAfter(20, [&done] { done = true; });
    QCOMPARE(driver().runUntil([&done] { return done; }, 60000), Result::Met);
}

void TestTimeDriver::conditionThatDoesNot_data()
{
    addDrivers();
}

void TestTimeDriver::conditionThatDoesNot()
{
    const qint64 startMs = clock().nowMs();
    QCOMPARE(driver().runUntil([] { return false; }, 30), Result::TimedOut);
    QVERIFY(clock().nowMs() >= startMs + 30);
}

void TestTimeDriver::conditionAtTheVeryEnd()
{
    bool done = false;
    m_virtualClock->callAfter(100, [&done] { done = true; });
    QCOMPARE(m_virtualDriver->runUntil([&done] { return done; }, 100), Result::Met);
}

void TestTimeDriver::virtualTimeNeedsNoRealTime()
{
    const qint64 startMs = m_virtualClock->nowMs();
    constexpr qint64 YearMs = Q_INT64_C(365) * 24 * 3600 * 1000;
    QCOMPARE(m_virtualDriver->run(YearMs), Result::Met);
    QCOMPARE(m_virtualClock->nowMs(), startMs + YearMs);
}

void TestTimeDriver::virtualTimeStopsWhereTheConditionHolds()
{
    const qint64 startMs = m_virtualClock->nowMs();
    int calls = 0;
    std::function<void()> again = [&] {
        ++calls;
        m_virtualClock->callAfter(10, again);
    };
    m_virtualClock->callAfter(10, again);
    QCOMPARE(m_virtualDriver->runUntil([&calls] { return calls == 7; }, 60000), Result::Met);
    QCOMPARE(m_virtualClock->nowMs(), startMs + 70);
    QCOMPARE(calls, 7);
}

void TestTimeDriver::virtualTimeAtASpeedTakesRealTime()
{
    VirtualTimeDriver paced(*m_virtualClock, 10.0);
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(paced.run(500), Result::Met);
    QVERIFY(elapsed.elapsed() >= 50);
}

void TestTimeDriver::postedEventsAreCarriedOut_data()
{
    addDrivers();
}

void TestTimeDriver::postedEventsAreCarriedOut()
{
    bool done = false;
    QMetaObject::invokeMethod(
        this, [&done] { done = true; }, Qt::QueuedConnection);
    QCOMPARE(driver().runUntil([&done] { return done; }, 0), Result::Met);
}

void TestTimeDriver::deletionsAreCarriedOut_data()
{
    addDrivers();
}

void TestTimeDriver::deletionsAreCarriedOut()
{
    const QPointer<QObject> object(new QObject);
    object->deleteLater();
    QCOMPARE(driver().runUntil([&object] { return object.isNull(); }, 0), Result::Met);
}

void TestTimeDriver::interruption_data()
{
    addDrivers();
}

void TestTimeDriver::interruption()
{
    clock().callAfter(10, [this] { driver().interrupt(); });
    QCOMPARE(driver().runUntil([] { return false; }, 60000), Result::Interrupted);
    QVERIFY(driver().isInterrupted());
    // It is for good, even where the condition would hold.
    QCOMPARE(driver().runUntil([] { return true; }, 60000), Result::Interrupted);
}

void TestTimeDriver::interruptionOfAPacedRun()
{
    VirtualTimeDriver paced(*m_virtualClock, 0.01);
    QTimer::singleShot(10, this, [&paced] { paced.interrupt(); });
    QCOMPARE(paced.run(3600000), Result::Interrupted);
}

void TestTimeDriver::runPassesTheTime()
{
    const qint64 startMs = m_virtualClock->nowMs();
    QCOMPARE(m_virtualDriver->run(1234), Result::Met);
    QCOMPARE(m_virtualClock->nowMs(), startMs + 1234);
}

QTEST_GUILESS_MAIN(TestTimeDriver)

#include "tst_timedriver.moc"
