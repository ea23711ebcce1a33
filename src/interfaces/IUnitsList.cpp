// SPDX-License-Identifier: BSD-3-Clause
#include "IUnitsList.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IUnitsList::~IUnitsList() = default;

} // namespace Brimvale
