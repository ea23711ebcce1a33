// SPDX-License-Identifier: BSD-3-Clause
#include "script/ScriptRunner.h"

#include "app/CommandLine.h"
#include "app/Session.h"
#include "app/TimeDriver.h"
#include "script/TextDifference.h"
#include "source/SimulatedSource.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cmath>
#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

using Kind = Statement::Kind;

/// Where the results begin in a line of the report.
constexpr int ResultColumn = 44;
constexpr qint64 MaximumPrintOutBytes = 1 << 20; // of a file to compare with

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString onOff(bool on)
{
    return on ? QStringLiteral("on") : QStringLiteral("off");
}

QString enabledDisabled(bool enabled)
{
    return enabled ? QStringLiteral("enabled") : QStringLiteral("disabled");
}

QString seconds(qint64 ms)
{
    return QStringLiteral("%1 s").arg(static_cast<double>(ms) / 1000.0, 0, 'f', 1);
}

/// A load in grams, as short as it can be.
QString grams(double load)
{
    return QString::number(load, 'g', 12) + QStringLiteral(" g");
}

/// Whether the statement is one of the expectations, after which a script goes on even when they fail.
bool isExpectation(Kind kind)
{
    return kind >= Kind::ExpectDisplay;
}

/// What `expect warning` reads: the text, or nothing while the warning is not shown.
QString warningText(const QObject* warnings, const char* visible, const char* text)
{
    return warnings && warnings->property(visible).toBool() ? warnings->property(text).toString() : QString();
}

/// A line of the info area as a text; empty when it is hidden.
QString infoText(const QObject* item)
{
    if (!item->property("itemGroupTitle").isValid()) { // a value with an icon, or one that can be hidden
        if (item->property("isVisible").isValid() && !item->property("isVisible").toBool())
            return QString();
        const QString amount =
            (item->property("value").toString() + QLatin1Char(' ') + item->property("unit").toString())
                .trimmed();
        const QString title = item->property("info").toString();
        return title.isEmpty() || amount.isEmpty() ? title + amount : title + QStringLiteral(": ") + amount;
    }
    const QString group = item->property("itemGroupTitle").toString();
    const QString title = item->property("itemValueTitle").toString();
    const QString value = item->property("itemValue").toString();
    QString text = group;
    if (!group.isEmpty() && !title.isEmpty())
        text += QStringLiteral(", ");
    text += title;
    if (!value.isEmpty())
        text += (text.isEmpty() ? QString() : QStringLiteral(": ")) + value;
    return text;
}

const ActionEntry* findAction(const ActionListModel& actions, const QString& uid)
{
    for (const ActionEntry& entry : actions.actions()) {
        if (entry.uid == uid)
            return &entry;
    }
    return nullptr;
}

QString noSuchAction(const ActionListModel& actions, const QString& uid)
{
    QStringList uids;
    for (const ActionEntry& entry : actions.actions())
        uids.append(entry.uid);
    return QStringLiteral("there is no key \"%1\"; there are: %2")
        .arg(uid, uids.isEmpty() ? QStringLiteral("none") : uids.join(QStringLiteral(", ")));
}

/// Calls that resemble one that was not found: those of the same operation, or else the newest; at most three.
QString similarCalls(const QStringList& calls, const QString& wanted)
{
    const QString operation = wanted.section(QLatin1Char('('), 0, 0);
    QStringList similar = calls.filter(operation);
    if (similar.isEmpty())
        similar = calls;
    return similar.isEmpty() ? QStringLiteral("there was none at all")
                             : QStringLiteral("there were ")
                                   + QStringList(similar.mid(similar.size() - 3)).join(QStringLiteral(", "));
}

} // namespace

ScriptRunner::ScriptRunner(Session& session, TimeDriver& driver, const ScriptOutput& output,
                           const QString& folder)
    : m_session(session)
    , m_driver(driver)
    , m_output(output)
    , m_folder(folder)
    , m_timed(!session.source().isLive())
{
}

/// Whether every plug-in that the script starts is loaded; it would be in vain to begin otherwise.
bool ScriptRunner::knowsPlugins(const Script& script)
{
    const PluginManager& plugins = m_session.host().plugins();
    const QVector<PluginInfo> infos = plugins.plugins();
    QStringList ids;
    for (const PluginInfo& plugin : infos)
        ids.append(plugin.identifier);
    bool known = true;
    for (const Statement& statement : script.statements()) {
        if (statement.kind == Kind::Start && plugins.indexOf(statement.text) < 0) {
            m_output.fail(QStringLiteral("%1:%2: there is no plug-in %3; there are: %4")
                              .arg(script.name())
                              .arg(statement.line)
                              .arg(quoted(statement.text),
                                   ids.isEmpty() ? QStringLiteral("none") : ids.join(QStringLiteral(", "))));
            known = false;
        }
    }
    return known;
}

bool ScriptRunner::run(const Script& script)
{
    m_startMs = m_session.clock().nowMs();
    if (!knowsPlugins(script))
        return false;
    m_scriptFolder = QFileInfo(script.name()).path();
    bool ok = true;
    bool first = true;
    for (const Statement& statement : script.statements()) {
        if (statement.kind == Kind::Note) {
            if (!first)
                m_output.report(QString());
            m_output.report(statement.text);
            first = false;
            continue;
        }
        first = false;
        const Outcome outcome = carryOut(statement);
        if (m_driver.isInterrupted())
            return ok;
        ++m_statementCount;
        if (isExpectation(statement.kind)) {
            ++m_expectationCount;
            m_failedExpectationCount += outcome.ok ? 0 : 1;
        }
        m_output.report(reportLine(statement, outcome.text));
        for (const QString& detail : outcome.details)
            m_output.report(QStringLiteral("            ") + detail);
        if (!outcome.ok) {
            ok = false;
            m_output.fail(
                QStringLiteral("%1:%2: %3").arg(script.name()).arg(statement.line).arg(outcome.failure));
            if (!isExpectation(statement.kind))
                return false;
        }
    }
    return ok;
}

QString ScriptRunner::reportLine(const Statement& statement, const QString& result) const
{
    const QString time =
        m_timed ? seconds(m_session.clock().nowMs() - m_startMs).rightJustified(8) + QStringLiteral("  ")
                : QStringLiteral("  ");
    return time + statement.source.leftJustified(ResultColumn - 2) + QStringLiteral("  ") + result;
}

ScriptRunner::Outcome ScriptRunner::done(const QString& text)
{
    return Outcome{true, text, QString(), {}};
}

ScriptRunner::Outcome ScriptRunner::failed(const QString& failure)
{
    return Outcome{false, QStringLiteral("FAILED: ") + failure, failure, {}};
}

ScriptRunner::Outcome ScriptRunner::expected(bool met, const QString& what, const QString& found)
{
    if (met)
        return done(QStringLiteral("ok"));
    return Outcome{false,
                   QStringLiteral("FAILED: ") + found,
                   QStringLiteral("expected %1, but %2").arg(what, found),
                   {}};
}

ScriptRunner::Outcome ScriptRunner::carryOut(const Statement& statement)
{
    switch (statement.kind) {
    case Kind::PutOn:
    case Kind::TakeOff:
    case Kind::TakeOffAll:
        return changeLoad(statement);
    case Kind::WaitTime:
    case Kind::WaitStable:
    case Kind::WaitDisplay:
    case Kind::WaitEnd:
    case Kind::WaitPrint:
        return wait(statement);
    case Kind::Press:
        return press(statement.word);
    case Kind::PressPrint:
        return pressPrint();
    case Kind::Start:
        return startPlugin(statement.text);
    case Kind::Close:
        return closePlugin();
    case Kind::SetLevel:
    case Kind::SetCalibration:
    case Kind::SetNoise:
    case Kind::SetDrift:
    case Kind::Disconnect:
    case Kind::Connect:
        return setBench(statement);
    case Kind::SetPrinter:
        m_session.waitForPrinter();
        m_session.printer().setFault(statement.text);
        return done(QStringLiteral("the printer is ") + statement.text);
    case Kind::RepeatPrint:
        if (!m_session.printQueue().repeat())
            return failed(QStringLiteral("no print-out has failed"));
        m_session.waitForPrinter();
        return done(printQueueText());
    case Kind::PressUnit:
    case Kind::PressSmallUnit:
    case Kind::SetUnit:
    case Kind::SetSmallUnit:
    case Kind::SetApproval:
    case Kind::SetCarat:
    case Kind::SetAuxiliaryDigit:
    case Kind::SetDecimals:
    case Kind::SetReducedDigits:
        return setUnits(statement);
    case Kind::SetTransferOff:
    case Kind::SetTransferAbsolute:
    case Kind::SetTransferPercent:
    case Kind::SetTransferMinimum:
        return setTransfer(statement);
    case Kind::SetParameters:
        emit m_session.bench().units().parameterSetRequested(statement.word);
        TimeDriver::settle();
        return done(m_session.bench().units().parameterSet());
    case Kind::SetOperator:
        m_session.host().protocol().terminalItems().setOperatorName(statement.text);
        return done(QStringLiteral("done"));
    case Kind::SetSerialNumber:
        m_session.host().protocol().terminalItems().setSerialNumber(statement.text);
        return done(QStringLiteral("done"));
    case Kind::SetPrintColumns:
        m_session.host().protocol().setLayout(qRound(statement.number));
        return done(QStringLiteral("print-outs have %1 columns").arg(qRound(statement.number)));
    case Kind::ProtocolItem:
    case Kind::ProtocolItems:
    case Kind::ProtocolKind:
    case Kind::ProtocolPart:
    case Kind::ProtocolTrigger:
        return setProtocol(statement);
    case Kind::ProtocolMenu:
        m_session.instrument().protocol()->setOpen(statement.on);
        return done(statement.on ? QStringLiteral("open") : QStringLiteral("closed"));
    case Kind::Dismiss:
        m_session.instrument().clearNotice();
        return done(QStringLiteral("done"));
    case Kind::Language:
        m_session.setLanguage(statement.word);
        TimeDriver::settle();
        return done(statement.word == QLatin1String("de") ? QStringLiteral("German")
                                                          : QStringLiteral("English"));
    case Kind::Bench:
        m_session.bench().setPage(statement.word);
        return done(QStringLiteral("shown"));
    case Kind::OpenSettings:
    case Kind::CloseSettings:
    case Kind::SetItem:
    case Kind::PressItem:
        return useSettings(statement);
    case Kind::Screenshot:
        return takeScreenshot(statement.text);
    case Kind::Note:
        return done(QString());
    default:
        return expect(statement);
    }
}

ScriptRunner::Outcome ScriptRunner::changeLoad(const Statement& statement)
{
    BenchModel& bench = m_session.bench();
    if (statement.kind == Kind::PutOn)
        emit bench.putOn(statement.number);
    else if (statement.kind == Kind::TakeOff)
        emit bench.takeOff(statement.number);
    else
        emit bench.clear();
    disturb();
    return done(bench.load() == 0.0 ? QStringLiteral("the scale is empty")
                                    : QStringLiteral("%1 on the scale").arg(grams(bench.load())));
}

ScriptRunner::Outcome ScriptRunner::setBench(const Statement& statement)
{
    BenchModel& bench = m_session.bench();
    QString result;
    switch (statement.kind) {
    case Kind::SetLevel:
        bench.setLevel(statement.on);
        result =
            statement.on ? QStringLiteral("the scale stands level") : QStringLiteral("the scale is tilted");
        break;
    case Kind::SetCalibration:
        bench.setCalibrationDue(statement.on);
        result = statement.on ? QStringLiteral("the calibration is due")
                              : QStringLiteral("the calibration is good");
        break;
    case Kind::SetNoise:
        bench.setNoise(statement.number);
        disturb();
        result = QStringLiteral("noise of %1 increments").arg(bench.noise());
        break;
    case Kind::SetDrift:
        bench.setDrift(statement.number);
        disturb();
        result = QStringLiteral("drift of %1 g/min").arg(bench.drift());
        break;
    case Kind::Disconnect:
        bench.setConnected(false);
        result = QStringLiteral("the cable is out");
        break;
    default:
        bench.setConnected(true);
        disturb();
        result = QStringLiteral("the cable is in");
        break;
    }
    TimeDriver::settle();
    return done(result);
}

ScriptRunner::Outcome ScriptRunner::setUnits(const Statement& statement)
{
    Units& units = m_session.host().units();
    BenchUnitsModel& bench = m_session.bench().units();
    const auto number = static_cast<int>(statement.number);
    bool ok = true;
    switch (statement.kind) {
    case Kind::PressUnit:
        emit m_session.instrument().unitPressed();
        break;
    case Kind::PressSmallUnit:
        emit m_session.instrument().smallUnitPressed();
        break;
    case Kind::SetUnit:
        ok = units.setMainUnit(statement.word);
        break;
    case Kind::SetSmallUnit:
        ok = units.setSmallUnit(statement.word == QLatin1String("none") ? QString() : statement.word);
        break;
    case Kind::SetApproval:
        emit bench.approvedUnitsOnlyRequested(statement.on);
        break;
    case Kind::SetCarat:
        emit bench.caratAllowedRequested(statement.on);
        break;
    case Kind::SetAuxiliaryDigit:
        emit bench.auxiliaryDigitRequested(statement.on);
        break;
    case Kind::SetDecimals:
        if (number > ApprovalSettings::MaximumDecimals)
            return failed(QStringLiteral("the decimals go up to %1").arg(ApprovalSettings::MaximumDecimals));
        emit bench.minimumDecimalsRequested(number);
        break;
    default:
        if (number > ApprovalSettings::MaximumReducedDigits)
            return failed(QStringLiteral("the digits that are left out go up to %1")
                              .arg(ApprovalSettings::MaximumReducedDigits));
        emit bench.reducedDigitsRequested(number);
        break;
    }
    TimeDriver::settle();
    if (!ok)
        return failed(QStringLiteral("the unit \"%1\" is not offered; there are: %2")
                          .arg(statement.word, units.offered().join(QStringLiteral(", "))));
    const DisplayText display = m_session.display();
    return done(display.small.isEmpty() ? display.line()
                                        : display.line() + QStringLiteral("; small ") + display.small);
}

ScriptRunner::Outcome ScriptRunner::setTransfer(const Statement& statement)
{
    using Mode = AutomaticTransferSettings::Mode;
    AutomaticTransferSettings settings = m_session.host().automaticTransfer().settings();
    if (statement.kind == Kind::SetTransferMinimum) {
        settings.minimumLoad = statement.number;
    } else if (statement.kind == Kind::SetTransferOff) {
        settings.mode = Mode::Off;
    } else {
        settings.threshold = statement.number;
        if (statement.kind == Kind::SetTransferAbsolute)
            settings.mode = statement.on ? Mode::Absolute : Mode::AbsoluteFixed;
        else
            settings.mode = statement.on ? Mode::Percent : Mode::PercentFixed;
    }
    QString error;
    if (!m_session.host().automaticTransfer().setSettings(settings, &error))
        return failed(error);
    TimeDriver::settle();
    return done(m_session.host().loadChangeMonitor().reasonText());
}

ScriptRunner::Outcome ScriptRunner::wait(const Statement& statement)
{
    std::function<bool()> condition;
    QString missed;
    qint64 limitMs = statement.withinMs;
    switch (statement.kind) {
    case Kind::WaitStable:
        condition = [this] { return isStableAgain(); };
        missed = QStringLiteral("the weight was not stable");
        break;
    case Kind::WaitDisplay:
        condition = [this, &statement] { return m_session.display().value == statement.text; };
        missed = QStringLiteral("the display did not show ") + quoted(statement.text);
        break;
    case Kind::WaitEnd:
        condition = [this] { return m_session.isSourceFinished(); };
        limitMs = std::numeric_limits<qint64>::max() / 2; // A recording always ends.
        break;
    case Kind::WaitPrint:
        // What a device does takes no time of the terminal's clock.
        condition = [this] {
            m_session.waitForPrinter();
            return m_session.printQueue().count() == m_session.printQueue().failedCount();
        };
        missed = QStringLiteral("the printer has not finished");
        break;
    default:
        condition = [] { return false; };
        break;
    }
    const TimeDriver::Result result = m_driver.runUntil(condition, limitMs);
    if (statement.kind == Kind::WaitPrint && result != TimeDriver::Result::Interrupted)
        return result == TimeDriver::Result::TimedOut ? failed(
                   QStringLiteral("%1 within %2; %3").arg(missed, seconds(limitMs), printQueueText()))
                                                      : done(printQueueText());
    if (result == TimeDriver::Result::TimedOut && statement.kind != Kind::WaitTime)
        return failed(
            QStringLiteral("%1 within %2; it shows %3").arg(missed, seconds(limitMs), displayText()));
    return done(m_session.display().line());
}

/// A load that the script has changed counts as stable only by readings that came after the change.
bool ScriptRunner::isStableAgain() const
{
    Scale& scale = m_session.scale();
    if (!scale.isStable())
        return false;
    const auto spanMs = static_cast<qint64>(m_session.options().stability.seconds * 1000.0);
    return !m_disturbedMs || scale.lastReading().timeMs > *m_disturbedMs + spanMs;
}

void ScriptRunner::disturb()
{
    m_disturbedMs = m_session.clock().nowMs();
}

QString ScriptRunner::printQueueText() const
{
    const PrintQueue& queue = m_session.printQueue();
    return QStringLiteral("printed: %1, in the queue: %2, failed: %3")
        .arg(queue.printedCount())
        .arg(queue.count())
        .arg(queue.failedCount());
}

QString ScriptRunner::displayText() const
{
    const DisplayText display = m_session.display();
    return display.value.isEmpty() ? QStringLiteral("nothing") : quoted(display.value);
}

ScriptRunner::Outcome ScriptRunner::press(const QString& uid)
{
    ActionListModel& actions = m_session.actions();
    const ActionEntry* const action = findAction(actions, uid);
    if (!action)
        return failed(noSuchAction(actions, uid));
    if (!action->enabled)
        return failed(QStringLiteral("the key \"%1\" is disabled").arg(uid));
    InstrumentModel& instrument = m_session.instrument();
    const QString noticeBefore = instrument.noticeVisible() ? instrument.noticeText() : QString();
    actions.press(uid);
    TimeDriver::settle();
    QString result = m_session.display().line();
    if (instrument.noticeVisible() && instrument.noticeText() != noticeBefore)
        result += QStringLiteral("; notice: ")
                  + instrument.noticeText().replace(QLatin1Char('\n'), QLatin1Char(' '));
    return done(result);
}

ScriptRunner::Outcome ScriptRunner::pressPrint()
{
    InstrumentModel& instrument = m_session.instrument();
    if (!instrument.printEnabled())
        return failed(QStringLiteral("the print key is disabled"));
    emit instrument.printPressed();
    TimeDriver::settle();
    return done(QStringLiteral("print requested"));
}

ScriptRunner::Outcome ScriptRunner::startPlugin(const QString& id)
{
    PluginManager& plugins = m_session.host().plugins();
    const int index = plugins.indexOf(id);
    plugins.activate(index);
    plugins.waitUntilSettled();
    TimeDriver::settle();
    const PluginInfo plugin = plugins.plugins().at(index);
    if (plugin.state != PluginState::Running)
        return failed(QStringLiteral("the plug-in \"%1\" is not running: %2").arg(id, plugin.fault));
    return done(QStringLiteral("%1 is running").arg(plugin.name));
}

ScriptRunner::Outcome ScriptRunner::closePlugin()
{
    PluginManager& plugins = m_session.host().plugins();
    const int index = plugins.activeIndex();
    if (index < 0)
        return failed(QStringLiteral("no plug-in is running"));
    plugins.deactivate();
    plugins.waitUntilSettled();
    TimeDriver::settle();
    const PluginInfo plugin = plugins.plugins().at(index);
    if (plugin.state != PluginState::Initialised)
        return failed(
            QStringLiteral("the plug-in \"%1\" has not closed: %2").arg(plugin.identifier, plugin.fault));
    return done(QStringLiteral("%1 has closed").arg(plugin.name));
}

ScriptRunner::Outcome ScriptRunner::setProtocol(const Statement& statement)
{
    Protocol& protocol = m_session.host().protocol();
    ProtocolChoice choice = protocol.choice();
    switch (statement.kind) {
    case Kind::ProtocolKind:
        choice.type = protocolTypeOf(statement.word).value_or(choice.type);
        break;
    case Kind::ProtocolPart:
        choice.part = protocolPartOf(statement.word).value_or(choice.part);
        break;
    case Kind::ProtocolTrigger:
        return setProtocolTrigger(statement.word);
    default: {
        const QVector<ProtocolEntry> entries = protocol.entries();
        QStringList uids;
        for (const ProtocolEntry& entry : entries)
            uids.append(entry.uid);
        if (statement.kind == Kind::ProtocolItems) {
            choice.items = statement.on ? uids : QStringList();
            break;
        }
        if (!uids.contains(statement.word))
            return failed(
                QStringLiteral("there is no print item \"%1\" for that kind and part; there are: %2")
                    .arg(statement.word,
                         uids.isEmpty() ? QStringLiteral("none") : uids.join(QStringLiteral(", "))));
        choice.items.removeAll(statement.word);
        if (statement.on)
            choice.items.append(statement.word);
        break;
    }
    }
    protocol.setChoice(choice);
    int chosen = 0;
    const QVector<ProtocolEntry> entries = protocol.entries();
    for (const ProtocolEntry& entry : entries)
        chosen += entry.chosen ? 1 : 0;
    return done(QStringLiteral("%1 %2: %3 of %4 items")
                    .arg(keyOf(choice.type), keyOf(choice.part))
                    .arg(chosen)
                    .arg(entries.size()));
}

ScriptRunner::Outcome ScriptRunner::setProtocolTrigger(const QString& uid)
{
    Protocol& protocol = m_session.host().protocol();
    const QVector<ProtocolTriggerEntry> triggers = protocol.triggers();
    QStringList uids;
    QString name;
    for (const ProtocolTriggerEntry& trigger : triggers) {
        uids.append(trigger.uid);
        if (trigger.uid == uid)
            name = trigger.name;
    }
    if (!uids.contains(uid))
        return failed(QStringLiteral("there is no trigger \"%1\"; there are: %2")
                          .arg(uid, uids.join(QStringLiteral(", "))));
    ProtocolChoice choice = protocol.choice();
    choice.trigger = uid;
    protocol.setChoice(choice);
    return done(name);
}

/// The newest print-out since the last expectation of one, compared with a kept file.
ScriptRunner::Outcome ScriptRunner::expectPrintOut(const Statement& statement)
{
    m_session.waitForPrinter();
    const PrintQueue& queue = m_session.printQueue();
    const bool printed = queue.printedCount() > m_comparedPrints;
    m_comparedPrints = queue.printedCount();
    if (statement.none)
        return expected(!printed, QStringLiteral("no print-out"), QStringLiteral("there is one"));
    if (!printed)
        return expected(false, QStringLiteral("a print-out"),
                        QStringLiteral("nothing was printed since the last one that was expected"));

    const QString printOut = queue.lastPrint();
    const QString path = QDir(m_scriptFolder).filePath(statement.text);
    if (m_session.options().approve)
        return keepPrintOut(path, printOut);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Outcome outcome = expected(
            false, QStringLiteral("the print-out ") + quoted(statement.text),
            QStringLiteral("%1 cannot be read (%2); look at the print-out, and keep it with --approve")
                .arg(path, file.errorString()));
        outcome.details = printOut.split(QLatin1Char('\n'));
        return outcome;
    }
    const QByteArray content = file.read(MaximumPrintOutBytes + 1);
    if (content.size() > MaximumPrintOutBytes) {
        return expected(false, QStringLiteral("the print-out ") + quoted(statement.text),
                        QStringLiteral("%1 is no print-out: it is longer than %2 bytes")
                            .arg(path, QString::number(MaximumPrintOutBytes)));
    }
    const QString kept = QString::fromUtf8(content).remove(QLatin1Char('\r'));
    Outcome outcome = expected(kept == printOut, QStringLiteral("the print-out ") + quoted(statement.text),
                               QStringLiteral("another was printed; if it is right, keep it with --approve"));
    if (!outcome.ok)
        outcome.details = sideBySide(kept, printOut);
    return outcome;
}

ScriptRunner::Outcome ScriptRunner::keepPrintOut(const QString& path, const QString& printOut)
{
    QFile file(path);
    const QByteArray bytes = printOut.toUtf8();
    const bool isKept = file.open(QIODevice::ReadOnly) && file.read(bytes.size() + 1) == bytes;
    if (isKept)
        return done(QStringLiteral("ok"));
    const QFileInfo info(path);
    QSaveFile kept(path);
    if (!QDir().mkpath(info.path()) || !kept.open(QIODevice::WriteOnly) || kept.write(bytes) < 0
        || !kept.flush() || !kept.commit()) {
        return expected(false, QStringLiteral("that the print-out can be kept"),
                        QStringLiteral("%1 cannot be written: %2").arg(path, kept.errorString()));
    }
    return done(QStringLiteral("kept as expected from now on"));
}

ScriptRunner::Outcome ScriptRunner::useSettings(const Statement& statement)
{
    SettingsModel& settings = m_session.settings();
    const int id = static_cast<int>(statement.number);
    QString error;
    switch (statement.kind) {
    case Kind::OpenSettings:
        error = settings.openScreen();
        break;
    case Kind::CloseSettings:
        error = settings.isOpen() ? QString() : QStringLiteral("the settings are not open");
        settings.closeScreen();
        break;
    case Kind::SetItem:
        error = settings.set(id, statement.text);
        break;
    default: // PressItem; pressed again, a command that has asked is confirmed
        error = settings.dialog() == QLatin1String("confirmation") && settings.dialogItem() == id
                    ? settings.confirm()
                    : settings.pressAnywhere(id);
        break;
    }
    TimeDriver::settle();
    if (!error.isEmpty())
        return failed(error);
    if (!settings.isOpen())
        return done(QStringLiteral("closed"));
    if (statement.kind == Kind::SetItem)
        return done(settings.shownText(id).value_or(QStringLiteral("set")));
    return done(settings.dialog().isEmpty()
                    ? quoted(settings.title())
                    : settings.dialog() + QLatin1Char(' ') + quoted(settings.dialogTitle()));
}

ScriptRunner::Outcome ScriptRunner::takeScreenshot(const QString& file)
{
    const QString path = m_folder.isEmpty() ? file : QDir(m_folder).filePath(file);
    QString error;
    if (!m_session.grab(path, &error))
        return failed(error);
    ++m_screenshotCount;
    return done(QStringLiteral("saved"));
}

ScriptRunner::Outcome ScriptRunner::expect(const Statement& statement)
{
    const InstrumentModel& instrument = m_session.instrument();
    const DisplayText display = m_session.display();
    switch (statement.kind) {
    case Kind::ExpectDisplay:
        return expected(display.value == statement.text, QStringLiteral("display ") + quoted(statement.text),
                        QStringLiteral("it shows ") + displayText());
    case Kind::ExpectStable:
        return expected(
            display.stable == statement.on,
            statement.on ? QStringLiteral("a stable display") : QStringLiteral("an unstable display"),
            QStringLiteral("it shows %1, %2")
                .arg(displayText(), display.stable ? QStringLiteral("stable") : QStringLiteral("unstable")));
    case Kind::ExpectNet:
        return expected(display.net == statement.on, QStringLiteral("net ") + onOff(statement.on),
                        QStringLiteral("it is ") + onOff(display.net));
    case Kind::ExpectLevellingWarning:
        return expectText(
            QStringLiteral("levelling warning"), statement,
            warningText(instrument.warnings(), "levellingRequiredVisible", "levellingRequiredText"));
    case Kind::ExpectCalibrationWarning:
        return expectText(
            QStringLiteral("calibration warning"), statement,
            warningText(instrument.warnings(), "calibrationRequiredVisible", "calibrationRequiredText"));
    case Kind::ExpectActionEnabled:
    case Kind::ExpectActionToggle:
    case Kind::ExpectActionText:
        return expectAction(statement);
    case Kind::ExpectPrint:
        return expected(instrument.printEnabled() == statement.on,
                        QStringLiteral("the print key ") + enabledDisabled(statement.on),
                        QStringLiteral("it is ") + enabledDisabled(instrument.printEnabled()));
    case Kind::ExpectPrintOut:
        return expectPrintOut(statement);
    case Kind::ExpectNotice: {
        const QString notice = instrument.noticeVisible() ? instrument.noticeText() : QString();
        Outcome outcome = expectPart(QStringLiteral("notice"), statement, notice);
        if (outcome.ok && !statement.none)
            m_session.forgiveErrors(statement.text);
        return outcome;
    }
    case Kind::ExpectTransfer:
        return expectText(QStringLiteral("transfer"), statement, m_session.lastTransfer());
    case Kind::ExpectInfo: {
        const QList<QObject*> items = instrument.infoItems();
        QStringList lines;
        for (const QObject* item : items)
            lines.append(infoText(item));
        return expectPart(QStringLiteral("info"), statement, lines.join(QStringLiteral("; ")));
    }
    case Kind::ExpectItem: {
        const auto id = static_cast<int>(statement.number);
        const std::optional<QString> shown = m_session.settings().shownText(id);
        const QString what = QStringLiteral("setting %1 ").arg(id);
        if (statement.none)
            return expected(!shown, QStringLiteral("no setting %1").arg(id),
                            QStringLiteral("it shows ") + quoted(shown.value_or(QString())));
        return expected(shown == statement.text, what + quoted(statement.text),
                        shown ? QStringLiteral("it shows ") + quoted(*shown)
                              : QStringLiteral("it is not shown, or the settings are not open"));
    }
    case Kind::ExpectWorkflow:
        return expectPart(QStringLiteral("workflow"), statement,
                          m_session.workflow().texts().join(QStringLiteral("; ")));
    case Kind::ExpectHostCall:
        return expected(m_session.host().calls().contains(statement.text),
                        QStringLiteral("host call ") + quoted(statement.text),
                        similarCalls(m_session.host().calls().calls(), statement.text));
    case Kind::ExpectNoHostCall: {
        const QStringList found = m_session.host().calls().calls().filter(statement.text);
        return expected(found.isEmpty(), QStringLiteral("no host call ") + quoted(statement.text),
                        QStringLiteral("there was ") + found.value(0));
    }
    case Kind::ExpectPrinter: {
        m_session.waitForPrinter();
        const QString state = m_session.printer().state();
        return expected(state == statement.text, QStringLiteral("the printer ") + statement.text,
                        QStringLiteral("it is ") + state);
    }
    case Kind::ExpectQueue:
        m_session.waitForPrinter();
        return expected(m_session.printQueue().count() == qRound(statement.number),
                        QStringLiteral("%1 in the print queue").arg(statement.number), printQueueText());
    case Kind::ExpectSmall:
        return expectText(QStringLiteral("small display"), statement, display.small);
    case Kind::ExpectUnits:
        return expectText(QStringLiteral("units"), statement,
                          m_session.host().units().offered().join(QLatin1Char(' ')));
    case Kind::ExpectCoarse:
        return expected(display.coarse == statement.on, QStringLiteral("coarse ") + onOff(statement.on),
                        QStringLiteral("it is ") + onOff(display.coarse));
    case Kind::ExpectTriggers: {
        const int count = m_session.host().loadChangeMonitor().triggerCount();
        return expected(count == static_cast<int>(statement.number),
                        QStringLiteral("%1 triggers").arg(static_cast<int>(statement.number)),
                        QStringLiteral("there were %1").arg(count));
    }
    case Kind::ExpectReason:
        return expectPart(QStringLiteral("reason"), statement,
                          m_session.host().loadChangeMonitor().reasonText());
    case Kind::ExpectParameters:
        return expected(m_session.parameterSet() == statement.word,
                        QStringLiteral("parameters ") + quoted(statement.word),
                        QStringLiteral("they are ") + quoted(m_session.parameterSet()));
    default: // ExpectLog
        return expected(m_session.log().contains(statement.text),
                        QStringLiteral("a log line with ") + quoted(statement.text),
                        QStringLiteral("there is none (the log level may be too high; see --log-level)"));
    }
}

ScriptRunner::Outcome ScriptRunner::expectText(const QString& what, const Statement& statement,
                                               const QString& found)
{
    const bool met = statement.none ? found.isEmpty() : found == statement.text;
    return expected(
        met, statement.none ? QStringLiteral("no ") + what : what + QLatin1Char(' ') + quoted(statement.text),
        found.isEmpty() ? QStringLiteral("there is none") : QStringLiteral("it is ") + quoted(found));
}

ScriptRunner::Outcome ScriptRunner::expectPart(const QString& what, const Statement& statement,
                                               const QString& found)
{
    const bool met = statement.none ? found.isEmpty() : found.contains(statement.text);
    return expected(met,
                    statement.none ? QStringLiteral("no ") + what
                                   : QStringLiteral("%1 with %2").arg(what, quoted(statement.text)),
                    found.isEmpty() ? QStringLiteral("there is none")
                                    : QStringLiteral("it is ") + quoted(found));
}

ScriptRunner::Outcome ScriptRunner::expectAction(const Statement& statement)
{
    const ActionListModel& actions = m_session.actions();
    const ActionEntry* const action = findAction(actions, statement.word);
    QString what = QStringLiteral("key ") + quoted(statement.word) + QLatin1Char(' ');
    bool met = false;
    QString found;
    switch (statement.kind) {
    case Kind::ExpectActionEnabled:
        what += enabledDisabled(statement.on);
        met = action && action->enabled == statement.on;
        found = action ? QStringLiteral("it is ") + enabledDisabled(action->enabled) : QString();
        break;
    case Kind::ExpectActionToggle:
        what += QStringLiteral("in state %1").arg(statement.number);
        met = action && action->toggle && action->toggleIndex == statement.number;
        found = action && action->toggle ? QStringLiteral("it is in state %1").arg(action->toggleIndex)
                                         : QStringLiteral("it has no states");
        break;
    default:
        what += QStringLiteral("with text ") + quoted(statement.text);
        met = action && action->name == statement.text;
        found = action ? QStringLiteral("its text is ") + quoted(action->name) : QString();
        break;
    }
    return expected(met, what, action ? found : noSuchAction(actions, statement.word));
}

} // namespace Terminal
} // namespace Brimvale
