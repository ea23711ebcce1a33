// SPDX-License-Identifier: BSD-3-Clause
#include "SessionFixture.h"
#include "print/Formatter.h"
#include "script/ScriptRunner.h"
#include "sics/SicsServer.h"

#include <QFile>
#include <QQuickItem>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;

namespace
{

QQuickItem* findItem(QQuickItem* parent, const QString& name)
{
    if (parent->objectName() == name)
        return parent;
    const QList<QQuickItem*> children = parent->childItems();
    for (QQuickItem* const child : children) {
        if (QQuickItem* const found = findItem(child, name))
            return found;
    }
    return nullptr;
}

} // namespace

/// Printing on a whole terminal, played by scripts.
class TestPrinting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void goesToTheRoll();
    void goesToTheFile();
    void goesToTheNetwork();
    void goesNowhere();
    void printKeyPrintsTheProtocol();
    void printKeyWithoutPaper();
    void sicsAnswerGoesToConnectedComputers();
    void repeatsByScript();
    void repeatsByKey();
    void repeatKeyIsThereForFailuresOnly();
    void repeatsOnTheStatusLine();
    void failureIsAnErrorAndNoPluginFault();
    void slowPrinterIsWaitedFor();
    void slowPrinterAtTheEnd();
    void expectationsFail_data();
    void expectationsFail();
    void nothingToRepeat();
    void survivesARestart();
    void benchShowsIt();
    void keysOfTheBench();
    void benchSpeaksGerman();

private:
    Session& session() { return *m_fixture->session; }
    void start();
    void print(const QString& title = QStringLiteral("Batch"));
    bool play(const QString& text);
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SessionFixture> m_fixture;
    QStringList m_failures;
};

void TestPrinting::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_fixture = std::make_unique<SessionFixture>();
    m_failures.clear();
}

void TestPrinting::cleanup()
{
    if (m_fixture->session)
        m_fixture->session->shutDown();
    m_fixture.reset();
}

void TestPrinting::start()
{
    m_fixture->start();
}

void TestPrinting::print(const QString& title)
{
    Formatter formatter;
    PrintJob job(title, session().options().printColumns);
    job.PrintLine(formatter.FormatText(job.layout(), title));
    job.PrintLine(formatter.FormatNameValueUnit(job.layout(), QStringLiteral("Net"), QStringLiteral("99.5"),
                                                QStringLiteral("g")));
    session().printQueue().submit(job);
}

bool TestPrinting::play(const QString& text)
{
    QStringList errors;
    const std::optional<Script> script =
        Script::parse(QString(text).replace(QLatin1String("; "), QLatin1String("\n")).toUtf8(),
                      QStringLiteral("a.script"), &errors);
    if (!script) {
        QTest::qFail(qPrintable(errors.join(QLatin1Char('\n'))), __FILE__, __LINE__);
        return false;
    }
    const ScriptOutput output{[](const QString&) {},
                              [this](const QString& message) { m_failures.append(message); }};
    ScriptRunner runner(session(), m_fixture->driver, output, QString());
    return runner.run(*script);
}

void TestPrinting::goesToTheRoll()
{
    m_fixture->options.printColumns = 24;
    start();
    print();
    QVERIFY(play(QStringLiteral("expect printer ready; expect queue 0")));
    QCOMPARE(session().paper().text(), QStringLiteral("Batch\nNet            99.5 g\n\n"));
    QCOMPARE(session().printQueue().lastPrint(), QStringLiteral("Batch\nNet            99.5 g\n"));
}

void TestPrinting::goesToTheFile()
{
    m_fixture->options.printer.kind = PrinterSpec::Kind::File;
    m_fixture->options.printer.path = path("out.txt");
    start();
    print();
    QFile file(path("out.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("Batch\nNet                          99.5 g\n\n"));
    QCOMPARE(session().paper().count(), 0);
}

/// The script waits for the printer, whose answers take no time of the terminal's clock.
void TestPrinting::goesToTheNetwork()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    m_fixture->options.printer.kind = PrinterSpec::Kind::Tcp;
    m_fixture->options.printer.host = QStringLiteral("127.0.0.1");
    m_fixture->options.printer.port = server.serverPort();
    start();
    print();
    QCOMPARE(session().printQueue().count(), 1);
    QVERIFY(play(QStringLiteral("expect printer ready; expect queue 0")));
    QCOMPARE(session().printQueue().printedCount(), 1);
}

void TestPrinting::goesNowhere()
{
    m_fixture->options.printer.kind = PrinterSpec::Kind::None;
    start();
    print();
    QVERIFY(play(QStringLiteral("expect printer none; expect queue 0")));
}

void TestPrinting::printKeyPrintsTheProtocol()
{
    m_fixture->options.printColumns = 24;
    start();
    session().host().protocol().setChosen(QStringLiteral("terminal.date"), true);
    session().host().protocol().setChosen(QStringLiteral("terminal.time"), true);
    QVERIFY(play(QStringLiteral("wait stable; press print; expect queue 0; expect printer ready")));
    QCOMPARE(session().printQueue().lastPrint(),
             QStringLiteral("Date      2026-01-01\nTime      08:00:01\n"));
    QCOMPARE(session().paper().text(), session().printQueue().lastPrint() + QLatin1Char('\n'));
}

void TestPrinting::printKeyWithoutPaper()
{
    start();
    session().host().protocol().setChosen(QStringLiteral("terminal.date"), true);
    QVERIFY(play(QStringLiteral("wait stable; set printer paper out; press print; expect queue 1; "
                                "expect notice out of paper; set printer ok; repeat print; expect queue 0")));
    QCOMPARE(m_failures, QStringList());
    QCOMPARE(session().paper().count(), 2); // The date and the cut.
}

void TestPrinting::sicsAnswerGoesToConnectedComputers()
{
    QString error;
    m_fixture->options.sics = SicsAddress::parse(QStringLiteral("0"), &error);
    QVERIFY2(m_fixture->options.sics, qPrintable(error));
    start();
    QVERIFY2(session().listen(&error), qPrintable(error));
    PrintJob job(QStringLiteral("Weight"), 40, PrintFormat::Sics);
    job.PrintLine(QStringLiteral("  S     100.00 g\r\n"));
    QVERIFY(session().printQueue().submit(job));
    QVERIFY(play(QStringLiteral("expect queue 1; expect notice No computer is connected")));

    QTcpSocket computer;
    computer.connectToHost(QHostAddress(QHostAddress::LocalHost), session().sics()->address().port);
    QTRY_COMPARE(session().sics()->clientCount(), 1);
    QVERIFY(play(QStringLiteral("repeat print; expect queue 0")));
    QTRY_COMPARE(computer.bytesAvailable(), 18);
    QCOMPARE(computer.readAll(), QByteArray("S S     100.00 g\r\n"));
    QCOMPARE(m_failures, QStringList());
}

void TestPrinting::repeatsByScript()
{
    start();
    QVERIFY(play(QStringLiteral("set printer paper out; expect printer paper out")));
    print();
    QVERIFY(
        play(QStringLiteral("expect queue 1; expect notice out of paper; set printer ok; "
                            "expect printer stopped; repeat print; expect queue 0; expect printer ready")));
    QCOMPARE(m_failures, QStringList());
    QCOMPARE(session().paper().text(), QStringLiteral("Batch\nNet                          99.5 g\n\n"));
    QCOMPARE(session().errors(), QStringList()); // It was expected.
}

void TestPrinting::repeatsByKey()
{
    start();
    session().printQueue().setFault(PrinterFault::Offline);
    print();
    session().printQueue().setFault(PrinterFault::None);
    QVERIFY(play(
        QStringLiteral("expect action repeatPrint text Repeat print; press repeatPrint; expect queue 0")));
    QCOMPARE(session().printQueue().printedCount(), 1);
}

void TestPrinting::repeatKeyIsThereForFailuresOnly()
{
    start();
    const auto uids = [this] {
        QStringList uids;
        for (const ActionEntry& entry : session().actions().actions())
            uids.append(entry.uid);
        return uids;
    };
    QVERIFY(!uids().contains(QStringLiteral("repeatPrint")));
    session().printQueue().setFault(PrinterFault::Offline);
    print();
    QVERIFY(uids().contains(QStringLiteral("repeatPrint")));
    session().printQueue().setFault(PrinterFault::None);
    session().printQueue().repeat();
    QVERIFY(!uids().contains(QStringLiteral("repeatPrint")));
}

void TestPrinting::repeatsOnTheStatusLine()
{
    start();
    InstrumentModel& instrument = session().instrument();
    QCOMPARE(instrument.failedPrints(), 0);
    session().printQueue().setFault(PrinterFault::Offline);
    print();
    QCOMPARE(instrument.failedPrints(), 1);
    session().printQueue().setFault(PrinterFault::None);
    emit instrument.repeatPrintsPressed();
    QCOMPARE(instrument.failedPrints(), 0);
    QCOMPARE(session().printQueue().printedCount(), 1);
}

void TestPrinting::failureIsAnErrorAndNoPluginFault()
{
    start();
    session().printQueue().setFault(PrinterFault::Offline);
    print();
    QCOMPARE(session().errors().size(), 1);
    QVERIFY(session().errors().constFirst().startsWith(QStringLiteral("Batch is not printed: ")));
    QCOMPARE(session().instrument().noticeText(), session().errors().constFirst());
    QCOMPARE(session().bench().pluginFaults(), QStringList());
    session().printQueue().setFault(PrinterFault::None);
    session().printQueue().repeat();
}

void TestPrinting::slowPrinterIsWaitedFor()
{
    start();
    QVERIFY(play(QStringLiteral("set printer slow")));
    print();
    QVERIFY(
        play(QStringLiteral("expect printer printing; wait 0.6 s; expect queue 1; wait print within 0.5 s; "
                            "expect queue 0; expect printer ready")));
    QCOMPARE(m_failures, QStringList());
}

void TestPrinting::slowPrinterAtTheEnd()
{
    start();
    session().printQueue().setFault(PrinterFault::Slow);
    print();
    session().shutDown();
    QCOMPARE(session().errors().size(), 1);
    QVERIFY2(session().errors().constFirst().contains(QStringLiteral("--settings")),
             qPrintable(session().errors().constFirst()));
}

void TestPrinting::expectationsFail_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("failure");
    QTest::newRow("queue") << QStringLiteral("expect queue 2")
                           << QStringLiteral(
                                  "a.script:1: expected 2 in the print queue, but printed: 0, in the "
                                  "queue: 1, failed: 1");
    QTest::newRow("printer") << QStringLiteral("expect printer ready")
                             << QStringLiteral("a.script:1: expected the printer ready, but it is offline");
    QTest::newRow("wait") << QStringLiteral("set printer slow; repeat print; wait print within 0.4 s")
                          << QStringLiteral(
                                 "a.script:3: the printer has not finished within 0.4 s; printed: 0, in "
                                 "the queue: 1, failed: 0");
}

void TestPrinting::expectationsFail()
{
    QFETCH(QString, script);
    QFETCH(QString, failure);
    start();
    session().printQueue().setFault(PrinterFault::Offline);
    print();
    QVERIFY(!play(script));
    QCOMPARE(m_failures, QStringList{failure});
}

void TestPrinting::nothingToRepeat()
{
    start();
    QVERIFY(!play(QStringLiteral("repeat print")));
    QCOMPARE(m_failures, QStringList{QStringLiteral("a.script:1: no print-out has failed")});
}

void TestPrinting::survivesARestart()
{
    m_fixture->options.settings = path("terminal.ini");
    start();
    session().printQueue().setFault(PrinterFault::PaperOut);
    print(QStringLiteral("First"));
    print(QStringLiteral("Second"));
    session().shutDown();
    m_fixture->session.reset();
    QVERIFY(QFile::exists(path("terminal.print-queue")));

    start();
    QVERIFY(play(QStringLiteral("expect queue 2; expect printer stopped; expect notice not printed: 2; "
                                " repeat print; expect queue 0")));
    QCOMPARE(m_failures, QStringList());
    QCOMPARE(session().paper().text(), QStringLiteral("First\nNet                          99.5 g\n\n"
                                                      "Second\nNet                          99.5 g\n\n"));
    QVERIFY(!QFile::exists(path("terminal.print-queue")));
}

void TestPrinting::benchShowsIt()
{
    start();
    PrinterModel& printer = session().printer();
    QCOMPARE(printer.description(), QStringLiteral("Paper roll"));
    QCOMPARE(printer.stateText(), QStringLiteral("Ready"));
    QVERIFY(printer.printsOnRoll());
    printer.setFault(QStringLiteral("paper out"));
    print();
    QCOMPARE(printer.stateText(), QStringLiteral("Out of paper"));
    QVERIFY(printer.needsHelp());
    QCOMPARE(printer.prints().size(), 1);
    const QVariantMap entry = printer.prints().constFirst().toMap();
    QCOMPARE(entry.value(QStringLiteral("title")).toString(), QStringLiteral("Batch"));
    QVERIFY(entry.value(QStringLiteral("detail")).toString().startsWith(QStringLiteral("0 of 2 printed. ")));
    QVERIFY(entry.value(QStringLiteral("failed")).toBool());
    printer.setFault(QStringLiteral("nonsense"));
    QCOMPARE(printer.fault(), QStringLiteral("paper out"));
    printer.setFault(QStringLiteral("ok"));
    QCOMPARE(printer.stateText(), QStringLiteral("Stopped"));
    printer.repeat(entry.value(QStringLiteral("id")).toString());
    QCOMPARE(printer.prints().size(), 0);
    QCOMPARE(session().printQueue().printedCount(), 1);

    printer.setFault(QStringLiteral("offline"));
    print();
    printer.remove(printer.prints().constFirst().toMap().value(QStringLiteral("id")).toString());
    QCOMPARE(printer.prints().size(), 0);
    QCOMPARE(session().printQueue().printedCount(), 1);
}

void TestPrinting::keysOfTheBench()
{
    start();
    QVERIFY(play(QStringLiteral("bench printer")));
    const auto touch = [this](const QString& name) {
        QString error; // Drawing lays the lists out.
        session().grab(path("bench.png"), &error);
        QQuickItem* const key = findItem(session().window().rootItem(), name);
        return key && key->isEnabled() && QMetaObject::invokeMethod(key, "clicked");
    };
    QVERIFY(!touch(QStringLiteral("tearOff"))); // There is no paper yet.
    QVERIFY(touch(QStringLiteral("printerFault:paper out")));
    QCOMPARE(session().printQueue().fault(), PrinterFault::PaperOut);
    print();
    print();
    QVERIFY(touch(QStringLiteral("printerFault:ok")));
    QVERIFY(touch(QStringLiteral("deletePrint:2")));
    QCOMPARE(session().printQueue().count(), 1);
    QVERIFY(touch(QStringLiteral("repeatPrint:1")));
    QCOMPARE(session().printQueue().count(), 0);
    QCOMPARE(session().paper().count(), 3);
    QVERIFY(touch(QStringLiteral("tearOff")));
    QCOMPARE(session().paper().count(), 0);
    QCOMPARE(session().window().takeQmlWarnings(), QStringList());
}

void TestPrinting::benchSpeaksGerman()
{
    start();
    session().setLanguage(QStringLiteral("de"));
    QCOMPARE(session().printer().description(), QStringLiteral("Papierrolle"));
    QCOMPARE(session().printer().stateText(), QStringLiteral("Bereit"));
    session().setLanguage(QStringLiteral("en"));
}

QTEST_MAIN(TestPrinting)
#include "tst_printing.moc"
