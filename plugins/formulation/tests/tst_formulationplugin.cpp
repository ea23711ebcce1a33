// SPDX-License-Identifier: BSD-3-Clause
#include "FormulationPlugin.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <IAction.h>
#include <IMenuList.h>
#include <IPrintableItem.h>
#include <IStepFunction.h>
#include <ISystemRegister.h>
#include <ITrigger.h>
#include <InfoValueUnit.h>
#include <TestKit/RecordingHost.h>
#include <WorkflowScreen.h>
#include <limits>
#include <memory>

Q_DECLARE_METATYPE(Brimvale::MesswertData)

using namespace Brimvale;

namespace
{

constexpr int Gross = ISystemRegister::GrossRegister;
constexpr int VesselStep = 1;
constexpr int ReturnStep = 2;
constexpr int FirstComponent = 100;

const QByteArray Recipes = R"({ "recipes": [
    { "name": "Test", "components": [ { "name": "Flour", "target_g": 100, "tolerance_percent": 2 },
                                      { "name": "Sugar", "target_g": 50, "tolerance_percent": 2 } ] },
    { "name": "Heavy", "components": [ { "name": "Lead", "target_g": 7000 } ] },
    { "name": "Exact", "components": [ { "name": "Salt", "target_g": 0.55 } ] } ] })";

MesswertData reading(double grams, bool stable = true)
{
    MesswertData data;
    data.value = grams;
    data.messwert = QString::number(grams, 'f', 1);
    data.unit = QStringLiteral("g");
    data.decimals = 1;
    data.isValid = true;
    data.isStable = stable;
    return data;
}

MesswertData noWeight(const char* error)
{
    MesswertData data;
    data.isValid = false;
    data.value = std::numeric_limits<double>::quiet_NaN();
    data.errorText = QLatin1String(error);
    return data;
}

} // namespace

/// The plug-in on a host with a scale of 6000.0 g. The test is the workflow manager: it enters steps and starts their
/// functions, as the terminal does.
class TestFormulationPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void publishesModelAndScreen();
    void offersItsKeys();
    void recipesAreChosen();
    void startsAWorkflow();
    void refusesRecipes_data();
    void refusesRecipes();
    void looksForTheVessel_data();
    void looksForTheVessel();
    void tareIsTriedAgain();
    void showsTheComponent_data();
    void showsTheComponent();
    void calculatesInGrams();
    void judges_data();
    void judges();
    void fillsTheResult();
    void goingBackWithdraws();
    void abortKeepsTheRecord();
    void abortAtTheVesselKeepsNothing();
    void saysWhatCouldNotBeSaved();
    void completes();
    void closeLeavesTheBatch();
    void resumes_data();
    void resumes();
    void discards();
    void needsAWorkflowManager();
    void settings_data();
    void settings();
    void settingsOfABatchAtWork();
    void printItems();
    void speaksGerman();

private:
    void start();
    void weigh(const MesswertData& gross);
    void enter(int step);
    void run(const char* function);
    void weighIn(int component, double gross);
    void beginBatch();
    QObject* model() const { return m_host->contextObject("formulation"); }
    QVariant property(const char* name) const { return model()->property(name); }
    QVariant display(const char* name) const
    {
        return property("messwertInfo").value<QObject*>()->property(name);
    }
    IStepFunction* function(const char* uid) const;
    QStringList keys() const;
    QString info(int line) const;
    QString data(const char* name) const
    {
        return m_folder->filePath(QLatin1String("formulation/") + QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestKit::RecordingHost> m_host;
    std::unique_ptr<FormulationPlugin> m_plugin;
};

void TestFormulationPlugin::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("formulation")));
    QFile recipes(data("recipes.json"));
    QVERIFY(recipes.open(QIODevice::WriteOnly));
    recipes.write(Recipes);
    recipes.close();
    qputenv("BRIMVALE_PLUGIN_DATA", m_folder->path().toLocal8Bit());

    m_host = std::make_unique<TestKit::RecordingHost>();
    m_host->answer("ISystem::GetDecimals", 1);
    m_host->answer("IWfM::StartWorkflow", true);
    m_host->answer("IWeighing::Tare", true);
    m_host->setRegister(ISystemRegister::UpperLimitRegister, 60000.0);
    m_plugin = std::make_unique<FormulationPlugin>();
    QVERIFY(m_host->init(*m_plugin));
}

void TestFormulationPlugin::cleanup()
{
    QVERIFY(m_host->close(*m_plugin));
    m_plugin.reset(); // before its host
    m_host.reset();
}

void TestFormulationPlugin::start()
{
    QVERIFY(m_host->start(*m_plugin));
}

void TestFormulationPlugin::weigh(const MesswertData& gross)
{
    m_host->setRegister(Gross, gross);
    m_host->emitNewMeasurement(0.0);
}

void TestFormulationPlugin::enter(int step)
{
    emit m_host->workflowManager()->NotifyWorkflowStepEntered(step);
}

IStepFunction* TestFormulationPlugin::function(const char* uid) const
{
    const QList<IStepFunction*> functions = m_host->stepFunctions();
    for (IStepFunction* function : functions) {
        if (function->uid() == QLatin1String(uid)) {
            return function;
        }
    }
    return nullptr;
}

void TestFormulationPlugin::run(const char* uid)
{
    QVERIFY(function(uid) != nullptr);
    function(uid)->startFunction(QString(), QVariant());
}

/// A batch whose vessel of 200 g is tared.
void TestFormulationPlugin::beginBatch()
{
    start();
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    run("formulation.vessel");
    weigh(reading(200.0));
    enter(FirstComponent);
}

void TestFormulationPlugin::weighIn(int component, double gross)
{
    enter(FirstComponent + component);
    weigh(reading(gross));
    run("formulation.weigh");
    weigh(reading(gross));
}

QStringList TestFormulationPlugin::keys() const
{
    QStringList keys;
    const QList<IAction*> actions = m_host->actions();
    for (const IAction* action : actions) {
        keys.append(action->uid().section(QLatin1Char('.'), 1)
                    + (action->enabled() ? QString() : QStringLiteral(" off")));
    }
    return keys;
}

QString TestFormulationPlugin::info(int line) const
{
    const QObject* const item = m_host->infoItems().value(line);
    return item == nullptr ? QString()
                           : item->property("itemValueTitle").toString() + QLatin1Char('|')
                                 + item->property("itemValue").toString();
}

void TestFormulationPlugin::publishesModelAndScreen()
{
    start();
    QVERIFY(model() != nullptr);
    QCOMPARE(m_host->loadedScreen(), QStringLiteral("qrc:/formulation/FormulationScreen.qml"));
    QCOMPARE(property("page").toInt(), int(FormulationViewModel::Selection));
    QCOMPARE(property("recipes").value<QList<QObject*>>().size(), 3);
    QCOMPARE(info(0), QStringLiteral("Flour|100.0 g"));
    QCOMPARE(info(2), QStringLiteral("Total|150.0 g"));
}

void TestFormulationPlugin::offersItsKeys()
{
    start();
    QCOMPARE(keys(), (QStringList{QStringLiteral("previous off"), QStringLiteral("next"),
                                  QStringLiteral("start"), QStringLiteral("zero")}));
    QVERIFY(m_host->pressAction("formulation.zero"));
    QCOMPARE(m_host->callCount("IWeighing::Zero"), 1);
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    QCOMPARE(keys(), QStringList()); // those of the workflow stand there
}

void TestFormulationPlugin::recipesAreChosen()
{
    start();
    QVERIFY(m_host->pressAction("formulation.next"));
    QCOMPARE(property("title").toString(), QStringLiteral("Heavy"));
    QVERIFY(m_host->pressAction("formulation.next"));
    QCOMPARE(keys().mid(0, 2), (QStringList{QStringLiteral("previous"), QStringLiteral("next off")}));
    QVERIFY(QMetaObject::invokeMethod(model(), "choose", Q_ARG(int, 0)));
    QCOMPARE(property("title").toString(), QStringLiteral("Test"));
    for (const int wrong : {-1, 3}) {
        QVERIFY(QMetaObject::invokeMethod(model(), "choose", Q_ARG(int, wrong)));
        QCOMPARE(property("currentRecipe").toInt(), 0);
    }
}

void TestFormulationPlugin::startsAWorkflow()
{
    start();
    m_host->clearCalls();
    QVERIFY(m_host->pressAction("formulation.start"));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IWfM"),
                           "IWfM::StartWorkflow([WorkflowStep(1, \"formulation.vessel\"), "
                           "WorkflowStep(100, \"formulation.weigh\"), WorkflowStep(101, "
                           "\"formulation.weigh\"), WorkflowStep(3, \"formulation.finish\")])");
}

void TestFormulationPlugin::refusesRecipes_data()
{
    QTest::addColumn<int>("recipe");
    QTest::addColumn<QString>("message");
    QTest::newRow("too heavy")
        << 1 << "Heavy cannot be weighed in: it needs 7000.0 g, the scale goes up to 6000.0 g.";
    QTest::newRow("no reading within the tolerance")
        << 2
        << "Salt cannot be weighed in: the scale shows no weight between 0.5445 g and 0.5555 g. Widen the "
           "tolerance of the recipe.";
}

void TestFormulationPlugin::refusesRecipes()
{
    QFETCH(int, recipe);
    start();
    QVERIFY(QMetaObject::invokeMethod(model(), "choose", Q_ARG(int, recipe)));
    QVERIFY(m_host->pressAction("formulation.start"));
    QCOMPARE(m_host->callCount("IWfM::StartWorkflow"), 0);
    QTEST(property("message").toString(), "message");
    QCOMPARE(property("severity").toInt(), int(FormulationViewModel::Wrong));
    QVERIFY(QMetaObject::invokeMethod(model(), "choose", Q_ARG(int, 0)));
    QCOMPARE(property("message").toString(), QString());
}

void TestFormulationPlugin::looksForTheVessel_data()
{
    QTest::addColumn<MesswertData>("gross");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("vessel") << reading(200.0) << true;
    QTest::newRow("smallest vessel") << reading(1.0) << true;
    QTest::newRow("unstable") << reading(200.0, false) << false;
    QTest::newRow("nothing") << reading(0.9) << false;
    QTest::newRow("below zero") << reading(-5.0) << false;
    QTest::newRow("recipe would not fit") << reading(5850.1) << false;
    QTest::newRow("recipe just fits") << reading(5850.0) << true;
    QTest::newRow("overload") << noWeight("Overload") << false;
    QTest::newRow("cable out") << noWeight("No connection") << false;
}

void TestFormulationPlugin::looksForTheVessel()
{
    QFETCH(MesswertData, gross);
    QFETCH(bool, isTaken);
    start();
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    QSignalSpy done(dynamic_cast<QObject*>(function("formulation.vessel")), SIGNAL(workDone(QVariant)));
    weigh(gross); // before the function runs nothing is taken
    QCOMPARE(m_host->callCount("IWeighing::Tare"), 0);
    run("formulation.vessel");
    weigh(gross);
    QCOMPARE(m_host->callCount("IWeighing::Tare"), isTaken ? 1 : 0);
    QCOMPARE(done.count(), isTaken ? 1 : 0);
    QCOMPARE(QFile::exists(data("unfinished.json")), isTaken);
}

void TestFormulationPlugin::tareIsTriedAgain()
{
    start();
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    run("formulation.vessel");
    m_host->answerOnce("IWeighing::Tare", false);
    QSignalSpy done(dynamic_cast<QObject*>(function("formulation.vessel")), SIGNAL(workDone(QVariant)));
    weigh(reading(200.0));
    QCOMPARE(done.count(), 0);
    weigh(reading(200.0));
    QCOMPARE(done.count(), 1);
}

void TestFormulationPlugin::showsTheComponent_data()
{
    QTest::addColumn<MesswertData>("gross");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("remaining");
    QTest::addColumn<double>("coarse");
    QTest::addColumn<double>("fine");
    QTest::addColumn<int>("level");
    const auto row = [](const char* name, const MesswertData& gross, const char* value, const char* remaining,
                        double coarse, double fine, FormulationViewModel::Level level) {
        QTest::newRow(name) << gross << QString::fromLatin1(value) << QString::fromLatin1(remaining) << coarse
                            << fine << int(level);
    };
    row("nothing yet", reading(200.0), "0.0", "100.0", 0.0, 0.0, FormulationViewModel::TooLittle);
    row("half", reading(250.0), "50.0", "50.0", 0.5, 0.0, FormulationViewModel::TooLittle);
    row("near", reading(296.0), "96.0", "4.0", 0.96, 0.25, FormulationViewModel::TooLittle);
    row("lower limit", reading(298.0), "98.0", "2.0", 0.98, 0.375, FormulationViewModel::Within);
    row("target", reading(300.0), "100.0", "0.0", 1.0, 0.5, FormulationViewModel::Within);
    row("unstable", reading(300.0, false), "100.0", "0.0", 1.0, 0.5, FormulationViewModel::Within);
    row("upper limit", reading(302.0), "102.0", "2.0", 1.0, 0.625, FormulationViewModel::Within);
    row("above", reading(302.1), "102.1", "2.1", 1.0, 0.63125, FormulationViewModel::TooMuch);
    row("far above", reading(400.0), "200.0", "100.0", 1.0, 1.0, FormulationViewModel::TooMuch);
    row("less than nothing", reading(190.0), "-10.0", "110.0", 0.0, 0.0, FormulationViewModel::TooLittle);
    row("overload", noWeight("Overload"), "", "", 0.0, 0.0, FormulationViewModel::NoWeight);
    row("cable out", noWeight("No connection"), "", "", 0.0, 0.0, FormulationViewModel::NoWeight);
}

void TestFormulationPlugin::showsTheComponent()
{
    QFETCH(MesswertData, gross);
    QFETCH(QString, value);
    QFETCH(double, coarse);
    QFETCH(double, fine);
    beginBatch();
    weigh(gross);
    QCOMPARE(property("page").toInt(), int(FormulationViewModel::Dosing));
    QCOMPARE(property("lowerLimit").toString(), QStringLiteral("98.0"));
    QCOMPARE(property("upperLimit").toString(), QStringLiteral("102.0"));
    QTEST(property("remaining").toString(), "remaining");
    QVERIFY(qAbs(property("coarse").toDouble() - coarse) < 1e-9);
    QVERIFY(qAbs(property("fine").toDouble() - fine) < 1e-9);
    QTEST(property("level").toInt(), "level");
    if (!value.isEmpty()) {
        QCOMPARE(display("messwert").toString(), value);
        QVERIFY(display("isCalculated").toBool());
        QVERIFY(display("netVisible").toBool());
        QCOMPARE(display("messwertKlein").toString(),
                 value); // the first component is all that is in the vessel
    }
    QCOMPARE(display("messwertKleinVisible").toBool(), !value.isEmpty());
}

void TestFormulationPlugin::calculatesInGrams()
{
    m_host->answer("ISystem::GetCurrentUnit", 2);
    m_host->answer("IRegisterValueProvider::GetMesswert(0, 72)", reading(250.0));
    start();
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    run("formulation.vessel");
    m_host->emitNewMeasurement(0.0);
    enter(FirstComponent);
    m_host->answer("IRegisterValueProvider::GetMesswert(0, 72)", reading(300.0));
    m_host->emitNewMeasurement(0.0);
    QCOMPARE(display("messwert").toString(), QStringLiteral("50.0"));
    QCOMPARE(display("unit").toString(), QStringLiteral("g"));
}

void TestFormulationPlugin::judges_data()
{
    QTest::addColumn<MesswertData>("gross");
    QTest::addColumn<bool>("enforced");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("within") << reading(300.3) << true << true;
    QTest::newRow("lower limit") << reading(298.0) << true << true;
    QTest::newRow("too little") << reading(297.9) << true << false;
    QTest::newRow("too much") << reading(302.1) << true << false;
    QTest::newRow("unstable") << reading(300.0, false) << true << false;
    QTest::newRow("overload") << noWeight("Overload") << true << false;
    QTest::newRow("too much, not enforced") << reading(350.0) << false << true;
    QTest::newRow("nothing, not enforced") << reading(200.0) << false << false;
    QTest::newRow("less than nothing, not enforced") << reading(150.0) << false << false;
}

void TestFormulationPlugin::judges()
{
    QFETCH(MesswertData, gross);
    QFETCH(bool, enforced);
    QFETCH(bool, isTaken);
    beginBatch();
    m_plugin->ApplyProfileItem(FormulationPlugin::ToleranceEnforced, enforced);
    QSignalSpy done(dynamic_cast<QObject*>(function("formulation.weigh")), SIGNAL(workDone(QVariant)));
    weigh(gross);
    QCOMPARE(done.count(), 0); // nobody has accepted it
    run("formulation.weigh");
    weigh(gross);
    weigh(gross);
    QCOMPARE(done.count(), isTaken ? 1 : 0);
    if (isTaken) {
        QCOMPARE(done.first().first().toDouble(), roundedWeight(gross.value - 200.0, 1));
        QVERIFY(info(0).startsWith(QStringLiteral("Flour|✓ ")));
        QCOMPARE(m_host->infoItems().at(0)->property("isItemValueInvalid").toBool(), gross.value > 302.0);
    } else {
        QCOMPARE(info(0), QStringLiteral("Flour|at work"));
        // Corrected and repeated, it is taken.
        weigh(reading(300.0));
        QCOMPARE(done.count(), gross.isStable && gross.isValid ? 0 : 1);
        if (done.isEmpty()) {
            function("formulation.weigh")->reset();
            run("formulation.weigh");
            weigh(reading(300.0));
        }
        QCOMPARE(done.count(), 1);
        QCOMPARE(done.first().first().toDouble(), 100.0);
    }
}

void TestFormulationPlugin::fillsTheResult()
{
    beginBatch();
    weighIn(0, 299.5);
    WorkflowScreen::ScreenTexte texts;
    WorkflowScreen screen(nullptr, 0, &texts, QString(), 0);
    function("formulation.weigh")->prepareResultForScreen(99.5, &screen);
    QCOMPARE(screen.getResult1()->info(), QStringLiteral("Weighed in"));
    QCOMPARE(screen.getResult1()->value(), QStringLiteral("99.5"));
    QCOMPARE(screen.getResult1()->unit(), QStringLiteral("g"));
    QVERIFY(screen.getResult1()->isVisible());
    QCOMPARE(screen.getResult2()->info(), QStringLiteral("Deviation (-0.50 %)"));
    QCOMPARE(screen.getResult2()->value(), QStringLiteral("-0.5"));
    QVERIFY(screen.getResult2()->isVisible());
}

void TestFormulationPlugin::goingBackWithdraws()
{
    beginBatch();
    weighIn(0, 300.0);
    enter(FirstComponent + 1);
    weigh(reading(320.0));
    QCOMPARE(display("messwert").toString(), QStringLiteral("20.0"));
    QCOMPARE(info(0), QStringLiteral("Flour|✓ 100.0 g"));
    function("formulation.weigh")->reset();
    enter(FirstComponent);
    QCOMPARE(display("messwert").toString(), QStringLiteral("120.0"));
    QCOMPARE(info(0), QStringLiteral("Flour|at work"));
    QString error;
    QVERIFY(BatchStore(FormulationPlugin::dataFolder()).unfinished(&error)->weighed.isEmpty());
}

void TestFormulationPlugin::abortKeepsTheRecord()
{
    beginBatch();
    weighIn(0, 300.0);
    enter(FirstComponent + 1);
    function("formulation.weigh")->reset(); // as the terminal does before it tells of the end
    function("formulation.vessel")->reset();
    emit m_host->workflowManager()->NotifyWorkflowFinished(false);
    QVERIFY(QFile::exists(data("batch-0001.json")));
    QVERIFY(!QFile::exists(data("unfinished.json")));
    QFile record(data("batch-0001.json"));
    QVERIFY(record.open(QIODevice::ReadOnly));
    const QByteArray text = record.readAll();
    QVERIFY(text.contains("\"aborted\""));
    QVERIFY(text.contains("\"weighed_g\": 100"));
    QCOMPARE(property("page").toInt(), int(FormulationViewModel::Selection));
    QCOMPARE(property("message").toString(),
             QStringLiteral("Batch 0001 was aborted; its record with 1 of 2 components is kept."));
    QVERIFY(keys().contains(QStringLiteral("start")));
}

void TestFormulationPlugin::abortAtTheVesselKeepsNothing()
{
    start();
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    emit m_host->workflowManager()->NotifyWorkflowFinished(false);
    QCOMPARE(QDir(FormulationPlugin::dataFolder()).entryList(QDir::Files),
             QStringList{QStringLiteral("recipes.json")});
    QCOMPARE(property("message").toString(), QStringLiteral("Aborted before anything was weighed in."));
}

void TestFormulationPlugin::saysWhatCouldNotBeSaved()
{
    beginBatch();
    weighIn(0, 300.0);
    // In the place of the record stands a folder, which no rights help against.
    QVERIFY(QDir().mkpath(data("batch-0001.json/x")));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^The batch cannot be written to ")));
    emit m_host->workflowManager()->NotifyWorkflowFinished(false);
    QVERIFY2(property("message").toString().startsWith(QLatin1String("The batch cannot be written to ")),
             qPrintable(property("message").toString()));
    QCOMPARE(property("severity").toInt(), int(FormulationViewModel::Wrong));
    QVERIFY(QFile::exists(data("unfinished.json"))); // what was written before is still there
}

void TestFormulationPlugin::completes()
{
    beginBatch();
    weighIn(0, 300.0);
    weighIn(1, 350.2);
    QSignalSpy triggered(dynamic_cast<QObject*>(m_host->triggers().first()),
                         SIGNAL(notifyTriggered(QString)));
    QSignalSpy done(dynamic_cast<QObject*>(function("formulation.finish")), SIGNAL(workDone(QVariant)));
    run("formulation.finish");
    QCOMPARE(done.count(), 1);
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(triggered.first().first().toString(), QStringLiteral("formulation.completed"));
    QVERIFY(QFile::exists(data("batch-0001.json")));
    QVERIFY(!QFile::exists(data("unfinished.json")));

    m_host->clearCalls();
    QVERIFY(m_host->pressPrint(*m_plugin));
    const QStringList transfers = m_host->callsTo("IMeasurementTransfer");
    QCOMPARE(transfers.size(), 1);
    QVERIFY2(transfers.first().contains(QLatin1String("messwert=\"150.2\"")), qPrintable(transfers.first()));

    emit m_host->workflowManager()->NotifyWorkflowFinished(true);
    QCOMPARE(property("message").toString(), QStringLiteral("Batch 0001 is complete: 150.2 g"));
    QVERIFY(m_host->pressAction("formulation.start"));
    enter(VesselStep);
    QCOMPARE(m_host->infoItems().first()->property("itemGroupTitle").toString(),
             QStringLiteral("Batch 0002"));
}

void TestFormulationPlugin::closeLeavesTheBatch()
{
    beginBatch();
    weighIn(0, 300.0);
    // The terminal abandons the workflow when it hears of the close.
    m_host->onCall("ILifecycleObserver::NotifyPluginClosing",
                   [this] { emit m_host->workflowManager()->NotifyWorkflowFinished(false); });
    m_host->clearCalls();
    QVERIFY(m_host->close(*m_plugin));
    QCOMPARE(m_host->callsTo("IWfM::AbortWorkflow").size(), 1);
    QVERIFY(QFile::exists(data("unfinished.json")));
    QVERIFY(!QFile::exists(data("batch-0001.json")));
    QVERIFY(m_host->stepFunctions().isEmpty());
    QVERIFY(m_host->actions().isEmpty());
    QVERIFY(m_host->printItems().isEmpty());
    QVERIFY(m_host->infoItems().isEmpty());
}

void TestFormulationPlugin::resumes_data()
{
    QTest::addColumn<MesswertData>("gross");
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<QString>("amount"); // of the next component
    QTest::newRow("as it was") << reading(300.0) << true << "0.0";
    QTest::newRow("zero has drifted down") << reading(299.5) << true << "0.0";
    QTest::newRow("zero has drifted up") << reading(300.5) << true << "0.0";
    QTest::newRow("something was added") << reading(312.5) << true << "12.5";
    QTest::newRow("something is missing") << reading(299.4) << false << "";
    QTest::newRow("nothing there") << reading(0.0) << false << "";
    QTest::newRow("unstable") << reading(300.0, false) << false << "";
    QTest::newRow("cable out") << noWeight("No connection") << false << "";
}

void TestFormulationPlugin::resumes()
{
    QFETCH(MesswertData, gross);
    QFETCH(bool, isTaken);
    beginBatch();
    weighIn(0, 300.0);
    QVERIFY(m_host->close(*m_plugin));

    m_host->setRegister(Gross, reading(0.0));
    start();
    QCOMPARE(property("page").toInt(), int(FormulationViewModel::Interrupted));
    QCOMPARE(keys(), (QStringList{QStringLiteral("resume"), QStringLiteral("discard")}));
    QCOMPARE(property("title").toString(), QStringLiteral("Batch 0001 was interrupted"));
    m_host->clearCalls();
    QVERIFY(m_host->pressAction("formulation.resume"));
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IWfM::StartWorkflow"),
        "IWfM::StartWorkflow([WorkflowStep(2, \"formulation.return\"), "
        "WorkflowStep(101, \"formulation.weigh\"), WorkflowStep(3, \"formulation.finish\")])");
    enter(ReturnStep);
    QSignalSpy done(dynamic_cast<QObject*>(function("formulation.return")), SIGNAL(workDone(QVariant)));
    run("formulation.return");
    weigh(gross);
    QCOMPARE(done.count(), isTaken ? 1 : 0);
    if (isTaken) {
        enter(FirstComponent + 1);
        QTEST(display("messwert").toString(), "amount");
        QCOMPARE(info(0), QStringLiteral("Flour|✓ 100.0 g"));
    }
}

void TestFormulationPlugin::discards()
{
    beginBatch();
    weighIn(0, 300.0);
    QVERIFY(m_host->close(*m_plugin));
    start();
    QVERIFY(m_host->pressAction("formulation.discard"));
    QVERIFY(QFile::exists(data("batch-0001.json")));
    QVERIFY(!QFile::exists(data("unfinished.json")));
    QCOMPARE(property("page").toInt(), int(FormulationViewModel::Selection));
    QVERIFY(keys().contains(QStringLiteral("start")));
}

void TestFormulationPlugin::needsAWorkflowManager()
{
    m_host->answer<IWfM*>("ISystem::GetWorkflowManager", nullptr);
    QTest::ignoreMessage(QtWarningMsg,
                         "Formulation: the terminal has no workflow manager, which the application needs.");
    QVERIFY(!m_host->start(*m_plugin));
}

void TestFormulationPlugin::settings_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("recipe") << int(FormulationPlugin::ChosenRecipe) << QVariant(QStringLiteral("Heavy"))
                            << true;
    QTest::newRow("no such recipe") << int(FormulationPlugin::ChosenRecipe)
                                    << QVariant(QStringLiteral("None")) << false;
    QTest::newRow("tolerance") << int(FormulationPlugin::DefaultTolerance) << QVariant(7.5) << true;
    QTest::newRow("no tolerance") << int(FormulationPlugin::DefaultTolerance) << QVariant(0.0) << false;
    QTest::newRow("tolerance too large")
        << int(FormulationPlugin::DefaultTolerance) << QVariant(50.1) << false;
    QTest::newRow("enforced") << int(FormulationPlugin::ToleranceEnforced) << QVariant(false) << true;
}

void TestFormulationPlugin::settings()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(bool, isValid);
    start();
    m_plugin->InitializeProfile(); // as the terminal does after the start
    IMenuList* const menu = m_plugin->GetPluginMenu();
    QVERIFY(menu != nullptr);
    const QVariant before = menu->GetItemValue(id);
    QVERIFY(before.isValid());
    QVERIFY(before != value);
    QVERIFY(menu->IsItemEnabled(id, nullptr));
    QCOMPARE(menu->IsItemValueValid(id, value), isValid);
    QCOMPARE(menu->SetItemValue(id, value), isValid);
    QCOMPARE(menu->GetItemValue(id), isValid ? value : before);
    QStringList names;
    QStringList values;
    QCOMPARE(menu->GetSelectionList(id, &names, &values), id == FormulationPlugin::ChosenRecipe);
    if (id == FormulationPlugin::ChosenRecipe) {
        QCOMPARE(names,
                 (QStringList{QStringLiteral("Test"), QStringLiteral("Heavy"), QStringLiteral("Exact")}));
        QCOMPARE(values, names);
        QCOMPARE(property("title").toString(), isValid ? value.toString() : before.toString());
    }
}

void TestFormulationPlugin::settingsOfABatchAtWork()
{
    beginBatch();
    IMenuList* const menu = m_plugin->GetPluginMenu();
    QVERIFY(!menu->IsItemEnabled(FormulationPlugin::ChosenRecipe, nullptr));
    QVERIFY(!menu->IsItemEnabled(FormulationPlugin::DefaultTolerance, nullptr));
    QVERIFY(menu->IsItemEnabled(FormulationPlugin::ToleranceEnforced, nullptr));
}

void TestFormulationPlugin::printItems()
{
    beginBatch();
    QStringList uids;
    const QList<IPrintableItem*> items = m_host->printItems();
    for (const IPrintableItem* item : items) {
        uids.append(item->getUId().section(QLatin1Char('.'), 1));
    }
    QCOMPARE(uids,
             (QStringList{QStringLiteral("1title"), QStringLiteral("2recipe"), QStringLiteral("3batch"),
                          QStringLiteral("4state"), QStringLiteral("5components"), QStringLiteral("6total"),
                          QStringLiteral("7deviation"), QStringLiteral("8signature")}));
    m_plugin->ApplyProfileItem(FormulationPlugin::ToleranceEnforced, false);
    weighIn(0, 305.0);
    emit m_host->workflowManager()->NotifyWorkflowFinished(false);
    m_host->clearCalls();
    QVERIFY(items.at(4)->Print(m_host->printer(), m_host->formatter()) == false); // what the printer answers
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"), "IFormat::FormatText(0, \"1 Flour\")",
                           "IFormat::FormatNameValueUnit(0, \"Target\", \"100.0\", \"g\")",
                           "IFormat::FormatNameValueUnit(0, \"Actual\", \"105.0\", \"g\")",
                           "IFormat::FormatNameValueUnit(0, \"Deviation\", \"+5.0\", \"g\")",
                           "IFormat::FormatText(0, \"Out of tolerance\")",
                           "IFormat::FormatText(0, \"2 Sugar\")",
                           "IFormat::FormatNameValueUnit(0, \"Target\", \"50.0\", \"g\")",
                           "IFormat::FormatText(0, \"Not weighed in\")");
    QCOMPARE(m_host->callsTo("IPrinter::PrintLine").size(), 1); // one block
}

void TestFormulationPlugin::speaksGerman()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(FORMULATION_TRANSLATION)));
    beginBatch();
    QVERIFY(QCoreApplication::installTranslator(&german));
    m_plugin->TranslateWarnInfo();
    const QStringList texts{m_plugin->GetPluginName(true),
                            m_plugin->GetPluginMenu()->GetMenuName(),
                            info(0),
                            function("formulation.weigh")->name(),
                            m_host->printItems().at(4)->getName(),
                            m_host->triggers().first()->getName()};
    emit m_host->workflowManager()->NotifyWorkflowFinished(false);
    const QString message = property("message").toString();
    QVERIFY(QCoreApplication::removeTranslator(&german));
    m_plugin->TranslateWarnInfo();
    QCOMPARE(texts, (QStringList{QStringLiteral("Rezeptieren"), QStringLiteral("Rezeptieren"),
                                 QStringLiteral("Flour|läuft"), QStringLiteral("Dosieren"),
                                 QStringLiteral("Komponenten"), QStringLiteral("Charge fertig")}));
    QVERIFY2(message.startsWith(QLatin1String("Charge 0001 wurde abgebrochen")), qPrintable(message));
    QVERIFY(property("message").toString().startsWith(QLatin1String("Batch 0001 was aborted")));
}

QTEST_GUILESS_MAIN(TestFormulationPlugin)
#include "tst_formulationplugin.moc"
