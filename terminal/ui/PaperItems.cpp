// SPDX-License-Identifier: BSD-3-Clause
#include "ui/PaperItems.h"

#include "print/PaperText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <QQmlEngine>

namespace Brimvale
{
namespace Terminal
{

PaperLine::PaperLine(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void PaperLine::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    update();
    emit textChanged();
}

void PaperLine::setColumnWidth(qreal width)
{
    if (m_columnWidth == width)
        return;
    m_columnWidth = width;
    update();
    emit columnWidthChanged();
}

void PaperLine::setInk(const QColor& ink)
{
    if (m_ink == ink)
        return;
    m_ink = ink;
    update();
    emit inkChanged();
}

void PaperLine::paint(QPainter* painter)
{
    // Measured at a large size, so that rounding does not show.
    constexpr int MeasuredSize = 1000;
    QFont font = printFont();
    font.setPixelSize(MeasuredSize);
    const qreal advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
    const int size = qMax(1, qRound(m_columnWidth * MeasuredSize / advance));
    font.setPixelSize(size);
    // A font has whole pixels only; the rest is space between the letters.
    font.setLetterSpacing(QFont::AbsoluteSpacing, m_columnWidth - size * advance / MeasuredSize);
    painter->setFont(font);
    painter->setPen(m_ink);
    const QFontMetricsF metrics(font);
    drawPrintLine(*painter, QPointF(0.0, (height() + metrics.ascent() - metrics.descent()) / 2.0),
                  m_columnWidth, m_text);
}

PaperEdge::PaperEdge(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void PaperEdge::setColor(const QColor& color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void PaperEdge::paint(QPainter* painter)
{
    constexpr qreal Tooth = 6.0;
    const int teeth = qMax(1, qRound(width() / Tooth));
    const qreal tooth = width() / teeth;
    QPolygonF outline;
    outline << QPointF(0.0, height());
    for (int index = 0; index < teeth; ++index)
        outline << QPointF(index * tooth, height() / 2.0) << QPointF((index + 0.5) * tooth, 0.0);
    outline << QPointF(width(), height() / 2.0) << QPointF(width(), height());
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawPolygon(outline);
}

void registerPaperItems()
{
    qmlRegisterType<PaperLine>("Brimvale.Terminal", 1, 0, "PaperLine");
    qmlRegisterType<PaperEdge>("Brimvale.Terminal", 1, 0, "PaperEdge");
}

} // namespace Terminal
} // namespace Brimvale
