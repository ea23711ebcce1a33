// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

/// The sample plug-in that weighs recipes in, on the built terminal: what goes right, what goes wrong, and the power cut.
class TestFormulation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wholeCourse();
    void sameOutputEveryTime();
    void course_data();
    void course();
    void settingsSurviveARestart();
    void recipeFile_data();
    void recipeFile();
    void killedInTheMiddle();
    void damagedBatch();
    void folderThatCannotBeWritten();

private:
    QStringList arguments(const QByteArray& script) const;
    static QStringList recording();
    void write(const QString& name, const QByteArray& content) const;
    QJsonObject batch(const QString& name) const;
    QString data(const QString& name) const
    {
        return m_folder->filePath(QStringLiteral("data/formulation/") + name);
    }
    void run(TerminalProcess& terminal, const QStringList& arguments) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace
{

const QByteArray Recipes = R"({ "recipes": [ { "name": "Test", "components": [
    { "name": "Flour", "target_g": 100, "tolerance_percent": 2 },
    { "name": "Sugar", "target_g": 50, "tolerance_percent": 2 } ] } ] })";

/// The vessel stands and is tared; the first component can be added.
const QByteArray Begin = "wait stable\npress formulation.start\nput on 200 g\nwait stable\nwait 1 s\n"
                         "expect workflow Add 100.0 g of Flour\n";

const QByteArray Accept = "wait stable\npress workflow.continue\nwait 1 s\n";
const QByteArray Flour = "put on 100.5 g\n" + Accept + "expect workflow Flour is weighed in\n";
const QByteArray Sugar = "press workflow.continue\nexpect workflow Add 50.0 g of Sugar\nput on 50 g\n"
                         + Accept + "expect workflow Sugar is weighed in\n";
const QByteArray End = "press workflow.continue\nexpect workflow Test is complete\n"
                       "press workflow.continue\nexpect workflow none\n";

} // namespace

void TestFormulation::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("data/formulation")));
}

void TestFormulation::write(const QString& name, const QByteArray& content) const
{
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("a file of the test cannot be written", __FILE__, __LINE__);
}

QStringList TestFormulation::arguments(const QByteArray& script) const
{
    write(QStringLiteral("a.script"), script);
    return {QStringLiteral("--headless"),
            QStringLiteral("--plugin"),
            QStringLiteral(BRIMVALE_FORMULATION_PLUGIN),
            QStringLiteral("--script"),
            m_folder->filePath(QStringLiteral("a.script")),
            QStringLiteral("--output"),
            m_folder->path()};
}

QStringList TestFormulation::recording()
{
    return {QStringLiteral("--headless"),
            QStringLiteral("--plugin"),
            QStringLiteral(BRIMVALE_FORMULATION_PLUGIN),
            QStringLiteral("--source"),
            QStringLiteral("trace:") + TerminalProcess::data(QStringLiteral("traces/formulation.csv")),
            QStringLiteral("--script"),
            QStringLiteral(BRIMVALE_FORMULATION_SCRIPT)};
}

void TestFormulation::run(TerminalProcess& terminal, const QStringList& arguments) const
{
    terminal.setVariable("BRIMVALE_PLUGIN_DATA", qPrintable(m_folder->filePath(QStringLiteral("data"))));
    QVERIFY(terminal.run(arguments));
}

QJsonObject TestFormulation::batch(const QString& name) const
{
    QFile file(data(name));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

void TestFormulation::wholeCourse()
{
    TerminalProcess terminal;
    run(terminal, recording() + QStringList{QStringLiteral("--output"), m_folder->path()});
    COMPARE_EXIT_CODE(terminal, 0);
    QCOMPARE(terminal.errorText().count(QLatin1String("WARN")), 0);

    QStringList pictures = QDir(m_folder->path()).entryList({QStringLiteral("*.png")});
    QCOMPARE(pictures.size(), 10);
    for (const QString& picture : qAsConst(pictures))
        QVERIFY2(QImage(m_folder->filePath(picture)).height() == 600, qPrintable(picture));

    const QJsonObject record = batch(QStringLiteral("batch-0001.json"));
    QCOMPARE(record.value(QStringLiteral("state")).toString(), QStringLiteral("complete"));
    QCOMPARE(record.value(QStringLiteral("recipe")).toString(), QStringLiteral("Hand cream"));
    QCOMPARE(record.value(QStringLiteral("vessel_g")).toDouble(), 84.6);
    const QJsonArray components = record.value(QStringLiteral("components")).toArray();
    QCOMPARE(components.size(), 3);
    QCOMPARE(components.at(1).toObject().value(QStringLiteral("weighed_g")).toDouble(), 12.1);
    QVERIFY(!QFile::exists(data(QStringLiteral("unfinished.json"))));
}

void TestFormulation::sameOutputEveryTime()
{
    QList<QByteArray> outputs;
    QList<QByteArray> pictures;
    for (int count = 0; count < 2; ++count) {
        init();
        TerminalProcess terminal;
        terminal.setWorkingDirectory(m_folder->path()); // the report names the folder of the pictures
        run(terminal, recording() + TerminalProcess::words(QStringLiteral("--output .")));
        COMPARE_EXIT_CODE(terminal, 0);
        QByteArray picture;
        const QStringList names = QDir(m_folder->path()).entryList({QStringLiteral("*.png")});
        for (const QString& name : names) {
            QFile file(m_folder->filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            picture += file.readAll();
        }
        outputs.append(terminal.output());
        pictures.append(picture);
    }
    QCOMPARE(outputs.at(1), outputs.at(0));
    QVERIFY(!pictures.at(0).isEmpty());
    QVERIFY(pictures.at(1) == pictures.at(0));
}

void TestFormulation::course_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("settings");
    const auto row = [](const char* name, const QByteArray& script,
                        const QByteArray& settings = QByteArray()) {
        QTest::newRow(name) << script << settings;
    };
    const QByteArray notEnforced = "[user]\nformulation\\%3A\\formulation\\menu.json\\3=false\n";

    row("all goes well", Begin + Flour + Sugar + End);
    row("accepted while unstable", Begin
                                       + "put on 100 g\nwait 0.3 s\npress workflow.continue\nexpect workflow "
                                         "Waiting for a stable weight\n"
                                         "wait stable\nwait 1 s\nexpect workflow Weighed in 100.0 g\n");
    row("overload",
        Begin
            + "put on 6 kg\nwait display Overload within 5 s\npress workflow.continue\nwait 1 s\n"
              "expect workflow Overload\nexpect info Flour: at work\ntake off 5.9 kg\nwait stable\n"
              "wait 1 s\nexpect workflow Weighed in 100.0 g\n");
    row("cable out", Begin
                         + "put on 99 g\nwait stable\ndisconnect\nwait 1 s\nexpect workflow No connection\n"
                           "press workflow.continue\nwait 2 s\nexpect workflow No connection\nconnect\n"
                           "wait stable\nwait 1 s\nexpect workflow Weighed in 99.0 g\n");
    row("shown in another unit",
        "wait stable\nset unit kg\n" + Begin + Flour + "expect workflow Weighed in 100.5 g\n");
    row("too little",
        Begin + "put on 97.9 g\n" + Accept
            + "expect workflow Refused: 2.1 g too little\nexpect workflow Add some, press Repeat\n"
              "expect action workflow.continue disabled\nput on 0.1 g\nwait stable\n"
              "expect workflow Flour: within the tolerance now\npress workflow.repeat\nwait 1 s\n"
              "expect workflow Weighed in 98.0 g\n");
    row("too much", Begin + "put on 102.1 g\n" + Accept
                        + "expect workflow Refused: 2.1 g too much\npress workflow.repeat\nwait 1 s\n"
                          "expect workflow Refused: 2.1 g too much\nexpect info Flour: at work\n");
    row("upper limit", Begin + "put on 102 g\n" + Accept + "expect workflow Weighed in 102.0 g\n");
    row("out of tolerance, not enforced",
        Begin + "put on 110 g\n" + Accept
            + "expect workflow Weighed in 110.0 g\nexpect workflow Out of tolerance\n"
              "expect info Flour: ✓ 110.0 g\ntake off 10 g\nwait stable\npress workflow.repeat\nwait 1 s\n"
              "expect workflow \"Dosing; Flour is weighed in; Component 1 of 2, target 100.0 g; Weighed in "
              "100.0 g\"\n",
        notEnforced);
    row("nothing at all, not enforced",
        Begin + "press workflow.continue\nwait 1 s\nexpect workflow Refused: 100.0 g too little\n",
        notEnforced);
    row("less than nothing", Begin + "take off 20 g\n" + Accept
                                 + "expect workflow Refused: 120.0 g too little\nexpect display -20.0 g\n");
    row("refused in German", Begin + "put on 110 g\n" + Accept
                                 + "language de\nwait 0.5 s\nexpect workflow Abgelehnt: 10.0 g zu viel\n"
                                   "language en\nwait 0.5 s\nexpect workflow Refused: 10.0 g too much\n");
    row("repeated after its result", Begin + Flour
                                         + "put on 1 g\nwait stable\npress workflow.repeat\nwait 1 s\n"
                                           "expect workflow Weighed in 101.5 g\n"
                                           "expect info Flour: ✓ 101.5 g\n");
    row("back from the second", Begin + Flour
                                    + "press workflow.continue\nexpect info Flour: ✓ 100.5 g\n"
                                      "press workflow.back\nexpect workflow Add 100.0 g of Flour\n"
                                      "expect info Flour: at work\nexpect display 100.5 g\n"
                                    + Accept + "expect workflow Weighed in 100.5 g\n" + Sugar + End);
    row("back to the vessel", Begin
                                  + "press workflow.back\nexpect workflow Put the empty vessel on the scale\n"
                                    "expect net off\npress workflow.continue\nwait 1 s\n"
                                    "expect workflow Add 100.0 g of Flour\n"
                                  + Flour);
    row("vessel stands already", "put on 200 g\nwait stable\npress formulation.start\n"
                                 "press workflow.continue\nwait 1 s\nexpect workflow Add 100.0 g of Flour\n"
                                 "expect net on\n");
    row("no vessel", "wait stable\npress formulation.start\npress workflow.continue\nwait 1 s\n"
                     "expect workflow Nothing is on the scale.\nput on 50 g\nwait stable\nwait 1 s\n"
                     "expect workflow Add 100.0 g of Flour\n");
    row("scale below zero", "wait stable\ntake off 1.5 g\nwait stable\npress formulation.start\nwait 1 s\n"
                            "expect workflow The scale shows less than nothing.\n");
    row("vessel too heavy",
        "wait stable\npress formulation.start\nput on 5.9 kg\nwait stable\nwait 1 s\n"
        "expect workflow The vessel is too heavy\ntake off 5.8 kg\nwait stable\nwait 1 s\n"
        "expect workflow Add 100.0 g of Flour\n");
    row("aborted at the vessel", "wait stable\npress formulation.start\npress workflow.abort\n"
                                 "expect workflow none\nexpect action formulation.start enabled\n"
                                 "press formulation.start\nexpect workflow Batch 0001\n");
    row("aborted after the first",
        Begin + Flour
            + "press workflow.continue\npress workflow.abort\nexpect workflow none\n"
              "expect action formulation.start enabled\n"
              "protocol item formulation.4state on\n"
              "protocol item formulation.5components on\nset print-columns 24\n"
              "press print\nwait 1 s\nexpect transfer 100.5 g\n"
              "expect print " BRIMVALE_TEST_DATA "/formulation/aborted.txt\n"
              "press formulation.start\nexpect workflow Batch 0002\n");
    row("nothing to print yet", "wait stable\npress print\nwait 1 s\nexpect transfer none\n");
    row("closed and resumed",
        Begin + Flour
            + "press workflow.continue\nclose\nexpect workflow none\nstart formulation\n"
              "expect action formulation.resume enabled\nexpect info Flour: ✓ 100.5 g\n"
              "press formulation.resume\nwait 1 s\nexpect workflow Add 50.0 g of Sugar\n"
              "expect display 0.0 g\nput on 50 g\n"
            + Accept + "expect workflow Weighed in 50.0 g\n" + End);
    row("resumed with a part of the next",
        Begin + Flour
            + "press workflow.continue\nput on 20 g\nwait stable\nclose\n"
              "start formulation\npress formulation.resume\nwait 1 s\n"
              "expect workflow Add 50.0 g of Sugar\nexpect display 20.0 g\n");
    row("resumed without the vessel", Begin + Flour
                                          + "close\ntake off all\nwait stable\nstart formulation\n"
                                            "press formulation.resume\nwait 1 s\n"
                                            "expect workflow Put the vessel with its contents back\n"
                                            "expect workflow 1 of 2 components are weighed in\n"
                                            "expect workflow 300.5 g are missing.\n"
                                            "put on 300.2 g\nwait stable\nwait 1 s\n"
                                            "expect workflow Add 50.0 g of Sugar\nexpect display 0.0 g\n");
    row("resumed before the end", Begin + Flour + Sugar
                                      + "close\nstart formulation\npress formulation.resume\n"
                                        "expect workflow Test is complete\nexpect workflow Total 150.5 g\n");
    row("closed at the end", Begin + Flour + Sugar
                                 + "press workflow.continue\nclose\nstart formulation\n"
                                   "expect action formulation.start enabled\n");
    row("refusing switched off", Begin
                                     + "open settings\nset item 3 off\nexpect item 3 Off\nclose settings\n"
                                       "put on 110 g\n"
                                     + Accept + "expect workflow Weighed in 110.0 g\n");
    row("settings while a batch is at work", Begin
                                                 + "open settings\nexpect item 1 Test\nexpect item 2 1.00 %\n"
                                                   "screenshot settings.png\nclose settings\n"
                                                 + Flour);
    row("discarded", Begin + Flour
                         + "close\nstart formulation\npress formulation.discard\n"
                           "expect action formulation.start enabled\npress formulation.start\n"
                           "expect workflow Batch 0002\n");
}

void TestFormulation::course()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, settings);
    write(QStringLiteral("data/formulation/recipes.json"), Recipes);
    write(QStringLiteral("settings.ini"), settings);
    TerminalProcess terminal;
    run(terminal,
        arguments(script)
            + QStringList{QStringLiteral("--settings"), m_folder->filePath(QStringLiteral("settings.ini"))});
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputText().contains(QLatin1String(": all met\n"))
                 || terminal.outputText().contains(QLatin1String("expectation: met\n")),
             terminal.everything().constData());
}

void TestFormulation::settingsSurviveARestart()
{
    write(QStringLiteral("data/formulation/recipes.json"),
          R"({ "recipes": [ { "name": "A", "components": [ { "name": "Flour", "target_g": 10 } ] },
                            { "name": "B", "components": [ { "name": "Salt", "target_g": 20 } ] } ] })");
    const QStringList settings{QStringLiteral("--settings"),
                               m_folder->filePath(QStringLiteral("settings.ini"))};
    const QByteArray start = "press formulation.start\nput on 200 g\nwait stable\nwait 1 s\n";
    {
        TerminalProcess terminal;
        run(terminal,
            arguments("wait stable\nopen settings\nexpect item 1 A\nexpect item 2 1.00 %\nexpect item 3 On\n"
                      "set item 1 B\nset item 2 10\nclose settings\nexpect info Salt: 20.0 g\n"
                      + start + "expect workflow 18.0 to 22.0 g\n")
                + settings);
        COMPARE_EXIT_CODE(terminal, 0);
    }
    TerminalProcess terminal;
    run(terminal, arguments("wait stable\nopen settings\nexpect item 2 10.00 %\nclose settings\n"
                            "press formulation.discard\nexpect info Salt: 20.0 g\n"
                            + start + "expect workflow 18.0 to 22.0 g\n")
                      + settings);
    COMPARE_EXIT_CODE(terminal, 0);
}

void TestFormulation::recipeFile_data()
{
    QTest::addColumn<QByteArray>("recipes");
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("no JSON") << QByteArray("{\n  \"recipes\": [\n    oops\n  ]\n}\n")
                             << QByteArray("expect log recipes.json:3: this is no JSON\n"
                                           "expect action formulation.start disabled\nexpect info none\n");
    QTest::newRow("zero target") << QByteArray(Recipes).replace("100", "0")
                                 << QByteArray(
                                        "expect log recipes.json:2: \"target_g\" must be a number greater "
                                        "than 0, at most 1000000; it is 0\n"
                                        "expect action formulation.start disabled\n");
    QTest::newRow("one of two is good")
        << QByteArray(R"({ "recipes": [
{ "name": "Bad", "components": [] },
{ "name": "Good", "components": [ { "name": "Flour", "target_g": 5 } ] } ] })")
        << QByteArray("expect log recipes.json:2: a recipe has 1 to 50 components, this one 0\n"
                      "expect info Good\nexpect action formulation.start enabled\n");
    QTest::newRow("too heavy for the scale")
        << QByteArray(Recipes).replace("100", "6000")
        << QByteArray(
               "press formulation.start\nexpect workflow none\nexpect action formulation.start enabled\n");
    QTest::newRow("tolerance between two readings")
        << QByteArray(Recipes).replace("100", "0.55")
        << QByteArray("press formulation.start\nexpect workflow none\n");
    QTest::newRow("long names")
        << QByteArray(Recipes).replace("Flour", QByteArray(200, 'W')).replace("Test", QByteArray(200, 'M'))
        << QByteArray("screenshot long-1.png\npress formulation.start\nput on 50 g\nwait stable\nwait 1 s\n"
                      "expect workflow Add 100.0 g of WWW\nscreenshot long-2.png\nput on 100 g\nwait stable\n"
                      "press workflow.continue\nwait 1 s\nexpect workflow WWW\nscreenshot long-3.png\n");
    QTest::newRow("places in names") << QByteArray(Recipes).replace("Flour", "%2 %1 \\u003cb\\u003e")
                                     << QByteArray(
                                            "press formulation.start\nput on 50 g\nwait stable\nwait 1 s\n"
                                            "expect workflow Add 100.0 g of %2 %1 <b>\n");
}

void TestFormulation::recipeFile()
{
    QFETCH(QByteArray, recipes);
    QFETCH(QByteArray, script);
    write(QStringLiteral("data/formulation/recipes.json"), recipes);
    TerminalProcess terminal;
    run(terminal, arguments("wait stable\n" + script));
    COMPARE_EXIT_CODE(terminal, 0);
}

void TestFormulation::killedInTheMiddle()
{
    write(QStringLiteral("data/formulation/recipes.json"), Recipes);
    {
        // In real time, at ten times its speed, so that there is a middle to kill it in.
        TerminalProcess terminal;
        terminal.setVariable("BRIMVALE_PLUGIN_DATA", qPrintable(m_folder->filePath(QStringLiteral("data"))));
        terminal.setArguments(arguments(Begin + Flour
                                        + "press workflow.continue\nput on 20 g\nwait stable\nnote Now\n"
                                          "wait 1 s\nwait 1000 s\n")
                              + TerminalProcess::words(QStringLiteral("--speed 10")));
        terminal.start();
        QVERIFY2(terminal.waitForOutput(QStringLiteral("Now")), terminal.everything().constData());
        QCOMPARE(terminal.state(), QProcess::Running);
        terminal.kill();
        QVERIFY(terminal.waitForFinished());
        QCOMPARE(terminal.exitStatus(), QProcess::CrashExit);
    }
    QCOMPARE(batch(QStringLiteral("unfinished.json")).value(QStringLiteral("state")).toString(),
             QStringLiteral("unfinished"));
    // The new terminal knows nothing of the tare; what was poured before the end is still in the vessel.
    TerminalProcess terminal;
    run(terminal, arguments("wait stable\nexpect action formulation.resume enabled\n"
                            "expect info Batch 0001\nexpect info Flour: ✓ 100.5 g\n"
                            "screenshot resume-1.png\npress formulation.resume\nwait 1 s\n"
                            "expect workflow 300.5 g are missing.\nscreenshot resume-2.png\n"
                            "put on 320.5 g\nwait stable\nwait 1 s\nexpect workflow Add 50.0 g of Sugar\n"
                            "expect display 20.0 g\nscreenshot resume-3.png\nput on 30 g\n"
                            + Accept + "expect workflow Weighed in 50.0 g\n" + End));
    COMPARE_EXIT_CODE(terminal, 0);
    const QJsonObject record = batch(QStringLiteral("batch-0001.json"));
    QCOMPARE(record.value(QStringLiteral("state")).toString(), QStringLiteral("complete"));
    QVERIFY(!QFile::exists(data(QStringLiteral("unfinished.json"))));
}

void TestFormulation::damagedBatch()
{
    write(QStringLiteral("data/formulation/recipes.json"), Recipes);
    write(QStringLiteral("data/formulation/unfinished.json"), "{ \"batch\": 1,");
    TerminalProcess terminal;
    run(terminal,
        arguments("wait stable\nexpect action formulation.start enabled\nscreenshot damaged.png\n"));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY(QFile::exists(data(QStringLiteral("damaged-1.json"))));
    QVERIFY(!QFile::exists(data(QStringLiteral("unfinished.json"))));
}

void TestFormulation::folderThatCannotBeWritten()
{
    // The folder is a file, which no rights help against.
    write(QStringLiteral("blocked"), "");
    TerminalProcess terminal;
    terminal.setVariable("BRIMVALE_PLUGIN_DATA", qPrintable(m_folder->filePath(QStringLiteral("blocked"))));
    QVERIFY(terminal.run(
        arguments("wait stable\npress formulation.start\nput on 200 g\nwait stable\nwait 1 s\n"
                  "expect log The batch cannot be written to\n"
                  "expect workflow Add 500.0 g of Wheat flour\nexpect workflow The batch could not be saved\n"
                  "put on 500 g\nwait stable\npress workflow.continue\nwait 1 s\n"
                  "expect workflow Weighed in 500.0 g\nexpect workflow The batch could not be "
                  "saved\nscreenshot unsaved.png\n")));
    COMPARE_EXIT_CODE(terminal, 0);
}

QTEST_GUILESS_MAIN(TestFormulation)
#include "tst_formulation.moc"
