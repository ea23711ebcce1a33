// SPDX-License-Identifier: BSD-3-Clause
#include "clock/VirtualClock.h"
#include "source/SerialSource.h"
#include "source/SourceSpec.h"
#include "source/TcpSource.h"
#include "source/TraceSource.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale::Terminal;

class tst_SourceSpec : public QObject
{
    Q_OBJECT

private slots:
    void simulated();
    void trace_data();
    void trace();
    void tcp_data();
    void tcp();
    void serial_data();
    void serial();
    void noSerialPort_data();
    void noSerialPort();
    void refuses_data();
    void refuses();
    void errorPointerMayBeNull();

    void createsSimulated();
    void createsTrace();
    void createsTraceWithAnotherReadability();
    void traceErrors_data();
    void traceErrors();
    void tooManyDecimals();
    void createsTcp();
    void createsSerial();

private:
    static QString recording(const char* name)
    {
        return QDir(QStringLiteral(BRIMVALE_TRACE_DIR)).filePath(QLatin1String(name));
    }
    static SourceSpec spec(const QString& text)
    {
        QString error;
        const std::optional<SourceSpec> parsed = SourceSpec::parse(text, &error);
        if (!parsed)
            qFatal("%s", qPrintable(error));
        return *parsed;
    }

    VirtualClock m_clock;
};

void tst_SourceSpec::simulated()
{
    const SourceSpec parsed = spec(QStringLiteral("sim:"));
    QCOMPARE(parsed.kind, SourceSpec::Kind::Simulated);
    QVERIFY(!parsed.isLive());
}

void tst_SourceSpec::trace_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("plain") << QStringLiteral("run.csv");
    QTest::newRow("path") << QStringLiteral("/data/runs/a run.csv");
    QTest::newRow("colons and commas") << QStringLiteral("a:b,c:1.csv");
    QTest::newRow("umlauts") << QStringLiteral("Füllung.csv");
}

void tst_SourceSpec::trace()
{
    QFETCH(QString, file);
    const SourceSpec parsed = spec(QStringLiteral("trace:") + file);
    QCOMPARE(parsed.kind, SourceSpec::Kind::Trace);
    QCOMPARE(parsed.file, file);
    QVERIFY(!parsed.isLive());
}

void tst_SourceSpec::tcp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("name") << QStringLiteral("tcp:scale.example:4001") << QStringLiteral("scale.example")
                          << 4001;
    QTest::newRow("address") << QStringLiteral("tcp:127.0.0.1:1") << QStringLiteral("127.0.0.1") << 1;
    QTest::newRow("largest port") << QStringLiteral("tcp:a:65535") << QStringLiteral("a") << 65535;
    QTest::newRow("IPv6") << QStringLiteral("tcp:[::1]:4001") << QStringLiteral("::1") << 4001;
    QTest::newRow("IPv6 with a scope")
        << QStringLiteral("tcp:[fe80::1%eth0]:4001") << QStringLiteral("fe80::1%eth0") << 4001;
}

void tst_SourceSpec::tcp()
{
    QFETCH(QString, text);
    const SourceSpec parsed = spec(text);
    QCOMPARE(parsed.kind, SourceSpec::Kind::Tcp);
    QTEST(parsed.host, "host");
    QTEST(static_cast<int>(parsed.port), "port");
    QVERIFY(parsed.isLive());
}

void tst_SourceSpec::serial_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("baud");
    QTest::newRow("device") << QStringLiteral("serial:/dev/ttyUSB0") << QStringLiteral("/dev/ttyUSB0")
                            << 9600;
    QTest::newRow("name") << QStringLiteral("serial:ttyS1") << QStringLiteral("ttyS1") << 9600;
    QTest::newRow("baud") << QStringLiteral("serial:/dev/ttyS1,19200") << QStringLiteral("/dev/ttyS1")
                          << 19200;
    QTest::newRow("path with colons and commas")
        << QStringLiteral("serial:/dev/serial/by-path/pci-0:1,2,2400")
        << QStringLiteral("/dev/serial/by-path/pci-0:1,2") << 2400;
    QTest::newRow("fastest") << QStringLiteral("serial:a,4000000") << QStringLiteral("a") << 4000000;
}

void tst_SourceSpec::noSerialPort_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("fault");
    QTest::newRow("folder") << QStringLiteral("/tmp")
                            << QStringLiteral("this is a folder and no serial port");
    QTest::newRow("folder of /dev") << QStringLiteral("pts")
                                    << QStringLiteral("this is a folder and no serial port");
    QTest::newRow("file") << QCoreApplication::applicationFilePath()
                          << QStringLiteral("this is no serial port");
    QTest::newRow("device") << QStringLiteral("/dev/null") << QString();
    QTest::newRow("nothing yet") << QStringLiteral("/dev/no-such-port") << QString();
}

void tst_SourceSpec::noSerialPort()
{
    QFETCH(QString, device);
    QFETCH(QString, fault);
    VirtualClock clock;
    QString error;
    const auto spec = SourceSpec::parse(QStringLiteral("serial:") + device, &error);
    QVERIFY2(spec, qPrintable(error));
    const auto source = createSource(*spec, clock, SourceOptions(), &error);
    QCOMPARE(source != nullptr, fault.isEmpty());
    QCOMPARE(error,
             fault.isEmpty()
                 ? QString()
                 : QStringLiteral("Weight source \"serial:%1\": %2. Give a device such as /dev/ttyUSB0.")
                       .arg(device, fault));
}

void tst_SourceSpec::serial()
{
    QFETCH(QString, text);
    const SourceSpec parsed = spec(text);
    QCOMPARE(parsed.kind, SourceSpec::Kind::Serial);
    QTEST(parsed.device, "device");
    QTEST(parsed.baud, "baud");
    QVERIFY(parsed.isLive());
}

void tst_SourceSpec::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("right");
    const auto row = [](const char* text, const char* wrong, const char* right) {
        QTest::newRow(*text ? text : "nothing")
            << QString::fromUtf8(text) << QString::fromUtf8(wrong) << QString::fromUtf8(right);
    };
    const char* kind = "this kind of weight source does not exist";
    const char* kinds = "sim:, trace:FILE, tcp:HOST:PORT, serial:DEV[,BAUD]";
    row("", kind, kinds);
    row("sim", kind, kinds);
    row("Sim:", kind, kinds);
    row("file:run.csv", kind, kinds);
    row("run.csv", kind, kinds);
    row(":", kind, kinds);
    row("sim:fast", "nothing may follow \"sim:\"", "sim:");
    row("trace:", "the file is missing", "trace:FILE");
    const char* tcp = "tcp:HOST:PORT, tcp:[IPV6]:PORT";
    row("tcp:", "the port is missing", tcp);
    row("tcp:scale", "the port is missing", tcp);
    row("tcp:scale:", "the port is missing", tcp);
    row("tcp::4001", "the host is missing", tcp);
    row("tcp:scale:0", "\"0\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:65536", "\"65536\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:99999999999999", "\"99999999999999\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:-1", "\"-1\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:+80", "\"+80\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:http", "\"http\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale: 80", "\" 80\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:scale:8٣", "\"8٣\" is no port; a port is a number from 1 to 65535", tcp);
    row("tcp:::1:4001", "an IPv6 address must stand in brackets", tcp);
    row("tcp:[::1:4001", "the bracket before the IPv6 address is not closed", tcp);
    row("tcp:[::1]", "the port is missing", tcp);
    row("tcp:[::1]4001", "the port is missing", tcp);
    row("tcp:[::1]:", "the port is missing", tcp);
    row("tcp:[]:4001", "what stands in brackets is not an IPv6 address", tcp);
    row("tcp:[scale]:4001", "what stands in brackets is not an IPv6 address", tcp);
    row("tcp:my scale:4001", "\"my scale\" is no host name or address", tcp);
    row("tcp://scale:4001", "\"//scale\" is no host name or address", tcp);
    const char* serial = "serial:DEV, serial:DEV,BAUD";
    row("serial:", "the device is missing", serial);
    row("serial:,9600", "the device is missing", serial);
    row("serial:ttyS0,", "\"\" is no baud rate; a baud rate is a number from 1 to 4000000", serial);
    row("serial:ttyS0,fast", "\"fast\" is no baud rate; a baud rate is a number from 1 to 4000000", serial);
    row("serial:ttyS0,0", "\"0\" is no baud rate; a baud rate is a number from 1 to 4000000", serial);
    row("serial:ttyS0,4000001", "\"4000001\" is no baud rate; a baud rate is a number from 1 to 4000000",
        serial);
    row("serial:ttyS0,-9600", "\"-9600\" is no baud rate; a baud rate is a number from 1 to 4000000", serial);
}

void tst_SourceSpec::refuses()
{
    QFETCH(QString, text);
    QFETCH(QString, wrong);
    QFETCH(QString, right);
    QString error;
    QVERIFY(!SourceSpec::parse(text, &error));
    QCOMPARE(error, QStringLiteral("Weight source \"%1\": %2. Write %3.").arg(text, wrong, right));
}

void tst_SourceSpec::errorPointerMayBeNull()
{
    QVERIFY(!SourceSpec::parse(QStringLiteral("nonsense"), nullptr));
    QVERIFY(!createSource(spec(QStringLiteral("trace:/nonexistent")), m_clock, SourceOptions(), nullptr));
}

void tst_SourceSpec::createsSimulated()
{
    SourceOptions options;
    options.simulation.capacity = 300.0;
    QString error;
    const auto source = createSource(spec(QStringLiteral("sim:")), m_clock, options, &error);
    QVERIFY(qobject_cast<SimulatedSource*>(source.get()));
    QCOMPARE(source->readability(), 0.1);
    QCOMPARE(source->capacity(), 300.0);
    options.readability = Readability::parse(QStringLiteral("0.02"));
    QCOMPARE(createSource(spec(QStringLiteral("sim:")), m_clock, options, &error)->readability(), 0.02);
    QVERIFY(error.isEmpty());
}

void tst_SourceSpec::createsTrace()
{
    QString error;
    const auto source = createSource(spec(QStringLiteral("trace:") + recording("fast.csv")), m_clock,
                                     SourceOptions(), &error);
    QVERIFY2(source, qPrintable(error));
    const auto* trace = qobject_cast<TraceSource*>(source.get());
    QVERIFY(trace);
    QCOMPARE(trace->readability(), 0.01);
    QCOMPARE(trace->trace().samples().size(), 1201);
    QCOMPARE(trace->description(), QStringLiteral("Recording fast.csv"));
}

void tst_SourceSpec::createsTraceWithAnotherReadability()
{
    SourceOptions options;
    options.readability = Readability::parse(QStringLiteral("0.5"));
    QString error;
    const auto source =
        createSource(spec(QStringLiteral("trace:") + recording("fast.csv")), m_clock, options, &error);
    QVERIFY2(source, qPrintable(error));
    QCOMPARE(source->readability(), 0.5);
}

void tst_SourceSpec::traceErrors_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("malformed line") << QByteArray("time_s,weight_g\n0.1,1\n0.2,x\n")
                                    << QStringLiteral(
                                           ":3: the weight \"x\" is not a number; write a plain decimal "
                                           "number with a point, such as 12.5.");
    QTest::newRow("empty") << QByteArray()
                           << QStringLiteral(
                                  ":1: the file is empty; its first line must be \"time_s,weight_g\".");
}

void tst_SourceSpec::traceErrors()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QTemporaryDir directory;
    const QString name = directory.filePath(QStringLiteral("run.csv"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    QString error;
    QVERIFY(!createSource(spec(QStringLiteral("trace:") + name), m_clock, SourceOptions(), &error));
    QCOMPARE(error, name + message);
}

void tst_SourceSpec::tooManyDecimals()
{
    QTemporaryDir directory;
    const QString name = directory.filePath(QStringLiteral("run.csv"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("time_s,weight_g\n0.1,36.4\n0.2,36.400000000000006\n");
    file.close();
    SourceOptions options;
    QString error;
    QVERIFY(!createSource(spec(QStringLiteral("trace:") + name), m_clock, options, &error));
    QCOMPARE(error, name
                        + QStringLiteral(
                            ":3: the weight has 15 decimal places, and at most 7 can be shown; round the "
                            "weights or give a readability."));
    options.readability = Readability();
    QVERIFY(createSource(spec(QStringLiteral("trace:") + name), m_clock, options, &error));
}

void tst_SourceSpec::createsTcp()
{
    SourceOptions options;
    options.lines.stallMs = 1234;
    options.readability = Readability::parse(QStringLiteral("0.2"));
    QString error;
    const auto source = createSource(spec(QStringLiteral("tcp:[::1]:4001")), m_clock, options, &error);
    const auto* tcp = qobject_cast<TcpSource*>(source.get());
    QVERIFY(tcp);
    QCOMPARE(tcp->description(), QStringLiteral("Scale at ::1, port 4001"));
    QCOMPARE(tcp->settings().stallMs, 1234);
    QCOMPARE(tcp->readability(), 0.2);
}

void tst_SourceSpec::createsSerial()
{
    QString error;
    const auto source =
        createSource(spec(QStringLiteral("serial:/dev/ttyS9,2400")), m_clock, SourceOptions(), &error);
    QVERIFY(qobject_cast<SerialSource*>(source.get()));
    QCOMPARE(source->description(), QStringLiteral("Scale at /dev/ttyS9, 2400 baud"));
    QCOMPARE(source->readability(), 0.0);
}

QTEST_GUILESS_MAIN(tst_SourceSpec)
#include "tst_sourcespec.moc"
