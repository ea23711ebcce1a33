// SPDX-License-Identifier: BSD-3-Clause
#include "ITransferTarget.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ITransferTarget::~ITransferTarget() = default;

} // namespace Brimvale
