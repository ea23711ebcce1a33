// SPDX-License-Identifier: BSD-3-Clause
#include "IPrintItemNameValueUnitData.h"

namespace Brimvale
{

// Defined here so that the vtable and the type information exist once, in the library.
IPrintItemNameValueUnitData::~IPrintItemNameValueUnitData() = default;

} // namespace Brimvale
