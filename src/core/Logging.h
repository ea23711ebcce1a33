// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_LOGGING_H
#define BRIMVALE_LOGGING_H

/// \file
/// The log statements of the library. Private: it is neither installed nor included by a public header.
///
/// A statement takes one stream expression, the literal text first and then the values:
///
///     BRIMVALE_LOG_DEBUG("StepFunctionBase::startFunction: returnValue= " << value);
///     BRIMVALE_LOG_TRACE("Running destructor -> " << this);
///
/// The configured level is compared first. When it is above the level of the statement nothing else happens:
/// no text is built and the values are not even evaluated. Otherwise every item is followed by one blank, and
/// the line goes to the logger at the end of the statement. A literal is written as it is, a `QString`
/// quoted, a pointer to a `QObject` as class name, address and object name, any other pointer as its address.
///
/// A statement that is not written costs one load and one branch that is not taken.
/// Every macro is one statement, also as the only statement of an `if` with an `else`.

#include "QsLog.h"

#define BRIMVALE_LOG_AT(level, ...)                                                                          \
    do {                                                                                                     \
        if (Q_UNLIKELY(::QsLogging::Logger::instance().loggingLevel() <= (level)))                           \
            ::QsLogging::Logger::Helper(level).stream() << __VA_ARGS__;                                      \
    } while (false)

/// Level trace (0): the destructors, file copying, the closing of a plug-in.
#define BRIMVALE_LOG_TRACE(...) BRIMVALE_LOG_AT(::QsLogging::TraceLevel, __VA_ARGS__)

/// Level debug (1): step functions and weighing parameter sets.
#define BRIMVALE_LOG_DEBUG(...) BRIMVALE_LOG_AT(::QsLogging::DebugLevel, __VA_ARGS__)

/// Level warn (3): a call that cannot do its work.
#define BRIMVALE_LOG_WARN(...) BRIMVALE_LOG_AT(::QsLogging::WarnLevel, __VA_ARGS__)

/// Level off (6), above fatal: the line is written at every configured level, "off" included. It is for the
/// line that marks the start of an application, and for nothing else.
#define BRIMVALE_LOG_ALWAYS(...) BRIMVALE_LOG_AT(::QsLogging::OffLevel, __VA_ARGS__)

#endif // BRIMVALE_LOGGING_H
