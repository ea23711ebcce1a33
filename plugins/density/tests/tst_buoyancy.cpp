// SPDX-License-Identifier: BSD-3-Clause
#include "Buoyancy.h"
#include "Parameters.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(Brimvale::MesswertData)

using namespace Brimvale;

namespace
{

const double NotANumber = std::numeric_limits<double>::quiet_NaN();

MesswertData reading(double value, int decimals, int reduction = 0)
{
    MesswertData data;
    data.value = value;
    data.decimals = decimals;
    data.resolutionReduction = reduction;
    data.messwert = QString::number(value, 'f', qMax(0, decimals - reduction));
    data.unit = QStringLiteral("g");
    data.isStable = true;
    return data;
}

} // namespace

/// The arithmetic of the correction, and the values that are entered.
class TestBuoyancy : public QObject
{
    Q_OBJECT

private slots:
    void airDensity_data();
    void airDensity();
    void factor_data();
    void factor();
    void corrected_data();
    void corrected();
    void keepsTheMarks();
    void noWeight_data();
    void noWeight();
    void range_data();
    void range();
    void step_data();
    void step();
    void texts();
    void keepsValues();
    void storedValues_data();
    void storedValues();
    void fileThatCannotBeWritten();
};

void TestBuoyancy::airDensity_data()
{
    QTest::addColumn<double>("temperature");
    QTest::addColumn<double>("humidity");
    QTest::addColumn<double>("pressure");
    QTest::addColumn<bool>("exact");
    QTest::addColumn<QString>("expected");
    QTest::newRow("room, exact") << 20.0 << 50.0 << 1013.25 << true << "1.1988";
    QTest::newRow("room, approximate") << 20.0 << 50.0 << 1013.25 << false << "1.1993";
    QTest::newRow("cold, dry, thin; exact") << 0.0 << 0.0 << 600.0 << true << "0.7652";
    QTest::newRow("cold, dry, thin; approximate") << 0.0 << 0.0 << 600.0 << false << "0.7654";
    QTest::newRow("hot, wet, dense; exact") << 40.0 << 100.0 << 1100.0 << true << "1.1927";
    QTest::newRow("hot, wet, dense; approximate") << 40.0 << 100.0 << 1100.0 << false << "1.1984";
}

void TestBuoyancy::airDensity()
{
    QFETCH(double, temperature);
    QFETCH(double, humidity);
    QFETCH(double, pressure);
    QFETCH(bool, exact);
    Parameters parameters;
    QVERIFY(parameters.setValue(Parameters::Temperature, temperature));
    QVERIFY(parameters.setValue(Parameters::Humidity, humidity));
    QVERIFY(parameters.setValue(Parameters::Pressure, pressure));
    parameters.setExact(exact);
    QTEST(QString::number(Buoyancy::airDensity(parameters), 'f', 4), "expected");
}

void TestBuoyancy::factor_data()
{
    QTest::addColumn<double>("air");
    QTest::addColumn<double>("sample");
    QTest::addColumn<double>("weights");
    QTest::addColumn<QString>("expected");
    QTest::newRow("water") << 1.2 << 1000.0 << 8000.0 << "1.001051262";
    QTest::newRow("like the weights") << 1.2 << 8000.0 << 8000.0 << "1.000000000";
    QTest::newRow("gold") << 1.2 << 19300.0 << 8000.0 << "0.999912171";
    QTest::newRow("vacuum") << 0.0 << 1000.0 << 8000.0 << "1.000000000";
    QTest::newRow("no air density") << -1.0 << 1000.0 << 8000.0 << "0.000000000";
    QTest::newRow("air density not a number") << NotANumber << 1000.0 << 8000.0 << "0.000000000";
    QTest::newRow("as light as air") << 1.2 << 1.2 << 8000.0 << "0.000000000";
    QTest::newRow("lighter than air") << 1.2 << 0.2 << 8000.0 << "0.000000000";
    QTest::newRow("weights lighter than air") << 1.2 << 1000.0 << 0.5 << "0.000000000";
}

void TestBuoyancy::factor()
{
    QFETCH(double, air);
    QFETCH(double, sample);
    QFETCH(double, weights);
    QTEST(QString::number(Buoyancy::factor(air, sample, weights), 'f', 9), "expected");
}

void TestBuoyancy::corrected_data()
{
    QTest::addColumn<MesswertData>("data");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("corrected");
    QTest::addColumn<QString>("correction");
    QTest::newRow("larger") << reading(1000.0, 1) << 1.00105 << "1001.1"
                            << "+1.1";
    QTest::newRow("smaller") << reading(1000.0, 1) << 0.9999 << "999.9"
                             << "-0.1";
    QTest::newRow("too little to be seen") << reading(10.0, 1) << 1.00105 << "10.0"
                                           << "0.0";
    QTest::newRow("negative") << reading(-1000.0, 1) << 1.00105 << "-1001.1"
                              << "-1.1";
    QTest::newRow("zero") << reading(0.0, 2) << 1.00105 << "0.00"
                          << "0.00";
    QTest::newRow("negative zero") << reading(-0.0, 2) << 1.00105 << "0.00"
                                   << "0.00";
    QTest::newRow("many decimals") << reading(1.00000, 5) << 1.00105 << "1.00105"
                                   << "+0.00105";
    QTest::newRow("no decimals") << reading(2000.0, 0) << 1.00105 << "2002"
                                 << "+2";
    QTest::newRow("last digit taken off") << reading(1000.0, 2, 1) << 1.00105 << "1001.1"
                                          << "+1.1";
    QTest::newRow("half away from zero") << reading(0.5, 0) << 1.0 << "1"
                                         << "+1";
}

void TestBuoyancy::corrected()
{
    QFETCH(MesswertData, data);
    QFETCH(double, factor);
    const MesswertData result = Buoyancy::corrected(data, factor);
    QVERIFY(result.isValid);
    QVERIFY(result.isCalculated);
    QTEST(result.messwert, "corrected");
    QCOMPARE(result.value, result.messwert.toDouble());
    QTEST(Buoyancy::correction(data, result), "correction");
}

void TestBuoyancy::keepsTheMarks()
{
    MesswertData data = reading(100.0, 1);
    data.net = true;
    data.isPresetTare = true;
    data.tareValue = 5.0;
    data.unit = QStringLiteral("ct");
    const MesswertData result = Buoyancy::corrected(data, 1.001);
    QVERIFY(result.net && result.isPresetTare && result.isStable);
    QCOMPARE(result.unit, QStringLiteral("ct"));
    QCOMPARE(result.tareValue, 5.0);
}

void TestBuoyancy::noWeight_data()
{
    QTest::addColumn<MesswertData>("data");
    QTest::addColumn<double>("factor");
    MesswertData data = reading(1.0, 1);
    data.isValid = false;
    QTest::newRow("not valid") << data << 1.001;
    data = reading(1.0, 1);
    data.errorText = QStringLiteral("Overload");
    QTest::newRow("error") << data << 1.001;
    data = reading(1.0, 1);
    data.messwert = QStringLiteral("OF");
    QTest::newRow("does not fit the display") << data << 1.001;
    data = reading(1.0, 1);
    data.value = NotANumber;
    QTest::newRow("not a number") << data << 1.001;
    QTest::newRow("does not fit when corrected") << reading(985000.0, 2) << 1.0244;
    QTest::newRow("no factor") << reading(1.0, 1) << 0.0;
}

void TestBuoyancy::noWeight()
{
    QFETCH(MesswertData, data);
    QFETCH(double, factor);
    const MesswertData result = Buoyancy::corrected(data, factor);
    QVERIFY(!result.isValid);
    QVERIFY(!result.isCalculated);
    QCOMPARE(result.messwert, data.messwert);
    QCOMPARE(result.errorText, data.errorText);
}

void TestBuoyancy::range_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("coldest") << int(Parameters::Temperature) << 0.0 << true;
    QTest::newRow("too cold") << int(Parameters::Temperature) << -0.1 << false;
    QTest::newRow("hottest") << int(Parameters::Temperature) << 40.0 << true;
    QTest::newRow("too hot") << int(Parameters::Temperature) << 40.1 << false;
    QTest::newRow("rounded into the range") << int(Parameters::Temperature) << 40.04 << true;
    QTest::newRow("dry") << int(Parameters::Humidity) << 0.0 << true;
    QTest::newRow("wettest") << int(Parameters::Humidity) << 100.0 << true;
    QTest::newRow("too wet") << int(Parameters::Humidity) << 101.0 << false;
    QTest::newRow("lowest pressure") << int(Parameters::Pressure) << 600.0 << true;
    QTest::newRow("pressure too low") << int(Parameters::Pressure) << 599.99 << false;
    QTest::newRow("pressure too high") << int(Parameters::Pressure) << 1100.01 << false;
    QTest::newRow("sample too light") << int(Parameters::SampleDensity) << 49.9 << false;
    QTest::newRow("heaviest sample") << int(Parameters::SampleDensity) << 23000.0 << true;
    QTest::newRow("weights too light") << int(Parameters::WeightsDensity) << 999.9 << false;
    QTest::newRow("not a number") << int(Parameters::Temperature) << NotANumber << false;
    QTest::newRow("infinite") << int(Parameters::Pressure) << std::numeric_limits<double>::infinity()
                              << false;
}

void TestBuoyancy::range()
{
    QFETCH(int, id);
    QFETCH(double, value);
    QFETCH(bool, accepted);
    Parameters parameters;
    const QString before = parameters.text(id);
    QCOMPARE(parameters.setValue(id, value), accepted);
    if (!accepted) {
        QCOMPARE(parameters.text(id), before);
    }
}

void TestBuoyancy::step_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("up");
    QTest::addColumn<QString>("top");
    QTest::addColumn<QString>("bottom");
    QTest::newRow("temperature") << int(Parameters::Temperature) << "20.5"
                                 << "40.0"
                                 << "0.0";
    QTest::newRow("humidity") << int(Parameters::Humidity) << "51"
                              << "100"
                              << "0";
    QTest::newRow("pressure") << int(Parameters::Pressure) << "1014.25"
                              << "1100.00"
                              << "600.00";
    QTest::newRow("sample") << int(Parameters::SampleDensity) << "1010.0"
                            << "23000.0"
                            << "50.0";
    QTest::newRow("weights") << int(Parameters::WeightsDensity) << "8010.0"
                             << "23000.0"
                             << "1000.0";
}

void TestBuoyancy::step()
{
    QFETCH(int, id);
    Parameters parameters;
    parameters.step(id, 1);
    QTEST(parameters.text(id), "up");
    for (int i = 0; i < 3000; ++i) {
        parameters.step(id, 1);
    }
    QTEST(parameters.text(id), "top");
    for (int i = 0; i < 3000; ++i) {
        parameters.step(id, -1);
    }
    QTEST(parameters.text(id), "bottom");
}

void TestBuoyancy::texts()
{
    const Parameters parameters;
    QCOMPARE(parameters.text(Parameters::Pressure), QStringLiteral("1013.25"));
    QCOMPARE(parameters.rangeText(Parameters::Temperature), QStringLiteral("0.0 – 40.0 °C"));
    QCOMPARE(parameters.unit(Parameters::WeightsDensity), QStringLiteral("kg/m³"));
    QCOMPARE(parameters.text(Parameters::WeightsDensity), QStringLiteral("8000.0"));
}

void TestBuoyancy::keepsValues()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("density.ini"));
    Parameters parameters;
    QVERIFY(parameters.setValue(Parameters::Temperature, 23.4));
    QVERIFY(parameters.setValue(Parameters::Pressure, 987.65));
    parameters.setExact(false);
    QVERIFY(parameters.save(file));
    Parameters again;
    QVERIFY(again.load(file));
    for (int id = 0; id < Parameters::Count; ++id) {
        QCOMPARE(again.text(id), parameters.text(id));
    }
    QVERIFY(!again.isExact());
}

void TestBuoyancy::storedValues_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("well");
    QTest::addColumn<QString>("temperature");
    QTest::newRow("nothing") << QByteArray() << true << "20.0";
    QTest::newRow("some") << QByteArray("[General]\ntemperature=25.5\n") << true << "25.5";
    QTest::newRow("out of range") << QByteArray("[General]\ntemperature=99\nhumidity=30\n") << false
                                  << "20.0";
    QTest::newRow("no number") << QByteArray("[General]\ntemperature=warm\n") << false << "20.0";
    QTest::newRow("decimal comma") << QByteArray("[General]\ntemperature=\"21,5\"\n") << false << "20.0";
    QTest::newRow("unknown formula") << QByteArray("[General]\ntemperature=21\nformula=best\n") << false
                                     << "21.0";
    QTest::newRow("no INI file") << QByteArray("[General\ntemperature 25\n") << false << "20.0";
}

void TestBuoyancy::storedValues()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, well);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("density.ini")));
    if (!content.isEmpty()) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
    }
    Parameters parameters;
    QCOMPARE(parameters.load(file.fileName()), well);
    QTEST(parameters.text(Parameters::Temperature), "temperature");
    if (content.contains("humidity=30")) {
        QCOMPARE(parameters.text(Parameters::Humidity), QStringLiteral("30")); // what is good is taken
    }
}

void TestBuoyancy::fileThatCannotBeWritten()
{
    QTemporaryDir folder;
    QFile inTheWay(folder.filePath(QStringLiteral("file")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QVERIFY(!Parameters().save(inTheWay.fileName() + QStringLiteral("/density.ini")));
}

QTEST_GUILESS_MAIN(TestBuoyancy)
#include "tst_buoyancy.moc"
