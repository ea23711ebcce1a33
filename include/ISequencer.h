// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISEQUENCER_H
#define BRIMVALE_ISEQUENCER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The sequencer that starts and ends plug-ins one after the other. Implemented by the host.
class BRIMVALE_EXPORT ISequencer
{
public:
    virtual ~ISequencer();

    /// Goes on after the add-ons were started.
    virtual void Continue() = 0;

    /// The plug-in has closed; the next may be started.
    virtual void PluginClosed() = 0;

    /// A print was requested with the print button.
    virtual void SetPrintPending(bool pending) = 0;

    /// An event for the whole host; "printPressed" when the print button was pressed.
    virtual void NotifyHostEvent(QString event) = 0;

    /// A measurement was handed to the outputs.
    virtual void NotifyMeasurementTransferred() = 0;
};

} // namespace Brimvale

#endif
