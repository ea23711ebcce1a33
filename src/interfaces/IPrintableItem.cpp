// SPDX-License-Identifier: BSD-3-Clause
#include "IPrintableItem.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPrintableItem::~IPrintableItem() = default;

} // namespace Brimvale
