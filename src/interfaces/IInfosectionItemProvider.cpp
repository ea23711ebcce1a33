// SPDX-License-Identifier: BSD-3-Clause
#include "IInfosectionItemProvider.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IInfosectionItemProvider::~IInfosectionItemProvider() = default;

} // namespace Brimvale
