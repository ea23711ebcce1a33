// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemNameValueUnit.h"

#include "FormattedValue.h"
#include "IFormat.h"
#include "IPrintItemNameValueUnitData.h"
#include "IPrinter.h"
#include "core/Logging.h"

namespace Brimvale
{

PrintItemNameValueUnit::PrintItemNameValueUnit(QObject* parent, const QString& uid,
                                               IPrintItemNameValueUnitData* data, int rank, ProtocolDef def,
                                               const QString& value, const MesswertData& snapshot,
                                               bool isMesswert)
    : PrintableItemBase(parent)
    , m_value(value)
    , m_snapshot(snapshot)
    , m_isMesswert(isMesswert)
    , m_data(data)
{
    setUid(uid);
    setRank(rank);
    setEnable(def.enable);
    setProtocolArea(def.area);
    setName(PrintItemNameValueUnit::getName());
}

PrintItemNameValueUnit::PrintItemNameValueUnit(QObject* parent, const QString& uid,
                                               IPrintItemNameValueUnitData* data, const QString& value,
                                               int rank, ProtocolDef def)
    : PrintItemNameValueUnit(parent, uid, data, rank, def, value, MesswertData(), false)
{
}

PrintItemNameValueUnit::PrintItemNameValueUnit(QObject* parent, const QString& uid,
                                               IPrintItemNameValueUnitData* data, const MesswertData& value,
                                               int rank, ProtocolDef def)
    : PrintItemNameValueUnit(parent, uid, data, rank, def, QString(), value, true)
{
}

PrintItemNameValueUnit::~PrintItemNameValueUnit()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemNameValueUnit::getName() const
{
    return m_data == nullptr ? QString() : m_data->getName();
}

bool PrintItemNameValueUnit::Print(IPrinter* printer, IFormat* format)
{
    if (!m_isMesswert) {
        const int layout = printer->GetPrintLayout();
        return printer->PrintLine(format->FormatNameValueUnit(layout, getDescription(), m_value, m_unit));
    }
    FormattedValue record;
    format->ConvertValue(MesswertData(m_snapshot), record);
    const int layout = printer->GetPrintLayout();
    return printer->PrintLine(format->FormatNameValue(layout, getDescription(), record, false));
}

QString PrintItemNameValueUnit::getCategory() const
{
    return m_data == nullptr ? QString() : m_data->getCategory();
}

QString PrintItemNameValueUnit::getDescription() const
{
    return m_data == nullptr ? QString() : m_data->getDescription();
}

void PrintItemNameValueUnit::setValue(QString value)
{
    if (!m_isMesswert) {
        m_value = value;
    }
}

void PrintItemNameValueUnit::setUnit(QString unit)
{
    if (!m_isMesswert) {
        m_unit = unit;
    }
}

void PrintItemNameValueUnit::setValue(MesswertData value)
{
    if (m_isMesswert) {
        m_snapshot = value;
    }
}

} // namespace Brimvale
