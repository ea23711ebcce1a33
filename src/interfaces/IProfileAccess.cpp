// SPDX-License-Identifier: BSD-3-Clause
#include "IProfileAccess.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IProfileAccess::~IProfileAccess() = default;

} // namespace Brimvale
