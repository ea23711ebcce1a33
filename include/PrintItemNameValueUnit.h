// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMNAMEVALUEUNIT_H
#define BRIMVALE_PRINTITEMNAMEVALUEUNIT_H

#include "MesswertData.h"
#include "PrintableItemBase.h"
#include "ProtocolDef.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

class IPrintItemNameValueUnitData;

/// Prints a name, a value and a unit: either two texts, or a measured value that the formatter lays out. Which of the
/// two is settled by the constructor for the item's life. The name column shows the *description* of the texts object.
///
/// The plug-in sets the values; `setValue()` without arguments, with which the host has items take a snapshot, does
/// nothing here.
class BRIMVALE_EXPORT PrintItemNameValueUnit : public PrintableItemBase
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemNameValueUnit)

public:
    /// Makes an item of texts, without a unit. `data` holds name, description and category; it is not owned, must
    /// outlive the item, and reads as empty texts when it is null. `parent` owns the item.
    PrintItemNameValueUnit(QObject* parent, const QString& uid, IPrintItemNameValueUnitData* data,
                           const QString& value, int rank, ProtocolDef def);

    /// Makes an item of a measured value; otherwise as above.
    PrintItemNameValueUnit(QObject* parent, const QString& uid, IPrintItemNameValueUnitData* data,
                           const MesswertData& value, int rank, ProtocolDef def);
    ~PrintItemNameValueUnit() override;

    QString getName() const override;
    bool Print(IPrinter* printer, IFormat* format) override;
    QString getCategory() const override;

    /// The text of the name column.
    virtual QString getDescription() const;

    using PrintableItemBase::setValue;

    /// Sets the value text; ignored by an item of a measured value.
    void setValue(QString value);

    /// Sets the unit text; ignored by an item of a measured value.
    void setUnit(QString unit);

    /// Sets the measured value; ignored by an item of texts.
    void setValue(MesswertData value);

private:
    PrintItemNameValueUnit(QObject* parent, const QString& uid, IPrintItemNameValueUnitData* data, int rank,
                           ProtocolDef def, const QString& value, const MesswertData& snapshot,
                           bool isMesswert);

    QString m_value;
    QString m_unit;
    MesswertData m_snapshot;
    bool m_isMesswert;
    IPrintItemNameValueUnitData* m_data;
};

} // namespace Brimvale

#endif
