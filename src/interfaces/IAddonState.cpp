// SPDX-License-Identifier: BSD-3-Clause
#include "IAddonState.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IAddonState::~IAddonState() = default;

} // namespace Brimvale
