// SPDX-License-Identifier: BSD-3-Clause
#include "IWeighing.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWeighing::~IWeighing() = default;

} // namespace Brimvale
