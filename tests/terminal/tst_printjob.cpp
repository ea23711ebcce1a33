// SPDX-License-Identifier: BSD-3-Clause
#include "MesswertData.h"
#include "PrintItemCurrentMeasurement.h"
#include "print/Formatter.h"
#include "print/PrintJob.h"

#include <QtTest>

#include <TestKit/RecordingHost.h>

using namespace Brimvale;
using namespace Brimvale::Terminal;

/// A PrintJob is tested with the print item whose answer it completes.
class TestPrintJob : public QObject
{
    Q_OBJECT

private slots:
    void takesBlocks();
    void textHasOneKindOfLineEnd();
    void emptyBlockIsNothing();
    void growsNoFurther();
    void layoutIsPassedOn();
    void sicsAnswerOfTheItem_data();
    void sicsAnswerOfTheItem();
    void sicsLeavesOtherLinesAlone_data();
    void sicsLeavesOtherLinesAlone();
    void paperLeavesAnswersAlone();
};

void TestPrintJob::takesBlocks()
{
    PrintJob job(QStringLiteral("Batch"), 24);
    QVERIFY(job.isEmpty());
    QVERIFY(job.PrintLine(QStringLiteral("A\r\n")));
    QVERIFY(job.PrintLine(QStringLiteral("B\r\nC\r\n")));
    QCOMPARE(job.title(), QStringLiteral("Batch"));
    QCOMPARE(job.blocks(), QStringList({QStringLiteral("A\r\n"), QStringLiteral("B\r\nC\r\n")}));
    QVERIFY(!job.isEmpty());
}

void TestPrintJob::textHasOneKindOfLineEnd()
{
    PrintJob job;
    job.PrintLine(QStringLiteral("A\r\n\r\n"));
    job.PrintLine(QStringLiteral("B\n"));
    job.PrintLine(QStringLiteral("C"));
    QCOMPARE(job.text(), QStringLiteral("A\n\nB\nC\n"));
}

void TestPrintJob::emptyBlockIsNothing()
{
    PrintJob job;
    QVERIFY(job.PrintLine(QString()));
    QVERIFY(job.isEmpty());
    QCOMPARE(job.text(), QString());
}

void TestPrintJob::growsNoFurther()
{
    PrintJob job;
    QVERIFY(job.PrintLine(QString(PrintJob::MaximumCharacters - 1, QLatin1Char('x'))));
    QVERIFY(!job.PrintLine(QStringLiteral("yz")));
    QVERIFY(job.PrintLine(QStringLiteral("y")));
    QVERIFY(!job.PrintLine(QStringLiteral("z")));
    QCOMPARE(job.blocks().size(), 2);
}

void TestPrintJob::layoutIsPassedOn()
{
    QCOMPARE(PrintJob().GetPrintLayout(), 40);
    QCOMPARE(PrintJob(QString(), 80).GetPrintLayout(), 80);
}

void TestPrintJob::sicsAnswerOfTheItem_data()
{
    QTest::addColumn<QString>("messwert");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("stable");
    QTest::addColumn<QString>("expected");
    QTest::newRow("stable") << QStringLiteral("100.00") << true << true
                            << QStringLiteral("S S     100.00 g\r\n");
    QTest::newRow("unstable") << QStringLiteral("-0.5") << true << false
                              << QStringLiteral("S D       -0.5 g\r\n");
    QTest::newRow("ten characters") << QStringLiteral("1234567.89") << true << true
                                    << QStringLiteral("S S 1234567.89 g\r\n");
    QTest::newRow("not valid") << QStringLiteral("1.0") << false << true << QStringLiteral("S I\r\n");
    QTest::newRow("no reading") << QString() << true << true << QStringLiteral("S I\r\n");
}

void TestPrintJob::sicsAnswerOfTheItem()
{
    QFETCH(QString, messwert);
    QFETCH(bool, valid);
    QFETCH(bool, stable);
    TestKit::RecordingHost host;
    host.answer("ISystem::GetProtocolFormatName", QStringLiteral("sics"));
    MesswertData source;
    source.messwert = messwert;
    source.unit = QStringLiteral("g");
    source.isValid = valid;
    source.isStable = stable;
    PrintItemCurrentMeasurement item(nullptr, QStringLiteral("current"), &source, ProtocolDef(), false,
                                     host.system());
    item.setValue();
    Formatter formatter;
    PrintJob job(QString(), 40, PrintFormat::Sics);
    QVERIFY(item.Print(&job, &formatter));
    QTEST(job.blocks().join(QString()), "expected");
}

void TestPrintJob::sicsLeavesOtherLinesAlone_data()
{
    QTest::addColumn<QString>("block");
    QTest::newRow("name and value") << QStringLiteral("Net        99.5 g\r\n");
    QTest::newRow("value") << QStringLiteral("           99.5 g\r\n");
    QTest::newRow("indented text") << QStringLiteral("  Signature\r\n");
    QTest::newRow("complete answer") << QStringLiteral("S S     100.00 g\r\n");
    QTest::newRow("short") << QStringLiteral(" \r\n");
}

void TestPrintJob::sicsLeavesOtherLinesAlone()
{
    QFETCH(QString, block);
    PrintJob job(QString(), 40, PrintFormat::Sics);
    QVERIFY(job.PrintLine(block));
    QCOMPARE(job.blocks().join(QString()), block);
}

void TestPrintJob::paperLeavesAnswersAlone()
{
    PrintJob job;
    QVERIFY(job.PrintLine(QStringLiteral("  I\r\n")));
    QCOMPARE(job.blocks().join(QString()), QStringLiteral("  I\r\n"));
}

QTEST_MAIN(TestPrintJob)
#include "tst_printjob.moc"
