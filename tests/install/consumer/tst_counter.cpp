// SPDX-License-Identifier: BSD-3-Clause
#include "CounterPlugin.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QTranslator>
#include <QtTest>

#include <IPlugin.h>
#include <TestKit/RecordingHost.h>

class TestCounter : public QObject
{
    Q_OBJECT

private slots:
    void metadataNamesInterfaceAndLibrary();
    void pluginFileLoads();
    void embeddedTranslationLoads();
    void lifeCycleOnTheRecordingHost();
};

void TestCounter::metadataNamesInterfaceAndLibrary()
{
    const QJsonObject metadata = QPluginLoader(QStringLiteral(COUNTER_PLUGIN)).metaData();
    QCOMPARE(metadata.value(QStringLiteral("IID")).toString(), QStringLiteral("Brimvale.Plugin.IPlugin"));
    QCOMPARE(metadata.value(QStringLiteral("MetaData")).toObject().value(QStringLiteral("name")).toString(),
             QStringLiteral("counter"));
    const QJsonArray version = metadata.value(QStringLiteral("SharedLibsVersion")).toArray();
    QCOMPARE(version.size(), 1);
    QVERIFY(version.first().toString().startsWith(QStringLiteral("1.")));
}

void TestCounter::pluginFileLoads()
{
    QPluginLoader loader(QStringLiteral(COUNTER_PLUGIN));
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    QVERIFY2(loader.load(), qPrintable(loader.errorString()));
    auto* plugin = qobject_cast<Brimvale::IPlugin*>(loader.instance());
    QVERIFY(plugin);
    QCOMPARE(plugin->GetPluginName(false), QStringLiteral("Counter"));
    QVERIFY(QFile::exists(QStringLiteral(":/counter/Counter.qml")));
}

void TestCounter::embeddedTranslationLoads()
{
    QPluginLoader loader(QStringLiteral(COUNTER_PLUGIN));
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    auto* plugin = qobject_cast<Brimvale::IPlugin*>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));

    QTranslator translator;
    QVERIFY(plugin->PluginTranslator(&translator, QStringLiteral("counter_de")));
    QCOMPARE(translator.translate("CounterPlugin", "Counter"), QStringLiteral("Zähler"));
}

void TestCounter::lifeCycleOnTheRecordingHost()
{
    Brimvale::TestKit::RecordingHost host;
    CounterPlugin plugin;
    QVERIFY(host.init(plugin));
    host.clearCalls();
    QVERIFY(host.start(plugin));
    QVERIFY(host.contextObject("counterModel"));
    BRIMVALE_COMPARE_CALLS(host.callsTo("IView"), "IView::SetContextObject(\"counterModel\", QObject)",
                           "IView::GetScreenLoader()");
    QCOMPARE(host.loadedScreen(), QStringLiteral("qrc:/counter/Counter.qml"));
    QVERIFY(host.close(plugin));
    QVERIFY(!host.contextObject("counterModel"));
}

QTEST_GUILESS_MAIN(TestCounter)
#include "tst_counter.moc"
