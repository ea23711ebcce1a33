// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_RUN_H
#define BRIMVALE_RUN_H

namespace Brimvale
{
namespace Terminal
{

/// The program: reads the command line, runs the terminal with or without a window, and returns the exit code.
int runTerminal(int argc, char** argv);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_RUN_H
