// SPDX-License-Identifier: BSD-3-Clause
#include "app/HeadlessRun.h"

#include "app/CommandLine.h"
#include "app/Console.h"
#include "app/PluginFaults.h"
#include "app/Session.h"
#include "app/TimeDriver.h"
#include "script/ScriptRunner.h"
#include "sics/SicsServer.h"

#include <QDir>
#include <QSet>

#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr double DefaultSeconds = 5.0;

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
    if (session.sics())
        printLine(QStringLiteral("sics: %1").arg(session.sics()->address().text()));
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
bool play(Session& session, TimeDriver& driver, const Script& script, const QDir& workingFolder)
{
    const Options& options = session.options();
    const QString folder = screenshotFolder(options);
    printLine();
    ScriptRunner runner(session, driver, ScriptOutput{printLine, printFault},
                        workingFolder.absoluteFilePath(folder));
    const bool ok = runner.run(script);
    if (driver.isInterrupted())
        return ok;
    printLine();
    const int failures = runner.failedExpectationCount();
    const QString result = failures > 0                    ? QStringLiteral("%1 NOT MET").arg(failures)
                           : !ok                           ? QStringLiteral("NOT FINISHED")
                           : runner.expectationCount() > 0 ? QStringLiteral("all met")
                                                           : QStringLiteral("done");
    printLine(QStringLiteral("%1, %2: %3")
                  .arg(counted(runner.statementCount(), "statement", "statements"),
                       counted(runner.expectationCount(), "expectation", "expectations"), result));
    if (runner.screenshotCount() > 0)
        printLine(QStringLiteral("%1 in %2")
                      .arg(counted(runner.screenshotCount(), "screenshot", "screenshots"),
                           folder.isEmpty() ? QStringLiteral("the working folder") : folder));
    return ok;
}

/// Takes plug-ins through their lives and tells how each step went.
class PluginCheck
{
public:
    explicit PluginCheck(Session& session)
        : m_session(session)
        , m_plugins(session.host().plugins())
    {
        QObject::connect(&session.host(), &Host::notice, &m_listener,
                         [this](NoticeSeverity severity, const QString& text) {
                             (severity == NoticeSeverity::Error ? m_faults : m_remarks).append(text);
                         });
    }

    /// Returns whether no step failed.
    bool run(const LoadResult& loaded)
    {
        printLine(loaded.file);
        if (!loaded.ok) {
            m_faults.append(loaded.message);
            return tell("load");
        }
        const int index = indexOf(loaded);
        const PluginInfo info = m_plugins.plugins().at(index);
        tell("load", QStringLiteral(": %1 \"%2\"").arg(info.identifier, info.name));
        m_plugins.activate(index);
        settle();
        bool ok = tell("start");
        if (m_plugins.activeIndex() == index) {
            m_plugins.deactivate();
            settle();
            const QStringList left = m_session.pluginFaults().leftBehind().objects;
            if (!left.isEmpty())
                m_remarks.append(QStringLiteral("left behind, and never deleted: ")
                                 + left.join(QStringLiteral(", ")));
            ok = tell("close") && ok;
        }
        return ok;
    }

private:
    int indexOf(const LoadResult& loaded) const
    {
        const QVector<PluginInfo> infos = m_plugins.plugins();
        for (int index = 0; index < infos.size(); ++index) {
            if (infos.at(index).file == loaded.file)
                return index;
        }
        return -1;
    }

    void settle()
    {
        m_plugins.waitUntilSettled();
        TimeDriver::settle();
        // What a screen complains of is no failure, but the author wants to know; once.
        const QStringList warnings = m_session.window().takeQmlWarnings();
        for (const QString& warning : warnings) {
            if (!m_knownWarnings.contains(warning))
                m_remarks.append(warning);
            m_knownWarnings.insert(warning);
        }
    }

    bool tell(const char* step, const QString& result = QString())
    {
        const bool ok = m_faults.isEmpty();
        printLine(
            QStringLiteral("  %1%2").arg(QString::fromLatin1(step).leftJustified(7),
                                         ok ? QStringLiteral("ok") + result : QStringLiteral("FAILED")));
        const QStringList texts = m_faults + m_remarks;
        for (const QString& text : texts)
            printLine(QStringLiteral("    ")
                      + QString(text).replace(QLatin1Char('\n'), QStringLiteral("\n    ")));
        m_faults.clear();
        m_remarks.clear();
        return ok;
    }

    Session& m_session;
    PluginManager& m_plugins;
    QObject m_listener;
    QStringList m_faults;  ///< Of the present step.
    QStringList m_remarks; ///< Of the present step.
    QSet<QString> m_knownWarnings;
};

} // namespace

QString screenshotFolder(const Options& options)
{
    return options.output.isEmpty() && options.demo ? QStringLiteral("brimvale-demo") : options.output;
}

int runHeadless(Session& session, TimeDriver& driver, const Script* script)
{
    const Options& options = session.options();
    const QDir workingFolder = QDir::current(); // a plug-in may change it
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
        ok = play(session, driver, *script, workingFolder) && ok;
    else
        weigh(session, driver);

    if (!driver.isInterrupted()) {
        // A script says itself what it expects.
        if (!script && options.source.isLive() && !session.hasScaleAnswered()) {
            printError(QStringLiteral("nothing has come from the scale, %1: %2")
                           .arg(session.source().description(), session.scale().statusDetail()));
            ok = false;
        }
        printLine(QStringLiteral("readings: %1").arg(session.readings()));
        printLine(QStringLiteral("display: %1").arg(session.display().line()));
        if (!options.screenshot.isEmpty()) {
            QString error;
            if (session.grab(workingFolder.absoluteFilePath(options.screenshot), &error)) {
                printLine(QStringLiteral("screenshot: %1").arg(options.screenshot));
            } else {
                printError(error);
                ok = false;
            }
        }
    }
    session.shutDown();
    // Each was logged when it happened, unless the log is off.
    if (options.logLevel > QsLogging::ErrorLevel) {
        for (const QString& error : session.errors())
            printError(error);
    }
    ok = ok && session.errors().isEmpty();
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

    PluginCheck check(session);
    int faulty = 0;
    for (const LoadResult& result : qAsConst(results))
        faulty += check.run(result) ? 0 : 1;
    session.shutDown();
    printLine(QStringLiteral("%1 checked, %2")
                  .arg(counted(results.size(), "plug-in", "plug-ins"),
                       faulty == 0 ? QStringLiteral("no fault") : QStringLiteral("%1 FAULTY").arg(faulty)));
    return faulty == 0 ? ExitOk : ExitFailed;
}

} // namespace Terminal
} // namespace Brimvale
