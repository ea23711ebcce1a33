// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ACTIONBAR_H
#define BRIMVALE_ACTIONBAR_H

#include "IActionbar.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>

namespace Brimvale
{

class IAction;

namespace Terminal
{

class HostCallLog;
class Notices;
class StoredParameters;

/// One button of the action bar as it stands now.
struct ActionState
{
    QString uid;            ///< Unique identifier within the plug-in.
    QString name;           ///< Text on the button, translated.
    bool enabled = false;   ///< Whether the button can be pressed; never while the whole bar is disabled.
    bool toggle = false;    ///< Whether the button has several states.
    int toggleIndex = 0;    ///< Current state of a toggle button, 0 to maxToggleIndex.
    int maxToggleIndex = 0; ///< Highest state of a toggle button.

    bool operator==(const ActionState& other) const;
    bool operator!=(const ActionState& other) const { return !(*this == other); }
};

/// The action bar.
///
/// Order. The actions stand by rank, those of equal rank by uid. An entry overrides that: entry `i` with the
/// value `r` puts the first action of rank `r` at place `i`, and 0, the value of every entry at first, leaves
/// the place to the order. An entry whose rank no action has is without effect. There are EntryCount entries;
/// others are reported and ignored.
///
/// Entries are the user's arrangement, stored per add-on number and owner text (`StoredParameters`, menu file
/// "actionbar/<number>", profile "actionbar"). LoadEntries() reads them into a stage, ApplyEntries() of the
/// same number and text puts the stage into effect, and of others does nothing. SetEntry() takes effect at
/// once and is not stored. Refresh() reads all actions again. When the plug-in closes, clear() removes its
/// actions and entries.
///
/// An action is read again whenever it says actionUpdated(); one that is destroyed disappears. An action that
/// throws is reported and shows as a disabled button.
class ActionBar : public QObject, public IActionbar
{
    Q_OBJECT
    Q_DISABLE_COPY(ActionBar)

public:
    static constexpr int EntryCount = 32;

    ActionBar(HostCallLog& calls, Notices& notices, StoredParameters& parameters, QObject* parent = nullptr);

    // IActionbar
    void LoadEntries(int addonNumber, QString text) override;
    void ApplyEntries(int addonNumber, QString text) override;
    void Refresh() override;
    void SetEntry(int index, int value) override;
    void SetEnabled(int enabled) override;
    /// Adds an action. Null, an action that is no QObject, and a uid that is there already are reported and
    /// ignored; the same action is added once.
    void AddAction(IAction* action) override;
    void RemoveAction(IAction* action) override;

    /// The buttons from left to right.
    QVector<ActionState> actions() const { return m_states; }

    /// Whether the bar as a whole is enabled.
    bool isEnabled() const { return m_enabled; }

    /// The rank that entry @p index puts at its place; 0 for none.
    int entry(int index) const { return m_entries.value(index, 0); }

    /// Presses the button. Returns false when there is none of that uid or it is disabled. An action that
    /// throws is reported; it was pressed all the same.
    bool press(const QString& uid);

    /// What Refresh() does, for the terminal itself.
    void refresh();

    /// Removes all actions and entries and enables the bar.
    void clear();

signals:
    /// actions() has changed.
    void actionsChanged();

private slots:
    void onActionUpdated();
    void onActionDestroyed();

private:
    struct Item
    {
        IAction* action;
        QPointer<QObject> object; ///< The action's QObject face; null once it was destroyed.
        ActionState state;
        int rank = 0;
    };

    void read(Item& item);
    void arrange();

    HostCallLog& m_calls;
    Notices& m_notices;
    StoredParameters& m_parameters;
    bool m_enabled = true;
    QVector<Item> m_items;
    QMap<int, int> m_entries;
    QMap<int, int> m_stage;
    QString m_stageOwner;
    int m_stageNumber = 0;
    bool m_staged = false;
    QVector<ActionState> m_states;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_ACTIONBAR_H
