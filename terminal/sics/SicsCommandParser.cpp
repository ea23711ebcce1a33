// SPDX-License-Identifier: BSD-3-Clause
#include "sics/SicsCommandParser.h"

#include "source/DecimalText.h"

#include <QList>

#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

struct Command
{
    const char* id;
    SicsCommand::Kind kind;
};

constexpr Command Commands[] = {
    {"S", SicsCommand::Kind::StableWeight},   {"SI", SicsCommand::Kind::Weight},
    {"SIR", SicsCommand::Kind::RepeatAlways}, {"SR", SicsCommand::Kind::RepeatOnChange},
    {"Z", SicsCommand::Kind::Zero},           {"T", SicsCommand::Kind::Tare},
    {"@", SicsCommand::Kind::Reset},
};

/// The parameter of `SR`: a number above zero and the unit, which is the gram.
std::optional<double> thresholdOf(const QList<QByteArray>& fields)
{
    if (fields.size() != 3 || fields.at(2) != "g")
        return std::nullopt;
    const std::optional<DecimalText> number = DecimalText::parse(fields.at(1));
    if (!number)
        return std::nullopt;
    const double grams = number->value();
    return std::isfinite(grams) && grams > 0.0 ? std::optional<double>(grams) : std::nullopt;
}

} // namespace

QVector<SicsCommand> SicsCommandParser::feed(const QByteArray& bytes)
{
    QVector<SicsCommand> commands;
    for (const char byte : bytes) {
        if (byte == '\r' || byte == '\n') {
            if (!m_begun.trimmed().isEmpty())
                commands.append(parseLine(m_begun));
            reset();
        } else if (m_begun.size() < MaximumLineLength) {
            if (!m_overlong)
                m_begun.append(byte);
        } else {
            m_begun.clear();
            m_overlong = true;
            commands.append(SicsCommand());
        }
    }
    return commands;
}

void SicsCommandParser::reset()
{
    m_begun.clear();
    m_overlong = false;
}

SicsCommand SicsCommandParser::parseLine(const QByteArray& line)
{
    SicsCommand command;
    if (line.size() > MaximumLineLength)
        return command;
    QList<QByteArray> fields = line.split(' ');
    fields.removeAll(QByteArray());
    if (fields.isEmpty())
        return command;
    for (const Command& known : Commands) {
        if (fields.first() == known.id)
            command.kind = known.kind;
    }
    if (command.kind == SicsCommand::Kind::Unknown || fields.size() == 1)
        return command;
    if (command.kind == SicsCommand::Kind::RepeatOnChange)
        command.threshold = thresholdOf(fields);
    if (!command.threshold)
        command.kind = SicsCommand::Kind::WrongParameter;
    return command;
}

} // namespace Terminal
} // namespace Brimvale
