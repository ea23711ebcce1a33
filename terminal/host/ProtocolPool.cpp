// SPDX-License-Identifier: BSD-3-Clause
#include "host/ProtocolPool.h"

#include "IPrintableItem.h"
#include "ITrigger.h"
#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

ProtocolPool::ProtocolPool(HostCallLog& calls)
    : m_calls(calls)
{
}

void ProtocolPool::AddItem(IPrintableItem* item)
{
    m_calls.command("IProtocolPool::AddItem", item);
    m_items.add(item);
}

void ProtocolPool::RemoveItem(IPrintableItem* item)
{
    m_calls.command("IProtocolPool::RemoveItem", item);
    m_items.remove(item);
}

void ProtocolPool::AddTrigger(ITrigger* trigger)
{
    m_calls.command("IProtocolPool::AddTrigger", trigger);
    m_triggers.add(trigger);
}

void ProtocolPool::RemoveTrigger(ITrigger* trigger)
{
    m_calls.command("IProtocolPool::RemoveTrigger", trigger);
    m_triggers.remove(trigger);
}

} // namespace Terminal
} // namespace Brimvale
