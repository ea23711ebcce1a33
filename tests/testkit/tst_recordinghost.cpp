// SPDX-License-Identifier: BSD-3-Clause
//
// The script of a recording host (answers, hooks, what is recorded) and its driving of plug-ins.
#include "../plugin/TestPlugin.h"
#include "FormattedValue.h"
#include "IActionbar.h"
#include "IFormat.h"
#include "IInfobox.h"
#include "ILifecycleObserver.h"
#include "IMenuList.h"
#include "IPluginController.h"
#include "IPluginHost.h"
#include "IPluginManager.h"
#include "IProtocolPool.h"
#include "IRegisterValueProvider.h"
#include "ISequencer.h"
#include "ISystemRegister.h"
#include "ITransferTarget.h"
#include "IView.h"
#include "IWfM.h"
#include "MesswertData.h"
#include "Stubs.h"

#include <QObject>
#include <QPair>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <TestKit/SignalRecorder.h>
#include <functional>
#include <memory>
#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

/// What std::invalid_argument says, or an empty text when nothing is thrown.
QString refusal(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::invalid_argument& error) {
        return QString::fromUtf8(error.what());
    }
    return QString();
}

/// Another workflow manager than the host's.
class OtherWorkflowManager : public IWfM
{
public:
    void Reset() override { }
    void AddStepFunction(IStepFunction*) override { }
    void RemoveStepFunction(IStepFunction*) override { }
    bool StartWorkflow(const QList<IWorkflowStep*>&) override { return false; }
    void AbortWorkflow() override { }
};

/// Announces that it closes, and never reports that it has.
class NeverClosedPlugin : public TestPlugin
{
public:
    using TestPlugin::TestPlugin;

    bool ClosePlugin() override
    {
        m_system->GetLifecycleObserver()->NotifyPluginClosing();
        return true;
    }
};

} // namespace

namespace Brimvale
{

/// The item type of this test's host.
struct MenuItem
{
    int id = 0;
};

} // namespace Brimvale

class TestRecordingHost : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // the list of calls
    void recordsInOrder();
    void clearsAndTakes();
    void filtersCalls_data();
    void filtersCalls();
    void ignoresCalls();
    void countsIgnoredCalls();
    void refusesPatternWithoutMatch_data();
    void refusesPatternWithoutMatch();
    void recordsSignalsAmongCalls();

    // answers
    void answersOfEveryType();
    void lastingAnswerStays();
    void lastAnswerReplacesTheOneBefore();
    void queuedAnswersComeFirst();
    void answerForOneCallPrecedesThatForTheOperation();
    void answerWithoutLabelHoldsForAllObjects();
    void answerWithNull();
    void answerWithAnotherObject();
    void answerOfConvertValueFillsTheRecord();
    void refusesAnswer_data();
    void refusesAnswer();
    void refusesAnswerOfAnotherType();
    void namesSimilarOperations();
    void refusedAnswerChangesNothing();
    void hookRunsBetweenCallAndAnswer();
    void hookForOneCall();
    void refusesHookForUnknownOperation();
    void reportsUnusedAnswers();

    // the scale and its environment
    void setsRegisters();
    void setsRegistersAsMeasuredValues();
    void signalsNewMeasurement();
    void signalsLoadChange();
    void signalsLevelling();
    void signalsCalibrationWarning();
    void setsActiveTargets();
    void menuStoreIsTheTests();

    // driving a plug-in
    void initHandsOverTheHost();
    void passesOnWhatThePluginAnswers();
    void drivesTheWholeLifeCycle();
    void closeOfAPluginThatIsNotStartedDoesNotWait();
    void waitForClosedGivesUp();
    void knowsTheActivePlugin();
    void knowsThePlugins();
    void pressesPrint();
    void pressesActions();
    void knowsWhatWasHandedOver();
    void forgetsDestroyedObjects();
    void knowsTheScreen();
    void viewManagerMayOutliveTheHost();

private:
    std::unique_ptr<RecordingHost> m_host;
    ISystem* m_system = nullptr;
};

void TestRecordingHost::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_system = m_host->system();
}

void TestRecordingHost::cleanup()
{
    m_host.reset();
}

void TestRecordingHost::recordsInOrder()
{
    IActionbar* const actionbar = m_system->GetActionbar();
    actionbar->SetEntry(0, 1);
    m_host->note("in between");
    actionbar->SetEntry(1, 0);
    QCOMPARE(
        m_host->calls(),
        QStringList({QStringLiteral("ISystem::GetActionbar()"), QStringLiteral("IActionbar::SetEntry(0, 1)"),
                     QStringLiteral("in between"), QStringLiteral("IActionbar::SetEntry(1, 0)")}));
}

void TestRecordingHost::clearsAndTakes()
{
    m_host->note("a");
    m_host->clearCalls();
    QCOMPARE(m_host->calls(), QStringList());

    m_host->note("b");
    QCOMPARE(m_host->takeCalls(), QStringList{QStringLiteral("b")});
    QCOMPARE(m_host->calls(), QStringList());
}

void TestRecordingHost::filtersCalls_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("expected");
    const QString getActionbar = QStringLiteral("ISystem::GetActionbar()");
    const QString setEnabled = QStringLiteral("IActionbar::SetEnabled(1)");
    const QString getTarget = QStringLiteral("ISystem::GetTransferTarget2()");
    const QString isActive = QStringLiteral("ITransferTarget#2::IsActive()");

    QTest::newRow("interface") << QStringLiteral("ISystem") << QStringList({getActionbar, getTarget});
    QTest::newRow("operation") << QStringLiteral("IActionbar::SetEnabled") << QStringList(setEnabled);
    QTest::newRow("wildcard in the operation")
        << QStringLiteral("ISystem::*Target?") << QStringList(getTarget);
    QTest::newRow("wildcard in the interface") << QStringLiteral("I*::Is*") << QStringList(isActive);
    QTest::newRow("all objects of an interface")
        << QStringLiteral("ITransferTarget") << QStringList(isActive);
    QTest::newRow("one object") << QStringLiteral("ITransferTarget#2") << QStringList(isActive);
    QTest::newRow("another object") << QStringLiteral("ITransferTarget#1") << QStringList();
    QTest::newRow("interface that was not called") << QStringLiteral("IPrinter") << QStringList();
    // The name of one interface is not the beginning of another one's.
    QTest::newRow("not by prefix") << QStringLiteral("ISystemRegister") << QStringList();
}

void TestRecordingHost::filtersCalls()
{
    QFETCH(QString, pattern);
    m_system->GetActionbar()->SetEnabled(1);
    m_host->note("ISystem::GetActionbar()");
    m_system->GetTransferTarget2()->IsActive();
    QTEST(m_host->callsTo(pattern), "expected");
}

void TestRecordingHost::ignoresCalls()
{
    m_host->ignore("ISystem::Get*");
    m_host->ignore("IActionbar::Refresh");
    m_system->GetActionbar()->SetEnabled(1);
    m_system->GetActionbar()->Refresh();
    m_system->SetHostPrintTransferEnabled(true);
    m_host->note("ISystem::GetActionbar()");
    BRIMVALE_COMPARE_CALLS(*m_host, "IActionbar::SetEnabled(1)", "ISystem::SetHostPrintTransferEnabled(true)",
                           "ISystem::GetActionbar()");

    m_host->recordAll();
    m_system->GetActionbar();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetActionbar()");
}

void TestRecordingHost::countsIgnoredCalls()
{
    m_host->ignore("ISystem");
    m_host->answer("ISystem::GetDecimals", 2);
    QCOMPARE(m_system->GetDecimals(), 2);
    QCOMPARE(m_system->GetDecimals(), 2);
    m_system->GetCurrentUnit();
    m_host->clearCalls();
    QCOMPARE(m_host->callCount("ISystem::GetDecimals"), 2);
    QCOMPARE(m_host->callCount("ISystem"), 3);
    QCOMPARE(m_host->callCount("ISystem::IsHostPrintTransferEnabled"), 0);
}

void TestRecordingHost::refusesPatternWithoutMatch_data()
{
    QTest::addColumn<QString>("pattern");

    QTest::newRow("misspelt operation") << QStringLiteral("ISystem::GetDecimal");
    QTest::newRow("misspelt interface") << QStringLiteral("ISytem");
    QTest::newRow("wildcard that matches nothing") << QStringLiteral("ISystem::Fetch*");
    QTest::newRow("object that does not exist") << QStringLiteral("ITransferTarget#6");
    QTest::newRow("empty") << QString();
}

void TestRecordingHost::refusesPatternWithoutMatch()
{
    QFETCH(QString, pattern);
    QVERIFY(
        refusal([&] { m_host->callsTo(pattern); }).startsWith(QLatin1String("The recording host has no")));
    QVERIFY(refusal([&] { m_host->ignore(pattern); }).startsWith(QLatin1String("The recording host has no")));
    QVERIFY(
        refusal([&] { m_host->callCount(pattern); }).startsWith(QLatin1String("The recording host has no")));
}

void TestRecordingHost::recordsSignalsAmongCalls()
{
    m_host->recordSignal(m_host->weighing(), &RecordingWeighing::NotifyLoadChanged);
    m_host->recordSignal(m_host->system(), "NotifyNewLevellingValue(bool)");
    m_host->recordSignal(m_host->sensorState(), SIGNAL(notifyLevellingNotAdjustedChanged()));
    emit m_host->weighing()->NotifyLoadChanged(3, 1.5);
    m_system->GetDecimals();
    m_host->sensorState()->setObjectName(QStringLiteral("named too late"));
    m_host->setLevelled(false);
    BRIMVALE_COMPARE_CALLS(*m_host, "signal RecordingWeighing::NotifyLoadChanged(3, 1.5)",
                           "ISystem::GetDecimals()",
                           "signal RecordingSensorState::notifyLevellingNotAdjustedChanged()",
                           "signal RecordingSystem::NotifyNewLevellingValue(false)");
    QVERIFY_EXCEPTION_THROWN(m_host->recordSignal(m_host->system(), "NotifyNewLevellingValue()"),
                             std::invalid_argument);
}

void TestRecordingHost::answersOfEveryType()
{
    m_host->answer("IWeighing::Tare", true);
    QCOMPARE(m_system->GetWeighing()->Tare(), true);
    m_host->answer("ISystem::GetDecimals", 2);
    QCOMPARE(m_system->GetDecimals(), 2);
    m_host->answer("ISystem::GetDecimals", ISystemRegister::TareRegister);
    QCOMPARE(m_system->GetDecimals(), 73);
    m_host->answer("ISystemRegister::GetRegisterValue", 1.5);
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(74), 1.5);
    m_host->answer("ISystemRegister::GetRegisterValue", 2);
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(74), 2.0);

    m_host->answer("ISystem::GetProtocolFormatName", "sics");
    QCOMPARE(m_system->GetProtocolFormatName(), QStringLiteral("sics"));
    m_host->answer("ISystem::GetProtocolFormatName", QStringLiteral("größer"));
    QCOMPARE(m_system->GetProtocolFormatName(), QStringLiteral("größer"));
    m_host->answer("ISystem::GetProtocolFormatName", QLatin1String("latin"));
    QCOMPARE(m_system->GetProtocolFormatName(), QStringLiteral("latin"));

    m_host->answer("IWeighing::Tare", QVariant(false));
    QCOMPARE(m_system->GetWeighing()->Tare(), false);
    m_host->answer("ISystem::GetDecimals", QVariant(3));
    QCOMPARE(m_system->GetDecimals(), 3);

    MesswertData reading;
    reading.unit = QStringLiteral("g");
    m_host->answer("IRegisterValueProvider::GetMesswert", reading);
    QCOMPARE(m_system->GetRegisterValueProvider()->GetMesswert(0, 74).unit, QStringLiteral("g"));

    m_host->answer("IMenuList::GetItemValue", QVariant(5));
    QCOMPARE(m_host->menuList()->GetItemValue(1), QVariant(5));
    m_host->answer("IMenuList::GetItemValue", "text");
    QCOMPARE(m_host->menuList()->GetItemValue(1), QVariant(QStringLiteral("text")));
    m_host->answer("IMenuList::defineSelectionList", qMakePair(QStringLiteral("a;b"), QStringLiteral("1;2")));
    QCOMPARE(m_host->menuList()->defineSelectionList(1),
             qMakePair(QStringLiteral("a;b"), QStringLiteral("1;2")));
}

void TestRecordingHost::lastingAnswerStays()
{
    m_host->answer("ISystem::GetDecimals", 2);
    QCOMPARE(m_system->GetDecimals(), 2);
    QCOMPARE(m_system->GetDecimals(), 2);
}

void TestRecordingHost::lastAnswerReplacesTheOneBefore()
{
    m_host->answer("ISystem::GetDecimals", 2);
    m_host->answer("ISystem::GetDecimals", 3);
    QCOMPARE(m_system->GetDecimals(), 3);
}

void TestRecordingHost::queuedAnswersComeFirst()
{
    m_host->answer("ISystem::GetDecimals", 9);
    m_host->answerOnce("ISystem::GetDecimals", 1);
    m_host->answerOnce("ISystem::GetDecimals", 2);
    QCOMPARE(m_system->GetDecimals(), 1);
    QCOMPARE(m_system->GetDecimals(), 2);
    QCOMPARE(m_system->GetDecimals(), 9);

    m_host->answerOnce("ISystem::GetCurrentUnit", 1);
    QCOMPARE(m_system->GetCurrentUnit(), 1);
    QCOMPARE(m_system->GetCurrentUnit(), 0);
}

void TestRecordingHost::answerForOneCallPrecedesThatForTheOperation()
{
    ISystemRegister* const registers = m_host->systemRegister();
    m_host->answer("ISystemRegister::GetRegisterValue(74)", 74.0);
    m_host->answer("ISystemRegister::GetRegisterValue", 1.0);
    m_host->answerOnce("ISystemRegister::GetRegisterValue(74)", 74.5);
    m_host->answerOnce("ISystemRegister::GetRegisterValue", 1.5);
    QCOMPARE(registers->GetRegisterValue(74), 74.5);
    QCOMPARE(registers->GetRegisterValue(74), 74.0);
    QCOMPARE(registers->GetRegisterValue(90), 1.5);
    QCOMPARE(registers->GetRegisterValue(90), 1.0);

    // Commas, quotes and brackets in texts do not count as separators.
    m_host->answer("IFormat::FormatText(1, \"a, \\\"(b\")", "found");
    QCOMPARE(m_host->formatter()->FormatText(1, QStringLiteral("a, \"(b")), QStringLiteral("found"));
}

void TestRecordingHost::answerWithoutLabelHoldsForAllObjects()
{
    m_host->answer("ITransferTarget::IsActive", true);
    m_host->answer("ITransferTarget#2::IsActive", false);
    QCOMPARE(m_system->GetTransferTarget1()->IsActive(), true);
    QCOMPARE(m_system->GetTransferTarget2()->IsActive(), false);
    QCOMPARE(m_system->GetTransferTarget5()->IsActive(), true);

    m_host->answer("IMenuList::GetItemText(3)", "both");
    QCOMPARE(m_host->menuList()->GetItemText(3), QStringLiteral("both"));
    QCOMPARE(m_host->protocolMenu()->GetItemText(3), QStringLiteral("both"));
}

void TestRecordingHost::answerWithNull()
{
    m_host->answerOnce("ISystem::GetWorkflowManager", nullptr);
    QVERIFY(m_system->GetWorkflowManager() == nullptr);
    QCOMPARE(m_system->GetWorkflowManager(), m_host->workflowManager());
}

void TestRecordingHost::answerWithAnotherObject()
{
    OtherWorkflowManager other;
    m_host->answer<IWfM*>("ISystem::GetWorkflowManager", &other);
    QCOMPARE(m_system->GetWorkflowManager(), &other);
}

void TestRecordingHost::answerOfConvertValueFillsTheRecord()
{
    FormattedValue converted;
    converted.text = QStringLiteral("1.0 g");
    converted.isStable = true;
    m_host->answer("IFormat::ConvertValue", converted);
    FormattedValue out;
    m_host->formatter()->ConvertValue(MesswertData(), out);
    QCOMPARE(argumentText(out), argumentText(converted));
}

void TestRecordingHost::refusesAnswer_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown operation")
        << QStringLiteral("ISystem::GetDezimals") << QVariant(1)
        << QStringLiteral("The recording host has no operation ISystem::GetDezimals. Similar ones: "
                          "ISystem::GetDecimals, ");
    QTest::newRow("operation without interface")
        << QStringLiteral("GetDecimals") << QVariant(1)
        << QStringLiteral(
               "The recording host has no operation GetDecimals. Similar ones: ISystem::GetDecimals, ");
    QTest::newRow("object that does not exist")
        << QStringLiteral("ITransferTarget#6::IsActive") << QVariant(true)
        << QStringLiteral("The recording host has no operation ITransferTarget#6::IsActive. Similar ones: "
                          "ITransferTarget");
    QTest::newRow("int for bool") << QStringLiteral("IWeighing::Tare") << QVariant(1)
                                  << QStringLiteral(
                                         "IWeighing::Tare returns bool, the answer given is of type "
                                         "QVariant with int.");
    QTest::newRow("nothing to answer") << QStringLiteral("IActionbar::Refresh") << QVariant(1)
                                       << QStringLiteral("IActionbar::Refresh returns nothing, it cannot be "
                                                         "answered.");
    QTest::newRow("too few arguments")
        << QStringLiteral("IRegisterValueProvider::GetMesswert(74)") << QVariant(1)
        << QStringLiteral("IRegisterValueProvider::GetMesswert has 1 arguments in the text "
                          "IRegisterValueProvider::GetMesswert(74), but takes 2.");
    QTest::newRow("arguments of an operation without any")
        << QStringLiteral("ISystem::GetDecimals(1)") << QVariant(1)
        << QStringLiteral(
               "ISystem::GetDecimals has 1 arguments in the text ISystem::GetDecimals(1), but takes 0.");
    QTest::newRow("unclosed call") << QStringLiteral("ISystemRegister::GetRegisterValue(74") << QVariant(1)
                                   << QStringLiteral(
                                          "ISystemRegister::GetRegisterValue(74 is not the text of a "
                                          "call.");
    QTest::newRow("text behind the call")
        << QStringLiteral("ISystemRegister::GetRegisterValue(74);") << QVariant(1)
        << QStringLiteral("ISystemRegister::GetRegisterValue(74); is not the text of a call.");
}

void TestRecordingHost::refusesAnswer()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, message);
    const QString said = refusal([&] { m_host->answer(key, value); });
    QVERIFY2(said.startsWith(message), qPrintable(said));
    QCOMPARE(refusal([&] { m_host->answerOnce(key, value); }), said);
}

void TestRecordingHost::refusesAnswerOfAnotherType()
{
    OtherWorkflowManager other;
    QCOMPARE(
        refusal([&] { m_host->answer("ISystem::GetWorkflowManager", &other); }),
        QStringLiteral("ISystem::GetWorkflowManager returns Brimvale::IWfM*, the answer given is of type "
                       "(anonymous namespace)::OtherWorkflowManager*. An object of a derived class is given "
                       "as answer<Brimvale::IWfM*>(…)."));
    QCOMPARE(refusal([&] { m_host->answer("ISystem::GetDecimals", 1.0); }),
             QStringLiteral("ISystem::GetDecimals returns int, the answer given is of type double."));
    QCOMPARE(
        refusal([&] { m_host->answer("ISystem::GetDecimals", nullptr); }),
        QStringLiteral("ISystem::GetDecimals returns int, the answer given is of type decltype(nullptr)."));
}

void TestRecordingHost::namesSimilarOperations()
{
    const QString said = refusal([&] { m_host->answer("IWeighing::Tarre", true); });
    QVERIFY2(said.contains(QLatin1String("Similar ones: IWeighing::Tare, ")), qPrintable(said));
    QCOMPARE(said.count(QLatin1String("::")), 6);
}

void TestRecordingHost::refusedAnswerChangesNothing()
{
    m_host->answer("ISystem::GetDecimals", 2);
    QVERIFY_EXCEPTION_THROWN(m_host->answer("ISystem::GetDecimals", "text"), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(m_host->answerOnce("ISystem::GetDecimals", "text"), std::invalid_argument);
    QCOMPARE(m_system->GetDecimals(), 2);
}

void TestRecordingHost::hookRunsBetweenCallAndAnswer()
{
    m_host->onCall("ISystem::GetDecimals", [this] {
        m_host->note("hook");
        m_host->answer("ISystem::GetDecimals", 5);
    });
    QCOMPARE(m_system->GetDecimals(), 5);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetDecimals()", "hook");

    m_host->onCall("ISystem::GetDecimals", nullptr);
    m_system->GetDecimals();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetDecimals()");
}

void TestRecordingHost::hookForOneCall()
{
    m_host->ignore("ISystemRegister");
    m_host->onCall("ISystemRegister::GetRegisterValue(74)", [this] { m_host->note("74"); });
    m_host->systemRegister()->GetRegisterValue(90);
    m_host->systemRegister()->GetRegisterValue(74);
    BRIMVALE_COMPARE_CALLS(*m_host, "74");
}

void TestRecordingHost::refusesHookForUnknownOperation()
{
    QVERIFY_EXCEPTION_THROWN(m_host->onCall("ISystem::GetDecimal", [] {}), std::invalid_argument);
}

void TestRecordingHost::reportsUnusedAnswers()
{
    m_host->answer("ISystem::GetDecimals", 2);
    m_host->answerOnce("IWeighing::Zero", true);
    m_host->answerOnce("IWeighing::Tare", true);
    m_host->answerOnce("IWeighing::Tare", true);
    m_host->answer("ISystemRegister::GetRegisterValue(74)", 1.0);
    m_host->onCall("ISystem::GetCurrentUnit", [] {});
    m_system->GetDecimals();
    m_host->weighing()->Zero();
    m_host->weighing()->Tare();
    m_host->systemRegister()->GetRegisterValue(90);
    QCOMPARE(m_host->unusedAnswers(), QStringList({QStringLiteral("ISystemRegister::GetRegisterValue(74)"),
                                                   QStringLiteral("IWeighing::Tare")}));
    m_host->weighing()->Tare();
    m_host->systemRegister()->GetRegisterValue(74);
    QCOMPARE(m_host->unusedAnswers(), QStringList());
}

void TestRecordingHost::setsRegisters()
{
    m_host->setRegister(74, 500.0);
    m_host->setRegister(90, 2200.0);
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(74), 500.0);
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(90), 2200.0);
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(73), 0.0);
}

void TestRecordingHost::setsRegistersAsMeasuredValues()
{
    MesswertData tare;
    tare.messwert = QStringLiteral("1.5");
    m_host->setRegister(73, tare);
    IRegisterValueProvider* const provider = m_system->GetRegisterValueProvider();
    QVERIFY(provider->GetMesswert(0, 73).isEqual(&tare));
    QVERIFY(provider->GetMesswert(5, 73).isEqual(&tare));
    QVERIFY(!provider->GetMesswert(0, 72).isEqual(&tare));

    MesswertData inPounds;
    m_host->answer("IRegisterValueProvider::GetMesswert(5, 73)", inPounds);
    QVERIFY(provider->GetMesswert(5, 73).isEqual(&inPounds));
}

void TestRecordingHost::signalsNewMeasurement()
{
    SignalRecorder signals_(m_host->weighing());
    m_host->emitNewMeasurement(364.0);
    BRIMVALE_COMPARE_CALLS(signals_, "NotifyNewMeasurementValue()");
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(74), 364.0);
}

void TestRecordingHost::signalsLoadChange()
{
    SignalRecorder signals_(m_host->weighing());
    m_host->emitLoadChanged(3, 364.0);
    BRIMVALE_COMPARE_CALLS(signals_, "NotifyLoadChanged(3, 364)");
    QCOMPARE(m_host->systemRegister()->GetRegisterValue(74), 364.0);
}

void TestRecordingHost::signalsLevelling()
{
    SignalRecorder signals_(m_host->sensorState());
    signals_.recordAll(m_host->system());
    m_host->setLevelled(false);
    BRIMVALE_COMPARE_CALLS(signals_, "notifyLevellingNotAdjustedChanged()", "NotifyNewLevellingValue(false)");
    QCOMPARE(m_host->sensorState()->IsLevellingNotAdjusted(), true);

    m_host->setLevelled(true);
    BRIMVALE_COMPARE_CALLS(signals_, "notifyLevellingNotAdjustedChanged()", "NotifyNewLevellingValue(true)");
    QCOMPARE(m_host->sensorState()->IsLevellingNotAdjusted(), false);
}

void TestRecordingHost::signalsCalibrationWarning()
{
    SignalRecorder signals_(m_host->calibrationService());
    m_host->setCalibrationWarning("due");
    BRIMVALE_COMPARE_CALLS(signals_, "notifyCalibrationWarningChanged()");
    QCOMPARE(m_host->calibrationService()->GetCalibrationWarningText(), QStringLiteral("due"));
}

void TestRecordingHost::setsActiveTargets()
{
    m_host->setActiveTargets({2, 5});
    QCOMPARE(m_system->GetTransferTarget1()->IsActive(), false);
    QCOMPARE(m_system->GetTransferTarget2()->IsActive(), true);
    QCOMPARE(m_system->GetTransferTarget3()->IsActive(), false);
    QCOMPARE(m_system->GetTransferTarget4()->IsActive(), false);
    QCOMPARE(m_system->GetTransferTarget5()->IsActive(), true);
    m_host->setActiveTargets({});
    QCOMPARE(m_system->GetTransferTarget2()->IsActive(), false);
}

void TestRecordingHost::menuStoreIsTheTests()
{
    m_host->answer("IUniversalMenuList::GetMenuItemList", true);
    QList<MenuItem> items;
    QCOMPARE(m_system->GetMenuItemList(QStringLiteral("a.xml"), &items), true);
    QVERIFY(items.isEmpty());
    m_host->clearCalls();

    m_host->system()->menuItemList = [](const QString& path, QList<MenuItem>* list) {
        list->append({path.size()});
        return true;
    };
    m_host->system()->menuItemById = [](const QString&, int id, MenuItem* item) {
        item->id = id;
        return id > 0;
    };
    QCOMPARE(m_system->GetMenuItemList(QStringLiteral("a.xml"), &items), true);
    QCOMPARE(items.value(0).id, 5);
    MenuItem item;
    QCOMPARE(m_system->GetMenuItemById(QStringLiteral("a.xml"), 7, &item), true);
    QCOMPARE(item.id, 7);
    BRIMVALE_COMPARE_CALLS(*m_host, "IUniversalMenuList::GetMenuItemList(\"a.xml\", out)",
                           "IUniversalMenuList::GetMenuItemById(\"a.xml\", 7, out)");
}

void TestRecordingHost::initHandsOverTheHost()
{
    TestPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    QCOMPARE(plugin.m_system, m_system);
    QCOMPARE(plugin.m_view, m_host->view());
    QCOMPARE(plugin.m_menuList, m_host->menuList());
    QCOMPARE(plugin.m_weighingParameters, m_host->weighingParameters());
    QCOMPARE(plugin.m_infobox, m_host->infobox());
}

void TestRecordingHost::passesOnWhatThePluginAnswers()
{
    TestPlugin plugin(*m_host);
    plugin.refusing = {QStringLiteral("PreStartPlugin")};
    QVERIFY(m_host->init(plugin));
    QVERIFY(!m_host->start(plugin));

    TestPlugin other(*m_host);
    other.refusing = {QStringLiteral("PreInitPlugin")};
    QVERIFY(!m_host->init(other));
}

void TestRecordingHost::drivesTheWholeLifeCycle()
{
    TestPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    QVERIFY(m_host->start(plugin));
    m_host->ignore("ISystem::Get*");
    m_host->clearCalls();
    QVERIFY(m_host->close(plugin));
    const QStringList calls = m_host->takeCalls();
    QCOMPARE(calls.first(), QStringLiteral("ILifecycleObserver::NotifyPluginClosing()"));
    QCOMPARE(calls.mid(calls.size() - 3),
             QStringList({QStringLiteral("ISequencer::PluginClosed()"), QStringLiteral("PostClosePlugin"),
                          QStringLiteral("IPluginController::SetControlMode(false)")}));
}

void TestRecordingHost::closeOfAPluginThatIsNotStartedDoesNotWait()
{
    TestPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    m_host->clearCalls();
    QVERIFY(m_host->close(plugin));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestRecordingHost::waitForClosedGivesUp()
{
    NeverClosedPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    QVERIFY(!m_host->close(plugin, 0));
    QVERIFY(!m_host->waitForClosed(0));
    m_system->GetPluginHost()->GetSequencer()->PluginClosed();
    QVERIFY(m_host->waitForClosed(0));
}

void TestRecordingHost::knowsTheActivePlugin()
{
    IPluginController* const controller = m_system->GetPluginController();
    TestPlugin first(*m_host);
    TestPlugin second(*m_host);
    QVERIFY(m_host->init(first));
    QVERIFY(m_host->init(second));
    QCOMPARE(controller->GetActivePlugin(), static_cast<IPlugin*>(&second));
    QVERIFY(m_host->start(first));
    QCOMPARE(controller->GetActivePlugin(), static_cast<IPlugin*>(&first));
    m_host->setActivePlugin(nullptr);
    QVERIFY(controller->GetActivePlugin() == nullptr);
    QVERIFY(m_host->close(first));
}

void TestRecordingHost::knowsThePlugins()
{
    TestPlugin first(*m_host);
    {
        TestPlugin second(*m_host);
        QVERIFY(m_host->init(first));
        QVERIFY(m_host->init(second));
        QCOMPARE(m_host->pluginManager()->GetPlugins(), QList<IPlugin*>({&first, &second}));
    }
    QCOMPARE(m_host->pluginManager()->GetPlugins(), QList<IPlugin*>({&first}));
}

void TestRecordingHost::pressesPrint()
{
    TestPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    QVERIFY(!plugin.m_printRequested);
    QVERIFY(m_host->pressPrint(plugin));
    QVERIFY(plugin.m_printRequested);
}

void TestRecordingHost::pressesActions()
{
    StubAction action;
    QVERIFY(!m_host->pressAction("uid"));
    m_system->GetActionbar()->AddAction(&action);
    QVERIFY(m_host->pressAction("uid"));
    QVERIFY(!m_host->pressAction("other"));
    action.isEnabled = false;
    QVERIFY(!m_host->pressAction("uid"));
    QCOMPARE(action.pressed, 1);
}

void TestRecordingHost::knowsWhatWasHandedOver()
{
    StubAction action;
    StubItem item;
    StubTrigger trigger;
    StubStepFunction function;
    QObject info;
    m_system->GetActionbar()->AddAction(&action);
    m_system->GetProtocolPool()->AddItem(&item);
    m_system->GetProtocolPool()->AddTrigger(&trigger);
    m_system->GetWorkflowManager()->AddStepFunction(&function);
    m_host->infobox()->SetItems({&info});
    QCOMPARE(m_host->actions(), QList<IAction*>({&action}));
    QCOMPARE(m_host->printItems(), QList<IPrintableItem*>({&item}));
    QCOMPARE(m_host->triggers(), QList<ITrigger*>({&trigger}));
    QCOMPARE(m_host->stepFunctions(), QList<IStepFunction*>({&function}));
    QCOMPARE(m_host->infoItems(), QList<QObject*>({&info}));

    m_system->GetActionbar()->RemoveAction(&action);
    m_system->GetProtocolPool()->RemoveItem(&item);
    m_system->GetProtocolPool()->RemoveTrigger(&trigger);
    m_system->GetWorkflowManager()->RemoveStepFunction(&function);
    m_host->infobox()->SetItems({});
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->printItems().isEmpty());
    QVERIFY(m_host->triggers().isEmpty());
    QVERIFY(m_host->stepFunctions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
}

void TestRecordingHost::forgetsDestroyedObjects()
{
    {
        StubAction action;
        QObject info;
        QObject model;
        m_system->GetActionbar()->AddAction(&action);
        m_host->infobox()->SetItems({&info});
        m_host->view()->SetContextObject(QStringLiteral("model"), &model);
        QCOMPARE(m_host->contextObject("model"), &model);
    }
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
    QVERIFY(m_host->contextObject("model") == nullptr);
}

void TestRecordingHost::knowsTheScreen()
{
    QCOMPARE(m_host->loadedScreen(), QString());
    QVERIFY(m_host->contextObject("test") == nullptr);
    TestPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    QVERIFY(m_host->start(plugin));
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/Test.qml"));
    QCOMPARE(m_host->contextObject("test"), plugin.m_viewModel);
    QVERIFY(m_host->close(plugin));
}

void TestRecordingHost::viewManagerMayOutliveTheHost()
{
    const std::unique_ptr<RecordingViewManager> manager(m_host->createViewManager());
    m_host.reset();
    manager->Setup(0);
}

QTEST_GUILESS_MAIN(TestRecordingHost)
#include "tst_recordinghost.moc"
