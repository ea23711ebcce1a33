// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ITRIGGER_H
#define BRIMVALE_ITRIGGER_H

#include "ApplicationType.h"
#include "ProtocolArea.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// An event that a plug-in offers as the start of a protocol. A plug-in derives from `TriggerBase` or uses
/// `TriggerNoCheck`.
class BRIMVALE_EXPORT ITrigger
{
public:
    virtual ~ITrigger();

    /// The translated display name.
    virtual QString getName() const = 0;

    /// The unique id, sent with `notifyTriggered()`.
    virtual QString getUId() const = 0;

    /// True when the trigger serves applications of `type` and may be chosen in every one of `areas`; an
    /// empty set of areas gives true.
    virtual bool isAvailableIn(QFlags<ProtocolArea> areas, ApplicationType type) const = 0;

    /// Whether the trigger's condition holds now.
    virtual bool Check() = 0;

    /// Sets the condition from one value. Returns whether it was accepted.
    virtual bool setTrigger(QVariant value) = 0;

    /// Sets the condition from three values. Returns whether it was accepted.
    virtual bool setTrigger(QVariant first, QVariant second, QVariant third) = 0;

    /// Fires: emits `notifyTriggered()` with the uid.
    virtual void doTrigger() = 0;

    /// Starts or stops the watching of the condition.
    virtual void setRunning(bool running) = 0;

    /// Whether the condition is being watched.
    virtual bool isRunning() = 0;

    /// Whether a value is there that the protocol can print.
    virtual bool isValueAvailable() = 0;

    /// Signal of the implementing object: the trigger with this uid has fired.
    virtual void notifyTriggered(QString uid) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::ITrigger, "Brimvale.Protocol.ITrigger/1.0")

#endif
