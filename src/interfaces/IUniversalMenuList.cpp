// SPDX-License-Identifier: BSD-3-Clause
#include "IUniversalMenuList.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IUniversalMenuList::~IUniversalMenuList() = default;

} // namespace Brimvale
