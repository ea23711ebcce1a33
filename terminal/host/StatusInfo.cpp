// SPDX-License-Identifier: BSD-3-Clause
#include "host/StatusInfo.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

StatusInfo::StatusInfo(HostCallLog& calls, const QString& owner, const QString& logPrefix)
    : m_calls(calls)
    , m_owner(owner)
    , m_logPrefix(logPrefix)
{
}

QString StatusInfo::GetAddonText()
{
    m_calls.query("IStatusInfo::GetAddonText");
    return m_owner;
}

QString StatusInfo::GetLogPrefix()
{
    m_calls.query("IStatusInfo::GetLogPrefix");
    return m_logPrefix;
}

} // namespace Terminal
} // namespace Brimvale
