// SPDX-License-Identifier: BSD-3-Clause
#include "IActionToggle.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IActionToggle::~IActionToggle() = default;

} // namespace Brimvale
