// SPDX-License-Identifier: BSD-3-Clause
#include "ISystem.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ISystem::~ISystem() = default;

} // namespace Brimvale
