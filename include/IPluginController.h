// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPLUGINCONTROLLER_H
#define BRIMVALE_IPLUGINCONTROLLER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class IPlugin;

/// Knows which plug-in is active. Implemented by the host.
class BRIMVALE_EXPORT IPluginController
{
public:
    virtual ~IPluginController();

    /// The active plug-in: the one that is being or has been started.
    virtual IPlugin* GetActivePlugin() = 0;

    /// Gives a control application the whole terminal, or takes it back.
    virtual void SetControlMode(bool control) = 0;

    /// A plug-in of that kind (`PluginId::kind`) closes.
    virtual void PluginClosed(QString kind) = 0;
};

} // namespace Brimvale

#endif
