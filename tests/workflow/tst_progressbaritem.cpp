// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "ProgressbarItem.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

class TestProgressbarItem : public QObject
{
    Q_OBJECT

private slots:
    void constructorStores();
    void parentOwnsTheItem();
    void setterSignalsChangesOnly();
    void receiverSeesTheNewState();
    void screenReadsButCannotWrite();
    void declaresOneProperty();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();
};

void TestProgressbarItem::constructorStores()
{
    QVERIFY(ProgressbarItem(nullptr, true).isDone());
    QVERIFY(!ProgressbarItem(nullptr, false).isDone());
}

void TestProgressbarItem::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = new ProgressbarItem(parent.get(), true);
    parent.reset();
    QVERIFY(item.isNull());
}

void TestProgressbarItem::setterSignalsChangesOnly()
{
    ProgressbarItem item(nullptr, false);
    SignalRecorder recorder(&item);
    item.setIsDone(false);
    BRIMVALE_COMPARE_CALLS(recorder);
    item.setIsDone(true);
    QVERIFY(item.isDone());
    BRIMVALE_COMPARE_CALLS(recorder, "isDoneChanged()");
    item.setIsDone(true);
    BRIMVALE_COMPARE_CALLS(recorder);
    item.setIsDone(false);
    QVERIFY(!item.isDone());
    BRIMVALE_COMPARE_CALLS(recorder, "isDoneChanged()");
}

void TestProgressbarItem::receiverSeesTheNewState()
{
    ProgressbarItem item(nullptr, false);
    bool seen = false;
    connect(&item, &ProgressbarItem::isDoneChanged, this, [&] { seen = item.isDone(); });
    item.setIsDone(true);
    QVERIFY(seen);
}

void TestProgressbarItem::screenReadsButCannotWrite()
{
    ProgressbarItem item(nullptr, true);
    QCOMPARE(item.property("isDone"), QVariant(true));
    QVERIFY(!item.setProperty("isDone", false));
    QVERIFY(item.isDone());
}

void TestProgressbarItem::declaresOneProperty()
{
    const QMetaObject& type = ProgressbarItem::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::ProgressbarItem");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList(QStringLiteral("bool isDone read isDoneChanged()")));
    QCOMPARE(ObjectTest::methodsOf(type), QStringList(QStringLiteral("signal isDoneChanged()")));
}

void TestProgressbarItem::destructorWritesItsLine()
{
    auto item = std::make_unique<ProgressbarItem>(nullptr, true);
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::ProgressbarItem", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestProgressbarItem::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    std::make_unique<ProgressbarItem>(nullptr, true).reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestProgressbarItem)
#include "tst_progressbaritem.moc"
