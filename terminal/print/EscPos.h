// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ESCPOS_H
#define BRIMVALE_ESCPOS_H

#include <QByteArray>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// The commands and characters of receipt printers (ESC/POS).
namespace EscPos
{

/// Initialises the printer and chooses the code page of encode(), number 19 (CP858).
QByteArray begin();

/// @p text in the code page CP858: that of Western Europe with the euro sign. Line ends become LF. A letter that is
/// written with a combining mark is put together; a character that the code page lacks becomes a '?' for each of its
/// columns, so that what follows stays in its place. Control characters are left out: no text can move the printer.
QByteArray encode(const QString& text);

/// Feeds the paper beyond the knife and cuts it.
QByteArray end();

} // namespace EscPos

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_ESCPOS_H
