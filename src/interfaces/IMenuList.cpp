// SPDX-License-Identifier: BSD-3-Clause
#include "IMenuList.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IMenuList::~IMenuList() = default;

} // namespace Brimvale
