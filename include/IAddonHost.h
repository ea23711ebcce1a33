// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IADDONHOST_H
#define BRIMVALE_IADDONHOST_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The hand-over of add-ons to a plug-in. Implemented by the host.
class BRIMVALE_EXPORT IAddonHost
{
public:
    virtual ~IAddonHost();

    /// Add-ons are going to be started.
    virtual void BeginAddons() = 0;

    /// Starts the add-on of that number; `text` is `IStatusInfo::GetAddonText()`.
    virtual void StartAddon(int addonNumber, QString text) = 0;

    /// All add-ons were started.
    virtual void EndAddons() = 0;
};

} // namespace Brimvale

#endif
