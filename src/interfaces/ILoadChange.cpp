// SPDX-License-Identifier: BSD-3-Clause
#include "ILoadChange.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ILoadChange::~ILoadChange() = default;

} // namespace Brimvale
