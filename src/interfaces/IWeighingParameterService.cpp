// SPDX-License-Identifier: BSD-3-Clause
#include "IWeighingParameterService.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWeighingParameterService::~IWeighingParameterService() = default;

} // namespace Brimvale
