// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "TriggerBase.h"

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

namespace
{

class Trigger : public TriggerBase
{
public:
    using TriggerBase::TriggerBase;
    QString getName() const override { return QStringLiteral("own name"); }
};

// Sends its own notification instead of the signal.
class QuietTrigger : public Trigger
{
public:
    using Trigger::Trigger;
    void notifyTriggered(QString uid) override { notified.append(uid); }

    QStringList notified;
};

READ_PRIVATE_MEMBER(NameMember, TriggerBase, QString, m_name);
READ_PRIVATE_MEMBER(AreaMember, TriggerBase, QFlags<ProtocolArea>, m_protocolArea);

} // namespace

class TestTriggerBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_trigger.reset(); }

    void newTriggerIsEmpty();
    void settersStore();
    void parentOwnsTheTrigger();
    void defaultsAreTrueAndDoNothing();
    void available_data();
    void available();
    void triggerNotifiesOnce_data();
    void triggerNotifiesOnce();
    void triggerNotifiesThroughTheVirtualOperation();
    void receiverMayDestroyTheTrigger();
    void receiverMayRenameTheTrigger();
    void hostConnectsThroughTheInterface();
    void answersToTheNamesOfItsInterface_data();
    void answersToTheNamesOfItsInterface();
    void declaresOneSignal();
    void destructorWritesNothing();

private:
    std::unique_ptr<Trigger> m_trigger;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestTriggerBase::init()
{
    m_trigger = std::make_unique<Trigger>(nullptr);
    m_signals = std::make_unique<SignalRecorder>(m_trigger.get());
}

void TestTriggerBase::newTriggerIsEmpty()
{
    QCOMPARE(m_trigger->getUId(), QString());
    QCOMPARE(m_trigger.get()->*memberOf(NameMember()), QString());
    QCOMPARE(int(m_trigger.get()->*memberOf(AreaMember())), 0);
}

void TestTriggerBase::settersStore()
{
    m_trigger->setName(QStringLiteral("name"));
    m_trigger->setUid(QStringLiteral("uid"));
    m_trigger->setProtocolArea(ProtocolArea::Header | ProtocolArea::Sics);
    m_trigger->setApplicationType(ApplicationType::Addon);
    QCOMPARE(m_trigger.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(m_trigger->getName(), QStringLiteral("own name"));
    QCOMPARE(m_trigger->getUId(), QStringLiteral("uid"));
    QCOMPARE(m_trigger.get()->*memberOf(AreaMember()), ProtocolArea::Header | ProtocolArea::Sics);
    QVERIFY(m_trigger->isAvailableIn(ProtocolArea::Sics, ApplicationType::Addon));
    QVERIFY(!m_trigger->isAvailableIn(ProtocolArea::Sics, ApplicationType::Control));
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestTriggerBase::parentOwnsTheTrigger()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<Trigger> trigger = new Trigger(parent.get());
    parent.reset();
    QVERIFY(trigger.isNull());
}

void TestTriggerBase::defaultsAreTrueAndDoNothing()
{
    ITrigger* const trigger = m_trigger.get();
    QVERIFY(trigger->Check());
    QVERIFY(trigger->setTrigger(QVariant()));
    QVERIFY(trigger->setTrigger(5));
    QVERIFY(trigger->setTrigger(QVariant(), 1, QStringLiteral("x")));
    QVERIFY(trigger->isRunning());
    QVERIFY(trigger->isValueAvailable());
    trigger->setRunning(false);
    QVERIFY(trigger->isRunning());
    trigger->setRunning(true);
    QVERIFY(trigger->isRunning());
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestTriggerBase::available_data()
{
    QTest::addColumn<int>("ownArea");
    QTest::addColumn<int>("ownType");
    QTest::addColumn<int>("areas");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("available");

    QTest::newRow("any type, asked for 0") << 1 << -1 << 1 << 0 << true;
    QTest::newRow("any type, asked for 2") << 1 << -1 << 1 << 2 << true;
    QTest::newRow("any type, asked for any") << 1 << -1 << 1 << -1 << true;
    QTest::newRow("any type, unknown type") << 1 << -1 << 1 << 77 << true;
    QTest::newRow("type 2, asked for 2") << 1 << 2 << 1 << 2 << true;
    QTest::newRow("type 2, asked for 1") << 1 << 2 << 1 << 1 << false;
    QTest::newRow("type 2, asked for any") << 1 << 2 << 1 << -1 << false;
    QTest::newRow("type 0, asked for 0") << 1 << 0 << 1 << 0 << true;
    QTest::newRow("type 0, asked for 1") << 1 << 0 << 1 << 1 << false;
    QTest::newRow("no area in no area, type t") << 0 << 3 << 0 << 3 << true;
    QTest::newRow("no area in no area, any type") << 0 << -1 << 0 << 3 << true;
    QTest::newRow("no area, another type") << 0 << 3 << 0 << 2 << false;
    QTest::newRow("area in no area") << 0 << -1 << 1 << 0 << false;
    QTest::newRow("another area") << 1 << -1 << 2 << 0 << false;
    QTest::newRow("two areas in one") << 1 << -1 << 3 << 0 << false;
    QTest::newRow("one area in two") << 3 << -1 << 2 << 0 << true;
    QTest::newRow("both areas in two") << 3 << 2 << 3 << 2 << true;
    QTest::newRow("the highest bit") << 1 << -1 << std::numeric_limits<int>::min() << 0 << false;
}

void TestTriggerBase::available()
{
    QFETCH(int, ownArea);
    QFETCH(int, ownType);
    QFETCH(int, areas);
    QFETCH(int, type);
    m_trigger->setProtocolArea(QFlags<ProtocolArea>(QFlag(ownArea)));
    m_trigger->setApplicationType(ApplicationType(ownType));
    QTEST(m_trigger->isAvailableIn(QFlags<ProtocolArea>(QFlag(areas)), ApplicationType(type)), "available");
}

void TestTriggerBase::triggerNotifiesOnce_data()
{
    QTest::addColumn<QString>("uid");
    QTest::newRow("uid") << QStringLiteral("load");
    QTest::newRow("empty uid") << QString();
}

void TestTriggerBase::triggerNotifiesOnce()
{
    QFETCH(QString, uid);
    m_trigger->setUid(uid);
    m_trigger->doTrigger();
    BRIMVALE_COMPARE_CALLS(*m_signals, QStringLiteral("notifyTriggered(\"%1\")").arg(uid));
    m_trigger->doTrigger();
    m_trigger->doTrigger();
    QCOMPARE(m_signals->calls().size(), 2);
}

void TestTriggerBase::triggerNotifiesThroughTheVirtualOperation()
{
    QuietTrigger trigger(nullptr);
    SignalRecorder recorder(&trigger);
    trigger.setUid(QStringLiteral("load"));
    trigger.doTrigger();
    QCOMPARE(trigger.notified, QStringList(QStringLiteral("load")));
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestTriggerBase::receiverMayDestroyTheTrigger()
{
    m_trigger->setUid(QStringLiteral("load"));
    connect(m_trigger.get(), &TriggerBase::notifyTriggered, this, [this] { m_trigger.reset(); });
    m_trigger->doTrigger();
    QVERIFY(!m_trigger);
    BRIMVALE_COMPARE_CALLS(*m_signals, "notifyTriggered(\"load\")");
}

void TestTriggerBase::receiverMayRenameTheTrigger()
{
    m_trigger->setUid(QStringLiteral("first"));
    QStringList received;
    connect(m_trigger.get(), &TriggerBase::notifyTriggered, this,
            [this] { m_trigger->setUid(QStringLiteral("second")); });
    connect(m_trigger.get(), &TriggerBase::notifyTriggered, this,
            [&received](const QString& uid) { received.append(uid); });
    m_trigger->doTrigger();
    QCOMPARE(received, QStringList(QStringLiteral("first")));
}

void TestTriggerBase::hostConnectsThroughTheInterface()
{
    m_trigger->setUid(QStringLiteral("load"));
    QObject* const object = m_trigger.get();
    ITrigger* const trigger = qobject_cast<ITrigger*>(object);
    QCOMPARE(trigger, static_cast<ITrigger*>(m_trigger.get()));
    trigger->doTrigger();
    trigger->notifyTriggered(QStringLiteral("direct"));
    BRIMVALE_COMPARE_CALLS(*m_signals, "notifyTriggered(\"load\")", "notifyTriggered(\"direct\")");
}

void TestTriggerBase::answersToTheNamesOfItsInterface_data()
{
    QTest::addColumn<bool>("isInterface");
    QTest::newRow("ITrigger") << true;
    QTest::newRow("Brimvale.Protocol.ITrigger/1.0") << true;
    QTest::newRow("Brimvale.Protocol.ITrigger") << false;
    QTest::newRow("TriggerBase") << false;
}

void TestTriggerBase::answersToTheNamesOfItsInterface()
{
    QFETCH(bool, isInterface);
    ITrigger* const face = isInterface ? m_trigger.get() : nullptr;
    QCOMPARE(m_trigger->qt_metacast(QTest::currentDataTag()), static_cast<void*>(face));
}

void TestTriggerBase::declaresOneSignal()
{
    const QMetaObject& type = TriggerBase::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::TriggerBase");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList(QStringLiteral("signal notifyTriggered(QString)")));
    QCOMPARE(type.method(type.methodOffset()).parameterNames(), QList<QByteArray>{"uid"});
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestTriggerBase::destructorWritesNothing()
{
    LogCapture log;
    m_trigger.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestTriggerBase)
#include "tst_triggerbase.moc"
