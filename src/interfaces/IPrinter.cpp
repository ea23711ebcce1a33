// SPDX-License-Identifier: BSD-3-Clause
#include "IPrinter.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPrinter::~IPrinter() = default;

} // namespace Brimvale
