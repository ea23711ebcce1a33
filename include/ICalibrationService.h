// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ICALIBRATIONSERVICE_H
#define BRIMVALE_ICALIBRATIONSERVICE_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The calibration service. Implemented by the host in a `QObject` with the signal
/// `notifyCalibrationWarningChanged()`.
class BRIMVALE_EXPORT ICalibrationService
{
public:
    virtual ~ICalibrationService();

    /// The translated warning; empty when no calibration is required.
    virtual QString GetCalibrationWarningText() = 0;
};

} // namespace Brimvale

#endif
