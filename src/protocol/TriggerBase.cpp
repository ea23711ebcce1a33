// SPDX-License-Identifier: BSD-3-Clause
#include "TriggerBase.h"

namespace Brimvale
{

TriggerBase::TriggerBase(QObject* parent)
    : QObject(parent)
{
}

TriggerBase::~TriggerBase() = default;

bool TriggerBase::Check()
{
    return true;
}

bool TriggerBase::setTrigger(QVariant value)
{
    Q_UNUSED(value)
    return true;
}

bool TriggerBase::setTrigger(QVariant first, QVariant second, QVariant third)
{
    Q_UNUSED(first)
    Q_UNUSED(second)
    Q_UNUSED(third)
    return true;
}

void TriggerBase::doTrigger()
{
    // A copy: a receiver may destroy the trigger.
    const QString uid = m_uid;
    emit notifyTriggered(uid);
}

void TriggerBase::setRunning(bool running)
{
    Q_UNUSED(running)
}

bool TriggerBase::isRunning()
{
    return true;
}

bool TriggerBase::isValueAvailable()
{
    return true;
}

QString TriggerBase::getUId() const
{
    return m_uid;
}

bool TriggerBase::isAvailableIn(QFlags<ProtocolArea> areas, ApplicationType type) const
{
    if (m_applicationType != ApplicationType::Any && m_applicationType != type) {
        return false;
    }
    return (areas & ~m_protocolArea) == 0;
}

void TriggerBase::setName(const QString& name)
{
    m_name = name;
}

void TriggerBase::setUid(QString uid)
{
    m_uid = uid;
}

void TriggerBase::setProtocolArea(QFlags<ProtocolArea> protocolArea)
{
    m_protocolArea = protocolArea;
}

void TriggerBase::setApplicationType(ApplicationType applicationType)
{
    m_applicationType = applicationType;
}

} // namespace Brimvale
