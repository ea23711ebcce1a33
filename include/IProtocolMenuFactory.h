// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPROTOCOLMENUFACTORY_H
#define BRIMVALE_IPROTOCOLMENUFACTORY_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class IMenuList;

/// Makes protocol menus. Implemented by the host.
class BRIMVALE_EXPORT IProtocolMenuFactory
{
public:
    virtual ~IProtocolMenuFactory();

    /// Makes the protocol menu of a plug-in from `PluginId::protocolName`, `parentNumber` and
    /// `protocolFlag`. The caller owns it; null when the host has none.
    virtual IMenuList* CreateProtocolMenu(QString name, int number, bool flag) = 0;
};

} // namespace Brimvale

#endif
