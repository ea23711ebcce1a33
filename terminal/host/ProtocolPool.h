// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLPOOL_H
#define BRIMVALE_PROTOCOLPOOL_H

#include "IProtocolPool.h"

#include <QList>
#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The print items and triggers that plug-ins offer, in the order in which they came. This terminal prints no
/// protocols yet: they are kept and can be listed.
class ProtocolPool : public IProtocolPool
{
public:
    explicit ProtocolPool(HostCallLog& calls);
    Q_DISABLE_COPY(ProtocolPool)

    // IProtocolPool
    /// Null and what is there already are ignored.
    void AddItem(IPrintableItem* item) override;
    void RemoveItem(IPrintableItem* item) override;
    void AddTrigger(ITrigger* trigger) override;
    void RemoveTrigger(ITrigger* trigger) override;

    const QList<IPrintableItem*>& items() const { return m_items; }
    const QList<ITrigger*>& triggers() const { return m_triggers; }
    /// The plug-in has gone and its items and triggers with it.
    void clear();

private:
    HostCallLog& m_calls;
    QList<IPrintableItem*> m_items;
    QList<ITrigger*> m_triggers;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLPOOL_H
