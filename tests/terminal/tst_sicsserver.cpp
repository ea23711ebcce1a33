// SPDX-License-Identifier: BSD-3-Clause
#include "SicsFixture.h"
#include "sics/SicsServer.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <memory>
#include <vector>

using namespace Brimvale::Terminal;

namespace
{

/// A computer that is connected to the server.
class Computer
{
public:
    explicit Computer(const SicsAddress& address) { m_socket.connectToHost(address.host, address.port); }

    QTcpSocket& socket() { return m_socket; }
    bool isConnected() const { return m_socket.state() == QTcpSocket::ConnectedState; }
    bool isDisconnected() const { return m_socket.state() == QTcpSocket::UnconnectedState; }
    void send(const QByteArray& bytes)
    {
        m_socket.write(bytes);
        m_socket.flush();
    }
    /// What has arrived since the start.
    QByteArray received()
    {
        m_received += m_socket.readAll();
        return m_received;
    }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};

} // namespace

class tst_SicsServer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addresses_data();
    void addresses();
    void wrongAddresses_data();
    void wrongAddresses();
    void listensOnLocalhostOnly();
    void listensOnIpv6();
    void portInUse();
    void privilegedPort();
    void foreignAddress();

    void answers();
    void halfLines();
    void clientThatEndsAtOnce();
    void severalClients();
    void clientsAreCounted();
    void tooManyClients();
    void refusalsAreToldOnceInAWhile();
    void vanishedClients();
    void endWithClients();
    void nothingIsLeftOfAClient();
    void sendsToAllClients();

    void garbage();
    void floodOfCommands();
    void floodOfBytes();
    void clientThatDoesNotRead();
    void manyConnections();

private:
    void make(const SicsServerLimits& limits = {});
    std::unique_ptr<Computer> connected();

    std::unique_ptr<SicsFixture> m_fixture;
    std::unique_ptr<SicsServer> m_server;
    QStringList m_refusals;
};

void tst_SicsServer::init()
{
    m_fixture = std::make_unique<SicsFixture>();
    m_fixture->settle(100.0);
    make();
}

void tst_SicsServer::cleanup()
{
    m_server.reset();
    m_fixture.reset();
}

void tst_SicsServer::make(const SicsServerLimits& limits)
{
    m_refusals.clear();
    m_server = std::make_unique<SicsServer>(m_fixture->sicsScale, m_fixture->clock, limits);
    connect(m_server.get(), &SicsServer::refused, this,
            [this](const QString& text) { m_refusals.append(text); });
    QString error;
    QVERIFY2(m_server->listen(SicsAddress(), &error), qPrintable(error));
}

std::unique_ptr<Computer> tst_SicsServer::connected()
{
    const int before = m_server->clientCount();
    auto computer = std::make_unique<Computer>(m_server->address());
    if (!QTest::qWaitFor([&] { return computer->isConnected() && m_server->clientCount() == before + 1; }))
        qFatal("the client was not connected");
    return computer;
}

void tst_SicsServer::addresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("port") << QStringLiteral("4001") << QStringLiteral("127.0.0.1:4001");
    QTest::newRow("any free port") << QStringLiteral("0") << QStringLiteral("127.0.0.1:0");
    QTest::newRow("last port") << QStringLiteral("65535") << QStringLiteral("127.0.0.1:65535");
    QTest::newRow("address") << QStringLiteral("192.168.1.20:4001") << QStringLiteral("192.168.1.20:4001");
    QTest::newRow("localhost") << QStringLiteral("localhost:4001") << QStringLiteral("127.0.0.1:4001");
    QTest::newRow("all") << QStringLiteral("0.0.0.0:4001") << QStringLiteral("0.0.0.0:4001");
    QTest::newRow("IPv6") << QStringLiteral("[::1]:4001") << QStringLiteral("[::1]:4001");
    QTest::newRow("all, IPv6 too") << QStringLiteral("[::]:4001") << QStringLiteral("[::]:4001");
}

void tst_SicsServer::addresses()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QString error;
    const auto address = SicsAddress::parse(text, &error);
    QVERIFY2(address, qPrintable(error));
    QCOMPARE(address->text(), expected);
}

void tst_SicsServer::wrongAddresses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    const QString port = QStringLiteral("is no port; a port is a number from 0 (any free one) to 65535");
    QTest::newRow("empty") << QString() << port;
    QTest::newRow("word") << QStringLiteral("sics") << port;
    QTest::newRow("too large") << QStringLiteral("65536") << port;
    QTest::newRow("far too large") << QStringLiteral("99999999999999999999") << port;
    QTest::newRow("negative") << QStringLiteral("-1") << port;
    QTest::newRow("blank") << QStringLiteral("40 01") << port;
    QTest::newRow("address alone") << QStringLiteral("127.0.0.1") << port;
    QTest::newRow("IPv6 address alone") << QStringLiteral("[::1]") << port;
    QTest::newRow("no port behind the colon") << QStringLiteral("127.0.0.1:") << port;
    const QString address = QStringLiteral("is no address of this computer; write 127.0.0.1:4001,");
    QTest::newRow("no address") << QStringLiteral(":4001") << address;
    QTest::newRow("name") << QStringLiteral("scale.example.com:4001") << address;
    QTest::newRow("part of an address") << QStringLiteral("127.1:4001") << address;
    QTest::newRow("IPv6 without brackets") << QStringLiteral("::1:4001") << address;
    QTest::newRow("IPv4 in brackets") << QStringLiteral("[127.0.0.1]:4001") << address;
}

void tst_SicsServer::wrongAddresses()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    QString found;
    QVERIFY(!SicsAddress::parse(text, &found));
    QVERIFY2(found.contains(error), qPrintable(found));
}

void tst_SicsServer::listensOnLocalhostOnly()
{
    QCOMPARE(m_server->address().host, QHostAddress(QHostAddress::LocalHost));
    QVERIFY(m_server->address().port > 0);
}

void tst_SicsServer::listensOnIpv6()
{
    QTcpServer probe;
    if (!probe.listen(QHostAddress::LocalHostIPv6))
        QSKIP("this computer has no IPv6");
    SicsServer server(m_fixture->sicsScale, m_fixture->clock);
    QString error;
    QVERIFY2(server.listen(*SicsAddress::parse(QStringLiteral("[::1]:0"), &error), &error),
             qPrintable(error));
    Computer computer(server.address());
    QTRY_VERIFY(computer.isConnected());
    computer.send("SI\r\n");
    QTRY_COMPARE(computer.received(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsServer::portInUse()
{
    SicsServer second(m_fixture->sicsScale, m_fixture->clock);
    QString error;
    QVERIFY(!second.listen(m_server->address(), &error));
    QCOMPARE(error, QStringLiteral("The SICS server cannot listen on %1: another program uses this port; "
                                   "end it or choose another port.")
                        .arg(m_server->address().text()));
}

void tst_SicsServer::privilegedPort()
{
    QTcpServer probe;
    if (probe.listen(QHostAddress::LocalHost, 1))
        QSKIP("whoever runs this test may use privileged ports");
    SicsServer server(m_fixture->sicsScale, m_fixture->clock);
    QString error;
    QVERIFY(!server.listen(*SicsAddress::parse(QStringLiteral("1"), &error), &error));
    QCOMPARE(error, QStringLiteral("The SICS server cannot listen on 127.0.0.1:1: ports below 1024 are for "
                                   "privileged programs; choose one from 1024 on."));
}

void tst_SicsServer::foreignAddress()
{
    SicsServer server(m_fixture->sicsScale, m_fixture->clock);
    QString error;
    // An address for examples, which no computer has.
    QVERIFY(!server.listen(*SicsAddress::parse(QStringLiteral("192.0.2.1:0"), &error), &error));
    QVERIFY2(error.contains(QLatin1String("this computer does not have this address")), qPrintable(error));
}

void tst_SicsServer::answers()
{
    const auto computer = connected();
    computer->send("SI\r\n");
    QTRY_COMPARE(computer->received(), QByteArray("S S      100.0 g\r\n"));
    m_fixture->feed(150.0);
    computer->send("SI\r\nT\r\n@\r\n?\r\n");
    QTRY_COMPARE(computer->received(),
                 QByteArray("S S      100.0 g\r\nS D      150.0 g\r\nI4 A \"B-1042\"\r\nES\r\n"));
}

void tst_SicsServer::halfLines()
{
    const auto computer = connected();
    for (const char byte : QByteArray("SI\r\nSI\r\n")) {
        computer->send(QByteArray(1, byte));
        QTest::qWait(5);
    }
    QTRY_COMPARE(computer->received(), QByteArray("S S      100.0 g\r\nS S      100.0 g\r\n"));
    computer->send("S");
    QTRY_VERIFY(m_fixture->clock.nextDueMs().has_value());
    m_fixture->clock.advance(30000);
    QTRY_VERIFY(computer->received().endsWith("g\r\nES\r\n"));
}

void tst_SicsServer::clientThatEndsAtOnce()
{
    Computer computer(m_server->address());
    QTRY_VERIFY(computer.isConnected());
    computer.send("SI\r\n");
    computer.socket().disconnectFromHost();
    QTRY_COMPARE(m_server->clientCount(), 0);
    QTRY_VERIFY(computer.isDisconnected());
    QCOMPARE(m_refusals, QStringList());
}

void tst_SicsServer::severalClients()
{
    const auto repeating = connected();
    const auto waiting = connected();
    const auto asking = connected();
    repeating->send("SIR\r\n");
    asking->send("SI\r\n");
    QTRY_COMPARE(asking->received(), QByteArray("S S      100.0 g\r\n"));
    QTRY_COMPARE(repeating->received(), QByteArray("S S      100.0 g\r\n"));
    m_fixture->feed(130.0);
    waiting->send("T\r\n");
    QTRY_COMPARE(repeating->received(), QByteArray("S S      100.0 g\r\nS D      130.0 g\r\n"));
    QTRY_VERIFY(m_fixture->clock.nextDueMs().has_value());
    m_fixture->settle(130.0);
    QTRY_COMPARE(waiting->received(), QByteArray("T S      130.0 g\r\n"));
    QTRY_VERIFY(repeating->received().endsWith("S S        0.0 g\r\n"));
    QCOMPARE(repeating->received().count("\r\n"), 22);
    QCOMPARE(asking->received(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsServer::clientsAreCounted()
{
    QSignalSpy counts(m_server.get(), &SicsServer::clientCountChanged);
    auto first = connected();
    auto second = connected();
    QCOMPARE(m_server->clientCount(), 2);
    first.reset();
    QTRY_COMPARE(m_server->clientCount(), 1);
    second.reset();
    QTRY_COMPARE(m_server->clientCount(), 0);
    QList<int> told;
    for (const QList<QVariant>& arguments : qAsConst(counts))
        told.append(arguments.first().toInt());
    QCOMPARE(told, (QList<int>{1, 2, 1, 0}));
}

void tst_SicsServer::tooManyClients()
{
    QCOMPARE(SicsServerLimits().clients, 32);
    SicsServerLimits limits;
    limits.clients = 3;
    make(limits);
    std::vector<std::unique_ptr<Computer>> computers;
    for (int i = 0; i < 3; ++i)
        computers.push_back(connected());
    Computer fourth(m_server->address());
    QTRY_COMPARE(m_refusals.size(), 1);
    QTRY_VERIFY(fourth.isDisconnected());
    QVERIFY2(m_refusals.first().endsWith(QLatin1String("was refused: there are 3 already.")),
             qPrintable(m_refusals.first()));
    QCOMPARE(m_server->clientCount(), 3);
    computers.front()->send("SI\r\n");
    QTRY_COMPARE(computers.front()->received(), QByteArray("S S      100.0 g\r\n"));
    // A place that becomes free is given away.
    computers.pop_back();
    QTRY_COMPARE(m_server->clientCount(), 2);
    const auto fifth = connected();
    fifth->send("SI\r\n");
    QTRY_COMPARE(fifth->received(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsServer::refusalsAreToldOnceInAWhile()
{
    SicsServerLimits limits;
    limits.clients = 0;
    make(limits);
    const auto refuse = [this] {
        Computer computer(m_server->address());
        QTRY_VERIFY(computer.isDisconnected());
    };
    for (int i = 0; i < 5; ++i)
        refuse();
    QCOMPARE(m_refusals.size(), 1);
    m_fixture->clock.advance(9999);
    refuse();
    QCOMPARE(m_refusals.size(), 1);
    m_fixture->clock.advance(1);
    refuse();
    QCOMPARE(m_refusals.size(), 2);
}

void tst_SicsServer::vanishedClients()
{
    const auto staying = connected();
    for (int i = 0; i < 10; ++i) {
        const auto computer = connected();
        computer->send(i % 2 == 0 ? "SIR\r\nZ" : "SR\r\n");
        QTRY_COMPARE(computer->received(), m_fixture->sicsScale.weightAnswer());
        m_fixture->feed(100.0 + 10.0 * i);
        computer->socket().abort();
        m_fixture->settle(100.0);
        QTRY_COMPARE(m_server->clientCount(), 1);
    }
    staying->send("SI\r\n");
    QTRY_COMPARE(staying->received(), QByteArray("S S      100.0 g\r\n"));
    QCOMPARE(m_refusals, QStringList());
}

void tst_SicsServer::endWithClients()
{
    const auto computer = connected();
    m_fixture->feed(150.0);
    computer->send("S\r\nSI");
    QTRY_VERIFY(m_fixture->clock.nextDueMs().has_value());
    m_server.reset();
    QTRY_VERIFY(computer->isDisconnected());
    m_fixture->settle(150.0); // Nobody is left whom this would reach.
    QVERIFY(!m_fixture->clock.nextDueMs().has_value());
    QCOMPARE(computer->received(), QByteArray());
}

void tst_SicsServer::nothingIsLeftOfAClient()
{
    const auto computer = connected();
    computer->send("SI");
    QTRY_VERIFY(m_fixture->clock.nextDueMs().has_value());
    computer->socket().abort();
    QTRY_COMPARE(m_server->clientCount(), 0);
    QTRY_VERIFY(!m_fixture->clock.nextDueMs().has_value());
    QTRY_VERIFY(m_server->findChildren<QTcpSocket*>().isEmpty());
}

void tst_SicsServer::sendsToAllClients()
{
    QCOMPARE(m_server->send("S S       36.4 g\r\n"), 0);
    const auto first = connected();
    const auto second = connected();
    QCOMPARE(m_server->send("S S       36.4 g\r\n"), 2);
    QTRY_COMPARE(first->received(), QByteArray("S S       36.4 g\r\n"));
    QTRY_COMPARE(second->received(), QByteArray("S S       36.4 g\r\n"));
}

void tst_SicsServer::garbage()
{
    const auto computer = connected();
    QByteArray bytes;
    for (int i = 0; i < 30000; ++i)
        bytes.append(static_cast<char>((i * 7919) >> 3));
    computer->send(bytes + "\r\n");
    const auto isAnswered = [&] {
        m_fixture->clock.advance(100);
        return computer->received().endsWith("I4 A \"B-1042\"\r\n");
    };
    computer->send("@\r\n");
    QVERIFY(QTest::qWaitFor(isAnswered));
    const QByteArray answers = computer->received().split('I').first();
    QVERIFY(answers.size() > 0);
    QCOMPARE(answers.count("ES\r\n") * 4, answers.size());
    computer->send("SI\r\n");
    QTRY_VERIFY(computer->received().endsWith("S S      100.0 g\r\n"));
}

void tst_SicsServer::floodOfCommands()
{
    // Faster than the rate, but not so much that it harms: the first are answered, the others refused, and the client
    // stays.
    const auto flooding = connected();
    const auto other = connected();
    for (int i = 0; i < 1000; ++i)
        flooding->send("SI\r\n");
    QTRY_COMPARE(flooding->received().count("ES\r\n"), 880);
    QCOMPARE(flooding->received().count("S S"), 20);
    other->send("SI\r\n");
    QTRY_COMPARE(other->received(), QByteArray("S S      100.0 g\r\n"));
    m_fixture->clock.advance(1000);
    QTRY_COMPARE(flooding->received().count("S S"), 120);
    QCOMPARE(m_server->clientCount(), 2);
    QCOMPARE(m_refusals, QStringList());
}

void tst_SicsServer::floodOfBytes()
{
    const auto flooding = connected();
    const auto other = connected();
    flooding->send(QByteArray(1000000, '\n'));
    QTRY_COMPARE(m_server->clientCount(), 1);
    QTRY_VERIFY(flooding->isDisconnected());
    QCOMPARE(m_refusals.size(), 1);
    QVERIFY2(m_refusals.first().endsWith(QLatin1String("was disconnected: it sends more than a client may.")),
             qPrintable(m_refusals.first()));
    other->send("SI\r\n");
    QTRY_COMPARE(other->received(), QByteArray("S S      100.0 g\r\n"));
}

void tst_SicsServer::clientThatDoesNotRead()
{
    const auto deaf = connected();
    const auto other = connected();
    deaf->socket().setReadBufferSize(1); // The rest stays in the network until that is full.
    deaf->send("SIR\r\n");
    other->send("SIR\r\n");
    QTRY_VERIFY(other->received().size() > 0);
    int readings = 0;
    while (m_server->clientCount() == 2 && readings < 2000000) {
        for (int i = 0; i < 500; ++i, ++readings)
            m_fixture->feed(100.0);
        other->received();
        QCoreApplication::processEvents();
    }
    QCOMPARE(m_server->clientCount(), 1);
    QCOMPARE(m_refusals.size(), 1);
    QVERIFY2(m_refusals.first().endsWith(QLatin1String("was disconnected: it does not read its answers.")),
             qPrintable(m_refusals.first()));
    const int before = other->received().count("\r\n");
    m_fixture->feed(100.0);
    QTRY_VERIFY(other->received().count("\r\n") > before);
}

void tst_SicsServer::manyConnections()
{
    for (int round = 0; round < 10; ++round) {
        std::vector<std::unique_ptr<Computer>> computers;
        for (int i = 0; i < 40; ++i)
            computers.push_back(std::make_unique<Computer>(m_server->address()));
        QTRY_COMPARE(m_server->clientCount(), 32);
        computers.clear();
        QTRY_COMPARE(m_server->clientCount(), 0);
    }
}

QTEST_GUILESS_MAIN(tst_SicsServer)

#include "tst_sicsserver.moc"
