// SPDX-License-Identifier: BSD-3-Clause
#include "ITrigger.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ITrigger::~ITrigger() = default;

} // namespace Brimvale
