// SPDX-License-Identifier: BSD-3-Clause
#include "IMeasurementTransfer.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IMeasurementTransfer::~IMeasurementTransfer() = default;

} // namespace Brimvale
