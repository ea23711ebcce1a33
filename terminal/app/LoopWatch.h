// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOOPWATCH_H
#define BRIMVALE_LOOPWATCH_H

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace Brimvale
{
namespace Terminal
{

/// Sees, from a thread of its own, that something holds up the event loop: that it neither waits nor goes on to
/// something else. While it is held up the log says by what, after the limit and after every doubling of it; as soon
/// as it runs again blocked() is emitted.
///
/// A process that was stopped as a whole, by a debugger or a suspended machine, was not blocked.
class LoopWatch : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(LoopWatch)

public:
    static constexpr int DefaultLimitMs = 4000;

    /// To be constructed on the thread of the event loop, when the application object exists.
    explicit LoopWatch(int limitMs = DefaultLimitMs, QObject* parent = nullptr);
    ~LoopWatch() override;

    /// The plug-in in this file is active, which the log names where it does not know whose code runs; empty: none is.
    void setActive(const QString& pluginFile);

signals:
    /// @p what held up the event loop for @p ms; its code is in the file @p library, which may be empty.
    void blocked(const QString& what, const QString& library, qint64 ms);

private:
    void watch();
    void onRunsAgain();

    const int m_limitMs;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_end = false;
    QString m_active;
    // Of what holds up the event loop, under the mutex:
    QString m_what;
    QString m_library;
    QElapsedTimer m_since;
    std::thread m_thread;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LOOPWATCH_H
