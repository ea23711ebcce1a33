// SPDX-License-Identifier: BSD-3-Clause
#include "print/SicsPrinter.h"

#include <utility>

namespace Brimvale
{
namespace Terminal
{

SicsPrinter::SicsPrinter(SicsAnswerSink sink)
    : m_sink(std::move(sink))
{
}

QString SicsPrinter::description() const
{
    return tr("SICS output");
}

void SicsPrinter::begin(const PrintJob& job, int firstBlock)
{
    Q_UNUSED(job)
    Q_UNUSED(firstBlock)
    emit done();
}

void SicsPrinter::print(const QString& block)
{
    // What is no ASCII becomes '?' in Latin-1 or is one character of it; lines end with CR LF.
    QString lines = PrintJob::text({block});
    lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    if (m_sink && m_sink(lines.toLatin1()) > 0)
        emit done();
    else
        emit failed(
            {staticMetaObject.className(),
             QT_TR_NOOP(
                 "No computer is connected to the SICS port. Connect one, then repeat the print-out.")});
}

void SicsPrinter::end()
{
    emit done();
}

} // namespace Terminal
} // namespace Brimvale
