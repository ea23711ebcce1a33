// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLMENUFACTORY_H
#define BRIMVALE_PROTOCOLMENUFACTORY_H

#include "IProtocolMenuFactory.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Protocol;

/// Makes protocol menus: see ProtocolMenu. The number and the flag are recorded and change nothing.
class ProtocolMenuFactory : public IProtocolMenuFactory
{
public:
    explicit ProtocolMenuFactory(HostCallLog& calls);
    Q_DISABLE_COPY(ProtocolMenuFactory)

    /// Sets the protocol that the menus show; not owned. Without one there is no menu.
    void setProtocol(Protocol* protocol) { m_protocol = protocol; }

    // IProtocolMenuFactory
    IMenuList* CreateProtocolMenu(QString name, int number, bool flag) override;

private:
    HostCallLog& m_calls;
    Protocol* m_protocol = nullptr;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLMENUFACTORY_H
