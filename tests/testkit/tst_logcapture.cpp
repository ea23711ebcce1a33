// SPDX-License-Identifier: BSD-3-Clause
#include <QObject>
#include <QThread>
#include <QsLog.h>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <memory>

using namespace Brimvale::TestKit;
using QsLogging::Logger;

class TestLogCapture : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void captures_data();
    void captures();
    void leavesOutWhatIsBelowTheLevel();
    void keepsTextAsStreamed();
    void takingStartsAnew();
    void restoresTheLogger();
    void nests();
    void addsLinesToTheCallsOfAHost();
    void linesOfOtherThreadsStayOutOfTheCalls();
};

void TestLogCapture::init()
{
    Logger::destroyInstance();
}

void TestLogCapture::captures_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("expected");

    QTest::newRow("trace") << int(QsLogging::TraceLevel) << QStringLiteral("trace: text 5");
    QTest::newRow("debug") << int(QsLogging::DebugLevel) << QStringLiteral("debug: text 5");
    QTest::newRow("info") << int(QsLogging::InfoLevel) << QStringLiteral("info: text 5");
    QTest::newRow("warn") << int(QsLogging::WarnLevel) << QStringLiteral("warn: text 5");
    QTest::newRow("error") << int(QsLogging::ErrorLevel) << QStringLiteral("error: text 5");
    QTest::newRow("fatal") << int(QsLogging::FatalLevel) << QStringLiteral("fatal: text 5");
    QTest::newRow("off") << int(QsLogging::OffLevel) << QStringLiteral("off: text 5");
}

void TestLogCapture::captures()
{
    QFETCH(int, level);
    QFETCH(QString, expected);
    LogCapture log;
    Logger::Helper(static_cast<QsLogging::Level>(level)).stream() << "text" << 5;
    QCOMPARE(log.lines(), QStringList{expected});
}

void TestLogCapture::leavesOutWhatIsBelowTheLevel()
{
    LogCapture log(QsLogging::WarnLevel);
    QLOG_INFO() << "info";
    QLOG_WARN() << "warning";
    QCOMPARE(log.lines(), QStringList{QStringLiteral("warn: warning")});
}

void TestLogCapture::keepsTextAsStreamed()
{
    LogCapture log;
    QLOG_WARN() << "value= " << QStringLiteral("a b") << "end ";
    // One blank belongs to the stream, the other one to the text.
    QCOMPARE(log.lines(), QStringList{QStringLiteral("warn: value=  \"a b\" end ")});
}

void TestLogCapture::takingStartsAnew()
{
    LogCapture log;
    QLOG_WARN() << "first";
    QCOMPARE(log.takeLines(), QStringList{QStringLiteral("warn: first")});
    QCOMPARE(log.takeLines(), QStringList());
    QLOG_WARN() << "second";
    QCOMPARE(log.takeLines(), QStringList{QStringLiteral("warn: second")});
}

void TestLogCapture::restoresTheLogger()
{
    Logger& logger = Logger::instance();
    logger.setLoggingLevel(QsLogging::ErrorLevel);
    logger.setIncludeTimestamp(true);
    logger.setIncludeLogLevel(true);
    {
        LogCapture log(QsLogging::DebugLevel);
        QCOMPARE(logger.loggingLevel(), QsLogging::DebugLevel);
    }
    QCOMPARE(logger.loggingLevel(), QsLogging::ErrorLevel);
    QVERIFY(logger.includeTimestamp());
    QVERIFY(logger.includeLogLevel());
    // The destination that the logger keeps must not reach for the capture any more.
    QLOG_ERROR() << "after the end";
}

void TestLogCapture::nests()
{
    LogCapture outer(QsLogging::WarnLevel);
    {
        LogCapture inner(QsLogging::DebugLevel);
        QLOG_DEBUG() << "both";
        QCOMPARE(inner.lines(), QStringList{QStringLiteral("debug: both")});
    }
    QLOG_DEBUG() << "none";
    QLOG_WARN() << "outer";
    QCOMPARE(outer.lines(), QStringList({QStringLiteral("debug: both"), QStringLiteral("warn: outer")}));
}

void TestLogCapture::addsLinesToTheCallsOfAHost()
{
    RecordingHost host;
    LogCapture log(host, QsLogging::WarnLevel);
    host.system()->GetDecimals();
    QLOG_WARN() << "between";
    host.system()->GetCurrentUnit();
    BRIMVALE_COMPARE_CALLS(host, "ISystem::GetDecimals()", "log warn: between", "ISystem::GetCurrentUnit()");
    QCOMPARE(log.lines(), QStringList{QStringLiteral("warn: between")});
}

void TestLogCapture::linesOfOtherThreadsStayOutOfTheCalls()
{
    RecordingHost host;
    LogCapture log(host);
    const std::unique_ptr<QThread> thread(QThread::create([] { QLOG_WARN() << "elsewhere"; }));
    thread->start();
    QVERIFY(thread->wait());
    BRIMVALE_COMPARE_CALLS(host);
    QCOMPARE(log.lines(), QStringList{QStringLiteral("warn: elsewhere")});
}

QTEST_GUILESS_MAIN(TestLogCapture)
#include "tst_logcapture.moc"
