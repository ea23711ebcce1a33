// SPDX-License-Identifier: BSD-3-Clause
#include "IScreenLoader.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IScreenLoader::~IScreenLoader() = default;

} // namespace Brimvale
