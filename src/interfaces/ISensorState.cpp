// SPDX-License-Identifier: BSD-3-Clause
#include "ISensorState.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ISensorState::~ISensorState() = default;

} // namespace Brimvale
