// SPDX-License-Identifier: BSD-3-Clause
#include "IPluginController.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPluginController::~IPluginController() = default;

} // namespace Brimvale
