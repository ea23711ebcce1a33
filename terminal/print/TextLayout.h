// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TEXTLAYOUT_H
#define BRIMVALE_TEXTLAYOUT_H

#include <QString>
#include <QStringList>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// What a reader takes for one character, and how many columns of a monospaced print-out it fills: 0 (a mark that
/// found nothing to stand on), 1 or 2 (wide characters such as those of Chinese).
struct TextCell
{
    QString text;
    int width = 0;
};

/// @p text taken apart into what a reader takes for characters: an umlaut written with a combining mark is one.
QVector<TextCell> textCells(const QString& text);

/// The columns that @p text fills on a monospaced print-out.
int textWidth(const QString& text);

/// @p text with blanks behind it, so that it fills @p columns. A wider one stays as it is.
QString padded(const QString& text, int columns);

/// @p text with blanks before it, so that it ends at the column @p columns. A wider one stays as it is.
QString rightAligned(const QString& text, int columns);

/// @p text without what moves a printer: control characters are left out, a tabulator is a blank, every kind of
/// line end is a '\n'.
QString printable(QString text);

/// @p text in lines of at most @p columns (2 or more), broken between words; a word that is wider than a line is
/// broken between characters. Line ends within the text are kept; blanks at the end of a line are left out. There is
/// always one line at least.
QStringList wrapped(const QString& text, int columns);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TEXTLAYOUT_H
