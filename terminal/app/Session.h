// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SESSION_H
#define BRIMVALE_SESSION_H

#include "MesswertInfo.h"
#include "app/DisplayText.h"
#include "app/LogOutput.h"
#include "app/WindowScreen.h"
#include "clock/Clock.h"
#include "host/Host.h"
#include "measuring/Scale.h"
#include "menu/SettingsModel.h"
#include "print/Formatter.h"
#include "print/PaperRoll.h"
#include "print/PrintQueue.h"
#include "source/WeightSource.h"
#include "ui/BenchModel.h"
#include "ui/InstrumentModel.h"
#include "ui/PrinterModel.h"
#include "ui/TerminalWindow.h"
#include "ui/WorkflowModel.h"

#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Brimvale
{
namespace Terminal
{

struct Options;
class PluginFaults;
class SicsScale;
class SicsServer;
class SimulatedSource;

/// A terminal, put together: source, scale, host, plug-ins, screen and bench, each connected with the others. With a
/// window or without one; it does not care what drives its clock.
///
/// A life: construct; prepare(); loadPlugins(); start(); let time pass; shutDown().
class Session : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Session)

public:
    /// @param options what the command line said; must outlive the session.
    /// @param clock   not owned, must outlive the session.
    /// @param source  the scale's source, not started.
    Session(const Options& options, Clock& clock, std::unique_ptr<WeightSource> source, LogOutput& log);
    ~Session() override;

    /// Loads the screen. On failure @p errors tells why.
    bool prepare(QStringList* errors);

    /// Begins to listen where the command line asks for it. On failure @p error tells why.
    bool listen(QString* error);

    /// Loads the plug-ins of the command line, or the installed ones. What fails is reported; the others go on.
    void loadPlugins();

    /// Starts the plug-in that the command line names, or the first that starts, then the source. Returns false, after
    /// a report, when there is none although one was asked for; the terminal then weighs by itself.
    bool start();

    /// Closes the plug-in and stops the source. Runs the event loop meanwhile.
    void shutDown();

    // The parts.
    const Options& options() const { return m_options; }
    Clock& clock() { return m_clock; }
    Scale& scale() { return m_scale; }
    WeightSource& source() { return *m_source; }
    /// The source, when it is the simulated scale; otherwise null.
    SimulatedSource* simulation() { return m_simulation; }
    Host& host() { return *m_host; }
    PluginFaults& pluginFaults() { return *m_faults; }
    InstrumentModel& instrument() { return m_instrument; }
    SettingsModel& settings() { return *m_settingsModel; }
    BenchModel& bench() { return m_bench; }
    TerminalWindow& window() { return m_window; }
    PrintQueue& printQueue() { return m_printQueue; }
    PrinterModel& printer() { return m_printer; }
    PaperRoll& paper() { return m_paper; }
    const LogOutput& log() const { return m_log; }
    /// Answers SICS commands; null when it does not listen.
    SicsServer* sics() { return m_sicsServer.get(); }

    // What has happened.

    /// What the main display shows.
    DisplayText display() const { return DisplayText::of(m_instrument); }
    /// Readings that the source has delivered.
    quint64 readings() const { return m_readings; }
    /// Whether the scale has ever sent anything.
    bool hasScaleAnswered() const { return m_scaleAnswered; }
    /// The source has come to its end.
    bool isSourceFinished() const { return m_sourceFinished; }
    /// The last transferred measurement as text; empty: there was none.
    QString lastTransfer() const { return m_lastTransfer; }

    /// What was reported as an error and not forgiven.
    const QStringList& errors() const { return m_errors; }
    /// An error that was expected: those that contain @p part count no more.
    void forgiveErrors(const QString& part);

    /// What is shown of the workflow that the active plug-in runs.
    const WorkflowModel& workflow() const { return m_workflow; }

    /// The buttons that are offered: those of a workflow that runs, else those of the active plug-in, or the terminal's
    /// own while there is none.
    ActionListModel& actions();

    /// Runs the event loop until every device has answered that was asked to print something. Each has time limits.
    void waitForPrinter();

    void setLanguage(const QString& language);

    /// Brings a set of weighing parameters into force: "standard" or "msw", or "system" for the user's own.
    void useParameterSet(const QString& set);
    /// The names of the sets, as useParameterSet() takes them.
    static QStringList parameterSets();
    /// The set in force, "none" before one was set.
    QString parameterSet();

    /// Saves a picture of the terminal.
    bool grab(const QString& pngFile, QString* error) { return m_window.grab(pngFile, error); }

signals:
    /// The person closed the window.
    void closed();

private:
    void connectScale();
    void connectHost();
    void connectBench();
    void connectInstrument();
    void connectPrinter();
    void connectSimulation();
    void connectProtocol();
    void updateProtocol();
    void connectUnits();
    void connectTransfer();
    void restoreSettings();
    template <typename Value>
    void store(const QString& key, const Value& value);
    void changeApproval(const std::function<void(ApprovalSettings&)>& change);
    void reportLoad(const LoadResult& result);
    void reportError(const QString& error);
    void reportPrintFault(const QString& fault);
    void onNotice(NoticeSeverity severity, const QString& text);
    void onTransferred(const TransferRecord& record);
    QVector<int> startOrder() const;
    bool startPlugin(int index);
    void logStatus();
    void updateStatusText();
    void updateDisplay();
    void updatePlate();
    void updateActions();
    void updateHostActions();
    void updateWorkflow();
    void updateBenchUnits();
    void updateBenchTransfer();
    void updatePlugins();
    void updateSettings();
    void updateTime();
    QDateTime localTime() const;
    void pressHostAction(const QString& uid);
    void selectPlugin(int index);
    void storeSettings();

    const Options& m_options;
    Clock& m_clock;
    LogOutput& m_log;
    const std::unique_ptr<WeightSource> m_source;
    SimulatedSource* const m_simulation;
    std::unique_ptr<QSettings> m_settings; ///< Null: none are kept.
    Scale m_scale;
    PaperRoll m_paper;
    PrintQueue m_printQueue;
    PrinterModel m_printer{m_printQueue, m_paper};
    InstrumentModel m_instrument;
    WorkflowModel m_workflow;
    BenchModel m_bench;
    MesswertInfo m_display;
    TerminalWindow m_window;
    WindowScreen m_screen;
    std::unique_ptr<Host> m_host;
    std::unique_ptr<PluginFaults> m_faults;
    std::unique_ptr<SettingsModel> m_settingsModel;
    Formatter m_formatter;
    std::unique_ptr<SicsScale> m_sicsScale;
    std::unique_ptr<SicsServer> m_sicsServer;

    int m_namedPlugins = 0;  ///< How many of the plug-ins the command line named; they come first.
    QStringList m_pluginIds; ///< Of the entries that the screen offers.
    QStringList m_pluginFaults;
    QStringList m_errors;
    QString m_lastTransfer;
    bool m_lastTransferTaken = false;
    quint64 m_readings = 0;
    bool m_scaleAnswered = false;
    std::optional<Reading::Status> m_loggedStatus;
    QString m_loggedDetail;
    bool m_sourceFinished = false;
    bool m_restoring = true; ///< Until the settings were read nothing is stored in them.
    Clock::TimerId m_timeTimer = 0;
    Clock::TimerId m_noticeTimer = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SESSION_H
