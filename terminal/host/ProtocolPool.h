// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLPOOL_H
#define BRIMVALE_PROTOCOLPOOL_H

#include "IProtocolPool.h"
#include "host/OfferedList.h"

#include <QList>
#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The print items and triggers that plug-ins offer, in the order in which they came.
class ProtocolPool : public QObject, public IProtocolPool
{
    Q_OBJECT
    Q_DISABLE_COPY(ProtocolPool)

public:
    explicit ProtocolPool(HostCallLog& calls, QObject* parent = nullptr);

    // IProtocolPool
    void AddItem(IPrintableItem* item) override;
    void RemoveItem(IPrintableItem* item) override;
    void AddTrigger(ITrigger* trigger) override;
    void RemoveTrigger(ITrigger* trigger) override;

    QList<IPrintableItem*> items() const { return m_items.list(); }
    QList<ITrigger*> triggers() const { return m_triggers.list(); }

    /// Forgets everything: the plug-in has gone without withdrawing it.
    void clear();

signals:
    /// Something was offered or withdrawn. What is destroyed leaves without it.
    void changed();

private:
    HostCallLog& m_calls;
    OfferedList<IPrintableItem> m_items;
    OfferedList<ITrigger> m_triggers;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLPOOL_H
