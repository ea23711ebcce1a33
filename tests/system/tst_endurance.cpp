// SPDX-License-Identifier: BSD-3-Clause
//
// What is done again and again must not cost anything that stays: memory, handles, objects, timers. In CTest a few
// rounds are run; `ctest -C soak -L soak` runs as many as BRIMVALE_CYCLES and BRIMVALE_READINGS say and prints the
// figures.
#include "../terminal/SessionFixture.h"
#include "app/GuardedApplication.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QQmlEngine>
#include <QThread>
#include <QVector>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <mutex>
#include <unistd.h>
#include <unordered_set>

#ifdef __SANITIZE_ADDRESS__
// Its header comes with clang alone.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

// The table by which Qt tells debugging tools of its objects.
extern Q_CORE_EXPORT quintptr qtHookData[];

using namespace Brimvale::Terminal;

namespace
{

std::recursive_mutex s_mutex;
std::unordered_set<QObject*> s_objects;

void onAdded(QObject* object)
{
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    s_objects.insert(object);
}

void onRemoved(QObject* object)
{
    const std::lock_guard<std::recursive_mutex> lock(s_mutex);
    s_objects.erase(object);
}

/// What the process holds at a moment.
struct Holdings
{
    qint64 heapBytes = 0; ///< Allocated and not freed.
    qint64 residentBytes = 0;
    qint64 descriptors = 0;
    qint64 threads = 0;
    qint64 objects = 0;
    qint64 timers = 0; ///< Active ones.

    static Holdings now()
    {
        Holdings holdings;
#ifdef __SANITIZE_ADDRESS__ // which allocates by itself
        holdings.heapBytes = static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
        const auto heap = mallinfo2();
        holdings.heapBytes = static_cast<qint64>(heap.uordblks + heap.hblkhd);
#endif
        QFile statm(QStringLiteral("/proc/self/statm"));
        if (statm.open(QIODevice::ReadOnly))
            holdings.residentBytes = statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
        holdings.descriptors = QDir(QStringLiteral("/proc/self/fd"))
                                   .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                                   .size();
        holdings.threads =
            QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
        const std::lock_guard<std::recursive_mutex> lock(s_mutex);
        holdings.objects = static_cast<qint64>(s_objects.size());
        for (QObject* const object : s_objects) {
            if (object->thread() == QThread::currentThread())
                holdings.timers += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
        }
        return holdings;
    }

    /// The smaller or larger figure of each.
    template <typename Choose>
    static Holdings chosen(const Holdings& left, const Holdings& right, Choose choose)
    {
        return {choose(left.heapBytes, right.heapBytes),     choose(left.residentBytes, right.residentBytes),
                choose(left.descriptors, right.descriptors), choose(left.threads, right.threads),
                choose(left.objects, right.objects),         choose(left.timers, right.timers)};
    }

    QByteArray text() const
    {
        return QStringLiteral("heap %1 KiB, resident %2 KiB, handles %3, threads %4, objects %5, timers %6")
            .arg(heapBytes / 1024)
            .arg(residentBytes / 1024)
            .arg(descriptors)
            .arg(threads)
            .arg(objects)
            .arg(timers)
            .toUtf8();
    }
};

/// What is held goes up and down: garbage is collected now and then. Compared are the most of the second quarter and
/// the least of the last one. The first quarter fills what is bounded: logs, caches, pools.
class Comparison
{
public:
    explicit Comparison(int rounds)
        : m_rounds(rounds)
    {
    }

    void look(int round)
    {
        const Holdings now = Holdings::now();
        const int quarter = (round - 1) * 4 / m_rounds;
        const auto most = [](qint64 left, qint64 right) { return std::max(left, right); };
        const auto least = [](qint64 left, qint64 right) { return std::min(left, right); };
        if (quarter == 1)
            before = Holdings::chosen(before, now, most);
        else if (quarter == 3)
            after = after.heapBytes == 0 ? now : Holdings::chosen(after, now, least);
        if (round % std::max(1, m_rounds / 10) == 0)
            std::printf("  %d: %s\n", round, now.text().constData());
        std::fflush(stdout);
    }

    Holdings before;
    Holdings after;

private:
    const int m_rounds;
};

int rounds(const char* variable, int usual)
{
    if (!qEnvironmentVariableIsSet(variable))
        return usual;
    const int wanted = qEnvironmentVariableIntValue(variable);
    if (wanted <= 0) {
        std::fprintf(stderr, "%s=%s: give a number of rounds\n", variable, qgetenv(variable).constData());
        std::exit(EXIT_FAILURE);
    }
    return wanted;
}

/// Has the QML engine drop what nothing uses. By itself it may not do so in each quarter of a short run.
void collectGarbage()
{
    QVector<QQmlEngine*> engines;
    {
        const std::lock_guard<std::recursive_mutex> lock(s_mutex);
        for (QObject* const object : s_objects) {
            if (object->thread() != QThread::currentThread())
                continue;
            if (auto* const engine = qobject_cast<QQmlEngine*>(object))
                engines.append(engine);
        }
    }
    for (QQmlEngine* const engine : qAsConst(engines))
        engine->collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// What may stay: next to nothing, neither of a cycle nor of a million readings.
constexpr qint64 BytesPerCycle = 64;
constexpr qint64 MillionReadingsBytes = 65536;
/// A short run does not fill what is bounded: only a gross leak shows.
constexpr qint64 ShortRunBytes = 4 * 1024 * 1024;

bool isLong(const char* variable)
{
    return qEnvironmentVariableIsSet(variable);
}

} // namespace

class TestEndurance : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startAndClose_data();
    void startAndClose();
    void readings_data();
    void readings();

private:
    void start(const QString& plugin);
    /// Tells the figures, and fails when there are more handles, threads, objects or timers than before, or more memory
    /// than @p heapLimit in bytes allows.
    void judge(const char* what, int rounds, const Comparison& comparison, qint64 heapLimit);

    Options m_options;
    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<VirtualTimeDriver> m_driver;
    std::unique_ptr<LogOutput> m_log;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestEndurance::init()
{
    m_options = Options();
    m_options.headless = true;
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("BRIMVALE_PLUGIN_DATA", QFile::encodeName(m_folder->path()));
}

void TestEndurance::cleanup()
{
    if (m_session)
        m_session->shutDown();
    m_session.reset();
    m_log.reset();
    m_driver.reset();
    m_clock.reset();
}

void TestEndurance::start(const QString& plugin)
{
    m_options.withoutPlugin = plugin.isEmpty();
    if (!plugin.isEmpty())
        m_options.plugins = QStringList{QStringLiteral(BRIMVALE_PLUGINS "/%1.so").arg(plugin)};
    constexpr int LogLines = 100; // of which every start writes one
    m_clock = std::make_unique<VirtualClock>();
    m_driver = std::make_unique<VirtualTimeDriver>(*m_clock);
    m_log = std::make_unique<LogOutput>(QsLogging::OffLevel, LogLines);
    SourceOptions sourceOptions;
    sourceOptions.simulation.readingsPerSecond = 100.0;
    QString error;
    auto source = createSource(m_options.source, *m_clock, sourceOptions, &error);
    QVERIFY2(source, qPrintable(error));
    m_session = std::make_unique<Session>(m_options, *m_clock, std::move(source), *m_log);
    QStringList errors;
    QVERIFY2(m_session->prepare(&errors), qPrintable(errors.join(QLatin1Char('\n'))));
    m_session->loadPlugins();
    QVERIFY(m_session->start());
}

void TestEndurance::judge(const char* what, int rounds, const Comparison& comparison, qint64 heapLimit)
{
    const Holdings& before = comparison.before;
    const Holdings& after = comparison.after;
    const qint64 growth = after.heapBytes - before.heapBytes;
    std::printf("%s, %d rounds\n  before: %s\n  after:  %s\n  heap: %+lld bytes, allowed are %lld\n", what,
                rounds, before.text().constData(), after.text().constData(), static_cast<long long>(growth),
                static_cast<long long>(heapLimit));
    std::fflush(stdout);
    QVERIFY2(after.descriptors <= before.descriptors, "handles grow");
    QVERIFY2(after.threads <= before.threads, "threads grow");
    QVERIFY2(after.objects <= before.objects, "objects grow");
    QVERIFY2(after.timers <= before.timers, "timers grow");
    QVERIFY2(growth <= heapLimit, "memory grows");
}

void TestEndurance::startAndClose_data()
{
    QTest::addColumn<QString>("plugin");
    for (const char* plugin : {"counting", "density", "formulation", "statistics", "weighing"})
        QTest::newRow(plugin) << QString::fromLatin1(plugin);
}

void TestEndurance::startAndClose()
{
    QFETCH(QString, plugin);
    const int cycles = rounds("BRIMVALE_CYCLES", 8);
    start(plugin);
    PluginManager& plugins = m_session->host().plugins();
    Comparison comparison(cycles);
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        plugins.deactivate();
        QVERIFY(plugins.waitUntilSettled());
        m_driver->run(100);
        if (!isLong("BRIMVALE_CYCLES"))
            collectGarbage();
        comparison.look(cycle);
        QVERIFY(plugins.activate(0));
        QVERIFY(plugins.waitUntilSettled());
        QVERIFY(plugins.isRunning());
        m_driver->run(100);
    }
    judge(qPrintable(plugin), cycles, comparison,
          isLong("BRIMVALE_CYCLES") ? BytesPerCycle * cycles / 2 : ShortRunBytes);
    QCOMPARE(m_session->errors(), QStringList());
}

void TestEndurance::readings_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::newRow("terminal alone") << QString();
    QTest::newRow("weighing") << QStringLiteral("weighing");
}

void TestEndurance::readings()
{
    QFETCH(QString, plugin);
    const int wanted = rounds("BRIMVALE_READINGS", 2000);
    start(plugin);
    constexpr int Steps = 40;
    Comparison comparison(Steps);
    for (int step = 1; step <= Steps; ++step) {
        // The load changes, so that everything that shows it has something to do.
        emit m_session->bench().putOn(step % 2 == 0 ? 100.0 : 33.3);
        m_driver->run(qint64(wanted) * 10 / Steps);
        emit m_session->bench().clear();
        comparison.look(step);
    }
    QVERIFY(m_session->readings() >= static_cast<quint64>(wanted));
    judge(plugin.isEmpty() ? "readings" : "readings, weighing runs", wanted, comparison,
          isLong("BRIMVALE_READINGS") ? MillionReadingsBytes : ShortRunBytes);
    QCOMPARE(m_session->errors(), QStringList());
}

int main(int argc, char** argv)
{
    constexpr int AddQObject = 3;
    constexpr int RemoveQObject = 4;
    qtHookData[AddQObject] = reinterpret_cast<quintptr>(&onAdded);
    qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(&onRemoved);
    GuardedApplication application(argc, argv);
    TestEndurance test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_endurance.moc"
