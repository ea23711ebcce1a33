// SPDX-License-Identifier: BSD-3-Clause
#include "print/TcpPrinter.h"

#include "print/EscPos.h"

#include <QNetworkProxy>

#include <fcntl.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int WatchMs = 5;

} // namespace

TcpPrinter::TcpPrinter(const QString& host, quint16 port)
    : m_host(host)
    , m_port(port)
{
    m_timeout.setSingleShot(true);
    m_watch.setInterval(WatchMs);
    connect(&m_timeout, &QTimer::timeout, this, &TcpPrinter::onTimeout);
    connect(&m_watch, &QTimer::timeout, this, &TcpPrinter::watchAcknowledgement);
    m_socket.setProxy(QNetworkProxy::NoProxy);
    connect(&m_socket, &QTcpSocket::connected, this, &TcpPrinter::onConnected);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &TcpPrinter::onError);
    // Some printers send their state; nobody asked for it.
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] { m_socket.readAll(); });
}

TcpPrinter::~TcpPrinter()
{
    m_socket.disconnect(this);
    closeMonitor();
    m_socket.abort();
}

QString TcpPrinter::address() const
{
    return QStringLiteral("%1:%2").arg(m_host).arg(m_port);
}

QString TcpPrinter::description() const
{
    return tr("Network printer %1").arg(address());
}

void TcpPrinter::setTimeouts(int connectMs, int writeMs)
{
    m_connectMs = connectMs;
    m_writeMs = writeMs;
}

void TcpPrinter::begin(const PrintJob& job, int firstBlock)
{
    Q_UNUSED(job)
    Q_UNUSED(firstBlock)
    cancel();
    m_broken = false;
    m_step = Step::Connect;
    m_timeout.start(m_connectMs);
    m_socket.connectToHost(m_host, m_port);
}

void TcpPrinter::onConnected()
{
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_monitor = fcntl(static_cast<int>(m_socket.socketDescriptor()), F_DUPFD_CLOEXEC, 0);
    m_written = 0;
    m_acknowledgedAtStart = acknowledged();
    write(EscPos::begin(), Step::Write);
}

void TcpPrinter::print(const QString& block)
{
    write(EscPos::encode(PrintJob::text({block})), Step::Write);
}

void TcpPrinter::end()
{
    write(EscPos::end(), Step::WriteEnd);
}

void TcpPrinter::cancel()
{
    m_step = Step::Idle;
    m_timeout.stop();
    m_watch.stop();
    closeMonitor();
    m_socket.abort();
}

void TcpPrinter::write(const QByteArray& bytes, Step step)
{
    m_step = step;
    if (m_broken || m_socket.state() != QAbstractSocket::ConnectedState) {
        fail({staticMetaObject.className(),
              QT_TR_NOOP("The connection to the printer %1 is broken. Switch the printer on and check its "
                         "cable, then "
                         "repeat the print-out."),
              {address()}});
        return;
    }
    m_timeout.start(m_writeMs);
    m_socket.write(bytes);
    m_written += static_cast<quint64>(bytes.size());
    m_lastAcknowledged = acknowledged();
    m_watch.start();
}

/// Bytes that the printer has acknowledged since the connection was made; also known when it is broken.
quint64 TcpPrinter::acknowledged() const
{
    tcp_info info{};
    socklen_t size = sizeof info;
    if (m_monitor < 0 || getsockopt(m_monitor, IPPROTO_TCP, TCP_INFO, &info, &size) != 0)
        return m_acknowledgedAtStart;
    return info.tcpi_bytes_acked;
}

bool TcpPrinter::isAcknowledged() const
{
    return acknowledged() - m_acknowledgedAtStart >= m_written;
}

void TcpPrinter::watchAcknowledgement()
{
    if (isAcknowledged()) {
        succeed();
        return;
    }
    const quint64 now = acknowledged();
    if (now != m_lastAcknowledged)
        m_timeout.start(m_writeMs); // The printer is slow but takes what it gets.
    m_lastAcknowledged = now;
}

void TcpPrinter::succeed()
{
    const bool isEnd = m_step == Step::WriteEnd;
    m_step = Step::Idle;
    m_timeout.stop();
    m_watch.stop();
    if (isEnd) {
        closeMonitor();
        m_socket.disconnectFromHost();
    }
    emit done();
}

void TcpPrinter::closeMonitor()
{
    if (m_monitor >= 0)
        ::close(m_monitor);
    m_monitor = -1;
}

void TcpPrinter::onError(QAbstractSocket::SocketError error)
{
    Q_UNUSED(error)
    const QString reason = m_socket.errorString();
    m_broken = true;
    switch (m_step) {
    case Step::Idle: // What was sent was acknowledged. A break shows at the next write.
        break;
    case Step::Connect:
        fail({staticMetaObject.className(),
              QT_TR_NOOP(
                  "The printer %1 cannot be reached: %2. Switch the printer on, check its cable and the "
                  "address, then repeat the print-out."),
              {address(), reason}});
        break;
    case Step::Write:
    case Step::WriteEnd:
        // What has arrived counts, although the connection broke after it.
        if (isAcknowledged()) {
            succeed();
            break;
        }
        fail(
            {staticMetaObject.className(),
             QT_TR_NOOP(
                 "The connection to the printer %1 is broken: %2. Switch the printer on and check its cable, "
                 "then repeat the print-out."),
             {address(), reason}});
        break;
    }
}

void TcpPrinter::onTimeout()
{
    if (m_step == Step::Connect)
        fail({staticMetaObject.className(),
              QT_TR_NOOP("The printer %1 does not answer. Switch the printer on, check its cable and the "
                         "address, then "
                         "repeat the print-out."),
              {address()}});
    else if (m_step != Step::Idle)
        fail(
            {staticMetaObject.className(),
             QT_TR_NOOP(
                 "The printer %1 takes no more data. Check its paper and that it is switched on, then repeat "
                 "the print-out."),
             {address()}});
}

void TcpPrinter::fail(const PrintCause& cause)
{
    cancel();
    emit failed(cause);
}

} // namespace Terminal
} // namespace Brimvale
