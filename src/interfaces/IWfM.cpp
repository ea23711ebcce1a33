// SPDX-License-Identifier: BSD-3-Clause
#include "IWfM.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IWfM::~IWfM() = default;

} // namespace Brimvale
