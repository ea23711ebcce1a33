// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "FormattedValue.h"
#include "IRegisterValueProvider.h"
#include "PrintItemRegValueCurrentUnit.h"

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

const ProtocolDef Def{ProtocolType::Summary, ProtocolArea::Body};

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);
READ_PRIVATE_MEMBER(CategoryMember, PrintableItemBase, QString, m_category);
READ_PRIVATE_MEMBER(Flag1Member, PrintItemRegValueCurrentUnit, bool, m_flag1);
READ_PRIVATE_MEMBER(Flag2Member, PrintItemRegValueCurrentUnit, bool, m_flag2);

MesswertData reading(const char* messwert)
{
    MesswertData data;
    data.messwert = QString::fromLatin1(messwert);
    return data;
}

// Provides one value for every register.
class Provider : public IRegisterValueProvider
{
public:
    explicit Provider(const char* messwert)
        : m_value(reading(messwert))
    {
    }
    MesswertData GetMesswert(int, int) override { return m_value; }

private:
    MesswertData m_value;
};

} // namespace

class TestPrintItemRegValueCurrentUnit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_host.reset(); }

    void constructorSetsWhereItBelongs();
    void constructorAsksTheHostNothing();
    void parentOwnsTheItem();
    void textsAreReadAtTheCall();
    void storedTextsAreThoseOfTheConstruction();
    void categoryDoesNotFollowTheRank();
    void refreshAsksForTheCurrentUnit();
    void providerAndUnitAreFetchedAfresh();
    void printsTheEmptyRecordAtFirst();
    void printsTheValue_data() { flags(); }
    void printsTheValue();
    void printsWithTheNameColumn_data() { flags(); }
    void printsWithTheNameColumn();
    void flagBytesAreSetAfterTheConversion_data();
    void flagBytesAreSetAfterTheConversion();
    void snapshotHasEveryMember();
    void printDoesNotRefresh();
    void descriptionIsReadAtPrinting();
    void sicsIsNothingSpecial();
    void resultIsThatOfThePrinter_data();
    void resultIsThatOfThePrinter();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    // The two flags in front of the one for the description, which make no difference.
    static void flags()
    {
        QTest::addColumn<bool>("flag1");
        QTest::addColumn<bool>("flag2");
        QTest::newRow("neither flag") << false << false;
        QTest::newRow("first flag") << true << false;
        QTest::newRow("second flag") << false << true;
        QTest::newRow("both flags") << true << true;
    }
    std::unique_ptr<PrintItemRegValueCurrentUnit> make(bool withDescription = false, int rank = 3,
                                                       bool flag1 = false, bool flag2 = false)
    {
        return std::make_unique<PrintItemRegValueCurrentUnit>(
            nullptr, QStringLiteral("uid"), &m_name, Def, 73, flag1, flag2, withDescription, &m_description,
            rank, &m_category, m_host->system());
    }
    bool print(PrintItemRegValueCurrentUnit& item)
    {
        return item.Print(m_host->printer(), m_host->formatter());
    }

    std::unique_ptr<RecordingHost> m_host;
    QString m_name;
    QString m_description;
    QString m_category;
};

void TestPrintItemRegValueCurrentUnit::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->setRegister(73, reading("12.5"));
    m_name = QStringLiteral("name");
    m_description = QStringLiteral("description");
    m_category = QStringLiteral("category");
}

void TestPrintItemRegValueCurrentUnit::constructorSetsWhereItBelongs()
{
    const auto item = make(false, 11, true, false);
    QCOMPARE(item->getUId(), QStringLiteral("uid"));
    QCOMPARE(item->getRank(), 11);
    QVERIFY(item->isEnabled(ProtocolType::Summary));
    QVERIFY(!item->isEnabled(ProtocolType::Series));
    QVERIFY(item->isAvailableIn(ProtocolArea::Body));
    QVERIFY(!item->isAvailableIn(ProtocolArea::Footer));
    QVERIFY(item.get()->*memberOf(Flag1Member()));
    QVERIFY(!(item.get()->*memberOf(Flag2Member())));
}

void TestPrintItemRegValueCurrentUnit::constructorAsksTheHostNothing()
{
    const auto item = make();
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPrintItemRegValueCurrentUnit::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = make().release();
    item->setParent(parent.get());
    parent.reset();
    QVERIFY(item.isNull());
    QCOMPARE(m_name, QStringLiteral("name"));
}

void TestPrintItemRegValueCurrentUnit::textsAreReadAtTheCall()
{
    const auto item = make();
    QCOMPARE(item->getName(), QStringLiteral("name"));
    QCOMPARE(item->getDiscription(), QStringLiteral("description"));
    QCOMPARE(item->getCategory(), QStringLiteral("category"));
    m_name = QStringLiteral("Name 2");
    m_description = QStringLiteral("Beschreibung");
    m_category = QStringLiteral("Kategorie");
    QCOMPARE(item->getName(), QStringLiteral("Name 2"));
    QCOMPARE(item->getDiscription(), QStringLiteral("Beschreibung"));
    QCOMPARE(item->getCategory(), QStringLiteral("Kategorie"));
}

void TestPrintItemRegValueCurrentUnit::storedTextsAreThoseOfTheConstruction()
{
    const auto item = make();
    m_name = QStringLiteral("other");
    m_category = QStringLiteral("other");
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(item.get()->*memberOf(CategoryMember()), QStringLiteral("category"));
}

void TestPrintItemRegValueCurrentUnit::categoryDoesNotFollowTheRank()
{
    for (const int rank : {2, 7, 8, 9, 10})
        QCOMPARE(make(false, rank)->getCategory(), QStringLiteral("category"));
}

void TestPrintItemRegValueCurrentUnit::refreshAsksForTheCurrentUnit()
{
    const auto item = make();
    m_host->answer("ISystem::GetCurrentUnit", 5);
    static_cast<IPrintableItem*>(item.get())->setValue();
    BRIMVALE_COMPARE_CALLS(*m_host, "ISystem::GetRegisterValueProvider()", "ISystem::GetCurrentUnit()",
                           "IRegisterValueProvider::GetMesswert(5, 73)");
}

void TestPrintItemRegValueCurrentUnit::providerAndUnitAreFetchedAfresh()
{
    const auto item = make();
    Provider other("99");
    item->setValue();
    m_host->clearCalls();
    m_host->answerOnce("ISystem::GetCurrentUnit", 1);
    m_host->answerOnce("ISystem::GetCurrentUnit", 2);
    item->setValue();
    item->setValue();
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IRegisterValueProvider"),
                           "IRegisterValueProvider::GetMesswert(1, 73)",
                           "IRegisterValueProvider::GetMesswert(2, 73)");
    m_host->answer<IRegisterValueProvider*>("ISystem::GetRegisterValueProvider", &other);
    item->setValue();
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(messwert=\"99\"), FormattedValue())");
}

void TestPrintItemRegValueCurrentUnit::printsTheEmptyRecordAtFirst()
{
    print(*make());
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(), FormattedValue())");
}

void TestPrintItemRegValueCurrentUnit::printsTheValue()
{
    QFETCH(bool, flag1);
    QFETCH(bool, flag2);
    const auto item = make(false, 3, flag1, flag2);
    item->setValue();
    m_host->clearCalls();
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatValue", "value line\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    FormattedValue passed;
    passed.valueMark = ' ';
    BRIMVALE_COMPARE_CALLS(
        *m_host, "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
        "IPrinter::GetPrintLayout()",
        QStringLiteral("IFormat::FormatValue(24, %1, false)").arg(TestKit::argumentText(passed)),
        "IPrinter::PrintLine(\"value line\\n\")");
}

void TestPrintItemRegValueCurrentUnit::printsWithTheNameColumn()
{
    QFETCH(bool, flag1);
    QFETCH(bool, flag2);
    const auto item = make(true, 3, flag1, flag2);
    item->setValue();
    m_host->clearCalls();
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatNameValue", "name and value\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    FormattedValue passed;
    passed.valueMark = ' ';
    BRIMVALE_COMPARE_CALLS(*m_host,
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())",
                           "IPrinter::GetPrintLayout()",
                           QStringLiteral("IFormat::FormatNameValue(24, \"description\", %1, false)")
                               .arg(TestKit::argumentText(passed)),
                           "IPrinter::PrintLine(\"name and value\\n\")");
}

void TestPrintItemRegValueCurrentUnit::flagBytesAreSetAfterTheConversion_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::addColumn<int>("mark");
    QTest::addColumn<int>("digits");
    QTest::addColumn<bool>("isStable");
    for (const bool withDescription : {false, true}) {
        const char* const name = withDescription ? "with name" : "bare";
        QTest::addRow("%s, cleared", name) << withDescription << 0 << 0 << false;
        QTest::addRow("%s, calculated", name) << withDescription << int('*') << 0 << true;
        QTest::addRow("%s, not verified digits", name) << withDescription << 0 << 2 << true;
        QTest::addRow("%s, every bit", name) << withDescription << 255 << 255 << false;
    }
}

void TestPrintItemRegValueCurrentUnit::flagBytesAreSetAfterTheConversion()
{
    QFETCH(bool, withDescription);
    QFETCH(int, mark);
    QFETCH(int, digits);
    QFETCH(bool, isStable);
    FormattedValue record;
    record.valueMark = static_cast<char>(mark);
    record.bracketedDigitCount = static_cast<char>(digits);
    record.isStable = isStable;
    record.text = QStringLiteral("12.5 g");
    record.errorText = QStringLiteral("error");
    m_host->answer("IFormat::ConvertValue", record);
    print(*make(withDescription));
    record.valueMark = 32;
    record.bracketedDigitCount = 0;
    const QString passed = TestKit::argumentText(record);
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IFormat::Format*"),
        withDescription
            ? QStringLiteral("IFormat::FormatNameValue(0, \"description\", %1, false)").arg(passed)
            : QStringLiteral("IFormat::FormatValue(0, %1, false)").arg(passed));
}

void TestPrintItemRegValueCurrentUnit::snapshotHasEveryMember()
{
    const MesswertData full(QStringLiteral("36.4"), QStringLiteral("g"), QStringLiteral("gram"),
                            QStringLiteral("error"), 7, 2, 1, 3, 4, 36.4, 1.5, false, true, true, true, true,
                            true, true, 74);
    const auto item = make();
    m_host->setRegister(73, full);
    item->setValue();
    print(*item);
    BRIMVALE_COMPARE_CALLS(
        m_host->callsTo("IFormat::ConvertValue"),
        QStringLiteral("IFormat::ConvertValue(%1, FormattedValue())").arg(TestKit::argumentText(full)));
}

void TestPrintItemRegValueCurrentUnit::printDoesNotRefresh()
{
    const auto item = make();
    item->setValue();
    m_host->setRegister(73, reading("99"));
    m_host->clearCalls();
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IRegisterValueProvider"));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::ConvertValue"),
                           "IFormat::ConvertValue(MesswertData(messwert=\"12.5\"), FormattedValue())");
}

void TestPrintItemRegValueCurrentUnit::descriptionIsReadAtPrinting()
{
    const auto item = make(true);
    m_host->onCall("IPrinter::GetPrintLayout", [this] { m_description = QStringLiteral("late"); });
    print(*item);
    FormattedValue passed;
    passed.valueMark = ' ';
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat::Format*"),
                           QStringLiteral("IFormat::FormatNameValue(0, \"late\", %1, false)")
                               .arg(TestKit::argumentText(passed)));
}

void TestPrintItemRegValueCurrentUnit::sicsIsNothingSpecial()
{
    m_host->answer("ISystem::GetProtocolFormatName", "sics");
    m_host->answer("IFormat::FormatValue", "o 100 g\r\n");
    print(*make());
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("ISystem"));
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IPrinter::PrintLine"), "IPrinter::PrintLine(\"o 100 g\\r\\n\")");
}

void TestPrintItemRegValueCurrentUnit::resultIsThatOfThePrinter_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::addColumn<bool>("result");
    QTest::newRow("printed") << false << true;
    QTest::newRow("refused") << false << false;
    QTest::newRow("printed with name") << true << true;
    QTest::newRow("refused with name") << true << false;
}

void TestPrintItemRegValueCurrentUnit::resultIsThatOfThePrinter()
{
    QFETCH(bool, withDescription);
    QFETCH(bool, result);
    m_host->answer("IPrinter::PrintLine", result);
    QCOMPARE(print(*make(withDescription)), result);
}

void TestPrintItemRegValueCurrentUnit::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintItemRegValueCurrentUnit::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemRegValueCurrentUnit");
    QCOMPARE(type.superClass(), &PrintableItemBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemRegValueCurrentUnit::destructorWritesItsLine()
{
    auto item = make();
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemRegValueCurrentUnit", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemRegValueCurrentUnit::destructorWritesNothingAboveTrace()
{
    auto item = make();
    LogCapture log(QsLogging::DebugLevel);
    item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemRegValueCurrentUnit)
#include "tst_printitemregvaluecurrentunit.moc"
