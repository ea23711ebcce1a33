// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IADDONSTATE_H
#define BRIMVALE_IADDONSTATE_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The state of the add-ons. Implemented by the host.
class BRIMVALE_EXPORT IAddonState
{
public:
    virtual ~IAddonState();

    /// Whether the start-up waits for add-ons.
    virtual bool IsPending() = 0;
};

} // namespace Brimvale

#endif
