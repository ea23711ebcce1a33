// SPDX-License-Identifier: BSD-3-Clause
#include "IFormat.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IFormat::~IFormat() = default;

} // namespace Brimvale
