// SPDX-License-Identifier: BSD-3-Clause
#include "sics/SicsSession.h"

#include "sics/SicsScale.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

using Kind = SicsCommand::Kind;

/// The usual limit of `SR`.
constexpr double ChangePart = 0.125;
constexpr double ChangeIncrements = 30.0;

const QByteArray UnknownAnswer = QByteArrayLiteral("ES\r\n");

QByteArray notNow(Kind kind)
{
    const char id = kind == Kind::Zero ? 'Z' : kind == Kind::Tare ? 'T' : 'S';
    return QByteArray(1, id) + " I\r\n";
}

bool isWeightCommand(Kind kind)
{
    return kind == Kind::StableWeight || kind == Kind::Weight || kind == Kind::RepeatAlways
           || kind == Kind::RepeatOnChange;
}

} // namespace

SicsSession::SicsSession(SicsScale& scale, Clock& clock, const SicsLimits& limits, QObject* parent)
    : QObject(parent)
    , m_scale(scale)
    , m_clock(clock)
    , m_limits(limits)
    , m_turns(limits.burst)
    , m_turnsMs(clock.nowMs())
    , m_secondMs(clock.nowMs())
{
    connect(&m_scale, &SicsScale::updated, this, &SicsSession::onUpdated);
}

SicsSession::~SicsSession()
{
    for (const Clock::TimerId timer : {m_turnTimer, m_stableTimer, m_lineTimer})
        m_clock.cancel(timer);
}

void SicsSession::feed(const QByteArray& bytes)
{
    if (isFlood(bytes.size())) {
        emit flooded();
        return;
    }
    const QPointer<SicsSession> self(this);
    const QVector<SicsCommand> commands = m_parser.feed(bytes);
    for (const SicsCommand& command : commands) {
        m_commands.enqueue(command);
        work();
        if (!self)
            return;
        if (m_commands.size() > m_limits.waitingCommands) {
            m_commands.removeLast();
            emit answered(UnknownAnswer);
            if (!self)
                return;
        }
    }
    watchLine();
}

bool SicsSession::isFlood(int bytes)
{
    constexpr qint64 SecondMs = 1000;
    if (m_clock.nowMs() - m_secondMs >= SecondMs) {
        m_secondMs = m_clock.nowMs();
        m_bytes = 0;
    }
    m_bytes += std::min(bytes, m_limits.bytesPerSecond + 1);
    return m_bytes > m_limits.bytesPerSecond;
}

/// A client that stops in the middle of a line has not meant what it sends next to be the rest of it.
void SicsSession::watchLine()
{
    m_clock.cancel(m_lineTimer);
    m_lineTimer = 0;
    if (!m_parser.isLineBegun())
        return;
    m_lineTimer = m_clock.callAfter(m_limits.lineTimeoutMs, [this] {
        m_lineTimer = 0;
        m_parser.reset();
        emit answered(UnknownAnswer);
    });
}

/// Carries out the commands whose turn has come.
void SicsSession::work()
{
    if (m_working)
        return;
    m_working = true;
    const QPointer<SicsSession> self(this);
    while (!m_commands.isEmpty() && takeTurn()) {
        execute(m_commands.dequeue());
        if (!self)
            return;
    }
    m_working = false;
}

/// Whether the rate allows another command; otherwise work() goes on when it does.
bool SicsSession::takeTurn()
{
    const qint64 nowMs = m_clock.nowMs();
    const double perMs = m_limits.commandsPerSecond / 1000.0;
    m_turns = std::min<double>(m_limits.burst, m_turns + static_cast<double>(nowMs - m_turnsMs) * perMs);
    m_turnsMs = nowMs;
    if (m_turns >= 1.0) {
        m_turns -= 1.0;
        return true;
    }
    if (m_turnTimer == 0) {
        m_turnTimer = m_clock.callAfter(static_cast<qint64>(std::ceil((1.0 - m_turns) / perMs)), [this] {
            m_turnTimer = 0;
            work();
        });
    }
    return false;
}

void SicsSession::execute(const SicsCommand& command)
{
    if (isWeightCommand(command.kind))
        m_repeat = Repeat::None;
    const bool always = command.kind == Kind::Weight || command.kind == Kind::Reset
                        || command.kind == Kind::Unknown || command.kind == Kind::WrongParameter;
    if (m_waiting && !always) {
        emit answered(notNow(command.kind));
        return;
    }
    switch (command.kind) {
    case Kind::StableWeight:
    case Kind::Zero:
    case Kind::Tare:
        begin(command.kind);
        break;
    case Kind::Weight:
        sendWeight();
        break;
    case Kind::RepeatAlways:
        m_repeat = Repeat::Always;
        sendWeight();
        break;
    case Kind::RepeatOnChange:
        m_repeat = Repeat::UntilStable;
        m_threshold = command.threshold;
        m_repeated.clear();
        repeat();
        break;
    case Kind::Reset:
        m_repeat = Repeat::None;
        endWait();
        emit answered(m_scale.resetAnswer());
        break;
    case Kind::Unknown:
        emit answered(UnknownAnswer);
        break;
    case Kind::WrongParameter:
        emit answered(QByteArrayLiteral("EL\r\n"));
        break;
    }
}

/// Carries out a command that needs a stable weight, or waits for one.
void SicsSession::begin(Kind kind)
{
    if (m_scale.isStable() || !m_scale.isValid()) {
        finish(kind);
        return;
    }
    m_waiting = kind;
    m_stableTimer = m_clock.callAfter(m_limits.stableTimeoutMs, [this] { giveUp(); });
}

void SicsSession::finish(Kind kind)
{
    endWait();
    const QPointer<SicsSession> self(this);
    const QByteArray line = kind == Kind::Zero   ? m_scale.zero()
                            : kind == Kind::Tare ? m_scale.tare()
                                                 : m_scale.weightAnswer();
    if (self)
        emit answered(line);
}

void SicsSession::giveUp()
{
    const Kind kind = *m_waiting;
    endWait();
    emit answered(notNow(kind));
}

void SicsSession::endWait()
{
    m_waiting.reset();
    m_clock.cancel(m_stableTimer);
    m_stableTimer = 0;
}

void SicsSession::onUpdated()
{
    const QPointer<SicsSession> self(this);
    if (m_waiting && (m_scale.isStable() || !m_scale.isValid()))
        finish(*m_waiting);
    if (!self)
        return;
    if (m_repeat == Repeat::Always)
        sendWeight();
    else
        repeat();
}

/// What `SR` has to tell of the present reading, if anything.
void SicsSession::repeat()
{
    if (m_repeat != Repeat::UntilStable && m_repeat != Repeat::OnChange)
        return;
    const QByteArray line = m_scale.weightAnswer();
    if (!m_scale.isValid()) {
        // Told once; the next stable weight is told again.
        m_repeat = Repeat::UntilStable;
        if (line == m_repeated)
            return;
    } else if (m_repeat == Repeat::UntilStable) {
        if (!m_scale.isStable())
            return;
        m_repeat = Repeat::OnChange;
        m_stableGrams = m_scale.netGrams();
    } else {
        if (!hasChanged())
            return;
        if (m_scale.isStable())
            m_stableGrams = m_scale.netGrams();
        else
            m_repeat = Repeat::UntilStable;
    }
    m_repeated = line;
    emit answered(line);
}

bool SicsSession::hasChanged() const
{
    const double usual =
        std::max(ChangePart * std::fabs(m_stableGrams), ChangeIncrements * m_scale.incrementGrams());
    // A hair less, since decimal numbers have no exact doubles.
    const double threshold = m_threshold.value_or(usual) - 1.0e-6 * m_scale.incrementGrams();
    return std::fabs(m_scale.netGrams() - m_stableGrams) >= threshold;
}

void SicsSession::sendWeight()
{
    emit answered(m_scale.weightAnswer());
}

} // namespace Terminal
} // namespace Brimvale
