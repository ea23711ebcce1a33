// SPDX-License-Identifier: BSD-3-Clause
#include "host/SensorState.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

SensorState::SensorState(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

bool SensorState::IsLevellingNotAdjusted()
{
    m_calls.query("ISensorState::IsLevellingNotAdjusted");
    return !m_levelled;
}

bool SensorState::setLevelled(bool levelled)
{
    if (m_levelled == levelled) {
        return false;
    }
    m_levelled = levelled;
    emit notifyLevellingNotAdjustedChanged();
    return true;
}

} // namespace Terminal
} // namespace Brimvale
