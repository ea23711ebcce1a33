// SPDX-License-Identifier: BSD-3-Clause
//
// How a plug-in has the host fill its action bar.
#include "TestPlugin.h"

#include <QObject>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <memory>

using namespace Brimvale;
using namespace Brimvale::TestKit;

/// A plug-in that fills the bar itself.
class OwnBarPlugin : public TestPlugin
{
    Q_OBJECT

public:
    explicit OwnBarPlugin(RecordingHost& host)
        : TestPlugin(host)
        , m_host(host)
    {
    }

protected:
    void InitActionbar() override { m_host.note("InitActionbar"); }

private:
    RecordingHost& m_host;
};

class TestActionbar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void steps();
    void takesTheNumberOfTheActivePlugin();
    void passesTheTextOn_data();
    void passesTheTextOn();
    void barIsFetchedOnce();
    void pluginMayFillTheBarItself();

private:
    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<TestPlugin> m_plugin;
};

void TestActionbar::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_plugin = std::make_unique<TestPlugin>(*m_host);
    m_plugin->id.addonNumber = 7;
    QVERIFY(m_host->init(*m_plugin));
    m_host->answer("IStatusInfo::GetAddonText", "text");
    m_host->clearCalls();
}

void TestActionbar::cleanup()
{
    m_plugin.reset();
    m_host.reset();
}

void TestActionbar::steps()
{
    m_plugin->InitActionbar();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetPluginController()", "IPluginController::GetActivePlugin()",
                           "GetPluginName(true)", "ISystem::GetStatusInfo()", "IStatusInfo::GetAddonText()",
                           "ISystem::GetActionbar()", "IActionbar::SetEnabled(1)",
                           "IActionbar::LoadEntries(7, \"text\")", "IActionbar::Refresh()",
                           "IActionbar::ApplyEntries(7, \"text\")");
}

void TestActionbar::takesTheNumberOfTheActivePlugin()
{
    TestPlugin active(*m_host);
    active.id.addonNumber = 12;
    QVERIFY(m_host->init(active));
    m_plugin->InitActionbar();
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IActionbar"), "IActionbar::SetEnabled(1)",
                           "IActionbar::LoadEntries(12, \"text\")", "IActionbar::Refresh()",
                           "IActionbar::ApplyEntries(12, \"text\")");
}

void TestActionbar::passesTheTextOn_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("umlauts and quotes") << QStringLiteral("Größe \"1\"");
}

void TestActionbar::passesTheTextOn()
{
    QFETCH(QString, text);
    m_host->answer("IStatusInfo::GetAddonText", text);
    m_plugin->InitActionbar();
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IActionbar::*Entries"),
                           QStringLiteral("IActionbar::LoadEntries(7, %1)").arg(argumentText(text)),
                           QStringLiteral("IActionbar::ApplyEntries(7, %1)").arg(argumentText(text)));
}

void TestActionbar::barIsFetchedOnce()
{
    m_plugin->InitActionbar();
    QCOMPARE(m_host->callCount("ISystem::GetActionbar"), 1);
    QCOMPARE(m_host->callCount("IStatusInfo::GetAddonText"), 1);
}

void TestActionbar::pluginMayFillTheBarItself()
{
    OwnBarPlugin plugin(*m_host);
    QVERIFY(m_host->init(plugin));
    m_host->clearCalls();
    QVERIFY(m_host->start(plugin));
    QCOMPARE(m_host->callsTo("IActionbar"), QStringList());
    const QStringList calls = m_host->calls();
    QCOMPARE(calls.indexOf(QStringLiteral("InitActionbar")),
             calls.indexOf(QStringLiteral("CreateViewManager")) + 1);
    QVERIFY(m_host->close(plugin));
}

QTEST_GUILESS_MAIN(TestActionbar)
#include "tst_actionbar.moc"
