// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemRegValueCurrentUnit.h"

#include "FormattedValue.h"
#include "IFormat.h"
#include "IPrinter.h"
#include "IRegisterValueProvider.h"
#include "ISystem.h"
#include "core/Logging.h"

namespace Brimvale
{

PrintItemRegValueCurrentUnit::PrintItemRegValueCurrentUnit(QObject* parent, const QString& uid, QString* name,
                                                           ProtocolDef def, int registerNumber, bool flag1,
                                                           bool flag2, bool withDescription,
                                                           QString* description, int rank, QString* category,
                                                           ISystem* system)
    : PrintableItemBase(parent)
    , m_namePtr(name)
    , m_descriptionPtr(description)
    , m_categoryPtr(category)
    , m_system(system)
    , m_registerNumber(registerNumber)
    , m_flag1(flag1)
    , m_flag2(flag2)
    , m_withDescription(withDescription)
{
    Q_UNUSED(m_flag1)
    Q_UNUSED(m_flag2)
    setUid(uid);
    setName(PrintItemRegValueCurrentUnit::getName());
    setRank(rank);
    setCategory(PrintItemRegValueCurrentUnit::getCategory());
    setEnable(def.enable);
    setProtocolArea(def.area);
}

PrintItemRegValueCurrentUnit::~PrintItemRegValueCurrentUnit()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemRegValueCurrentUnit::getName() const
{
    return *m_namePtr;
}

bool PrintItemRegValueCurrentUnit::Print(IPrinter* printer, IFormat* format)
{
    FormattedValue record;
    format->ConvertValue(MesswertData(m_snapshot), record);
    record.valueMark = ' ';
    record.bracketedDigitCount = 0;
    const int layout = printer->GetPrintLayout();
    const QString text = m_withDescription ? format->FormatNameValue(layout, getDiscription(), record, false)
                                           : format->FormatValue(layout, record, false);
    return printer->PrintLine(text);
}

void PrintItemRegValueCurrentUnit::setValue()
{
    IRegisterValueProvider* const provider = m_system->GetRegisterValueProvider();
    const int unit = m_system->GetCurrentUnit();
    m_snapshot = provider->GetMesswert(unit, m_registerNumber);
}

QString PrintItemRegValueCurrentUnit::getCategory() const
{
    return *m_categoryPtr;
}

QString PrintItemRegValueCurrentUnit::getDiscription() const
{
    return *m_descriptionPtr;
}

} // namespace Brimvale
