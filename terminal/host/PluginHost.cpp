// SPDX-License-Identifier: BSD-3-Clause
#include "host/PluginHost.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

PluginHost::PluginHost(HostCallLog& calls, IAddonState& addonState, ISequencer& sequencer)
    : m_calls(calls)
    , m_addonState(addonState)
    , m_sequencer(sequencer)
{
}

IAddonState* PluginHost::GetAddonState()
{
    m_calls.query("IPluginHost::GetAddonState");
    return &m_addonState;
}

ISequencer* PluginHost::GetSequencer()
{
    m_calls.query("IPluginHost::GetSequencer");
    return &m_sequencer;
}

} // namespace Terminal
} // namespace Brimvale
