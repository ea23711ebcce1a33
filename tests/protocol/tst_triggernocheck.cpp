// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "TriggerNoCheck.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

namespace
{

READ_PRIVATE_MEMBER(NameMember, TriggerBase, QString, m_name);

} // namespace

class TestTriggerNoCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_trigger.reset(); }

    void constructorStores();
    void anyApplicationType();
    void nameIsReadAtTheCall();
    void parentOwnsTheTriggerButNotTheName();
    void firesWithoutCondition();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    QString m_name;
    std::unique_ptr<TriggerNoCheck> m_trigger;
};

void TestTriggerNoCheck::init()
{
    m_name = QStringLiteral("name");
    m_trigger =
        std::make_unique<TriggerNoCheck>(nullptr, QStringLiteral("uid"), &m_name,
                                         ProtocolArea::Body | ProtocolArea::Footer, ApplicationType::Control);
}

void TestTriggerNoCheck::constructorStores()
{
    QCOMPARE(m_trigger->getUId(), QStringLiteral("uid"));
    QCOMPARE(m_trigger->getName(), QStringLiteral("name"));
    QCOMPARE(m_trigger.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QVERIFY(m_trigger->isAvailableIn(ProtocolArea::Body | ProtocolArea::Footer, ApplicationType::Control));
    QVERIFY(!m_trigger->isAvailableIn(ProtocolArea::Header, ApplicationType::Control));
    QVERIFY(!m_trigger->isAvailableIn(ProtocolArea::Body, ApplicationType::Weighing));
}

void TestTriggerNoCheck::anyApplicationType()
{
    const TriggerNoCheck trigger(nullptr, QString(), &m_name, {}, ApplicationType::Any);
    for (const int type : {-1, 0, 1, 2, 3, 1000})
        QVERIFY(trigger.isAvailableIn({}, ApplicationType(type)));
}

void TestTriggerNoCheck::nameIsReadAtTheCall()
{
    m_name = QStringLiteral("Name 2");
    QCOMPARE(static_cast<ITrigger*>(m_trigger.get())->getName(), QStringLiteral("Name 2"));
    QCOMPARE(m_trigger.get()->*memberOf(NameMember()), QStringLiteral("name"));
}

void TestTriggerNoCheck::parentOwnsTheTriggerButNotTheName()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> trigger =
        new TriggerNoCheck(parent.get(), QString(), &m_name, {}, ApplicationType::Any);
    parent.reset();
    QVERIFY(trigger.isNull());
    QCOMPARE(m_name, QStringLiteral("name"));
}

void TestTriggerNoCheck::firesWithoutCondition()
{
    SignalRecorder recorder(m_trigger.get());
    m_trigger->setRunning(false);
    QVERIFY(m_trigger->Check());
    QVERIFY(m_trigger->isRunning());
    QVERIFY(m_trigger->isValueAvailable());
    m_trigger->doTrigger();
    BRIMVALE_COMPARE_CALLS(recorder, "notifyTriggered(\"uid\")");
}

void TestTriggerNoCheck::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = TriggerNoCheck::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::TriggerNoCheck");
    QCOMPARE(type.superClass(), &TriggerBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestTriggerNoCheck::destructorWritesItsLine()
{
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::TriggerNoCheck", m_trigger.get());
    m_trigger.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestTriggerNoCheck::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    m_trigger.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestTriggerNoCheck)
#include "tst_triggernocheck.moc"
