// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ACTIONBASE_H
#define BRIMVALE_ACTIONBASE_H

#include "IAction.h"
#include "SharedLibsGlobal.h"

#include <QMetaMethod>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// A button of the terminal's action bar. Its work is done by a method of another object, the worker, so that no
/// class is needed per button:
///
///     auto* tare = new ActionBase(this);
///     tare->setName(tr("Tare"));
///     tare->setUid(QStringLiteral("weighing.tare"));
///     tare->setRank(1);
///     tare->setEnable(true);
///     tare->setWorker(this, metaObject()->method(metaObject()->indexOfMethod("onTare(QVariant)")));
///
/// A setter that changes something emits `actionUpdated()` once; setting the current value again emits nothing.
/// Used on the host's event-loop thread. The action must be taken out of the bar before it is destroyed.
class BRIMVALE_EXPORT ActionBase : public QObject, public IAction
{
    Q_OBJECT
    Q_DISABLE_COPY(ActionBase)
    Q_INTERFACES(Brimvale::IAction)

public:
    /// Makes a disabled action of rank 0 without name, uid and worker; `parent` owns it.
    explicit ActionBase(QObject* parent);
    ~ActionBase() override;

    bool enabled() const override;

    /// Makes the button one that can be pressed, or not.
    virtual void setEnable(bool enable);

    QString name() const override;

    /// Sets the text on the button, translated.
    virtual void setName(const QString& name);

    QString uid() const override;

    /// Sets the identifier, which must be unique within the plug-in.
    virtual void setUid(QString uid);

    int getRank() const override;

    /// Sets the place in the bar: lower ranks stand first.
    virtual void setRank(int rank);

    /// Stores the argument for the next `doAction()`; emits nothing.
    virtual void setData(QVariant data);

    /// Sets the object and its method that do the work: `QVariant method(QVariant data)`, a slot or an invokable.
    /// The worker is not owned; its destruction turns `doAction()` off. The method is not checked here. Returns true.
    virtual bool setWorker(QObject* worker, QMetaMethod method);

    /// Calls the worker with the stored data and emits `workDone()` with what it returned.
    ///
    /// Without a worker, or after its destruction, nothing happens. `workDone()` carries an invalid value when the
    /// method could not be called because its signature is another, and when the worker lives in another thread: the
    /// call is queued then and its result is lost. A worker may destroy the action; nothing is emitted in that case.
    void doAction() override;

    /// Stores `data` and calls `doAction()`.
    void doAction(QVariant data) override;

signals:
    /// Name, state or rank have changed.
    void actionUpdated() override;
    /// The work was done with the result `data`, see `doAction()`.
    void workDone(QVariant data) override;

private:
    QPointer<QObject> m_worker;
    QMetaMethod m_workerMethod;
    QVariant m_data;
    QString m_name;
    bool m_enabled = false;
    QString m_uid;
    int m_rank = 0;
};

} // namespace Brimvale

#endif
