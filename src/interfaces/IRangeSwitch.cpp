// SPDX-License-Identifier: BSD-3-Clause
#include "IRangeSwitch.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IRangeSwitch::~IRangeSwitch() = default;

} // namespace Brimvale
