// SPDX-License-Identifier: BSD-3-Clause
#include "SourceRecorder.h"
#include "clock/VirtualClock.h"
#include "clock/WallClock.h"
#include "source/TraceSource.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <memory>

using namespace Brimvale::Terminal;

class tst_TraceSource : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void describesItself();
    void ownReadability_data();
    void ownReadability();
    void playsAtTheRecordedTimes();
    void silentUntilStarted();
    void readingsAtTheSameTime();
    void finishedComesOnce();
    void startAgainAfterTheEnd();
    void startTwice();
    void stopAndStartBeginsAnew();
    void stopFromASlot();
    void stopFromTheLastReading();
    void restartFromASlot();
    void deleteFromASlot();
    void deleteFromFinished();
    void destroyedWhileRunning();
    void lateClockLosesNothing();
    void wallClockIsFollowed();
    void hundredReadingsASecond();

private:
    static TraceFile trace(const QByteArray& lines)
    {
        QBuffer buffer;
        buffer.setData("time_s,weight_g\n" + lines);
        buffer.open(QIODevice::ReadOnly);
        QString error;
        const std::optional<TraceFile> parsed = TraceFile::parse(buffer, QStringLiteral("test"), &error);
        if (!parsed)
            qFatal("%s", qPrintable(error));
        return *parsed;
    }
    void make(const QByteArray& lines);
    QVector<qint64> times() const
    {
        QVector<qint64> result;
        for (const Reading& reading : qAsConst(m_recorder->readings))
            result.append(reading.timeMs - VirtualClock::DefaultStartMs);
        return result;
    }

    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<TraceSource> m_source;
    std::unique_ptr<SourceRecorder> m_recorder;
};

void tst_TraceSource::init()
{
    m_recorder.reset();
    m_source.reset();
    m_clock = std::make_unique<VirtualClock>();
    make("0.076,0\n0.300,0.2\n0.450,36.4\n");
}

void tst_TraceSource::make(const QByteArray& lines)
{
    m_recorder.reset();
    m_source =
        std::make_unique<TraceSource>(*m_clock, trace(lines), QStringLiteral("run.csv"), Readability());
    m_recorder = std::make_unique<SourceRecorder>(*m_source);
}

void tst_TraceSource::describesItself()
{
    QCOMPARE(m_source->description(), QStringLiteral("Recording run.csv"));
    QCOMPARE(m_source->readability(), 0.1);
    QCOMPARE(m_source->capacity(), 0.0);
    QVERIFY(!m_source->isLive());
    QVERIFY(!m_source->isFinished());
    const TraceSource other(*m_clock, trace("0,1\n"), QString(), *Readability::parse(QStringLiteral("0.05")));
    QCOMPARE(other.readability(), 0.05);
}

void tst_TraceSource::ownReadability_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<double>("readability"); // 0: none
    QTest::newRow("whole grams") << QByteArray("0,1\n1,2\n") << 1.0;
    QTest::newRow("the most decimals") << QByteArray("0,1\n1,2.25\n2,2.5\n") << 0.01;
    QTest::newRow("seven") << QByteArray("0,1.0000001\n") << 1e-7;
    QTest::newRow("too many") << QByteArray("0,36.400000000000006\n") << 0.0;
}

void tst_TraceSource::ownReadability()
{
    QFETCH(QByteArray, lines);
    const std::optional<Readability> readability = TraceSource::readabilityOf(trace(lines));
    QTEST(readability ? readability->grams() : 0.0, "readability");
}

void tst_TraceSource::playsAtTheRecordedTimes()
{
    m_clock->advance(1000);
    m_source->start();
    m_clock->advance(299);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("0")}));
    m_clock->advance(1);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("0"), QStringLiteral("0.2")}));
    while (m_clock->runNext()) { }
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("0"), QStringLiteral("0.2"),
                                              QStringLiteral("36.4"), QStringLiteral("finished")}));
    QCOMPARE(times(), QVector<qint64>({1076, 1300, 1450}));
    QVERIFY(!m_recorder->readings.first().stableMark);
}

void tst_TraceSource::silentUntilStarted()
{
    m_clock->advance(10000);
    QVERIFY(m_recorder->events.isEmpty());
}

void tst_TraceSource::readingsAtTheSameTime()
{
    make("0,1\n0,2\n0.1,3\n0.1,4\n");
    m_source->start();
    QVERIFY(m_recorder->events.isEmpty());
    m_clock->runNext();
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("1"), QStringLiteral("2")}));
    m_clock->runNext();
    QCOMPARE(m_recorder->events.size(), 5);
    QCOMPARE(times(), QVector<qint64>({0, 0, 100, 100}));
}

void tst_TraceSource::finishedComesOnce()
{
    m_source->start();
    m_clock->advance(100000);
    QCOMPARE(m_recorder->events.count(QStringLiteral("finished")), 1);
    QCOMPARE(m_recorder->events.last(), QStringLiteral("finished"));
    QVERIFY(m_source->isFinished());
    QVERIFY(!m_clock->nextDueMs());
}

void tst_TraceSource::startAgainAfterTheEnd()
{
    m_source->start();
    m_clock->advance(1000);
    m_recorder->readings.clear();
    m_source->start();
    QVERIFY(!m_source->isFinished());
    m_clock->advance(1000);
    QCOMPARE(times(), QVector<qint64>({1076, 1300, 1450}));
    QCOMPARE(m_recorder->events.count(QStringLiteral("finished")), 2);
}

void tst_TraceSource::startTwice()
{
    m_source->start();
    m_clock->advance(100);
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(times(), QVector<qint64>({76, 300, 450}));
}

void tst_TraceSource::stopAndStartBeginsAnew()
{
    m_source->start();
    m_clock->advance(310);
    m_source->stop();
    QVERIFY(!m_clock->nextDueMs());
    m_source->stop();
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(times(), QVector<qint64>({76, 300, 386, 610, 760}));
}

void tst_TraceSource::stopFromASlot()
{
    make("0,1\n0,2\n0.1,3\n");
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [this] { m_source->stop(); });
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("1")}));
}

void tst_TraceSource::stopFromTheLastReading()
{
    make("0,1\n");
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [this] { m_source->stop(); });
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("1")}));
}

void tst_TraceSource::restartFromASlot()
{
    make("0,1\n0,2\n");
    bool once = true;
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [this, &once] {
        if (!once)
            return;
        once = false;
        m_source->stop();
        m_source->start();
    });
    m_source->start();
    m_clock->advance(1000);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2"),
                                              QStringLiteral("finished")}));
}

void tst_TraceSource::deleteFromASlot()
{
    connect(m_source.get(), &WeightSource::reading, this, [this] { m_source.reset(); });
    m_source->start();
    m_clock->advance(1000);
    QVERIFY(!m_source);
    QCOMPARE(m_recorder->events, QStringList({QStringLiteral("0")}));
}

void tst_TraceSource::deleteFromFinished()
{
    connect(m_source.get(), &WeightSource::finished, this, [this] { m_source.reset(); });
    m_source->start();
    m_clock->advance(1000);
    QVERIFY(!m_source);
}

void tst_TraceSource::destroyedWhileRunning()
{
    m_source->start();
    m_source.reset();
    m_clock->advance(1000);
    QVERIFY(m_recorder->events.isEmpty());
}

void tst_TraceSource::lateClockLosesNothing()
{
    // The clock leaps a day at once, as after a suspended event loop: more than one batch is due.
    constexpr int Count = 2500;
    QByteArray lines;
    for (int i = 0; i < Count; ++i)
        lines += QByteArray::number(i) + ',' + QByteArray::number(i) + '\n';
    make(lines);
    VirtualClock& clock = *m_clock;
    // Advancing from inside a callback makes the source's next one late.
    bool leapt = false;
    connect(m_source.get(), &WeightSource::reading, m_source.get(), [&clock, &leapt] {
        if (!leapt) {
            leapt = true;
            clock.advance(86400000);
        }
    });
    m_source->start();
    while (clock.runNext()) { }
    QVERIFY(leapt);
    QCOMPARE(m_recorder->readings.size(), Count);
    QVector<qint64> expected;
    for (int i = 0; i < Count; ++i)
        expected.append(qint64(1000) * i);
    QCOMPARE(times(), expected);
    QCOMPARE(m_recorder->events.last(), QStringLiteral("finished"));
}

void tst_TraceSource::wallClockIsFollowed()
{
    QString error;
    const std::optional<TraceFile> file = TraceFile::load(
        QDir(QStringLiteral(BRIMVALE_TRACE_DIR)).filePath(QStringLiteral("filling.csv")), &error);
    QVERIFY2(file, qPrintable(error));
    WallClock clock(1000.0); // 80 s of recording in 80 ms
    TraceSource source(clock, *file, QStringLiteral("filling.csv"), *TraceSource::readabilityOf(*file));
    SourceRecorder recorder(source);
    int early = 0;
    connect(&source, &WeightSource::reading, this,
            [&](const Reading& reading) { early += clock.nowMs() < reading.timeMs ? 1 : 0; });
    source.start();
    QTRY_VERIFY(source.isFinished());
    QCOMPARE(early, 0);
    QCOMPARE(recorder.readings.size(), file->samples().size());
    const qint64 start = recorder.readings.first().timeMs - file->samples().first().timeMs;
    for (int i = 0; i < recorder.readings.size(); ++i) {
        QCOMPARE(recorder.readings.at(i).timeMs - start, file->samples().at(i).timeMs);
        QCOMPARE(recorder.readings.at(i).grams, file->samples().at(i).grams);
    }
}

void tst_TraceSource::hundredReadingsASecond()
{
    QString error;
    const std::optional<TraceFile> file = TraceFile::load(
        QDir(QStringLiteral(BRIMVALE_TRACE_DIR)).filePath(QStringLiteral("fast.csv")), &error);
    QVERIFY2(file, qPrintable(error));
    TraceSource source(*m_clock, *file, QStringLiteral("fast.csv"), *TraceSource::readabilityOf(*file));
    SourceRecorder recorder(source);
    source.start();
    m_clock->advance(12000);
    QCOMPARE(recorder.readings.size(), 1201);
    QCOMPARE(source.readability(), 0.01);
    QVERIFY(source.isFinished());
}

QTEST_GUILESS_MAIN(tst_TraceSource)
#include "tst_tracesource.moc"
