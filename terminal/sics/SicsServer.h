// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSSERVER_H
#define BRIMVALE_SICSSERVER_H

#include "clock/Clock.h"
#include "sics/SicsAddress.h"
#include "sics/SicsSession.h"

#include <QObject>
#include <QTcpServer>
#include <QVector>

class QTcpSocket;

namespace Brimvale
{
namespace Terminal
{

/// What the server allows.
struct SicsServerLimits
{
    int clients = 32;                          ///< More connections are refused.
    qint64 unsentBytes = Q_INT64_C(64) * 1024; ///< A client that leaves more answers unread is disconnected.
    int noticePauseMs = 10000;                 ///< Time of the clock between two refused() signals.
    SicsLimits session;
};

/// Answers SICS commands of connected computers; see SicsSession. It works on the thread of the event loop and never
/// waits for a client. A client that floods or does not read its answers is disconnected, since nothing else ends
/// what it costs.
class SicsServer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SicsServer)

public:
    /// @param scale, clock not owned; they must outlive the server.
    SicsServer(SicsScale& scale, Clock& clock, const SicsServerLimits& limits = {},
               QObject* parent = nullptr);
    ~SicsServer() override;

    /// Begins to listen. On failure @p error tells why and what to do about it.
    bool listen(const SicsAddress& address, QString* error);

    /// Where it listens; the port is the true one where 0 was asked for.
    SicsAddress address() const;

    int clientCount() const { return m_clients.size(); }

    /// Sends a line to all clients; CR LF included. Returns to how many.
    int send(const QByteArray& line);

signals:
    void clientCountChanged(int count);
    /// A client was refused or disconnected; @p text tells which and why. Not every one when there are many.
    void refused(const QString& text);

private:
    struct Client
    {
        QTcpSocket* socket;
        SicsSession* session;
    };

    void accept();
    void read(QTcpSocket* socket);
    void write(QTcpSocket* socket, const QByteArray& line);
    void disconnectClient(QTcpSocket* socket, const QString& why);
    void forget(QTcpSocket* socket);
    void report(const QString& text);

    SicsScale& m_scale;
    Clock& m_clock;
    const SicsServerLimits m_limits;
    QTcpServer m_server;
    QVector<Client> m_clients;
    std::optional<qint64> m_reportedMs; ///< When refused() came last.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSSERVER_H
