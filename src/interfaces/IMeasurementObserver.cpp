// SPDX-License-Identifier: BSD-3-Clause
#include "IMeasurementObserver.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IMeasurementObserver::~IMeasurementObserver() = default;

} // namespace Brimvale
