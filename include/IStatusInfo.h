// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISTATUSINFO_H
#define BRIMVALE_ISTATUSINFO_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// Texts about the terminal's state. Implemented by the host.
class BRIMVALE_EXPORT IStatusInfo
{
public:
    virtual ~IStatusInfo();

    /// The owner text that goes with add-ons, action bars and stored parameters.
    virtual QString GetAddonText() = 0;

    /// The text that begins the log line of a started application.
    virtual QString GetLogPrefix() = 0;
};

} // namespace Brimvale

#endif
