// SPDX-License-Identifier: BSD-3-Clause
#include "clock/VirtualClock.h"
#include "print/PrintQueue.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;
using State = PrintQueue::State;

Q_DECLARE_METATYPE(Brimvale::Terminal::PrintFormat)
Q_DECLARE_METATYPE(Brimvale::Terminal::PrinterFault)

namespace
{

/// What came onto the paper of a RecordingPrinter; it outlives the printer.
struct Paper
{
    QStringList lines;
    QStringList calls;
    int failBefore = -1; ///< Count of the calls of print() before which it fails; -1: never.
    bool failAtBegin = false;
    bool failAtEnd = false;
    bool answers = true; ///< Otherwise the test answers.
};

class RecordingPrinter : public PrintDevice
{
public:
    RecordingPrinter(Paper& paper, bool asAWhole)
        : m_paper(paper)
        , m_asAWhole(asAWhole)
    {
    }

    QString description() const override { return QStringLiteral("recorder"); }
    bool printsAsAWhole() const override { return m_asAWhole; }

    void begin(const PrintJob& job, int firstBlock) override
    {
        m_paper.calls.append(QStringLiteral("begin %1 at %2").arg(job.title()).arg(firstBlock));
        m_buffer.clear();
        if (m_paper.failAtBegin)
            emit failed(QStringLiteral("begin fails."));
        else
            answer();
    }
    void print(const QString& block) override
    {
        if (m_paper.failBefore == 0) {
            emit failed(QStringLiteral("print fails."));
            return;
        }
        --m_paper.failBefore;
        (m_asAWhole ? m_buffer : m_paper.lines).append(block.trimmed());
        answer();
    }
    void end() override
    {
        m_paper.calls.append(QStringLiteral("end"));
        if (m_paper.failAtEnd) {
            emit failed(QStringLiteral("end fails."));
            return;
        }
        m_paper.lines += m_buffer;
        answer();
    }
    void cancel() override { m_paper.calls.append(QStringLiteral("cancel")); }

    void answer()
    {
        if (m_paper.answers)
            emit done();
    }

private:
    Paper& m_paper;
    const bool m_asAWhole;
    QStringList m_buffer;
};

PrintJob makeJob(const QString& title, int blocks = 3, PrintFormat format = PrintFormat::Paper)
{
    PrintJob job(title, 24, format);
    for (int block = 1; block <= blocks; ++block)
        job.PrintLine(QStringLiteral("%1%2\r\n").arg(title).arg(block));
    return job;
}

QStringList linesOf(const QString& title, int blocks = 3)
{
    QStringList lines;
    for (int block = 1; block <= blocks; ++block)
        lines.append(title + QString::number(block));
    return lines;
}

} // namespace

class TestPrintQueue : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void printsAtOnce();
    void printsInOrder();
    void refuses_data();
    void refuses();
    void refusesTooMany();
    void longPrintOutNeedsNoStack();
    void continuesAfterAFaultAtEveryBlock_data();
    void continuesAfterAFaultAtEveryBlock();
    void bootsAfterAFaultAtEveryBlock_data();
    void bootsAfterAFaultAtEveryBlock();
    void tellsOfAFailure();
    void failureHoldsUpTheNext();
    void faultAtBegin();
    void faultAtEnd();
    void benchFaults_data();
    void benchFaults();
    void benchFaultBetweenBlocks();
    void benchFaultsLeaveSicsAlone();
    void slowPrinterTakesTime();
    void slowPrinterRunsOutOfPaper();
    void repeatsOne();
    void repeatNeedsAFailure();
    void removesTheFailed();
    void removesWhilePrinting();
    void removesUnknown();
    void sicsIsNotHeldUp();
    void printerIsTakenAway();
    void withoutAPrinterAfterARestart();
    void asynchronousPrinter();
    void lateAnswersAreIgnored();
    void whatIsPrintedIsNotKept();
    void keptWithoutEnd();
    void keptFileWithHalfALine();
    void keptFileThatIsNone();
    void keptFileOfOneEndlessLine();
    void keepingFails();
    void keepsEverythingOfAPrintOut();
    void keptForOneTerminalOnly();
    void keptCauseFollowsTheLanguage();
    void beginsAnewOnADeviceThatPrintsAsAWhole();

private:
    /// Ends the terminal and starts it anew.
    void restart(std::unique_ptr<PrintQueue>& queue)
    {
        queue.reset();
        queue = makeQueue(true);
    }
    std::unique_ptr<PrintQueue> makeQueue(bool kept = false)
    {
        auto queue = std::make_unique<PrintQueue>(m_clock, kept ? m_folder->filePath(QStringLiteral("queue"))
                                                                : QString());
        QString error;
        m_loaded = queue->load(&error);
        m_loadError = error;
        return queue;
    }
    RecordingPrinter* usePrinter(PrintQueue& queue, bool asAWhole = false)
    {
        auto printer = std::make_unique<RecordingPrinter>(m_paper, asAWhole);
        RecordingPrinter* const result = printer.get();
        queue.setPrinter(std::move(printer));
        return result;
    }
    QString journal() const { return m_folder->filePath(QStringLiteral("queue")); }

    VirtualClock m_clock;
    std::unique_ptr<QTemporaryDir> m_folder;
    Paper m_paper;
    bool m_loaded = false;
    QString m_loadError;
};

void TestPrintQueue::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_paper = Paper();
}

void TestPrintQueue::printsAtOnce()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    QSignalSpy printed(queue.get(), &PrintQueue::printed);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
    QCOMPARE(m_paper.calls, QStringList({QStringLiteral("begin A at 0"), QStringLiteral("end")}));
    QCOMPARE(queue->count(), 0);
    QCOMPARE(queue->printedCount(), 1);
    QCOMPARE(queue->lastPrint(), QStringLiteral("A1\nA2\nA3\n"));
    QCOMPARE(printed.count(), 1);
    QCOMPARE(printed.at(0).at(0).toString(), QStringLiteral("A"));
}

void TestPrintQueue::printsInOrder()
{
    const auto queue = makeQueue();
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"))));
    QCOMPARE(queue->entries().at(0).state, State::Printing);
    QCOMPARE(queue->entries().at(1).state, State::Waiting);
    m_paper.answers = true;
    emit printer->done();
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")) + linesOf(QStringLiteral("B")));
    QCOMPARE(queue->lastPrint(), QStringLiteral("B1\nB2\nB3\n"));
}

void TestPrintQueue::refuses_data()
{
    QTest::addColumn<bool>("printer");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<PrintFormat>("format");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << true << 0 << PrintFormat::Paper << QStringLiteral("The print-out is empty.");
    QTest::newRow("no printer") << false << 1 << PrintFormat::Paper
                                << QStringLiteral("There is no printer. Start the terminal with --printer "
                                                  "roll, for example.");
    QTest::newRow("no SICS output") << true << 1 << PrintFormat::Sics
                                    << QStringLiteral("There is no output for SICS answers. Start the "
                                                      "terminal with --sics PORT.");
}

void TestPrintQueue::refuses()
{
    QFETCH(bool, printer);
    QFETCH(int, blocks);
    QFETCH(PrintFormat, format);
    const auto queue = makeQueue();
    if (printer)
        usePrinter(*queue);
    QString error;
    QVERIFY(!queue->submit(makeJob(QStringLiteral("A"), blocks, format), &error));
    QTEST(error, "error");
    QCOMPARE(queue->count(), 0);
    QVERIFY(m_paper.calls.isEmpty());
}

void TestPrintQueue::refusesTooMany()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    queue->setFault(PrinterFault::PaperOut);
    for (int index = 0; index < PrintQueue::MaximumPrints; ++index)
        QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QString error;
    QVERIFY(!queue->submit(makeJob(QStringLiteral("B")), &error));
    QVERIFY(error.contains(QStringLiteral("100")));
    QCOMPARE(queue->count(), PrintQueue::MaximumPrints);
}

void TestPrintQueue::longPrintOutNeedsNoStack()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"), 20000)));
    QCOMPARE(m_paper.lines.size(), 20000);
}

void TestPrintQueue::continuesAfterAFaultAtEveryBlock_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<bool>("asAWhole");
    for (int block = 0; block < 5; ++block) {
        QTest::addRow("before block %d", block) << block << false;
        QTest::addRow("before block %d, printed as a whole", block) << block << true;
    }
}

void TestPrintQueue::continuesAfterAFaultAtEveryBlock()
{
    QFETCH(int, block);
    QFETCH(bool, asAWhole);
    const auto queue = makeQueue();
    usePrinter(*queue, asAWhole);
    m_paper.failBefore = block;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"), 5)));
    QCOMPARE(m_paper.lines, asAWhole ? QStringList() : linesOf(QStringLiteral("A"), block));
    QCOMPARE(queue->entries().at(0).state, State::Failed);
    QCOMPARE(queue->entries().at(0).printedBlocks, asAWhole ? 0 : block);
    m_paper.failBefore = -1;
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 5));
    QCOMPARE(m_paper.calls.filter(QStringLiteral("begin")).last(),
             QStringLiteral("begin A at %1").arg(asAWhole ? 0 : block));
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::bootsAfterAFaultAtEveryBlock_data()
{
    continuesAfterAFaultAtEveryBlock_data();
}

/// The terminal is switched off between the fault and the repetition.
void TestPrintQueue::bootsAfterAFaultAtEveryBlock()
{
    QFETCH(int, block);
    QFETCH(bool, asAWhole);
    auto queue = makeQueue(true);
    usePrinter(*queue, asAWhole);
    m_paper.failBefore = block;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"), 5)));
    restart(queue);
    QVERIFY(m_loaded);
    QCOMPARE(queue->count(), 1);
    QCOMPARE(queue->entries().at(0).state, State::Failed);
    QCOMPARE(queue->entries().at(0).cause.text(), QStringLiteral("print fails."));
    QCOMPARE(queue->entries().at(0).printedBlocks, asAWhole ? 0 : block);
    m_paper.failBefore = -1;
    usePrinter(*queue, asAWhole);
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 5));
    QVERIFY(!QFile::exists(journal()));
}

void TestPrintQueue::tellsOfAFailure()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    QSignalSpy failed(queue.get(), &PrintQueue::failed);
    m_paper.failBefore = 1;
    QVERIFY(queue->submit(makeJob(QStringLiteral("Batch"))));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toString(), QStringLiteral("Batch is not printed: print fails."));
    QCOMPARE(queue->entries().at(0).cause.text(), QStringLiteral("print fails."));
    QCOMPARE(queue->lastPrint(), QString());
}

void TestPrintQueue::failureHoldsUpTheNext()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.failBefore = 1;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    m_paper.failBefore = -1;
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"))));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 1));
    QCOMPARE(queue->entries().at(1).state, State::Waiting);
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")) + linesOf(QStringLiteral("B")));
}

void TestPrintQueue::faultAtBegin()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.failAtBegin = true;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QCOMPARE(queue->entries().at(0).printedBlocks, 0);
    m_paper.failAtBegin = false;
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::faultAtEnd()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.failAtEnd = true;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QCOMPARE(queue->entries().at(0).printedBlocks, 3);
    m_paper.failAtEnd = false;
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::benchFaults_data()
{
    QTest::addColumn<PrinterFault>("fault");
    QTest::addColumn<QString>("cause");
    QTest::newRow("paper out") << PrinterFault::PaperOut
                               << QStringLiteral("The printer is out of paper. Put in paper, then repeat the "
                                                 "print-out.");
    QTest::newRow("offline") << PrinterFault::Offline
                             << QStringLiteral(
                                    "The printer is offline. Switch it on and check its cable, then "
                                    "repeat the print-out.");
}

void TestPrintQueue::benchFaults()
{
    QFETCH(PrinterFault, fault);
    const auto queue = makeQueue();
    usePrinter(*queue);
    queue->setFault(fault);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(m_paper.lines.isEmpty());
    QTEST(queue->entries().at(0).cause.text(), "cause");
    QVERIFY(queue->repeat());
    QCOMPARE(queue->failedCount(), 1); // It has not been mended.
    queue->setFault(PrinterFault::None);
    QCOMPARE(queue->failedCount(), 1); // Nothing is printed unasked.
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::benchFaultBetweenBlocks()
{
    const auto queue = makeQueue();
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    emit printer->done(); // begin
    emit printer->done(); // A1
    queue->setFault(PrinterFault::PaperOut);
    emit printer->done(); // A2 had been sent.
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 2));
    QCOMPARE(queue->entries().at(0).state, State::Failed);
    QCOMPARE(queue->entries().at(0).printedBlocks, 2);
    queue->setFault(PrinterFault::None);
    m_paper.answers = true;
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::benchFaultsLeaveSicsAlone()
{
    const auto queue = makeQueue();
    queue->setSicsOutput(std::make_unique<RecordingPrinter>(m_paper, false));
    queue->setFault(PrinterFault::Offline);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"), 3, PrintFormat::Sics)));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::slowPrinterTakesTime()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    queue->setFault(PrinterFault::Slow);
    PrintJob job(QStringLiteral("A"));
    job.PrintLine(QStringLiteral("1\r\n"));
    job.PrintLine(QStringLiteral("2\r\n3\r\n"));
    QVERIFY(queue->submit(job));
    QVERIFY(!queue->awaitsDevice());
    m_clock.advance(PrintQueue::SlowMs - 1);
    QCOMPARE(m_paper.lines.size(), 0);
    m_clock.advance(1);
    QCOMPARE(m_paper.lines.size(), 1);
    m_clock.advance(2 * PrintQueue::SlowMs - 1);
    QCOMPARE(m_paper.lines.size(), 1);
    m_clock.advance(1);
    QCOMPARE(m_paper.lines.size(), 2);
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::slowPrinterRunsOutOfPaper()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    queue->setFault(PrinterFault::Slow);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    m_clock.advance(PrintQueue::SlowMs);
    queue->setFault(PrinterFault::PaperOut);
    m_clock.advance(10 * PrintQueue::SlowMs);
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 1));
    QCOMPARE(queue->failedCount(), 1);
    queue->setFault(PrinterFault::None);
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::repeatsOne()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    queue->setFault(PrinterFault::Offline);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    queue->setFault(PrinterFault::None);
    QVERIFY(queue->repeat(queue->entries().at(0).id));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::repeatNeedsAFailure()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(!queue->repeat());
    QVERIFY(!queue->repeat(1));
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(!queue->repeat());
    QVERIFY(!queue->repeat(queue->entries().at(0).id));
}

void TestPrintQueue::removesTheFailed()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.failBefore = 1;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    m_paper.failBefore = -1;
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"))));
    QVERIFY(queue->remove(queue->entries().at(0).id));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 1) + linesOf(QStringLiteral("B")));
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::removesWhilePrinting()
{
    const auto queue = makeQueue();
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    emit printer->done();
    QVERIFY(queue->remove(queue->entries().at(0).id));
    QVERIFY(m_paper.calls.contains(QStringLiteral("cancel")));
    QVERIFY(!queue->awaitsDevice());
    m_paper.answers = true;
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"))));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 1) + linesOf(QStringLiteral("B")));
}

void TestPrintQueue::removesUnknown()
{
    const auto queue = makeQueue();
    QVERIFY(!queue->remove(0));
    QVERIFY(!queue->remove(17));
}

void TestPrintQueue::sicsIsNotHeldUp()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    Paper answers;
    queue->setSicsOutput(std::make_unique<RecordingPrinter>(answers, false));
    queue->setFault(PrinterFault::PaperOut);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"), 1, PrintFormat::Sics)));
    QCOMPARE(answers.lines, linesOf(QStringLiteral("B"), 1));
    QCOMPARE(queue->count(), 1);
}

void TestPrintQueue::printerIsTakenAway()
{
    const auto queue = makeQueue();
    usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    queue->setPrinter(nullptr);
    QCOMPARE(queue->entries().at(0).state, State::Failed);
    QVERIFY(!queue->awaitsDevice());
    QVERIFY(queue->repeat());
    QCOMPARE(queue->failedCount(), 1);
    m_paper.answers = true;
    usePrinter(*queue);
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")));
}

void TestPrintQueue::withoutAPrinterAfterARestart()
{
    auto queue = makeQueue(true);
    usePrinter(*queue);
    queue->setFault(PrinterFault::Offline);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    restart(queue);
    QVERIFY(queue->repeat());
    QCOMPARE(queue->failedCount(), 1);
    QVERIFY(queue->entries().at(0).cause.text().contains(QStringLiteral("--printer")));
}

void TestPrintQueue::asynchronousPrinter()
{
    const auto queue = makeQueue();
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"), 2)));
    QVERIFY(queue->awaitsDevice());
    for (int answer = 0; answer < 4; ++answer) {
        QCOMPARE(queue->count(), 1);
        emit printer->done();
    }
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"), 2));
    QCOMPARE(queue->count(), 0);
    QVERIFY(!queue->awaitsDevice());
}

void TestPrintQueue::lateAnswersAreIgnored()
{
    const auto queue = makeQueue();
    RecordingPrinter* const printer = usePrinter(*queue);
    queue->setFault(PrinterFault::Offline);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    emit printer->done();
    emit printer->failed(QStringLiteral("late"));
    QCOMPARE(queue->entries().at(0).printedBlocks, 0);
    QVERIFY(queue->entries().at(0).cause.text() != QStringLiteral("late"));
}

void TestPrintQueue::whatIsPrintedIsNotKept()
{
    const auto queue = makeQueue(true);
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(QFile::exists(journal()));
    m_paper.answers = true;
    emit printer->done();
    QVERIFY(!QFile::exists(journal()));
}

/// The power fails while a block is being printed.
void TestPrintQueue::keptWithoutEnd()
{
    auto queue = makeQueue(true);
    RecordingPrinter* const printer = usePrinter(*queue);
    m_paper.answers = false;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QVERIFY(queue->submit(makeJob(QStringLiteral("B"))));
    emit printer->done();
    emit printer->done();
    restart(queue);
    QCOMPARE(queue->count(), 2);
    QCOMPARE(queue->entries().at(0).printedBlocks, 1);
    QCOMPARE(queue->entries().at(0).cause.text(),
             QStringLiteral("The terminal was switched off before it was printed."));
    QCOMPARE(queue->failedCount(), 2);
    m_paper.answers = true;
    m_paper.lines = linesOf(QStringLiteral("A"), 1);
    usePrinter(*queue);
    QVERIFY(queue->repeat());
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A")) + linesOf(QStringLiteral("B")));
    QVERIFY(queue->submit(makeJob(QStringLiteral("C"))));
    QCOMPARE(queue->count(), 0);
}

/// The power fails while the file is being written, at every byte of it.
void TestPrintQueue::keptFileWithHalfALine()
{
    auto queue = makeQueue(true);
    usePrinter(*queue);
    m_paper.failBefore = 2;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    queue.reset();
    QFile file(journal());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();
    const int firstLine = whole.indexOf('\n') + 1;
    for (int size = whole.size(); size >= 0; --size) {
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(whole.left(size));
        file.close();
        restart(queue);
        QVERIFY2(m_loaded, qPrintable(m_loadError));
        QCOMPARE(queue->count(), size < firstLine ? 0 : 1);
        if (size >= firstLine) {
            const int printed = whole.left(size).count("\"printed\"");
            const int complete = whole.left(whole.left(size).lastIndexOf('\n') + 1).count("\"printed\"");
            QVERIFY(printed - complete <= 1);
            QCOMPARE(queue->entries().at(0).printedBlocks, complete);
        }
        queue.reset();
    }
}

void TestPrintQueue::keptFileThatIsNone()
{
    QFile file(journal());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[section]\nkey=value\n");
    file.close();
    const auto queue = makeQueue(true);
    QVERIFY(!m_loaded);
    QVERIFY2(m_loadError.contains(journal() + QStringLiteral(".unreadable")), qPrintable(m_loadError));
    QVERIFY(QFile::exists(journal() + QStringLiteral(".unreadable")));
    QVERIFY(!QFile::exists(journal()));
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::keptFileOfOneEndlessLine()
{
    QFile file(journal());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"add\":\"1\",\"title\":\"");
    QVERIFY(
        file.resize(Q_INT64_C(1) << 40)); // More than fits into the memory; on the disk it takes up nothing.
    file.close();
    const auto queue = makeQueue(true);
    QVERIFY(!m_loaded);
    QVERIFY2(m_loadError.contains(journal() + QStringLiteral(".unreadable")), qPrintable(m_loadError));
    QVERIFY(!QFile::exists(journal()));
    QCOMPARE(queue->count(), 0);
}

void TestPrintQueue::keepingFails()
{
    QFile folderInTheWay(m_folder->filePath(QStringLiteral("file")));
    QVERIFY(folderInTheWay.open(QIODevice::WriteOnly));
    PrintQueue queue(m_clock, folderInTheWay.fileName() + QStringLiteral("/queue"));
    QSignalSpy notKept(&queue, &PrintQueue::notKept);
    queue.setPrinter(std::make_unique<RecordingPrinter>(m_paper, false));
    QVERIFY(queue.submit(makeJob(QStringLiteral("A"))));
    QCOMPARE(m_paper.lines, linesOf(QStringLiteral("A"))); // It is printed all the same.
    QCOMPARE(notKept.count(), 1);
    QVERIFY(notKept.at(0).at(0).toString().contains(folderInTheWay.fileName()));
}

void TestPrintQueue::keepsEverythingOfAPrintOut()
{
    auto queue = makeQueue(true);
    queue->setSicsOutput(std::make_unique<RecordingPrinter>(m_paper, false));
    m_paper.failAtBegin = true;
    PrintJob job(QStringLiteral("Prüfung \"7\""), 80, PrintFormat::Sics);
    job.PrintLine(QStringLiteral("Größe 样品\r\n\r\n"));
    QVERIFY(queue->submit(job));
    const qint64 time = queue->entries().at(0).timeMs;
    QCOMPARE(time, m_clock.nowMs());
    restart(queue);
    const PrintQueue::Entry entry = queue->entries().at(0);
    QCOMPARE(entry.title, job.title());
    QCOMPARE(entry.format, PrintFormat::Sics);
    QCOMPARE(entry.blocks, 1);
    QCOMPARE(entry.timeMs, time);
    m_paper.failAtBegin = false;
    queue->setSicsOutput(std::make_unique<RecordingPrinter>(m_paper, false));
    QVERIFY(queue->repeat());
    QCOMPARE(queue->lastPrint(), job.text());
}

void TestPrintQueue::keptCauseFollowsTheLanguage()
{
    /// Turns everything that is translated into capital letters.
    class Capitals : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char*, const char* source, const char*, int) const override
        {
            return QString::fromUtf8(source).toUpper();
        }
    };
    auto queue = makeQueue(true);
    usePrinter(*queue);
    queue->setFault(PrinterFault::PaperOut);
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    const QString cause =
        QStringLiteral("The printer is out of paper. Put in paper, then repeat the print-out.");
    QCOMPARE(queue->entries().at(0).cause.text(), cause);
    Capitals capitals;
    QVERIFY(QCoreApplication::installTranslator(&capitals));
    QCOMPARE(queue->entries().at(0).cause.text(), cause.toUpper());
    restart(queue); // It is kept in this language now.
    QCOMPARE(queue->entries().at(0).cause.text(), cause.toUpper());
    QCoreApplication::removeTranslator(&capitals);
    QCOMPARE(queue->entries().at(0).cause.text(), cause);
}

/// Two terminals with the same settings file.
void TestPrintQueue::keptForOneTerminalOnly()
{
    auto first = makeQueue(true);
    usePrinter(*first);
    m_paper.failBefore = 2;
    QVERIFY(first->submit(makeJob(QStringLiteral("A"))));
    QFile file(journal());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray kept = file.readAll();

    auto second = makeQueue(true);
    QVERIFY(!m_loaded);
    QVERIFY2(m_loadError.contains(journal()), qPrintable(m_loadError));
    QVERIFY(!second->isKept());
    QCOMPARE(second->count(), 0); // Nothing is printed twice.
    Paper paper;
    second->setPrinter(std::make_unique<RecordingPrinter>(paper, false));
    QVERIFY(second->submit(makeJob(QStringLiteral("B"))));
    QCOMPARE(paper.lines, linesOf(QStringLiteral("B"))); // It prints all the same.
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), kept);
    QVERIFY(QFile::exists(journal())); // And takes nothing from the other.
    second.reset();

    restart(first);
    QVERIFY2(m_loaded, qPrintable(m_loadError));
    QCOMPARE(first->count(), 1);
    QCOMPARE(first->entries().at(0).printedBlocks, 2);
}

void TestPrintQueue::beginsAnewOnADeviceThatPrintsAsAWhole()
{
    auto queue = makeQueue(true);
    usePrinter(*queue);
    m_paper.failBefore = 2;
    QVERIFY(queue->submit(makeJob(QStringLiteral("A"))));
    QCOMPARE(queue->entries().at(0).printedBlocks, 2);
    restart(queue);
    Paper file;
    queue->setPrinter(std::make_unique<RecordingPrinter>(file, true));
    QVERIFY(queue->repeat());
    QCOMPARE(file.lines, linesOf(QStringLiteral("A")));
    QCOMPARE(queue->count(), 0);
}

QTEST_MAIN(TestPrintQueue)
#include "tst_printqueue.moc"
