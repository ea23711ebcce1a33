// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_RANGESWITCH_H
#define BRIMVALE_RANGESWITCH_H

#include "IRangeSwitch.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// A holder of the current and the fixed weighing range, for hosts and tests. It switches no scale.
class BRIMVALE_EXPORT RangeSwitch : public IRangeSwitch
{
public:
    /// Holds the given ranges; -1 for a fixed range means that the scale is free.
    explicit RangeSwitch(int currentRange = 0, int fixRange = -1);
    ~RangeSwitch() override;

    /// Stores `selection` as the current range.
    void SetRangeSelection(int selection) override;
    int getCurrentRange() override;
    void setFixRange(int range) override;
    int getFixRange() override;

private:
    int m_currentRange;
    int m_fixRange;
};

} // namespace Brimvale

#endif
