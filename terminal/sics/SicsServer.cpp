// SPDX-License-Identifier: BSD-3-Clause
#include "sics/SicsServer.h"

#include "sics/SicsScale.h"

#include <QNetworkProxy>
#include <QPointer>
#include <QTcpSocket>

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// So much of a client is taken in in one turn of the event loop, so that none holds up the others or the display.
constexpr qint64 BytesPerTurn = 4096;

/// Below that the operating system hands a port to privileged programs only.
constexpr quint16 FirstFreePort = 1024;

QString peerOf(const QTcpSocket& socket)
{
    SicsAddress peer;
    peer.host = socket.peerAddress();
    peer.port = socket.peerPort();
    return peer.text();
}

} // namespace

SicsServer::SicsServer(SicsScale& scale, Clock& clock, const SicsServerLimits& limits, QObject* parent)
    : QObject(parent)
    , m_scale(scale)
    , m_clock(clock)
    , m_limits(limits)
{
    m_server.setProxy(QNetworkProxy::NoProxy);
    connect(&m_server, &QTcpServer::newConnection, this, &SicsServer::accept);
}

SicsServer::~SicsServer()
{
    // The sockets are the server's children and tell of their end.
    for (const Client& client : qAsConst(m_clients))
        client.socket->disconnect(this);
}

bool SicsServer::listen(const SicsAddress& address, QString* error)
{
    if (m_server.listen(address.host, address.port))
        return true;
    QString mend;
    switch (m_server.serverError()) {
    case QAbstractSocket::AddressInUseError:
        mend = tr("another program uses this port; end it or choose another port");
        break;
    case QAbstractSocket::SocketAccessError:
        mend =
            address.port < FirstFreePort
                ? tr("ports below %1 are for privileged programs; choose one from %1 on").arg(FirstFreePort)
                : tr("the system forbids it; choose another port");
        break;
    case QAbstractSocket::SocketAddressNotAvailableError:
        mend = tr("this computer does not have this address; leave it out to serve this computer only");
        break;
    default:
        mend = m_server.errorString();
        break;
    }
    *error = tr("The SICS server cannot listen on %1: %2.").arg(address.text(), mend);
    return false;
}

SicsAddress SicsServer::address() const
{
    SicsAddress address;
    address.host = m_server.serverAddress();
    address.port = m_server.serverPort();
    return address;
}

int SicsServer::send(const QByteArray& line)
{
    const QVector<Client> clients = m_clients; // Writing may disconnect one.
    for (const Client& client : clients)
        write(client.socket, line);
    return m_clients.size();
}

void SicsServer::accept()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        if (m_clients.size() >= m_limits.clients) {
            report(tr("The SICS client %1 was refused: there are %2 already.")
                       .arg(peerOf(*socket))
                       .arg(m_clients.size()));
            socket->abort();
            socket->deleteLater();
            continue;
        }
        // Not more than a turn is buffered here: the rest waits in the network, which slows the client down.
        socket->setReadBufferSize(BytesPerTurn);
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1); // Finds out that a client has vanished.
        auto* const session = new SicsSession(m_scale, m_clock, m_limits.session, socket);
        m_clients.append({socket, session});
        connect(session, &SicsSession::answered, this,
                [this, socket](const QByteArray& line) { write(socket, line); });
        connect(session, &SicsSession::flooded, this,
                [this, socket] { disconnectClient(socket, tr("it sends more than a client may")); });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { forget(socket); });
        emit clientCountChanged(m_clients.size());
    }
}

void SicsServer::read(QTcpSocket* socket)
{
    for (const Client& client : qAsConst(m_clients)) {
        if (client.socket != socket)
            continue;
        const QByteArray bytes = socket->read(BytesPerTurn);
        if (!bytes.isEmpty())
            client.session->feed(bytes);
        return;
    }
}

void SicsServer::write(QTcpSocket* socket, const QByteArray& line)
{
    const bool known = std::any_of(m_clients.constBegin(), m_clients.constEnd(),
                                   [socket](const Client& client) { return client.socket == socket; });
    if (!known)
        return;
    socket->write(line);
    if (socket->bytesToWrite() > m_limits.unsentBytes)
        disconnectClient(socket, tr("it does not read its answers"));
}

void SicsServer::disconnectClient(QTcpSocket* socket, const QString& why)
{
    const QString peer = peerOf(*socket);
    forget(socket);
    socket->abort();
    report(tr("The SICS client %1 was disconnected: %2.").arg(peer, why));
}

void SicsServer::forget(QTcpSocket* socket)
{
    const auto found = std::find_if(m_clients.begin(), m_clients.end(),
                                    [socket](const Client& client) { return client.socket == socket; });
    if (found == m_clients.end())
        return;
    // Later, since its session may be at work.
    found->session->disconnect(this);
    found->session->deleteLater();
    m_clients.erase(found);
    socket->disconnect(this);
    socket->deleteLater();
    emit clientCountChanged(m_clients.size());
}

void SicsServer::report(const QString& text)
{
    const qint64 nowMs = m_clock.nowMs();
    if (m_reportedMs && nowMs - *m_reportedMs < m_limits.noticePauseMs)
        return;
    m_reportedMs = nowMs;
    emit refused(text);
}

} // namespace Terminal
} // namespace Brimvale
