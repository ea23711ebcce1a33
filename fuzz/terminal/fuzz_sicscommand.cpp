// SPDX-License-Identifier: BSD-3-Clause
//
// The command lines that a computer sends to the SICS server, in whatever pieces.
#include "Fuzzing.h"
#include "sics/SicsCommandParser.h"

#include <QLocale>
#include <QRegularExpression>

using Brimvale::Terminal::SicsCommand;
using Brimvale::Terminal::SicsCommandParser;
using Kind = SicsCommand::Kind;

namespace
{

bool isSame(const QVector<SicsCommand>& left, const QVector<SicsCommand>& right)
{
    return left.size() == right.size()
           && std::equal(left.cbegin(), left.cend(), right.cbegin(),
                         [](const SicsCommand& one, const SicsCommand& other) {
                             return one.kind == other.kind && one.threshold == other.threshold;
                         });
}

/// The command as its description says, without the bytes that only delimit.
void checkLine(const QByteArray& line, const SicsCommand& command)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A *(S|SI|SIR|SR|Z|T|@)( +(?<parameter>[^ ].*?))? *\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression limit(QStringLiteral("\\A[+-]?[0-9]+(\\.[0-9]+)? +g\\z"));
    const QRegularExpressionMatch match = pattern.match(QLatin1String(line.constData(), line.size()));
    if (!match.hasMatch() || line.size() > SicsCommandParser::MaximumLineLength) {
        REQUIRE(command.kind == Kind::Unknown && !command.threshold);
        return;
    }
    const QString parameter = match.captured(QStringLiteral("parameter"));
    if (parameter.isEmpty()) {
        REQUIRE(command.kind != Kind::Unknown && command.kind != Kind::WrongParameter && !command.threshold);
        return;
    }
    const bool isLimit = match.captured(1) == QLatin1String("SR") && limit.match(parameter).hasMatch()
                         && parameter.section(QLatin1Char(' '), 0, 0).toDouble() > 0.0;
    REQUIRE(command.kind == (isLimit ? Kind::RepeatOnChange : Kind::WrongParameter));
    REQUIRE(command.threshold.has_value() == isLimit);
    if (isLimit) {
        REQUIRE(std::isfinite(*command.threshold) && *command.threshold > 0.0);
        const QByteArray again =
            "SR " + QString::number(*command.threshold, 'f', QLocale::FloatingPointShortest).toLatin1()
            + " g";
        REQUIRE(again.size() > SicsCommandParser::MaximumLineLength
                || SicsCommandParser::parseLine(again).threshold == command.threshold);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzzing::Input input(data, size);
    const auto seed = input.take<std::uint16_t>();
    const QByteArray bytes = input.rest();

    SicsCommandParser parser;
    const QVector<SicsCommand> whole = parser.feed(bytes);
    REQUIRE(parser.isLineBegun() == (!bytes.isEmpty() && !bytes.endsWith('\r') && !bytes.endsWith('\n')));

    SicsCommandParser pieceParser;
    QVector<SicsCommand> pieces;
    Fuzzing::forEachPiece(bytes, seed, [&](const QByteArray& piece) { pieces += pieceParser.feed(piece); });
    REQUIRE(isSame(whole, pieces));
    REQUIRE(parser.isLineBegun() == pieceParser.isLineBegun());

    parser.reset();
    REQUIRE(!parser.isLineBegun());
    REQUIRE(isSame(parser.feed("SI\r\n"), {SicsCommandParser::parseLine("SI")}));

    for (const QByteArray& line : QByteArray(bytes).replace('\r', '\n').split('\n')) {
        checkLine(line, SicsCommandParser::parseLine(line));
    }
    return 0;
}
