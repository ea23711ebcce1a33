// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTERSPEC_H
#define BRIMVALE_PRINTERSPEC_H

#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// Which printer the terminal has, as the command line says it.
struct PrinterSpec
{
    enum class Kind
    {
        Roll, ///< The paper roll on the bench.
        File, ///< path: a text file.
        Pdf,  ///< path: a PDF file.
        Tcp,  ///< host, port.
        None
    };

    Kind kind = Kind::Roll;
    QString path;
    QString host; ///< An IPv6 address without brackets.
    quint16 port = 0;

    /// Reads "roll", "file:PATH", "pdf:PATH", "tcp:HOST[:PORT]" or "none". An IPv6 address stands in brackets before a
    /// port. On failure nothing is returned and @p error tells what is wrong and what is right.
    static std::optional<PrinterSpec> parse(const QString& text, QString* error);
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PRINTERSPEC_H
