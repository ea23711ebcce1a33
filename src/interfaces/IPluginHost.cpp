// SPDX-License-Identifier: BSD-3-Clause
#include "IPluginHost.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPluginHost::~IPluginHost() = default;

} // namespace Brimvale
