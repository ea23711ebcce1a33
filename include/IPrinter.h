// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPRINTER_H
#define BRIMVALE_IPRINTER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The printer of protocols. Implemented by the host.
class BRIMVALE_EXPORT IPrinter
{
public:
    virtual ~IPrinter();

    /// The layout of the printer, passed unchanged to every line operation of `IFormat`.
    virtual int GetPrintLayout() = 0;

    /// Prints one finished block of text, line ends included. Returns false when it could not be printed.
    virtual bool PrintLine(const QString& text) = 0;
};

} // namespace Brimvale

#endif
