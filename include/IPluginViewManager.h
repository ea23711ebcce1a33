// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPLUGINVIEWMANAGER_H
#define BRIMVALE_IPLUGINVIEWMANAGER_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The manager of a plug-in's views. Made by the concrete plug-in in `PluginBase::CreateViewManager()`, in
/// a `QObject`; `PluginBase::ClosePlugin()` deletes it.
class BRIMVALE_EXPORT IPluginViewManager
{
public:
    virtual ~IPluginViewManager();

    /// Sets the views up; the library calls it with 0.
    virtual void Setup(int mode) = 0;
};

} // namespace Brimvale

#endif
