// SPDX-License-Identifier: BSD-3-Clause
#include "QsLog.h"
#include "app/LogOutput.h"

#include <QLoggingCategory>
#include <QtTest>

#include <thread>
#include <vector>

using Brimvale::Terminal::LogOutput;

class TestLogOutput : public QObject
{
    Q_OBJECT

private slots:
    void linesAreKept();
    void level();
    void qtMessages_data();
    void qtMessages();
    void categoryOfAQtMessage();
    void textsAreNotQuoted();
    void oldestLinesAreDropped();
    void linesOfSeveralThreads();
    void afterItsEnd();
};

void TestLogOutput::linesAreKept()
{
    LogOutput log(QsLogging::InfoLevel);
    QLOG_INFO().noquote() << QStringLiteral("the first line");
    QLOG_WARN().noquote() << QStringLiteral("the second line");
    QVERIFY(log.contains(QStringLiteral("first line")));
    QVERIFY(log.contains(QStringLiteral("WARN")));
    QVERIFY(!log.contains(QStringLiteral("third")));
}

void TestLogOutput::level()
{
    LogOutput log(QsLogging::ErrorLevel);
    QLOG_WARN() << "left out";
    QLOG_ERROR() << "kept";
    QVERIFY(!log.contains(QStringLiteral("left out")));
    QVERIFY(log.contains(QStringLiteral("kept")));
}

void TestLogOutput::qtMessages_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("level");
    QTest::newRow("debug") << int(QtDebugMsg) << "DEBUG";
    QTest::newRow("info") << int(QtInfoMsg) << "INFO";
    QTest::newRow("warning") << int(QtWarningMsg) << "WARN";
    QTest::newRow("critical") << int(QtCriticalMsg) << "ERROR";
}

void TestLogOutput::qtMessages()
{
    QFETCH(int, type);
    QFETCH(QString, level);
    LogOutput log(QsLogging::TraceLevel);
    switch (type) {
    case QtDebugMsg:
        qDebug("a message of Qt");
        break;
    case QtInfoMsg:
        qInfo("a message of Qt");
        break;
    case QtWarningMsg:
        qWarning("a message of Qt");
        break;
    default:
        qCritical("a message of Qt");
        break;
    }
    QVERIFY(log.contains(QStringLiteral("a message of Qt")));
    QVERIFY(log.contains(level));
}

void TestLogOutput::categoryOfAQtMessage()
{
    LogOutput log(QsLogging::InfoLevel);
    const QLoggingCategory category("brimvale.test");
    qCWarning(category, "too warm");
    QVERIFY(log.contains(QStringLiteral("brimvale.test: too warm")));
}

void TestLogOutput::textsAreNotQuoted()
{
    LogOutput log(QsLogging::InfoLevel);
    qWarning("say \"hello\"");
    QVERIFY(log.contains(QStringLiteral(" say \"hello\"")));
}

void TestLogOutput::oldestLinesAreDropped()
{
    LogOutput log(QsLogging::InfoLevel, 5);
    QLOG_INFO() << "the oldest";
    for (int i = 0; i < 5; ++i)
        QLOG_INFO() << "line" << i;
    QVERIFY(!log.contains(QStringLiteral("the oldest")));
    QVERIFY(log.contains(QStringLiteral("line 0")));
}

void TestLogOutput::linesOfSeveralThreads()
{
    constexpr int threadCount = 4;
    constexpr int lineCount = 50;
    LogOutput log(QsLogging::InfoLevel);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([thread] {
            for (int line = 0; line < lineCount; ++line)
                qInfo("thread %d line %d.", thread, line);
        });
    }
    // A script looks for a line while others are written.
    const bool isFound = QTest::qWaitFor([&log] { return log.contains(QStringLiteral("thread 0 line 0.")); });
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY(isFound);
    for (int thread = 0; thread < threadCount; ++thread) {
        for (int line = 0; line < lineCount; ++line)
            QVERIFY(log.contains(QStringLiteral("thread %1 line %2.").arg(thread).arg(line)));
    }
}

void TestLogOutput::afterItsEnd()
{
    {
        const LogOutput log(QsLogging::TraceLevel);
    }
    QCOMPARE(int(QsLogging::Logger::instance().loggingLevel()), int(QsLogging::InfoLevel));
    QTest::ignoreMessage(QtWarningMsg, "back with the test");
    qWarning("back with the test");
}

QTEST_GUILESS_MAIN(TestLogOutput)

#include "tst_logoutput.moc"
