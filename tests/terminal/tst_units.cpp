// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "source/SimulatedSource.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

class tst_Units : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void offered_data();
    void offered();
    void keyStepsThroughWhatIsOffered();
    void smallDisplaySteps();
    void choiceIsOfThoseOffered();
    void choiceComesBackWithTheMode();
    void permissionKeepsTheCarat();
    void nothingIsOffered();
    void enabledUnits();
    void decimalsChangeWhatThereIs();
    void numbersAreThoseOfTheUnits();
    void converted_data();
    void converted();
    void overflow();
    void restoredChoice();
    void approvalIsLimited();
    void tellsOfAChange();

private:
    ApprovalSettings approval(bool unitsOnly, bool carat = false, int minimumDecimals = 0) const
    {
        ApprovalSettings settings;
        settings.approvedUnitsOnly = unitsOnly;
        settings.caratAllowed = carat;
        settings.minimumDecimals = minimumDecimals;
        return settings;
    }
    Units& units() { return m_fixture->host->units(); }
    QString names() { return units().offered().join(QLatin1Char(' ')); }

    std::unique_ptr<HostFixture> m_fixture;
};

void tst_Units::init()
{
    m_fixture = std::make_unique<HostFixture>();
}

void tst_Units::offered_data()
{
    QTest::addColumn<bool>("unitsOnly");
    QTest::addColumn<bool>("carat");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("names");
    QTest::newRow("not approved") << false << false << 0
                                  << "bht C.M. ct dwt g GN kg lb mom oz ozt tlh tls tlt tola";
    QTest::newRow("approved") << true << false << 0 << "g kg";
    QTest::newRow("approved with carat") << true << true << 0 << "ct g kg";
    QTest::newRow("two decimals") << true << false << 2 << "kg";
    QTest::newRow("two decimals with carat") << true << true << 2 << "ct kg";
    QTest::newRow("decimals alone restrict nothing")
        << false << false << 7 << "bht C.M. ct dwt g GN kg lb mom oz ozt tlh tls tlt tola";
}

void tst_Units::offered()
{
    QFETCH(bool, unitsOnly);
    QFETCH(bool, carat);
    QFETCH(int, decimals);
    QFETCH(QString, names);
    units().setApproval(approval(unitsOnly, carat, decimals));
    QCOMPARE(this->names(), names);
}

void tst_Units::keyStepsThroughWhatIsOffered()
{
    units().setApproval(approval(true, true));
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        shown.append(units().mainUnit());
        units().stepMainUnit();
    }
    QCOMPARE(shown.join(QLatin1Char(' ')), QStringLiteral("g kg ct g"));
}

void tst_Units::smallDisplaySteps()
{
    units().setApproval(approval(true, true));
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        shown.append(units().smallUnit());
        units().stepSmallUnit();
    }
    QCOMPARE(shown.join(QLatin1Char(',')), QStringLiteral(",ct,kg,"));
}

void tst_Units::choiceIsOfThoseOffered()
{
    units().setApproval(approval(true));
    QVERIFY(!units().setMainUnit(QStringLiteral("ct")));
    QVERIFY(!units().setSmallUnit(QStringLiteral("ct")));
    QCOMPARE(units().mainUnit(), QStringLiteral("g"));
    QVERIFY(units().setMainUnit(QStringLiteral("kg")));
    QVERIFY(units().setSmallUnit(QStringLiteral("g")));
    QCOMPARE(units().mainUnit(), QStringLiteral("kg"));
    QCOMPARE(units().smallUnit(), QStringLiteral("g"));
    QVERIFY(units().setSmallUnit(QString()));
    QCOMPARE(units().smallUnit(), QString());
}

void tst_Units::choiceComesBackWithTheMode()
{
    QVERIFY(units().setMainUnit(QStringLiteral("lb")));
    QVERIFY(units().setSmallUnit(QStringLiteral("oz")));
    units().setApproval(approval(true));
    QCOMPARE(units().mainUnit(), QStringLiteral("g"));
    QCOMPARE(units().smallUnit(), QString());
    QCOMPARE(units().chosenMainUnit(), QStringLiteral("lb"));
    units().setApproval(approval(true, false, 2));
    QCOMPARE(units().mainUnit(), QStringLiteral("kg")); // not even the gram is offered
    units().setApproval(ApprovalSettings());
    QCOMPARE(units().mainUnit(), QStringLiteral("lb"));
    QCOMPARE(units().smallUnit(), QStringLiteral("oz"));
}

void tst_Units::permissionKeepsTheCarat()
{
    QVERIFY(units().setMainUnit(QStringLiteral("ct")));
    units().setApproval(approval(true, true));
    QCOMPARE(units().mainUnit(), QStringLiteral("ct"));
    units().setApproval(approval(true, false));
    QCOMPARE(units().mainUnit(), QStringLiteral("g"));
}

void tst_Units::nothingIsOffered()
{
    units().setApproval(approval(true, false, 7));
    QCOMPARE(names(), QString());
    QCOMPARE(units().mainUnit(), QStringLiteral("g"));
    units().stepMainUnit();
    units().stepSmallUnit();
    QCOMPARE(units().mainUnit(), QStringLiteral("g"));
    QCOMPARE(units().smallUnit(), QString());
}

void tst_Units::enabledUnits()
{
    QString unknown;
    units().setEnabledUnits(Units::enableMask({QStringLiteral("kg"), QStringLiteral("g")}, &unknown));
    QCOMPARE(names(), QStringLiteral("g kg"));
    units().setEnabledUnits(0);
    QCOMPARE(units().offered().size(), 15);
    QCOMPARE(Units::enableMask({QStringLiteral("kg"), QStringLiteral("KG")}, &unknown), 0);
    QCOMPARE(unknown, QStringLiteral("KG"));
    QCOMPARE(Units::enableMask(Units::allNames(), &unknown), int(Units::AllUnits));
}

void tst_Units::decimalsChangeWhatThereIs()
{
    HostCallLog calls;
    ApprovedMode mode(calls, 0);
    Scale scale; // it takes its readability from its source
    SimulationSettings settings;
    settings.readability = *Readability::fromDecimals(3);
    VirtualClock clock;
    SimulatedSource source(clock, settings);
    Units units(mode, scale);
    QVERIFY(!units.offered().contains(QStringLiteral("mg")));
    units.restore(QStringLiteral("mg"), QString());
    QCOMPARE(units.mainUnit(), QStringLiteral("g"));
    scale.setSource(&source);
    QCOMPARE(units.mainUnit(), QStringLiteral("mg"));
    QVERIFY(units.offered().contains(QStringLiteral("mg")));
    scale.setSource(nullptr);
}

void tst_Units::numbersAreThoseOfTheUnits()
{
    QCOMPARE(units().currentNumber(), int(Units::Gram));
    QVERIFY(units().setMainUnit(QStringLiteral("bht")));
    QCOMPARE(units().currentNumber(), 15);
    QCOMPARE(units().nameOf(15), QStringLiteral("bht"));
    QCOMPARE(units().nameOf(1), QString()); // no milligram with one decimal place
    QCOMPARE(units().nameOf(16), QString());
    QCOMPARE(units().nameOf(-1), QString());
}

void tst_Units::converted_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("coarse");
    QTest::addColumn<int>("reduced");
    QTest::addColumn<bool>("auxiliary");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("framed");
    QTest::addColumn<int>("reduction");
    // 1234.0 g
    QTest::newRow("gram") << "g" << false << 0 << false << "1234.0" << 0 << 0;
    QTest::newRow("kilogram") << "kg" << false << 0 << false << "1.2340" << 0 << 0;
    QTest::newRow("pound") << "lb" << false << 0 << false << "2.7205" << 0 << 0;
    QTest::newRow("grain") << "GN" << false << 0 << false << "19044" << 0 << 0;
    QTest::newRow("carat, in steps of five") << "ct" << false << 0 << false << "6170.0" << 0 << 0;
    QTest::newRow("coarse range") << "g" << true << 0 << false << "1234" << 0 << 0;
    QTest::newRow("one digit reduced") << "kg" << false << 1 << false << "1.234" << 0 << 1;
    QTest::newRow("no more reduced than there is") << "g" << false << 3 << false << "1234" << 0 << 1;
    QTest::newRow("last digit not verified") << "kg" << false << 0 << true << "1.2340" << 1 << 0;
    QTest::newRow("not verified and left out") << "kg" << false << 1 << true << "1.234" << 0 << 1;
}

void tst_Units::converted()
{
    QFETCH(QString, unit);
    QFETCH(bool, coarse);
    QFETCH(int, reduced);
    QFETCH(bool, auxiliary);
    ApprovalSettings settings;
    settings.reducedDigits = reduced;
    settings.auxiliaryDigit = auxiliary;
    units().setApproval(settings);
    const MesswertData data = units().converted(12340.0, unit, coarse);
    QTEST(data.messwert, "text");
    QCOMPARE(data.unit, unit);
    QCOMPARE(data.isGrobRange, coarse);
    QTEST(data.eichDigit, "framed");
    QTEST(data.resolutionReduction, "reduction");
    QVERIFY(data.errorText.isEmpty());
}

void tst_Units::overflow()
{
    const MesswertData data = units().converted(999999999.0, QStringLiteral("lb"), false);
    QCOMPARE(data.messwert, Units::overflowText());
    QCOMPARE(data.unit, QString());
}

void tst_Units::restoredChoice()
{
    units().restore(QStringLiteral("kg"), QStringLiteral("lb"));
    QCOMPARE(units().mainUnit(), QStringLiteral("kg"));
    QCOMPARE(units().smallUnit(), QStringLiteral("lb"));
    units().restore(QStringLiteral("stone"), QStringLiteral("furlong"));
    QCOMPARE(units().mainUnit(), QStringLiteral("kg"));
    QCOMPARE(units().smallUnit(), QStringLiteral("lb"));
}

void tst_Units::approvalIsLimited()
{
    ApprovalSettings settings;
    settings.minimumDecimals = 99;
    settings.reducedDigits = -4;
    units().setApproval(settings);
    QCOMPARE(units().approval().minimumDecimals, int(ApprovalSettings::MaximumDecimals));
    QCOMPARE(units().approval().reducedDigits, 0);
}

void tst_Units::tellsOfAChange()
{
    QSignalSpy spy(&units(), &Units::changed);
    units().setApproval(ApprovalSettings());
    QCOMPARE(spy.count(), 0);
    units().setApproval(approval(true));
    QCOMPARE(spy.count(), 1);
    units().stepMainUnit();
    QCOMPARE(spy.count(), 2);
    units().setSmallUnit(QStringLiteral("g"));
    QCOMPARE(spy.count(), 3);
    QVERIFY(!units().setMainUnit(QStringLiteral("lb")));
    QCOMPARE(spy.count(), 3);
}

QTEST_GUILESS_MAIN(tst_Units)
#include "tst_units.moc"
