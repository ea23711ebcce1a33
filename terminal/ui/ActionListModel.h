// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ACTIONLISTMODEL_H
#define BRIMVALE_ACTIONLISTMODEL_H

#include <QAbstractListModel>
#include <QString>
#include <QVector>

namespace Brimvale
{
namespace Terminal
{

/// What the action bar shows of one action.
struct ActionEntry
{
    QString uid;         ///< Unique identifier, handed back when the button is pressed.
    QString name;        ///< Button text, translated; a line feed ends a line, a soft hyphen marks a break.
    bool enabled = true; ///< Whether the button can be pressed.
    bool toggle = false; ///< Whether the button has several states and shows which one is on.
    int toggleIndex = 0; ///< Current state of a toggle button, 0 up to maxToggleIndex.
    int maxToggleIndex = 0; ///< Highest state of a toggle button; 1 makes a plain on/off button.

    bool operator==(const ActionEntry& other) const;
    bool operator!=(const ActionEntry& other) const { return !(*this == other); }
};

/// The buttons of the action bar, in the order in which they are shown.
///
/// The model is fed by the host, which reads the actions of the active plug-in; the person's presses come
/// back as actionPressed(). Roles: uid, name, enabled, toggle, toggleIndex, maxToggleIndex.
class ActionListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(ActionListModel)
    /// Number of buttons.
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role
    {
        UidRole = Qt::UserRole + 1,
        NameRole,
        EnabledRole,
        ToggleRole,
        ToggleIndexRole,
        MaxToggleIndexRole
    };
    Q_ENUM(Role)

    explicit ActionListModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Number of buttons.
    int count() const;

    /// The buttons as they are shown.
    const QVector<ActionEntry>& actions() const;

    /// Replaces all buttons. When the sequence of identifiers is unchanged, only the buttons that differ are
    /// refreshed, so that a finger that rests on a button does not lose it.
    void setActions(const QVector<ActionEntry>& actions);

    /// Refreshes the button whose identifier is \a action.uid.
    /// \return false when there is no such button; nothing changes then.
    bool updateAction(const ActionEntry& action);

    /// Removes all buttons.
    void clear();

    /// Presses the button \a uid, as a finger does: emits actionPressed() when the button exists and is enabled.
    /// \return whether it was pressed.
    Q_INVOKABLE bool press(const QString& uid);

signals:
    /// The person pressed the enabled button \a uid.
    void actionPressed(const QString& uid);
    void countChanged();

private:
    int rowOf(const QString& uid) const;
    void setAction(int row, const ActionEntry& action);

    QVector<ActionEntry> m_actions;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_ACTIONLISTMODEL_H
