// SPDX-License-Identifier: BSD-3-Clause
#include "SourceRecorder.h"
#include "clock/WallClock.h"
#include "source/SerialSource.h"

#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <termios.h>
#include <unistd.h>

using namespace Brimvale::Terminal;

/// A scale at the other end of a pseudo-terminal.
class SerialScale
{
public:
    SerialScale()
        : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
            qFatal("no pseudo-terminal");
        m_device = QString::fromLocal8Bit(ptsname(m_master));
        // Keeps the terminal alive while nobody else has it open, as a cable does.
        m_slave = ::open(ptsname(m_master), O_RDWR | O_NOCTTY);
        termios settings{};
        tcgetattr(m_slave, &settings);
        cfmakeraw(&settings);
        tcsetattr(m_slave, TCSANOW, &settings);
    }
    ~SerialScale() { unplug(); }

    void unplug()
    {
        if (m_slave >= 0)
            ::close(m_slave);
        if (m_master >= 0)
            ::close(m_master);
        m_slave = m_master = -1;
    }

    QString device() const { return m_device; }

    bool send(const QByteArray& bytes) const
    {
        return ::write(m_master, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size();
    }

    QByteArray received() const
    {
        char buffer[1000];
        const ssize_t count = ::read(m_master, buffer, sizeof buffer);
        return count > 0 ? QByteArray(buffer, static_cast<int>(count)) : QByteArray();
    }

    speed_t speed() const
    {
        termios settings{};
        tcgetattr(m_master, &settings);
        return cfgetospeed(&settings);
    }

    tcflag_t controlFlags() const
    {
        termios settings{};
        tcgetattr(m_master, &settings);
        return settings.c_cflag;
    }

private:
    int m_master;
    int m_slave = -1;
    QString m_device;
};

class tst_SerialSource : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void describesItself();
    void silentUntilStarted();
    void setsTheLine_data();
    void setsTheLine();
    void asksForWeights();
    void readsLines();
    void halfLines();
    void everyByteAlone();
    void garbage();
    void noiseOfAnotherBaudRate();
    void hundredReadings();
    void stall();
    void missingDevice();
    void notASerialPort();
    void deviceThatComesLater();
    void deviceThatVanishes();
    void deviceThatVanishesAndComesBack();
    void stopEnds();
    void startAgain();
    void stopFromASlot();
    void deleteFromASlot();
    void deleteWhenTheDeviceVanishes();

private:
    void make(const QString& device, int baud = SerialSource::DefaultBaud);
    void makeStarted();
    QString lastEvent() const { return m_recorder->events.isEmpty() ? QString() : m_recorder->events.last(); }

    WallClock m_clock;
    LineSourceSettings m_settings;
    std::unique_ptr<SerialScale> m_scale;
    std::unique_ptr<SerialSource> m_source;
    std::unique_ptr<SourceRecorder> m_recorder;
};

void tst_SerialSource::init()
{
    m_settings = LineSourceSettings();
    m_settings.stallMs = 60000;
    m_settings.firstRetryMs = 10;
    m_settings.maximumRetryMs = 20;
    m_scale = std::make_unique<SerialScale>();
}

void tst_SerialSource::cleanup()
{
    m_recorder.reset();
    m_source.reset();
    m_scale.reset();
}

void tst_SerialSource::make(const QString& device, int baud)
{
    m_recorder.reset();
    m_source = std::make_unique<SerialSource>(m_clock, device, baud, m_settings);
    m_recorder = std::make_unique<SourceRecorder>(*m_source);
}

void tst_SerialSource::makeStarted()
{
    make(m_scale->device());
    m_source->start();
}

void tst_SerialSource::describesItself()
{
    make(QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(m_source->description(), QStringLiteral("Scale at /dev/ttyUSB0, 9600 baud"));
    QVERIFY(m_source->isLive());
    QVERIFY(!m_source->isConnected());
    QCOMPARE(m_source->readability(), 0.0);
}

void tst_SerialSource::silentUntilStarted()
{
    make(m_scale->device());
    QVERIFY(m_scale->send("S S 1.0 g\r\n"));
    QTest::qWait(30);
    QVERIFY(m_recorder->events.isEmpty());
    QCOMPARE(m_scale->received(), QByteArray());
}

void tst_SerialSource::setsTheLine_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<uint>("speed");
    QTest::newRow("9600") << 9600 << uint(B9600);
    QTest::newRow("2400") << 2400 << uint(B2400);
    QTest::newRow("115200") << 115200 << uint(B115200);
}

void tst_SerialSource::setsTheLine()
{
    QFETCH(int, baud);
    make(m_scale->device(), baud);
    m_source->start();
    QTEST(static_cast<uint>(m_scale->speed()), "speed");
    QCOMPARE(m_scale->controlFlags() & CSIZE, tcflag_t(CS8));
    QCOMPARE(m_scale->controlFlags() & (PARENB | CSTOPB | CRTSCTS), tcflag_t(0));
}

void tst_SerialSource::asksForWeights()
{
    makeStarted();
    QByteArray received;
    QTRY_COMPARE(received += m_scale->received(), QByteArray("SIR\r\n"));
}

void tst_SerialSource::readsLines()
{
    makeStarted();
    QVERIFY(m_scale->send("S D      99.98 g\r\nS S     100.00 g\r\nS +\r\n"));
    QTRY_COMPARE(m_recorder->readings.size(), 3);
    QCOMPARE(m_recorder->events,
             QStringList({QStringLiteral("connected"), QStringLiteral("readability 0.01"),
                          QStringLiteral("99.98 D"), QStringLiteral("100 S"), QStringLiteral("overload")}));
    QVERIFY(m_source->isConnected());
}

void tst_SerialSource::halfLines()
{
    makeStarted();
    for (const char* part : {"S S    ", " 100.0", "0 g\r", "\nS D     10", "0.02 g\r\n"}) {
        QVERIFY(m_scale->send(part));
        QTest::qWait(5);
    }
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->events.mid(2), QStringList({QStringLiteral("100 S"), QStringLiteral("100.02 D")}));
}

void tst_SerialSource::everyByteAlone()
{
    makeStarted();
    for (const char byte : QByteArray("S S     100.00 g\r\n")) {
        QVERIFY(m_scale->send(QByteArray(1, byte)));
        QTest::qWait(2);
    }
    QTRY_COMPARE(lastEvent(), QStringLiteral("100 S"));
    QCOMPARE(m_recorder->readings.size(), 1);
}

void tst_SerialSource::garbage()
{
    makeStarted();
    QVERIFY(m_scale->send(".00 g\r\n" + QByteArray("\0\x11\x13\x03\xFF\x7F\r\n", 8) + QByteArray(500, 'x')
                          + "\r\nS S 1.5 g\r\n"));
    QTRY_COMPARE(lastEvent(), QStringLiteral("1.5 S"));
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("connected"), QStringLiteral("unreadable"),
                                              QStringLiteral("unreadable"), QStringLiteral("unreadable"),
                                              QStringLiteral("readability 0.1"), QStringLiteral("1.5 S")}));
    // Control characters arrive as they are: no flow control, no line editing.
    QCOMPARE(m_recorder->readings.at(1).detail,
             QStringLiteral("Not a weight line: \"\\x00\\x11\\x13\\x03\\xff\\x7f\"."));
}

void tst_SerialSource::noiseOfAnotherBaudRate()
{
    m_settings.stallMs = 100;
    m_settings.stallsBeforeReconnect = 1000;
    makeStarted();
    QVERIFY(m_scale->send(QByteArray(400, '\xF8')));
    // A line that is too long is unreadable as soon as it is; then nothing that is a line comes any more.
    QTRY_COMPARE(m_recorder->readings.size(), 2);
    QCOMPARE(m_recorder->readings.at(0).status, Reading::Status::Unreadable);
    QCOMPARE(m_recorder->readings.at(1).status, Reading::Status::Disconnected);
}

void tst_SerialSource::hundredReadings()
{
    makeStarted();
    for (int i = 0; i < 100; ++i) {
        QVERIFY(m_scale->send("S D     " + QByteArray::number(1000 + i) + ".00 g\r\n"));
        if (i % 10 == 9)
            QTest::qWait(5);
    }
    QTRY_COMPARE(m_recorder->readings.size(), 100);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(m_recorder->readings.at(i).grams, 1000.0 + i);
}

void tst_SerialSource::stall()
{
    m_settings.stallMs = 50;
    m_settings.stallsBeforeReconnect = 2;
    makeStarted();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().detail, QStringLiteral("No data for 0.05 s."));
    // Opened anew, it still works.
    QByteArray received;
    QTRY_VERIFY((received += m_scale->received()).count("SIR\r\n") >= 4);
    QTimer sending;
    connect(&sending, &QTimer::timeout, this, [this] { m_scale->send("S S 1.5 g\r\n"); });
    sending.start(10);
    QTRY_VERIFY(m_recorder->events.contains(QStringLiteral("1.5 S")));
}

void tst_SerialSource::missingDevice()
{
    make(QStringLiteral("/dev/no-such-port"));
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().status, Reading::Status::Disconnected);
    QCOMPARE(m_recorder->readings.first().detail, QStringLiteral("No such file or directory"));
    QTest::qWait(60);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("no data")}));
}

void tst_SerialSource::notASerialPort()
{
    make(QStringLiteral("/dev/null"));
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QCOMPARE(m_recorder->readings.first().status, Reading::Status::Disconnected);
    QVERIFY(!m_recorder->readings.first().detail.isEmpty());
}

void tst_SerialSource::deviceThatComesLater()
{
    QTemporaryDir directory;
    const QString link = directory.filePath(QStringLiteral("scale"));
    make(link);
    m_source->start();
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QVERIFY(QFile::link(m_scale->device(), link));
    QByteArray received;
    QTRY_VERIFY(!(received += m_scale->received()).isEmpty());
    QVERIFY(m_scale->send("S S 1.5 g\r\n"));
    QTRY_COMPARE(lastEvent(), QStringLiteral("1.5 S"));
}

void tst_SerialSource::deviceThatVanishes()
{
    makeStarted();
    QVERIFY(m_scale->send("S S 1.5 g\r\n"));
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->unplug();
    QTRY_VERIFY(m_recorder->readings.size() >= 2);
    QCOMPARE(
        m_recorder->events.mid(2, 3),
        QStringList({QStringLiteral("1.5 S"), QStringLiteral("disconnected"), QStringLiteral("no data")}));
    QVERIFY(std::isnan(m_recorder->readings.at(1).grams));
    QVERIFY(!m_recorder->readings.at(1).detail.isEmpty());
    QVERIFY(!m_source->isConnected());
}

void tst_SerialSource::deviceThatVanishesAndComesBack()
{
    QTemporaryDir directory;
    const QString link = directory.filePath(QStringLiteral("scale"));
    QVERIFY(QFile::link(m_scale->device(), link));
    make(link);
    m_source->start();
    QVERIFY(m_scale->send("S S 1.5 g\r\nS S 12"));
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    m_scale->unplug();
    QTRY_VERIFY(!m_source->isConnected());

    SerialScale other;
    QVERIFY(QFile::remove(link));
    QVERIFY(QFile::link(other.device(), link));
    QByteArray received;
    QTRY_VERIFY(!(received += other.received()).isEmpty());
    QVERIFY(other.send("S S 2.5 g\r\n"));
    QTRY_COMPARE(lastEvent(), QStringLiteral("2.5 S"));
    QCOMPARE(m_recorder->connections, QVector<bool>({true, false, true}));
    QCOMPARE(m_recorder->count(Reading::Status::Unreadable), 0);
}

void tst_SerialSource::stopEnds()
{
    makeStarted();
    QVERIFY(m_scale->send("S S 1.5 g\r\n"));
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    const QStringList events = m_recorder->events;
    m_source->stop();
    QVERIFY(m_scale->send("S S 2.5 g\r\n"));
    QTest::qWait(50);
    QCOMPARE(m_recorder->events, events);
}

void tst_SerialSource::startAgain()
{
    makeStarted();
    m_source->stop();
    m_source->start();
    QVERIFY(m_scale->send("S S 1.5 g\r\n"));
    QTRY_COMPARE(lastEvent(), QStringLiteral("1.5 S"));
}

void tst_SerialSource::stopFromASlot()
{
    makeStarted();
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [this] { m_source->stop(); });
    QVERIFY(m_scale->send("S S 1.5 g\r\nS S 2.5 g\r\n"));
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    QTest::qWait(30);
    QCOMPARE(lastEvent(), QStringLiteral("1.5 S"));
}

void tst_SerialSource::deleteFromASlot()
{
    makeStarted();
    connect(m_source.get(), &WeightSource::reading, this, [this] { m_source.reset(); });
    QVERIFY(m_scale->send("S S 1.5 g\r\nS S 2.5 g\r\n"));
    QTRY_VERIFY(!m_source);
    QTest::qWait(30);
    QCOMPARE(m_recorder->readings.size(), 1);
}

void tst_SerialSource::deleteWhenTheDeviceVanishes()
{
    makeStarted();
    QVERIFY(m_scale->send("S S 1.5 g\r\n"));
    QTRY_COMPARE(m_recorder->readings.size(), 1);
    connect(m_source.get(), &WeightSource::connectionChanged, this, [this] { m_source.reset(); });
    m_scale->unplug();
    QTRY_VERIFY(!m_source);
    QTest::qWait(30);
    QCOMPARE(lastEvent(), QStringLiteral("disconnected"));
}

QTEST_GUILESS_MAIN(tst_SerialSource)
#include "tst_serialsource.moc"
