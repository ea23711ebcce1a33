// SPDX-License-Identifier: BSD-3-Clause
#include "print/PdfPrinter.h"

#include "print/PaperText.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int Resolution = 1200;
constexpr qreal MarginMillimetres = 20.0;
constexpr qreal LargestPoints = 11.0;
constexpr qreal SmallPoints = 8.0;
constexpr qreal LineSpacing = 1.25;
/// Of the page's height: head and foot with the space to the text.
constexpr qreal HeadPoints = 34.0;
constexpr qreal FootPoints = 26.0;

qreal units(qreal points)
{
    return points * Resolution / 72.0;
}

/// The font in which @p columns fit in @p width, in the painter's units.
QFont bodyFont(QPaintDevice* device, int columns, qreal width)
{
    QFont font = printFont();
    font.setPointSizeF(LargestPoints);
    const qreal needed = QFontMetricsF(font, device).horizontalAdvance(QLatin1Char('0')) * columns;
    if (needed > width)
        font.setPointSizeF(LargestPoints * width / needed);
    return font;
}

} // namespace

PdfPrinter::PdfPrinter(const QString& file, std::function<QDateTime()> time)
    : m_file(file)
    , m_time(std::move(time))
{
}

QString PdfPrinter::description() const
{
    return tr("PDF file %1").arg(m_file);
}

void PdfPrinter::begin(const PrintJob& job, int firstBlock)
{
    Q_UNUSED(firstBlock)
    m_title = job.title();
    m_columns = job.layout();
    m_blocks.clear();
    emit done();
}

void PdfPrinter::print(const QString& block)
{
    m_blocks.append(block);
    emit done();
}

void PdfPrinter::cancel()
{
    m_blocks.clear();
}

QString PdfPrinter::freeName() const
{
    if (!QFileInfo::exists(m_file))
        return m_file;
    const QString stem = m_file.left(m_file.size() - 4); // Without ".pdf".
    for (int number = 2;; ++number) {
        QString name = stem + QStringLiteral("-%1.pdf").arg(number);
        if (!QFileInfo::exists(name))
            return name;
    }
}

void PdfPrinter::end()
{
    const QString name = freeName();
    QSaveFile file(name);
    const auto fail = [this, &file, &name] {
        emit failed(
            {staticMetaObject.className(),
             QT_TR_NOOP("The PDF file %1 cannot be written: %2. Check the path, its permissions and the free "
                        "space, then repeat the print-out."),
             {name, file.errorString()}});
    };
    if (!file.open(QIODevice::WriteOnly)) {
        fail();
        return;
    }
    // The writer does not notice a disk that is full.
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setResolution(Resolution);
    writer.setCreator(QStringLiteral("brimvale-terminal"));
    writer.setTitle(m_title.isEmpty() ? tr("Print-out") : m_title);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(
        QMarginsF(MarginMillimetres, MarginMillimetres, MarginMillimetres, MarginMillimetres),
        QPageLayout::Millimeter);

    QPainter painter;
    if (!painter.begin(&writer)) {
        file.cancelWriting();
        fail();
        return;
    }
    const qreal width = writer.width();
    const qreal height = writer.height();
    const QFont body = bodyFont(&writer, m_columns, width);
    const QFontMetricsF bodyMetrics(body, &writer);
    QFont small = printFont();
    small.setPointSizeF(SmallPoints);
    const QFontMetricsF smallMetrics(small, &writer);
    const qreal lineHeight = units(body.pointSizeF()) * LineSpacing;
    const qreal columnWidth = bodyMetrics.horizontalAdvance(QLatin1Char('0'));

    QStringList lines = PrintJob::text(m_blocks).split(QLatin1Char('\n'));
    lines.removeLast(); // Behind the last line end.
    const int linesPerPage =
        std::max(1, static_cast<int>((height - units(HeadPoints) - units(FootPoints)) / lineHeight));
    const int pages = std::max(1, (lines.size() + linesPerPage - 1) / linesPerPage);
    const QString time = m_time().toString(QStringLiteral("yyyy-MM-dd HH:mm"));

    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            writer.newPage();
        painter.setFont(small);
        painter.setPen(QPen(Qt::black, units(0.5)));
        const qreal timeWidth = smallMetrics.horizontalAdvance(time);
        const qreal headBaseline = smallMetrics.ascent();
        painter.drawText(QPointF(0.0, headBaseline),
                         smallMetrics.elidedText(m_title, Qt::ElideRight, width - timeWidth - units(12.0)));
        painter.drawText(QPointF(width - timeWidth, headBaseline), time);
        painter.drawLine(QPointF(0.0, units(14.0)), QPointF(width, units(14.0)));
        const QString number = tr("Page %1 of %2").arg(page + 1).arg(pages);
        painter.drawText(
            QPointF(width - smallMetrics.horizontalAdvance(number), height - smallMetrics.descent()), number);

        painter.setFont(body);
        const int begin = page * linesPerPage;
        const int end = std::min(begin + linesPerPage, lines.size());
        for (int line = begin; line < end; ++line) {
            const qreal baseline = units(HeadPoints) + (line - begin) * lineHeight + bodyMetrics.ascent();
            drawPrintLine(painter, QPointF(0.0, baseline), columnWidth, lines.at(line));
        }
    }
    // Nor does commit() with what stands in the file's own buffer.
    if (!painter.end() || file.write(pdf.data()) != pdf.size() || !file.flush() || !file.commit()) {
        fail();
        return;
    }
    m_blocks.clear();
    m_lastFile = name;
    emit done();
}

} // namespace Terminal
} // namespace Brimvale
