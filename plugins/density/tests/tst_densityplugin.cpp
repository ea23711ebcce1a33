// SPDX-License-Identifier: BSD-3-Clause
#include "DensityPlugin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <ActionBaseToggle.h>
#include <IAction.h>
#include <ISystemRegister.h>
#include <TestKit/RecordingHost.h>

using namespace Brimvale;

namespace
{

MesswertData reading(double value, bool stable = true, const char* unit = "g")
{
    MesswertData data;
    data.value = value;
    data.decimals = 1;
    data.messwert = QString::number(value, 'f', 1);
    data.unit = QString::fromUtf8(unit);
    data.isStable = stable;
    return data;
}

MesswertData noWeight(const QString& error)
{
    MesswertData data;
    data.isValid = false;
    data.errorText = error;
    return data;
}

} // namespace

class TestDensityPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void publishesModelAndScreen();
    void offersItsKeysInOrder();
    void showsTheCorrectedWeight();
    void showsOtherUnits();
    void showsWhatIsWrong_data();
    void showsWhatIsWrong();
    void formulaKey();
    void steppersChangeTheSelectedValue();
    void numberPad_data();
    void numberPad();
    void padIsClosed();
    void printsTheCorrectedWeight();
    void printWaitsForAStableWeight();
    void refusesToPrint();
    void valuesComeBackAfterARestart();
    void keptValuesAreThereBeforeTheScreen();
    void unreadableValuesAreTold();
    void valuesThatCannotBeKept();
    void keysReachTheScale_data();
    void keysReachTheScale();
    void showsTheWarnings();
    void takesEverythingBackAtTheClose();
    void startsAgainAfterTheClose();
    void speaksGerman();

private:
    void start() { QVERIFY(m_host->start(*m_plugin)); }
    void weigh(const MesswertData& current)
    {
        m_host->setRegister(ISystemRegister::CurrentRegister, current);
        m_host->emitNewMeasurement(current.value * 10.0);
    }
    QStringList infos() const;
    DensityViewModel* model() const
    {
        return qobject_cast<DensityViewModel*>(m_host->contextObject("density"));
    }
    MesswertInfo* display() const { return model()->messwertInfo(); }
    QString field(int id) const
    {
        return model()->fields().at(id).toMap().value(QStringLiteral("text")).toString();
    }
    IAction* action(const char* uid) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestKit::RecordingHost> m_host;
    std::unique_ptr<DensityPlugin> m_plugin;
};

void TestDensityPlugin::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("BRIMVALE_PLUGIN_DATA", m_folder->path().toUtf8());
    m_host = std::make_unique<TestKit::RecordingHost>();
    m_plugin = std::make_unique<DensityPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    weigh(reading(0.0));
}

void TestDensityPlugin::cleanup()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin.reset(); // before its host
    m_host.reset();
    qunsetenv("BRIMVALE_PLUGIN_DATA");
}

QStringList TestDensityPlugin::infos() const
{
    QStringList texts;
    const QList<QObject*> items = m_host->infoItems();
    for (const QObject* item : items) {
        texts.append(item->property("itemValue").toString());
    }
    return texts;
}

IAction* TestDensityPlugin::action(const char* uid) const
{
    const QList<IAction*> actions = m_host->actions();
    for (IAction* action : actions) {
        if (action->uid() == QLatin1String(uid)) {
            return action;
        }
    }
    return nullptr;
}

void TestDensityPlugin::publishesModelAndScreen()
{
    start();
    QVERIFY(model() != nullptr);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/density/DensityScreen.qml"));
    QCOMPARE(model()->fields().size(), int(Parameters::Count));
}

void TestDensityPlugin::offersItsKeysInOrder()
{
    start();
    QStringList keys;
    int rank = 0;
    const QList<IAction*> actions = m_host->actions();
    for (const IAction* action : actions) {
        QVERIFY(action->getRank() > rank);
        rank = action->getRank();
        QVERIFY(action->enabled());
        keys.append(action->uid().mid(8) + QLatin1Char(':') + action->name());
    }
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("zero:Zero tare:Tare field:Next value decrease:− increase:+ enter:Number pad "
                            "formula:Exact formula"));
}

void TestDensityPlugin::showsTheCorrectedWeight()
{
    weigh(reading(1000.0));
    start(); // without waiting for a reading
    QCOMPARE(display()->messwert(), QStringLiteral("1001.1"));
    QVERIFY(display()->isCalculated());
    QVERIFY(display()->messwertKleinVisible());
    QCOMPARE(display()->messwertKlein(), QStringLiteral("1000.0"));
    QCOMPARE(infos(),
             QStringList({QStringLiteral("1000.0 g"), QStringLiteral("+1.1 g"), QStringLiteral("1001.1 g"),
                          QStringLiteral("1.1988 kg/m³"), QStringLiteral("1.0010502")}));
    weigh(reading(-1000.0, false));
    QCOMPARE(display()->messwert(), QStringLiteral("-1001.1"));
    QCOMPARE(infos().at(1), QStringLiteral("-1.1 g"));
}

void TestDensityPlugin::showsOtherUnits()
{
    start();
    weigh(reading(5000.0, true, "ct"));
    QCOMPARE(infos().at(1), QStringLiteral("+5.3 ct"));
    QCOMPARE(display()->unit(), QStringLiteral("ct"));
    QCOMPARE(display()->unitKlein(), QStringLiteral("ct"));
}

void TestDensityPlugin::showsWhatIsWrong_data()
{
    QTest::addColumn<QString>("error");
    QTest::newRow("overload") << "Overload";
    QTest::newRow("cable out") << "No connection";
}

void TestDensityPlugin::showsWhatIsWrong()
{
    QFETCH(QString, error);
    start();
    weigh(noWeight(error));
    QCOMPARE(display()->errorText(), error);
    QVERIFY(!display()->isValid());
    QVERIFY(!display()->messwertKleinVisible());
    QCOMPARE(infos().at(0), error);
    QCOMPARE(infos().at(1), QStringLiteral("–"));
    QCOMPARE(infos().at(2), QStringLiteral("–"));
    QVERIFY(m_host->infoItems().first()->property("isItemValueInvalid").toBool());
    QCOMPARE(model()->stateText(), QStringLiteral("No weight to correct"));
    weigh(reading(10.0));
    QVERIFY(!m_host->infoItems().first()->property("isItemValueInvalid").toBool());
    QCOMPARE(model()->stateText(), QStringLiteral("The weight is corrected for buoyancy"));
}

void TestDensityPlugin::formulaKey()
{
    start();
    auto* const key = dynamic_cast<ActionBaseToggle*>(action("density.formula"));
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(m_host->pressAction("density.formula"));
    QCOMPARE(key->toggleIndex(), 0);
    QCOMPARE(infos().at(3), QStringLiteral("1.1993 kg/m³"));
    QVERIFY(m_host->pressAction("density.formula"));
    QCOMPARE(infos().at(3), QStringLiteral("1.1988 kg/m³"));
}

void TestDensityPlugin::steppersChangeTheSelectedValue()
{
    weigh(reading(1000.0));
    start();
    QVERIFY(m_host->pressAction("density.increase"));
    QCOMPARE(field(Parameters::Temperature), QStringLiteral("20.5"));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(m_host->pressAction("density.field"));
    }
    QCOMPARE(model()->selected(), int(Parameters::SampleDensity));
    for (int i = 0; i < 7; ++i) {
        QVERIFY(m_host->pressAction("density.decrease"));
    }
    QCOMPARE(field(Parameters::SampleDensity), QStringLiteral("930.0"));
    QCOMPARE(infos().at(2), QStringLiteral("1001.1 g"));
    QVERIFY(m_host->pressAction("density.field"));
    QVERIFY(m_host->pressAction("density.field")); // round to the first again
    QCOMPARE(model()->selected(), int(Parameters::Temperature));
}

void TestDensityPlugin::numberPad_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("value");
    QTest::newRow("temperature") << int(Parameters::Temperature) << "23.4"
                                 << "23.4" << true << "23.4";
    QTest::newRow("whole number") << int(Parameters::Temperature) << "23"
                                  << "23" << true << "23.0";
    QTest::newRow("nothing") << int(Parameters::Temperature) << ""
                             << "" << false << "20.0";
    QTest::newRow("out of range") << int(Parameters::Temperature) << "41"
                                  << "41" << false << "20.0";
    QTest::newRow("one decimal at most") << int(Parameters::Temperature) << "23.45"
                                         << "23.4" << true << "23.4";
    QTest::newRow("one point only") << int(Parameters::Pressure) << "99.9.9"
                                    << "99.99" << false << "1013.25";
    QTest::newRow("no point in whole numbers") << int(Parameters::Humidity) << "4.5"
                                               << "45" << true << "45";
    QTest::newRow("begins with a point") << int(Parameters::Temperature) << ".5"
                                         << "0.5" << true << "0.5";
    QTest::newRow("only a point") << int(Parameters::Temperature) << "."
                                  << "0." << true << "0.0";
    QTest::newRow("taken off") << int(Parameters::Humidity) << "457<<<<46"
                               << "46" << true << "46";
    QTest::newRow("too long") << int(Parameters::SampleDensity) << "123456789012"
                              << "12345678" << false << "1000.0";
    QTest::newRow("leading zeros") << int(Parameters::SampleDensity) << "00998.2"
                                   << "00998.2" << true << "998.2";
}

void TestDensityPlugin::numberPad()
{
    QFETCH(int, id);
    QFETCH(QString, keys);
    QFETCH(bool, accepted);
    start();
    model()->select(id);
    model()->openEntry();
    for (const QChar key : keys) {
        model()->type(QString(key));
    }
    QTEST(model()->entry(), "entry");
    QCOMPARE(model()->entryAcceptable(), accepted);
    model()->acceptEntry();
    QCOMPARE(model()->editing(), !accepted); // what cannot be accepted stays
    QTEST(field(id), "value");
}

void TestDensityPlugin::padIsClosed()
{
    start();
    QVERIFY(m_host->pressAction("density.enter"));
    QVERIFY(model()->editing());
    QCOMPARE(action("density.enter")->name(), QStringLiteral("Close pad"));
    model()->type(QStringLiteral("3"));
    QVERIFY(m_host->pressAction("density.enter"));
    QVERIFY(!model()->editing());
    QCOMPARE(action("density.enter")->name(), QStringLiteral("Number pad"));
    QCOMPARE(field(Parameters::Temperature), QStringLiteral("20.0"));
    model()->type(QStringLiteral("3")); // nobody listens
    QCOMPARE(model()->entry(), QString());

    model()->openEntry();
    QVERIFY(m_host->pressAction("density.field")); // another value is another entry
    QVERIFY(!model()->editing());
    model()->openEntry();
    QVERIFY(m_plugin->SetupView());
    QVERIFY(!model()->editing());
}

void TestDensityPlugin::printsTheCorrectedWeight()
{
    start();
    weigh(reading(1000.0));
    QVERIFY(m_host->pressPrint(*m_plugin));
    const QStringList transfers = m_host->callsTo("IMeasurementTransfer::TransferMeasurement");
    QCOMPARE(transfers.size(), 1);
    QVERIFY2(transfers.first().contains(QStringLiteral("messwert=\"1001.1\"")),
             qPrintable(transfers.first()));
    QVERIFY2(transfers.first().contains(QStringLiteral("isCalculated=true")), qPrintable(transfers.first()));
    QCOMPARE(model()->stateText(), QStringLiteral("Corrected weight sent"));
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 1);
}

void TestDensityPlugin::printWaitsForAStableWeight()
{
    start();
    weigh(reading(999.0, false));
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateKind(), DensityViewModel::Attention);
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 0);
    weigh(reading(1000.0));
    weigh(reading(1000.0));
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 1);
}

void TestDensityPlugin::refusesToPrint()
{
    start();
    weigh(noWeight(QStringLiteral("Overload")));
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateText(), QStringLiteral("Not sent: no valid weight"));
    QCOMPARE(model()->stateKind(), DensityViewModel::Wrong);
    weigh(reading(100.0)); // the request is gone
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 0);
}

void TestDensityPlugin::valuesComeBackAfterARestart()
{
    start();
    QVERIFY(m_host->pressAction("density.increase"));
    QVERIFY(m_host->pressAction("density.formula"));
    QVERIFY(m_host->close(*m_plugin));
    m_plugin = std::make_unique<DensityPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    start();
    QCOMPARE(field(Parameters::Temperature), QStringLiteral("20.5"));
    QCOMPARE(dynamic_cast<ActionBaseToggle*>(action("density.formula"))->toggleIndex(), 0);
    QCOMPARE(model()->stateKind(), DensityViewModel::Plain);
}

void TestDensityPlugin::keptValuesAreThereBeforeTheScreen()
{
    QVERIFY(QDir().mkpath(QFileInfo(DensityPlugin::fileName()).path()));
    Parameters kept;
    QVERIFY(kept.setValue(Parameters::SampleDensity, 50.0));
    QVERIFY(kept.save(DensityPlugin::fileName()));
    // A screen reads the values when it is loaded, and again when it is told of a change.
    struct OpenPlugin : DensityPlugin
    {
        using DensityPlugin::CreateViewModel;
    };
    OpenPlugin plugin;
    const std::unique_ptr<QObject> model(plugin.CreateViewModel());
    QCOMPARE(qobject_cast<DensityViewModel*>(model.get())
                 ->fields()
                 .at(Parameters::SampleDensity)
                 .toMap()
                 .value(QStringLiteral("text"))
                 .toString(),
             QStringLiteral("50.0"));
}

void TestDensityPlugin::unreadableValuesAreTold()
{
    QVERIFY(QDir().mkpath(QFileInfo(DensityPlugin::fileName()).path()));
    QFile file(DensityPlugin::fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\ntemperature=hot\nhumidity=33\n");
    file.close();
    start();
    QCOMPARE(model()->stateText(),
             QStringLiteral("Check the values: not all could be read from %1").arg(file.fileName()));
    QCOMPARE(field(Parameters::Temperature), QStringLiteral("20.0"));
    QCOMPARE(field(Parameters::Humidity), QStringLiteral("33"));
}

void TestDensityPlugin::valuesThatCannotBeKept()
{
    QFile inTheWay(QFileInfo(DensityPlugin::fileName()).path());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    start();
    QVERIFY(m_host->pressAction("density.increase"));
    QCOMPARE(model()->stateText(),
             QStringLiteral("The values cannot be kept in %1").arg(DensityPlugin::fileName()));
    QCOMPARE(field(Parameters::Temperature), QStringLiteral("20.5")); // in force until the close
    QVERIFY(inTheWay.remove());
    QVERIFY(m_host->pressAction("density.increase"));
    QCOMPARE(model()->stateKind(), DensityViewModel::Plain);
}

void TestDensityPlugin::keysReachTheScale_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("call");
    QTest::newRow("zero") << "density.zero"
                          << "IWeighing::Zero()";
    QTest::newRow("tare") << "density.tare"
                          << "IWeighing::Tare()";
}

void TestDensityPlugin::keysReachTheScale()
{
    QFETCH(QString, uid);
    QFETCH(QString, call);
    start();
    m_host->clearCalls();
    QVERIFY(m_host->pressAction(uid));
    QCOMPARE(m_host->callsTo("IWeighing"), QStringList(call));
}

void TestDensityPlugin::showsTheWarnings()
{
    start();
    QVERIFY(!model()->warnInfo()->levellingRequiredVisible());
    m_host->setLevelled(false);
    QVERIFY(model()->warnInfo()->levellingRequiredVisible());
    m_host->setCalibrationWarning("Calibration required");
    QCOMPARE(model()->warnInfo()->calibrationRequiredText(), QStringLiteral("Calibration required"));
}

void TestDensityPlugin::takesEverythingBackAtTheClose()
{
    start();
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
    m_host->clearCalls();
    weigh(reading(1.0)); // nobody listens any more
    m_plugin->TranslateWarnInfo();
    m_plugin->onDoPrint();
    QCOMPARE(m_host->calls(), QStringList());
}

void TestDensityPlugin::startsAgainAfterTheClose()
{
    for (int round = 1; round <= 3; ++round) {
        start();
        QCOMPARE(m_host->actions().size(), 7);
        weigh(reading(10.0 * round));
        QCOMPARE(display()->messwert(), QString::number(10.0 * round, 'f', 1));
        QVERIFY(m_host->close(*m_plugin));
    }
}

void TestDensityPlugin::speaksGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(DENSITY_TRANSLATION)));
    start();
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo();
    const QString name = m_plugin->GetPluginName(true);
    const QString untranslated = m_plugin->GetPluginName(false);
    const QString key = action("density.field")->name();
    const QString title = m_host->infoItems().at(3)->property("itemValueTitle").toString();
    const QString value =
        model()->fields().at(Parameters::Humidity).toMap().value(QStringLiteral("title")).toString();
    const QString state = model()->stateText();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(name, QStringLiteral("Auftrieb"));
    QCOMPARE(untranslated, QStringLiteral("Buoyancy"));
    QCOMPARE(key, QStringLiteral("Nächster Wert"));
    QCOMPARE(title, QStringLiteral("Luftdichte"));
    QCOMPARE(value, QStringLiteral("Feuchte"));
    QCOMPARE(state, QStringLiteral("Das Gewicht ist auftriebskorrigiert"));
}

QTEST_GUILESS_MAIN(TestDensityPlugin)
#include "tst_densityplugin.moc"
