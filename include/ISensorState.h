// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISENSORSTATE_H
#define BRIMVALE_ISENSORSTATE_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The state of the balance's sensors. Implemented by the host in a `QObject` with the signal
/// `notifyLevellingNotAdjustedChanged()`.
class BRIMVALE_EXPORT ISensorState
{
public:
    virtual ~ISensorState();

    /// True while the balance is not levelled.
    virtual bool IsLevellingNotAdjusted() = 0;
};

} // namespace Brimvale

#endif
