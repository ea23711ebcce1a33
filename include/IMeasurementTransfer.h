// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IMEASUREMENTTRANSFER_H
#define BRIMVALE_IMEASUREMENTTRANSFER_H

#include "MesswertData.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// Hands measured values to the outputs (printers and data interfaces). Implemented by the host.
class BRIMVALE_EXPORT IMeasurementTransfer
{
public:
    virtual ~IMeasurementTransfer();

    /// Sets how the active plug-in's values are transferred; the flag is `PluginId::transferFlag`.
    virtual void SetTransferFlag(bool flag) = 0;

    /// Transfers a weighing with its gross (register 72) and tare (register 73). Returns whether an output
    /// took it; the library does not use the answer.
    virtual bool TransferMeasurement(MesswertData current, MesswertData register72,
                                     MesswertData register73) = 0;
};

} // namespace Brimvale

#endif
