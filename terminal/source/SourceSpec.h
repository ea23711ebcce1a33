// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SOURCESPEC_H
#define BRIMVALE_SOURCESPEC_H

#include "clock/Clock.h"
#include "measuring/Readability.h"
#include "source/LineSource.h"
#include "source/SimulatedSource.h"

#include <QString>

#include <memory>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// Which weight source is meant, as the command line names it:
/// - `sim:` the simulated load cell,
/// - `trace:FILE` a recorded weighing,
/// - `tcp:HOST:PORT` a scale in the network; an IPv6 address stands in brackets (`tcp:[::1]:4001`),
/// - `serial:DEV[,BAUD]` a scale at a serial port, 9600 baud unless given.
struct SourceSpec
{
    enum class Kind
    {
        Simulated,
        Trace,
        Tcp,
        Serial
    };

    /// Reads @p text. On failure nothing is returned and @p error tells what is wrong and what is right.
    static std::optional<SourceSpec> parse(const QString& text, QString* error);

    /// True for tcp and serial: a real scale, on real time.
    bool isLive() const { return kind == Kind::Tcp || kind == Kind::Serial; }

    Kind kind = Kind::Simulated;
    QString file;     ///< Trace.
    QString host;     ///< Tcp, without brackets.
    quint16 port = 0; ///< Tcp.
    QString device;   ///< Serial.
    int baud = 0;     ///< Serial.
};

/// What is not said by the SourceSpec.
struct SourceOptions
{
    std::optional<Readability> readability; ///< Instead of the source's own.
    SimulationSettings simulation;          ///< Its readability gives way to the one above.
    LineSourceSettings lines;               ///< Its readability gives way to the one above.
};

/// Makes the source, not started. @p clock must outlive it. On failure (a recording that cannot be read, a device that is no serial port) null
/// is returned and @p error tells the reason as a whole message.
std::unique_ptr<WeightSource> createSource(const SourceSpec& spec, Clock& clock, const SourceOptions& options,
                                           QString* error);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SOURCESPEC_H
