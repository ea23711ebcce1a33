// SPDX-License-Identifier: BSD-3-Clause
#include "FullDisk.h"
#include "HostFixture.h"
#include "ITransferTarget.h"
#include "host/TransferLog.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Brimvale;
using namespace Brimvale::Terminal;

namespace
{

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// An output that takes or fails as it is told.
class TestOutput : public TransferOutput
{
public:
    explicit TestOutput(bool works = true)
        : m_works(works)
    {
    }
    bool isActive() const override { return m_active; }
    bool write(const TransferRecord& record) override
    {
        taken.append(record.current.messwert);
        m_active = m_works;
        return m_works;
    }
    QString error() const override { return m_active ? QString() : QStringLiteral("The output is broken."); }

    QStringList taken;

private:
    bool m_works;
    bool m_active = true;
};

MesswertData weight(const char* text)
{
    MesswertData data;
    data.messwert = QString::fromLatin1(text);
    data.unit = QStringLiteral("g");
    data.isStable = true;
    return data;
}

} // namespace

/// The transfer of measurements to the outputs, and the print button.
class tst_HostTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutAnOutputNothingIsTaken();
    void everyActiveOutputTakes();
    void aSwitchedOffTransferTakesNothing();
    void aFailedOutputIsReportedAndInactive();
    void recordsAreBounded();
    void theFlagIsKept();

    void targetsSayWhetherAnOutputIsActive();
    void printIsEnabledExactlyWhileAnOutputIsActive();
    void thePluginSwitchesPrintOffAndOn();
    void pressingPrintWithoutAnOutputIsRefused();
    void pressingPrintWithoutAPluginTransfersTheReading();

    void transferLogLines();
    void transferLogQuotesTexts();
    void transferLogContinuesAFile();
    void aTransferLogThatCannotBeOpenedIsASetupError();
    void aTransferLogOnAFullDiskIsReported();
    void whatADiskHasNoRoomForIsWrittenLater();
    void aTransferLogThatVanishesIsBegunAnew();
    void aTransferLogWhoseFolderVanishesKeepsItsLines();

    void printIndicatorGoesOut();
    void observerKeepsTheLastTransfer();

private:
    Host& host() { return *m_fixture->host; }
    bool transfer(const char* text)
    {
        return host().system().GetMeasurementTransfer()->TransferMeasurement(weight(text), weight("100.0"),
                                                                             weight("63.6"));
    }
    void useLog();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<HostFixture> m_fixture;
    QString m_logFile;
};

void tst_HostTransfer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_logFile = m_folder->filePath(QStringLiteral("transfers.csv"));
    m_fixture = std::make_unique<HostFixture>();
    m_fixture->settle(36.4);
}

void tst_HostTransfer::cleanup()
{
    m_fixture.reset();
}

void tst_HostTransfer::useLog()
{
    HostSettings settings;
    settings.transferLog = m_logFile;
    m_fixture = std::make_unique<HostFixture>(settings);
}

void tst_HostTransfer::withoutAnOutputNothingIsTaken()
{
    QSignalSpy transferred(&host(), &Host::transferred);
    QVERIFY(!transfer("36.4"));
    QCOMPARE(transferred.count(), 1);
    const TransferRecord record = host().measurementTransfer().records().at(0);
    QVERIFY(!record.taken);
    QCOMPARE(record.current.messwert, QStringLiteral("36.4"));
    QCOMPARE(record.gross.messwert, QStringLiteral("100.0"));
    QCOMPARE(record.tare.messwert, QStringLiteral("63.6"));
    QCOMPARE(record.time, m_fixture->clock.dateTime());
}

void tst_HostTransfer::everyActiveOutputTakes()
{
    auto first = std::make_unique<TestOutput>();
    auto second = std::make_unique<TestOutput>();
    TestOutput* const outputs[] = {first.get(), second.get()};
    host().setOutput(2, std::move(first));
    host().setOutput(5, std::move(second));
    QVERIFY(transfer("36.4"));
    QCOMPARE(outputs[0]->taken, QStringList{QStringLiteral("36.4")});
    QCOMPARE(outputs[1]->taken, QStringList{QStringLiteral("36.4")});
    QVERIFY(host().measurementTransfer().records().at(0).taken);
}

void tst_HostTransfer::aSwitchedOffTransferTakesNothing()
{
    auto output = std::make_unique<TestOutput>();
    TestOutput* const outputs[] = {output.get()};
    host().setOutput(1, std::move(output));
    host().system().SetHostPrintTransferEnabled(false);
    QVERIFY(!host().system().IsHostPrintTransferEnabled());
    QVERIFY(!transfer("1.0"));
    host().system().SetHostPrintTransferEnabled(true);
    QVERIFY(host().system().IsHostPrintTransferEnabled());
    QVERIFY(transfer("2.0"));
    QCOMPARE(outputs[0]->taken, QStringList{QStringLiteral("2.0")});
}

void tst_HostTransfer::aFailedOutputIsReportedAndInactive()
{
    host().setOutput(3, std::make_unique<TestOutput>(false));
    QVERIFY(host().isPrintEnabled());
    QVERIFY(!transfer("1.0"));
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("error: The output is broken.")});
    QVERIFY(!host().system().GetTransferTarget3()->IsActive());
    QVERIFY(!host().isPrintEnabled());
    QVERIFY(!transfer("2.0"));
    QCOMPARE(m_fixture->notices.size(), 1);
}

void tst_HostTransfer::recordsAreBounded()
{
    for (int i = 0; i <= MeasurementTransfer::MaximumRecords; ++i) {
        transfer(QByteArray::number(i).constData());
    }
    QCOMPARE(host().measurementTransfer().records().size(), int(MeasurementTransfer::MaximumRecords));
    QCOMPARE(host().measurementTransfer().records().first().current.messwert, QStringLiteral("1"));
}

void tst_HostTransfer::theFlagIsKept()
{
    QVERIFY(!host().measurementTransfer().transferFlag());
    host().system().GetMeasurementTransfer()->SetTransferFlag(true);
    QVERIFY(host().measurementTransfer().transferFlag());
}

void tst_HostTransfer::targetsSayWhetherAnOutputIsActive()
{
    ISystem& system = host().system();
    const QList<ITransferTarget*> targets{system.GetTransferTarget1(), system.GetTransferTarget2(),
                                          system.GetTransferTarget3(), system.GetTransferTarget4(),
                                          system.GetTransferTarget5()};
    for (int number = 1; number <= 5; ++number) {
        QVERIFY(!targets.at(number - 1)->IsActive());
        host().setOutput(number, std::make_unique<TestOutput>());
        for (int other = 1; other <= 5; ++other) {
            QCOMPARE(targets.at(other - 1)->IsActive(), other == number);
        }
        host().setOutput(number, nullptr);
    }
}

void tst_HostTransfer::printIsEnabledExactlyWhileAnOutputIsActive()
{
    QSignalSpy changed(&host(), &Host::printEnabledChanged);
    QVERIFY(!host().isPrintEnabled());
    host().setOutput(4, std::make_unique<TestOutput>());
    QVERIFY(host().isPrintEnabled());
    host().setOutput(4, nullptr);
    QVERIFY(!host().isPrintEnabled());
    QCOMPARE(changed.count(), 2);
    // What a plug-in announces without an output is not shown.
    host().workflowManager().onPrintButtonEnableChange(true);
    QVERIFY(!host().isPrintEnabled());
}

void tst_HostTransfer::thePluginSwitchesPrintOffAndOn()
{
    host().setOutput(1, std::make_unique<TestOutput>());
    // As PluginBase::setPrintTransferEnabled(false) does …
    host().system().SetHostPrintTransferEnabled(false);
    host().workflowManager().onPrintButtonEnableChange(false);
    QVERIFY(!host().isPrintEnabled());
    QVERIFY(!host().pressPrint());
    QCOMPARE(m_fixture->notices, QStringList{QStringLiteral("warning: Printing is switched off.")});
    // … and as setPrintTransferEnabled(true), which does not touch the switch itself.
    host().workflowManager().onPrintButtonEnableChange(true);
    QVERIFY(host().isPrintEnabled());
    QVERIFY(host().system().IsHostPrintTransferEnabled());
    QVERIFY(transfer("1.0"));
}

void tst_HostTransfer::pressingPrintWithoutAnOutputIsRefused()
{
    QVERIFY(!host().pressPrint());
    QCOMPARE(m_fixture->notices,
             QStringList{QStringLiteral("warning: There is no output that could take the "
                                        "measurement: neither a printer nor the transfer log is "
                                        "connected.")});
    QVERIFY(host().measurementTransfer().records().isEmpty());
}

void tst_HostTransfer::pressingPrintWithoutAPluginTransfersTheReading()
{
    auto output = std::make_unique<TestOutput>();
    TestOutput* const outputs[] = {output.get()};
    host().setOutput(1, std::move(output));
    QVERIFY(host().pressPrint());
    QCOMPARE(outputs[0]->taken, QStringList{QStringLiteral("36.4")});
}

void tst_HostTransfer::transferLogLines()
{
    useLog();
    QVERIFY(host().setupErrors().isEmpty());
    QVERIFY(host().isPrintEnabled());
    QVERIFY(host().system().GetTransferTarget1()->IsActive());
    m_fixture->settle(100.0);
    QVERIFY(host().weighing().tare());
    m_fixture->settle(136.4);
    QVERIFY(host().pressPrint());
    m_fixture->feed(150.0);
    QVERIFY(host().pressPrint());
    m_fixture->fail(Reading::Status::Overload);
    QVERIFY(host().pressPrint());
    QCOMPARE(contentOf(m_logFile), QByteArray("time,value,unit,state,kind,gross,tare,error\n"
                                              "2026-01-01T08:00:04.000Z,36.4,g,stable,net,136.4,100.0,\n"
                                              "2026-01-01T08:00:04.100Z,50.0,g,unstable,net,150.0,100.0,\n"
                                              "2026-01-01T08:00:04.200Z,,g,unstable,net,,100.0,Overload\n"));
}

void tst_HostTransfer::whatADiskHasNoRoomForIsWrittenLater()
{
    useLog();
    QVERIFY(transfer("1.0"));
    const QByteArray before = contentOf(m_logFile);
    {
        const FullDisk disk(static_cast<rlim_t>(before.size()) + 10);
        QVERIFY(!transfer("2.0"));
        QVERIFY(!transfer("3.0"));
    }
    // Not half a line of it.
    QCOMPARE(contentOf(m_logFile), before);
    QVERIFY(m_fixture->notices.last().contains(m_logFile + QStringLiteral(" cannot be written: ")));
    QVERIFY(m_fixture->notices.last().endsWith(QLatin1String("written with the next measurement: 2.")));
    // The output has not gone: the next measurement is taken, and with it those before.
    QVERIFY(host().isPrintEnabled());
    QVERIFY(transfer("4.0"));
    const QList<QByteArray> lines = contentOf(m_logFile).split('\n');
    QCOMPARE(lines.size(), 6);
    for (int i = 1; i <= 4; ++i) {
        QVERIFY2(lines.at(i).contains("," + QByteArray::number(i) + ".0,"), lines.at(i).constData());
    }
}

void tst_HostTransfer::aTransferLogThatVanishesIsBegunAnew()
{
    useLog();
    QVERIFY(transfer("1.0"));
    QVERIFY(QFile::remove(m_logFile));
    QVERIFY(transfer("2.0"));
    const QByteArray content = contentOf(m_logFile);
    QVERIFY2(content.startsWith("time,value,"), content.constData());
    QVERIFY(content.contains(",2.0,"));
}

void tst_HostTransfer::aTransferLogWhoseFolderVanishesKeepsItsLines()
{
    m_logFile = m_folder->filePath(QStringLiteral("logs/transfers.csv"));
    QDir folder(m_folder->path());
    QVERIFY(folder.mkdir(QStringLiteral("logs")));
    useLog();
    QVERIFY(QDir(m_folder->filePath(QStringLiteral("logs"))).removeRecursively());
    QVERIFY(!transfer("1.0"));
    QVERIFY(folder.mkdir(QStringLiteral("logs")));
    QVERIFY(transfer("2.0"));
    QVERIFY(contentOf(m_logFile).contains(",1.0,"));
    QVERIFY(contentOf(m_logFile).contains(",2.0,"));
}

void tst_HostTransfer::transferLogQuotesTexts()
{
    useLog();
    MesswertData data = weight("1,5");
    data.unit = QStringLiteral("\"g\"");
    data.errorText = QStringLiteral("two\nlines");
    QVERIFY(host().measurementTransfer().transfer(data, MesswertData(), MesswertData()));
    QCOMPARE(contentOf(m_logFile).split('\n').mid(1).join('\n'),
             QByteArray("2026-01-01T08:00:00.000Z,\"1,5\",\"\"\"g\"\"\",stable,gross,,,\"two\nlines\"\n"));
}

void tst_HostTransfer::transferLogContinuesAFile()
{
    useLog();
    transfer("1.0");
    useLog();
    transfer("2.0");
    const QList<QByteArray> lines = contentOf(m_logFile).split('\n');
    QCOMPARE(lines.size(), 4); // names, two measurements, and nothing after the last line end
    QVERIFY(lines.at(1).contains(",1.0,"));
    QVERIFY(lines.at(2).contains(",2.0,"));
}

void tst_HostTransfer::aTransferLogThatCannotBeOpenedIsASetupError()
{
    m_logFile = m_folder->filePath(QStringLiteral("missing/transfers.csv"));
    useLog();
    QCOMPARE(host().setupErrors().size(), 1);
    QVERIFY2(host().setupErrors().at(0).contains(m_logFile), qPrintable(host().setupErrors().at(0)));
    QVERIFY(!host().isPrintEnabled());
    QVERIFY(!host().system().GetTransferTarget1()->IsActive());
}

void tst_HostTransfer::aTransferLogOnAFullDiskIsReported()
{
    if (!QFile::exists(QStringLiteral("/dev/full"))) {
        QSKIP("this system has no /dev/full");
    }
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("Cannot call seek"))); // by opening it
    TransferLog log(QStringLiteral("/dev/full"));
    QVERIFY(!log.isActive());
    QVERIFY2(log.error().contains(QLatin1String("/dev/full cannot be written: ")), qPrintable(log.error()));
}

void tst_HostTransfer::printIndicatorGoesOut()
{
    QSignalSpy changed(&host(), &Host::printIndicatorChanged);
    host().system().GetPrintIndicator()->SetPrintPressed(true);
    QVERIFY(host().printIndicator().isLit());
    m_fixture->clock.advance(PrintIndicator::LitMs - 1);
    QVERIFY(host().printIndicator().isLit());
    m_fixture->clock.advance(1);
    QVERIFY(!host().printIndicator().isLit());
    host().system().GetPrintIndicator()->SetPrintPressed(true);
    host().system().GetPrintIndicator()->SetPrintPressed(false);
    QVERIFY(!host().printIndicator().isLit());
    QCOMPARE(changed.count(), 4);
}

void tst_HostTransfer::observerKeepsTheLastTransfer()
{
    IMeasurementObserver* const observer = host().system().GetMeasurementObserver();
    observer->OnMeasurementTransferred(weight("2.0"), weight("1.0"));
    observer->OnSystemRegistersRead(20.0, 5.0);
    QCOMPARE(host().measurementObserver().current().messwert, QStringLiteral("2.0"));
    QCOMPARE(host().measurementObserver().previous().messwert, QStringLiteral("1.0"));
    QCOMPARE(host().measurementObserver().grossDigits(), 20.0);
    QCOMPARE(host().measurementObserver().tareDigits(), 5.0);
}

QTEST_GUILESS_MAIN(tst_HostTransfer)

#include "tst_hosttransfer.moc"
