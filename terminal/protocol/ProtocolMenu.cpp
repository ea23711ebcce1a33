// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/ProtocolMenu.h"

#include "host/MenuItem.h"
#include "protocol/Protocol.h"

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

namespace
{

/// Names of a selection are joined by ";", so none may stand in a name.
QString withoutSeparator(QString name)
{
    return name.replace(QLatin1Char(';'), QLatin1Char(','));
}

bool isSelection(int id)
{
    return id >= ProtocolMenu::TypeId && id <= ProtocolMenu::TriggerId;
}

} // namespace

ProtocolMenu::ProtocolMenu(Protocol& protocol, const QString& name, QObject* parent)
    : MenuListBase(parent)
    , m_protocol(&protocol)
    , m_name(name)
{
}

QString ProtocolMenu::GetMenuName()
{
    return m_name.isEmpty() ? tr("Protocol") : m_name;
}

void ProtocolMenu::SetMenuName(QString name)
{
    m_name = name;
}

bool ProtocolMenu::IsItemVisible(int id, ListModel* model)
{
    Q_UNUSED(model)
    if (!m_protocol) {
        return false;
    }
    if (isSelection(id)) {
        return true;
    }
    const QString uid = uidOf(id);
    const QVector<ProtocolEntry> entries = m_protocol->entries();
    return std::any_of(entries.begin(), entries.end(),
                       [&uid](const ProtocolEntry& entry) { return !uid.isEmpty() && entry.uid == uid; });
}

bool ProtocolMenu::IsItemEnabled(int id, ListModel* model)
{
    return IsItemVisible(id, model);
}

QVariant ProtocolMenu::GetItemValue(int id)
{
    if (!m_protocol) {
        return QVariant();
    }
    const ProtocolChoice& choice = m_protocol->choice();
    switch (id) {
    case TypeId:
        return keyOf(choice.type);
    case PartId:
        return keyOf(choice.part);
    case TriggerId:
        return choice.trigger;
    default:
        break;
    }
    const QString uid = uidOf(id);
    return uid.isEmpty() ? QVariant() : QVariant(choice.items.contains(uid));
}

bool ProtocolMenu::SetItemValue(int id, QVariant value)
{
    if (!IsItemValueValid(id, value)) {
        return false;
    }
    ProtocolChoice choice = m_protocol->choice();
    switch (id) {
    case TypeId:
        choice.type = *protocolTypeOf(value.toString());
        break;
    case PartId:
        choice.part = *protocolPartOf(value.toString());
        break;
    case TriggerId:
        choice.trigger = value.toString();
        break;
    default:
        m_protocol->setChosen(uidOf(id), value.toBool());
        return true;
    }
    m_protocol->setChoice(choice);
    return true;
}

QString ProtocolMenu::GetItemText(int id)
{
    return menuItem(id).text;
}

QString ProtocolMenu::GetItemUnit(int id)
{
    Q_UNUSED(id)
    return QString();
}

bool ProtocolMenu::GetItemRange(int id, double* minimum, double* maximum)
{
    Q_UNUSED(id)
    Q_UNUSED(minimum)
    Q_UNUSED(maximum)
    return false;
}

QPair<QString, QString> ProtocolMenu::defineSelectionList(int id)
{
    const Selection list = selection(id);
    return {list.names.join(QLatin1Char(';')), list.values.join(QLatin1Char(';'))};
}

bool ProtocolMenu::IsItemValueValid(int id, QVariant value)
{
    if (!m_protocol) {
        return false;
    }
    if (isSelection(id)) {
        return selection(id).values.contains(value.toString());
    }
    return value.type() == QVariant::Bool && IsItemVisible(id, nullptr);
}

QString ProtocolMenu::GetUniqueNameFromIndexInSelectionList(int id, int index)
{
    return selection(id).values.value(index);
}

int ProtocolMenu::GetIndexFromUniqueNameInSelectionList(int id, QString name)
{
    return selection(id).values.indexOf(name);
}

bool ProtocolMenu::GetMenuItemList(QList<MenuItem>* items)
{
    items->clear();
    if (!m_protocol) {
        return false;
    }
    for (int id = TypeId; id <= TriggerId; ++id) {
        items->append(menuItem(id));
    }
    learnItems();
    const QVector<ProtocolEntry> entries = m_protocol->entries();
    for (const ProtocolEntry& entry : entries) {
        items->append(menuItem(idOf(entry.uid)));
    }
    return true;
}

bool ProtocolMenu::GetMenuItemById(int id, MenuItem* item)
{
    if (!IsItemVisible(id, nullptr)) {
        return false;
    }
    *item = menuItem(id);
    return true;
}

void ProtocolMenu::OnItemValueChanged(int id)
{
    Q_UNUSED(id) // a value takes effect when it is set
}

ProtocolMenu::Selection ProtocolMenu::selection(int id) const
{
    Selection list;
    if (!m_protocol) {
        return list;
    }
    switch (id) {
    case TypeId:
        for (const ProtocolType type : protocolTypes()) {
            list.names.append(withoutSeparator(Protocol::nameOf(type)));
            list.values.append(keyOf(type));
        }
        break;
    case PartId:
        for (const ProtocolPart part : protocolParts()) {
            list.names.append(withoutSeparator(Protocol::nameOf(part)));
            list.values.append(keyOf(part));
        }
        break;
    case TriggerId: {
        const QVector<ProtocolTriggerEntry> triggers = m_protocol->triggers();
        for (const ProtocolTriggerEntry& trigger : triggers) {
            if (!trigger.uid.contains(QLatin1Char(';'))) {
                list.names.append(withoutSeparator(trigger.name));
                list.values.append(trigger.uid);
            }
        }
        break;
    }
    default:
        break;
    }
    return list;
}

/// The uid of a print item; empty for another number.
QString ProtocolMenu::uidOf(int id)
{
    learnItems();
    return m_uids.value(id - FirstItemId);
}

int ProtocolMenu::idOf(const QString& uid)
{
    return FirstItemId + m_uids.indexOf(uid);
}

/// Gives numbers to items that have none yet.
void ProtocolMenu::learnItems()
{
    if (!m_protocol) {
        return;
    }
    const QVector<ProtocolEntry> entries = m_protocol->entries();
    for (const ProtocolEntry& entry : entries) {
        if (!m_uids.contains(entry.uid)) {
            m_uids.append(entry.uid);
        }
    }
}

/// The item as a menu file would hold it; empty for a number that there is not.
MenuItem ProtocolMenu::menuItem(int id)
{
    MenuItem item;
    item.id = id;
    if (isSelection(id)) {
        item.kind = QStringLiteral("selection");
        item.text = id == TypeId ? tr("Kind") : id == PartId ? tr("Part") : tr("Printed at");
        return item;
    }
    const QString uid = uidOf(id);
    const QVector<ProtocolEntry> entries = m_protocol ? m_protocol->entries() : QVector<ProtocolEntry>();
    for (const ProtocolEntry& entry : entries) {
        if (!uid.isEmpty() && entry.uid == uid) {
            item.kind = QStringLiteral("bool");
            item.text = entry.name;
        }
    }
    return item;
}

} // namespace Terminal
} // namespace Brimvale
