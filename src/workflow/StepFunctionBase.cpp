// SPDX-License-Identifier: BSD-3-Clause
#include "StepFunctionBase.h"

#include "IWorkflowScreen.h"
#include "core/Logging.h"
#include "core/WorkerInvocation.h"

// Known under its full name, so that the plain one can be registered as another name of the same type.
Q_DECLARE_METATYPE(Brimvale::IWorkflowScreen*)

namespace Brimvale
{

namespace
{

bool storeWorker(QPointer<QObject>& worker, QMetaMethod& workerMethod, QObject* object,
                 const QMetaMethod& method)
{
    if (object == nullptr) {
        return false;
    }
    worker = object;
    workerMethod = method;
    return true;
}

} // namespace

StepFunctionBase::StepFunctionBase(QObject* parent)
    : QObject(parent)
{
}

StepFunctionBase::~StepFunctionBase()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

bool StepFunctionBase::enabled() const
{
    return m_enabled;
}

QString StepFunctionBase::name() const
{
    return m_name;
}

QString StepFunctionBase::uid() const
{
    return m_uid;
}

int StepFunctionBase::getRank() const
{
    return m_rank;
}

bool StepFunctionBase::isProcess() const
{
    return m_isProcess;
}

void StepFunctionBase::startFunction(QVariant argument, QVariant data)
{
    QObject* const worker = m_worker;
    if (worker == nullptr) {
        return;
    }
    m_argument = argument;
    m_data = data;
    // The worker may destroy this function or set another method: it is called with copies.
    const QMetaMethod method = m_workerMethod;
    if (m_isProcess) {
        m_running = true;
        invokeWorker(worker, method, QGenericReturnArgument(), Q_ARG(QVariant, argument),
                     Q_ARG(QVariant, data));
        return;
    }
    const QPointer<StepFunctionBase> self(this);
    QVariant returnValue;
    invokeWorker(worker, method, returnValue, Q_ARG(QVariant, argument), Q_ARG(QVariant, data));
    if (self.isNull()) {
        return;
    }
    BRIMVALE_LOG_DEBUG("StepFunctionBase::startFunction: returnValue= " << returnValue);
    emit workDone(returnValue);
}

void StepFunctionBase::prepareResultForScreen(QVariant result, IWorkflowScreen* screen)
{
    QObject* const worker = m_screenWorker;
    if (worker == nullptr) {
        return;
    }
    // A worker declares its argument as it stands in its own scope, with or without the namespace.
    qRegisterMetaType<IWorkflowScreen*>("IWorkflowScreen*");
    const QMetaMethod method = m_screenWorkerMethod;
    invokeWorker(worker, method, QGenericReturnArgument(), Q_ARG(QVariant, result),
                 Q_ARG(IWorkflowScreen*, screen));
}

void StepFunctionBase::reset()
{
    QObject* const worker = m_resetWorker;
    if (worker == nullptr) {
        return;
    }
    const QMetaMethod method = m_resetWorkerMethod;
    invokeWorker(worker, method, QGenericReturnArgument());
}

void StepFunctionBase::functionDone(QVariant data)
{
    if (!m_running) {
        return;
    }
    m_running = false;
    BRIMVALE_LOG_DEBUG("StepFunctionBase::functionDone: data= " << data);
    emit workDone(data);
}

void StepFunctionBase::setEnable(bool enable)
{
    if (m_enabled == enable) {
        return;
    }
    m_enabled = enable;
    emit functionUpdated();
}

void StepFunctionBase::setName(const QString& name)
{
    if (m_name == name) {
        return;
    }
    m_name = name;
    emit functionUpdated();
}

void StepFunctionBase::setUid(QString uid)
{
    if (m_uid == uid) {
        return;
    }
    m_uid = uid;
    emit functionUpdated();
}

void StepFunctionBase::setRank(int rank)
{
    if (m_rank == rank) {
        return;
    }
    m_rank = rank;
    emit functionUpdated();
}

void StepFunctionBase::setIsProcess(bool isProcess)
{
    if (m_isProcess == isProcess) {
        return;
    }
    m_isProcess = isProcess;
    emit functionUpdated();
}

bool StepFunctionBase::setWorker(QObject* object, QMetaMethod method)
{
    return storeWorker(m_worker, m_workerMethod, object, method);
}

bool StepFunctionBase::setScreenWorker(QObject* object, QMetaMethod method)
{
    return storeWorker(m_screenWorker, m_screenWorkerMethod, object, method);
}

bool StepFunctionBase::setResetWorker(QObject* object, QMetaMethod method)
{
    return storeWorker(m_resetWorker, m_resetWorkerMethod, object, method);
}

void StepFunctionBase::setData(QVariant data)
{
    m_data = data;
}

} // namespace Brimvale
