// SPDX-License-Identifier: BSD-3-Clause
#include "IWorkflowStep.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWorkflowStep::~IWorkflowStep() = default;

} // namespace Brimvale
