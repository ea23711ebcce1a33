// SPDX-License-Identifier: BSD-3-Clause
#include "IStatusInfo.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IStatusInfo::~IStatusInfo() = default;

} // namespace Brimvale
