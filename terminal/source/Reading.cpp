// SPDX-License-Identifier: BSD-3-Clause
#include "source/Reading.h"

#include <limits>

namespace Brimvale
{
namespace Terminal
{

Reading::Reading()
    : grams(std::numeric_limits<double>::quiet_NaN())
    , status(Status::Disconnected)
{
}

Reading Reading::valid(qint64 timeMs, double grams, std::optional<bool> stableMark)
{
    Reading reading;
    reading.timeMs = timeMs;
    reading.grams = grams;
    reading.status = Status::Valid;
    reading.stableMark = stableMark;
    return reading;
}

Reading Reading::invalid(qint64 timeMs, Status status, const QString& detail)
{
    Reading reading;
    reading.timeMs = timeMs;
    reading.status = status;
    reading.detail = detail;
    return reading;
}

} // namespace Terminal
} // namespace Brimvale
