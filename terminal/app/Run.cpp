// SPDX-License-Identifier: BSD-3-Clause
#include "app/Run.h"

#include "app/CommandLine.h"
#include "app/Console.h"
#include "app/GuardedApplication.h"
#include "app/HeadlessRun.h"
#include "app/LogOutput.h"
#include "app/PluginFaults.h"
#include "app/Session.h"
#include "app/TerminationSignals.h"
#include "app/TimeDriver.h"
#include "clock/VirtualClock.h"
#include "clock/WallClock.h"
#include "loading/PluginLoader.h"
#include "script/Script.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <memory>
#include <optional>

// Resources of a static library are registered by hand, outside any namespace.
static void initResources()
{
    Q_INIT_RESOURCE(terminal_demo);
}

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Where nothing is said about letters beyond ASCII, names of files and texts are UTF-8, as everywhere today.
void assumeUtf8()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0)
        qputenv("LC_ALL", "C.UTF-8");
}

/// A run without a window needs neither a display nor a graphics driver, whatever is set for the programs with one.
void useNoDisplay()
{
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY")
           || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Qt ends the process when it cannot open the display; this explains it. Other messages of that time tell the person
/// nothing.
void explainNoDisplay(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtFatalMsg)
        return;
    printError(message.trimmed());
    printError(
        QStringLiteral("the display cannot be opened; check DISPLAY or WAYLAND_DISPLAY, or add --headless"));
    std::_Exit(ExitFailed);
}

/// The folder of the installed plug-ins.
QString installedPlugins()
{
    const QString program = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
    return QDir::cleanPath(program + QStringLiteral("/" BRIMVALE_PLUGIN_DIRECTORY));
}

/// Completes the choice of plug-ins. Returns what is wrong with it; empty: nothing.
QString choosePlugins(Options* options)
{
    if (options->withoutPlugin)
        return QString();
    if (options->plugins.isEmpty() && options->pluginDirectories.isEmpty()) {
        const QString folder = installedPlugins();
        QString error;
        if (pluginFilesOf(folder, &error).isEmpty())
            return QStringLiteral("no plug-in is given, and none is installed in %1; give --plugin FILE or "
                                  "--plugin-dir DIR, or weigh without one by --no-plugin")
                .arg(folder);
        options->pluginDirectories.append(folder);
    }
    for (const QString& directory : qAsConst(options->pluginDirectories)) {
        QString error;
        if (pluginFilesOf(directory, &error).isEmpty())
            return QStringLiteral("--plugin-dir %1: %2").arg(directory, error);
    }
    return QString();
}

/// What is written after a plug-in was loaded must not follow it when it changes the working folder.
void makePathsAbsolute(Options* options)
{
    for (QString* const path : {&options->settings, &options->transferLog, &options->printer.path}) {
        if (!path->isEmpty() && *path != QLatin1String("-"))
            *path = QFileInfo(*path).absoluteFilePath();
    }
}

std::optional<Script> loadScript(const Options& options, QStringList* errors)
{
    if (options.demo) {
        QFile file(QStringLiteral(":/terminal/demo/demo.script"));
        file.open(QIODevice::ReadOnly);
        return Script::parse(file.readAll(), QStringLiteral("demo.script"), errors);
    }
    std::optional<Script> script = Script::load(options.script, errors);
    if (script)
        *errors = script->faultsWith(options.source.kind);
    return script;
}

SourceOptions sourceOptions(const Options& options)
{
    SourceOptions source;
    source.readability = options.readability;
    source.simulation.capacity = options.capacity;
    source.simulation.seed = options.seed;
    return source;
}

/// The clock of the terminal, what drives it in a run without a window, and the source.
struct TimeAndSource
{
    std::unique_ptr<Clock> clock;
    std::unique_ptr<TimeDriver> driver; ///< Null in a window: the event loop drives the clock.
    std::unique_ptr<WeightSource> source;

    /// Returns false, after a message, when the source cannot be made.
    bool make(const Options& options)
    {
        const bool paced = options.pace == Options::Pace::Factor;
        if (options.headless && !options.source.isLive()) {
            auto virtualClock = std::make_unique<VirtualClock>();
            driver = std::make_unique<VirtualTimeDriver>(
                *virtualClock, paced ? std::optional<double>(options.speedFactor) : std::nullopt);
            clock = std::move(virtualClock);
        } else {
            clock = std::make_unique<WallClock>(options.speedFactor);
            if (options.headless)
                driver = std::make_unique<RealTimeDriver>(*clock);
        }
        QString error;
        source = createSource(options.source, *clock, sourceOptions(options), &error);
        if (!source)
            printFault(error);
        return source != nullptr;
    }
};

/// Runs the terminal in its window until the person closes it or a signal ends it. A plug-in does not end it.
int runWindow(Session& session, GuardedApplication& application, TerminationSignals& terminationSignals)
{
    bool ends = false;
    const QObject context;
    const auto end = [&ends] {
        ends = true;
        QCoreApplication::quit();
    };
    QObject::connect(&session, &Session::closed, &context, end, Qt::QueuedConnection);
    QObject::connect(&terminationSignals, &TerminationSignals::terminationRequested, &context, end,
                     Qt::QueuedConnection);
    QObject::connect(&application, &GuardedApplication::sessionEnds, &context, end);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    session.window().show();
    session.loadPlugins();
    session.start();
    QCoreApplication::exec();
    while (!ends) {
        session.pluginFaults().reportQuit();
        QCoreApplication::exec();
    }
    session.shutDown();
    return session.errors().isEmpty() ? ExitOk : ExitFailed;
}

} // namespace

int runTerminal(int argc, char** argv)
{
    assumeUtf8();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    const CommandLine commandLine(arguments);
    switch (commandLine.outcome()) {
    case CommandLine::Outcome::Help:
        printLine(CommandLine::help().trimmed());
        return ExitOk;
    case CommandLine::Outcome::Version:
        printLine(CommandLine::version().trimmed());
        return ExitOk;
    case CommandLine::Outcome::Refused:
        printError(commandLine.error());
        return ExitWrongUse;
    case CommandLine::Outcome::Run:
        break;
    }
    Options options = commandLine.options();
    initResources();
    makePathsAbsolute(&options);

    // Everything that can be wrong is looked at before anything starts.
    const QString choiceError = choosePlugins(&options);
    if (!choiceError.isEmpty()) {
        printError(choiceError);
        return ExitWrongUse;
    }
    std::optional<Script> script;
    if (options.demo || !options.script.isEmpty()) {
        QStringList errors;
        script = loadScript(options, &errors);
        for (const QString& error : qAsConst(errors))
            printFault(error);
        if (!errors.isEmpty())
            return ExitWrongUse;
        const QString folder = screenshotFolder(options);
        if (!folder.isEmpty() && !QDir().mkpath(folder)) {
            printError(
                QStringLiteral("--output %1: the folder cannot be made; give one that can be written to")
                    .arg(folder));
            return ExitWrongUse;
        }
    }
    if (!options.headless && !hasDisplay()) {
        printError(QStringLiteral(
            "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set; add --headless to "
            "run without a window"));
        return ExitFailed;
    }
    // A recording is read before there is a window; a real scale needs the application's event loop.
    TimeAndSource timeAndSource;
    if (!options.source.isLive() && !timeAndSource.make(options))
        return ExitWrongUse;

    if (options.headless)
        useNoDisplay();
    const QtMessageHandler usualHandler = qInstallMessageHandler(explainNoDisplay);
    // Qt would take some of the options, "--plugin" among them, for its own.
    int programOnly = 1;
    GuardedApplication application(programOnly, argv);
    qInstallMessageHandler(usualHandler);
    QGuiApplication::setApplicationName(QStringLiteral("brimvale-terminal"));
    QGuiApplication::setApplicationVersion(QStringLiteral(BRIMVALE_TERMINAL_VERSION));
    if (options.source.isLive() && !timeAndSource.make(options))
        return ExitFailed;

    LogOutput log(options.logLevel);
    TerminationSignals terminationSignals;
    Session session(options, *timeAndSource.clock, std::move(timeAndSource.source), log);
    QObject::connect(&application, &GuardedApplication::exceptionCaught, &session.pluginFaults(),
                     &PluginFaults::reportException);
    QStringList errors;
    if (!session.prepare(&errors)) {
        for (const QString& error : qAsConst(errors))
            printError(error);
        return ExitWrongUse;
    }
    QString listenError;
    if (!session.listen(&listenError)) {
        printError(listenError);
        return ExitFailed;
    }
    if (!options.headless)
        return runWindow(session, application, terminationSignals);
    if (options.check)
        return runCheck(session);
    TimeDriver& driver = *timeAndSource.driver;
    QObject::connect(&terminationSignals, &TerminationSignals::terminationRequested, &session,
                     [&driver] { driver.interrupt(); });
    const int exitCode = runHeadless(session, driver, script ? &*script : nullptr);
    return driver.isInterrupted() ? ExitBySignal + terminationSignals.received() : exitCode;
}

} // namespace Terminal
} // namespace Brimvale
