// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_APPROVEDMODE_H
#define BRIMVALE_APPROVEDMODE_H

#include "IApprovedMode.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The approval mode: the mode bits in force. A desktop is not approved for trade, so none is set unless somebody
/// tries one out.
class ApprovedMode : public IApprovedMode
{
public:
    ApprovedMode(HostCallLog& calls, int modes);
    Q_DISABLE_COPY(ApprovedMode)

    // IApprovedMode
    bool IsModeActive(int modeFlag) override;

    /// The bits of IApprovedMode::Mode in force.
    int modes() const { return m_quiet.modes; }
    void setModes(int modes) { m_quiet.modes = modes; }

    /// The same answers for the terminal itself, whose questions are no calls of plug-ins.
    IApprovedMode& unlogged() { return m_quiet; }

private:
    struct Quiet : IApprovedMode
    {
        explicit Quiet(int bits)
            : modes(bits)
        {
        }
        bool IsModeActive(int modeFlag) override { return (modes & modeFlag) != 0; }
        int modes;
    };

    HostCallLog& m_calls;
    Quiet m_quiet;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_APPROVEDMODE_H
