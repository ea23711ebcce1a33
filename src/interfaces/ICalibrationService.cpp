// SPDX-License-Identifier: BSD-3-Clause
#include "ICalibrationService.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ICalibrationService::~ICalibrationService() = default;

} // namespace Brimvale
