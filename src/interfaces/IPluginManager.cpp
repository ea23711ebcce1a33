// SPDX-License-Identifier: BSD-3-Clause
#include "IPluginManager.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPluginManager::~IPluginManager() = default;

} // namespace Brimvale
