// SPDX-License-Identifier: BSD-3-Clause
#include "source/TcpSource.h"

#include <QNetworkProxy>

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
}

TcpSource::~TcpSource() = default;

QString TcpSource::description() const
{
    return tr("Scale at %1, port %2").arg(m_host, QString::number(m_port));
}

void TcpSource::openConnection()
{
    m_socket = std::make_unique<QTcpSocket>();
    QTcpSocket* const socket = m_socket.get();
    socket->setProxy(QNetworkProxy::NoProxy);
    socket->setReadBufferSize(ReadBufferSize);
    // Queued, so that whoever is told may end the connection or delete the source: a socket does not bear
    // that from inside its own signals.
    connect(
        socket, &QTcpSocket::connected, socket, [this] { connectionOpened(); }, Qt::QueuedConnection);
    connect(
        socket, &QTcpSocket::readyRead, socket, [this] { received(m_socket->readAll()); },
        Qt::QueuedConnection);
    connect(
        socket, &QTcpSocket::errorOccurred, socket, [this] { connectionLost(m_socket->errorString()); },
        Qt::QueuedConnection);
    socket->connectToHost(m_host, m_port);
}

void TcpSource::closeConnection()
{
    m_socket.reset();
}

void TcpSource::send(const QByteArray& bytes)
{
    m_socket->write(bytes);
}

} // namespace Terminal
} // namespace Brimvale
