// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TCPPRINTER_H
#define BRIMVALE_TCPPRINTER_H

#include "print/PrintDevice.h"

#include <QByteArray>
#include <QString>
#include <QTcpSocket>
#include <QTimer>

namespace Brimvale
{
namespace Terminal
{

/// A receipt printer in the network that takes ESC/POS on a raw TCP port. There is one connection for each print-out.
///
/// Such a printer answers nothing, so that this is what counts as printed: a block all of whose bytes the printer's
/// network side has acknowledged. The next block is sent only then. When the connection breaks, a block that was not
/// acknowledged is sent again as a whole by the repetition. What is lost in the printer itself, when it is switched
/// off with a block in its memory, only the printer knows.
class TcpPrinter : public PrintDevice
{
    Q_OBJECT

public:
    static constexpr quint16 DefaultPort = 9100;

    TcpPrinter(const QString& host, quint16 port);
    ~TcpPrinter() override;

    QString description() const override;
    void begin(const PrintJob& job, int firstBlock) override;
    void print(const QString& block) override;
    void end() override;
    void cancel() override;

    /// How long connecting may take, and the printer may take nothing. Initially 5 s and 10 s.
    void setTimeouts(int connectMs, int writeMs);

private:
    enum class Step
    {
        Idle, ///< Nothing was asked.
        Connect,
        Write,
        WriteEnd
    };

    void write(const QByteArray& bytes, Step step);
    void watchAcknowledgement();
    quint64 acknowledged() const;
    bool isAcknowledged() const;
    void succeed();
    void closeMonitor();
    void onConnected();
    void onError(QAbstractSocket::SocketError error);
    void onTimeout();
    void fail(const PrintCause& cause);
    QString address() const;

    const QString m_host;
    const quint16 m_port;
    int m_connectMs = 5000;
    int m_writeMs = 10000;
    QTcpSocket m_socket;
    QTimer m_timeout;
    QTimer m_watch;
    Step m_step = Step::Idle;
    int m_monitor = -1;    ///< The connection once more: it can be asked after the socket has closed it.
    bool m_broken = false; ///< Found out while nothing was on its way.
    quint64 m_acknowledgedAtStart = 0;
    quint64 m_written = 0; ///< Bytes, since the connection was made.
    quint64 m_lastAcknowledged = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TCPPRINTER_H
