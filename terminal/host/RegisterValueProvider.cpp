// SPDX-License-Identifier: BSD-3-Clause
#include "host/RegisterValueProvider.h"

#include "ISystemRegister.h"
#include "host/HostCallLog.h"
#include "measuring/Scale.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

namespace
{

/// A record without a weight: neither a text nor a number that could be taken for one.
MesswertData withoutWeight(int registerNumber, const QString& errorText)
{
    MesswertData data;
    data.errorText = errorText;
    data.value = std::numeric_limits<double>::quiet_NaN();
    data.isValid = false;
    data.registerNumber = registerNumber;
    return data;
}

} // namespace

RegisterValueProvider::RegisterValueProvider(HostCallLog& calls, const Scale& scale)
    : m_calls(calls)
    , m_scale(scale)
{
}

MesswertData RegisterValueProvider::GetMesswert(int unit, int registerNumber)
{
    m_calls.query("IRegisterValueProvider::GetMesswert", unit, registerNumber);
    if (unit != Gram) {
        return withoutWeight(registerNumber, tr("Unit %1 is not available").arg(unit));
    }
    return reading(registerNumber);
}

MesswertData RegisterValueProvider::reading(int registerNumber) const
{
    double digits = 0.0;
    switch (registerNumber) {
    case ISystemRegister::GrossRegister:
        digits = m_scale.grossDigits();
        break;
    case ISystemRegister::TareRegister:
        digits = m_scale.tareDigits();
        break;
    case ISystemRegister::CurrentRegister:
        digits = m_scale.netDigits();
        break;
    case ISystemRegister::UpperLimitRegister:
        digits = m_scale.upperLimitDigits();
        break;
    default:
        return withoutWeight(registerNumber, tr("Register %1 is not available").arg(registerNumber));
    }

    const bool live = registerNumber == ISystemRegister::GrossRegister
                      || registerNumber == ISystemRegister::CurrentRegister;
    MesswertData data;
    if (live && !m_scale.isValid()) {
        data = withoutWeight(registerNumber, m_scale.statusText());
        data.isOverload = m_scale.status() == Reading::Status::Overload;
    } else {
        data.messwert = m_scale.format(digits);
        data.value = m_scale.readability().toGrams(digits);
        data.stabilityValue = !live ? NoIndicator : m_scale.isStable() ? Stable : Unstable;
        data.isStable = !live || m_scale.isStable();
    }
    data.unit = QStringLiteral("g");
    data.unitPrintName = QStringLiteral("g");
    data.rangeNumber = m_scale.isCoarseRange() ? 1 : 0;
    data.decimals = m_scale.decimals();
    data.tareValue = m_scale.tareGrams();
    data.net = registerNumber == ISystemRegister::CurrentRegister && m_scale.isTareSet();
    data.isPresetTare = m_scale.isPresetTare();
    data.isGrobRange = live && m_scale.isCoarseRange();
    data.registerNumber = registerNumber;
    return data;
}

} // namespace Terminal
} // namespace Brimvale
