// SPDX-License-Identifier: BSD-3-Clause
#include "TriggerNoCheck.h"

#include "core/Logging.h"

namespace Brimvale
{

TriggerNoCheck::TriggerNoCheck(QObject* parent, const QString& uid, QString* name, QFlags<ProtocolArea> area,
                               ApplicationType type)
    : TriggerBase(parent)
    , m_namePtr(name)
{
    setUid(uid);
    setName(TriggerNoCheck::getName());
    setProtocolArea(area);
    setApplicationType(type);
}

TriggerNoCheck::~TriggerNoCheck()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

QString TriggerNoCheck::getName() const
{
    return *m_namePtr;
}

} // namespace Brimvale
