// SPDX-License-Identifier: BSD-3-Clause
#include "host/AddonHost.h"

#include "host/HostCallLog.h"
#include "host/Notices.h"

namespace Brimvale
{
namespace Terminal
{

AddonHost::AddonHost(HostCallLog& calls, Notices& notices)
    : m_calls(calls)
    , m_notices(notices)
{
}

void AddonHost::BeginAddons()
{
    m_calls.command("IAddonHost::BeginAddons");
    m_pending = true;
}

void AddonHost::StartAddon(int addonNumber, QString text)
{
    m_calls.command("IAddonHost::StartAddon", addonNumber, text);
    m_notices.post(NoticeSeverity::Warning,
                   tr("Add-ons are not available on this terminal yet: those of number %1 were not started.")
                       .arg(addonNumber));
}

void AddonHost::EndAddons()
{
    m_calls.command("IAddonHost::EndAddons");
}

bool AddonHost::IsPending()
{
    m_calls.query("IAddonState::IsPending");
    return m_pending;
}

} // namespace Terminal
} // namespace Brimvale
