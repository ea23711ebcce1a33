// SPDX-License-Identifier: BSD-3-Clause
#include "source/SourceSpec.h"

#include "source/SerialSource.h"
#include "source/TcpSource.h"
#include "source/TraceFile.h"
#include "source/TraceSource.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int MaximumBaud = 4000000;

/// The messages, for translation.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SourceSpec)
};

/// Digits only, within the range.
std::optional<int> wholeNumber(const QString& digits, int minimum, int maximum)
{
    for (const QChar character : digits) {
        if (character < QLatin1Char('0') || character > QLatin1Char('9'))
            return std::nullopt;
    }
    bool ok = false;
    const int number = digits.toInt(&ok);
    return ok && number >= minimum && number <= maximum ? std::optional<int>(number) : std::nullopt;
}

/// What is wrong with the part behind "tcp:"; empty when nothing is.
QString parseTcp(const QString& rest, SourceSpec& spec)
{
    QString port;
    if (rest.startsWith(QLatin1Char('['))) {
        const int end = rest.indexOf(QLatin1Char(']'));
        if (end < 0)
            return Texts::tr("the bracket before the IPv6 address is not closed");
        spec.host = rest.mid(1, end - 1);
        if (rest.mid(end + 1, 1) != QLatin1String(":"))
            return Texts::tr("the port is missing");
        port = rest.mid(end + 2);
        if (!spec.host.contains(QLatin1Char(':')))
            return Texts::tr("what stands in brackets is not an IPv6 address");
    } else {
        const int colon = rest.lastIndexOf(QLatin1Char(':'));
        if (colon < 0)
            return Texts::tr("the port is missing");
        spec.host = rest.left(colon);
        port = rest.mid(colon + 1);
        if (spec.host.contains(QLatin1Char(':')))
            return Texts::tr("an IPv6 address must stand in brackets");
    }
    if (spec.host.isEmpty())
        return Texts::tr("the host is missing");
    for (const QChar character : qAsConst(spec.host)) {
        if (character.isSpace() || character == QLatin1Char('/'))
            return Texts::tr("\"%1\" is no host name or address").arg(spec.host);
    }
    if (port.isEmpty())
        return Texts::tr("the port is missing");
    const std::optional<int> number = wholeNumber(port, 1, 65535);
    if (!number)
        return Texts::tr("\"%1\" is no port; a port is a number from 1 to 65535").arg(port);
    spec.port = static_cast<quint16>(*number);
    return QString();
}

/// What is wrong with the part behind "serial:"; empty when nothing is.
QString parseSerial(const QString& rest, SourceSpec& spec)
{
    const int comma = rest.lastIndexOf(QLatin1Char(','));
    spec.device = comma < 0 ? rest : rest.left(comma);
    spec.baud = SerialSource::DefaultBaud;
    if (spec.device.isEmpty())
        return Texts::tr("the device is missing");
    if (comma >= 0) {
        const QString baud = rest.mid(comma + 1);
        const std::optional<int> number = wholeNumber(baud, 1, MaximumBaud);
        if (!number)
            return Texts::tr("\"%1\" is no baud rate; a baud rate is a number from 1 to %2")
                .arg(baud, QString::number(MaximumBaud));
        spec.baud = *number;
    }
    return QString();
}

} // namespace

std::optional<SourceSpec> SourceSpec::parse(const QString& specText, QString* error)
{
    const int colon = specText.indexOf(QLatin1Char(':'));
    const QString kindText = specText.left(colon);
    const QString rest = colon < 0 ? QString() : specText.mid(colon + 1);
    SourceSpec spec;
    QString wrong;
    QString right;
    if (colon >= 0 && kindText == QLatin1String("sim")) {
        spec.kind = Kind::Simulated;
        right = QStringLiteral("sim:");
        if (!rest.isEmpty())
            wrong = Texts::tr("nothing may follow \"sim:\"");
    } else if (colon >= 0 && kindText == QLatin1String("trace")) {
        spec.kind = Kind::Trace;
        spec.file = rest;
        right = QStringLiteral("trace:FILE");
        if (rest.isEmpty())
            wrong = Texts::tr("the file is missing");
    } else if (colon >= 0 && kindText == QLatin1String("tcp")) {
        spec.kind = Kind::Tcp;
        right = QStringLiteral("tcp:HOST:PORT, tcp:[IPV6]:PORT");
        wrong = parseTcp(rest, spec);
    } else if (colon >= 0 && kindText == QLatin1String("serial")) {
        spec.kind = Kind::Serial;
        right = QStringLiteral("serial:DEV, serial:DEV,BAUD");
        wrong = parseSerial(rest, spec);
    } else {
        right = QStringLiteral("sim:, trace:FILE, tcp:HOST:PORT, serial:DEV[,BAUD]");
        wrong = Texts::tr("this kind of weight source does not exist");
    }
    if (wrong.isEmpty())
        return spec;
    if (error)
        *error = Texts::tr("Weight source \"%1\": %2. Write %3.").arg(specText, wrong, right);
    return std::nullopt;
}

std::unique_ptr<WeightSource> createSource(const SourceSpec& spec, Clock& clock, const SourceOptions& options,
                                           QString* error)
{
    switch (spec.kind) {
    case SourceSpec::Kind::Simulated: {
        SimulationSettings settings = options.simulation;
        if (options.readability)
            settings.readability = *options.readability;
        return std::make_unique<SimulatedSource>(clock, settings);
    }
    case SourceSpec::Kind::Trace: {
        const std::optional<TraceFile> trace = TraceFile::load(spec.file, error);
        if (!trace)
            return nullptr;
        const std::optional<Readability> readability =
            options.readability ? options.readability : TraceSource::readabilityOf(*trace);
        if (!readability) {
            if (error) {
                *error =
                    QStringLiteral("%1:%2: %3")
                        .arg(spec.file, QString::number(trace->decimalsLine()),
                             Texts::tr(
                                 "the weight has %1 decimal places, and at most %2 can be shown; round the "
                                 "weights or give a readability.")
                                 .arg(trace->decimals())
                                 .arg(Readability::MaximumDecimals));
            }
            return nullptr;
        }
        return std::make_unique<TraceSource>(clock, *trace, QFileInfo(spec.file).fileName(), *readability);
    }
    case SourceSpec::Kind::Tcp:
    case SourceSpec::Kind::Serial: {
        const QString fault =
            spec.kind == SourceSpec::Kind::Serial ? SerialSource::faultOf(spec.device) : QString();
        if (!fault.isEmpty()) {
            if (error)
                *error = Texts::tr("Weight source \"serial:%1\": %2. Give a device such as /dev/ttyUSB0.")
                             .arg(spec.device, fault);
            return nullptr;
        }
        LineSourceSettings settings = options.lines;
        if (options.readability)
            settings.readability = options.readability;
        if (spec.kind == SourceSpec::Kind::Tcp)
            return std::make_unique<TcpSource>(clock, spec.host, spec.port, settings);
        return std::make_unique<SerialSource>(clock, spec.device, spec.baud, settings);
    }
    }
    return nullptr;
}

} // namespace Terminal
} // namespace Brimvale
