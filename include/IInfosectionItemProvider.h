// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IINFOSECTIONITEMPROVIDER_H
#define BRIMVALE_IINFOSECTIONITEMPROVIDER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// An item of the info section. Implemented by the host.
class BRIMVALE_EXPORT IInfosectionItemProvider
{
public:
    virtual ~IInfosectionItemProvider();

    /// The unique id; orders items of equal rank.
    virtual QString getUId() = 0;

    /// The place of the item: lower ranks stand first.
    virtual int getRank() = 0;
};

} // namespace Brimvale

#endif
