// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTABLEITEMBASE_H
#define BRIMVALE_PRINTABLEITEMBASE_H

#include "IPrintableItem.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// The base of all print items: keeps what the host asks about an item. A concrete item supplies `getName()` and
/// `Print()`, and sets uid, rank, protocol kinds and areas in its constructor.
///
/// `Print()` asks the printer for its layout, has the formatter build one text with exactly one of its line
/// operations, hands the text to the printer and returns the printer's result.
class BRIMVALE_EXPORT PrintableItemBase : public QObject, public IPrintableItem
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintableItemBase)
    Q_INTERFACES(Brimvale::IPrintableItem)

public:
    /// Makes an item of rank 0 with empty texts, enabled in no kind of protocol and available in no area; `parent`
    /// owns it.
    explicit PrintableItemBase(QObject* parent);
    ~PrintableItemBase() override;

    QString getName() const override = 0;
    bool Print(IPrinter* printer, IFormat* format) override = 0;

    /// Does nothing. An item that prints live data takes its snapshot here.
    void setValue() override;

    /// The category by rank: "Measurement" (2), "General" (7), "Application" (8) and "Device" (10), translated, and
    /// "Control" (9), which is never translated. Any other rank gives the text of `setCategory()`.
    QString getCategory() const override;

    QString getUId() const override;
    int getRank() const override;
    bool isEnabled(QFlags<ProtocolType> types) const override;
    bool isAvailableIn(QFlags<ProtocolArea> areas) const override;

    /// The display name as stored; `getName()` of a concrete item may differ.
    void setName(const QString& name);

    /// The unique id of the item within its plug-in.
    void setUid(QString uid);

    /// The category text of an item whose rank has none of its own.
    void setCategory(const QString& category);

    /// The place of the item: a `CategorySort::CategoryOrder` value or the rank of an add-on.
    void setRank(int rank);

    /// The kinds of protocol in which the item is enabled.
    void setEnable(QFlags<ProtocolType> enable);

    /// The areas in which the item may stand.
    void setProtocolArea(QFlags<ProtocolArea> protocolArea);

private:
    QString m_name;
    QString m_uid;
    QString m_category;
    int m_rank = 0;
    QFlags<ProtocolType> m_enable;
    QFlags<ProtocolArea> m_protocolArea;
};

} // namespace Brimvale

#endif
