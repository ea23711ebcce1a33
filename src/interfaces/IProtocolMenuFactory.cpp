// SPDX-License-Identifier: BSD-3-Clause
#include "IProtocolMenuFactory.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IProtocolMenuFactory::~IProtocolMenuFactory() = default;

} // namespace Brimvale
