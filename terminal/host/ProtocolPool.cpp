// SPDX-License-Identifier: BSD-3-Clause
#include "host/ProtocolPool.h"

#include "IPrintableItem.h"
#include "ITrigger.h"
#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

ProtocolPool::ProtocolPool(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

void ProtocolPool::AddItem(IPrintableItem* item)
{
    m_calls.command("IProtocolPool::AddItem", item);
    m_items.add(item);
    emit changed();
}

void ProtocolPool::RemoveItem(IPrintableItem* item)
{
    m_calls.command("IProtocolPool::RemoveItem", item);
    m_items.remove(item);
    emit changed();
}

void ProtocolPool::AddTrigger(ITrigger* trigger)
{
    m_calls.command("IProtocolPool::AddTrigger", trigger);
    m_triggers.add(trigger);
    emit changed();
}

void ProtocolPool::RemoveTrigger(ITrigger* trigger)
{
    m_calls.command("IProtocolPool::RemoveTrigger", trigger);
    m_triggers.remove(trigger);
    emit changed();
}

void ProtocolPool::clear()
{
    m_items.clear();
    m_triggers.clear();
    emit changed();
}

} // namespace Terminal
} // namespace Brimvale
