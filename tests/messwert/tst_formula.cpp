// SPDX-License-Identifier: BSD-3-Clause
#include "Formula.h"
#include "LogRecorder.h"

#include <QtTest>

#include <cmath>
#include <memory>

using namespace Brimvale;

// The largest relative departures from CIPM-2007 over 0 to 40 °C, 0 to 100 % and 600 to 1100 hPa, as the header states.
constexpr double ExactLimit = 7e-4;
constexpr double ApproximateLimit = 1.4e-2;

namespace
{

/// Air density in g/cm³ by the CIPM-2007 equation (Picard, Davis, Gläser, Fujii: Metrologia 45 (2008) 149), with
/// 400 µmol/mol of carbon dioxide, for which the molar mass of dry air is 28.96546 g/mol.
double cipm2007(double celsius, double humidityPercent, double pressureHectopascal)
{
    const double temperature = celsius + 273.15;
    const double pressure = pressureHectopascal * 100.0;
    const double saturation = std::exp(1.2378847e-5 * temperature * temperature - 1.9121316e-2 * temperature
                                       + 33.93711047 - 6.3431645e3 / temperature);
    const double enhancement = 1.00062 + 3.14e-8 * pressure + 5.6e-7 * celsius * celsius;
    const double vapourFraction = humidityPercent / 100.0 * enhancement * saturation / pressure;
    const double compressibility =
        1.0
        - pressure / temperature
              * (1.58123e-6 - 2.9331e-8 * celsius + 1.1043e-10 * celsius * celsius
                 + (5.707e-6 - 2.051e-8 * celsius) * vapourFraction
                 + (1.9898e-4 - 2.376e-6 * celsius) * vapourFraction * vapourFraction)
        + pressure * pressure / (temperature * temperature)
              * (1.83e-11 - 0.765e-8 * vapourFraction * vapourFraction);
    const double density = pressure * 28.96546e-3 / (compressibility * 8.314472 * temperature)
                           * (1.0 - vapourFraction * (1.0 - 18.01528e-3 / 28.96546e-3));
    return density / 1000.0;
}

} // namespace

class TestFormula : public QObject
{
    Q_OBJECT

private slots:
    void airDensity_data();
    void airDensity();
    void departureFromCipm2007();
    void constants();
    void correctionFactor();
    void destructorWritesItsLine();
};

void TestFormula::airDensity_data()
{
    QTest::addColumn<double>("temperature");
    QTest::addColumn<double>("humidity");
    QTest::addColumn<double>("pressure");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("exact");
    QTest::addColumn<double>("approximate");
    QTest::newRow("room, seven places") << 20.0 << 50.0 << 1013.25 << 7 << 0.0011988 << 0.0011993;
    QTest::newRow("room, four places") << 20.0 << 50.0 << 1013.25 << 4 << 0.0012 << 0.0012;
    QTest::newRow("absolute zero") << -273.15 << 50.0 << 1013.25 << 7 << -1.0 << -1.0;
    QTest::newRow("near absolute zero counts as it") << -273.1501 << 50.0 << 1013.25 << 7 << -1.0 << -1.0;
    // All of it would be vapour.
    QTest::newRow("no pressure") << 20.0 << 50.0 << 0.0 << 7 << -1.0 << -0.0000051;
    QTest::newRow("dry air at zero degrees") << 0.0 << 0.0 << 1013.25 << 7 << 0.0012922 << 0.0012926;
}

void TestFormula::airDensity()
{
    QFETCH(double, temperature);
    QFETCH(double, humidity);
    QFETCH(double, pressure);
    QFETCH(int, decimals);
    QFETCH(double, exact);
    QFETCH(double, approximate);
    Formula formula(nullptr);
    // Rounding adds 1e-14.
    QVERIFY2(std::fabs(formula.AirDensityExact(temperature, humidity, pressure, decimals) - exact) < 1e-12,
             qPrintable(QString::number(formula.AirDensityExact(temperature, humidity, pressure, decimals),
                                        'g', 17)));
    QVERIFY2(std::fabs(formula.AirDensityNIST(temperature, humidity, pressure, decimals) - approximate)
                 < 1e-12,
             qPrintable(QString::number(formula.AirDensityNIST(temperature, humidity, pressure, decimals),
                                        'g', 17)));
    // The pole of the vapour pressure is one of the exact formula only.
    QCOMPARE(formula.AirDensityExact(-241.2, humidity, pressure, decimals), -1.0);
    QVERIFY(formula.AirDensityNIST(-241.2, humidity, pressure, decimals) > 0.0);
}

void TestFormula::departureFromCipm2007()
{
    Formula formula(nullptr);
    double exactDeparture = 0.0;
    double approximateDeparture = 0.0;
    for (int celsius = 0; celsius <= 40; ++celsius) {
        for (int humidity = 0; humidity <= 100; humidity += 5) {
            for (int pressure = 600; pressure <= 1100; pressure += 20) {
                const double reference = cipm2007(celsius, humidity, pressure);
                exactDeparture =
                    std::max(exactDeparture,
                             std::fabs(formula.AirDensityExact(celsius, humidity, pressure, 12) - reference)
                                 / reference);
                approximateDeparture =
                    std::max(approximateDeparture,
                             std::fabs(formula.AirDensityNIST(celsius, humidity, pressure, 12) - reference)
                                 / reference);
            }
        }
    }
    qInfo("largest departure from CIPM-2007: exact formula %.3g, approximation %.3g", exactDeparture,
          approximateDeparture);
    // What the header states; both sides, so that neither text nor formula can drift.
    QVERIFY(exactDeparture < ExactLimit && exactDeparture > 0.9 * ExactLimit);
    QVERIFY(approximateDeparture < ApproximateLimit && approximateDeparture > 0.9 * ApproximateLimit);
}

void TestFormula::constants()
{
    Formula formula(nullptr);
    QCOMPARE(formula.AirDensityStandard(), 0.0012);
    QCOMPARE(formula.SteelDensityOfStandardCalWeight(), 8.0);
}

void TestFormula::correctionFactor()
{
    Formula formula(nullptr);
    QCOMPARE(formula.AirDensity_CalWeight_CorrectionFactor(0.0012), 1.0 - 0.0012 / 8.0);
    QCOMPARE(formula.AirDensity_CalWeight_CorrectionFactor(0.0012), 0.99985);
    QCOMPARE(formula.AirDensity_CalWeight_CorrectionFactor(0.0), 1.0);
}

void TestFormula::destructorWritesItsLine()
{
    for (const QsLogging::Level level : {QsLogging::TraceLevel, QsLogging::DebugLevel}) {
        const LogRecorder log(level);
        auto formula = std::make_unique<Formula>(nullptr);
        const QString address = QStringLiteral("0x%1").arg(quintptr(formula.get()), 0, 16);
        formula.reset();
        const QString line =
            QStringLiteral("TRACE Running destructor ->  Brimvale::Formula(%1) ").arg(address);
        QCOMPARE(log.lines(), level == QsLogging::TraceLevel ? QStringList(line) : QStringList());
    }
}

QTEST_APPLESS_MAIN(TestFormula)
#include "tst_formula.moc"
