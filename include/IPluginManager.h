// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPLUGINMANAGER_H
#define BRIMVALE_IPLUGINMANAGER_H

#include "SharedLibsGlobal.h"

#include <QList>

namespace Brimvale
{

class IPlugin;

/// The host's list of plug-ins. Implemented by the host.
class BRIMVALE_EXPORT IPluginManager
{
public:
    virtual ~IPluginManager();

    /// The loaded plug-ins in the order of their loading; not owned.
    virtual QList<IPlugin*> GetPlugins() = 0;
};

} // namespace Brimvale

#endif
