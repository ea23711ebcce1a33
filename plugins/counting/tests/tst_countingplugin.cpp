// SPDX-License-Identifier: BSD-3-Clause
#include "CountingMenu.h"
#include "CountingPlugin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <IAction.h>
#include <IMenuList.h>
#include <IPrintableItem.h>
#include <ISystemRegister.h>
#include <TestKit/RecordingHost.h>

using namespace Brimvale;

namespace
{

MesswertData reading(double value, bool stable = true, int decimals = 1)
{
    MesswertData data;
    data.value = value;
    data.decimals = decimals;
    data.messwert = QString::number(value, 'f', decimals);
    data.unit = QStringLiteral("g");
    data.isStable = stable;
    return data;
}

MesswertData noWeight(const char* error)
{
    MesswertData data;
    data.isValid = false;
    data.errorText = QString::fromUtf8(error);
    return data;
}

} // namespace

Q_DECLARE_METATYPE(MesswertData)

class TestCountingPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void publishesModelAndScreen();
    void offersItsKeysInOrder();
    void showsTheWeightWithoutAReference();
    void countsWithAReference();
    void referenceIsRefused_data();
    void referenceIsRefused();
    void referenceOfOneIncrement();
    void tellsHowGoodTheReferenceIs_data();
    void tellsHowGoodTheReferenceIs();
    void optimises();
    void optimisingIsRefused_data();
    void optimisingIsRefused();
    void optimisesByItself();
    void doesNotOptimiseByItself_data();
    void doesNotOptimiseByItself();
    void targetFromTheCount();
    void targetIsRefused_data();
    void targetIsRefused();
    void showsTheTarget_data();
    void showsTheTarget();
    void tareAfterTheReference();
    void decimalsOfTheSource_data();
    void decimalsOfTheSource();
    void decimalsThatGrow();
    void hugeCountsAreNoCounts();
    void showsWhatIsWrong_data();
    void showsWhatIsWrong();
    void showsOtherUnits();
    void partsKey_data();
    void partsKey();
    void menuFileAndMenuAgree();
    void menuValues_data();
    void menuValues();
    void usualCount();
    void deletesTheReference();
    void numberPad_data();
    void numberPad();
    void padIsClosed();
    void aMovedLoadEndsTheMessage();
    void printsTheCount();
    void printWaitsForAStableWeight();
    void refusesToPrint_data();
    void refusesToPrint();
    void offersItsValuesForPrintOuts();
    void whatIsEnteredComesBack();
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
    void weigh(double grams) { weigh(reading(grams)); }
    /// Takes a reference with what lies on the scale.
    void takeReference(double grams, int parts)
    {
        model()->chooseParts(parts);
        weigh(grams);
        QVERIFY(m_host->pressAction("counting.reference"));
    }
    /// Sets an item of the menu as the terminal does once the plug-in runs.
    void set(int item, const QVariant& value)
    {
        m_plugin->InitializeProfile();
        QVERIFY(m_plugin->GetPluginMenu()->SetItemValue(item, value));
    }
    QStringList infos() const;
    QStringList printed();
    CountingViewModel* model() const
    {
        return qobject_cast<CountingViewModel*>(m_host->contextObject("counting"));
    }
    MesswertInfo* display() const { return model()->messwertInfo(); }
    QString field(int id) const
    {
        return model()->fields().at(id).toMap().value(QStringLiteral("text")).toString();
    }
    IAction* action(const char* uid) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestKit::RecordingHost> m_host;
    std::unique_ptr<CountingPlugin> m_plugin;
};

void TestCountingPlugin::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("BRIMVALE_PLUGIN_DATA", m_folder->path().toUtf8());
    m_host = std::make_unique<TestKit::RecordingHost>();
    m_plugin = std::make_unique<CountingPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    weigh(0.0);
}

void TestCountingPlugin::cleanup()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin.reset(); // before its host
    m_host.reset();
    qunsetenv("BRIMVALE_PLUGIN_DATA");
}

QStringList TestCountingPlugin::infos() const
{
    QStringList texts;
    const QList<QObject*> items = m_host->infoItems();
    for (const QObject* item : items) {
        texts.append(item->property("itemValue").toString());
    }
    return texts;
}

QStringList TestCountingPlugin::printed()
{
    m_host->clearCalls();
    const QList<IPrintableItem*> items = m_host->printItems();
    for (IPrintableItem* item : items) {
        item->setValue();
        item->Print(m_host->printer(), m_host->formatter());
    }
    return m_host->callsTo("IFormat");
}

IAction* TestCountingPlugin::action(const char* uid) const
{
    const QList<IAction*> actions = m_host->actions();
    for (IAction* action : actions) {
        if (action->uid() == QLatin1String(uid)) {
            return action;
        }
    }
    return nullptr;
}

void TestCountingPlugin::publishesModelAndScreen()
{
    start();
    QVERIFY(model() != nullptr);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/counting/CountingScreen.qml"));
}

void TestCountingPlugin::offersItsKeysInOrder()
{
    start();
    QStringList keys;
    int rank = 0;
    const QList<IAction*> actions = m_host->actions();
    for (const IAction* action : actions) {
        QVERIFY(action->getRank() > rank);
        rank = action->getRank();
        QVERIFY(action->enabled());
        keys.append(action->uid() + QLatin1Char('=') + action->name());
    }
    QCOMPARE(keys, QStringList({QStringLiteral("counting.zero=Zero"), QStringLiteral("counting.tare=Tare"),
                                QStringLiteral("counting.reference=Reference"),
                                QStringLiteral("counting.optimise=Optimise"),
                                QStringLiteral("counting.parts=Parts: 10"),
                                QStringLiteral("counting.target=Count as target"),
                                QStringLiteral("counting.enter=Number pad")}));
}

// Reference --------------------------------------------------------------------------------------------------------

void TestCountingPlugin::showsTheWeightWithoutAReference()
{
    weigh(53.2);
    start(); // without waiting for a reading
    QCOMPARE(display()->messwert(), QStringLiteral("53.2"));
    QCOMPARE(display()->unit(), QStringLiteral("g"));
    QVERIFY(!display()->isCalculated());
    QVERIFY(!display()->messwertKleinVisible());
    const QString none = QStringLiteral("–");
    QCOMPARE(infos(), QStringList({none, none, none, none}));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Put the counted parts on the scale (10 pcs), then press Reference"));
}

void TestCountingPlugin::countsWithAReference()
{
    start();
    takeReference(53.2, 10);
    QCOMPARE(model()->stateText(), QStringLiteral("Reference taken: 10 pcs, 5.32 g each"));
    QCOMPARE(infos(), QStringList({QStringLiteral("5.32 g"), QStringLiteral("10 pcs"),
                                   QStringLiteral("53.2 g"), QStringLiteral("325 pcs")}));
    weigh(reading(266.3, false));
    QCOMPARE(display()->messwert(), QStringLiteral("50"));
    QCOMPARE(display()->unit(), QStringLiteral("pcs"));
    QVERIFY(display()->isCalculated());
    QCOMPARE(display()->stabilityValue(), -1);
    QVERIFY(display()->messwertKleinVisible());
    QCOMPARE(display()->messwertKlein(), QStringLiteral("266.3"));
    weigh(-10.7);
    QCOMPARE(display()->messwert(), QStringLiteral("-2"));
    weigh(-0.1);
    QCOMPARE(display()->messwert(), QStringLiteral("0"));
}

void TestCountingPlugin::referenceIsRefused_data()
{
    QTest::addColumn<MesswertData>("weight");
    QTest::addColumn<QString>("text");
    QTest::newRow("not stable") << reading(53.2, false) << "Not taken: wait until the weight is stable";
    QTest::newRow("zero") << reading(0.0) << "Not taken: the parts weigh less than 0.1 g";
    QTest::newRow("below one increment") << reading(0.04) << "Not taken: the parts weigh less than 0.1 g";
    QTest::newRow("below one increment, milligrams")
        << reading(0.0004, true, 3) << "Not taken: the parts weigh less than 0.001 g";
    QTest::newRow("negative") << reading(-53.2)
                              << "Not taken: the weight is negative. Set zero or tare first.";
    QTest::newRow("overload") << noWeight("Overload") << "Not taken: no valid weight";
    QTest::newRow("cable out") << noWeight("No connection") << "Not taken: no valid weight";
}

void TestCountingPlugin::referenceIsRefused()
{
    QFETCH(MesswertData, weight);
    QFETCH(QString, text);
    start();
    takeReference(100.0, 20);
    weigh(weight);
    QVERIFY(m_host->pressAction("counting.reference"));
    QCOMPARE(model()->stateText(), text);
    QCOMPARE(model()->stateKind(), CountingViewModel::Wrong);
    QCOMPARE(infos().at(2), QStringLiteral("100.0 g")); // the old one stays
}

void TestCountingPlugin::referenceOfOneIncrement()
{
    start();
    takeReference(0.1, 1);
    QCOMPARE(infos().at(0), QStringLiteral("0.1 g"));
    QCOMPARE(infos().at(3), QStringLiteral("–"));
    QCOMPARE(display()->messwert(), QStringLiteral("1"));
}

void TestCountingPlugin::tellsHowGoodTheReferenceIs_data()
{
    QTest::addColumn<double>("weight");
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("text");
    QTest::newRow("good enough") << 53.2 << 10 << 0 << "Reference taken: 10 pcs, 5.32 g each";
    QTest::newRow("as many as it is good for") << 53.2 << 10 << 325 << "Reference taken: 10 pcs, 5.32 g each";
    QTest::newRow("one more")
        << 53.2 << 10 << 326
        << "Reference too small: ± 0.5 at 326 pcs. Add up to 1 parts to it, then press Optimise.";
    QTest::newRow("too small")
        << 5.0 << 10 << 0
        << "Reference too small: ± 1.6 at 100 pcs. Add up to 18 parts to it, then press Optimise.";
    QTest::newRow("fewer are enough")
        << 20.0 << 10 << 150
        << "Reference too small: ± 0.6 at 150 pcs. Add up to 3 parts to it, then press Optimise.";
    QTest::newRow("a large target")
        << 53.2 << 10 << 10000
        << "Reference too small: ± 15 at 10000 pcs. Add up to 298 parts to it, then press Optimise.";
    QTest::newRow("too small to count any more with")
        << 0.2 << 1 << 0 << "The parts are too light for this scale: ± 41 at 100 pcs";
    QTest::newRow("one part too few to go on")
        << 0.3 << 1 << 0 << "Reference too small: ± 27 at 100 pcs. Take a new one with 65 parts.";
    QTest::newRow("too light") << 1.0 << 10 << 0
                               << "The parts are too light for this scale: ± 8.2 at 100 pcs";
}

void TestCountingPlugin::tellsHowGoodTheReferenceIs()
{
    QFETCH(double, weight);
    QFETCH(int, parts);
    QFETCH(int, target);
    start();
    model()->change(CountingSettings::Target, target);
    takeReference(weight, parts);
    QTEST(model()->stateText(), "text");
}

// Optimising -------------------------------------------------------------------------------------------------------

void TestCountingPlugin::optimises()
{
    start();
    takeReference(5.0, 10);
    weigh(13.9);
    QVERIFY(m_host->pressAction("counting.optimise"));
    QCOMPARE(infos(), QStringList({QStringLiteral("0.496 g"), QStringLiteral("28 pcs"),
                                   QStringLiteral("13.9 g"), QStringLiteral("80 pcs")}));
    QCOMPARE(model()->stateKind(), CountingViewModel::Attention); // not yet for a hundred
    weigh(39.2);
    QVERIFY(m_host->pressAction("counting.optimise"));
    QCOMPARE(model()->stateText(), QStringLiteral("Reference optimised: 79 pcs"));
    QCOMPARE(infos().at(1), QStringLiteral("79 pcs"));
    QCOMPARE(field(CountingSettings::Parts), QStringLiteral("10")); // for the next reference
}

void TestCountingPlugin::optimisingIsRefused_data()
{
    QTest::addColumn<double>("reference");
    QTest::addColumn<int>("parts");
    QTest::addColumn<MesswertData>("weight");
    QTest::addColumn<QString>("text");
    QTest::newRow("not stable") << 53.2 << 10 << reading(106.4, false)
                                << "Not taken: wait until the weight is stable";
    QTest::newRow("overload") << 53.2 << 10 << noWeight("Overload") << "Not taken: no valid weight";
    QTest::newRow("negative") << 53.2 << 10 << reading(-53.2)
                              << "Not taken: the weight is negative. Set zero or tare first.";
    QTest::newRow("nothing added") << 53.2 << 10 << reading(53.2)
                                   << "Not optimised: put more than 10 parts on the scale";
    QTest::newRow("taken off") << 53.2 << 10 << reading(5.3)
                               << "Not optimised: put more than 10 parts on the scale";
    QTest::newRow("too many at once")
        << 5.0 << 10 << reading(14.5) << "Not optimised: add at most 18 parts to the reference at once";
    QTest::newRow("no whole number") << 53.2 << 10 << reading(77.1)
                                     << "Not optimised: 14.49 is no whole number of parts";
    QTest::newRow("just above a quarter")
        << 100.0 << 10 << reading(152.6) << "Not optimised: 15.26 is no whole number of parts";
    QTest::newRow("a quarter is whole enough")
        << 100.0 << 10 << reading(152.5) << "Reference optimised: 15 pcs";
    QTest::newRow("reference too small")
        << 0.2 << 1 << reading(0.4)
        << "Not optimised: the reference is too small. Take a new one with more parts.";
}

void TestCountingPlugin::optimisingIsRefused()
{
    QFETCH(double, reference);
    QFETCH(int, parts);
    QFETCH(MesswertData, weight);
    start();
    QVERIFY(m_host->pressAction("counting.optimise"));
    QCOMPARE(model()->stateText(), QStringLiteral("Take a reference first"));
    takeReference(reference, parts);
    weigh(weight);
    QVERIFY(m_host->pressAction("counting.optimise"));
    QTEST(model()->stateText(), "text");
    const bool isRefused = model()->stateKind() == CountingViewModel::Wrong;
    QCOMPARE(infos().at(1), isRefused ? QStringLiteral("%1 pcs").arg(parts) : QStringLiteral("15 pcs"));
}

void TestCountingPlugin::optimisesByItself()
{
    start();
    takeReference(53.2, 10);
    weigh(106.4);
    QCOMPARE(infos().at(1), QStringLiteral("10 pcs"));
    set(CountingMenu::OptimiseByItself, true); // the parts are there already
    QCOMPARE(infos().at(1), QStringLiteral("20 pcs"));
    weigh(reading(159.6, false));
    QCOMPARE(infos().at(1), QStringLiteral("20 pcs"));
    weigh(159.6);
    QCOMPARE(infos().at(1), QStringLiteral("30 pcs"));
    QCOMPARE(model()->stateText(), QStringLiteral("Reference optimised: 30 pcs"));
    set(CountingMenu::OptimiseByItself, false);
    weigh(212.8);
    QCOMPARE(infos().at(1), QStringLiteral("30 pcs"));
}

void TestCountingPlugin::doesNotOptimiseByItself_data()
{
    QTest::addColumn<MesswertData>("weight");
    QTest::newRow("not stable") << reading(10.0, false);
    QTest::newRow("no whole number") << reading(7.3);
    QTest::newRow("too many at once") << reading(14.5);
    QTest::newRow("taken off") << reading(2.5);
    QTest::newRow("negative") << reading(-10.0);
    QTest::newRow("overload") << noWeight("Overload");
}

void TestCountingPlugin::doesNotOptimiseByItself()
{
    QFETCH(MesswertData, weight);
    start();
    set(CountingMenu::OptimiseByItself, true);
    weigh(weight); // without a reference neither
    QCOMPARE(infos().at(1), QStringLiteral("–"));
    takeReference(5.0, 10);
    weigh(weight);
    QCOMPARE(infos().at(1), QStringLiteral("10 pcs"));
    QVERIFY(model()->stateKind() != CountingViewModel::Wrong); // nobody has pressed a key
}

// Target -----------------------------------------------------------------------------------------------------------

void TestCountingPlugin::targetFromTheCount()
{
    start();
    takeReference(53.2, 10);
    weigh(106.3);
    QVERIFY(m_host->pressAction("counting.target"));
    QCOMPARE(field(CountingSettings::Target), QStringLiteral("20"));
    QCOMPARE(model()->stateText(), QStringLiteral("Target: 20 pcs"));
    QCOMPARE(model()->checkText(), QStringLiteral("Target reached"));
    weigh(0.0);
    QVERIFY(m_host->pressAction("counting.target"));
    QCOMPARE(field(CountingSettings::Target), QStringLiteral("none"));
    QCOMPARE(model()->stateText(), QStringLiteral("There is no target any more"));
    QCOMPARE(model()->checkText(), QString());
}

void TestCountingPlugin::targetIsRefused_data()
{
    QTest::addColumn<MesswertData>("weight");
    QTest::addColumn<QString>("text");
    QTest::newRow("not stable") << reading(53.2, false) << "Not taken: wait until the weight is stable";
    QTest::newRow("negative") << reading(-53.2)
                              << "Not taken: the weight is negative. Set zero or tare first.";
    QTest::newRow("cable out") << noWeight("No connection") << "Not taken: no valid weight";
    QTest::newRow("too many pieces") << reading(1e12) << "Not taken: no valid count";
}

void TestCountingPlugin::targetIsRefused()
{
    QFETCH(MesswertData, weight);
    start();
    QVERIFY(m_host->pressAction("counting.target"));
    QCOMPARE(model()->stateText(), QStringLiteral("Take a reference first"));
    takeReference(53.2, 10);
    model()->change(CountingSettings::Target, 7);
    weigh(weight);
    QVERIFY(m_host->pressAction("counting.target"));
    QTEST(model()->stateText(), "text");
    QCOMPARE(field(CountingSettings::Target), QStringLiteral("7"));
}

void TestCountingPlugin::showsTheTarget_data()
{
    QTest::addColumn<MesswertData>("weight");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("under") << reading(97.0) << int(CountingViewModel::Attention) << "3 missing";
    QTest::newRow("reached") << reading(98.0) << int(CountingViewModel::Well) << "Target reached";
    QTest::newRow("over") << reading(104.0) << int(CountingViewModel::Wrong) << "4 too many";
    QTest::newRow("negative") << reading(-2.0) << int(CountingViewModel::Attention) << "102 missing";
    QTest::newRow("overload") << noWeight("Overload") << int(CountingViewModel::Plain) << "";
}

void TestCountingPlugin::showsTheTarget()
{
    QFETCH(MesswertData, weight);
    start();
    takeReference(10.0, 10);
    model()->change(CountingSettings::Target, 100);
    model()->change(CountingSettings::Tolerance, 2);
    weigh(weight);
    QTEST(int(model()->checkKind()), "kind");
    QTEST(model()->checkText(), "text");
}

// Weights ----------------------------------------------------------------------------------------------------------

void TestCountingPlugin::tareAfterTheReference()
{
    start();
    takeReference(53.2, 10);
    MesswertData net = reading(0.0);
    net.net = true;
    net.isPresetTare = true;
    net.tareValue = 53.2;
    weigh(net);
    QCOMPARE(display()->messwert(), QStringLiteral("0"));
    QVERIFY(display()->netVisible());
    QVERIFY(display()->ptVisible());
    net.value = 26.6;
    weigh(net);
    QCOMPARE(display()->messwert(), QStringLiteral("5")); // the piece weight is that of before
    net.value = -53.2;
    weigh(net);
    QCOMPARE(display()->messwert(), QStringLiteral("-10"));
    QCOMPARE(infos().at(0), QStringLiteral("5.32 g"));
}

void TestCountingPlugin::decimalsOfTheSource_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("weight");
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("rightUpTo");
    QTest::newRow("whole grams") << 0 << 5320.0 << "532.0 g"
                                 << "3257 pcs";
    QTest::newRow("tenths") << 1 << 53.2 << "5.32 g"
                            << "325 pcs";
    QTest::newRow("hundredths") << 2 << 53.2 << "5.320 g"
                                << "3257 pcs";
    QTest::newRow("milligrams") << 3 << 53.2 << "5.3200 g"
                                << "32578 pcs";
    QTest::newRow("tenths of a milligram") << 4 << 0.532 << "0.05320 g"
                                           << "3257 pcs";
    QTest::newRow("a weight too long for all decimals") << 4 << 81234567.0 << "8123456.7 g"
                                                        << "999999999 pcs";
}

void TestCountingPlugin::decimalsOfTheSource()
{
    QFETCH(int, decimals);
    QFETCH(double, weight);
    start();
    weigh(reading(weight, true, decimals));
    QVERIFY(m_host->pressAction("counting.reference"));
    QTEST(infos().at(0), "piece");
    QTEST(infos().at(3), "rightUpTo");
    weigh(reading(weight * 2.5, true, decimals));
    QCOMPARE(display()->messwert(), QStringLiteral("25"));
}

void TestCountingPlugin::decimalsThatGrow()
{
    start();
    takeReference(10.0, 10);
    weigh(reading(2.4999, true, 4));
    QCOMPARE(display()->messwert(), QStringLiteral("2"));
    weigh(reading(2.5, true, 4));
    QCOMPARE(display()->messwert(), QStringLiteral("3"));
}

void TestCountingPlugin::hugeCountsAreNoCounts()
{
    start();
    takeReference(0.1, 100);
    weigh(999999.9);
    QCOMPARE(display()->messwert(), QStringLiteral("999999900"));
    QVERIFY(display()->isValid());
    weigh(1000000.0);
    QCOMPARE(display()->errorText(), QStringLiteral("Too many pieces"));
    QVERIFY(!display()->isValid());
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateText(), QStringLiteral("Not sent: no valid count"));
}

void TestCountingPlugin::showsWhatIsWrong_data()
{
    QTest::addColumn<bool>("withReference");
    QTest::addColumn<MesswertData>("weight");
    QTest::newRow("overload") << true << noWeight("Overload");
    QTest::newRow("cable out") << true << noWeight("No connection");
    QTest::newRow("cable out without a reference") << false << noWeight("No connection");
}

void TestCountingPlugin::showsWhatIsWrong()
{
    QFETCH(bool, withReference);
    QFETCH(MesswertData, weight);
    start();
    if (withReference) {
        takeReference(53.2, 10);
    }
    const QStringList before = infos();
    weigh(weight);
    QCOMPARE(display()->errorText(), weight.errorText);
    QVERIFY(!display()->isValid());
    QVERIFY(!display()->messwertKleinVisible());
    QCOMPARE(infos(), before); // the reference is as good as before
    weigh(53.2);
    QCOMPARE(display()->errorText(), QString());
    QVERIFY(display()->isValid());
}

void TestCountingPlugin::showsOtherUnits()
{
    start();
    takeReference(53.2, 10);
    MesswertData carat = reading(1330.0);
    carat.unit = QStringLiteral("ct");
    m_host->answer("ISystem::GetCurrentUnit", 8);
    m_host->answer("IRegisterValueProvider::GetMesswert(8, 74)", carat);
    m_host->answer("IRegisterValueProvider::GetMesswert(0, 74)", reading(266.0));
    m_host->emitNewMeasurement(2660.0);
    QCOMPARE(display()->messwert(), QStringLiteral("50")); // as in grams
    QCOMPARE(display()->messwertKlein(), QStringLiteral("1330.0"));
    QCOMPARE(display()->unitKlein(), QStringLiteral("ct"));
    QCOMPARE(infos().at(0), QStringLiteral("26.60 ct"));
    QCOMPARE(infos().at(2), QStringLiteral("266.0 ct"));
}

// Settings ---------------------------------------------------------------------------------------------------------

void TestCountingPlugin::partsKey_data()
{
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("next");
    QTest::newRow("up") << 10 << 20;
    QTest::newRow("from the last to the first") << 100 << 5;
    QTest::newRow("from another number") << 25 << 50;
    QTest::newRow("from a larger one") << 9999 << 5;
    QTest::newRow("from one") << 1 << 5;
}

void TestCountingPlugin::partsKey()
{
    QFETCH(int, parts);
    QFETCH(int, next);
    start();
    model()->chooseParts(parts);
    QCOMPARE(action("counting.parts")->name(), QStringLiteral("Parts: %1").arg(parts));
    QVERIFY(m_host->pressAction("counting.parts"));
    QCOMPARE(model()->parts(), next);
    QCOMPARE(action("counting.parts")->name(), QStringLiteral("Parts: %1").arg(next));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Put the counted parts on the scale (%1 pcs), then press Reference").arg(next));
}

void TestCountingPlugin::menuFileAndMenuAgree()
{
    QFile file(QStringLiteral(COUNTING_MENU));
    QVERIFY(file.open(QIODevice::ReadOnly));
    IMenuList* const menu = m_plugin->GetPluginMenu();
    QCOMPARE(menu->GetMenuFilePath(), QStringLiteral(":/counting/menu.json"));
    const QJsonArray items =
        QJsonDocument::fromJson(file.readAll()).object().value(QStringLiteral("items")).toArray();
    QList<int> ids;
    for (const QJsonValue& item : items) {
        const int id = item[QStringLiteral("id")].toInt();
        ids.append(id);
        if (item[QStringLiteral("kind")] != QStringLiteral("command")) {
            QVERIFY(menu->IsItemValueValid(id, item[QStringLiteral("default")].toVariant()));
        }
    }
    QCOMPARE(ids, QList<int>({CountingMenu::UsualCount, CountingMenu::OptimiseByItself,
                              CountingMenu::DeleteReference}));
}

void TestCountingPlugin::menuValues_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("usual count") << int(CountingMenu::UsualCount) << QVariant(500) << true;
    QTest::newRow("usual count of none") << int(CountingMenu::UsualCount) << QVariant(0) << false;
    QTest::newRow("largest usual count") << int(CountingMenu::UsualCount) << QVariant(999999999) << true;
    QTest::newRow("too large") << int(CountingMenu::UsualCount) << QVariant(1000000000) << false;
    QTest::newRow("a word") << int(CountingMenu::UsualCount) << QVariant(QStringLiteral("many")) << false;
    QTest::newRow("by itself") << int(CountingMenu::OptimiseByItself) << QVariant(true) << true;
    QTest::newRow("a command has no value") << int(CountingMenu::DeleteReference) << QVariant(true) << false;
    QTest::newRow("no such item") << 99 << QVariant(1) << false;
}

void TestCountingPlugin::menuValues()
{
    QFETCH(int, item);
    QFETCH(QVariant, value);
    QFETCH(bool, accepted);
    IMenuList* const menu = m_plugin->GetPluginMenu();
    QCOMPARE(menu->IsItemValueValid(item, value), accepted);
    QCOMPARE(menu->SetItemValue(item, value), accepted);
    QCOMPARE(menu->GetItemValue(item), accepted ? value : QVariant());
}

void TestCountingPlugin::usualCount()
{
    start();
    takeReference(53.2, 10);
    weigh(reading(53.2, false));
    QCOMPARE(model()->stateText(), QStringLiteral("Counts are right up to 325 pcs"));
    set(CountingMenu::UsualCount, 326);
    QCOMPARE(model()->stateKind(), CountingViewModel::Attention);
    model()->change(CountingSettings::Target, 50); // counts in its place
    QCOMPARE(model()->stateText(), QStringLiteral("Counts are right up to 325 pcs"));
}

void TestCountingPlugin::deletesTheReference()
{
    start();
    IMenuList* const menu = m_plugin->GetPluginMenu();
    QVERIFY(!menu->IsItemEnabled(CountingMenu::DeleteReference, nullptr));
    takeReference(53.2, 10);
    QVERIFY(menu->IsItemEnabled(CountingMenu::DeleteReference, nullptr));
    menu->ExecuteCommand(CountingMenu::DeleteReference, nullptr);
    QCOMPARE(model()->stateText(), QStringLiteral("Reference deleted"));
    QCOMPARE(display()->messwert(), QStringLiteral("53.2"));
    CountingSettings kept;
    QVERIFY(kept.load(CountingPlugin::fileName()));
    QVERIFY(!kept.reference().isValid());
    QVERIFY(m_host->close(*m_plugin));
    menu->ExecuteCommand(CountingMenu::DeleteReference, nullptr); // not running: nothing happens
}

void TestCountingPlugin::numberPad_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("value");
    const int parts = CountingSettings::Parts;
    const int target = CountingSettings::Target;
    QTest::newRow("parts") << parts << "25"
                           << "25" << true << "25";
    QTest::newRow("no parts") << parts << "0"
                              << "0" << false << "10";
    QTest::newRow("nothing") << parts << ""
                             << "" << false << "10";
    QTest::newRow("too many parts") << parts << "10000"
                                    << "10000" << false << "10";
    QTest::newRow("taken off") << parts << "257<<<<46"
                               << "46" << true << "46";
    QTest::newRow("leading zeros") << parts << "0025"
                                   << "0025" << true << "25";
    QTest::newRow("target") << target << "500"
                            << "500" << true << "500";
    QTest::newRow("target taken back") << target << "0"
                                       << "0" << true << "none";
    QTest::newRow("nine digits at most") << target << "99999999999"
                                         << "999999999" << true << "999999999";
    QTest::newRow("tolerance") << int(CountingSettings::Tolerance) << "3"
                               << "3" << true << "± 3";
}

void TestCountingPlugin::numberPad()
{
    QFETCH(int, id);
    QFETCH(QString, keys);
    QFETCH(bool, accepted);
    start();
    model()->openEntry(id);
    for (const QChar key : keys) {
        model()->type(QString(key));
    }
    QTEST(model()->entry(), "entry");
    QCOMPARE(model()->entryAcceptable(), accepted);
    model()->acceptEntry();
    QCOMPARE(model()->editing(), !accepted); // what cannot be accepted stays
    QTEST(field(id), "value");
}

void TestCountingPlugin::padIsClosed()
{
    start();
    QVERIFY(m_host->pressAction("counting.enter"));
    QVERIFY(model()->editing());
    QCOMPARE(action("counting.enter")->name(), QStringLiteral("Close pad"));
    model()->type(QStringLiteral("3"));
    QVERIFY(m_host->pressAction("counting.enter"));
    QVERIFY(!model()->editing());
    QCOMPARE(action("counting.enter")->name(), QStringLiteral("Number pad"));
    QCOMPARE(model()->parts(), 10);
    model()->type(QStringLiteral("3")); // nobody listens
    QCOMPARE(model()->entry(), QString());

    model()->openEntry(CountingSettings::Target);
    QVERIFY(m_host->pressAction("counting.parts"));
    QVERIFY(!model()->editing());
    model()->openEntry(CountingSettings::Target);
    QVERIFY(m_host->pressAction("counting.reference")); // its message must be seen
    QVERIFY(!model()->editing());
    model()->openEntry(CountingSettings::Target);
    QVERIFY(m_plugin->SetupView());
    QVERIFY(!model()->editing());
    model()->openEntry(CountingSettings::Count); // there is no such value
    QVERIFY(!model()->editing());
}

void TestCountingPlugin::aMovedLoadEndsTheMessage()
{
    start();
    QVERIFY(m_host->pressAction("counting.reference"));
    QCOMPARE(model()->stateKind(), CountingViewModel::Wrong);
    weigh(0.0);
    QCOMPARE(model()->stateKind(), CountingViewModel::Wrong);
    weigh(reading(20.0, false));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Put the counted parts on the scale (10 pcs), then press Reference"));
    QVERIFY(m_host->pressAction("counting.reference"));
    QCOMPARE(model()->stateText(), QStringLiteral("Not taken: wait until the weight is stable"));
    weigh(53.2);
    QCOMPARE(model()->stateText(), QStringLiteral("Not taken: wait until the weight is stable"));
}

// Printing ---------------------------------------------------------------------------------------------------------

void TestCountingPlugin::printsTheCount()
{
    start();
    takeReference(53.2, 10);
    MesswertData net = reading(106.4);
    net.net = true;
    net.tareValue = 12.0;
    net.eichDigit = 1;
    weigh(net);
    m_host->clearCalls();
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(m_host->callsTo("IMeasurementTransfer::TransferMeasurement"),
             QStringList(QStringLiteral(
                 "IMeasurementTransfer::TransferMeasurement(MesswertData(messwert=\"20\", unit=\"pcs\", "
                 "unitPrintName=\"pcs\", value=20, isCalculated=true, isStable=true, net=true), "
                 "MesswertData(), MesswertData())")));
    QCOMPARE(model()->stateText(), QStringLiteral("Count sent"));
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 1);
}

void TestCountingPlugin::printWaitsForAStableWeight()
{
    start();
    takeReference(53.2, 10);
    weigh(reading(90.0, false));
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateKind(), CountingViewModel::Attention);
    QCOMPARE(model()->stateText(), QStringLiteral("Waiting for a stable weight…"));
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 0);
    weigh(106.4);
    weigh(106.4);
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 1);
}

void TestCountingPlugin::refusesToPrint_data()
{
    QTest::addColumn<bool>("withReference");
    QTest::addColumn<MesswertData>("weight");
    QTest::newRow("no reference") << false << reading(53.2);
    QTest::newRow("overload") << true << noWeight("Overload");
    QTest::newRow("cable out") << true << noWeight("No connection");
}

void TestCountingPlugin::refusesToPrint()
{
    QFETCH(bool, withReference);
    QFETCH(MesswertData, weight);
    start();
    if (withReference) {
        takeReference(53.2, 10);
    }
    weigh(weight);
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateText(), QStringLiteral("Not sent: no valid count"));
    QCOMPARE(model()->stateKind(), CountingViewModel::Wrong);
    weigh(100.0); // the request is gone
    QCOMPARE(m_host->callCount("IMeasurementTransfer::TransferMeasurement"), 0);
}

void TestCountingPlugin::offersItsValuesForPrintOuts()
{
    QVERIFY(m_host->printItems().isEmpty()); // from start to close only
    start();
    const auto names = [](const QString& parts) { // a measured value is converted, then laid out
        return QStringList({QStringLiteral("FormatNameValue(0, \"Count\", "),
                            QStringLiteral("FormatNameValue(0, \"Piece weight\", "),
                            QStringLiteral("FormatNameValue(0, \"Net\", "),
                            QStringLiteral("FormatNameValueUnit(0, \"Reference\", %1)").arg(parts)});
    };
    const auto verify = [this](const QStringList& values, const QStringList& names) {
        const QStringList lines = printed();
        QCOMPARE(lines.size(), 7);
        for (int i = 0; i < 3; ++i) {
            QVERIFY2(lines.at(2 * i).contains(values.at(i)), qPrintable(lines.at(2 * i)));
        }
        for (int i = 0; i < 4; ++i) {
            const QString& line = lines.at(qMin(2 * i + 1, 6));
            QVERIFY2(line.contains(names.at(i)), qPrintable(line));
        }
    };
    const QString none = QStringLiteral("errorText=\"No reference\", isValid=false");
    verify({none, none, QStringLiteral("messwert=\"0.0\", unit=\"g\"")},
           names(QStringLiteral("\"-\", \"\"")));
    takeReference(53.2, 10);
    weigh(106.4);
    verify({QStringLiteral("messwert=\"20\", unit=\"pcs\""), QStringLiteral("messwert=\"5.32\", unit=\"g\""),
            QStringLiteral("messwert=\"106.4\", unit=\"g\"")},
           names(QStringLiteral("\"10\", \"pcs\"")));
    const QList<IPrintableItem*> items = m_host->printItems();
    for (const IPrintableItem* item : items) {
        QVERIFY(item->isEnabled(ProtocolType::Measurement));
        QVERIFY(item->isAvailableIn(ProtocolArea::Body));
        QCOMPARE(item->getCategory(), QStringLiteral("Counting"));
    }
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->printItems().isEmpty());
}

// Kept values ------------------------------------------------------------------------------------------------------

void TestCountingPlugin::whatIsEnteredComesBack()
{
    start();
    takeReference(266.0, 50);
    model()->change(CountingSettings::Target, 500);
    QVERIFY(m_host->close(*m_plugin));
    m_plugin = std::make_unique<CountingPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    start();
    QCOMPARE(model()->parts(), 50);
    QCOMPARE(field(CountingSettings::Target), QStringLiteral("500"));
    QCOMPARE(infos().mid(0, 3),
             QStringList({QStringLiteral("5.320 g"), QStringLiteral("50 pcs"), QStringLiteral("266.0 g")}));
    QCOMPARE(display()->messwert(), QStringLiteral("50"));
    QCOMPARE(action("counting.parts")->name(), QStringLiteral("Parts: 50"));
}

void TestCountingPlugin::unreadableValuesAreTold()
{
    QVERIFY(QDir().mkpath(QFileInfo(CountingPlugin::fileName()).path()));
    QFile file(CountingPlugin::fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\nparts=many\ntarget=33\n");
    file.close();
    start();
    const QString text =
        QStringLiteral("Check the values: not all could be read from %1").arg(file.fileName());
    QCOMPARE(model()->stateText(), text);
    QCOMPARE(model()->parts(), 10);
    QCOMPARE(field(CountingSettings::Target), QStringLiteral("33"));
    weigh(reading(5.0, false));
    QCOMPARE(model()->stateText(), text); // a moved load does not end it
}

void TestCountingPlugin::valuesThatCannotBeKept()
{
    QFile inTheWay(QFileInfo(CountingPlugin::fileName()).path());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    start();
    takeReference(53.2, 10);
    const QString text = QStringLiteral("The values cannot be kept in %1").arg(CountingPlugin::fileName());
    QCOMPARE(model()->stateText(), text);
    QCOMPARE(infos().at(1), QStringLiteral("10 pcs")); // in force until the close
    QVERIFY(m_host->pressAction("counting.target"));
    QCOMPARE(model()->stateText(), text);
    QVERIFY(inTheWay.remove());
    QVERIFY(m_host->pressAction("counting.target"));
    QCOMPARE(model()->stateText(), QStringLiteral("Target: 10 pcs"));
}

// The rest ---------------------------------------------------------------------------------------------------------

void TestCountingPlugin::keysReachTheScale_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("call");
    QTest::newRow("zero") << "counting.zero"
                          << "IWeighing::Zero()";
    QTest::newRow("tare") << "counting.tare"
                          << "IWeighing::Tare()";
}

void TestCountingPlugin::keysReachTheScale()
{
    QFETCH(QString, uid);
    QFETCH(QString, call);
    start();
    m_host->clearCalls();
    QVERIFY(m_host->pressAction(uid));
    QCOMPARE(m_host->callsTo("IWeighing"), QStringList(call));
}

void TestCountingPlugin::showsTheWarnings()
{
    start();
    QVERIFY(!model()->warnInfo()->levellingRequiredVisible());
    m_host->setLevelled(false);
    QVERIFY(model()->warnInfo()->levellingRequiredVisible());
    m_host->setCalibrationWarning("Calibration required");
    QCOMPARE(model()->warnInfo()->calibrationRequiredText(), QStringLiteral("Calibration required"));
}

void TestCountingPlugin::takesEverythingBackAtTheClose()
{
    start();
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
    m_host->clearCalls();
    weigh(1.0); // nobody listens any more
    m_plugin->TranslateWarnInfo();
    m_plugin->onDoPrint();
    QCOMPARE(m_host->calls(), QStringList());
}

void TestCountingPlugin::startsAgainAfterTheClose()
{
    for (int round = 1; round <= 3; ++round) {
        start();
        QCOMPARE(m_host->actions().size(), 7);
        takeReference(10.0 * round, 10);
        weigh(50.0 * round);
        QCOMPARE(display()->messwert(), QStringLiteral("50"));
        QVERIFY(m_host->close(*m_plugin));
    }
}

void TestCountingPlugin::speaksGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(COUNTING_TRANSLATION)));
    start();
    takeReference(53.2, 10);
    model()->change(CountingSettings::Target, 12);
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo();
    const QString name = m_plugin->GetPluginName(true);
    const QString untranslated = m_plugin->GetPluginName(false);
    const QString key = action("counting.parts")->name();
    const QString title = m_host->infoItems().at(0)->property("itemValueTitle").toString();
    const QString unit = display()->unit();
    const QString target =
        model()->fields().at(CountingSettings::Target).toMap().value(QStringLiteral("title")).toString();
    const QString check = model()->checkText();
    const QString state = model()->stateText();
    const QString line = printed().last();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(name, QStringLiteral("Stückzählen"));
    QCOMPARE(untranslated, QStringLiteral("Counting"));
    QCOMPARE(key, QStringLiteral("Teile: 10"));
    QCOMPARE(title, QStringLiteral("Stückgewicht"));
    QCOMPARE(unit, QStringLiteral("Stk"));
    QCOMPARE(target, QStringLiteral("Ziel"));
    QCOMPARE(check, QStringLiteral("2 fehlen"));
    QCOMPARE(state, QStringLiteral("Stückzahlen sind bis 325 Stk richtig"));
    QVERIFY2(line.contains(QStringLiteral("\"Referenz\", \"10\", \"Stk\"")), qPrintable(line));
}

QTEST_GUILESS_MAIN(TestCountingPlugin)
#include "tst_countingplugin.moc"
