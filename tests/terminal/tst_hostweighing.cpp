// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "ISystemRegister.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::Terminal;

Q_DECLARE_METATYPE(Brimvale::Terminal::Reading::Status)

/// The scale as plug-ins see it: registers, measured values, signals, tare and zero.
class tst_HostWeighing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void registersAreInDigits();
    void measuredValue();
    void unstableValue();
    void netValue();
    void presetTare();
    void tareRegister();
    void upperLimit();
    void coarseRange();
    void unitAndDecimals();

    void aFaultIsNeverAWeight_data();
    void aFaultIsNeverAWeight();
    void beforeTheFirstReading();
    void unknownRegister();
    void unknownUnit();
    void unitIsAnyOfTheScale();
    void gramsForComputers();
    void unitChangeIsAnnounced();
    void currentRegisterBeforeTheFirstReading();

    void everyReadingIsAnnouncedOnce();
    void aStableValueIsAnnouncedInDigits();
    void anOperationAnnouncesTheChangedValue();
    void theValueIsThereWhenItIsAnnounced();
    void refusalsAreReported();
    void clearingNoTareIsRefused();
    void aThrowingReceiverIsReportedOnce();

private:
    Host& host() { return *m_fixture->host; }
    ISystem& system() { return host().system(); }
    double digits(int registerNumber)
    {
        return system().GetSystemRegister()->GetRegisterValue(registerNumber);
    }
    MesswertData value(int registerNumber)
    {
        return system().GetRegisterValueProvider()->GetMesswert(system().GetCurrentUnit(), registerNumber);
    }

    std::unique_ptr<HostFixture> m_fixture;
};

void tst_HostWeighing::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_fixture->settle(0.0);
}

void tst_HostWeighing::cleanup()
{
    m_fixture.reset();
}

void tst_HostWeighing::registersAreInDigits()
{
    m_fixture->settle(100.0);
    QVERIFY(system().GetWeighing()->Tare());
    m_fixture->settle(136.4);
    QCOMPARE(digits(72), 1364.0);
    QCOMPARE(digits(73), 1000.0);
    QCOMPARE(digits(74), 364.0);
    QCOMPARE(digits(90), 60000.0);
    QCOMPARE(digits(1), 0.0);
    QCOMPARE(system().GetDecimals(), 1);
}

void tst_HostWeighing::measuredValue()
{
    m_fixture->settle(36.4);
    const MesswertData data = value(ISystemRegister::CurrentRegister);
    MesswertData expected(QStringLiteral("36.4"), QStringLiteral("g"), QStringLiteral("g"), QString(), 1, 0,
                          0, 1, 0, 36.4, 0.0, true, false, true, false, false, false, false, 74);
    QCOMPARE(data.messwert, expected.messwert);
    QVERIFY(expected.isEqual(&data));
}

void tst_HostWeighing::unstableValue()
{
    m_fixture->settle(36.4);
    m_fixture->feed(50.0);
    const MesswertData data = value(ISystemRegister::CurrentRegister);
    QCOMPARE(data.messwert, QStringLiteral("50.0"));
    QCOMPARE(data.stabilityValue, int(RegisterValueProvider::Unstable));
    QVERIFY(!data.isStable);
    QVERIFY(data.isValid);
}

void tst_HostWeighing::netValue()
{
    m_fixture->settle(100.0);
    QVERIFY(system().GetWeighing()->Tare());
    m_fixture->settle(90.0);
    const MesswertData net = value(ISystemRegister::CurrentRegister);
    QCOMPARE(net.messwert, QStringLiteral("-10.0"));
    QCOMPARE(net.value, -10.0);
    QCOMPARE(net.tareValue, 100.0);
    QVERIFY(net.net);
    QVERIFY(!net.isPresetTare);
    const MesswertData gross = value(ISystemRegister::GrossRegister);
    QCOMPARE(gross.messwert, QStringLiteral("90.0"));
    QVERIFY(!gross.net);
    QCOMPARE(gross.registerNumber, 72);
}

void tst_HostWeighing::presetTare()
{
    QVERIFY(m_fixture->scale.presetTare(12.5));
    const MesswertData data = value(ISystemRegister::CurrentRegister);
    QCOMPARE(data.messwert, QStringLiteral("-12.5"));
    QVERIFY(data.isPresetTare);
    QVERIFY(data.net);
}

void tst_HostWeighing::tareRegister()
{
    m_fixture->settle(100.0);
    QVERIFY(system().GetWeighing()->Tare());
    m_fixture->fail(Reading::Status::Overload);
    const MesswertData data = value(ISystemRegister::TareRegister);
    QCOMPARE(data.messwert, QStringLiteral("100.0"));
    QCOMPARE(data.errorText, QString());
    QVERIFY(data.isValid);
    QCOMPARE(data.stabilityValue, int(RegisterValueProvider::NoIndicator));
}

void tst_HostWeighing::upperLimit()
{
    const MesswertData data = value(ISystemRegister::UpperLimitRegister);
    QCOMPARE(data.messwert, QStringLiteral("6000.0"));
    QCOMPARE(data.value, 6000.0);
}

void tst_HostWeighing::coarseRange()
{
    m_fixture->settle(4000.0);
    QVERIFY(value(ISystemRegister::CurrentRegister).isGrobRange);
    QCOMPARE(value(ISystemRegister::CurrentRegister).rangeNumber, 1);
    QCOMPARE(system().GetRangeSwitch()->getCurrentRange(), 1);
    m_fixture->settle(100.0);
    QVERIFY(!value(ISystemRegister::CurrentRegister).isGrobRange);
    QCOMPARE(system().GetRangeSwitch()->getCurrentRange(), 0);
}

void tst_HostWeighing::unitAndDecimals()
{
    QCOMPARE(system().GetCurrentUnit(), int(Units::Gram));
    QCOMPARE(value(ISystemRegister::CurrentRegister).decimals, 1);
    QCOMPARE(value(ISystemRegister::CurrentRegister).resolutionReduction, 0);
    QCOMPARE(value(ISystemRegister::CurrentRegister).eichDigit, 0);
}

void tst_HostWeighing::aFaultIsNeverAWeight_data()
{
    QTest::addColumn<Reading::Status>("status");
    QTest::addColumn<QString>("errorText");
    QTest::addColumn<bool>("overload");
    QTest::newRow("overload") << Reading::Status::Overload << "Overload" << true;
    QTest::newRow("underload") << Reading::Status::Underload << "Underload" << false;
    QTest::newRow("unreadable") << Reading::Status::Unreadable << "Unreadable" << false;
    QTest::newRow("no connection") << Reading::Status::Disconnected << "No connection" << false;
}

void tst_HostWeighing::aFaultIsNeverAWeight()
{
    QFETCH(Reading::Status, status);
    QFETCH(QString, errorText);
    QFETCH(bool, overload);
    m_fixture->settle(36.4);
    m_fixture->fail(status);
    for (const int number : {72, 74}) {
        const MesswertData data = value(number);
        QCOMPARE(data.errorText, errorText);
        QCOMPARE(data.messwert, QString());
        QVERIFY(std::isnan(data.value));
        QVERIFY(!data.isValid);
        QVERIFY(!data.isStable);
        QCOMPARE(data.stabilityValue, int(RegisterValueProvider::NoIndicator));
        QCOMPARE(data.isOverload, overload);
    }
    QVERIFY(std::isnan(digits(72)));
    // The register keeps what was measured last: a load-change detector would take no number as 0.
    QCOMPARE(digits(74), 364.0);
    // And it passes.
    m_fixture->feed(36.4);
    QCOMPARE(value(74).messwert, QStringLiteral("36.4"));
    QCOMPARE(value(74).errorText, QString());
}

void tst_HostWeighing::beforeTheFirstReading()
{
    HostFixture fresh;
    const MesswertData data =
        fresh.host->system().GetRegisterValueProvider()->GetMesswert(0, ISystemRegister::CurrentRegister);
    QCOMPARE(data.errorText, QStringLiteral("No connection"));
    QVERIFY(!data.isValid);
}

void tst_HostWeighing::unknownRegister()
{
    const MesswertData data = value(5);
    QCOMPARE(data.errorText, QStringLiteral("Register 5 is not available"));
    QVERIFY(!data.isValid);
    QVERIFY(std::isnan(data.value));
    QCOMPARE(data.registerNumber, 5);
}

void tst_HostWeighing::unitIsAnyOfTheScale()
{
    m_fixture->settle(36.4);
    QVERIFY(m_fixture->host->units().setMainUnit(QStringLiteral("kg")));
    QCOMPARE(system().GetCurrentUnit(), 2);
    QCOMPARE(value(74).messwert, QStringLiteral("0.0364"));
    QCOMPARE(value(74).unit, QStringLiteral("kg"));
    QCOMPARE(value(74).decimals, 4);
    const MesswertData carat = system().GetRegisterValueProvider()->GetMesswert(8, 74);
    QCOMPARE(carat.messwert, QStringLiteral("182.0"));
    QCOMPARE(carat.unit, QStringLiteral("ct"));
    m_fixture->fail(Reading::Status::Overload);
    QCOMPARE(value(74).unit, QStringLiteral("kg"));
    QCOMPARE(value(74).messwert, QString());
}

void tst_HostWeighing::gramsForComputers()
{
    m_fixture->settle(4000.0); // the coarse range
    ApprovalSettings approval;
    approval.reducedDigits = 1;
    approval.auxiliaryDigit = true;
    m_fixture->host->units().setApproval(approval);
    m_fixture->host->units().setMainUnit(QStringLiteral("kg"));
    const MesswertData data = m_fixture->host->registerValues().grams(ISystemRegister::CurrentRegister);
    QCOMPARE(data.messwert, QStringLiteral("4000.0"));
    QCOMPARE(data.unit, QStringLiteral("g"));
    QCOMPARE(data.decimals, 1);
    QCOMPARE(data.resolutionReduction, 0);
    QCOMPARE(data.eichDigit, 0);
    QCOMPARE(data.value, 4000.0);
    m_fixture->fail(Reading::Status::Overload);
    QCOMPARE(m_fixture->host->registerValues().grams(ISystemRegister::CurrentRegister).messwert, QString());
}

void tst_HostWeighing::unitChangeIsAnnounced()
{
    m_fixture->settle(36.4);
    QSignalSpy spy(&m_fixture->host->weighing(), &Weighing::NotifyNewMeasurementValue);
    m_fixture->host->units().setMainUnit(QStringLiteral("kg"));
    QCOMPARE(spy.count(), 1);
}

void tst_HostWeighing::currentRegisterBeforeTheFirstReading()
{
    HostFixture fresh;
    QVERIFY(std::isnan(fresh.host->system().GetSystemRegister()->GetRegisterValue(74)));
}

void tst_HostWeighing::unknownUnit()
{
    const MesswertData data = system().GetRegisterValueProvider()->GetMesswert(16, 74);
    QCOMPARE(data.errorText, QStringLiteral("Unit 16 is not available"));
    QVERIFY(!data.isValid);
}

void tst_HostWeighing::everyReadingIsAnnouncedOnce()
{
    QSignalSpy announced(&host().weighing(), &Weighing::NotifyNewMeasurementValue);
    m_fixture->feed(50.0); // becomes unstable: a change of state besides the reading
    m_fixture->feed(50.0);
    m_fixture->fail(Reading::Status::Overload);
    m_fixture->fail(Reading::Status::Overload);
    m_fixture->feed(50.0);
    QCOMPARE(announced.count(), 5);
}

void tst_HostWeighing::aStableValueIsAnnouncedInDigits()
{
    QSignalSpy loads(&host().weighing(), &Weighing::NotifyLoadChanged);
    m_fixture->settle(36.4);
    QCOMPARE(loads.count(), 1);
    QCOMPARE(loads.at(0).at(0).toInt(), m_fixture->scale.stableCounter());
    QCOMPARE(loads.at(0).at(1).toDouble(), 364.0);
}

void tst_HostWeighing::anOperationAnnouncesTheChangedValue()
{
    m_fixture->settle(100.0);
    QSignalSpy announced(&host().weighing(), &Weighing::NotifyNewMeasurementValue);
    QVERIFY(system().GetWeighing()->Tare());
    QCOMPARE(announced.count(), 1);
    QVERIFY(system().GetWeighing()->ClearTare());
    QCOMPARE(announced.count(), 2);
    QVERIFY(system().GetWeighing()->Zero());
    QCOMPARE(announced.count(), 3);
    QCOMPARE(digits(74), 0.0);
    QVERIFY(m_fixture->notices.isEmpty());
}

void tst_HostWeighing::theValueIsThereWhenItIsAnnounced()
{
    QStringList seen;
    connect(&host().weighing(), &Weighing::NotifyNewMeasurementValue, this,
            [&] { seen.append(value(ISystemRegister::CurrentRegister).messwert); });
    m_fixture->feed(10.0);
    m_fixture->feed(20.0);
    QCOMPARE(seen, (QStringList{QStringLiteral("10.0"), QStringLiteral("20.0")}));
}

void tst_HostWeighing::refusalsAreReported()
{
    m_fixture->settle(36.4);
    m_fixture->feed(80.0);
    QVERIFY(!system().GetWeighing()->Tare());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: ") + m_fixture->scale.lastRefusalText()});
    QVERIFY(!m_fixture->scale.lastRefusalText().isEmpty());
    QVERIFY(!system().GetWeighing()->Zero());
    QCOMPARE(m_fixture->notices.size(), 2);
    QCOMPARE(digits(73), 0.0);
}

void tst_HostWeighing::clearingNoTareIsRefused()
{
    QVERIFY(!system().GetWeighing()->ClearTare());
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("warning: There is no tare to clear.")});
}

void tst_HostWeighing::aThrowingReceiverIsReportedOnce()
{
    QObject receiver;
    connect(&host().weighing(), &Weighing::NotifyNewMeasurementValue, &receiver,
            [] { throw std::runtime_error("cannot count"); });
    m_fixture->feed(10.0);
    m_fixture->feed(20.0);
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("error: The application failed while it took in a new "
                                        "weight: std::runtime_error: cannot count")});
    // The scale went on.
    QCOMPARE(digits(74), 200.0);
}

QTEST_GUILESS_MAIN(tst_HostWeighing)

#include "tst_hostweighing.moc"
