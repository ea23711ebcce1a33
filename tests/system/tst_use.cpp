// SPDX-License-Identifier: BSD-3-Clause
#include "TerminalProcess.h"

#include <QTemporaryDir>
#include <QtTest>

/// The use of the program: what it is told, and what it says to what is wrong.
class TestUse : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void withoutADisplay_data();
    void withoutADisplay();
    void resultsThatCannotBeWritten_data();
    void resultsThatCannotBeWritten();
    void windowWithoutADisplay();
    void windowOnADisplayThatIsNotThere();
    void headlessWhateverThePlatform_data();
    void headlessWhateverThePlatform();
    void refusedOptions_data();
    void refusedOptions();
    void malformedRecordings_data();
    void malformedRecordings();
    void malformedRecordingInAWindow();
    void recordingThatIsNotThere();
    void readabilityForAFineRecording();
    void noPluginsInAFolder();
    void noPluginsInstalled();
    void pluginThatIsNotThere();
    void startOfAnUnknownPlugin();
    void scriptWithErrors();
    void scriptForAnotherSource();
    void scriptThatIsNotThere();
    void screenshotWhereThereIsNoFolder();
    void outputThatIsAFile();
    void transferLogThatCannotBeWritten();
    void namesBeyondAscii();

private:
    QString file(const char* name, const QByteArray& content) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestUse::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QString TestUse::file(const char* name, const QByteArray& content) const
{
    const QString path = m_folder->filePath(QString::fromUtf8(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the test's file cannot be written", __FILE__, __LINE__);
    return path;
}

void TestUse::withoutADisplay_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("begin");
    QTest::newRow("help") << "--help"
                          << "Usage: brimvale-terminal [OPTION]...\n";
    QTest::newRow("version") << "--version"
                             << "brimvale-terminal ";
}

void TestUse::withoutADisplay()
{
    QFETCH(QString, option);
    QFETCH(QString, begin);
    TerminalProcess terminal;
    QProcessEnvironment empty;
    empty.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    terminal.setProcessEnvironment(empty);
    QVERIFY(terminal.run({option}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputText().startsWith(begin), terminal.everything().constData());
    QVERIFY(terminal.outputText().endsWith(QLatin1Char('\n')));
    QCOMPARE(terminal.errorText(), QString());
}

void TestUse::resultsThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("options");
    QTest::newRow("help") << "--help";
    QTest::newRow("run") << "--headless --no-plugin --duration 1";
}

void TestUse::resultsThatCannotBeWritten()
{
    QFETCH(QString, options);
    TerminalProcess terminal;
    terminal.setStandardOutputFile(QStringLiteral("/dev/full"));
    QVERIFY(terminal.run(TerminalProcess::words(options)));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().endsWith(
                 QLatin1String("brimvale-terminal: the results could not be written: the standard output is "
                               "closed or full\n")),
             terminal.everything().constData());
}

void TestUse::windowWithoutADisplay()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--no-plugin")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QCOMPARE(terminal.errorText(),
             QStringLiteral(
                 "brimvale-terminal: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set; add "
                 "--headless to run without a window\n"));
    QCOMPARE(terminal.outputText(), QString());
}

void TestUse::windowOnADisplayThatIsNotThere()
{
    TerminalProcess terminal;
    terminal.setVariable("QT_QPA_PLATFORM", "nosuchplatform");
    QVERIFY(terminal.run({QStringLiteral("--no-plugin")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().endsWith(
                 QLatin1String("brimvale-terminal: the display cannot be opened; check DISPLAY or "
                               "WAYLAND_DISPLAY, or add --headless\n")),
             terminal.everything().constData());
}

void TestUse::headlessWhateverThePlatform_data()
{
    QTest::addColumn<QString>("platform");
    QTest::newRow("unset") << QString();
    QTest::newRow("offscreen") << "offscreen";
    QTest::newRow("a desktop without a display") << "xcb";
    QTest::newRow("unknown") << "nosuchplatform";
}

void TestUse::headlessWhateverThePlatform()
{
    QFETCH(QString, platform);
    const QString picture = m_folder->filePath(QStringLiteral("a.png"));
    TerminalProcess terminal;
    if (!platform.isEmpty())
        terminal.setVariable("QT_QPA_PLATFORM", qPrintable(platform));
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                          QStringLiteral("--screenshot"), picture}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY(QFile::exists(picture));
}

void TestUse::refusedOptions_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part"); // the option, the value and the mend
    QTest::newRow("unknown") << "--sped 2"
                             << "--sped: there is no such option; did you mean --speed?";
    QTest::newRow("value missing") << "--headless --script"
                                   << "--script: the value is missing; write --script FILE";
    QTest::newRow("speed") << "--speed quick"
                           << "--speed quick: give a number from 0.01 to 10000, or max";
    QTest::newRow("source kind") << "--source usb:1"
                                 << "\"usb:1\"";
    QTest::newRow("source port") << "--source tcp:localhost:99999"
                                 << "a port is a number from 1 to 65535";
    QTest::newRow("source baud") << "--source serial:/dev/ttyS0,fast"
                                 << "\"fast\" is no baud rate";
    QTest::newRow("readability") << "--readability 0.3"
                                 << "\"0.3\" is not a readability";
    QTest::newRow("stability") << "--stability 1"
                               << "--stability: ";
    QTest::newRow("folder") << "--plugin-dir /no/such/folder"
                            << "there is no such folder";
    QTest::newRow("script in a window") << "--script a"
                                        << "add --headless";
    QTest::newRow("endless run") << "--headless --source tcp:localhost:4001"
                                 << "--duration SECONDS";
}

void TestUse::refusedOptions()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(arguments)));
    COMPARE_EXIT_CODE(terminal, 2);
    QCOMPARE(terminal.outputText(), QString());
    const QString error = terminal.errorText();
    QVERIFY2(error.startsWith(QLatin1String("brimvale-terminal: --")), qPrintable(error));
    QVERIFY2(error.contains(part), qPrintable(error));
    QCOMPARE(error.count(QLatin1Char('\n')), 1);
}

void TestUse::malformedRecordings_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");
    QTest::newRow("empty") << QByteArray() << 1;
    QTest::newRow("other heading") << QByteArray("time;weight\n0,0\n") << 1;
    QTest::newRow("heading only") << QByteArray("time_s,weight_g\n") << 1;
    QTest::newRow("word for a weight") << QByteArray("time_s,weight_g\n0.0,1\n0.1,heavy\n") << 3;
    QTest::newRow("not a number") << QByteArray("time_s,weight_g\n0.0,nan\n") << 2;
    QTest::newRow("decimal comma") << QByteArray("time_s,weight_g\n0.0,1,5\n") << 2;
    QTest::newRow("weight missing") << QByteArray("time_s,weight_g\n0.0,1\n0.1\n") << 3;
    QTest::newRow("time goes back") << QByteArray("time_s,weight_g\n0.2,1\n0.1,1\n") << 3;
    QTest::newRow("time below zero") << QByteArray("time_s,weight_g\n-1,1\n") << 2;
    QTest::newRow("blank line inside") << QByteArray("time_s,weight_g\n0.0,1\n\n0.1,1\n") << 4;
    QTest::newRow("zero byte") << QByteArray("time_s,weight_g\n0.0,1\n0.1,\0001\n", 29) << 3;
}

void TestUse::malformedRecordings()
{
    QFETCH(QByteArray, content);
    QFETCH(int, line);
    const QString recording = file("bad.csv", content);
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                          QStringLiteral("--source"), QStringLiteral("trace:") + recording}));
    COMPARE_EXIT_CODE(terminal, 2);
    QCOMPARE(terminal.outputText(), QString());
    QVERIFY2(terminal.errorText().startsWith(QStringLiteral("%1:%2: ").arg(recording).arg(line)),
             terminal.everything().constData());
    QCOMPARE(terminal.errorText().count(QLatin1Char('\n')), 1);
}

void TestUse::malformedRecordingInAWindow()
{
    // It is refused before the display is opened, which this one could not be.
    const QString recording = file("bad.csv", "time_s,weight_g\n0.0,heavy\n");
    TerminalProcess terminal;
    terminal.setVariable("QT_QPA_PLATFORM", "nosuchplatform");
    QVERIFY(terminal.run(
        {QStringLiteral("--no-plugin"), QStringLiteral("--source"), QStringLiteral("trace:") + recording}));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().startsWith(recording + QLatin1String(":2: ")),
             terminal.everything().constData());
}

void TestUse::recordingThatIsNotThere()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(
        QStringLiteral("--headless --no-plugin --source trace:/no/such/recording.csv"))));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().contains(QLatin1String("/no/such/recording.csv")),
             terminal.everything().constData());
}

void TestUse::readabilityForAFineRecording()
{
    const QString recording = file("fine.csv", "time_s,weight_g\n0.0,1.123456789\n");
    const QStringList arguments{QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                                QStringLiteral("--source"), QStringLiteral("trace:") + recording};
    TerminalProcess refused;
    QVERIFY(refused.run(arguments));
    COMPARE_EXIT_CODE(refused, 2);
    QVERIFY2(refused.errorText().startsWith(recording + QLatin1String(":2: ")),
             refused.everything().constData());

    TerminalProcess rounded;
    QVERIFY(rounded.run(arguments + QStringList{QStringLiteral("--readability"), QStringLiteral("0.01")}));
    COMPARE_EXIT_CODE(rounded, 0);
    QVERIFY2(rounded.outputLines().contains(QStringLiteral("display: 1.12 g  unstable")),
             rounded.everything().constData());
}

void TestUse::noPluginsInAFolder()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--plugin-dir"), m_folder->path()}));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().startsWith(
                 QStringLiteral("brimvale-terminal: --plugin-dir %1: ").arg(m_folder->path())),
             terminal.everything().constData());
}

void TestUse::noPluginsInstalled()
{
    // What is built in the build tree is not installed.
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless")}));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().contains(QLatin1String(
                 "give --plugin FILE or --plugin-dir DIR, or weigh without one by --no-plugin")),
             terminal.everything().constData());
}

void TestUse::pluginThatIsNotThere()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(QStringLiteral("--headless --plugin /no/such/plugin.so"))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("/no/such/plugin.so")),
             terminal.everything().constData());
    QVERIFY2(terminal.errorText().contains(QLatin1String("no plug-in is running")),
             terminal.everything().constData());
    QCOMPARE(terminal.outputText(), QString());
}

void TestUse::startOfAnUnknownPlugin()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--plugin"),
                          TerminalProcess::weighingPlugin(), QStringLiteral("--start"),
                          QStringLiteral("counting")}));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(
                 QLatin1String("There is no plug-in \"counting\" to start. Loaded are: weighing.")),
             terminal.everything().constData());
}

void TestUse::scriptWithErrors()
{
    const QString script = file("bad.script", "put on\nwait stable\nlift all\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        {QStringLiteral("--headless"), QStringLiteral("--no-plugin"), QStringLiteral("--script"), script}));
    COMPARE_EXIT_CODE(terminal, 2);
    QCOMPARE(terminal.outputText(), QString());
    const QStringList errors = terminal.errorText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(errors.size(), 2);
    QVERIFY2(errors.at(0).startsWith(script + QLatin1String(":1: \"put on\": ")), qPrintable(errors.at(0)));
    QVERIFY2(errors.at(1).startsWith(script + QLatin1String(":3: \"lift all\": ")), qPrintable(errors.at(1)));
}

void TestUse::scriptForAnotherSource()
{
    const QString script = file("sim.script", "wait 1 s\nput on 5 g\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        {QStringLiteral("--headless"), QStringLiteral("--no-plugin"), QStringLiteral("--script"), script,
         QStringLiteral("--source"),
         QStringLiteral("trace:") + TerminalProcess::data(QStringLiteral("traces/filling.csv"))}));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().startsWith(
                 script + QLatin1String(":2: \"put on 5 g\": this is done to the simulated scale only")),
             terminal.everything().constData());
}

void TestUse::scriptThatIsNotThere()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        TerminalProcess::words(QStringLiteral("--headless --no-plugin --script /no/such.script"))));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().startsWith(QLatin1String("/no/such.script: the script cannot be read: ")),
             terminal.everything().constData());
}

void TestUse::screenshotWhereThereIsNoFolder()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(
        TerminalProcess::words(QStringLiteral("--headless --no-plugin --screenshot /no/such/a.png"))));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("/no/such/a.png")),
             terminal.everything().constData());
}

void TestUse::outputThatIsAFile()
{
    const QString output = file("output", "");
    const QString script = file("a.script", "wait 1 s\n");
    TerminalProcess terminal;
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                          QStringLiteral("--script"), script, QStringLiteral("--output"), output}));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().contains(QStringLiteral("--output %1: ").arg(output)),
             terminal.everything().constData());
}

void TestUse::transferLogThatCannotBeWritten()
{
    TerminalProcess terminal;
    QVERIFY(terminal.run(TerminalProcess::words(
        QStringLiteral("--headless --no-plugin --transfer-log /no/such/folder/log.csv"))));
    COMPARE_EXIT_CODE(terminal, 2);
    QVERIFY2(terminal.errorText().contains(QLatin1String("/no/such/folder/log.csv")),
             terminal.everything().constData());
}

void TestUse::namesBeyondAscii()
{
    const QString script = file("prüfung.script", "note Über 5 g\nwait 1 s\n");
    TerminalProcess terminal;
    terminal.setVariable("LC_ALL", "C");
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--no-plugin"),
                          QStringLiteral("--script"), script, QStringLiteral("--screenshot"),
                          m_folder->filePath(QStringLiteral("prüfung.png"))}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.outputLines().contains(QStringLiteral("Über 5 g")), terminal.everything().constData());
    QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("prüfung.png"))));
}

QTEST_GUILESS_MAIN(TestUse)

#include "tst_use.moc"
