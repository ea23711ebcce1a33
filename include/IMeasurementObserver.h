// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IMEASUREMENTOBSERVER_H
#define BRIMVALE_IMEASUREMENTOBSERVER_H

#include "MesswertData.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// Told of every transferred measurement. Implemented by the host.
class BRIMVALE_EXPORT IMeasurementObserver
{
public:
    virtual ~IMeasurementObserver();

    /// A measurement was handed to the outputs; `previous` is the one before, as the plug-in gave it.
    virtual void OnMeasurementTransferred(MesswertData current, MesswertData previous) = 0;

    /// Gross and tare (registers 72 and 73, in digits) at the time of the transfer.
    virtual void OnSystemRegistersRead(double register72, double register73) = 0;
};

} // namespace Brimvale

#endif
