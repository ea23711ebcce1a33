// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PAPERITEMS_H
#define BRIMVALE_PAPERITEMS_H

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

/// A line of a paper roll: each character stands in its column.
class PaperLine : public QQuickPaintedItem
{
    Q_OBJECT
    Q_DISABLE_COPY(PaperLine)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(qreal columnWidth READ columnWidth WRITE setColumnWidth NOTIFY columnWidthChanged)
    Q_PROPERTY(QColor ink READ ink WRITE setInk NOTIFY inkChanged)

public:
    explicit PaperLine(QQuickItem* parent = nullptr);

    QString text() const { return m_text; }
    qreal columnWidth() const { return m_columnWidth; }
    QColor ink() const { return m_ink; }
    void setText(const QString& text);
    void setColumnWidth(qreal width);
    void setInk(const QColor& ink);

    void paint(QPainter* painter) override;

signals:
    void textChanged();
    void columnWidthChanged();
    void inkChanged();

private:
    QString m_text;
    qreal m_columnWidth = 8.0;
    QColor m_ink = Qt::black;
};

/// The edge at which a roll was torn off.
class PaperEdge : public QQuickPaintedItem
{
    Q_OBJECT
    Q_DISABLE_COPY(PaperEdge)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit PaperEdge(QQuickItem* parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

signals:
    void colorChanged();

private:
    QColor m_color = Qt::white;
};

/// Makes both known to QML as Brimvale.Terminal 1.0.
void registerPaperItems();

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PAPERITEMS_H
