// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSADDRESS_H
#define BRIMVALE_SICSADDRESS_H

#include <QHostAddress>
#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// Where the SICS server listens, as the command line names it: `PORT` for connections from this computer only,
/// `ADDRESS:PORT` for one of its addresses, `0.0.0.0:PORT` for all. An IPv6 address stands in brackets
/// (`[::1]:4001`). Port 0 is any free one.
struct SicsAddress
{
    /// Reads @p text. On failure nothing is returned and @p error tells what is wrong and what is right.
    static std::optional<SicsAddress> parse(const QString& text, QString* error);

    /// `127.0.0.1:4001`, `[::1]:4001`.
    QString text() const;

    QHostAddress host = QHostAddress(QHostAddress::LocalHost);
    quint16 port = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSADDRESS_H
