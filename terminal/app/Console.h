// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_CONSOLE_H
#define BRIMVALE_CONSOLE_H

#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// How the process ends.
enum ExitCode
{
    ExitOk = 0,
    ExitFailed = 1,    ///< A plug-in, an expectation, a picture, ... failed.
    ExitWrongUse = 2,  ///< The command line, a script or a recording is at fault.
    ExitBySignal = 128 ///< Plus the number of the signal, in a run without a window.
};

/// Writes a line to the standard output, in UTF-8, at once.
void printLine(const QString& line = QString());

/// Whether everything written to the standard output so far arrived there. If not, a message says so.
bool isOutputComplete();

/// Writes a message to the standard error output, in UTF-8, behind the program's name.
void printError(const QString& message);

/// Writes a message to the standard error output as it is: one that begins with a file and a line.
void printFault(const QString& message);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_CONSOLE_H
