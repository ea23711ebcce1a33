// SPDX-License-Identifier: BSD-3-Clause
#include "print/TextLayout.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <utf8proc.h>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int WideCell = 2;

int cellWidth(const QString& cell)
{
    int width = 0;
    const QVector<uint> characters = cell.toUcs4();
    for (const uint character : characters)
        width += utf8proc_charwidth(static_cast<utf8proc_int32_t>(character));
    // Several characters that are shown as one, such as a family of people, are no wider than any other.
    return std::min(width, WideCell);
}

QString withoutTrailingBlanks(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

/// The pieces between which a line may be broken, each with the blanks behind it.
QStringList breakablePieces(const QString& line)
{
    QStringList pieces;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, line);
    int begin = 0;
    for (int end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
        pieces.append(line.mid(begin, end - begin));
        begin = end;
    }
    if (begin < line.size())
        pieces.append(line.mid(begin));
    return pieces;
}

void wrapLine(const QString& line, int columns, QStringList& lines)
{
    if (textWidth(withoutTrailingBlanks(line)) <= columns) {
        lines.append(withoutTrailingBlanks(line));
        return;
    }
    QString current;
    const QStringList pieces = breakablePieces(line);
    for (const QString& piece : pieces) {
        if (textWidth(current + withoutTrailingBlanks(piece)) <= columns) {
            current += piece;
            continue;
        }
        if (!withoutTrailingBlanks(current).isEmpty())
            lines.append(withoutTrailingBlanks(current));
        current.clear();
        if (textWidth(withoutTrailingBlanks(piece)) <= columns) {
            current = piece;
            continue;
        }
        int width = 0;
        const QVector<TextCell> cells = textCells(piece);
        for (const TextCell& cell : cells) {
            if (width + cell.width > columns) {
                lines.append(withoutTrailingBlanks(current));
                current.clear();
                width = 0;
            }
            current += cell.text;
            width += cell.width;
        }
    }
    if (!withoutTrailingBlanks(current).isEmpty())
        lines.append(withoutTrailingBlanks(current));
}

} // namespace

QVector<TextCell> textCells(const QString& text)
{
    QVector<TextCell> cells;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int begin = 0;
    for (int end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
        const QString cell = text.mid(begin, end - begin);
        cells.append({cell, cellWidth(cell)});
        begin = end;
    }
    return cells;
}

int textWidth(const QString& text)
{
    int width = 0;
    const QVector<TextCell> cells = textCells(text);
    for (const TextCell& cell : cells)
        width += cell.width;
    return width;
}

QString padded(const QString& text, int columns)
{
    return text + QString(std::max(0, columns - textWidth(text)), QLatin1Char(' '));
}

QString rightAligned(const QString& text, int columns)
{
    return QString(std::max(0, columns - textWidth(text)), QLatin1Char(' ')) + text;
}

QString printable(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (character == QLatin1Char('\r') || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            result += QLatin1Char('\n');
        else if (character == QLatin1Char('\t'))
            result += QLatin1Char(' ');
        else if (character == QLatin1Char('\n') || character.category() != QChar::Other_Control)
            result += character;
    }
    return result;
}

QStringList wrapped(const QString& text, int columns)
{
    QStringList lines;
    const QStringList texts = printable(text).split(QLatin1Char('\n'));
    for (const QString& line : texts)
        wrapLine(line, std::max(columns, WideCell), lines);
    return lines.isEmpty() ? QStringList{QString()} : lines;
}

} // namespace Terminal
} // namespace Brimvale
