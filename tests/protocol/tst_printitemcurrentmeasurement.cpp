// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "FormattedValue.h"
#include "PrintItemCurrentMeasurement.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <limits>
#include <memory>

using namespace Brimvale;
using ObjectTest::EveryTextTranslator;
using TestKit::argumentText;
using TestKit::LogCapture;
using TestKit::RecordingHost;

namespace
{

const ProtocolDef Def{ProtocolType::Series | ProtocolType::Summary, ProtocolArea::Body};

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);
READ_PRIVATE_MEMBER(SnapshotMember, PrintItemCurrentMeasurement, MesswertData, m_snapshot);

class RenamedItem : public PrintItemCurrentMeasurement
{
public:
    using PrintItemCurrentMeasurement::PrintItemCurrentMeasurement;
    QString getName() const override { return QStringLiteral("Renamed"); }
};

// Differs from the empty record in every member.
MesswertData fullRecord()
{
    return MesswertData(QStringLiteral("36.4"), QStringLiteral("g"), QStringLiteral("gram"),
                        QStringLiteral("error"), 7, 2, 1, 3, 4, 36.4, 1.5, false, true, true, true, true,
                        true, true, 74);
}

} // namespace

class TestPrintItemCurrentMeasurement : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void constructorSetsWhereItBelongs();
    void constructorAsksTheHostNothing();
    void parentOwnsTheItem();
    void textsAreTranslatedWhenAskedFor();
    void categoryIsItsOwn();
    void printsTheValue();
    void printsWithTheNameColumn();
    void resultIsThatOfThePrinter_data();
    void resultIsThatOfThePrinter();
    void layoutIsPassedOn_data();
    void layoutIsPassedOn();
    void nameColumnFollowsTheLanguage();
    void nameColumnFollowsASubclass();
    void printsTheEmptyRecordAtFirst();
    void printsTheSnapshot();
    void snapshotHasEveryMember();
    void withoutSourceNothingIsPrinted_data();
    void withoutSourceNothingIsPrinted();
    void withoutSourceTheSnapshotStays();
    void sicsAnswer_data();
    void sicsAnswer();
    void sicsWithNameColumnIsAnOrdinaryLine_data();
    void sicsWithNameColumnIsAnOrdinaryLine();
    void formatIsAskedForAtEveryPrint();
    void peakholdReplacesTwoFlags_data();
    void peakholdReplacesTwoFlags();
    void peakholdWaitsForTheNextValue();
    void peakholdEnds();
    void peakholdIsASlot();
    void declaresOneSlot();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<PrintItemCurrentMeasurement> make(bool withDescription)
    {
        return std::make_unique<PrintItemCurrentMeasurement>(nullptr, QStringLiteral("current"), &m_source,
                                                             Def, withDescription, m_host->system());
    }
    bool print(PrintItemCurrentMeasurement& item)
    {
        return item.Print(m_host->printer(), m_host->formatter());
    }
    void answerConversion(bool isStable, const QString& errorText = QString());

    std::unique_ptr<RecordingHost> m_host;
    MesswertData m_source;
};

void TestPrintItemCurrentMeasurement::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_source = MesswertData();
    m_source.messwert = QStringLiteral("12.5");
}

void TestPrintItemCurrentMeasurement::cleanup()
{
    m_host.reset();
}

void TestPrintItemCurrentMeasurement::answerConversion(bool isStable, const QString& errorText)
{
    FormattedValue record;
    record.text = QStringLiteral("12.5 g");
    record.isStable = isStable;
    record.errorText = errorText;
    m_host->answer("IFormat::ConvertValue", record);
}

void TestPrintItemCurrentMeasurement::constructorSetsWhereItBelongs()
{
    const auto item = make(false);
    QCOMPARE(item->getUId(), QStringLiteral("current"));
    QCOMPARE(item->getName(), QStringLiteral("Current measurement"));
    QCOMPARE(item->getDiscription(), QStringLiteral("Current measurement"));
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("Current measurement"));
    QCOMPARE(item->getRank(), 2);
    QVERIFY(item->isEnabled(ProtocolType::Series | ProtocolType::Summary));
    QVERIFY(!item->isEnabled(ProtocolType::Measurement));
    QVERIFY(item->isAvailableIn(ProtocolArea::Body));
    QVERIFY(!item->isAvailableIn(ProtocolArea::Header));
}

void TestPrintItemCurrentMeasurement::constructorAsksTheHostNothing()
{
    const auto item = make(true);
    BRIMVALE_COMPARE_CALLS(*m_host);
    QCOMPARE(argumentText(item.get()->*memberOf(SnapshotMember())), QStringLiteral("MesswertData()"));
}

void TestPrintItemCurrentMeasurement::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item =
        new PrintItemCurrentMeasurement(parent.get(), QString(), &m_source, Def, false, m_host->system());
    parent.reset();
    QVERIFY(item.isNull());
}

void TestPrintItemCurrentMeasurement::textsAreTranslatedWhenAskedFor()
{
    const auto item = make(false);
    EveryTextTranslator translator;
    QCOMPARE(item->getName(), QStringLiteral("xx Current measurement"));
    QCOMPARE(item->getDiscription(), QStringLiteral("xx Current measurement"));
    QCOMPARE(item->getCategory(), QStringLiteral("xx Measurement"));
    QCOMPARE(translator.takeAsked(),
             (QStringList{QStringLiteral("Brimvale::PrintItemCurrentMeasurement: Current measurement"),
                          QStringLiteral("Brimvale::PrintItemCurrentMeasurement: Current measurement"),
                          QStringLiteral("Brimvale::PrintItemCurrentMeasurement: Measurement")}));
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("Current measurement"));
}

void TestPrintItemCurrentMeasurement::categoryIsItsOwn()
{
    const auto item = make(false);
    item->setCategory(QStringLiteral("other"));
    item->setRank(9);
    QCOMPARE(item->getCategory(), QStringLiteral("Measurement"));
    QCOMPARE(static_cast<IPrintableItem*>(item.get())->getCategory(), QStringLiteral("Measurement"));
}

void TestPrintItemCurrentMeasurement::printsTheValue()
{
    const auto item = make(false);
    item->setValue();
    answerConversion(false);
    m_host->answer("IPrinter::GetPrintLayout", 40);
    m_host->answer("IFormat::FormatValue", "value line\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetProtocolFormatName()",
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IPrinter::GetPrintLayout()",
                           "IFormat::FormatValue(40, FormattedValue(text=\"12.5 g\"), false)",
                           "IPrinter::PrintLine(\"value line\\n\")");
}

void TestPrintItemCurrentMeasurement::printsWithTheNameColumn()
{
    const auto item = make(true);
    item->setValue();
    answerConversion(false);
    m_host->answer("IPrinter::GetPrintLayout", 40);
    m_host->answer("IFormat::FormatNameValue", "name and value\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(
        *m_host, "ISystem::GetProtocolFormatName()",
        "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
        "IPrinter::GetPrintLayout()",
        "IFormat::FormatNameValue(40, \"Current measurement\", FormattedValue(text=\"12.5 g\"), false)",
        "IPrinter::PrintLine(\"name and value\\n\")");
}

void TestPrintItemCurrentMeasurement::resultIsThatOfThePrinter_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("result");
    for (const bool result : {true, false}) {
        for (const bool withDescription : {true, false}) {
            for (const char* format : {"", "sics"})
                QTest::addRow("%s, %s, format \"%s\"", result ? "printed" : "refused",
                              withDescription ? "with name" : "bare", format)
                    << withDescription << QString::fromLatin1(format) << result;
        }
    }
}

void TestPrintItemCurrentMeasurement::resultIsThatOfThePrinter()
{
    QFETCH(bool, withDescription);
    QFETCH(QString, format);
    QFETCH(bool, result);
    m_host->answer("ISystem::GetProtocolFormatName", format);
    m_host->answer("IPrinter::PrintLine", result);
    QCOMPARE(print(*make(withDescription)), result);
    QCOMPARE(m_host->callCount("IPrinter::PrintLine"), 1);
}

void TestPrintItemCurrentMeasurement::layoutIsPassedOn_data()
{
    QTest::addColumn<int>("layout");
    for (const int layout : {0, 1, 24, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::addRow("%d", layout) << layout;
}

void TestPrintItemCurrentMeasurement::layoutIsPassedOn()
{
    QFETCH(int, layout);
    m_host->answer("IPrinter::GetPrintLayout", layout);
    print(*make(false));
    print(*make(true));
    QCOMPARE(
        m_host->callsTo("IFormat::Format*"),
        (QStringList{QStringLiteral("IFormat::FormatValue(%1, FormattedValue(), false)").arg(layout),
                     QStringLiteral("IFormat::FormatNameValue(%1, \"Current measurement\", FormattedValue(), "
                                    "false)")
                         .arg(layout)}));
}

void TestPrintItemCurrentMeasurement::nameColumnFollowsTheLanguage()
{
    const auto item = make(true);
    EveryTextTranslator translator;
    print(*item);
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IFormat::Format*"),
        "IFormat::FormatNameValue(0, \"xx Current measurement\", FormattedValue(), false)");
}

void TestPrintItemCurrentMeasurement::nameColumnFollowsASubclass()
{
    RenamedItem item(nullptr, QString(), &m_source, Def, true, m_host->system());
    QCOMPARE(item.getDiscription(), QStringLiteral("Renamed"));
    print(item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::Format*"),
                           "IFormat::FormatNameValue(0, \"Renamed\", FormattedValue(), false)");
}

void TestPrintItemCurrentMeasurement::printsTheEmptyRecordAtFirst()
{
    print(*make(false));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(), FormattedValue())");
}

void TestPrintItemCurrentMeasurement::printsTheSnapshot()
{
    const auto item = make(false);
    item->setValue();
    m_source.messwert = QStringLiteral("13.0");
    print(*item);
    print(*item);
    item->setValue();
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IFormat::ConvertValue(MesswertData(messwert=\"13.0\"), FormattedValue())");
}

void TestPrintItemCurrentMeasurement::snapshotHasEveryMember()
{
    const auto item = make(false);
    m_source = fullRecord();
    item->setValue();
    BRIMVALE_COMPARE_CALLS(*m_host);
    print(*item);
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IFormat::ConvertValue"),
        "IFormat::ConvertValue(MesswertData(messwert=\"36.4\", unit=\"g\", unitPrintName=\"gram\", "
        "errorText=\"error\", stabilityValue=7, rangeNumber=2, eichDigit=1, decimals=3, "
        "resolutionReduction=4, value=36.4, tareValue=1.5, isValid=false, isCalculated=true, "
        "isStable=true, net=true, isPresetTare=true, isGrobRange=true, isOverload=true, "
        "registerNumber=74), FormattedValue())");
}

void TestPrintItemCurrentMeasurement::withoutSourceNothingIsPrinted_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::newRow("bare") << false;
    QTest::newRow("with name") << true;
}

void TestPrintItemCurrentMeasurement::withoutSourceNothingIsPrinted()
{
    QFETCH(bool, withDescription);
    PrintItemCurrentMeasurement item(nullptr, QString(), nullptr, Def, withDescription, m_host->system());
    m_host->answer("IPrinter::PrintLine", true);
    m_host->answer("ISystem::GetProtocolFormatName", "sics");
    QVERIFY(!print(item));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPrintItemCurrentMeasurement::withoutSourceTheSnapshotStays()
{
    PrintItemCurrentMeasurement item(nullptr, QString(), nullptr, Def, false, m_host->system());
    item.onShowPeakholdChanged(true, true, true);
    item.setValue();
    QCOMPARE(argumentText(item.*memberOf(SnapshotMember())), QStringLiteral("MesswertData()"));
}

void TestPrintItemCurrentMeasurement::sicsAnswer_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("isStable");
    QTest::addColumn<QString>("errorText");
    QTest::addColumn<QString>("formatted");
    QTest::addColumn<QString>("printed");

    const auto row = [](const char* name, const char* format, bool isStable, const char* errorText,
                        const char* formatted, const char* printed) {
        QTest::newRow(name) << QString::fromLatin1(format) << isStable << QString::fromLatin1(errorText)
                            << QString::fromLatin1(formatted) << QString::fromLatin1(printed);
    };
    row("stable", "sics", true, "", "0123456789\r\n", "01S23456789\r\n");
    row("unstable", "sics", false, "", "0123456789\r\n", "01D23456789\r\n");
    row("weight answer, stable", "sics", true, "", "S      100.00 g\r\n", "S S     100.00 g\r\n");
    row("weight answer, unstable", "sics", false, "", "S      100.00 g\r\n", "S D     100.00 g\r\n");
    row("blanks", "sics", true, "", "  \r\n", "  S\r\n");

    row("begins with o, stable", "sics", true, "", "o 100 g\r\n", "o  S100 g\r\n");
    row("begins with o, unstable", "sics", false, "", "o 100 g\r\n", "o  D100 g\r\n");
    row("begins with two o", "sics", true, "", "oo1", "o oS1");
    row("begins with a capital O", "sics", true, "", "O 100 g", "O S100 g");
    row("o at the second place", "sics", true, "", " o100 g", " oS100 g");

    row("text of two", "sics", true, "", "ab", "abS");
    row("text of two, o", "sics", true, "", "ob", "o bS");
    row("text of one is filled up", "sics", true, "", "a", "a S");
    row("text of one, o", "sics", false, "", "o", "o  D");
    row("empty text is filled up", "sics", true, "", "", "  S");
    row("empty text is filled up, unstable", "sics", false, "", "", "  D");

    row("error", "sics", true, "overload", "0123456789\r\n", "  I\r\n");
    row("error, unstable", "sics", false, "overload", "0123456789\r\n", "  I\r\n");
    row("error, begins with o", "sics", true, "overload", "o 100 g\r\n", "  I\r\n");
    row("error, empty text", "sics", true, "overload", "", "  I\r\n");
    row("error of a blank", "sics", true, " ", "0123456789\r\n", "  I\r\n");

    for (const char* format : {"SICS", "Sics", "sic", "sics ", " sics", "xsics", "sics2", "text", ""}) {
        for (const bool isStable : {true, false})
            QTest::addRow("format \"%s\", %s", format, isStable ? "stable" : "unstable")
                << QString::fromLatin1(format) << isStable << QString() << QStringLiteral("o 100 g\r\n")
                << QStringLiteral("o 100 g\r\n");
    }
    row("error in another format", "SICS", true, "overload", "0123456789\r\n", "0123456789\r\n");
    row("empty text in another format", "SICS", true, "", "", "");
}

void TestPrintItemCurrentMeasurement::sicsAnswer()
{
    QFETCH(QString, format);
    QFETCH(bool, isStable);
    QFETCH(QString, errorText);
    QFETCH(QString, formatted);
    QFETCH(QString, printed);
    const bool sics = format == QLatin1String("sics");
    m_host->answer("ISystem::GetProtocolFormatName", format);
    m_host->answer("IFormat::FormatValue", formatted);
    answerConversion(isStable, errorText);

    print(*make(false));
    FormattedValue passed;
    passed.isStable = sics || isStable; // the letter says it
    passed.text = QStringLiteral("12.5 g");
    passed.errorText = errorText;
    BRIMVALE_COMPARE_CALLS(
        *m_host, "ISystem::GetProtocolFormatName()",
        "IFormat::ConvertValue(MesswertData(), FormattedValue())", "IPrinter::GetPrintLayout()",
        QStringLiteral("IFormat::FormatValue(0, %1, %2)").arg(argumentText(passed), argumentText(sics)),
        QStringLiteral("IPrinter::PrintLine(%1)").arg(argumentText(printed)));
}

void TestPrintItemCurrentMeasurement::sicsWithNameColumnIsAnOrdinaryLine_data()
{
    QTest::addColumn<bool>("isStable");
    QTest::addColumn<QString>("errorText");
    QTest::newRow("stable") << true << QString();
    QTest::newRow("unstable") << false << QString();
    QTest::newRow("error") << false << QStringLiteral("overload");
}

void TestPrintItemCurrentMeasurement::sicsWithNameColumnIsAnOrdinaryLine()
{
    QFETCH(bool, isStable);
    QFETCH(QString, errorText);
    m_host->answer("ISystem::GetProtocolFormatName", "sics");
    m_host->answer("IFormat::FormatNameValue", "o 100 g\r\n");
    answerConversion(isStable, errorText);
    print(*make(true));
    FormattedValue passed;
    passed.isStable = isStable;
    passed.text = QStringLiteral("12.5 g");
    passed.errorText = errorText;
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetProtocolFormatName()",
                           "IFormat::ConvertValue(MesswertData(), FormattedValue())",
                           "IPrinter::GetPrintLayout()",
                           QStringLiteral("IFormat::FormatNameValue(0, \"Current measurement\", %1, false)")
                               .arg(argumentText(passed)),
                           "IPrinter::PrintLine(\"o 100 g\\r\\n\")");
}

void TestPrintItemCurrentMeasurement::formatIsAskedForAtEveryPrint()
{
    const auto item = make(false);
    m_host->answer("IFormat::FormatValue", "0123");
    m_host->answerOnce("ISystem::GetProtocolFormatName", "text");
    m_host->answerOnce("ISystem::GetProtocolFormatName", "sics");
    print(*item);
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IPrinter::PrintLine"), "IPrinter::PrintLine(\"0123\")",
                           "IPrinter::PrintLine(\"01D23\")");
}

void TestPrintItemCurrentMeasurement::peakholdReplacesTwoFlags_data()
{
    QTest::addColumn<QVector<bool>>("peakhold");
    QTest::addColumn<QVector<bool>>("source");
    QTest::addColumn<QVector<bool>>("snapshot");
    for (int bits = 0; bits < 32; ++bits) {
        const auto bit = [bits](int number) { return (bits >> number & 1) != 0; };
        const QVector<bool> peakhold{bit(1), bit(2)};
        const QVector<bool> source{bit(3), bit(4)};
        QTest::addRow("%s %d%d, source %d%d", bit(0) ? "shown" : "hidden", bit(1), bit(2), bit(3), bit(4))
            << (QVector<bool>{bit(0)} + peakhold) << source << (bit(0) ? peakhold : source);
    }
}

void TestPrintItemCurrentMeasurement::peakholdReplacesTwoFlags()
{
    QFETCH(QVector<bool>, peakhold);
    QFETCH(QVector<bool>, source);
    QFETCH(QVector<bool>, snapshot);
    const auto item = make(false);
    m_source = fullRecord();
    m_source.isStable = source.at(0);
    m_source.isGrobRange = source.at(1);
    item->onShowPeakholdChanged(peakhold.at(0), peakhold.at(1), peakhold.at(2));
    item->setValue();
    MesswertData expected = fullRecord();
    expected.isStable = snapshot.at(0);
    expected.isGrobRange = snapshot.at(1);
    QCOMPARE(argumentText(item.get()->*memberOf(SnapshotMember())), argumentText(expected));
    QCOMPARE(m_source.isStable, source.at(0));
    QCOMPARE(m_source.isGrobRange, source.at(1));
}

void TestPrintItemCurrentMeasurement::peakholdWaitsForTheNextValue()
{
    const auto item = make(false);
    item->setValue();
    item->onShowPeakholdChanged(true, true, true);
    print(*item);
    item->setValue();
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\", isStable=true, "
                           "isGrobRange=true), FormattedValue())");
}

void TestPrintItemCurrentMeasurement::peakholdEnds()
{
    const auto item = make(false);
    item->onShowPeakholdChanged(true, true, true);
    item->setValue();
    item->onShowPeakholdChanged(false, true, true);
    item->setValue();
    QCOMPARE(argumentText(item.get()->*memberOf(SnapshotMember())),
             QStringLiteral("MesswertData(messwert=\"12.5\")"));
}

void TestPrintItemCurrentMeasurement::peakholdIsASlot()
{
    const auto item = make(false);
    QVERIFY(QMetaObject::invokeMethod(item.get(), "onShowPeakholdChanged", Q_ARG(bool, true),
                                      Q_ARG(bool, false), Q_ARG(bool, true)));
    m_source.isStable = true;
    item->setValue();
    const MesswertData& snapshot = item.get()->*memberOf(SnapshotMember());
    QVERIFY(!snapshot.isStable);
    QVERIFY(snapshot.isGrobRange);
}

void TestPrintItemCurrentMeasurement::declaresOneSlot()
{
    const QMetaObject& type = PrintItemCurrentMeasurement::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemCurrentMeasurement");
    QCOMPARE(type.superClass(), &PrintableItemBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type),
             QStringList(QStringLiteral("slot onShowPeakholdChanged(bool,bool,bool)")));
    QCOMPARE(type.method(type.methodOffset()).parameterNames(),
             (QList<QByteArray>{"show", "isStable", "coarseRange"}));
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemCurrentMeasurement::destructorWritesItsLine()
{
    auto item = make(false);
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemCurrentMeasurement", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemCurrentMeasurement::destructorWritesNothingAboveTrace()
{
    auto item = make(false);
    LogCapture log(QsLogging::DebugLevel);
    item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemCurrentMeasurement)
#include "tst_printitemcurrentmeasurement.moc"
