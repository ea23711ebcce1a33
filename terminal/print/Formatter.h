// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FORMATTER_H
#define BRIMVALE_FORMATTER_H

#include "FormattedValue.h"
#include "IFormat.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// The formatter of print-outs in monospaced characters.
///
/// A layout is the number of columns of a line: 24, 40 or 80. Other numbers work as well; what is less than
/// MinimumColumns counts as that. No line is longer than that, nothing is ever cut off, and every line ends with
/// CR LF and has no blanks at its end. An umlaut written with a combining mark fills one column, a Chinese character
/// two. Control characters of a text are left out, so that no text moves the printer.
///
/// A name stands on the left, a value ends at a column that all lines have in common, its unit begins after it:
///
///     Gross             105.00 g
///     Net weight of the
///     third sample    *  99.50 g
///
/// A name that is too long is broken between words; the value stands beside its last line, or below it. A value that
/// is too long for a line is broken too.
///
/// Marks before a value: `*` a calculated value, `~` a value that was not stable. Digits in brackets are not verified
/// ("99.5[0]"). Instead of a value that cannot be given stands why ("Overload").
///
/// A description stands on the left and its text in a column beside it; a text that is a number with a unit, as that
/// of a register, stands in the columns of values and units.
class Formatter : public IFormat
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::Formatter)

public:
    static constexpr int MinimumColumns = 16;
    static constexpr char CalculatedMark = '*';
    static constexpr char UnstableMark = '~';
    /// Columns of the number in a SICS weight answer.
    static constexpr int SicsNumberWidth = 10;

    /// The layouts that a printer can be set to.
    static bool isLayout(int columns) { return columns == 24 || columns == 40 || columns == 80; }

    /// A text, broken between words. An empty one is an empty line.
    QString FormatText(int layout, const QString& text) override;

    /// A description and its text in two columns, both broken between words.
    QString FormatDescriptionText(int layout, const QString& description, const QString& text) override;

    QString FormatNameValueUnit(int layout, const QString& name, const QString& value,
                                const QString& unit) override;

    /// The value in its columns, or with @p sics the body of a SICS weight answer:
    ///
    ///     "       100.00 g\r\n"
    ///
    /// The first blank is the place of the command letter, the print item inserts the letter of the stability as the
    /// third character, and what follows is a blank, the number in ten columns, a blank and the unit. PrintJob
    /// gives the answer as it is sent. Marks and brackets have no place there.
    QString FormatValue(int layout, const FormattedValue& value, bool sics) override;

    /// @p flag leaves the marks and brackets out.
    QString FormatNameValue(int layout, const QString& name, const FormattedValue& value, bool flag) override;

    /// Takes over the texts, the stability, the mark of a calculated value and the count of the digits that are not
    /// verified. A value without a number (not valid, not yet measured, beyond what can be shown) gets an error text.
    void ConvertValue(const MesswertData& value, FormattedValue& out) override;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_FORMATTER_H
