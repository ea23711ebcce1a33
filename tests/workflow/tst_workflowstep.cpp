// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "WorkflowScreen.h"
#include "WorkflowStep.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;

namespace
{

int s_checks = 0;
bool s_answer = false;

bool check()
{
    ++s_checks;
    return s_answer;
}

bool otherCheck()
{
    return true;
}

// Another implementation, which knows nothing but its step and its function.
class OtherStep : public IWorkflowStep
{
public:
    OtherStep(int id, const QString& function)
        : m_id(id)
        , m_function(function)
    {
    }
    int stepId() const override { return m_id; }
    QString functionId() const override { return m_function; }
    QFlags<StepFunctionButtonFlag> getStepFunctionButtonsFlags() const override { return fail(), QFlag(0); }
    TriggerType preWorkflowTrigger() const override { return fail(), TriggerType::None; }
    IWorkflowScreen* preWorkflowScreen() const override { return fail(), nullptr; }
    TriggerType postWorkflowTrigger() const override { return fail(), TriggerType::None; }
    IWorkflowScreen* postWorkflowScreen() const override { return fail(), nullptr; }
    QString getActionButton() const override { return fail(), QString(); }
    QVariant getSettings() const override { return fail(), QVariant(); }
    QString getParameter() const override { return fail(), QString(); }
    bool isEnabled() override { return fail(), false; }
    bool isEqual(IWorkflowStep*) override { return fail(), false; }

    mutable int otherCalls = 0;

private:
    void fail() const { ++otherCalls; }

    int m_id;
    QString m_function;
};

// Numbers itself.
class RenumberedStep : public WorkflowStep
{
public:
    using WorkflowStep::WorkflowStep;
    int stepId() const override { return 9; }
};

} // namespace

class TestWorkflowStep : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void constructorStores();
    void parentOwnsTheStepButNotItsScreens();
    void enableCheckIsAskedEveryTime();
    void enableCheckIsNotAskedByOthers();
    void isEqual_data();
    void isEqual();
    void isEqualToAnotherImplementation_data();
    void isEqualToAnotherImplementation();
    void isEqualAsksThroughTheInterface();
    void isUsableThroughItsInterface();
    void answersToTheNamesOfItsInterface_data();
    void answersToTheNamesOfItsInterface();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    template <typename Step = WorkflowStep>
    std::unique_ptr<Step> make(int id = 3, const QString& function = QStringLiteral("fill"))
    {
        return std::make_unique<Step>(nullptr, id, function,
                                      StepFunctionButtonFlag::Back | StepFunctionButtonFlag::Print,
                                      TriggerType::LoadChange, &m_before, TriggerType::Timer, &m_after,
                                      QStringLiteral("tare"), QVariant(250), QStringLiteral("water"), check);
    }
    std::unique_ptr<WorkflowStep> makeOther(int id, const QString& function)
    {
        return std::make_unique<WorkflowStep>(nullptr, id, function, QFlags<StepFunctionButtonFlag>(),
                                              TriggerType::None, nullptr, TriggerType::None, nullptr,
                                              QString(), QVariant(), QString(), otherCheck);
    }

    WorkflowScreen m_before{nullptr, 1, nullptr, nullptr, nullptr, QString(), 0, nullptr, nullptr, nullptr};
    WorkflowScreen m_after{nullptr, 2, nullptr, nullptr, nullptr, QString(), 0, nullptr, nullptr, nullptr};
};

void TestWorkflowStep::init()
{
    s_checks = 0;
    s_answer = false;
}

void TestWorkflowStep::constructorStores()
{
    const auto step = make();
    QCOMPARE(step->stepId(), 3);
    QCOMPARE(step->functionId(), QStringLiteral("fill"));
    QCOMPARE(step->getStepFunctionButtonsFlags(),
             StepFunctionButtonFlag::Back | StepFunctionButtonFlag::Print);
    QCOMPARE(step->preWorkflowTrigger(), TriggerType::LoadChange);
    QCOMPARE(step->preWorkflowScreen(), static_cast<IWorkflowScreen*>(&m_before));
    QCOMPARE(step->postWorkflowTrigger(), TriggerType::Timer);
    QCOMPARE(step->postWorkflowScreen(), static_cast<IWorkflowScreen*>(&m_after));
    QCOMPARE(step->getActionButton(), QStringLiteral("tare"));
    QCOMPARE(step->getSettings(), QVariant(250));
    QCOMPARE(step->getParameter(), QStringLiteral("water"));
    const auto empty = makeOther(-1, QString());
    QCOMPARE(empty->stepId(), -1);
    QCOMPARE(empty->functionId(), QString());
    QCOMPARE(int(empty->getStepFunctionButtonsFlags()), 0);
    QCOMPARE(empty->preWorkflowScreen(), nullptr);
    QCOMPARE(empty->postWorkflowScreen(), nullptr);
    QVERIFY(!empty->getSettings().isValid());
}

void TestWorkflowStep::parentOwnsTheStepButNotItsScreens()
{
    auto parent = std::make_unique<QObject>();
    auto* const screen =
        new WorkflowScreen(nullptr, 1, nullptr, nullptr, nullptr, QString(), 0, nullptr, nullptr, nullptr);
    const QPointer<QObject> guard = screen;
    const QPointer<QObject> step =
        new WorkflowStep(parent.get(), 1, QString(), {}, TriggerType::None, screen, TriggerType::None, screen,
                         QString(), QVariant(), QString(), check);
    parent.reset();
    QVERIFY(step.isNull());
    QVERIFY(!guard.isNull());
    delete screen;
}

void TestWorkflowStep::enableCheckIsAskedEveryTime()
{
    const auto step = make();
    QCOMPARE(s_checks, 0);
    QVERIFY(!step->isEnabled());
    s_answer = true;
    QVERIFY(step->isEnabled());
    s_answer = false;
    QVERIFY(!step->isEnabled());
    QCOMPARE(s_checks, 3);
}

void TestWorkflowStep::enableCheckIsNotAskedByOthers()
{
    const auto step = make();
    QVERIFY(step->isEqual(step.get()));
    QCOMPARE(step->getParameter(), QStringLiteral("water"));
    QCOMPARE(s_checks, 0);
}

void TestWorkflowStep::isEqual_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("function");
    QTest::addColumn<bool>("equal");
    QTest::newRow("same step and function") << 3 << QStringLiteral("fill") << true;
    QTest::newRow("another step") << 4 << QStringLiteral("fill") << false;
    QTest::newRow("another function") << 3 << QStringLiteral("weigh") << false;
    QTest::newRow("another case") << 3 << QStringLiteral("Fill") << false;
    QTest::newRow("no function") << 3 << QString() << false;
    QTest::newRow("both differ") << 4 << QStringLiteral("weigh") << false;
}

// All other members differ, and do not matter.
void TestWorkflowStep::isEqual()
{
    QFETCH(int, id);
    QFETCH(QString, function);
    const auto step = make();
    const auto other = makeOther(id, function);
    QTEST(step->isEqual(other.get()), "equal");
    QTEST(other->isEqual(step.get()), "equal");
    QVERIFY(step->isEqual(step.get()));
}

void TestWorkflowStep::isEqualToAnotherImplementation_data()
{
    isEqual_data();
}

void TestWorkflowStep::isEqualToAnotherImplementation()
{
    QFETCH(int, id);
    QFETCH(QString, function);
    OtherStep other(id, function);
    QTEST(make()->isEqual(&other), "equal");
    QCOMPARE(other.otherCalls, 0);
}

void TestWorkflowStep::isEqualAsksThroughTheInterface()
{
    const auto step = make<RenumberedStep>();
    OtherStep ninth(9, QStringLiteral("fill"));
    OtherStep third(3, QStringLiteral("fill"));
    QVERIFY(step->isEqual(&ninth));
    QVERIFY(!step->isEqual(&third));
}

void TestWorkflowStep::isUsableThroughItsInterface()
{
    const auto owner = make();
    QObject* const object = owner.get();
    IWorkflowStep* const step = qobject_cast<IWorkflowStep*>(object);
    QCOMPARE(step, static_cast<IWorkflowStep*>(owner.get()));
    QCOMPARE(step->stepId(), 3);
    QCOMPARE(step->functionId(), QStringLiteral("fill"));
    QVERIFY(step->isEqual(owner.get()));
    s_answer = true;
    QVERIFY(step->isEnabled());
}

void TestWorkflowStep::answersToTheNamesOfItsInterface_data()
{
    QTest::addColumn<bool>("isInterface");
    QTest::newRow("IWorkflowStep") << true;
    QTest::newRow("Brimvale.Workflow.IWorkflowStep/1.0") << true;
    QTest::newRow("Brimvale.Workflow.IWorkflowStep") << false;
    QTest::newRow("WorkflowStep") << false;
}

void TestWorkflowStep::answersToTheNamesOfItsInterface()
{
    QFETCH(bool, isInterface);
    const auto step = make();
    IWorkflowStep* const face = isInterface ? step.get() : nullptr;
    QCOMPARE(step->qt_metacast(QTest::currentDataTag()), static_cast<void*>(face));
}

void TestWorkflowStep::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = WorkflowStep::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::WorkflowStep");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestWorkflowStep::destructorWritesItsLine()
{
    auto step = make();
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::WorkflowStep", step.get());
    step.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestWorkflowStep::destructorWritesNothingAboveTrace()
{
    auto step = make();
    LogCapture log(QsLogging::DebugLevel);
    step.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestWorkflowStep)
#include "tst_workflowstep.moc"
