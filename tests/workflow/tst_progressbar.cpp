// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "Progressbar.h"
#include "ProgressbarItem.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <limits>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

class TestProgressbar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void constructorStores_data();
    void constructorStores();
    void constructorUsesTheListAsItIs();
    void parentOwnsTheBarButNotTheList();
    void listIsThatOfTheCreator();
    void visibilitySignalsChangesOnly();
    void modelSignalsChangesOnly_data();
    void modelSignalsChangesOnly();
    void modelIsStoredInTheListOfTheCreator();
    void stepsMakeItems();
    void sameStepsDoNothing();
    void stepsReplaceTheItems();
    void itemsDroppedLiveAsLongAsTheBar();
    void signalsOfStepsComeInBetween();
    void stepsThatAreNotPositiveEmptyTheList_data();
    void stepsThatAreNotPositiveEmptyTheList();
    void resetEmptiesTheList();
    void resetOfAnEmptyBarDoesNothing();
    void resetKeepsAListThatWasGivenWithoutSteps();
    void stepDone_data();
    void stepDone();
    void stepDoneIsRepeated();
    void stepDoneSignalsTheItemFirst();
    void stepMayBeTakenBack();
    void barMayBeDestroyedByItsSignals_data();
    void barMayBeDestroyedByItsSignals();
    void screenReadsEveryProperty();
    void typeOfTheListIsRegistered();
    void declaresPropertiesAndSignals();
    void destructorsWriteTheirLines();
    void destructorsWriteNothingAboveTrace();

private:
    // The items of the list: x is done, - is not.
    QString marks() const
    {
        QString text;
        for (QObject* object : m_list) {
            auto* const item = qobject_cast<ProgressbarItem*>(object);
            text.append(item == nullptr ? QLatin1Char('?') : QLatin1Char(item->isDone() ? 'x' : '-'));
        }
        return text;
    }

    QList<QObject*> m_list;
    std::unique_ptr<Progressbar> m_bar;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestProgressbar::init()
{
    m_list.clear();
    m_bar = std::make_unique<Progressbar>(nullptr, m_list, 0, false);
    m_signals = std::make_unique<SignalRecorder>(m_bar.get());
}

void TestProgressbar::cleanup()
{
    m_bar.reset();
}

void TestProgressbar::constructorStores_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<bool>("isVisible");
    QTest::newRow("hidden, none") << 0 << false;
    QTest::newRow("visible, three") << 3 << true;
    QTest::newRow("negative") << -1 << true;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << false;
}

void TestProgressbar::constructorStores()
{
    QFETCH(int, steps);
    QFETCH(bool, isVisible);
    const Progressbar bar(nullptr, m_list, steps, isVisible);
    QCOMPARE(bar.steps(), steps);
    QCOMPARE(bar.isVisible(), isVisible);
    QCOMPARE(bar.model(), QList<QObject*>());
    QCOMPARE(bar.children(), QObjectList());
}

void TestProgressbar::constructorUsesTheListAsItIs()
{
    ProgressbarItem item(nullptr, true);
    m_list = {&item};
    const Progressbar bar(nullptr, m_list, 3, true);
    QCOMPARE(bar.model(), QList<QObject*>{&item});
    QCOMPARE(bar.steps(), 3);
    QCOMPARE(item.parent(), nullptr);
}

void TestProgressbar::parentOwnsTheBarButNotTheList()
{
    auto parent = std::make_unique<QObject>();
    ProgressbarItem item(nullptr, true);
    QList<QObject*> list{&item};
    const QPointer<QObject> bar = new Progressbar(parent.get(), list, 1, true);
    parent.reset();
    QVERIFY(bar.isNull());
    QCOMPARE(list, QList<QObject*>{&item});
    QVERIFY(item.isDone());
}

void TestProgressbar::listIsThatOfTheCreator()
{
    QObject object;
    m_list.append(&object);
    QCOMPARE(m_bar->model(), QList<QObject*>{&object});
    QList<QObject*> copy = m_bar->model();
    copy.clear();
    QCOMPARE(m_list.size(), 1);
}

void TestProgressbar::visibilitySignalsChangesOnly()
{
    m_bar->setIsVisible(false);
    BRIMVALE_COMPARE_CALLS(*m_signals);
    bool seen = false;
    connect(m_bar.get(), &Progressbar::isVisibleChanged, this, [&] { seen = m_bar->isVisible(); });
    m_bar->setIsVisible(true);
    QVERIFY(m_bar->isVisible());
    QVERIFY(seen);
    BRIMVALE_COMPARE_CALLS(*m_signals, "isVisibleChanged()");
    m_bar->setIsVisible(true);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestProgressbar::modelSignalsChangesOnly_data()
{
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<QVector<int>>("after");
    QTest::addColumn<bool>("changed");
    QTest::newRow("same pointers") << QVector<int>{0, 1} << QVector<int>{0, 1} << false;
    QTest::newRow("both empty") << QVector<int>() << QVector<int>() << false;
    QTest::newRow("another order") << QVector<int>{0, 1} << QVector<int>{1, 0} << true;
    QTest::newRow("other objects") << QVector<int>{0} << QVector<int>{1} << true;
    QTest::newRow("longer") << QVector<int>{0} << QVector<int>{0, 1} << true;
    QTest::newRow("shorter") << QVector<int>{0, 1} << QVector<int>{0} << true;
    QTest::newRow("emptied") << QVector<int>{0} << QVector<int>() << true;
}

void TestProgressbar::modelSignalsChangesOnly()
{
    QFETCH(QVector<int>, before);
    QFETCH(QVector<int>, after);
    QFETCH(bool, changed);
    QObject objects[2];
    QList<QObject*> list;
    for (const int index : after)
        list.append(&objects[index]);
    for (const int index : before)
        m_list.append(&objects[index]);
    QList<QObject*> seen = list;
    connect(m_bar.get(), &Progressbar::modelChanged, this, [&] { seen = m_bar->model(); });
    m_bar->setModel(list);
    QCOMPARE(m_bar->model(), list);
    QCOMPARE(seen, list);
    QCOMPARE(m_bar->steps(), 0); // steps are those that were set
    BRIMVALE_COMPARE_CALLS(*m_signals,
                           changed ? QStringList(QStringLiteral("modelChanged()")) : QStringList());
}

void TestProgressbar::modelIsStoredInTheListOfTheCreator()
{
    QObject object;
    m_bar->setModel({&object});
    QCOMPARE(m_list, QList<QObject*>{&object});
    QCOMPARE(object.parent(), nullptr);
}

void TestProgressbar::stepsMakeItems()
{
    m_bar->setSteps(3);
    QCOMPARE(m_bar->steps(), 3);
    QCOMPARE(marks(), QStringLiteral("---"));
    QCOMPARE(m_bar->model(), m_list);
    for (QObject* item : qAsConst(m_list))
        QCOMPARE(item->parent(), m_bar.get());
    BRIMVALE_COMPARE_CALLS(*m_signals, "stepsChanged()", "modelChanged()");
}

void TestProgressbar::sameStepsDoNothing()
{
    m_bar->setSteps(3);
    m_bar->setStepDone(1, true);
    m_signals->clearCalls();
    const QList<QObject*> before = m_list;
    m_bar->setSteps(3);
    QCOMPARE(m_list, before);
    QCOMPARE(marks(), QStringLiteral("-x-"));
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestProgressbar::stepsReplaceTheItems()
{
    m_bar->setSteps(3);
    m_bar->setStepDone(0, true);
    m_signals->clearCalls();
    const QList<QObject*> before = m_list;
    m_bar->setSteps(4);
    QCOMPARE(marks(), QStringLiteral("----"));
    for (QObject* item : before)
        QVERIFY(!m_list.contains(item));
    BRIMVALE_COMPARE_CALLS(*m_signals, "stepsChanged()", "modelChanged()");
}

void TestProgressbar::itemsDroppedLiveAsLongAsTheBar()
{
    m_bar->setSteps(1);
    const QPointer<QObject> dropped = m_list.first();
    m_bar->Reset();
    QVERIFY(!dropped.isNull());
    QCOMPARE(dropped->parent(), m_bar.get());
    m_bar.reset();
    QVERIFY(dropped.isNull());
}

// The number is announced with the old marks still there, the list once it is complete.
void TestProgressbar::signalsOfStepsComeInBetween()
{
    m_bar->setSteps(2);
    m_bar->setStepDone(0, true);
    QStringList seen;
    connect(m_bar.get(), &Progressbar::stepsChanged, this,
            [&] { seen.append(QStringLiteral("steps %1 %2").arg(m_bar->steps()).arg(marks())); });
    connect(m_bar.get(), &Progressbar::modelChanged, this,
            [&] { seen.append(QStringLiteral("model %1 %2").arg(m_bar->steps()).arg(marks())); });
    m_bar->setSteps(3);
    QCOMPARE(seen, (QStringList{QStringLiteral("steps 3 x-"), QStringLiteral("model 3 ---")}));
}

void TestProgressbar::stepsThatAreNotPositiveEmptyTheList_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
    QTest::newRow("least") << std::numeric_limits<int>::min();
}

void TestProgressbar::stepsThatAreNotPositiveEmptyTheList()
{
    QFETCH(int, steps);
    m_bar->setSteps(2);
    m_signals->clearCalls();
    m_bar->setSteps(steps);
    QCOMPARE(m_bar->steps(), steps);
    QCOMPARE(m_list, QList<QObject*>());
    BRIMVALE_COMPARE_CALLS(*m_signals, "stepsChanged()", "modelChanged()");
}

void TestProgressbar::resetEmptiesTheList()
{
    m_bar->setSteps(2);
    m_signals->clearCalls();
    m_bar->Reset();
    QCOMPARE(m_bar->steps(), 0);
    QCOMPARE(m_list, QList<QObject*>());
    BRIMVALE_COMPARE_CALLS(*m_signals, "stepsChanged()", "modelChanged()");
}

void TestProgressbar::resetOfAnEmptyBarDoesNothing()
{
    m_bar->Reset();
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestProgressbar::resetKeepsAListThatWasGivenWithoutSteps()
{
    QObject object;
    m_list.append(&object);
    m_bar->Reset();
    QCOMPARE(m_list, QList<QObject*>{&object});
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestProgressbar::stepDone_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("done");
    QTest::addColumn<QString>("marks");
    QTest::addColumn<bool>("announced");
    QTest::newRow("first") << 0 << true << QStringLiteral("x--") << true;
    QTest::newRow("last") << 2 << true << QStringLiteral("--x") << true;
    QTest::newRow("not done, as before") << 1 << false << QStringLiteral("---") << true;
    QTest::newRow("behind the last") << 3 << true << QStringLiteral("---") << false;
    QTest::newRow("negative") << -1 << true << QStringLiteral("---") << false;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << true << QStringLiteral("---") << false;
    QTest::newRow("least") << std::numeric_limits<int>::min() << true << QStringLiteral("---") << false;
}

void TestProgressbar::stepDone()
{
    QFETCH(int, index);
    QFETCH(bool, done);
    QFETCH(bool, announced);
    m_bar->setSteps(3);
    m_signals->clearCalls();
    m_bar->setStepDone(index, done);
    QTEST(marks(), "marks");
    BRIMVALE_COMPARE_CALLS(*m_signals,
                           announced ? QStringList(QStringLiteral("modelChanged()")) : QStringList());
}

void TestProgressbar::stepDoneIsRepeated()
{
    m_bar->setSteps(3);
    m_bar->setStepDone(0, true);
    m_signals->clearCalls();
    m_signals->recordAll(m_list.first());
    m_bar->setStepDone(0, true);
    BRIMVALE_COMPARE_CALLS(*m_signals, "modelChanged()");
}

void TestProgressbar::stepDoneSignalsTheItemFirst()
{
    m_bar->setSteps(3);
    m_signals->clearCalls();
    for (QObject* item : qAsConst(m_list))
        m_signals->recordAll(item);
    m_bar->setStepDone(1, true);
    BRIMVALE_COMPARE_CALLS(*m_signals, "isDoneChanged()", "modelChanged()");
}

void TestProgressbar::stepMayBeTakenBack()
{
    m_bar->setSteps(2);
    m_bar->setStepDone(1, true);
    m_bar->setStepDone(1, false);
    QCOMPARE(marks(), QStringLiteral("--"));
}

void TestProgressbar::barMayBeDestroyedByItsSignals_data()
{
    QTest::addColumn<bool>("byItem");
    QTest::newRow("signal of a mark") << true;
    QTest::newRow("signal of the number of steps") << false;
}

void TestProgressbar::barMayBeDestroyedByItsSignals()
{
    QFETCH(bool, byItem);
    m_bar->setSteps(2);
    int modelSignals = 0;
    connect(m_bar.get(), &Progressbar::modelChanged, this, [&modelSignals] { ++modelSignals; });
    QObject context;
    const auto destroy = [this] { m_bar.reset(); };
    if (byItem) {
        // The mark outlives the bar, which sends the signal of the model after the one of the mark.
        auto* const item = static_cast<ProgressbarItem*>(m_list.first());
        item->setParent(&context);
        connect(item, &ProgressbarItem::isDoneChanged, &context, destroy);
        Progressbar* const bar = m_bar.get();
        bar->setStepDone(0, true);
    } else {
        connect(m_bar.get(), &Progressbar::stepsChanged, &context, destroy);
        Progressbar* const bar = m_bar.get();
        bar->setSteps(3);
        // The list is the creator's: nothing is put into it for a bar that is no more.
        QCOMPARE(m_list.size(), 2);
    }
    QVERIFY(!m_bar);
    QCOMPARE(modelSignals, 0);
}

void TestProgressbar::screenReadsEveryProperty()
{
    m_bar->setSteps(2);
    m_bar->setIsVisible(true);
    m_signals->clearCalls();
    QCOMPARE(m_bar->property("steps"), QVariant(2));
    QCOMPARE(m_bar->property("isVisible"), QVariant(true));
    QCOMPARE(m_bar->property("model").value<QList<QObject*>>(), m_list);
    QVERIFY(!m_bar->setProperty("steps", 5));
    QVERIFY(!m_bar->setProperty("isVisible", false));
    QVERIFY(!m_bar->setProperty("model", QVariant::fromValue(QList<QObject*>())));
    QCOMPARE(m_bar->steps(), 2);
    QVERIFY(m_bar->isVisible());
    QCOMPARE(m_list.size(), 2);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestProgressbar::typeOfTheListIsRegistered()
{
    QVERIFY(QMetaType::type("QList<QObject*>") != QMetaType::UnknownType);
    QCOMPARE(QMetaType::type("QList<QObject*>"), qMetaTypeId<QList<QObject*>>());
}

void TestProgressbar::declaresPropertiesAndSignals()
{
    const QMetaObject& type = Progressbar::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::Progressbar");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::propertiesOf(type),
             (QStringList{QStringLiteral("QList<QObject*> model read modelChanged()"),
                          QStringLiteral("bool isVisible read isVisibleChanged()"),
                          QStringLiteral("int steps read stepsChanged()")}));
    QCOMPARE(ObjectTest::methodsOf(type), (QStringList{QStringLiteral("signal modelChanged()"),
                                                       QStringLiteral("signal isVisibleChanged()"),
                                                       QStringLiteral("signal stepsChanged()")}));
}

void TestProgressbar::destructorsWriteTheirLines()
{
    m_bar->setSteps(2);
    LogCapture log;
    QStringList lines{ObjectTest::destructorLine("Brimvale::Progressbar", m_bar.get())};
    for (QObject* item : qAsConst(m_list))
        lines.append(ObjectTest::destructorLine("Brimvale::ProgressbarItem", item));
    m_bar.reset();
    QCOMPARE(log.lines(), lines);
}

void TestProgressbar::destructorsWriteNothingAboveTrace()
{
    m_bar->setSteps(2);
    LogCapture log(QsLogging::DebugLevel);
    m_bar.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestProgressbar)
#include "tst_progressbar.moc"
