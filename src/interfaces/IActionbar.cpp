// SPDX-License-Identifier: BSD-3-Clause
#include "IActionbar.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IActionbar::~IActionbar() = default;

} // namespace Brimvale
