// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWEIGHING_H
#define BRIMVALE_IWEIGHING_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The scale. Implemented by the host in a `QObject` with the signals `NotifyLoadChanged(int stableCounter,
/// double netDigits)` (a new stable value, in digits of the gram reading) and `NotifyNewMeasurementValue()`
/// (a new value is ready in register 74).
class BRIMVALE_EXPORT IWeighing
{
public:
    virtual ~IWeighing();

    /// Takes the load on the scale as tare. Returns false, and changes nothing, when the scale cannot do
    /// that now (not stable, overloaded, negative).
    virtual bool Tare() = 0;

    /// Sets the zero point. Returns false, and changes nothing, when the scale cannot do that now (not
    /// stable, outside the zero-setting range).
    virtual bool Zero() = 0;

    /// Takes the tare back. Returns false when there is none.
    virtual bool ClearTare() = 0;
};

} // namespace Brimvale

#endif
