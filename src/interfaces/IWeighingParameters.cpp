// SPDX-License-Identifier: BSD-3-Clause
#include "IWeighingParameters.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWeighingParameters::~IWeighingParameters() = default;

} // namespace Brimvale
