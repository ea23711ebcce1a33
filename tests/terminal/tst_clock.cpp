// SPDX-License-Identifier: BSD-3-Clause
#include "clock/VirtualClock.h"
#include "clock/WallClock.h"

#include <QEventLoop>
#include <QStringList>
#include <QTimer>
#include <QtTest>

#include <limits>
#include <memory>

using namespace Brimvale::Terminal;

class tst_Clock : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void virtualStartsAtTheDocumentedDate();
    void virtualStartsWhereItIsTold();
    void virtualStandsStill();
    void virtualRunNextWithoutCallbacks();
    void virtualRunNextGoesToTheDueTime();
    void virtualOrder_data();
    void virtualOrder();
    void virtualAdvanceRunsWhatIsDue();
    void virtualAdvanceBackwardsDoesNothing();
    void virtualCallbackSeesItsOwnTime();
    void virtualCallbackAsksForAnother();
    void virtualCallbackAdvances();
    void virtualCancel();
    void virtualCancelFromACallback();
    void virtualCancelItself();
    void cancelUnknownIds();
    void emptyCallback();
    void negativeDelayIsNow();
    void delaysSaturate();
    void nextDue();

    void wallSpeedOfNonsenseIsOne_data();
    void wallSpeedOfNonsenseIsOne();
    void wallFollowsTheSystemDate();
    void wallNeverGoesBack();
    void wallOrder();
    void wallNeverEarly();
    void wallSpeedShortensWaits();
    void wallSlowSpeedLengthensWaits();
    void wallCancel();
    void wallCancelFromACallback();
    void wallDoesNotRunInsideTheCall();
    void wallRepeatedZeroDelayLeavesTheLoopAlive();
    void wallNestedEventLoop();
    void wallNestedEventLoopForAnEarlierCallback();
    void wallVeryLongWaitStaysPending();

private:
    std::function<void()> note(const QString& name)
    {
        return [this, name] { m_calls.append(name); };
    }

    QStringList m_calls;
    std::unique_ptr<VirtualClock> m_clock;
};

void tst_Clock::init()
{
    m_calls.clear();
    m_clock = std::make_unique<VirtualClock>();
}

void tst_Clock::virtualStartsAtTheDocumentedDate()
{
    QCOMPARE(m_clock->dateTime(), QDateTime(QDate(2026, 1, 1), QTime(8, 0), Qt::UTC));
    QCOMPARE(m_clock->dateTime().timeSpec(), Qt::UTC);
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs);
}

void tst_Clock::virtualStartsWhereItIsTold()
{
    const QDateTime date(QDate(2030, 5, 17), QTime(1, 2, 3, 4), Qt::UTC);
    QCOMPARE(VirtualClock(date).dateTime(), date);
    QCOMPARE(VirtualClock(1234).nowMs(), 1234);
    QCOMPARE(VirtualClock(QDateTime()).nowMs(), VirtualClock::DefaultStartMs);
}

void tst_Clock::virtualStandsStill()
{
    m_clock->callAfter(0, note(QStringLiteral("a")));
    QTest::qWait(5);
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs);
    QCOMPARE(m_calls, QStringList());
}

void tst_Clock::virtualRunNextWithoutCallbacks()
{
    QVERIFY(!m_clock->runNext());
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs);
}

void tst_Clock::virtualRunNextGoesToTheDueTime()
{
    m_clock->callAfter(250, note(QStringLiteral("b")));
    m_clock->callAfter(100, note(QStringLiteral("a")));
    QVERIFY(m_clock->runNext());
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs + 100);
    QCOMPARE(m_calls, QStringList({QStringLiteral("a")}));
    QVERIFY(m_clock->runNext());
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs + 250);
    QVERIFY(!m_clock->runNext());
    QCOMPARE(m_calls, QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

void tst_Clock::virtualOrder_data()
{
    QTest::addColumn<QVector<int>>("delays");
    QTest::addColumn<QString>("order");
    QTest::newRow("ascending") << QVector<int>{10, 20, 30} << QStringLiteral("012");
    QTest::newRow("descending") << QVector<int>{30, 20, 10} << QStringLiteral("210");
    QTest::newRow("ties in the order of asking")
        << QVector<int>{20, 10, 20, 10, 20} << QStringLiteral("13024");
    QTest::newRow("all at once") << QVector<int>{0, 0, 0, 0} << QStringLiteral("0123");
}

void tst_Clock::virtualOrder()
{
    QFETCH(QVector<int>, delays);
    QFETCH(QString, order);
    for (int i = 0; i < delays.size(); ++i)
        m_clock->callAfter(delays.at(i), note(QString::number(i)));
    m_clock->advance(100);
    QCOMPARE(m_calls.join(QString()), order);
}

void tst_Clock::virtualAdvanceRunsWhatIsDue()
{
    m_clock->callAfter(99, note(QStringLiteral("before")));
    m_clock->callAfter(100, note(QStringLiteral("at")));
    m_clock->callAfter(101, note(QStringLiteral("after")));
    m_clock->advance(100);
    QCOMPARE(m_calls, QStringList({QStringLiteral("before"), QStringLiteral("at")}));
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs + 100);
    m_clock->advance(0);
    QCOMPARE(m_calls.size(), 2);
    m_clock->advance(1);
    QCOMPARE(m_calls.size(), 3);
}

void tst_Clock::virtualAdvanceBackwardsDoesNothing()
{
    m_clock->callAfter(0, note(QStringLiteral("a")));
    m_clock->advance(-1);
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs);
    QCOMPARE(m_calls, QStringList());
}

void tst_Clock::virtualCallbackSeesItsOwnTime()
{
    qint64 seen = 0;
    m_clock->callAfter(40, [&] { seen = m_clock->nowMs(); });
    m_clock->advance(1000);
    QCOMPARE(seen, VirtualClock::DefaultStartMs + 40);
}

void tst_Clock::virtualCallbackAsksForAnother()
{
    QVector<qint64> times;
    std::function<void()> tick = [&] {
        times.append(m_clock->nowMs() - VirtualClock::DefaultStartMs);
        m_clock->callAfter(10, tick);
    };
    m_clock->callAfter(10, tick);
    m_clock->advance(35);
    QCOMPARE(times, QVector<qint64>({10, 20, 30}));
}

void tst_Clock::virtualCallbackAdvances()
{
    m_clock->callAfter(10, [&] {
        m_calls.append(QStringLiteral("outer"));
        m_clock->advance(50);
        m_calls.append(QStringLiteral("outer ends"));
    });
    m_clock->callAfter(20, note(QStringLiteral("inner")));
    m_clock->advance(30);
    QCOMPARE(m_calls,
             QStringList({QStringLiteral("outer"), QStringLiteral("inner"), QStringLiteral("outer ends")}));
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs + 60);
}

void tst_Clock::virtualCancel()
{
    const Clock::TimerId a = m_clock->callAfter(10, note(QStringLiteral("a")));
    m_clock->callAfter(10, note(QStringLiteral("b")));
    m_clock->cancel(a);
    m_clock->advance(10);
    QCOMPARE(m_calls, QStringList({QStringLiteral("b")}));
}

void tst_Clock::virtualCancelFromACallback()
{
    Clock::TimerId later = 0;
    m_clock->callAfter(10, [&] { m_clock->cancel(later); });
    later = m_clock->callAfter(10, note(QStringLiteral("later")));
    m_clock->callAfter(10, note(QStringLiteral("last")));
    m_clock->advance(10);
    QCOMPARE(m_calls, QStringList({QStringLiteral("last")}));
}

void tst_Clock::virtualCancelItself()
{
    Clock::TimerId own = 0;
    own = m_clock->callAfter(10, [&] {
        m_clock->cancel(own);
        m_calls.append(QStringLiteral("own"));
    });
    m_clock->advance(20);
    QCOMPARE(m_calls, QStringList({QStringLiteral("own")}));
}

void tst_Clock::cancelUnknownIds()
{
    const Clock::TimerId done = m_clock->callAfter(0, note(QStringLiteral("done")));
    m_clock->advance(0);
    m_clock->callAfter(0, note(QStringLiteral("next")));
    m_clock->cancel(0);
    m_clock->cancel(done);
    m_clock->cancel(4711);
    m_clock->advance(0);
    QCOMPARE(m_calls, QStringList({QStringLiteral("done"), QStringLiteral("next")}));
}

void tst_Clock::emptyCallback()
{
    QCOMPARE(m_clock->callAfter(0, nullptr), Clock::TimerId(0));
    QVERIFY(!m_clock->runNext());
    WallClock wall;
    QCOMPARE(wall.callAfter(0, nullptr), Clock::TimerId(0));
}

void tst_Clock::negativeDelayIsNow()
{
    m_clock->advance(100);
    m_clock->callAfter(-50, note(QStringLiteral("a")));
    QVERIFY(m_clock->runNext());
    QCOMPARE(m_clock->nowMs(), VirtualClock::DefaultStartMs + 100);
}

void tst_Clock::delaysSaturate()
{
    const qint64 latest = std::numeric_limits<qint64>::max();
    m_clock->callAfter(latest, note(QStringLiteral("end of time")));
    QCOMPARE(m_clock->nextDueMs(), std::optional<qint64>(latest));
    m_clock->advance(latest);
    QCOMPARE(m_clock->nowMs(), latest);
    QCOMPARE(m_calls, QStringList({QStringLiteral("end of time")}));
}

void tst_Clock::nextDue()
{
    QVERIFY(!m_clock->nextDueMs());
    const Clock::TimerId first = m_clock->callAfter(10, note(QStringLiteral("a")));
    m_clock->callAfter(20, note(QStringLiteral("b")));
    QCOMPARE(m_clock->nextDueMs().value_or(0), VirtualClock::DefaultStartMs + 10);
    m_clock->cancel(first);
    QCOMPARE(m_clock->nextDueMs().value_or(0), VirtualClock::DefaultStartMs + 20);
}

void tst_Clock::wallSpeedOfNonsenseIsOne_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<double>("expected");
    QTest::newRow("zero") << 0.0 << 1.0;
    QTest::newRow("negative") << -2.0 << 1.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 1.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 1.0;
    QTest::newRow("slow") << 0.5 << 0.5;
    QTest::newRow("fast") << 100.0 << 100.0;
}

void tst_Clock::wallSpeedOfNonsenseIsOne()
{
    QFETCH(double, speed);
    QFETCH(double, expected);
    QCOMPARE(WallClock(speed).speed(), expected);
}

void tst_Clock::wallFollowsTheSystemDate()
{
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    const WallClock clock;
    const qint64 now = clock.nowMs();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    QVERIFY(now >= before);
    QVERIFY(now <= after + 1);
    QCOMPARE(clock.dateTime().timeSpec(), Qt::UTC);
}

void tst_Clock::wallNeverGoesBack()
{
    const WallClock clock(1000.0);
    qint64 last = clock.nowMs();
    for (int i = 0; i < 10000; ++i) {
        const qint64 now = clock.nowMs();
        QVERIFY(now >= last);
        last = now;
    }
}

void tst_Clock::wallOrder()
{
    WallClock clock(10.0);
    clock.callAfter(200, note(QStringLiteral("d")));
    clock.callAfter(0, note(QStringLiteral("a")));
    clock.callAfter(0, note(QStringLiteral("b")));
    clock.callAfter(50, note(QStringLiteral("c")));
    QTRY_COMPARE(m_calls.join(QString()), QStringLiteral("abcd"));
}

void tst_Clock::wallNeverEarly()
{
    WallClock clock(3.0);
    int early = 0;
    int called = 0;
    for (int delay = 0; delay < 60; delay += 7) {
        const qint64 due = clock.nowMs() + delay;
        clock.callAfter(delay, [&clock, &early, &called, due] {
            ++called;
            early += clock.nowMs() < due ? 1 : 0;
        });
    }
    QTRY_COMPARE(called, 9);
    QCOMPARE(early, 0);
}

void tst_Clock::wallSpeedShortensWaits()
{
    // An hour of this clock takes 3.6 ms; at the pace of real time the test would run into its time-out.
    WallClock clock(1.0e6);
    const qint64 start = clock.nowMs();
    qint64 called = 0;
    clock.callAfter(3600000, [&] { called = clock.nowMs(); });
    QTRY_VERIFY(called >= start + 3600000);
}

void tst_Clock::wallSlowSpeedLengthensWaits()
{
    WallClock clock(0.25);
    QElapsedTimer real;
    real.start();
    clock.callAfter(10, note(QStringLiteral("a")));
    QTRY_COMPARE(m_calls.size(), 1);
    // 10 ms of a clock that counts whole milliseconds at a quarter of the pace: never before 36 ms of real
    // time.
    QVERIFY(real.elapsed() >= 36);
}

void tst_Clock::wallCancel()
{
    WallClock clock;
    const Clock::TimerId first = clock.callAfter(0, note(QStringLiteral("first")));
    clock.callAfter(1, note(QStringLiteral("second")));
    clock.cancel(first);
    QTRY_COMPARE(m_calls, QStringList({QStringLiteral("second")}));
}

void tst_Clock::wallCancelFromACallback()
{
    WallClock clock;
    Clock::TimerId second = 0;
    clock.callAfter(0, [&] { clock.cancel(second); });
    second = clock.callAfter(0, note(QStringLiteral("second")));
    clock.callAfter(5, note(QStringLiteral("third")));
    QTRY_COMPARE(m_calls, QStringList({QStringLiteral("third")}));
}

void tst_Clock::wallDoesNotRunInsideTheCall()
{
    WallClock clock;
    clock.callAfter(0, note(QStringLiteral("a")));
    QCOMPARE(m_calls, QStringList());
    QTRY_COMPARE(m_calls.size(), 1);
}

void tst_Clock::wallRepeatedZeroDelayLeavesTheLoopAlive()
{
    // So slow that the time never goes on during the test.
    WallClock clock(1.0e-6);
    std::function<void()> again = [&] { clock.callAfter(0, again); };
    clock.callAfter(0, again);
    bool other = false;
    QTimer::singleShot(1, this, [&] { other = true; });
    QTRY_VERIFY(other);
}

void tst_Clock::wallNestedEventLoop()
{
    WallClock clock;
    clock.callAfter(0, [&] {
        QEventLoop loop;
        clock.callAfter(1, [&] {
            m_calls.append(QStringLiteral("inner"));
            loop.quit();
        });
        loop.exec();
        m_calls.append(QStringLiteral("outer"));
    });
    QTRY_COMPARE(m_calls, QStringList({QStringLiteral("inner"), QStringLiteral("outer")}));
}

void tst_Clock::wallNestedEventLoopForAnEarlierCallback()
{
    WallClock clock;
    QEventLoop loop;
    clock.callAfter(0, [&] {
        QTimer::singleShot(2000, &loop, &QEventLoop::quit); // so that a failure ends
        loop.exec();
        m_calls.append(QStringLiteral("outer"));
    });
    clock.callAfter(10, [&] {
        m_calls.append(QStringLiteral("inner"));
        loop.quit();
    });
    QTRY_COMPARE(m_calls, QStringList({QStringLiteral("inner"), QStringLiteral("outer")}));
}

void tst_Clock::wallVeryLongWaitStaysPending()
{
    WallClock clock;
    clock.callAfter(std::numeric_limits<qint64>::max(), note(QStringLiteral("never")));
    clock.callAfter(Q_INT64_C(10000000000), note(QStringLiteral("in four months")));
    clock.callAfter(1, note(QStringLiteral("soon")));
    QTRY_COMPARE(m_calls.size(), 1);
    QTest::qWait(10);
    QCOMPARE(m_calls, QStringList({QStringLiteral("soon")}));
}

QTEST_GUILESS_MAIN(tst_Clock)
#include "tst_clock.moc"
