// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SYSTEMREGISTERS_H
#define BRIMVALE_SYSTEMREGISTERS_H

#include "ISystemRegister.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Scale;

/// The numbered registers of the scale, in digits of the gram reading. Without a valid reading (overload,
/// underload, unreadable, no connection) gross and net are not a number (NaN): there is no weight, neither 0
/// nor the last one.
class SystemRegisters : public ISystemRegister
{
public:
    /// @param scale not owned, must outlive the object.
    SystemRegisters(HostCallLog& calls, const Scale& scale);
    Q_DISABLE_COPY(SystemRegisters)

    // ISystemRegister
    double GetRegisterValue(int registerNumber) override;

private:
    HostCallLog& m_calls;
    const Scale& m_scale;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SYSTEMREGISTERS_H
