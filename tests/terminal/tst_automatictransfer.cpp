// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "host/TransferTarget.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using namespace Brimvale;
using namespace Brimvale::Terminal;

using Mode = AutomaticTransferSettings::Mode;

namespace
{

/// Takes every measurement.
class Taker : public TransferOutput
{
public:
    bool isActive() const override { return true; }
    bool write(const TransferRecord&) override { return true; }
};

} // namespace

Q_DECLARE_METATYPE(Brimvale::Terminal::Reading::Status)

class tst_AutomaticTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void modeNames();
    void refusedSettings_data();
    void refusedSettings();
    void transfers_data();
    void transfers();
    void offTransfersNothing();
    void weightThatIsStableAlreadySetsTheBand();
    void tareDoesNotTransfer();
    void driftTransfersWithoutAnUnstableTime();
    void aPulledCableNeverTriggers_data();
    void aPulledCableNeverTriggers();
    void newSettingsBeginAnew();
    void leftToTheApplication();
    void withoutAnOutputTheReasonIsTold();

private:
    bool set(Mode mode, double threshold, double minimum = 0.0)
    {
        AutomaticTransferSettings settings;
        settings.mode = mode;
        settings.threshold = threshold;
        settings.minimumLoad = minimum;
        return transfer().setSettings(settings, &m_error);
    }
    AutomaticTransfer& transfer() { return m_fixture->host->automaticTransfer(); }
    QString transferred() const
    {
        QStringList texts;
        for (const TransferRecord& record : m_fixture->host->measurementTransfer().records())
            texts.append(record.current.messwert);
        return texts.join(QLatin1Char(' '));
    }

    std::unique_ptr<HostFixture> m_fixture;
    QString m_error;
};

void tst_AutomaticTransfer::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_fixture->host->setOutput(1, std::make_unique<Taker>());
    m_fixture->settle(0.0);
    m_error.clear();
}

void tst_AutomaticTransfer::modeNames()
{
    for (const QString& name : AutomaticTransferSettings::modeNames()) {
        bool ok = false;
        QCOMPARE(AutomaticTransferSettings::nameOf(AutomaticTransferSettings::modeOf(name, &ok)), name);
        QVERIFY(ok);
    }
    bool ok = true;
    AutomaticTransferSettings::modeOf(QStringLiteral("Percent"), &ok);
    QVERIFY(!ok);
}

void tst_AutomaticTransfer::refusedSettings_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<QString>("part");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const QString percent = QStringLiteral("from 1 to 99 percent");
    const QString absolute = QStringLiteral("above 0 g and below 6000.0 g");
    QTest::newRow("0 %") << int(Mode::Percent) << 0.0 << 0.0 << percent;
    QTest::newRow("100 %") << int(Mode::PercentFixed) << 100.0 << 0.0 << percent;
    QTest::newRow("half a percent") << int(Mode::Percent) << 10.5 << 0.0 << percent;
    QTest::newRow("no number of percent") << int(Mode::Percent) << nan << 0.0 << percent;
    QTest::newRow("0 g") << int(Mode::Absolute) << 0.0 << 0.0 << absolute;
    QTest::newRow("less than a digit") << int(Mode::Absolute) << 0.04 << 0.0 << absolute;
    QTest::newRow("as much as the scale can carry") << int(Mode::AbsoluteFixed) << 6000.0 << 0.0 << absolute;
    QTest::newRow("no number of grams") << int(Mode::Absolute) << nan << 0.0 << absolute;
    QTest::newRow("negative minimum")
        << int(Mode::Absolute) << 5.0 << -1.0 << QStringLiteral("must not be below 0 g");
    QTest::newRow("no number as minimum")
        << int(Mode::Off) << 5.0 << nan << QStringLiteral("must not be below 0 g");
}

void tst_AutomaticTransfer::refusedSettings()
{
    QFETCH(int, mode);
    QFETCH(double, threshold);
    QFETCH(double, minimum);
    QFETCH(QString, part);
    QVERIFY(set(Mode::Absolute, 5.0));
    QSignalSpy spy(&transfer(), &AutomaticTransfer::settingsChanged);
    QVERIFY(!set(static_cast<Mode>(mode), threshold, minimum));
    QVERIFY2(m_error.contains(part), qPrintable(m_error));
    QCOMPARE(transfer().settings().threshold, 5.0);
    QVERIFY(transfer().detector()->isActive());
    QCOMPARE(spy.count(), 0);
}

void tst_AutomaticTransfer::transfers_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<QVector<double>>("loads");
    QTest::addColumn<QString>("transferred");
    using Loads = QVector<double>;
    QTest::newRow("each new load") << int(Mode::Absolute) << 5.0 << 0.0 << Loads{100, 0, 200, 0}
                                   << "100.0 200.0";
    QTest::newRow("load upon load") << int(Mode::Absolute) << 5.0 << 0.0 << Loads{100, 200, 300}
                                    << "100.0 200.0 300.0";
    QTest::newRow("inside the band") << int(Mode::Absolute) << 5.0 << 0.0 << Loads{100, 104, 96, 100}
                                     << "100.0";
    QTest::newRow("on its edge") << int(Mode::Absolute) << 5.0 << 0.0 << Loads{100, 105} << "100.0";
    QTest::newRow("just beyond") << int(Mode::Absolute) << 5.0 << 0.0 << Loads{100, 105.1} << "100.0 105.1";
    QTest::newRow("not above 20 increments")
        << int(Mode::Absolute) << 0.5 << 0.0 << Loads{2.0, 0, 2.1} << "2.1";
    QTest::newRow("minimum load") << int(Mode::Absolute) << 5.0 << 50.0 << Loads{50, 0, 50.1} << "50.1";
    QTest::newRow("a lighter load sets the band, too")
        << int(Mode::Absolute) << 5.0 << 50.0 << Loads{48, 51, 60} << "60.0";
    QTest::newRow("percent") << int(Mode::Percent) << 10.0 << 0.0 << Loads{100, 110, 110.1, 0, 50}
                             << "100.0 110.1 50.0";
    QTest::newRow("fixed: the first is the pattern")
        << int(Mode::AbsoluteFixed) << 5.0 << 0.0 << Loads{100, 0, 103, 0, 97} << "103.0 97.0";
    QTest::newRow("fixed: others are left out")
        << int(Mode::AbsoluteFixed) << 5.0 << 0.0 << Loads{100, 0, 200, 0, 105, 0, 105.1} << "105.0";
    QTest::newRow("percent fixed") << int(Mode::PercentFixed) << 10.0 << 0.0 << Loads{200, 0, 220, 0, 221}
                                   << "220.0";
}

void tst_AutomaticTransfer::transfers()
{
    QFETCH(int, mode);
    QFETCH(double, threshold);
    QFETCH(double, minimum);
    QFETCH(QVector<double>, loads);
    QVERIFY2(set(static_cast<Mode>(mode), threshold, minimum), qPrintable(m_error));
    for (const double load : loads)
        m_fixture->settle(load);
    QTEST(transferred(), "transferred");
}

void tst_AutomaticTransfer::offTransfersNothing()
{
    m_fixture->settle(100.0);
    QVERIFY(set(Mode::Absolute, 5.0));
    QVERIFY(set(Mode::Off, 0.0));
    m_fixture->settle(0.0);
    m_fixture->settle(100.0);
    QCOMPARE(transferred(), QString());
    QVERIFY(!transfer().detector()->isActive());
}

void tst_AutomaticTransfer::weightThatIsStableAlreadySetsTheBand()
{
    m_fixture->settle(100.0);
    QVERIFY(set(Mode::Absolute, 5.0));
    QCOMPARE(transfer().detector()->state(), int(LoadChange::Watching));
    QCOMPARE(transfer().detector()->bandLow(), 950);
    QCOMPARE(transfer().detector()->bandHigh(), 1050);
}

void tst_AutomaticTransfer::tareDoesNotTransfer()
{
    QVERIFY(set(Mode::Absolute, 5.0));
    m_fixture->settle(100.0);
    QVERIFY(m_fixture->host->weighing().tare());
    QCOMPARE(transferred(), QStringLiteral("100.0"));
    m_fixture->settle(300.0);
    QCOMPARE(transferred(), QStringLiteral("100.0 200.0"));
}

void tst_AutomaticTransfer::driftTransfersWithoutAnUnstableTime()
{
    QVERIFY(set(Mode::Absolute, 0.5));
    m_fixture->settle(100.0);
    QCOMPARE(transferred(), QStringLiteral("100.0"));
    for (double grams = 100.0; grams < 100.65; grams += 0.005)
        m_fixture->feed(grams);
    QVERIFY(m_fixture->scale.isStable());
    QCOMPARE(transferred(), QStringLiteral("100.0 100.6"));
}

void tst_AutomaticTransfer::aPulledCableNeverTriggers_data()
{
    QTest::addColumn<Reading::Status>("status");
    QTest::addColumn<int>("mode");
    for (const auto mode : {Mode::Absolute, Mode::Percent, Mode::AbsoluteFixed, Mode::PercentFixed}) {
        const QByteArray name = AutomaticTransferSettings::nameOf(mode).toUtf8();
        QTest::newRow("cable out, " + name) << Reading::Status::Disconnected << int(mode);
        QTest::newRow("unreadable, " + name) << Reading::Status::Unreadable << int(mode);
        QTest::newRow("overload, " + name) << Reading::Status::Overload << int(mode);
        QTest::newRow("underload, " + name) << Reading::Status::Underload << int(mode);
    }
}

void tst_AutomaticTransfer::aPulledCableNeverTriggers()
{
    QFETCH(Reading::Status, status);
    QFETCH(int, mode);
    QVERIFY(set(static_cast<Mode>(mode), 10.0));
    m_fixture->settle(500.0);
    QCOMPARE(transfer().detector()->state(), int(LoadChange::Watching));
    const QString before = transferred();
    QSignalSpy triggered(transfer().detector(), &LoadChange::NotifyLoadChangedTriggerd);
    for (int i = 0; i < 30; ++i)
        m_fixture->fail(status);
    QCOMPARE(triggered.count(), 0);
    QCOMPARE(transfer().detector()->state(), int(LoadChange::Watching));
    QCOMPARE(transferred(), before);
    // The same load as before is no change.
    m_fixture->settle(500.0);
    QCOMPARE(triggered.count(), 0);
    // That the detector is alive shows the next one.
    m_fixture->settle(0.0);
    QCOMPARE(triggered.count(), 1);
}

void tst_AutomaticTransfer::newSettingsBeginAnew()
{
    QVERIFY(set(Mode::Absolute, 5.0));
    m_fixture->settle(100.0);
    QCOMPARE(transfer().decision(), QStringLiteral("100.0 g transferred"));
    QSignalSpy spy(&transfer(), &AutomaticTransfer::settingsChanged);
    QVERIFY(set(Mode::Percent, 5.0));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(transfer().decision(), QString());
    QCOMPARE(transfer().detector()->mode(), ILoadChange::Percent);
    m_fixture->settle(0.0);
    QCOMPARE(transfer().decision(), QStringLiteral("0.0 g not transferred: not above the minimum load"));
}

void tst_AutomaticTransfer::leftToTheApplication()
{
    bool detects = true;
    transfer().setApplicationDetects([&detects] { return detects; });
    QVERIFY(!transfer().isLeftToApplication()); // it is off
    QVERIFY(set(Mode::Absolute, 5.0));
    QVERIFY(transfer().isLeftToApplication());
    m_fixture->settle(100.0);
    QCOMPARE(transferred(), QString());
    QCOMPARE(transfer().decision(), QStringLiteral("100.0 g left to the application"));
    // The load that lies there is not made up for.
    detects = false;
    m_fixture->settle(100.0);
    QCOMPARE(transferred(), QString());
    m_fixture->settle(200.0);
    QCOMPARE(transferred(), QStringLiteral("200.0"));
}

void tst_AutomaticTransfer::withoutAnOutputTheReasonIsTold()
{
    m_fixture->host->setOutput(1, nullptr);
    QVERIFY(set(Mode::Absolute, 5.0));
    m_fixture->settle(100.0);
    QCOMPARE(transferred(), QString());
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("no output")).size(), 1);
}

QTEST_GUILESS_MAIN(tst_AutomaticTransfer)
#include "tst_automatictransfer.moc"
