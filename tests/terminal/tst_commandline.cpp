// SPDX-License-Identifier: BSD-3-Clause
#include "app/CommandLine.h"

#include <QTemporaryDir>
#include <QtTest>

using Brimvale::Terminal::CommandLine;
using Brimvale::Terminal::Options;
using Brimvale::Terminal::PrinterSpec;
using Brimvale::Terminal::Readability;
using Brimvale::Terminal::SourceSpec;

namespace
{

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void withoutArguments();
    void everyOption();
    void pluginsKeepTheirOrder();
    void valueAfterEqualsSign();
    void source_data();
    void source();
    void speed_data();
    void speed();
    void logLevel_data();
    void logLevel();
    void sicsServerRunsInRealTime_data();
    void sicsServerRunsInRealTime();
    void checkIsHeadless();
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void pluginFolderThatIsAFile();
    void helpNamesEveryOption_data();
    void helpNamesEveryOption();
    void helpFitsATerminal();
    void helpWins_data();
    void helpWins();
    void version();
};

void TestCommandLine::withoutArguments()
{
    const CommandLine line{QStringList()};
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    const Options& options = line.options();
    QVERIFY(options.plugins.isEmpty());
    QCOMPARE(options.source.kind, SourceSpec::Kind::Simulated);
    QCOMPARE(options.sourceText, QStringLiteral("sim:"));
    QCOMPARE(options.pace, Options::Pace::Unset);
    QVERIFY(!options.readability);
    QCOMPARE(options.capacity, 0.0);
    QCOMPARE(options.stability.seconds, 1.0);
    QCOMPARE(options.stability.increments, 1.0);
    QCOMPARE(options.seed, Q_UINT64_C(1));
    QVERIFY(!options.headless);
    QVERIFY(!options.durationSeconds);
    QVERIFY(options.bench);
    QVERIFY(!options.sics);
    QCOMPARE(options.printer.kind, PrinterSpec::Kind::Roll);
    QCOMPARE(options.printColumns, 40);
    QVERIFY(options.language.isEmpty());
    QCOMPARE(options.logLevel, QsLogging::WarnLevel);
}

void TestCommandLine::everyOption()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const CommandLine line(
        words("--plugin a.so --readability 0.05 --capacity 3200 --stability 2.5,3 --seed 7 "
              "--headless --screenshot out.PNG --duration 2.5 --no-bench --language de "
              "--settings s.ini --start weighing --log-level trace --trace-host-calls "
              "--transfer-log t.csv --sics 0.0.0.0:4001 --printer pdf:a.pdf --print-columns 80 "
              "--plugin-dir")
        + QStringList{folder.path()});
    QCOMPARE(line.error(), QString());
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    const Options& options = line.options();
    QCOMPARE(options.plugins, QStringList{QStringLiteral("a.so")});
    QCOMPARE(options.pluginDirectories, QStringList{folder.path()});
    QVERIFY(options.readability.has_value());
    QCOMPARE(options.readability->grams(), 0.05);
    QCOMPARE(options.capacity, 3200.0);
    QCOMPARE(options.stability.seconds, 2.5);
    QCOMPARE(options.stability.increments, 3.0);
    QCOMPARE(options.seed, Q_UINT64_C(7));
    QVERIFY(options.headless);
    QCOMPARE(options.screenshot, QStringLiteral("out.PNG"));
    QCOMPARE(options.durationSeconds.value_or(0.0), 2.5);
    QVERIFY(!options.bench);
    QCOMPARE(options.language, QStringLiteral("de"));
    QCOMPARE(options.settings, QStringLiteral("s.ini"));
    QCOMPARE(options.startId, QStringLiteral("weighing"));
    QCOMPARE(options.logLevel, QsLogging::TraceLevel);
    QVERIFY(options.traceHostCalls);
    QCOMPARE(options.transferLog, QStringLiteral("t.csv"));
    QVERIFY(options.sics.has_value());
    QCOMPARE(options.sics->text(), QStringLiteral("0.0.0.0:4001"));
    QCOMPARE(options.printer.kind, PrinterSpec::Kind::Pdf);
    QCOMPARE(options.printer.path, QStringLiteral("a.pdf"));
    QCOMPARE(options.printColumns, 80);
}

void TestCommandLine::pluginsKeepTheirOrder()
{
    const CommandLine line(words("--plugin b.so --plugin a.so --plugin c.so"));
    QCOMPARE(line.options().plugins, words("b.so a.so c.so"));
}

void TestCommandLine::valueAfterEqualsSign()
{
    const CommandLine line(words("--language=de --plugin=a=b.so"));
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QCOMPARE(line.options().language, QStringLiteral("de"));
    QCOMPARE(line.options().plugins, words("a=b.so"));
}

void TestCommandLine::source_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::newRow("simulated") << "sim:" << int(SourceSpec::Kind::Simulated);
    QTest::newRow("trace") << "trace:a.csv" << int(SourceSpec::Kind::Trace);
    QTest::newRow("tcp") << "tcp:localhost:4001" << int(SourceSpec::Kind::Tcp);
    QTest::newRow("serial") << "serial:/dev/ttyUSB0" << int(SourceSpec::Kind::Serial);
}

void TestCommandLine::source()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    const CommandLine line({QStringLiteral("--source"), text});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QCOMPARE(int(line.options().source.kind), kind);
    QCOMPARE(line.options().sourceText, text);
}

void TestCommandLine::speed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pace");
    QTest::addColumn<double>("factor");
    QTest::newRow("real time") << "1" << int(Options::Pace::Factor) << 1.0;
    QTest::newRow("slow") << "0.5" << int(Options::Pace::Factor) << 0.5;
    QTest::newRow("fast") << "100" << int(Options::Pace::Factor) << 100.0;
    QTest::newRow("maximum") << "max" << int(Options::Pace::Maximum) << 1.0;
}

void TestCommandLine::speed()
{
    QFETCH(QString, text);
    QFETCH(int, pace);
    QFETCH(double, factor);
    const CommandLine line({QStringLiteral("--headless"), QStringLiteral("--speed"), text});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QCOMPARE(int(line.options().pace), pace);
    QCOMPARE(line.options().speedFactor, factor);
}

void TestCommandLine::logLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::newRow("trace") << int(QsLogging::TraceLevel);
    QTest::newRow("debug") << int(QsLogging::DebugLevel);
    QTest::newRow("info") << int(QsLogging::InfoLevel);
    QTest::newRow("warn") << int(QsLogging::WarnLevel);
    QTest::newRow("error") << int(QsLogging::ErrorLevel);
    QTest::newRow("fatal") << int(QsLogging::FatalLevel);
    QTest::newRow("off") << int(QsLogging::OffLevel);
}

void TestCommandLine::logLevel()
{
    QFETCH(int, level);
    const CommandLine line({QStringLiteral("--log-level"), QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QCOMPARE(int(line.options().logLevel), level);
}

void TestCommandLine::sicsServerRunsInRealTime_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("pace");
    QTest::newRow("headless") << "--headless --sics 0" << int(Options::Pace::Factor);
    QTest::newRow("recording") << "--headless --sics 0 --source trace:a.csv" << int(Options::Pace::Factor);
    QTest::newRow("as fast as can be") << "--headless --sics 0 --speed max" << int(Options::Pace::Maximum);
    QTest::newRow("window") << "--sics 0" << int(Options::Pace::Unset);
    QTest::newRow("real scale") << "--headless --sics 0 --source tcp:h:1 --duration 5"
                                << int(Options::Pace::Unset);
    QTest::newRow("no server") << "--headless" << int(Options::Pace::Unset);
}

void TestCommandLine::sicsServerRunsInRealTime()
{
    QFETCH(QString, arguments);
    QFETCH(int, pace);
    const CommandLine line(words(arguments.toUtf8().constData()));
    QCOMPARE(line.error(), QString());
    QCOMPARE(int(line.options().pace), pace);
    QCOMPARE(line.options().speedFactor, 1.0);
}

void TestCommandLine::checkIsHeadless()
{
    const CommandLine line(words("--check --plugin a.so"));
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QVERIFY(line.options().check);
    QVERIFY(line.options().headless);
}

void TestCommandLine::accepted_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("single dash") << "-headless -no-plugin";
    QTest::newRow("headless recording") << "--headless --source trace:a.csv";
    QTest::newRow("recording for a time") << "--headless --source trace:a.csv --duration 3";
    QTest::newRow("live source for a time") << "--headless --source tcp:h:1 --duration 3";
    QTest::newRow("live source with a script") << "--headless --source tcp:h:1 --script s";
    QTest::newRow("live source in a window") << "--source tcp:h:1";
    QTest::newRow("window, ten times as fast") << "--speed 10";
    QTest::newRow("demonstration with folder") << "--headless --demo --output d";
    QTest::newRow("script with picture at the end") << "--headless --script s --screenshot a.png --output d";
}

void TestCommandLine::accepted()
{
    QFETCH(QString, arguments);
    const CommandLine line(words(arguments.toUtf8().constData()));
    QCOMPARE(line.error(), QString());
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
}

void TestCommandLine::refused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    const auto row = [](const char* name, const char* arguments, const char* error) {
        QTest::newRow(name) << words(arguments) << QString::fromLatin1(error);
    };
    row("unknown", "--frobnicate", "--frobnicate: there is no such option; --help lists the options");
    row("misspelt", "--plugn a.so", "--plugn: there is no such option; did you mean --plugin?");
    row("unknown letter", "-x", "-x: there is no such option; --help lists the options");
    row("stray word", "a.so", "a.so: this belongs to no option; a plug-in is given as --plugin FILE");
    row("value missing at the end", "--headless --plugin",
        "--plugin: the value is missing; write --plugin FILE");
    row("option in the place of the value", "--script --headless",
        "--script: the value is missing; write --script FILE");
    row("empty value", "--plugin=", "--plugin: the value is missing; write --plugin FILE");
    row("value for a switch", "--headless=yes",
        "Unexpected value after '--headless'.; --help lists the options");
    row("twice", "--source sim: --source trace:a", "--source is given 2 times; give it once");
    row("speed zero", "--speed 0", "--speed 0: give a number from 0.01 to 10000, or max");
    row("speed negative", "--speed -1", "--speed -1: give a number from 0.01 to 10000, or max");
    row("speed word", "--speed fast", "--speed fast: give a number from 0.01 to 10000, or max");
    row("speed not a number", "--speed nan", "--speed nan: give a number from 0.01 to 10000, or max");
    row("speed with comma", "--speed 1,5", "--speed 1,5: give a number from 0.01 to 10000, or max");
    row("capacity zero", "--capacity 0",
        "--capacity 0: give the largest load in grams, above 0 and up to 1000000000");
    row("capacity infinite", "--capacity inf",
        "--capacity inf: give the largest load in grams, above 0 and up to 1000000000");
    row("printer", "--printer lpt1",
        "--printer lpt1: give roll, file:PATH, pdf:PATH, tcp:HOST[:PORT] or none");
    row("port of the printer", "--printer tcp:a:0",
        "--printer tcp:a:0: the port is a number from 1 to 65535, such as tcp:HOST:9100");
    row("columns", "--print-columns 32", "--print-columns 32: give 24, 40 or 80");
    row("columns that are no number", "--print-columns wide", "--print-columns wide: give 24, 40 or 80");
    row("seed negative", "--seed -1", "--seed -1: give a whole number from 0 to 18446744073709551615");
    row("seed fraction", "--seed 1.5", "--seed 1.5: give a whole number from 0 to 18446744073709551615");
    row("duration zero", "--headless --duration 0", "--duration 0: give seconds, above 0 and up to 1000000");
    row("duration with unit", "--headless --duration 5s",
        "--duration 5s: give seconds, above 0 and up to 1000000");
    row("picture of another kind", "--headless --screenshot a.jpg",
        "--screenshot a.jpg: the picture is a PNG file; give a name that ends with .png");
    row("language", "--language fr", "--language fr: give en or de");
    row("port", "--sics 65536",
        "--sics: \"65536\" is no port; a port is a number from 0 (any free one) to 65535");
    row("name of a computer", "--sics scale:4001",
        "--sics: \"scale\" is no address of this computer; write 127.0.0.1:4001, [::1]:4001, or 0.0.0.0:4001 "
        "to listen on all addresses");
    row("log level", "--log-level loud",
        "--log-level loud: give trace, debug, info, warn, error, fatal or off");
    row("no such folder", "--plugin-dir /no/such/folder",
        "--plugin-dir /no/such/folder: there is no such folder; give a folder that holds plug-ins");

    row("script in a window", "--script a", "--script works without a window only; add --headless");
    row("demonstration in a window", "--demo", "--demo works without a window only; add --headless");
    row("picture in a window", "--screenshot a.png",
        "--screenshot works without a window only; add --headless");
    row("duration in a window", "--duration 5", "--duration works without a window only; add --headless");
    row("maximum speed in a window", "--speed max",
        "--speed max works without a window only; add --headless, or give a number such as --speed 10");
    row("demonstration and script", "--headless --demo --script a",
        "--demo and --script do not go together: the demonstration is a script of its own");
    row("demonstration on a recording", "--headless --demo --source trace:a",
        "--demo and --source do not go together: the demonstration puts weights on the simulated scale; "
        "leave "
        "--source out");
    row("duration and script", "--headless --duration 5 --script a",
        "--duration and --script do not go together: a script says itself how long it waits");
    row("output alone", "--headless --output d",
        "--output d: only --script and --demo write there; name the file of a single picture with "
        "--screenshot");
    row("speed of a real scale", "--source tcp:h:1 --speed 2",
        "--speed and --source do not go together: tcp:h:1 is a real scale, which runs in real time");
    row("endless run", "--headless --source serial:/dev/ttyS0",
        "--source serial:/dev/ttyS0: a real scale never ends; say with --duration SECONDS how long to weigh, "
        "or "
        "give a --script");
    row("seed of a recording", "--source trace:a --seed 3",
        "--seed and --source do not go together: only the simulated scale makes noise from a seed");
    row("plug-in and none", "--no-plugin --plugin a.so",
        "--no-plugin and --plugin do not go together: leave one of them out");
    row("start of none", "--no-plugin --start a",
        "--no-plugin and --start do not go together: there is no plug-in to start");
    row("check of none", "--no-plugin --check",
        "--no-plugin and --check do not go together: there is no plug-in to check");
    row("check and script", "--check --script a",
        "--check and --script do not go together: a check starts and closes every plug-in and weighs "
        "nothing");
    row("check and server", "--check --sics 4001",
        "--check and --sics do not go together: a check starts and closes every plug-in and weighs nothing");
    row("check on a real scale", "--check --source tcp:h:1",
        "--check and --source do not go together: a check weighs nothing; leave --source out");
}

void TestCommandLine::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const CommandLine line(arguments);
    QCOMPARE(line.error(), error);
    QCOMPARE(line.outcome(), CommandLine::Outcome::Refused);
}

void TestCommandLine::pluginFolderThatIsAFile()
{
    const QString file = QCoreApplication::applicationFilePath();
    const CommandLine line({QStringLiteral("--plugin-dir"), file});
    QCOMPARE(
        line.error(),
        QStringLiteral("--plugin-dir %1: this is no folder; give a folder that holds plug-ins").arg(file));
}

void TestCommandLine::helpNamesEveryOption_data()
{
    QTest::addColumn<QString>("option");
    for (const QString& option :
         words("--plugin --plugin-dir --no-plugin --start --check --source --speed --readability --capacity "
               "--coarse-above --units --stability --seed --headless --script --demo --duration --screenshot "
               "--output --no-bench "
               "--language --settings --transfer-log --sics --printer --print-columns --log-level "
               "--trace-host-calls --help --version"))
        QTest::newRow(qPrintable(option)) << option;
}

void TestCommandLine::helpNamesEveryOption()
{
    QFETCH(QString, option);
    QVERIFY2(CommandLine::help().contains(QLatin1String("\n  ") + option + QLatin1Char(' ')),
             qPrintable(CommandLine::help()));
}

void TestCommandLine::helpFitsATerminal()
{
    const QStringList lines = CommandLine::help().split(QLatin1Char('\n'));
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 104, qPrintable(line));
}

void TestCommandLine::helpWins_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("alone") << "--help";
    QTest::newRow("beside an unknown option") << "--frobnicate --help";
    QTest::newRow("beside a bad value") << "--speed never --help";
    QTest::newRow("beside --version") << "--version --help";
}

void TestCommandLine::helpWins()
{
    QFETCH(QString, arguments);
    QCOMPARE(CommandLine(words(arguments.toUtf8().constData())).outcome(), CommandLine::Outcome::Help);
}

void TestCommandLine::version()
{
    QCOMPARE(CommandLine(words("--version")).outcome(), CommandLine::Outcome::Version);
    QVERIFY(CommandLine::version().startsWith(QLatin1String("brimvale-terminal ")));
    QVERIFY(CommandLine::version().endsWith(QLatin1Char('\n')));
}

QTEST_GUILESS_MAIN(TestCommandLine)

#include "tst_commandline.moc"
