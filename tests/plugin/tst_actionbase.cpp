// SPDX-License-Identifier: BSD-3-Clause

#include "ActionBase.h"
#include "LogRecorder.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <QtTest>

#include <functional>
#include <memory>
#include <utility>

using Brimvale::ActionBase;
using Brimvale::IAction;

namespace
{

// A type that is not registered.
struct Unknown
{
};

// Records its calls. What a call does is set by the test.
class Worker : public QObject
{
    Q_OBJECT

public:
    QStringList calls;
    QVariantList received;
    QVariant answer = QStringLiteral("done");
    QVariant receivedAtEnd; // of byReference()
    std::function<void()> onCall;

    Q_INVOKABLE QVariant invokable(QVariant data) { return record("invokable", data); }
    Q_INVOKABLE QVariant byReference(const QVariant& data)
    {
        const QVariant result = record("byReference", data);
        receivedAtEnd = data;
        return result;
    }
    Q_INVOKABLE QVariant withoutArgument() { return record("withoutArgument", QVariant()); }
    Q_INVOKABLE QVariant text(const QString& data) { return record("text", data); }
    Q_INVOKABLE QVariant number(int data) { return record("number", data); }
    Q_INVOKABLE QVariant unknown(const Unknown&) { return record("unknown", QVariant()); }
    Q_INVOKABLE QVariant twoArguments(QVariant data, QVariant) { return record("twoArguments", data); }
    Q_INVOKABLE void noResult(QVariant data) { record("noResult", data); }
    Q_INVOKABLE QString textResult(QVariant data) { return record("textResult", data).toString(); }
    Q_INVOKABLE bool boolResult(QVariant data) { return record("boolResult", data).toBool(); }

public slots:
    QVariant work(QVariant data) { return record("work", data); }

signals:
    void notSlot(QVariant data);

private:
    QVariant record(const char* name, const QVariant& data)
    {
        calls.append(QLatin1String(name));
        received.append(data);
        const QVariant result = answer;
        const std::function<void()> call = onCall;
        if (call)
            call(); // may destroy the worker
        return result;
    }
};

class DerivedWorker : public Worker
{
    Q_OBJECT
};

class OtherWorker : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QVariant work(QVariant data)
    {
        ++calls;
        return data;
    }

    int calls = 0;
};

// Works in the thread it lives in.
class DistantWorker : public QObject
{
    Q_OBJECT

public:
    QSemaphore begin;
    QSemaphore ended;
    QVariantList received;
    QVector<QThread*> threads;

    Q_INVOKABLE QVariant work(QVariant data)
    {
        begin.acquire();
        received.append(data);
        threads.append(QThread::currentThread());
        ended.release();
        return QStringLiteral("lost");
    }
    Q_INVOKABLE QVariant text(const QString& data) { return work(data); }
    Q_INVOKABLE void noResult(QVariant data) { work(data); }
};

class OverridingAction : public ActionBase
{
public:
    OverridingAction()
        : ActionBase(nullptr)
    {
    }

    using ActionBase::doAction;
    void doAction() override
    {
        ++calls;
        if (passOn)
            ActionBase::doAction();
    }

    int calls = 0;
    bool passOn = false;
};

template <typename Type>
QMetaMethod method(const char* signature)
{
    const int index = Type::staticMetaObject.indexOfMethod(signature);
    return index < 0 ? QMetaMethod() : Type::staticMetaObject.method(index);
}

QMetaMethod work()
{
    return method<Worker>("work(QVariant)");
}

} // namespace

class TestActionBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newActionIsDisabledAndEmpty();
    void parentOwnsTheAction();
    void setterEmitsOnceOnChange_data();
    void setterEmitsOnceOnChange();
    void setterEmitsNothingForTheSameValue_data() { setterEmitsOnceOnChange_data(); }
    void setterEmitsNothingForTheSameValue();
    void settingBackEmitsAgain_data() { setterEmitsOnceOnChange_data(); }
    void settingBackEmitsAgain();
    void namesAreComparedExactly();
    void nullNameIsTheEmptyName();
    void actionMayBeDestroyedByItsUpdate();
    void setDataEmitsNothing();
    void setWorkerReturnsTrue_data();
    void setWorkerReturnsTrue();

    void workerIsCalledWithTheValueGiven_data();
    void workerIsCalledWithTheValueGiven();
    void workDoneCarriesTheWorkersResult_data();
    void workDoneCarriesTheWorkersResult();
    void workerIsCalledWithTheStoredValue();
    void storedValueIsKept();
    void workerWithoutDataGetsAnInvalidValue();
    void workDoneComesAfterTheWork();
    void actionIsUsableAsInterface();
    void methodsThatAreAccepted_data();
    void methodsThatAreAccepted();
    void otherSignatureIsNotCalled_data();
    void otherSignatureIsNotCalled();
    void methodOfAnotherClassIsNotCalled();
    void inheritedMethodIsCalled();
    void invalidMethodGivesAnInvalidResult();
    void signalAsMethodIsEmitted();

    void actionWithoutWorkerDoesNothing_data();
    void actionWithoutWorkerDoesNothing();
    void destroyedWorkerIsForgotten();
    void overriddenActionRunsWithData();
    void dataIsStoredBeforeAnOverriddenActionRuns();

    void workerMayDestroyItself();
    void workerMayDestroyTheAction();
    void workerMayDestroyBoth();
    void receiverMayDestroyTheAction();
    void workerKeepsItsArgument_data();
    void workerKeepsItsArgument();
    void workerMaySetOtherData();
    void workerMaySetAnotherWorker();
    void workerMayTakeItselfAway();
    void workerMayRunTheActionAgain();

    void distantWorkerIsQueued();
    void distantWorkerWithoutResultIsQueued();
    void distantWorkerWithOtherSignatureIsNotCalled();
    void destroyedDistantWorkerIsForgotten();
    void everyDistantCallHasItsOwnData();

    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<ActionBase> m_action;
    std::unique_ptr<Worker> m_worker;
    int m_updates = 0;
    QVariantList m_results; // of workDone()
};

void TestActionBase::init()
{
    m_action = std::make_unique<ActionBase>(nullptr);
    m_worker = std::make_unique<Worker>();
    m_updates = 0;
    m_results.clear();
    connect(m_action.get(), &ActionBase::actionUpdated, this, [this] { ++m_updates; });
    connect(m_action.get(), &ActionBase::workDone, this,
            [this](const QVariant& result) { m_results.append(result); });
}

void TestActionBase::cleanup()
{
    m_action.reset();
    m_worker.reset();
}

void TestActionBase::newActionIsDisabledAndEmpty()
{
    QCOMPARE(m_action->enabled(), false);
    QCOMPARE(m_action->name(), QString());
    QCOMPARE(m_action->uid(), QString());
    QCOMPARE(m_action->getRank(), 0);
}

void TestActionBase::parentOwnsTheAction()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<ActionBase> action = new ActionBase(parent.get());
    QCOMPARE(action->parent(), parent.get());
    parent.reset();
    QVERIFY(action.isNull());
}

using Set = void (*)(ActionBase&);
Q_DECLARE_METATYPE(Set)

void TestActionBase::setterEmitsOnceOnChange_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<Set>("setBack");
    QTest::addColumn<QVariantList>("values"); // enabled, name, uid, rank

    const auto row = [](const char* name, Set set, Set setBack, const QVariantList& values) {
        QTest::newRow(name) << set << setBack << values;
    };
    row(
        "enabled", [](ActionBase& action) { action.setEnable(true); },
        [](ActionBase& action) { action.setEnable(false); }, {true, QString(), QString(), 0});
    row(
        "name", [](ActionBase& action) { action.setName(QStringLiteral("Tare")); },
        [](ActionBase& action) { action.setName(QString()); }, {false, QStringLiteral("Tare"), QString(), 0});
    row(
        "uid", [](ActionBase& action) { action.setUid(QStringLiteral("weighing.tare")); },
        [](ActionBase& action) { action.setUid(QString()); },
        {false, QString(), QStringLiteral("weighing.tare"), 0});
    row(
        "rank", [](ActionBase& action) { action.setRank(-3); }, [](ActionBase& action) { action.setRank(0); },
        {false, QString(), QString(), -3});
}

void TestActionBase::setterEmitsOnceOnChange()
{
    QFETCH(Set, set);
    QVariantList seen;
    const auto values = [this] {
        return QVariantList{m_action->enabled(), m_action->name(), m_action->uid(), m_action->getRank()};
    };
    connect(m_action.get(), &ActionBase::actionUpdated, this, [&seen, &values] { seen = values(); });
    set(*m_action);
    QCOMPARE(m_updates, 1);
    QTEST(values(), "values");
    QTEST(seen, "values"); // the value is there when the change is announced
    QCOMPARE(m_results, QVariantList());
}

void TestActionBase::setterEmitsNothingForTheSameValue()
{
    QFETCH(Set, set);
    set(*m_action);
    m_updates = 0;
    set(*m_action);
    QCOMPARE(m_updates, 0);
    QTEST((QVariantList{m_action->enabled(), m_action->name(), m_action->uid(), m_action->getRank()}),
          "values");
}

void TestActionBase::settingBackEmitsAgain()
{
    QFETCH(Set, set);
    QFETCH(Set, setBack);
    set(*m_action);
    setBack(*m_action);
    QCOMPARE(m_updates, 2);
    newActionIsDisabledAndEmpty();
}

void TestActionBase::namesAreComparedExactly()
{
    m_action->setName(QStringLiteral("Tare"));
    m_action->setUid(QStringLiteral("tare"));
    m_updates = 0;
    m_action->setName(QStringLiteral("tare"));
    m_action->setUid(QStringLiteral("tare "));
    QCOMPARE(m_updates, 2);
}

void TestActionBase::nullNameIsTheEmptyName()
{
    m_action->setName(QStringLiteral(""));
    m_action->setUid(QStringLiteral(""));
    QCOMPARE(m_updates, 0);
}

void TestActionBase::actionMayBeDestroyedByItsUpdate()
{
    connect(m_action.get(), &ActionBase::actionUpdated, this, [this] { m_action.reset(); });
    m_action->setName(QStringLiteral("Tare"));
    QVERIFY(m_action == nullptr);
    QCOMPARE(m_updates, 1);
}

void TestActionBase::setDataEmitsNothing()
{
    m_action->setData(7);
    m_action->setData(8);
    QCOMPARE(m_updates, 0);
    QCOMPARE(m_results, QVariantList());
}

void TestActionBase::setWorkerReturnsTrue_data()
{
    QTest::addColumn<bool>("hasWorker");
    QTest::addColumn<bool>("hasMethod");
    QTest::newRow("worker and method") << true << true;
    QTest::newRow("worker without method") << true << false;
    QTest::newRow("method without worker") << false << true;
    QTest::newRow("neither") << false << false;
}

void TestActionBase::setWorkerReturnsTrue()
{
    QFETCH(bool, hasWorker);
    QFETCH(bool, hasMethod);
    QVERIFY(m_action->setWorker(hasWorker ? m_worker.get() : nullptr, hasMethod ? work() : QMetaMethod()));
    QCOMPARE(m_updates, 0);
}

void TestActionBase::workerIsCalledWithTheValueGiven_data()
{
    QTest::addColumn<QVariant>("data");

    QTest::newRow("number") << QVariant(42);
    QTest::newRow("text") << QVariant(QStringLiteral("12.34 g"));
    QTest::newRow("list") << QVariant(QVariantList{1, QStringLiteral("two")});
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null text") << QVariant(QString());
}

void TestActionBase::workerIsCalledWithTheValueGiven()
{
    QFETCH(QVariant, data);
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(data);
    QCOMPARE(m_worker->calls, QStringList(QStringLiteral("work")));
    QCOMPARE(m_worker->received, QVariantList{data});
    QCOMPARE(m_worker->received.first().userType(), data.userType());
}

void TestActionBase::workDoneCarriesTheWorkersResult_data()
{
    workerIsCalledWithTheValueGiven_data();
}

void TestActionBase::workDoneCarriesTheWorkersResult()
{
    QFETCH(QVariant, data);
    m_worker->answer = data;
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(QStringLiteral("argument"));
    QCOMPARE(m_results, QVariantList{data});
    QCOMPARE(m_results.first().userType(), data.userType());
    QCOMPARE(m_updates, 0);
}

void TestActionBase::workerIsCalledWithTheStoredValue()
{
    m_action->setWorker(m_worker.get(), work());
    m_action->setData(1);
    m_action->setData(2);
    m_action->doAction();
    QCOMPARE(m_worker->received, QVariantList{2});
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::storedValueIsKept()
{
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(3);
    m_action->doAction();
    QCOMPARE(m_worker->received, (QVariantList{3, 3}));
}

void TestActionBase::workerWithoutDataGetsAnInvalidValue()
{
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction();
    QCOMPARE(m_worker->received.size(), 1);
    QVERIFY(!m_worker->received.first().isValid());
}

void TestActionBase::workDoneComesAfterTheWork()
{
    int resultsDuringWork = -1;
    m_worker->onCall = [this, &resultsDuringWork] { resultsDuringWork = m_results.size(); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction();
    QCOMPARE(resultsDuringWork, 0);
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::actionIsUsableAsInterface()
{
    m_action->setWorker(m_worker.get(), work());
    m_action->setEnable(true);
    m_action->setName(QStringLiteral("Tare"));
    m_action->setUid(QStringLiteral("weighing.tare"));
    m_action->setRank(4);
    m_updates = 0;

    auto* const action = qobject_cast<IAction*>(static_cast<QObject*>(m_action.get()));
    QCOMPARE(action->enabled(), true);
    QCOMPARE(action->name(), QStringLiteral("Tare"));
    QCOMPARE(action->uid(), QStringLiteral("weighing.tare"));
    QCOMPARE(action->getRank(), 4);
    action->doAction(5);
    action->doAction();
    QCOMPARE(m_worker->received, (QVariantList{5, 5}));
    QCOMPARE(m_results.size(), 2);
    // The interface's signals are those of the object.
    action->actionUpdated();
    action->workDone(6);
    QCOMPARE(m_updates, 1);
    QCOMPARE(m_results.last(), QVariant(6));
}

void TestActionBase::methodsThatAreAccepted_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QString>("call");

    QTest::newRow("slot") << QByteArray("work(QVariant)") << QStringLiteral("work");
    QTest::newRow("invokable") << QByteArray("invokable(QVariant)") << QStringLiteral("invokable");
    QTest::newRow("by reference") << QByteArray("byReference(QVariant)") << QStringLiteral("byReference");
    // As in a connection, an argument that is not asked for is left out.
    QTest::newRow("without argument") << QByteArray("withoutArgument()") << QStringLiteral("withoutArgument");
}

void TestActionBase::methodsThatAreAccepted()
{
    QFETCH(QByteArray, signature);
    QVERIFY(method<Worker>(signature).isValid());
    m_action->setWorker(m_worker.get(), method<Worker>(signature));
    m_action->doAction(QStringLiteral("argument"));
    QTEST(m_worker->calls.join(QLatin1Char(',')), "call");
    QCOMPARE(m_results, QVariantList{QStringLiteral("done")});
}

void TestActionBase::otherSignatureIsNotCalled_data()
{
    QTest::addColumn<QByteArray>("signature");

    QTest::newRow("text for a value") << QByteArray("text(QString)");
    QTest::newRow("number for a value") << QByteArray("number(int)");
    QTest::newRow("unregistered type for a value") << QByteArray("unknown(Unknown)");
    QTest::newRow("two arguments") << QByteArray("twoArguments(QVariant,QVariant)");
    QTest::newRow("no result") << QByteArray("noResult(QVariant)");
    QTest::newRow("text as result") << QByteArray("textResult(QVariant)");
    QTest::newRow("flag as result") << QByteArray("boolResult(QVariant)");
}

void TestActionBase::otherSignatureIsNotCalled()
{
    QFETCH(QByteArray, signature);
    QVERIFY(method<Worker>(signature).isValid());
    m_action->setWorker(m_worker.get(), method<Worker>(signature));
    m_action->doAction(QStringLiteral("argument"));
    QCOMPARE(m_worker->calls, QStringList());
    QCOMPARE(m_results, QVariantList{QVariant()});
    QVERIFY(!m_results.first().isValid());
}

void TestActionBase::methodOfAnotherClassIsNotCalled()
{
    QVERIFY(method<OtherWorker>("work(QVariant)").isValid());
    m_action->setWorker(m_worker.get(), method<OtherWorker>("work(QVariant)"));
    m_action->doAction(1);
    QCOMPARE(m_worker->calls, QStringList());
    QCOMPARE(m_results.size(), 1);
    QVERIFY(!m_results.first().isValid());

    OtherWorker other;
    m_action->setWorker(&other, work());
    m_action->doAction(1);
    QCOMPARE(other.calls, 0);
    QCOMPARE(m_results.size(), 2);
}

void TestActionBase::inheritedMethodIsCalled()
{
    DerivedWorker worker;
    m_action->setWorker(&worker, work());
    m_action->doAction(1);
    QCOMPARE(worker.calls, QStringList(QStringLiteral("work")));
    QCOMPARE(m_results, QVariantList{QStringLiteral("done")});
}

void TestActionBase::invalidMethodGivesAnInvalidResult()
{
    m_action->setWorker(m_worker.get(), QMetaMethod());
    m_action->doAction(1);
    QCOMPARE(m_results.size(), 1);
    QVERIFY(!m_results.first().isValid());
    QCOMPARE(m_worker->calls, QStringList());
}

void TestActionBase::signalAsMethodIsEmitted()
{
    // A signal has no result, so the call is refused.
    int emitted = 0;
    connect(m_worker.get(), &Worker::notSlot, this, [&emitted] { ++emitted; });
    m_action->setWorker(m_worker.get(), method<Worker>("notSlot(QVariant)"));
    m_action->doAction(1);
    QCOMPARE(emitted, 0);
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::actionWithoutWorkerDoesNothing_data()
{
    QTest::addColumn<bool>("set");
    QTest::newRow("never set") << false;
    QTest::newRow("set to none") << true;
}

void TestActionBase::actionWithoutWorkerDoesNothing()
{
    QFETCH(bool, set);
    if (set) {
        m_action->setWorker(m_worker.get(), work());
        m_action->setWorker(nullptr, work());
    }
    m_action->doAction();
    m_action->doAction(1);
    QCOMPARE(m_results, QVariantList());
    QCOMPARE(m_updates, 0);
    QCOMPARE(m_worker->calls, QStringList());
}

void TestActionBase::destroyedWorkerIsForgotten()
{
    m_action->setWorker(m_worker.get(), work());
    m_worker.reset();
    m_action->doAction();
    m_action->doAction(1);
    QCOMPARE(m_results, QVariantList());
    QCOMPARE(m_updates, 0);
}

void TestActionBase::overriddenActionRunsWithData()
{
    OverridingAction action;
    action.setWorker(m_worker.get(), work());
    static_cast<IAction&>(action).doAction(1);
    QCOMPARE(action.calls, 1);
    QCOMPARE(m_worker->calls, QStringList());
}

void TestActionBase::dataIsStoredBeforeAnOverriddenActionRuns()
{
    OverridingAction action;
    action.passOn = true;
    action.setWorker(m_worker.get(), work());
    action.setData(1);
    action.doAction(2);
    QCOMPARE(action.calls, 1);
    QCOMPARE(m_worker->received, QVariantList{2});
}

void TestActionBase::workerMayDestroyItself()
{
    m_worker->onCall = [this] { m_worker.reset(); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(1);
    QVERIFY(m_worker == nullptr);
    QCOMPARE(m_results, QVariantList{QStringLiteral("done")});
    m_action->doAction(2);
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::workerMayDestroyTheAction()
{
    m_worker->onCall = [this] { m_action.reset(); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(QStringLiteral("argument"));
    QVERIFY(m_action == nullptr);
    QCOMPARE(m_worker->received, QVariantList{QStringLiteral("argument")});
    QCOMPARE(m_results, QVariantList());
}

void TestActionBase::workerMayDestroyBoth()
{
    m_worker->onCall = [this] {
        m_action.reset();
        m_worker.reset();
    };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(QStringLiteral("argument"));
    QVERIFY(m_action == nullptr);
    QVERIFY(m_worker == nullptr);
    QCOMPARE(m_results, QVariantList());
}

void TestActionBase::receiverMayDestroyTheAction()
{
    connect(m_action.get(), &ActionBase::workDone, this, [this] { m_action.reset(); });
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(1);
    QVERIFY(m_action == nullptr);
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::workerKeepsItsArgument_data()
{
    QTest::addColumn<bool>("destroyed");
    QTest::newRow("other data is set") << false;
    QTest::newRow("action is destroyed") << true;
}

void TestActionBase::workerKeepsItsArgument()
{
    QFETCH(bool, destroyed);
    m_worker->onCall = [this, destroyed] {
        m_action->setData(QStringLiteral("next"));
        if (destroyed)
            m_action.reset();
    };
    m_action->setWorker(m_worker.get(), method<Worker>("byReference(QVariant)"));
    m_action->doAction(QStringLiteral("first"));
    QCOMPARE(m_worker->receivedAtEnd, QVariant(QStringLiteral("first")));
}

void TestActionBase::workerMaySetOtherData()
{
    m_worker->onCall = [this] { m_action->setData(QStringLiteral("next")); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(QStringLiteral("first"));
    m_action->doAction();
    QCOMPARE(m_worker->received, (QVariantList{QStringLiteral("first"), QStringLiteral("next")}));
}

void TestActionBase::workerMaySetAnotherWorker()
{
    OtherWorker other;
    m_worker->onCall = [this, &other] { m_action->setWorker(&other, method<OtherWorker>("work(QVariant)")); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(1);
    QCOMPARE(m_worker->calls.size(), 1);
    QCOMPARE(other.calls, 0);
    m_action->doAction(2);
    QCOMPARE(m_worker->calls.size(), 1);
    QCOMPARE(other.calls, 1);
    QCOMPARE(m_results, (QVariantList{QStringLiteral("done"), 2}));
}

void TestActionBase::workerMayTakeItselfAway()
{
    m_worker->onCall = [this] { m_action->setWorker(nullptr, QMetaMethod()); };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(1);
    m_action->doAction(2);
    QCOMPARE(m_worker->received, QVariantList{1});
    QCOMPARE(m_results, QVariantList{QStringLiteral("done")});
}

void TestActionBase::workerMayRunTheActionAgain()
{
    m_worker->onCall = [this] {
        if (m_worker->calls.size() == 1) {
            m_worker->answer = QStringLiteral("inner");
            m_action->doAction(2);
        }
    };
    m_action->setWorker(m_worker.get(), work());
    m_action->doAction(1);
    QCOMPARE(m_worker->received, (QVariantList{1, 2}));
    QCOMPARE(m_results, (QVariantList{QStringLiteral("inner"), QStringLiteral("done")}));
}

// A thread with an event loop and a worker in it.
struct Distance
{
    QThread thread;
    DistantWorker* worker = new DistantWorker;

    Distance()
    {
        worker->moveToThread(&thread);
        QObject::connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
        thread.start();
    }
    ~Distance()
    {
        if (worker != nullptr)
            worker->begin.release(10); // whatever still waits
        thread.quit();
        thread.wait();
    }

    void destroyWorker()
    {
        QSemaphore destroyed;
        QObject::connect(worker, &QObject::destroyed, [&destroyed] { destroyed.release(); });
        std::exchange(worker, nullptr)->deleteLater();
        destroyed.acquire();
    }
};

void TestActionBase::distantWorkerIsQueued()
{
    Distance distance;
    m_action->setWorker(distance.worker, method<DistantWorker>("work(QVariant)"));
    m_action->doAction(QStringLiteral("argument"));
    // The worker has not begun, and its result is lost.
    QCOMPARE(m_results.size(), 1);
    QVERIFY(!m_results.first().isValid());

    distance.worker->begin.release();
    QVERIFY(distance.worker->ended.tryAcquire(1, 20000));
    QCOMPARE(distance.worker->received, QVariantList{QStringLiteral("argument")});
    QCOMPARE(distance.worker->threads, QVector<QThread*>{&distance.thread});
    QCoreApplication::processEvents();
    QCOMPARE(m_results.size(), 1);
}

void TestActionBase::distantWorkerWithoutResultIsQueued()
{
    Distance distance;
    m_action->setWorker(distance.worker, method<DistantWorker>("noResult(QVariant)"));
    m_action->doAction(7);
    QCOMPARE(m_results.size(), 1);
    QVERIFY(!m_results.first().isValid());
    distance.worker->begin.release();
    QVERIFY(distance.worker->ended.tryAcquire(1, 20000));
    QCOMPARE(distance.worker->received, QVariantList{7});
}

void TestActionBase::distantWorkerWithOtherSignatureIsNotCalled()
{
    Distance distance;
    distance.worker->begin.release(2);
    m_action->setWorker(distance.worker, method<DistantWorker>("text(QString)"));
    m_action->doAction(QStringLiteral("refused"));
    QCOMPARE(m_results.size(), 1);
    QVERIFY(!m_results.first().isValid());
    // Calls come in order: what comes first now would have come second.
    m_action->setWorker(distance.worker, method<DistantWorker>("work(QVariant)"));
    m_action->doAction(QStringLiteral("accepted"));
    QVERIFY(distance.worker->ended.tryAcquire(1, 20000));
    QCOMPARE(distance.worker->received, QVariantList{QStringLiteral("accepted")});
}

void TestActionBase::destroyedDistantWorkerIsForgotten()
{
    Distance distance;
    m_action->setWorker(distance.worker, method<DistantWorker>("work(QVariant)"));
    distance.destroyWorker();
    m_action->doAction(1);
    QCOMPARE(m_results, QVariantList());
}

void TestActionBase::everyDistantCallHasItsOwnData()
{
    Distance distance;
    m_action->setWorker(distance.worker, method<DistantWorker>("work(QVariant)"));
    m_action->doAction(1);
    m_action->doAction(2);
    m_action.reset(); // a queued call needs the action no more
    distance.worker->begin.release(2);
    QVERIFY(distance.worker->ended.tryAcquire(2, 20000));
    QCOMPARE(distance.worker->received, (QVariantList{1, 2}));
    QCOMPARE(m_results.size(), 2);
}

void TestActionBase::destructorWritesItsLine()
{
    const LogRecorder log(QsLogging::TraceLevel);
    m_action->setObjectName(QStringLiteral("tare"));
    const QString address =
        QStringLiteral("0x%1").arg(quintptr(static_cast<QObject*>(m_action.get())), 0, 16);
    m_action.reset();
    QCOMPARE(
        log.lines(),
        QStringList(QStringLiteral("TRACE Running destructor ->  Brimvale::ActionBase(%1, name = \"tare\") ")
                        .arg(address)));
}

void TestActionBase::destructorWritesNothingAboveTrace()
{
    const LogRecorder log(QsLogging::DebugLevel);
    m_action.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestActionBase)
#include "tst_actionbase.moc"
