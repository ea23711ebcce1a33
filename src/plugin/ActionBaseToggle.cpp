// SPDX-License-Identifier: BSD-3-Clause
#include "ActionBaseToggle.h"

#include "core/Logging.h"

namespace Brimvale
{

ActionBaseToggle::ActionBaseToggle(QObject* parent)
    : ActionBase(parent)
{
}

ActionBaseToggle::~ActionBaseToggle()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

int ActionBaseToggle::toggleIndex() const
{
    return m_toggleIndex;
}

int ActionBaseToggle::maxToggleIndex() const
{
    return m_maxToggleIndex;
}

void ActionBaseToggle::setToggleIndex(int index)
{
    if (m_toggleIndex == index) {
        return;
    }
    m_toggleIndex = index;
    emit actionUpdated();
}

void ActionBaseToggle::setMaxToggleIndex(int index)
{
    if (m_maxToggleIndex == index) {
        return;
    }
    m_maxToggleIndex = index;
    emit actionUpdated();
}

} // namespace Brimvale
