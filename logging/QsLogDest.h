// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_QSLOGDEST_H
#define BRIMVALE_QSLOGDEST_H

#include "QsLogGlobal.h"
#include "QsLogLevel.h"

#include <QSharedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace QsLogging
{

/// A place that log lines are written to. Derive from it for a place of your own; the factory below makes the
/// usual ones.
class QSLOG_EXPORT Destination
{
public:
    /// A function that takes log lines, see DestinationFactory::MakeFunctorDestination().
    using LogFunction = void (*)(const QString& message, Level level);

    Destination() = default;
    virtual ~Destination();

    /// Writes one line. \a message is the complete line without a line end, \a level the level it was written
    /// at.
    ///
    /// The logger calls this from the thread that logs, one call at a time, and holds its lock meanwhile: do
    /// not wait in here for another thread that may log. A log statement inside of it is allowed: its line is
    /// written to this destination too, but one logged while that is written only to the others. An exception that
    /// leaves the call is dropped, since logging never fails what it reports on.
    virtual void write(const QString& message, Level level) = 0;

    /// False when the destination could not be set up, for example a file that cannot be opened. The logger
    /// does not write to a destination that is invalid when it is added.
    virtual bool isValid() = 0;

private:
    Q_DISABLE_COPY(Destination)
};

/// Destinations are shared between the logger and whoever made them.
using DestinationPtr = QSharedPointer<Destination>;

/// Whether a log file is replaced by a new one when it has grown too large.
enum LogRotationOption
{
    DisableLogRotation = 0, ///< One file that grows without limit.
    EnableLogRotation = 1   ///< The file is renamed and a new one begun at a given size.
};

/// Size in bytes that a log file does not exceed. 0 or less: there is no limit.
struct MaxSizeBytes
{
    MaxSizeBytes()
        : size(0)
    {
    }
    explicit MaxSizeBytes(qint64 bytes)
        : size(bytes)
    {
    }
    qint64 size;
};

/// Number of old log files that are kept beside the current one. 0 or less: none.
struct MaxOldLogCount
{
    MaxOldLogCount()
        : count(0)
    {
    }
    explicit MaxOldLogCount(int files)
        : count(files)
    {
    }
    int count;
};

/// Makes the destinations that come with the logger.
class QSLOG_EXPORT DestinationFactory
{
public:
    /// A destination that appends to the file \a filePath, in UTF-8, one line feed after every line, and that
    /// hands every line to the operating system at once. Its folder must exist; a file that exists is
    /// continued.
    ///
    /// With \a rotation enabled, a line that would carry the file beyond \a sizeInBytesToRotateAfter goes to
    /// a new file; the full one is renamed to `filePath.1`, what was `filePath.1` to `filePath.2` and so on,
    /// and the oldest goes when there are more than \a oldLogsToKeep. A line that is larger than the limit
    /// has a file to itself. Where renaming fails, the current file is continued, so that no line is lost.
    ///
    /// The destination is invalid, and says why on the standard error output, when the file cannot be opened.
    static DestinationPtr MakeFileDestination(const QString& filePath,
                                              LogRotationOption rotation = DisableLogRotation,
                                              const MaxSizeBytes& sizeInBytesToRotateAfter = MaxSizeBytes(),
                                              const MaxOldLogCount& oldLogsToKeep = MaxOldLogCount());

    /// A destination that writes to the standard error output in the local 8-bit encoding. Always valid.
    static DestinationPtr MakeDebugOutputDestination();

    /// A destination that calls \a function in the thread that logs. Invalid when \a function is null.
    static DestinationPtr MakeFunctorDestination(Destination::LogFunction function);

    /// A destination that calls \a member of \a receiver, given as `SLOT(takeLine(QString,int))` (or a
    /// `SIGNAL`), with the line and its level. The call is queued: it is made by the event loop of the
    /// receiver's thread, whichever thread logs. \a receiver is not owned; when it is destroyed the lines are
    /// dropped. Invalid when there is no receiver or no such member.
    static DestinationPtr MakeFunctorDestination(QObject* receiver, const char* member);
};

} // namespace QsLogging

#endif // BRIMVALE_QSLOGDEST_H
