// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TCPSOURCE_H
#define BRIMVALE_TCPSOURCE_H

#include "source/LineSource.h"

#include <QTcpSocket>

#include <memory>

namespace Brimvale
{
namespace Terminal
{

/// A scale behind a network socket: the terminal connects to it. Proxy settings are not used.
class TcpSource : public LineSource
{
    Q_OBJECT

public:
    /// @param clock stamps the readings; not owned, must outlive the source.
    /// @param host  a name or an address (an IPv6 address without brackets).
    TcpSource(Clock& clock, const QString& host, quint16 port, const LineSourceSettings& settings = {},
              QObject* parent = nullptr);
    ~TcpSource() override;

    QString description() const override;

protected:
    void openConnection() override;
    void closeConnection() override;
    void send(const QByteArray& bytes) override;

private:
    const QString m_host;
    const quint16 m_port;
    std::unique_ptr<QTcpSocket> m_socket; ///< Of the present connection or attempt.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TCPSOURCE_H
