// SPDX-License-Identifier: BSD-3-Clause

#include "LogRecorder.h"
#include "Utility.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstring>
#include <ctime>
#include <limits>
#include <memory>
using Brimvale::Utility;

// Qt's hooks for tools that watch objects (QHooks): places 3 and 4 hold what is called for every new object
// and for every object that goes.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double maxInt64 = 9223372036854775808.0; // 2^63, the double nearest to 2^63 - 1
constexpr int patience = 20000;                    // ms; only a failure waits that long

// The objects of the thread that runs the tests.
QSet<QObject*> liveObjects;

void objectAdded(QObject* object)
{
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
        liveObjects.insert(object);
}

void objectRemoved(QObject* object)
{
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
        liveObjects.remove(object);
}

int liveProcesses()
{
    return int(std::count_if(liveObjects.cbegin(), liveObjects.cend(),
                             [](QObject* object) { return qobject_cast<QProcess*>(object) != nullptr; }));
}

// Distinguishes the signs of zero.
bool sameBits(double a, double b)
{
    quint64 bitsOfA = 0;
    quint64 bitsOfB = 0;
    std::memcpy(&bitsOfA, &a, sizeof a);
    std::memcpy(&bitsOfB, &b, sizeof b);
    return bitsOfA == bitsOfB;
}

// The rule of rounding, worked out independently of the library: powers of ten by reading their decimal text,
// the integer part by arithmetic on doubles alone.
double referenceRound(double value, int decimals)
{
    const double power = QByteArray("1e" + QByteArray::number(decimals)).toDouble();
    const double nudge = QByteArray("1e" + QByteArray::number(qAbs(decimals) - 14)).toDouble();
    const double scaled = (value < 0 ? -value : value) * power + nudge + 0.5;
    const double steps = qMin(std::trunc(scaled), maxInt64);
    const double result = steps / power + 1e-14;
    const double cleaned = result < 1e-13 ? 0.0 : result;
    return value < 0 ? -cleaned : cleaned;
}

bool isRunning(qint64 pid)
{
    if (pid <= 0 || ::kill(static_cast<pid_t>(pid), 0) != 0)
        return false;
    // A process that has ended and was not yet waited for still has its number.
    QFile status(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = status.readAll();
    return line.mid(line.lastIndexOf(')') + 2, 1) != "Z";
}

} // namespace

class TestUtility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void destructorIsTraced();
    void destructorIsSilentAboveTrace();
    void destructorIsVirtual();

    void delayWaits_data();
    void delayWaits();
    void delayLetsTimersRun_data();
    void delayLetsTimersRun();
    void delayProcessesEventsAtLeastOnce_data();
    void delayProcessesEventsAtLeastOnce();
    void delayInEventLoopSleeps();

    void readApplicationVersionString_data();
    void readApplicationVersionString();

    void roundToDecimals_data();
    void roundToDecimals();
    void roundToDecimalsKeepsTheSign_data();
    void roundToDecimalsKeepsTheSign();
    void roundToDecimalsFollowsTheRule_data();
    void roundToDecimalsFollowsTheRule();
    void roundToWhole_data();
    void roundToWhole();
    void roundToWholeKeepsTheSign_data();
    void roundToWholeKeepsTheSign();
    void isEqual_data();
    void isEqual();

    void shellWithoutArguments();
    void processResult_data();
    void processResult();
    void processOutlivesItsTimeout_data();
    void processOutlivesItsTimeout();
    void processObjectIsReleasedAtTheEnd_data();
    void processObjectIsReleasedAtTheEnd();
    void processIsNotStoppedByItsOutput_data();
    void processIsNotStoppedByItsOutput();
    void processOutlivesTheApplication();
    void processInputStaysOpen();
    void processWithoutTimeLimit_data();
    void processWithoutTimeLimit();

    void response_data();
    void response();
    void responseOfALateCommandIsEmpty_data();
    void responseOfALateCommandIsEmpty();
    void responseOfLargeOutput();
    void responseReleasesTheObject_data();
    void responseReleasesTheObject();
    void responseWithoutTimeLimit_data();
    void responseWithoutTimeLimit();
    void responseOfACommandThatReadsIsEmpty();
    void commandsLogNothing();

    void checkDisk_data();
    void checkDisk();
    void checkDiskWaitsForTheEnd();
    void checkDiskOfAnEmptyDeviceRunsNothing();

    void markUp_data();
    void markUp();
    void removeSubOrSuperscriptText_data();
    void removeSubOrSuperscriptText();
    void byteArrayToDebug_data();
    void byteArrayToDebug();

private:
    QString path(const char* name) const { return m_dir->filePath(QLatin1String(name)); }
    QByteArray content(const char* name) const;
    QString shell(const QString& script) const;
    bool processResultOf(bool bash, const QString& script, int timeout) const;
    QString responseOf(bool bash, const QString& script, int timeout) const;
    void makeFsck(const QByteArray& script) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QByteArray m_path;
};

void TestUtility::initTestCase()
{
    qtHookData[3] = reinterpret_cast<quintptr>(&objectAdded);
    qtHookData[4] = reinterpret_cast<quintptr>(&objectRemoved);
}

void TestUtility::cleanupTestCase()
{
    qtHookData[3] = 0;
    qtHookData[4] = 0;
}

void TestUtility::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_path = qgetenv("PATH");
    QCoreApplication::setApplicationVersion(QStringLiteral("4.2.1"));

    static const QRegularExpression startsProcesses(
        QStringLiteral("^(shell|process|response|commands|checkDisk)"));
    if (qEnvironmentVariableIsSet("BRIMVALE_EMULATED")
        && startsProcesses.match(QLatin1String(QTest::currentTestFunction())).hasMatch()) {
        QSKIP("The emulator cannot start processes the way QProcess does.");
    }
}

void TestUtility::cleanup()
{
    qputenv("PATH", m_path);
    // Whatever a test has left running on purpose.
    const qint64 pid = content("pid").trimmed().toLongLong();
    if (isRunning(pid))
        ::kill(static_cast<pid_t>(pid), SIGKILL);
    // Every command ends, and with it its object.
    QTRY_COMPARE_WITH_TIMEOUT(liveProcesses(), 0, patience);
    m_dir.reset();
}

QByteArray TestUtility::content(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The command line that runs the script, in which the folder of the test is the working directory.
QString TestUtility::shell(const QString& script) const
{
    return QStringLiteral("sh -c \"cd %1; %2\"").arg(m_dir->path(), script);
}

bool TestUtility::processResultOf(bool bash, const QString& script, int timeout) const
{
    if (!bash)
        return Utility::doProcess(shell(script), timeout);
    return Utility::doProcessBash(
        {QStringLiteral("-c"), QStringLiteral("cd %1; %2").arg(m_dir->path(), script)}, timeout);
}

QString TestUtility::responseOf(bool bash, const QString& script, int timeout) const
{
    if (!bash)
        return Utility::doProcessGetResponse(shell(script), timeout);
    return Utility::doProcessBashGetResponse(
        {QStringLiteral("-c"), QStringLiteral("cd %1; %2").arg(m_dir->path(), script)}, timeout);
}

// Puts a program of the name "fsck" first on the search path.
void TestUtility::makeFsck(const QByteArray& script) const
{
    QFile file(path("fsck"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\ncd " + QFile::encodeName(m_dir->path()) + "\n" + script + "\n");
    file.close();
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    qputenv("PATH", QFile::encodeName(m_dir->path()) + ":" + m_path);
}

void TestUtility::destructorIsTraced()
{
    const LogRecorder log(QsLogging::TraceLevel);
    quintptr address = 0;
    {
        const Utility utility;
        address = quintptr(&utility);
    }
    QCOMPARE(log.lines(),
             QStringList(QStringLiteral("TRACE Running destructor ->  0x%1 ").arg(address, 0, 16)));
}

void TestUtility::destructorIsSilentAboveTrace()
{
    const LogRecorder log(QsLogging::DebugLevel);
    delete new Utility;
    QCOMPARE(log.lines(), QStringList());
}

void TestUtility::destructorIsVirtual()
{
    struct Derived : Utility
    {
        explicit Derived(bool* destroyed)
            : destroyed(destroyed)
        {
        }
        ~Derived() override { *destroyed = true; }
        bool* destroyed;
    };
    bool destroyed = false;
    std::unique_ptr<Utility> utility = std::make_unique<Derived>(&destroyed);
    utility.reset();
    QVERIFY(destroyed);
}

void TestUtility::delayWaits_data()
{
    QTest::addColumn<bool>("eventLoop");
    QTest::addColumn<int>("milliseconds");

    for (const bool eventLoop : {false, true}) {
        const char* const name = eventLoop ? "event loop" : "spinning";
        for (const int milliseconds : {-1000, -1, 0, 1, 60})
            QTest::addRow("%s, %d ms", name, milliseconds) << eventLoop << milliseconds;
    }
}

void TestUtility::delayWaits()
{
    QFETCH(bool, eventLoop);
    QFETCH(int, milliseconds);
    QElapsedTimer timer;
    timer.start();
    if (eventLoop)
        Utility::delay_ms_eventloop(milliseconds);
    else
        Utility::delay_ms(milliseconds);
    QVERIFY2(timer.nsecsElapsed() >= milliseconds * 1000000LL,
             qPrintable(QString::number(timer.nsecsElapsed())));
}

void TestUtility::delayLetsTimersRun_data()
{
    QTest::addColumn<bool>("eventLoop");

    QTest::newRow("spinning") << false;
    QTest::newRow("event loop") << true;
}

void TestUtility::delayLetsTimersRun()
{
    QFETCH(bool, eventLoop);
    int fired = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&fired] { ++fired; });
    timer.setSingleShot(true);
    timer.start(1);
    if (eventLoop)
        Utility::delay_ms_eventloop(200);
    else
        Utility::delay_ms(200);
    QCOMPARE(fired, 1);
}

void TestUtility::delayProcessesEventsAtLeastOnce_data()
{
    QTest::addColumn<int>("milliseconds");

    QTest::newRow("0 ms") << 0;
    QTest::newRow("-1 ms") << -1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TestUtility::delayProcessesEventsAtLeastOnce()
{
    QFETCH(int, milliseconds);
    int delivered = 0;
    QMetaObject::invokeMethod(
        this, [&delivered] { ++delivered; }, Qt::QueuedConnection);
    Utility::delay_ms(milliseconds);
    QCOMPARE(delivered, 1);
}

void TestUtility::delayInEventLoopSleeps()
{
    // Processor time of this process: it sleeps where it does not use any.
    const std::clock_t before = std::clock();
    Utility::delay_ms_eventloop(400);
    const double used = double(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(used < 0.2, qPrintable(QString::number(used)));
}

void TestUtility::readApplicationVersionString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("version");

    QTest::newRow("a text") << QStringLiteral("version") << QStringLiteral("4.2.1");
    QTest::newRow("another text") << QStringLiteral("/etc/anything") << QStringLiteral("4.2.1");
    QTest::newRow("a blank") << QStringLiteral(" ") << QStringLiteral("4.2.1");
    QTest::newRow("empty") << QStringLiteral("") << QString();
    QTest::newRow("null") << QString() << QString();
}

void TestUtility::readApplicationVersionString()
{
    QFETCH(QString, text);
    QTEST(Utility::ReadApplicationVersionString(text), "version");
}

void TestUtility::roundToDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("rounded");

    QTest::newRow("half but for its representation") << 1.005 << 2 << 1.01 + 1e-14;
    QTest::newRow("the same, negative") << -1.005 << 2 << -(1.01 + 1e-14);
    QTest::newRow("half, no decimals") << 2.5 << 0 << 3.0 + 1e-14;
    QTest::newRow("half, negative, no decimals") << -2.5 << 0 << -(3.0 + 1e-14);
    QTest::newRow("below the half") << 0.004 << 2 << 0.0;
    QTest::newRow("below the half, negative") << -0.004 << 2 << -0.0;
    QTest::newRow("hundreds") << 1234.5 << -2 << 1200.0;
    QTest::newRow("hundreds, half") << 1250.0 << -2 << 1300.0;
    QTest::newRow("hundreds, negative") << -1250.0 << -2 << -1300.0;
    QTest::newRow("tens, to zero") << 4.0 << -1 << 0.0;
    QTest::newRow("whole") << 7.0 << 3 << 7.0 + 1e-14;
    QTest::newRow("zero") << 0.0 << 3 << 0.0;
    QTest::newRow("negative zero is not negative") << -0.0 << 3 << 0.0;
    QTest::newRow("smallest number") << 5e-324 << 5 << 0.0;
    QTest::newRow("below 1e-13 is zero") << 7e-14 << 14 << 0.0;
    QTest::newRow("largest value below the limit") << 9.0e18 << 0 << 9.0e18;
    QTest::newRow("saturated") << 1e19 << 0 << maxInt64;
    QTest::newRow("saturated, negative") << -1e19 << 0 << -maxInt64;
    QTest::newRow("saturated, with decimals") << 1e18 << 2 << maxInt64 / 100.0;
    QTest::newRow("largest double") << std::numeric_limits<double>::max() << 0 << maxInt64;
    QTest::newRow("infinite") << infinity << 0 << maxInt64;
    QTest::newRow("infinite, negative") << -infinity << 1 << -maxInt64 / 10.0;
    QTest::newRow("not a number") << notANumber << 2 << 0.0;
    QTest::newRow("not a number, many decimals") << notANumber << 400 << 0.0;
    QTest::newRow("not a number, powers of zero") << notANumber << -400 << 0.0;
    QTest::newRow("a tolerance of one step") << 0.0 << -14 << 1e14;
    QTest::newRow("more decimals than a power of ten has") << 1.0 << 400 << 0.0;
    QTest::newRow("zero with these") << 0.0 << 400 << 0.0;
    QTest::newRow("a power of ten of zero") << 1.0 << -400 << infinity;
    QTest::newRow("largest count") << 1.0 << std::numeric_limits<int>::max() << 0.0;
    QTest::newRow("smallest count") << 1.0 << std::numeric_limits<int>::min() << infinity;
}

void TestUtility::roundToDecimals()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(double, rounded);
    const double result = Utility::Round(value, decimals);
    QVERIFY2(sameBits(result, rounded), qPrintable(QString::number(result, 'g', 17)));
}

void TestUtility::roundToDecimalsKeepsTheSign_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("negative");

    QTest::newRow("0.004") << 0.004 << false;
    QTest::newRow("-0.004") << -0.004 << true;
    QTest::newRow("-5e-324") << -5e-324 << true;
    QTest::newRow("-0") << -0.0 << false;
}

void TestUtility::roundToDecimalsKeepsTheSign()
{
    QFETCH(double, value);
    const double result = Utility::Round(value, 2);
    QCOMPARE(result, 0.0);
    QTEST(std::signbit(result), "negative");
}

void TestUtility::roundToDecimalsFollowsTheRule_data()
{
    QTest::addColumn<int>("decimals");

    for (int decimals = -14; decimals <= 14; ++decimals)
        QTest::addRow("%d decimals", decimals) << decimals;
}

void TestUtility::roundToDecimalsFollowsTheRule()
{
    QFETCH(int, decimals);
    QRandomGenerator random(1000u + unsigned(decimals + 14));
    const double step = QByteArray("1e" + QByteArray::number(-decimals)).toDouble();
    for (int i = 0; i < 20000; ++i) {
        // Numbers of all sizes; halves of a step and their neighbours.
        double value = std::ldexp(random.generateDouble() - 0.5, random.bounded(100) - 30);
        if (i % 2) {
            value = (random.bounded(1 << (1 + i % 30)) + 0.5) * step;
            if (i % 3)
                value = std::nextafter(value, i % 3 == 1 ? 0.0 : infinity);
            if (i % 5 == 0)
                value = -value;
        }
        const double result = Utility::Round(value, decimals);
        const double expected = referenceRound(value, decimals);
        if (!sameBits(result, expected))
            QFAIL(qPrintable(QStringLiteral("Round(%1) is %2, expected %3")
                                 .arg(value, 0, 'g', 17)
                                 .arg(result, 0, 'g', 17)
                                 .arg(expected, 0, 'g', 17)));
    }
}

void TestUtility::roundToWhole_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("rounded");

    QTest::newRow("half") << 2.5 << 3.0;
    QTest::newRow("half, negative") << -2.5 << -3.0;
    QTest::newRow("below the half") << 2.4999 << 2.0;
    QTest::newRow("below the half by less than the tolerance") << 2.5 - 5e-15 << 3.0;
    QTest::newRow("below the half by more than the tolerance") << 2.5 - 2e-14 << 2.0;
    QTest::newRow("whole") << 7.0 << 7.0;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("negative zero is not negative") << -0.0 << 0.0;
    QTest::newRow("to negative zero") << -0.2 << -0.0;
    QTest::newRow("largest") << 2147483647.0 << 2147483647.0;
    QTest::newRow("half beyond the largest") << 2147483647.5 << 2147483647.0;
    QTest::newRow("saturated") << 3e9 << 2147483647.0;
    QTest::newRow("saturated, negative") << -3e9 << -2147483647.0;
    QTest::newRow("infinite") << infinity << 2147483647.0;
    QTest::newRow("infinite, negative") << -infinity << -2147483647.0;
    QTest::newRow("not a number") << notANumber << 0.0;
}

void TestUtility::roundToWhole()
{
    QFETCH(double, value);
    QFETCH(double, rounded);
    const double result = Utility::Round(value);
    QVERIFY2(sameBits(result, rounded), qPrintable(QString::number(result, 'g', 17)));
}

void TestUtility::roundToWholeKeepsTheSign_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("negative");

    QTest::newRow("0.2") << 0.2 << false;
    QTest::newRow("-0.2") << -0.2 << true;
    QTest::newRow("-0") << -0.0 << false;
}

void TestUtility::roundToWholeKeepsTheSign()
{
    QFETCH(double, value);
    const double result = Utility::Round(value);
    QCOMPARE(result, 0.0);
    QTEST(std::signbit(result), "negative");
}

void TestUtility::isEqual_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("equal");

    QTest::newRow("same") << 1.5 << 1.5 << true;
    QTest::newRow("zeros") << 0.0 << 0.0 << true;
    QTest::newRow("zeros of both signs") << 0.0 << -0.0 << true;
    QTest::newRow("zero and next to nothing") << 0.0 << 1e-12 << false;
    QTest::newRow("next to nothing and zero") << 1e-12 << 0.0 << false;
    QTest::newRow("within a millionth") << 1000000.0 << 1000000.5 << true;
    QTest::newRow("a millionth exactly") << 1000000.0 << 1000001.0 << true;
    QTest::newRow("beyond a millionth") << 1000000.0 << 1000001.5 << false;
    QTest::newRow("relative to the first: smaller") << 1000000.0 << 1000001.0000005 << false;
    QTest::newRow("relative to the first: larger") << 1000001.0000005 << 1000000.0 << true;
    QTest::newRow("negative") << -1000000.0 << -1000000.5 << true;
    QTest::newRow("opposite signs") << 1.0 << -1.0 << false;
    QTest::newRow("first not a number") << notANumber << 1.0 << false;
    QTest::newRow("second not a number") << 1.0 << notANumber << false;
    QTest::newRow("first infinite") << infinity << 1.0 << true;
    QTest::newRow("second infinite") << 1.0 << infinity << false;
    QTest::newRow("both infinite") << infinity << infinity << false;
}

void TestUtility::isEqual()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QTEST(Utility::isEqual(a, b), "equal");
}

void TestUtility::shellWithoutArguments()
{
    QCOMPARE(Utility::doProcessBash(QStringList(), patience), false);
    QCOMPARE(Utility::doProcessBashGetResponse(QStringList(), patience), QStringLiteral("f"));
}

void TestUtility::processResult_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("timeout");
    QTest::addColumn<bool>("result");

    const auto command = [](const char* name, const char* line, int timeout, bool result) {
        QTest::newRow(name) << QString::fromLatin1(line) << QStringList() << timeout << result;
    };
    command("command: empty", "", patience, false);
    command("command: blank", " \t ", patience, false);
    command("command: exit 0", "true", patience, true);
    command("command: exit 1", "false", patience, true);
    command("command: arguments", "sh -c \"exit 3\"", patience, true);
    command("command: killed by a signal", "sh -c \"kill -KILL $$\"", patience, false);
    command("command: missing program", "no-such-program-here", patience, false);
    command("command: missing program with arguments", "/no/such/program -c x", patience, false);
    command("command: missing program, no time", "no-such-program-here", 0, false);
    command("command: not a program", "/etc/passwd", patience, false);
    command("command: a folder", "/tmp", patience, false);
    command("command: still running", "sleep 0.4", 50, true);
    command("command: still running, no time", "sleep 0.4", 0, true);

    const auto bash = [](const char* name, const QStringList& arguments, int timeout, bool result) {
        QTest::newRow(name) << QString() << arguments << timeout << result;
    };
    const auto c = [](const char* script) {
        return QStringList{QStringLiteral("-c"), QString::fromLatin1(script)};
    };
    bash("shell: exit 0", c("exit 0"), patience, true);
    bash("shell: exit 1", c("exit 1"), patience, true);
    bash("shell: killed by a signal", c("kill -KILL $$"), patience, false);
    bash("shell: missing program", c("no-such-program-here"), patience, true);
    bash("shell: still running", c("exec sleep 0.4"), 50, true);
}

void TestUtility::processResult()
{
    QFETCH(QString, command);
    QFETCH(QStringList, arguments);
    QFETCH(int, timeout);
    const bool result = arguments.isEmpty() ? Utility::doProcess(command, timeout)
                                            : Utility::doProcessBash(arguments, timeout);
    QTEST(result, "result");
}

void TestUtility::processOutlivesItsTimeout_data()
{
    QTest::addColumn<bool>("bash");

    QTest::newRow("command") << false;
    QTest::newRow("shell") << true;
}

void TestUtility::processOutlivesItsTimeout()
{
    QFETCH(bool, bash);
    QVERIFY(processResultOf(bash, QStringLiteral("echo $$ > pid; exec sleep 600"), 100));
    QTRY_VERIFY_WITH_TIMEOUT(content("pid").endsWith('\n'), patience);
    const qint64 pid = content("pid").trimmed().toLongLong();
    QVERIFY(isRunning(pid));
    // Neither does the event loop end it.
    QTest::qWait(100);
    QVERIFY(isRunning(pid));
}

void TestUtility::processObjectIsReleasedAtTheEnd_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("timeout");

    QTest::newRow("ended in time") << QStringLiteral("exit 0") << patience;
    QTest::newRow("killed in time") << QStringLiteral("kill -KILL $$") << patience;
    QTest::newRow("ended late") << QStringLiteral("sleep 0.3; exit 1") << 0;
    QTest::newRow("killed late") << QStringLiteral("sleep 0.3; kill -KILL $$") << 0;
}

void TestUtility::processObjectIsReleasedAtTheEnd()
{
    QFETCH(QString, script);
    QFETCH(int, timeout);
    processResultOf(true, QStringLiteral("echo $$ > pid; ") + script, timeout);
    QCOMPARE(liveProcesses(), timeout == 0 ? 1 : 0);
    QTRY_COMPARE_WITH_TIMEOUT(liveProcesses(), 0, patience);
    QVERIFY(!isRunning(content("pid").trimmed().toLongLong()));
}

void TestUtility::processIsNotStoppedByItsOutput_data()
{
    QTest::addColumn<QString>("redirection");
    QTest::addColumn<int>("timeout");

    QTest::newRow("while it is waited for") << QString() << patience;
    QTest::newRow("after its time-out") << QString() << 0;
    QTest::newRow("errors, while it is waited for") << QStringLiteral(">&2") << patience;
    QTest::newRow("errors, after its time-out") << QStringLiteral(">&2") << 0;
}

void TestUtility::processIsNotStoppedByItsOutput()
{
    QFETCH(QString, redirection);
    QFETCH(int, timeout);
    QVERIFY(processResultOf(
        false, QStringLiteral("yes 2>&1 | head -c 3000000 %1; echo done > marker").arg(redirection),
        timeout));
    // Without an event loop: nobody but the command itself can make it go on.
    QElapsedTimer timer;
    timer.start();
    while (content("marker") != "done\n" && timer.elapsed() < patience)
        QThread::msleep(5);
    QCOMPARE(content("marker"), QByteArray("done\n"));
}

void TestUtility::processOutlivesTheApplication()
{
    // The host ends at once; the command writes to its output only afterwards.
    const QString script = QStringLiteral(
        "echo $$ > pid; while [ ! -e go ]; do sleep 0.02; done; echo output; echo done > marker");
    QProcess host;
    host.start(QStringLiteral(UTILITY_HOST), {shell(script), QStringLiteral("0")});
    QVERIFY(host.waitForFinished(patience));
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(content("pid").endsWith('\n'), patience);
    QVERIFY(isRunning(content("pid").trimmed().toLongLong()));
    QVERIFY(!QFile::exists(path("marker")));

    QFile go(path("go"));
    QVERIFY(go.open(QIODevice::WriteOnly));
    QTRY_COMPARE_WITH_TIMEOUT(content("marker"), QByteArray("done\n"), patience);
}

void TestUtility::processInputStaysOpen()
{
    QVERIFY(processResultOf(true, QStringLiteral("echo $$ > pid; read line; echo done > marker"), 300));
    QTRY_VERIFY_WITH_TIMEOUT(content("pid").endsWith('\n'), patience);
    QTest::qWait(100);
    QVERIFY(isRunning(content("pid").trimmed().toLongLong()));
    QVERIFY(!QFile::exists(path("marker")));
}

void TestUtility::processWithoutTimeLimit_data()
{
    QTest::addColumn<bool>("bash");
    QTest::addColumn<int>("timeout");

    QTest::newRow("command, -1") << false << -1;
    QTest::newRow("command, smallest") << false << std::numeric_limits<int>::min();
    QTest::newRow("shell, -1") << true << -1;
    QTest::newRow("shell, -1000") << true << -1000;
}

void TestUtility::processWithoutTimeLimit()
{
    QFETCH(bool, bash);
    QFETCH(int, timeout);
    QVERIFY(processResultOf(bash, QStringLiteral("sleep 0.2; echo done > marker"), timeout));
    QCOMPARE(content("marker"), QByteArray("done\n"));
}

void TestUtility::response_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("response");

    const auto command = [](const char* name, const char* line, const QString& response) {
        QTest::newRow(name) << QString::fromUtf8(line) << QStringList() << response;
    };
    command("command: empty", "", QString());
    command("command: blank", "  ", QString());
    command("command: output", "echo one two", QStringLiteral("one two\n"));
    command("command: quoted argument", "echo \"one  two\"", QStringLiteral("one  two\n"));
    command("command: exit 1", "sh -c \"echo one; exit 1\"", QStringLiteral("one\n"));
    command("command: no output", "true", QString());
    command("command: missing program", "no-such-program-here", QString());
    command("command: not a program", "/etc/passwd", QString());
    command("command: killed by a signal", "sh -c \"echo one; kill -KILL $$\"", QStringLiteral("one\n"));
    command("command: errors are left out", "sh -c \"echo one; echo two >&2\"", QStringLiteral("one\n"));
    command("command: UTF-8", "printf '%s' \"12,5 µg Größe 秤\"", QStringLiteral("'12,5 µg Größe 秤'"));
    command("command: zero byte", "printf \"one\\000two\"", QStringLiteral("one"));
    command("command: zero byte first", "printf \"\\000two\"", QString());

    const auto bash = [](const char* name, const QStringList& arguments, const QString& response) {
        QTest::newRow(name) << QString() << arguments << response;
    };
    const auto c = [](const char* script) {
        return QStringList{QStringLiteral("-c"), QString::fromUtf8(script)};
    };
    bash("shell: output", c("echo one; echo two"), QStringLiteral("one\ntwo\n"));
    bash("shell: exit 1", c("echo one; exit 1"), QStringLiteral("one\n"));
    bash("shell: killed by a signal", c("echo one; kill -TERM $$"), QStringLiteral("one\n"));
    bash("shell: missing program", c("no-such-program-here"), QString());
    bash("shell: UTF-8", c("printf '%s' '12,5 µg Größe 秤'"), QStringLiteral("12,5 µg Größe 秤"));
    bash("shell: zero byte", c("printf 'one\\000two'"), QStringLiteral("one"));
    bash("shell: an argument of its own", c("echo $1") << QStringLiteral("sh") << QStringLiteral("one  two"),
         QStringLiteral("one two\n"));
}

void TestUtility::response()
{
    QFETCH(QString, command);
    QFETCH(QStringList, arguments);
    const QString response = arguments.isEmpty() ? Utility::doProcessGetResponse(command, patience)
                                                 : Utility::doProcessBashGetResponse(arguments, patience);
    QTEST(response, "response");
}

void TestUtility::responseOfALateCommandIsEmpty_data()
{
    QTest::addColumn<bool>("bash");

    QTest::newRow("command") << false;
    QTest::newRow("shell") << true;
}

void TestUtility::responseOfALateCommandIsEmpty()
{
    QFETCH(bool, bash);
    // The time-out leaves time for the number of the process to be written.
    QCOMPARE(responseOf(bash, QStringLiteral("echo $$ > pid; echo one; exec sleep 600"), 1500), QString());
    QVERIFY(content("pid").endsWith('\n'));
    QVERIFY(!isRunning(content("pid").trimmed().toLongLong()));
}

void TestUtility::responseOfLargeOutput()
{
    const QString output = responseOf(true, QStringLiteral("yes 123456789 | head -c 5000000"), patience);
    QCOMPARE(output.size(), 5000000);
    QCOMPARE(output.right(10), QStringLiteral("123456789\n"));
}

void TestUtility::responseReleasesTheObject_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("timeout");

    QTest::newRow("ended") << QStringLiteral("echo one") << patience;
    QTest::newRow("late") << QStringLiteral("exec sleep 600") << 50;
}

void TestUtility::responseReleasesTheObject()
{
    QFETCH(QString, script);
    QFETCH(int, timeout);
    responseOf(true, script, timeout);
    QCOMPARE(liveProcesses(), 0);
}

void TestUtility::responseWithoutTimeLimit_data()
{
    QTest::addColumn<bool>("bash");
    QTest::addColumn<int>("timeout");

    QTest::newRow("command, -1") << false << -1;
    QTest::newRow("shell, -1") << true << -1;
    QTest::newRow("shell, smallest") << true << std::numeric_limits<int>::min();
}

void TestUtility::responseWithoutTimeLimit()
{
    QFETCH(bool, bash);
    QFETCH(int, timeout);
    QCOMPARE(responseOf(bash, QStringLiteral("sleep 0.2; echo done"), timeout), QStringLiteral("done\n"));
}

void TestUtility::responseOfACommandThatReadsIsEmpty()
{
    // Its input is open, so it waits for more until its time-out.
    QCOMPARE(Utility::doProcessBashGetResponse({QStringLiteral("-c"), QStringLiteral("echo one; cat")}, 200),
             QString());
}

void TestUtility::commandsLogNothing()
{
    static int messages;
    messages = 0;
    const LogRecorder log(QsLogging::TraceLevel);
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
    Utility::doProcess(QStringLiteral("no-such-program-here"), patience);
    Utility::doProcess(QStringLiteral("sh -c \"kill -KILL $$\""), patience);
    Utility::doProcessGetResponse(QString(), patience);
    Utility::doProcessGetResponse(QStringLiteral("sleep 600"), 50);
    qInstallMessageHandler(previous);
    QCOMPARE(messages, 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestUtility::checkDisk_data()
{
    QTest::addColumn<QByteArray>("fsck");
    QTest::addColumn<QString>("device");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QByteArray>("arguments");

    const QByteArray echo = "printf '[%s]' \"$@\" > arguments\n";
    QTest::newRow("clean") << echo << QStringLiteral("/dev/sda1") << true << QByteArray("[/dev/sda1]");
    QTest::newRow("errors left") << QByteArray(echo + "exit 4") << QStringLiteral("/dev/sda1") << true
                                 << QByteArray("[/dev/sda1]");
    QTest::newRow("crashed") << QByteArray(echo + "kill -SEGV $$") << QStringLiteral("/dev/sda1") << false
                             << QByteArray("[/dev/sda1]");
    QTest::newRow("placeholder in the device") << echo << QStringLiteral("%1") << true << QByteArray("[%1]");
    QTest::newRow("part of a command line")
        << echo << QStringLiteral("-n \"/dev/my disk\"") << true << QByteArray("[-n][/dev/my disk]");
    QTest::newRow("no fsck") << QByteArray() << QStringLiteral("/dev/sda1") << false << QByteArray();
}

void TestUtility::checkDisk()
{
    QFETCH(QByteArray, fsck);
    QFETCH(QString, device);
    if (fsck.isEmpty())
        qputenv("PATH", QFile::encodeName(m_dir->path()));
    else
        makeFsck(fsck);
    QTEST(Utility::doCheckDisk(device), "result");
    QTEST(content("arguments"), "arguments");
}

void TestUtility::checkDiskWaitsForTheEnd()
{
    makeFsck("sleep 0.5; echo done > marker");
    QVERIFY(Utility::doCheckDisk(QStringLiteral("/dev/sda1")));
    QCOMPARE(content("marker"), QByteArray("done\n"));
}

void TestUtility::checkDiskOfAnEmptyDeviceRunsNothing()
{
    makeFsck("echo done > marker");
    QVERIFY(!Utility::doCheckDisk(QString()));
    QVERIFY(!QFile::exists(path("marker")));
}

void TestUtility::markUp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("subscript");
    QTest::addColumn<QString>("superscript");
    QTest::addColumn<QString>("button");

    QTest::newRow("empty") << QString() << QStringLiteral("<sub></sub>") << QStringLiteral("<sup></sup>")
                           << QStringLiteral("[]");
    QTest::newRow("text") << QStringLiteral("µ 2") << QStringLiteral("<sub>µ 2</sub>")
                          << QStringLiteral("<sup>µ 2</sup>") << QStringLiteral("[µ 2]");
    QTest::newRow("marked up") << QStringLiteral("<b>%1</b>") << QStringLiteral("<sub><b>%1</b></sub>")
                               << QStringLiteral("<sup><b>%1</b></sup>") << QStringLiteral("[<b>%1</b>]");
}

void TestUtility::markUp()
{
    QFETCH(QString, text);
    QTEST(Utility::SubscriptText(text), "subscript");
    QTEST(Utility::SuperscriptText(text), "superscript");
    QTEST(Utility::ButtonText(text), "button");
}

void TestUtility::removeSubOrSuperscriptText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");

    const auto row = [](const char* name, const char* text, const char* result) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(result);
    };
    row("empty", "", "");
    row("plain", "12 µg", "12 µg");
    row("superscript", "m<sup>2</sup>", "m2");
    row("subscript", "H<sub>2</sub>O", "H2O");
    row("several", "<sub>a</sub><sup>b</sup><sub>c</sub>", "abc");
    row("cut <sub", "x<sub", "x");
    row("cut </sub", "x<sub>y</sub", "xy");
    row("cut <sup", "x<sup", "x");
    row("cut </sup", "x<sup>y</sup", "xy");
    row("cut <su", "x<su", "x");
    row("cut </su", "x<sup>y</su", "xy");
    row("cut <s", "x<s", "x");
    row("cut </s", "x<sup>y</s", "xy");
    row("cut </", "x<sup>y</", "xy");
    row("cut <", "x<", "x<");
    row("other <s", "<span>x</span>", "pan>xpan>");
    row("other </", "<b>x</b>", "<b>xb>");
    row("lone > stays", "x<sub y>", "x y>");
    row("case-sensitive", "x<SUB>y", "x<SUB>y");
    row("tag made by its own removal is cut", "<su<sub>b>", ">");
    row("tag made by a later removal is cut", "<s</sub>ub>x", ">x");
    row("longer forms go first", "<sub<sub>>", ">");
    row("each text once", "<<ss", "<s");
    // The second text, removed, leaves the first, whose turn is over.
    row("<sub> before </sub>", "<</sub>sub>", ">");
    row("</sub> before <sup>", "<<sup>/sub>", ">");
    row("<sup> before </sup>", "<</sup>sup>", ">");
    row("</sup> before <sub", "<<sub/sup>", ">");
    row("<sub before </sub", "<</subsub", "b");
    row("</sub before <sup", "<<sup/sub", "b");
    row("<sup before </sup", "<</supsup", "p");
    row("</sup before <su", "<<su/sup", "p");
    row("<su before </su", "<</susu", "u");
    row("</su before <s", "<<s/su", "u");
    row("<s before </s", "<</ss", "<s");
    row("</s before </", "<<//s", "</s");
}

void TestUtility::removeSubOrSuperscriptText()
{
    QFETCH(QString, text);
    QTEST(Utility::removeSubOrSuperscriptText(text), "result");
}

void TestUtility::byteArrayToDebug_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("mixed") << QByteArray("A\0\x7f", 3) << QStringLiteral("A<00><7f>");
    QTest::newRow("limits") << QByteArray("\x1f\x20\x7e\x7f") << QStringLiteral("<1f> ~<7f>");
    QTest::newRow("line feed") << QByteArray("\n") << QStringLiteral("<0a>");
    QTest::newRow("highest") << QByteArray("\x80\xff") << QStringLiteral("<80><ff>");
    QTest::newRow("placeholder") << QByteArray("%1\r%2") << QStringLiteral("%1<0d>%2");
    QTest::newRow("angle brackets") << QByteArray("<0a>") << QStringLiteral("<0a>");

    QByteArray all;
    QString expected;
    for (int byte = 0; byte < 256; ++byte) {
        all += char(byte);
        expected +=
            byte >= 32 && byte <= 126 ? QString(QChar(byte)) : QString::asprintf("<%02x>", unsigned(byte));
    }
    QTest::newRow("all") << all << expected;
}

void TestUtility::byteArrayToDebug()
{
    QFETCH(QByteArray, bytes);
    QTEST(Utility::ByteArrayToDebug(bytes), "text");
}

QTEST_GUILESS_MAIN(TestUtility)
#include "tst_utility.moc"
