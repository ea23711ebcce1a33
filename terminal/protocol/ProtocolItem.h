// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLITEM_H
#define BRIMVALE_PROTOCOLITEM_H

#include "IPrintableItem.h"

#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// An offered print item with what it answered when it was asked: once, so that an item that answers differently every
/// time does not upset the sorting, and so that one that has gone can still be named.
class ProtocolItem : public IPrintableItem
{
public:
    /// Asks @p item, which is not owned and is printed in @p areas. Lets out what the item throws.
    ProtocolItem(IPrintableItem* item, QFlags<ProtocolArea> areas)
        : m_item(item)
        , m_areas(areas)
        , m_name(item->getName())
        , m_uid(item->getUId())
        , m_category(item->getCategory())
        , m_rank(item->getRank())
    {
    }
    Q_DISABLE_COPY(ProtocolItem)

    /// The item itself, which may have gone meanwhile.
    IPrintableItem* item() const { return m_item; }
    /// Where it is printed.
    QFlags<ProtocolArea> areas() const { return m_areas; }

    QString getName() const override { return m_name; }
    QString getUId() const override { return m_uid; }
    QString getCategory() const override { return m_category; }
    int getRank() const override { return m_rank; }

    // The item is asked anew.
    bool isEnabled(QFlags<ProtocolType> types) const override { return m_item->isEnabled(types); }
    bool isAvailableIn(QFlags<ProtocolArea> areas) const override { return m_item->isAvailableIn(areas); }
    void setValue() override { m_item->setValue(); }
    bool Print(IPrinter* printer, IFormat* format) override { return m_item->Print(printer, format); }

private:
    IPrintableItem* const m_item;
    const QFlags<ProtocolArea> m_areas;
    const QString m_name;
    const QString m_uid;
    const QString m_category;
    const int m_rank;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLITEM_H
