// SPDX-License-Identifier: BSD-3-Clause
#include "SessionFixture.h"
#include "script/ScriptRunner.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale::Terminal;

class TestScriptRunner : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void met_data();
    void met();
    void notMet_data();
    void notMet();
    void notCarriedOut_data();
    void notCarriedOut();
    void unknownPluginIsFoundBeforeAnythingIsDone();
    void expectationThatFailsGoesOn();
    void statementThatFailsEnds();
    void report();
    void reportOfAFailure();
    void notesStandAlone();
    void counts();
    void stableNeedsReadingsAfterTheChange();
    void defaultLimitOfAWait();
    void waitForTheEndOfARecording();
    void settings();
    void settingsThatFail_data();
    void settingsThatFail();
    void screenshot();
    void screenshotWhereThereIsNoFolder();
    void plugins();
    void keysOfAPlugin();
    void faultThatIsExpected();
    void language();
    void benchPage();
    void info();
    void logLine();
    void interruption();

private:
    bool play(const QString& text);

    std::unique_ptr<SessionFixture> m_fixture;
    QStringList m_report;
    QStringList m_failures;
    QString m_folder;
    std::unique_ptr<ScriptRunner> m_runner;
};

void TestScriptRunner::init()
{
    m_fixture = std::make_unique<SessionFixture>();
    m_report.clear();
    m_failures.clear();
    m_folder.clear();
}

void TestScriptRunner::cleanup()
{
    m_runner.reset();
    if (m_fixture->session)
        m_fixture->session->shutDown();
    m_fixture.reset();
}

/// Plays the lines of @p text, which are separated by "; ".
bool TestScriptRunner::play(const QString& text)
{
    if (!m_fixture->session)
        m_fixture->start();
    QStringList errors;
    const std::optional<Script> script =
        Script::parse(QString(text).replace(QLatin1String("; "), QLatin1String("\n")).toUtf8(),
                      QStringLiteral("a.script"), &errors);
    if (!script) {
        QTest::qFail(qPrintable(errors.join(QLatin1Char('\n'))), __FILE__, __LINE__);
        return false;
    }
    const ScriptOutput output{[this](const QString& line) { m_report.append(line); },
                              [this](const QString& message) { m_failures.append(message); }};
    m_runner = std::make_unique<ScriptRunner>(*m_fixture->session, m_fixture->driver, output, m_folder);
    return m_runner->run(*script);
}

void TestScriptRunner::met_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("put on") << "put on 500 g; wait stable; expect display 500.0 g; expect stable";
    QTest::newRow("take off") << "put on 500 g; take off 200 g; wait stable; expect display 300.0 g";
    QTest::newRow("take everything off")
        << "put on 500 g; wait stable; take off all; wait stable; expect display 0.0 g";
    QTest::newRow("unstable while it settles") << "put on 500 g; wait 0.3 s; expect unstable";
    QTest::newRow("display within a time") << "put on 500 g; wait display 500.0 g within 5 s";
    QTest::newRow("tare") << "put on 500 g; wait stable; press tare; expect display 0.0 g; expect net on";
    QTest::newRow("clear tare")
        << "put on 500 g; wait stable; press tare; press clearTare; expect display 500.0 g; "
           "expect net off; expect action clearTare disabled";
    QTest::newRow("zero") << "put on 20 g; wait stable; press zero; expect display 0.0 g; expect net off";
    QTest::newRow("print")
        << "put on 500 g; wait stable; expect print enabled; expect transfer none; press print; "
           "expect transfer 500.0 g";
    QTest::newRow("key") << "wait stable; expect action tare enabled; expect action clearTare disabled; "
                            "expect action zero text Zero";
    QTest::newRow("level") << "expect warning levelling none; set level off; set level ok";
    QTest::newRow("calibration")
        << "set calibration due; set calibration ok; expect warning calibration none";
    QTest::newRow("noise")
        << "set noise 5; wait 2 s; expect unstable; set noise 0; wait stable; expect display 0.0 g";
    QTest::newRow("unit key") << "put on 500 g; wait stable; press unit; expect display 7716 GN; press unit; "
                                 "expect display 0.5000 kg; set unit ct; expect display "
                                 "2500.0 ct; press unit; expect display 321.5 dwt";
    QTest::newRow("unit key of the terminal")
        << "put on 500 g; wait stable; press action unit; expect display 7716 GN";
    QTest::newRow("small display")
        << "put on 500 g; wait stable; expect small none; set small-unit kg; expect small 0.5000 kg; press "
           "small-unit; expect small 1.1023 lb; set small-unit none; expect small none";
    QTest::newRow("small display of a net weight")
        << "put on 500 g; wait stable; press tare; expect small 500.0 g; set small-unit kg; expect small "
           "0.0000 kg";
    QTest::newRow("approval")
        << "wait stable; set unit lb; set approval on; expect units g kg; expect display 0.0 g; set carat "
           "on; expect "
           "units "
           "ct g kg; set decimals 2; expect units ct kg; set approval off; expect display 0.0000 lb";
    QTest::newRow("unverified and reduced digits")
        << "put on 500 g; wait stable; set auxiliary-digit on; expect display 500.0 g; set reduced-digits 1; "
           "expect display 500 g";
    QTest::newRow("automatic transfer")
        << "wait stable; set transfer absolute 5 g; expect reason inside the band; put on 500 g; wait "
           "stable; "
           "expect transfer 500.0 g; expect triggers 1; put on 3 g; wait stable; expect triggers 1; take off "
           "all; wait stable; expect triggers 2; expect transfer 500.0 g";
    QTest::newRow("automatic transfer in percent")
        << "wait stable; set transfer percent 10; put on 500 g; wait stable; put on 40 g; wait stable; "
           "expect "
           "transfer 500.0 g; put on 20 g; wait stable; expect transfer 560.0 g; set transfer off; expect "
           "reason switched off";
    QTest::newRow("automatic transfer with a fixed band")
        << "wait stable; set transfer minimum 50 g; set transfer absolute-fixed 5 g; expect reason no band; "
           "put "
           "on 500 g; wait stable; expect transfer none; take off all; wait stable; put on 502 g; wait "
           "stable; "
           "expect transfer 502.0 g";
    QTest::newRow("cable out does not trigger")
        << "wait stable; set transfer absolute 5 g; put on 500 g; wait stable; expect triggers 1; "
           "disconnect; "
           "wait 2 s; expect reason \"no valid reading: No connection\"; expect triggers 1; connect; wait "
           "stable; expect triggers 1";
    QTest::newRow("weighing parameters")
        << "expect parameters none; set parameters msw; expect parameters msw; set parameters standard; "
           "expect "
           "parameters standard; set parameters system; expect parameters system";
    QTest::newRow("drift") << "set noise 0; set drift 6 g/min; wait 60 s; set drift 0 g/min; wait stable; "
                              "expect display 6.0 g";
    QTest::newRow("cable")
        << "wait stable; disconnect; wait display \"No connection\" within 1 s; connect; wait stable; "
           "expect display 0.0 g";
    QTest::newRow("overload")
        << "put on 7 kg; wait display Overload within 5 s; expect unstable; take off all; wait "
           "stable; expect display 0.0 g";
    QTest::newRow("refusal")
        << "put on 500 g; wait stable; press zero; expect notice zero; dismiss; expect notice none";
    QTest::newRow("no host call") << "expect no host-call IWeighing::Tare";
}

void TestScriptRunner::met()
{
    QFETCH(QString, script);
    const bool ok = play(script);
    QCOMPARE(m_failures, QStringList());
    QVERIFY(ok);
}

void TestScriptRunner::notMet_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("failure");
    const auto row = [](const char* name, const char* script, const char* failure) {
        QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(failure);
    };
    row("display", "put on 499.9 g; wait stable; expect display 500.0 g",
        "a.script:3: expected display \"500.0 g\", but it shows \"499.9 g\"");
    row("stable", "put on 500 g; wait 0.3 s; expect stable",
        "a.script:3: expected a stable display, but it shows \"419.2 g\", unstable");
    row("unstable", "wait stable; expect unstable",
        "a.script:2: expected an unstable display, but it shows \"0.0 g\", stable");
    row("net on", "expect net on", "a.script:1: expected net on, but it is off");
    row("net off", "put on 5 g; wait stable; press tare; expect net off",
        "a.script:4: expected net off, but it is on");
    row("levelling warning", "expect warning levelling Levelling required",
        "a.script:1: expected levelling warning \"Levelling required\", but there is none");
    row("calibration warning", "expect warning calibration Do it",
        "a.script:1: expected calibration warning \"Do it\", but there is none");
    row("key enabled", "wait stable; expect action clearTare enabled",
        "a.script:2: expected key \"clearTare\" enabled, but it is disabled");
    row("key disabled", "expect action tare disabled",
        "a.script:1: expected key \"tare\" disabled, but it is enabled");
    row("key with states", "expect action tare toggle 1",
        "a.script:1: expected key \"tare\" in state 1, but it has no states");
    row("text of a key", "expect action tare text Tara",
        "a.script:1: expected key \"tare\" with text \"Tara\", but its text is \"Tare\"");
    row("unknown key", "expect action nothing enabled",
        "a.script:1: expected key \"nothing\" enabled, but there is no key \"nothing\"; there are: zero, "
        "tare, "
        "clearTare, unit");
    row("print enabled", "expect print disabled",
        "a.script:1: expected the print key disabled, but it is enabled");
    row("notice", "expect notice Hello", "a.script:1: expected notice with \"Hello\", but there is none");
    row("no transfer", "wait stable; press print; expect transfer none",
        "a.script:3: expected no transfer, but it is \"0.0 g\"");
    row("transfer", "wait stable; press print; expect transfer 0.1 g",
        "a.script:3: expected transfer \"0.1 g\", but it is \"0.0 g\"");
    row("host call", "expect host-call IWeighing::Tare",
        "a.script:1: expected host call \"IWeighing::Tare\", but there was none at all");
    row("workflow", "expect workflow Put", "a.script:1: expected workflow with \"Put\", but there is none");
    row("info", "expect info Gross", "a.script:1: expected info with \"Gross\", but there is none");
    row("log", "expect log Nobody writes this",
        "a.script:1: expected a log line with \"Nobody writes this\", but there is none (the log level may "
        "be too "
        "high; see --log-level)");
}

void TestScriptRunner::notMet()
{
    QFETCH(QString, script);
    QFETCH(QString, failure);
    QVERIFY(!play(script));
    QCOMPARE(m_failures, QStringList{failure});
}

void TestScriptRunner::notCarriedOut_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("failure");
    const auto row = [](const char* name, const char* script, const char* failure) {
        QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(failure);
    };
    row("unknown key", "press start",
        "a.script:1: there is no key \"start\"; there are: zero, tare, clearTare, unit");
    row("disabled key", "press clearTare", "a.script:1: the key \"clearTare\" is disabled");
    row("never stable", "set noise 5; wait stable within 3 s",
        "a.script:2: the weight was not stable within 3.0 s; it shows \"0.0 g\"");
    row("never shown", "wait stable; wait display 5.0 g within 2 s",
        "a.script:2: the display did not show \"5.0 g\" within 2.0 s; it shows \"0.0 g\"");
    row("unit that is not offered", "set approval on; set unit lb",
        "a.script:2: the unit \"lb\" is not offered; there are: g, kg");
    row("too many decimals", "set decimals 8", "a.script:1: the decimals go up to 7");
    row("too many digits left out", "set reduced-digits 4",
        "a.script:1: the digits that are left out go up to 3");
    row("threshold", "set transfer percent 100",
        "a.script:1: The threshold of the automatic transfer must be a whole number from 1 to 99 percent.");
    row("nothing to close", "close", "a.script:1: no plug-in is running");
}

void TestScriptRunner::notCarriedOut()
{
    QFETCH(QString, script);
    QFETCH(QString, failure);
    QVERIFY(!play(script + QStringLiteral("; note never reached")));
    QCOMPARE(m_failures, QStringList{failure});
    QVERIFY(!m_report.contains(QStringLiteral("never reached")));
}

void TestScriptRunner::unknownPluginIsFoundBeforeAnythingIsDone()
{
    QVERIFY(!play(QStringLiteral("put on 5 g; start weighing; start counting")));
    QCOMPARE(m_failures,
             (QStringList{QStringLiteral("a.script:2: there is no plug-in \"weighing\"; there are: none"),
                          QStringLiteral("a.script:3: there is no plug-in \"counting\"; there are: none")}));
    QCOMPARE(m_report, QStringList());
    QCOMPARE(m_runner->statementCount(), 0);
}

void TestScriptRunner::expectationThatFailsGoesOn()
{
    QVERIFY(!play(QStringLiteral("expect net on; expect display 7 g; note reached")));
    QCOMPARE(m_failures.size(), 2);
    QCOMPARE(m_report.last(), QStringLiteral("reached"));
    QCOMPARE(m_runner->expectationCount(), 2);
    QCOMPARE(m_runner->failedExpectationCount(), 2);
}

void TestScriptRunner::statementThatFailsEnds()
{
    QVERIFY(!play(QStringLiteral("press start; expect net on")));
    QCOMPARE(m_failures.size(), 1);
    QCOMPARE(m_runner->statementCount(), 1);
    QCOMPARE(m_runner->expectationCount(), 0);
}

void TestScriptRunner::report()
{
    QVERIFY(play(QStringLiteral("put on 500 g; wait stable; expect display 500.0 g; press tare")));
    QCOMPARE(m_report,
             (QStringList{
                 QStringLiteral("   0.0 s  put on 500 g                                500 g on the scale"),
                 QStringLiteral("   2.1 s  wait stable                                 500.0 g  stable"),
                 QStringLiteral("   2.1 s  expect display 500.0 g                      ok"),
                 QStringLiteral("   2.1 s  press tare                                  0.0 g  stable  net"),
             }));
}

void TestScriptRunner::reportOfAFailure()
{
    QVERIFY(!play(QStringLiteral("wait stable; expect display 1.0 g")));
    QCOMPARE(
        m_report.last(),
        QStringLiteral("   1.0 s  expect display 1.0 g                        FAILED: it shows \"0.0 g\""));
}

void TestScriptRunner::notesStandAlone()
{
    QVERIFY(play(QStringLiteral("note First; wait 1 s; note Second")));
    QCOMPARE(m_report.size(), 4);
    QCOMPARE(m_report.at(0), QStringLiteral("First"));
    QCOMPARE(m_report.at(2), QString());
    QCOMPARE(m_report.at(3), QStringLiteral("Second"));
}

void TestScriptRunner::counts()
{
    QVERIFY(play(QStringLiteral("note Begin; wait stable; expect display 0.0 g; expect net off")));
    QCOMPARE(m_runner->statementCount(), 3);
    QCOMPARE(m_runner->expectationCount(), 2);
    QCOMPARE(m_runner->failedExpectationCount(), 0);
}

void TestScriptRunner::stableNeedsReadingsAfterTheChange()
{
    // The empty scale is still stable at the moment at which the weight is put on.
    QVERIFY(play(QStringLiteral("wait stable; put on 500 g; wait stable; expect display 500.0 g")));
}

void TestScriptRunner::defaultLimitOfAWait()
{
    m_fixture->start();
    const qint64 startMs = m_fixture->clock.nowMs();
    QVERIFY(!play(QStringLiteral("wait display 5.0 g")));
    QCOMPARE(m_fixture->clock.nowMs() - startMs, Statement::DefaultWithinMs);
}

void TestScriptRunner::waitForTheEndOfARecording()
{
    QString error;
    m_fixture->options.source =
        *SourceSpec::parse(QStringLiteral("trace:" BRIMVALE_TRACE_DIR "/filling.csv"), &error);
    const bool ok = play(QStringLiteral("wait 2 s; wait end; expect display 48.2 g; expect stable"));
    QCOMPARE(m_failures, QStringList());
    QVERIFY(ok);
    QCOMPARE(m_fixture->session->readings(), Q_UINT64_C(381));
}

void TestScriptRunner::screenshot()
{
    QTemporaryDir folder;
    m_folder = folder.path();
    QVERIFY(play(QStringLiteral("screenshot a.png")));
    const QImage image(folder.filePath(QStringLiteral("a.png")));
    QCOMPARE(image.size(), QSize(1360, 600));
    QCOMPARE(m_runner->screenshotCount(), 1);
}

void TestScriptRunner::screenshotWhereThereIsNoFolder()
{
    m_folder = QStringLiteral("/no/such/folder");
    QVERIFY(!play(QStringLiteral("screenshot a.png")));
    QCOMPARE(m_failures.size(), 1);
    QVERIFY2(m_failures.first().contains(QLatin1String("/no/such/folder/a.png")),
             qPrintable(m_failures.first()));
    QCOMPARE(m_runner->screenshotCount(), 0);
}

void TestScriptRunner::plugins()
{
    m_fixture->usePlugin("fixture");
    m_fixture->usePlugin("fixture_second");
    const bool ok = play(QStringLiteral("expect action fixture.action enabled; start fixture_second; close; "
                                        "expect action tare enabled; start fixture; "
                                        "expect action fixture.action text Action"));
    QCOMPARE(m_failures, QStringList());
    QVERIFY(ok);
    QVERIFY2(m_report.at(1).contains(QLatin1String("is running")), qPrintable(m_report.at(1)));
    QVERIFY2(m_report.at(2).contains(QLatin1String("has closed")), qPrintable(m_report.at(2)));
}

void TestScriptRunner::keysOfAPlugin()
{
    m_fixture->usePlugin("fixture");
    QVERIFY(!play(QStringLiteral("press tare")));
    QCOMPARE(m_failures,
             QStringList{QStringLiteral(
                 "a.script:1: there is no key \"tare\"; there are: fixture.delete, fixture.action")});
}

void TestScriptRunner::faultThatIsExpected()
{
    m_fixture->usePlugin("throw_action");
    QVERIFY(play(QStringLiteral("press fixture.action; expect notice on purpose")));
    QCOMPARE(m_fixture->session->errors(), QStringList());
}

void TestScriptRunner::benchPage()
{
    QVERIFY(play(QStringLiteral("bench transfer")));
    QCOMPARE(m_fixture->session->bench().page(), QStringLiteral("transfer"));
}

void TestScriptRunner::language()
{
    QVERIFY(play(QStringLiteral("language de; language en; expect action zero text Zero")));
}

void TestScriptRunner::info()
{
    m_fixture->usePlugin("fixture");
    QVERIFY(play(QStringLiteral("expect info Line")));
}

void TestScriptRunner::logLine()
{
    m_fixture->usePlugin("fixture");
    QVERIFY(play(QStringLiteral("expect log Start application,Fixture")));
}

void TestScriptRunner::interruption()
{
    m_fixture->clock.callAfter(2000, [this] { m_fixture->driver.interrupt(); });
    QVERIFY(play(QStringLiteral("wait 1 s; wait 60 s; expect net on")));
    QCOMPARE(m_failures, QStringList());
    QCOMPARE(m_runner->statementCount(), 1);
}

void TestScriptRunner::settings()
{
    m_fixture->usePlugin("fixture_menu");
    QVERIFY2(play(QStringLiteral(
                 "open settings; expect item 11 500.0 g; set item 11 250.7; expect item 11 250.5 g; "
                 "press item 20; expect item 20 Off; expect item 25 none; set item 20 on; "
                 "set item 13 coarse; expect item 13 coarse; set item 21 \"Lot 7\"; "
                 "press item 22; expect item 21 Lot 7; press item 22; expect item 21 \"\"; "
                 "close settings; expect item 11 none")),
             qPrintable(m_failures.join(QLatin1Char('\n'))));
    QCOMPARE(m_failures, QStringList());
}

void TestScriptRunner::settingsThatFail_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("failure");
    const auto row = [](const char* name, const char* text, const char* failure) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(failure);
    };
    row("not open", "set item 11 5", "a.script:1: The settings are not open.");
    row("closed twice", "close settings", "a.script:1: the settings are not open");
    row("no such item", "open settings; press item 99", "a.script:2: There is no setting 99 now.");
    row("outside of the range", "open settings; set item 11 5000",
        "a.script:2: Enter a number from 1.0 to 1000.0.");
    row("locked", "open settings; press item 24", "a.script:2: \"Sealed\" cannot be changed now.");
    row("other value", "open settings; expect item 11 5.0 g",
        "a.script:2: expected setting 11 \"5.0 g\", but it shows \"500.0 g\"");
    row("value of what is not shown", "expect item 11 5.0 g",
        "a.script:1: expected setting 11 \"5.0 g\", but it is not shown, or the settings are not open");
    row("shown nevertheless", "open settings; expect item 11 none",
        "a.script:2: expected no setting 11, but it shows \"500.0 g\"");
}

void TestScriptRunner::settingsThatFail()
{
    QFETCH(QString, text);
    QFETCH(QString, failure);
    m_fixture->usePlugin("fixture_menu");
    QVERIFY(!play(text));
    QCOMPARE(m_failures, QStringList{failure});
}

QTEST_MAIN(TestScriptRunner)

#include "tst_scriptrunner.moc"
