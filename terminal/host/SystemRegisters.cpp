// SPDX-License-Identifier: BSD-3-Clause
#include "host/SystemRegisters.h"

#include "host/HostCallLog.h"
#include "measuring/Scale.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

SystemRegisters::SystemRegisters(HostCallLog& calls, const Scale& scale)
    : m_calls(calls)
    , m_quiet(scale)
{
    const auto update = [this] { m_quiet.update(); };
    QObject::connect(&scale, &Scale::newMeasurement, &m_context, update);
    QObject::connect(&scale, &Scale::stateChanged, &m_context, update);
    // The old value was counted in digits of another size.
    QObject::connect(&scale, &Scale::decimalsChanged, &m_context, [this] {
        m_quiet.current = std::numeric_limits<double>::quiet_NaN();
        m_quiet.update();
    });
}

double SystemRegisters::GetRegisterValue(int registerNumber)
{
    m_calls.query("ISystemRegister::GetRegisterValue", registerNumber);
    return m_quiet.GetRegisterValue(registerNumber);
}

SystemRegisters::Quiet::Quiet(const Scale& source)
    : scale(source)
    , current(source.netDigits())
{
}

void SystemRegisters::Quiet::update()
{
    if (scale.isValid()) {
        current = scale.netDigits();
    }
}

double SystemRegisters::Quiet::GetRegisterValue(int registerNumber)
{
    switch (registerNumber) {
    case GrossRegister:
        return scale.grossDigits();
    case TareRegister:
        return scale.tareDigits();
    case CurrentRegister:
        return current;
    case UpperLimitRegister:
        return scale.upperLimitDigits();
    default:
        return 0.0;
    }
}

} // namespace Terminal
} // namespace Brimvale
