// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemRegValue.h"

#include "IFormat.h"
#include "IPrinter.h"
#include "ISystemRegister.h"
#include "core/Logging.h"

#include <cmath>

namespace Brimvale
{

PrintItemRegValue::PrintItemRegValue(QObject* parent, const QString& uid, QString* name, ProtocolDef def,
                                     int registerNumber, int decimals, QString* unit, bool withDescription,
                                     QString* description, int rank, QString* category,
                                     ISystemRegister* registers)
    : PrintableItemBase(parent)
    , m_namePtr(name)
    , m_descriptionPtr(description)
    , m_unitPtr(unit)
    , m_categoryPtr(category)
    , m_registers(registers)
    , m_registerNumber(registerNumber)
    , m_decimals(decimals)
    , m_withDescription(withDescription)
{
    setUid(uid);
    setName(PrintItemRegValue::getName());
    setRank(rank);
    setCategory(PrintItemRegValue::getCategory());
    setEnable(def.enable);
    setProtocolArea(def.area);
    PrintItemRegValue::setValue();
}

PrintItemRegValue::~PrintItemRegValue()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemRegValue::getName() const
{
    return *m_namePtr;
}

bool PrintItemRegValue::Print(IPrinter* printer, IFormat* format)
{
    const int layout = printer->GetPrintLayout();
    const QString text = m_withDescription
                             ? format->FormatDescriptionText(layout, getDiscription(), m_valueText)
                             : format->FormatText(layout, m_valueText);
    return printer->PrintLine(text);
}

void PrintItemRegValue::setValue()
{
    if (std::isnan(m_registers->GetRegisterValue(m_registerNumber))) {
        m_valueText = QStringLiteral("-");
        return;
    }
    // Read again: it is the second reading that is printed.
    const double value = m_registers->GetRegisterValue(m_registerNumber);
    m_valueText = QStringLiteral("%1").arg(value, 0, 'f', m_decimals, QLatin1Char(' '));
    if (m_unitPtr != nullptr) {
        m_valueText += QLatin1Char(' ') + getUnit();
    }
}

QString PrintItemRegValue::getCategory() const
{
    return *m_categoryPtr;
}

QString PrintItemRegValue::getDiscription() const
{
    return *m_descriptionPtr;
}

QString PrintItemRegValue::getUnit() const
{
    return m_unitPtr == nullptr ? QString() : *m_unitPtr;
}

} // namespace Brimvale
