// SPDX-License-Identifier: BSD-3-Clause
#include "app/CommandLine.h"

#include "host/Units.h"
#include "print/Formatter.h"
#include "source/DecimalText.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace Brimvale
{
namespace Terminal
{
namespace
{

struct OptionInfo
{
    const char* name;
    const char* value; ///< What stands for the value in the help; null: the option takes none.
    const char* help;  ///< A line feed begins a new line.
    const char* group; ///< Title above the option; null: none.
    bool repeatable;
};

constexpr OptionInfo OptionTable[] = {
    {"plugin", "FILE", "run the plug-in FILE (repeatable)", "Plug-ins", true},
    {"plugin-dir", "DIR",
     "run every plug-in of the folder DIR (repeatable). Without --plugin and\n"
     "--plugin-dir the installed plug-ins are run",
     nullptr, true},
    {"no-plugin", nullptr, "run no plug-in: the terminal weighs by itself", nullptr, false},
    {"start", "ID", "the plug-in started first; default: the one chosen last, else the first", nullptr,
     false},
    {"check", nullptr,
     "load, initialise, start and close every plug-in, tell how each step went,\n"
     "and end",
     nullptr, false},
    {"source", "SPEC",
     "where the weights come from (default sim:)\n"
     "  sim:                  a simulated scale\n"
     "  trace:FILE            a recorded weighing, lines of \"time_s,weight_g\"\n"
     "  tcp:HOST:PORT         a scale that sends SICS weight lines\n"
     "  serial:DEVICE[,BAUD]  the same at a serial port",
     "Scale", false},
    {"speed", "N|max",
     "run a simulated or recorded scale N times as fast as real time; max: as fast\n"
     "as can be computed, the default of --headless without --sics",
     nullptr, false},
    {"readability", "G", "display increment in grams: 1, 2 or 5 times a power of ten", nullptr, false},
    {"capacity", "G", "largest load in grams", nullptr, false},
    {"coarse-above", "G", "load in grams above which the increment is ten times as large", nullptr, false},
    {"units", "U,...",
     "units that the unit key offers, such as g,kg,ct (default: all of g, mg, kg,\n"
     "GN, dwt, ozt, oz, lb, ct, C.M., tlh, tls, tlt, mom, tola and bht)",
     nullptr, false},
    {"stability", "S,N",
     "a weight is stable when it stays within N increments for S seconds\n"
     "(default 1,1)",
     nullptr, false},
    {"seed", "N", "begins the noise of the simulated scale (default 1)", nullptr, false},
    {"headless", nullptr, "run without a window and without a display", "Without a window", false},
    {"script", "FILE", "play the script FILE; see docs/headless-scripts.md", nullptr, false},
    {"approve", nullptr,
     "keep what the script prints as what is expected: the files of \"expect print\"\n"
     "are renewed",
     nullptr, false},
    {"demo", nullptr, "play a short demonstration on the simulated scale", nullptr, false},
    {"duration", "SECONDS",
     "end after so many seconds of the scale's time; default: 5 with sim:, the whole\n"
     "recording with trace:",
     nullptr, false},
    {"screenshot", "FILE.png", "at the end, save a picture of the terminal", nullptr, false},
    {"output", "DIR",
     "folder of the screenshots of --demo (default brimvale-demo) and --script\n"
     "(default: the working folder)",
     nullptr, false},
    {"no-bench", nullptr, "show the terminal alone, without the bench of weights", "Terminal", false},
    {"language", "en|de", "language of the terminal and its plug-ins", nullptr, false},
    {"settings", "FILE", "keep settings in FILE; default: a file of the user's, and none with --headless",
     nullptr, false},
    {"transfer-log", "FILE", "append every transferred measurement to FILE", nullptr, false},
    {"sics", "[ADDRESS:]PORT",
     "answer SICS commands (S, SI, SIR, SR, Z, T, @) of this computer's programs at\n"
     "PORT, or of the network at ADDRESS:PORT; 0 is any free port. See docs/sics.md",
     nullptr, false},
    {"printer", "WHERE",
     "where print-outs go (default roll)\n"
     "  roll             the paper roll on the bench\n"
     "  file:PATH        the end of a text file\n"
     "  pdf:PATH         a PDF file; further ones are numbered\n"
     "  tcp:HOST[:PORT]  a network printer (ESC/POS, default port 9100)\n"
     "  none             there is no printer",
     nullptr, false},
    {"print-columns", "N", "columns of a print-out: 24, 40 or 80 (default 40)", nullptr, false},
    {"log-level", "LEVEL",
     "trace, debug, info, warn, error, fatal or off (default warn); the log goes to\n"
     "the standard error output",
     nullptr, false},
    {"trace-host-calls", nullptr, "log every call of a plug-in into the terminal", nullptr, false},
    {"help", nullptr, "print this help and end", "Help", false},
    {"version", nullptr, "print the version and end", nullptr, false},
};

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

QString optionText(const char* name)
{
    return QStringLiteral("--") + latin1(name);
}

const OptionInfo* findOption(const QString& name)
{
    const auto found =
        std::find_if(std::begin(OptionTable), std::end(OptionTable),
                     [&name](const OptionInfo& option) { return name == QLatin1String(option.name); });
    return found == std::end(OptionTable) ? nullptr : found;
}

/// How many characters have to be changed, added or left out to make one text of the other.
int distance(const QString& a, const QString& b)
{
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    for (std::size_t column = 0; column < row.size(); ++column)
        row[column] = static_cast<int>(column);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const std::size_t column = static_cast<std::size_t>(j) + 1;
            const int replaced = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({replaced, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

QString unknownOptionText(const QString& name)
{
    const OptionInfo* nearest = nullptr;
    int nearestDistance = 3;
    for (const OptionInfo& option : OptionTable) {
        const int candidate = distance(name, latin1(option.name));
        if (candidate < nearestDistance) {
            nearest = &option;
            nearestDistance = candidate;
        }
    }
    const QString written = (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
    const QString mend = nearest ? QStringLiteral("did you mean %1?").arg(optionText(nearest->name))
                                 : QStringLiteral("--help lists the options");
    return QStringLiteral("%1: there is no such option; %2").arg(written, mend);
}

std::optional<double> number(const QString& text)
{
    const std::optional<DecimalText> decimal = DecimalText::parse(text.toUtf8());
    return decimal ? std::optional<double>(decimal->value()) : std::nullopt;
}

std::optional<QsLogging::Level> logLevel(const QString& text)
{
    static constexpr const char* Names[] = {"trace", "debug", "info", "warn", "error", "fatal", "off"};
    for (int level = QsLogging::TraceLevel; level <= QsLogging::OffLevel; ++level) {
        if (text == QLatin1String(Names[level]))
            return static_cast<QsLogging::Level>(level);
    }
    return std::nullopt;
}

} // namespace

CommandLine::CommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const OptionInfo& option : OptionTable) {
        QCommandLineOption added(latin1(option.name), latin1(option.help));
        if (option.value)
            added.setValueName(latin1(option.value));
        parser.addOption(added);
    }

    // The parser needs the program's name in front and leaves it out.
    const bool parsed = parser.parse(QStringList{QStringLiteral("brimvale-terminal")} + arguments);
    if (parser.isSet(QStringLiteral("help"))) {
        m_outcome = Outcome::Help;
        return;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        m_outcome = Outcome::Version;
        return;
    }
    if (!parser.unknownOptionNames().isEmpty()) {
        refuse(unknownOptionText(parser.unknownOptionNames().constFirst()));
        return;
    }
    if (!parsed) {
        // What is left to go wrong: a last option without its value, or a value for an option that takes none.
        const QString& last = arguments.last();
        const OptionInfo* option = findOption(last.mid(last.startsWith(QLatin1String("--")) ? 2 : 1));
        if (option && option->value)
            refuse(QStringLiteral("%1: the value is missing; write %1 %2")
                       .arg(optionText(option->name), latin1(option->value)));
        else
            refuse(parser.errorText() + QStringLiteral("; --help lists the options"));
        return;
    }
    if (!parser.positionalArguments().isEmpty()) {
        refuse(QStringLiteral("%1: this belongs to no option; a plug-in is given as --plugin FILE")
                   .arg(parser.positionalArguments().constFirst()));
        return;
    }
    if (readValues(parser) && readCombination())
        m_outcome = Outcome::Run;
}

bool CommandLine::refuse(const QString& error)
{
    m_outcome = Outcome::Refused;
    m_error = error;
    return false;
}

bool CommandLine::readValues(const QCommandLineParser& parser)
{
    for (const OptionInfo& option : OptionTable) {
        if (!option.value)
            continue;
        const QStringList values = parser.values(latin1(option.name));
        const QString name = optionText(option.name);
        if (values.size() > 1 && !option.repeatable)
            return refuse(QStringLiteral("%1 is given %2 times; give it once").arg(name).arg(values.size()));
        for (const QString& value : values) {
            // An option in the place of a value: "--script --headless".
            if (value.isEmpty() || (value.startsWith(QLatin1String("--")) && findOption(value.mid(2))))
                return refuse(
                    QStringLiteral("%1: the value is missing; write %1 %2").arg(name, latin1(option.value)));
        }
    }
    const auto value = [&parser](const char* name) { return parser.value(latin1(name)); };
    const auto isSet = [&parser](const char* name) { return parser.isSet(latin1(name)); };
    const auto bad = [this, &value](const char* name, const QString& mend) {
        return refuse(QStringLiteral("%1 %2: %3").arg(optionText(name), value(name), mend));
    };

    m_options.plugins = parser.values(QStringLiteral("plugin"));
    m_options.pluginDirectories = parser.values(QStringLiteral("plugin-dir"));
    m_options.withoutPlugin = isSet("no-plugin");
    m_options.startId = value("start");
    m_options.check = isSet("check");
    m_options.headless = isSet("headless");
    m_options.script = value("script");
    m_options.approve = isSet("approve");
    m_options.demo = isSet("demo");
    m_options.screenshot = value("screenshot");
    m_options.output = value("output");
    m_options.bench = !isSet("no-bench");
    m_options.settings = value("settings");
    m_options.transferLog = value("transfer-log");
    m_options.traceHostCalls = isSet("trace-host-calls");

    for (const QString& directory : qAsConst(m_options.pluginDirectories)) {
        const QFileInfo info(directory);
        if (!info.isDir())
            return refuse(QStringLiteral("--plugin-dir %1: %2; give a folder that holds plug-ins")
                              .arg(directory, info.exists() ? QStringLiteral("this is no folder")
                                                            : QStringLiteral("there is no such folder")));
    }
    if (isSet("source")) {
        QString error;
        const std::optional<SourceSpec> source = SourceSpec::parse(value("source"), &error);
        if (!source)
            return refuse(QStringLiteral("--source: ") + error);
        m_options.sourceText = value("source");
        m_options.source = *source;
    }
    if (isSet("sics")) {
        QString error;
        m_options.sics = SicsAddress::parse(value("sics"), &error);
        if (!m_options.sics)
            return refuse(QStringLiteral("--sics: ") + error);
    }
    if (isSet("speed")) {
        const std::optional<double> factor = number(value("speed"));
        if (value("speed") == QLatin1String("max")) {
            m_options.pace = Options::Pace::Maximum;
        } else if (factor && *factor >= 0.01 && *factor <= 10000.0) {
            m_options.pace = Options::Pace::Factor;
            m_options.speedFactor = *factor;
        } else {
            return bad("speed", QStringLiteral("give a number from 0.01 to 10000, or max"));
        }
    }
    if (isSet("readability")) {
        QString error;
        m_options.readability = Readability::parse(value("readability"), &error);
        if (!m_options.readability)
            return refuse(QStringLiteral("--readability: ") + error);
    }
    if (isSet("capacity")) {
        const std::optional<double> grams = number(value("capacity"));
        if (!grams || !(*grams > 0.0) || *grams > 1.0e9)
            return bad("capacity",
                       QStringLiteral("give the largest load in grams, above 0 and up to 1000000000"));
        m_options.capacity = *grams;
    }
    if (isSet("coarse-above")) {
        const std::optional<double> grams = number(value("coarse-above"));
        if (!grams || !(*grams > 0.0) || *grams > 1.0e9)
            return bad("coarse-above", QStringLiteral("give a load in grams, above 0 and up to 1000000000"));
        m_options.coarseAbove = *grams;
    }
    if (isSet("units")) {
        QString unknown;
        m_options.units = Units::enableMask(value("units").split(QLatin1Char(',')), &unknown);
        if (m_options.units == 0)
            return bad("units", QStringLiteral("there is no unit \"%1\"; there are: %2")
                                    .arg(unknown, Units::allNames().join(QStringLiteral(", "))));
    }
    if (isSet("stability")) {
        QString error;
        const std::optional<StabilitySettings> stability =
            StabilitySettings::parse(value("stability"), &error);
        if (!stability)
            return refuse(QStringLiteral("--stability: ") + error);
        m_options.stability = *stability;
    }
    if (isSet("seed")) {
        bool ok = false;
        m_options.seed = value("seed").toULongLong(&ok, 10);
        if (!ok)
            return bad("seed", QStringLiteral("give a whole number from 0 to 18446744073709551615"));
    }
    if (isSet("duration")) {
        const std::optional<double> seconds = number(value("duration"));
        if (!seconds || !(*seconds > 0.0) || *seconds > 1.0e6)
            return bad("duration", QStringLiteral("give seconds, above 0 and up to 1000000"));
        m_options.durationSeconds = seconds;
    }
    if (isSet("screenshot") && !m_options.screenshot.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        return bad("screenshot",
                   QStringLiteral("the picture is a PNG file; give a name that ends with .png"));
    if (isSet("printer")) {
        QString error;
        const std::optional<PrinterSpec> printer = PrinterSpec::parse(value("printer"), &error);
        if (!printer)
            return refuse(QStringLiteral("--printer ") + error);
        m_options.printer = *printer;
    }
    if (isSet("print-columns")) {
        m_options.printColumns = value("print-columns").toInt();
        if (!Formatter::isLayout(m_options.printColumns))
            return bad("print-columns", QStringLiteral("give 24, 40 or 80"));
    }
    if (isSet("language")) {
        m_options.language = value("language");
        if (m_options.language != QLatin1String("en") && m_options.language != QLatin1String("de"))
            return bad("language", QStringLiteral("give en or de"));
    }
    if (isSet("log-level")) {
        const std::optional<QsLogging::Level> level = logLevel(value("log-level"));
        if (!level)
            return bad("log-level", QStringLiteral("give trace, debug, info, warn, error, fatal or off"));
        m_options.logLevel = *level;
    }
    return true;
}

bool CommandLine::readCombination()
{
    const bool plugins = !m_options.plugins.isEmpty() || !m_options.pluginDirectories.isEmpty();
    const bool simulated = m_options.source.kind == SourceSpec::Kind::Simulated;
    const auto conflict = [this](const char* a, const char* b, const QString& why) {
        return refuse(
            QStringLiteral("%1 and %2 do not go together: %3").arg(optionText(a), optionText(b), why));
    };

    if (m_options.withoutPlugin) {
        if (plugins)
            return conflict("no-plugin", m_options.plugins.isEmpty() ? "plugin-dir" : "plugin",
                            QStringLiteral("leave one of them out"));
        if (!m_options.startId.isEmpty())
            return conflict("no-plugin", "start", QStringLiteral("there is no plug-in to start"));
        if (m_options.check)
            return conflict("no-plugin", "check", QStringLiteral("there is no plug-in to check"));
    }
    if (m_options.check) {
        const struct
        {
            const char* name;
            bool set;
        } useless[] = {
            {"script", !m_options.script.isEmpty()},
            {"demo", m_options.demo},
            {"screenshot", !m_options.screenshot.isEmpty()},
            {"duration", m_options.durationSeconds.has_value()},
            {"start", !m_options.startId.isEmpty()},
            {"sics", m_options.sics.has_value()},
        };
        for (const auto& option : useless) {
            if (option.set)
                return conflict("check", option.name,
                                QStringLiteral("a check starts and closes every plug-in and weighs nothing"));
        }
        if (m_options.source.isLive())
            return conflict("check", "source", QStringLiteral("a check weighs nothing; leave --source out"));
        m_options.headless = true;
    }
    if (!m_options.headless) {
        const struct
        {
            const char* name;
            bool set;
        } headlessOnly[] = {
            {"script", !m_options.script.isEmpty()},
            {"demo", m_options.demo},
            {"duration", m_options.durationSeconds.has_value()},
            {"screenshot", !m_options.screenshot.isEmpty()},
        };
        for (const auto& option : headlessOnly) {
            if (option.set)
                return refuse(QStringLiteral("%1 works without a window only; add --headless")
                                  .arg(optionText(option.name)));
        }
        if (m_options.pace == Options::Pace::Maximum)
            return refuse(QStringLiteral("--speed max works without a window only; add --headless, or give a "
                                         "number such as --speed 10"));
    }
    if (m_options.approve && m_options.script.isEmpty())
        return refuse(QStringLiteral("--approve: it renews what a script expects; add --script FILE"));
    if (m_options.demo && !m_options.script.isEmpty())
        return conflict("demo", "script", QStringLiteral("the demonstration is a script of its own"));
    if (m_options.demo && !simulated)
        return conflict("demo", "source",
                        QStringLiteral("the demonstration puts weights on the simulated scale; leave "
                                       "--source out"));
    if (m_options.durationSeconds && (m_options.demo || !m_options.script.isEmpty()))
        return conflict("duration", m_options.demo ? "demo" : "script",
                        QStringLiteral("a script says itself how long it waits"));
    if (!m_options.output.isEmpty() && !m_options.demo && m_options.script.isEmpty())
        return refuse(
            QStringLiteral("--output %1: only --script and --demo write there; name the file of a single "
                           "picture with --screenshot")
                .arg(m_options.output));
    if (m_options.source.isLive()) {
        if (m_options.pace != Options::Pace::Unset)
            return conflict(
                "speed", "source",
                QStringLiteral("%1 is a real scale, which runs in real time").arg(m_options.sourceText));
        if (m_options.headless && m_options.script.isEmpty() && !m_options.durationSeconds)
            return refuse(
                QStringLiteral("--source %1: a real scale never ends; say with --duration SECONDS how "
                               "long to weigh, or give a --script")
                    .arg(m_options.sourceText));
    }
    if (m_options.seed != Options().seed && !simulated)
        return conflict("seed", "source", QStringLiteral("only the simulated scale makes noise from a seed"));
    if (m_options.sics && m_options.headless && !m_options.source.isLive()
        && m_options.pace == Options::Pace::Unset)
        m_options.pace = Options::Pace::Factor; // Computers that are connected live in real time.
    return true;
}

QString CommandLine::help()
{
    QString text = QStringLiteral("Usage: brimvale-terminal [OPTION]...\n"
                                  "Runs plug-ins of the weighing terminal, in a window or without one.\n");
    constexpr int HelpColumn = 26;
    for (const OptionInfo& option : OptionTable) {
        if (option.group)
            text += QLatin1Char('\n') + latin1(option.group) + QStringLiteral(":\n");
        QString head = QStringLiteral("  ") + optionText(option.name);
        if (option.value)
            head += QLatin1Char(' ') + latin1(option.value);
        const QStringList lines = latin1(option.help).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            text += head.leftJustified(HelpColumn - 1) + QLatin1Char(' ') + line + QLatin1Char('\n');
            head.clear();
        }
    }
    text += QStringLiteral(
        "\n"
        "Results go to the standard output, the log to the standard error output.\n"
        "Exit status: 0 everything went well; 1 something failed: a plug-in, an expectation, a\n"
        "picture; 2 wrong use or unusable input; 130 and 143 without a window: ended by Ctrl+C\n"
        "or SIGTERM.\n");
    return text;
}

QString CommandLine::version()
{
    return QStringLiteral("brimvale-terminal " BRIMVALE_TERMINAL_VERSION "\n");
}

} // namespace Terminal
} // namespace Brimvale
