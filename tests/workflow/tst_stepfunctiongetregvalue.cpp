// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "StepFunctionGetRegValue.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <TestKit/SignalRecorder.h>
#include <limits>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::RecordingHost;
using TestKit::SignalRecorder;

namespace
{

// Calls its own operation as worker.
class SelfWorkingFunction : public StepFunctionGetRegValue
{
    Q_OBJECT

public:
    using StepFunctionGetRegValue::StepFunctionGetRegValue;
    Q_INVOKABLE QVariant work(QVariant, QVariant)
    {
        doFunction();
        return getValue();
    }
};

} // namespace

class TestStepFunctionGetRegValue : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_host = std::make_unique<RecordingHost>(); }
    void cleanup() { m_host.reset(); }

    void newFunctionHasReadNothing();
    void readsTheRegister_data();
    void readsTheRegister();
    void keepsTheLastValue();
    void startWithoutWorkerReadsNothing();
    void subclassMayBeItsOwnWorker();
    void parentOwnsTheFunction();
    void addsNothingToTheMetaObject();
    void destructorsWriteTheirLines();
    void destructorsWriteNothingAboveTrace();

private:
    std::unique_ptr<RecordingHost> m_host;
};

void TestStepFunctionGetRegValue::newFunctionHasReadNothing()
{
    m_host->setRegister(74, 364.0);
    StepFunctionGetRegValue function(nullptr, 74, m_host->systemRegister());
    QCOMPARE(function.getValue(), 0.0);
    QVERIFY(!function.enabled());
    QVERIFY(!function.isProcess());
    QCOMPARE(function.getRank(), 0);
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestStepFunctionGetRegValue::readsTheRegister_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("value");
    QTest::newRow("net") << 74 << 364.5;
    QTest::newRow("negative") << 72 << -1.25;
    QTest::newRow("infinite") << 90 << std::numeric_limits<double>::infinity();
    QTest::newRow("any number") << -7 << 1e300;
}

void TestStepFunctionGetRegValue::readsTheRegister()
{
    QFETCH(int, number);
    QFETCH(double, value);
    m_host->setRegister(number, value);
    StepFunctionGetRegValue function(nullptr, number, m_host->systemRegister());
    SignalRecorder recorder(&function);
    function.doFunction();
    QCOMPARE(function.getValue(), value);
    BRIMVALE_COMPARE_CALLS(*m_host, QStringLiteral("ISystemRegister::GetRegisterValue(%1)").arg(number));
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestStepFunctionGetRegValue::keepsTheLastValue()
{
    StepFunctionGetRegValue function(nullptr, 74, m_host->systemRegister());
    m_host->setRegister(74, 1.0);
    function.doFunction();
    m_host->setRegister(74, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(function.getValue(), 1.0);
    function.doFunction();
    QVERIFY(qIsNaN(function.getValue()));
    m_host->setRegister(74, 2.0);
    function.doFunction();
    QCOMPARE(function.getValue(), 2.0);
    QCOMPARE(m_host->callCount("ISystemRegister::GetRegisterValue"), 3);
}

void TestStepFunctionGetRegValue::startWithoutWorkerReadsNothing()
{
    StepFunctionGetRegValue function(nullptr, 74, m_host->systemRegister());
    SignalRecorder recorder(&function);
    function.startFunction(1, 2);
    function.reset();
    BRIMVALE_COMPARE_CALLS(*m_host);
    BRIMVALE_COMPARE_CALLS(recorder);
}

void TestStepFunctionGetRegValue::subclassMayBeItsOwnWorker()
{
    m_host->setRegister(74, 5.5);
    SelfWorkingFunction function(nullptr, 74, m_host->systemRegister());
    SignalRecorder recorder(&function);
    const QMetaObject* const type = function.metaObject();
    QVERIFY(function.setWorker(&function, type->method(type->indexOfMethod("work(QVariant,QVariant)"))));
    function.startFunction(1, 2);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(74)");
    BRIMVALE_COMPARE_CALLS(recorder, "workDone(QVariant(double, 5.5))");
}

void TestStepFunctionGetRegValue::parentOwnsTheFunction()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> function =
        new StepFunctionGetRegValue(parent.get(), 74, m_host->systemRegister());
    parent.reset();
    QVERIFY(function.isNull());
}

void TestStepFunctionGetRegValue::addsNothingToTheMetaObject()
{
    const QMetaObject& type = StepFunctionGetRegValue::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::StepFunctionGetRegValue");
    QCOMPARE(type.superClass(), &StepFunctionBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestStepFunctionGetRegValue::destructorsWriteTheirLines()
{
    auto function = std::make_unique<StepFunctionGetRegValue>(nullptr, 74, m_host->systemRegister());
    LogCapture log;
    const QStringList lines{ObjectTest::destructorLine("Brimvale::StepFunctionGetRegValue", function.get()),
                            ObjectTest::destructorLine("Brimvale::StepFunctionBase", function.get())};
    function.reset();
    QCOMPARE(log.lines(), lines);
}

void TestStepFunctionGetRegValue::destructorsWriteNothingAboveTrace()
{
    auto function = std::make_unique<StepFunctionGetRegValue>(nullptr, 74, m_host->systemRegister());
    LogCapture log(QsLogging::DebugLevel);
    function.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestStepFunctionGetRegValue)
#include "tst_stepfunctiongetregvalue.moc"
