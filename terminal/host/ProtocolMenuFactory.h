// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PROTOCOLMENUFACTORY_H
#define BRIMVALE_PROTOCOLMENUFACTORY_H

#include "IProtocolMenuFactory.h"

#include <QCoreApplication>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;

/// Makes protocol menus. This terminal prints no protocols yet: it makes none (null), and a notice says so.
class ProtocolMenuFactory : public IProtocolMenuFactory
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::ProtocolMenuFactory)

public:
    ProtocolMenuFactory(HostCallLog& calls, Notices& notices);
    Q_DISABLE_COPY(ProtocolMenuFactory)

    // IProtocolMenuFactory
    IMenuList* CreateProtocolMenu(QString name, int number, bool flag) override;

private:
    HostCallLog& m_calls;
    Notices& m_notices;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PROTOCOLMENUFACTORY_H
