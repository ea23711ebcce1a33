// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LINESOURCE_H
#define BRIMVALE_LINESOURCE_H

#include "clock/Clock.h"
#include "source/SicsLineParser.h"
#include "source/WeightSource.h"

#include <QByteArray>
#include <QTimer>

namespace Brimvale
{
namespace Terminal
{

/// How a source deals with its scale. The times are real time, in milliseconds.
struct LineSourceSettings
{
    int connectTimeoutMs = 5000;   ///< A connection that takes longer is given up and tried again.
    int stallMs = 3000;            ///< No weight line for so long: the reading becomes Disconnected.
    int stallsBeforeReconnect = 3; ///< After so many stalls in a row the connection is made anew.
    int firstRetryMs = 500;        ///< Wait before the first new attempt; doubled after each that fails ...
    int maximumRetryMs = 5000;     ///< ... up to this. A weight line begins it anew.
    int maximumLinesPerTurn =
        SicsLineParser::DefaultMaximumLines; ///< Of a flood only the newest lines are read.

    /// Sent when the connection stands and again after every stall: asks the scale to send its weights
    /// continuously. A scale that sends of its own accord may ignore it or answer with an error. Empty:
    /// nothing is sent.
    QByteArray request = QByteArrayLiteral("SIR\r\n");

    std::optional<Readability> readability; ///< Instead of the one that the lines tell.
};

/// A scale that sends SICS weight lines over some connection; the connection itself is the derived class's.
///
/// It never blocks. A connection that fails or goes away is reported at once (reading() with Disconnected)
/// and made again after a wait that grows; a line that cannot be read is a reading that is Unreadable;
/// silence is Disconnected until the next weight line. Every line is a reading, up to maximumLinesPerTurn for
/// one turn of the event loop.
class LineSource : public WeightSource
{
    Q_OBJECT

public:
    ~LineSource() override;

    void start() override;
    void stop() override;
    double readability() const override;
    bool isLive() const override { return true; }

    /// True while the connection stands and weight lines arrive.
    bool isConnected() const { return m_connected; }

    /// Lines that were left out because too many came at once.
    quint64 droppedLines() const { return m_parser.droppedLines(); }

    const LineSourceSettings& settings() const { return m_settings; }

protected:
    LineSource(Clock& clock, const LineSourceSettings& settings, QObject* parent);

    /// Begins to connect; ends in connectionOpened() or connectionLost(), also when it fails at once.
    virtual void openConnection() = 0;
    /// Ends the connection or the attempt, silently.
    virtual void closeConnection() = 0;
    /// Sends @p bytes without waiting.
    virtual void send(const QByteArray& bytes) = 0;

    void connectionOpened();
    void connectionLost(const QString& detail);
    void received(const QByteArray& bytes);

private:
    void attempt();
    void endConnection();
    void stalled();
    void deliver(const SicsLine& line);
    void reportDisconnected(const QString& detail);

    Clock& m_clock;
    const LineSourceSettings m_settings;
    SicsLineParser m_parser;
    std::optional<Readability> m_readability;
    QTimer m_connectTimer;
    QTimer m_stallTimer;
    QTimer m_graceTimer; ///< From the end of m_stallTimer on.
    QTimer m_retryTimer;
    int m_retryMs;
    int m_stalls = 0; ///< Since the last weight line.
    bool m_running = false;
    bool m_open = false;         ///< The connection stands.
    bool m_connected = false;    ///< ... and weight lines arrive.
    bool m_bytesArrived = false; ///< Something came since the last weight line.
    QString m_lastDetail;     ///< Of the last Disconnected reading; null when another reading came after it.
    quint64 m_connection = 0; ///< Counts ended connections, so that a delivery notices one.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LINESOURCE_H
