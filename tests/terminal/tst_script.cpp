// SPDX-License-Identifier: BSD-3-Clause
#include "script/Script.h"

#include <QTemporaryDir>
#include <QtTest>

using Brimvale::Terminal::Script;
using Brimvale::Terminal::SourceSpec;
using Brimvale::Terminal::Statement;

using Kind = Statement::Kind;

namespace
{

std::optional<Script> parse(const QByteArray& content, QStringList* errors)
{
    return Script::parse(content, QStringLiteral("a.script"), errors);
}

} // namespace

class TestScript : public QObject
{
    Q_OBJECT

private slots:
    void statement_data();
    void statement();
    void number_data();
    void number();
    void within_data();
    void within();
    void text_data();
    void text();
    void firstWordOfAPair_data();
    void firstWordOfAPair();
    void linesAreCounted();
    void blanksAroundAreIgnored();
    void byteOrderMarkIsIgnored();
    void error_data();
    void error();
    void allErrorsAreListed();
    void fileNameThatHoldsAPercentSign();
    void emptyScript();
    void fileThatIsNotThere();
    void fileThatIsTooLarge();
    void faultsWithSource_data();
    void faultsWithSource();
};

void TestScript::statement_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("put on 500 g") << int(Kind::PutOn);
    QTest::newRow("take off 200 g") << int(Kind::TakeOff);
    QTest::newRow("take off all") << int(Kind::TakeOffAll);
    QTest::newRow("wait 2 s") << int(Kind::WaitTime);
    QTest::newRow("wait stable") << int(Kind::WaitStable);
    QTest::newRow("wait stable within 10 s") << int(Kind::WaitStable);
    QTest::newRow("wait display 500.0 g") << int(Kind::WaitDisplay);
    QTest::newRow("wait display 500.0 g within 60 s") << int(Kind::WaitDisplay);
    QTest::newRow("wait end") << int(Kind::WaitEnd);
    QTest::newRow("press print") << int(Kind::PressPrint);
    QTest::newRow("press action print") << int(Kind::Press);
    QTest::newRow("press weighing.tare") << int(Kind::Press);
    QTest::newRow("start weighing") << int(Kind::Start);
    QTest::newRow("close") << int(Kind::Close);
    QTest::newRow("set level off") << int(Kind::SetLevel);
    QTest::newRow("set level ok") << int(Kind::SetLevel);
    QTest::newRow("set calibration due") << int(Kind::SetCalibration);
    QTest::newRow("set calibration ok") << int(Kind::SetCalibration);
    QTest::newRow("set noise 0.5") << int(Kind::SetNoise);
    QTest::newRow("set drift -0.2 g/min") << int(Kind::SetDrift);
    QTest::newRow("set printer ok") << int(Kind::SetPrinter);
    QTest::newRow("set printer paper out") << int(Kind::SetPrinter);
    QTest::newRow("set printer offline") << int(Kind::SetPrinter);
    QTest::newRow("set printer slow") << int(Kind::SetPrinter);
    QTest::newRow("repeat print") << int(Kind::RepeatPrint);
    QTest::newRow("wait print") << int(Kind::WaitPrint);
    QTest::newRow("wait print within 5 s") << int(Kind::WaitPrint);
    QTest::newRow("expect printer ready") << int(Kind::ExpectPrinter);
    QTest::newRow("expect printer paper out") << int(Kind::ExpectPrinter);
    QTest::newRow("expect queue 3") << int(Kind::ExpectQueue);
    QTest::newRow("press unit") << int(Kind::PressUnit);
    QTest::newRow("press small-unit") << int(Kind::PressSmallUnit);
    QTest::newRow("press action unit") << int(Kind::Press);
    QTest::newRow("set unit kg") << int(Kind::SetUnit);
    QTest::newRow("set small-unit none") << int(Kind::SetSmallUnit);
    QTest::newRow("set approval on") << int(Kind::SetApproval);
    QTest::newRow("set carat off") << int(Kind::SetCarat);
    QTest::newRow("set auxiliary-digit on") << int(Kind::SetAuxiliaryDigit);
    QTest::newRow("set decimals 2") << int(Kind::SetDecimals);
    QTest::newRow("set reduced-digits 1") << int(Kind::SetReducedDigits);
    QTest::newRow("set transfer off") << int(Kind::SetTransferOff);
    QTest::newRow("set transfer absolute 5 g") << int(Kind::SetTransferAbsolute);
    QTest::newRow("set transfer absolute-fixed 5 g") << int(Kind::SetTransferAbsolute);
    QTest::newRow("set transfer percent 10") << int(Kind::SetTransferPercent);
    QTest::newRow("set transfer percent-fixed 10") << int(Kind::SetTransferPercent);
    QTest::newRow("set transfer minimum 20 g") << int(Kind::SetTransferMinimum);
    QTest::newRow("set parameters msw") << int(Kind::SetParameters);
    QTest::newRow("expect small 0.5 kg") << int(Kind::ExpectSmall);
    QTest::newRow("expect units g kg") << int(Kind::ExpectUnits);
    QTest::newRow("expect coarse off") << int(Kind::ExpectCoarse);
    QTest::newRow("expect triggers 2") << int(Kind::ExpectTriggers);
    QTest::newRow("expect reason inside the band") << int(Kind::ExpectReason);
    QTest::newRow("expect parameters none") << int(Kind::ExpectParameters);
    QTest::newRow("set operator Ada Lovelace") << int(Kind::SetOperator);
    QTest::newRow("set operator \"\"") << int(Kind::SetOperator);
    QTest::newRow("set serial-number BV 42") << int(Kind::SetSerialNumber);
    QTest::newRow("set print-columns 24") << int(Kind::SetPrintColumns);
    QTest::newRow("protocol item weighing.4net on") << int(Kind::ProtocolItem);
    QTest::newRow("protocol item weighing.4net off") << int(Kind::ProtocolItem);
    QTest::newRow("protocol items all") << int(Kind::ProtocolItems);
    QTest::newRow("protocol items none") << int(Kind::ProtocolItems);
    QTest::newRow("protocol kind series") << int(Kind::ProtocolKind);
    QTest::newRow("protocol part sics") << int(Kind::ProtocolPart);
    QTest::newRow("protocol trigger terminal.loadChange") << int(Kind::ProtocolTrigger);
    QTest::newRow("protocol menu open") << int(Kind::ProtocolMenu);
    QTest::newRow("disconnect") << int(Kind::Disconnect);
    QTest::newRow("connect") << int(Kind::Connect);
    QTest::newRow("dismiss") << int(Kind::Dismiss);
    QTest::newRow("language de") << int(Kind::Language);
    QTest::newRow("bench printer") << int(Kind::Bench);
    QTest::newRow("screenshot a b.png") << int(Kind::Screenshot);
    QTest::newRow("note Now it begins") << int(Kind::Note);
    QTest::newRow("expect display 500.0 g") << int(Kind::ExpectDisplay);
    QTest::newRow("expect stable") << int(Kind::ExpectStable);
    QTest::newRow("expect unstable") << int(Kind::ExpectStable);
    QTest::newRow("expect net on") << int(Kind::ExpectNet);
    QTest::newRow("expect warning levelling none") << int(Kind::ExpectLevellingWarning);
    QTest::newRow("expect warning calibration Do it") << int(Kind::ExpectCalibrationWarning);
    QTest::newRow("expect action a.b enabled") << int(Kind::ExpectActionEnabled);
    QTest::newRow("expect action a.b disabled") << int(Kind::ExpectActionEnabled);
    QTest::newRow("expect action a.b toggle 2") << int(Kind::ExpectActionToggle);
    QTest::newRow("expect action a.b text Clear tare") << int(Kind::ExpectActionText);
    QTest::newRow("expect print enabled") << int(Kind::ExpectPrint);
    QTest::newRow("expect print disabled") << int(Kind::ExpectPrint);
    QTest::newRow("expect print kept/print-out.txt") << int(Kind::ExpectPrintOut);
    QTest::newRow("expect print none") << int(Kind::ExpectPrintOut);
    QTest::newRow("expect notice none") << int(Kind::ExpectNotice);
    QTest::newRow("expect transfer 500.0 g") << int(Kind::ExpectTransfer);
    QTest::newRow("expect host-call IWeighing::Tare()") << int(Kind::ExpectHostCall);
    QTest::newRow("expect no host-call IWeighing::Tare()") << int(Kind::ExpectNoHostCall);
    QTest::newRow("expect info Gross") << int(Kind::ExpectInfo);
    QTest::newRow("expect workflow Put on") << int(Kind::ExpectWorkflow);
    QTest::newRow("expect log Start application") << int(Kind::ExpectLog);
}

void TestScript::statement()
{
    QFETCH(int, kind);
    QStringList errors;
    const std::optional<Script> script = parse(QTest::currentDataTag(), &errors);
    QCOMPARE(errors, QStringList());
    QVERIFY(script.has_value());
    QCOMPARE(script->statements().size(), 1);
    QCOMPARE(int(script->statements().first().kind), kind);
    QCOMPARE(script->statements().first().source, QString::fromUtf8(QTest::currentDataTag()));
}

void TestScript::number_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<double>("number");
    QTest::newRow("grams") << "put on 500 g" << 500.0;
    QTest::newRow("grams without a blank") << "put on 0.1g" << 0.1;
    QTest::newRow("kilograms") << "put on 1.5 kg" << 1500.0;
    QTest::newRow("milligrams") << "take off 250 mg" << 0.25;
    QTest::newRow("noise") << "set noise 0" << 0.0;
    QTest::newRow("falling drift") << "set drift -1.5 g/min" << -1.5;
    QTest::newRow("state of a button") << "expect action a toggle 3" << 3.0;
}

void TestScript::number()
{
    QFETCH(QString, line);
    QFETCH(double, number);
    QStringList errors;
    const std::optional<Script> script = parse(line.toUtf8(), &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().first().number, number);
}

void TestScript::within_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<qint64>("within");
    QTest::newRow("time") << "wait 2 s" << Q_INT64_C(2000);
    QTest::newRow("part of a second") << "wait 0.25 s" << Q_INT64_C(250);
    QTest::newRow("milliseconds") << "wait 80 ms" << Q_INT64_C(80);
    QTest::newRow("minutes") << "wait 2 min" << Q_INT64_C(120000);
    QTest::newRow("stable, default") << "wait stable" << Statement::DefaultWithinMs;
    QTest::newRow("stable, given") << "wait stable within 10 s" << Q_INT64_C(10000);
    QTest::newRow("display, default") << "wait display 1.0 g" << Statement::DefaultWithinMs;
    QTest::newRow("display, given") << "wait display 1.0 g within 1 min" << Q_INT64_C(60000);
    QTest::newRow("display in quotes, given") << "wait display \"1.0 g\" within 5 s" << Q_INT64_C(5000);
    QTest::newRow("display with the word in quotes")
        << "wait display \"all within 5 s\"" << Statement::DefaultWithinMs;
}

void TestScript::within()
{
    QFETCH(QString, line);
    QFETCH(qint64, within);
    QStringList errors;
    const std::optional<Script> script = parse(line.toUtf8(), &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().first().withinMs, within);
}

void TestScript::text_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("none");
    QTest::newRow("plain") << "expect display 500.0 g"
                           << "500.0 g" << false;
    QTest::newRow("in quotes") << "expect display \"500.0 g\""
                               << "500.0 g" << false;
    QTest::newRow("blanks in quotes") << "expect display \" 5 \""
                                      << " 5 " << false;
    QTest::newRow("empty in quotes") << "expect display \"\""
                                     << "" << false;
    QTest::newRow("quote in quotes") << "expect info \"a \\\"b\\\" c\""
                                     << "a \"b\" c" << false;
    QTest::newRow("backslash in quotes") << "expect info \"a\\\\b\""
                                         << "a\\b" << false;
    QTest::newRow("quote inside") << "expect host-call A::B(\"c\")"
                                  << "A::B(\"c\")" << false;
    QTest::newRow("none") << "expect notice none"
                          << "" << true;
    QTest::newRow("none in quotes") << "expect notice \"none\""
                                    << "none" << false;
    QTest::newRow("none where a text must be") << "expect display none"
                                               << "none" << false;
    QTest::newRow("behind an action") << "expect action a.b text Clear  tare"
                                      << "Clear  tare" << false;
    QTest::newRow("display with a time") << "wait display 1.0 g within 5 s"
                                         << "1.0 g" << false;
    QTest::newRow("quoted display with a time") << "wait display \"1.0 g\" within 5 s"
                                                << "1.0 g" << false;
    QTest::newRow("note keeps its quotes") << "note \"Now\""
                                           << "\"Now\"" << false;
    QTest::newRow("letters beyond ASCII") << "note Gewicht für Öl"
                                          << "Gewicht für Öl" << false;
    QTest::newRow("number sign inside") << "note weight #1"
                                        << "weight #1" << false;
}

void TestScript::text()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    QFETCH(bool, none);
    QStringList errors;
    const std::optional<Script> script = parse(line.toUtf8(), &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().first().text, text);
    QCOMPARE(script->statements().first().none, none);
}

void TestScript::firstWordOfAPair_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("set level ok") << true;
    QTest::newRow("set level off") << false;
    QTest::newRow("set calibration due") << true;
    QTest::newRow("set calibration ok") << false;
    QTest::newRow("expect stable") << true;
    QTest::newRow("expect unstable") << false;
    QTest::newRow("expect net on") << true;
    QTest::newRow("expect net off") << false;
    QTest::newRow("expect action a enabled") << true;
    QTest::newRow("expect action a disabled") << false;
    QTest::newRow("expect print enabled") << true;
    QTest::newRow("expect print disabled") << false;
}

void TestScript::firstWordOfAPair()
{
    QFETCH(bool, on);
    QStringList errors;
    const std::optional<Script> script = parse(QTest::currentDataTag(), &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().first().on, on);
}

void TestScript::linesAreCounted()
{
    QStringList errors;
    const std::optional<Script> script = parse("# comment\n\nclose\r\n   # indented\nconnect", &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().size(), 2);
    QCOMPARE(script->statements().at(0).line, 3);
    QCOMPARE(script->statements().at(1).line, 5);
}

void TestScript::blanksAroundAreIgnored()
{
    QStringList errors;
    const std::optional<Script> script = parse("\t put   on \t 5 g  ", &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(script->statements().first().number, 5.0);
}

void TestScript::byteOrderMarkIsIgnored()
{
    QStringList errors;
    const std::optional<Script> script = parse("\xEF\xBB\xBF"
                                               "close\n",
                                               &errors);
    QCOMPARE(errors, QStringList());
    QCOMPARE(int(script->statements().first().kind), int(Kind::Close));
}

void TestScript::error_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* line, const char* error) {
        QTest::newRow(name) << QByteArray(line) << QString::fromUtf8(error);
    };
    row("unknown word", "lift 5 g",
        "no statement begins so; begin with put, take, wait, press, start, open, close, set, repeat, "
        "protocol, "
        "disconnect, "
        "connect, "
        "dismiss, language, bench, screenshot, note, expect");
    row("case counts", "Put on 5 g",
        "no statement begins so; begin with put, take, wait, press, start, open, close, set, repeat, "
        "protocol, "
        "disconnect, "
        "connect, "
        "dismiss, language, bench, screenshot, note, expect");
    row("weight missing", "put on",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight without unit", "put on 500",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight zero", "put on 0 g",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight negative", "put on -5 g",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight too large", "put on 1000000001 g",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight with comma", "put on 0,5 g",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("weight in pounds", "put on 5 lb",
        "the weight is a number above 0 with mg, g or kg; write for example: put on 500 g");
    row("taken off what", "take off",
        "the weight is a number above 0 with mg, g or kg; write for example: take off all, or: take off 200 "
        "g");
    row("time without unit", "wait 2",
        "the time is a number with ms, s or min, up to 24 hours; write for example: wait stable within 10 s, "
        "or: "
        "wait end, or: wait display 500.0 g within 60 s, or: wait print within 30 s, or: wait 2 s");
    row("time negative", "wait -2 s",
        "the time is a number with ms, s or min, up to 24 hours; write for example: wait stable within 10 s, "
        "or: "
        "wait end, or: wait display 500.0 g within 60 s, or: wait print within 30 s, or: wait 2 s");
    row("time too long", "wait 1441 min",
        "the time is a number with ms, s or min, up to 24 hours; write for example: wait stable within 10 s, "
        "or: "
        "wait end, or: wait display 500.0 g within 60 s, or: wait print within 30 s, or: wait 2 s");
    row("wait for nothing", "wait",
        "the time is a number with ms, s or min, up to 24 hours; write for example: wait stable within 10 s, "
        "or: "
        "wait end, or: wait display 500.0 g within 60 s, or: wait print within 30 s, or: wait 2 s");
    row("limit without unit", "wait stable within 10",
        "the time to wait is a number above 0 with ms, s or min, up to 24 hours; write for example: wait "
        "stable "
        "within 10 s");
    row("no time at all", "wait stable within 0 s",
        "the time to wait is a number above 0 with ms, s or min, up to 24 hours; write for example: wait "
        "stable "
        "within 10 s");
    row("limit of what", "wait stable in 10 s",
        "this cannot be understood; write for example: wait stable within 10 s");
    row("display of what", "wait display",
        "the text is missing; write for example: wait display 500.0 g within 60 s");
    row("setting without a number", "set item x 5",
        "this is a whole number from 0; write for example: set item 11 250.5");
    row("setting without a value", "set item 11",
        "the text is missing; write for example: set item 11 250.5");
    row("open what", "open", "this cannot be understood; write for example: open settings");
    row("press what", "press",
        "this cannot be understood; write for example: press action print, or: press "
        "print, or: press item 11, or: press unit, or: press small-unit, or: press tare");
    row("two words for a button", "press clear tare",
        "this cannot be understood; write for example: press tare");
    row("level of what", "set level maybe", "this cannot be understood; write for example: set level off");
    row("set what", "set",
        "this cannot be understood; write for example: set item 11 250.5, or: set level off, or: set "
        "calibration "
        "due, or: set noise 0.5, or: set drift 0.2 g/min, or: set printer paper out, or: set unit kg, or: "
        "set small-unit g, or: set "
        "approval on, or: set carat on, or: set auxiliary-digit on, or: set decimals 2, or: set "
        "reduced-digits 1, or: set transfer off, or: set transfer absolute 5 g, or: set transfer percent 10, "
        "or: set transfer minimum 20 g, or: set parameters standard, or: set operator NAME, or: set "
        "serial-number "
        "NUMBER, or: set print-columns 24");
    row("set of parameters", "set parameters fast",
        "the sets are standard, msw and system; write for example: set parameters standard");
    row("threshold without a unit", "set transfer absolute 5",
        "the weight is a number above 0 with mg, g or kg; write for example: set transfer absolute 5 g");
    row("columns that no printer has", "set print-columns 30",
        "a print-out has 24, 40 or 80 columns; write for example: set print-columns 24");
    row("kind of protocol that there is not", "protocol kind daily",
        "there are measurement, series, summary, calibration and workflow; write for example: protocol kind "
        "measurement");
    row("part that there is not", "protocol part middle",
        "there are whole, header, body, footer and sics; write for example: protocol part whole");
    row("print-out without a file", "expect print \"\"",
        "the name of the file is missing; write for example: expect print enabled, or: expect print "
        "print-out.txt");
    row("noise negative", "set noise -1",
        "the noise is a number of display increments from 0 to 5; write for example: set noise 0.5");
    row("too much noise", "set noise 5.1",
        "the noise is a number of display increments from 0 to 5; write for example: set noise 0.5");
    row("drift without unit", "set drift 0.5",
        "the drift is a number of g/min up to 10, or down to -10; write for example: set drift 0.2 g/min");
    row("too much drift", "set drift -11 g/min",
        "the drift is a number of g/min up to 10, or down to -10; write for example: set drift 0.2 g/min");
    row("more than needed", "close now",
        "this cannot be understood; write for example: close settings, or: close");
    row("language", "language fr", "there is English (en) and German (de); write for example: language de");
    row("page", "bench level",
        "the bench has the pages scale, units, transfer and printer; write for example: bench transfer");
    row("picture without a name", "screenshot",
        "this cannot be understood; write for example: screenshot picture.png");
    row("picture of another kind", "screenshot a.jpg",
        "the picture is a PNG file; write for example: screenshot picture.png");
    row("start what", "start", "this cannot be understood; write for example: start IDENTIFIER");
    row("display without text", "expect display",
        "the text is missing; write for example: expect display 500.0 g");
    row("host call without text", "expect host-call \"\"",
        "an empty text is found everywhere; write for example: expect host-call IActionbar::Refresh");
    row("open quotation mark", "expect display \"500.0 g",
        "a text that begins with \" ends with one; inside of it write \\\" and \\\\; write for example: "
        "expect "
        "display 500.0 g");
    row("closed too early", "expect display \"500.0\" g",
        "a text that begins with \" ends with one; inside of it write \\\" and \\\\; write for example: "
        "expect "
        "display 500.0 g");
    row("unknown escape", "expect display \"a\\n\"",
        "a text that begins with \" ends with one; inside of it write \\\" and \\\\; write for example: "
        "expect "
        "display 500.0 g");
    row("fault of the printer", "set printer broken",
        "the printer is ok | paper out | offline | slow; write for example: set printer paper out");
    row("state of the printer", "expect printer slow",
        "the printer is ready | printing | stopped | paper out | offline | none; write for example: expect "
        "printer ready");
    row("print-outs of the queue", "expect queue -1",
        "this is a whole number from 0; write for example: expect queue 0");
    row("state of a button", "expect action a toggle first",
        "this is a whole number from 0; write for example: expect action hold toggle 1");
    row("expected of a button", "expect action a pressed",
        "this cannot be understood; write for example: expect action tare enabled, or: expect action hold "
        "toggle "
        "1, or: expect action tare text Tare");
    row("no UTF-8", "note \xFF", "these bytes are no UTF-8; save the script as UTF-8");
}

void TestScript::error()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, error);
    QStringList errors;
    const std::optional<Script> script = parse("# first line\n" + line + "\n", &errors);
    QVERIFY(!script.has_value());
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first(), QStringLiteral("a.script:2: \"%1\": %2").arg(QString::fromUtf8(line), error));
}

void TestScript::allErrorsAreListed()
{
    QStringList errors;
    QVERIFY(!parse("lift\nclose\nput on\nwait stable\nwait\n", &errors).has_value());
    QCOMPARE(errors.size(), 3);
    QVERIFY(errors.at(0).startsWith(QLatin1String("a.script:1: ")));
    QVERIFY(errors.at(1).startsWith(QLatin1String("a.script:3: ")));
    QVERIFY(errors.at(2).startsWith(QLatin1String("a.script:5: ")));
}

void TestScript::fileNameThatHoldsAPercentSign()
{
    QStringList errors;
    QVERIFY(!Script::parse("jump", QStringLiteral("100%3.script"), &errors));
    QVERIFY2(errors.value(0).startsWith(QLatin1String("100%3.script:1: \"jump\": ")),
             qPrintable(errors.value(0)));
}

void TestScript::emptyScript()
{
    QStringList errors;
    QVERIFY(!parse("# nothing\n\n", &errors).has_value());
    QCOMPARE(errors, QStringList{QStringLiteral(
                         "a.script: the script holds no statement; write for example: wait stable")});
}

void TestScript::fileThatIsNotThere()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("none.script"));
    QStringList errors;
    QVERIFY(!Script::load(file, &errors).has_value());
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(file + QLatin1String(": the script cannot be read: ")),
             qPrintable(errors.first()));
}

void TestScript::fileThatIsTooLarge()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("large.script"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(Script::MaximumSize + 1));
    file.close();
    QStringList errors;
    QVERIFY(!Script::load(name, &errors).has_value());
    QCOMPARE(errors, QStringList{name
                                 + QStringLiteral(": the file is larger than 4194304 bytes; cut the script "
                                                  "into parts")});
}

void TestScript::faultsWithSource_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("source");
    QTest::addColumn<QString>("fault");
    const QString simulatedOnly = QStringLiteral(
        "this is done to the simulated scale only; run the script with --source sim:, or take the line out");
    const QString recordingOnly = QStringLiteral(
        "only a recording has an end; run the script with --source trace:FILE, or wait for a time");
    const struct
    {
        const char* name;
        SourceSpec::Kind kind;
    } sources[] = {{"simulated", SourceSpec::Kind::Simulated},
                   {"recording", SourceSpec::Kind::Trace},
                   {"network", SourceSpec::Kind::Tcp},
                   {"serial port", SourceSpec::Kind::Serial}};
    for (const auto& source : sources) {
        for (const char* line :
             {"put on 5 g", "take off 5 g", "take off all", "set noise 1", "set drift 1 g/min", "disconnect",
              "connect", "wait end", "set level off", "press print"}) {
            const bool end = qstrcmp(line, "wait end") == 0;
            const bool anywhere = qstrcmp(line, "set level off") == 0 || qstrcmp(line, "press print") == 0;
            QString fault;
            if (end && source.kind != SourceSpec::Kind::Trace)
                fault = recordingOnly;
            if (!end && !anywhere && source.kind != SourceSpec::Kind::Simulated)
                fault = simulatedOnly;
            QTest::addRow("%s, %s", line, source.name)
                << QString::fromLatin1(line) << int(source.kind) << fault;
        }
    }
}

void TestScript::faultsWithSource()
{
    QFETCH(QString, line);
    QFETCH(int, source);
    QFETCH(QString, fault);
    QStringList errors;
    const std::optional<Script> script = parse(line.toUtf8(), &errors);
    QCOMPARE(errors, QStringList());
    QStringList expected;
    if (!fault.isEmpty())
        expected.append(QStringLiteral("a.script:1: \"%1\": %2").arg(line, fault));
    QCOMPARE(script->faultsWith(static_cast<SourceSpec::Kind>(source)), expected);
}

QTEST_GUILESS_MAIN(TestScript)

#include "tst_script.moc"
