// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRIGGERNOCHECK_H
#define BRIMVALE_TRIGGERNOCHECK_H

#include "SharedLibsGlobal.h"
#include "TriggerBase.h"

namespace Brimvale
{

/// A trigger without a condition: it fires when the plug-in calls `doTrigger()`.
class BRIMVALE_EXPORT TriggerNoCheck : public TriggerBase
{
    Q_OBJECT
    Q_DISABLE_COPY(TriggerNoCheck)

public:
    /// `name` is held by pointer and read when it is asked for: it belongs to the plug-in, must outlive the trigger
    /// and must not be null. `parent` owns the trigger.
    TriggerNoCheck(QObject* parent, const QString& uid, QString* name, QFlags<ProtocolArea> area,
                   ApplicationType type);
    ~TriggerNoCheck() override;

    QString getName() const override;

private:
    QString* m_namePtr;
};

} // namespace Brimvale

#endif
