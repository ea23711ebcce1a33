// SPDX-License-Identifier: BSD-3-Clause

#include "ActionBaseToggle.h"
#include "LogRecorder.h"

#include <QtTest>

#include <memory>

using Brimvale::ActionBase;
using Brimvale::ActionBaseToggle;
using Brimvale::IAction;
using Brimvale::IActionToggle;

class TestActionBaseToggle : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_action.reset(); }

    void newActionHasTheStateZero();
    void parentOwnsTheAction();
    void setterEmitsOnceOnChange_data();
    void setterEmitsOnceOnChange();
    void setterEmitsNothingForTheSameValue_data() { setterEmitsOnceOnChange_data(); }
    void setterEmitsNothingForTheSameValue();
    void stateZeroOfANewActionEmitsNothing();
    void stateIsNotChecked();
    void hasTheSettersOfAnAction();
    void isFoundByTheNameOfItsInterface();
    void isUsableThroughBothInterfaces();
    void workerMayStepThroughTheStates();
    void destructorsWriteTheirLines();
    void destructorsWriteNothingAboveTrace();

public:
    Q_INVOKABLE QVariant step(QVariant data);

private:
    std::unique_ptr<ActionBaseToggle> m_action;
    int m_updates = 0;
};

void TestActionBaseToggle::init()
{
    m_action = std::make_unique<ActionBaseToggle>(nullptr);
    m_updates = 0;
    connect(m_action.get(), &ActionBase::actionUpdated, this, [this] { ++m_updates; });
}

void TestActionBaseToggle::newActionHasTheStateZero()
{
    QCOMPARE(m_action->toggleIndex(), 0);
    QCOMPARE(m_action->maxToggleIndex(), 0);
}

void TestActionBaseToggle::parentOwnsTheAction()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<ActionBaseToggle> action = new ActionBaseToggle(parent.get());
    parent.reset();
    QVERIFY(action.isNull());
}

using SetNumber = void (ActionBaseToggle::*)(int);
Q_DECLARE_METATYPE(SetNumber)

void TestActionBaseToggle::setterEmitsOnceOnChange_data()
{
    QTest::addColumn<SetNumber>("set");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("highest");

    QTest::newRow("state") << &ActionBaseToggle::setToggleIndex << 2 << 0;
    QTest::newRow("highest state") << &ActionBaseToggle::setMaxToggleIndex << 0 << 2;
}

void TestActionBaseToggle::setterEmitsOnceOnChange()
{
    QFETCH(SetNumber, set);
    int seen = -1;
    connect(m_action.get(), &ActionBase::actionUpdated, this,
            [this, &seen] { seen = m_action->toggleIndex() + m_action->maxToggleIndex(); });
    (m_action.get()->*set)(2);
    QCOMPARE(m_updates, 1);
    QCOMPARE(seen, 2); // the value is there when the change is announced
    QTEST(m_action->toggleIndex(), "state");
    QTEST(m_action->maxToggleIndex(), "highest");
}

void TestActionBaseToggle::setterEmitsNothingForTheSameValue()
{
    QFETCH(SetNumber, set);
    (m_action.get()->*set)(2);
    (m_action.get()->*set)(2);
    QCOMPARE(m_updates, 1);
}

void TestActionBaseToggle::stateZeroOfANewActionEmitsNothing()
{
    m_action->setToggleIndex(0);
    m_action->setMaxToggleIndex(0);
    QCOMPARE(m_updates, 0);
}

void TestActionBaseToggle::stateIsNotChecked()
{
    m_action->setMaxToggleIndex(1);
    m_action->setToggleIndex(5);
    QCOMPARE(m_action->toggleIndex(), 5);
    m_action->setToggleIndex(-1);
    QCOMPARE(m_action->toggleIndex(), -1);
    QCOMPARE(m_updates, 3);
}

void TestActionBaseToggle::hasTheSettersOfAnAction()
{
    m_action->setName(QStringLiteral("Unit"));
    m_action->setUid(QStringLiteral("weighing.unit"));
    m_action->setRank(3);
    m_action->setEnable(true);
    QCOMPARE(m_updates, 4);
    QCOMPARE(m_action->name(), QStringLiteral("Unit"));
    QCOMPARE(m_action->uid(), QStringLiteral("weighing.unit"));
    QCOMPARE(m_action->getRank(), 3);
    QCOMPARE(m_action->enabled(), true);
}

void TestActionBaseToggle::isFoundByTheNameOfItsInterface()
{
    QObject* const object = m_action.get();
    QCOMPARE(object->qt_metacast("IActionToggle"),
             static_cast<void*>(static_cast<IActionToggle*>(m_action.get())));
    QCOMPARE(dynamic_cast<IActionToggle*>(object), static_cast<IActionToggle*>(m_action.get()));
    QCOMPARE(qobject_cast<IAction*>(object), static_cast<IAction*>(m_action.get()));
    ActionBase plain(nullptr);
    QCOMPARE(plain.qt_metacast("IActionToggle"), static_cast<void*>(nullptr));
}

void TestActionBaseToggle::isUsableThroughBothInterfaces()
{
    m_action->setName(QStringLiteral("Unit"));
    m_action->setToggleIndex(1);
    m_action->setMaxToggleIndex(2);
    const IAction* const action = m_action.get();
    const IActionToggle* const toggle = m_action.get();
    QCOMPARE(action->name(), QStringLiteral("Unit"));
    QCOMPARE(toggle->toggleIndex(), 1);
    QCOMPARE(toggle->maxToggleIndex(), 2);
}

QVariant TestActionBaseToggle::step(QVariant data)
{
    Q_UNUSED(data)
    m_action->setToggleIndex((m_action->toggleIndex() + 1) % (m_action->maxToggleIndex() + 1));
    return m_action->toggleIndex();
}

void TestActionBaseToggle::workerMayStepThroughTheStates()
{
    QVariantList results;
    connect(m_action.get(), &ActionBase::workDone, this,
            [&results](const QVariant& result) { results.append(result); });
    m_action->setMaxToggleIndex(2);
    m_action->setWorker(this, metaObject()->method(metaObject()->indexOfMethod("step(QVariant)")));
    for (int i = 0; i < 4; ++i)
        m_action->doAction();
    QCOMPARE(results, (QVariantList{1, 2, 0, 1}));
}

void TestActionBaseToggle::destructorsWriteTheirLines()
{
    const LogRecorder log(QsLogging::TraceLevel);
    const QString address =
        QStringLiteral("0x%1").arg(quintptr(static_cast<QObject*>(m_action.get())), 0, 16);
    m_action.reset();
    const QString line = QStringLiteral("TRACE Running destructor ->  Brimvale::%1(%2) ");
    QCOMPARE(log.lines(), (QStringList{line.arg(QStringLiteral("ActionBaseToggle"), address),
                                       line.arg(QStringLiteral("ActionBase"), address)}));
}

void TestActionBaseToggle::destructorsWriteNothingAboveTrace()
{
    const LogRecorder log(QsLogging::DebugLevel);
    m_action.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestActionBaseToggle)
#include "tst_actionbasetoggle.moc"
