// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPRINTINDICATOR_H
#define BRIMVALE_IPRINTINDICATOR_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The indicator of a pressed print button. Implemented by the host.
class BRIMVALE_EXPORT IPrintIndicator
{
public:
    virtual ~IPrintIndicator();

    /// Shows that the print button was pressed.
    virtual void SetPrintPressed(bool pressed) = 0;
};

} // namespace Brimvale

#endif
