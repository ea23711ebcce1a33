// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPLUGINHOST_H
#define BRIMVALE_IPLUGINHOST_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

class IAddonState;
class ISequencer;

/// The start-up sequence of plug-ins. Implemented by the host.
class BRIMVALE_EXPORT IPluginHost
{
public:
    virtual ~IPluginHost();

    /// The state of the add-ons; the host's, never null.
    virtual IAddonState* GetAddonState() = 0;

    /// The sequencer of the start-up; the host's, never null.
    virtual ISequencer* GetSequencer() = 0;
};

} // namespace Brimvale

#endif
