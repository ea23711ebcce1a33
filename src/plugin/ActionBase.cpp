// SPDX-License-Identifier: BSD-3-Clause
#include "ActionBase.h"

#include "core/Logging.h"
#include "core/WorkerInvocation.h"

#include <utility>

namespace Brimvale
{

ActionBase::ActionBase(QObject* parent)
    : QObject(parent)
{
}

ActionBase::~ActionBase()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool ActionBase::enabled() const
{
    return m_enabled;
}

void ActionBase::setEnable(bool enable)
{
    if (m_enabled == enable) {
        return;
    }
    m_enabled = enable;
    emit actionUpdated();
}

QString ActionBase::name() const
{
    return m_name;
}

void ActionBase::setName(const QString& name)
{
    if (m_name == name) {
        return;
    }
    m_name = name;
    emit actionUpdated();
}

QString ActionBase::uid() const
{
    return m_uid;
}

void ActionBase::setUid(QString uid)
{
    if (m_uid == uid) {
        return;
    }
    m_uid = uid;
    emit actionUpdated();
}

int ActionBase::getRank() const
{
    return m_rank;
}

void ActionBase::setRank(int rank)
{
    if (m_rank == rank) {
        return;
    }
    m_rank = rank;
    emit actionUpdated();
}

void ActionBase::setData(QVariant data)
{
    m_data = data;
}

bool ActionBase::setWorker(QObject* worker, QMetaMethod method)
{
    m_worker = worker;
    m_workerMethod = method;
    return true;
}

void ActionBase::doAction()
{
    QObject* const worker = m_worker;
    if (worker == nullptr) {
        return;
    }
    // The worker may destroy this action or set another method or other data: it is called with copies.
    const QPointer<ActionBase> self(this);
    const QMetaMethod method = m_workerMethod;
    const QVariant data = m_data;
    QVariant result;
    invokeWorker(worker, method, result, Q_ARG(QVariant, data));
    if (self) {
        emit workDone(std::move(result));
    }
}

void ActionBase::doAction(QVariant data)
{
    m_data = std::move(data);
    doAction();
}

} // namespace Brimvale
