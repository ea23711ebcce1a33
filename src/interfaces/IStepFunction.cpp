// SPDX-License-Identifier: BSD-3-Clause
#include "IStepFunction.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IStepFunction::~IStepFunction() = default;

} // namespace Brimvale
