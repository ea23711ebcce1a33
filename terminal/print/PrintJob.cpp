// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrintJob.h"

#include <QRegularExpression>

namespace Brimvale
{
namespace Terminal
{

PrintJob::PrintJob(const QString& title, int layout, PrintFormat format)
    : m_title(title)
    , m_layout(layout)
    , m_format(format)
{
}

bool PrintJob::PrintLine(const QString& text)
{
    if (text.size() > MaximumCharacters - m_characters)
        return false;
    if (text.isEmpty())
        return true;
    QString block = text;
    if (m_format == PrintFormat::Sics) {
        static const QRegularExpression answer(QStringLiteral("^  [SDI][ \\r\\n]"));
        if (answer.match(block).hasMatch())
            block[0] = QLatin1Char('S');
    }
    m_blocks.append(block);
    m_characters += block.size();
    return true;
}

QString PrintJob::text(const QStringList& blocks)
{
    QString text;
    for (QString block : blocks) {
        block.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        text += block;
        if (!block.endsWith(QLatin1Char('\n')))
            text += QLatin1Char('\n');
    }
    return text;
}

} // namespace Terminal
} // namespace Brimvale
