// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IAPPROVEDMODE_H
#define BRIMVALE_IAPPROVEDMODE_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The approval (legal-for-trade) mode of the terminal. Implemented by the host.
class BRIMVALE_EXPORT IApprovedMode
{
public:
    /// The mode bits that the library asks for.
    enum Mode
    {
        ApprovedUnitsOnly = 16,        ///< only units approved for trade may be offered
        CaratAllowed = 32,             ///< the carat may be offered in approved operation too
        MinimumDecimals = 4096,        ///< approved units must have a minimum of decimal places
        MinimumDecimalsExtended = 8192 ///< as `MinimumDecimals`, for scales with an auxiliary indication
    };

    virtual ~IApprovedMode();

    /// Whether the mode of that bit is in force.
    virtual bool IsModeActive(int modeFlag) = 0;
};

} // namespace Brimvale

#endif
