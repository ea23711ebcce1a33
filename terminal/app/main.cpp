// SPDX-License-Identifier: BSD-3-Clause
#include "app/Run.h"

int main(int argc, char** argv)
{
    return Brimvale::Terminal::runTerminal(argc, argv);
}
