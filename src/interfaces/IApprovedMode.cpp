// SPDX-License-Identifier: BSD-3-Clause
#include "IApprovedMode.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IApprovedMode::~IApprovedMode() = default;

} // namespace Brimvale
