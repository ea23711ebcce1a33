// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "PrintItemRegValue.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/RecordingHost.h>
#include <limits>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::RecordingHost;

namespace
{

const ProtocolDef Def{ProtocolType::Summary, ProtocolArea::Body};
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);
READ_PRIVATE_MEMBER(CategoryMember, PrintableItemBase, QString, m_category);
READ_PRIVATE_MEMBER(ValueTextMember, PrintItemRegValue, QString, m_valueText);

} // namespace

class TestPrintItemRegValue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_host.reset(); }

    void constructorSetsWhereItBelongs();
    void constructorReadsTheRegister();
    void parentOwnsTheItem();
    void textsAreReadAtTheCall();
    void storedTextsAreThoseOfTheConstruction();
    void categoryDoesNotFollowTheRank();
    void withoutUnitItsTextIsEmpty();
    void valueText_data();
    void valueText();
    void valueTextWithoutUnit_data();
    void valueTextWithoutUnit();
    void registerIsReadTwice();
    void noNumberIsReadOnce();
    void secondReadingIsTheOnePrinted();
    void noNumberInTheSecondReadingIsPrinted();
    void noNumberInTheFirstReadingDecides();
    void unitIsReadAtTheRefresh();
    void printsTheText();
    void printsWithTheDescription();
    void printDoesNotRefresh();
    void descriptionIsReadAtPrinting();
    void resultIsThatOfThePrinter_data();
    void resultIsThatOfThePrinter();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<PrintItemRegValue> make(bool withDescription = false, int decimals = 2, int rank = 3)
    {
        return make(&m_unit, withDescription, decimals, rank);
    }
    std::unique_ptr<PrintItemRegValue> make(QString* unit, bool withDescription, int decimals, int rank)
    {
        return std::make_unique<PrintItemRegValue>(nullptr, QStringLiteral("uid"), &m_name, Def, 72, decimals,
                                                   unit, withDescription, &m_description, rank, &m_category,
                                                   m_host->systemRegister());
    }
    bool print(PrintItemRegValue& item) { return item.Print(m_host->printer(), m_host->formatter()); }
    static QString valueTextOf(const PrintItemRegValue& item) { return item.*memberOf(ValueTextMember()); }

    std::unique_ptr<RecordingHost> m_host;
    QString m_name;
    QString m_description;
    QString m_unit;
    QString m_category;
};

void TestPrintItemRegValue::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->setRegister(72, 12.5);
    m_name = QStringLiteral("name");
    m_description = QStringLiteral("description");
    m_unit = QStringLiteral("g");
    m_category = QStringLiteral("category");
}

void TestPrintItemRegValue::constructorSetsWhereItBelongs()
{
    const auto item = make(false, 2, 11);
    QCOMPARE(item->getUId(), QStringLiteral("uid"));
    QCOMPARE(item->getRank(), 11);
    QVERIFY(item->isEnabled(ProtocolType::Summary));
    QVERIFY(!item->isEnabled(ProtocolType::Series));
    QVERIFY(item->isAvailableIn(ProtocolArea::Body));
    QVERIFY(!item->isAvailableIn(ProtocolArea::Footer));
}

void TestPrintItemRegValue::constructorReadsTheRegister()
{
    const auto item = make();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(72)",
                           "ISystemRegister::GetRegisterValue(72)");
    print(*item);
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(0, \"12.50 g\")",
                           "IPrinter::PrintLine(\"\")");
}

void TestPrintItemRegValue::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = make().release();
    item->setParent(parent.get());
    parent.reset();
    QVERIFY(item.isNull());
    QCOMPARE(m_name, QStringLiteral("name"));
}

void TestPrintItemRegValue::textsAreReadAtTheCall()
{
    const auto item = make();
    QCOMPARE(item->getName(), QStringLiteral("name"));
    QCOMPARE(item->getDiscription(), QStringLiteral("description"));
    QCOMPARE(item->getUnit(), QStringLiteral("g"));
    QCOMPARE(item->getCategory(), QStringLiteral("category"));
    m_name = QStringLiteral("Name 2");
    m_description = QStringLiteral("Beschreibung");
    m_unit = QStringLiteral("kg");
    m_category = QStringLiteral("Kategorie");
    QCOMPARE(item->getName(), QStringLiteral("Name 2"));
    QCOMPARE(item->getDiscription(), QStringLiteral("Beschreibung"));
    QCOMPARE(item->getUnit(), QStringLiteral("kg"));
    QCOMPARE(item->getCategory(), QStringLiteral("Kategorie"));
}

void TestPrintItemRegValue::storedTextsAreThoseOfTheConstruction()
{
    const auto item = make();
    m_name = QStringLiteral("other");
    m_category = QStringLiteral("other");
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(item.get()->*memberOf(CategoryMember()), QStringLiteral("category"));
}

void TestPrintItemRegValue::categoryDoesNotFollowTheRank()
{
    for (const int rank : {2, 7, 8, 9, 10})
        QCOMPARE(make(false, 2, rank)->getCategory(), QStringLiteral("category"));
}

void TestPrintItemRegValue::withoutUnitItsTextIsEmpty()
{
    QCOMPARE(make(nullptr, false, 2, 3)->getUnit(), QString());
}

void TestPrintItemRegValue::valueText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, double value, int decimals, const char* unit, const char* text) {
        QTest::newRow(name) << value << decimals << QString::fromUtf8(unit) << QString::fromUtf8(text);
    };
    row("two decimals", 12.5, 2, "g", "12.50 g");
    row("no decimals", 12.25, 0, "g", "12 g");
    row("rounded up", 12.75, 0, "g", "13 g");
    row("one decimal", -0.76, 1, "kg", "-0.8 kg");
    row("zero", 0.0, 3, "g", "0.000 g");
    row("not as a power", 1e21, 0, "g", "1000000000000000000000 g");
    row("small", 1e-7, 4, "g", "0.0000 g");
    row("no separator of thousands", 1234567.5, 1, "g", "1234567.5 g");
    row("many decimals", 0.5, 12, "g", "0.500000000000 g");
    row("empty unit keeps its blank", 12.5, 2, "", "12.50 ");
    row("unit with a place marker", 12.5, 2, "%1", "12.50 %1");
    row("unit beyond ASCII", 12.5, 2, "µg", "12.50 µg");
    row("infinite", Infinite, 2, "g", "inf g");
    row("negative infinite", -Infinite, 2, "g", "-inf g");
    row("no number", NoNumber, 2, "g", "-");
}

void TestPrintItemRegValue::valueText()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(QString, unit);
    m_unit = unit;
    m_host->setRegister(72, value);
    const auto item = make(false, decimals);
    QTEST(valueTextOf(*item), "text");
}

void TestPrintItemRegValue::valueTextWithoutUnit_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << 12.5 << QStringLiteral("12.50");
    QTest::newRow("no number") << NoNumber << QStringLiteral("-");
}

void TestPrintItemRegValue::valueTextWithoutUnit()
{
    QFETCH(double, value);
    m_host->setRegister(72, value);
    const auto item = make(nullptr, false, 2, 3);
    QTEST(valueTextOf(*item), "text");
}

void TestPrintItemRegValue::registerIsReadTwice()
{
    const auto item = make();
    m_host->clearCalls();
    item->setValue();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(72)",
                           "ISystemRegister::GetRegisterValue(72)");
}

void TestPrintItemRegValue::noNumberIsReadOnce()
{
    const auto item = make();
    m_host->clearCalls();
    m_host->setRegister(72, NoNumber);
    item->setValue();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystemRegister::GetRegisterValue(72)");
}

void TestPrintItemRegValue::secondReadingIsTheOnePrinted()
{
    const auto item = make();
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", 1.0);
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", 2.0);
    item->setValue();
    QCOMPARE(valueTextOf(*item), QStringLiteral("2.00 g"));
}

void TestPrintItemRegValue::noNumberInTheSecondReadingIsPrinted()
{
    const auto item = make();
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", 1.0);
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", NoNumber);
    item->setValue();
    QCOMPARE(valueTextOf(*item), QStringLiteral("nan g"));
}

void TestPrintItemRegValue::noNumberInTheFirstReadingDecides()
{
    const auto item = make();
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", NoNumber);
    m_host->answerOnce("ISystemRegister::GetRegisterValue(72)", 2.0);
    item->setValue();
    QCOMPARE(valueTextOf(*item), QStringLiteral("-"));
}

void TestPrintItemRegValue::unitIsReadAtTheRefresh()
{
    const auto item = make();
    m_unit = QStringLiteral("kg");
    QCOMPARE(valueTextOf(*item), QStringLiteral("12.50 g"));
    static_cast<IPrintableItem*>(item.get())->setValue();
    QCOMPARE(valueTextOf(*item), QStringLiteral("12.50 kg"));
}

void TestPrintItemRegValue::printsTheText()
{
    const auto item = make();
    m_host->clearCalls();
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatText", "a line\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(24, \"12.50 g\")",
                           "IPrinter::PrintLine(\"a line\\n\")");
}

void TestPrintItemRegValue::printsWithTheDescription()
{
    const auto item = make(true);
    m_host->clearCalls();
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatDescriptionText", "two columns\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()",
                           "IFormat::FormatDescriptionText(24, \"description\", \"12.50 g\")",
                           "IPrinter::PrintLine(\"two columns\\n\")");
}

void TestPrintItemRegValue::printDoesNotRefresh()
{
    const auto item = make();
    m_host->setRegister(72, 99);
    m_host->clearCalls();
    print(*item);
    item->setValue();
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"), "IFormat::FormatText(0, \"12.50 g\")",
                           "IFormat::FormatText(0, \"99.00 g\")");
}

void TestPrintItemRegValue::descriptionIsReadAtPrinting()
{
    const auto item = make(true);
    m_host->onCall("IPrinter::GetPrintLayout", [this] { m_description = QStringLiteral("late"); });
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"),
                           "IFormat::FormatDescriptionText(0, \"late\", \"12.50 g\")");
}

void TestPrintItemRegValue::resultIsThatOfThePrinter_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::addColumn<bool>("result");
    QTest::newRow("printed") << false << true;
    QTest::newRow("refused") << false << false;
    QTest::newRow("printed with description") << true << true;
    QTest::newRow("refused with description") << true << false;
}

void TestPrintItemRegValue::resultIsThatOfThePrinter()
{
    QFETCH(bool, withDescription);
    QFETCH(bool, result);
    m_host->answer("IPrinter::PrintLine", result);
    QCOMPARE(print(*make(withDescription)), result);
}

void TestPrintItemRegValue::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintItemRegValue::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemRegValue");
    QCOMPARE(type.superClass(), &PrintableItemBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemRegValue::destructorWritesItsLine()
{
    auto item = make();
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemRegValue", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemRegValue::destructorWritesNothingAboveTrace()
{
    auto item = make();
    LogCapture log(QsLogging::DebugLevel);
    item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemRegValue)
#include "tst_printitemregvalue.moc"
