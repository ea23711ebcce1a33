// SPDX-License-Identifier: BSD-3-Clause
#include "source/SicsLineParser.h"

#include "source/DecimalText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// A unit of mass: grams per unit is factor times 10^exponent, exact by definition.
struct Unit
{
    const char* name;
    double factor;
    int exponent;
};

constexpr Unit Units[] = {
    {"g", 1.0, 0},
    {"kg", 1.0, 3},
    {"t", 1.0, 6},
    {"mg", 1.0, -3},
    {"ug", 1.0, -6},
    {"ct", 2.0, -1}, // metric carat, 4th General Conference on Weights and Measures, 1907
    // International yard and pound agreement, 1959; the troy units follow from the grain.
    {"lb", 453.59237, 0},
    {"oz", 28.349523125, 0},
    {"ozt", 31.1034768, 0},
    {"GN", 0.06479891, 0},
    {"dwt", 1.55517384, 0},
};

/// The messages, for translation.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SicsLineParser)
};

/// What arrived, for a message: printable characters as they are, all others as escapes.
QString shown(const QByteArray& bytes)
{
    constexpr int Shown = 40;
    QString result;
    for (int i = 0; i < qMin(bytes.size(), Shown); ++i) {
        const uchar byte = static_cast<uchar>(bytes.at(i));
        if (byte >= 0x20 && byte < 0x7f)
            result += QLatin1Char(static_cast<char>(byte));
        else
            result += QStringLiteral("\\x%1").arg(static_cast<uint>(byte), 2, 16, QLatin1Char('0'));
    }
    if (bytes.size() > Shown)
        result += QStringLiteral("...");
    return result;
}

SicsLine unreadable(const QString& detail)
{
    SicsLine line;
    line.detail = detail;
    return line;
}

SicsLine invalid(Reading::Status status, const QString& detail)
{
    SicsLine line;
    line.status = status;
    line.detail = detail;
    return line;
}

SicsLine answer()
{
    SicsLine line;
    line.kind = SicsLine::Kind::Answer;
    return line;
}

SicsLine overlong()
{
    return unreadable(Texts::tr("A line of more than %1 bytes; check the scale's interface settings.")
                          .arg(SicsLineParser::MaximumLineLength));
}

bool isBlank(const QByteArray& line)
{
    return std::all_of(line.cbegin(), line.cend(), [](char byte) { return byte == ' '; });
}

QList<QByteArray> fieldsOf(const QByteArray& line)
{
    QList<QByteArray> fields = line.split(' ');
    fields.removeAll(QByteArray());
    return fields;
}

} // namespace

SicsLine::SicsLine()
    : grams(std::numeric_limits<double>::quiet_NaN())
{
}

SicsLineParser::SicsLineParser(int maximumLines)
    : m_maximumLines(qMax(1, maximumLines))
{
}

QVector<SicsLine> SicsLineParser::feed(const QByteArray& bytes)
{
    // First only cut into lines, so that a flood costs no more than looking for line ends. A null line stands
    // for one that is too long.
    QVector<QByteArray> lines;
    const auto append = [&](const QByteArray& line) {
        if (lines.size() >= 2 * m_maximumLines) {
            lines.remove(0, lines.size() - m_maximumLines);
            m_droppedLines += static_cast<quint64>(m_maximumLines);
        }
        lines.append(line);
    };

    int start = 0;
    while (start < bytes.size()) {
        const int newline = bytes.indexOf('\n', start);
        const int end = newline < 0 ? bytes.size() : newline;
        if (!m_overlong) {
            m_begun.append(bytes.constData() + start, qMin(end - start, MaximumLineLength + 2));
            // One byte more may be the CR of the line's end.
            if (m_begun.size() > MaximumLineLength + (m_begun.endsWith('\r') ? 1 : 0)) {
                m_overlong = true;
                append(QByteArray());
            }
        }
        if (newline < 0)
            break;
        if (m_begun.endsWith('\r'))
            m_begun.chop(1);
        if (!m_overlong && !isBlank(m_begun))
            append(m_begun);
        reset();
        start = newline + 1;
    }
    if (m_overlong)
        m_begun.clear();

    const int excess = lines.size() - m_maximumLines;
    if (excess > 0) {
        lines.remove(0, excess);
        m_droppedLines += static_cast<quint64>(excess);
    }
    QVector<SicsLine> result;
    result.reserve(lines.size());
    for (const QByteArray& line : qAsConst(lines))
        result.append(line.isNull() ? overlong() : parseLine(line));
    return result;
}

void SicsLineParser::reset()
{
    m_begun.clear();
    m_overlong = false;
}

SicsLine SicsLineParser::parseLine(const QByteArray& line)
{
    if (line.size() > MaximumLineLength)
        return overlong();
    const QList<QByteArray> fields = fieldsOf(line);
    const int count = fields.size();
    const QByteArray id = count > 0 ? fields.at(0) : QByteArray();

    if ((id == "ES" || id == "ET" || id == "EL") && count == 1)
        return answer();
    if (id == "I4" && count >= 2 && fields.at(1) == "A")
        return answer(); // The serial number, which scales send when they are switched on.

    if (id == "S" && count == 2 && fields.at(1) == "I")
        return unreadable(Texts::tr("The scale cannot give a weight at present."));
    if (id == "S" && count == 2 && fields.at(1) == "+")
        return invalid(Reading::Status::Overload, Texts::tr("The scale reports an overload."));
    if (id == "S" && count == 2 && fields.at(1) == "-")
        return invalid(Reading::Status::Underload, Texts::tr("The scale reports an underload."));

    if (id != "S" || count != 4 || (fields.at(1) != "S" && fields.at(1) != "D"))
        return unreadable(Texts::tr("Not a weight line: \"%1\".").arg(shown(line)));
    const std::optional<DecimalText> number = DecimalText::parse(fields.at(2));
    if (!number)
        return unreadable(Texts::tr("Not a number: \"%1\".").arg(shown(fields.at(2))));
    for (const Unit& unit : Units) {
        if (fields.at(3) != unit.name)
            continue;
        SicsLine weight;
        weight.status = Reading::Status::Valid;
        weight.grams = number->value(unit.exponent) * unit.factor;
        weight.stable = fields.at(1) == "S";
        weight.readability = Readability::notCoarserThan(
            DecimalText::powerOfTen(unit.exponent - number->decimals()) * unit.factor);
        if (!std::isfinite(weight.grams))
            return unreadable(Texts::tr("Not a weight: \"%1\".").arg(shown(fields.at(2))));
        return weight;
    }
    return unreadable(Texts::tr("Unknown unit: \"%1\".").arg(shown(fields.at(3))));
}

} // namespace Terminal
} // namespace Brimvale
