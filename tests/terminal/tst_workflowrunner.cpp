// SPDX-License-Identifier: BSD-3-Clause
#include "ActionBase.h"
#include "HostFixture.h"
#include "IWorkflowScreen.h"
#include "InfoValueUnit.h"
#include "StepFunctionBase.h"
#include "WorkflowScreen.h"
#include "WorkflowStep.h"

#include <QMetaMethod>
#include <QTranslator>
#include <QtTest>

#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

using Flag = StepFunctionButtonFlag;

bool yes()
{
    return true;
}

bool no()
{
    return false;
}

bool throwing()
{
    throw std::runtime_error("no answer");
}

} // namespace

/// A plug-in's functions: it notes every call, and answers "result of UID".
class Worker : public QObject
{
    Q_OBJECT

public:
    Worker(const QString& uid, QStringList& log)
        : m_uid(uid)
        , m_log(log)
    {
    }

    QMetaMethod method(const char* signature) const
    {
        return metaObject()->method(metaObject()->indexOfMethod(signature));
    }

    std::function<void()> during;
    std::function<void()> duringShow;
    std::function<void()> duringReset;

public slots:
    QVariant work(QVariant argument, QVariant data)
    {
        m_log.append(QStringLiteral("%1(%2, %3)").arg(m_uid, argument.toString(), data.toString()));
        if (during) {
            during();
        }
        return QStringLiteral("result of ") + m_uid;
    }
    void show(QVariant result, IWorkflowScreen* screen)
    {
        m_log.append(QStringLiteral("show %1").arg(result.toString()));
        InfoValueUnit value(nullptr, true, QStringLiteral("Result"), result.toString(), QStringLiteral("g"));
        screen->setResult1(&value);
        if (duringShow) {
            duringShow();
        }
    }
    void reset()
    {
        m_log.append(QStringLiteral("reset ") + m_uid);
        if (duringReset) {
            duringReset();
        }
    }

private:
    const QString m_uid;
    QStringList& m_log;
};

class tst_WorkflowRunner : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void runsTheStepsInOrder();
    void stepWithoutFunctionOnlyShowsItsScreen();
    void skipsWhatIsNotEnabled();
    void refuses_data();
    void refuses();
    void refusesWhileOneRuns();

    void buttonTrigger();
    void stableTrigger();
    void loadChangeTrigger_data();
    void loadChangeTrigger();
    void loadChangeIsTakenFromTheFirstValidReading();
    void timerTrigger_data();
    void timerTrigger();

    void processEndsLater();
    void processTimesOut();
    void lateResultAfterTimeoutCounts();
    void faultFollowsTheLanguage_data();
    void faultFollowsTheLanguage();
    void withoutTimeout();
    void functionWithoutWorkerIsAFault();

    void keys_data();
    void keys();
    void goesBack();
    void repeats();
    void abortsInReverseOrder();
    void resetAbandons();
    void abortFromAWorker();
    void startFromFinished();

    void workerThatThrows();
    void enableCheckThatThrows();
    void functionDestroyedByItsWorker();
    void functionDestroyedByItsResetWorker();
    void functionWithdrawn();
    void stepDestroyed();
    void stepDestroyedBefore_data();
    void stepDestroyedBefore();
    void stepDestroyedByThePlugin_data();
    void stepDestroyedByThePlugin();
    void screenDestroyed();

    void textsAreReadWhenShown();
    void progress();
    void printKey();
    void actionKey();
    void pluginClosed();

private:
    WorkflowManager& manager() { return m_fixture->host->workflowManager(); }
    WorkflowRunner& runner() { return manager().runner(); }
    const WorkflowView& view() { return runner().view(); }

    Worker* addFunction(const QString& uid, bool isProcess = false)
    {
        auto* const worker = new Worker(uid, m_log);
        m_plugin->workers.append(QSharedPointer<Worker>(worker));
        auto* const function = new StepFunctionBase(m_plugin->functions.get());
        function->setUid(uid);
        function->setName(QStringLiteral("Function ") + uid);
        function->setEnable(true);
        function->setIsProcess(isProcess);
        function->setWorker(worker, worker->method("work(QVariant,QVariant)"));
        function->setScreenWorker(worker, worker->method("show(QVariant,IWorkflowScreen*)"));
        function->setResetWorker(worker, worker->method("reset()"));
        manager().AddStepFunction(function);
        m_functions.insert(uid, function);
        return worker;
    }

    WorkflowScreen* screen(const QString& line, const QString& right = QString(),
                           int type = WorkflowView::Full)
    {
        auto* const texts = new WorkflowScreen::ScreenTexte;
        texts->infoTextLine1 = line;
        texts->rightButtonText = right;
        m_plugin->texts.append(QSharedPointer<WorkflowScreen::ScreenTexte>(texts));
        return new WorkflowScreen(m_plugin->steps.get(), type, texts, QStringLiteral(":/picture.svg"), 0);
    }

    IWorkflowStep* step(int id, const QString& uid, TriggerType before = TriggerType::None,
                        TriggerType after = TriggerType::None, const QVariant& settings = QVariant(),
                        StepFunctionButtonFlags flags = {}, bool (*enabled)() = &yes)
    {
        WorkflowScreen* const pre = screen(QStringLiteral("before %1").arg(id));
        WorkflowScreen* const post = screen(QStringLiteral("after %1").arg(id));
        return new WorkflowStep(m_plugin->steps.get(), id, uid, flags, before, pre, after, post, m_action,
                                settings, QStringLiteral("p%1").arg(id), enabled);
    }

    bool start(const QList<IWorkflowStep*>& steps) { return manager().StartWorkflow(steps); }

    QStringList keyNames()
    {
        QStringList names;
        for (const ActionState& key : m_fixture->host->workflowKeys()) {
            names.append(key.name + (key.enabled ? QString() : QStringLiteral(" (off)")));
        }
        return names;
    }

    /// What a plug-in owns.
    struct Plugin
    {
        std::unique_ptr<QObject> steps = std::make_unique<QObject>();
        std::unique_ptr<QObject> functions = std::make_unique<QObject>();
        QList<QSharedPointer<Worker>> workers;
        QList<QSharedPointer<WorkflowScreen::ScreenTexte>> texts;
    };

    std::unique_ptr<HostFixture> m_fixture;
    std::unique_ptr<Plugin> m_plugin;
    QMap<QString, StepFunctionBase*> m_functions;
    QStringList m_log;
    QString m_action;
};

void tst_WorkflowRunner::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_plugin = std::make_unique<Plugin>();
    m_functions.clear();
    m_log.clear();
    m_action.clear();
    connect(&manager(), &WorkflowManager::NotifyWorkflowStepEntered, this,
            [this](int id) { m_log.append(QStringLiteral("step %1").arg(id)); });
    connect(&manager(), &WorkflowManager::NotifyWorkflowFinished, this, [this](bool completed) {
        m_log.append(completed ? QStringLiteral("completed") : QStringLiteral("abandoned"));
    });
}

void tst_WorkflowRunner::cleanup()
{
    m_fixture.reset();
    m_plugin.reset();
}

void tst_WorkflowRunner::runsTheStepsInOrder()
{
    addFunction(QStringLiteral("a"));
    addFunction(QStringLiteral("b"));
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::None, 7),
                   step(2, QStringLiteral("b")), step(3, QStringLiteral("a"))}));
    QCOMPARE(
        m_log,
        (QStringList{QStringLiteral("step 1"), QStringLiteral("a(p1, 7)"), QStringLiteral("show result of a"),
                     QStringLiteral("step 2"), QStringLiteral("b(p2, )"), QStringLiteral("show result of b"),
                     QStringLiteral("step 3"), QStringLiteral("reset a"), QStringLiteral("a(p3, )"),
                     QStringLiteral("show result of a"), QStringLiteral("completed")}));
    QVERIFY(!runner().isRunning());
    QVERIFY(!view().running);
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_WorkflowRunner::stepWithoutFunctionOnlyShowsItsScreen()
{
    QVERIFY(start({step(1, QString(), TriggerType::Button, TriggerType::Button)}));
    QCOMPARE(view().lines.first(), QStringLiteral("before 1"));
    QCOMPARE(view().title, QString());
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(view().lines.first(), QStringLiteral("after 1"));
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(m_log, (QStringList{QStringLiteral("step 1"), QStringLiteral("completed")}));
}

void tst_WorkflowRunner::skipsWhatIsNotEnabled()
{
    addFunction(QStringLiteral("a"));
    addFunction(QStringLiteral("off"));
    m_functions.value(QStringLiteral("off"))->setEnable(false);
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::None, QVariant(), {}, &no),
                   step(2, QStringLiteral("off")), step(3, QStringLiteral("a"), TriggerType::Button)}));
    QCOMPARE(m_log, QStringList{QStringLiteral("step 3")});
    QCOMPARE(runner().stepIndex(), 2);
    QVERIFY(!runner().press(WorkflowRunner::backKey()));
}

void tst_WorkflowRunner::refuses_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("notice");
    QTest::newRow("nothing") << QStringLiteral("nothing")
                             << QStringLiteral("warning: The workflow has no steps.");
    QTest::newRow("null") << QStringLiteral("null")
                          << QStringLiteral("warning: Step 2 of the workflow is missing.");
    QTest::newRow("unknown function")
        << QStringLiteral("unknown")
        << QStringLiteral(
               "warning: Step 2 of the workflow names the function \"x\", which the application does not "
               "offer.");
    QTest::newRow("timer without time")
        << QStringLiteral("timer")
        << QStringLiteral(
               "warning: Step 2 of the workflow waits for a time, but its settings name none: a number of "
               "milliseconds up to 24 hours is needed.");
}

void tst_WorkflowRunner::refuses()
{
    QFETCH(QString, what);
    addFunction(QStringLiteral("a"));
    QList<IWorkflowStep*> steps{step(1, QStringLiteral("a"))};
    if (what == QLatin1String("nothing")) {
        steps.clear();
    } else if (what == QLatin1String("null")) {
        steps.append(nullptr);
    } else if (what == QLatin1String("unknown")) {
        steps.append(step(2, QStringLiteral("x")));
    } else {
        steps.append(
            step(2, QStringLiteral("a"), TriggerType::Timer, TriggerType::None, QStringLiteral("soon")));
    }
    QVERIFY(!start(steps));
    QTEST(m_fixture->notices.join(QLatin1Char('|')), "notice");
    QCOMPARE(m_log, QStringList());
    QVERIFY(!runner().isRunning());
}

void tst_WorkflowRunner::refusesWhileOneRuns()
{
    const QList<IWorkflowStep*> steps{step(1, QString(), TriggerType::Button)};
    QVERIFY(start(steps));
    QVERIFY(!start(steps));
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("warning: A workflow is running already.")});
    QVERIFY(runner().isRunning());
}

void tst_WorkflowRunner::buttonTrigger()
{
    addFunction(QStringLiteral("a"));
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::Button, TriggerType::Button)}));
    m_fixture->settle(100.0);
    QCOMPARE(m_log, QStringList{QStringLiteral("step 1")});
    QCOMPARE(view().waiting, QString());
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(m_log.last(), QStringLiteral("show result of a"));
    QCOMPARE(view().result1->property("value").toString(), QStringLiteral("result of a"));
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(m_log.last(), QStringLiteral("completed"));
    QVERIFY(!runner().press(WorkflowRunner::continueKey()));
}

void tst_WorkflowRunner::stableTrigger()
{
    addFunction(QStringLiteral("a"));
    m_fixture->settle(50.0);
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::StableValue, TriggerType::Button)}));
    m_fixture->settle(50.0); // stable since before
    QCOMPARE(m_log, QStringList{QStringLiteral("step 1")});
    QCOMPARE(view().waiting, QStringLiteral("Waiting for a stable weight"));
    m_fixture->settle(100.0);
    QVERIFY(m_log.contains(QStringLiteral("a(p1, )")));
}

void tst_WorkflowRunner::loadChangeTrigger_data()
{
    QTest::addColumn<QVariant>("settings");
    QTest::addColumn<double>("grams");
    QTest::addColumn<bool>("fires");
    QTest::newRow("just below ten increments") << QVariant() << 100.9 << false;
    QTest::newRow("ten increments") << QVariant() << 101.0 << true;
    QTest::newRow("ten increments down") << QVariant() << 99.0 << true;
    const QVariantMap map{{QStringLiteral("loadChange"), 5.0}};
    QTest::newRow("below what is set") << QVariant(map) << 104.9 << false;
    QTest::newRow("what is set") << QVariant(map) << 105.0 << true;
}

void tst_WorkflowRunner::loadChangeTrigger()
{
    QFETCH(QVariant, settings);
    QFETCH(double, grams);
    addFunction(QStringLiteral("a"));
    m_fixture->settle(100.0);
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::LoadChange, TriggerType::Button, settings)}));
    QCOMPARE(view().waiting, QStringLiteral("Waiting for a change of the load"));
    m_fixture->scale.tare(); // changes no load
    m_fixture->feed(100.0);
    m_fixture->fail(Reading::Status::Disconnected);
    QCOMPARE(m_log.size(), 1);
    m_fixture->feed(grams);
    QTEST(m_log.size() > 1, "fires");
}

void tst_WorkflowRunner::loadChangeIsTakenFromTheFirstValidReading()
{
    addFunction(QStringLiteral("a"));
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::LoadChange, TriggerType::Button)}));
    m_fixture->feed(100.0);
    QCOMPARE(m_log.size(), 1);
    m_fixture->feed(110.0);
    QVERIFY(m_log.size() > 1);
}

void tst_WorkflowRunner::timerTrigger_data()
{
    QTest::addColumn<QVariant>("settings");
    QTest::newRow("number") << QVariant(1500);
    QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("timerMs"), 1500}});
}

void tst_WorkflowRunner::timerTrigger()
{
    QFETCH(QVariant, settings);
    addFunction(QStringLiteral("a"));
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::Timer, TriggerType::Timer, settings)}));
    m_fixture->clock.advance(1499);
    QCOMPARE(m_log.size(), 1);
    m_fixture->clock.advance(1);
    QCOMPARE(m_log.size(), 3);
    m_fixture->clock.advance(1499);
    QCOMPARE(m_log.size(), 3);
    m_fixture->clock.advance(1);
    QCOMPARE(m_log.last(), QStringLiteral("completed"));
}

void tst_WorkflowRunner::processEndsLater()
{
    addFunction(QStringLiteral("fill"), true);
    QVERIFY(start({step(1, QStringLiteral("fill"), TriggerType::None, TriggerType::Button)}));
    QCOMPARE(m_log, (QStringList{QStringLiteral("step 1"), QStringLiteral("fill(p1, )")}));
    QCOMPARE(view().waiting, QStringLiteral("Function fill in progress"));
    m_functions.value(QStringLiteral("fill"))->functionDone(12.5);
    QCOMPARE(m_log.last(), QStringLiteral("show 12.5"));
    QCOMPARE(view().lines.first(), QStringLiteral("after 1"));
    m_functions.value(QStringLiteral("fill"))->functionDone(13.0);
    QCOMPARE(m_log.last(), QStringLiteral("show 12.5"));
}

void tst_WorkflowRunner::processTimesOut()
{
    addFunction(QStringLiteral("fill"), true);
    QVERIFY(start({step(1, QStringLiteral("fill"), TriggerType::None, TriggerType::Button,
                        QVariantMap{{QStringLiteral("timeoutMs"), 2500}})}));
    m_fixture->clock.advance(2499);
    QVERIFY(!runner().isTimedOut());
    m_fixture->clock.advance(1);
    QVERIFY(runner().isTimedOut());
    const QString fault = QStringLiteral(
        "\"Function fill\" has not finished after 2.5 s. It may still do so; otherwise repeat it or "
        "abort.");
    QCOMPARE(view().fault, fault);
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("warning: ") + fault});
    QCOMPARE(keyNames(), (QStringList{QStringLiteral("Repeat"), QStringLiteral("Abort")}));
    QVERIFY(runner().press(WorkflowRunner::repeatKey()));
    QVERIFY(!runner().isTimedOut());
    QCOMPARE(view().fault, QString());
    QCOMPARE(m_log, (QStringList{QStringLiteral("step 1"), QStringLiteral("fill(p1, )"),
                                 QStringLiteral("reset fill"), QStringLiteral("fill(p1, )")}));
    m_fixture->clock.advance(2500);
    QVERIFY(runner().isTimedOut());
    QVERIFY(runner().press(WorkflowRunner::abortKey()));
    QCOMPARE(m_log.mid(4), (QStringList{QStringLiteral("reset fill"), QStringLiteral("abandoned")}));
}

void tst_WorkflowRunner::lateResultAfterTimeoutCounts()
{
    addFunction(QStringLiteral("fill"), true);
    QVERIFY(start({step(1, QStringLiteral("fill"), TriggerType::None, TriggerType::Button)}));
    m_fixture->clock.advance(WorkflowRunner::DefaultTimeoutMs);
    QVERIFY(runner().isTimedOut());
    m_functions.value(QStringLiteral("fill"))->functionDone(1);
    QVERIFY(!runner().isTimedOut());
    QCOMPARE(view().fault, QString());
    QCOMPARE(view().lines.first(), QStringLiteral("after 1"));
}

namespace
{

/// A language in which every text of the terminal reads "other:" and the text.
class OtherLanguage : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "Brimvale::Terminal::WorkflowRunner") == 0
                   ? QStringLiteral("other: ") + QString::fromUtf8(text)
                   : QString();
    }
};

} // namespace

void tst_WorkflowRunner::faultFollowsTheLanguage_data()
{
    QTest::addColumn<bool>("isProcess");
    QTest::newRow("process that does not end") << true;
    QTest::newRow("function without a worker") << false;
}

void tst_WorkflowRunner::faultFollowsTheLanguage()
{
    QFETCH(bool, isProcess);
    addFunction(QStringLiteral("a"), isProcess);
    if (!isProcess) {
        m_plugin->workers.clear();
    }
    QVERIFY(start({step(1, QStringLiteral("a"))}));
    m_fixture->clock.advance(WorkflowRunner::DefaultTimeoutMs);
    const QString fault = view().fault;
    QVERIFY(!fault.isEmpty());
    OtherLanguage other;
    QVERIFY(QCoreApplication::installTranslator(&other));
    m_fixture->host->setLanguage(QStringLiteral("de"));
    QCOMPARE(view().fault, QStringLiteral("other: ") + fault);
}

void tst_WorkflowRunner::withoutTimeout()
{
    addFunction(QStringLiteral("fill"), true);
    QVERIFY(start({step(1, QStringLiteral("fill"), TriggerType::None, TriggerType::Button,
                        QVariantMap{{QStringLiteral("timeoutMs"), 0}})}));
    m_fixture->clock.advance(WorkflowRunner::MaximumTimeMs);
    QVERIFY(!runner().isTimedOut());
}

void tst_WorkflowRunner::functionWithoutWorkerIsAFault()
{
    addFunction(QStringLiteral("a"));
    m_plugin->workers.clear();
    QVERIFY(start({step(1, QStringLiteral("a"))}));
    QVERIFY(runner().isRunning());
    QCOMPARE(view().fault,
             QStringLiteral("\"Function a\" did not run: the application has no worker for it."));
    QCOMPARE(keyNames(), (QStringList{QStringLiteral("Repeat"), QStringLiteral("Abort")}));
}

void tst_WorkflowRunner::keys_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("center");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("keys");
    const int all = int(Flag::Back) | int(Flag::Repeat) | int(Flag::Abort);
    QTest::newRow("no flags") << 0 << ""
                              << ""
                              << ""
                              << "Continue";
    QTest::newRow("all flags") << all << ""
                               << ""
                               << ""
                               << "Back|Repeat|Continue|Abort";
    QTest::newRow("texts of the screen") << all << "Last"
                                         << "Again"
                                         << "Next"
                                         << "Last|Again|Next|Abort";
    QTest::newRow("texts without flags") << 0 << "Last"
                                         << "Again"
                                         << "Next"
                                         << "Last (off)|Again (off)|Next";
}

void tst_WorkflowRunner::keys()
{
    QFETCH(int, flags);
    addFunction(QStringLiteral("a"));
    WorkflowScreen::ScreenTexte texts;
    QFETCH(QString, left);
    QFETCH(QString, center);
    QFETCH(QString, right);
    texts.leftButtonText = left;
    texts.centerButtonText = center;
    texts.rightButtonText = right;
    WorkflowScreen after(nullptr, 0, &texts, QString(), 0);
    WorkflowStep second(nullptr, 2, QStringLiteral("a"), StepFunctionButtonFlags(QFlag(flags)),
                        TriggerType::None, nullptr, TriggerType::Button, &after, QString(), QVariant(),
                        QString(), &yes);
    QVERIFY(start({step(1, QStringLiteral("a")), &second}));
    QTEST(keyNames().join(QLatin1Char('|')), "keys");
    manager().Reset();
    QCOMPARE(keyNames(), QStringList());
}

void tst_WorkflowRunner::goesBack()
{
    addFunction(QStringLiteral("a"));
    addFunction(QStringLiteral("b"));
    const StepFunctionButtonFlags back = Flag::Back;
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::Button),
                   step(2, QStringLiteral("b"), TriggerType::None, TriggerType::Button, QVariant(), back)}));
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    m_log.clear();
    QVERIFY(runner().press(WorkflowRunner::backKey()));
    QCOMPARE(m_log, (QStringList{QStringLiteral("reset b"), QStringLiteral("step 1")}));
    QCOMPARE(view().lines.first(), QStringLiteral("before 1"));
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(m_log.mid(2), (QStringList{QStringLiteral("reset a"), QStringLiteral("a(p1, )"),
                                        QStringLiteral("show result of a"), QStringLiteral("step 2"),
                                        QStringLiteral("reset b"), QStringLiteral("b(p2, )"),
                                        QStringLiteral("show result of b")}));
}

void tst_WorkflowRunner::repeats()
{
    addFunction(QStringLiteral("a"));
    QVERIFY(start(
        {step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button, QVariant(), Flag::Repeat)}));
    m_log.clear();
    QVERIFY(runner().press(WorkflowRunner::repeatKey()));
    QCOMPARE(m_log, (QStringList{QStringLiteral("reset a"), QStringLiteral("a(p1, )"),
                                 QStringLiteral("show result of a")}));
}

void tst_WorkflowRunner::abortsInReverseOrder()
{
    addFunction(QStringLiteral("a"));
    addFunction(QStringLiteral("b"));
    addFunction(QStringLiteral("c"));
    QVERIFY(start(
        {step(1, QStringLiteral("a")), step(2, QStringLiteral("b")), step(3, QStringLiteral("a")),
         step(4, QStringLiteral("c"), TriggerType::Button, TriggerType::None, QVariant(), Flag::Abort)}));
    m_log.clear();
    QVERIFY(runner().press(WorkflowRunner::abortKey()));
    QCOMPARE(m_log, (QStringList{QStringLiteral("reset b"), QStringLiteral("reset a"),
                                 QStringLiteral("abandoned")}));
    QVERIFY(!runner().isRunning());
}

void tst_WorkflowRunner::resetAbandons()
{
    addFunction(QStringLiteral("a"));
    manager().Reset();
    manager().AbortWorkflow();
    QCOMPARE(m_log, QStringList());
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button)}));
    m_log.clear();
    manager().Reset();
    QCOMPARE(m_log, (QStringList{QStringLiteral("reset a"), QStringLiteral("abandoned")}));
}

void tst_WorkflowRunner::abortFromAWorker()
{
    addFunction(QStringLiteral("a"))->during = [this] {
        manager().AbortWorkflow();
        m_log.append(QStringLiteral("worker goes on"));
        QVERIFY(!start({step(9, QString())}));
    };
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button),
                   step(2, QStringLiteral("a"))}));
    QCOMPARE(m_log, (QStringList{QStringLiteral("step 1"), QStringLiteral("a(p1, )"),
                                 QStringLiteral("worker goes on"), QStringLiteral("reset a"),
                                 QStringLiteral("abandoned")}));
    QVERIFY(!runner().isRunning());
}

void tst_WorkflowRunner::startFromFinished()
{
    addFunction(QStringLiteral("a"));
    IWorkflowStep* const second = step(2, QString(), TriggerType::Button);
    connect(&manager(), &WorkflowManager::NotifyWorkflowFinished, this, [this, second](bool completed) {
        if (completed && m_log.contains(QStringLiteral("step 1"))
            && !m_log.contains(QStringLiteral("step 2"))) {
            QVERIFY(start({second}));
        }
    });
    QVERIFY(start({step(1, QStringLiteral("a"))}));
    QCOMPARE(m_log.mid(3), (QStringList{QStringLiteral("completed"), QStringLiteral("step 2")}));
    QVERIFY(runner().isRunning());
    QVERIFY(view().running);
}

void tst_WorkflowRunner::workerThatThrows()
{
    addFunction(QStringLiteral("a"))->during = [] { throw std::runtime_error("jammed"); };
    start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button)});
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("jammed")).size(), 1);
    QCOMPARE(m_log, (QStringList{QStringLiteral("step 1"), QStringLiteral("a(p1, )"),
                                 QStringLiteral("reset a"), QStringLiteral("abandoned")}));
}

void tst_WorkflowRunner::enableCheckThatThrows()
{
    start({step(1, QString(), TriggerType::Button, TriggerType::None, QVariant(), {}, &throwing)});
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_log, QStringList{QStringLiteral("abandoned")});
    QCOMPARE(m_fixture->noticesWith(QStringLiteral("no answer")).size(), 1);
}

void tst_WorkflowRunner::functionDestroyedByItsWorker()
{
    addFunction(QStringLiteral("a"))->during = [this] { delete m_functions.take(QStringLiteral("a")); };
    start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button)});
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_log,
             (QStringList{QStringLiteral("step 1"), QStringLiteral("a(p1, )"), QStringLiteral("abandoned")}));
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("error: The function \"Function a\" of the workflow is gone.")});
}

void tst_WorkflowRunner::functionDestroyedByItsResetWorker()
{
    addFunction(QStringLiteral("a"))->duringReset = [this] { delete m_functions.take(QStringLiteral("a")); };
    QVERIFY(start(
        {step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button, QVariant(), Flag::Repeat)}));
    QVERIFY(runner().press(WorkflowRunner::repeatKey()));
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_log.last(), QStringLiteral("abandoned"));
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("error: The function \"Function a\" of the workflow is gone.")});
}

void tst_WorkflowRunner::functionWithdrawn()
{
    addFunction(QStringLiteral("a"));
    addFunction(QStringLiteral("b"));
    QVERIFY(start({step(1, QStringLiteral("a")), step(2, QStringLiteral("b"), TriggerType::Button)}));
    m_log.clear();
    manager().RemoveStepFunction(m_functions.value(QStringLiteral("b")));
    QCOMPARE(m_log, (QStringList{QStringLiteral("reset a"), QStringLiteral("abandoned")}));
    QVERIFY(!start({step(3, QStringLiteral("b"))}));
}

void tst_WorkflowRunner::stepDestroyed()
{
    std::unique_ptr<IWorkflowStep> first(step(1, QString(), TriggerType::Button));
    QVERIFY(start({first.get()}));
    first.reset();
    m_fixture->feed(1.0);
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("error: Step 1 of the workflow is gone.")});
}

void tst_WorkflowRunner::stepDestroyedBefore_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("the stable value that it waits for") << "stable";
    QTest::newRow("a key") << "key";
    QTest::newRow("the end of its process") << "process";
}

/// What comes before the terminal has looked at the step again.
void tst_WorkflowRunner::stepDestroyedBefore()
{
    QFETCH(QString, event);
    addFunction(QStringLiteral("a"), true);
    const bool isProcess = event == QLatin1String("process");
    QVERIFY(start({step(1, QStringLiteral("a"),
                        isProcess                       ? TriggerType::None
                        : event == QLatin1String("key") ? TriggerType::Button
                                                        : TriggerType::StableValue)}));
    m_log.clear();
    m_plugin->steps = std::make_unique<QObject>();
    if (isProcess) {
        m_functions.value(QStringLiteral("a"))->functionDone(1);
    } else if (event == QLatin1String("key")) {
        runner().press(WorkflowRunner::continueKey());
    } else {
        runner().onStableValue();
    }
    QVERIFY(!runner().isRunning());
    QStringList expected{QStringLiteral("abandoned")};
    if (isProcess) {
        expected.prepend(QStringLiteral("reset a"));
    }
    QCOMPARE(m_log, expected);
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY(m_fixture->notices.first().contains(QStringLiteral("Step 1 of the workflow is gone.")));
}

void tst_WorkflowRunner::stepDestroyedByThePlugin_data()
{
    QTest::addColumn<QString>("where");
    QTest::newRow("worker") << "work";
    QTest::newRow("screen worker") << "show";
    QTest::newRow("reset worker at a repetition") << "reset";
    QTest::newRow("slot that hears of the step") << "entered";
    QTest::newRow("its enable check") << "enabled";
}

void tst_WorkflowRunner::stepDestroyedByThePlugin()
{
    QFETCH(QString, where);
    Worker* const worker = addFunction(QStringLiteral("a"));
    const auto destroy = [this] { m_plugin->steps = std::make_unique<QObject>(); };
    if (where == QLatin1String("work")) {
        worker->during = destroy;
    } else if (where == QLatin1String("show")) {
        worker->duringShow = destroy;
    } else if (where == QLatin1String("reset")) {
        worker->duringReset = destroy;
    } else if (where == QLatin1String("entered")) {
        connect(&manager(), &WorkflowManager::NotifyWorkflowStepEntered, worker, destroy);
    }
    static std::function<void()> check;
    check = where == QLatin1String("enabled") ? std::function<void()>(destroy) : [] {};
    QVERIFY(start(
        {step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button, QVariant(), Flag::Repeat, [] {
            check();
            return true;
        })}));
    if (where == QLatin1String("reset")) {
        QVERIFY(runner().press(WorkflowRunner::repeatKey()));
    }
    QVERIFY(!runner().isRunning());
    QCOMPARE(m_log.last(), QStringLiteral("abandoned"));
    QCOMPARE(m_fixture->notices.size(), 1);
    QVERIFY(m_fixture->notices.first().contains(QStringLiteral("Step 1 of the workflow is gone.")));
}

void tst_WorkflowRunner::screenDestroyed()
{
    auto shown = std::make_unique<WorkflowScreen>(nullptr, 0, nullptr, nullptr, nullptr, QString(), 1,
                                                  nullptr, nullptr, nullptr);
    WorkflowStep only(nullptr, 1, QString(), {}, TriggerType::Button, shown.get(), TriggerType::None, nullptr,
                      QString(), QVariant(), QString(), &yes);
    QVERIFY(start({&only}));
    QVERIFY(view().auxiliaryOn);
    QCOMPARE(view().lines, (QStringList{QString(), QString(), QString()}));
    shown.reset();
    m_fixture->feed(1.0);
    QVERIFY(runner().isRunning());
    QVERIFY(!view().auxiliaryOn);
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(m_log.last(), QStringLiteral("completed"));
}

void tst_WorkflowRunner::textsAreReadWhenShown()
{
    QString line = QStringLiteral("Put on the vessel");
    QString right = QStringLiteral("Next");
    WorkflowScreen shown(nullptr, WorkflowView::Band, nullptr, nullptr, &right, QString(), 0, &line, nullptr,
                         nullptr);
    WorkflowStep only(nullptr, 1, QString(), {}, TriggerType::Button, &shown, TriggerType::None, nullptr,
                      QString(), QVariant(), QString(), &yes);
    QVERIFY(start({&only}));
    QCOMPARE(view().screenType, int(WorkflowView::Band));
    line = QStringLiteral("Gefäß aufsetzen");
    right = QStringLiteral("Weiter");
    QCOMPARE(view().lines.first(), QStringLiteral("Put on the vessel"));
    m_fixture->feed(1.0);
    QCOMPARE(view().lines.first(), QStringLiteral("Gefäß aufsetzen"));
    QCOMPARE(keyNames(), QStringList{QStringLiteral("Weiter")});
    line = QStringLiteral("Put on the vessel");
    m_fixture->host->setLanguage(QStringLiteral("en"));
    QCOMPARE(view().lines.first(), QStringLiteral("Put on the vessel"));
}

void tst_WorkflowRunner::progress()
{
    const StepFunctionButtonFlags back = Flag::Back;
    QVERIFY(start({step(1, QString(), TriggerType::Button),
                   step(2, QString(), TriggerType::Button, TriggerType::None, QVariant(), {}, &no),
                   step(3, QString(), TriggerType::Button, TriggerType::None, QVariant(), back)}));
    const auto marks = [this] {
        QString text;
        for (const QObject* const mark : runner().progress().model()) {
            text.append(QLatin1Char(mark->property("isDone").toBool() ? 'x' : '.'));
        }
        return text;
    };
    QCOMPARE(marks(), QStringLiteral("..."));
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QCOMPARE(marks(), QStringLiteral("xx."));
    QVERIFY(runner().press(WorkflowRunner::backKey()));
    QCOMPARE(marks(), QStringLiteral("..."));
    manager().Reset();
    QCOMPARE(marks(), QString());
}

void tst_WorkflowRunner::printKey()
{
    class Output : public TransferOutput
    {
    public:
        bool isActive() const override { return true; }
        bool write(const TransferRecord&) override { return true; }
    };
    addFunction(QStringLiteral("a"));
    Host& host = *m_fixture->host;
    host.setOutput(1, std::make_unique<Output>());
    QVERIFY(host.isPrintEnabled());
    QVERIFY(start(
        {step(1, QStringLiteral("a"), TriggerType::Button, TriggerType::Button, QVariant(), Flag::Print),
         step(2, QStringLiteral("a"), TriggerType::None, TriggerType::Button)}));
    QVERIFY(!host.isPrintEnabled());
    QVERIFY(!host.pressPrint());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: This step of the workflow has nothing to print.")});
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QVERIFY(host.isPrintEnabled());
    manager().onPrintButtonEnableChange(false);
    QVERIFY(!host.isPrintEnabled());
    manager().onPrintButtonEnableChange(true);
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QVERIFY(!host.isPrintEnabled());
    QVERIFY(runner().press(WorkflowRunner::continueKey()));
    QVERIFY(host.isPrintEnabled());
}

void tst_WorkflowRunner::actionKey()
{
    Host& host = *m_fixture->host;
    m_action = QStringLiteral("plugin.tare");
    QVERIFY(start({step(1, QString(), TriggerType::Button)}));
    QCOMPARE(keyNames(), QStringList{QStringLiteral("Continue")}); // no such action yet
    QVERIFY(!host.pressWorkflowKey(m_action));

    Worker worker(m_action, m_log);
    ActionBase action(nullptr);
    action.setUid(m_action);
    action.setName(QStringLiteral("Tare"));
    action.setEnable(true);
    action.setWorker(&worker, worker.method("reset()"));
    host.actionBar().AddAction(&action);
    QCOMPARE(keyNames(), (QStringList{QStringLiteral("Continue"), QStringLiteral("Tare")}));
    QSignalSpy done(&action, &ActionBase::workDone);
    QVERIFY(host.pressWorkflowKey(m_action));
    QCOMPARE(done.size(), 1);
    QVERIFY(!host.pressWorkflowKey(QStringLiteral("plugin.other")));
    QVERIFY(runner().isRunning());
}

void tst_WorkflowRunner::pluginClosed()
{
    addFunction(QStringLiteral("a"));
    QVERIFY(start({step(1, QStringLiteral("a"), TriggerType::None, TriggerType::Button)}));
    manager().clear();
    QVERIFY(!runner().isRunning());
    QVERIFY(manager().stepFunctions().isEmpty());
    QCOMPARE(m_log.last(), QStringLiteral("abandoned"));
}

QTEST_GUILESS_MAIN(tst_WorkflowRunner)
#include "tst_workflowrunner.moc"
