// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STEPFUNCTIONBASE_H
#define BRIMVALE_STEPFUNCTIONBASE_H

#include "IStepFunction.h"
#include "SharedLibsGlobal.h"

#include <QMetaMethod>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// A step function whose work is done by methods of other objects, the workers:
///
/// - the *worker*: `QVariant work(QVariant argument, QVariant data)`. For a function with `isProcess()` its result is
///   not asked for: the work goes on, and the plug-in calls `functionDone()` with the result;
/// - the *screen worker*: `void show(QVariant result, IWorkflowScreen* screen)`;
/// - the *reset worker*: `void reset()`.
///
/// A worker that lives in the function's thread is called at once, one in another thread queued, and then its result is
/// lost. Workers are not owned; a destroyed one counts as not set. A method with another signature is not called, and
/// nothing is reported. A worker may destroy the function: nothing is emitted then.
class BRIMVALE_EXPORT StepFunctionBase : public QObject, public IStepFunction
{
    Q_OBJECT
    Q_DISABLE_COPY(StepFunctionBase)
    Q_INTERFACES(Brimvale::IStepFunction)

public:
    /// Makes a disabled function of rank 0 that is no process, without name, uid and workers; `parent` owns it.
    explicit StepFunctionBase(QObject* parent);
    ~StepFunctionBase() override;

    bool enabled() const override;
    QString name() const override;
    QString uid() const override;
    int getRank() const override;
    bool isProcess() const override;

    /// Stores both arguments and calls the worker. Without one nothing happens, and nothing is stored.
    ///
    /// A function that is no process emits `workDone()` once with what the worker returned, or with an invalid value
    /// when the worker could not be called or runs in another thread. A process is running from here to the next
    /// `functionDone()`; a second start calls the worker again.
    void startFunction(QVariant argument, QVariant data) override;

    void prepareResultForScreen(QVariant result, IWorkflowScreen* screen) override;

    /// Calls the reset worker. A running process stays one, and the arguments stay stored.
    void reset() override;

    /// Ends a running process and emits `workDone()`. A call without a running process is ignored.
    void functionDone(QVariant data) override;

signals:
    /// Name, state or rank have changed.
    void functionUpdated() override;

    /// The result of the function, once per run.
    void workDone(QVariant result);

public:
    // The setters emit functionUpdated() once when the value changes.

    /// Whether the function may be offered.
    void setEnable(bool enable);

    /// The display name, translated.
    void setName(const QString& name);

    /// The id by which workflow steps name the function.
    void setUid(QString uid);

    /// The place among other functions.
    void setRank(int rank);

    /// Whether the work goes on after `startFunction()`.
    void setIsProcess(bool isProcess);

    // The workers are kept by guarded pointers. A null object is refused with false and changes nothing; the method is
    // not checked.

    /// Sets the worker that `startFunction()` calls.
    bool setWorker(QObject* object, QMetaMethod method);
    /// Sets the screen worker, which `prepareResultForScreen()` calls.
    bool setScreenWorker(QObject* object, QMetaMethod method);
    /// Sets the reset worker, which `reset()` calls.
    bool setResetWorker(QObject* object, QMetaMethod method);

    /// Stores the second argument, which the next start replaces.
    void setData(QVariant data);

private:
    QPointer<QObject> m_worker;
    QMetaMethod m_workerMethod;
    QPointer<QObject> m_screenWorker;
    QMetaMethod m_screenWorkerMethod;
    QPointer<QObject> m_resetWorker;
    QMetaMethod m_resetWorkerMethod;
    QVariant m_argument;
    QVariant m_data;
    QString m_name;
    bool m_enabled = false;
    QString m_uid;
    int m_rank = 0;
    bool m_isProcess = false;
    bool m_running = false;
};

} // namespace Brimvale

#endif
