// SPDX-License-Identifier: BSD-3-Clause
#include "print/PaperRoll.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

PaperRoll::PaperRoll(QObject* parent)
    : QAbstractListModel(parent)
{
}

int PaperRoll::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

QVariant PaperRoll::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Line& line = m_lines.at(index.row());
    if (role == TextRole)
        return line.text;
    return role == CutRole ? QVariant(line.cut) : QVariant();
}

QHash<int, QByteArray> PaperRoll::roleNames() const
{
    return {{TextRole, "lineText"}, {CutRole, "cut"}};
}

int PaperRoll::cuts() const
{
    return static_cast<int>(
        std::count_if(m_lines.begin(), m_lines.end(), [](const Line& line) { return line.cut; }));
}

QString PaperRoll::text() const
{
    QString text;
    for (const Line& line : m_lines)
        text += line.text + QLatin1Char('\n');
    return text;
}

void PaperRoll::widen(int columns)
{
    if (columns <= m_columns)
        return;
    m_columns = columns;
    emit columnsChanged();
}

void PaperRoll::addLines(const QStringList& lines)
{
    QVector<Line> added;
    for (const QString& line : lines)
        added.append({line, false});
    add(added);
}

void PaperRoll::addCut()
{
    add({{QString(), true}});
}

void PaperRoll::add(const QVector<Line>& lines)
{
    if (lines.isEmpty())
        return;
    beginInsertRows({}, m_lines.size(), m_lines.size() + lines.size() - 1);
    m_lines += lines;
    endInsertRows();
    const int surplus = m_lines.size() - MaximumLines;
    if (surplus > 0) {
        beginRemoveRows({}, 0, surplus - 1);
        m_lines.remove(0, surplus);
        endRemoveRows();
    }
    emit countChanged();
}

void PaperRoll::tearOff()
{
    beginResetModel();
    m_lines.clear();
    endResetModel();
    emit countChanged();
    if (m_columns != MinimumColumns) {
        m_columns = MinimumColumns;
        emit columnsChanged();
    }
}

RollPrinter::RollPrinter(PaperRoll& paper)
    : m_paper(paper)
{
}

QString RollPrinter::description() const
{
    return tr("Paper roll");
}

void RollPrinter::begin(const PrintJob& job, int firstBlock)
{
    Q_UNUSED(firstBlock)
    m_paper.widen(job.layout());
    emit done();
}

void RollPrinter::print(const QString& block)
{
    QStringList lines = PrintJob::text({block}).split(QLatin1Char('\n'));
    lines.removeLast(); // Behind the last line end.
    m_paper.addLines(lines);
    emit done();
}

void RollPrinter::end()
{
    m_paper.addCut();
    emit done();
}

} // namespace Terminal
} // namespace Brimvale
