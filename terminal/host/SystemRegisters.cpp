// SPDX-License-Identifier: BSD-3-Clause
#include "host/SystemRegisters.h"

#include "host/HostCallLog.h"
#include "measuring/Scale.h"

namespace Brimvale
{
namespace Terminal
{

SystemRegisters::SystemRegisters(HostCallLog& calls, const Scale& scale)
    : m_calls(calls)
    , m_scale(scale)
{
}

double SystemRegisters::GetRegisterValue(int registerNumber)
{
    m_calls.query("ISystemRegister::GetRegisterValue", registerNumber);
    switch (registerNumber) {
    case GrossRegister:
        return m_scale.grossDigits();
    case TareRegister:
        return m_scale.tareDigits();
    case CurrentRegister:
        return m_scale.netDigits();
    case UpperLimitRegister:
        return m_scale.upperLimitDigits();
    default:
        return 0.0;
    }
}

} // namespace Terminal
} // namespace Brimvale
