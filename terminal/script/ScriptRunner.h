// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SCRIPTRUNNER_H
#define BRIMVALE_SCRIPTRUNNER_H

#include "script/Script.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

class Session;
class TimeDriver;

/// How the lines of a script are told.
struct ScriptOutput
{
    std::function<void(const QString& line)> report;  ///< A line of the report.
    std::function<void(const QString& message)> fail; ///< A failure: "FILE:LINE: what was expected, but ...".
};

/// Plays a script on a session, and reports every line with its result.
///
/// What a person would do is done the way a person does it: through the bench, the keys of the screen and the list of
/// applications. An expectation that fails is reported and the script goes on; a statement that cannot be carried out
/// (a key that is disabled, a wait that is over) ends it, since nothing after it would mean what was intended.
class ScriptRunner
{
public:
    /// @param folder where screenshots go; empty: the working folder. It must exist.
    ScriptRunner(Session& session, TimeDriver& driver, const ScriptOutput& output, const QString& folder);

    /// Plays the script. Returns whether everything went well; an interruption is no failure.
    bool run(const Script& script);

    /// Statements that were carried out, expectations among them, and how many of those failed.
    int statementCount() const { return m_statementCount; }
    int expectationCount() const { return m_expectationCount; }
    int failedExpectationCount() const { return m_failedExpectationCount; }
    /// Pictures that were saved.
    int screenshotCount() const { return m_screenshotCount; }

private:
    /// What became of a statement.
    struct Outcome
    {
        bool ok = true;
        QString text;             ///< For the report.
        QString failure;          ///< For the messages, unless ok.
        QStringList details = {}; ///< Further lines of the report.
    };

    static Outcome done(const QString& text);
    static Outcome failed(const QString& failure);
    static Outcome expected(bool met, const QString& what, const QString& found);
    static Outcome expectText(const QString& what, const Statement& statement, const QString& found);
    static Outcome expectPart(const QString& what, const Statement& statement, const QString& found);

    bool knowsPlugins(const Script& script);
    Outcome carryOut(const Statement& statement);
    Outcome expect(const Statement& statement);
    Outcome expectAction(const Statement& statement);
    Outcome wait(const Statement& statement);
    Outcome press(const QString& uid);
    Outcome pressPrint();
    Outcome startPlugin(const QString& id);
    Outcome closePlugin();
    Outcome useSettings(const Statement& statement);
    Outcome takeScreenshot(const QString& file);
    Outcome changeLoad(const Statement& statement);
    Outcome setBench(const Statement& statement);
    Outcome setUnits(const Statement& statement);
    Outcome setTransfer(const Statement& statement);
    Outcome setProtocol(const Statement& statement);
    Outcome setProtocolTrigger(const QString& uid);
    Outcome expectPrintOut(const Statement& statement);
    Outcome keepPrintOut(const QString& path, const QString& printOut);

    bool isStableAgain() const;
    void disturb();
    QString displayText() const;
    QString printQueueText() const;
    QString reportLine(const Statement& statement, const QString& result) const;

    Session& m_session;
    TimeDriver& m_driver;
    const ScriptOutput m_output;
    const QString m_folder;
    QString m_scriptFolder; ///< Where the kept print-outs are looked for.
    const bool m_timed;     ///< The times are the same on every machine.
    qint64 m_startMs = 0;
    std::optional<qint64> m_disturbedMs; ///< When the load was last changed by the script.
    int m_statementCount = 0;
    int m_expectationCount = 0;
    int m_failedExpectationCount = 0;
    int m_screenshotCount = 0;
    int m_comparedPrints = 0; ///< Print-outs that were there at the last expectation of one.
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SCRIPTRUNNER_H
