// SPDX-License-Identifier: BSD-3-Clause
#include <QObject>
#include <QProcess>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/RecordingHost.h>

using namespace Brimvale::TestKit;

class TestCompareCalls : public QObject
{
    Q_OBJECT

private slots:
    void difference_data();
    void difference();
    void joinsTextsAndLists();
    void takesTheCalls();
    void acceptsAList();
    void failsTheTest();
};

void TestCompareCalls::difference_data()
{
    QTest::addColumn<QStringList>("recorded");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("difference");
    const auto list = [](const char* words) {
        return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };

    QTest::newRow("equal") << list("a b") << list("a b") << QString();
    QTest::newRow("both empty") << QStringList() << QStringList() << QString();
    QTest::newRow("one missing") << list("a c") << list("a b c")
                                 << QStringLiteral(
                                        "The calls differ from line 2 on (3 expected, 2 recorded).\n"
                                        "  expected: b\n"
                                        "  recorded: c\n"
                                        "  EXPECTED   RECORDED\n"
                                        "  a          a\n"
                                        "  b        < \n"
                                        "  c          c\n");
    QTest::newRow("one too many at the end")
        << list("a b") << list("a")
        << QStringLiteral("The calls differ from line 2 on (1 expected, 2 recorded).\n"
                          "  expected: (nothing)\n"
                          "  recorded: b\n"
                          "  EXPECTED   RECORDED\n"
                          "  a          a\n"
                          "           > b\n");
    QTest::newRow("nothing recorded") << QStringList() << list("a")
                                      << QStringLiteral("The calls differ from line 1 on (1 expected, 0 "
                                                        "recorded).\n"
                                                        "  expected: a\n"
                                                        "  recorded: (nothing)\n"
                                                        "  EXPECTED   RECORDED\n"
                                                        "  a        < \n");
    QTest::newRow("other order") << list("b a c") << list("a b c")
                                 << QStringLiteral(
                                        "The calls differ from line 1 on (3 expected, 3 recorded).\n"
                                        "  expected: a\n"
                                        "  recorded: b\n"
                                        "  EXPECTED   RECORDED\n"
                                        "  a        < \n"
                                        "  b          b\n"
                                        "           > a\n"
                                        "  c          c\n");
    QTest::newRow("a long line widens the column")
        << list("a_long_expected_line x") << list("a_long_expected_line y")
        << QStringLiteral("The calls differ from line 2 on (2 expected, 2 recorded).\n"
                          "  expected: y\n"
                          "  recorded: x\n"
                          "  EXPECTED               RECORDED\n"
                          "  a_long_expected_line   a_long_expected_line\n"
                          "  y                    < \n"
                          "                       > x\n");
}

void TestCompareCalls::difference()
{
    QFETCH(QStringList, recorded);
    QFETCH(QStringList, expected);
    QTEST(callDifference(recorded, expected), "difference");
}

void TestCompareCalls::joinsTextsAndLists()
{
    RecordingHost host;
    host.note("a");
    host.note(QStringLiteral("b"));
    host.note(QLatin1String("c"));
    host.note("d");
    BRIMVALE_COMPARE_CALLS(host, "a", QStringList({QStringLiteral("b"), QStringLiteral("c")}),
                           QStringLiteral("d"));
}

void TestCompareCalls::takesTheCalls()
{
    RecordingHost host;
    host.note("a");
    BRIMVALE_COMPARE_CALLS(host, "a");
    BRIMVALE_COMPARE_CALLS(host);
}

void TestCompareCalls::acceptsAList()
{
    RecordingHost host;
    host.note("a");
    const QStringList calls = host.calls();
    BRIMVALE_COMPARE_CALLS(calls, "a");
    BRIMVALE_COMPARE_CALLS(host.calls(), "a");
    BRIMVALE_COMPARE_CALLS(host, "a");
}

/// Runs a test that must fail, and looks at what it says.
void TestCompareCalls::failsTheTest()
{
    if (qEnvironmentVariableIsSet("BRIMVALE_EMULATED")) {
        QSKIP("The emulator cannot start processes the way QProcess does.");
    }
    QProcess process;
    process.start(QStringLiteral(FAILING_TEST), QStringList());
    QVERIFY(process.waitForFinished());
    const QString output = QString::fromUtf8(process.readAllStandardOutput());

    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 1);
    QVERIFY2(output.contains(QLatin1String("FAIL!  : FailingComparison::fails()")), qPrintable(output));
    QVERIFY2(output.contains(QLatin1String("The calls differ from line 100 on (100 expected, 99 recorded).")),
             qPrintable(output));
    // The message is complete, however long the lists are.
    QVERIFY2(output.contains(QLatin1String("  line 100 of the list < \n")), qPrintable(output));
    QVERIFY2(output.contains(QLatin1String("failing_comparison.cpp(")), qPrintable(output));
    QVERIFY2(!output.contains(QLatin1String("went on")), qPrintable(output));
}

QTEST_GUILESS_MAIN(TestCompareCalls)
#include "tst_comparecalls.moc"
