// SPDX-License-Identifier: BSD-3-Clause

#include "QsLog.h"

#include <QDateTime>
#include <QVector>

#include <mutex>
#include <utility>

namespace QsLogging
{

namespace
{

struct Destinations
{
    // Recursive, so that a destination may itself log.
    std::recursive_mutex mutex;
    QVector<DestinationPtr> list;
    // Those that are writing now. A destination may log once while it writes; what it logs while it writes that line
    // goes to the others only, or it would log for ever.
    QVector<const Destination*> writing;
};

// Never destroyed: objects that live until the end of the process log in their destructors.
Destinations& destinations()
{
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
    static auto* const instance = new Destinations;
    return *instance;
}

QLatin1String levelName(Level level)
{
    switch (level) {
    case TraceLevel:
        return QLatin1String("TRACE");
    case DebugLevel:
        return QLatin1String("DEBUG");
    case InfoLevel:
        return QLatin1String("INFO ");
    case WarnLevel:
        return QLatin1String("WARN ");
    case ErrorLevel:
        return QLatin1String("ERROR");
    case FatalLevel:
        return QLatin1String("FATAL");
    case OffLevel:
        break;
    }
    return QLatin1String("");
}

} // namespace

// One per process.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
Logger Logger::s_instance;

void Logger::destroyInstance()
{
    QVector<DestinationPtr> released;
    {
        Destinations& shared = destinations();
        const std::lock_guard<std::recursive_mutex> lock(shared.mutex);
        released.swap(shared.list);
        s_instance.setLoggingLevel(InfoLevel);
        s_instance.setIncludeTimestamp(true);
        s_instance.setIncludeLogLevel(true);
    }
    // The destinations are destroyed without the lock: their destructors are not ours.
}

void Logger::addDestination(DestinationPtr destination)
{
    if (!destination || !destination->isValid())
        return;
    Destinations& shared = destinations();
    const std::lock_guard<std::recursive_mutex> lock(shared.mutex);
    shared.list.append(std::move(destination));
}

void Logger::write(const QString& text, Level level) noexcept
try {
    Destinations& shared = destinations();
    const std::lock_guard<std::recursive_mutex> lock(shared.mutex);
    // A copy, since a destination may add another one while it writes.
    const QVector<DestinationPtr> list = shared.list;
    if (list.isEmpty())
        return;

    QString line;
    if (includeLogLevel())
        line += levelName(level) + QLatin1Char(' ');
    // The time is taken under the lock, so that the lines of several threads stand in the order of their
    // times.
    if (includeTimestamp())
        line += QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz"))
                + QLatin1Char(' ');
    line += text;

    for (const DestinationPtr& destination : list) {
        if (shared.writing.count(destination.data()) > 1)
            continue;
        shared.writing.append(destination.data());
        try {
            destination->write(line, level);
        } catch (...) {
            // Logging never fails what it reports on, and one destination never fails the others.
        }
        shared.writing.removeLast();
    }
} catch (...) {
}

Logger::Helper::~Helper()
{
    s_instance.write(m_text, m_level);
}

} // namespace QsLogging
