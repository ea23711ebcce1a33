// SPDX-License-Identifier: BSD-3-Clause

// What an action costs beside the work that it has done.

#include "ActionBase.h"
#include "AllocationCount.h"

#include <QMetaMethod>
#include <QObject>

using Brimvale::ActionBase;

namespace
{

class Worker : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QVariant work(QVariant data)
    {
        ++calls;
        return data;
    }

    static QMetaMethod method()
    {
        return staticMetaObject.method(staticMetaObject.indexOfMethod("work(QVariant)"));
    }

    long calls = 0;
};

class Announcer : public QObject
{
    Q_OBJECT

signals:
    void workDone(QVariant data);
};

// The yardstick: the invocation, for which the meta-object finds out that it is a direct one, and a signal with its
// result.
void invocationAndSignal(benchmark::State& state)
{
    Worker worker;
    Announcer announcer;
    long results = 0;
    QObject::connect(&announcer, &Announcer::workDone, &announcer, [&results] { ++results; });
    const QMetaMethod method = Worker::method();
    const QVariant data(42);
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        QVariant result;
        method.invoke(&worker, Q_RETURN_ARG(QVariant, result), Q_ARG(QVariant, data));
        emit announcer.workDone(result);
    }
    if (results != worker.calls)
        state.SkipWithError("a result is missing");
}
BENCHMARK(invocationAndSignal)->Name("ActionBase::doAction/limit:invocation and signal");

void action(benchmark::State& state)
{
    Worker worker;
    ActionBase action(nullptr);
    action.setWorker(&worker, Worker::method());
    long results = 0;
    QObject::connect(&action, &ActionBase::workDone, &action, [&results] { ++results; });
    const QVariant data(42);
    action.doAction(data); // the first guarded call sets up what the next ones use
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        action.doAction(data);
    if (results != worker.calls)
        state.SkipWithError("a result is missing");
}
BENCHMARK(action)->Name("ActionBase::doAction/ours");

void actionWithoutWorker(benchmark::State& state)
{
    ActionBase action(nullptr);
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        action.doAction();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(actionWithoutWorker)->Name("ActionBase::doAction without worker/ours");

} // namespace

#include "bench_actionbase.moc"
