// SPDX-License-Identifier: BSD-3-Clause
#include "host/HostRangeSwitch.h"

#include "host/HostCallLog.h"
#include "measuring/Scale.h"

namespace Brimvale
{
namespace Terminal
{

HostRangeSwitch::HostRangeSwitch(HostCallLog& calls, const Scale& scale)
    : m_calls(calls)
    , m_scale(scale)
{
}

void HostRangeSwitch::SetRangeSelection(int selection)
{
    m_calls.command("IRangeSwitch::SetRangeSelection", selection);
    m_selection = selection;
}

int HostRangeSwitch::getCurrentRange()
{
    m_calls.query("IRangeSwitch::getCurrentRange");
    return m_scale.isCoarseRange() ? 1 : 0;
}

void HostRangeSwitch::setFixRange(int range)
{
    m_calls.command("IRangeSwitch::setFixRange", range);
    m_fixRange = range;
}

int HostRangeSwitch::getFixRange()
{
    m_calls.query("IRangeSwitch::getFixRange");
    return m_fixRange;
}

} // namespace Terminal
} // namespace Brimvale
