// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_LOGRECORDER_H
#define BRIMVALE_LOGRECORDER_H

#include "QsLog.h"

#include <QSharedPointer>
#include <QStringList>
#include <QVector>

/// Resets the logger and collects what it writes, as lines of level name and text. The logger is reset again
/// at the end of its life.
class LogRecorder
{
public:
    explicit LogRecorder(QsLogging::Level level)
        : m_destination(new Destination)
    {
        QsLogging::Logger::destroyInstance();
        QsLogging::Logger& logger = QsLogging::Logger::instance();
        logger.setLoggingLevel(level);
        logger.setIncludeTimestamp(false);
        logger.addDestination(m_destination);
    }

    ~LogRecorder() { QsLogging::Logger::destroyInstance(); }

    QStringList lines() const { return m_destination->lines; }
    QVector<int> levels() const { return m_destination->levels; }

private:
    Q_DISABLE_COPY(LogRecorder)

    struct Destination : QsLogging::Destination
    {
        void write(const QString& message, QsLogging::Level level) override
        {
            lines.append(message);
            levels.append(level);
        }
        bool isValid() override { return true; }

        QStringList lines;
        QVector<int> levels;
    };

    QSharedPointer<Destination> m_destination;
};

#endif // BRIMVALE_LOGRECORDER_H
