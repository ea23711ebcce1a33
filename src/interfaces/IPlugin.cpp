// SPDX-License-Identifier: BSD-3-Clause
#include "IPlugin.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPlugin::~IPlugin() = default;

} // namespace Brimvale
