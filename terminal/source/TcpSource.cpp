// SPDX-License-Identifier: BSD-3-Clause
#include "source/TcpSource.h"

#include <QNetworkProxy>
#include <QPointer>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// More than that waits in the network, which slows a peer down that floods us.
constexpr qint64 ReadBufferSize = 1 << 20;

} // namespace

TcpSource::TcpSource(Clock& clock, const QString& host, quint16 port, const LineSourceSettings& settings,
                     QObject* parent)
    : LineSource(clock, settings, parent)
    , m_host(host)
    , m_port(port)
{
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(ReadBufferSize);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
        connectionOpened();
    });
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] { received(m_socket.readAll()); });
    connect(&m_socket, &QTcpSocket::errorOccurred, this, [this] {
        const QString detail = m_socket.errorString();
        const QPointer<TcpSource> self(this);
        received(m_socket.readAll()); // What the peer sent before it went away.
        if (self)
            connectionLost(detail);
    });
}

TcpSource::~TcpSource()
{
    m_socket.disconnect(this);
}

QString TcpSource::description() const
{
    return tr("Scale at %1, port %2").arg(m_host, QString::number(m_port));
}

void TcpSource::openConnection()
{
    m_socket.connectToHost(m_host, m_port);
}

void TcpSource::closeConnection()
{
    m_socket.abort();
}

void TcpSource::send(const QByteArray& bytes)
{
    m_socket.write(bytes);
}

} // namespace Terminal
} // namespace Brimvale
