// SPDX-License-Identifier: BSD-3-Clause
#include "sics/SicsAddress.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{
namespace
{

std::optional<quint16> portOf(const QString& text)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    });
    bool ok = false;
    const uint number = text.toUInt(&ok);
    return digits && ok && number <= 65535 ? std::optional<quint16>(static_cast<quint16>(number))
                                           : std::nullopt;
}

/// An address as it is written in full: QHostAddress would also take "1" for one.
std::optional<QHostAddress> hostOf(QString text)
{
    if (text == QLatin1String("localhost"))
        return QHostAddress(QHostAddress::LocalHost);
    const bool brackets = text.startsWith(QLatin1Char('[')) && text.endsWith(QLatin1Char(']'));
    if (brackets)
        text = text.mid(1, text.size() - 2);
    QHostAddress address(text);
    if (address.isNull() || brackets != (address.protocol() == QAbstractSocket::IPv6Protocol))
        return std::nullopt;
    if (!brackets && text.count(QLatin1Char('.')) != 3)
        return std::nullopt;
    return address;
}

} // namespace

std::optional<SicsAddress> SicsAddress::parse(const QString& text, QString* error)
{
    SicsAddress address;
    const int colon = text.endsWith(QLatin1Char(']')) ? -1 : text.lastIndexOf(QLatin1Char(':'));
    const QString portText = text.mid(colon + 1);
    const std::optional<quint16> port = portOf(portText);
    if (portText.isEmpty() || !port) {
        *error = QStringLiteral("\"%1\" is no port; a port is a number from 0 (any free one) to 65535")
                     .arg(portText);
        return std::nullopt;
    }
    address.port = *port;
    if (colon >= 0) {
        const std::optional<QHostAddress> host = hostOf(text.left(colon));
        if (!host) {
            *error = QStringLiteral("\"%1\" is no address of this computer; write 127.0.0.1:%2, [::1]:%2, or "
                                    "0.0.0.0:%2 to listen on all addresses")
                         .arg(text.left(colon), portText);
            return std::nullopt;
        }
        address.host = *host;
    }
    return address;
}

QString SicsAddress::text() const
{
    const QString hostText = host.toString();
    const bool ipv6 = host.protocol() == QAbstractSocket::IPv6Protocol;
    return (ipv6 ? QLatin1Char('[') + hostText + QLatin1Char(']') : hostText) + QLatin1Char(':')
           + QString::number(port);
}

} // namespace Terminal
} // namespace Brimvale
