// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

namespace
{

/// A computer that asks the terminal.
class Computer : public QObject
{
    Q_OBJECT

public:
    explicit Computer(quint16 port)
        : m_port(port)
    {
        connect(&m_socket, &QTcpSocket::readyRead, this, [this] {
            m_received += m_socket.readAll();
            emit arrived();
        });
        connectToTerminal();
    }

    void connectToTerminal() { m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), m_port); }
    QTcpSocket& socket() { return m_socket; }
    bool isConnected() const { return m_socket.state() == QTcpSocket::ConnectedState; }
    void send(const QByteArray& bytes) { m_socket.write(bytes); }
    QByteArray received() const { return m_received; }
    QByteArray taken()
    {
        QByteArray result;
        result.swap(m_received);
        return result;
    }

    /// Asks and waits for one line.
    QByteArray answerTo(const QByteArray& command)
    {
        m_received.clear();
        send(command + "\r\n");
        QEventLoop loop;
        connect(this, &Computer::arrived, &loop, [this, &loop] {
            if (m_received.endsWith("\r\n"))
                loop.quit();
        });
        QTimer::singleShot(TerminalProcess::TimeoutMs, &loop, &QEventLoop::quit);
        loop.exec();
        return m_received.endsWith("\r\n") ? taken() : QByteArray("no answer");
    }

signals:
    void arrived();

private:
    const quint16 m_port;
    QTcpSocket m_socket;
    QByteArray m_received;
};

/// A scale in the network that sends the same line again and again.
class RepeatingScale : public QObject
{
public:
    RepeatingScale()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (m_socket && !m_line.isEmpty())
                m_socket->write(m_line + "\r\n");
        });
        connect(&m_server, &QTcpServer::newConnection, this,
                [this] { m_socket = m_server.nextPendingConnection(); });
        m_server.listen(QHostAddress::LocalHost);
        m_timer.start(20);
    }

    QString source() const { return QStringLiteral("tcp:127.0.0.1:%1").arg(m_server.serverPort()); }
    void setLine(const QByteArray& line) { m_line = line; }
    void hangUp()
    {
        m_server.close();
        m_socket->disconnectFromHost();
        m_socket = nullptr;
    }

private:
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
    QTimer m_timer;
    QByteArray m_line;
};

/// A scale in the network that sends an ever growing weight, one tenth of a gram at a time.
class GrowingScale : public QObject
{
public:
    GrowingScale()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (m_sent == m_count)
                return;
            ++m_sent;
            m_socket->write("S D " + QByteArray::number(m_sent / 10.0, 'f', 1).rightJustified(10) + " g\r\n");
        });
        connect(&m_server, &QTcpServer::newConnection, this,
                [this] { m_socket = m_server.nextPendingConnection(); });
        m_server.listen(QHostAddress::LocalHost);
    }

    QString source() const { return QStringLiteral("tcp:127.0.0.1:%1").arg(m_server.serverPort()); }
    bool isConnected() const { return m_socket != nullptr; }
    void begin(int count, int intervalMs)
    {
        m_count = count;
        m_timer.start(intervalMs);
    }
    int sent() const { return m_sent; }

private:
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
    QTimer m_timer;
    int m_count = 0;
    int m_sent = 0;
};

/// A server whose time passes ten times as fast, so that its scale comes to rest soon.
const QStringList QuickServer{QStringLiteral("--sics"), QStringLiteral("0"), QStringLiteral("--speed"),
                              QStringLiteral("10")};

} // namespace

/// The SICS server of the terminal and computers that are connected to it.
class TestSics : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void conversation();
    void everyStateOfTheScale();
    void serialNumberOfTheSettings();
    void terminalAsScaleOfATerminal();
    void zeroOfAnotherTerminal();
    void portInUse();
    void wrongPort();
    void moreThanItsClients();
    void endOfTheTerminal();
    void twentyClientsAsFastAsTheyCan();

private:
    std::unique_ptr<TerminalProcess> started(const QStringList& arguments, const QByteArray& script);
    quint16 portOf(TerminalProcess& terminal);
    static bool reported(TerminalProcess& terminal, const char* note)
    {
        return terminal.waitForOutput(QLatin1Char('\n') + QLatin1String(note) + QLatin1Char('\n'));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSics::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestSics::cleanup()
{
    m_folder.reset();
}

/// Starts a terminal without a plug-in on @p script.
std::unique_ptr<TerminalProcess> TestSics::started(const QStringList& arguments, const QByteArray& script)
{
    QTemporaryFile file(m_folder->filePath(QStringLiteral("XXXXXX.script")));
    file.setAutoRemove(false);
    if (!file.open() || file.write(script) != script.size())
        qFatal("the script cannot be written");
    file.close();
    auto terminal = std::make_unique<TerminalProcess>();
    terminal->setArguments(QStringList{QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                                       QStringLiteral("--script"), file.fileName()}
                           + arguments);
    terminal->start();
    return terminal;
}

/// The port that the terminal tells.
quint16 TestSics::portOf(TerminalProcess& terminal)
{
    static const QRegularExpression line(QStringLiteral("^sics: 127\\.0\\.0\\.1:([0-9]+)$"),
                                         QRegularExpression::MultilineOption);
    terminal.waitForOutput(QStringLiteral("plug-in: none\n"));
    return line.match(terminal.outputText()).captured(1).toUShort();
}

void TestSics::conversation()
{
    // The weight is moved under the eyes of the client, which reads what becomes of it.
    const auto terminal =
        started(QuickServer, "set noise 0\nput on 100 g\nwait stable\nnote Stable\nwait 600 s\n");
    const quint16 port = portOf(*terminal);
    QVERIFY2(port > 0, terminal->everything().constData());
    QVERIFY2(reported(*terminal, "Stable"), terminal->everything().constData());
    Computer computer(port);
    QCOMPARE(computer.answerTo("S"), QByteArray("S S      100.0 g\r\n"));
    QCOMPARE(computer.answerTo("SI"), QByteArray("S S      100.0 g\r\n"));
    QCOMPARE(computer.answerTo("T"), QByteArray("T S      100.0 g\r\n"));
    QCOMPARE(computer.answerTo("S"), QByteArray("S S        0.0 g\r\n"));
    QCOMPARE(computer.answerTo("Z"), QByteArray("Z A\r\n"));
    QCOMPARE(computer.answerTo("@"), QByteArray("I4 A \"0\"\r\n"));
    QCOMPARE(computer.answerTo("tare"), QByteArray("ES\r\n"));
    QCOMPARE(computer.answerTo("T 100 g"), QByteArray("EL\r\n"));
    terminal->terminate();
    QVERIFY(terminal->finish());
    COMPARE_EXIT_CODE(*terminal, 143);
    // No key of the terminal was pressed, and nothing was wrong.
    QCOMPARE(terminal->errorText(), QString());
}

void TestSics::everyStateOfTheScale()
{
    RepeatingScale scale;
    const auto terminal =
        started({QStringLiteral("--sics"), QStringLiteral("0"), QStringLiteral("--source"), scale.source()},
                "wait 60 s\n");
    Computer computer(portOf(*terminal));
    QCOMPARE(computer.answerTo("SI"), QByteArray("S I\r\n"));
    const auto becomes = [&computer](const QByteArray& answer) {
        return QTest::qWaitFor([&] { return computer.answerTo("SI") == answer; }, TerminalProcess::TimeoutMs);
    };
    scale.setLine("S D     100.02 g");
    QVERIFY(becomes("S D     100.02 g\r\n"));
    scale.setLine("S S     100.00 g");
    QVERIFY(becomes("S S     100.00 g\r\n"));
    QCOMPARE(computer.answerTo("S"), QByteArray("S S     100.00 g\r\n"));
    scale.setLine("S +");
    QVERIFY(becomes("S +\r\n"));
    QCOMPARE(computer.answerTo("S"), QByteArray("S +\r\n"));
    QCOMPARE(computer.answerTo("Z"), QByteArray("Z +\r\n"));
    QCOMPARE(computer.answerTo("T"), QByteArray("T +\r\n"));
    scale.setLine("S -");
    QVERIFY(becomes("S -\r\n"));
    QCOMPARE(computer.answerTo("S"), QByteArray("S -\r\n"));
    QCOMPARE(computer.answerTo("Z"), QByteArray("Z -\r\n"));
    QCOMPARE(computer.answerTo("T"), QByteArray("T -\r\n"));
    scale.setLine("garbage");
    QVERIFY(becomes("S I\r\n"));
    // A command that waits is answered as soon as there is a stable weight again.
    scale.setLine("S D       0.50 g");
    QVERIFY(becomes("S D       0.50 g\r\n"));
    computer.send("T\r\n");
    scale.setLine("S S       0.40 g");
    QTRY_COMPARE_WITH_TIMEOUT(computer.received(), QByteArray("T S       0.40 g\r\n"),
                              TerminalProcess::TimeoutMs);
    QCOMPARE(computer.answerTo("S"), QByteArray("S S       0.00 g\r\n"));
    scale.hangUp();
    QVERIFY(becomes("S I\r\n"));
    QCOMPARE(computer.answerTo("T"), QByteArray("T I\r\n"));
}

void TestSics::serialNumberOfTheSettings()
{
    QFile settings(m_folder->filePath(QStringLiteral("terminal.ini")));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("[terminal]\nserialNumber=B-1042\n");
    settings.close();
    const auto terminal = started(
        {QStringLiteral("--sics"), QStringLiteral("0"), QStringLiteral("--settings"), settings.fileName()},
        "wait 60 s\n");
    Computer computer(portOf(*terminal));
    QCOMPARE(computer.answerTo("@"), QByteArray("I4 A \"B-1042\"\r\n"));
}

void TestSics::terminalAsScaleOfATerminal()
{
    const auto scale =
        started(QuickServer, "set noise 0\nput on 36.4 g\nwait stable\nnote Ready\nwait 600 s\n");
    const quint16 port = portOf(*scale);
    QVERIFY2(reported(*scale, "Ready"), scale->everything().constData());
    const auto terminal = started({QStringLiteral("--source"), QStringLiteral("tcp:127.0.0.1:%1").arg(port)},
                                  "wait display 36.4 g within 50 s\nwait stable within 50 s\n"
                                  "expect display 36.4 g\nexpect stable\n");
    QVERIFY(terminal->finish());
    COMPARE_EXIT_CODE(*terminal, 0);
    QCOMPARE(terminal->outputLines().last(), QStringLiteral("display: 36.4 g  stable"));
}

void TestSics::zeroOfAnotherTerminal()
{
    // What one computer does, another sees.
    const auto scale =
        started(QuickServer, "set noise 0\nput on 50 g\nwait stable\nnote Ready\nwait 600 s\n");
    const quint16 port = portOf(*scale);
    QVERIFY2(reported(*scale, "Ready"), scale->everything().constData());
    const auto terminal =
        started({QStringLiteral("--source"), QStringLiteral("tcp:127.0.0.1:%1").arg(port)},
                "wait display 50.0 g within 50 s\nnote Seen\nwait display 0.0 g within 50 s\n");
    QVERIFY2(reported(*terminal, "Seen"), terminal->everything().constData());
    Computer computer(port);
    QCOMPARE(computer.answerTo("Z"), QByteArray("Z A\r\n"));
    QVERIFY(terminal->finish());
    COMPARE_EXIT_CODE(*terminal, 0);
}

void TestSics::portInUse()
{
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost));
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        TerminalProcess::words(QStringLiteral("--headless --no-plugin --sics %1").arg(other.serverPort()))));
    COMPARE_EXIT_CODE(terminal, 1);
    QCOMPARE(terminal.errorText(),
             QStringLiteral("brimvale-terminal: The SICS server cannot listen on 127.0.0.1:%1: another "
                            "program uses this port; end it or choose another port.\n")
                 .arg(other.serverPort()));
    QCOMPARE(terminal.outputText(), QString());
}

void TestSics::wrongPort()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(QStringLiteral("--headless --no-plugin --sics here:4001"))));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().startsWith(
                 QLatin1String("brimvale-terminal: --sics: \"here\" is no address of this computer")),
             terminal.everything().constData());
}

void TestSics::moreThanItsClients()
{
    const auto terminal = started({QStringLiteral("--sics"), QStringLiteral("0")}, "wait 60 s\n");
    const quint16 port = portOf(*terminal);
    std::vector<std::unique_ptr<Computer>> computers;
    for (int i = 0; i < 32; ++i) {
        computers.push_back(std::make_unique<Computer>(port));
        QCOMPARE(computers.back()->answerTo("@"), QByteArray("I4 A \"0\"\r\n"));
    }
    Computer oneMore(port);
    QVERIFY2(terminal->waitForError(QStringLiteral("was refused: there are 32 already.")),
             terminal->everything().constData());
    QTRY_COMPARE(oneMore.socket().state(), QTcpSocket::UnconnectedState);
    QCOMPARE(computers.front()->answerTo("@"), QByteArray("I4 A \"0\"\r\n"));
}

void TestSics::endOfTheTerminal()
{
    const auto terminal = started({QStringLiteral("--sics"), QStringLiteral("0")}, "wait 60 s\n");
    Computer computer(portOf(*terminal));
    computer.send("SIR\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(computer.received().size() > 0, TerminalProcess::TimeoutMs);
    terminal->terminate();
    QVERIFY(terminal->finish());
    COMPARE_EXIT_CODE(*terminal, 143);
    QTRY_COMPARE(computer.socket().state(), QTcpSocket::UnconnectedState);
}

void TestSics::twentyClientsAsFastAsTheyCan()
{
    // Counted, not timed: while 20 clients ask without a pause, others flood, send garbage and vanish, every weight
    // of the scale is a reading of the terminal, is shown, and is told to the client that reads along.
    constexpr int Clients = 20;
    constexpr int IntervalMs = 20;
    const int seconds = qEnvironmentVariableIntValue("BRIMVALE_SICS_SECONDS") > 0
                            ? qEnvironmentVariableIntValue("BRIMVALE_SICS_SECONDS")
                            : 2;
    const int count = seconds * 1000 / IntervalMs;
    GrowingScale scale;
    const auto terminal =
        started({QStringLiteral("--sics"), QStringLiteral("0"), QStringLiteral("--source"), scale.source()},
                "note Ready\nwait display " + QByteArray::number(count / 10.0, 'f', 1)
                    + " g within 300 s\nnote Shown\nwait display Overload within 300 s\n");
    const quint16 port = portOf(*terminal);
    QVERIFY2(port > 0, terminal->everything().constData());
    QTRY_VERIFY_WITH_TIMEOUT(scale.isConnected(), TerminalProcess::TimeoutMs);

    Computer reader(port);
    QCOMPARE(reader.answerTo("SIR"), QByteArray("S I\r\n"));

    std::vector<std::unique_ptr<Computer>> asking;
    std::vector<int> answers(Clients, 0);
    QByteArrayList wrongAnswers;
    static const QRegularExpression answer(QStringLiteral("^S D [ ]*[0-9]+\\.[0-9] g\r\n$"));
    for (int i = 0; i < Clients; ++i) {
        asking.push_back(std::make_unique<Computer>(port));
        Computer* const computer = asking.back().get();
        connect(computer, &Computer::arrived, this, [computer, i, &answers, &wrongAnswers] {
            if (!computer->received().endsWith("\r\n"))
                return;
            const QByteArray line = computer->taken();
            if (line != "S I\r\n" && !answer.match(QString::fromLatin1(line)).hasMatch())
                wrongAnswers.append(line);
            ++answers[static_cast<std::size_t>(i)];
            computer->send("SI\r\n");
        });
        computer->send("SI\r\n");
    }

    // Those who do not keep to the rules; when they are disconnected they come back.
    const QByteArrayList troubles{QByteArray("SI\r\n").repeated(50), QByteArray("\r\n\n").repeated(1000),
                                  QByteArray("\xff\0Z S@\r", 7).repeated(100), QByteArray(3000, 'S')};
    std::vector<std::unique_ptr<Computer>> troubling;
    for (int i = 0; i < troubles.size(); ++i)
        troubling.push_back(std::make_unique<Computer>(port));
    int returns = 0;
    QTimer trouble;
    connect(&trouble, &QTimer::timeout, this, [&] {
        for (std::size_t i = 0; i < troubling.size(); ++i) {
            Computer& computer = *troubling[i];
            computer.taken();
            if (computer.isConnected() && computer.socket().bytesToWrite() < 100000)
                computer.send(troubles.at(static_cast<int>(i)));
            else if (computer.socket().state() == QTcpSocket::UnconnectedState) {
                ++returns;
                computer.connectToTerminal();
            }
        }
        Computer vanishing(port);
        vanishing.socket().waitForConnected(100);
        vanishing.send("SIR\r\nS");
        vanishing.socket().flush();
        vanishing.socket().abort();
    });
    trouble.start(5);

    QElapsedTimer elapsed;
    elapsed.start();
    scale.begin(count, IntervalMs);
    QVERIFY2(terminal->waitForOutput(QStringLiteral("\nShown\n")), terminal->everything().constData());
    const qint64 shownMs = elapsed.elapsed();
    QCOMPARE(scale.sent(), count);

    QByteArray expected;
    for (int i = 1; i <= count; ++i)
        expected += "S D " + QByteArray::number(i / 10.0, 'f', 1).rightJustified(10) + " g\r\n";
    QTRY_COMPARE_WITH_TIMEOUT(reader.received(), expected, TerminalProcess::TimeoutMs);
    trouble.stop();
    QCOMPARE(wrongAnswers, QByteArrayList());
    int total = 0;
    for (const int number : answers) {
        QVERIFY(number > 0);
        total += number;
    }
    QVERIFY(returns > 0); // There was trouble.
    qInfo("%d weights in %.1f s shown after %.1f s; %d answers to %d clients, fewest %d; %d disconnected for "
          "flooding",
          count, count * IntervalMs / 1000.0, shownMs / 1000.0, total, Clients,
          *std::min_element(answers.begin(), answers.end()), returns);

    terminal->terminate();
    QVERIFY(terminal->finish());
    COMPARE_EXIT_CODE(*terminal, 143);
}

QTEST_GUILESS_MAIN(TestSics)

#include "tst_sics.moc"
