// SPDX-License-Identifier: BSD-3-Clause

// An application that runs the command line it is given, with the time-out it is given, and ends.

#include "Utility.h"

#include <QCoreApplication>
#include <QStringList>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    return Brimvale::Utility::doProcess(arguments.at(1), arguments.at(2).toInt()) ? 0 : 1;
}
