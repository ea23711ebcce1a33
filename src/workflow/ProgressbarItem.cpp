// SPDX-License-Identifier: BSD-3-Clause
#include "ProgressbarItem.h"

#include "core/Logging.h"

namespace Brimvale
{

ProgressbarItem::ProgressbarItem(QObject* parent, bool isDone)
    : QObject(parent)
    , m_isDone(isDone)
{
}

ProgressbarItem::~ProgressbarItem()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool ProgressbarItem::isDone() const
{
    return m_isDone;
}

void ProgressbarItem::setIsDone(bool isDone)
{
    if (m_isDone == isDone) {
        return;
    }
    m_isDone = isDone;
    emit isDoneChanged();
}

} // namespace Brimvale
