// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_OFFEREDLIST_H
#define BRIMVALE_OFFEREDLIST_H

#include <QList>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace Brimvale
{
namespace Terminal
{

/// Objects that plug-ins offer through an interface, in the order in which they came. They are not owned. One
/// that is a QObject leaves the list when it is destroyed, whether it was withdrawn or not.
template <typename Interface>
class OfferedList
{
public:
    /// Null and what is there already are ignored.
    void add(Interface* offered)
    {
        if (offered != nullptr && !list().contains(offered)) {
            QObject* const object = dynamic_cast<QObject*>(offered);
            m_entries.push_back({offered, object, object != nullptr});
        }
    }

    /// One that is not there is ignored.
    void remove(Interface* offered)
    {
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                       [offered](const Entry& entry) { return entry.offered == offered; }),
                        m_entries.end());
    }

    void clear() { m_entries.clear(); }

    QList<Interface*> list() const
    {
        QList<Interface*> list;
        for (const Entry& entry : m_entries) {
            if (!entry.guarded || entry.object) {
                list.append(entry.offered);
            }
        }
        return list;
    }

private:
    struct Entry
    {
        Interface* offered;
        QPointer<QObject> object;
        bool guarded;
    };

    std::vector<Entry> m_entries;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_OFFEREDLIST_H
