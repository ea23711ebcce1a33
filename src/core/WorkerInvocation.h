// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WORKERINVOCATION_H
#define BRIMVALE_WORKERINVOCATION_H

#include <QMetaMethod>
#include <QObject>
#include <QThread>

#include <initializer_list>

namespace Brimvale
{

/// Whether `method` belongs to the class of `worker` and takes the arguments in their types. An argument that the
/// method does not take is ignored, as it is in a connection of a signal with a slot. The meta-object compares only
/// the number of arguments and would read an argument of another type as if it were the declared one.
inline bool acceptsArguments(QObject* worker, const QMetaMethod& method,
                             std::initializer_list<QGenericArgument> arguments)
{
    if (!method.isValid() || method.enclosingMetaObject()->cast(worker) == nullptr
        || method.parameterCount() > static_cast<int>(arguments.size())) {
        return false;
    }
    for (int i = 0; i < method.parameterCount(); ++i) {
        const int declared = method.parameterType(i);
        // The usual type is known without a search among the names of all types.
        const char* const name = arguments.begin()[i].name();
        const int passed = qstrcmp(name, "QVariant") == 0 ? int(QMetaType::QVariant) : QMetaType::type(name);
        if (declared == QMetaType::UnknownType || declared != passed) {
            return false;
        }
    }
    return true;
}

/// Calls `method` on `worker`: directly when the worker lives in the calling thread, otherwise
/// queued and then without `result`, since a queued call that asks for a result is refused. Returns whether the call
/// was made or queued; `result` is written only by a direct call. The method and the arguments must not be members of
/// an object that the worker may destroy.
template <typename... Arguments>
bool invokeWorker(QObject* worker, const QMetaMethod& method, const QGenericReturnArgument& result,
                  const Arguments&... arguments)
{
    if (!acceptsArguments(worker, method, {arguments...})) {
        return false;
    }
    if (worker->thread() != QThread::currentThread()) {
        return method.invoke(worker, Qt::QueuedConnection, arguments...);
    }
    return method.invoke(worker, Qt::DirectConnection, result, arguments...);
}

} // namespace Brimvale

#endif
