// SPDX-License-Identifier: BSD-3-Clause
#include "FullDisk.h"
#include "clock/VirtualClock.h"
#include "print/EscPos.h"
#include "print/FilePrinter.h"
#include "print/PaperRoll.h"
#include "print/PdfPrinter.h"
#include "print/PrintQueue.h"
#include "print/PrinterSpec.h"
#include "print/SicsPrinter.h"
#include "print/TcpPrinter.h"

#include <QDir>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace Brimvale::Terminal;

namespace
{

PrintJob makeJob(const QStringList& blocks, const QString& title = QStringLiteral("Batch"), int layout = 40)
{
    PrintJob job(title, layout);
    for (const QString& block : blocks)
        job.PrintLine(block);
    return job;
}

QStringList numbered(int count)
{
    QStringList blocks;
    for (int index = 1; index <= count; ++index)
        blocks.append(QStringLiteral("line %1\r\n").arg(index));
    return blocks;
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

/// A receipt printer in the network. Its connection breaks when it has read the line breakAt.
class NetworkPrinter : public QObject
{
public:
    NetworkPrinter()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* const peer = m_server.nextPendingConnection();
            ++connections;
            connect(peer, &QTcpSocket::readyRead, this, [this, peer] { read(*peer); });
            connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
        });
        m_server.listen(QHostAddress::LocalHost);
    }

    quint16 port() const { return m_server.serverPort(); }

    QByteArray received;
    int connections = 0;
    int breakAt = -1;

private:
    void read(QTcpSocket& peer)
    {
        received += peer.readAll();
        if (breakAt >= 0 && received.contains("line " + QByteArray::number(breakAt) + '\n')) {
            breakAt = -1;
            peer.abort();
        }
    }

    QTcpServer m_server;
};

} // namespace

class TestPrintDevices : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void spec_data();
    void spec();
    void specFaults_data();
    void specFaults();
    void encodes_data();
    void encodes();
    void encodesTheWholeCodePage();
    void roll();
    void rollOfSeveralWidths();
    void rollHasAnEnd();
    void file();
    void fileAppends();
    void fileCannotBeWritten();
    void fileIsMended();
    void pipeThatNobodyReads();
    void fileIsFull();
    void pdf();
    void pdfIsNeverOverwritten();
    void pdfCannotBeWritten();
    void pdfOnAFullDisk();
    void fileVanishes();
    void tcp();
    void tcpPrintsTwice();
    void tcpBreaksAtEveryLine_data();
    void tcpBreaksAtEveryLine();
    void tcpIsNotThere();
    void tcpTakesNothing();
    void tcpIsCancelled();
    void sics();
    void sicsWithoutAComputer();

private:
    void submit(const PrintJob& job) { QVERIFY(m_queue->submit(job)); }
    bool waitForAnswer() const
    {
        return QTest::qWaitFor([this] { return !m_queue->awaitsDevice(); }, 20000);
    }
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    VirtualClock m_clock;
    std::unique_ptr<PrintQueue> m_queue;
};

void TestPrintDevices::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_queue = std::make_unique<PrintQueue>(m_clock);
}

void TestPrintDevices::cleanup()
{
    m_queue.reset();
}

void TestPrintDevices::spec_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    const auto row = [](const char* text, PrinterSpec::Kind kind, const char* path, const char* host,
                        int port) {
        QTest::newRow(text) << QString::fromLatin1(text) << static_cast<int>(kind)
                            << QString::fromLatin1(path) << QString::fromLatin1(host) << port;
    };
    using Kind = PrinterSpec::Kind;
    row("roll", Kind::Roll, "", "", 0);
    row("none", Kind::None, "", "", 0);
    row("file:a/b:c.txt", Kind::File, "a/b:c.txt", "", 0);
    row("pdf:report.pdf", Kind::Pdf, "report.pdf", "", 0);
    row("pdf:REPORT.PDF", Kind::Pdf, "REPORT.PDF", "", 0);
    row("tcp:printer", Kind::Tcp, "", "printer", 9100);
    row("tcp:10.0.0.7:6001", Kind::Tcp, "", "10.0.0.7", 6001);
    row("tcp:[::1]", Kind::Tcp, "", "::1", 9100);
    row("tcp:[fe80::1]:65535", Kind::Tcp, "", "fe80::1", 65535);
}

void TestPrintDevices::spec()
{
    QFETCH(QString, text);
    QString error;
    const std::optional<PrinterSpec> spec = PrinterSpec::parse(text, &error);
    QVERIFY2(spec, qPrintable(error));
    QTEST(static_cast<int>(spec->kind), "kind");
    QTEST(spec->path, "path");
    QTEST(spec->host, "host");
    QTEST(static_cast<int>(spec->port), "port");
}

void TestPrintDevices::specFaults_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("mend");
    const auto row = [](const char* text, const char* mend) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(mend);
    };
    row("", "give roll, file:PATH");
    row("Roll", "give roll, file:PATH");
    row("roll:", "give roll, file:PATH");
    row("file:", "write file:PATH");
    row("pdf:", "ends with .pdf");
    row("pdf:.pdf", "ends with .pdf");
    row("pdf:report", "ends with .pdf");
    row("tcp:", "write tcp:HOST");
    row("tcp::9100", "write tcp:HOST");
    row("tcp:printer:", "from 1 to 65535");
    row("tcp:printer:0", "from 1 to 65535");
    row("tcp:printer:65536", "from 1 to 65535");
    row("tcp:printer:-1", "from 1 to 65535");
    row("tcp:::1:9100", "in brackets");
    row("tcp:[::1", "in brackets");
    row("tcp:[]", "in brackets");
    row("tcp:[printer]:9100", "in brackets");
    row("tcp:[::1]9100", "from 1 to 65535");
}

void TestPrintDevices::specFaults()
{
    QFETCH(QString, text);
    QFETCH(QString, mend);
    QString error;
    QVERIFY(!PrinterSpec::parse(text, &error));
    QVERIFY2(error.startsWith(text + QStringLiteral(": ")), qPrintable(error));
    QVERIFY2(error.contains(mend), qPrintable(error));
}

void TestPrintDevices::encodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, const QString& text, const char* bytes) {
        QTest::newRow(name) << text << QByteArray(bytes);
    };
    row("ASCII", QStringLiteral("Net 99.5[0] g~"), "Net 99.5[0] g~");
    row("umlauts", QStringLiteral(u"äöüÄÖÜß"), "\x84\x94\x81\x8E\x99\x9A\xE1");
    row("umlaut with a combining mark", QStringLiteral(u"u\u0308"), "\x81");
    row("euro", QStringLiteral(u"€"), "\xD5");
    row("degree", QStringLiteral(u"20 °C ± 1"),
        "20 \xF8"
        "C \xF1 1");
    row("micro", QStringLiteral(u"µg"), "\xE6g");
    row("Greek mu", QStringLiteral(u"μg"), "\xE6g");
    row("missing", QStringLiteral(u"ő|"), "?|");
    row("missing, two columns", QStringLiteral(u"样品|"), "????|");
    row("missing, with a combining mark", QStringLiteral(u"x\u0308|"), "?|");
    row("emoji", QStringLiteral(u"🙂|"), "??|");
    row("line ends", QStringLiteral("a\r\nb\n"), "a\nb\n");
    row("commands of a text", QStringLiteral("a\x1B@\x1Dv\x07"), "a@v");
}

void TestPrintDevices::encodes()
{
    QFETCH(QString, text);
    QTEST(EscPos::encode(text), "bytes");
}

/// Every character of the code page has its place, and there are no two in one.
void TestPrintDevices::encodesTheWholeCodePage()
{
    QSet<int> seen;
    for (uint unicode = 0x20; unicode < 0x2600; ++unicode) {
        const QChar character(unicode);
        if (QString(character).normalized(QString::NormalizationForm_C) != QString(character))
            continue; // Another way to write a character.
        const QByteArray bytes = EscPos::encode(QString(character));
        if (bytes.size() != 1 || bytes == "?" || bytes == "\n")
            continue;
        const int byte = static_cast<uchar>(bytes.at(0));
        if (unicode != 0x3BC) {
            QVERIFY2(!seen.contains(byte), qPrintable(QString::number(byte, 16)));
        }
        seen.insert(byte);
    }
    QCOMPARE(seen.size(), 0x7F - 0x20 + 0x80 - 1); // '?' is left out above.
}

void TestPrintDevices::roll()
{
    PaperRoll paper;
    m_queue->setPrinter(std::make_unique<RollPrinter>(paper));
    submit(makeJob({QStringLiteral("A\r\n"), QStringLiteral("B\r\n\r\nC\r\n")}));
    QCOMPARE(paper.text(), QStringLiteral("A\nB\n\nC\n\n"));
    QCOMPARE(paper.data(paper.index(4), PaperRoll::CutRole).toBool(), true);
    QCOMPARE(paper.data(paper.index(2), PaperRoll::CutRole).toBool(), false);
    paper.tearOff();
    QCOMPARE(paper.count(), 0);
    QCOMPARE(paper.text(), QString());
}

void TestPrintDevices::rollOfSeveralWidths()
{
    PaperRoll paper;
    m_queue->setPrinter(std::make_unique<RollPrinter>(paper));
    QCOMPARE(paper.columns(), 24);
    submit(makeJob({QStringLiteral("A")}, QString(), 80));
    submit(makeJob({QStringLiteral("A")}, QString(), 40));
    QCOMPARE(paper.columns(), 80);
    paper.tearOff();
    QCOMPARE(paper.columns(), 24);
}

void TestPrintDevices::rollHasAnEnd()
{
    PaperRoll paper;
    paper.addLines(numbered(PaperRoll::MaximumLines + 10));
    QCOMPARE(paper.count(), PaperRoll::MaximumLines);
    QVERIFY(paper.text().startsWith(QStringLiteral("line 11")));
}

void TestPrintDevices::file()
{
    m_queue->setPrinter(std::make_unique<FilePrinter>(path("out.txt")));
    submit(makeJob({QStringLiteral(u"Größe 样品\r\n"), QStringLiteral("B\r\nC\r\n")}));
    QCOMPARE(contentOf(path("out.txt")), QByteArray("Gr\xC3\xB6\xC3\x9F"
                                                    "e \xE6\xA0\xB7\xE5\x93\x81\nB\nC\n\n"));
}

void TestPrintDevices::fileAppends()
{
    m_queue->setPrinter(std::make_unique<FilePrinter>(path("out.txt")));
    submit(makeJob({QStringLiteral("A\r\n")}));
    submit(makeJob({QStringLiteral("B\r\n")}));
    QCOMPARE(contentOf(path("out.txt")), QByteArray("A\n\nB\n\n"));
}

void TestPrintDevices::fileCannotBeWritten()
{
    const QString name = path("missing/out.txt");
    m_queue->setPrinter(std::make_unique<FilePrinter>(name));
    submit(makeJob({QStringLiteral("A\r\n")}));
    QCOMPARE(m_queue->failedCount(), 1);
    QVERIFY(m_queue->entries().at(0).cause.text().contains(name));
}

void TestPrintDevices::pipeThatNobodyReads()
{
    const QString name = path("pipe");
    QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), S_IRUSR | S_IWUSR), 0);
    m_queue->setPrinter(std::make_unique<FilePrinter>(name));
    submit(makeJob({QStringLiteral("A\r\n")})); // Does not hang.
    QCOMPARE(m_queue->failedCount(), 1);
    const int reader = ::open(QFile::encodeName(name).constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    QVERIFY(m_queue->repeat());
    QCOMPARE(m_queue->count(), 0);
    char content[16] = {};
    QCOMPARE(::read(reader, content, sizeof content), ssize_t(3));
    ::close(reader);
    QCOMPARE(QByteArray(content), QByteArray("A\n\n"));
}

void TestPrintDevices::fileIsMended()
{
    m_queue->setPrinter(std::make_unique<FilePrinter>(path("folder/out.txt")));
    submit(makeJob({QStringLiteral("A\r\n"), QStringLiteral("B\r\n")}));
    QCOMPARE(m_queue->failedCount(), 1);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(m_queue->repeat());
    QCOMPARE(contentOf(path("folder/out.txt")), QByteArray("A\nB\n\n"));
}

void TestPrintDevices::fileIsFull()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("there is no /dev/full");
    m_queue->setPrinter(std::make_unique<FilePrinter>(QStringLiteral("/dev/full")));
    submit(makeJob({QStringLiteral("A\r\n")}));
    QCOMPARE(m_queue->failedCount(), 1);
    QCOMPARE(m_queue->entries().at(0).printedBlocks, 0);
}

void TestPrintDevices::pdf()
{
    m_queue->setPrinter(std::make_unique<PdfPrinter>(path("out.pdf"), [this] { return m_clock.dateTime(); }));
    submit(makeJob(numbered(200), QStringLiteral("Batch")));
    QCOMPARE(m_queue->count(), 0);
    const QByteArray content = contentOf(path("out.pdf"));
    QVERIFY(content.startsWith("%PDF-"));
    QVERIFY(content.trimmed().endsWith("%%EOF"));
    // 48 lines fit on a page.
    QCOMPARE(content.count("/Type /Page\n"), 5);
    QVERIFY(content.contains("/FontFile2"));
}

void TestPrintDevices::pdfIsNeverOverwritten()
{
    m_queue->setPrinter(std::make_unique<PdfPrinter>(path("out.pdf"), [this] { return m_clock.dateTime(); }));
    for (int index = 0; index < 3; ++index)
        submit(makeJob(numbered(2)));
    QCOMPARE(
        QDir(m_folder->path()).entryList(QDir::Files),
        QStringList({QStringLiteral("out-2.pdf"), QStringLiteral("out-3.pdf"), QStringLiteral("out.pdf")}));
}

void TestPrintDevices::pdfOnAFullDisk()
{
    m_queue->setPrinter(std::make_unique<PdfPrinter>(path("out.pdf"), [this] { return m_clock.dateTime(); }));
    {
        const FullDisk disk(1000);
        submit(makeJob(numbered(200)));
    }
    QCOMPARE(m_queue->failedCount(), 1);
    QVERIFY(!QFile::exists(path("out.pdf")));
    QVERIFY(m_queue->repeat());
    QVERIFY(contentOf(path("out.pdf")).trimmed().endsWith("%%EOF"));
}

void TestPrintDevices::fileVanishes()
{
    m_queue->setPrinter(std::make_unique<FilePrinter>(path("out.txt")));
    submit(makeJob(numbered(2)));
    QVERIFY(QFile::remove(path("out.txt")));
    submit(makeJob(numbered(3)));
    QCOMPARE(m_queue->failedCount(), 0);
    QCOMPARE(contentOf(path("out.txt")).count('\n'), 4); // and the empty line between print-outs
}

void TestPrintDevices::pdfCannotBeWritten()
{
    m_queue->setPrinter(
        std::make_unique<PdfPrinter>(path("folder/out.pdf"), [this] { return m_clock.dateTime(); }));
    submit(makeJob(numbered(2)));
    QCOMPARE(m_queue->failedCount(), 1);
    QCOMPARE(m_queue->entries().at(0).printedBlocks, 0);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(m_queue->repeat());
    QVERIFY(contentOf(path("folder/out.pdf")).startsWith("%PDF-"));
    QCOMPARE(QDir(path("folder")).entryList(QDir::Files).size(), 1);
}

void TestPrintDevices::tcp()
{
    NetworkPrinter printer;
    m_queue->setPrinter(std::make_unique<TcpPrinter>(QStringLiteral("127.0.0.1"), printer.port()));
    submit(makeJob({QStringLiteral(u"Größe\r\n"), QStringLiteral("B\r\n")}));
    QVERIFY(m_queue->awaitsDevice());
    QVERIFY(waitForAnswer());
    QCOMPARE(m_queue->count(), 0);
    QTRY_COMPARE(printer.received.toHex(' '), QByteArray("\x1B@\x1Bt\x13"
                                                         "Gr\x94\xE1"
                                                         "e\nB\n"
                                                         "\x1B"
                                                         "d\x04\x1DVB\0",
                                                         20)
                                                  .toHex(' '));
}

void TestPrintDevices::tcpPrintsTwice()
{
    NetworkPrinter printer;
    m_queue->setPrinter(std::make_unique<TcpPrinter>(QStringLiteral("localhost"), printer.port()));
    submit(makeJob({QStringLiteral("A\r\n")}));
    submit(makeJob({QStringLiteral("B\r\n")}));
    QVERIFY(waitForAnswer());
    QCOMPARE(m_queue->printedCount(), 2);
    QCOMPARE(printer.connections, 2);
    QTRY_COMPARE(printer.received.count(EscPos::end()), 2);
    QVERIFY(printer.received.indexOf('A') < printer.received.indexOf('B'));
}

void TestPrintDevices::tcpBreaksAtEveryLine_data()
{
    QTest::addColumn<int>("line");
    for (int line = 1; line <= 5; ++line)
        QTest::addRow("after line %d", line) << line;
}

/// Whatever the line, none is lost and none is there twice. A slow printer lets the break be known before the next
/// line is sent.
void TestPrintDevices::tcpBreaksAtEveryLine()
{
    QFETCH(int, line);
    NetworkPrinter printer;
    printer.breakAt = line;
    m_queue->setPrinter(std::make_unique<TcpPrinter>(QStringLiteral("127.0.0.1"), printer.port()));
    m_queue->setFault(PrinterFault::Slow);
    submit(makeJob(numbered(6)));
    const auto print = [this] {
        while (m_queue->count() > m_queue->failedCount()) {
            if (!QTest::qWaitFor([this] { return !m_queue->awaitsDevice(); }, 20000))
                return false;
            QTest::qWait(20); // The end of the connection travels.
            m_clock.advance(PrintQueue::SlowMs);
        }
        return true;
    };
    QVERIFY(print());
    if (m_queue->failedCount() > 0) {
        QCOMPARE(m_queue->entries().at(0).printedBlocks, line);
        QVERIFY(m_queue->repeat());
        QVERIFY(print());
    }
    QCOMPARE(m_queue->count(), 0);
    QCOMPARE(printer.connections, 2);
    QTRY_VERIFY(printer.received.endsWith(EscPos::end()));
    for (int index = 1; index <= 6; ++index)
        QCOMPARE(printer.received.count("line " + QByteArray::number(index) + '\n'), 1);
}

void TestPrintDevices::tcpIsNotThere()
{
    quint16 port = 0;
    {
        NetworkPrinter printer;
        port = printer.port();
    }
    m_queue->setPrinter(std::make_unique<TcpPrinter>(QStringLiteral("127.0.0.1"), port));
    submit(makeJob({QStringLiteral("A\r\n")}));
    QVERIFY(waitForAnswer());
    QCOMPARE(m_queue->failedCount(), 1);
    const QString cause = m_queue->entries().at(0).cause.text();
    QVERIFY2(cause.startsWith(QStringLiteral("The printer 127.0.0.1:%1 cannot be reached: ").arg(port)),
             qPrintable(cause));
}

/// A printer without paper holds its connection and reads nothing.
void TestPrintDevices::tcpTakesNothing()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    std::unique_ptr<QTcpSocket> peer;
    connect(&server, &QTcpServer::newConnection, &server, [&] {
        peer.reset(server.nextPendingConnection());
        peer->setReadBufferSize(1);
    });
    auto device = std::make_unique<TcpPrinter>(QStringLiteral("127.0.0.1"), server.serverPort());
    device->setTimeouts(5000, 300);
    m_queue->setPrinter(std::move(device));
    PrintJob job = makeJob(numbered(1));
    // More than the system keeps for a connection in both its ends.
    for (int block = 0; block < 40; ++block)
        job.PrintLine(QString(24000, QLatin1Char('x')));
    for (int index = 0; index < 20 && m_queue->failedCount() == 0; ++index) {
        submit(job);
        QVERIFY(waitForAnswer());
    }
    QCOMPARE(m_queue->failedCount(), 1);
    const QString cause = m_queue->entries().at(0).cause.text();
    QVERIFY2(cause.contains(QStringLiteral("takes no more data")), qPrintable(cause));
}

void TestPrintDevices::tcpIsCancelled()
{
    NetworkPrinter printer;
    m_queue->setPrinter(std::make_unique<TcpPrinter>(QStringLiteral("127.0.0.1"), printer.port()));
    submit(makeJob({QStringLiteral("A\r\n")}));
    QVERIFY(m_queue->remove(m_queue->entries().at(0).id));
    QVERIFY(!m_queue->awaitsDevice());
    submit(makeJob({QStringLiteral("B\r\n")}));
    QVERIFY(waitForAnswer());
    QCOMPARE(m_queue->count(), 0);
    QTRY_VERIFY(printer.received.endsWith(EscPos::end()));
    QVERIFY(!printer.received.contains('A'));
}

void TestPrintDevices::sics()
{
    QByteArray sent;
    m_queue->setSicsOutput(std::make_unique<SicsPrinter>([&sent](const QByteArray& answer) {
        sent += answer;
        return 1;
    }));
    PrintJob job(QStringLiteral("Weight"), 40, PrintFormat::Sics);
    job.PrintLine(QStringLiteral("  S     100.00 g\r\n"));
    job.PrintLine(QStringLiteral("  I\r\n"));
    submit(job);
    QCOMPARE(sent, QByteArray("S S     100.00 g\r\nS I\r\n"));
}

void TestPrintDevices::sicsWithoutAComputer()
{
    int computers = 0;
    m_queue->setSicsOutput(
        std::make_unique<SicsPrinter>([&computers](const QByteArray&) { return computers; }));
    PrintJob job(QStringLiteral("Weight"), 40, PrintFormat::Sics);
    job.PrintLine(QStringLiteral("  I\r\n"));
    submit(job);
    QCOMPARE(m_queue->failedCount(), 1);
    computers = 1;
    QVERIFY(m_queue->repeat());
    QCOMPARE(m_queue->count(), 0);
}

QTEST_MAIN(TestPrintDevices)
#include "tst_printdevices.moc"
