// SPDX-License-Identifier: BSD-3-Clause
#include "host/ActionBar.h"

#include "IAction.h"
#include "IActionToggle.h"
#include "host/HostCallLog.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "host/StoredParameters.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

bool ActionState::operator==(const ActionState& other) const
{
    return uid == other.uid && name == other.name && enabled == other.enabled && toggle == other.toggle
           && toggleIndex == other.toggleIndex && maxToggleIndex == other.maxToggleIndex;
}

ActionBar::ActionBar(HostCallLog& calls, Notices& notices, StoredParameters& parameters, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_parameters(parameters)
{
}

void ActionBar::LoadEntries(int addonNumber, QString text)
{
    m_calls.command("IActionbar::LoadEntries", addonNumber, text);
    m_stage.clear();
    const QString menuFile = QStringLiteral("actionbar/%1").arg(addonNumber);
    for (int i = 0; i < EntryCount; ++i) {
        const int rank =
            m_parameters.value(menuFile, text, QStringLiteral("actionbar"), QStringLiteral("0"), i).toInt();
        if (rank != 0) {
            m_stage.insert(i, rank);
        }
    }
    m_stageNumber = addonNumber;
    m_stageOwner = text;
    m_staged = true;
}

void ActionBar::ApplyEntries(int addonNumber, QString text)
{
    m_calls.command("IActionbar::ApplyEntries", addonNumber, text);
    if (m_staged && m_stageNumber == addonNumber && m_stageOwner == text) {
        m_entries = m_stage;
        m_staged = false;
        arrange();
    }
}

void ActionBar::Refresh()
{
    m_calls.command("IActionbar::Refresh");
    refresh();
}

void ActionBar::refresh()
{
    for (Item& item : m_items) {
        read(item);
    }
    arrange();
}

void ActionBar::SetEntry(int index, int value)
{
    m_calls.command("IActionbar::SetEntry", index, value);
    if (index < 0 || index >= EntryCount) {
        m_notices.post(NoticeSeverity::Warning,
                       tr("The action bar has no entry %1: entries are numbered 0 to %2.")
                           .arg(index)
                           .arg(EntryCount - 1));
        return;
    }
    if (value == 0) {
        m_entries.remove(index);
    } else {
        m_entries.insert(index, value);
    }
    arrange();
}

void ActionBar::SetEnabled(int enabled)
{
    m_calls.command("IActionbar::SetEnabled", enabled);
    m_enabled = enabled != 0;
    arrange();
}

void ActionBar::AddAction(IAction* action)
{
    m_calls.command("IActionbar::AddAction", action);
    if (action == nullptr) {
        m_notices.post(NoticeSeverity::Warning,
                       tr("An action that is null was not added to the action bar."));
        return;
    }
    QObject* const object = dynamic_cast<QObject*>(action);
    if (object == nullptr) {
        m_notices.post(
            NoticeSeverity::Warning,
            tr("An action that is no QObject was not added to the action bar. Derive it from ActionBase."));
        return;
    }
    for (const Item& item : qAsConst(m_items)) {
        if (item.action == action) {
            return;
        }
    }
    Item item;
    item.action = action;
    item.object = object;
    read(item);
    for (const Item& other : qAsConst(m_items)) {
        if (other.state.uid == item.state.uid) {
            m_notices.post(
                NoticeSeverity::Warning,
                tr("The action \"%1\" was not added to the action bar: \"%2\" has the same uid \"%3\". Give "
                   "every action a uid of its own with setUid().")
                    .arg(item.state.name, other.state.name, item.state.uid));
            return;
        }
    }
    m_items.append(item);
    // By name: the interface's signals are signals of whatever class implements it.
    connect(object, SIGNAL(actionUpdated()), this, SLOT(onActionUpdated()));
    connect(object, &QObject::destroyed, this, &ActionBar::onActionDestroyed);
    arrange();
}

void ActionBar::RemoveAction(IAction* action)
{
    m_calls.command("IActionbar::RemoveAction", action);
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items.at(i).action == action) {
            m_items.at(i).object->disconnect(this);
            m_items.remove(i);
            arrange();
            return;
        }
    }
}

bool ActionBar::press(const QString& uid)
{
    const auto state = std::find_if(m_states.begin(), m_states.end(),
                                    [&uid](const ActionState& state) { return state.uid == uid; });
    if (state == m_states.end() || !state->enabled) {
        return false;
    }
    const QString name = state->name;
    const auto item = std::find_if(m_items.begin(), m_items.end(),
                                   [&uid](const Item& item) { return item.state.uid == uid; });
    IAction* const action = item->action;
    // The worker may do anything, destroy the action or close the plug-in included: nothing is touched
    // afterwards.
    if (const auto exception = exceptionOf("an action", [action] { action->doAction(); })) {
        m_notices.postPluginFault(tr("The action \"%1\" failed: %2").arg(name, *exception));
    }
    return true;
}

void ActionBar::clear()
{
    for (const Item& item : qAsConst(m_items)) {
        item.object->disconnect(this);
    }
    m_items.clear();
    m_entries.clear();
    m_staged = false;
    m_enabled = true;
    arrange();
}

void ActionBar::read(Item& item)
{
    ActionState state;
    int rank = item.rank;
    const auto exception = exceptionOf([&] {
        state.uid = item.action->uid();
        state.name = item.action->name();
        state.enabled = item.action->enabled();
        rank = item.action->getRank();
        // The toggle face has no identifier: it is found by its name.
        if (void* const face = item.object->qt_metacast("IActionToggle")) {
            const auto* const toggle = static_cast<IActionToggle*>(face);
            state.maxToggleIndex = toggle->maxToggleIndex();
            state.toggleIndex = toggle->toggleIndex();
            state.toggle = state.maxToggleIndex > 0;
        }
    });
    if (exception) {
        state.enabled = false;
        m_notices.postPluginFault(tr("The action \"%1\" cannot be shown: %2")
                                      .arg(state.name.isEmpty()
                                               ? QString::fromLatin1(item.object->metaObject()->className())
                                               : state.name,
                                           *exception));
    }
    item.state = state;
    item.rank = rank;
}

void ActionBar::arrange()
{
    QVector<Item> rest = m_items;
    std::stable_sort(rest.begin(), rest.end(), [](const Item& left, const Item& right) {
        return left.rank != right.rank ? left.rank < right.rank : left.state.uid < right.state.uid;
    });

    // The actions with a place of their own are taken out first, then put in, from left to right.
    QVector<QPair<int, Item>> placed;
    for (auto entry = m_entries.constBegin(); entry != m_entries.constEnd(); ++entry) {
        const auto found = std::find_if(rest.begin(), rest.end(),
                                        [&entry](const Item& item) { return item.rank == entry.value(); });
        if (found != rest.end()) {
            placed.append({entry.key(), *found});
            rest.erase(found);
        }
    }
    for (const QPair<int, Item>& item : qAsConst(placed)) {
        rest.insert(std::min(item.first, rest.size()), item.second);
    }

    QVector<ActionState> states;
    for (const Item& item : qAsConst(rest)) {
        states.append(item.state);
        states.last().enabled = item.state.enabled && m_enabled;
    }
    if (states != m_states) {
        m_states = states;
        emit actionsChanged();
    }
}

void ActionBar::onActionUpdated()
{
    for (Item& item : m_items) {
        if (item.object == sender()) {
            read(item);
            arrange();
            return;
        }
    }
}

void ActionBar::onActionDestroyed()
{
    // The guarded pointer of the destroyed action is null already.
    m_items.erase(
        std::remove_if(m_items.begin(), m_items.end(), [](const Item& item) { return item.object.isNull(); }),
        m_items.end());
    arrange();
}

} // namespace Terminal
} // namespace Brimvale
