// SPDX-License-Identifier: BSD-3-Clause
#include "IMSWParameterSource.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IMSWParameterSource::~IMSWParameterSource() = default;

} // namespace Brimvale
