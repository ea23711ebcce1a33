// SPDX-License-Identifier: BSD-3-Clause
#include "app/Console.h"
#include "app/Run.h"

int main(int argc, char** argv)
{
    using namespace Brimvale::Terminal;
    const int exitCode = runTerminal(argc, argv);
    return exitCode == ExitOk && !isOutputComplete() ? ExitFailed : exitCode;
}
