// SPDX-License-Identifier: BSD-3-Clause
#include "IPrintIndicator.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPrintIndicator::~IPrintIndicator() = default;

} // namespace Brimvale
