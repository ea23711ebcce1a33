// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PAPERTEXT_H
#define BRIMVALE_PAPERTEXT_H

#include <QFont>
#include <QPointF>
#include <QString>

class QPainter;

namespace Brimvale
{
namespace Terminal
{

/// The font of print-outs: monospaced, of the best family that is installed. The caller sets the size.
QFont printFont();

/// Draws a line of a print-out with the painter's font so that each character stands in its column, also a wide one
/// that comes from another font. @p position is where the line's left edge meets its baseline.
void drawPrintLine(QPainter& painter, const QPointF& position, qreal columnWidth, const QString& line);

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PAPERTEXT_H
