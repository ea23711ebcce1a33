// SPDX-License-Identifier: BSD-3-Clause
#include "PrintItemCurrentMeasurement.h"

#include "CategorySort.h"
#include "FormattedValue.h"
#include "IFormat.h"
#include "IPrinter.h"
#include "ISystem.h"
#include "core/Logging.h"

namespace Brimvale
{

PrintItemCurrentMeasurement::PrintItemCurrentMeasurement(QObject* parent, const QString& uid,
                                                         MesswertData* source, ProtocolDef def,
                                                         bool withDescription, ISystem* system)
    : PrintableItemBase(parent)
    , m_source(source)
    , m_withDescription(withDescription)
    , m_system(system)
{
    setUid(uid);
    setName(PrintItemCurrentMeasurement::getName());
    setRank(CategorySort::measurement);
    setEnable(def.enable);
    setProtocolArea(def.area);
}

PrintItemCurrentMeasurement::~PrintItemCurrentMeasurement()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString PrintItemCurrentMeasurement::getName() const
{
    return tr("Current measurement");
}

bool PrintItemCurrentMeasurement::Print(IPrinter* printer, IFormat* format)
{
    if (m_source == nullptr) {
        return false;
    }
    const bool sics = m_system->GetProtocolFormatName() == QLatin1String("sics");
    FormattedValue record;
    format->ConvertValue(MesswertData(m_snapshot), record);
    const bool wasStable = record.isStable;

    if (m_withDescription) {
        const int layout = printer->GetPrintLayout();
        return printer->PrintLine(format->FormatNameValue(layout, getDiscription(), record, false));
    }

    if (sics) {
        record.isStable = true; // the letter says it; the formatter is not to mark it as well
    }
    const int layout = printer->GetPrintLayout();
    QString text = format->FormatValue(layout, record, sics);
    if (sics) {
        if (!record.errorText.isEmpty()) {
            text = QStringLiteral("  I\r\n");
        } else {
            text.insert(2, QLatin1Char(wasStable ? 'S' : 'D'));
            if (text.startsWith(QLatin1Char('o'))) {
                text.insert(1, QLatin1Char(' '));
            }
        }
    }
    return printer->PrintLine(text);
}

void PrintItemCurrentMeasurement::setValue()
{
    if (m_source == nullptr) {
        return;
    }
    m_snapshot = *m_source;
    if (m_showPeakhold) {
        m_snapshot.isStable = m_peakholdStable;
        m_snapshot.isGrobRange = m_peakholdCoarseRange;
    }
}

QString PrintItemCurrentMeasurement::getCategory() const
{
    return tr("Measurement");
}

QString PrintItemCurrentMeasurement::getDiscription() const
{
    return getName();
}

void PrintItemCurrentMeasurement::onShowPeakholdChanged(bool show, bool isStable, bool coarseRange)
{
    m_showPeakhold = show;
    m_peakholdStable = isStable;
    m_peakholdCoarseRange = coarseRange;
}

} // namespace Brimvale
