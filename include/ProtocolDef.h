// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLDEF_H
#define BRIMVALE_PROTOCOLDEF_H

#include "ProtocolArea.h"
#include "ProtocolType.h"

namespace Brimvale
{

/// Where a print item belongs: handed by value to the constructor of every print item, which copies both sets.
struct ProtocolDef
{
    ProtocolTypes enable; ///< kinds of protocol in which the item is enabled
    ProtocolAreas area;   ///< areas of a protocol in which the item may stand
};

} // namespace Brimvale

#endif
