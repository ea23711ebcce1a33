// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISYSTEMREGISTER_H
#define BRIMVALE_ISYSTEMREGISTER_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The numbered system registers. Weights are digits of the gram reading (counts of 10^-koma g, see
/// `ISystem::GetDecimals()`). Implemented by the host.
class BRIMVALE_EXPORT ISystemRegister
{
public:
    /// The registers of a weighing.
    enum Register
    {
        GrossRegister = 72,   ///< gross value
        TareRegister = 73,    ///< tare value
        CurrentRegister = 74, ///< current (net) value
        UpperLimitRegister =
            90 ///< upper limit of values: the capacity of the scale, 999999999 when it is not known
    };

    virtual ~ISystemRegister();

    /// The current value of a register; 0 for a number that the host does not know.
    virtual double GetRegisterValue(int registerNumber) = 0;
};

} // namespace Brimvale

#endif
