// SPDX-License-Identifier: BSD-3-Clause
#include "IAction.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IAction::~IAction() = default;

} // namespace Brimvale
