// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOGOUTPUT_H
#define BRIMVALE_LOGOUTPUT_H

#include "QsLogDest.h"
#include "QsLogLevel.h"

#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// The log of the process while the object exists: what is logged goes to the standard error output, and the newest
/// lines are kept, so that a script can expect them. Qt's own messages are logged too. At most one object of it may
/// exist at a time.
class LogOutput
{
public:
    static constexpr int DefaultCapacity = 10000;

    /// @param level    the least important level that is written.
    /// @param capacity how many lines are kept.
    explicit LogOutput(QsLogging::Level level, int capacity = DefaultCapacity);
    ~LogOutput();
    Q_DISABLE_COPY(LogOutput)

    /// Whether a kept line contains @p part.
    bool contains(const QString& part) const;

private:
    class Lines;

    QSharedPointer<Lines> m_lines;
    QtMessageHandler m_previousHandler;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LOGOUTPUT_H
