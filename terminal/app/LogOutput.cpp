// SPDX-License-Identifier: BSD-3-Clause
#include "app/LogOutput.h"

#include "QsLog.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <mutex>

namespace Brimvale
{
namespace Terminal
{
namespace
{

QsLogging::Level levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QsLogging::DebugLevel;
    case QtInfoMsg:
        return QsLogging::InfoLevel;
    case QtWarningMsg:
        return QsLogging::WarnLevel;
    case QtCriticalMsg:
        return QsLogging::ErrorLevel;
    case QtFatalMsg:
        break;
    }
    return QsLogging::FatalLevel;
}

/// Qt's messages, as a QtMessageHandler.
void logMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const QsLogging::Level level = levelOf(type);
    if (QsLogging::Logger::instance().loggingLevel() > level)
        return;
    const bool named = context.category && qstrcmp(context.category, "default") != 0;
    const QString category = named ? QString::fromLatin1(context.category) + QStringLiteral(": ") : QString();
    QsLogging::Logger::Helper(level).stream().noquote() << category + message;
}

} // namespace

/// Writing is called by any thread.
class LogOutput::Lines : public QsLogging::Destination
{
public:
    explicit Lines(int capacity)
        : m_capacity(static_cast<std::size_t>(capacity))
    {
    }

    void write(const QString& message, QsLogging::Level) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        static_cast<void>(std::fputs((message + QLatin1Char('\n')).toUtf8().constData(), stderr));
        m_lines.push_back(message);
        if (m_lines.size() > m_capacity)
            m_lines.pop_front();
    }

    bool isValid() override { return true; }

    bool contains(const QString& part)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::any_of(m_lines.begin(), m_lines.end(),
                           [&part](const QString& line) { return line.contains(part); });
    }

private:
    const std::size_t m_capacity;
    std::mutex m_mutex;
    std::deque<QString> m_lines;
};

LogOutput::LogOutput(QsLogging::Level level, int capacity)
    : m_lines(new Lines(capacity))
    , m_previousHandler(qInstallMessageHandler(logMessage))
{
    QsLogging::Logger::instance().setLoggingLevel(level);
    QsLogging::Logger::instance().addDestination(m_lines);
}

LogOutput::~LogOutput()
{
    qInstallMessageHandler(m_previousHandler);
    QsLogging::Logger::destroyInstance();
}

bool LogOutput::contains(const QString& part) const
{
    return m_lines->contains(part);
}

} // namespace Terminal
} // namespace Brimvale
