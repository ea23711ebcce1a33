// SPDX-License-Identifier: BSD-3-Clause
#include "ILifecycleObserver.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
ILifecycleObserver::~ILifecycleObserver() = default;

} // namespace Brimvale
