// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ADDONHOST_H
#define BRIMVALE_ADDONHOST_H

#include "IAddonHost.h"
#include "IAddonState.h"

#include <QCoreApplication>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;

/// The hand-over of add-ons. This terminal starts no add-ons yet: a request is answered by a notice that says
/// so. The start-up of the plug-in goes its way all the same: the add-ons are pending from BeginAddons()
/// until the sequencer is told to continue.
class AddonHost : public IAddonHost, public IAddonState
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::AddonHost)

public:
    AddonHost(HostCallLog& calls, Notices& notices);
    Q_DISABLE_COPY(AddonHost)

    // IAddonHost
    void BeginAddons() override;
    void StartAddon(int addonNumber, QString text) override;
    void EndAddons() override;

    // IAddonState
    bool IsPending() override;

    bool isPending() const { return m_pending; }
    /// The start-up goes on, or has ended otherwise.
    void finish() { m_pending = false; }

private:
    HostCallLog& m_calls;
    Notices& m_notices;
    bool m_pending = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_ADDONHOST_H
