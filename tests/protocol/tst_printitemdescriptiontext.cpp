// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "PrintItemDescriptionText.h"

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

const ProtocolDef Def{ProtocolType::Calibration, ProtocolArea::Header | ProtocolArea::Footer};

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);
READ_PRIVATE_MEMBER(CategoryMember, PrintableItemBase, QString, m_category);

} // namespace

class TestPrintItemDescriptionText : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_host.reset(); }

    void constructorSetsWhereItBelongs();
    void parentOwnsTheItem();
    void textsAreReadAtTheCall();
    void storedTextsAreThoseOfTheConstruction();
    void categoryDoesNotFollowTheRank();
    void printsTheText();
    void printsWithTheDescription();
    void textsAreReadAtPrinting();
    void descriptionIsNotReadWithoutItsColumn();
    void emptyTextsArePassedOn();
    void resultIsThatOfThePrinter_data();
    void resultIsThatOfThePrinter();
    void setValueDoesNothing();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<PrintItemDescriptionText> make(bool withDescription, int rank = 3)
    {
        return std::make_unique<PrintItemDescriptionText>(nullptr, QStringLiteral("uid"), &m_name, Def,
                                                          &m_description, &m_text, withDescription, rank,
                                                          &m_category);
    }
    bool print(PrintItemDescriptionText& item) { return item.Print(m_host->printer(), m_host->formatter()); }

    std::unique_ptr<RecordingHost> m_host;
    QString m_name;
    QString m_description;
    QString m_text;
    QString m_category;
};

void TestPrintItemDescriptionText::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_name = QStringLiteral("name");
    m_description = QStringLiteral("description");
    m_text = QStringLiteral("text");
    m_category = QStringLiteral("category");
}

void TestPrintItemDescriptionText::constructorSetsWhereItBelongs()
{
    const auto item = make(false, 11);
    QCOMPARE(item->getUId(), QStringLiteral("uid"));
    QCOMPARE(item->getRank(), 11);
    QVERIFY(item->isEnabled(ProtocolType::Calibration));
    QVERIFY(!item->isEnabled(ProtocolType::Series));
    QVERIFY(item->isAvailableIn(ProtocolArea::Header | ProtocolArea::Footer));
    QVERIFY(!item->isAvailableIn(ProtocolArea::Body));
    BRIMVALE_COMPARE_CALLS(*m_host);
}

void TestPrintItemDescriptionText::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = new PrintItemDescriptionText(
        parent.get(), QString(), &m_name, Def, &m_description, &m_text, false, 0, &m_category);
    parent.reset();
    QVERIFY(item.isNull());
    QCOMPARE(m_name, QStringLiteral("name"));
}

void TestPrintItemDescriptionText::textsAreReadAtTheCall()
{
    const auto item = make(false);
    QCOMPARE(item->getName(), QStringLiteral("name"));
    QCOMPARE(item->getDiscription(), QStringLiteral("description"));
    QCOMPARE(item->getText(), QStringLiteral("text"));
    QCOMPARE(item->getCategory(), QStringLiteral("category"));
    m_name = QStringLiteral("Name 2");
    m_description = QStringLiteral("Beschreibung");
    m_text = QStringLiteral("Text 2");
    m_category = QStringLiteral("Kategorie");
    QCOMPARE(item->getName(), QStringLiteral("Name 2"));
    QCOMPARE(item->getDiscription(), QStringLiteral("Beschreibung"));
    QCOMPARE(item->getText(), QStringLiteral("Text 2"));
    QCOMPARE(item->getCategory(), QStringLiteral("Kategorie"));
}

void TestPrintItemDescriptionText::storedTextsAreThoseOfTheConstruction()
{
    const auto item = make(false);
    m_name = QStringLiteral("other");
    m_category = QStringLiteral("other");
    QCOMPARE(item.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(item.get()->*memberOf(CategoryMember()), QStringLiteral("category"));
}

void TestPrintItemDescriptionText::categoryDoesNotFollowTheRank()
{
    for (const int rank : {2, 7, 8, 9, 10})
        QCOMPARE(make(false, rank)->getCategory(), QStringLiteral("category"));
}

void TestPrintItemDescriptionText::printsTheText()
{
    const auto item = make(false);
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatText", "a line\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(24, \"text\")",
                           "IPrinter::PrintLine(\"a line\\n\")");
}

void TestPrintItemDescriptionText::printsWithTheDescription()
{
    const auto item = make(true);
    m_host->answer("IPrinter::GetPrintLayout", 24);
    m_host->answer("IFormat::FormatDescriptionText", "two columns\n");
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*item));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()",
                           "IFormat::FormatDescriptionText(24, \"description\", \"text\")",
                           "IPrinter::PrintLine(\"two columns\\n\")");
}

void TestPrintItemDescriptionText::textsAreReadAtPrinting()
{
    const auto item = make(true);
    m_description = QStringLiteral("Unterschrift");
    // As late as after the printer was asked.
    m_host->onCall("IPrinter::GetPrintLayout", [this] { m_text = QStringLiteral("________"); });
    print(*item);
    BRIMVALE_COMPARE_CALLS(m_host->callsTo("IFormat"),
                           "IFormat::FormatDescriptionText(0, \"Unterschrift\", \"________\")");
}

void TestPrintItemDescriptionText::descriptionIsNotReadWithoutItsColumn()
{
    PrintItemDescriptionText item(nullptr, QString(), &m_name, Def, nullptr, &m_text, false, 0, &m_category);
    item.setValue();
    print(item);
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(0, \"text\")",
                           "IPrinter::PrintLine(\"\")");
}

void TestPrintItemDescriptionText::emptyTextsArePassedOn()
{
    m_text.clear();
    m_description.clear();
    m_host->answer("IPrinter::PrintLine", true);
    QVERIFY(print(*make(false)));
    QVERIFY(print(*make(true)));
    BRIMVALE_COMPARE_CALLS(*m_host, "IPrinter::GetPrintLayout()", "IFormat::FormatText(0, \"\")",
                           "IPrinter::PrintLine(\"\")", "IPrinter::GetPrintLayout()",
                           "IFormat::FormatDescriptionText(0, \"\", \"\")", "IPrinter::PrintLine(\"\")");
}

void TestPrintItemDescriptionText::resultIsThatOfThePrinter_data()
{
    QTest::addColumn<bool>("withDescription");
    QTest::addColumn<bool>("result");
    QTest::newRow("printed") << false << true;
    QTest::newRow("refused") << false << false;
    QTest::newRow("printed with description") << true << true;
    QTest::newRow("refused with description") << true << false;
}

void TestPrintItemDescriptionText::resultIsThatOfThePrinter()
{
    QFETCH(bool, withDescription);
    QFETCH(bool, result);
    m_host->answer("IPrinter::PrintLine", result);
    QCOMPARE(print(*make(withDescription)), result);
}

void TestPrintItemDescriptionText::setValueDoesNothing()
{
    const auto item = make(true);
    item->setValue();
    m_text = QStringLiteral("later");
    BRIMVALE_COMPARE_CALLS(*m_host);
    QCOMPARE(item->getText(), QStringLiteral("later"));
}

void TestPrintItemDescriptionText::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintItemDescriptionText::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemDescriptionText");
    QCOMPARE(type.superClass(), &PrintableItemBase::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemDescriptionText::destructorWritesItsLine()
{
    auto item = make(false);
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemDescriptionText", item.get());
    item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemDescriptionText::destructorWritesNothingAboveTrace()
{
    auto item = make(false);
    LogCapture log(QsLogging::DebugLevel);
    item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemDescriptionText)
#include "tst_printitemdescriptiontext.moc"
