// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TESTKIT_HANDEDOVER_H
#define BRIMVALE_TESTKIT_HANDEDOVER_H

#include <QList>
#include <QObject>
#include <QPointer>

namespace Brimvale::TestKit
{

/// Objects of a plug-in that were handed over, as long as they exist.
template <typename Interface>
class HandedOver
{
public:
    void add(Interface* object)
    {
        if (QObject* const qobject = dynamic_cast<QObject*>(object))
            m_entries.append({qobject, object});
    }

    void remove(const Interface* object)
    {
        for (int i = m_entries.size() - 1; i >= 0; --i) {
            if (m_entries[i].object == object)
                m_entries.removeAt(i);
        }
    }

    QList<Interface*> objects() const
    {
        QList<Interface*> list;
        for (const Entry& entry : m_entries) {
            if (entry.guard)
                list.append(entry.object);
        }
        return list;
    }

private:
    struct Entry
    {
        QPointer<QObject> guard;
        Interface* object;
    };

    QList<Entry> m_entries;
};

} // namespace Brimvale::TestKit

#endif
