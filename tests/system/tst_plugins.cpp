// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

/// Several plug-ins, bad ones among them, and the end of the terminal.
class TestPlugins : public QObject
{
    Q_OBJECT

private slots:
    void switching();
    void wholeFolder();
    void namedFirst();
    void sameIdentifierTwice();
    void brokenBesideAGoodOne_data();
    void brokenBesideAGoodOne();
    void brokenAlone_data();
    void brokenAlone();
    void failingAtWork_data();
    void failingAtWork();
    void check();
    void checkOfBrokenOnes_data();
    void checkOfBrokenOnes();
    void closesInOrder();
    void endedBySignal_data();
    void endedBySignal();
    void windowEndedBySignal_data();
    void windowEndedBySignal();

private:
    static QStringList plugins(const QStringList& files);
};

QStringList TestPlugins::plugins(const QStringList& files)
{
    QStringList arguments;
    for (const QString& file : files)
        arguments << QStringLiteral("--plugin") << file;
    return arguments;
}

void TestPlugins::switching()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        plugins({TerminalProcess::weighingPlugin(), TerminalProcess::fixture(QStringLiteral("fixture")),
                 TerminalProcess::fixture(QStringLiteral("fixture_second"))})
        + QStringList{QStringLiteral("--headless"), QStringLiteral("--script"),
                      TerminalProcess::data(QStringLiteral("scripts/switching.script"))}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputText().contains(QLatin1String(": all met\n")), terminal.everything().constData());
}

void TestPlugins::wholeFolder()
{
    QTemporaryDir folder;
    for (const char* name : {"fixture_second", "fixture"}) {
        const QString file = TerminalProcess::fixture(QLatin1String(name));
        QVERIFY(QFile::copy(file, folder.filePath(QFileInfo(file).fileName())));
    }
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--plugin-dir"), folder.path()}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("plug-in: fixture \"Fixture\"")),
             terminal.everything().constData());
}

void TestPlugins::namedFirst()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        plugins({TerminalProcess::fixture(QStringLiteral("fixture")), TerminalProcess::weighingPlugin()})
        + TerminalProcess::words(QStringLiteral("--headless --start weighing"))));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("plug-in: weighing \"Weighing\"")),
             terminal.everything().constData());
}

void TestPlugins::sameIdentifierTwice()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(plugins({TerminalProcess::fixture(QStringLiteral("fixture")),
                                  TerminalProcess::fixture(QStringLiteral("fixture_same_identifier"))})
                         + QStringList{QStringLiteral("--headless")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("its identifier \"fixture\" is that of ")),
             terminal.everything().constData());
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("plug-in: fixture \"Fixture\"")),
             terminal.everything().constData());
}

void TestPlugins::brokenBesideAGoodOne_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("wrong identifier") << "wrong_identifier"
                                      << "(identifier)";
    QTest::newRow("without metadata") << "no_metadata"
                                      << "(metadata)";
    QTest::newRow("without the interface") << "no_interface"
                                           << "(interface)";
    QTest::newRow("missing library") << "missing_library"
                                     << "libbrimvale-not-installed.so.3";
    QTest::newRow("undefined symbol") << "undefined_symbol"
                                      << "Fixture::definedNowhere(int)";
    QTest::newRow("constructor throws") << "throw_constructor"
                                        << "std::runtime_error: the fixture failed on purpose";
    QTest::newRow("InitPlugin throws") << "throw_init"
                                       << "InitPlugin() threw";
    QTest::newRow("InitPlugin refuses") << "refuse_pre_init"
                                        << "InitPlugin() returned false";
    QTest::newRow("StartPlugin throws") << "throw_pre_start"
                                        << "StartPlugin() threw";
    QTest::newRow("StartPlugin refuses") << "refuse_post_start"
                                         << "StartPlugin() returned false";
    QTest::newRow("StartPlugin throws a number") << "throw_post_start"
                                                 << "StartPlugin() threw int";
    QTest::newRow("PostStartAddons throws") << "throw_post_start_addons"
                                            << "PostStartAddons() threw";
}

void TestPlugins::brokenBesideAGoodOne()
{
    QFETCH(QString, fixture);
    QFETCH(QString, part);
    // The bad one comes first; the good one weighs nevertheless, and the exit code tells.
    TerminalProcess terminal;
    QVERIFY(terminal.run(plugins({TerminalProcess::fixture(fixture), TerminalProcess::weighingPlugin()})
                         + QStringList{QStringLiteral("--headless"), QStringLiteral("--source"),
                                       QStringLiteral("trace:")
                                           + TerminalProcess::data(QStringLiteral("traces/filling.csv"))}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(TerminalProcess::fixture(fixture)),
             terminal.everything().constData());
    QVERIFY2(terminal.errorText().contains(part), terminal.everything().constData());
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("plug-in: weighing \"Weighing\"")),
             terminal.everything().constData());
    QCOMPARE(terminal.outputLines().last(), QStringLiteral("display: 48.2 g  stable"));
}

void TestPlugins::brokenAlone_data()
{
    QTest::addColumn<QString>("fixture");
    for (const char* name : {"wrong_identifier", "undefined_symbol", "throw_constructor", "refuse_pre_init",
                             "throw_pre_start", "refuse_post_start"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPlugins::brokenAlone()
{
    QFETCH(QString, fixture);
    TerminalProcess terminal;
    QVERIFY(terminal.run(plugins({TerminalProcess::fixture(fixture)})
                         + QStringList{QStringLiteral("--headless")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("no plug-in is running")),
             terminal.everything().constData());
    QCOMPARE(terminal.outputText(), QString());
}

void TestPlugins::failingAtWork_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("part");
    QTest::newRow("at a reading") << "throw_reading" << QByteArray("wait 2 s\n")
                                  << "The application failed while it took in a new weight";
    QTest::newRow("in a timer of its own")
        << "throw_timer" << QByteArray("wait 1 s\nwait 1 s\n")
        << "The application \"Fixture\" failed: std::runtime_error: the fixture "
           "failed on purpose";
    QTest::newRow("at a key") << "throw_action" << QByteArray("wait 1 s\npress fixture.action\nwait 1 s\n")
                              << "The action \"Action\" failed";
    QTest::newRow("at a change of the language")
        << "throw_translate" << QByteArray("wait 1 s\nlanguage de\nwait 1 s\n") << "TranslateWarnInfo()";
    QTest::newRow("at the close") << "throw_close" << QByteArray("wait 1 s\n") << "ClosePlugin() threw";
    QTest::newRow("without a close") << "silent_close" << QByteArray("wait 1 s\n")
                                     << "it has not told within";
    QTest::newRow("missing screen") << "missing_screen" << QByteArray("wait 1 s\n") << "Missing.qml";
}

void TestPlugins::failingAtWork()
{
    QFETCH(QString, fixture);
    QFETCH(QByteArray, script);
    QFETCH(QString, part);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.script")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(script);
    file.close();
    // The terminal goes on to the end of the script, and the exit code tells.
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        plugins({TerminalProcess::fixture(fixture)})
        + QStringList{QStringLiteral("--headless"), QStringLiteral("--script"), file.fileName()}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(part), terminal.everything().constData());
    QVERIFY2(terminal.outputText().contains(QLatin1String("0 expectations: done\n")),
             terminal.everything().constData());
}

void TestPlugins::check()
{
    TerminalProcess terminal;
    QVERIFY(
        terminal.run(plugins({TerminalProcess::weighingPlugin()}) + QStringList{QStringLiteral("--check")}));
    COMPARE_EXIT_CODE(terminal, 0);
    QCOMPARE(terminal.outputLines(),
             (QStringList{TerminalProcess::weighingPlugin(),
                          QStringLiteral("  load   ok: weighing \"Weighing\""), QStringLiteral("  start  ok"),
                          QStringLiteral("  close  ok"), QStringLiteral("1 plug-in checked, no fault")}));
}

void TestPlugins::checkOfBrokenOnes_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("failing");
    QTest::newRow("wrong identifier") << "wrong_identifier"
                                      << "  load   FAILED";
    QTest::newRow("InitPlugin refuses") << "refuse_post_init"
                                        << "  load   FAILED";
    QTest::newRow("StartPlugin refuses") << "refuse_pre_start"
                                         << "  start  FAILED";
    QTest::newRow("missing screen") << "missing_screen"
                                    << "  start  FAILED";
    QTest::newRow("ClosePlugin throws") << "throw_pre_close"
                                        << "  close  FAILED";
    QTest::newRow("ClosePlugin refuses") << "refuse_close"
                                         << "  close  FAILED";
}

void TestPlugins::checkOfBrokenOnes()
{
    QFETCH(QString, fixture);
    QFETCH(QString, failing);
    TerminalProcess terminal;
    QVERIFY(terminal.run(plugins({TerminalProcess::fixture(fixture), TerminalProcess::weighingPlugin()})
                         + QStringList{QStringLiteral("--check")}));
    COMPARE_EXIT_CODE(terminal, 1);
    const QStringList lines = terminal.outputLines();
    const int good = lines.indexOf(TerminalProcess::weighingPlugin());
    QVERIFY2(good > 0, terminal.everything().constData());
    QVERIFY2(lines.mid(0, good).contains(failing), terminal.everything().constData());
    QVERIFY2(lines.mid(good).contains(QStringLiteral("  close  ok")), terminal.everything().constData());
    QCOMPARE(lines.last(), QStringLiteral("2 plug-ins checked, 1 FAULTY"));
}

void TestPlugins::closesInOrder()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(plugins({TerminalProcess::weighingPlugin()})
                         + TerminalProcess::words(QStringLiteral("--headless --trace-host-calls"))));
    COMPARE_EXIT_CODE(terminal, 0);
    const QString calls = terminal.errorText();
    const int closing = calls.indexOf(QLatin1String("ILifecycleObserver::NotifyPluginClosing()"));
    const int controller = calls.indexOf(QLatin1String("IPluginController::PluginClosed(\"plugin\")"));
    const int sequencer = calls.indexOf(QLatin1String("ISequencer::PluginClosed()"));
    const int controlMode = calls.lastIndexOf(QLatin1String("IPluginController::SetControlMode(false)"));
    QVERIFY2(closing > 0, terminal.everything().constData());
    QVERIFY(closing < controller);
    QVERIFY(controller < sequencer);
    QVERIFY(sequencer < controlMode);
}

void TestPlugins::endedBySignal_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("Ctrl+C") << SIGINT << 130;
    QTest::newRow("SIGTERM") << SIGTERM << 143;
}

void TestPlugins::endedBySignal()
{
    QFETCH(int, number);
    QFETCH(int, exitCode);
    TerminalProcess terminal;
    terminal.setArguments(
        plugins({TerminalProcess::weighingPlugin()})
        + TerminalProcess::words(QStringLiteral("--headless --speed 1 --duration 3600 --trace-host-calls")));
    terminal.start();
    QVERIFY2(terminal.waitForOutput(QStringLiteral("plug-in: weighing")), terminal.everything().constData());
    QVERIFY(!terminal.errorText().contains(QLatin1String("ISequencer::PluginClosed()")));
    QCOMPARE(::kill(static_cast<pid_t>(terminal.processId()), number), 0);
    QVERIFY(terminal.finish());
    COMPARE_EXIT_CODE(terminal, exitCode);
    QVERIFY2(terminal.errorText().contains(QLatin1String("ISequencer::PluginClosed()")),
             terminal.everything().constData());
    QVERIFY2(!terminal.outputText().contains(QLatin1String("display:")), terminal.everything().constData());
}

void TestPlugins::windowEndedBySignal_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void TestPlugins::windowEndedBySignal()
{
    QFETCH(int, number);
    QTemporaryDir folder;
    TerminalProcess terminal;
    terminal.setVariable("QT_QPA_PLATFORM", "offscreen"); // a window that nobody sees
    terminal.setVariable("XDG_CONFIG_HOME", qPrintable(folder.path()));
    terminal.setArguments(plugins({TerminalProcess::weighingPlugin()})
                          + QStringList{QStringLiteral("--trace-host-calls")});
    terminal.start();
    QVERIFY2(terminal.waitForError(QStringLiteral("IRegisterValueProvider::GetMesswert(0, 74)")),
             terminal.everything().constData());
    QCOMPARE(::kill(static_cast<pid_t>(terminal.processId()), number), 0);
    QVERIFY(terminal.finish());
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.errorText().contains(QLatin1String("ISequencer::PluginClosed()")),
             terminal.everything().constData());
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("brimvale/terminal.ini"))));
}

QTEST_GUILESS_MAIN(TestPlugins)

#include "tst_plugins.moc"
