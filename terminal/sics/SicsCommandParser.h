// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSCOMMANDPARSER_H
#define BRIMVALE_SICSCOMMANDPARSER_H

#include <QByteArray>
#include <QVector>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// One command line of a SICS client.
struct SicsCommand
{
    enum class Kind
    {
        StableWeight,   ///< `S`
        Weight,         ///< `SI`
        RepeatAlways,   ///< `SIR`
        RepeatOnChange, ///< `SR`, `SR 0.5 g`
        Zero,           ///< `Z`
        Tare,           ///< `T`
        Reset,          ///< `@`
        Unknown,        ///< No command of this terminal.
        WrongParameter  ///< A command with something behind it that does not belong there.
    };

    Kind kind = Kind::Unknown;
    std::optional<double> threshold; ///< Grams; RepeatOnChange only: unset, where none was given.
};

/// Reads commands of the SICS protocol from a stream of bytes, in whatever pieces they arrive.
///
/// CR LF ends a line, and so does a bare CR or a bare LF; a line without any text is none. Commands are written in
/// capital letters; blanks around them are ignored. Of a line that is too long nothing is kept: it is one unknown
/// command, told as soon as it is too long.
class SicsCommandParser
{
public:
    /// Longest line in bytes, its end not counted.
    static constexpr int MaximumLineLength = 64;

    /// Takes @p bytes in and returns the commands that they complete, in order.
    QVector<SicsCommand> feed(const QByteArray& bytes);

    /// Whether a line has begun and not ended yet.
    bool isLineBegun() const { return m_overlong || !m_begun.isEmpty(); }

    /// Forgets the begun line: what comes next begins another.
    void reset();

    /// Reads one line, without its end.
    static SicsCommand parseLine(const QByteArray& line);

private:
    QByteArray m_begun;      ///< The begun line, at most MaximumLineLength bytes.
    bool m_overlong = false; ///< The begun line is too long; it has been told, and its bytes are not kept.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSCOMMANDPARSER_H
