// SPDX-License-Identifier: BSD-3-Clause
#include "IView.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IView::~IView() = default;

} // namespace Brimvale
