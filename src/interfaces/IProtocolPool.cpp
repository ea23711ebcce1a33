// SPDX-License-Identifier: BSD-3-Clause
#include "IProtocolPool.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IProtocolPool::~IProtocolPool() = default;

} // namespace Brimvale
