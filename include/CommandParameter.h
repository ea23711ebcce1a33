// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_COMMANDPARAMETER_H
#define BRIMVALE_COMMANDPARAMETER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// A command by its number, with a parameter.
class BRIMVALE_EXPORT CommandParameter
{
public:
    /// Stores the number and the parameter.
    CommandParameter(int command, QString parameter);

    int command;       ///< number of the command
    QString parameter; ///< its parameter
};

} // namespace Brimvale

#endif
