// SPDX-License-Identifier: BSD-3-Clause
#include "clock/Clock.h"

namespace Brimvale
{
namespace Terminal
{

Clock::~Clock() = default;

QDateTime Clock::dateTime() const
{
    return QDateTime::fromMSecsSinceEpoch(nowMs(), Qt::UTC);
}

} // namespace Terminal
} // namespace Brimvale
