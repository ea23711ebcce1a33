// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_QSLOGLEVEL_H
#define BRIMVALE_QSLOGLEVEL_H

namespace QsLogging
{

/// Importance of a log line, in rising order. As the level of the logger it is the least important level that
/// is written; `OffLevel` as the level of the logger silences all lines below it.
enum Level
{
    TraceLevel = 0, ///< Written as "TRACE".
    DebugLevel,     ///< Written as "DEBUG".
    InfoLevel,      ///< Written as "INFO ".
    WarnLevel,      ///< Written as "WARN ".
    ErrorLevel,     ///< Written as "ERROR".
    FatalLevel,     ///< Written as "FATAL".
    OffLevel ///< 6, written with an empty name. A line of this level is written at every level of the logger.
};

} // namespace QsLogging

#endif // BRIMVALE_QSLOGLEVEL_H
