// SPDX-License-Identifier: BSD-3-Clause
//
// The lines that a scale sends, in whatever pieces.
#include "Fuzzing.h"
#include "source/SicsLineParser.h"

#include <QLocale>
#include <QRegularExpression>

using Brimvale::Terminal::Readability;
using Brimvale::Terminal::Reading;
using Brimvale::Terminal::SicsLine;
using Brimvale::Terminal::SicsLineParser;

namespace
{

bool isSame(const SicsLine& left, const SicsLine& right)
{
    return left.kind == right.kind && left.status == right.status && Fuzzing::isSame(left.grams, right.grams)
           && left.stable == right.stable && left.readability == right.readability
           && left.detail == right.detail;
}

bool isSame(const QVector<SicsLine>& left, const QVector<SicsLine>& right)
{
    return left.size() == right.size()
           && std::equal(left.cbegin(), left.cend(), right.cbegin(),
                         [](const SicsLine& one, const SicsLine& other) { return isSame(one, other); });
}

/// A weight in grams, without exponent.
QByteArray plainNumber(double grams)
{
    return QString::number(grams, 'f', QLocale::FloatingPointShortest).toLatin1();
}

void checkLine(const QByteArray& line, const SicsLine& read)
{
    static const QRegularExpression weight(
        QStringLiteral("\\A *S +([SD]) +[+-]?[0-9]+(\\.[0-9]+)? +(g|kg|t|mg|ug|ct|lb|oz|ozt|GN|dwt) *\\z"));
    const QRegularExpressionMatch match = weight.match(QLatin1String(line.constData(), line.size()));
    const bool isWeight = read.kind == SicsLine::Kind::Weight && read.status == Reading::Status::Valid;
    // A number may be too large for a weight.
    REQUIRE(!isWeight || (match.hasMatch() && line.size() <= SicsLineParser::MaximumLineLength));
    REQUIRE(isWeight || !match.hasMatch() || line.size() > 100);
    if (!isWeight) {
        REQUIRE(std::isnan(read.grams) && !read.stable && !read.readability);
        REQUIRE(read.detail.isEmpty() == (read.kind == SicsLine::Kind::Answer));
        for (const QChar character : read.detail) {
            REQUIRE(character >= QLatin1Char(' ') && character <= QLatin1Char('~'));
        }
        return;
    }
    REQUIRE(std::isfinite(read.grams) && !Fuzzing::isSame(read.grams, -0.0));
    REQUIRE(read.stable && *read.stable == (match.captured(1) == QLatin1String("S")));
    REQUIRE(read.detail.isEmpty());

    // Blanks do not count, and the same weight in grams is the same weight.
    REQUIRE(line.size() >= SicsLineParser::MaximumLineLength
            || isSame(SicsLineParser::parseLine(' ' + line), read));
    const QByteArray inGrams =
        QByteArray("S ") + (*read.stable ? 'S' : 'D') + ' ' + plainNumber(read.grams) + " g";
    if (inGrams.size() <= SicsLineParser::MaximumLineLength) {
        const SicsLine again = SicsLineParser::parseLine(inGrams);
        REQUIRE(again.status == Reading::Status::Valid && again.grams == read.grams
                && again.stable == read.stable);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzzing::Input input(data, size);
    const auto seed = input.take<std::uint16_t>();
    const QByteArray bytes = input.rest();

    constexpr int Unlimited = 1 << 20;
    SicsLineParser parser(Unlimited);
    const QVector<SicsLine> whole = parser.feed(bytes);
    REQUIRE(parser.droppedLines() == 0);

    SicsLineParser pieceParser(Unlimited);
    QVector<SicsLine> pieces;
    Fuzzing::forEachPiece(bytes, seed, [&](const QByteArray& piece) { pieces += pieceParser.feed(piece); });
    REQUIRE(isSame(whole, pieces));

    // Of a flood the newest are kept and the others counted.
    const int maximum = 1 + seed % 5;
    SicsLineParser limited(maximum);
    const QVector<SicsLine> newest = limited.feed(bytes);
    REQUIRE(isSame(newest, whole.mid(std::max(0, whole.size() - maximum))));
    REQUIRE(limited.droppedLines() == static_cast<quint64>(whole.size() - newest.size()));

    // After a reset a line is read as the first one.
    parser.reset();
    REQUIRE(isSame(parser.feed("S S 1.5 kg\r\n"), {SicsLineParser::parseLine("S S 1.5 kg")}));

    for (const QByteArray& line : bytes.split('\n')) {
        checkLine(line, SicsLineParser::parseLine(line));
    }
    return 0;
}
