// SPDX-License-Identifier: BSD-3-Clause
#include "print/PrinterSpec.h"

#include "print/TcpPrinter.h"

namespace Brimvale
{
namespace Terminal
{
namespace
{

bool parseAddress(const QString& text, PrinterSpec* spec, QString* error)
{
    QString port;
    const QString inBrackets = QStringLiteral("an IPv6 address stands in brackets, such as tcp:[::1]:9100");
    if (text.startsWith(QLatin1Char('['))) {
        const int end = text.indexOf(QLatin1Char(']'));
        spec->host = text.mid(1, end - 1);
        if (end < 0 || !spec->host.contains(QLatin1Char(':'))) {
            *error = inBrackets;
            return false;
        }
        port = text.mid(end + 1);
    } else {
        const int colon = text.lastIndexOf(QLatin1Char(':'));
        spec->host = text.left(colon);
        port = colon < 0 ? QString() : text.mid(colon);
        if (spec->host.contains(QLatin1Char(':'))) {
            *error = inBrackets;
            return false;
        }
    }
    if (spec->host.isEmpty()) {
        *error = QStringLiteral("the host is missing; write tcp:HOST or tcp:HOST:PORT");
        return false;
    }
    if (port.isEmpty()) {
        spec->port = TcpPrinter::DefaultPort;
        return true;
    }
    bool ok = false;
    const uint number = port.midRef(1).toUInt(&ok);
    ok = ok && port.startsWith(QLatin1Char(':')) && number >= 1 && number <= 65535;
    if (!ok)
        *error = QStringLiteral("the port is a number from 1 to 65535, such as tcp:HOST:9100");
    spec->port = static_cast<quint16>(number);
    return ok;
}

} // namespace

std::optional<PrinterSpec> PrinterSpec::parse(const QString& text, QString* error)
{
    const QString fault = text + QStringLiteral(": ");
    PrinterSpec spec;
    if (text == QLatin1String("roll"))
        return spec;
    if (text == QLatin1String("none")) {
        spec.kind = Kind::None;
        return spec;
    }
    const QString value = text.section(QLatin1Char(':'), 1);
    if (text.startsWith(QLatin1String("file:"))) {
        spec.kind = Kind::File;
        spec.path = value;
        if (!value.isEmpty())
            return spec;
        *error = fault + QStringLiteral("the name of the file is missing; write file:PATH");
    } else if (text.startsWith(QLatin1String("pdf:"))) {
        spec.kind = Kind::Pdf;
        spec.path = value;
        if (value.size() > 4 && value.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
            return spec;
        *error = fault + QStringLiteral("give a name that ends with .pdf, such as pdf:report.pdf");
    } else if (text.startsWith(QLatin1String("tcp:"))) {
        spec.kind = Kind::Tcp;
        QString addressFault;
        if (parseAddress(value, &spec, &addressFault))
            return spec;
        *error = fault + addressFault;
    } else {
        *error = fault + QStringLiteral("give roll, file:PATH, pdf:PATH, tcp:HOST[:PORT] or none");
    }
    return std::nullopt;
}

} // namespace Terminal
} // namespace Brimvale
