// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "FormattedValue.h"
#include "PrintItemNameValueUnit.h"
#include "PrintItemNameValueUnitData.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::RecordingHost;

namespace
{

const ProtocolDef Def{ProtocolType::Workflow, ProtocolArea::Footer};

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);

class DescribedItem : public PrintItemNameValueUnit
{
public:
    using PrintItemNameValueUnit::PrintItemNameValueUnit;
    QString getDescription() const override { return QStringLiteral("own description"); }
};

MesswertData reading(const char* messwert)
{
    MesswertData data;
    data.messwert = QString::fromLatin1(messwert);
    return data;
}

} // namespace

class TestPrintItemNameValueUnit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void constructorSetsWhereItBelongs_data() { modes(); }
    void constructorSetsWhereItBelongs();
    void parentOwnsTheItem_data() { modes(); }
    void parentOwnsTheItem();
    void textsAreThoseOfTheTextsObject_data() { modes(); }
    void textsAreThoseOfTheTextsObject();
    void withoutTextsObjectTheyAreEmpty_data() { modes(); }
    void withoutTextsObjectTheyAreEmpty();
    void categoryDoesNotFollowTheRank();
    void itemsShareTheirTexts();
    void printsTexts();
    void printsAMeasuredValue();
    void printsEveryMemberOfAMeasuredValue();
    void withoutTextsObjectTheNameColumnIsEmpty();
    void descriptionIsReadAtPrinting_data() { modes(); }
    void descriptionIsReadAtPrinting();
    void subclassMayDescribeItself_data() { modes(); }
    void subclassMayDescribeItself();
    void textsReplaceTextsOnly();
    void measuredValuesReplaceMeasuredValuesOnly();
    void refreshChangesNothing_data() { modes(); }
    void refreshChangesNothing();
    void resultIsThatOfThePrinter_data();
    void resultIsThatOfThePrinter();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine_data() { modes(); }
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    static void modes()
    {
        QTest::addColumn<bool>("measured");
        QTest::newRow("texts") << false;
        QTest::newRow("measured value") << true;
    }
    template <typename Item = PrintItemNameValueUnit>
    std::unique_ptr<Item> make(bool measured, IPrintItemNameValueUnitData* data, int rank = 3)
    {
        const QString uid = QStringLiteral("uid");
        if (measured)
            return std::make_unique<Item>(nullptr, uid, data, reading("12.5"), rank, Def);
        return std::make_unique<Item>(nullptr, uid, data, QStringLiteral("value"), rank, Def);
    }
    bool print(PrintItemNameValueUnit& item) { return item.Print(m_host->printer(), m_host->formatter()); }

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<PrintItemNameValueUnitData> m_data;
};

void TestPrintItemNameValueUnit::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_data = std::make_unique<PrintItemNameValueUnitData>(nullptr);
    m_data->setName(QStringLiteral("name"));
    m_data->setDescription(QStringLiteral("description"));
    m_data->setCategory(QStringLiteral("category"));
}

void TestPrintItemNameValueUnit::cleanup()
{
    m_data.reset();
    m_host.reset();
}

void TestPrintItemNameValueUnit::constructorSetsWhereItBelongs()
{
    QFETCH(bool, measured);
    const auto item = make(measured, m_data.get(), 8);
    QCOMPARE(item->getUId(), QStringLiteral("uid"));
    QCOMPARE(item->getRank(), 8);
    QVERIFY(item->isEnabled(ProtocolType::Workflow));
    QVERIFY(!item->isEnabled(ProtocolType::Series));
    QVERIFY(item->isAvailableIn(ProtocolArea::Footer));
    QVERIFY(!item->isAvailableIn(ProtocolArea::Body));
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("name"));
}

void TestPrintItemNameValueUnit::parentOwnsTheItem()
{
    QFETCH(bool, measured);
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = make(measured, m_data.get()).release();
    item->setParent(parent.get());
    parent.reset();
    QVERIFY(item.isNull());
    QCOMPARE(m_data->getName(), QStringLiteral("name")); // the texts stay
}

void TestPrintItemNameValueUnit::textsAreThoseOfTheTextsObject()
{
    QFETCH(bool, measured);
    const auto item = make(measured, m_data.get());
    QCOMPARE(item->getName(), QStringLiteral("name"));
    QCOMPARE(item->getDescription(), QStringLiteral("description"));
    QCOMPARE(item->getCategory(), QStringLiteral("category"));
    m_data->setName(QStringLiteral("Name 2"));
    m_data->setDescription(QStringLiteral("Beschreibung"));
    m_data->setCategory(QStringLiteral("Kategorie"));
    QCOMPARE(item->getName(), QStringLiteral("Name 2"));
    QCOMPARE(item->getDescription(), QStringLiteral("Beschreibung"));
    QCOMPARE(item->getCategory(), QStringLiteral("Kategorie"));
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("name"));
}

void TestPrintItemNameValueUnit::withoutTextsObjectTheyAreEmpty()
{
    QFETCH(bool, measured);
    const auto item = make(measured, nullptr, 2);
    QCOMPARE(item->getName(), QString());
    QCOMPARE(item->getDescription(), QString());
    QCOMPARE(item->getCategory(), QString());
    QCOMPARE(item.get()->*memberOf(NameMember()), QString());
}

void TestPrintItemNameValueUnit::categoryDoesNotFollowTheRank()
{
    for (const int rank : {2, 7, 8, 9, 10})
        QCOMPARE(make(false, m_data.get(), rank)->getCategory(), QStringLiteral("category"));
}

void TestPrintItemNameValueUnit::itemsShareTheirTexts()
{
    const auto first = make(false, m_data.get());
    const auto second = make(true, m_data.get());
    m_data->setName(QStringLiteral("shared"));
    QCOMPARE(first->getName(), QStringLiteral("shared"));
    QCOMPARE(second->getName(), QStringLiteral("shared"));
}

void TestPrintItemNameValueUnit::printsTexts()
{
    const auto item = make(false, m_data.get());
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatNameValueUnit", "three columns\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()",
                           "IFormat::FormatNameValueUnit(24, \"description\", \"value\", \"\")",
                           "IPrinter::PrintLine(\"three columns\\n\")");
    item->setUnit(QStringLiteral("kg"));
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"),
                           "IFormat::FormatNameValueUnit(24, \"description\", \"value\", \"kg\")");
}

void TestPrintItemNameValueUnit::printsAMeasuredValue()
{
    const auto item = make(true, m_data.get());
    FormattedValue record;
    record.valueMark = '*';
    record.bracketedDigitCount = 1;
    record.text = QStringLiteral("12.5 g");
    record.errorText = QStringLiteral("error");
    m_host->answer("IFormat::ConvertValue", record);
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatNameValue", "two columns\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host,
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IPrinter::GetPrintLayout()",
                           QStringLiteral("IFormat::FormatNameValue(24, \"description\", %1, false)")
                               .arg(TestKit::argumentText(record)),
                           "IPrinter::PrintLine(\"two columns\\n\")");
}

void TestPrintItemNameValueUnit::printsEveryMemberOfAMeasuredValue()
{
    const MesswertData full(QStringLiteral("36.4"), QStringLiteral("g"), QStringLiteral("gram"),
                            QStringLiteral("error"), 7, 2, 1, 3, 4, 36.4, 1.5, false, true, true, true, true,
                            true, true, 74);
    const QString call =
        QStringLiteral("IFormat::ConvertValue(%1, FormattedValue())").arg(TestKit::argumentText(full));
    PrintItemNameValueUnit item(nullptr, QString(), m_data.get(), full, 0, Def);
    print(item);
    item.setValue(reading("0"));
    item.setValue(full);
    print(item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"), call, call);
}

void TestPrintItemNameValueUnit::withoutTextsObjectTheNameColumnIsEmpty()
{
    print(*make(false, nullptr));
    print(*make(true, nullptr));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::Format*"),
                           "IFormat::FormatNameValueUnit(0, \"\", \"value\", \"\")",
                           "IFormat::FormatNameValue(0, \"\", FormattedValue(), false)");
}

void TestPrintItemNameValueUnit::descriptionIsReadAtPrinting()
{
    QFETCH(bool, measured);
    const auto item = make(measured, m_data.get());
    m_host->onCall("IPrinter::GetPrintLayout", [this] { m_data->setDescription(QStringLiteral("late")); });
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::Format*"),
                           measured ? "IFormat::FormatNameValue(0, \"late\", FormattedValue(), false)"
                                    : "IFormat::FormatNameValueUnit(0, \"late\", \"value\", \"\")");
}

void TestPrintItemNameValueUnit::subclassMayDescribeItself()
{
    QFETCH(bool, measured);
    print(*make<DescribedItem>(measured, m_data.get()));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::Format*"),
                           measured
                               ? "IFormat::FormatNameValue(0, \"own description\", FormattedValue(), false)"
                               : "IFormat::FormatNameValueUnit(0, \"own description\", \"value\", \"\")");
}

void TestPrintItemNameValueUnit::textsReplaceTextsOnly()
{
    const auto text = make(false, m_data.get());
    text->setValue(QStringLiteral("new"));
    text->setUnit(QStringLiteral("kg"));
    text->setValue(reading("99"));
    print(*text);
    const auto measured = make(true, m_data.get());
    measured->setValue(QStringLiteral("new"));
    measured->setUnit(QStringLiteral("kg"));
    print(*measured);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"),
                           "IFormat::FormatNameValueUnit(0, \"description\", \"new\", \"kg\")",
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IFormat::FormatNameValue(0, \"description\", FormattedValue(), false)");
}

void TestPrintItemNameValueUnit::measuredValuesReplaceMeasuredValuesOnly()
{
    const auto item = make(true, m_data.get());
    item->setValue(reading("99"));
    item->setValue(QStringLiteral("text"));
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"),
                           "IFormat::ConvertValue(MesswertData(messwert=\"99\"), FormattedValue())",
                           "IFormat::FormatNameValue(0, \"description\", FormattedValue(), false)");
}

void TestPrintItemNameValueUnit::refreshChangesNothing()
{
    QFETCH(bool, measured);
    const auto item = make(measured, m_data.get());
    print(*item);
    const QStringList before = m_host->takeCalls();
    item->setValue();
    static_cast<IPrintableItem*>(item.get())->setValue();
    BRIMVALE_COMPARE_CALLS(*m_host);
    print(*item);
    QCOMPARE(m_host->takeCalls(), before);
}

void TestPrintItemNameValueUnit::resultIsThatOfThePrinter_data()
{
    QTest::addColumn<bool>("measured");
    QTest::addColumn<bool>("result");
    QTest::newRow("texts printed") << false << true;
    QTest::newRow("texts refused") << false << false;
    QTest::newRow("measured value printed") << true << true;
    QTest::newRow("measured value refused") << true << false;
}

void TestPrintItemNameValueUnit::resultIsThatOfThePrinter()
{
    QFETCH(bool, measured);
    QFETCH(bool, result);
    m_host->answer("IPrinter::PrintLine", result);
    QCOMPARE(print(*make(measured, m_data.get())), result);
}

void TestPrintItemNameValueUnit::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintItemNameValueUnit::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemNameValueUnit");
    QCOMPARE(type.superClass(), &PrintableItemBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemNameValueUnit::destructorWritesItsLine()
{
    QFETCH(bool, measured);
    auto item = make(measured, m_data.get());
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemNameValueUnit", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemNameValueUnit::destructorWritesNothingAboveTrace()
{
    auto item = make(false, m_data.get());
    LogCapture log(QsLogging::DebugLevel);
    item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemNameValueUnit)
#include "tst_printitemnamevalueunit.moc"
