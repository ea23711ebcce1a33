// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_COMMANDLINE_H
#define BRIMVALE_COMMANDLINE_H

#include "QsLogLevel.h"
#include "measuring/Readability.h"
#include "measuring/StabilityDetector.h"
#include "print/PrintJob.h"
#include "print/PrinterSpec.h"
#include "sics/SicsAddress.h"
#include "source/SourceSpec.h"

#include <QString>
#include <QStringList>

#include <optional>

class QCommandLineParser;

namespace Brimvale
{
namespace Terminal
{

/// What a run of the terminal is told on its command line.
struct Options
{
    /// How fast the time of the terminal passes.
    enum class Pace
    {
        Unset,  ///< Real time with a window, as fast as can be computed without.
        Factor, ///< speedFactor times as fast as real time.
        Maximum ///< As fast as can be computed.
    };

    QStringList plugins;           ///< Plug-in files.
    QStringList pluginDirectories; ///< Folders of plug-ins.
    bool withoutPlugin = false;    ///< The terminal weighs by itself.
    QString startId;               ///< The plug-in that is started first; empty: the first that loads.

    QString sourceText = QStringLiteral("sim:"); ///< The source as it was written.
    SourceSpec source;
    Pace pace = Pace::Unset;
    double speedFactor = 1.0; ///< Only for Pace::Factor.
    std::optional<Readability> readability;
    double capacity = 0.0;    ///< Grams; 0: the source's.
    double coarseAbove = 0.0; ///< Grams; 0: there is no coarse range.
    int units = 0;            ///< Bits of UnitDef::UnitEnableFlag; 0: all.
    StabilitySettings stability;
    quint64 seed = 1; ///< Of the simulated scale's noise.

    bool headless = false; ///< Also set by check.
    bool demo = false;
    bool check = false;
    QString script;                        ///< Empty: none.
    bool approve = false;                  ///< What the script prints is what is expected from now on.
    QString screenshot;                    ///< Empty: none.
    QString output;                        ///< Folder of the screenshots of a script or demo; empty: default.
    std::optional<double> durationSeconds; ///< Unset: see the manual.

    bool bench = true;
    QString language; ///< "en" or "de"; empty: the stored one.
    QString settings; ///< File; empty: the user's own, and none headless.
    QString transferLog;
    std::optional<SicsAddress> sics; ///< Where the SICS server listens; unset: there is none.
    PrinterSpec printer;
    int printColumns = PrintJob::DefaultLayout;
    bool traceHostCalls = false;
    QsLogging::Level logLevel = QsLogging::WarnLevel;
};

/// Reads the command line. Needs no application object and no display.
class CommandLine
{
public:
    enum class Outcome
    {
        Run,     ///< options() say what.
        Help,    ///< help() is asked for.
        Version, ///< version() is asked for.
        Refused  ///< error() says why.
    };

    /// Reads @p arguments, the program's name not among them.
    explicit CommandLine(const QStringList& arguments);

    Outcome outcome() const { return m_outcome; }
    const Options& options() const { return m_options; }

    /// One line: the option, the value and what would be right.
    QString error() const { return m_error; }

    static QString help();
    static QString version();

private:
    bool readValues(const QCommandLineParser& parser);
    bool readCombination();
    bool refuse(const QString& error);

    Outcome m_outcome = Outcome::Refused;
    Options m_options;
    QString m_error;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_COMMANDLINE_H
