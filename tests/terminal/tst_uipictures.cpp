// SPDX-License-Identifier: BSD-3-Clause
//
// Shows the terminal in every state that a person meets and takes a picture of each. Set BRIMVALE_PICTURES to a
// directory to keep the pictures and look at them.
#include "InfoValueUnit.h"
#include "Progressbar.h"
#include "TerminalFixture.h"
#include "clock/VirtualClock.h"
#include "print/FilePrinter.h"
#include "print/Formatter.h"
#include "print/PaperRoll.h"
#include "print/PdfPrinter.h"
#include "print/PrintQueue.h"
#include "ui/PrinterModel.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using namespace Brimvale;
using namespace Brimvale::Terminal;

using Preparation = std::function<void(TerminalFixture&)>;
Q_DECLARE_METATYPE(Preparation)

class tst_UiPictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void state_data();
    void state();
    void pdf_data();
    void pdf();

private:
    QTemporaryDir m_temporary;
    QString m_directory;
};

namespace
{

QList<QObject*> infoItems(QObject* parent)
{
    const auto line = [parent](const char* group, const char* title, const char* value,
                               bool invalid = false) {
        return new InfoboxListItem(parent, QString::fromUtf8(group), QString::fromUtf8(title),
                                   QString::fromUtf8(value), true, true, invalid);
    };
    return {line("Delivery 4711", "Supplier", "Mill & Sons"), line("", "Items", "12"),
            line("", "Total", "15 412.8 g"), line("Last item", "Net", "1284.6 g"),
            line("", "Tolerance", "exceeded", true)};
}

void figures(TerminalFixture& terminal)
{
    const auto figure = [](const char* title, const char* value) {
        return QVariantMap{{QStringLiteral("title"), QString::fromUtf8(title)},
                           {QStringLiteral("value"), QString::fromUtf8(value)}};
    };
    terminal.standIn.m_figures = {figure("Items", "12"), figure("Total", "15 412.8 g"),
                                  figure("Mean", "1284.4 g")};
}

WorkflowView showWorkflow(TerminalFixture& terminal, WorkflowView::ScreenType type)
{
    terminal.startApplication();
    auto* const marks = new QList<QObject*>;
    auto* const progress = new Progressbar(&terminal.standIn, *marks, 0, true);
    QObject::connect(progress, &QObject::destroyed, progress, [marks] { delete marks; });
    progress->setSteps(5);
    progress->setStepDone(0, true);
    progress->setStepDone(1, true);
    terminal.workflow.setProgress(progress);
    WorkflowView view;
    view.running = true;
    view.screenType = type;
    view.title = QStringLiteral("Weigh in");
    view.lines =
        QStringList{QStringLiteral("Add 125.0 g of wheat flour"),
                    QStringLiteral("Within 2 %: 122.5 g to 127.5 g"), QStringLiteral("Charge 4711, silo 3")};
    view.waiting = QStringLiteral("Waiting for a stable weight");
    terminal.workflow.setView(view);
    terminal.workflow.keys()->setActions({{WorkflowRunner::backKey(), QStringLiteral("Back")},
                                          {WorkflowRunner::repeatKey(), QStringLiteral("Repeat"), false},
                                          {WorkflowRunner::continueKey(), QStringLiteral("Take over")},
                                          {WorkflowRunner::abortKey(), QStringLiteral("Abort")},
                                          {QStringLiteral("tare"), QStringLiteral("Tare")}});
    return view;
}

/// A printer beside the terminal.
struct Printer : public QObject
{
    explicit Printer(QObject* parent)
        : QObject(parent)
    {
        queue.setPrinter(std::make_unique<RollPrinter>(paper));
    }

    VirtualClock clock;
    PaperRoll paper;
    PrintQueue queue{clock};
    PrinterModel model{queue, paper};
};

Printer* usePrinter(TerminalFixture& terminal)
{
    auto* const printer = new Printer(&terminal.standIn);
    terminal.startApplication();
    terminal.bench.setPage(QStringLiteral("printer"));
    terminal.bench.setPrinter(&printer->model);
    return printer;
}

PrintJob delivery(int columns)
{
    const QString title = QStringLiteral(u"Wareneingang Größe A");
    PrintJob job(title, columns);
    Formatter formatter;
    const auto text = [&](const char* line) {
        job.PrintLine(formatter.FormatText(columns, QString::fromUtf8(line)));
    };
    const auto described = [&](const char* name, const char* line) {
        job.PrintLine(
            formatter.FormatDescriptionText(columns, QString::fromUtf8(name), QString::fromUtf8(line)));
    };
    text("Mühle & Söhne GmbH");
    text("Wareneingang");
    text("");
    described("Datum", "2026-01-01 08:15");
    described("Seriennummer", "0012345678");
    described("Prüfer", "Jürgen Groß");
    described("Artikel", "样品 17/A");
    text("");
    FormattedValue value;
    value.isStable = true;
    value.text = QStringLiteral("1384.6 g");
    job.PrintLine(formatter.FormatNameValue(columns, QStringLiteral("Brutto"), value, false));
    described("Tara", "100.0 g");
    value.text = QStringLiteral("1284.6 g");
    value.isStable = false;
    job.PrintLine(formatter.FormatNameValue(columns, QStringLiteral("Netto"), value, false));
    value.text = QStringLiteral("1284.45 g");
    value.isStable = true;
    value.valueMark = Formatter::CalculatedMark;
    job.PrintLine(
        formatter.FormatNameValue(columns, QStringLiteral("Mittelwert der letzten Proben"), value, false));
    job.PrintLine(formatter.FormatNameValueUnit(columns, QStringLiteral("Proben"), QStringLiteral("12"),
                                                QStringLiteral("Stk")));
    text("");
    described("Unterschrift", "");
    text("");
    text("________________________");
    return job;
}

} // namespace

void tst_UiPictures::initTestCase()
{
    m_directory = qEnvironmentVariable("BRIMVALE_PICTURES");
    if (m_directory.isEmpty()) {
        QVERIFY(m_temporary.isValid());
        m_directory = m_temporary.path();
    }
    QVERIFY(QDir().mkpath(m_directory));
}

void tst_UiPictures::state_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QStringList>("shown");

    const auto row = [](const char* name, const QStringList& shown, const Preparation& prepare) {
        QTest::newRow(name) << prepare << shown;
    };
    const auto names = [](std::initializer_list<const char*> list) {
        QStringList result;
        for (const char* name : list) {
            result.append(QString::fromUtf8(name));
        }
        return result;
    };

    row("net-stable",
        names({"value", "unit", "stabilityMark", "netMark", "barGraph", "pluginArea", "infoArea"}),
        [](TerminalFixture& terminal) {
            figures(terminal);
            terminal.display.setNetVisible(true);
            terminal.startApplication();
            terminal.instrument.setInfoItems(infoItems(&terminal.standIn));
        });
    row("unstable-preset-tare", names({"value", "stabilityMark", "netMark", "ptMark", "smallDisplay"}),
        [](TerminalFixture& terminal) {
            figures(terminal);
            terminal.display.setMesswert(QStringLiteral("-1284.55"));
            terminal.display.setStabilityValue(0);
            terminal.display.setNetVisible(true);
            terminal.display.setPtVisible(true);
            terminal.display.setMesswertKleinVisible(true);
            terminal.startApplication();
        });
    row("overload", names({"error", "errorText"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.display.setErrorText(QStringLiteral("Overload"));
        terminal.startApplication();
        terminal.instrument.setInfoItems(infoItems(&terminal.standIn));
    });
    row("connection-lost", names({"error", "errorText"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.startApplication();
        terminal.instrument.setSourceText(QStringLiteral("tcp:localhost:4305"));
        terminal.instrument.setSourceOk(false);
        terminal.bench.setAvailable(false);
    });
    row("warnings", names({"levellingWarning", "calibrationWarning", "value", "notice"}),
        [](TerminalFixture& terminal) {
            figures(terminal);
            terminal.warnings.setLevellingRequiredVisible(true);
            terminal.warnings.setCalibrationRequiredText(QStringLiteral("Calibration required"));
            terminal.warnings.setCalibrationRequiredVisible(true);
            terminal.instrument.setLevelOk(false);
            terminal.bench.setLevel(false);
            terminal.bench.setCalibrationDue(true);
            terminal.startApplication();
            terminal.instrument.showNotice(InstrumentModel::Severity::Warning,
                                           QStringLiteral("Tare refused: the weight is not stable"));
        });
    row("application-at-fault", names({"noticeTitle", "noticeText", "closeApplication", "keepRunning"}),
        [](TerminalFixture& terminal) {
            figures(terminal);
            terminal.startApplication();
            terminal.instrument.showNotice(
                InstrumentModel::Severity::Error,
                QStringLiteral(
                    "The application failed while it took in a new weight: std::runtime_error: the "
                    "table has no column \"net\""),
                QStringLiteral("Receiving goods"));
            terminal.instrument.setNoticeCount(37);
            terminal.instrument.setNoticeOffersClose(true);
        });
    row("german-application-at-fault", names({"noticeText", "closeApplication", "keepRunning"}),
        [](TerminalFixture& terminal) {
            terminal.instrument.setLanguage(QStringLiteral("de"));
            terminal.window.retranslate();
            terminal.startApplication();
            terminal.instrument.showNotice(
                InstrumentModel::Severity::Warning,
                QStringLiteral("Die Anwendung \"Wareneingang\" hat das Terminal 5.2 s lang blockiert "
                               "(ReceivingModel)."),
                QStringLiteral("Wareneingang"));
            terminal.instrument.setNoticeOffersClose(true);
        });
    row("coarse-calculated", names({"coarseMark", "calculatedMark", "value"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.display.setIsGrobRange(true);
        terminal.display.setIsCalculated(true);
        terminal.display.setMesswert(QStringLiteral("2815"));
        terminal.display.setMesswertKleinVisible(true);
        terminal.display.setIsGrobRangeKlein(true);
        terminal.display.setBargraphValue(88);
        terminal.startApplication();
    });
    row("reduced-digits", names({"value", "smallDisplay"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.display.setMesswert(QStringLiteral("1284.6"));
        terminal.display.setResoluionReduction(2);
        terminal.display.setMesswertKlein(QStringLiteral("1.2"));
        terminal.display.setResoluionReductionKlein(1);
        terminal.display.setMesswertKleinVisible(true);
        terminal.startApplication();
    });
    row("verification-digit", names({"value"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.display.setMesswert(QStringLiteral("1284.63"));
        terminal.display.setEichDigit(1);
        terminal.startApplication();
    });
    row("many-actions", names({"pageKey", "action:a0", "action:a5"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.startApplication();
        terminal.instrument.actions()->setActions(
            {{QStringLiteral("a0"), QStringLiteral("Zero")},
             {QStringLiteral("a1"), QStringLiteral("Tare")},
             {QStringLiteral("a2"), QStringLiteral("Auto tare"), true, true, 1, 1},
             {QStringLiteral("a3"), QStringLiteral("Filter"), true, true, 1, 2},
             {QStringLiteral("a4"), QStringLiteral("Tolerance check"), true, true, 0, 1},
             {QStringLiteral("a5"), QStringLiteral("Mittelwert\u00ADbildung starten"), false},
             {QStringLiteral("a6"), QStringLiteral("Record")},
             {QStringLiteral("a7"), QStringLiteral("Clear")},
             {QStringLiteral("a8"), QStringLiteral("Settings")}});
        terminal.instrument.setPrintEnabled(false);
    });
    row("no-application", names({"noApplication", "value", "action:zero", "action:tare"}),
        [](TerminalFixture& terminal) { terminal.bench.setLoad(0); });
    row("no-application-faults", names({"pluginFaults", "faultsKey"}), [](TerminalFixture& terminal) {
        terminal.bench.setPluginFaults(
            {QStringLiteral("Loading /opt/plugins/counting.so failed: the plug-in needs the symbol "
                            "\"_ZN8Brimvale10PluginBase9FillThingEv\", which this library (1.0.0) does not "
                            "have.\nBuild the plug-in against the installed SDK."),
             QStringLiteral("Loading /opt/plugins/readme.txt failed: this is no plug-in file.")});
    });
    row("screen-broken", names({"screenFault"}), [](TerminalFixture& terminal) {
        terminal.startApplication(QStringLiteral("BrokenScreen.qml"));
        terminal.instrument.setInfoItems(infoItems(&terminal.standIn));
    });
    row("menu-open", names({"applicationList"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.startApplication();
        terminal.instrument.setPlugins(
            {{QStringLiteral("a"), QStringLiteral("Receiving goods"), QString(), true},
             {QStringLiteral("b"), QStringLiteral("Counting"), QString(), false},
             {QStringLiteral("c"), QStringLiteral("Checkweighing with tolerance bands and statistics"),
              QString(), false}});
        QVERIFY(terminal.tap(QStringLiteral("applicationKey")));
    });
    row("long-texts", names({"value", "notice"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.startApplication();
        terminal.instrument.setPlugins(
            {{QStringLiteral("a"), QStringLiteral("Checkweighing with tolerance bands and statistics"),
              QString(), true}});
        terminal.instrument.setStatusText(QStringLiteral("Supervisor"));
        terminal.instrument.setSicsClients(32);
        terminal.instrument.setSourceText(QStringLiteral("serial:/dev/serial/by-id/usb-converter,9600"));
        terminal.display.setMesswert(QStringLiteral("-12345678.90"));
        terminal.display.setUnit(QStringLiteral("tola"));
        terminal.display.setNetVisible(true);
        terminal.display.setPtVisible(true);
        terminal.display.setNetText(QStringLiteral("NETTO"));
        terminal.display.setPtText(QStringLiteral("PT Hand"));
        terminal.warnings.setLevellingRequiredVisible(true);
        terminal.warnings.setCalibrationRequiredText(
            QStringLiteral("Calibration required: the last adjustment was 400 days ago"));
        terminal.warnings.setCalibrationRequiredVisible(true);
        terminal.instrument.showNotice(
            InstrumentModel::Severity::Error,
            QStringLiteral(
                "The protocol printer at printer.example.org does not answer; the print-out of the "
                "last weighing is kept and will be sent as soon as the printer is reachable again"),
            QStringLiteral("Printing failed"));
        terminal.instrument.setInfoItems(
            {new InfoboxListItem(&terminal.standIn,
                                 QStringLiteral("A group with a very long title indeed, really"),
                                 QStringLiteral("A rather long title"),
                                 QStringLiteral("and a value that does not fit"), true, true, false),
             new InfoboxListItem(&terminal.standIn, QString(), QString(), QStringLiteral("left-aligned text"),
                                 false, false, false)});
    });
    row("german", names({"value", "levellingWarning"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.instrument.setLanguage(QStringLiteral("de"));
        terminal.instrument.setSourceText(QStringLiteral("Simulierte Waage"));
        terminal.instrument.setDateTimeText(QStringLiteral("05.03.2024  14:07"));
        terminal.warnings.setLevellingRequiredVisible(true);
        terminal.display.setNetVisible(true);
        terminal.display.setPtVisible(true);
        terminal.display.setIsGrobRange(true);
        terminal.startApplication();
        terminal.instrument.showNotice(InstrumentModel::Severity::Info,
                                       QStringLiteral("Der Messwert wurde gedruckt."));
    });
    row("german-no-connection", names({"errorText", "noApplication"}), [](TerminalFixture& terminal) {
        terminal.instrument.setLanguage(QStringLiteral("de"));
        terminal.instrument.setSourceOk(false);
        terminal.instrument.setSourceText(QStringLiteral("tcp:localhost:4305"));
        terminal.bench.setAvailable(false);
    });
    row("invalid", names({"value"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.display.setIsValid(false);
        terminal.startApplication();
    });
    row("bench-printer", names({"benchTab:printer", "benchPrinterPage"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.bench.setPage(QStringLiteral("printer"));
        terminal.startApplication();
    });
    row("workflow-step",
        names({"workflowPanel", "workflowProgress", "workflowLine1", "workflowLine2", "workflowState",
               "action:workflow.continue", "action:workflow.abort", "infoArea"}),
        [](TerminalFixture& terminal) {
            showWorkflow(terminal, WorkflowView::Full);
            terminal.instrument.setInfoItems(infoItems(&terminal.standIn));
        });
    row("workflow-result",
        names({"workflowPanel", "workflowImage", "workflowResult1", "workflowResult2", "workflowAuxiliary"}),
        [](TerminalFixture& terminal) {
            WorkflowView view = showWorkflow(terminal, WorkflowView::Full);
            view.image = QStringLiteral(TERMINAL_TEST_DATA "/vessel.svg");
            view.waiting.clear();
            view.auxiliaryOn = true;
            view.result1 = new InfoValueUnit(&terminal.standIn, true, QStringLiteral("Weighed in"),
                                             QStringLiteral("125.4"), QStringLiteral("g"));
            view.result2 = new InfoValueUnit(&terminal.standIn, true, QStringLiteral("Deviation"),
                                             QStringLiteral("+0.3"), QStringLiteral("%"));
            terminal.workflow.setView(view);
        });
    row("workflow-fault", names({"workflowPanel", "workflowState", "action:workflow.repeat"}),
        [](TerminalFixture& terminal) {
            WorkflowView view = showWorkflow(terminal, WorkflowView::Full);
            view.fault =
                QStringLiteral("\"Weigh in\" has not finished after 60 s. It may still do so; otherwise "
                               "repeat it or abort.");
            terminal.workflow.setView(view);
        });
    row("workflow-band", names({"workflowPanel", "workflowLine1", "workflowState", "pluginArea"}),
        [](TerminalFixture& terminal) {
            figures(terminal);
            showWorkflow(terminal, WorkflowView::Band);
        });
    row("bench-printer-roll", names({"printerState", "printerFault:ok", "tearOff", "paper"}),
        [](TerminalFixture& terminal) {
            Printer* const printer = usePrinter(terminal);
            printer->queue.submit(delivery(24));
        });
    row("bench-printer-roll-40", names({"paper"}), [](TerminalFixture& terminal) {
        Printer* const printer = usePrinter(terminal);
        for (int count = 0; count < 3; ++count)
            printer->queue.submit(delivery(40));
    });
    row("bench-printer-roll-80", names({"paper"}),
        [](TerminalFixture& terminal) { usePrinter(terminal)->queue.submit(delivery(80)); });
    row("bench-printer-paper-out",
        names({"printQueue", "repeatPrint:2", "deletePrint:2", "deletePrint:3", "tearOff"}),
        [](TerminalFixture& terminal) {
            Printer* const printer = usePrinter(terminal);
            printer->queue.submit(delivery(24));
            printer->queue.setFault(PrinterFault::PaperOut);
            printer->queue.submit(delivery(24));
            printer->queue.submit(delivery(24));
        });
    row("bench-printer-file-german", names({"printerState", "printerFault:slow", "printQueue"}),
        [](TerminalFixture& terminal) {
            Printer* const printer = usePrinter(terminal);
            terminal.instrument.setLanguage(QStringLiteral("de"));
            printer->queue.setPrinter(
                std::make_unique<FilePrinter>(QStringLiteral("/var/spool/weighing/print-outs.txt")));
            printer->queue.setFault(PrinterFault::Offline);
            printer->queue.submit(delivery(24));
            printer->model.retranslate();
        });
    row("without-bench", names({"value"}), [](TerminalFixture& terminal) {
        figures(terminal);
        terminal.window.setBenchVisible(false);
        terminal.startApplication();
    });
}

void tst_UiPictures::state()
{
    QFETCH(Preparation, prepare);
    QFETCH(QStringList, shown);

    TerminalFixture terminal;
    QString error;
    QVERIFY2(terminal.window.load(&error), qPrintable(error));
    prepare(terminal);

    const QString file =
        QDir(m_directory).filePath(QString::fromUtf8(QTest::currentDataTag()) + QStringLiteral(".png"));
    QVERIFY2(terminal.window.grab(file, &error), qPrintable(error));
    QCOMPARE(QImage(file).size(), terminal.window.size());
    for (const QString& name : qAsConst(shown)) {
        QVERIFY2(terminal.shown(name), qPrintable(name));
    }
    QCOMPARE(terminal.window.takeQmlWarnings(), QStringList());
}

void tst_UiPictures::pdf_data()
{
    QTest::addColumn<int>("columns");
    for (const int columns : {24, 40, 80})
        QTest::addRow("%d columns", columns) << columns;
}

/// A print-out as a PDF file, kept beside the pictures.
void tst_UiPictures::pdf()
{
    QFETCH(int, columns);
    VirtualClock clock;
    PrintQueue queue(clock);
    const QString name = QStringLiteral("%1/print-out-%2.pdf").arg(m_directory).arg(columns);
    QFile::remove(name);
    queue.setPrinter(std::make_unique<PdfPrinter>(name, [&clock] { return clock.dateTime(); }));
    QVERIFY(queue.submit(delivery(columns)));
    QCOMPARE(queue.printedCount(), 1);
    QVERIFY(QFile::exists(name));
}

QTEST_MAIN(tst_UiPictures)
#include "tst_uipictures.moc"
