// SPDX-License-Identifier: BSD-3-Clause
#include "host/InfoBox.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

InfoBox::InfoBox(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

void InfoBox::SetItems(const QList<QObject*>& items)
{
    m_calls.command("IInfobox::SetItems", items);
    replace(items);
}

QList<QObject*> InfoBox::items() const
{
    QList<QObject*> items;
    for (const QPointer<QObject>& item : m_items) {
        if (item) {
            items.append(item);
        }
    }
    return items;
}

void InfoBox::clear()
{
    replace({});
}

void InfoBox::replace(const QList<QObject*>& items)
{
    if (items == this->items()) {
        return;
    }
    for (const QPointer<QObject>& item : qAsConst(m_items)) {
        if (item) {
            disconnect(item, &QObject::destroyed, this, &InfoBox::itemsChanged);
        }
    }
    m_items.clear();
    for (QObject* const item : items) {
        if (item != nullptr) {
            m_items.append(item);
            // A guarded pointer is null already when destroyed() is sent.
            connect(item, &QObject::destroyed, this, &InfoBox::itemsChanged, Qt::UniqueConnection);
        }
    }
    emit itemsChanged();
}

} // namespace Terminal
} // namespace Brimvale
