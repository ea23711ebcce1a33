// SPDX-License-Identifier: BSD-3-Clause
#include "CommandParameter.h"

#include <utility>

namespace Brimvale
{

CommandParameter::CommandParameter(int command, QString parameter)
    : command(command)
    , parameter(std::move(parameter))
{
}

} // namespace Brimvale
