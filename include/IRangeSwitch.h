// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IRANGESWITCH_H
#define BRIMVALE_IRANGESWITCH_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The switch of the weighing ranges of a multi-range scale. Implemented by the host and by `RangeSwitch`.
class BRIMVALE_EXPORT IRangeSwitch
{
public:
    virtual ~IRangeSwitch();

    /// Selects how the range is chosen; 0 is automatic.
    virtual void SetRangeSelection(int selection) = 0;

    /// The range that the scale is in.
    virtual int getCurrentRange() = 0;

    /// Holds the scale in a range; -1 releases it.
    virtual void setFixRange(int range) = 0;

    /// The range that the scale is held in; -1 when it is free.
    virtual int getFixRange() = 0;
};

} // namespace Brimvale

#endif
