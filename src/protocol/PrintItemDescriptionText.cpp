// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemDescriptionText.h"

#include "IFormat.h"
#include "IPrinter.h"
#include "core/Logging.h"

namespace Brimvale
{

PrintItemDescriptionText::PrintItemDescriptionText(QObject* parent, const QString& uid, QString* name,
                                                   ProtocolDef def, QString* description, QString* text,
                                                   bool withDescription, int rank, QString* category)
    : PrintableItemBase(parent)
    , m_namePtr(name)
    , m_descriptionPtr(description)
    , m_textPtr(text)
    , m_categoryPtr(category)
    , m_withDescription(withDescription)
{
    setUid(uid);
    setName(PrintItemDescriptionText::getName());
    setRank(rank);
    setCategory(PrintItemDescriptionText::getCategory());
    setEnable(def.enable);
    setProtocolArea(def.area);
}

PrintItemDescriptionText::~PrintItemDescriptionText()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemDescriptionText::getName() const
{
    return *m_namePtr;
}

bool PrintItemDescriptionText::Print(IPrinter* printer, IFormat* format)
{
    const int layout = printer->GetPrintLayout();
    const QString text = m_withDescription
                             ? format->FormatDescriptionText(layout, getDiscription(), getText())
                             : format->FormatText(layout, getText());
    return printer->PrintLine(text);
}

void PrintItemDescriptionText::setValue() { }

QString PrintItemDescriptionText::getCategory() const
{
    return *m_categoryPtr;
}

QString PrintItemDescriptionText::getDiscription() const
{
    return *m_descriptionPtr;
}

QString PrintItemDescriptionText::getText() const
{
    return *m_textPtr;
}

} // namespace Brimvale
