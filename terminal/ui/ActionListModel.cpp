// SPDX-License-Identifier: BSD-3-Clause
#include "ActionListModel.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

bool ActionEntry::operator==(const ActionEntry& other) const
{
    return uid == other.uid && name == other.name && enabled == other.enabled && toggle == other.toggle
           && toggleIndex == other.toggleIndex && maxToggleIndex == other.maxToggleIndex;
}

ActionListModel::ActionListModel(QObject* parent)
    : QAbstractListModel(parent)
{
}

int ActionListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_actions.size();
}

QVariant ActionListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return QVariant();
    }
    const ActionEntry& action = m_actions.at(index.row());
    switch (role) {
    case UidRole:
        return action.uid;
    case NameRole:
    case Qt::DisplayRole:
        return action.name;
    case EnabledRole:
        return action.enabled;
    case ToggleRole:
        return action.toggle;
    case ToggleIndexRole:
        return action.toggleIndex;
    case MaxToggleIndexRole:
        return action.maxToggleIndex;
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> ActionListModel::roleNames() const
{
    return {{UidRole, QByteArrayLiteral("uid")},
            {NameRole, QByteArrayLiteral("name")},
            {EnabledRole, QByteArrayLiteral("enabled")},
            {ToggleRole, QByteArrayLiteral("toggle")},
            {ToggleIndexRole, QByteArrayLiteral("toggleIndex")},
            {MaxToggleIndexRole, QByteArrayLiteral("maxToggleIndex")}};
}

int ActionListModel::count() const
{
    return m_actions.size();
}

const QVector<ActionEntry>& ActionListModel::actions() const
{
    return m_actions;
}

void ActionListModel::setActions(const QVector<ActionEntry>& actions)
{
    const bool sameButtons = std::equal(
        m_actions.cbegin(), m_actions.cend(), actions.cbegin(), actions.cend(),
        [](const ActionEntry& shown, const ActionEntry& wanted) { return shown.uid == wanted.uid; });
    if (sameButtons) {
        for (int row = 0; row < actions.size(); ++row) {
            setAction(row, actions.at(row));
        }
        return;
    }

    const int countBefore = m_actions.size();
    beginResetModel();
    m_actions = actions;
    endResetModel();
    if (m_actions.size() != countBefore) {
        emit countChanged();
    }
}

bool ActionListModel::updateAction(const ActionEntry& action)
{
    const int row = rowOf(action.uid);
    if (row < 0) {
        return false;
    }
    setAction(row, action);
    return true;
}

void ActionListModel::clear()
{
    setActions(QVector<ActionEntry>());
}

bool ActionListModel::press(const QString& uid)
{
    const int row = rowOf(uid);
    if (row < 0 || !m_actions.at(row).enabled) {
        return false;
    }
    // The caller's text may be a reference into a row that the slot replaces.
    const QString pressed = uid; // NOLINT(performance-unnecessary-copy-initialization)
    emit actionPressed(pressed);
    return true;
}

int ActionListModel::rowOf(const QString& uid) const
{
    const auto found = std::find_if(m_actions.cbegin(), m_actions.cend(),
                                    [&uid](const ActionEntry& action) { return action.uid == uid; });
    return found == m_actions.cend() ? -1 : int(found - m_actions.cbegin());
}

void ActionListModel::setAction(int row, const ActionEntry& action)
{
    if (m_actions.at(row) == action) {
        return;
    }
    m_actions[row] = action;
    emit dataChanged(index(row), index(row));
}

} // namespace Terminal
} // namespace Brimvale
