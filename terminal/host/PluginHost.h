// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINHOST_H
#define BRIMVALE_PLUGINHOST_H

#include "IPluginHost.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The start-up sequence of plug-ins: add-on state and sequencer.
class PluginHost : public IPluginHost
{
public:
    /// @param addonState, sequencer not owned, must outlive the object.
    PluginHost(HostCallLog& calls, IAddonState& addonState, ISequencer& sequencer);
    Q_DISABLE_COPY(PluginHost)

    // IPluginHost
    IAddonState* GetAddonState() override;
    ISequencer* GetSequencer() override;

private:
    HostCallLog& m_calls;
    IAddonState& m_addonState;
    ISequencer& m_sequencer;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINHOST_H
