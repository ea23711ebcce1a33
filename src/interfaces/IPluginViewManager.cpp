// SPDX-License-Identifier: BSD-3-Clause
#include "IPluginViewManager.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPluginViewManager::~IPluginViewManager() = default;

} // namespace Brimvale
