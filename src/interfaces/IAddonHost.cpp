// SPDX-License-Identifier: BSD-3-Clause
#include "IAddonHost.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IAddonHost::~IAddonHost() = default;

} // namespace Brimvale
