// SPDX-License-Identifier: BSD-3-Clause
#include "host/ListModel.h"

namespace Brimvale
{

ListModel::ListModel(QObject* parent)
    : QAbstractListModel(parent)
{
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_items.size()) {
        return QVariant();
    }
    const MenuItem& item = m_items.at(index.row());
    switch (role) {
    case IdRole:
        return item.id;
    case KindRole:
        return item.kind;
    case Qt::DisplayRole:
    case TextRole:
        return item.text;
    case ParentIdRole:
        return item.parentId;
    case HelpFileRole:
        return item.helpFile;
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> ListModel::roleNames() const
{
    return {{IdRole, "id"},
            {KindRole, "kind"},
            {TextRole, "text"},
            {ParentIdRole, "parentId"},
            {HelpFileRole, "helpFile"}};
}

void ListModel::setItems(const QList<MenuItem>& items)
{
    beginResetModel();
    m_items = items;
    endResetModel();
}

} // namespace Brimvale
