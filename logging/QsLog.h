// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_QSLOG_H
#define BRIMVALE_QSLOG_H

#include "QsLogDest.h"
#include "QsLogGlobal.h"
#include "QsLogLevel.h"

#include <QDebug>
#include <QString>

#include <atomic>

namespace QsLogging
{

/// The logger of the process: a level, what a line consists of, and the destinations that lines are written
/// to.
///
/// There is one instance per process. It can be used from any thread and at any time, before `main()` and
/// after it included, since it is neither constructed nor destroyed at run time. Without a destination lines
/// are dropped.
class QSLOG_EXPORT Logger
{
public:
    /// The logger of the process.
    static Logger& instance() noexcept { return s_instance; }

    /// Puts the logger back into its initial state: the destinations are released, the level is `InfoLevel`,
    /// time stamp and level name are included. A reference to the logger stays usable.
    static void destroyInstance();

    /// Adds \a destination; every line from now on is written to it, after the destinations added before. It
    /// is shared with the caller. A null or invalid destination is ignored.
    void addDestination(DestinationPtr destination);

    /// Sets the least important level that log statements write. Initially `InfoLevel`.
    void setLoggingLevel(Level newLevel) noexcept { m_level.store(newLevel, std::memory_order_relaxed); }

    /// The least important level that log statements write. A statement asks for it first and does nothing
    /// when it is above its own level, hence no more than a plain read of memory.
    Level loggingLevel() const noexcept
    {
        return static_cast<Level>(m_level.load(std::memory_order_relaxed));
    }

    /// Sets whether a line bears the time at which it was written. Initially true.
    void setIncludeTimestamp(bool include) noexcept
    {
        m_includeTimestamp.store(include, std::memory_order_relaxed);
    }

    /// Whether a line bears the time at which it was written.
    bool includeTimestamp() const noexcept { return m_includeTimestamp.load(std::memory_order_relaxed); }

    /// Sets whether a line bears the name of its level. Initially true.
    void setIncludeLogLevel(bool include) noexcept
    {
        m_includeLogLevel.store(include, std::memory_order_relaxed);
    }

    /// Whether a line bears the name of its level.
    bool includeLogLevel() const noexcept { return m_includeLogLevel.load(std::memory_order_relaxed); }

    /// One line in the making. What is streamed into stream() is written to every destination when the helper
    /// is destroyed, that is at the end of a statement for which it was made as a temporary:
    ///
    ///     QsLogging::Logger::Helper(QsLogging::WarnLevel).stream() << "tank level" << level;
    ///
    /// The line is the level's name, the local time as `yyyy-MM-ddThh:mm:ss.zzz` and the text, separated by a
    /// blank. The helper does not ask for the logger's level: that is the statement's part, see QLOG_TRACE().
    class QSLOG_EXPORT Helper
    {
    public:
        /// Begins a line of level \a logLevel.
        explicit Helper(Level logLevel)
            : m_level(logLevel)
            , m_stream(&m_text)
        {
        }

        /// Writes the line.
        ~Helper();

        /// The stream that builds the text of the line. Its automatic spacing is on.
        QDebug& stream() { return m_stream; }

    private:
        Q_DISABLE_COPY(Helper)

        Level m_level;
        QString m_text;
        QDebug m_stream;
    };

private:
    Q_DISABLE_COPY(Logger)

    constexpr Logger() noexcept = default;
    ~Logger() = default;

    void write(const QString& text, Level level) noexcept;

    static Logger s_instance; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): one per process

    std::atomic<int> m_level{InfoLevel};
    std::atomic<bool> m_includeTimestamp{true};
    std::atomic<bool> m_includeLogLevel{true};
};

} // namespace QsLogging

/// \name Log statements
/// `QLOG_INFO() << "started" << name;` writes a line of that level. Where the logger's level is above it, the
/// operands of `<<` are not evaluated.
/// @{
#define QLOG_AT(level)                                                                                       \
    for (bool qsLogEnabled = QsLogging::Logger::instance().loggingLevel() <= (level); qsLogEnabled;          \
         qsLogEnabled = false)                                                                               \
    QsLogging::Logger::Helper(level).stream()
#define QLOG_TRACE() QLOG_AT(QsLogging::TraceLevel)
#define QLOG_DEBUG() QLOG_AT(QsLogging::DebugLevel)
#define QLOG_INFO() QLOG_AT(QsLogging::InfoLevel)
#define QLOG_WARN() QLOG_AT(QsLogging::WarnLevel)
#define QLOG_ERROR() QLOG_AT(QsLogging::ErrorLevel)
#define QLOG_FATAL() QLOG_AT(QsLogging::FatalLevel)
/// @}

#endif // BRIMVALE_QSLOG_H
