// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKERINVOCATION_H
#define BRIMVALE_WORKERINVOCATION_H

#include <QMetaMethod>
#include <QObject>
#include <QThread>

#include <initializer_list>

namespace Brimvale
{

/// Whether `method` belongs to the class of `worker` and takes arguments of these types. An argument that the method
/// does not take is ignored, as it is in a connection of a signal with a slot. The meta-object compares only the number
/// of arguments and would read an argument of another type as if it were the declared one.
inline bool acceptsArguments(QObject* worker, const QMetaMethod& method, std::initializer_list<int> types)
{
    const QMetaObject* const declaring = method.enclosingMetaObject();
    if (declaring == nullptr || (worker->metaObject() != declaring && declaring->cast(worker) == nullptr)) {
        return false;
    }
    const int count = method.parameterCount();
    if (count > static_cast<int>(types.size())) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        // That of an unregistered type is 0, which no argument has.
        if (method.parameterType(i) != types.begin()[i]) {
            return false;
        }
    }
    return true;
}

/// The type of an argument made by `Q_ARG()`. That of `QVariant` is a constant.
template <typename Type>
int typeOf(const QArgument<Type>&)
{
    return qMetaTypeId<Type>();
}

/// Calls `method` on `worker`: directly when the worker lives in the calling thread, otherwise
/// queued and then without `result`, since a queued call that asks for a result is refused. `result` is written only by a
/// direct call; a method that does not take the arguments is not called. The method and the arguments must not be members of
/// an object that the worker may destroy.
template <typename... Arguments>
void invokeWorker(QObject* worker, const QMetaMethod& method, const QGenericReturnArgument& result,
                  const Arguments&... arguments)
{
    if (!acceptsArguments(worker, method, {typeOf(arguments)...})) {
        return;
    }
    if (worker->thread() != QThread::currentThread()) {
        method.invoke(worker, Qt::QueuedConnection, arguments...);
    } else {
        method.invoke(worker, Qt::DirectConnection, result, arguments...);
    }
}

/// As above for a method that returns a `QVariant`. Any other one is left to the meta-object, which warns.
template <typename... Arguments>
void invokeWorker(QObject* worker, const QMetaMethod& method, QVariant& result, const Arguments&... arguments)
{
    // Once the types are known to be right, all that is left of QMetaMethod::invoke() is the call: its other checks
    // cost more than that.
    const QMetaObject* const declaring = method.enclosingMetaObject();
    const auto call = declaring != nullptr ? declaring->d.static_metacall : nullptr;
    if (call != nullptr && method.returnType() == QMetaType::QVariant
        && acceptsArguments(worker, method, {typeOf(arguments)...})
        && worker->thread() == QThread::currentThread()) {
        void* values[] = {&result, arguments.data()...};
        call(worker, QMetaObject::InvokeMetaMethod, method.methodIndex() - declaring->methodOffset(), values);
        return;
    }
    invokeWorker(worker, method, QGenericReturnArgument(Q_RETURN_ARG(QVariant, result)), arguments...);
}

} // namespace Brimvale

#endif
