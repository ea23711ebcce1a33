// SPDX-License-Identifier: BSD-3-Clause
#include "RangeSwitch.h"

namespace Brimvale
{

RangeSwitch::RangeSwitch(int currentRange, int fixRange)
    : m_currentRange(currentRange)
    , m_fixRange(fixRange)
{
}

RangeSwitch::~RangeSwitch() = default;

void RangeSwitch::SetRangeSelection(int selection)
{
    m_currentRange = selection;
}

int RangeSwitch::getCurrentRange()
{
    return m_currentRange;
}

void RangeSwitch::setFixRange(int range)
{
    m_fixRange = range;
}

int RangeSwitch::getFixRange()
{
    return m_fixRange;
}

} // namespace Brimvale
