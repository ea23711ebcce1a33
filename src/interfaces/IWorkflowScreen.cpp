// SPDX-License-Identifier: BSD-3-Clause
#include "IWorkflowScreen.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWorkflowScreen::~IWorkflowScreen() = default;

} // namespace Brimvale
