// SPDX-License-Identifier: BSD-3-Clause

#include "LogRecorder.h"
#include "QsLog.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace QsLogging;

namespace
{

QStringList functionLines;
QVector<int> functionLevels;

void takeLine(const QString& message, Level level)
{
    functionLines.append(message);
    functionLevels.append(level);
}

class Receiver : public QObject
{
    Q_OBJECT

public:
    QStringList lines;
    QVector<int> levels;
    QThread* calledIn = nullptr;

public slots:
    void take(const QString& message, int level)
    {
        lines.append(message);
        levels.append(level);
        calledIn = QThread::currentThread();
    }
};

class ThrowingDestination : public Destination
{
public:
    void write(const QString&, Level) override { throw std::runtime_error("full"); }
    bool isValid() override { return true; }
};

// Logs another line while it writes one.
class LoggingDestination : public Destination
{
public:
    void write(const QString& message, Level level) override
    {
        lines.append(message);
        if (level == InfoLevel)
            QLOG_WARN() << "from within";
    }
    bool isValid() override { return true; }

    QStringList lines;
};

// Logs another line whenever it writes one.
class AlwaysLoggingDestination : public Destination
{
public:
    void write(const QString& message, Level) override
    {
        lines.append(message);
        QLOG_INFO() << "again";
    }
    bool isValid() override { return true; }

    QStringList lines;
};

class InvalidDestination : public Destination
{
public:
    void write(const QString&, Level) override { ++written; }
    bool isValid() override { return false; }

    int written = 0;
};

// Notices when it is called while it is being called.
class OverlapDestination : public Destination
{
public:
    void write(const QString&, Level) override
    {
        if (++m_calls > 1)
            overlapped = true;
        std::this_thread::sleep_for(std::chrono::microseconds(50));
        --m_calls;
        ++lineCount;
    }
    bool isValid() override { return true; }

    std::atomic<bool> overlapped{false};
    std::atomic<int> lineCount{0};

private:
    std::atomic<int> m_calls{0};
};

// Collects what is written to a file descriptor of the process.
class DescriptorCapture
{
public:
    DescriptorCapture(int descriptor, const QString& filePath)
        : m_descriptor(descriptor)
        , m_saved(::dup(descriptor))
        , m_file(filePath)
    {
        if (m_file.open(QIODevice::ReadWrite | QIODevice::Truncate))
            ::dup2(m_file.handle(), m_descriptor);
    }

    ~DescriptorCapture()
    {
        ::dup2(m_saved, m_descriptor);
        ::close(m_saved);
    }

    QByteArray content()
    {
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    Q_DISABLE_COPY(DescriptorCapture)

    int m_descriptor;
    int m_saved;
    QFile m_file;
};

} // namespace

class TestQsLog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void levelsHaveTheirNumbers_data();
    void levelsHaveTheirNumbers();
    void initialState();
    void destroyInstanceRestoresTheInitialState();
    void loggerIsOneObject();
    void settersAreKept();

    void lineOfEachLevel_data();
    void lineOfEachLevel();
    void partsOfALine_data();
    void partsOfALine();
    void timestampIsTheLocalTime();
    void helperDoesNotAskForTheLevel();
    void macroWritesFromItsLevelOn_data();
    void macroWritesFromItsLevelOn();
    void macroEvaluatesNothingBelowItsLevel();
    void macroIsOneStatement();

    void everyDestinationGetsEveryLine();
    void destinationsAreShared();
    void nullDestinationIsIgnored();
    void invalidDestinationIsIgnored();
    void throwingDestinationHarmsNoOther();
    void destinationMayLog();
    void destinationThatAlwaysLogsComesToAnEnd();
    void linesOfSeveralThreadsStayWhole();
    void linesOfSeveralThreadsAreWrittenOneByOne();

    void fileIsAppendedTo();
    void fileIsInUtf8();
    void fileIsWrittenAtOnce();
    void fileThatCannotBeOpenedIsInvalid_data();
    void fileThatCannotBeOpenedIsInvalid();
    void fileRotation_data();
    void fileRotation();
    void fileRotationOfAnExistingFile();
    void fileRotationThatFailsLosesNothing();

    void debugOutput();
    void functionIsCalled();
    void nullFunctionIsInvalid();
    void slotIsCalledByTheEventLoop();
    void slotIsCalledInTheThreadOfTheReceiver();
    void slotOfADestroyedReceiver();
    void invalidReceivers_data();
    void invalidReceivers();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QByteArray content(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestQsLog::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    Logger::destroyInstance();
    functionLines.clear();
    functionLevels.clear();
}

void TestQsLog::cleanup()
{
    Logger::destroyInstance();
    m_dir.reset();
}

QByteArray TestQsLog::content(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void TestQsLog::levelsHaveTheirNumbers_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("number");

    QTest::newRow("trace") << int(TraceLevel) << 0;
    QTest::newRow("debug") << int(DebugLevel) << 1;
    QTest::newRow("info") << int(InfoLevel) << 2;
    QTest::newRow("warn") << int(WarnLevel) << 3;
    QTest::newRow("error") << int(ErrorLevel) << 4;
    QTest::newRow("fatal") << int(FatalLevel) << 5;
    QTest::newRow("off") << int(OffLevel) << 6;
}

void TestQsLog::levelsHaveTheirNumbers()
{
    QFETCH(int, level);
    QTEST(level, "number");
}

void TestQsLog::initialState()
{
    const Logger& logger = Logger::instance();
    QCOMPARE(int(logger.loggingLevel()), int(InfoLevel));
    QCOMPARE(logger.includeTimestamp(), true);
    QCOMPARE(logger.includeLogLevel(), true);
}

void TestQsLog::destroyInstanceRestoresTheInitialState()
{
    Logger& logger = Logger::instance();
    logger.addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    logger.setLoggingLevel(FatalLevel);
    logger.setIncludeTimestamp(false);
    logger.setIncludeLogLevel(false);

    Logger::destroyInstance();

    initialState();
    QLOG_FATAL() << "nobody listens";
    QCOMPARE(functionLines, QStringList());
}

void TestQsLog::loggerIsOneObject()
{
    Logger* const logger = &Logger::instance();
    Logger::destroyInstance();
    QCOMPARE(&Logger::instance(), logger);
    Logger* other = nullptr;
    std::thread([&other] { other = &Logger::instance(); }).join();
    QCOMPARE(other, logger);
}

void TestQsLog::settersAreKept()
{
    Logger& logger = Logger::instance();
    for (int level = TraceLevel; level <= OffLevel; ++level) {
        logger.setLoggingLevel(static_cast<Level>(level));
        QCOMPARE(int(logger.loggingLevel()), level);
    }
    logger.setIncludeTimestamp(false);
    QCOMPARE(logger.includeTimestamp(), false);
    QCOMPARE(logger.includeLogLevel(), true);
    logger.setIncludeLogLevel(false);
    QCOMPARE(logger.includeLogLevel(), false);
}

void TestQsLog::lineOfEachLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("line");

    QTest::newRow("trace") << int(TraceLevel) << QStringLiteral("TRACE text ");
    QTest::newRow("debug") << int(DebugLevel) << QStringLiteral("DEBUG text ");
    QTest::newRow("info") << int(InfoLevel) << QStringLiteral("INFO  text ");
    QTest::newRow("warn") << int(WarnLevel) << QStringLiteral("WARN  text ");
    QTest::newRow("error") << int(ErrorLevel) << QStringLiteral("ERROR text ");
    QTest::newRow("fatal") << int(FatalLevel) << QStringLiteral("FATAL text ");
    QTest::newRow("off") << int(OffLevel) << QStringLiteral(" text ");
}

void TestQsLog::lineOfEachLevel()
{
    QFETCH(int, level);
    QFETCH(QString, line);
    const LogRecorder log(TraceLevel);
    Logger::Helper(static_cast<Level>(level)).stream() << "text";
    QCOMPARE(log.lines(), QStringList(line));
    QCOMPARE(log.levels(), QVector<int>{level});
}

void TestQsLog::partsOfALine_data()
{
    QTest::addColumn<bool>("level");
    QTest::addColumn<bool>("timestamp");
    QTest::addColumn<QString>("pattern");

    const QString time = QStringLiteral("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}");
    QTest::newRow("all") << true << true << QStringLiteral("^INFO  %1 text 7 $").arg(time);
    QTest::newRow("no level") << false << true << QStringLiteral("^%1 text 7 $").arg(time);
    QTest::newRow("no timestamp") << true << false << QStringLiteral("^INFO  text 7 $");
    QTest::newRow("text alone") << false << false << QStringLiteral("^text 7 $");
}

void TestQsLog::partsOfALine()
{
    QFETCH(bool, level);
    QFETCH(bool, timestamp);
    QFETCH(QString, pattern);
    Logger& logger = Logger::instance();
    logger.setIncludeLogLevel(level);
    logger.setIncludeTimestamp(timestamp);
    logger.addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    QLOG_INFO() << "text" << 7;
    QCOMPARE(functionLines.size(), 1);
    QVERIFY2(QRegularExpression(pattern).match(functionLines.first()).hasMatch(),
             qPrintable(functionLines.first()));
}

void TestQsLog::timestampIsTheLocalTime()
{
    Logger& logger = Logger::instance();
    logger.setIncludeLogLevel(false);
    logger.addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    const QDateTime before = QDateTime::currentDateTime();
    QLOG_INFO() << "text";
    const QDateTime after = QDateTime::currentDateTime();
    QCOMPARE(functionLines.size(), 1);
    const QDateTime stamp =
        QDateTime::fromString(functionLines.first().section(QLatin1Char(' '), 0, 0), Qt::ISODateWithMs);
    QVERIFY(stamp.isValid());
    QVERIFY(before <= stamp && stamp <= after);
}

void TestQsLog::helperDoesNotAskForTheLevel()
{
    const LogRecorder log(OffLevel);
    Logger::Helper(TraceLevel).stream() << "text";
    QCOMPARE(log.lines(), QStringList(QStringLiteral("TRACE text ")));
}

void TestQsLog::macroWritesFromItsLevelOn_data()
{
    QTest::addColumn<int>("configured");
    QTest::addColumn<QVector<int>>("written");

    for (int level = TraceLevel; level <= OffLevel; ++level) {
        QVector<int> written;
        for (int i = level; i <= FatalLevel; ++i)
            written.append(i);
        QTest::addRow("level %d", level) << level << written;
    }
}

void TestQsLog::macroWritesFromItsLevelOn()
{
    QFETCH(int, configured);
    const LogRecorder log(static_cast<Level>(configured));
    QLOG_TRACE() << "text";
    QLOG_DEBUG() << "text";
    QLOG_INFO() << "text";
    QLOG_WARN() << "text";
    QLOG_ERROR() << "text";
    QLOG_FATAL() << "text";
    QTEST(log.levels(), "written");
}

void TestQsLog::macroEvaluatesNothingBelowItsLevel()
{
    const LogRecorder log(WarnLevel);
    int evaluated = 0;
    QLOG_INFO() << ++evaluated;
    QCOMPARE(evaluated, 0);
    QLOG_WARN() << ++evaluated;
    QCOMPARE(evaluated, 1);
}

void TestQsLog::macroIsOneStatement()
{
    const LogRecorder log(InfoLevel);
    bool otherwise = false;
    if (log.lines().isEmpty())
        QLOG_DEBUG() << "below the level";
    else
        otherwise = true;
    QVERIFY(!otherwise);
}

void TestQsLog::everyDestinationGetsEveryLine()
{
    const LogRecorder first(InfoLevel);
    Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    QLOG_INFO() << "one";
    QLOG_ERROR() << "two";
    const QStringList lines{QStringLiteral("INFO  one "), QStringLiteral("ERROR two ")};
    QCOMPARE(first.lines(), lines);
    QCOMPARE(functionLines, lines);
}

void TestQsLog::destinationsAreShared()
{
    DestinationPtr destination = DestinationFactory::MakeFunctorDestination(takeLine);
    const QWeakPointer<Destination> watched = destination;
    Logger::instance().addDestination(destination);
    destination.reset();
    QVERIFY(watched);
    QLOG_INFO() << "text";
    QCOMPARE(functionLines.size(), 1);
    Logger::destroyInstance();
    QVERIFY(!watched);
}

void TestQsLog::nullDestinationIsIgnored()
{
    Logger::instance().addDestination(DestinationPtr());
    Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    QLOG_INFO() << "text";
    QCOMPARE(functionLines.size(), 1);
}

void TestQsLog::invalidDestinationIsIgnored()
{
    const QSharedPointer<InvalidDestination> invalid(new InvalidDestination);
    Logger::instance().addDestination(invalid);
    QLOG_INFO() << "text";
    QCOMPARE(invalid->written, 0);
}

void TestQsLog::throwingDestinationHarmsNoOther()
{
    Logger::instance().addDestination(DestinationPtr(new ThrowingDestination));
    Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    QLOG_INFO() << "text";
    QCOMPARE(functionLevels, QVector<int>{InfoLevel});
}

void TestQsLog::destinationMayLog()
{
    const QSharedPointer<LoggingDestination> destination(new LoggingDestination);
    Logger::instance().setIncludeTimestamp(false);
    Logger::instance().addDestination(destination);
    QLOG_INFO() << "text";
    QCOMPARE(destination->lines,
             (QStringList{QStringLiteral("INFO  text "), QStringLiteral("WARN  from within ")}));
}

void TestQsLog::destinationThatAlwaysLogsComesToAnEnd()
{
    const QSharedPointer<AlwaysLoggingDestination> destination(new AlwaysLoggingDestination);
    Logger::instance().setIncludeTimestamp(false);
    Logger::instance().addDestination(destination);
    Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    QLOG_INFO() << "text";
    const QStringList expected = {QStringLiteral("INFO  text "), QStringLiteral("INFO  again ")};
    QCOMPARE(destination->lines, expected);
    QCOMPARE(functionLevels.size(), 3); // the innermost line is lost to the destination that logs it only
    QLOG_INFO() << "text";
    QCOMPARE(destination->lines, expected + expected);
}

void TestQsLog::linesOfSeveralThreadsStayWhole()
{
    constexpr int threadCount = 8;
    constexpr int lineCount = 300;
    Logger& logger = Logger::instance();
    logger.setIncludeTimestamp(false);
    logger.addDestination(DestinationFactory::MakeFileDestination(path(QStringLiteral("log"))));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([thread, &logger] {
            for (int line = 0; line < lineCount; ++line) {
                QLOG_INFO() << "thread" << thread << "line" << line;
                logger.setLoggingLevel(line % 2 ? InfoLevel : DebugLevel);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    Logger::destroyInstance();

    const QList<QByteArray> lines = content(QStringLiteral("log")).split('\n');
    QCOMPARE(lines.size(), threadCount * lineCount + 1);
    QVERIFY(lines.last().isEmpty());
    // The lines of each thread are all there, whole and in their order.
    QVector<int> next(threadCount, 0);
    for (int i = 0; i < threadCount * lineCount; ++i) {
        const int thread = lines.at(i).split(' ').value(3).toInt();
        QVERIFY(thread >= 0 && thread < threadCount);
        QCOMPARE(lines.at(i), QByteArray("INFO  thread " + QByteArray::number(thread) + " line "
                                         + QByteArray::number(next[thread]) + ' '));
        ++next[thread];
    }
}

void TestQsLog::linesOfSeveralThreadsAreWrittenOneByOne()
{
    const QSharedPointer<OverlapDestination> destination(new OverlapDestination);
    Logger::instance().addDestination(destination);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([] {
            for (int line = 0; line < 100; ++line)
                QLOG_INFO() << line;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(destination->lineCount.load(), 800);
    QVERIFY(!destination->overlapped);
}

void TestQsLog::fileIsAppendedTo()
{
    const QString filePath = path(QStringLiteral("log"));
    for (int run = 0; run < 2; ++run) {
        const DestinationPtr destination = DestinationFactory::MakeFileDestination(filePath);
        QVERIFY(destination->isValid());
        destination->write(QStringLiteral("run %1").arg(run), InfoLevel);
    }
    QCOMPARE(content(QStringLiteral("log")), QByteArray("run 0\nrun 1\n"));
}

void TestQsLog::fileIsInUtf8()
{
    const DestinationPtr destination = DestinationFactory::MakeFileDestination(path(QStringLiteral("log")));
    destination->write(QStringLiteral("12 µg 秤"), InfoLevel);
    QCOMPARE(content(QStringLiteral("log")), QByteArray("12 µg 秤\n"));
}

void TestQsLog::fileIsWrittenAtOnce()
{
    Logger& logger = Logger::instance();
    logger.setIncludeTimestamp(false);
    logger.addDestination(DestinationFactory::MakeFileDestination(path(QStringLiteral("log"))));
    QLOG_INFO() << "text";
    QCOMPARE(content(QStringLiteral("log")), QByteArray("INFO  text \n"));
}

void TestQsLog::fileThatCannotBeOpenedIsInvalid_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("no such folder") << QStringLiteral("missing/log");
    QTest::newRow("a folder") << QStringLiteral(".");
}

void TestQsLog::fileThatCannotBeOpenedIsInvalid()
{
    QFETCH(QString, name);
    QByteArray message;
    DestinationPtr destination;
    {
        DescriptorCapture errors(STDERR_FILENO, path(QStringLiteral("errors")));
        destination = DestinationFactory::MakeFileDestination(path(name));
        message = errors.content();
    }
    QVERIFY(destination);
    QVERIFY(!destination->isValid());
    QVERIFY2(
        message.startsWith("QsLog: cannot open the log file \"" + QFile::encodeName(path(name)) + "\": "),
        message.constData());
}

void TestQsLog::fileRotation_data()
{
    QTest::addColumn<int>("rotation");
    QTest::addColumn<qint64>("limit");
    QTest::addColumn<int>("oldFiles");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QByteArrayList>("files");

    // A line of four letters is five bytes in the file.
    const QStringList four{QStringLiteral("1111"), QStringLiteral("2222"), QStringLiteral("3333"),
                           QStringLiteral("4444")};
    const QByteArray all = "1111\n2222\n3333\n4444\n";
    QTest::newRow("disabled") << int(DisableLogRotation) << qint64(10) << 3 << four << QByteArrayList{all};
    QTest::newRow("no limit") << int(EnableLogRotation) << qint64(0) << 3 << four << QByteArrayList{all};
    QTest::newRow("negative limit") << int(EnableLogRotation) << qint64(-1) << 3 << four
                                    << QByteArrayList{all};
    QTest::newRow("not reached") << int(EnableLogRotation) << qint64(20) << 3 << four << QByteArrayList{all};
    QTest::newRow("limit reached exactly") << int(EnableLogRotation) << qint64(10) << 3 << four
                                           << QByteArrayList{"3333\n4444\n", "1111\n2222\n"};
    QTest::newRow("one byte less") << int(EnableLogRotation) << qint64(9) << 3 << four
                                   << QByteArrayList{"4444\n", "3333\n", "2222\n", "1111\n"};
    QTest::newRow("the oldest goes") << int(EnableLogRotation) << qint64(9) << 2 << four
                                     << QByteArrayList{"4444\n", "3333\n", "2222\n"};
    QTest::newRow("one old file") << int(EnableLogRotation) << qint64(9) << 1 << four
                                  << QByteArrayList{"4444\n", "3333\n"};
    QTest::newRow("no old file") << int(EnableLogRotation) << qint64(9) << 0 << four
                                 << QByteArrayList{"4444\n"};
    QTest::newRow("negative number of old files")
        << int(EnableLogRotation) << qint64(9) << -1 << four << QByteArrayList{"4444\n"};
    QTest::newRow("line beyond the limit")
        << int(EnableLogRotation) << qint64(3) << 3
        << QStringList{QStringLiteral("1111"), QStringLiteral("2222")} << QByteArrayList{"2222\n", "1111\n"};
    QTest::newRow("bytes count, not characters")
        << int(EnableLogRotation) << qint64(10) << 3
        << QStringList{QStringLiteral("µµµµ"), QStringLiteral("2")} << QByteArrayList{"2\n", "µµµµ\n"};
}

void TestQsLog::fileRotation()
{
    QFETCH(int, rotation);
    QFETCH(qint64, limit);
    QFETCH(int, oldFiles);
    QFETCH(QStringList, lines);
    QFETCH(QByteArrayList, files);
    const DestinationPtr destination = DestinationFactory::MakeFileDestination(
        path(QStringLiteral("log")), static_cast<LogRotationOption>(rotation), MaxSizeBytes(limit),
        MaxOldLogCount(oldFiles));
    for (const QString& line : lines)
        destination->write(line, InfoLevel);

    QByteArrayList found{content(QStringLiteral("log"))};
    for (int number = 1; QFile::exists(path(QStringLiteral("log.%1").arg(number))); ++number)
        found.append(content(QStringLiteral("log.%1").arg(number)));
    QCOMPARE(found, files);
}

void TestQsLog::fileRotationOfAnExistingFile()
{
    QFile file(path(QStringLiteral("log")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("from before\n");
    file.close();
    const DestinationPtr destination = DestinationFactory::MakeFileDestination(
        path(QStringLiteral("log")), EnableLogRotation, MaxSizeBytes(12), MaxOldLogCount(1));
    destination->write(QStringLiteral("new"), InfoLevel);
    QCOMPARE(content(QStringLiteral("log")), QByteArray("new\n"));
    QCOMPARE(content(QStringLiteral("log.1")), QByteArray("from before\n"));
}

void TestQsLog::fileRotationThatFailsLosesNothing()
{
    // A folder that is not empty stands where the oldest file is removed.
    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("log.1/occupied")));
    DescriptorCapture errors(STDERR_FILENO, path(QStringLiteral("errors")));
    const DestinationPtr destination = DestinationFactory::MakeFileDestination(
        path(QStringLiteral("log")), EnableLogRotation, MaxSizeBytes(5), MaxOldLogCount(1));
    for (const char* line : {"1111", "2222", "3333"})
        destination->write(QLatin1String(line), InfoLevel);
    QCOMPARE(content(QStringLiteral("log")), QByteArray("1111\n2222\n3333\n"));
    QCOMPARE(errors.content().count('\n'), 1);
}

void TestQsLog::debugOutput()
{
    const DestinationPtr destination = DestinationFactory::MakeDebugOutputDestination();
    QVERIFY(destination->isValid());
    QByteArray written;
    {
        DescriptorCapture errors(STDERR_FILENO, path(QStringLiteral("errors")));
        destination->write(QStringLiteral("100 % of %s"), InfoLevel);
        written = errors.content();
    }
    QCOMPARE(written, QByteArray("100 % of %s\n"));
}

void TestQsLog::functionIsCalled()
{
    const DestinationPtr destination = DestinationFactory::MakeFunctorDestination(takeLine);
    QVERIFY(destination->isValid());
    destination->write(QStringLiteral("text"), ErrorLevel);
    QCOMPARE(functionLines, QStringList(QStringLiteral("text")));
    QCOMPARE(functionLevels, QVector<int>{ErrorLevel});
}

void TestQsLog::nullFunctionIsInvalid()
{
    const DestinationPtr destination =
        DestinationFactory::MakeFunctorDestination(static_cast<Destination::LogFunction>(nullptr));
    QVERIFY(!destination->isValid());
}

void TestQsLog::slotIsCalledByTheEventLoop()
{
    Receiver receiver;
    const DestinationPtr destination =
        DestinationFactory::MakeFunctorDestination(&receiver, SLOT(take(QString, int)));
    QVERIFY(destination->isValid());
    destination->write(QStringLiteral("one"), InfoLevel);
    destination->write(QStringLiteral("two"), ErrorLevel);
    QCOMPARE(receiver.lines, QStringList());
    QCoreApplication::sendPostedEvents(&receiver);
    QCOMPARE(receiver.lines, (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
    QCOMPARE(receiver.levels, (QVector<int>{InfoLevel, ErrorLevel}));
}

void TestQsLog::slotIsCalledInTheThreadOfTheReceiver()
{
    Receiver receiver;
    Logger::instance().addDestination(
        DestinationFactory::MakeFunctorDestination(&receiver, SLOT(take(QString, int))));
    std::thread([] { QLOG_INFO() << "text"; }).join();
    QCoreApplication::sendPostedEvents(&receiver);
    QCOMPARE(receiver.lines.size(), 1);
    QCOMPARE(receiver.calledIn, QThread::currentThread());
}

void TestQsLog::slotOfADestroyedReceiver()
{
    auto receiver = std::make_unique<Receiver>();
    const DestinationPtr destination =
        DestinationFactory::MakeFunctorDestination(receiver.get(), SLOT(take(QString, int)));
    Logger::instance().addDestination(destination);
    Logger::instance().addDestination(DestinationFactory::MakeFunctorDestination(takeLine));
    receiver.reset();
    QLOG_INFO() << "text";
    QCOMPARE(functionLines.size(), 1);
}

void TestQsLog::invalidReceivers_data()
{
    QTest::addColumn<bool>("receiver");
    QTest::addColumn<QByteArray>("member");

    QTest::newRow("no receiver") << false << QByteArray(SLOT(take(QString, int)));
    QTest::newRow("no member") << true << QByteArray();
    QTest::newRow("unknown member") << true << QByteArray(SLOT(unknown(QString, int)));
    QTest::newRow("other arguments") << true << QByteArray(SLOT(take(int)));
}

void TestQsLog::invalidReceivers()
{
    QFETCH(bool, receiver);
    QFETCH(QByteArray, member);
    Receiver object;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const DestinationPtr destination = DestinationFactory::MakeFunctorDestination(
        receiver ? &object : nullptr, member.isEmpty() ? nullptr : member.constData());
    qInstallMessageHandler(previous);
    QVERIFY(destination);
    QVERIFY(!destination->isValid());
}

QTEST_GUILESS_MAIN(TestQsLog)
#include "tst_qslog.moc"
