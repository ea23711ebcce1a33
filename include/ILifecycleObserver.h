// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ILIFECYCLEOBSERVER_H
#define BRIMVALE_ILIFECYCLEOBSERVER_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// Told of the life of plug-ins. Implemented by the host.
class BRIMVALE_EXPORT ILifecycleObserver
{
public:
    virtual ~ILifecycleObserver();

    /// The active plug-in begins to close: the host must let go of its screen and its actions.
    virtual void NotifyPluginClosing() = 0;
};

} // namespace Brimvale

#endif
