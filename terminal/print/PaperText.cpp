// SPDX-License-Identifier: BSD-3-Clause
#include "print/PaperText.h"

#include "print/TextLayout.h"

#include <QFontDatabase>
#include <QPainter>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Whether every monospaced font has the character itself, so that it is exactly one column wide.
bool isLatin(const TextCell& cell)
{
    return cell.text.size() == 1 && cell.text.at(0).unicode() >= 0x20 && cell.text.at(0).unicode() < 0x100;
}

} // namespace

QFont printFont()
{
    const QStringList installed = QFontDatabase().families();
    for (const QString& family : {QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Liberation Mono"),
                                  QStringLiteral("Noto Sans Mono")}) {
        if (installed.contains(family)) {
            QFont font(family);
            font.setFixedPitch(true);
            font.setStyleHint(QFont::Monospace);
            font.setHintingPreference(QFont::PreferNoHinting);
            return font;
        }
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

void drawPrintLine(QPainter& painter, const QPointF& position, qreal columnWidth, const QString& line)
{
    int column = 0;
    int runColumn = 0;
    QString run;
    const auto drawRun = [&] {
        if (!run.trimmed().isEmpty())
            painter.drawText(position + QPointF(runColumn * columnWidth, 0.0), run);
        run.clear();
    };
    const QVector<TextCell> cells = textCells(line);
    for (const TextCell& cell : cells) {
        if (isLatin(cell)) {
            if (run.isEmpty())
                runColumn = column;
            run += cell.text;
        } else {
            drawRun();
            painter.drawText(position + QPointF(column * columnWidth, 0.0), cell.text);
        }
        column += cell.width;
    }
    drawRun();
}

} // namespace Terminal
} // namespace Brimvale
