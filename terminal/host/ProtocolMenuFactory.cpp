// SPDX-License-Identifier: BSD-3-Clause
#include "host/ProtocolMenuFactory.h"

#include "host/HostCallLog.h"
#include "protocol/ProtocolMenu.h"

namespace Brimvale
{
namespace Terminal
{

ProtocolMenuFactory::ProtocolMenuFactory(HostCallLog& calls)
    : m_calls(calls)
{
}

IMenuList* ProtocolMenuFactory::CreateProtocolMenu(QString name, int number, bool flag)
{
    m_calls.command("IProtocolMenuFactory::CreateProtocolMenu", name, number, flag);
    return m_protocol != nullptr ? new ProtocolMenu(*m_protocol, name) : nullptr;
}

} // namespace Terminal
} // namespace Brimvale
