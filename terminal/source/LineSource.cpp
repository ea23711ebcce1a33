// SPDX-License-Identifier: BSD-3-Clause
#include "source/LineSource.h"

#include <QPointer>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// After the time of a stall, so much is waited for what has arrived but not been read yet: when the event
/// loop was kept busy, timers may run before sockets.
constexpr int GraceMs = 20;

} // namespace

LineSource::LineSource(Clock& clock, const LineSourceSettings& settings, QObject* parent)
    : WeightSource(parent)
    , m_clock(clock)
    , m_settings(settings)
    , m_parser(settings.maximumLinesPerTurn)
    , m_readability(settings.readability)
    , m_retryMs(settings.firstRetryMs)
{
    for (QTimer* timer : {&m_connectTimer, &m_stallTimer, &m_graceTimer, &m_retryTimer})
        timer->setSingleShot(true);
    m_connectTimer.setInterval(m_settings.connectTimeoutMs);
    m_stallTimer.setInterval(m_settings.stallMs);
    m_graceTimer.setInterval(GraceMs);
    connect(&m_connectTimer, &QTimer::timeout, this, [this] {
        connectionLost(tr("No answer within %1 s.").arg(m_settings.connectTimeoutMs / 1000.0));
    });
    connect(&m_stallTimer, &QTimer::timeout, this, [this] { m_graceTimer.start(); });
    connect(&m_graceTimer, &QTimer::timeout, this, &LineSource::stalled);
    connect(&m_retryTimer, &QTimer::timeout, this, &LineSource::attempt);
}

LineSource::~LineSource() = default;

void LineSource::start()
{
    if (m_running)
        return;
    m_running = true;
    m_connected = false;
    m_retryMs = m_settings.firstRetryMs;
    m_lastDetail.clear();
    attempt();
}

void LineSource::stop()
{
    if (!m_running)
        return;
    m_running = false;
    m_connected = false;
    endConnection();
    m_retryTimer.stop();
}

double LineSource::readability() const
{
    return m_readability ? m_readability->grams() : 0.0;
}

void LineSource::attempt()
{
    m_parser.reset();
    m_stalls = 0;
    m_bytesArrived = false;
    m_connectTimer.start();
    openConnection();
}

void LineSource::endConnection()
{
    ++m_connection;
    m_open = false;
    m_connectTimer.stop();
    m_stallTimer.stop();
    m_graceTimer.stop();
    closeConnection();
}

void LineSource::connectionOpened()
{
    if (!m_running)
        return;
    m_connectTimer.stop();
    m_stallTimer.start();
    m_open = true;
    if (!m_settings.request.isEmpty())
        send(m_settings.request);
}

void LineSource::connectionLost(const QString& detail)
{
    if (!m_running)
        return;
    endConnection();
    m_retryTimer.start(m_retryMs);
    m_retryMs = qMin(2 * m_retryMs, m_settings.maximumRetryMs);
    reportDisconnected(detail);
}

void LineSource::received(const QByteArray& bytes)
{
    if (!m_running || !m_open || bytes.isEmpty())
        return;
    m_bytesArrived = true;
    const QVector<SicsLine> lines = m_parser.feed(bytes);
    const quint64 connection = m_connection;
    const QPointer<LineSource> self(this);
    for (const SicsLine& line : lines) {
        if (line.kind == SicsLine::Kind::Answer)
            continue;
        deliver(line);
        if (!self || connection != m_connection)
            return;
    }
}

void LineSource::deliver(const SicsLine& line)
{
    m_graceTimer.stop();
    m_stallTimer.start();
    m_stalls = 0;
    m_bytesArrived = false;
    m_retryMs = m_settings.firstRetryMs;
    m_lastDetail.clear();

    const quint64 connection = m_connection;
    const QPointer<LineSource> self(this);
    if (!m_connected) {
        m_connected = true;
        emit connectionChanged(true, description());
        if (!self || connection != m_connection)
            return;
    }
    if (line.readability && !m_settings.readability
        && (!m_readability || line.readability->grams() < m_readability->grams())) {
        m_readability = line.readability;
        emit readabilityChanged(m_readability->grams());
        if (!self || connection != m_connection)
            return;
    }
    if (line.status == Reading::Status::Valid)
        emit reading(Reading::valid(m_clock.nowMs(), line.grams, line.stable));
    else
        emit reading(Reading::invalid(m_clock.nowMs(), line.status, line.detail));
}

void LineSource::stalled()
{
    const QString detail =
        m_bytesArrived ? tr("What arrives has no weight line for %1 s; check the scale's interface settings.")
                       : tr("No data for %1 s.");
    ++m_stalls;
    if (m_stalls >= m_settings.stallsBeforeReconnect) {
        connectionLost(detail.arg(m_settings.stallMs / 1000.0));
        return;
    }
    m_stallTimer.start();
    const quint64 connection = m_connection;
    if (!m_settings.request.isEmpty())
        send(m_settings.request);
    if (connection == m_connection)
        reportDisconnected(detail.arg(m_settings.stallMs / 1000.0));
}

void LineSource::reportDisconnected(const QString& detail)
{
    // An attempt that fails like the one before is no news.
    if (detail == m_lastDetail)
        return;
    m_lastDetail = detail;
    const quint64 connection = m_connection;
    const QPointer<LineSource> self(this);
    if (m_connected) {
        m_connected = false;
        emit connectionChanged(false, detail);
        if (!self || connection != m_connection || !m_running)
            return;
    }
    emit reading(Reading::invalid(m_clock.nowMs(), Reading::Status::Disconnected, detail));
}

} // namespace Terminal
} // namespace Brimvale
