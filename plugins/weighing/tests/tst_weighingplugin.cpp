// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingPlugin.h"

#include <QSignalSpy>
#include <QtTest>

#include <ActionBaseToggle.h>
#include <IAction.h>
#include <ISystemRegister.h>
#include <InfoboxListItem.h>
#include <TestKit/RecordingHost.h>

using namespace Brimvale;

namespace
{

constexpr int Gross = ISystemRegister::GrossRegister;
constexpr int Tare = ISystemRegister::TareRegister;
constexpr int Current = ISystemRegister::CurrentRegister;

MesswertData reading(double grams, bool stable = true)
{
    MesswertData data;
    data.value = grams;
    data.messwert = QString::number(grams, 'f', 1);
    data.unit = QStringLiteral("g");
    data.isStable = stable;
    data.stabilityValue = stable ? 1 : 0;
    return data;
}

MesswertData noWeight()
{
    MesswertData data;
    data.isValid = false;
    data.errorText = QStringLiteral("Overload");
    return data;
}

} // namespace

class TestWeighingPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void publishesViewModelAndScreen();
    void offersItsActionsInOrder();
    void followsTheWeight();
    void showsBarGraphOnlyWithAKnownCapacity_data();
    void showsBarGraphOnlyWithAKnownCapacity();
    void showsGrossWhileThereIsATare();
    void showsWhatIsWrongInsteadOfAWeight();
    void actionsReachTheScale_data();
    void actionsReachTheScale();
    void clearTareIsEnabledOnlyWithATare();
    void printsAStableWeightAtOnce();
    void printWaitsForAStableWeight();
    void printsUnstableWeightWhenAllowed();
    void refusesToPrint_data();
    void refusesToPrint();
    void printsOncePerRequest();
    void storedSettingsAreInForce_data();
    void storedSettingsAreInForce();
    void printModeKeyTogglesTheSetting();
    void showsTheWarnings();
    void takesEverythingBackAtTheClose();
    void startsAgainAfterTheClose();
    void speaksGerman();

private:
    void start();
    void weigh(const MesswertData& current);
    QObject* model() const { return m_host->contextObject("weighing"); }
    QVariant property(const char* name) const { return model()->property(name); }
    QObject* display() const { return property("messwertInfo").value<QObject*>(); }
    IAction* action(const QString& uid) const;

    std::unique_ptr<TestKit::RecordingHost> m_host;
    std::unique_ptr<WeighingPlugin> m_plugin;
};

void TestWeighingPlugin::init()
{
    m_host = std::make_unique<TestKit::RecordingHost>();
    m_plugin = std::make_unique<WeighingPlugin>();
    QVERIFY(m_host->init(*m_plugin));
}

void TestWeighingPlugin::cleanup()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin.reset(); // before its host
    m_host.reset();
}

void TestWeighingPlugin::start()
{
    QVERIFY(m_host->start(*m_plugin));
}

void TestWeighingPlugin::weigh(const MesswertData& current)
{
    m_host->setRegister(Current, current);
    m_host->emitNewMeasurement(current.value * 10);
}

IAction* TestWeighingPlugin::action(const QString& uid) const
{
    const QList<IAction*> actions = m_host->actions();
    for (IAction* action : actions) {
        if (action->uid() == uid) {
            return action;
        }
    }
    return nullptr;
}

void TestWeighingPlugin::publishesViewModelAndScreen()
{
    start();
    QVERIFY(model() != nullptr);
    QVERIFY(display() != nullptr);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/weighing/WeighingScreen.qml"));
}

void TestWeighingPlugin::offersItsActionsInOrder()
{
    start();
    QStringList uids;
    int rank = 0;
    const QList<IAction*> actions = m_host->actions();
    for (const IAction* action : actions) {
        QVERIFY(action->getRank() > rank);
        rank = action->getRank();
        uids.append(action->uid() + QLatin1Char(' ') + action->name());
    }
    const QStringList expected = {QStringLiteral("weighing.zero Zero"), QStringLiteral("weighing.tare Tare"),
                                  QStringLiteral("weighing.clearTare Clear tare"),
                                  QStringLiteral("weighing.printMode Stable only")};
    QCOMPARE(uids, expected);
}

void TestWeighingPlugin::followsTheWeight()
{
    m_host->setRegister(Current, reading(12.5));
    start();
    QCOMPARE(display()->property("messwert").toString(),
             QStringLiteral("12.5")); // without waiting for a reading
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 20000.0);
    m_host->setRegister(Gross, reading(500.0));
    m_host->setRegister(Gross, 5000.0);
    weigh(reading(500.0, false));
    QCOMPARE(display()->property("messwert").toString(), QStringLiteral("500.0"));
    QCOMPARE(display()->property("stabilityValue").toInt(), 0);
    QCOMPARE(display()->property("bargraphValue").toInt(), 25);
}

void TestWeighingPlugin::showsBarGraphOnlyWithAKnownCapacity_data()
{
    QTest::addColumn<double>("limit");
    QTest::addColumn<bool>("isVisible");
    QTest::addColumn<int>("value");
    QTest::newRow("known") << 20000.0 << true << 25;
    QTest::newRow("not known") << 999999999.0 << false << 0;
    QTest::newRow("not given") << 0.0 << false << 0;
}

void TestWeighingPlugin::showsBarGraphOnlyWithAKnownCapacity()
{
    QFETCH(double, limit);
    start();
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 20000.0);
    weigh(reading(500.0));
    m_host->setRegister(ISystemRegister::UpperLimitRegister, limit);
    m_host->setRegister(Gross, reading(500.0));
    m_host->setRegister(Gross, 5000.0);
    weigh(reading(500.0));
    QTEST(display()->property("bargraphVisible").toBool(), "isVisible");
    QTEST(display()->property("bargraphValue").toInt(), "value");
}

void TestWeighingPlugin::showsGrossWhileThereIsATare()
{
    start();
    MesswertData net = reading(200.0);
    net.net = true;
    net.isPresetTare = true;
    m_host->setRegister(Gross, reading(700.0));
    m_host->setRegister(Tare, reading(500.0));
    weigh(net);
    QVERIFY(display()->property("netVisible").toBool());
    QVERIFY(display()->property("ptVisible").toBool());
    QVERIFY(display()->property("messwertKleinVisible").toBool());
    QCOMPARE(display()->property("messwertKlein").toString(), QStringLiteral("700.0"));
    QCOMPARE(m_host->infoItems().at(1)->property("itemValue").toString(), QStringLiteral("500.0 g"));

    weigh(reading(700.0));
    QVERIFY(!display()->property("messwertKleinVisible").toBool());
    QVERIFY(!display()->property("ptVisible").toBool());
}

void TestWeighingPlugin::showsWhatIsWrongInsteadOfAWeight()
{
    start();
    m_host->setRegister(Gross, noWeight());
    weigh(noWeight());
    QCOMPARE(display()->property("errorText").toString(), QStringLiteral("Overload"));
    QVERIFY(!display()->property("isValid").toBool());
    QCOMPARE(display()->property("bargraphValue").toInt(), 0);
    QCOMPARE(m_host->infoItems().first()->property("itemValue").toString(), QStringLiteral("Overload"));
    QVERIFY(m_host->infoItems().first()->property("isItemValueInvalid").toBool());
}

void TestWeighingPlugin::actionsReachTheScale_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("call");
    QTest::newRow("zero") << "weighing.zero"
                          << "IWeighing::Zero()";
    QTest::newRow("tare") << "weighing.tare"
                          << "IWeighing::Tare()";
    QTest::newRow("clear tare") << "weighing.clearTare"
                                << "IWeighing::ClearTare()";
}

void TestWeighingPlugin::actionsReachTheScale()
{
    QFETCH(QString, uid);
    QFETCH(QString, call);
    start();
    MesswertData net = reading(1.0);
    net.net = true;
    weigh(net);
    m_host->clearCalls();
    QVERIFY(m_host->pressAction(uid));
    QCOMPARE(m_host->callsTo("IWeighing"), QStringList(call));
}

void TestWeighingPlugin::clearTareIsEnabledOnlyWithATare()
{
    start();
    QVERIFY(!action(QStringLiteral("weighing.clearTare"))->enabled());
    MesswertData net = reading(1.0);
    net.net = true;
    weigh(net);
    QVERIFY(action(QStringLiteral("weighing.clearTare"))->enabled());
    weigh(reading(1.0));
    QVERIFY(!action(QStringLiteral("weighing.clearTare"))->enabled());
}

void TestWeighingPlugin::printsAStableWeightAtOnce()
{
    start();
    weigh(reading(200.0));
    m_host->clearCalls();
    QVERIFY(m_host->pressPrint(*m_plugin)); // without waiting for the next reading
    QCOMPARE(m_host->callsTo("IMeasurementTransfer").size(), 1);
    QCOMPARE(m_host->callsTo("ISequencer").at(1),
             QStringLiteral("ISequencer::NotifyHostEvent(\"printPressed\")"));
    QCOMPARE(property("lastTransfer").toString(), QStringLiteral("200.0 g"));
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::Printed));
    QCOMPARE(m_host->infoItems().at(2)->property("itemValue").toString(), QStringLiteral("1"));
}

void TestWeighingPlugin::printWaitsForAStableWeight()
{
    start();
    QVERIFY(m_host->pressPrint(*m_plugin));
    weigh(reading(199.0, false));
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::WaitingForStable));
    QVERIFY(m_host->callsTo("IMeasurementTransfer::TransferMeasurement").isEmpty());
    weigh(reading(200.0));
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::Printed));
    QCOMPARE(m_host->callsTo("IMeasurementTransfer::TransferMeasurement").size(), 1);
}

void TestWeighingPlugin::printsUnstableWeightWhenAllowed()
{
    start();
    m_plugin->SetProfileItem(WeighingPlugin::PrintOnlyStable, false, QString());
    weigh(reading(199.0, false));
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(m_host->callsTo("IMeasurementTransfer::TransferMeasurement").size(), 1);
}

void TestWeighingPlugin::refusesToPrint_data()
{
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("grams");
    QTest::addColumn<int>("state");
    QTest::newRow("below the minimum") << true << 49.9 << int(WeighingViewModel::BelowMinimum);
    QTest::newRow("no valid weight") << false << 0.0 << int(WeighingViewModel::NoWeight);
}

void TestWeighingPlugin::refusesToPrint()
{
    QFETCH(bool, valid);
    QFETCH(double, grams);
    QFETCH(int, state);
    start();
    m_plugin->SetProfileItem(WeighingPlugin::MinimumWeight, 50.0, QString());
    weigh(valid ? reading(grams) : noWeight());
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(property("printState").toInt(), state);

    weigh(reading(100.0)); // the request is gone
    QVERIFY(m_host->callsTo("IMeasurementTransfer::TransferMeasurement").isEmpty());
    QCOMPARE(property("transferCount").toInt(), 0);
}

void TestWeighingPlugin::printsOncePerRequest()
{
    start();
    QVERIFY(m_host->pressPrint(*m_plugin));
    QVERIFY(m_host->pressPrint(*m_plugin));
    weigh(reading(200.0));
    weigh(reading(200.0));
    QCOMPARE(property("transferCount").toInt(), 1);
}

void TestWeighingPlugin::storedSettingsAreInForce_data()
{
    QTest::addColumn<QString>("onlyStable");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<int>("toggleIndex");
    QTest::addColumn<QString>("minimumText");
    QTest::newRow("any weight") << "false"
                                << "0" << 0 << "";
    QTest::newRow("stable from 50 g") << "true"
                                      << "50" << 1 << "50 g";
    QTest::newRow("unreadable minimum") << "true"
                                        << "heavy" << 1 << "";
    QTest::newRow("negative minimum") << "true"
                                      << "-5" << 1 << "";
}

void TestWeighingPlugin::storedSettingsAreInForce()
{
    QFETCH(QString, onlyStable);
    QFETCH(QString, minimum);
    QFETCH(int, toggleIndex);
    QFETCH(QString, minimumText);
    m_host->answer("ISystem::GetStoredParameter(\"weighing\", \"\", \"system\", \"true\", 1)", onlyStable);
    m_host->answer("ISystem::GetStoredParameter(\"weighing\", \"\", \"system\", \"0\", 2)", minimum);
    m_plugin = std::make_unique<WeighingPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    start();
    QCOMPARE(property("printOnlyStable").toBool(), toggleIndex == 1);
    QCOMPARE(property("minimumWeight").toString(), minimumText);
    QCOMPARE(dynamic_cast<ActionBaseToggle*>(action(QStringLiteral("weighing.printMode")))->toggleIndex(),
             toggleIndex);
}

void TestWeighingPlugin::printModeKeyTogglesTheSetting()
{
    start();
    auto* const key = dynamic_cast<ActionBaseToggle*>(action(QStringLiteral("weighing.printMode")));
    QVERIFY(key != nullptr);
    QCOMPARE(key->maxToggleIndex(), 1);
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(m_host->pressAction("weighing.printMode"));
    QCOMPARE(key->toggleIndex(), 0);
    QVERIFY(!property("printOnlyStable").toBool());
    QVERIFY(m_host->pressAction("weighing.printMode"));
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(property("printOnlyStable").toBool());
}

void TestWeighingPlugin::showsTheWarnings()
{
    start();
    WarnInfo* warnings = nullptr;
    QVERIFY(QMetaObject::invokeMethod(model(), "warnInfo", Q_RETURN_ARG(Brimvale::WarnInfo*, warnings)));
    QVERIFY(!warnings->levellingRequiredVisible());
    m_host->setLevelled(false);
    QVERIFY(warnings->levellingRequiredVisible());
    m_host->setCalibrationWarning("Calibration required");
    QVERIFY(warnings->calibrationRequiredVisible());
    QCOMPARE(warnings->calibrationRequiredText(), QStringLiteral("Calibration required"));
}

void TestWeighingPlugin::takesEverythingBackAtTheClose()
{
    start();
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
    m_host->clearCalls();
    weigh(reading(1.0)); // nobody listens any more
    QVERIFY(m_host->calls().isEmpty());
}

void TestWeighingPlugin::startsAgainAfterTheClose()
{
    for (int round = 0; round < 3; ++round) {
        start();
        weigh(reading(10.0 * round));
        QCOMPARE(display()->property("messwert").toString(), QString::number(10.0 * round, 'f', 1));
        QCOMPARE(m_host->actions().size(), 4);
        QVERIFY(m_host->close(*m_plugin));
    }
}

void TestWeighingPlugin::speaksGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(WEIGHING_TRANSLATION)));
    start();
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo();
    const QString name = m_plugin->GetPluginName(true);
    const QString untranslated = m_plugin->GetPluginName(false);
    const QString key = action(QStringLiteral("weighing.clearTare"))->name();
    const QString title = m_host->infoItems().first()->property("itemValueTitle").toString();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(name, QStringLiteral("Wägen"));
    QCOMPARE(untranslated, QStringLiteral("Weighing"));
    QCOMPARE(key, QStringLiteral("Tara löschen"));
    QCOMPARE(title, QStringLiteral("Brutto"));
}

QTEST_GUILESS_MAIN(TestWeighingPlugin)
#include "tst_weighingplugin.moc"
