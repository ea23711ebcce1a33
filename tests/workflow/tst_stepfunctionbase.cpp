// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "IWorkflowScreen.h"
#include "StepFunctionBase.h"

#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <functional>
#include <memory>

using Brimvale::IStepFunction;
using Brimvale::StepFunctionBase;
using Brimvale::TestKit::LogCapture;
using Brimvale::TestKit::RecordingHost;

namespace Brimvale
{

// Declares the screen as it is called inside the namespace.
class InnerWorker : public QObject
{
    Q_OBJECT

public:
    QVector<IWorkflowScreen*> screens;

    Q_INVOKABLE void show(QVariant result, IWorkflowScreen* screen)
    {
        screens.append(screen);
        results.append(result);
    }
    QVariantList results;
};

} // namespace Brimvale

namespace
{

// Declares the screen as it is called outside the namespace.
class OuterWorker : public QObject
{
    Q_OBJECT

public:
    QVector<Brimvale::IWorkflowScreen*> screens;
    QVariantList results;

    Q_INVOKABLE void show(QVariant result, Brimvale::IWorkflowScreen* screen)
    {
        screens.append(screen);
        results.append(result);
    }
};

// Lists its calls and runs what the test gives it.
class Worker : public QObject
{
    Q_OBJECT

public:
    QStringList* calls = nullptr;
    std::function<QVariant(QVariant, QVariant)> onWork;
    std::function<void()> onCall;

    Q_INVOKABLE QVariant work(QVariant argument, QVariant data)
    {
        add(QStringLiteral("work(%1, %2)").arg(argument.toString(), data.toString()));
        const auto call = onWork; // the worker may be destroyed
        return call ? call(argument, data) : QVariant(QStringLiteral("done"));
    }
    Q_INVOKABLE void process(QVariant argument, QVariant data)
    {
        add(QStringLiteral("process(%1, %2)").arg(argument.toString(), data.toString()));
        run();
    }
    Q_INVOKABLE void show(QVariant result, Brimvale::IWorkflowScreen* screen)
    {
        add(QStringLiteral("show(%1, %2)")
                .arg(result.toString(), screen ? QStringLiteral("screen") : QStringLiteral("null")));
        run();
    }
    Q_INVOKABLE void undo()
    {
        add(QStringLiteral("undo()"));
        run();
    }
    Q_INVOKABLE QVariant first(QVariant argument)
    {
        add(QStringLiteral("first(%1)").arg(argument.toString()));
        return argument;
    }
    Q_INVOKABLE QVariant tooMany(QVariant, QVariant, QVariant)
    {
        add(QStringLiteral("tooMany"));
        return 1;
    }
    Q_INVOKABLE QVariant otherTypes(int, QString)
    {
        add(QStringLiteral("otherTypes"));
        return 1;
    }
    Q_INVOKABLE QVariant pointerType(QVariant, QObject*)
    {
        add(QStringLiteral("pointerType"));
        return 1;
    }
    Q_INVOKABLE void needsScreenFirst(Brimvale::IWorkflowScreen*, QVariant)
    {
        add(QStringLiteral("needsScreenFirst"));
    }
    Q_INVOKABLE int otherResult(QVariant, QVariant)
    {
        add(QStringLiteral("otherResult"));
        return 7;
    }

private:
    void add(const QString& call)
    {
        if (calls != nullptr)
            calls->append(call);
    }
    void run()
    {
        const auto call = onCall; // the worker may be destroyed
        if (call)
            call();
    }
};

class OtherWorker : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QVariant work(QVariant, QVariant)
    {
        ++calls;
        return QStringLiteral("other");
    }

    int calls = 0;
};

class DerivedWorker : public Worker
{
    Q_OBJECT
};

// Works in the thread it lives in, when the test lets it.
class DistantWorker : public QObject
{
    Q_OBJECT

public:
    StepFunctionBase* function = nullptr;
    QSemaphore begin;
    QSemaphore ended;
    QVariantList received;
    QThread* thread = nullptr;

    Q_INVOKABLE QVariant work(QVariant argument, QVariant data)
    {
        begin.acquire();
        received = {argument, data};
        thread = QThread::currentThread();
        ended.release();
        return QStringLiteral("lost");
    }
    Q_INVOKABLE void process(QVariant argument, QVariant data)
    {
        work(argument, data);
        if (function != nullptr)
            function->functionDone(QStringLiteral("from afar"));
        ended.release();
    }
    Q_INVOKABLE void show(QVariant result, Brimvale::IWorkflowScreen* screen)
    {
        work(result, screen != nullptr);
    }
    Q_INVOKABLE void undo() { work(QVariant(), QVariant()); }
};

READ_PRIVATE_MEMBER(ArgumentMember, StepFunctionBase, QVariant, m_argument);
READ_PRIVATE_MEMBER(DataMember, StepFunctionBase, QVariant, m_data);
READ_PRIVATE_MEMBER(RunningMember, StepFunctionBase, bool, m_running);

template <typename Type>
QMetaMethod method(const char* signature)
{
    const QMetaObject& type = Type::staticMetaObject;
    const int index = type.indexOfMethod(QMetaObject::normalizedSignature(signature));
    return index < 0 ? QMetaMethod() : type.method(index);
}

// Any address does: a screen is only passed on.
Brimvale::IWorkflowScreen* someScreen()
{
    static char place = 0;
    return reinterpret_cast<Brimvale::IWorkflowScreen*>(&place);
}

using Set = void (*)(StepFunctionBase&);

} // namespace

Q_DECLARE_METATYPE(Set)

class TestStepFunctionBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newFunctionHasDefaults();
    void parentOwnsTheFunctionOnly();
    void setterStoresAndSignalsOnce_data();
    void setterStoresAndSignalsOnce();
    void setterOfTheSameValueSignalsNothing_data() { setterStoresAndSignalsOnce_data(); }
    void setterOfTheSameValueSignalsNothing();
    void defaultsSetAgainSignalNothing();
    void receiverSeesTheNewName();

    void startWithoutWorkerDoesNothing_data();
    void startWithoutWorkerDoesNothing();
    void resultFollowsAtOnce();
    void startStoresItsArguments();
    void dataReplacesThoseOfTheLastStart();
    void workDoneIsEmittedOncePerStart();
    void anyResultIsPassedOn_data();
    void anyResultIsPassedOn();
    void nullWorkerIsRefused_data();
    void nullWorkerIsRefused();
    void workersAreKeptApart();
    void methodIsNotCheckedWhenSet();
    void failedCallGivesAnInvalidResult_data();
    void failedCallGivesAnInvalidResult();
    void failedCallOfAProcessKeepsItRunning();
    void methodOfABaseIsCalled();
    void workerMayTakeTheFirstArgumentOnly();
    void linesAreWrittenAtDebug();

    void processIsDoneLater();
    void processMayBeDoneWithinItsCall();
    void doneWithoutStartIsIgnored();
    void doneAfterAStartThatReturnsIsIgnored();
    void secondDoneIsIgnored();
    void processMayBeStartedTwice();
    void processMayBeStartedAgainWhenDone();
    void runningProcessMayBecomeImmediate();
    void resetKeepsTheState();

    void destroyedWorkerIsNotCalled_data();
    void destroyedWorkerIsNotCalled();
    void newWorkerReplacesADestroyedOne();
    void workerMayDestroyItself_data();
    void workerMayDestroyItself();
    void workerMayDestroyTheFunction_data();
    void workerMayDestroyTheFunction();
    void workerMayDestroyBoth();
    void receiverMayDestroyTheFunction_data();
    void receiverMayDestroyTheFunction();
    void workerMaySetAnother();
    void workerMayStartAgain();
    void receiverMayStartAgain();

    void screenWorkerFillsTheScreen();
    void screenIsUnderstoodInBothSpellings_data();
    void screenIsUnderstoodInBothSpellings();
    void screenMayBeNull();
    void wrongScreenWorkerIsNotCalled();
    void resetWorkerIsCalled();
    void withoutWorkersNothingHappens();

    void distantWorkerGivesNoResult();
    void distantProcessIsDoneFromItsThread();
    void distantScreenAndResetWorkersAreQueued();
    void distantWorkerDestroyedBeforeItsTurnIsNotCalled();

    void isUsableThroughItsInterface();
    void answersToTheNamesOfItsInterface_data();
    void answersToTheNamesOfItsInterface();
    void declaresTwoSignals();
    void destructorWritesItsLine_data();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    void setWork()
    {
        QVERIFY(m_function->setWorker(m_worker.get(), method<Worker>("work(QVariant,QVariant)")));
    }
    void setProcess()
    {
        m_function->setIsProcess(true);
        QVERIFY(m_function->setWorker(m_worker.get(), method<Worker>("process(QVariant,QVariant)")));
        m_calls.clear();
    }
    void start(const char* argument = "a", const char* data = "b")
    {
        m_function->startFunction(QString::fromLatin1(argument), QString::fromLatin1(data));
    }
    // Worker calls and signals in their order; the list starts anew.
    QString takeCalls()
    {
        const QString calls = m_calls.join(QLatin1String(" | "));
        m_calls.clear();
        return calls;
    }
    void recordSignals();

    std::unique_ptr<StepFunctionBase> m_function;
    std::unique_ptr<Worker> m_worker;
    QStringList m_calls;
};

void TestStepFunctionBase::init()
{
    m_calls.clear();
    m_function = std::make_unique<StepFunctionBase>(nullptr);
    m_worker = std::make_unique<Worker>();
    m_worker->calls = &m_calls;
    recordSignals();
}

void TestStepFunctionBase::cleanup()
{
    m_function.reset();
    m_worker.reset();
}

void TestStepFunctionBase::recordSignals()
{
    connect(m_function.get(), &StepFunctionBase::functionUpdated, this,
            [this] { m_calls.append(QStringLiteral("functionUpdated")); });
    connect(
        m_function.get(), &StepFunctionBase::workDone, this,
        [this](const QVariant& result) {
            m_calls.append(QStringLiteral("workDone(%1)")
                               .arg(result.isValid() ? result.toString() : QStringLiteral("invalid")));
        },
        Qt::DirectConnection);
}

void TestStepFunctionBase::newFunctionHasDefaults()
{
    QVERIFY(!m_function->enabled());
    QCOMPARE(m_function->name(), QString());
    QCOMPARE(m_function->uid(), QString());
    QCOMPARE(m_function->getRank(), 0);
    QVERIFY(!m_function->isProcess());
    QVERIFY(!(m_function.get()->*memberOf(ArgumentMember())).isValid());
    QVERIFY(!(m_function.get()->*memberOf(DataMember())).isValid());
    QVERIFY(!(m_function.get()->*memberOf(RunningMember())));
}

void TestStepFunctionBase::parentOwnsTheFunctionOnly()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<StepFunctionBase> function = new StepFunctionBase(parent.get());
    const QPointer<QObject> worker = m_worker.get();
    function->setWorker(worker, QMetaMethod());
    function->setScreenWorker(worker, QMetaMethod());
    function->setResetWorker(worker, QMetaMethod());
    parent.reset();
    QVERIFY(function.isNull());
    QVERIFY(!worker.isNull());
}

void TestStepFunctionBase::setterStoresAndSignalsOnce_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<QVariantList>("values");

    const QVariantList none{false, QString(), QString(), 0, false};
    const auto row = [&none](const char* name, Set set, int place, const QVariant& value) {
        QVariantList values = none;
        values[place] = value;
        QTest::newRow(name) << set << values;
    };
    row(
        "enabled", [](StepFunctionBase& function) { function.setEnable(true); }, 0, true);
    row(
        "name", [](StepFunctionBase& function) { function.setName(QStringLiteral("Fill")); }, 1,
        QStringLiteral("Fill"));
    row(
        "uid", [](StepFunctionBase& function) { function.setUid(QStringLiteral("fill")); }, 2,
        QStringLiteral("fill"));
    row(
        "rank", [](StepFunctionBase& function) { function.setRank(-3); }, 3, -3);
    row(
        "is a process", [](StepFunctionBase& function) { function.setIsProcess(true); }, 4, true);
}

void TestStepFunctionBase::setterStoresAndSignalsOnce()
{
    QFETCH(Set, set);
    set(*m_function);
    QTEST((QVariantList{m_function->enabled(), m_function->name(), m_function->uid(), m_function->getRank(),
                        m_function->isProcess()}),
          "values");
    QCOMPARE(takeCalls(), QStringLiteral("functionUpdated"));
}

void TestStepFunctionBase::setterOfTheSameValueSignalsNothing()
{
    QFETCH(Set, set);
    set(*m_function);
    m_calls.clear();
    set(*m_function);
    QTEST((QVariantList{m_function->enabled(), m_function->name(), m_function->uid(), m_function->getRank(),
                        m_function->isProcess()}),
          "values");
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::defaultsSetAgainSignalNothing()
{
    m_function->setEnable(false);
    m_function->setName(QStringLiteral(""));
    m_function->setUid(QStringLiteral(""));
    m_function->setRank(0);
    m_function->setIsProcess(false);
    m_function->setData(5);
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::receiverSeesTheNewName()
{
    QString seen;
    connect(m_function.get(), &StepFunctionBase::functionUpdated, this,
            [this, &seen] { seen = m_function->name(); });
    m_function->setName(QStringLiteral("Fill"));
    QCOMPARE(seen, QStringLiteral("Fill"));
}

void TestStepFunctionBase::startWithoutWorkerDoesNothing_data()
{
    QTest::addColumn<bool>("isProcess");
    QTest::newRow("immediate") << false;
    QTest::newRow("process") << true;
}

void TestStepFunctionBase::startWithoutWorkerDoesNothing()
{
    QFETCH(bool, isProcess);
    m_function->setIsProcess(isProcess);
    m_function->setData(QStringLiteral("kept"));
    m_calls.clear();
    LogCapture log(QsLogging::DebugLevel);
    start();
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QString());
    QCOMPARE(log.lines(), QStringList());
    QVERIFY(!(m_function.get()->*memberOf(ArgumentMember())).isValid());
    QCOMPARE(m_function.get()->*memberOf(DataMember()), QVariant(QStringLiteral("kept")));
    QVERIFY(!(m_function.get()->*memberOf(RunningMember())));
}

void TestStepFunctionBase::resultFollowsAtOnce()
{
    setWork();
    start();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done)"));
    QVERIFY(!(m_function.get()->*memberOf(RunningMember())));
}

void TestStepFunctionBase::startStoresItsArguments()
{
    setWork();
    QVariantList seen;
    m_worker->onWork = [&](const QVariant&, const QVariant&) {
        seen = {m_function.get()->*memberOf(ArgumentMember()), m_function.get()->*memberOf(DataMember())};
        return QVariant();
    };
    start("a", "b");
    QCOMPARE(seen, (QVariantList{QStringLiteral("a"), QStringLiteral("b")}));
    start("c", "d");
    QCOMPARE(seen, (QVariantList{QStringLiteral("c"), QStringLiteral("d")}));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("c")));
}

void TestStepFunctionBase::dataReplacesThoseOfTheLastStart()
{
    setWork();
    m_function->setData(1);
    QCOMPARE(m_function.get()->*memberOf(DataMember()), QVariant(1));
    m_function->startFunction(2, QVariant());
    QVERIFY(!(m_function.get()->*memberOf(DataMember())).isValid());
    QCOMPARE(takeCalls(), QStringLiteral("work(2, ) | workDone(done)"));
    m_function->setData(3);
    QCOMPARE(m_function.get()->*memberOf(DataMember()), QVariant(3));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(2));
}

void TestStepFunctionBase::workDoneIsEmittedOncePerStart()
{
    setWork();
    start();
    start("c");
    start();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done) | work(c, b) | workDone(done) | "
                                         "work(a, b) | workDone(done)"));
}

void TestStepFunctionBase::anyResultIsPassedOn_data()
{
    QTest::addColumn<QVariant>("result");
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("integer") << QVariant(5);
    QTest::newRow("text") << QVariant(QStringLiteral("text"));
    QTest::newRow("list") << QVariant(QVariantList{1, QStringLiteral("x"), QVariant()});
}

void TestStepFunctionBase::anyResultIsPassedOn()
{
    QFETCH(QVariant, result);
    setWork();
    m_worker->onWork = [&](const QVariant&, const QVariant&) { return result; };
    QVariantList received;
    connect(m_function.get(), &StepFunctionBase::workDone, this,
            [&received](const QVariant& value) { received.append(value); });
    start();
    QCOMPARE(received, QVariantList{result});
}

void TestStepFunctionBase::nullWorkerIsRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("worker") << QStringLiteral("worker");
    QTest::newRow("screen worker") << QStringLiteral("screen");
    QTest::newRow("reset worker") << QStringLiteral("reset");
}

void TestStepFunctionBase::nullWorkerIsRefused()
{
    QFETCH(QString, kind);
    const QMetaMethod other = method<OtherWorker>("work(QVariant,QVariant)");
    if (kind == QLatin1String("worker")) {
        QVERIFY(!m_function->setWorker(nullptr, other));
        setWork();
        QVERIFY(!m_function->setWorker(nullptr, other));
        start();
        QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done)"));
    } else if (kind == QLatin1String("screen")) {
        QVERIFY(!m_function->setScreenWorker(nullptr, other));
        QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                            method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
        QVERIFY(!m_function->setScreenWorker(nullptr, other));
        m_function->prepareResultForScreen(5, someScreen());
        QCOMPARE(takeCalls(), QStringLiteral("show(5, screen)"));
    } else {
        QVERIFY(!m_function->setResetWorker(nullptr, other));
        QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
        QVERIFY(!m_function->setResetWorker(nullptr, other));
        m_function->reset();
        QCOMPARE(takeCalls(), QStringLiteral("undo()"));
    }
}

void TestStepFunctionBase::workersAreKeptApart()
{
    QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
    start();
    m_function->prepareResultForScreen(5, someScreen());
    QCOMPARE(takeCalls(), QString());
    QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                        method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
    start();
    QCOMPARE(takeCalls(), QString());
    setWork();
    start();
    m_function->prepareResultForScreen(5, someScreen());
    m_function->reset();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done) | show(5, screen) | undo()"));
}

void TestStepFunctionBase::methodIsNotCheckedWhenSet()
{
    QVERIFY(m_function->setWorker(m_worker.get(), QMetaMethod()));
    QVERIFY(m_function->setScreenWorker(m_worker.get(), method<OtherWorker>("work(QVariant,QVariant)")));
    QVERIFY(m_function->setResetWorker(m_worker.get(), QMetaMethod()));
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::failedCallGivesAnInvalidResult_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::newRow("no method") << QByteArray("unknown()");
    QTest::newRow("too many arguments") << QByteArray("tooMany(QVariant,QVariant,QVariant)");
    QTest::newRow("other types") << QByteArray("otherTypes(int,QString)");
    QTest::newRow("a pointer") << QByteArray("pointerType(QVariant,QObject*)");
    QTest::newRow("a screen") << QByteArray("needsScreenFirst(Brimvale::IWorkflowScreen*,QVariant)");
    QTest::newRow("another result") << QByteArray("otherResult(QVariant,QVariant)");
    QTest::newRow("method of another class") << QByteArray("other");
}

void TestStepFunctionBase::failedCallGivesAnInvalidResult()
{
    QFETCH(QByteArray, signature);
    const QMetaMethod wrong = signature == "other" ? method<OtherWorker>("work(QVariant,QVariant)")
                                                   : method<Worker>(signature.constData());
    QCOMPARE(wrong.isValid(), signature != "unknown()");
    QVERIFY(m_function->setWorker(m_worker.get(), wrong));
    start();
    QCOMPARE(takeCalls(), QStringLiteral("workDone(invalid)"));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("a")));
}

void TestStepFunctionBase::failedCallOfAProcessKeepsItRunning()
{
    m_function->setIsProcess(true);
    QVERIFY(m_function->setWorker(m_worker.get(), method<Worker>("otherTypes(int,QString)")));
    m_calls.clear();
    start();
    QCOMPARE(takeCalls(), QString());
    m_function->functionDone(5);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(5)"));
}

void TestStepFunctionBase::methodOfABaseIsCalled()
{
    DerivedWorker worker;
    worker.calls = &m_calls;
    QVERIFY(m_function->setWorker(&worker, method<Worker>("work(QVariant,QVariant)")));
    start();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done)"));
}

void TestStepFunctionBase::workerMayTakeTheFirstArgumentOnly()
{
    QVERIFY(m_function->setWorker(m_worker.get(), method<Worker>("first(QVariant)")));
    start();
    QCOMPARE(takeCalls(), QStringLiteral("first(a) | workDone(a)"));
}

void TestStepFunctionBase::linesAreWrittenAtDebug()
{
    RecordingHost host;
    host.recordSignal(m_function.get(), &StepFunctionBase::workDone);
    {
        LogCapture log(host, QsLogging::DebugLevel);
        setWork();
        m_worker->onWork = [](const QVariant&, const QVariant&) { return QVariant(5); };
        start();
        setProcess();
        start();
        m_function->functionDone(QStringLiteral("x"));
        m_function->functionDone(QStringLiteral("y"));
    }
    BRIMVALE_COMPARE_CALLS(host, "log debug: StepFunctionBase::startFunction: returnValue=  QVariant(int, 5)",
                           "signal StepFunctionBase::workDone(QVariant(int, 5))",
                           "log debug: StepFunctionBase::functionDone: data=  QVariant(QString, \"x\")",
                           "signal StepFunctionBase::workDone(QVariant(QString, \"x\"))");

    LogCapture log(QsLogging::InfoLevel);
    start();
    m_function->functionDone(1);
    m_function->setIsProcess(false);
    setWork();
    start();
    QCOMPARE(log.lines(), QStringList());
}

void TestStepFunctionBase::processIsDoneLater()
{
    setProcess();
    start();
    QCOMPARE(takeCalls(), QStringLiteral("process(a, b)"));
    QVERIFY(m_function.get()->*memberOf(RunningMember()));
    m_function->functionDone(QStringLiteral("result"));
    QCOMPARE(takeCalls(), QStringLiteral("workDone(result)"));
    QVERIFY(!(m_function.get()->*memberOf(RunningMember())));
}

void TestStepFunctionBase::processMayBeDoneWithinItsCall()
{
    setProcess();
    m_worker->onCall = [this] { m_function->functionDone(1); };
    start();
    QCOMPARE(takeCalls(), QStringLiteral("process(a, b) | workDone(1)"));
    m_function->functionDone(2);
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::doneWithoutStartIsIgnored()
{
    setProcess();
    LogCapture log(QsLogging::DebugLevel);
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QString());
    QCOMPARE(log.lines(), QStringList());
}

void TestStepFunctionBase::doneAfterAStartThatReturnsIsIgnored()
{
    setWork();
    start();
    m_calls.clear();
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::secondDoneIsIgnored()
{
    setProcess();
    start();
    m_calls.clear();
    m_function->functionDone(1);
    m_function->functionDone(2);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(1)"));
}

void TestStepFunctionBase::processMayBeStartedTwice()
{
    setProcess();
    start("a");
    start("c");
    QCOMPARE(takeCalls(), QStringLiteral("process(a, b) | process(c, b)"));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("c")));
    m_function->functionDone(1);
    m_function->functionDone(2);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(1)"));
}

void TestStepFunctionBase::processMayBeStartedAgainWhenDone()
{
    setProcess();
    QStringList pending{QStringLiteral("c")};
    connect(m_function.get(), &StepFunctionBase::workDone, this, [&] {
        if (!pending.isEmpty())
            m_function->startFunction(pending.takeFirst(), QStringLiteral("d"));
    });
    start();
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QStringLiteral("process(a, b) | workDone(1) | process(c, d)"));
    m_function->functionDone(2);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(2)"));
}

void TestStepFunctionBase::runningProcessMayBecomeImmediate()
{
    setProcess();
    start();
    m_function->setIsProcess(false);
    setWork();
    m_calls.clear();
    start("c");
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QStringLiteral("work(c, b) | workDone(done) | workDone(1)"));
}

void TestStepFunctionBase::resetKeepsTheState()
{
    setProcess();
    QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
    start();
    m_function->reset();
    QVERIFY(m_function.get()->*memberOf(RunningMember()));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("a")));
    QCOMPARE(m_function.get()->*memberOf(DataMember()), QVariant(QStringLiteral("b")));
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QStringLiteral("process(a, b) | undo() | workDone(1)"));
}

void TestStepFunctionBase::destroyedWorkerIsNotCalled_data()
{
    startWithoutWorkerDoesNothing_data();
}

void TestStepFunctionBase::destroyedWorkerIsNotCalled()
{
    QFETCH(bool, isProcess);
    m_function->setIsProcess(isProcess);
    setWork();
    QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                        method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
    QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
    m_worker.reset();
    m_calls.clear();
    start();
    m_function->prepareResultForScreen(1, someScreen());
    m_function->reset();
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QString());
    QVERIFY(!(m_function.get()->*memberOf(ArgumentMember())).isValid());
}

void TestStepFunctionBase::newWorkerReplacesADestroyedOne()
{
    setWork();
    m_worker = std::make_unique<Worker>();
    m_worker->calls = &m_calls;
    start();
    QCOMPARE(takeCalls(), QString());
    setWork();
    start();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(done)"));
}

void TestStepFunctionBase::workerMayDestroyItself_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("immediate") << QStringLiteral("work");
    QTest::newRow("process") << QStringLiteral("process");
    QTest::newRow("screen worker") << QStringLiteral("show");
    QTest::newRow("reset worker") << QStringLiteral("undo");
}

void TestStepFunctionBase::workerMayDestroyItself()
{
    QFETCH(QString, kind);
    m_worker->onCall = [this] { m_worker.reset(); };
    m_worker->onWork = [this](const QVariant& argument, const QVariant&) {
        m_worker.reset();
        return argument;
    };
    if (kind == QLatin1String("work")) {
        setWork();
        start();
        QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(a)"));
        start();
    } else if (kind == QLatin1String("process")) {
        setProcess();
        start();
        m_function->functionDone(1);
        QCOMPARE(takeCalls(), QStringLiteral("process(a, b) | workDone(1)"));
        start();
    } else if (kind == QLatin1String("show")) {
        QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                            method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
        m_function->prepareResultForScreen(1, someScreen());
        QCOMPARE(takeCalls(), QStringLiteral("show(1, screen)"));
        m_function->prepareResultForScreen(2, someScreen());
    } else {
        QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
        m_function->reset();
        QCOMPARE(takeCalls(), QStringLiteral("undo()"));
        m_function->reset();
    }
    QVERIFY(!m_worker);
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::workerMayDestroyTheFunction_data()
{
    workerMayDestroyItself_data();
}

void TestStepFunctionBase::workerMayDestroyTheFunction()
{
    QFETCH(QString, kind);
    m_worker->onCall = [this] { m_function.reset(); };
    m_worker->onWork = [this](const QVariant& argument, const QVariant& data) {
        m_function.reset();
        return QVariant(argument.toString() + data.toString()); // the arguments are still there
    };
    LogCapture log(QsLogging::DebugLevel);
    if (kind == QLatin1String("work")) {
        setWork();
        start();
        QCOMPARE(takeCalls(), QStringLiteral("work(a, b)"));
    } else if (kind == QLatin1String("process")) {
        setProcess();
        start();
        QCOMPARE(takeCalls(), QStringLiteral("process(a, b)"));
    } else if (kind == QLatin1String("show")) {
        QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                            method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
        m_function->prepareResultForScreen(1, someScreen());
        QCOMPARE(takeCalls(), QStringLiteral("show(1, screen)"));
    } else {
        QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
        m_function->reset();
        QCOMPARE(takeCalls(), QStringLiteral("undo()"));
    }
    QVERIFY(!m_function);
    QCOMPARE(log.lines(), QStringList());
}

void TestStepFunctionBase::workerMayDestroyBoth()
{
    setWork();
    m_worker->onWork = [this](const QVariant&, const QVariant&) {
        m_function.reset();
        m_worker.reset();
        return QVariant(1);
    };
    start();
    QVERIFY(!m_function);
    QVERIFY(!m_worker);
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b)"));
}

void TestStepFunctionBase::receiverMayDestroyTheFunction_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("result") << QStringLiteral("work");
    QTest::newRow("result of a process") << QStringLiteral("process");
    QTest::newRow("update") << QStringLiteral("update");
}

void TestStepFunctionBase::receiverMayDestroyTheFunction()
{
    QFETCH(QString, kind);
    if (kind == QLatin1String("work"))
        setWork();
    else if (kind == QLatin1String("process"))
        setProcess();
    connect(m_function.get(), &StepFunctionBase::workDone, this, [this] { m_function.reset(); });
    connect(m_function.get(), &StepFunctionBase::functionUpdated, this, [this] { m_function.reset(); });
    if (kind == QLatin1String("update")) {
        m_function->setName(QStringLiteral("Fill"));
        QCOMPARE(takeCalls(), QStringLiteral("functionUpdated"));
    } else {
        start();
        if (m_function)
            m_function->functionDone(QStringLiteral("done"));
        QCOMPARE(takeCalls(), kind + QStringLiteral("(a, b) | workDone(done)"));
    }
    QVERIFY(!m_function);
}

void TestStepFunctionBase::workerMaySetAnother()
{
    setWork();
    OtherWorker other;
    m_worker->onWork = [&](const QVariant&, const QVariant&) {
        m_function->setWorker(&other, method<OtherWorker>("work(QVariant,QVariant)"));
        return QVariant(QStringLiteral("mine"));
    };
    start();
    QCOMPARE(takeCalls(), QStringLiteral("work(a, b) | workDone(mine)"));
    start();
    QCOMPARE(takeCalls(), QStringLiteral("workDone(other)"));
    QCOMPARE(other.calls, 1);
}

void TestStepFunctionBase::workerMayStartAgain()
{
    setWork();
    m_worker->onWork = [this](const QVariant& argument, const QVariant& data) {
        if (argument == QVariant(QStringLiteral("outer"))) {
            start("inner", "d");
            return QVariant(QStringLiteral("result of outer ") + data.toString());
        }
        return QVariant(QStringLiteral("result of inner ") + data.toString());
    };
    start("outer", "b");
    QCOMPARE(takeCalls(), QStringLiteral("work(outer, b) | work(inner, d) | workDone(result of inner d) | "
                                         "workDone(result of outer b)"));
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("inner")));
}

void TestStepFunctionBase::receiverMayStartAgain()
{
    setWork();
    int starts = 1;
    connect(m_function.get(), &StepFunctionBase::workDone, this, [&] {
        if (++starts <= 3)
            start(QByteArray::number(starts).constData());
    });
    start("1");
    QCOMPARE(takeCalls(), QStringLiteral("work(1, b) | workDone(done) | work(2, b) | workDone(done) | "
                                         "work(3, b) | workDone(done)"));
}

void TestStepFunctionBase::screenWorkerFillsTheScreen()
{
    QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                        method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
    m_function->prepareResultForScreen(QStringLiteral("result"), someScreen());
    QCOMPARE(takeCalls(), QStringLiteral("show(result, screen)"));
    QVERIFY(!(m_function.get()->*memberOf(ArgumentMember())).isValid());
}

void TestStepFunctionBase::screenIsUnderstoodInBothSpellings_data()
{
    QTest::addColumn<bool>("inside");
    QTest::newRow("inside the namespace") << true;
    QTest::newRow("outside the namespace") << false;
}

void TestStepFunctionBase::screenIsUnderstoodInBothSpellings()
{
    QFETCH(bool, inside);
    Brimvale::InnerWorker inner;
    OuterWorker outer;
    const QMetaMethod innerShow = method<Brimvale::InnerWorker>("show(QVariant,IWorkflowScreen*)");
    const QMetaMethod outerShow = method<OuterWorker>("show(QVariant,Brimvale::IWorkflowScreen*)");
    QVERIFY(innerShow.isValid());
    QVERIFY(outerShow.isValid());
    if (inside)
        QVERIFY(m_function->setScreenWorker(&inner, innerShow));
    else
        QVERIFY(m_function->setScreenWorker(&outer, outerShow));
    m_function->prepareResultForScreen(5, someScreen());
    QCOMPARE(inside ? inner.screens : outer.screens, QVector<Brimvale::IWorkflowScreen*>{someScreen()});
    QCOMPARE(inside ? inner.results : outer.results, QVariantList{5});
    QCOMPARE(inside ? outer.screens.size() : inner.screens.size(), 0);
}

void TestStepFunctionBase::screenMayBeNull()
{
    QVERIFY(m_function->setScreenWorker(m_worker.get(),
                                        method<Worker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
    m_function->prepareResultForScreen(QVariant(), nullptr);
    QCOMPARE(takeCalls(), QStringLiteral("show(, null)"));
}

void TestStepFunctionBase::wrongScreenWorkerIsNotCalled()
{
    for (const char* signature : {"pointerType(QVariant,QObject*)", "work(QVariant,QVariant)",
                                  "needsScreenFirst(Brimvale::IWorkflowScreen*,QVariant)", "unknown()"}) {
        QVERIFY(m_function->setScreenWorker(m_worker.get(), method<Worker>(signature)));
        m_function->prepareResultForScreen(5, someScreen());
    }
    QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("process(QVariant,QVariant)")));
    m_function->reset();
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::resetWorkerIsCalled()
{
    QVERIFY(m_function->setResetWorker(m_worker.get(), method<Worker>("undo()")));
    m_function->reset();
    m_function->reset();
    QCOMPARE(takeCalls(), QStringLiteral("undo() | undo()"));
}

void TestStepFunctionBase::withoutWorkersNothingHappens()
{
    m_function->prepareResultForScreen(5, someScreen());
    m_function->reset();
    QCOMPARE(takeCalls(), QString());
}

namespace
{

// A thread with an event loop and a worker that lives in it.
struct Distance
{
    Distance()
    {
        worker.moveToThread(&thread);
        thread.start();
    }
    ~Distance()
    {
        worker.begin.release(100);
        thread.quit();
        thread.wait();
    }

    QThread thread;
    DistantWorker worker;
};

} // namespace

void TestStepFunctionBase::distantWorkerGivesNoResult()
{
    Distance distance;
    QVERIFY(m_function->setWorker(&distance.worker, method<DistantWorker>("work(QVariant,QVariant)")));
    start();
    // At once, although the worker waits.
    QCOMPARE(takeCalls(), QStringLiteral("workDone(invalid)"));
    distance.worker.begin.release();
    QVERIFY(distance.worker.ended.tryAcquire(1, 30000));
    QCOMPARE(distance.worker.received, (QVariantList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(distance.worker.thread, &distance.thread);
    QCoreApplication::processEvents();
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::distantProcessIsDoneFromItsThread()
{
    Distance distance;
    distance.worker.function = m_function.get();
    m_function->setIsProcess(true);
    QVERIFY(m_function->setWorker(&distance.worker, method<DistantWorker>("process(QVariant,QVariant)")));
    m_calls.clear();
    start();
    QCOMPARE(takeCalls(), QString());
    distance.worker.begin.release();
    QVERIFY(distance.worker.ended.tryAcquire(2, 30000)); // functionDone() has returned
    QCOMPARE(distance.worker.thread, &distance.thread);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(from afar)"));
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QString());
}

void TestStepFunctionBase::distantScreenAndResetWorkersAreQueued()
{
    Distance distance;
    QVERIFY(m_function->setScreenWorker(&distance.worker,
                                        method<DistantWorker>("show(QVariant,Brimvale::IWorkflowScreen*)")));
    QVERIFY(m_function->setResetWorker(&distance.worker, method<DistantWorker>("undo()")));
    m_function->prepareResultForScreen(5, someScreen());
    distance.worker.begin.release();
    QVERIFY(distance.worker.ended.tryAcquire(1, 30000));
    QCOMPARE(distance.worker.received, (QVariantList{5, true}));
    QCOMPARE(distance.worker.thread, &distance.thread);
    m_function->reset();
    distance.worker.begin.release();
    QVERIFY(distance.worker.ended.tryAcquire(1, 30000));
    QCOMPARE(distance.worker.received, (QVariantList{QVariant(), QVariant()}));
}

void TestStepFunctionBase::distantWorkerDestroyedBeforeItsTurnIsNotCalled()
{
    QThread thread; // not started: what is queued waits
    auto worker = std::make_unique<DistantWorker>();
    worker->begin.release();
    worker->moveToThread(&thread);
    m_function->setIsProcess(true);
    QVERIFY(m_function->setWorker(worker.get(), method<DistantWorker>("process(QVariant,QVariant)")));
    m_calls.clear();
    start();
    worker.reset();
    start("c");
    QCOMPARE(takeCalls(), QString());
    QCOMPARE(m_function.get()->*memberOf(ArgumentMember()), QVariant(QStringLiteral("a")));
    m_function->functionDone(1);
    QCOMPARE(takeCalls(), QStringLiteral("workDone(1)"));
}

void TestStepFunctionBase::isUsableThroughItsInterface()
{
    m_function->setEnable(true);
    m_function->setName(QStringLiteral("Fill"));
    m_function->setUid(QStringLiteral("fill"));
    m_function->setRank(4);
    setProcess();
    QObject* const object = m_function.get();
    IStepFunction* const function = qobject_cast<IStepFunction*>(object);
    QCOMPARE(function, static_cast<IStepFunction*>(m_function.get()));
    QVERIFY(function->enabled());
    QCOMPARE(function->name(), QStringLiteral("Fill"));
    QCOMPARE(function->uid(), QStringLiteral("fill"));
    QCOMPARE(function->getRank(), 4);
    QVERIFY(function->isProcess());
    function->startFunction(1, 2);
    function->functionDone(3);
    function->prepareResultForScreen(4, nullptr);
    function->reset();
    function->functionUpdated();
    QCOMPARE(takeCalls(), QStringLiteral("process(1, 2) | workDone(3) | functionUpdated"));
}

void TestStepFunctionBase::answersToTheNamesOfItsInterface_data()
{
    QTest::addColumn<bool>("isInterface");
    QTest::newRow("IStepFunction") << true;
    QTest::newRow("Brimvale.Workflow.IStepFunction/1.0") << true;
    QTest::newRow("Brimvale.Workflow.IStepFunction") << false;
    QTest::newRow("StepFunctionBase") << false;
}

void TestStepFunctionBase::answersToTheNamesOfItsInterface()
{
    QFETCH(bool, isInterface);
    IStepFunction* const face = isInterface ? m_function.get() : nullptr;
    QCOMPARE(m_function->qt_metacast(QTest::currentDataTag()), static_cast<void*>(face));
}

void TestStepFunctionBase::declaresTwoSignals()
{
    const QMetaObject& type = StepFunctionBase::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::StepFunctionBase");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), (QStringList{QStringLiteral("signal functionUpdated()"),
                                                       QStringLiteral("signal workDone(QVariant)")}));
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestStepFunctionBase::destructorWritesItsLine_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::newRow("without a name") << QString();
    QTest::newRow("with a name") << QStringLiteral("fill");
}

void TestStepFunctionBase::destructorWritesItsLine()
{
    QFETCH(QString, objectName);
    m_function->setObjectName(objectName);
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::StepFunctionBase", m_function.get());
    m_function.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestStepFunctionBase::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    m_function.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestStepFunctionBase)
#include "tst_stepfunctionbase.moc"
