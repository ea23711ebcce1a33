// SPDX-License-Identifier: BSD-3-Clause
#include "SeriesExport.h"
#include "SeriesPlot.h"
#include "WeighingSeries.h"

#include <QTemporaryDir>
#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(Brimvale::MesswertData)

using namespace Brimvale;

namespace
{

MesswertData reading(double value, int decimals, const char* unit = "g")
{
    MesswertData data;
    data.value = value;
    data.decimals = decimals;
    data.messwert = QString::number(value, 'f', decimals);
    data.unit = QString::fromUtf8(unit);
    data.isStable = true;
    return data;
}

QDateTime time(int seconds)
{
    return QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5, 6), Qt::UTC).addSecs(seconds);
}

WeighingSeries series(const QVector<double>& values, int decimals = 1)
{
    WeighingSeries series;
    for (double value : values) {
        series.append(WeighingSeries::weighing(reading(value, decimals), time(series.count())));
    }
    return series;
}

QString figureText(const StatisticsValue& figure)
{
    return figure.valid ? WeighingSeries::text(figure) : QStringLiteral("none");
}

} // namespace

/// The arithmetic of a series, its plot and its files.
class TestWeighingSeries : public QObject
{
    Q_OBJECT

private slots:
    void weighingOfAReading_data();
    void weighingOfAReading();
    void noWeighingOfAReading_data();
    void noWeighingOfAReading();
    void text_data();
    void text();
    void figures_data();
    void figures();
    void figuresSayWhatTheyAre();
    void fullSeries();
    void finerReadingsMakeTheSeriesFiner();
    void plotOfNothing();
    void plot_data();
    void plot();
    void plotShowsTheNewest();
    void csv();
    void csvQuotesUnits();
    void figuresAreReadBack();
    void exportsAreNumbered();
    void exportThatFails_data();
    void exportThatFails();
};

void TestWeighingSeries::weighingOfAReading_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<qint64>("digits");
    QTest::addColumn<int>("komma");
    QTest::newRow("grams") << 36.4 << 1 << 0 << qint64(364) << 1;
    QTest::newRow("negative") << -0.05 << 2 << 0 << qint64(-5) << 2;
    QTest::newRow("zero") << 0.0 << 1 << 0 << qint64(0) << 1;
    QTest::newRow("binary fraction") << 1.005 << 3 << 0 << qint64(1005) << 3;
    QTest::newRow("last digit taken off") << 12.3 << 2 << 1 << qint64(123) << 1;
    QTest::newRow("reduced to tens") << 1230.0 << 0 << 1 << qint64(1230) << 0;
    QTest::newRow("largest") << 1e12 << 0 << 0 << qint64(1000000000000) << 0;
}

void TestWeighingSeries::weighingOfAReading()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(int, reduction);
    MesswertData data = reading(value, decimals);
    data.resolutionReduction = reduction;
    const StatisticsValue weighing = WeighingSeries::weighing(data, time(0));
    QVERIFY(weighing.valid);
    QTEST(qint64(weighing.value), "digits");
    QTEST(weighing.komma, "komma");
    QCOMPARE(weighing.unit, QStringLiteral("g"));
    QCOMPARE(weighing.timestamp, time(0));
}

void TestWeighingSeries::noWeighingOfAReading_data()
{
    QTest::addColumn<MesswertData>("data");
    MesswertData data = reading(1.0, 1);
    data.isValid = false;
    QTest::newRow("not valid") << data;
    data = reading(1.0, 1);
    data.errorText = QStringLiteral("Overload");
    QTest::newRow("error") << data;
    data = reading(1.0, 1);
    data.messwert = QStringLiteral("OF");
    QTest::newRow("does not fit the display") << data;
    data = reading(1.0, 1);
    data.messwert.clear();
    QTest::newRow("no text") << data;
    data = reading(1.0, 1);
    data.value = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("not a number") << data;
    data = reading(1.0, 1);
    data.value = -std::numeric_limits<double>::infinity();
    QTest::newRow("infinite") << data;
    QTest::newRow("beyond the largest") << reading(2e12, 0);
}

void TestWeighingSeries::noWeighingOfAReading()
{
    QFETCH(MesswertData, data);
    QVERIFY(!WeighingSeries::weighing(data, time(0)).valid);
}

void TestWeighingSeries::text_data()
{
    QTest::addColumn<qint64>("digits");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole") << qint64(12) << 0 << "12";
    QTest::newRow("fraction") << qint64(1234) << 2 << "12.34";
    QTest::newRow("leading zeros") << qint64(5) << 3 << "0.005";
    QTest::newRow("negative") << qint64(-5) << 1 << "-0.5";
    QTest::newRow("zero") << qint64(0) << 2 << "0.00";
}

void TestWeighingSeries::text()
{
    QFETCH(qint64, digits);
    QFETCH(int, decimals);
    QTEST(WeighingSeries::text(digits, decimals), "expected");
}

void TestWeighingSeries::figures_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QString>("mean");
    QTest::addColumn<QString>("deviation");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("maximum");
    QTest::newRow("nothing") << QVector<double>() << "none"
                             << "none"
                             << "none"
                             << "none";
    QTest::newRow("one has no deviation") << QVector<double>{10.5} << "10.50"
                                          << "none"
                                          << "10.5"
                                          << "10.5";
    QTest::newRow("equal ones") << QVector<double>{2.5, 2.5, 2.5} << "2.50"
                                << "0.00"
                                << "2.5"
                                << "2.5";
    QTest::newRow("textbook") << QVector<double>{2, 4, 4, 4, 5, 5, 7, 9} << "5.00" // s² = 32 / 7
                              << "2.14"
                              << "2.0"
                              << "9.0";
    QTest::newRow("mean rounded up") << QVector<double>{0.1, 0.1, 0.0} << "0.07"
                                     << "0.06"
                                     << "0.0"
                                     << "0.1";
    QVector<double> half(20, 0.0); // of which the mean is 0.015
    half[3] = half[8] = half[15] = 0.1;
    QTest::newRow("half away from zero") << half << "0.02"
                                         << "0.04"
                                         << "0.0"
                                         << "0.1";
    half[3] = half[8] = half[15] = -0.1;
    QTest::newRow("negative half away from zero") << half << "-0.02"
                                                  << "0.04"
                                                  << "-0.1"
                                                  << "0.0";
    QTest::newRow("negative") << QVector<double>{-10.0, -20.0} << "-15.00"
                              << "7.07"
                              << "-20.0"
                              << "-10.0";
    // Far from zero and close together, where a difference of sums of squares has no digits left.
    QTest::newRow("large and close") << QVector<double>{99999999999.0, 99999999999.1, 99999999999.2}
                                     << "99999999999.10"
                                     << "0.10"
                                     << "99999999999.0"
                                     << "99999999999.2";
}

void TestWeighingSeries::figures()
{
    QFETCH(QVector<double>, values);
    const SeriesFigures figures = series(values).figures();
    QCOMPARE(figures.count.value, static_cast<long long>(values.size()));
    QTEST(figureText(figures.mean), "mean");
    QTEST(figureText(figures.deviation), "deviation");
    QTEST(figureText(figures.minimum), "minimum");
    QTEST(figureText(figures.maximum), "maximum");
}

void TestWeighingSeries::figuresSayWhatTheyAre()
{
    const SeriesFigures figures = series({3.0, 1.0, 2.0}).figures();
    QCOMPARE(figures.mean.unit, QStringLiteral("g"));
    QCOMPARE(int(figures.mean.flags), int(StatisticsValue::Calculated));
    QCOMPARE(figures.mean.timestamp, time(2));
    QCOMPARE(int(figures.minimum.flags), int(StatisticsValue::Extreme));
    QCOMPARE(figures.minimum.timestamp, time(1));
    QCOMPARE(figures.maximum.timestamp, time(0));
    QCOMPARE(figures.count.unit, QString());
}

void TestWeighingSeries::fullSeries()
{
    // The largest digits, as often as there is place: the sums must not overflow.
    WeighingSeries full;
    for (int i = 0; i < WeighingSeries::MaximumCount; ++i) {
        QVERIFY(!full.isFull());
        full.append(WeighingSeries::weighing(reading(i % 2 == 0 ? 1e12 : 1e12 - 2, 0), time(i)));
    }
    QVERIFY(full.isFull());
    const SeriesFigures figures = full.figures();
    QCOMPARE(WeighingSeries::text(figures.count), QStringLiteral("100000"));
    QCOMPARE(WeighingSeries::text(figures.mean), QStringLiteral("999999999999.0"));
    QCOMPARE(WeighingSeries::text(figures.deviation), QStringLiteral("1.0"));
    QCOMPARE(WeighingSeries::text(figures.minimum), QStringLiteral("999999999998"));
}

void TestWeighingSeries::finerReadingsMakeTheSeriesFiner()
{
    WeighingSeries mixed = series({1.5});
    mixed.append(WeighingSeries::weighing(reading(2.255, 3), time(1)));
    QCOMPARE(mixed.decimals(), 3);
    QCOMPARE(WeighingSeries::text(mixed.figures().minimum), QStringLiteral("1.500"));
    QCOMPARE(WeighingSeries::text(mixed.figures().mean), QStringLiteral("1.8775"));
    mixed.removeLast();
    QCOMPARE(mixed.decimals(), 1);
    QCOMPARE(WeighingSeries::text(mixed.figures().mean), QStringLiteral("1.50"));
    mixed.removeLast();
    mixed.removeLast(); // nothing is left
    QCOMPARE(mixed.count(), 0);
    QCOMPARE(mixed.unit(), QString());
}

void TestWeighingSeries::plotOfNothing()
{
    const SeriesPlot plot{WeighingSeries()};
    QVERIFY(plot.points.isEmpty());
    QVERIFY(plot.ticks.isEmpty());
    QVERIFY(plot.mean < 0.0);
    QVERIFY(plot.bandTop < 0.0);
    QCOMPARE(plot.firstNumber, 0);
}

void TestWeighingSeries::plot_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QString>("ticks");
    QTest::addColumn<bool>("band");
    QTest::newRow("one") << QVector<double>{10.0} << "9.9 10.0 10.1" << false;
    QTest::newRow("equal") << QVector<double>{10.0, 10.0} << "9.9 10.0 10.1" << true;
    QTest::newRow("wide") << QVector<double>{0.0, 1000.0} << "-500.0 0.0 500.0 1000.0 1500.0" << true;
    QTest::newRow("negative") << QVector<double>{-3.0, -1.0} << "-4.0 -3.0 -2.0 -1.0 0.0" << true;
    QTest::newRow("around zero") << QVector<double>{-0.1, 0.1} << "-0.4 -0.2 0.0 0.2 0.4" << true;
}

void TestWeighingSeries::plot()
{
    QFETCH(QVector<double>, values);
    const SeriesPlot plot(series(values));
    QStringList ticks;
    double before = 2.0;
    for (const QVariant& tick : plot.ticks) {
        const QVariantMap map = tick.toMap();
        ticks.append(map.value(QStringLiteral("text")).toString());
        const double height = map.value(QStringLiteral("height")).toDouble();
        QVERIFY(height < before);
        before = height;
    }
    QTEST(ticks.join(QLatin1Char(' ')), "ticks");
    QTEST(plot.bandTop >= 0.0, "band");
    QCOMPARE(plot.points.size(), values.size());
    for (const QVariant& point : plot.points) {
        QVERIFY(point.toDouble() > 0.0 && point.toDouble() < 1.0); // inside, never on the edge
    }
    QVERIFY(plot.mean > 0.0 && plot.mean < 1.0);
    if (plot.bandTop >= 0.0) {
        QVERIFY(plot.bandTop <= plot.mean);
        QVERIFY(plot.bandBottom <= 1.0 && plot.bandBottom >= plot.mean);
    }
}

void TestWeighingSeries::plotShowsTheNewest()
{
    QVector<double> values(SeriesPlot::MaximumPoints + 5, 1.0);
    values.first() = 1000.0; // no longer shown, but in the mean
    values.last() = 2.0;
    const SeriesPlot plot(series(values));
    QCOMPARE(plot.points.size(), SeriesPlot::MaximumPoints);
    QCOMPARE(plot.firstNumber, 6);
    QCOMPARE(plot.lastNumber, 65);
    QVERIFY(plot.points.last().toDouble() < plot.points.first().toDouble()); // higher up
    QVERIFY(plot.mean < plot.points.last().toDouble());
}

void TestWeighingSeries::csv()
{
    QCOMPARE(SeriesExport::csv(WeighingSeries()), QStringLiteral("number,time,value,unit\n"));
    QCOMPARE(SeriesExport::csv(series({36.4, -0.5})), QStringLiteral("number,time,value,unit\n"
                                                                     "1,2026-01-02T03:04:05.006Z,36.4,g\n"
                                                                     "2,2026-01-02T03:04:06.006Z,-0.5,g\n"));
}

void TestWeighingSeries::csvQuotesUnits()
{
    WeighingSeries odd;
    odd.append(WeighingSeries::weighing(reading(1.0, 1, "a,\"b\""), time(0)));
    QVERIFY(SeriesExport::csv(odd).endsWith(QStringLiteral(",1.0,\"a,\"\"b\"\"\"\n")));
}

void TestWeighingSeries::figuresAreReadBack()
{
    const WeighingSeries weighed = series({1.0, 2.0});
    const QStringList lines = SeriesExport::figures(weighed).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.at(1).startsWith(QStringLiteral("name=\"mean\" value=\"150\" komma=\"2\" unit=\"g\"")));
    StatisticsValue mean(0, 0, QString(), StatisticsValue::NoFlag, QDateTime(), true);
    mean.SetFromString(lines.at(1));
    QCOMPARE(mean.value, 150LL);
    QCOMPARE(mean.komma, 2);
    QCOMPARE(mean.unit, QStringLiteral("g"));
    // What does not exist is left out.
    QCOMPARE(SeriesExport::figures(series({1.0})).count(QLatin1Char('\n')), 4);
}

void TestWeighingSeries::exportsAreNumbered()
{
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("a/b"));
    SeriesExport files;
    QVERIFY(files.write(series({1.0}), target));
    QCOMPARE(files.fileName(), target + QStringLiteral("/series-1.csv"));
    QVERIFY(files.write(series({1.0, 2.0}), target));
    QCOMPARE(files.fileName(), target + QStringLiteral("/series-2.csv"));
    const QStringList names = QDir(target).entryList(QDir::Files, QDir::Name);
    const QStringList expected = {QStringLiteral("series-1.csv"), QStringLiteral("series-1.txt"),
                                  QStringLiteral("series-2.csv"), QStringLiteral("series-2.txt")};
    QCOMPARE(names, expected);
    QFile file(files.fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), SeriesExport::csv(series({1.0, 2.0})));
}

void TestWeighingSeries::exportThatFails_data()
{
    QTest::addColumn<bool>("folderIsAFile");
    QTest::newRow("folder cannot be made") << true;
    QTest::newRow("second file cannot be written") << false;
}

void TestWeighingSeries::exportThatFails()
{
    QFETCH(bool, folderIsAFile);
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("export"));
    if (folderIsAFile) {
        QFile file(target);
        QVERIFY(file.open(QIODevice::WriteOnly));
    } else {
        QVERIFY(QDir().mkpath(target + QStringLiteral("/series-1.txt.part"))); // where the file would be
    }
    SeriesExport files;
    QVERIFY(!files.write(series({1.0}), target));
    QVERIFY2(files.error().contains(target), qPrintable(files.error()));
    QCOMPARE(files.fileName(), QString());
    QCOMPARE(QDir(target).entryList(QDir::Files), QStringList()); // no half export
}

QTEST_GUILESS_MAIN(TestWeighingSeries)
#include "tst_weighingseries.moc"
