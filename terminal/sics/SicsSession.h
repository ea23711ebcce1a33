// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSSESSION_H
#define BRIMVALE_SICSSESSION_H

#include "clock/Clock.h"
#include "sics/SicsCommandParser.h"

#include <QObject>
#include <QQueue>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

class SicsScale;

/// What a SICS client may do. Times are those of the terminal's clock.
struct SicsLimits
{
    int stableTimeoutMs = 10000;    ///< So long `S`, `Z` and `T` wait for a stable weight.
    int lineTimeoutMs = 30000;      ///< A line that has begun and does not end in this time is forgotten.
    int commandsPerSecond = 100;    ///< More often commands are not carried out; at most 1000.
    int burst = 20;                 ///< So many at once are carried out without a wait, after a pause.
    int waitingCommands = 100;      ///< So many that came too fast wait for their turn; more are refused.
    int bytesPerSecond = 64 * 1024; ///< Who sends more than that floods.
};

/// One SICS client: bytes go in, answers come out. It knows nothing of sockets.
///
/// | Command         | Answer                                                                                |
/// |-----------------|---------------------------------------------------------------------------------------|
/// | `S`             | the weight as soon as it is stable; `S I` when it is not within the time-out          |
/// | `SI`            | the weight at once                                                                    |
/// | `SIR`           | the weight at once and then with every reading                                        |
/// | `SR [limit g]`  | the stable weight; after every change by the limit the weight at once and when stable |
/// | `Z`, `T`        | zero and tare as soon as the weight is stable; `Z I`, `T I` as above                  |
/// | `@`             | the serial number; ends repetitions and waits                                         |
///
/// The limit of `SR` is an eighth of the last stable weight and at least 30 increments unless it is given. A weight
/// command, refused or not, ends the repetition before it. While `S`, `Z` or `T` waits, `SI` and `@` are carried out
/// and all others are answered by `I`: not now. Without a weight (overload, underload, no connection) nothing waits.
///
/// An unknown line is answered by `ES`, a wrong parameter by `EL`. Commands that come faster than the rate wait for
/// their turn; when too many wait, the next are answered by `ES` at once.
class SicsSession : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SicsSession)

public:
    /// @param scale, clock not owned; they must outlive the session.
    SicsSession(SicsScale& scale, Clock& clock, const SicsLimits& limits = {}, QObject* parent = nullptr);
    ~SicsSession() override;

    /// Takes in what the client sent. Carrying it out may run an event loop (in an application that is told of the
    /// new tare): what is fed meanwhile waits, and the session may be deleted.
    void feed(const QByteArray& bytes);

signals:
    /// One answer, CR LF included.
    void answered(const QByteArray& line);
    /// The client floods and is not worth listening to any longer.
    void flooded();

private:
    /// What `SIR` and `SR` have begun.
    enum class Repeat
    {
        None,
        Always,
        UntilStable, ///< `SR`, before the stable weight has been sent.
        OnChange     ///< `SR`, after it.
    };

    void work();
    void execute(const SicsCommand& command);
    void begin(SicsCommand::Kind kind);
    void finish(SicsCommand::Kind kind);
    void giveUp();
    void endWait();
    void onUpdated();
    void repeat();
    bool hasChanged() const;
    void sendWeight();
    bool isFlood(int bytes);
    bool takeTurn();
    void watchLine();

    SicsScale& m_scale;
    Clock& m_clock;
    const SicsLimits m_limits;

    SicsCommandParser m_parser;
    QQueue<SicsCommand> m_commands;
    bool m_working = false;
    double m_turns;    ///< Commands that may be carried out now.
    qint64 m_turnsMs;  ///< When that was reckoned.
    qint64 m_secondMs; ///< When the present second of m_bytes began.
    int m_bytes = 0;

    std::optional<SicsCommand::Kind> m_waiting; ///< `S`, `Z` or `T`, for a stable weight.
    Repeat m_repeat = Repeat::None;
    std::optional<double> m_threshold; ///< Of `SR`, in grams.
    QByteArray m_repeated;             ///< What `SR` has sent last.
    double m_stableGrams = 0.0;        ///< ... and what was stable last.

    Clock::TimerId m_turnTimer = 0;
    Clock::TimerId m_stableTimer = 0;
    Clock::TimerId m_lineTimer = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSSESSION_H
