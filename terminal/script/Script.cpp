// SPDX-License-Identifier: BSD-3-Clause
#include "script/Script.h"

#include "print/Formatter.h"
#include "protocol/ProtocolChoice.h"
#include "source/DecimalText.h"
#include "ui/BenchModel.h"
#include "ui/PrinterModel.h"

#include <QFile>
#include <QTextCodec>

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

using Kind = Statement::Kind;

/// A form of statement. Its pattern consists of words and of
/// - `a|b` one of two words; the first sets Statement::on,
/// - `{weight}` grams, `{number}` a number not below 0, `{noise}` display increments, `{drift}` grams per minute, `{index}` a whole number,
/// - `{time}` a span of time, `{within}` optionally "within" and a span of time, at the end,
/// - `{word}` a word, `{language}` en or de, `{page}` a page of the bench, `{set}` a set of weighing parameters,
/// - `{text}` the rest of the line, in quotation marks or not, never empty without them; `{text?}` the same, or the
///   word none,
/// - `{found}` and `{found?}` as {text} and {text?}, but never empty,
/// - `{fault}` a fault of the printer, `{state}` what it does,
/// - `{file?}` the name of a file, or the word none,
/// - `{columns}` 24, 40 or 80, `{kind}` and `{part}` those of a protocol,
/// - `{rest}` the rest of the line as it is, `{picture}` the same, the name of a PNG file.
struct Form
{
    Kind kind;
    const char* pattern;
    const char* example; ///< The mend that a message offers.
};

// The first form that fits counts: the more special ones stand above.
constexpr Form FormTable[] = {
    {Kind::PutOn, "put on {weight}", "put on 500 g"},
    {Kind::TakeOffAll, "take off all", "take off all"},
    {Kind::TakeOff, "take off {weight}", "take off 200 g"},
    {Kind::WaitStable, "wait stable {within}", "wait stable within 10 s"},
    {Kind::WaitEnd, "wait end", "wait end"},
    {Kind::WaitDisplay, "wait display {text} {within}", "wait display 500.0 g within 60 s"},
    {Kind::WaitPrint, "wait print {within}", "wait print within 30 s"},
    {Kind::WaitTime, "wait {time}", "wait 2 s"},
    {Kind::Press, "press action {word}", "press action print"},
    {Kind::PressPrint, "press print", "press print"},
    {Kind::PressItem, "press item {index}", "press item 11"},
    {Kind::PressUnit, "press unit", "press unit"},
    {Kind::PressSmallUnit, "press small-unit", "press small-unit"},
    {Kind::Press, "press {word}", "press tare"},
    {Kind::Start, "start {rest}", "start IDENTIFIER"},
    {Kind::OpenSettings, "open settings", "open settings"},
    {Kind::CloseSettings, "close settings", "close settings"},
    {Kind::Close, "close", "close"},
    {Kind::SetItem, "set item {index} {text}", "set item 11 250.5"},
    {Kind::SetLevel, "set level ok|off", "set level off"},
    {Kind::SetCalibration, "set calibration due|ok", "set calibration due"},
    {Kind::SetNoise, "set noise {noise}", "set noise 0.5"},
    {Kind::SetDrift, "set drift {drift}", "set drift 0.2 g/min"},
    {Kind::SetPrinter, "set printer {fault}", "set printer paper out"},
    {Kind::RepeatPrint, "repeat print", "repeat print"},
    {Kind::SetUnit, "set unit {word}", "set unit kg"},
    {Kind::SetSmallUnit, "set small-unit {word}", "set small-unit g"},
    {Kind::SetApproval, "set approval on|off", "set approval on"},
    {Kind::SetCarat, "set carat on|off", "set carat on"},
    {Kind::SetAuxiliaryDigit, "set auxiliary-digit on|off", "set auxiliary-digit on"},
    {Kind::SetDecimals, "set decimals {index}", "set decimals 2"},
    {Kind::SetReducedDigits, "set reduced-digits {index}", "set reduced-digits 1"},
    {Kind::SetTransferOff, "set transfer off", "set transfer off"},
    {Kind::SetTransferAbsolute, "set transfer absolute|absolute-fixed {weight}", "set transfer absolute 5 g"},
    {Kind::SetTransferPercent, "set transfer percent|percent-fixed {number}", "set transfer percent 10"},
    {Kind::SetTransferMinimum, "set transfer minimum {weight}", "set transfer minimum 20 g"},
    {Kind::SetParameters, "set parameters {set}", "set parameters standard"},
    {Kind::SetOperator, "set operator {text}", "set operator NAME"},
    {Kind::SetSerialNumber, "set serial-number {text}", "set serial-number NUMBER"},
    {Kind::SetPrintColumns, "set print-columns {columns}", "set print-columns 24"},
    {Kind::ProtocolItems, "protocol items all|none", "protocol items all"},
    {Kind::ProtocolItem, "protocol item {word} on|off", "protocol item UID on"},
    {Kind::ProtocolKind, "protocol kind {kind}", "protocol kind measurement"},
    {Kind::ProtocolPart, "protocol part {part}", "protocol part whole"},
    {Kind::ProtocolTrigger, "protocol trigger {word}", "protocol trigger terminal.printKey"},
    {Kind::ProtocolMenu, "protocol menu open|closed", "protocol menu open"},
    {Kind::Disconnect, "disconnect", "disconnect"},
    {Kind::Connect, "connect", "connect"},
    {Kind::Dismiss, "dismiss", "dismiss"},
    {Kind::Language, "language {language}", "language de"},
    {Kind::Bench, "bench {page}", "bench transfer"},
    {Kind::Screenshot, "screenshot {picture}", "screenshot picture.png"},
    {Kind::Note, "note {rest}", "note TEXT"},
    {Kind::ExpectDisplay, "expect display {text}", "expect display 500.0 g"},
    {Kind::ExpectStable, "expect stable|unstable", "expect stable"},
    {Kind::ExpectNet, "expect net on|off", "expect net on"},
    {Kind::ExpectLevellingWarning, "expect warning levelling {text?}", "expect warning levelling none"},
    {Kind::ExpectCalibrationWarning, "expect warning calibration {text?}", "expect warning calibration none"},
    {Kind::ExpectActionEnabled, "expect action {word} enabled|disabled", "expect action tare enabled"},
    {Kind::ExpectActionToggle, "expect action {word} toggle {index}", "expect action hold toggle 1"},
    {Kind::ExpectActionText, "expect action {word} text {text}", "expect action tare text Tare"},
    {Kind::ExpectPrint, "expect print enabled|disabled", "expect print enabled"},
    {Kind::ExpectPrintOut, "expect print {file?}", "expect print print-out.txt"},
    {Kind::ExpectNotice, "expect notice {found?}", "expect notice TEXT"},
    {Kind::ExpectTransfer, "expect transfer {text?}", "expect transfer 500.0 g"},
    {Kind::ExpectNoHostCall, "expect no host-call {found}", "expect no host-call IActionbar::SetEntry"},
    {Kind::ExpectHostCall, "expect host-call {found}", "expect host-call IActionbar::Refresh"},
    {Kind::ExpectInfo, "expect info {found?}", "expect info TEXT"},
    {Kind::ExpectWorkflow, "expect workflow {found?}", "expect workflow TEXT"},
    {Kind::ExpectPrinter, "expect printer {state}", "expect printer ready"},
    {Kind::ExpectQueue, "expect queue {index}", "expect queue 0"},
    {Kind::ExpectLog, "expect log {found}", "expect log TEXT"},
    {Kind::ExpectSmall, "expect small {text?}", "expect small 0.5000 kg"},
    {Kind::ExpectUnits, "expect units {text?}", "expect units g kg"},
    {Kind::ExpectCoarse, "expect coarse on|off", "expect coarse on"},
    {Kind::ExpectTriggers, "expect triggers {index}", "expect triggers 1"},
    {Kind::ExpectReason, "expect reason {found}", "expect reason inside the band"},
    {Kind::ExpectParameters, "expect parameters {word}", "expect parameters standard"},
    {Kind::ExpectItem, "expect item {index} {text?}", "expect item 11 250.5 g"},
};

/// Takes the first word off @p line.
QString takeWord(QString* line)
{
    int end = 0;
    while (end < line->size() && !line->at(end).isSpace())
        ++end;
    QString word = line->left(end);
    *line = line->mid(end).trimmed();
    return word;
}

/// A number and the unit behind it, with or without a blank between: "0.5 kg".
struct Quantity
{
    double value;
    QString unit;
};

std::optional<Quantity> quantity(const QString& text)
{
    int end = 0;
    while (end < text.size() && QStringLiteral("+-.0123456789").contains(text.at(end)))
        ++end;
    const std::optional<DecimalText> number = DecimalText::parse(text.left(end).toUtf8());
    if (!number)
        return std::nullopt;
    return Quantity{number->value(), text.mid(end).trimmed()};
}

/// The value of @p text in a unit of @p units, which are given with their factors.
std::optional<double> inUnit(const QString& text, std::initializer_list<std::pair<const char*, double>> units)
{
    const std::optional<Quantity> read = quantity(text);
    if (!read)
        return std::nullopt;
    for (const auto& unit : units) {
        if (read->unit == QLatin1String(unit.first))
            return read->value * unit.second;
    }
    return std::nullopt;
}

std::optional<qint64> milliseconds(const QString& text)
{
    const std::optional<double> time = inUnit(text, {{"ms", 1.0}, {"s", 1000.0}, {"min", 60000.0}});
    if (!time || *time < 0.0 || *time > static_cast<double>(Script::MaximumWithinMs))
        return std::nullopt;
    return qRound64(*time);
}

/// Reads one line with one form.
class FormReader
{
public:
    FormReader(const QString& line, const Form& form)
        : m_rest(line)
        , m_words(QString::fromLatin1(form.pattern).split(QLatin1Char(' ')))
    {
        m_statement.kind = form.kind;
    }

    /// Whether the line has the form.
    bool read()
    {
        for (const QString& word : qAsConst(m_words)) {
            if (!readPart(word))
                return false;
            ++m_fitting;
        }
        return m_rest.isEmpty();
    }

    const Statement& statement() const { return m_statement; }
    /// How many parts of the pattern fitted.
    int fitting() const { return m_fitting; }
    /// What is wrong with the first part that did not fit; empty: nothing special.
    QString fault() const { return m_fault; }

private:
    bool fail(const char* fault)
    {
        m_fault = QString::fromLatin1(fault);
        return false;
    }

    bool readPart(const QString& part)
    {
        if (!part.startsWith(QLatin1Char('{')))
            return readWordOf(part.split(QLatin1Char('|')));
        if (part == QLatin1String("{word}")) {
            m_statement.word = takeWord(&m_rest);
            return !m_statement.word.isEmpty();
        }
        if (part == QLatin1String("{language}")) {
            m_statement.word = takeWord(&m_rest);
            return m_statement.word == QLatin1String("en") || m_statement.word == QLatin1String("de")
                   || fail("there is English (en) and German (de)");
        }
        if (part == QLatin1String("{page}")) {
            m_statement.word = takeWord(&m_rest);
            return BenchModel::pages().contains(m_statement.word)
                   || fail("the bench has the pages scale, units, transfer and printer");
        }
        if (part == QLatin1String("{set}")) {
            m_statement.word = takeWord(&m_rest);
            return QStringList({QStringLiteral("standard"), QStringLiteral("msw"), QStringLiteral("system")})
                       .contains(m_statement.word)
                   || fail("the sets are standard, msw and system");
        }
        if (part == QLatin1String("{file?}"))
            return readText(true)
                   && (m_statement.none || !m_statement.text.isEmpty()
                       || fail("the name of the file is missing"));
        if (part == QLatin1String("{columns}")) {
            m_statement.number = takeWord(&m_rest).toInt();
            return Formatter::isLayout(qRound(m_statement.number))
                   || fail("a print-out has 24, 40 or 80 columns");
        }
        if (part == QLatin1String("{kind}")) {
            m_statement.word = takeWord(&m_rest);
            return protocolTypeOf(m_statement.word)
                   || fail("there are measurement, series, summary, calibration and workflow");
        }
        if (part == QLatin1String("{part}")) {
            m_statement.word = takeWord(&m_rest);
            return protocolPartOf(m_statement.word) || fail("there are whole, header, body, footer and sics");
        }
        if (part == QLatin1String("{index}")) {
            bool ok = false;
            m_statement.number = takeWord(&m_rest).toInt(&ok);
            return (ok && m_statement.number >= 0.0) || fail("this is a whole number from 0");
        }
        if (part == QLatin1String("{within}"))
            return takeWithin();
        if (part.startsWith(QLatin1String("{text")) || part.startsWith(QLatin1String("{found"))) {
            if (!readText(part.endsWith(QLatin1String("?}"))))
                return false;
            const bool emptyAllowed = m_statement.none || part.startsWith(QLatin1String("{text"));
            return emptyAllowed || !m_statement.text.isEmpty() || fail("an empty text is found everywhere");
        }
        return readRest(part);
    }

    bool readWordOf(const QStringList& words)
    {
        const int index = words.indexOf(takeWord(&m_rest));
        if (words.size() > 1)
            m_statement.on = index == 0;
        return index >= 0;
    }

    /// Everything that ends the line.
    bool readRest(const QString& part)
    {
        const QString rest = m_rest;
        m_rest.clear();
        if (part == QLatin1String("{rest}") || part == QLatin1String("{picture}")) {
            m_statement.text = rest;
            if (part == QLatin1String("{picture}") && !rest.isEmpty()
                && !rest.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
                return fail("the picture is a PNG file");
            return !rest.isEmpty();
        }
        if (part == QLatin1String("{time}")) {
            const std::optional<qint64> time = milliseconds(rest);
            m_statement.withinMs = time.value_or(0);
            return time || fail("the time is a number with ms, s or min, up to 24 hours");
        }
        if (part == QLatin1String("{fault}") || part == QLatin1String("{state}")) {
            const QStringList words =
                part == QLatin1String("{fault}") ? PrinterModel::faults() : PrinterModel::states();
            m_statement.text = rest;
            m_fault = QStringLiteral("the printer is ") + words.join(QStringLiteral(" | "));
            return words.contains(rest);
        }
        std::optional<double> number;
        if (part == QLatin1String("{weight}")) {
            number = inUnit(rest, {{"mg", 0.001}, {"g", 1.0}, {"kg", 1000.0}});
            if (!number || !(*number > 0.0) || *number > 1.0e9)
                return fail("the weight is a number above 0 with mg, g or kg");
        } else if (part == QLatin1String("{drift}")) {
            number = inUnit(rest, {{"g/min", 1.0}});
            if (!number || std::fabs(*number) > BenchModel::MaximumDrift)
                return fail("the drift is a number of g/min up to 10, or down to -10");
        } else if (part == QLatin1String("{noise}")) {
            number = inUnit(rest, {{"", 1.0}});
            if (!number || *number < 0.0 || *number > BenchModel::MaximumNoise)
                return fail("the noise is a number of display increments from 0 to 5");
        } else {
            number = inUnit(rest, {{"", 1.0}});
            if (!number || *number < 0.0 || *number > 1.0e6)
                return fail("this must be a number not below 0");
        }
        m_statement.number = *number;
        return true;
    }

    /// Takes "within TIME" off the end, where it is there. It is looked for before the text in front of it is read.
    bool takeWithin()
    {
        if (m_rest.isEmpty())
            return true;
        if (takeWord(&m_rest) != QLatin1String("within"))
            return false;
        const std::optional<qint64> time = milliseconds(m_rest);
        m_rest.clear();
        m_statement.withinMs = time.value_or(0);
        return m_statement.withinMs > 0
               || fail("the time to wait is a number above 0 with ms, s or min, up to 24 hours");
    }

    bool readText(bool noneAllowed)
    {
        QString text = m_rest;
        m_rest.clear();
        if (m_words.last() == QLatin1String("{within}")) {
            const int position = withinPosition(text);
            if (position >= 0) {
                m_rest = text.mid(position).trimmed();
                text = text.left(position).trimmed();
            }
        }
        if (noneAllowed && text == QLatin1String("none")) {
            m_statement.none = true;
            return true;
        }
        if (!text.startsWith(QLatin1Char('"'))) {
            m_statement.text = text;
            return !text.isEmpty() || fail("the text is missing");
        }
        const std::optional<QString> inside = unquoted(text);
        m_statement.text = inside.value_or(QString());
        return inside || fail("a text that begins with \" ends with one; inside of it write \\\" and \\\\");
    }

    /// Where the " within ..." begins that ends @p text, outside of quotation marks; -1: there is none.
    static int withinPosition(const QString& text)
    {
        const int position = text.lastIndexOf(QLatin1String(" within "));
        const bool quoted = text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"'));
        return quoted ? -1 : position;
    }

    static std::optional<QString> unquoted(const QString& text)
    {
        QString inside;
        int i = 1;
        for (; i < text.size() && text.at(i) != QLatin1Char('"'); ++i) {
            if (text.at(i) == QLatin1Char('\\')) {
                ++i;
                if (i == text.size() || (text.at(i) != QLatin1Char('"') && text.at(i) != QLatin1Char('\\')))
                    return std::nullopt;
            }
            inside += text.at(i);
        }
        if (i != text.size() - 1)
            return std::nullopt;
        return inside;
    }

    QString m_rest;
    const QStringList m_words;
    Statement m_statement;
    int m_fitting = 0;
    QString m_fault;
};

/// Reads @p line; on failure @p fault tells what is wrong and what would be right.
std::optional<Statement> readLine(const QString& line, QString* fault)
{
    int mostFitting = 0;
    QStringList examples;
    QString bestFault;
    for (const Form& form : FormTable) {
        FormReader reader(line, form);
        if (reader.read())
            return reader.statement();
        // The forms that fit furthest are what was meant.
        if (reader.fitting() > mostFitting) {
            mostFitting = reader.fitting();
            examples.clear();
            bestFault.clear();
        }
        if (mostFitting > 0 && reader.fitting() == mostFitting) {
            examples.append(QString::fromLatin1(form.example));
            if (bestFault.isEmpty())
                bestFault = reader.fault();
        }
    }
    if (mostFitting == 0) {
        for (const Form& form : FormTable) {
            const QString word = QString::fromLatin1(form.pattern).section(QLatin1Char(' '), 0, 0);
            if (!examples.contains(word))
                examples.append(word);
        }
        *fault =
            QStringLiteral("no statement begins so; begin with %1").arg(examples.join(QStringLiteral(", ")));
        return std::nullopt;
    }
    if (bestFault.isEmpty())
        bestFault = QStringLiteral("this cannot be understood");
    *fault =
        QStringLiteral("%1; write for example: %2").arg(bestFault, examples.join(QStringLiteral(", or: ")));
    return std::nullopt;
}

QString message(const QString& name, int line, const QString& source, const QString& fault)
{
    return QStringLiteral("%1:%2: \"%3\": %4").arg(name, QString::number(line), source, fault);
}

} // namespace

std::optional<Script> Script::load(const QString& fileName, QStringList* errors)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        errors->append(
            QStringLiteral("%1: the script cannot be read: %2; check the name and the right to read it")
                .arg(fileName, file.errorString()));
        return std::nullopt;
    }
    const QByteArray content = file.read(MaximumSize + 1);
    if (content.size() > MaximumSize) {
        errors->append(QStringLiteral("%1: the file is larger than %2 bytes; cut the script into parts")
                           .arg(fileName, QString::number(MaximumSize)));
        return std::nullopt;
    }
    if (file.error() != QFileDevice::NoError) {
        errors->append(QStringLiteral("%1: the script cannot be read: %2; give a file")
                           .arg(fileName, file.errorString()));
        return std::nullopt;
    }
    return parse(content, fileName, errors);
}

std::optional<Script> Script::parse(const QByteArray& content, const QString& name, QStringList* errors)
{
    Script script;
    script.m_name = name;
    const int errorsBefore = errors->size();
    const QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    int number = 0;
    const QList<QByteArray> lines = content.split('\n');
    for (QByteArray bytes : lines) {
        ++number;
        if (number == 1 && bytes.startsWith("\xEF\xBB\xBF"))
            bytes.remove(0, 3);
        QTextCodec::ConverterState state;
        const QString line = utf8->toUnicode(bytes.constData(), bytes.size(), &state).trimmed();
        if (state.invalidChars > 0 || state.remainingChars > 0) {
            errors->append(message(name, number, line,
                                   QStringLiteral("these bytes are no UTF-8; save the script as UTF-8")));
            continue;
        }
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        QString fault;
        std::optional<Statement> statement = readLine(line, &fault);
        if (!statement) {
            errors->append(message(name, number, line, fault));
            continue;
        }
        statement->line = number;
        statement->source = line;
        script.m_statements.append(*statement);
    }
    if (errors->size() == errorsBefore && script.m_statements.isEmpty())
        errors->append(
            QStringLiteral("%1: the script holds no statement; write for example: wait stable").arg(name));
    if (errors->size() > errorsBefore)
        return std::nullopt;
    return script;
}

QStringList Script::faultsWith(SourceSpec::Kind source) const
{
    QStringList faults;
    for (const Statement& statement : m_statements) {
        switch (statement.kind) {
        case Kind::PutOn:
        case Kind::TakeOff:
        case Kind::TakeOffAll:
        case Kind::SetNoise:
        case Kind::SetDrift:
        case Kind::Disconnect:
        case Kind::Connect:
            if (source != SourceSpec::Kind::Simulated)
                faults.append(
                    message(m_name, statement.line, statement.source,
                            QStringLiteral("this is done to the simulated scale only; run the script "
                                           "with --source sim:, or take the line out")));
            break;
        case Kind::WaitEnd:
            if (source != SourceSpec::Kind::Trace)
                faults.append(
                    message(m_name, statement.line, statement.source,
                            QStringLiteral("only a recording has an end; run the script with --source "
                                           "trace:FILE, or wait for a time")));
            break;
        default:
            break;
        }
    }
    return faults;
}

} // namespace Terminal
} // namespace Brimvale
