// SPDX-License-Identifier: BSD-3-Clause
#include "LoadChange.h"

#include "ISystemRegister.h"
#include "IWeighing.h"
#include "core/Logging.h"
#include "core/SaturatingCast.h"

#include <limits>

namespace Brimvale
{

namespace
{

// While the minimum is ignored, only values at or below this one are no load.
constexpr qint32 NoLoad = -1000000000;

qint32 saturated(qint64 value)
{
    return static_cast<qint32>(
        qBound<qint64>(std::numeric_limits<qint32>::min(), value, std::numeric_limits<qint32>::max()));
}

} // namespace

LoadChange::LoadChange(QObject* parent, IWeighing* weighing, ISystemRegister* registers)
    : QObject(parent)
    , m_registers(registers)
{
    QObject* const sender = dynamic_cast<QObject*>(weighing);
    connect(sender, SIGNAL(NotifyLoadChanged(int, double)), this, SLOT(onLoadChanged(int, double)));
    connect(sender, SIGNAL(NotifyNewMeasurementValue()), this, SLOT(onNewMeasurementValue()));
}

LoadChange::~LoadChange()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool LoadChange::isActive()
{
    return m_active;
}

bool LoadChange::Start(LoadChangeMode mode, unsigned long range, long minimum, bool ignoreMinimum)
{
    // Stored also when the start fails.
    m_minimum = saturated(minimum);
    m_ignoreMinimum = ignoreMinimum;
    m_mode = mode;
    m_active = false;
    m_state = Armed;

    switch (mode) {
    case AbsoluteFixed:
    case PercentFixed:
        m_referenceTaken = false;
        break;
    case Absolute:
    case Percent:
        break;
    default:
        return false;
    }

    const bool isPercent = mode == Percent || mode == PercentFixed;
    const bool isInRange =
        isPercent
            ? range >= 1 && range <= 99
            : static_cast<double>(range) < m_registers->GetRegisterValue(ISystemRegister::UpperLimitRegister);
    if (!isInRange) {
        return false;
    }
    m_range = static_cast<quint32>(qMin<quint64>(range, std::numeric_limits<quint32>::max()));
    m_active = true;
    return true;
}

void LoadChange::Stop()
{
    m_active = false;
}

void LoadChange::ResetTrigger()
{
    m_state = Armed;
}

bool LoadChange::isValueAvailable(long value)
{
    if (m_state != Triggered) {
        return false;
    }
    if (m_ignoreMinimum ? value <= NoLoad : value <= m_minimum) {
        return false;
    }
    if (m_mode == Absolute || m_mode == Percent) {
        return true;
    }
    return m_bandLow <= value && value <= m_bandHigh;
}

bool LoadChange::isAboveThreshold(long value)
{
    return static_cast<double>(value) < m_registers->GetRegisterValue(ISystemRegister::CurrentRegister);
}

void LoadChange::setTrigger(int state)
{
    m_state = state;
}

void LoadChange::setAutoTare(bool autoTare)
{
    m_autoTare = autoTare;
}

void LoadChange::setLastSample(double lastSample)
{
    m_lastSample = lastSample;
}

void LoadChange::onLoadChanged(int stableCtr, double lastStableNettoValue)
{
    Q_UNUSED(stableCtr)
    if (!m_active || m_state != Armed) {
        return;
    }
    if (m_ignoreMinimum ? lastStableNettoValue <= NoLoad : m_minimum >= lastStableNettoValue) {
        return;
    }
    m_state = Watching;

    if (m_mode == AbsoluteFixed || m_mode == PercentFixed) {
        if (m_referenceTaken) {
            return;
        }
        m_referenceTaken = true;
    }
    setBand(saturatingCast<qint32>(lastStableNettoValue));
}

/// Sets the band around a reference value, in digits.
void LoadChange::setBand(qint32 reference)
{
    if (m_mode == Absolute || m_mode == AbsoluteFixed) {
        m_bandLow = saturated(qint64(reference) - m_range);
        m_bandHigh = saturated(qint64(reference) + m_range);
    } else if (m_autoTare) {
        const double halfWidth = m_range * m_lastSample / 100.0;
        m_bandLow = saturatingCast<qint32>(0.0 - halfWidth);
        m_bandHigh = saturatingCast<qint32>(halfWidth + 0.0);
    } else {
        const double range = m_range;
        m_bandLow = saturatingCast<qint32>((100.0 - range) * reference / 100.0);
        m_bandHigh = saturatingCast<qint32>((100.0 + range) * reference / 100.0);
    }

    m_bandLow = qMax(m_bandLow, m_ignoreMinimum ? NoLoad : m_minimum);
    const double upperLimit = m_registers->GetRegisterValue(ISystemRegister::UpperLimitRegister);
    if (m_bandHigh > upperLimit) {
        m_bandHigh = saturatingCast<qint32>(upperLimit);
    }
}

void LoadChange::onNewMeasurementValue()
{
    if (!m_active || m_state != Watching) {
        return;
    }
    const double measured = m_registers->GetRegisterValue(ISystemRegister::CurrentRegister);
    if (m_bandLow <= measured && measured <= m_bandHigh) {
        return; // then the digits without their fraction are in the band too
    }
    const auto value = saturatingCast<qint32>(measured);
    if (m_bandLow <= value && value <= m_bandHigh) {
        return;
    }
    m_ignoreMinimum = false;
    m_state = Triggered;
    emit NotifyLoadChangedTriggerd();
}

} // namespace Brimvale

// In the same source file the slots are part of the delivery of signals, which comes with every measured value.
#include "moc_LoadChange.cpp" // NOLINT(bugprone-suspicious-include)
