// SPDX-License-Identifier: BSD-3-Clause
#include "ISystemRegister.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ISystemRegister::~ISystemRegister() = default;

} // namespace Brimvale
