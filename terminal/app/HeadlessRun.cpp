// SPDX-License-Identifier: BSD-3-Clause
#include "app/HeadlessRun.h"

#include "app/CommandLine.h"
#include "app/Console.h"
#include "app/Session.h"
#include "app/TimeDriver.h"
#include "script/ScriptRunner.h"

#include <QDir>

#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr double DefaultSeconds = 5.0;

const QString DemoFolder = QStringLiteral("brimvale-demo");

/// Lets the time pass that the command line asks for.
void weigh(Session& session, TimeDriver& driver)
{
    const Options& options = session.options();
    const bool recording = options.source.kind == SourceSpec::Kind::Trace;
    qint64 limitMs = std::numeric_limits<qint64>::max() / 2;
    if (options.durationSeconds || !recording)
        limitMs = qRound64(options.durationSeconds.value_or(DefaultSeconds) * 1000.0);
    driver.runUntil([&session] { return session.isSourceFinished(); }, limitMs);
}

QString counted(int count, const char* one, const char* several)
{
    return QStringLiteral("%1 %2").arg(count).arg(QString::fromLatin1(count == 1 ? one : several));
}

/// Tells what weighs.
void printHead(Session& session)
{
    printLine(QStringLiteral("scale: %1").arg(session.source().description()));
    const PluginManager& plugins = session.host().plugins();
    const int active = plugins.activeIndex();
    if (active < 0) {
        printLine(QStringLiteral("plug-in: none"));
    } else {
        const PluginInfo plugin = plugins.plugins().at(active);
        printLine(QStringLiteral("plug-in: %1 \"%2\"").arg(plugin.identifier, plugin.name));
    }
}

/// Plays the script and sums it up.
bool play(Session& session, TimeDriver& driver, const Script& script)
{
    const Options& options = session.options();
    QString folder = options.output;
    if (folder.isEmpty() && options.demo)
        folder = DemoFolder;
    if (!folder.isEmpty() && !QDir().mkpath(folder)) {
        printError(QStringLiteral("--output %1: the folder cannot be made; give one that can be written")
                       .arg(folder));
        return false;
    }
    printLine();
    ScriptRunner runner(session, driver, ScriptOutput{printLine, printFault}, folder);
    const bool ok = runner.run(script);
    if (driver.isInterrupted())
        return ok;
    printLine();
    const int failures = runner.failedExpectationCount();
    printLine(QStringLiteral("%1, %2: %3")
                  .arg(counted(runner.statementCount(), "statement", "statements"),
                       counted(runner.expectationCount(), "expectation", "expectations"),
                       failures > 0 ? QStringLiteral("%1 NOT MET").arg(failures)
                       : ok         ? QStringLiteral("all met")
                                    : QStringLiteral("NOT FINISHED")));
    if (runner.screenshotCount() > 0)
        printLine(QStringLiteral("%1 in %2")
                      .arg(counted(runner.screenshotCount(), "screenshot", "screenshots"),
                           folder.isEmpty() ? QStringLiteral("the working folder") : folder));
    return ok;
}

} // namespace

int runHeadless(Session& session, TimeDriver& driver, const Script* script)
{
    const Options& options = session.options();
    session.loadPlugins();
    bool ok = session.start();
    const bool nothingRuns = !options.withoutPlugin && session.host().plugins().activeIndex() < 0;
    if (nothingRuns) {
        printError(QStringLiteral("no plug-in is running; see the messages above, or weigh without one by "
                                  "--no-plugin"));
        session.shutDown();
        return ExitFailed;
    }

    printHead(session);
    if (script)
        ok = play(session, driver, *script) && ok;
    else
        weigh(session, driver);

    if (!driver.isInterrupted()) {
        printLine(QStringLiteral("readings: %1").arg(session.readings()));
        printLine(QStringLiteral("display: %1").arg(session.display().line()));
        if (!options.screenshot.isEmpty()) {
            QString error;
            if (session.grab(options.screenshot, &error)) {
                printLine(QStringLiteral("screenshot: %1").arg(options.screenshot));
            } else {
                printError(error);
                ok = false;
            }
        }
    }
    session.shutDown();
    // Each was logged when it happened; here it is told even where the log is off.
    for (const QString& error : session.errors()) {
        printError(error);
        ok = false;
    }
    return ok ? ExitOk : ExitFailed;
}

int runCheck(Session& session)
{
    PluginManager& plugins = session.host().plugins();
    const Options& options = session.options();
    QVector<LoadResult> results;
    for (const QString& file : options.plugins)
        results.append(plugins.load(file));
    for (const QString& directory : options.pluginDirectories)
        results += plugins.loadFolder(directory);

    QStringList faults;
    QObject listener;
    QObject::connect(&session.host(), &Host::notice, &listener,
                     [&faults](NoticeSeverity severity, const QString& text) {
                         if (severity == NoticeSeverity::Error)
                             faults.append(text);
                     });
    const auto tell = [&faults](const char* step, const QString& done) {
        const QString head = QStringLiteral("  ") + QString::fromLatin1(step).leftJustified(7);
        printLine(head + (faults.isEmpty() ? QStringLiteral("ok") + done : QStringLiteral("FAILED")));
        for (const QString& fault : qAsConst(faults))
            printLine(QStringLiteral("    ")
                      + QString(fault).replace(QLatin1Char('\n'), QStringLiteral("\n    ")));
        const bool ok = faults.isEmpty();
        faults.clear();
        return ok;
    };

    int failed = 0;
    for (const LoadResult& result : qAsConst(results)) {
        printLine(result.file);
        if (!result.ok)
            faults.append(result.message);
        int index = -1;
        QString name;
        const QVector<PluginInfo> infos = plugins.plugins();
        for (int i = 0; i < infos.size(); ++i) {
            if (result.ok && infos.at(i).file == result.file) {
                index = i;
                name = QStringLiteral(": %1 \"%2\"").arg(infos.at(i).identifier, infos.at(i).name);
            }
        }
        bool ok = tell("load", name);
        if (ok) {
            plugins.activate(index);
            plugins.waitUntilSettled();
            TimeDriver::settle();
            faults += session.window().takeQmlWarnings();
            ok = tell("start", QString());
        }
        if (ok) {
            plugins.deactivate();
            plugins.waitUntilSettled();
            TimeDriver::settle();
            faults += session.window().takeQmlWarnings();
            ok = tell("close", QString());
        }
        failed += ok ? 0 : 1;
    }
    session.shutDown();
    printLine(QStringLiteral("%1 checked, %2")
                  .arg(counted(results.size(), "plug-in", "plug-ins"),
                       failed == 0 ? QStringLiteral("no fault") : QStringLiteral("%1 FAULTY").arg(failed)));
    return failed == 0 ? ExitOk : ExitFailed;
}

} // namespace Terminal
} // namespace Brimvale
