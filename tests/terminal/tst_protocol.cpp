// SPDX-License-Identifier: BSD-3-Clause
#include "HostFixture.h"
#include "IMenuList.h"
#include "PrintItemCurrentMeasurement.h"
#include "PrintableItemBase.h"
#include "TriggerBase.h"
#include "host/MenuItem.h"
#include "print/Formatter.h"
#include "print/PrintJob.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <stdexcept>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

const ProtocolAreas EveryArea =
    ProtocolArea::Header | ProtocolArea::Body | ProtocolArea::Footer | ProtocolArea::Sics;

/// A print item that tells what is done with it, and does what the test says.
class TestItem : public PrintableItemBase
{
public:
    TestItem(QStringList& calls, const char* uid, int rank = 2, ProtocolAreas areas = ProtocolArea::Body,
             ProtocolTypes types = ProtocolType::Measurement)
        : PrintableItemBase(nullptr)
        , m_calls(calls)
    {
        setUid(QLatin1String(uid));
        setRank(rank);
        setProtocolArea(areas);
        setEnable(types);
    }

    QString getName() const override { return QStringLiteral("Item ") + getUId(); }
    bool isEnabled(QFlags<ProtocolType> types) const override
    {
        if (throwsWhenAsked) {
            throw std::runtime_error("asked");
        }
        return PrintableItemBase::isEnabled(types);
    }
    void setValue() override
    {
        m_calls.append(QStringLiteral("setValue ") + getUId());
        if (onSetValue) {
            onSetValue();
        }
    }
    bool Print(IPrinter* printer, IFormat* format) override
    {
        m_calls.append(QStringLiteral("Print ") + getUId());
        if (onPrint) {
            onPrint();
        }
        if (!works) {
            return false;
        }
        return printer->PrintLine(format->FormatText(printer->GetPrintLayout(), getUId()));
    }

    bool works = true;
    bool throwsWhenAsked = false;
    std::function<void()> onSetValue;
    std::function<void()> onPrint;

private:
    QStringList& m_calls;
};

/// A trigger that the test holds in its hand.
class TestTrigger : public TriggerBase
{
public:
    explicit TestTrigger(const char* uid, ProtocolAreas areas = EveryArea,
                         ApplicationType type = ApplicationType::Any)
        : TriggerBase(nullptr)
    {
        setUid(QLatin1String(uid));
        setProtocolArea(areas);
        setApplicationType(type);
    }
    QString getName() const override { return QStringLiteral("Trigger ") + getUId(); }
    bool Check() override { return check; }
    void setRunning(bool on) override { running = on; }
    bool isRunning() override { return running; }
    bool isValueAvailable() override { return valueAvailable; }

    bool check = true;
    bool running = false;
    bool valueAvailable = true;
};

} // namespace

/// The protocol of the active application: what is printed, in which order, when, and what happens when it fails.
class tst_Protocol : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void snapshotsComeBeforeAllPrints();
    void onlyTheChosenItemsArePrinted();
    void onlyItemsOfTheTypeAndAreaAreOffered_data();
    void onlyItemsOfTheTypeAndAreaAreOffered();
    void everythingIsHeaderBodyAndFooter();
    void itemsAreSortedByCategoryAndUid();
    void anItemThatAnswersDifferentlyEveryTimeIsSorted();

    void theFirstFailureStopsTheProtocol_data();
    void theFirstFailureStopsTheProtocol();
    void anItemThatCannotBeAskedStopsTheProtocol();
    void anItemWithdrawnMeanwhileStopsTheProtocol();
    void anItemDeletedMeanwhileStopsTheProtocol();
    void aProtocolWithinAProtocolIsRefused();

    void withoutItemsANoticeSaysSo();
    void withoutAPrinterANoticeSaysSo();
    void anOutputThatRefusesGivesANotice();
    void chosenItemsThatAreNotOfferedGiveANotice();

    void sicsAnswersAreMadeInTheirFormat();
    void theJobHasTheChosenLayout();

    void theTerminalsItemsPrintClockAndSettings_data();
    void theTerminalsItemsPrintClockAndSettings();

    void printKeyPrintsAfterTheTransfer();
    void printKeyWithoutItemsOnlyTransfers();
    void anotherTriggerLeavesThePrintKeyToTheTransfer();
    void aTransferWithoutARequestPrintsNothing();
    void aRefusedRequestIsForgotten();
    void aLaterTransferIsReported_data();
    void aLaterTransferIsReported();

    void theChosenTriggerRunsAndStartsTheProtocol();
    void aTriggerThatIsNotReadyStartsNothing_data();
    void aTriggerThatIsNotReadyStartsNothing();
    void triggersOfOtherAreasAndApplicationsAreNotOffered();
    void aWithdrawnTriggerIsStopped();

    void aChangeOfLoadPrints();
    void aFaultOfTheScaleIsNoChangeOfLoad();
    void taringIsNoChangeOfLoad();
    void theLoadOnTheScaleAtTheStartIsNoChange();

    void theChoiceIsKeptPerApplicationAndSurvives();
    void anUnreadableChoiceIsTheDefault();

    void theMenuShowsAndSetsTheChoice();
    void theMenuOutlivesTheProtocol();

private:
    Protocol& protocol() { return m_fixture->host->protocol(); }
    ProtocolPool& pool() { return m_fixture->host->protocolPool(); }
    void useHost(const HostSettings& settings = {});
    TestItem* add(const char* uid, int rank = 2, ProtocolAreas areas = ProtocolArea::Body,
                  ProtocolTypes types = ProtocolType::Measurement)
    {
        m_items.push_back(std::make_unique<TestItem>(m_calls, uid, rank, areas, types));
        pool().AddItem(m_items.back().get());
        return m_items.back().get();
    }
    void choose(const QStringList& uids, ProtocolPart part = ProtocolPart::Whole,
                const QString& trigger = Protocol::printKeyUid(),
                ProtocolType type = ProtocolType::Measurement)
    {
        ProtocolChoice choice;
        choice.items = uids;
        choice.part = part;
        choice.type = type;
        choice.trigger = trigger;
        protocol().setChoice(choice);
    }
    void transfer()
    {
        protocol().onTransferred();
        protocol().onTransferFinished();
    }
    QString offered()
    {
        QStringList uids;
        for (const ProtocolEntry& entry : protocol().entries()) {
            if (!entry.uid.startsWith(QLatin1String("terminal."))) {
                uids.append(entry.uid);
            }
        }
        return uids.join(QLatin1Char(' '));
    }
    QString offeredTriggers()
    {
        QStringList uids;
        for (const ProtocolTriggerEntry& entry : protocol().triggers()) {
            uids.append(entry.uid);
        }
        return uids.join(QLatin1Char(' '));
    }
    static QStringList uids(const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); }

    std::unique_ptr<HostFixture> m_fixture;
    std::vector<std::unique_ptr<TestItem>> m_items;
    QStringList m_calls;
    Formatter m_formatter;
    QVector<PrintJob> m_jobs;
    QString m_fault; ///< Of the output; empty: it takes print-outs over.
};

void tst_Protocol::useHost(const HostSettings& settings)
{
    m_fixture = std::make_unique<HostFixture>(settings);
    protocol().setOutput(m_formatter, [this](const PrintJob& job, QString* error) {
        if (!m_fault.isEmpty()) {
            *error = m_fault;
            return false;
        }
        m_jobs.append(job);
        return true;
    });
}

void tst_Protocol::init()
{
    m_calls.clear();
    m_jobs.clear();
    m_fault.clear();
    useHost();
}

void tst_Protocol::cleanup()
{
    m_fixture.reset();
    m_items.clear();
}

void tst_Protocol::snapshotsComeBeforeAllPrints()
{
    add("b");
    add("a");
    choose(uids("a b"));
    QVERIFY(protocol().print());
    QCOMPARE(m_calls, (QStringList{QStringLiteral("setValue a"), QStringLiteral("setValue b"),
                                   QStringLiteral("Print a"), QStringLiteral("Print b")}));
    QCOMPARE(m_jobs.size(), 1);
    QCOMPARE(m_jobs.at(0).text(), QStringLiteral("a\nb\n"));
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_Protocol::onlyTheChosenItemsArePrinted()
{
    add("a");
    add("b");
    add("c");
    choose(uids("c a"));
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(0).text(), QStringLiteral("a\nc\n"));
    QVERIFY(!m_calls.contains(QStringLiteral("setValue b")));
    protocol().setChosen(QStringLiteral("a"), false);
    protocol().setChosen(QStringLiteral("b"), true);
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(1).text(), QStringLiteral("b\nc\n"));
}

void tst_Protocol::onlyItemsOfTheTypeAndAreaAreOffered_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("part");
    QTest::addColumn<QString>("offered");
    const auto row = [](const char* name, ProtocolType type, ProtocolPart part, const char* offered) {
        QTest::newRow(name) << int(type) << int(part) << QString::fromLatin1(offered);
    };
    // An item that is available in several areas stands in the first.
    row("everything", ProtocolType::Measurement, ProtocolPart::Whole, "all header body footer");
    row("header", ProtocolType::Measurement, ProtocolPart::Header, "all header");
    row("values", ProtocolType::Measurement, ProtocolPart::Body, "all body");
    row("footer", ProtocolType::Measurement, ProtocolPart::Footer, "all footer");
    row("SICS", ProtocolType::Measurement, ProtocolPart::Sics, "all sics");
    row("series", ProtocolType::Series, ProtocolPart::Whole, "all series");
    row("a kind of none", ProtocolType::Calibration, ProtocolPart::Whole, "all");
}

void tst_Protocol::onlyItemsOfTheTypeAndAreaAreOffered()
{
    QFETCH(int, type);
    QFETCH(int, part);
    add("sics", 2, ProtocolArea::Sics);
    add("footer", 2, ProtocolArea::Footer);
    add("body", 2, ProtocolArea::Body);
    add("header", 1, ProtocolArea::Header);
    add("series", 2, ProtocolArea::Body, ProtocolType::Series);
    add("nowhere", 2, ProtocolAreas());
    add("never", 2, EveryArea, ProtocolTypes());
    add("all", 1, EveryArea,
        ProtocolType::Measurement | ProtocolType::Series | ProtocolType::Summary | ProtocolType::Calibration
            | ProtocolType::Workflow);
    choose(QStringList(), static_cast<ProtocolPart>(part), Protocol::printKeyUid(),
           static_cast<ProtocolType>(type));
    QTEST(offered(), "offered");
}

void tst_Protocol::everythingIsHeaderBodyAndFooter()
{
    add("1", 11, ProtocolArea::Header);
    add("2", 2, ProtocolArea::Body | ProtocolArea::Footer);
    add("3", 0, ProtocolArea::Footer);
    choose(uids("3 2 1"));
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(0).text(), QStringLiteral("1\n2\n3\n"));
}

void tst_Protocol::itemsAreSortedByCategoryAndUid()
{
    add("b", 2);
    add("a", 104);
    add("c", 0);
    add("B", 2);
    add("z", 1);
    QCOMPARE(offered(), QStringLiteral("c z B b a"));
}

void tst_Protocol::anItemThatAnswersDifferentlyEveryTimeIsSorted()
{
    class Restless : public TestItem
    {
    public:
        using TestItem::TestItem;
        int getRank() const override { return m_rank = (m_rank * 7 + 3) % 12; }

    private:
        mutable int m_rank = 1;
    };
    std::vector<std::unique_ptr<Restless>> items;
    for (int i = 0; i < 200; ++i) {
        items.push_back(std::make_unique<Restless>(m_calls, "x"));
        pool().AddItem(items.back().get());
    }
    QCOMPARE(offered().count(QLatin1Char('x')), 200);
}

void tst_Protocol::theFirstFailureStopsTheProtocol_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("notice");
    QTest::addColumn<QString>("last");
    QTest::newRow("false") << QStringLiteral("false")
                           << QStringLiteral("error: Nothing was printed: \"Item b\" could not be printed.")
                           << QStringLiteral("Print b");
    QTest::newRow("exception in Print")
        << QStringLiteral("print")
        << QStringLiteral("error: Nothing was printed: \"Item b\" failed: std::runtime_error: broken")
        << QStringLiteral("Print b");
    QTest::newRow("exception in setValue")
        << QStringLiteral("value")
        << QStringLiteral("error: Nothing was printed: \"Item b\" failed: std::runtime_error: broken")
        << QStringLiteral("setValue b");
}

void tst_Protocol::theFirstFailureStopsTheProtocol()
{
    QFETCH(QString, where);
    add("a");
    TestItem* const faulty = add("b");
    add("c");
    choose(uids("a b c"));
    const auto fail = [] { throw std::runtime_error("broken"); };
    if (where == QLatin1String("false")) {
        faulty->works = false;
    } else if (where == QLatin1String("print")) {
        faulty->onPrint = fail;
    } else {
        faulty->onSetValue = fail;
    }
    QVERIFY(!protocol().print());
    QTEST(m_fixture->notices.join(QLatin1Char('\n')), "notice");
    QTEST(m_calls.last(), "last");
    QCOMPARE(m_jobs.size(), 0);

    // The next one is not affected.
    faulty->works = true;
    faulty->onPrint = nullptr;
    faulty->onSetValue = nullptr;
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.size(), 1);
}

void tst_Protocol::anItemThatCannotBeAskedStopsTheProtocol()
{
    add("a");
    add("b")->throwsWhenAsked = true;
    choose(uids("a b"));
    QVERIFY(!protocol().print());
    QCOMPARE(m_fixture->notices.last(),
             QStringLiteral("error: Nothing was printed: A print item of the application could not be asked: "
                            "std::runtime_error: asked"));
    QCOMPARE(m_jobs.size(), 0);
    // It is not offered, and the others are.
    QCOMPARE(offered(), QStringLiteral("a"));
}

void tst_Protocol::anItemWithdrawnMeanwhileStopsTheProtocol()
{
    TestItem* const first = add("a");
    TestItem* const second = add("b");
    choose(uids("a b"));
    first->onPrint = [&] { pool().RemoveItem(second); };
    QVERIFY(!protocol().print());
    QCOMPARE(
        m_fixture->notices,
        QStringList{QStringLiteral("error: Nothing was printed: \"Item b\" was withdrawn while the protocol "
                                   "was printed.")});
    QVERIFY(!m_calls.contains(QStringLiteral("Print b")));
}

void tst_Protocol::anItemDeletedMeanwhileStopsTheProtocol()
{
    TestItem* const first = add("a");
    add("b");
    choose(uids("a b"));
    first->onSetValue = [&] { m_items.pop_back(); };
    QVERIFY(!protocol().print());
    QCOMPARE(
        m_fixture->notices,
        QStringList{QStringLiteral("error: Nothing was printed: \"Item b\" was withdrawn while the protocol "
                                   "was printed.")});
}

void tst_Protocol::aProtocolWithinAProtocolIsRefused()
{
    add("a")->onPrint = [&] { QVERIFY(!protocol().print()); };
    choose(uids("a"));
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.size(), 1);
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral(
                 "warning: The protocol was not printed: a protocol is being printed already.")});
}

void tst_Protocol::withoutItemsANoticeSaysSo()
{
    add("a");
    QVERIFY(!protocol().print());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: The protocol was not printed: no items are chosen for it. "
                                        "Choose them in the protocol menu.")});
}

void tst_Protocol::withoutAPrinterANoticeSaysSo()
{
    m_fixture = std::make_unique<HostFixture>();
    add("a");
    choose(uids("a"));
    QVERIFY(!protocol().print());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: The protocol was not printed: there is no printer.")});
}

void tst_Protocol::anOutputThatRefusesGivesANotice()
{
    add("a");
    choose(uids("a"));
    m_fault = QStringLiteral("The queue is full.");
    QVERIFY(!protocol().print());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: The protocol was not printed: The queue is full.")});
}

void tst_Protocol::chosenItemsThatAreNotOfferedGiveANotice()
{
    add("a", 2, ProtocolArea::Footer);
    choose(uids("a gone"), ProtocolPart::Header);
    QVERIFY(!protocol().print());
    QCOMPARE(m_fixture->notices,
             QStringList{
                 QStringLiteral("warning: The protocol was not printed: none of the chosen items is offered "
                                "for \"Single weighing\", \"Header\". Choose others in the protocol menu.")});
}

void tst_Protocol::sicsAnswersAreMadeInTheirFormat()
{
    MesswertData weight;
    weight.messwert = QStringLiteral("36.4");
    weight.unit = QStringLiteral("g");
    weight.isValid = true;
    weight.isStable = true;
    PrintItemCurrentMeasurement item(nullptr, QStringLiteral("weight"), &weight,
                                     {ProtocolType::Measurement, EveryArea}, false,
                                     &m_fixture->host->system());
    pool().AddItem(&item);
    choose(uids("weight"), ProtocolPart::Sics);
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(0).format(), PrintFormat::Sics);
    QCOMPARE(m_jobs.at(0).text(), QStringLiteral("S S       36.4 g\n"));
    // Only while it is printed.
    QCOMPARE(m_fixture->host->system().GetProtocolFormatName(), QStringLiteral("text"));

    choose(uids("weight"), ProtocolPart::Body);
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(1).format(), PrintFormat::Paper);
    QVERIFY(m_jobs.at(1).text().contains(QStringLiteral(" 36.4 g")));
    QVERIFY(!m_jobs.at(1).text().startsWith(QLatin1Char('S')));
}

void tst_Protocol::theJobHasTheChosenLayout()
{
    add("a");
    choose(uids("a"));
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(0).layout(), PrintJob::DefaultLayout);
    protocol().setLayout(24);
    QVERIFY(protocol().print());
    QCOMPARE(m_jobs.at(1).layout(), 24);
}

void tst_Protocol::theTerminalsItemsPrintClockAndSettings_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("operatorName");
    QTest::addColumn<QString>("serialNumber");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("English") << QStringLiteral("en") << QStringLiteral("Ada") << QStringLiteral("B-17")
                             << QStringList{QStringLiteral("2026-01-01"), QStringLiteral("08:00:00"),
                                            QStringLiteral("Ada"), QStringLiteral("B-17")};
    QTest::newRow("German") << QStringLiteral("de") << QStringLiteral("Jörg") << QStringLiteral("B-17")
                            << QStringList{QStringLiteral("01.01.2026"), QStringLiteral("08:00:00"),
                                           QStringLiteral("Jörg"), QStringLiteral("B-17")};
    QTest::newRow("nothing is set") << QStringLiteral("en") << QString() << QString()
                                    << QStringList{QStringLiteral("2026-01-01"), QStringLiteral("08:00:00"),
                                                   QStringLiteral("-"), QStringLiteral("-")};
}

void tst_Protocol::theTerminalsItemsPrintClockAndSettings()
{
    QFETCH(QString, language);
    QFETCH(QString, operatorName);
    QFETCH(QString, serialNumber);
    QFETCH(QStringList, texts);
    protocol().terminalItems().setLanguage(language);
    protocol().terminalItems().setOperatorName(operatorName);
    protocol().terminalItems().setSerialNumber(serialNumber);
    choose(uids("terminal.date terminal.time terminal.user terminal.serial"));
    QVERIFY(protocol().print());
    const QStringList names{QStringLiteral("Date"), QStringLiteral("Time"), QStringLiteral("Operator"),
                            QStringLiteral("Serial number")};
    const QStringList lines = m_jobs.at(0).text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), names.size());
    for (int i = 0; i < names.size(); ++i) {
        QVERIFY2(lines.at(i).startsWith(names.at(i)), qPrintable(lines.at(i)));
        QVERIFY2(lines.at(i).endsWith(QLatin1Char(' ') + texts.at(i)), qPrintable(lines.at(i)));
    }
}

void tst_Protocol::printKeyPrintsAfterTheTransfer()
{
    struct Screen : TransferOutput
    {
        bool isActive() const override { return true; }
        bool write(const TransferRecord&) override { return true; }
    };
    m_fixture->settle(36.4);
    m_fixture->host->setOutput(2, std::make_unique<Screen>());
    int transfersBefore = -1;
    add("a")->onSetValue = [&] { transfersBefore = m_fixture->host->measurementTransfer().records().size(); };
    choose(uids("a"));
    QVERIFY(m_fixture->host->pressPrint());
    QCOMPARE(transfersBefore, 1);
    QCOMPARE(m_jobs.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(m_jobs.size(), 1); // once, although the end of the transfer is waited for in two ways
}

void tst_Protocol::printKeyWithoutItemsOnlyTransfers()
{
    protocol().requestByPrintKey();
    transfer();
    QCOMPARE(m_jobs.size(), 0);
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_Protocol::anotherTriggerLeavesThePrintKeyToTheTransfer()
{
    add("a");
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("terminal.loadChange"));
    protocol().requestByPrintKey();
    transfer();
    QCOMPARE(m_jobs.size(), 0);
}

void tst_Protocol::aTransferWithoutARequestPrintsNothing()
{
    add("a");
    choose(uids("a"));
    transfer();
    QCoreApplication::processEvents();
    QCOMPARE(m_jobs.size(), 0);
    // A request is good for one transfer.
    protocol().requestByPrintKey();
    protocol().onTransferFinished();
    QCOMPARE(m_jobs.size(), 0);
    transfer();
    transfer();
    QCOMPARE(m_jobs.size(), 1);
}

void tst_Protocol::aRefusedRequestIsForgotten()
{
    add("a");
    choose(uids("a"));
    protocol().requestByPrintKey();
    protocol().endRequest(); // without a transfer
    transfer();
    QCoreApplication::processEvents();
    QCOMPARE(m_jobs.size(), 0);
}

void tst_Protocol::aLaterTransferIsReported_data()
{
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<QString>("event");
    QTest::addColumn<int>("printed");
    QTest::newRow("print key") << Protocol::printKeyUid() << QStringLiteral("printPressed") << 1;
    QTest::newRow("another event") << Protocol::printKeyUid() << QStringLiteral("opened") << 0;
    QTest::newRow("another trigger") << QStringLiteral("terminal.loadChange")
                                     << QStringLiteral("printPressed") << 0;
}

/// The application has waited for a stable weight.
void tst_Protocol::aLaterTransferIsReported()
{
    QFETCH(QString, trigger);
    QFETCH(QString, event);
    QFETCH(int, printed);
    add("a");
    choose(uids("a"), ProtocolPart::Whole, trigger);
    protocol().requestByPrintKey();
    protocol().endRequest();
    protocol().onTransferred();
    m_fixture->host->sequencer().NotifyHostEvent(event);
    QCOMPARE(m_jobs.size(), 0); // It follows the transfer.
    protocol().onTransferFinished();
    QCOMPARE(m_jobs.size(), printed);
    QCoreApplication::processEvents();
    QCOMPARE(m_jobs.size(), printed);
}

void tst_Protocol::theChosenTriggerRunsAndStartsTheProtocol()
{
    TestTrigger chosen("chosen");
    TestTrigger other("other");
    add("a");
    pool().AddTrigger(&chosen);
    pool().AddTrigger(&other);
    QCOMPARE(offeredTriggers(), QStringLiteral("terminal.printKey terminal.loadChange chosen other"));
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("chosen"));
    QVERIFY(chosen.running);
    QVERIFY(!other.running);
    other.doTrigger();
    QCOMPARE(m_jobs.size(), 0);
    chosen.doTrigger();
    QCOMPARE(m_jobs.size(), 1);

    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("other"));
    QVERIFY(!chosen.running);
    QVERIFY(other.running);
    chosen.doTrigger();
    QCOMPARE(m_jobs.size(), 1);
    other.doTrigger();
    QCOMPARE(m_jobs.size(), 2);
}

void tst_Protocol::aTriggerThatIsNotReadyStartsNothing_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QStringList>("notices");
    QTest::newRow("its condition does not hold") << QStringLiteral("check") << QStringList();
    QTest::newRow("it does not run") << QStringLiteral("running") << QStringList();
    QTest::newRow("there is no value")
        << QStringLiteral("value")
        << QStringList{
               QStringLiteral("warning: The protocol was not printed: \"Trigger t\" has no value yet.")};
}

void tst_Protocol::aTriggerThatIsNotReadyStartsNothing()
{
    QFETCH(QString, what);
    TestTrigger trigger("t");
    add("a");
    pool().AddTrigger(&trigger);
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("t"));
    trigger.check = what != QLatin1String("check");
    trigger.running = what != QLatin1String("running");
    trigger.valueAvailable = what != QLatin1String("value");
    trigger.doTrigger();
    QCOMPARE(m_jobs.size(), 0);
    QTEST(m_fixture->notices, "notices");
}

void tst_Protocol::triggersOfOtherAreasAndApplicationsAreNotOffered()
{
    TestTrigger body("body", ProtocolArea::Body);
    TestTrigger sics("sics", ProtocolArea::Sics);
    TestTrigger control("control", EveryArea, ApplicationType::Control);
    for (TestTrigger* const trigger : {&body, &sics, &control}) {
        pool().AddTrigger(trigger);
    }
    QCOMPARE(offeredTriggers(), QStringLiteral("terminal.printKey terminal.loadChange body"));
    choose({}, ProtocolPart::Sics);
    QCOMPARE(offeredTriggers(), QStringLiteral("terminal.printKey terminal.loadChange sics"));
    protocol().setApplication(QStringLiteral("c"), ApplicationType::Control, QString());
    choose({}, ProtocolPart::Footer);
    QCOMPARE(offeredTriggers(), QStringLiteral("terminal.printKey terminal.loadChange control"));
}

void tst_Protocol::aWithdrawnTriggerIsStopped()
{
    TestTrigger trigger("t");
    add("a");
    pool().AddTrigger(&trigger);
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("t"));
    QVERIFY(trigger.running);
    pool().RemoveTrigger(&trigger);
    QVERIFY(!trigger.running);
    trigger.running = true;
    trigger.doTrigger();
    QCOMPARE(m_jobs.size(), 0);
}

void tst_Protocol::aChangeOfLoadPrints()
{
    m_fixture->settle(0.0);
    add("a");
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("terminal.loadChange"));
    m_fixture->settle(0.5); // within the ten increments
    QCOMPARE(m_jobs.size(), 0);
    m_fixture->feed(100.0);
    QCOMPARE(m_jobs.size(), 0); // not at rest
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
    m_fixture->settle(100.5);
    QCOMPARE(m_jobs.size(), 1);
    m_fixture->settle(150.0);
    QCOMPARE(m_jobs.size(), 2);
    m_fixture->settle(0.0); // taken off
    QCOMPARE(m_jobs.size(), 2);
    m_fixture->settle(150.0);
    QCOMPARE(m_jobs.size(), 3);
    choose(uids("a"));
    m_fixture->settle(300.0);
    QCOMPARE(m_jobs.size(), 3);
}

void tst_Protocol::aFaultOfTheScaleIsNoChangeOfLoad()
{
    m_fixture->settle(0.0);
    add("a");
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("terminal.loadChange"));
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
    m_fixture->fail(Reading::Status::Disconnected);
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
}

void tst_Protocol::taringIsNoChangeOfLoad()
{
    m_fixture->settle(0.0);
    add("a");
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("terminal.loadChange"));
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
    // Neither setting nor clearing the tare is one, although the net weight jumps and comes to rest anew.
    QVERIFY(m_fixture->scale.tare());
    m_fixture->feed(100.5);
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
    QVERIFY(m_fixture->scale.clearTare());
    m_fixture->feed(100.5);
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 1);
    // Filling the tared container is.
    QVERIFY(m_fixture->scale.tare());
    m_fixture->settle(150.0);
    QCOMPARE(m_jobs.size(), 2);
}

void tst_Protocol::theLoadOnTheScaleAtTheStartIsNoChange()
{
    m_fixture->settle(100.0);
    add("a");
    choose(uids("a"), ProtocolPart::Whole, QStringLiteral("terminal.loadChange"));
    m_fixture->feed(100.5);
    m_fixture->settle(100.0);
    QCOMPARE(m_jobs.size(), 0);
    m_fixture->settle(200.0);
    QCOMPARE(m_jobs.size(), 1);
}

void tst_Protocol::theChoiceIsKeptPerApplicationAndSurvives()
{
    const QTemporaryDir folder;
    HostSettings settings;
    settings.parameterFile = folder.filePath(QStringLiteral("settings.ini"));
    useHost(settings);
    protocol().setApplication(QStringLiteral("one/1"), ApplicationType::Weighing, QStringLiteral("One"));
    choose({QStringLiteral("a b;c%/ä"), QStringLiteral("x")}, ProtocolPart::Footer,
           QStringLiteral("terminal.loadChange"), ProtocolType::Series);
    const ProtocolChoice first = protocol().choice();
    protocol().setApplication(QStringLiteral("two"), ApplicationType::Weighing, QStringLiteral("Two"));
    QCOMPARE(protocol().choice().items, QStringList());
    QCOMPARE(protocol().choice().trigger, Protocol::printKeyUid());
    choose(uids("y"));

    useHost(settings);
    protocol().setApplication(QStringLiteral("one/1"), ApplicationType::Weighing, QStringLiteral("One"));
    QVERIFY(protocol().choice() == first);
    protocol().setApplication(QStringLiteral("two"), ApplicationType::Weighing, QStringLiteral("Two"));
    QCOMPARE(protocol().choice().items, uids("y"));
    // That of the terminal without an application is another.
    protocol().setApplication(QString(), ApplicationType::Weighing, QString());
    QCOMPARE(protocol().choice().items, QStringList());
    QCOMPARE(m_fixture->notices, QStringList());
}

void tst_Protocol::anUnreadableChoiceIsTheDefault()
{
    for (int index = 0; index < 4; ++index) {
        m_fixture->host->storedParameters().setValue(QStringLiteral("protocol/odd"), QStringLiteral("user"),
                                                     QStringLiteral("protocol"), index,
                                                     index == 3 ? QString() : QStringLiteral("% %zz"));
    }
    protocol().setApplication(QStringLiteral("odd"), ApplicationType::Weighing, QString());
    QCOMPARE(keyOf(protocol().choice().type), QStringLiteral("measurement"));
    QCOMPARE(keyOf(protocol().choice().part), QStringLiteral("whole"));
    QCOMPARE(protocol().choice().trigger, Protocol::printKeyUid());
}

void tst_Protocol::theMenuShowsAndSetsTheChoice()
{
    add("b", 3);
    add("a", 2);
    const std::unique_ptr<IMenuList> menu(
        m_fixture->host->system().GetProtocolMenuFactory()->CreateProtocolMenu(QStringLiteral("Print-outs"),
                                                                               0, false));
    QCOMPARE(menu->GetMenuName(), QStringLiteral("Print-outs"));
    QList<MenuItem> items;
    QVERIFY(menu->GetMenuItemList(&items));
    QStringList texts;
    for (const MenuItem& item : qAsConst(items)) {
        texts.append(QStringLiteral("%1 %2 %3").arg(item.id).arg(item.kind, item.text));
        QVERIFY(menu->IsItemVisible(item.id, nullptr));
        QCOMPARE(menu->GetItemText(item.id), item.text);
    }
    QCOMPARE(texts.mid(0, 3),
             (QStringList{QStringLiteral("1 selection Kind"), QStringLiteral("2 selection Part"),
                          QStringLiteral("3 selection Printed at")}));
    // "Everything" begins with the header, where the terminal's own items stand.
    QCOMPARE(texts.last().section(QLatin1Char(' '), 1), QStringLiteral("bool Item b"));
    QCOMPARE(texts.at(texts.size() - 2).section(QLatin1Char(' '), 1), QStringLiteral("bool Item a"));

    const int a = items.at(items.size() - 2).id;
    QCOMPARE(menu->GetItemValue(a), QVariant(false));
    QVERIFY(menu->SetItemValue(a, true));
    QCOMPARE(menu->GetItemValue(a), QVariant(true));
    QCOMPARE(protocol().choice().items, uids("a"));

    QStringList names;
    QStringList values;
    QVERIFY(menu->GetSelectionList(2, &names, &values));
    QCOMPARE(values.join(QLatin1Char(' ')), QStringLiteral("whole header body footer sics"));
    QVERIFY(menu->SetItemValue(2, QStringLiteral("body")));
    QCOMPARE(protocol().choice().part, ProtocolPart::Body);
    QVERIFY(menu->SetItemValue(1, QStringLiteral("series")));
    QCOMPARE(protocol().choice().type, ProtocolType::Series);
    QVERIFY(!menu->IsItemVisible(a, nullptr)); // not enabled for that kind; its number stays
    QCOMPARE(menu->GetItemValue(a), QVariant(true));
    QVERIFY(menu->SetItemValue(3, QStringLiteral("terminal.loadChange")));
    QCOMPARE(protocol().choice().trigger, QStringLiteral("terminal.loadChange"));
    QCOMPARE(menu->GetIndexFromUniqueNameInSelectionList(3, QStringLiteral("terminal.loadChange")), 1);
    QCOMPARE(menu->GetUniqueNameFromIndexInSelectionList(3, 0), Protocol::printKeyUid());

    QVERIFY(!menu->SetItemValue(2, QStringLiteral("nonsense")));
    QVERIFY(!menu->SetItemValue(3, QStringLiteral("nonsense")));
    QVERIFY(!menu->SetItemValue(a, QStringLiteral("nonsense")));
    QVERIFY(!menu->SetItemValue(9999, true));
    QVERIFY(!menu->GetItemValue(9999).isValid());
    MenuItem item;
    QVERIFY(!menu->GetMenuItemById(9999, &item));
    QVERIFY(!menu->GetItemRange(1, nullptr, nullptr));
}

void tst_Protocol::theMenuOutlivesTheProtocol()
{
    const std::unique_ptr<IMenuList> menu(
        m_fixture->host->system().GetProtocolMenuFactory()->CreateProtocolMenu(QString(), 0, false));
    QCOMPARE(menu->GetMenuName(), QStringLiteral("Protocol"));
    m_fixture.reset();
    QList<MenuItem> items;
    QVERIFY(!menu->GetMenuItemList(&items));
    QVERIFY(!menu->IsItemVisible(1, nullptr));
    QVERIFY(!menu->SetItemValue(1, QStringLiteral("series")));
}

QTEST_GUILESS_MAIN(tst_Protocol)
#include "tst_protocol.moc"
