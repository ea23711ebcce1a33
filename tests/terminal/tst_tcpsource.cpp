// SPDX-License-Identifier: BSD-3-Clause
#include "SourceRecorder.h"
#include "clock/WallClock.h"
#include "measuring/Scale.h"
#include "source/TcpSource.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;

/// A scale in the network, on a free port of this machine.
class NetworkScale
{
public:
    explicit NetworkScale(quint16 port = 0,
                          const QHostAddress& address = QHostAddress(QHostAddress::LocalHost))
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            m_peer = m_server.nextPendingConnection();
            ++m_connections;
        });
        m_server.listen(address, port);
    }

    bool isListening() const { return m_server.isListening(); }
    quint16 port() const { return m_server.serverPort(); }
    int connections() const { return m_connections; }
    QTcpSocket* peer() const { return m_peer; }

    void send(const QByteArray& bytes)
    {
        m_peer->write(bytes);
        m_peer->flush();
    }

private:
    QTcpServer m_server;
    QPointer<QTcpSocket> m_peer;
    int m_connections = 0;
};

class tst_TcpSource : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void documentedDefaults();
    void describesItself();
    void silentUntilStarted();
    void asksForWeights();
    void asksForNothingWhenToldSo();
    void readsLines();
    void halfLines();
    void garbage();
    void answersAreNoReadings();
    void overloadAndUnderload();
    void readabilityBecomesKnownAndFiner();
    void readabilityOfTheOptionsStays();
    void readabilityIsKeptWhenReconnecting();

    void refusedConnection();
    void scaleThatComesLater();
    void scaleThatGoesAwayAndComesBack();
    void halfALineDiesWithTheConnection();
    void lastLinesBeforeTheEndAreRead();
    void resetConnection();
    void peerThatHangsUpAtOnce();
    void waitsGrow();
    void unknownHost();

    void stall();
    void stallBeforeTheFirstLine();
    void stallOfGarbageWithoutLineEnd();
    void stallEndsWithTheNextLine();
    void longStallReconnects();
    void slowScaleIsNoStall();
    void busyEventLoopIsNoStall();

    void burstIsNotLost();
    void hundredReadingsASecond();
    void floodShowsTheNewest();
    void stopEnds();
    void stopWhileConnecting();
    void startAgain();
    void startTwice();
    void stopFromASlot_data();
    void stopFromASlot();
    void deleteFromASlot_data();
    void deleteFromASlot();
    void ipv6();
    void sameDisplayAsTheWeightsThemselves();

private:
    void make(quint16 port, const QString& host = QStringLiteral("127.0.0.1"));
    void makeConnected();
    QString lastEvent() const { return m_recorder->events.isEmpty() ? QString() : m_recorder->events.last(); }

    WallClock m_clock;
    LineSourceSettings m_settings;
    std::unique_ptr<NetworkScale> m_scale;
    std::unique_ptr<TcpSource> m_source;
    std::unique_ptr<SourceRecorder> m_recorder;
};

void tst_TcpSource::init()
{
    // Short waits, but a stall only where a test asks for it.
    m_settings = LineSourceSettings();
    m_settings.connectTimeoutMs = 60000;
    m_settings.stallMs = 60000;
    m_settings.firstRetryMs = 10;
    m_settings.maximumRetryMs = 20;
    m_scale = std::make_unique<NetworkScale>();
    QVERIFY(m_scale->isListening());
}

void tst_TcpSource::cleanup()
{
    m_recorder.reset();
    m_source.reset();
    m_scale.reset();
}

void tst_TcpSource::make(quint16 port, const QString& host)
{
    m_recorder.reset();
    m_source = std::make_unique<TcpSource>(m_clock, host, port, m_settings);
    m_recorder = std::make_unique<SourceRecorder>(*m_source);
}

void tst_TcpSource::makeConnected()
{
    make(m_scale->port());
    m_source->start();
    QTRY_VERIFY(m_scale->peer());
}

void tst_TcpSource::documentedDefaults()
{
    const LineSourceSettings settings;
    QCOMPARE(settings.connectTimeoutMs, 5000);
    QCOMPARE(settings.stallMs, 3000);
    QCOMPARE(settings.stallsBeforeReconnect, 3);
    QCOMPARE(settings.firstRetryMs, 500);
    QCOMPARE(settings.maximumRetryMs, 5000);
    QCOMPARE(settings.maximumLinesPerTurn, 1000);
    QCOMPARE(settings.request, QByteArray("SIR\r\n"));
}

void tst_TcpSource::describesItself()
{
    make(4001, QStringLiteral("scale.example"));
    QCOMPARE(m_source->description(), QStringLiteral("Scale at scale.example, port 4001"));
    QVERIFY(m_source->isLive());
    QVERIFY(!m_source->isConnected());
    QCOMPARE(m_source->readability(), 0.0);
    QCOMPARE(m_source->capacity(), 0.0);
}

void tst_TcpSource::silentUntilStarted()
{
    make(m_scale->port());
    QTest::qWait(30);
    QCOMPARE(m_scale->connections(), 0);
    QVERIFY(m_recorder->events.isEmpty());
}

void tst_TcpSource::asksForWeights()
{
    makeConnected();
    QTRY_COMPARE(m_scale->peer()->bytesAvailable(), 5);
    QCOMPARE(m_scale->peer()->readAll(), QByteArray("SIR\r\n"));
}

void tst_TcpSource::asksForNothingWhenToldSo()
{
    m_settings.request.clear();
    makeConnected();
    m_scale->send("S S 1.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QTest::qWait(20);
    QCOMPARE(m_scale->peer()->bytesAvailable(), 0);
}

void tst_TcpSource::readsLines()
{
    makeConnected();
    const qint64 before = m_clock.nowMs();
    m_scale->send("S D      99.98 g\r\nS S     100.00 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("connected"), QStringLiteral("readability 0.01"),
                                              QStringLiteral("99.98 D"), QStringLiteral("100 S")}));
    QCOMPARE(m_recorder->connectionDetails, QStringList({m_source->description()}));
    QVERIFY(m_source->isConnected());
    QVERIFY(m_recorder->readings.last().timeMs >= before);
    QVERIFY(m_recorder->readings.last().timeMs <= m_clock.nowMs());
}

void tst_TcpSource::halfLines()
{
    makeConnected();
    for (const char* part : {"S", " S   ", "  100.0", "0 g", "\r", "\nS D     10", "0.02 g\r\n"}) {
        m_scale->send(part);
        QTest::qWait(5);
    }
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->events.mid(2), QStringList({QStringLiteral("100 S"), QStringLiteral("100.02 D")}));
}

void tst_TcpSource::garbage()
{
    makeConnected();
    m_scale->send(QByteArray("\0\xFF\x01\r\n", 5) + "GET / HTTP/1.1\r\n" + QByteArray(5000, 'x')
                  + "\r\nS S 1,5 g\r\nS S 1.5 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 5);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("connected"), QStringLiteral("unreadable"),
                                              QStringLiteral("unreadable"), QStringLiteral("unreadable"),
                                              QStringLiteral("unreadable"), QStringLiteral("readability 0.1"),
                                              QStringLiteral("1.5 S")}));
    QCOMPARE(m_recorder->readings.at(1).detail, QStringLiteral("Not a weight line: \"GET / HTTP/1.1\"."));
    QVERIFY(std::isnan(m_recorder->readings.at(1).grams));
}

void tst_TcpSource::answersAreNoReadings()
{
    makeConnected();
    m_scale->send("ES\r\nI4 A \"123\"\r\nS S 1.5 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("1.5 S"));
    QCOMPARE(m_recorder->readings.size(), 1);
}

void tst_TcpSource::overloadAndUnderload()
{
    makeConnected();
    m_scale->send("S +\r\nS -\r\nS I\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 3);
    QCOMPARE(m_recorder->events.mid(1), QStringList({QStringLiteral("overload"), QStringLiteral("underload"),
                                                     QStringLiteral("unreadable")}));
    QCOMPARE(m_source->readability(), 0.0);
}

void tst_TcpSource::readabilityBecomesKnownAndFiner()
{
    makeConnected();
    m_scale->send("S S 1.0 g\r\nS S 1 g\r\nS S 1.000 g\r\nS S 1.00 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 4);
    QCOMPARE(m_recorder->events,
             QStringList({QStringLiteral("connected"), QStringLiteral("readability 0.1"),
                          QStringLiteral("1 S"), QStringLiteral("1 S"), QStringLiteral("readability 0.001"),
                          QStringLiteral("1 S"), QStringLiteral("1 S")}));
    QCOMPARE(m_source->readability(), 0.001);
}

void tst_TcpSource::readabilityOfTheOptionsStays()
{
    m_settings.readability = Readability::parse(QStringLiteral("0.5"));
    makeConnected();
    QCOMPARE(m_source->readability(), 0.5);
    m_scale->send("S S 1.000 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_source->readability(), 0.5);
    QVERIFY(!m_recorder->events.contains(QStringLiteral("readability 0.001")));
}

void tst_TcpSource::readabilityIsKeptWhenReconnecting()
{
    makeConnected();
    m_scale->send("S S 1.000 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->peer()->disconnectFromHost();
    QTRY_COMPARE(m_scale->connections(), 2);
    m_scale->send("S S 2.0 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("2 S"));
    QCOMPARE(m_source->readability(), 0.001);
}

void tst_TcpSource::refusedConnection()
{
    const quint16 port = m_scale->port();
    m_scale.reset();
    make(port);
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().status, Reading::Status::Disconnected);
    QCOMPARE(m_recorder->readings.first().detail, QStringLiteral("Connection refused"));
    // Further attempts fail alike and are no news; it never was connected.
    QTest::qWait(100);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("no data")}));
}

void tst_TcpSource::scaleThatComesLater()
{
    const quint16 port = m_scale->port();
    m_scale.reset();
    make(port);
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale = std::make_unique<NetworkScale>(port);
    QVERIFY(m_scale->isListening());
    QTRY_VERIFY(m_scale->peer());
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("5 S"));
}

void tst_TcpSource::scaleThatGoesAwayAndComesBack()
{
    makeConnected();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);

    const quint16 port = m_scale->port();
    m_scale.reset();
    QTRY_VERIFY(m_recorder->events.contains(QStringLiteral("disconnected")));
    QCOMPARE(m_recorder->events.mid(0, 5),
             QStringList({QStringLiteral("connected"), QStringLiteral("readability 0.1"),
                          QStringLiteral("5 S"), QStringLiteral("disconnected"), QStringLiteral("no data")}));
    QVERIFY(!m_source->isConnected());
    QVERIFY(std::isnan(m_recorder->readings.last().grams));

    m_scale = std::make_unique<NetworkScale>(port);
    QVERIFY(m_scale->isListening());
    QTRY_VERIFY(m_scale->peer());
    m_scale->send("S S 6.0 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("6 S"));
    QCOMPARE(m_recorder->connections, QVector<bool>({true, false, true}));
}

void tst_TcpSource::halfALineDiesWithTheConnection()
{
    makeConnected();
    m_scale->send("S S 5.0 g\r\nS S 12");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->peer()->disconnectFromHost();
    QTRY_COMPARE(m_scale->connections(), 2);
    m_scale->send("S S 34.0 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("34 S"));
    QCOMPARE(m_recorder->count(Reading::Status::Unreadable), 0);
    QCOMPARE(m_recorder->count(Reading::Status::Valid), 2);
}

void tst_TcpSource::lastLinesBeforeTheEndAreRead()
{
    makeConnected();
    QByteArray bytes;
    for (int i = 0; i < 500; ++i)
        bytes += "S D " + QByteArray::number(i) + ".0 g\r\n";
    m_scale->send(bytes);
    m_scale->peer()->disconnectFromHost();
    QTRY_VERIFY(m_recorder->events.contains(QStringLiteral("no data")));
    QCOMPARE(m_recorder->count(Reading::Status::Valid), 500);
    QCOMPARE(m_recorder->events.indexOf(QStringLiteral("no data")), 503);
    QCOMPARE(m_recorder->events.at(501), QStringLiteral("499 D"));
}

void tst_TcpSource::resetConnection()
{
    makeConnected();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->peer()->abort();
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->readings.last().status, Reading::Status::Disconnected);
    QVERIFY(!m_recorder->readings.last().detail.isEmpty());
    QTRY_COMPARE(m_scale->connections(), 2);
}

void tst_TcpSource::peerThatHangsUpAtOnce()
{
    QTcpServer server;
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        ++connections;
        server.nextPendingConnection()->abort();
    });
    QVERIFY(server.listen(QHostAddress::LocalHost));
    make(server.serverPort());
    m_source->start();
    QTRY_VERIFY(connections >= 4);
    QVERIFY(m_recorder->count(Reading::Status::Disconnected) >= 1);
    QCOMPARE(m_recorder->count(Reading::Status::Valid), 0);
    QVERIFY(m_recorder->connections.isEmpty());
}

void tst_TcpSource::waitsGrow()
{
    // 40, 80, 160, 160 ms: the fifth attempt comes after 440 ms at the earliest.
    m_settings.firstRetryMs = 40;
    m_settings.maximumRetryMs = 160;
    QTcpServer server;
    QElapsedTimer elapsed;
    QVector<qint64> times;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        times.append(elapsed.elapsed());
        server.nextPendingConnection()->abort();
    });
    QVERIFY(server.listen(QHostAddress::LocalHost));
    make(server.serverPort());
    elapsed.start();
    m_source->start();
    QTRY_VERIFY(times.size() >= 5);
    // Timers of this length may fire up to 5 % early.
    QVERIFY2(times.at(4) >= 400, qPrintable(QString::number(times.at(4))));
}

void tst_TcpSource::unknownHost()
{
    // A name that is refused without asking anybody: its label is too long.
    make(4001, QString(64, QLatin1Char('x')) + QStringLiteral(".invalid"));
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().status, Reading::Status::Disconnected);
    QVERIFY(!m_recorder->readings.first().detail.isEmpty());
}

void tst_TcpSource::stall()
{
    m_settings.stallMs = 100;
    m_settings.stallsBeforeReconnect = 1000;
    makeConnected();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->events.mid(2),
             QStringList({QStringLiteral("5 S"), QStringLiteral("disconnected"), QStringLiteral("no data")}));
    QCOMPARE(m_recorder->readings.last().detail, QStringLiteral("No data for 0.1 s."));
    QVERIFY(!m_source->isConnected());
    // It asks again, on the same connection, and repeats nothing.
    QTRY_VERIFY(m_scale->peer()->bytesAvailable() >= 15);
    QCOMPARE(m_scale->connections(), 1);
    QCOMPARE(m_recorder->readings.size(), 2);
}

void tst_TcpSource::stallBeforeTheFirstLine()
{
    m_settings.stallMs = 50;
    makeConnected();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("no data")}));
}

void tst_TcpSource::stallOfGarbageWithoutLineEnd()
{
    m_settings.stallMs = 50;
    m_settings.stallsBeforeReconnect = 1000;
    makeConnected();
    m_scale->send("S S 5.0");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().status, Reading::Status::Disconnected);
    QCOMPARE(
        m_recorder->readings.first().detail,
        QStringLiteral("What arrives has no weight line for 0.05 s; check the scale's interface settings."));
}

void tst_TcpSource::stallEndsWithTheNextLine()
{
    m_settings.stallMs = 50;
    m_settings.stallsBeforeReconnect = 1000;
    makeConnected();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->send("S S 5.0 g\r\n");
    QTRY_VERIFY(m_recorder->events.contains(QStringLiteral("5 S")));
    QCOMPARE(m_scale->connections(), 1);
    QCOMPARE(m_recorder->connections.first(), true);
}

void tst_TcpSource::longStallReconnects()
{
    m_settings.stallMs = 30;
    m_settings.stallsBeforeReconnect = 2;
    makeConnected();
    QTRY_VERIFY(m_scale->connections() >= 2);
    QTimer sending;
    connect(&sending, &QTimer::timeout, this, [this] {
        if (m_scale->peer())
            m_scale->send("S S 5.0 g\r\n");
    });
    sending.start(5);
    QTRY_VERIFY(m_recorder->events.contains(QStringLiteral("5 S")));
}

void tst_TcpSource::slowScaleIsNoStall()
{
    m_settings.stallMs = 5000;
    makeConnected();
    for (int i = 0; i < 5; ++i) {
        m_scale->send("S S 5.0 g\r\n");
        QTest::qWait(50);
    }
    QTRY_COMPARE(m_recorder->readings.size(), 5);
    QCOMPARE(m_recorder->count(Reading::Status::Valid), 5);
}

void tst_TcpSource::busyEventLoopIsNoStall()
{
    m_settings.stallMs = 200;
    makeConnected();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    for (int i = 0; i < 3; ++i) {
        // The line has arrived when the event loop comes to it, and the time of a stall is over.
        m_scale->send("S S 6.0 g\r\n");
        QTest::qSleep(250);
        QTRY_COMPARE(m_recorder->readings.size(), i + 2);
    }
    QCOMPARE(m_recorder->count(Reading::Status::Valid), 4);
}

void tst_TcpSource::burstIsNotLost()
{
    // Ten seconds of a fast scale in one piece, after the event loop was kept busy.
    makeConnected();
    QByteArray bytes;
    for (int i = 0; i < 1000; ++i)
        bytes += "S D " + QByteArray::number(i) + ".0 g\r\n";
    m_scale->send(bytes);
    QTRY_COMPARE(m_recorder->readings.size(), 1000);
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(m_recorder->readings.at(i).grams, static_cast<double>(i));
    QCOMPARE(m_source->droppedLines(), Q_UINT64_C(0));
}

void tst_TcpSource::hundredReadingsASecond()
{
    // A hundred readings in some three fifths of a second, in pieces that do not end with a line.
    makeConnected();
    QByteArray bytes;
    for (int i = 0; i < 100; ++i)
        bytes += "S D     " + QByteArray::number(1000 + i) + ".00 g\r\n";
    for (int start = 0; start < bytes.size(); start += 37) {
        m_scale->send(bytes.mid(start, 37));
        QTest::qWait(10);
    }
    QTRY_COMPARE(m_recorder->readings.size(), 100);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(m_recorder->readings.at(i).grams, 1000.0 + i);
}

void tst_TcpSource::floodShowsTheNewest()
{
    m_settings.maximumLinesPerTurn = 10;
    makeConnected();
    QByteArray bytes;
    constexpr int Count = 200000;
    for (int i = 0; i < Count; ++i)
        bytes += "S D " + QByteArray::number(i) + " g\r\n";
    m_scale->peer()->write(bytes);
    QTRY_VERIFY_WITH_TIMEOUT(
        !m_recorder->readings.isEmpty() && m_recorder->readings.last().grams == Count - 1, 60000);
    QCOMPARE(m_recorder->count(Reading::Status::Valid), m_recorder->readings.size());
    QCOMPARE(static_cast<quint64>(m_recorder->readings.size()) + m_source->droppedLines(),
             static_cast<quint64>(Count));
    QVERIFY(m_source->droppedLines() > 0);
    double last = -1.0;
    for (const Reading& reading : qAsConst(m_recorder->readings)) {
        QVERIFY(reading.grams > last);
        last = reading.grams;
    }
}

void tst_TcpSource::stopEnds()
{
    makeConnected();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    const QStringList events = m_recorder->events;
    m_source->stop();
    QVERIFY(!m_source->isConnected());
    QTRY_COMPARE(m_scale->peer()->state(), QAbstractSocket::UnconnectedState);
    QTest::qWait(50);
    QCOMPARE(m_recorder->events, events);
    QCOMPARE(m_scale->connections(), 1);
}

void tst_TcpSource::stopWhileConnecting()
{
    make(m_scale->port());
    m_source->start();
    m_source->stop();
    m_source->stop();
    QTest::qWait(50);
    QVERIFY(m_recorder->events.isEmpty());
}

void tst_TcpSource::startAgain()
{
    makeConnected();
    m_source->stop();
    m_source->start();
    QTRY_COMPARE(m_scale->connections(), 2);
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(lastEvent(), QStringLiteral("5 S"));
}

void tst_TcpSource::startTwice()
{
    makeConnected();
    m_source->start();
    m_scale->send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QTest::qWait(30);
    QCOMPARE(m_scale->connections(), 1);
}

void tst_TcpSource::stopFromASlot_data()
{
    QTest::addColumn<QString>("signalName");
    QTest::addColumn<QStringList>("events");
    QTest::newRow("connectionChanged")
        << QStringLiteral("connectionChanged") << QStringList{QStringLiteral("connected")};
    QTest::newRow("readabilityChanged")
        << QStringLiteral("readabilityChanged")
        << QStringList{QStringLiteral("connected"), QStringLiteral("readability 0.1")};
    QTest::newRow("reading") << QStringLiteral("reading")
                             << QStringList{QStringLiteral("connected"), QStringLiteral("readability 0.1"),
                                            QStringLiteral("5 S")};
}

void tst_TcpSource::stopFromASlot()
{
    QFETCH(QString, signalName);
    makeConnected();
    const auto stop = [this] { m_source->stop(); };
    if (signalName == QLatin1String("connectionChanged"))
        connect(m_source.get(), &WeightSource::connectionChanged, m_source.get(), stop);
    else if (signalName == QLatin1String("readabilityChanged"))
        connect(m_source.get(), &WeightSource::readabilityChanged, m_source.get(), stop);
    else
        connect(m_source.get(), &WeightSource::reading, m_source.get(), stop);
    m_scale->send("S S 5.0 g\r\nS S 6.0 g\r\n");
    QTRY_COMPARE(m_scale->peer()->state(), QAbstractSocket::UnconnectedState);
    QTest::qWait(30);
    QTEST(m_recorder->events, "events");
    QCOMPARE(m_scale->connections(), 1);
}

void tst_TcpSource::deleteFromASlot_data()
{
    QTest::addColumn<QString>("event");
    for (const char* event : {"connected", "disconnected", "readability", "first reading", "fault"})
        QTest::newRow(event) << QString::fromLatin1(event);
}

void tst_TcpSource::deleteFromASlot()
{
    QFETCH(QString, event);
    makeConnected();
    const auto remove = [this] { m_source.reset(); };
    TcpSource* source = m_source.get();
    connect(source, &WeightSource::connectionChanged, this, [&](bool connected) {
        if (event == QLatin1String(connected ? "connected" : "disconnected"))
            remove();
    });
    connect(source, &WeightSource::readabilityChanged, this, [&] {
        if (event == QLatin1String("readability"))
            remove();
    });
    connect(source, &WeightSource::reading, this, [&](const Reading& reading) {
        if (event == QLatin1String(reading.isValid() ? "first reading" : "fault"))
            remove();
    });
    m_scale->send("S S 5.0 g\r\nS S 6.0 g\r\n");
    m_scale->peer()->disconnectFromHost();
    QTRY_VERIFY(!m_source);
    QTest::qWait(20);
    QCOMPARE(m_scale->connections(), 1);
}

void tst_TcpSource::ipv6()
{
    NetworkScale scale(0, QHostAddress(QHostAddress::LocalHostIPv6));
    if (!scale.isListening())
        QSKIP("This machine has no IPv6.");
    make(scale.port(), QStringLiteral("::1"));
    m_source->start();
    QTRY_VERIFY(scale.peer());
    scale.send("S S 5.0 g\r\n");
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->events.last(), QStringLiteral("5 S"));
}

void tst_TcpSource::sameDisplayAsTheWeightsThemselves()
{
    makeConnected();
    Scale scale;
    scale.setSource(m_source.get());
    QSignalSpy measurements(&scale, &Scale::newMeasurement);
    m_scale->send("S D       0.0 g\r\nS D      12.3 g\r\nS D      48.2 g\r\n");
    QTRY_COMPARE(measurements.count(), 3);
    QCOMPARE(scale.netText(), QStringLiteral("48.2"));
    m_scale->send("S +\r\n");
    QTRY_COMPARE(measurements.count(), 4);
    QCOMPARE(scale.statusText(), QStringLiteral("Overload"));
    QCOMPARE(scale.netText(), QString());
    m_scale.reset();
    QTRY_COMPARE(scale.statusText(), QStringLiteral("No connection"));
    QCOMPARE(scale.netText(), QString());
}

QTEST_GUILESS_MAIN(tst_TcpSource)
#include "tst_tcpsource.moc"
