// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace
{

/// A scale in the network: takes one terminal at a time.
class NetworkScale : public QObject
{
    Q_OBJECT

public:
    NetworkScale()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            m_socket = m_server.nextPendingConnection();
            emit connected();
        });
    }

    bool listen(quint16 port = 0) { return m_server.listen(QHostAddress::LocalHost, port); }
    void stopListening() { m_server.close(); }
    quint16 port() const { return m_server.serverPort(); }
    QString source() const { return QStringLiteral("tcp:127.0.0.1:%1").arg(port()); }

    bool waitForTerminal()
    {
        return QTest::qWaitFor([this] { return m_socket && m_socket->state() == QTcpSocket::ConnectedState; },
                               TerminalProcess::TimeoutMs);
    }

    void send(const QByteArray& bytes)
    {
        m_socket->write(bytes);
        m_socket->flush();
    }

    void hangUp()
    {
        m_socket->disconnectFromHost();
        m_socket = nullptr;
    }

signals:
    void connected();

private:
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
};

/// A weight line of a 0.1 g scale.
QByteArray weightLine(double grams, bool stable = false)
{
    return (stable ? "S S " : "S D ") + QByteArray::number(grams, 'f', 1).rightJustified(10) + " g\r\n";
}

} // namespace

/// Real scales: in the network and at a serial port.
class TestLiveSources : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void sameWeightsAsARecording();
    void hundredReadingsASecond();
    void forATime();
    void scaleThatIsNotThereYet();
    void halfLines();
    void garbage();
    void overloadAndUnderload();
    void stall();
    void scaleThatGoesAwayAndComesBack();
    void endedWhileItWaits();
    void readabilityOfTheLines();
    void serialPort();
    void serialPortThatIsNotThere();
    void noSerialPort_data();
    void noSerialPort();
    void scaleThatNeverAnswers();

private:
    void startTerminal(const QString& source, const QByteArray& script);
    bool reported(const QString& part);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TerminalProcess> m_terminal;
    std::unique_ptr<NetworkScale> m_scale;
};

void TestLiveSources::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_terminal = std::make_unique<TerminalProcess>();
    m_scale = std::make_unique<NetworkScale>();
    QVERIFY(m_scale->listen());
}

void TestLiveSources::cleanup()
{
    m_terminal.reset();
    m_scale.reset();
}

/// Starts the terminal with the sample plug-in on @p script.
void TestLiveSources::startTerminal(const QString& source, const QByteArray& script)
{
    QFile file(m_folder->filePath(QStringLiteral("a.script")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(script);
    file.close();
    m_terminal->setArguments({QStringLiteral("--headless"), QStringLiteral("--plugin"),
                              TerminalProcess::weighingPlugin(), QStringLiteral("--source"), source,
                              QStringLiteral("--script"), file.fileName()});
    m_terminal->start();
}

/// Waits until the report of the script has @p part.
bool TestLiveSources::reported(const QString& part)
{
    return m_terminal->waitForOutput(part);
}

void TestLiveSources::sameWeightsAsARecording()
{
    QFile recording(TerminalProcess::data(QStringLiteral("traces/filling.csv")));
    QVERIFY(recording.open(QIODevice::ReadOnly));
    recording.readLine();
    QByteArrayList lines;
    while (!recording.atEnd())
        lines.append(weightLine(recording.readLine().trimmed().split(',').at(1).toDouble()));
    QCOMPARE(lines.size(), 381);

    startTerminal(m_scale->source(), "wait display 48.2 g within 50 s\nwait stable within 50 s\n"
                                     "expect display 48.2 g\nexpect stable\n");
    QVERIFY(m_scale->waitForTerminal());
    // Faster than recorded; at the end the scale is at rest.
    for (const QByteArray& line : qAsConst(lines)) {
        m_scale->send(line);
        QTest::qWait(2);
    }
    QTimer last;
    connect(&last, &QTimer::timeout, this, [&] { m_scale->send(weightLine(48.2, true)); });
    last.start(100);
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    QCOMPARE(m_terminal->outputLines().last(), QStringLiteral("display: 48.2 g  stable"));
}

void TestLiveSources::hundredReadingsASecond()
{
    // Counted: every line that was sent is a reading, and the last one is shown.
    constexpr int Count = 500;
    startTerminal(m_scale->source(), "wait display 500.0 g within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    int sent = 0;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, [&] {
        if (sent < Count)
            m_scale->send(weightLine(++sent));
    });
    timer.start(10);
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    QVERIFY2(m_terminal->outputLines().contains(QStringLiteral("readings: %1").arg(Count)),
             m_terminal->everything().constData());
}

void TestLiveSources::forATime()
{
    m_terminal->setArguments({QStringLiteral("--headless"), QStringLiteral("--plugin"),
                              TerminalProcess::weighingPlugin(), QStringLiteral("--source"),
                              m_scale->source(), QStringLiteral("--duration"), QStringLiteral("2")});
    connect(m_scale.get(), &NetworkScale::connected, this, [this] { m_scale->send(weightLine(36.4, true)); });
    m_terminal->start();
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    QVERIFY2(m_terminal->outputLines().last().startsWith(QLatin1String("display: 36.4 g")),
             m_terminal->everything().constData());
}

void TestLiveSources::scaleThatIsNotThereYet()
{
    const quint16 port = m_scale->port();
    m_scale->stopListening();
    startTerminal(QStringLiteral("tcp:127.0.0.1:%1").arg(port),
                  "wait display \"No connection\"\nnote Waiting\nwait display 36.4 g within 50 s\n");
    QVERIFY2(reported(QStringLiteral("Waiting\n")), m_terminal->everything().constData());
    QVERIFY(m_scale->listen(port));
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(36.4));
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::halfLines()
{
    startTerminal(m_scale->source(), "wait display 36.4 g within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    for (const char byte : weightLine(36.4)) {
        m_scale->send(QByteArray(1, byte));
        QTest::qWait(5);
    }
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    QVERIFY2(m_terminal->outputLines().contains(QStringLiteral("readings: 1")),
             m_terminal->everything().constData());
}

void TestLiveSources::garbage()
{
    startTerminal(m_scale->source(), "wait display 1.0 g within 50 s\nnote Garbage, please\n"
                                     "wait display Unreadable within 50 s\nnote A weight, please\n"
                                     "wait display 36.4 g within 50 s\nexpect no host-call \"0.0 g\"\n");
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(1.0));
    QVERIFY2(reported(QStringLiteral("Garbage, please\n")), m_terminal->everything().constData());
    QByteArray garbage;
    for (int i = 0; i < 4096; ++i)
        garbage.append(static_cast<char>(i * 37));
    m_scale->send(garbage + "\r\n\xFF\xFE S S heavy g\r\nS S 12,5 g\r\n");
    QVERIFY2(reported(QStringLiteral("A weight, please\n")), m_terminal->everything().constData());
    m_scale->send(weightLine(36.4));
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::overloadAndUnderload()
{
    startTerminal(m_scale->source(), "wait display Overload within 50 s\nnote Next\n"
                                     "wait display Underload within 50 s\nnote Last\n"
                                     "wait display Unreadable within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(5.0) + "S +\r\n");
    QVERIFY2(reported(QStringLiteral("Next\n")), m_terminal->everything().constData());
    m_scale->send("S -\r\n");
    QVERIFY2(reported(QStringLiteral("Last\n")), m_terminal->everything().constData());
    m_scale->send("S I\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::stall()
{
    startTerminal(m_scale->source(),
                  "wait display 1.0 g within 50 s\nwait display \"No connection\" within 50 s\n"
                  "note Silence noticed\nwait display 36.4 g within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(1.0) + "S D   "); // the scale stops in the middle of a line
    QVERIFY2(reported(QStringLiteral("Silence noticed\n")), m_terminal->everything().constData());
    m_scale->send("    36.4 g\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::scaleThatGoesAwayAndComesBack()
{
    startTerminal(m_scale->source(), "wait display 1.0 g within 50 s\nnote Go away\n"
                                     "wait display \"No connection\" within 50 s\nnote Come back\n"
                                     "wait display 36.4 g within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(1.0));
    QVERIFY2(reported(QStringLiteral("Go away\n")), m_terminal->everything().constData());
    const quint16 port = m_scale->port();
    m_scale->stopListening();
    m_scale->hangUp();
    QVERIFY2(reported(QStringLiteral("Come back\n")), m_terminal->everything().constData());
    QVERIFY(m_scale->listen(port));
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send(weightLine(36.4));
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::endedWhileItWaits()
{
    startTerminal(m_scale->source(), "note Waiting\nwait display 36.4 g within 1 min\n");
    QVERIFY2(reported(QStringLiteral("Waiting\n")), m_terminal->everything().constData());
    m_terminal->terminate();
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 143);
}

void TestLiveSources::readabilityOfTheLines()
{
    startTerminal(m_scale->source(), "wait display 36.45 g within 50 s\n");
    QVERIFY(m_scale->waitForTerminal());
    m_scale->send("S D      36.45 g\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
}

void TestLiveSources::serialPort()
{
    int scaleEnd = -1;
    int terminalEnd = -1;
    char device[256];
    QVERIFY(openpty(&scaleEnd, &terminalEnd, device, nullptr, nullptr) == 0);
    const auto send = [scaleEnd](const QByteArray& bytes) {
        QCOMPARE(::write(scaleEnd, bytes.constData(), static_cast<size_t>(bytes.size())),
                 ssize_t(bytes.size()));
    };
    startTerminal(QStringLiteral("serial:%1,19200").arg(QString::fromLatin1(device)),
                  "note Ready\nwait display 1.0 g within 50 s\nnote Next\nwait display 36.4 g within 50 s\n");
    QVERIFY2(reported(QStringLiteral("Ready\n")), m_terminal->everything().constData());
    // Until the terminal has opened the port, nobody listens.
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&send] { send(weightLine(1.0)); });
    timer.start(50);
    QVERIFY2(reported(QStringLiteral("Next\n")), m_terminal->everything().constData());
    timer.stop();
    send("S D   ");
    send("    36.4 g\r\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_terminal->state() == QProcess::NotRunning, TerminalProcess::TimeoutMs);
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    ::close(scaleEnd);
    ::close(terminalEnd);
}

void TestLiveSources::serialPortThatIsNotThere()
{
    startTerminal(QStringLiteral("serial:/dev/no-such-port"), "wait display \"No connection\" within 10 s\n");
    QVERIFY(m_terminal->finish());
    COMPARE_EXIT_CODE(*m_terminal, 0);
    QVERIFY2(m_terminal->errorText().contains(QLatin1String("no-such-port")),
             m_terminal->everything().constData());
}

void TestLiveSources::noSerialPort_data()
{
    QTest::addColumn<bool>("withScript");
    QTest::newRow("for a time") << false;
    QTest::newRow("script") << true;
}

void TestLiveSources::noSerialPort()
{
    QFETCH(bool, withScript);
    if (withScript) {
        startTerminal(QStringLiteral("serial:/tmp"), "wait 1 s\n");
        QVERIFY(m_terminal->finish());
    } else {
        QVERIFY(m_terminal->run(TerminalProcess::words(
            QStringLiteral("--headless --no-plugin --source serial:/tmp --duration 1"))));
    }
    COMPARE_EXIT_CODE(*m_terminal, 1);
    QCOMPARE(m_terminal->errorText(),
             QStringLiteral(
                 "Weight source \"serial:/tmp\": this is a folder and no serial port. Give a device such "
                 "as /dev/ttyUSB0.\n"));
}

void TestLiveSources::scaleThatNeverAnswers()
{
    QVERIFY(m_terminal->run(TerminalProcess::words(
        QStringLiteral("--headless --no-plugin --duration 1 --source serial:/dev/no-such-port"))));
    COMPARE_EXIT_CODE(*m_terminal, 1);
    QVERIFY2(
        m_terminal->errorText().contains(QLatin1String(
            "brimvale-terminal: nothing has come from the scale, Scale at /dev/no-such-port, 9600 baud: ")),
        m_terminal->everything().constData());
    QVERIFY2(m_terminal->outputLines().contains(QStringLiteral("display: No connection")),
             m_terminal->everything().constData());
}

QTEST_GUILESS_MAIN(TestLiveSources)

#include "tst_livesources.moc"
