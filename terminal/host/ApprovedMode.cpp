// SPDX-License-Identifier: BSD-3-Clause
#include "host/ApprovedMode.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

ApprovedMode::ApprovedMode(HostCallLog& calls, int modes)
    : m_calls(calls)
    , m_quiet(modes)
{
}

bool ApprovedMode::IsModeActive(int modeFlag)
{
    m_calls.query("IApprovedMode::IsModeActive", modeFlag);
    return m_quiet.IsModeActive(modeFlag);
}

} // namespace Terminal
} // namespace Brimvale
