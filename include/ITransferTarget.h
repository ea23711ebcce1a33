// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ITRANSFERTARGET_H
#define BRIMVALE_ITRANSFERTARGET_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// An output that can take measured values. Implemented by the host.
class BRIMVALE_EXPORT ITransferTarget
{
public:
    virtual ~ITransferTarget();

    /// Whether the output is connected and switched on.
    virtual bool IsActive() = 0;
};

} // namespace Brimvale

#endif
