// SPDX-License-Identifier: BSD-3-Clause
//
// The plug-in that was built against version 1.0 and is kept as a file, with the library as it is built now. The same
// test runs with the plug-in as it is built now.
#include "IAction.h"
#include "IPlugin.h"
#include "IPrintableItem.h"
#include "IStepFunction.h"
#include "ISystemRegister.h"

#include <QPluginLoader>
#include <QtTest>

#include <TestKit/RecordingHost.h>
#include <memory>

using namespace Brimvale;
using TestKit::RecordingHost;

class TestOldest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void identity();
    void everyUseOfTheLibraryWorks();
    void recordsReachTheHost();
    void printItems();
    void stepFunction();
    void printButton();
    void closesAndStartsAgain();

private:
    QString m_file;
    std::unique_ptr<QPluginLoader> m_loader;
    std::unique_ptr<RecordingHost> m_host;
    QObject* m_object = nullptr;
    IPlugin* m_plugin = nullptr;
};

void TestOldest::initTestCase()
{
    m_file = qEnvironmentVariable("BRIMVALE_OLDEST_PLUGIN");
    QVERIFY2(!m_file.isEmpty(), "BRIMVALE_OLDEST_PLUGIN names no plug-in");
    const QString processor = QSysInfo::buildCpuArchitecture();
    if (processor != QLatin1String("x86_64") && processor != QLatin1String("arm"))
        QSKIP(qPrintable(QStringLiteral("no plug-in is kept for the processor ") + processor));
}

// As the terminal does it: all symbols are resolved at once, and the plug-in stays in memory.
void TestOldest::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 10000.0);
    m_loader = std::make_unique<QPluginLoader>(m_file);
    m_loader->setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    QCOMPARE(m_loader->metaData().value(QStringLiteral("IID")).toString(),
             QStringLiteral("Brimvale.Plugin.IPlugin"));
    m_object = m_loader->instance();
    QVERIFY2(m_object, qPrintable(m_loader->errorString()));
    m_plugin = qobject_cast<IPlugin*>(m_object);
    QVERIFY(m_plugin);
    QVERIFY(m_host->init(*m_plugin));
    QVERIFY(m_host->start(*m_plugin));
}

void TestOldest::cleanup()
{
    if (m_plugin)
        QVERIFY(m_host->close(*m_plugin));
    // The next instance() makes a new object.
    delete m_object;
    m_object = nullptr;
    m_plugin = nullptr;
}

void TestOldest::identity()
{
    QCOMPARE(m_object->metaObject()->className(), "OldestPlugin");
    QVERIFY(m_object->inherits("Brimvale::PluginBase"));
    const PluginId id = m_plugin->GetId();
    QCOMPARE(id.identifier, QStringLiteral("oldest"));
    QCOMPARE(id.name, QStringLiteral("Oldest"));
    QCOMPARE(id.protocolName, QStringLiteral("Oldest record"));
    QVERIFY(id.hasProtocol && id.transferFlag && !id.hasAddons);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/oldest/Oldest.qml"));
}

void TestOldest::everyUseOfTheLibraryWorks()
{
    QVERIFY(m_host->pressAction("oldest.check"));
    QCOMPARE(m_host->actions().first()->name(), QStringLiteral("48 passed"));
}

void TestOldest::recordsReachTheHost()
{
    m_host->clearCalls();
    QVERIFY(m_host->pressAction("oldest.transfer"));
    const char* const current =
        "MesswertData(messwert=\"12.3\", unit=\"g\", unitPrintName=\"gram\", stabilityValue=3, "
        "rangeNumber=1, decimals=1, value=12.3, tareValue=4.5, isStable=true, net=true, registerNumber=74)";
    const QStringList transfers = m_host->callsTo("IMeasurementTransfer");
    QCOMPARE(transfers,
             QStringList(QStringLiteral("IMeasurementTransfer::TransferMeasurement(%1, MesswertData(), "
                                        "MesswertData())")
                             .arg(QLatin1String(current))));
    const QString previous =
        QString::fromLatin1(current).replace(QLatin1String("\"12.3\""), QLatin1String("\"12.2\""));
    QVERIFY(m_host->calls().contains(QStringLiteral("IMeasurementObserver::OnMeasurementTransferred(%1, %2)")
                                         .arg(QLatin1String(current), previous)));
}

void TestOldest::printItems()
{
    const QList<IPrintableItem*> items = m_host->printItems();
    QCOMPARE(items.size(), 2);
    m_host->clearCalls();
    m_host->answer("IPrinter::PrintLine", true);
    for (IPrintableItem* item : items) {
        QVERIFY(item->isEnabled(ProtocolType::Measurement));
        QVERIFY(!item->isAvailableIn(ProtocolArea::Footer));
        QVERIFY(item->getUId().startsWith(QLatin1String("oldest.")));
        item->setValue();
        QVERIFY(item->Print(m_host->printer(), m_host->formatter()));
    }
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(0, \"Old item\")",
                           "IPrinter::PrintLine(\"\")", "IPrinter::GetPrintLayout()",
                           "IFormat::FormatDescriptionText(0, \"Text\", \"of a pointer\")",
                           "IPrinter::PrintLine(\"\")");
}

void TestOldest::stepFunction()
{
    const QList<IStepFunction*> functions = m_host->stepFunctions();
    QCOMPARE(functions.size(), 1);
    QCOMPARE(functions.first()->uid(), QStringLiteral("oldest.step"));
    QSignalSpy done(dynamic_cast<QObject*>(functions.first()), SIGNAL(workDone(QVariant)));
    functions.first()->startFunction(20, 22);
    QCOMPARE(done.size(), 1);
    QCOMPARE(done.first().first().value<QVariant>().toInt(), 42);
}

void TestOldest::printButton()
{
    m_host->answer("IMSWParameterSource::QueryFlagA", false);
    QVERIFY(m_host->pressPrint(*m_plugin));
    m_host->clearCalls();
    QVERIFY(m_host->pressAction("oldest.transfer"));
    QCOMPARE(m_host->callsTo("IPrintIndicator"),
             QStringList(QStringLiteral("IPrintIndicator::SetPrintPressed(true)")));
}

void TestOldest::closesAndStartsAgain()
{
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->printItems().isEmpty());
    QVERIFY(m_host->start(*m_plugin));
    QCOMPARE(m_host->actions().size(), 2);
    QVERIFY(m_host->pressAction("oldest.check"));
}

QTEST_GUILESS_MAIN(TestOldest)

#include "tst_oldest.moc"
