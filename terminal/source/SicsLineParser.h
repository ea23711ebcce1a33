// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SICSLINEPARSER_H
#define BRIMVALE_SICSLINEPARSER_H

#include "measuring/Readability.h"
#include "source/Reading.h"

#include <QByteArray>
#include <QVector>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// What one line of a scale says.
struct SicsLine
{
    enum class Kind
    {
        Weight, ///< A reading, valid or not: see status.
        Answer  ///< Another answer of a scale ("ES", "ET", "EL", "I4 A ..."): no weight, and no fault.
    };

    Kind kind = Kind::Weight;
    Reading::Status status = Reading::Status::Unreadable;
    double grams;                           ///< Only for Status::Valid, otherwise not a number.
    std::optional<bool> stable;             ///< The scale's mark, for Status::Valid only.
    std::optional<Readability> readability; ///< From the decimals of the number, for Status::Valid only.
    QString detail;                         ///< Why there is no weight.

    SicsLine();
};

/// Reads weight lines of the SICS protocol from a stream of bytes, in whatever pieces they arrive.
///
/// | Line                | Meaning                                              |
/// |---------------------|------------------------------------------------------|
/// | `S S     100.00 g`  | a stable weight                                      |
/// | `S D     100.02 g`  | a weight that is still moving                        |
/// | `S I`               | no weight can be given at present: Unreadable        |
/// | `S +`               | Overload                                             |
/// | `S -`               | Underload                                            |
///
/// A line ends with CR LF; a bare LF is accepted. The fields are separated by one or more blanks. Units are
/// g, kg, t, mg, ug, ct (metric carat, 0.2 g), lb (453.59237 g), oz (28.349523125 g), ozt (31.1034768 g), GN
/// (grain, 0.06479891 g) and dwt (1.55517384 g), all exact by definition. Whatever else arrives is Unreadable
/// with the reason; nothing unreadable ever becomes a weight.
class SicsLineParser
{
public:
    /// Longest line in bytes, its end not counted. Of a longer one nothing is kept: it is one unreadable
    /// line.
    static constexpr int MaximumLineLength = 128;

    /// Most lines that one feed() returns unless set otherwise: ten seconds at a hundred readings a second.
    static constexpr int DefaultMaximumLines = 1000;

    explicit SicsLineParser(int maximumLines = DefaultMaximumLines);

    /// Takes @p bytes in and returns the lines that they complete, in order; blank lines are left out. When
    /// that would be more than the maximum, the newest are returned and the others counted by droppedLines().
    QVector<SicsLine> feed(const QByteArray& bytes);

    /// Forgets a begun line: what comes next belongs to a new connection.
    void reset();

    /// How many lines were left out since construction because too many came at once.
    quint64 droppedLines() const { return m_droppedLines; }

    /// Reads one line, without its end.
    static SicsLine parseLine(const QByteArray& line);

private:
    int m_maximumLines;
    QByteArray m_begun;      ///< The begun line, at most MaximumLineLength + 1 bytes.
    bool m_overlong = false; ///< The begun line is too long; its bytes are not kept.
    quint64 m_droppedLines = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SICSLINEPARSER_H
