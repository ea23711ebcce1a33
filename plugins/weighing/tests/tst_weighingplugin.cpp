// SPDX-License-Identifier: BSD-3-Clause
#include "WeighingPlugin.h"

#include <QSignalSpy>
#include <QtTest>

#include <ActionBaseToggle.h>
#include <IAction.h>
#include <IPrintableItem.h>
#include <ISystemRegister.h>
#include <ITrigger.h>
#include <InfoboxListItem.h>
#include <LoadChange.h>
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
    void minimumIsInGramsWhateverTheUnit();
    void printsNoOverflow();
    void printsByItself_data();
    void printsByItself();
    void thresholdStaysInGrams();
    void automaticKeyTogglesTheSetting();
    void unusableThresholdSwitchesTheAutomaticOff();
    void showsTheWarnings();
    void takesEverythingBackAtTheClose();
    void startsAgainAfterTheClose();
    void speaksGerman();
    void offersItsPrintItems_data();
    void offersItsPrintItems();
    void printItemsPrint_data();
    void printItemsPrint();
    void answersOnTheDataInterface();
    void printsWhatIsTransferred();
    void printItemsSpeakGerman();
    void taringFiresTheTrigger();
    void ownsTheProtocolMenu();

private:
    void start();
    void weigh(const MesswertData& current);
    QObject* model() const { return m_host->contextObject("weighing"); }
    QVariant property(const char* name) const { return model()->property(name); }
    QObject* display() const { return property("messwertInfo").value<QObject*>(); }
    IAction* action(const QString& uid) const;
    IPrintableItem* item(const QString& uid) const;
    QStringList print(const QString& uid);

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

IPrintableItem* TestWeighingPlugin::item(const QString& uid) const
{
    const QList<IPrintableItem*> items = m_host->printItems();
    for (IPrintableItem* item : items) {
        if (item->getUId() == QLatin1String("weighing.") + uid) {
            return item;
        }
    }
    return nullptr;
}

/// What the item asks of formatter and printer, layouts and results left out.
QStringList TestWeighingPlugin::print(const QString& uid)
{
    IPrintableItem* const printed = item(uid);
    if (printed == nullptr) {
        return QStringList(QStringLiteral("there is no such item"));
    }
    printed->setValue();
    m_host->clearCalls();
    printed->Print(m_host->printer(), m_host->formatter());
    return m_host->callsTo("IFormat");
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
                                  QStringLiteral("weighing.printMode Stable only"),
                                  QStringLiteral("weighing.automatic Automatic")};
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

void TestWeighingPlugin::minimumIsInGramsWhateverTheUnit()
{
    start();
    m_plugin->SetProfileItem(WeighingPlugin::MinimumWeight, 50.0, QString());
    MesswertData kilograms = reading(0.06);
    kilograms.unit = QStringLiteral("kg");
    weigh(kilograms);
    m_plugin->onDoPrint();
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::Printed));
    kilograms.value = 0.04;
    weigh(kilograms);
    m_plugin->onDoPrint();
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::BelowMinimum));
}

void TestWeighingPlugin::printsNoOverflow()
{
    start();
    MesswertData overflow = reading(1234567.89);
    overflow.messwert = QStringLiteral("OF");
    overflow.unit.clear();
    weigh(overflow);
    m_plugin->onDoPrint();
    QCOMPARE(property("printState").toInt(), int(WeighingViewModel::NoWeight));
    QCOMPARE(property("transferCount").toInt(), 0);
}

void TestWeighingPlugin::printsByItself_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QVector<double>>("loads");
    QTest::addColumn<int>("printed");
    using Loads = QVector<double>;
    QTest::newRow("off") << "off" << Loads{0, 100, 0, 200} << 0;
    QTest::newRow("unknown") << "sometimes" << Loads{0, 100} << 0;
    QTest::newRow("absolute") << "absolute" << Loads{0, 100, 0, 200} << 2;
    QTest::newRow("absolute, inside the band") << "absolute" << Loads{0, 100, 105, 95} << 1;
    QTest::newRow("percent") << "percent" << Loads{0, 100, 105, 200} << 2;
    QTest::newRow("absolute, fixed") << "absolute-fixed" << Loads{0, 100, 0, 103, 0, 120} << 1;
    QTest::newRow("no load") << "absolute" << Loads{0, -10, 1.5} << 0;
}

void TestWeighingPlugin::printsByItself()
{
    QFETCH(QString, mode);
    QFETCH(QVector<double>, loads);
    m_host->answer("ISystem::GetDecimals", 1);
    m_host->answer("ISystemRegister::GetRegisterValue(90)", 60000.0);
    start();
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticThreshold, 5.0, QString());
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticMode, mode, QString());
    QObject* const weighing = dynamic_cast<QObject*>(m_host->system()->GetWeighing());
    int counter = 0;
    for (const double load : loads) {
        // The load moves, then it is stable.
        m_host->answer("ISystemRegister::GetRegisterValue(74)", load * 10.0);
        weigh(reading(load, false));
        QVERIFY(QMetaObject::invokeMethod(weighing, "NotifyLoadChanged", Q_ARG(int, ++counter),
                                          Q_ARG(double, load * 10.0)));
        weigh(reading(load));
    }
    QTEST(property("transferCount").toInt(), "printed");
}

void TestWeighingPlugin::thresholdStaysInGrams()
{
    m_host->answer("ISystem::GetDecimals", 0);
    m_host->answer("ISystemRegister::GetRegisterValue(90)", 60000.0);
    start();
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticMode, QStringLiteral("absolute"), QString());
    const auto* const detector = model()->findChild<LoadChange*>();
    QCOMPARE(detector->range(), 5u);
    // A scale that was not connected yet.
    m_host->answer("ISystem::GetDecimals", 2);
    weigh(reading(1000.0)); // 10000 in the register
    QCOMPARE(detector->range(), 500u);
    QCOMPARE(detector->bandLow(), 9500);
    QCOMPARE(detector->bandHigh(), 10500);
    QCOMPARE(property("transferCount").toInt(), 0); // what lies there already is no change
}

void TestWeighingPlugin::automaticKeyTogglesTheSetting()
{
    m_host->answer("ISystem::GetDecimals", 1);
    m_host->answer("ISystemRegister::GetRegisterValue(90)", 60000.0);
    start();
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticThreshold, 10.0, QString());
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticMode, QStringLiteral("percent"), QString());
    auto* const key = dynamic_cast<ActionBaseToggle*>(action(QStringLiteral("weighing.automatic")));
    auto* const detector = model()->findChild<LoadChange*>();
    QVERIFY(key && detector);
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(m_host->pressAction("weighing.automatic"));
    QCOMPARE(key->toggleIndex(), 0);
    QVERIFY(!detector->isActive());
    QVERIFY(m_host->pressAction("weighing.automatic"));
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(detector->isActive());
    QCOMPARE(detector->mode(), ILoadChange::Percent);
}

void TestWeighingPlugin::unusableThresholdSwitchesTheAutomaticOff()
{
    m_host->answer("ISystem::GetDecimals", 1);
    m_host->answer("ISystemRegister::GetRegisterValue(90)", 60000.0);
    start();
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticThreshold, 100.0, QString());
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticMode, QStringLiteral("percent"), QString());
    QCOMPARE(dynamic_cast<ActionBaseToggle*>(action(QStringLiteral("weighing.automatic")))->toggleIndex(), 0);
    QVERIFY(!model()->findChild<LoadChange*>()->isActive());
    QVERIFY(property("automaticRefused").toBool());

    m_plugin->SetProfileItem(WeighingPlugin::AutomaticThreshold, 5.0, QString());
    QVERIFY(model()->findChild<LoadChange*>()->isActive());
    QVERIFY(!property("automaticRefused").toBool());

    m_plugin->SetProfileItem(WeighingPlugin::AutomaticThreshold, 0.0, QString());
    QVERIFY(property("automaticRefused").toBool());
    m_plugin->SetProfileItem(WeighingPlugin::AutomaticMode, QStringLiteral("off"), QString());
    QVERIFY(!property("automaticRefused").toBool());
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
        QCOMPARE(m_host->actions().size(), 5);
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

void TestWeighingPlugin::offersItsPrintItems_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("category");
    QTest::addColumn<int>("rank");
    QTest::addColumn<int>("area");
    const int header = int(ProtocolArea::Header);
    const int body = int(ProtocolArea::Body);
    const int footer = int(ProtocolArea::Footer);
    const int sics = int(ProtocolArea::Sics);
    QTest::newRow("title") << "1title"
                           << "Title"
                           << "Weighing" << 0 << header;
    QTest::newRow("place") << "2place"
                           << "Place"
                           << "Weighing" << 0 << header;
    QTest::newRow("current") << "1current"
                             << "Current measurement"
                             << "Measurement" << 2 << body;
    QTest::newRow("gross") << "2gross"
                           << "Gross"
                           << "Measurement" << 2 << body;
    QTest::newRow("tare") << "3tare"
                          << "Tare weight"
                          << "Measurement" << 2 << body;
    QTest::newRow("net") << "4net"
                         << "Net"
                         << "Measurement" << 2 << body;
    QTest::newRow("number") << "5number"
                            << "Weighing no."
                            << "Weighing" << 3 << body;
    QTest::newRow("previous") << "6previous"
                              << "Previous weighing"
                              << "Weighing" << 3 << body;
    QTest::newRow("minimum") << "7minimum"
                             << "Minimum weight"
                             << "Weighing" << 3 << body;
    QTest::newRow("capacity") << "8capacity"
                              << "Capacity"
                              << "Weighing" << 10 << body;
    QTest::newRow("signature") << "9signature"
                               << "Signature"
                               << "General" << 7 << footer;
    QTest::newRow("SICS answer") << "sics"
                                 << "Current measurement"
                                 << "Measurement" << 2 << sics;
}

void TestWeighingPlugin::offersItsPrintItems()
{
    QFETCH(QString, uid);
    QFETCH(int, area);
    QVERIFY(m_host->printItems().isEmpty()); // from start to close only
    start();
    QCOMPARE(m_host->printItems().size(), 12);
    const IPrintableItem* const offered = item(uid);
    QVERIFY(offered != nullptr);
    QTEST(offered->getName(), "name");
    QTEST(offered->getCategory(), "category");
    QTEST(offered->getRank(), "rank");
    for (const ProtocolArea each :
         {ProtocolArea::Header, ProtocolArea::Body, ProtocolArea::Footer, ProtocolArea::Sics}) {
        QCOMPARE(offered->isAvailableIn(each), int(each) == area);
    }
    QVERIFY(offered->isEnabled(ProtocolType::Measurement | ProtocolType::Series));
    QVERIFY(!offered->isEnabled(ProtocolType::Calibration));
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->printItems().isEmpty());
    QVERIFY(m_host->triggers().isEmpty());
}

void TestWeighingPlugin::printItemsPrint_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("call"); ///< The last call of the formatter.
    QTest::newRow("title") << "1title"
                           << R"(IFormat::FormatText(0, "Weighing record"))";
    QTest::newRow("place") << "2place"
                           << R"(IFormat::FormatDescriptionText(0, "Place", "______________"))";
    QTest::newRow("number") << "5number"
                            << R"(IFormat::FormatNameValueUnit(0, "Weighing no.", "0", ""))";
    QTest::newRow("minimum") << "7minimum"
                             << R"(IFormat::FormatNameValueUnit(0, "Minimum weight", "0", "g"))";
    QTest::newRow("capacity") << "8capacity"
                              << R"(IFormat::FormatDescriptionText(0, "Capacity", "60000 d"))";
    QTest::newRow("signature") << "9signature"
                               << R"(IFormat::FormatDescriptionText(0, "Signature", "______________"))";
    // A record that nobody fills comes back as it was; the two flag bytes are set by the items of registers.
    QTest::newRow("gross") << "2gross"
                           << R"(IFormat::FormatNameValue(0, "Gross", FormattedValue(valueMark=32), false))";
    QTest::newRow("tare")
        << "3tare"
        << R"(IFormat::FormatNameValue(0, "Tare weight", FormattedValue(valueMark=32), false))";
    QTest::newRow("net") << "4net"
                         << R"(IFormat::FormatNameValue(0, "Net", FormattedValue(valueMark=32), false))";
    QTest::newRow("current")
        << "1current"
        << R"(IFormat::FormatNameValue(0, "Current measurement", FormattedValue(), false))";
    QTest::newRow("previous")
        << "6previous"
        << R"(IFormat::FormatNameValue(0, "Previous weighing", FormattedValue(), false))";
}

void TestWeighingPlugin::printItemsPrint()
{
    QFETCH(QString, uid);
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 60000.0);
    start();
    const QStringList calls = print(uid);
    QVERIFY(!calls.isEmpty());
    QTEST(calls.last(), "call");
    QCOMPARE(m_host->callsTo("IPrinter::PrintLine").size(), 1);
}

void TestWeighingPlugin::answersOnTheDataInterface()
{
    start();
    weigh(reading(36.4));
    const QStringList calls = print(QStringLiteral("sics"));
    QCOMPARE(calls.size(), 2);
    QVERIFY2(calls.first().contains(QStringLiteral("messwert=\"36.4\"")), qPrintable(calls.first()));
    QVERIFY2(calls.last().startsWith(QStringLiteral("IFormat::FormatValue(0, ")), qPrintable(calls.last()));
}

void TestWeighingPlugin::printsWhatIsTransferred()
{
    start();
    weigh(reading(100.0));
    QVERIFY(m_host->pressPrint(*m_plugin));
    weigh(reading(200.0));
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(print(QStringLiteral("5number")).last(),
             QStringLiteral(R"(IFormat::FormatNameValueUnit(0, "Weighing no.", "2", ""))"));
    QVERIFY(print(QStringLiteral("6previous")).first().contains(QStringLiteral("messwert=\"100.0\"")));
    QVERIFY(print(QStringLiteral("1current")).first().contains(QStringLiteral("messwert=\"200.0\"")));
}

void TestWeighingPlugin::printItemsSpeakGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(WEIGHING_TRANSLATION)));
    start();
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo(); // the items stay, their texts change
    const QString title = print(QStringLiteral("1title")).last();
    const QString gross = print(QStringLiteral("2gross")).last();
    const QString number = print(QStringLiteral("5number")).last();
    const QString trigger = m_host->triggers().first()->getName();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(title, QStringLiteral(R"(IFormat::FormatText(0, "Wägeprotokoll"))"));
    QVERIFY2(gross.contains(QStringLiteral("\"Brutto\"")), qPrintable(gross));
    QVERIFY2(number.contains(QStringLiteral("\"Wägung Nr.\"")), qPrintable(number));
    QCOMPARE(trigger, QStringLiteral("Tarieren"));
}

void TestWeighingPlugin::taringFiresTheTrigger()
{
    start();
    QCOMPARE(m_host->triggers().size(), 1);
    QObject* const trigger = dynamic_cast<QObject*>(m_host->triggers().first());
    QSignalSpy fired(trigger, SIGNAL(notifyTriggered(QString)));
    m_host->answer("IWeighing::Tare", false);
    QVERIFY(m_host->pressAction("weighing.tare"));
    QCOMPARE(fired.count(), 0);
    m_host->answer("IWeighing::Tare", true);
    QVERIFY(m_host->pressAction("weighing.tare"));
    QCOMPARE(fired.count(), 1);
    QCOMPARE(fired.first().first().toString(), QStringLiteral("weighing.tare"));
}

void TestWeighingPlugin::ownsTheProtocolMenu()
{
    QCOMPARE(m_plugin->GetProtocolMenu(), m_host->protocolMenu());
    QCOMPARE(
        m_host->callsTo("IProtocolMenuFactory"),
        QStringList(QStringLiteral("IProtocolMenuFactory::CreateProtocolMenu(\"Print-outs\", 0, false)")));
    // With the plug-in its menu goes: the next plug-in gets another, and nothing is deleted twice.
    m_plugin = std::make_unique<WeighingPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    QCOMPARE(m_plugin->GetProtocolMenu(), m_host->protocolMenu());
}

QTEST_GUILESS_MAIN(TestWeighingPlugin)
#include "tst_weighingplugin.moc"
