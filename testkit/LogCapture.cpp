// SPDX-License-Identifier: BSD-3-Clause
#include "TestKit/LogCapture.h"

#include "TestKit/RecordingHost.h"

#include <QThread>
#include <QsLog.h>
#include <QsLogDest.h>

#include <mutex>
#include <utility>

namespace Brimvale::TestKit
{

namespace
{

QString levelName(QsLogging::Level level)
{
    switch (level) {
    case QsLogging::TraceLevel:
        return QStringLiteral("trace");
    case QsLogging::DebugLevel:
        return QStringLiteral("debug");
    case QsLogging::InfoLevel:
        return QStringLiteral("info");
    case QsLogging::WarnLevel:
        return QStringLiteral("warn");
    case QsLogging::ErrorLevel:
        return QStringLiteral("error");
    case QsLogging::FatalLevel:
        return QStringLiteral("fatal");
    case QsLogging::OffLevel:
        return QStringLiteral("off");
    }
    return QString::number(level);
}

} // namespace

/// What a capture and its destination share. The logger keeps its destinations, so the capture may end first.
class LogCapture::Sink
{
public:
    explicit Sink(std::function<void(const QString&)> noteInHost)
        : m_noteInHost(std::move(noteInHost))
    {
    }

    void add(const QString& message, QsLogging::Level level)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_isOpen)
            return;
        const QString text = message.endsWith(QLatin1Char(' ')) ? message.left(message.size() - 1) : message;
        m_lines.append(levelName(level) + QStringLiteral(": ") + text);
        if (m_noteInHost && QThread::currentThread() == m_thread)
            m_noteInHost(QStringLiteral("log ") + m_lines.last());
    }

    QStringList lines() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_lines;
    }

    QStringList takeLines()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_lines, QStringList());
    }

    void close()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOpen = false;
    }

private:
    mutable std::mutex m_mutex;
    QStringList m_lines;
    bool m_isOpen = true;
    const std::function<void(const QString&)> m_noteInHost;
    QThread* const m_thread = QThread::currentThread();
};

class LogCapture::Destination : public QsLogging::Destination
{
public:
    explicit Destination(std::shared_ptr<Sink> sink)
        : m_sink(std::move(sink))
    {
    }

    void write(const QString& message, QsLogging::Level level) override { m_sink->add(message, level); }
    bool isValid() override { return true; }

private:
    const std::shared_ptr<Sink> m_sink;
};

LogCapture::LogCapture(QsLogging::Level level)
    : LogCapture(std::make_shared<Sink>(nullptr), level)
{
}

LogCapture::LogCapture(RecordingHost& host, QsLogging::Level level)
    : LogCapture(std::make_shared<Sink>(host.noteFunction()), level)
{
}

LogCapture::LogCapture(std::shared_ptr<Sink> sink, QsLogging::Level level)
    : m_previousLevel(QsLogging::Logger::instance().loggingLevel())
    , m_previousIncludeTimestamp(QsLogging::Logger::instance().includeTimestamp())
    , m_previousIncludeLogLevel(QsLogging::Logger::instance().includeLogLevel())
    , m_sink(std::move(sink))
{
    QsLogging::Logger& logger = QsLogging::Logger::instance();
    logger.setLoggingLevel(level);
    logger.setIncludeTimestamp(false);
    logger.setIncludeLogLevel(false);
    logger.addDestination(QsLogging::DestinationPtr(new Destination(m_sink)));
}

LogCapture::~LogCapture()
{
    m_sink->close();
    QsLogging::Logger& logger = QsLogging::Logger::instance();
    logger.setLoggingLevel(m_previousLevel);
    logger.setIncludeTimestamp(m_previousIncludeTimestamp);
    logger.setIncludeLogLevel(m_previousIncludeLogLevel);
}

QStringList LogCapture::lines() const
{
    return m_sink->lines();
}

QStringList LogCapture::takeLines()
{
    return m_sink->takeLines();
}

} // namespace Brimvale::TestKit
