// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>

using namespace Brimvale;
using namespace Brimvale::Terminal;

using Reason = LoadChangeMonitor::Reason;

Q_DECLARE_METATYPE(Brimvale::Terminal::Reading::Status)

class tst_LoadChangeMonitor : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void offUntilStarted();
    void notLatchedUntilStable();
    void insideTheBand();
    void belowTheMinimum();
    void noReading_data();
    void noReading();
    void triggered();
    void triggerTellsTheBandThatWasLeft_data();
    void triggerTellsTheBandThatWasLeft();
    void referenceFollowsTheBand();
    void anotherDetectorBeginsAnew();
    void detectorThatGoes();

private:
    void watch()
    {
        m_detector = std::make_unique<LoadChange>(nullptr, &m_fixture->host->weighing(),
                                                  &m_fixture->host->systemRegisters());
        m_monitor = std::make_unique<LoadChangeMonitor>(m_fixture->host->weighing(), m_fixture->scale,
                                                        [this] { return m_detector.get(); });
    }

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<LoadChange> m_detector;
    std::unique_ptr<LoadChangeMonitor> m_monitor;
};

void tst_LoadChangeMonitor::init()
{
    m_monitor.reset();
    m_detector.reset();
    m_fixture = std::make_unique<HostFixture>();
    watch();
}

void tst_LoadChangeMonitor::offUntilStarted()
{
    QCOMPARE(m_monitor->reason(), Reason::Off);
    m_fixture->settle(100.0);
    QCOMPARE(m_monitor->reason(), Reason::Off);
    QCOMPARE(m_monitor->reasonText(), QStringLiteral("switched off"));
    QVERIFY(std::isnan(m_monitor->reference()));
}

void tst_LoadChangeMonitor::notLatchedUntilStable()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->feed(100.0);
    QCOMPARE(m_monitor->reason(), Reason::NotLatched);
    QVERIFY(m_monitor->reasonText().startsWith(QLatin1String("not latched")));
}

void tst_LoadChangeMonitor::insideTheBand()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->settle(100.0);
    QCOMPARE(m_monitor->reason(), Reason::InsideBand);
    QCOMPARE(m_monitor->reasonText(), QStringLiteral("inside the band: 100.0 g"));
    QCOMPARE(m_monitor->reference(), 1000.0);
    QCOMPARE(m_monitor->triggerCount(), 0);
}

void tst_LoadChangeMonitor::belowTheMinimum()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 200, false));
    m_fixture->settle(20.0);
    QCOMPARE(m_monitor->reason(), Reason::BelowMinimum);
    QCOMPARE(m_monitor->reasonText(), QStringLiteral("no band: 20.0 g is not above the minimum of 20.0 g"));
    m_fixture->settle(20.1);
    QCOMPARE(m_monitor->reason(), Reason::NotLatched); // it never was unstable: no new stable weight
    m_fixture->settle(30.0);
    QCOMPARE(m_monitor->reason(), Reason::InsideBand);
}

void tst_LoadChangeMonitor::noReading_data()
{
    QTest::addColumn<Reading::Status>("status");
    QTest::addColumn<QString>("text");
    QTest::newRow("overload") << Reading::Status::Overload << "no valid reading: Overload";
    QTest::newRow("cable out") << Reading::Status::Disconnected << "no valid reading: No connection";
}

void tst_LoadChangeMonitor::noReading()
{
    QFETCH(Reading::Status, status);
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->settle(100.0);
    m_fixture->fail(status);
    QCOMPARE(m_monitor->reason(), Reason::NoReading);
    QTEST(m_monitor->reasonText(), "text");
    QCOMPARE(m_monitor->triggerCount(), 0);
    m_fixture->feed(100.0);
    QCOMPARE(m_monitor->reason(), Reason::InsideBand);
}

void tst_LoadChangeMonitor::triggered()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->settle(100.0);
    m_fixture->feed(105.1);
    QCOMPARE(m_monitor->reason(), Reason::LeftBand);
    QCOMPARE(m_monitor->triggerCount(), 1);
    m_fixture->feed(200.0);
    QCOMPARE(m_monitor->triggerCount(), 1);
}

void tst_LoadChangeMonitor::triggerTellsTheBandThatWasLeft_data()
{
    QTest::addColumn<double>("grams");
    QTest::addColumn<QString>("text");
    QTest::newRow("above") << 105.1 << "105.1 g was above the band up to 105.0 g";
    QTest::newRow("below") << 94.9 << "94.9 g was below the band from 95.0 g";
}

void tst_LoadChangeMonitor::triggerTellsTheBandThatWasLeft()
{
    QFETCH(double, grams);
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, -1000, true));
    // Whoever answers first lays the next band.
    m_monitor.reset();
    connect(m_detector.get(), &LoadChange::NotifyLoadChangedTriggerd, m_detector.get(), [this] {
        m_detector->ResetTrigger();
        m_detector->onLoadChanged(1, 5000.0);
    });
    m_monitor = std::make_unique<LoadChangeMonitor>(m_fixture->host->weighing(), m_fixture->scale,
                                                    [this] { return m_detector.get(); });
    m_fixture->settle(100.0);
    m_fixture->feed(grams);
    QTEST(m_monitor->lastTriggerText(), "text");
}

void tst_LoadChangeMonitor::referenceFollowsTheBand()
{
    QVERIFY(m_detector->Start(ILoadChange::AbsoluteFixed, 50, 200, false));
    m_fixture->settle(100.0);
    m_fixture->settle(0.0);
    m_detector->ResetTrigger();
    m_fixture->settle(103.0);
    QCOMPARE(m_detector->state(), int(LoadChange::Watching));
    QCOMPARE(m_monitor->reference(), 1000.0); // a fixed band stays where it is
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 200, false));
    m_fixture->settle(0.0);
    m_fixture->settle(300.0);
    QCOMPARE(m_monitor->reference(), 3000.0);
}

void tst_LoadChangeMonitor::anotherDetectorBeginsAnew()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->settle(100.0);
    m_fixture->settle(200.0);
    QCOMPARE(m_monitor->triggerCount(), 1);
    auto other = std::make_unique<LoadChange>(nullptr, &m_fixture->host->weighing(),
                                              &m_fixture->host->systemRegisters());
    m_detector.swap(other);
    QSignalSpy spy(m_monitor.get(), &LoadChangeMonitor::changed);
    m_monitor->update();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(m_monitor->triggerCount(), 0);
    QCOMPARE(m_monitor->lastTriggerText(), QString());
    QCOMPARE(m_monitor->reason(), Reason::Off);
}

void tst_LoadChangeMonitor::detectorThatGoes()
{
    QVERIFY(m_detector->Start(ILoadChange::Absolute, 50, 0, true));
    m_fixture->settle(100.0);
    m_detector.reset();
    QVERIFY(!m_monitor->detector());
    m_fixture->settle(200.0);
    QCOMPARE(m_monitor->reason(), Reason::Off);
}

QTEST_GUILESS_MAIN(tst_LoadChangeMonitor)
#include "tst_loadchangemonitor.moc"
