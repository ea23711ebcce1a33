// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STATUSINFO_H
#define BRIMVALE_STATUSINFO_H

#include "IStatusInfo.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Texts about the terminal's state, as they were set.
class StatusInfo : public IStatusInfo
{
public:
    /// @param owner     the owner text: whose add-ons, action bars and stored parameters are used.
    /// @param logPrefix begins the log line of a started application.
    StatusInfo(HostCallLog& calls, const QString& owner, const QString& logPrefix);
    Q_DISABLE_COPY(StatusInfo)

    // IStatusInfo
    QString GetAddonText() override;
    QString GetLogPrefix() override;

    QString owner() const { return m_owner; }

private:
    HostCallLog& m_calls;
    const QString m_owner;
    const QString m_logPrefix;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_STATUSINFO_H
