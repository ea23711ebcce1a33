// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PDFPRINTER_H
#define BRIMVALE_PDFPRINTER_H

#include "print/PrintDevice.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

namespace Brimvale
{
namespace Terminal
{

/// Writes each print-out as a PDF file of A4 pages, with title, time and page number.
///
/// A file appears when it is complete, or not at all. None is ever overwritten: where "report.pdf" exists, the next is
/// "report-2.pdf".
class PdfPrinter : public PrintDevice
{
    Q_OBJECT

public:
    /// @param time what the time is that the pages are to show.
    PdfPrinter(const QString& file, std::function<QDateTime()> time);

    QString description() const override;
    bool printsAsAWhole() const override { return true; }
    void begin(const PrintJob& job, int firstBlock) override;
    void print(const QString& block) override;
    void end() override;
    void cancel() override;

    /// The file that was written last; empty: none was.
    QString lastFile() const { return m_lastFile; }

private:
    QString freeName() const;

    const QString m_file;
    const std::function<QDateTime()> m_time;
    QString m_title;
    int m_columns = PrintJob::DefaultLayout;
    QStringList m_blocks;
    QString m_lastFile;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PDFPRINTER_H
