// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LISTMODEL_H
#define BRIMVALE_LISTMODEL_H

#include "host/MenuItem.h"

#include <QAbstractListModel>
#include <QList>

namespace Brimvale
{

/// The items of a menu as a list that a screen can show. Roles: id, kind, text, parentId, helpFile.
class ListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(ListModel)

public:
    enum Role
    {
        IdRole = Qt::UserRole + 1,
        KindRole,
        TextRole,
        ParentIdRole,
        HelpFileRole
    };
    Q_ENUM(Role)

    explicit ListModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QList<MenuItem>& items() const { return m_items; }
    /// Replaces all items.
    void setItems(const QList<MenuItem>& items);

private:
    QList<MenuItem> m_items;
};

} // namespace Brimvale

#endif // BRIMVALE_LISTMODEL_H
