// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRIGGERBASE_H
#define BRIMVALE_TRIGGERBASE_H

#include "ITrigger.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// The base of protocol triggers. A concrete trigger supplies `getName()`, sets uid, areas and application type, and
/// overrides what its condition needs: the defaults stand for a trigger without one.
class BRIMVALE_EXPORT TriggerBase : public QObject, public ITrigger
{
    Q_OBJECT
    Q_DISABLE_COPY(TriggerBase)
    Q_INTERFACES(Brimvale::ITrigger)

public:
    /// Makes a trigger without name and uid, for no area and every type of application; `parent` owns it.
    explicit TriggerBase(QObject* parent);
    ~TriggerBase() override;

    QString getName() const override = 0;

    /// Returns true.
    bool Check() override;

    /// Returns true.
    bool setTrigger(QVariant value) override;

    /// Returns true.
    bool setTrigger(QVariant first, QVariant second, QVariant third) override;

    void doTrigger() override;

    /// Does nothing.
    void setRunning(bool running) override;

    /// Returns true.
    bool isRunning() override;

    /// Returns true.
    bool isValueAvailable() override;

    QString getUId() const override;
    bool isAvailableIn(QFlags<ProtocolArea> areas, ApplicationType type) const override;

signals:
    /// The trigger has fired: a protocol is to start. `uid` is the trigger's.
    void notifyTriggered(QString uid) override;

public:
    /// The display name as stored; `getName()` of a concrete trigger may differ.
    void setName(const QString& name);

    /// The unique id, sent with `notifyTriggered()`.
    void setUid(QString uid);

    /// The areas of a protocol in which the trigger may be chosen.
    void setProtocolArea(QFlags<ProtocolArea> protocolArea);

    /// The type of application that the trigger serves; `ApplicationType::Any` for every type.
    void setApplicationType(ApplicationType applicationType);

private:
    QString m_name;
    QString m_uid;
    QFlags<ProtocolArea> m_protocolArea;
    ApplicationType m_applicationType = ApplicationType::Any;
};

} // namespace Brimvale

#endif
