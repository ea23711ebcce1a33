// SPDX-License-Identifier: BSD-3-Clause
#include "app/LoopWatch.h"

#include "QsLog.h"
#include "host/RunningCode.h"

#include <QAbstractEventDispatcher>

#include <algorithm>
#include <chrono>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// How often it looks within the limit.
constexpr int LooksPerLimit = 10;
/// A look that comes so many times too late shows that the whole process stood still.
constexpr qint64 StandstillLooks = 4;

} // namespace

LoopWatch::LoopWatch(int limitMs, QObject* parent)
    : QObject(parent)
    , m_limitMs(limitMs)
{
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [] { RunningCode::setIdle(true); });
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [] { RunningCode::setIdle(false); });
    m_thread = std::thread([this] { watch(); });
}

LoopWatch::~LoopWatch()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_end = true;
    }
    m_wake.notify_one();
    m_thread.join();
    RunningCode::setIdle(false);
}

void LoopWatch::setActive(const QString& pluginFile)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_active = pluginFile;
}

void LoopWatch::watch()
{
    const int lookMs = std::max(1, m_limitMs / LooksPerLimit);
    quint32 beat = RunningCode::state().beat;
    QElapsedTimer since;
    since.start();
    QElapsedTimer look;
    qint64 tellAfterMs = m_limitMs;
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_end) {
        look.start();
        m_wake.wait_for(lock, std::chrono::milliseconds(lookMs));
        const RunningCode::State state = RunningCode::state();
        if (state.idle || state.beat != beat || look.elapsed() > StandstillLooks * lookMs) {
            beat = state.beat;
            since.start();
            tellAfterMs = m_limitMs;
            continue;
        }
        if (since.elapsed() < tellAfterMs)
            continue;
        const bool first = tellAfterMs == m_limitMs;
        tellAfterMs *= 2;
        const QString what = state.what ? QString::fromUtf8(state.what) : QStringLiteral("the terminal");
        const QString library = libraryOf(state.code);
        if (first) {
            m_what = what;
            m_library = library;
            m_since = since;
            QMetaObject::invokeMethod(this, &LoopWatch::onRunsAgain, Qt::QueuedConnection);
        }
        const QString whose = !library.isEmpty()    ? QStringLiteral(" in %1").arg(library)
                              : !m_active.isEmpty() ? QStringLiteral(" while %1 is active").arg(m_active)
                                                    : QString();
        // Unlocked: whoever writes the log may wait for the thread of the event loop.
        lock.unlock();
        QLOG_WARN().noquote() << QStringLiteral("the event loop has been held up for %1 s by %2%3. It goes "
                                                "on when that comes back; until then only SIGTERM or Ctrl+C, "
                                                "twice, ends the terminal")
                                     .arg(static_cast<double>(since.elapsed()) / 1000.0, 0, 'f', 1)
                                     .arg(what, whose);
        lock.lock();
    }
}

void LoopWatch::onRunsAgain()
{
    QString what;
    QString library;
    qint64 ms = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        what = m_what;
        library = m_library;
        ms = m_since.elapsed();
    }
    emit blocked(what, library, ms);
}

} // namespace Terminal
} // namespace Brimvale
