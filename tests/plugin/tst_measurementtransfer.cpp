// SPDX-License-Identifier: BSD-3-Clause
//
// The state of the print button, the print request and the transfer of measured values.
#include "MesswertData.h"
#include "TestPlugin.h"

#include <QObject>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::TestKit;

namespace
{

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

MesswertData reading(const char* text)
{
    MesswertData data;
    data.messwert = s(text);
    return data;
}

/// The registers are read in the unit now shown, 73 before 72, and handed over as 72 and 73.
QStringList transfer()
{
    return {s("ISystem::GetRegisterValueProvider()"),
            s("ISystem::GetCurrentUnit()"),
            s("IRegisterValueProvider::GetMesswert(3, 73)"),
            s("ISystem::GetRegisterValueProvider()"),
            s("ISystem::GetCurrentUnit()"),
            s("IRegisterValueProvider::GetMesswert(3, 72)"),
            s("ISystem::GetMeasurementTransfer()"),
            s("IMeasurementTransfer::TransferMeasurement(MesswertData(messwert=\"current\"), "
              "MesswertData(messwert=\"gross\"), MesswertData(messwert=\"tare\"))")};
}

QStringList query(const char* flags)
{
    QStringList calls;
    for (const char* flag = flags; *flag; ++flag)
        calls << s("ISystem::GetMSWParameterSource()")
              << s("IMSWParameterSource::QueryFlag%1()").arg(QLatin1Char(*flag));
    return calls;
}

QStringList reportPrintPressed()
{
    return {s("ISystem::GetPluginHost()"),          s("IPluginHost::GetSequencer()"),
            s("ISequencer::SetPrintPending(true)"), s("ISystem::GetPluginHost()"),
            s("IPluginHost::GetSequencer()"),       s("ISequencer::NotifyHostEvent(\"printPressed\")"),
            s("ISystem::GetPrintIndicator()"),      s("IPrintIndicator::SetPrintPressed(true)")};
}

QStringList notifyTransferred()
{
    return {s("ISystem::GetPluginHost()"),
            s("IPluginHost::GetSequencer()"),
            s("ISequencer::NotifyMeasurementTransferred()"),
            s("ISystem::GetMeasurementObserver()"),
            s("IMeasurementObserver::OnMeasurementTransferred(MesswertData(messwert=\"current\"), "
              "MesswertData(messwert=\"previous\"))"),
            s("ISystem::GetMeasurementObserver()"),
            s("ISystem::GetSystemRegister()"),
            s("ISystemRegister::GetRegisterValue(72)"),
            s("ISystem::GetSystemRegister()"),
            s("ISystemRegister::GetRegisterValue(73)"),
            s("IMeasurementObserver::OnSystemRegistersRead(720.5, 730.5)")};
}

} // namespace

class TestMeasurementTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void disablingThePrintTransfer_data();
    void disablingThePrintTransfer();
    void enablingThePrintTransfer_data();
    void enablingThePrintTransfer();

    void transferWithoutRequest_data();
    void transferWithoutRequest();
    void transferWithRequest_data();
    void transferWithRequest();
    void requestIsConsumedOnce();
    void requestIsConsumedBeforeItIsReported();
    void requestMadeDuringTheReportIsKept();
    void twoRequestsCountOnce();
    void transferGivesEveryMember();
    void unitAndProviderAreAskedAnew();
    void answerOfTheTransferIsNotUsed();
    void pressedPrintButton();

private:
    void transferOnce() { m_plugin->MeasurementDatatransfer(reading("current"), reading("previous")); }
    void answerQueries(int flags);

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<TestPlugin> m_plugin;
};

void TestMeasurementTransfer::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_plugin = std::make_unique<TestPlugin>(*m_host);
    QVERIFY(m_host->init(*m_plugin));
    m_host->answer("ISystem::GetCurrentUnit", 3);
    m_host->setRegister(72, reading("gross"));
    m_host->setRegister(73, reading("tare"));
    m_host->setRegister(72, 720.5);
    m_host->setRegister(73, 730.5);
    m_host->recordSignal(m_plugin.get(), &PluginBase::notifyPrintButtonEnableChange);
    m_host->clearCalls();
}

void TestMeasurementTransfer::cleanup()
{
    m_plugin.reset();
    m_host.reset();
}

/// Answers the queries A, B, C and D from the bits 0 to 3.
void TestMeasurementTransfer::answerQueries(int flags)
{
    m_host->answer("IMSWParameterSource::QueryFlagA", (flags & 1) != 0);
    m_host->answer("IMSWParameterSource::QueryFlagB", (flags & 2) != 0);
    m_host->answer("IMSWParameterSource::QueryFlagC", (flags & 4) != 0);
    m_host->answer("IMSWParameterSource::QueryFlagD", (flags & 8) != 0);
}

void TestMeasurementTransfer::disablingThePrintTransfer_data()
{
    QTest::addColumn<QList<int>>("active");

    QTest::newRow("no output active") << QList<int>();
    QTest::newRow("all outputs active") << QList<int>{1, 2, 3, 4, 5};
}

void TestMeasurementTransfer::disablingThePrintTransfer()
{
    QFETCH(QList<int>, active);
    m_host->setActiveTargets(active);
    m_plugin->setPrintTransferEnabled(false);
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::SetHostPrintTransferEnabled(false)",
                           "IWfM::onPrintButtonEnableChange(false)",
                           "signal TestPlugin::notifyPrintButtonEnableChange(false)");
}

void TestMeasurementTransfer::enablingThePrintTransfer_data()
{
    QTest::addColumn<QList<int>>("active");
    QTest::addColumn<bool>("expected");

    QTest::newRow("no output") << QList<int>() << false;
    for (int target = 1; target <= 5; ++target)
        QTest::newRow(qPrintable(s("only output %1").arg(target))) << QList<int>{target} << true;
    QTest::newRow("outputs 2 and 4") << QList<int>{2, 4} << true;
    QTest::newRow("all outputs") << QList<int>{1, 2, 3, 4, 5} << true;
}

void TestMeasurementTransfer::enablingThePrintTransfer()
{
    QFETCH(QList<int>, active);
    QFETCH(bool, expected);
    m_host->setActiveTargets(active);
    m_plugin->setPrintTransferEnabled(true);
    // Every output is asked, and the host-wide switch stays as it is.
    BRIMVALE_COMPARE_CALLS(
        *m_host, "ISystem::GetTransferTarget1()", "ITransferTarget#1::IsActive()",
        "ISystem::GetTransferTarget2()", "ITransferTarget#2::IsActive()", "ISystem::GetTransferTarget3()",
        "ITransferTarget#3::IsActive()", "ISystem::GetTransferTarget4()", "ITransferTarget#4::IsActive()",
        "ISystem::GetTransferTarget5()", "ITransferTarget#5::IsActive()",
        s("IWfM::onPrintButtonEnableChange(%1)").arg(argumentText(expected)),
        s("signal TestPlugin::notifyPrintButtonEnableChange(%1)").arg(argumentText(expected)));
}

void TestMeasurementTransfer::transferWithoutRequest_data()
{
    QTest::addColumn<int>("flags");

    for (int flags = 0; flags < 16; ++flags)
        QTest::newRow(qPrintable(s("queries DCBA %1").arg(flags, 4, 2, QLatin1Char('0')))) << flags;
}

void TestMeasurementTransfer::transferWithoutRequest()
{
    QFETCH(int, flags);
    answerQueries(flags);
    transferOnce();
    // None of the queries is asked.
    BRIMVALE_COMPARE_CALLS(*m_host, transfer(), notifyTransferred());
}

void TestMeasurementTransfer::transferWithRequest_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QByteArray>("asked");
    QTest::addColumn<bool>("isReported");
    const auto row = [](const char* name, int flags, const char* asked, bool isReported) {
        QTest::newRow(name) << flags << QByteArray(asked) << isReported;
    };

    row("DCBA 0000", 0, "A", true);
    row("DCBA 0001", 1, "AD", true);
    row("DCBA 0010", 2, "A", true);
    row("DCBA 0011", 3, "AD", true);
    row("DCBA 0100", 4, "A", true);
    row("DCBA 0101", 5, "AD", true);
    row("DCBA 0110", 6, "A", true);
    row("DCBA 0111", 7, "AD", true);
    row("DCBA 1000", 8, "A", true);
    row("DCBA 1001", 9, "ADBC", true);
    row("DCBA 1010", 10, "A", true);
    row("DCBA 1011", 11, "ADB", true);
    row("DCBA 1100", 12, "A", true);
    row("DCBA 1101", 13, "ADBC", false);
    row("DCBA 1110", 14, "A", true);
    row("DCBA 1111", 15, "ADB", true);
}

void TestMeasurementTransfer::transferWithRequest()
{
    QFETCH(int, flags);
    QFETCH(QByteArray, asked);
    QFETCH(bool, isReported);
    answerQueries(flags);
    m_plugin->onDoPrint();
    transferOnce();
    BRIMVALE_COMPARE_CALLS(*m_host, transfer(), query(asked.constData()),
                           isReported ? reportPrintPressed() : QStringList(), notifyTransferred());
    // Consumed, whether it was reported or not.
    QVERIFY(!m_plugin->m_printRequested);
}

void TestMeasurementTransfer::requestIsConsumedOnce()
{
    m_plugin->onDoPrint();
    transferOnce();
    m_host->clearCalls();
    transferOnce();
    BRIMVALE_COMPARE_CALLS(*m_host, transfer(), notifyTransferred());
}

void TestMeasurementTransfer::requestIsConsumedBeforeItIsReported()
{
    m_plugin->onDoPrint();
    m_host->onCall("IMeasurementTransfer::TransferMeasurement",
                   [this] { m_host->note(s("during the transfer: %1").arg(m_plugin->m_printRequested)); });
    m_host->onCall("IMSWParameterSource::QueryFlagA",
                   [this] { m_host->note(s("at the first query: %1").arg(m_plugin->m_printRequested)); });
    m_host->ignore("I*::*");
    transferOnce();
    BRIMVALE_COMPARE_CALLS(*m_host, "during the transfer: 1", "at the first query: 0");
}

void TestMeasurementTransfer::requestMadeDuringTheReportIsKept()
{
    m_plugin->onDoPrint();
    m_host->onCall("IPrintIndicator::SetPrintPressed", [this] { m_plugin->onDoPrint(); });
    transferOnce();
    QVERIFY(m_plugin->m_printRequested);
}

void TestMeasurementTransfer::twoRequestsCountOnce()
{
    m_plugin->onDoPrint();
    m_plugin->onDoPrint();
    transferOnce();
    transferOnce();
    QCOMPARE(m_host->callCount("ISequencer::NotifyHostEvent"), 1);
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 1);
    QCOMPARE(m_host->callCount("IPrintIndicator::SetPrintPressed"), 1);
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 2);
}

void TestMeasurementTransfer::transferGivesEveryMember()
{
    const MesswertData full(s("12.5"), s("g"), s("gram"), s("error"), 1, 2, 3, 4, 5, 12.5, 0.25, false, true,
                            true, true, true, true, true, 74);
    m_host->setRegister(72, full);
    m_plugin->MeasurementDatatransfer(full, full);
    const QString text = argumentText(full);
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IMeasurementTransfer"),
        s("IMeasurementTransfer::TransferMeasurement(%1, %2, MesswertData(messwert=\"tare\"))")
            .arg(text, text));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IMeasurementObserver::OnMeasurementTransferred"),
                           s("IMeasurementObserver::OnMeasurementTransferred(%1, %2)").arg(text, text));
}

void TestMeasurementTransfer::unitAndProviderAreAskedAnew()
{
    // The unit changes between the two reads.
    m_host->answerOnce("ISystem::GetCurrentUnit", 1);
    m_host->answerOnce("ISystem::GetCurrentUnit", 2);
    transferOnce();
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IRegisterValueProvider"),
                           "IRegisterValueProvider::GetMesswert(1, 73)",
                           "IRegisterValueProvider::GetMesswert(2, 72)");
}

void TestMeasurementTransfer::answerOfTheTransferIsNotUsed()
{
    m_host->answer("IMeasurementTransfer::TransferMeasurement", true);
    transferOnce();
    BRIMVALE_COMPARE_CALLS(*m_host, transfer(), notifyTransferred());
}

void TestMeasurementTransfer::pressedPrintButton()
{
    QVERIFY(m_host->pressPrint(*m_plugin));
    BRIMVALE_COMPARE_CALLS(*m_host);
    transferOnce();
    QCOMPARE(m_host->callCount("ISequencer::NotifyHostEvent"), 1);
}

QTEST_GUILESS_MAIN(TestMeasurementTransfer)
#include "tst_measurementtransfer.moc"
