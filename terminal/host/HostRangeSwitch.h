// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_HOSTRANGESWITCH_H
#define BRIMVALE_HOSTRANGESWITCH_H

#include "IRangeSwitch.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Scale;

/// The weighing ranges of the scale: 0 is the fine one, 1 the coarse one of a scale that has two.
///
/// The scale itself chooses its range by the load. Selection and fixed range are kept and can be read back;
/// the sources of this terminal have no command that holds them in a range.
class HostRangeSwitch : public IRangeSwitch
{
public:
    /// @param scale not owned, must outlive the object.
    HostRangeSwitch(HostCallLog& calls, const Scale& scale);
    Q_DISABLE_COPY(HostRangeSwitch)

    // IRangeSwitch
    void SetRangeSelection(int selection) override;
    int getCurrentRange() override;
    void setFixRange(int range) override;
    int getFixRange() override;

    int rangeSelection() const { return m_selection; }
    int fixRange() const { return m_fixRange; }

private:
    HostCallLog& m_calls;
    const Scale& m_scale;
    int m_selection = 0;
    int m_fixRange = -1;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_HOSTRANGESWITCH_H
