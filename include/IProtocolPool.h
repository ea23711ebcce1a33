// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPROTOCOLPOOL_H
#define BRIMVALE_IPROTOCOLPOOL_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

class IPrintableItem;
class ITrigger;

/// The pool of print items and triggers from which protocols are made. Implemented by the host.
class BRIMVALE_EXPORT IProtocolPool
{
public:
    virtual ~IProtocolPool();

    /// Offers a print item. It is not owned and must be removed before it dies.
    virtual void AddItem(IPrintableItem* item) = 0;

    /// Withdraws a print item; one that is not there is ignored.
    virtual void RemoveItem(IPrintableItem* item) = 0;

    /// Offers a trigger. It is not owned and must be removed before it dies.
    virtual void AddTrigger(ITrigger* trigger) = 0;

    /// Withdraws a trigger; one that is not there is ignored.
    virtual void RemoveTrigger(ITrigger* trigger) = 0;
};

} // namespace Brimvale

#endif
