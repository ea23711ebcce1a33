// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FILEPRINTER_H
#define BRIMVALE_FILEPRINTER_H

#include "print/PrintDevice.h"

#include <QByteArray>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// Writes print-outs to the end of a text file, in UTF-8, lines ended by '\n', an empty line after each print-out.
///
/// A block is on the disk before it counts as printed. When writing fails, what was written of the block is taken back.
/// The file is opened for every block, so that it may be moved away at any time.
class FilePrinter : public PrintDevice
{
    Q_OBJECT

public:
    explicit FilePrinter(const QString& file);

    QString description() const override;
    void begin(const PrintJob& job, int firstBlock) override;
    void print(const QString& block) override;
    void end() override;
    void cancel() override { }

private:
    void append(const QByteArray& bytes);

    const QString m_file;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_FILEPRINTER_H
