// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TEXTDIFFERENCE_H
#define BRIMVALE_TEXTDIFFERENCE_H

#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

/// Two texts side by side, line by line, @p expected on the left and @p found on the right. Between them stands a blank
/// where the lines are equal, `<` where one is missing, `>` where one is too much, and `!` where one has become
/// another. The first line of the result is a head. Blanks at the end of a line show as `·`.
QStringList sideBySide(const QString& expected, const QString& found);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TEXTDIFFERENCE_H
