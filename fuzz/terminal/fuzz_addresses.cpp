// SPDX-License-Identifier: BSD-3-Clause
//
// What the command line names: sources of weights, printers, addresses, readabilities.
#include "Fuzzing.h"
#include "measuring/Readability.h"
#include "print/PrinterSpec.h"
#include "sics/SicsAddress.h"
#include "source/SourceSpec.h"

using namespace Brimvale::Terminal;

namespace
{

void checkSource(const QString& text)
{
    QString error;
    const std::optional<SourceSpec> spec = SourceSpec::parse(text, &error);
    REQUIRE(spec.has_value() == error.isEmpty());
    if (!spec) {
        REQUIRE(error.contains(text) && error.contains(QLatin1String("Write ")));
        return;
    }
    QString again;
    switch (spec->kind) {
    case SourceSpec::Kind::Simulated:
        again = QStringLiteral("sim:");
        break;
    case SourceSpec::Kind::Trace:
        REQUIRE(!spec->file.isEmpty());
        again = QStringLiteral("trace:") + spec->file;
        break;
    case SourceSpec::Kind::Tcp:
        REQUIRE(!spec->host.isEmpty() && spec->port > 0);
        again = (spec->host.contains(QLatin1Char(':')) ? QStringLiteral("tcp:[%1]:%2")
                                                       : QStringLiteral("tcp:%1:%2"))
                    .arg(spec->host, QString::number(spec->port));
        break;
    case SourceSpec::Kind::Serial:
        REQUIRE(!spec->device.isEmpty() && spec->baud > 0);
        again = QStringLiteral("serial:%1,%2").arg(spec->device, QString::number(spec->baud));
    }
    const std::optional<SourceSpec> read = SourceSpec::parse(again, &error);
    REQUIRE(read && read->kind == spec->kind && read->file == spec->file && read->host == spec->host
            && read->port == spec->port && read->device == spec->device && read->baud == spec->baud);
}

void checkPrinter(const QString& text)
{
    QString error;
    const std::optional<PrinterSpec> spec = PrinterSpec::parse(text, &error);
    REQUIRE(spec.has_value() == error.isEmpty());
    if (!spec) {
        REQUIRE(error.startsWith(text + QStringLiteral(": ")));
        return;
    }
    REQUIRE(spec->path.isEmpty()
            == (spec->kind != PrinterSpec::Kind::File && spec->kind != PrinterSpec::Kind::Pdf));
    REQUIRE(spec->host.isEmpty() == (spec->kind != PrinterSpec::Kind::Tcp));
    if (spec->kind == PrinterSpec::Kind::Tcp) {
        REQUIRE(spec->port > 0);
        const QString again = (spec->host.contains(QLatin1Char(':')) ? QStringLiteral("tcp:[%1]:%2")
                                                                     : QStringLiteral("tcp:%1:%2"))
                                  .arg(spec->host, QString::number(spec->port));
        const std::optional<PrinterSpec> read = PrinterSpec::parse(again, &error);
        REQUIRE(read && read->host == spec->host && read->port == spec->port);
    }
}

void checkAddress(const QString& text)
{
    QString error;
    const std::optional<SicsAddress> address = SicsAddress::parse(text, &error);
    REQUIRE(address.has_value() == error.isEmpty());
    if (address) {
        const std::optional<SicsAddress> again = SicsAddress::parse(address->text(), &error);
        REQUIRE(again && again->host == address->host && again->port == address->port);
    }
}

void checkReadability(const QString& text)
{
    QString error;
    const std::optional<Readability> readability = Readability::parse(text, &error);
    REQUIRE(readability.has_value() == error.isEmpty());
    if (!readability) {
        REQUIRE(error.contains(QLatin1Char('"') + text + QLatin1Char('"')));
        return;
    }
    const QString again = readability->format(readability->incrementDigits());
    REQUIRE(Readability::parse(again) == readability);
    REQUIRE(Readability::fromGrams(readability->grams()) == readability);
    REQUIRE(readability->round(readability->grams()) == readability->incrementDigits());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = Fuzzing::textOf(Fuzzing::Input(data, size).rest());
    checkSource(text);
    checkPrinter(text);
    checkAddress(text);
    checkReadability(text);
    return 0;
}
