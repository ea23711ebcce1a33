// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_APPROVEDMODE_H
#define BRIMVALE_APPROVEDMODE_H

#include "IApprovedMode.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The approval mode: the mode bits that were set for this run. A desktop is not approved for trade, so none
/// is set unless somebody tries one out.
class ApprovedMode : public IApprovedMode
{
public:
    ApprovedMode(HostCallLog& calls, int modes);
    Q_DISABLE_COPY(ApprovedMode)

    // IApprovedMode
    bool IsModeActive(int modeFlag) override;

private:
    HostCallLog& m_calls;
    const int m_modes;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_APPROVEDMODE_H
