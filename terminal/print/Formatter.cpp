// SPDX-License-Identifier: BSD-3-Clause
#include "print/Formatter.h"

#include "MesswertData.h"
#include "print/TextLayout.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Where things stand on a line.
struct Columns
{
    explicit Columns(int layout)
        : total(std::max(layout, Formatter::MinimumColumns))
        , description(total * 2 / 5)
        , unit(std::min(total / 6, WidestUnit))
    {
    }

    static constexpr int WidestUnit = 8;

    int total;
    int description; ///< Width of the column of descriptions.
    int unit;        ///< Width of the column of units.
};

QString withLineEnds(const QStringList& lines)
{
    QString block;
    for (QString line : lines) {
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        block += line + QStringLiteral("\r\n");
    }
    return block;
}

QString onOneLine(const QString& text)
{
    return printable(text).replace(QLatin1Char('\n'), QLatin1Char(' ')).trimmed();
}

struct ValueAndUnit
{
    QString value;
    QString unit;
};

/// Takes "100.00 g" apart. A value without digits has no unit.
ValueAndUnit splitValue(const QString& text)
{
    static const QRegularExpression expression(QStringLiteral("^([+-]?[0-9][0-9.,' ]*|\\S+) +(\\S.*)$"));
    const QString line = onOneLine(text);
    const QRegularExpressionMatch match = expression.match(line);
    if (!match.hasMatch())
        return {line, QString()};
    return {match.captured(1).trimmed(), match.captured(2)};
}

QString withBrackets(QString number, int count)
{
    int begin = number.size();
    for (int position = number.size() - 1; position >= 0 && count > 0; --position) {
        if (number.at(position).isDigit()) {
            begin = position;
            --count;
        }
    }
    if (begin == number.size())
        return number;
    return number.left(begin) + QLatin1Char('[') + number.mid(begin) + QLatin1Char(']');
}

/// A value as it stands on paper.
ValueAndUnit printedValue(const FormattedValue& record, bool marks)
{
    if (!record.errorText.isEmpty())
        return {onOneLine(record.errorText), QString()};
    ValueAndUnit parts = splitValue(record.text);
    if (!marks)
        return parts;
    // A plain char has a sign on some processors only.
    parts.value = withBrackets(parts.value, static_cast<signed char>(record.bracketedDigitCount));
    QString mark;
    if (record.valueMark != 0 && record.valueMark != ' ')
        mark += QLatin1Char(record.valueMark);
    if (!record.isStable)
        mark += QLatin1Char(Formatter::UnstableMark);
    if (!mark.isEmpty())
        parts.value = mark + QLatin1Char(' ') + parts.value;
    return parts;
}

QString nameValueUnit(int layout, const QString& name, const QString& value, const QString& unit)
{
    const Columns columns(layout);
    QStringList lines = wrapped(name, columns.total);
    if (value.isEmpty() && unit.isEmpty())
        return withLineEnds(lines);

    const int unitWidth = unit.isEmpty() ? columns.unit : std::max(columns.unit, textWidth(unit));
    const int valueEnd = columns.total - unitWidth - 1;
    if (textWidth(value) > valueEnd) {
        // Too wide for a line: all of it below the name, at the right edge.
        if (lines.constLast().isEmpty())
            lines.removeLast();
        const QStringList valueLines = wrapped((value + QLatin1Char(' ') + unit).trimmed(), columns.total);
        for (const QString& line : valueLines)
            lines.append(rightAligned(line, columns.total));
        return withLineEnds(lines);
    }
    const QString& lastLine = lines.constLast();
    const int nameWidth = textWidth(lastLine);
    if (nameWidth > 0 && nameWidth + 1 + textWidth(value) > valueEnd)
        lines.append(QString());
    QString& line = lines.last();
    line += rightAligned(value, valueEnd - textWidth(line)) + QLatin1Char(' ') + unit;
    return withLineEnds(lines);
}

/// Width of the widest piece of @p text that cannot be broken.
bool fitsUnbroken(const QString& text, int columns)
{
    const QStringList words = printable(text).split(QRegularExpression(QStringLiteral("[ \\n]+")));
    for (const QString& word : words) {
        if (textWidth(word) > columns)
            return false;
    }
    return true;
}

} // namespace

QString Formatter::FormatText(int layout, const QString& text)
{
    return withLineEnds(wrapped(text, Columns(layout).total));
}

QString Formatter::FormatDescriptionText(int layout, const QString& description, const QString& text)
{
    const Columns columns(layout);
    static const QRegularExpression measuredValue(
        QStringLiteral("^([+-]?[0-9]+(?:\\.[0-9]+)?) ([^0-9\\s]\\S*)$"));
    const QRegularExpressionMatch match = measuredValue.match(text);
    if (match.hasMatch() && textWidth(match.captured(2)) <= columns.unit) {
        return nameValueUnit(layout, description, match.captured(1), match.captured(2));
    }

    QStringList lines = wrapped(description, columns.total);
    if (printable(text).trimmed().isEmpty())
        return withLineEnds(lines);
    const int descriptionWidth = textWidth(lines.constLast());
    const int firstFree = descriptionWidth > 0 ? descriptionWidth + 1 : 0;
    const bool isOneLine = !printable(text).contains(QLatin1Char('\n'));
    int column = columns.description + 1;
    if (isOneLine && firstFree + textWidth(text) <= columns.total) {
        // On one line: in the column of texts, or as near to it as it fits.
        column = std::max(firstFree, std::min(column, columns.total - textWidth(text)));
    } else if (firstFree <= column && fitsUnbroken(text, columns.total - column)) {
        // Beside the description, broken within the column of texts.
    } else {
        // Below the description.
        if (descriptionWidth > 0)
            lines.append(QString());
        constexpr int Indent = 2;
        if (!fitsUnbroken(text, columns.total - column))
            column = descriptionWidth > 0 && fitsUnbroken(text, columns.total - Indent) ? Indent : 0;
    }
    const QStringList textLines = wrapped(text, columns.total - column);
    lines.last() = padded(lines.constLast(), column) + textLines.constFirst();
    for (int index = 1; index < textLines.size(); ++index)
        lines.append(QString(column, QLatin1Char(' ')) + textLines.at(index));
    return withLineEnds(lines);
}

QString Formatter::FormatNameValueUnit(int layout, const QString& name, const QString& value,
                                       const QString& unit)
{
    return nameValueUnit(layout, name, onOneLine(value), onOneLine(unit));
}

QString Formatter::FormatValue(int layout, const FormattedValue& value, bool sics)
{
    if (!sics)
        return FormatNameValue(layout, QString(), value, false);
    ValueAndUnit parts = splitValue(value.text);
    // An answer is made of ASCII characters.
    for (const QChar micro : {QChar(0x00B5), QChar(0x03BC)})
        parts.unit.replace(micro, QLatin1Char('u'));
    const QString body = QStringLiteral("   ") + rightAligned(parts.value, SicsNumberWidth);
    return (parts.unit.isEmpty() ? body : body + QLatin1Char(' ') + parts.unit) + QStringLiteral("\r\n");
}

QString Formatter::FormatNameValue(int layout, const QString& name, const FormattedValue& value, bool flag)
{
    const ValueAndUnit parts = printedValue(value, !flag);
    return nameValueUnit(layout, name, parts.value, parts.unit);
}

void Formatter::ConvertValue(const MesswertData& value, FormattedValue& out)
{
    const QString number = onOneLine(value.messwert);
    const bool hasDigit =
        std::any_of(number.begin(), number.end(), [](QChar character) { return character.isDigit(); });
    out.isStable = value.isStable;
    if (!value.errorText.isEmpty())
        out.errorText = value.errorText;
    else if (!value.isValid || number.isEmpty())
        out.errorText = value.isOverload ? tr("Overload") : tr("No reading");
    else if (!hasDigit)
        out.errorText = number; // "OF": more digits than can be shown.
    if (!out.errorText.isEmpty())
        return;
    const QString unit = onOneLine(value.unitPrintName.isEmpty() ? value.unit : value.unitPrintName);
    out.text = unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
    out.valueMark = value.isCalculated ? CalculatedMark : '\0';
    out.bracketedDigitCount =
        static_cast<char>(std::clamp<int>(value.eichDigit, 0, std::numeric_limits<signed char>::max()));
}

} // namespace Terminal
} // namespace Brimvale
