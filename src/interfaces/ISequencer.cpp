// SPDX-License-Identifier: BSD-3-Clause
#include "ISequencer.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ISequencer::~ISequencer() = default;

} // namespace Brimvale
