// SPDX-License-Identifier: BSD-3-Clause
#include "app/Console.h"

#include <cstdio>

namespace Brimvale
{
namespace Terminal
{
namespace
{

void write(std::FILE* stream, const QString& text)
{
    static_cast<void>(std::fputs((text + QLatin1Char('\n')).toUtf8().constData(), stream));
    static_cast<void>(std::fflush(stream));
}

} // namespace

void printLine(const QString& line)
{
    write(stdout, line);
}

bool isOutputComplete()
{
    // The mark of a failed write stays on the stream.
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    printError(QStringLiteral("the results could not be written: the standard output is closed or full"));
    return false;
}

void printError(const QString& message)
{
    write(stderr, QStringLiteral("brimvale-terminal: ") + message);
}

void printFault(const QString& message)
{
    write(stderr, message);
}

} // namespace Terminal
} // namespace Brimvale
