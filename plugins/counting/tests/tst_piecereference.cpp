// SPDX-License-Identifier: BSD-3-Clause
#include "CountingSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <MesswertData.h>
#include <cmath>
#include <limits>

namespace
{

ShownWeight grams(const char* text)
{
    ShownWeight weight;
    if (!ShownWeight::fromText(QString::fromUtf8(text), &weight)) {
        qFatal("%s is no weight", text);
    }
    return weight;
}

PieceReference reference(const char* weight, int parts)
{
    return PieceReference(grams(weight), parts);
}

} // namespace

/// Counts, their accuracy, the target, and what is kept.
class TestPieceReference : public QObject
{
    Q_OBJECT

private slots:
    void shownWeight_data();
    void shownWeight();
    void weightText_data();
    void weightText();
    void validity_data();
    void validity();
    void counts_data();
    void counts();
    void uncertaintyFollowsItsFormula();
    void rightUpTo_data();
    void rightUpTo();
    void rightUpToIsTheLargestRightCount_data();
    void rightUpToIsTheLargestRightCount();
    void partsNeeded_data();
    void partsNeeded();
    void partsNeededAreTheFewest_data();
    void partsNeededAreTheFewest();
    void check_data();
    void check();
    void ranges_data();
    void ranges();
    void keeps_data();
    void keeps();
    void reads_data();
    void reads();
};

void TestPieceReference::shownWeight_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("reduction");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("text");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("tenths") << 53.2 << 1 << 0 << true << "53.2";
    QTest::newRow("whole grams") << 53.0 << 0 << 0 << true << "53";
    QTest::newRow("milligrams") << 53.201 << 3 << 0 << true << "53.201";
    QTest::newRow("tenths of a milligram") << 0.0003 << 4 << 0 << true << "0.0003";
    QTest::newRow("a digit is left out") << 53.2 << 2 << 1 << true << "53.2";
    QTest::newRow("more left out than there are") << 53.0 << 1 << 3 << true << "53";
    QTest::newRow("finer than shown") << 53.24 << 1 << 0 << true << "53.2";
    QTest::newRow("negative") << -53.2 << 1 << 0 << true << "-53.2";
    QTest::newRow("without a weight") << 53.2 << 1 << 0 << false << "0.0";
    QTest::newRow("no number") << nan << 1 << 0 << true << "0.0";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0 << 0 << true
                              << "1000000000000000";
    QTest::newRow("more decimals than any scale has") << 1.0 << 40 << 0 << true << "1.000000000";
}

void TestPieceReference::shownWeight()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(int, reduction);
    QFETCH(bool, valid);
    Brimvale::MesswertData reading;
    reading.value = value;
    reading.decimals = decimals;
    reading.resolutionReduction = reduction;
    reading.isValid = valid;
    QTEST(ShownWeight::ofGrams(reading).toText(), "text");
}

void TestPieceReference::weightText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("well");
    QTest::newRow("tenths") << "53.2" << true;
    QTest::newRow("zero at the end") << "53.20" << true;
    QTest::newRow("whole") << "53" << true;
    QTest::newRow("nine decimals") << "0.000000001" << true;
    QTest::newRow("ten decimals") << "0.0000000001" << false;
    QTest::newRow("word") << "heavy" << false;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("decimal comma") << "53,2" << false;
    QTest::newRow("no number") << "nan" << false;
    QTest::newRow("infinite") << "inf" << false;
    QTest::newRow("too large") << "1000000000000001" << false;
}

void TestPieceReference::weightText()
{
    QFETCH(QString, text);
    QFETCH(bool, well);
    ShownWeight weight;
    QCOMPARE(ShownWeight::fromText(text, &weight), well);
    QCOMPARE(weight.toText(), well ? text : QStringLiteral("0")); // unchanged
}

void TestPieceReference::validity_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::addColumn<bool>("valid");
    QTest::newRow("ten parts") << "53.2" << 10 << true;
    QTest::newRow("one increment") << "0.1" << 1 << true;
    QTest::newRow("nothing on the scale") << "0.0" << 10 << false;
    QTest::newRow("negative") << "-53.2" << 10 << false;
    QTest::newRow("no parts") << "53.2" << 0 << false;
    QTest::newRow("negative parts") << "53.2" << -10 << false;
}

void TestPieceReference::validity()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    QTEST(PieceReference(grams(qPrintable(weight)), parts).isValid(), "valid");
    QVERIFY(!PieceReference().isValid());
}

void TestPieceReference::counts_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::addColumn<QString>("net");
    QTest::addColumn<int>("pieces");
    QTest::addColumn<bool>("tooMany");
    QTest::newRow("the reference") << "53.2" << 10 << "53.2" << 10 << false;
    QTest::newRow("empty") << "53.2" << 10 << "0.0" << 0 << false;
    QTest::newRow("below a half") << "10.0" << 10 << "2.4" << 2 << false;
    QTest::newRow("half up") << "10.0" << 10 << "2.5" << 3 << false;
    QTest::newRow("half of an even number") << "10.0" << 10 << "1.5" << 2 << false;
    QTest::newRow("half down when negative") << "10.0" << 10 << "-2.5" << -3 << false;
    QTest::newRow("half a piece") << "10.0" << 10 << "0.5" << 1 << false;
    QTest::newRow("half that no binary fraction is") << "0.3" << 3 << "0.15" << 2 << false;
    QTest::newRow("just below it") << "0.3" << 3 << "0.14" << 1 << false;
    QTest::newRow("half of thirds") << "0.7" << 7 << "0.45" << 5 << false;
    QTest::newRow("fine reference, coarse weight") << "5.3201" << 1 << "53" << 10 << false;
    QTest::newRow("coarse reference, fine weight") << "53" << 10 << "53.0049" << 10 << false;
    QTest::newRow("negative net") << "53.2" << 10 << "-53.2" << -10 << false;
    QTest::newRow("largest count") << "0.001" << 1 << "999999.999" << 999999999 << false;
    QTest::newRow("one more") << "0.001" << 1 << "1000000.000" << 999999999 << true;
    QTest::newRow("far more") << "0.000000001" << 9999 << "1000000" << 999999999 << true;
    QTest::newRow("far less") << "0.000000001" << 9999 << "-1000000" << -999999999 << true;
}

void TestPieceReference::counts()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    QFETCH(QString, net);
    const PieceCount count = PieceReference(grams(qPrintable(weight)), parts).count(grams(qPrintable(net)));
    QTEST(count.pieces, "pieces");
    QTEST(count.isTooMany, "tooMany");
}

void TestPieceReference::uncertaintyFollowsItsFormula()
{
    // 2 d / √6 = 0.0816497 g; with N = 100, n = 10: √(100² + 10²) · 0.0816497 g / 5.0 g
    QVERIFY(std::abs(reference("5.0", 10).uncertainty(100.0, 1) - 1.64114) < 1e-5);
    // Weighed in whole grams: √((100 · 0.0816497)² + (10 · 0.816497)²) / 5.0
    QVERIFY(std::abs(reference("5.0", 10).uncertainty(100.0, 0) - 2.30940) < 1e-5);
    QCOMPARE(reference("5.0", 10).uncertainty(-100.0, 1), reference("5.0", 10).uncertainty(100.0, 1));
}

void TestPieceReference::rightUpTo_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("pieces");
    QTest::newRow("light parts") << "5.0" << 10 << 1 << 28;
    QTest::newRow("heavier parts") << "53.2" << 10 << 1 << 325;
    QTest::newRow("more parts") << "50.0" << 100 << 1 << 289;
    QTest::newRow("counted in the coarse range") << "53.2" << 10 << 0 << 310;
    QTest::newRow("a piece of one increment") << "1.0" << 10 << 1 << 0;
    QTest::newRow("a piece below one increment") << "0.1" << 10 << 1 << 0;
    QTest::newRow("one heavy piece") << "5000.0" << 1 << 1 << 30618;
    QTest::newRow("no end to it") << "9000000.000" << 1 << 3 << 999999999;
}

void TestPieceReference::rightUpTo()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    QFETCH(int, decimals);
    QTEST(PieceReference(grams(qPrintable(weight)), parts).rightUpTo(decimals), "pieces");
}

void TestPieceReference::rightUpToIsTheLargestRightCount_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::newRow("light parts") << "5.0" << 10;
    QTest::newRow("heavy parts") << "812.7" << 20;
    QTest::newRow("milligrams") << "1.234" << 5;
    QTest::newRow("very light parts") << "2.4" << 10;
}

void TestPieceReference::rightUpToIsTheLargestRightCount()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    const ShownWeight shown = grams(qPrintable(weight));
    const PieceReference reference(shown, parts);
    const int pieces = reference.rightUpTo(shown.decimals);
    QVERIFY(pieces > 0);
    QVERIFY(reference.uncertainty(pieces, shown.decimals) < 0.5);
    QVERIFY(reference.uncertainty(pieces + 1, shown.decimals) >= 0.5);
}

void TestPieceReference::partsNeeded_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("pieces");
    QTest::addColumn<int>("needed");
    QTest::newRow("for a hundred") << "5.0" << 10 << 100 << 35;
    QTest::newRow("for ten times that") << "5.0" << 10 << 1000 << 346;
    QTest::newRow("heavy parts") << "530.0" << 10 << 100 << 1;
    QTest::newRow("as many as are counted") << "23.2" << 100 << 100 << 100;
    QTest::newRow("too light: more than are counted") << "23.0" << 100 << 100 << 0;
    QTest::newRow("too light: no number is enough") << "16.0" << 100 << 100 << 0;
    QTest::newRow("far too light") << "0.1" << 10 << 100 << 0;
    QTest::newRow("the largest count") << "5.0" << 10 << PieceReference::LargestCount << 345547370;
}

void TestPieceReference::partsNeeded()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    QFETCH(int, pieces);
    QTEST(PieceReference(grams(qPrintable(weight)), parts).partsNeeded(pieces, 1), "needed");
}

void TestPieceReference::partsNeededAreTheFewest_data()
{
    rightUpToIsTheLargestRightCount_data();
}

void TestPieceReference::partsNeededAreTheFewest()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    const ShownWeight shown = grams(qPrintable(weight));
    const int needed = PieceReference(shown, parts).partsNeeded(5000, shown.decimals);
    QVERIFY(needed > 1);
    const auto error = [&](int more) {
        // The same piece weight, from as many parts.
        ShownWeight scaled = shown;
        scaled.increments = shown.increments / parts * more;
        return PieceReference(scaled, more).uncertainty(5000.0, shown.decimals);
    };
    QVERIFY(error(needed) < 0.5);
    QVERIFY(error(needed - 1) >= 0.5);
}

// Target -----------------------------------------------------------------------------------------------------------

void TestPieceReference::check_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<int>("pieces");
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("difference");
    const int most = PieceReference::LargestCount;
    QTest::newRow("no target") << 0 << 2 << 100 << int(CountingSettings::NoTarget) << 0;
    QTest::newRow("under") << 100 << 2 << 97 << int(CountingSettings::Under) << 3;
    QTest::newRow("lower end") << 100 << 2 << 98 << int(CountingSettings::Reached) << 0;
    QTest::newRow("exact") << 100 << 0 << 100 << int(CountingSettings::Reached) << 0;
    QTest::newRow("upper end") << 100 << 2 << 102 << int(CountingSettings::Reached) << 0;
    QTest::newRow("over") << 100 << 2 << 103 << int(CountingSettings::Over) << 3;
    QTest::newRow("one under without tolerance") << 100 << 0 << 99 << int(CountingSettings::Under) << 1;
    QTest::newRow("one over without tolerance") << 100 << 0 << 101 << int(CountingSettings::Over) << 1;
    QTest::newRow("negative count") << 100 << 0 << -5 << int(CountingSettings::Under) << 105;
    QTest::newRow("tolerance above the target") << 5 << 10 << 0 << int(CountingSettings::Reached) << 0;
    QTest::newRow("difference beyond the largest count")
        << most << 0 << -most << int(CountingSettings::Under) << most;
}

void TestPieceReference::check()
{
    QFETCH(int, target);
    QFETCH(int, tolerance);
    QFETCH(int, pieces);
    CountingSettings settings;
    QVERIFY(settings.setValue(CountingSettings::Target, target));
    QVERIFY(settings.setValue(CountingSettings::Tolerance, tolerance));
    QTEST(int(settings.check(pieces)), "found");
    QTEST(settings.difference(pieces), "difference");
}

// Settings ---------------------------------------------------------------------------------------------------------

void TestPieceReference::ranges_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("one part") << int(CountingSettings::Parts) << 1 << true;
    QTest::newRow("no part") << int(CountingSettings::Parts) << 0 << false;
    QTest::newRow("most parts") << int(CountingSettings::Parts) << 9999 << true;
    QTest::newRow("too many parts") << int(CountingSettings::Parts) << 10000 << false;
    QTest::newRow("no target") << int(CountingSettings::Target) << 0 << true;
    QTest::newRow("negative target") << int(CountingSettings::Target) << -1 << false;
    QTest::newRow("largest target") << int(CountingSettings::Target) << 999999999 << true;
    QTest::newRow("too large a target") << int(CountingSettings::Target) << 1000000000 << false;
    QTest::newRow("no tolerance") << int(CountingSettings::Tolerance) << 0 << true;
    QTest::newRow("negative tolerance") << int(CountingSettings::Tolerance) << -1 << false;
    QTest::newRow("too large a tolerance") << int(CountingSettings::Tolerance) << 1000000 << false;
}

void TestPieceReference::ranges()
{
    QFETCH(int, id);
    QFETCH(int, value);
    QFETCH(bool, accepted);
    CountingSettings settings;
    const int before = settings.value(id);
    QCOMPARE(settings.setValue(id, value), accepted);
    QCOMPARE(settings.value(id), accepted ? value : before);
}

void TestPieceReference::keeps_data()
{
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("parts");
    QTest::newRow("tenths") << "53.2" << 10;
    QTest::newRow("zero at the end") << "53.20" << 10;
    QTest::newRow("whole grams") << "5320" << 1000;
    QTest::newRow("fine") << "0.0053" << 5;
}

void TestPieceReference::keeps()
{
    QFETCH(QString, weight);
    QFETCH(int, parts);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("counting.ini"));
    CountingSettings settings;
    QVERIFY(settings.setValue(CountingSettings::Parts, 25));
    QVERIFY(settings.setValue(CountingSettings::Target, 500));
    QVERIFY(settings.setValue(CountingSettings::Tolerance, 3));
    settings.setReference(PieceReference(grams(qPrintable(weight)), parts));
    QVERIFY(settings.save(file));

    CountingSettings loaded;
    QVERIFY(loaded.load(file));
    QCOMPARE(loaded.value(CountingSettings::Parts), 25);
    QCOMPARE(loaded.value(CountingSettings::Target), 500);
    QCOMPARE(loaded.value(CountingSettings::Tolerance), 3);
    QCOMPARE(loaded.reference().weight().toText(), weight);
    QCOMPARE(loaded.reference().parts(), parts);
}

void TestPieceReference::reads_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("well");
    QTest::addColumn<int>("parts");
    QTest::addColumn<bool>("hasReference");
    QTest::newRow("nothing") << QByteArray() << true << 10 << false;
    QTest::newRow("parts alone") << QByteArray("parts=25") << true << 25 << false;
    QTest::newRow("reference") << QByteArray("referenceWeight=53.2\nreferenceParts=10") << true << 10 << true;
    QTest::newRow("reference without its weight") << QByteArray("referenceParts=10") << false << 10 << false;
    QTest::newRow("reference without its parts")
        << QByteArray("referenceWeight=53.2") << false << 10 << false;
    QTest::newRow("negative reference")
        << QByteArray("referenceWeight=-53.2\nreferenceParts=10") << false << 10 << false;
    QTest::newRow("reference of zero")
        << QByteArray("referenceWeight=0.0\nreferenceParts=10") << false << 10 << false;
    QTest::newRow("reference that is a word")
        << QByteArray("referenceWeight=heavy\nreferenceParts=10") << false << 10 << false;
    QTest::newRow("reference of too many parts")
        << QByteArray("referenceWeight=53.2\nreferenceParts=1000000000") << false << 10 << false;
    QTest::newRow("parts out of range") << QByteArray("parts=0") << false << 10 << false;
    QTest::newRow("parts as a word, the rest is read")
        << QByteArray("parts=ten\nreferenceWeight=53.2\nreferenceParts=10") << false << 10 << true;
}

void TestPieceReference::reads()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("counting.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\n" + content + '\n');
    file.close();
    CountingSettings settings;
    QTEST(settings.load(file.fileName()), "well");
    QTEST(settings.value(CountingSettings::Parts), "parts");
    QTEST(settings.reference().isValid(), "hasReference");
}

QTEST_GUILESS_MAIN(TestPieceReference)
#include "tst_piecereference.moc"
