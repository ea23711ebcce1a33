// SPDX-License-Identifier: BSD-3-Clause
#include "IInfobox.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IInfobox::~IInfobox() = default;

} // namespace Brimvale
