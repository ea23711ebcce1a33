// SPDX-License-Identifier: BSD-3-Clause
#include "ui/ProtocolModel.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

bool ProtocolRow::operator==(const ProtocolRow& other) const
{
    return uid == other.uid && name == other.name && section == other.section && chosen == other.chosen;
}

ProtocolModel::ProtocolModel(QObject* parent)
    : QAbstractListModel(parent)
{
}

int ProtocolModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant ProtocolModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return QVariant();
    }
    const ProtocolRow& row = m_rows.at(index.row());
    switch (role) {
    case UidRole:
        return row.uid;
    case NameRole:
        return row.name;
    case SectionRole:
        return row.section;
    case ChosenRole:
        return row.chosen;
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> ProtocolModel::roleNames() const
{
    return {{UidRole, "uid"}, {NameRole, "name"}, {SectionRole, "section"}, {ChosenRole, "chosen"}};
}

void ProtocolModel::setOpen(bool open)
{
    if (m_open != open) {
        m_open = open;
        emit openChanged();
    }
}

void ProtocolModel::setOperatorName(const QString& name)
{
    if (m_operatorName != name) {
        m_operatorName = name;
        emit operatorNameChanged();
    }
}

int ProtocolModel::chosenCount() const
{
    return static_cast<int>(
        std::count_if(m_rows.begin(), m_rows.end(), [](const ProtocolRow& row) { return row.chosen; }));
}

void ProtocolModel::setRows(const QVector<ProtocolRow>& rows)
{
    if (m_rows == rows) {
        return;
    }
    // A section cannot change in place: the list would not lay its titles out anew.
    const bool sameRows = std::equal(
        m_rows.begin(), m_rows.end(), rows.begin(), rows.end(),
        [](const ProtocolRow& a, const ProtocolRow& b) { return a.uid == b.uid && a.section == b.section; });
    if (sameRows) {
        for (int row = 0; row < rows.size(); ++row) {
            if (m_rows.at(row) != rows.at(row)) {
                m_rows[row] = rows.at(row);
                emit dataChanged(index(row), index(row));
            }
        }
    } else {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
    emit rowsChanged();
}

void ProtocolModel::setSelection(const QString& kind, const QString& part, const QString& trigger)
{
    if (m_kind != kind || m_part != part || m_trigger != trigger) {
        m_kind = kind;
        m_part = part;
        m_trigger = trigger;
        emit selectionChanged();
    }
}

} // namespace Terminal
} // namespace Brimvale
