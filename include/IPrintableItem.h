// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPRINTABLEITEM_H
#define BRIMVALE_IPRINTABLEITEM_H

#include "ProtocolArea.h"
#include "ProtocolType.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

class IFormat;
class IPrinter;

/// One item of a protocol: a line or block that a plug-in contributes to print-outs. A plug-in derives from
/// `PrintableItemBase` or uses one of the ready-made items. The host collects the items, keeps those that
/// are enabled and available, sorts them, calls `setValue()` on each and then `Print()` on each.
class BRIMVALE_EXPORT IPrintableItem
{
public:
    /// Identifies a print item across plug-ins; the host gives the texts their meaning.
    struct PrintItemID
    {
        QString plugin;   ///< identifier of the plug-in
        QString category; ///< category of the item
        QString uid;      ///< unique id of the item within its plug-in
    };

    virtual ~IPrintableItem();

    /// The translated display name.
    virtual QString getName() const = 0;

    /// The unique id of the item within its plug-in.
    virtual QString getUId() const = 0;

    /// The translated category under which the item is offered to the user.
    virtual QString getCategory() const = 0;

    /// The category order of the item: a `CategoryOrder` value or the rank of an add-on.
    virtual int getRank() const = 0;

    /// True when the item is enabled for every one of `types`; an empty set gives true.
    virtual bool isEnabled(QFlags<ProtocolType> types) const = 0;

    /// True when the item may stand in every one of `areas`; an empty set gives true.
    virtual bool isAvailableIn(QFlags<ProtocolArea> areas) const = 0;

    /// Takes a snapshot of the live data that the item prints. Called before `Print()`.
    virtual void setValue() = 0;

    /// Formats the item with `format` and sends it to `printer`; both are the host's and not kept. Returns
    /// the printer's result, or false when there is nothing to print.
    virtual bool Print(IPrinter* printer, IFormat* format) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IPrintableItem, "Brimvale.Protocol.IPrintableItem/1.0")

#endif
