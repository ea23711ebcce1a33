// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLPRINTER_H
#define BRIMVALE_PROTOCOLPRINTER_H

#include "protocol/ProtocolChoice.h"
#include "protocol/ProtocolItem.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

namespace Brimvale
{

class IFormat;
class IPrinter;

namespace Terminal
{

/// Print items in the order in which they are printed.
using ProtocolItems = std::vector<std::unique_ptr<ProtocolItem>>;

/// Puts a protocol together and prints it. Nothing that a print item does gets out of it: what an item throws is a
/// failure of that item.
class ProtocolPrinter
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::ProtocolPrinter)

public:
    /// The items that are offered at this moment, from the plug-ins and from the terminal. It is asked again before an
    /// item is called, since one item may bring others to their end.
    using Source = std::function<QList<IPrintableItem*>()>;

    explicit ProtocolPrinter(Source source);
    Q_DISABLE_COPY(ProtocolPrinter)

    /// The offered items that are enabled for protocols of that type and available in that part, sorted: area by area,
    /// within an area by category and uid. An item that is available in several areas stands in the first. One that
    /// cannot be asked is left out, and @p faults has a text for it.
    ProtocolItems collect(ProtocolType type, ProtocolPart part, QStringList* faults) const;

    /// Prints the items: first every one takes a snapshot, then every one prints. Stops at the first failure and
    /// returns it in words with the name of the item; an empty text when everything was printed.
    QString print(const ProtocolItems& items, IPrinter& printer, IFormat& format) const;

private:
    bool isOffered(const ProtocolItem& item) const;
    QString failureOf(const ProtocolItem& item, const std::function<bool()>& step) const;

    const Source m_source;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLPRINTER_H
