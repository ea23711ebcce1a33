// SPDX-License-Identifier: BSD-3-Clause
#include "IRegisterValueProvider.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IRegisterValueProvider::~IRegisterValueProvider() = default;

} // namespace Brimvale
