// SPDX-License-Identifier: BSD-3-Clause
#include "host/RegisterValueProvider.h"

#include "ISystemRegister.h"
#include "host/HostCallLog.h"
#include "host/Units.h"
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

RegisterValueProvider::RegisterValueProvider(HostCallLog& calls, const Scale& scale, const Units& units)
    : m_calls(calls)
    , m_scale(scale)
    , m_units(units)
{
}

MesswertData RegisterValueProvider::GetMesswert(int unit, int registerNumber)
{
    m_calls.query("IRegisterValueProvider::GetMesswert", unit, registerNumber);
    const QString name = m_units.nameOf(unit);
    if (name.isEmpty()) {
        return withoutWeight(registerNumber, tr("Unit %1 is not available").arg(unit));
    }
    return reading(registerNumber, name);
}

std::optional<double> RegisterValueProvider::digitsOf(int registerNumber) const
{
    switch (registerNumber) {
    case ISystemRegister::GrossRegister:
        return m_scale.grossDigits();
    case ISystemRegister::TareRegister:
        return m_scale.tareDigits();
    case ISystemRegister::CurrentRegister:
        return m_scale.netDigits();
    case ISystemRegister::UpperLimitRegister:
        return m_scale.upperLimitDigits();
    default:
        return std::nullopt;
    }
}

MesswertData RegisterValueProvider::grams(int registerNumber) const
{
    MesswertData data = reading(registerNumber, QStringLiteral("g"));
    if (data.isValid) {
        const double digits = *digitsOf(registerNumber);
        data.messwert = m_scale.format(digits);
        data.value = m_scale.readability().toGrams(digits);
        data.unit = QStringLiteral("g");
        data.decimals = m_scale.decimals();
        data.eichDigit = 0;
        data.resolutionReduction = 0;
    }
    return data;
}

MesswertData RegisterValueProvider::reading(int registerNumber) const
{
    return reading(registerNumber, m_units.mainUnit());
}

MesswertData RegisterValueProvider::reading(int registerNumber, const QString& unit) const
{
    const std::optional<double> digits = digitsOf(registerNumber);
    if (!digits) {
        return withoutWeight(registerNumber, tr("Register %1 is not available").arg(registerNumber));
    }

    const bool live = registerNumber == ISystemRegister::GrossRegister
                      || registerNumber == ISystemRegister::CurrentRegister;
    const bool coarse = live && m_scale.isCoarseRange();
    const bool weight = !live || m_scale.isValid();
    MesswertData data = m_units.converted(weight ? *digits : 0.0, unit, coarse);
    if (!weight) {
        // What names the unit and its decimals stays.
        const MesswertData empty = data;
        data = withoutWeight(registerNumber, m_scale.statusText());
        data.isOverload = m_scale.status() == Reading::Status::Overload;
        data.unit = empty.unit;
        data.unitPrintName = empty.unitPrintName;
        data.decimals = empty.decimals;
    } else {
        data.stabilityValue = !live ? NoIndicator : m_scale.isStable() ? Stable : Unstable;
        data.isStable = !live || m_scale.isStable();
    }
    data.rangeNumber = m_scale.isCoarseRange() ? 1 : 0;
    data.tareValue = m_scale.tareGrams();
    data.net = registerNumber == ISystemRegister::CurrentRegister && m_scale.isTareSet();
    data.isPresetTare = m_scale.isPresetTare();
    data.isGrobRange = coarse;
    data.registerNumber = registerNumber;
    return data;
}

} // namespace Terminal
} // namespace Brimvale
