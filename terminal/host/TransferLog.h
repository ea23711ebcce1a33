// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRANSFERLOG_H
#define BRIMVALE_TRANSFERLOG_H

#include "host/TransferTarget.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// The output that writes every measurement as a line of comma-separated values to a file or to standard
/// output:
///
///     time,value,unit,state,kind,gross,tare,error
///     2026-01-01T08:00:05.200Z,36.4,g,stable,net,100.0,63.6,
///
/// `state` is "stable" or "unstable", `kind` is "net" or "gross". A reading without a weight has an empty
/// value and its error. A text with a comma, quote or line break is quoted, quotes in it doubled. A new or
/// empty file begins with the line of names; an existing one is continued. Every line is written out at once, and whole or
/// not at all. A line that cannot be written is kept and written before the next one; what is still unwritten at the end
/// goes into the log.
class TransferLog : public TransferOutput
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::TransferLog)

public:
    /// @param file name of the file; "-" is standard output. With one that cannot be opened the output is
    ///             inactive, and error() tells why.
    explicit TransferLog(const QString& file);
    ~TransferLog() override;
    Q_DISABLE_COPY(TransferLog)

    bool isActive() const override;
    bool write(const TransferRecord& record) override;
    QString error() const override { return m_error; }

private:
    bool flush();

    QString m_file;
    bool m_isActive = false;
    QByteArrayList m_unwritten;
    QString m_error;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TRANSFERLOG_H
