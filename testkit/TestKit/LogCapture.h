// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_LOGCAPTURE_H
#define BRIMVALE_TESTKIT_LOGCAPTURE_H

#include <QStringList>
#include <QsLogLevel.h>

#include <memory>

namespace Brimvale::TestKit
{

class RecordingHost;

/// Captures what is logged while it exists, as texts `level: line`, where level is one of trace, debug, info,
/// warn, error, fatal and off. The line is what the log statement streamed, without time stamp and without the
/// blank that the stream puts behind the last value.
///
///     LogCapture log(QsLogging::WarnLevel);
///     profile.ApplySetting(1, 5);
///     BRIMVALE_COMPARE_CALLS(log.takeLines(), "warn: SettingsProfile::ApplySetting, …");
///
/// The level of the logger is set at the beginning, together with what a line consists of, and put back at the
/// end. Other destinations of the logger get the lines as well.
class LogCapture
{
    Q_DISABLE_COPY(LogCapture)

public:
    /// Captures lines; `level` becomes the level of the logger.
    explicit LogCapture(QsLogging::Level level = QsLogging::TraceLevel);

    /// Also adds each line to the list of the host's calls, as `log level: line`. Lines logged on
    /// other threads are captured, but not added to that list.
    explicit LogCapture(RecordingHost& host, QsLogging::Level level = QsLogging::TraceLevel);

    ~LogCapture();

    /// What was logged so far.
    QStringList lines() const;

    /// What was logged so far; the list starts anew.
    QStringList takeLines();

private:
    class Sink;
    class Destination;

    LogCapture(std::shared_ptr<Sink> sink, QsLogging::Level level);

    const QsLogging::Level m_previousLevel;
    const bool m_previousIncludeTimestamp;
    const bool m_previousIncludeLogLevel;
    const std::shared_ptr<Sink> m_sink;
};

} // namespace Brimvale::TestKit

#endif
