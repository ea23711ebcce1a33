// SPDX-License-Identifier: BSD-3-Clause
//
// Scripts of the terminal.
#include "Fuzzing.h"
#include "script/Script.h"

using Brimvale::Terminal::Script;
using Brimvale::Terminal::SourceSpec;
using Brimvale::Terminal::Statement;

namespace
{

// A name that a message must not take for a place to fill in.
const QString Name = QStringLiteral("100%3.script");

bool isSame(const Statement& left, const Statement& right)
{
    return left.kind == right.kind && left.source == right.source
           && Fuzzing::isSame(left.number, right.number) && left.word == right.word && left.text == right.text
           && left.on == right.on && left.none == right.none && left.withinMs == right.withinMs;
}

void checkStatement(const Statement& statement)
{
    REQUIRE(!statement.source.isEmpty() && statement.source == statement.source.trimmed());
    REQUIRE(std::isfinite(statement.number) && std::fabs(statement.number) <= 4.0e9);
    REQUIRE(statement.withinMs >= 0 && statement.withinMs <= Script::MaximumWithinMs);
    REQUIRE(!statement.none || statement.text.isEmpty());
    switch (statement.kind) {
    case Statement::Kind::PutOn:
    case Statement::Kind::TakeOff:
        REQUIRE(statement.number > 0.0 && statement.number <= 1.0e9);
        break;
    case Statement::Kind::SetDrift:
        break;
    default:
        REQUIRE(statement.number >= 0.0);
    }
    // A statement means the same alone.
    QStringList errors;
    const std::optional<Script> alone = Script::parse(statement.source.toUtf8(), Name, &errors);
    REQUIRE(alone && errors.isEmpty() && alone->statements().size() == 1);
    REQUIRE(alone->statements().first().line == 1 && isSame(alone->statements().first(), statement));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Fuzzing::Input(data, size).rest();
    QStringList errors;
    const std::optional<Script> script = Script::parse(content, Name, &errors);
    REQUIRE(script.has_value() == errors.isEmpty());

    // Line ends of another system and comments change nothing, but how bytes are shown that are no text.
    const bool hasMark = content.startsWith("\xEF\xBB\xBF");
    QStringList otherErrors;
    const std::optional<Script> other =
        Script::parse((hasMark ? QByteArray() : QByteArray("\xEF\xBB\xBF"))
                          + QByteArray(content).replace("\n", "\r\n") + "\n# a comment\n\n",
                      Name, &otherErrors);
    REQUIRE(other.has_value() == script.has_value());
    REQUIRE(otherErrors.size() == errors.size());
    REQUIRE(otherErrors == errors || Fuzzing::textOf(content).contains(QChar(QChar::ReplacementCharacter)));

    const QList<QByteArray> lines = content.split('\n');
    if (script) {
        REQUIRE(script->name() == Name && !script->statements().isEmpty());
        REQUIRE(other->statements().size() == script->statements().size());
        int previous = 0;
        for (int i = 0; i < script->statements().size(); ++i) {
            const Statement& statement = script->statements().at(i);
            REQUIRE(statement.line > previous && statement.line <= lines.size());
            REQUIRE(isSame(other->statements().at(i), statement));
            REQUIRE(Fuzzing::textOf(lines.at(statement.line - 1)).contains(statement.source));
            checkStatement(statement);
            previous = statement.line;
        }
        for (const SourceSpec::Kind source : {SourceSpec::Kind::Simulated, SourceSpec::Kind::Trace,
                                              SourceSpec::Kind::Tcp, SourceSpec::Kind::Serial}) {
            for (const QString& fault : script->faultsWith(source)) {
                const int line = Fuzzing::lineOf(fault, Name);
                REQUIRE(line >= 1 && line <= lines.size() && fault.contains(QLatin1String("; ")));
            }
        }
        return 0;
    }
    int previous = 0;
    for (const QString& error : qAsConst(errors)) {
        const int line = Fuzzing::lineOf(error, Name);
        REQUIRE(error.contains(QLatin1String("; ")));
        REQUIRE(line > previous || (line == 0 && errors.size() == 1));
        REQUIRE(line <= lines.size());
        if (line > 0 && !error.contains(QLatin1String("no UTF-8"))) {
            // What was written is named, and a line that is wrong is wrong alone.
            const QByteArray& bytes = lines.at(line - 1);
            const QString source = Fuzzing::textOf(line == 1 && hasMark ? bytes.mid(3) : bytes).trimmed();
            REQUIRE(error.startsWith(Name + QLatin1Char(':') + QString::number(line) + QStringLiteral(": \"")
                                     + source + QStringLiteral("\": ")));
            QStringList alone;
            REQUIRE(!Script::parse(bytes, Name, &alone) && alone.size() == 1);
        }
        previous = line;
    }
    return 0;
}
