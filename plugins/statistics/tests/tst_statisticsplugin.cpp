// SPDX-License-Identifier: BSD-3-Clause
#include "StatisticsPlugin.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <ActionBaseToggle.h>
#include <IAction.h>
#include <IPrintableItem.h>
#include <ISystemRegister.h>
#include <TestKit/RecordingHost.h>
#include <limits>

using namespace Brimvale;

namespace
{

constexpr int Current = ISystemRegister::CurrentRegister;
const double NoDigits = std::numeric_limits<double>::quiet_NaN();

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
    data.value = NoDigits;
    data.isValid = false;
    data.errorText = error;
    return data;
}

} // namespace

/// The plug-in on a host whose scale has a capacity of 2000.0 g.
class TestStatisticsPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void publishesModelAndScreen();
    void offersItsKeysInOrder();
    void recordsByKey();
    void recordsByPrintKey();
    void waitsForAStableWeight();
    void recordsOncePerRequest();
    void refuses_data();
    void refuses();
    void refusesAnotherUnit();
    void refusesWhatCannotBeStored();
    void showsFigures();
    void negativeWeighing();

    void automatic_data();
    void automatic();
    void automaticOff();
    void loadAtTheStartIsNotRecorded();
    void thresholdSteps();
    void thresholdEndsAtTheCapacity();
    void unknownCapacity();
    void finerScaleRestartsTheDetector();

    void undo();
    void clearAsksFirst();
    void clearIsCalledOff_data();
    void clearIsCalledOff();
    void exports();
    void exportThatFails();

    void comesBackAfterARestart();
    void keepsItsSettings();
    void fullSeries();
    void damagedFileIsTold();
    void offersItsFiguresForPrintOuts();
    void ownsTheProtocolMenu();
    void keysReachTheScale_data();
    void keysReachTheScale();
    void showsTheWarnings();
    void takesEverythingBackAtTheClose();
    void startsAgainAfterTheClose();
    void speaksGerman();

private:
    void start();
    void restart();
    void show(const MesswertData& current, double digits);
    void weigh(double grams); ///< changes the load and lets it become stable
    void loseTheWeight(const QString& error);
    QStringList infos() const;
    StatisticsViewModel* model() const
    {
        return qobject_cast<StatisticsViewModel*>(m_host->contextObject("statistics"));
    }
    IAction* action(const char* uid) const;
    int transfers() const { return m_host->callCount("IMeasurementTransfer::TransferMeasurement"); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestKit::RecordingHost> m_host;
    std::unique_ptr<StatisticsPlugin> m_plugin;
};

void TestStatisticsPlugin::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("BRIMVALE_PLUGIN_DATA", m_folder->path().toUtf8());
    m_host = std::make_unique<TestKit::RecordingHost>();
    m_host->answer("ISystem::GetDecimals", 1);
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 20000.0);
    m_plugin = std::make_unique<StatisticsPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    show(reading(0.0), 0.0);
}

void TestStatisticsPlugin::cleanup()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin.reset(); // before its host
    m_host.reset();
    qunsetenv("BRIMVALE_PLUGIN_DATA");
}

void TestStatisticsPlugin::start()
{
    QVERIFY(m_host->start(*m_plugin));
}

void TestStatisticsPlugin::restart()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin = std::make_unique<StatisticsPlugin>();
    QVERIFY(m_host->init(*m_plugin));
    start();
}

void TestStatisticsPlugin::show(const MesswertData& current, double digits)
{
    m_host->setRegister(Current, current);
    m_host->emitNewMeasurement(digits);
}

void TestStatisticsPlugin::weigh(double grams)
{
    show(reading(grams, false), grams * 10.0);
    show(reading(grams), grams * 10.0);
    m_host->emitLoadChanged(1, grams * 10.0);
}

void TestStatisticsPlugin::loseTheWeight(const QString& error)
{
    show(noWeight(error), NoDigits);
}

QStringList TestStatisticsPlugin::infos() const
{
    QStringList texts;
    const QList<QObject*> items = m_host->infoItems();
    for (const QObject* item : items) {
        texts.append(item->property("itemValue").toString());
    }
    return texts;
}

IAction* TestStatisticsPlugin::action(const char* uid) const
{
    const QList<IAction*> actions = m_host->actions();
    for (IAction* action : actions) {
        if (action->uid() == QLatin1String(uid)) {
            return action;
        }
    }
    return nullptr;
}

void TestStatisticsPlugin::publishesModelAndScreen()
{
    start();
    QVERIFY(model() != nullptr);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/statistics/StatisticsScreen.qml"));
    QCOMPARE(model()->stateText(), QStringLiteral("Put a load on: it is recorded when it is stable"));
    QCOMPARE(infos(), QStringList({QStringLiteral("0"), QStringLiteral("–"), QStringLiteral("–"),
                                   QStringLiteral("–"), QStringLiteral("–")}));
}

void TestStatisticsPlugin::offersItsKeysInOrder()
{
    start();
    QStringList keys;
    int rank = 0;
    const QList<IAction*> actions = m_host->actions();
    for (const IAction* action : actions) {
        QVERIFY(action->getRank() > rank);
        rank = action->getRank();
        QVERIFY(!action->name().isEmpty());
        keys.append(action->uid().mid(11) + (action->enabled() ? QStringLiteral("+") : QStringLiteral("-")));
    }
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("zero+ tare+ record+ automatic+ undo- clear- export-"));
}

void TestStatisticsPlugin::recordsByKey()
{
    start();
    show(reading(36.4), 364.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(model()->stateText(), QStringLiteral("Weighing 1 recorded"));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
    QCOMPARE(transfers(), 1); // handed to the outputs
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 0);
    QVERIFY(action("statistics.undo")->enabled());
    QVERIFY(action("statistics.clear")->enabled());
    QVERIFY(action("statistics.export")->enabled());
}

void TestStatisticsPlugin::recordsByPrintKey()
{
    start();
    show(reading(36.4), 364.0);
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
    QCOMPARE(transfers(), 1);
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 1); // it was the print key
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(m_host->callCount("ISequencer::SetPrintPending"), 1);
}

void TestStatisticsPlugin::waitsForAStableWeight()
{
    start();
    show(reading(36.0, false), 360.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(model()->state(), StatisticsViewModel::WaitingForStable);
    QCOMPARE(model()->stateKind(), StatisticsViewModel::Attention);
    QCOMPARE(transfers(), 0);
    show(reading(36.4), 364.0);
    QCOMPARE(model()->state(), StatisticsViewModel::Recorded);
    QCOMPARE(infos().at(4), QStringLiteral("36.4 g"));
}

void TestStatisticsPlugin::recordsOncePerRequest()
{
    start();
    QVERIFY(m_host->pressAction("statistics.automatic")); // off
    show(reading(36.0, false), 360.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QVERIFY(m_host->pressAction("statistics.record"));
    QVERIFY(m_host->pressPrint(*m_plugin));
    weigh(36.4);
    show(reading(36.4), 364.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::refuses_data()
{
    QTest::addColumn<QString>("error");
    QTest::newRow("overload") << "Overload";
    QTest::newRow("cable out") << "No connection";
    QTest::newRow("not valid, without a text") << "";
}

void TestStatisticsPlugin::refuses()
{
    QFETCH(QString, error);
    start();
    loseTheWeight(error);
    QVERIFY(m_host->pressPrint(*m_plugin));
    QCOMPARE(model()->stateText(), QStringLiteral("Not recorded: no valid weight"));
    QCOMPARE(model()->stateKind(), StatisticsViewModel::Wrong);
    show(reading(20.0), 200.0); // the request is gone
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    QCOMPARE(transfers(), 0);
}

void TestStatisticsPlugin::refusesAnotherUnit()
{
    start();
    show(reading(5.0, true, "ct"), 10.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(infos().at(4), QStringLiteral("5.0 ct")); // in the unit that is shown
    show(reading(1.0), 10.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Not recorded: the series is in ct. Change the unit, or clear the series."));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
    show(reading(6.0, true, "ct"), 12.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(infos().at(0), QStringLiteral("2"));
}

void TestStatisticsPlugin::refusesWhatCannotBeStored()
{
    QFile inTheWay(StatisticsPlugin::dataFolder());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    start();
    QCOMPARE(model()->stateKind(), StatisticsViewModel::Wrong);
    show(reading(36.4), 364.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Not stored. The folder %1 cannot be made.").arg(inTheWay.fileName()));
    QCOMPARE(infos().at(0), QStringLiteral("0")); // nothing is shown that is not kept
    QCOMPARE(transfers(), 0);
    QVERIFY(inTheWay.remove());
    QVERIFY(m_host->pressAction("statistics.record")); // it is tried again
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::showsFigures()
{
    start();
    weigh(10.0);
    QCOMPARE(infos(), QStringList({QStringLiteral("1"), QStringLiteral("10.00 g"), QStringLiteral("–"),
                                   QStringLiteral("10.0 g"), QStringLiteral("10.0 g")}));
    weigh(0.0);
    weigh(12.0);
    weigh(0.0);
    weigh(14.0);
    QCOMPARE(infos(), QStringList({QStringLiteral("3"), QStringLiteral("12.00 g"), QStringLiteral("2.00 g"),
                                   QStringLiteral("10.0 g"), QStringLiteral("14.0 g")}));
    QCOMPARE(model()->points().size(), 3);
    QCOMPARE(model()->unit(), QStringLiteral("g"));
}

void TestStatisticsPlugin::negativeWeighing()
{
    start();
    weigh(-50.0); // taken out of a tared vessel: not a new load, but it can be recorded
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(infos().at(3), QStringLiteral("-50.0 g"));
}

void TestStatisticsPlugin::automatic_data()
{
    QTest::addColumn<QString>("steps"); // grams; "~": not stable; "over" and "cable": no weight
    QTest::addColumn<QString>("count");
    QTest::newRow("one load") << "100"
                              << "1";
    QTest::newRow("load and nothing") << "100 0"
                                      << "1";
    QTest::newRow("one after the other") << "100 0 101 0 99.5"
                                         << "3";
    QTest::newRow("one on the other") << "100 200 300"
                                      << "3";
    QTest::newRow("one taken off another") << "200 100"
                                           << "2";
    QTest::newRow("the same again") << "100 0 100"
                                    << "2";
    QTest::newRow("within the threshold") << "100 100.5 99.5 101"
                                          << "1";
    QTest::newRow("just beyond the threshold") << "100 101.1"
                                               << "2";
    QTest::newRow("as large as the threshold") << "1"
                                               << "0";
    QTest::newRow("larger than the threshold") << "1.1"
                                               << "1";
    QTest::newRow("negative") << "-100 0 -100"
                              << "0";
    QTest::newRow("cable out and in again") << "100 cable 100"
                                            << "1";
    QTest::newRow("cable out, another load") << "100 cable 150"
                                             << "2";
    QTest::newRow("cable out while empty") << "100 0 cable 0 100"
                                           << "2";
    QTest::newRow("unloaded without a cable") << "100 cable 0 100"
                                              << "2";
    QTest::newRow("overload") << "over"
                              << "0";
    QTest::newRow("put on and taken off beyond the capacity") << "100 over 100"
                                                              << "1";
    QTest::newRow("pressed down for a moment") << "100 ~150 100"
                                               << "1";
    QTest::newRow("lifted a little") << "100 ~50 100"
                                     << "1";
    QTest::newRow("replaced by an equal one") << "100 ~0 100"
                                              << "2";
    QTest::newRow("beyond the capacity by way of a weight") << "100 ~1500 over ~1500 100"
                                                            << "1";
    QTest::newRow("overload, then a load") << "over 500"
                                           << "1";
}

void TestStatisticsPlugin::automatic()
{
    QFETCH(QString, steps);
    start();
    QCOMPARE(model()->threshold(), QStringLiteral("1 g"));
    const QStringList parts = steps.split(QLatin1Char(' '));
    for (const QString& step : parts) {
        if (step == QLatin1String("over")) {
            loseTheWeight(QStringLiteral("Overload"));
        } else if (step == QLatin1String("cable")) {
            loseTheWeight(QStringLiteral("No connection"));
        } else if (step.startsWith(QLatin1Char('~'))) {
            const double grams = step.midRef(1).toDouble();
            show(reading(grams, false), grams * 10.0);
        } else {
            weigh(step.toDouble());
        }
    }
    QTEST(infos().at(0), "count");
    QCOMPARE(QString::number(transfers()), infos().at(0));
}

void TestStatisticsPlugin::automaticOff()
{
    start();
    auto* const key = dynamic_cast<ActionBaseToggle*>(action("statistics.automatic"));
    QCOMPARE(key->toggleIndex(), 1);
    QVERIFY(m_host->pressAction("statistics.automatic"));
    QCOMPARE(key->toggleIndex(), 0);
    QVERIFY(!model()->automatic());
    QCOMPARE(model()->stateText(), QStringLiteral("Put a load on and press Record"));
    weigh(100.0);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    QVERIFY(m_host->pressAction("statistics.automatic"));
    weigh(100.0); // lies there already
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    weigh(200.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::loadAtTheStartIsNotRecorded()
{
    show(reading(100.0), 1000.0);
    start();
    weigh(100.5);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    weigh(0.0);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    weigh(100.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::thresholdSteps()
{
    start();
    emit model()->thresholdStepRequested(1);
    emit model()->thresholdStepRequested(1);
    emit model()->thresholdStepRequested(1);
    QCOMPARE(model()->threshold(), QStringLiteral("10 g"));
    weigh(9.0);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    weigh(21.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::thresholdEndsAtTheCapacity()
{
    start();
    while (model()->canDecrease()) {
        emit model()->thresholdStepRequested(-1);
    }
    QCOMPARE(model()->threshold(), QStringLiteral("0.1 g")); // one step of the display
    while (model()->canIncrease()) {
        emit model()->thresholdStepRequested(1);
    }
    QCOMPARE(model()->threshold(), QStringLiteral("1000 g")); // below 2000 g
    weigh(1500.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::unknownCapacity()
{
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 0.0);
    start();
    QCOMPARE(model()->state(), StatisticsViewModel::NoAutomatic);
    weigh(100.0);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::finerScaleRestartsTheDetector()
{
    start();
    // The scale turns out to show 0.01 g: 1 g are 100 digits now.
    m_host->answer("ISystem::GetDecimals", 2);
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 200000.0);
    show(reading(0.0), 0.0);
    m_host->emitLoadChanged(1, 0.0);
    show(reading(0.9), 90.0);
    m_host->emitLoadChanged(1, 90.0);
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    show(reading(2.1), 210.0);
    m_host->emitLoadChanged(1, 210.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::undo()
{
    start();
    weigh(10.0);
    weigh(20.0);
    QVERIFY(m_host->pressAction("statistics.undo"));
    QCOMPARE(model()->stateText(), QStringLiteral("Weighing 2 taken out"));
    QCOMPARE(infos().at(4), QStringLiteral("10.0 g"));
    show(reading(20.0), 200.0); // it is not recorded again
    m_host->emitLoadChanged(2, 200.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
    QVERIFY(m_host->pressAction("statistics.undo"));
    QVERIFY(!m_host->pressAction("statistics.undo"));
    restart();
    QCOMPARE(infos().at(0), QStringLiteral("0"));
}

void TestStatisticsPlugin::clearAsksFirst()
{
    start();
    weigh(10.0);
    QVERIFY(m_host->pressAction("statistics.clear"));
    QVERIFY(model()->confirming());
    QCOMPARE(action("statistics.clear")->name(), QStringLiteral("Really clear"));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
    QVERIFY(m_host->pressAction("statistics.clear"));
    QVERIFY(!model()->confirming());
    QCOMPARE(infos().at(0), QStringLiteral("0"));
    QCOMPARE(action("statistics.clear")->name(), QStringLiteral("Clear"));
    QVERIFY(!m_host->pressAction("statistics.clear"));
    restart();
    QCOMPARE(infos().at(0), QStringLiteral("0"));
}

void TestStatisticsPlugin::clearIsCalledOff_data()
{
    QTest::addColumn<QString>("by");
    QTest::newRow("the screen") << "screen";
    QTest::newRow("another key") << "statistics.record";
    QTest::newRow("export") << "statistics.export";
    QTest::newRow("a new load") << "load";
}

void TestStatisticsPlugin::clearIsCalledOff()
{
    QFETCH(QString, by);
    start();
    weigh(10.0);
    QVERIFY(m_host->pressAction("statistics.clear"));
    if (by == QLatin1String("screen")) {
        emit model()->clearAnswered(false);
    } else if (by == QLatin1String("load")) {
        weigh(20.0);
    } else {
        QVERIFY(m_host->pressAction(by));
    }
    QVERIFY(!model()->confirming());
    QCOMPARE(action("statistics.clear")->name(), QStringLiteral("Clear"));
    QVERIFY(infos().at(0) != QLatin1String("0"));
}

void TestStatisticsPlugin::exports()
{
    start();
    weigh(10.0);
    weigh(20.0);
    QVERIFY(m_host->pressAction("statistics.export"));
    const QString file = StatisticsPlugin::dataFolder() + QStringLiteral("/export/series-1.csv");
    QCOMPARE(model()->stateText(), QStringLiteral("Exported to %1").arg(file));
    QFile csv(file);
    QVERIFY(csv.open(QIODevice::ReadOnly));
    QCOMPARE(csv.readAll().count('\n'), 3);
    QVERIFY(QFile::exists(StatisticsPlugin::dataFolder() + QStringLiteral("/export/series-1.txt")));
}

void TestStatisticsPlugin::exportThatFails()
{
    start();
    weigh(10.0);
    QFile inTheWay(StatisticsPlugin::dataFolder() + QStringLiteral("/export"));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QVERIFY(m_host->pressAction("statistics.export"));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Not exported. The folder %1 cannot be made.").arg(inTheWay.fileName()));
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::comesBackAfterARestart()
{
    start();
    weigh(10.0);
    weigh(0.0);
    weigh(12.0);
    const QStringList before = infos();
    restart();
    QCOMPARE(infos(), before);
    QCOMPARE(model()->points().size(), 2);
    QVERIFY(action("statistics.undo")->enabled());
    weigh(0.0);
    weigh(14.0);
    QCOMPARE(model()->stateText(), QStringLiteral("Weighing 3 recorded"));
}

void TestStatisticsPlugin::keepsItsSettings()
{
    start();
    emit model()->thresholdStepRequested(1);
    emit model()->thresholdStepRequested(1);
    QVERIFY(m_host->pressAction("statistics.automatic"));
    restart();
    QCOMPARE(model()->threshold(), QStringLiteral("5 g"));
    QVERIFY(!model()->automatic());
    QCOMPARE(dynamic_cast<ActionBaseToggle*>(action("statistics.automatic"))->toggleIndex(), 0);
}

void TestStatisticsPlugin::fullSeries()
{
    start();
    QVERIFY(m_host->close(*m_plugin)); // leaves an empty file
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("fill"));
        database.setDatabaseName(StatisticsPlugin::dataFolder() + QStringLiteral("/series.sqlite"));
        QVERIFY(database.open());
        QSqlQuery query(database);
        QVERIFY2(query.exec(QStringLiteral(
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                     "INSERT INTO weighing (value, komma, unit, flags, timestamp) "
                     "SELECT 1000 + i % 2, 1, 'g', 0, '2026-01-02T03:04:05.006Z' FROM n")),
                 qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("fill"));

    start();
    QCOMPARE(infos().mid(0, 3),
             QStringList({QStringLiteral("100000"), QStringLiteral("100.05 g"), QStringLiteral("0.05 g")}));
    show(reading(36.4), 364.0);
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(model()->stateText(),
             QStringLiteral("Not recorded: the series has 100000 weighings and is full. "
                            "Export and clear it."));
    QCOMPARE(infos().at(0), QStringLiteral("100000"));
    QCOMPARE(transfers(), 0);
    QVERIFY(m_host->pressAction("statistics.undo"));
    QVERIFY(m_host->pressAction("statistics.record"));
    QCOMPARE(infos().at(0), QStringLiteral("100000"));
    QCOMPARE(infos().at(3), QStringLiteral("36.4 g"));
    QCOMPARE(model()->points().size(), SeriesPlot::MaximumPoints);
}

void TestStatisticsPlugin::damagedFileIsTold()
{
    QVERIFY(QDir().mkpath(StatisticsPlugin::dataFolder()));
    QFile file(StatisticsPlugin::dataFolder() + QStringLiteral("/series.sqlite"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("damaged ").repeated(200));
    file.close();
    start();
    QCOMPARE(model()->stateText(),
             QStringLiteral("The stored series was damaged. It is kept as series.damaged-1.sqlite, and a "
                            "new one begins."));
    QVERIFY(QFile::exists(StatisticsPlugin::dataFolder() + QStringLiteral("/series.damaged-1.sqlite")));
    weigh(10.0);
    QCOMPARE(infos().at(0), QStringLiteral("1"));
}

void TestStatisticsPlugin::offersItsFiguresForPrintOuts()
{
    QVERIFY(m_host->printItems().isEmpty()); // from start to close only
    start();
    const auto printed = [this] {
        m_host->clearCalls();
        const QList<IPrintableItem*> items = m_host->printItems();
        for (IPrintableItem* item : items) {
            item->Print(m_host->printer(), m_host->formatter());
        }
        return m_host->callsTo("IFormat::FormatNameValueUnit");
    };
    const QString line = QStringLiteral("IFormat::FormatNameValueUnit(0, \"%1\", \"%2\", \"%3\")");
    const QString none = QStringLiteral("-");
    QCOMPARE(printed(), QStringList({line.arg(QStringLiteral("Weighings"), QStringLiteral("0"), QString()),
                                     line.arg(QStringLiteral("Mean"), none, QString()),
                                     line.arg(QStringLiteral("Standard deviation"), none, QString()),
                                     line.arg(QStringLiteral("Minimum"), none, QString()),
                                     line.arg(QStringLiteral("Maximum"), none, QString())}));
    weigh(10.0);
    weigh(12.0);
    const QString gram = QStringLiteral("g");
    QCOMPARE(printed(),
             QStringList({line.arg(QStringLiteral("Weighings"), QStringLiteral("2"), QString()),
                          line.arg(QStringLiteral("Mean"), QStringLiteral("11.00"), gram),
                          line.arg(QStringLiteral("Standard deviation"), QStringLiteral("1.41"), gram),
                          line.arg(QStringLiteral("Minimum"), QStringLiteral("10.0"), gram),
                          line.arg(QStringLiteral("Maximum"), QStringLiteral("12.0"), gram)}));
    const QList<IPrintableItem*> items = m_host->printItems();
    for (const IPrintableItem* item : items) {
        QVERIFY(item->isEnabled(ProtocolType::Summary));
        QVERIFY(!item->isAvailableIn(ProtocolArea::Header));
        QVERIFY(item->isAvailableIn(ProtocolArea::Footer));
        QCOMPARE(item->getCategory(), QStringLiteral("Statistics"));
    }
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->printItems().isEmpty());
}

void TestStatisticsPlugin::ownsTheProtocolMenu()
{
    QCOMPARE(m_plugin->GetProtocolMenu(), m_host->protocolMenu());
    QCOMPARE(
        m_host->callsTo("IProtocolMenuFactory"),
        QStringList(QStringLiteral("IProtocolMenuFactory::CreateProtocolMenu(\"Print-outs\", 0, false)")));
    m_plugin = std::make_unique<StatisticsPlugin>(); // the first one deletes its menu
    QVERIFY(m_host->init(*m_plugin));
    QCOMPARE(m_plugin->GetProtocolMenu(), m_host->protocolMenu());
}

void TestStatisticsPlugin::keysReachTheScale_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("call");
    QTest::newRow("zero") << "statistics.zero"
                          << "IWeighing::Zero()";
    QTest::newRow("tare") << "statistics.tare"
                          << "IWeighing::Tare()";
}

void TestStatisticsPlugin::keysReachTheScale()
{
    QFETCH(QString, uid);
    QFETCH(QString, call);
    start();
    m_host->clearCalls();
    QVERIFY(m_host->pressAction(uid));
    QCOMPARE(m_host->callsTo("IWeighing"), QStringList(call));
}

void TestStatisticsPlugin::showsTheWarnings()
{
    start();
    QVERIFY(!model()->warnInfo()->levellingRequiredVisible());
    m_host->setLevelled(false);
    QVERIFY(model()->warnInfo()->levellingRequiredVisible());
    m_host->setCalibrationWarning("Calibration required");
    QCOMPARE(model()->warnInfo()->calibrationRequiredText(), QStringLiteral("Calibration required"));
}

void TestStatisticsPlugin::takesEverythingBackAtTheClose()
{
    start();
    QVERIFY(m_host->close(*m_plugin));
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
    m_host->clearCalls();
    weigh(100.0); // nobody listens any more
    m_plugin->TranslateWarnInfo();
    m_plugin->onDoPrint();
    QCOMPARE(m_host->calls(), QStringList());
}

void TestStatisticsPlugin::startsAgainAfterTheClose()
{
    for (int round = 1; round <= 3; ++round) {
        start();
        QCOMPARE(m_host->actions().size(), 7);
        weigh(10.0 * round);
        QCOMPARE(infos().at(0), QString::number(round));
        weigh(0.0);
        QVERIFY(m_host->close(*m_plugin));
    }
}

void TestStatisticsPlugin::speaksGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(STATISTICS_TRANSLATION)));
    start();
    weigh(10.0);
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo();
    const QString name = m_plugin->GetPluginName(true);
    const QString untranslated = m_plugin->GetPluginName(false);
    const QString key = action("statistics.undo")->name();
    const QString title = m_host->infoItems().first()->property("itemValueTitle").toString();
    const QString state = model()->stateText();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    QCOMPARE(name, QStringLiteral("Statistik"));
    QCOMPARE(untranslated, QStringLiteral("Statistics"));
    QCOMPARE(key, QStringLiteral("Letzte zurück"));
    QCOMPARE(title, QStringLiteral("Wägungen"));
    QCOMPARE(state, QStringLiteral("Wägung 1 erfasst"));
}

QTEST_GUILESS_MAIN(TestStatisticsPlugin)
#include "tst_statisticsplugin.moc"
