// SPDX-License-Identifier: BSD-3-Clause
//
// The terminal as a process, and a plug-in that does everything wrong: the process goes on, or leaves a word.
#include "TerminalProcess.h"

#include <QTemporaryDir>

#include <csignal>
#include <sys/stat.h>

class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void exceptionsInAScript();
    void expectedExceptionIsNoFailure();
    void exceptionsInAllEvents();
    void otherWorkingFolder();
    void blockedTerminal();
    void blockedByAnAction();
    void crashIsNoted_data();
    void crashIsNoted();
    void exitIsNoted_data();
    void exitIsNoted();
    void crashOfAChildProcess();
    void crashInTheDestructor();
    void quitIsRefused();
    void crashAtTheStartOfAnApplication();
    void mendedPluginIsStartedAgain();
    void namedPluginIsStartedAgain();

private:
    QString script(const QString& text)
    {
        const QString name = m_folder->filePath(QStringLiteral("faults.script"));
        QFile file(name);
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
        return name;
    }
    bool play(TerminalProcess& terminal, const QString& text)
    {
        return terminal.run({QStringLiteral("--headless"), QStringLiteral("--plugin"),
                             TerminalProcess::fixture(QStringLiteral("misbehaving")),
                             QStringLiteral("--script"), script(text)});
    }
    /// A terminal in a window that nobody sees, which keeps its settings in the folder of the test.
    void openWindow(TerminalProcess& terminal, const QString& plugin, bool aborts)
    {
        terminal.setVariable("QT_QPA_PLATFORM", "offscreen");
        terminal.setVariable("XDG_CONFIG_HOME", qPrintable(m_folder->path()));
        if (aborts)
            terminal.setVariable("MISBEHAVING_ABORTS_AT_START", "1");
        terminal.setArguments(
            {QStringLiteral("--plugin"), plugin, QStringLiteral("--log-level"), QStringLiteral("info")});
        terminal.start();
    }
    void crash(const QString& plugin)
    {
        TerminalProcess terminal;
        openWindow(terminal, plugin, true);
        QVERIFY(terminal.waitForFinished(TerminalProcess::TimeoutMs));
        QCOMPARE(terminal.exitStatus(), QProcess::CrashExit);
    }
    void end(TerminalProcess& terminal)
    {
        QCOMPARE(::kill(static_cast<pid_t>(terminal.processId()), SIGTERM), 0);
        QVERIFY(terminal.finish());
        COMPARE_EXIT_CODE(terminal, 0);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFaults::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestFaults::exceptionsInAScript()
{
    TerminalProcess terminal;
    QVERIFY(play(terminal, QStringLiteral("press ThrowInTimer\nwait 1 s\npress ThrowInQml\nwait 1 s\n"
                                          "put on 20 g\nwait stable\nexpect display 20.0 g\n")));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.outputText().contains(QLatin1String("1 expectation: all met")),
             terminal.everything().constData());
    QVERIFY2(terminal.errorText().contains(QLatin1String(
                 "The application \"Misbehaving\" failed: std::runtime_error: failed on request")),
             terminal.everything().constData());
}

void TestFaults::expectedExceptionIsNoFailure()
{
    TerminalProcess terminal;
    QVERIFY(
        play(terminal, QStringLiteral("press ThrowProject\nexpect notice the project failed on request\n")));
    COMPARE_EXIT_CODE(terminal, 0);
}

void TestFaults::exceptionsInAllEvents()
{
    TerminalProcess terminal;
    // Nor is anything deleted later.
    terminal.setVariable("ASAN_OPTIONS", (qgetenv("ASAN_OPTIONS") + ":detect_leaks=0").constData());
    QVERIFY2(play(terminal, QStringLiteral("press ThrowInFilter\nput on 20 g\nwait stable\n")),
             "the terminal must end although no timer works any more");
    COMPARE_EXIT_CODE(terminal, 1);
}

void TestFaults::otherWorkingFolder()
{
    const QDir folder(m_folder->path());
    QVERIFY(folder.mkdir(QStringLiteral("other")));
    TerminalProcess terminal;
    terminal.setWorkingDirectory(folder.path());
    terminal.setVariable("MISBEHAVING_FOLDER", qPrintable(folder.filePath(QStringLiteral("other"))));
    const QString name = script(QStringLiteral("press ChangeFolder\nscreenshot script.png\n"));
    QVERIFY(terminal.run({QStringLiteral("--headless"), QStringLiteral("--plugin"),
                          TerminalProcess::fixture(QStringLiteral("misbehaving")), QStringLiteral("--script"),
                          name, QStringLiteral("--settings"), QStringLiteral("kept.ini"),
                          QStringLiteral("--transfer-log"), QStringLiteral("log.csv"),
                          QStringLiteral("--screenshot"), QStringLiteral("end.png")}));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY(folder.exists(QStringLiteral("script.png")));
    QVERIFY(folder.exists(QStringLiteral("end.png")));
    QVERIFY2(!folder.exists(QStringLiteral("kept.print-queue.lock")), terminal.everything().constData());
    QVERIFY(QDir(folder.filePath(QStringLiteral("other"))).isEmpty());
}

void TestFaults::blockedTerminal()
{
    TerminalProcess terminal;
    terminal.setVariable("BRIMVALE_BLOCKED_LIMIT_MS", "0"); // that of the terminal itself
    QVERIFY(play(terminal,
                 QStringLiteral("press Block\nwait 1 s\n"
                                "expect notice The application \"Misbehaving\" blocked the terminal for \n"
                                "put on 20 g\nwait stable\nexpect display 20.0 g\n")));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(terminal.errorText().contains(QLatin1String("the event loop has been held up for "))
                 && terminal.errorText().contains(QLatin1String("misbehaving.so. It goes on")),
             terminal.everything().constData());
}

void TestFaults::blockedByAnAction()
{
    TerminalProcess terminal;
    terminal.setVariable("BRIMVALE_BLOCKED_LIMIT_MS", "200");
    QVERIFY(play(terminal, QStringLiteral("press BlockAtOnce\nwait 1 s\n")));
    QVERIFY2(terminal.errorText().contains(QLatin1String(" by an action while ")),
             terminal.everything().constData());
    QVERIFY2(terminal.errorText().contains(QLatin1String("misbehaving.so is active. It goes on")),
             terminal.everything().constData());
}

void TestFaults::crashIsNoted_data()
{
    QTest::addColumn<QString>("misdeed");
    QTest::addColumn<QString>("place");
    QTest::addColumn<int>("number");
    QTest::newRow("abort()") << QStringLiteral("Abort") << QString() << SIGABRT;
    QTest::newRow("qFatal()") << QStringLiteral("Fatal") << QString() << SIGABRT;
    QTest::newRow("abort() in a thread")
        << QStringLiteral("AbortInThread") << QStringLiteral(", in another thread\n") << SIGABRT;
}

void TestFaults::crashIsNoted()
{
    QFETCH(QString, misdeed);
    QFETCH(QString, place);
    QFETCH(int, number);
    TerminalProcess terminal;
    QVERIFY(!play(terminal, QStringLiteral("press %1\nwait 1 s\n").arg(misdeed)));
    QCOMPARE(terminal.exitStatus(), QProcess::CrashExit);
    QCOMPARE(terminal.exitCode(), number);
    QVERIFY2(terminal.errorText().contains(QLatin1String("a plug-in has crashed the terminal: active "))
                 && terminal.errorText().contains(QLatin1String("misbehaving.so") + place),
             terminal.everything().constData());
}

void TestFaults::exitIsNoted_data()
{
    QTest::addColumn<QString>("misdeed");
    QTest::newRow("exit()") << QStringLiteral("Exit");
    QTest::newRow("quick_exit()") << QStringLiteral("QuickExit");
}

void TestFaults::exitIsNoted()
{
    QFETCH(QString, misdeed);
    TerminalProcess terminal;
    QVERIFY(play(terminal, QStringLiteral("press %1\nwait 1 s\n").arg(misdeed)));
    COMPARE_EXIT_CODE(terminal, 1);
    QVERIFY2(terminal.errorText().contains(QLatin1String("the terminal was ended by exit(): active "))
                 && terminal.errorText().contains(QLatin1String("misbehaving.so")),
             terminal.everything().constData());
}

void TestFaults::crashOfAChildProcess()
{
    TerminalProcess terminal;
    QVERIFY(play(terminal,
                 QStringLiteral("press AbortInChild\nput on 20 g\nwait stable\nexpect display 20.0 g\n")));
    COMPARE_EXIT_CODE(terminal, 0);
    QVERIFY2(!terminal.errorText().contains(QLatin1String("crashed")), terminal.everything().constData());
}

void TestFaults::crashInTheDestructor()
{
    TerminalProcess terminal;
    QVERIFY(!play(terminal, QStringLiteral("press LeakChildThread\nwait 1 s\n")));
    QVERIFY2(terminal.errorText().contains(QLatin1String("a plug-in has crashed the terminal: active "))
                 && terminal.errorText().contains(QLatin1String("misbehaving.so, in its destructor\n")),
             terminal.everything().constData());
}

void TestFaults::quitIsRefused()
{
    TerminalProcess terminal;
    terminal.setVariable("MISBEHAVING_AT_START", "Quit");
    openWindow(terminal, TerminalProcess::fixture(QStringLiteral("misbehaving")), false);
    QVERIFY2(
        terminal.waitForError(QStringLiteral("The application \"Misbehaving\" asked the terminal to end")),
        terminal.everything().constData());
    QVERIFY2(terminal.waitForError(QStringLiteral("readings arrive")), terminal.everything().constData());
    QCOMPARE(terminal.state(), QProcess::Running);
    QCOMPARE(::kill(static_cast<pid_t>(terminal.processId()), SIGTERM), 0);
    QVERIFY(terminal.finish());
    COMPARE_EXIT_CODE(terminal, 1);
}

void TestFaults::crashAtTheStartOfAnApplication()
{
    const QString plugin = TerminalProcess::fixture(QStringLiteral("misbehaving"));
    crash(plugin);
    {
        TerminalProcess terminal;
        openWindow(terminal, plugin, false);
        QVERIFY2(
            terminal.waitForError(QStringLiteral("ended unexpectedly while the application "
                                                 "\"Misbehaving\" was at work. It was not started again")),
            terminal.everything().constData());
        QVERIFY2(terminal.waitForError(QStringLiteral("readings arrive")), terminal.everything().constData());
        end(terminal);
        QVERIFY2(!terminal.errorText().contains(QLatin1String("Start application")),
                 terminal.everything().constData());
    }
    // Told once.
    TerminalProcess terminal;
    openWindow(terminal, plugin, false);
    QVERIFY2(terminal.waitForError(QStringLiteral("Start application,Misbehaving")),
             terminal.everything().constData());
    QVERIFY(!terminal.errorText().contains(QLatin1String("unexpectedly")));
    end(terminal);
}

void TestFaults::mendedPluginIsStartedAgain()
{
    const QString plugin = m_folder->filePath(QStringLiteral("mended.so"));
    QVERIFY(QFile::copy(TerminalProcess::fixture(QStringLiteral("misbehaving")), plugin));
    crash(plugin);
    QFile file(plugin);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    file.close();
    TerminalProcess terminal;
    openWindow(terminal, plugin, false);
    QVERIFY2(terminal.waitForError(QStringLiteral("Start application,Misbehaving")),
             terminal.everything().constData());
    end(terminal);
}

void TestFaults::namedPluginIsStartedAgain()
{
    const QString plugin = TerminalProcess::fixture(QStringLiteral("misbehaving"));
    crash(plugin);
    TerminalProcess terminal;
    terminal.setVariable("QT_QPA_PLATFORM", "offscreen");
    terminal.setVariable("XDG_CONFIG_HOME", qPrintable(m_folder->path()));
    terminal.setArguments(
        {QStringLiteral("--plugin"), plugin, QStringLiteral("--start"), QStringLiteral("misbehaving")});
    terminal.start();
    QVERIFY2(terminal.waitForError(QStringLiteral("Start application,Misbehaving")),
             terminal.everything().constData());
    end(terminal);
}

QTEST_GUILESS_MAIN(TestFaults)

#include "tst_faults.moc"
