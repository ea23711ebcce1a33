// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

/// Printing from end to end: the sample plug-in's items through formatter and queue onto paper, into files, onto the
/// network and as SICS answers.
class TestPrintOuts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyLayoutAndLanguage();
    void paperIsLaidOut();
    void sameEveryTime();
    void differenceIsShown();
    void missingFileTellsOfApprove();
    void nothingIsRenewedUnasked();
    void approveRenews();
    void approveNeedsAScript();
    void callsOfThePrintKeyKeepTheirOrder();
    void choiceSurvivesARestart();
    void fileWithoutEndIsNoPrintOut();
    void pdfIsPrinted();
    void networkPrinterGetsThePrintOut();
    void itemThatIsNotOfferedIsNamed();

private:
    QStringList arguments(const QString& script, const QString& further = QString())
    {
        return QStringList{QStringLiteral("--headless"),
                           QStringLiteral("--plugin"),
                           TerminalProcess::weighingPlugin(),
                           QStringLiteral("--script"),
                           script,
                           QStringLiteral("--output"),
                           m_folder->path()}
               + TerminalProcess::words(further);
    }
    QString write(const char* name, const char* content)
    {
        const QString path = m_folder->filePath(QLatin1String(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0)
            qFatal("a file of the test cannot be written");
        return path;
    }
    QByteArray read(const char* name)
    {
        QFile file(m_folder->filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace
{

const char OneWeighing[] = "protocol items none\n"
                           "protocol item weighing.4net on\n"
                           "put on 36.4 g\n"
                           "wait stable\n"
                           "press print\n"
                           "expect print kept.txt\n";

} // namespace

void TestPrintOuts::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestPrintOuts::cleanup()
{
    m_folder.reset();
}

void TestPrintOuts::everyLayoutAndLanguage()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(TerminalProcess::data(QStringLiteral("printing/weighing.script")))));
    COMPARE_EXIT_CODE(terminal, 0);
    for (const char* name :
         {"protocol-menu.png", "paper-40.png", "paper-24.png", "paper-40-de.png", "paper-24-de.png"})
        QVERIFY2(!QImage(m_folder->filePath(QLatin1String(name))).isNull(), name);
}

/// The screen with the paper is laid out without a complaint of the QML engine.
void TestPrintOuts::paperIsLaidOut()
{
    const QString script =
        write("paper.script", "bench printer\nprotocol items all\nput on 36.4 g\nwait stable\n"
                              "press print\nwait print\npress print\nwait print\n"
                              "screenshot paper.png\nset print-columns 80\npress print\n"
                              "wait print\nscreenshot wide.png\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(script)));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(!terminal.errorText().contains(QLatin1String("QML")), terminal.everything().constData());
}

void TestPrintOuts::sameEveryTime()
{
    TerminalProcess first;
    QVERIFY(first.run(arguments(TerminalProcess::data(QStringLiteral("printing/weighing.script")))));
    TerminalProcess second;
    QVERIFY(second.run(arguments(TerminalProcess::data(QStringLiteral("printing/weighing.script")))));
    QVERIFY(first.outputText().contains(QStringLiteral("all met")));
    QCOMPARE(first.output(), second.output());
}

void TestPrintOuts::differenceIsShown()
{
    write("kept.txt", "Net               36.5 g\nThank you\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(write("one.script", OneWeighing))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(
        terminal.errorText().contains(QStringLiteral("one.script:6: expected the print-out \"kept.txt\", but "
                                                     "another was printed; if it is right, keep it with "
                                                     "--approve")),
        terminal.everything().constData());
    const QStringList lines = terminal.outputLines();
    QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("EXPECTED +PRINTED"))).isEmpty(),
             terminal.everything().constData());
    QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("Net +36\\.5 g ! Net +36\\.4 g$"))).isEmpty(),
             terminal.everything().constData());
    QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("Thank you +<$"))).isEmpty(),
             terminal.everything().constData());
}

void TestPrintOuts::missingFileTellsOfApprove()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(write("one.script", OneWeighing))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QStringLiteral("kept.txt cannot be read"))
                 && terminal.errorText().contains(QStringLiteral("keep it with --approve")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputText().contains(QStringLiteral("36.4 g\n")), terminal.everything().constData());
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("kept.txt"))));
}

void TestPrintOuts::nothingIsRenewedUnasked()
{
    write("kept.txt", "old\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(write("one.script", OneWeighing))));
    COMPARE_EXIT_CODE(terminal, 1);
    QCOMPARE(read("kept.txt"), QByteArray("old\n"));
}

void TestPrintOuts::approveRenews()
{
    write("kept.txt", "old\n");
    const QString script = write("one.script", OneWeighing);
    TerminalProcess approving;
    QVERIFY(approving.run(arguments(script, QStringLiteral("--approve"))));
    COMPARE_EXIT_CODE(approving, 0);
    QVERIFY2(approving.outputText().contains(QStringLiteral("kept as expected from now on")),
             approving.everything().constData());
    const QByteArray kept = read("kept.txt");
    QVERIFY2(kept.startsWith("Net ") && kept.endsWith(" 36.4 g\n"), kept.constData());
    TerminalProcess comparing;
    QVERIFY(comparing.run(arguments(script)));
    COMPARE_EXIT_CODE(comparing, 0);
}

void TestPrintOuts::approveNeedsAScript()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(QStringLiteral("--headless --no-plugin --approve"))));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().contains(QStringLiteral("add --script FILE")),
             terminal.everything().constData());
}

void TestPrintOuts::callsOfThePrintKeyKeepTheirOrder()
{
    write("kept.txt", "");
    const QString script = write("order.script", "protocol items none\n"
                                                 "protocol item weighing.4net on\n"
                                                 "put on 36.4 g\n"
                                                 "wait stable\n"
                                                 "press print\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(script, QStringLiteral("--trace-host-calls"))));
    COMPARE_EXIT_CODE(terminal, 0);
    static const QRegularExpression call(QStringLiteral("host call (\\w+::\\w+)\\(([^\\n]*)\\)"));
    QStringList calls;
    QRegularExpressionMatchIterator matches = call.globalMatch(terminal.errorText());
    bool transferred = false;
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        transferred =
            transferred || match.captured(1) == QLatin1String("IMeasurementTransfer::TransferMeasurement");
        const bool asked = match.captured(1).startsWith(QLatin1String("ISystem::Get"))
                           || match.captured(1).startsWith(QLatin1String("IPluginHost::Get"));
        if (transferred && !asked)
            calls.append(match.captured(1));
    }
    // What belongs to the transfer comes first and in its order; then the print item asks for its value.
    const QStringList expected{QStringLiteral("IMeasurementTransfer::TransferMeasurement"),
                               QStringLiteral("IMSWParameterSource::QueryFlagA"),
                               QStringLiteral("ISequencer::SetPrintPending"),
                               QStringLiteral("ISequencer::NotifyHostEvent"),
                               QStringLiteral("IPrintIndicator::SetPrintPressed"),
                               QStringLiteral("ISequencer::NotifyMeasurementTransferred"),
                               QStringLiteral("IMeasurementObserver::OnMeasurementTransferred"),
                               QStringLiteral("ISystemRegister::GetRegisterValue"),
                               QStringLiteral("ISystemRegister::GetRegisterValue"),
                               QStringLiteral("IMeasurementObserver::OnSystemRegistersRead"),
                               QStringLiteral("IRegisterValueProvider::GetMesswert")};
    QCOMPARE(calls.mid(0, expected.size()), expected);
}

void TestPrintOuts::choiceSurvivesARestart()
{
    const QString settings =
        QStringLiteral("--settings ") + m_folder->filePath(QStringLiteral("settings.ini"));
    write("kept.txt", "");
    TerminalProcess choosing;
    QVERIFY(choosing.run(arguments(write("choose.script", "protocol items none\n"
                                                          "protocol item weighing.4net on\n"
                                                          "protocol trigger weighing.tare\n"),
                                   settings)));
    COMPARE_EXIT_CODE(choosing, 0);
    TerminalProcess printing;
    QVERIFY(printing.run(arguments(write("print.script", "put on 36.4 g\n"
                                                         "wait stable\n"
                                                         "press print\n"
                                                         "expect print none\n"
                                                         "press weighing.tare\n"
                                                         "expect print kept.txt\n"),
                                   settings + QStringLiteral(" --approve"))));
    COMPARE_EXIT_CODE(printing, 0);
    QVERIFY2(read("kept.txt").startsWith("Net "), read("kept.txt").constData());
    QCOMPARE(read("kept.txt").count('\n'), 1);
}

void TestPrintOuts::fileWithoutEndIsNoPrintOut()
{
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), m_folder->filePath(QStringLiteral("kept.txt"))));
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(write("one.script", OneWeighing))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(
                 QStringLiteral("kept.txt is no print-out: it is longer than 1048576 bytes")),
             terminal.everything().constData());
}

void TestPrintOuts::pdfIsPrinted()
{
    const QString file = m_folder->filePath(QStringLiteral("weighing.pdf"));
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(TerminalProcess::data(QStringLiteral("printing/pdf.script")),
                                   QStringLiteral("--printer pdf:") + file)));
    COMPARE_EXIT_CODE(terminal, 0);
    QFile pdf(file);
    QVERIFY(pdf.open(QIODevice::ReadOnly));
    QVERIFY(pdf.readAll().startsWith("%PDF-"));
}

void TestPrintOuts::networkPrinterGetsThePrintOut()
{
    QTcpServer printer;
    QVERIFY(printer.listen(QHostAddress::LocalHost));
    QByteArray received;
    connect(&printer, &QTcpServer::newConnection, this, [&] {
        QTcpSocket* const socket = printer.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, this, [socket, &received] { received += socket->readAll(); });
    });
    TerminalProcess terminal;
    terminal.setArguments(arguments(TerminalProcess::data(QStringLiteral("printing/pdf.script")),
                                    QStringLiteral("--printer tcp:127.0.0.1:%1").arg(printer.serverPort())));
    terminal.start();
    QTRY_COMPARE_WITH_TIMEOUT(terminal.state(), QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(terminal.finish());
    COMPARE_EXIT_CODE(terminal, 0);
    QTRY_VERIFY(received.contains("Signature"));
    // In the order of the print-out, and cut at its end.
    int position = -1;
    for (const char* part :
         {"Weighing record", "Ada Lovelace", "BV-2026-0042", "36.4 g", "Signature", "\x1DV"}) {
        const int next = received.indexOf(part, position + 1);
        QVERIFY2(next > position, part);
        position = next;
    }
}

void TestPrintOuts::itemThatIsNotOfferedIsNamed()
{
    // A print item that is offered for another part is not there.
    TerminalProcess terminal;
    QVERIFY(terminal.run(arguments(write("wrong.script", "protocol item weighing.sics on\n"))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QStringLiteral(
                 "wrong.script:1: there is no print item \"weighing.sics\" for that kind and part; "
                 "there are: weighing.1title, weighing.2place, terminal.date")),
             terminal.everything().constData());
}

QTEST_GUILESS_MAIN(TestPrintOuts)
#include "tst_printouts.moc"
