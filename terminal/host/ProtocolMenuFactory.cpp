// SPDX-License-Identifier: BSD-3-Clause
#include "host/ProtocolMenuFactory.h"

#include "host/HostCallLog.h"
#include "host/Notices.h"

namespace Brimvale
{
namespace Terminal
{

ProtocolMenuFactory::ProtocolMenuFactory(HostCallLog& calls, Notices& notices)
    : m_calls(calls)
    , m_notices(notices)
{
}

IMenuList* ProtocolMenuFactory::CreateProtocolMenu(QString name, int number, bool flag)
{
    m_calls.command("IProtocolMenuFactory::CreateProtocolMenu", name, number, flag);
    m_notices.post(
        NoticeSeverity::Warning,
        tr("Protocols are not available on this terminal yet: there is no protocol menu \"%1\".").arg(name));
    return nullptr;
}

} // namespace Terminal
} // namespace Brimvale
