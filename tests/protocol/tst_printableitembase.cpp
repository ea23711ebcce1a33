// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "CategorySort.h"
#include "PrintableItemBase.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <limits>
#include <memory>

using namespace Brimvale;
using ObjectTest::EveryTextTranslator;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

namespace
{

class Item : public PrintableItemBase
{
public:
    using PrintableItemBase::PrintableItemBase;
    QString getName() const override { return QStringLiteral("own name"); }
    bool Print(IPrinter*, IFormat*) override { return true; }
};

READ_PRIVATE_MEMBER(NameMember, PrintableItemBase, QString, m_name);
READ_PRIVATE_MEMBER(CategoryMember, PrintableItemBase, QString, m_category);
READ_PRIVATE_MEMBER(EnableMember, PrintableItemBase, QFlags<ProtocolType>, m_enable);
READ_PRIVATE_MEMBER(AreaMember, PrintableItemBase, QFlags<ProtocolArea>, m_protocolArea);

} // namespace

class TestPrintableItemBase : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_item = std::make_unique<Item>(nullptr); }
    void cleanup() { m_item.reset(); }

    void newItemIsEmpty();
    void settersStore();
    void parentOwnsTheItem();
    void categoryFollowsTheRank_data();
    void categoryFollowsTheRank();
    void categoryIsTranslatedWhenAskedFor();
    void enabledInASubset_data();
    void enabledInASubset();
    void availableInASubset_data();
    void availableInASubset();
    void setValueChangesNothing();
    void isUsableThroughItsInterface();
    void answersToTheNamesOfItsInterface_data();
    void answersToTheNamesOfItsInterface();
    void declaresNothingToTheMetaObject();
    void destructorWritesNothing();

private:
    std::unique_ptr<Item> m_item;
};

void TestPrintableItemBase::newItemIsEmpty()
{
    QCOMPARE(m_item.get()->*memberOf(NameMember()), QString());
    QCOMPARE(m_item->getUId(), QString());
    QCOMPARE(m_item.get()->*memberOf(CategoryMember()), QString());
    QCOMPARE(int(m_item.get()->*memberOf(EnableMember())), 0);
    QCOMPARE(int(m_item.get()->*memberOf(AreaMember())), 0);
}

void TestPrintableItemBase::settersStore()
{
    SignalRecorder recorder(m_item.get());
    m_item->setName(QStringLiteral("name"));
    m_item->setUid(QStringLiteral("uid"));
    m_item->setCategory(QStringLiteral("category"));
    m_item->setRank(-7);
    m_item->setEnable(ProtocolType::Series | ProtocolType::Workflow);
    m_item->setProtocolArea(ProtocolArea::Body | ProtocolArea::Sics);
    QCOMPARE(m_item.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(m_item->getName(), QStringLiteral("own name"));
    QCOMPARE(m_item->getUId(), QStringLiteral("uid"));
    QCOMPARE(m_item.get()->*memberOf(CategoryMember()), QStringLiteral("category"));
    QCOMPARE(m_item->getRank(), -7);
    QCOMPARE(m_item.get()->*memberOf(EnableMember()), ProtocolType::Series | ProtocolType::Workflow);
    QCOMPARE(m_item.get()->*memberOf(AreaMember()), ProtocolArea::Body | ProtocolArea::Sics);
    QCOMPARE(recorder.calls(), QStringList());
}

void TestPrintableItemBase::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<Item> item = new Item(parent.get());
    parent.reset();
    QVERIFY(item.isNull());
}

void TestPrintableItemBase::categoryFollowsTheRank_data()
{
    QTest::addColumn<int>("rank");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("translated");
    QTest::addColumn<QStringList>("asked");

    const auto row = [](const char* name, int rank, const QString& category) {
        QTest::newRow(name) << rank << category << QStringLiteral("xx ") + category
                            << QStringList(QStringLiteral("Brimvale::PrintableItemBase: ") + category);
    };
    const QString stored = QStringLiteral("stored");
    const auto storedRow = [&stored](const char* name, int rank) {
        QTest::newRow(name) << rank << stored << stored << QStringList();
    };
    storedRow("plugin", 0);
    storedRow("plugin_settings", 1);
    row("measurement", 2, QStringLiteral("Measurement"));
    storedRow("protocol", 3);
    storedRow("addon_byUid", 4);
    storedRow("addon", 5);
    storedRow("addon_settings", 6);
    row("general", 7, QStringLiteral("General"));
    row("plugin_general", 8, QStringLiteral("Application"));
    const QString control = QStringLiteral("Control");
    QTest::newRow("control") << 9 << control << control << QStringList();
    row("device", 10, QStringLiteral("Device"));
    storedRow("unselectable", 11);
    storedRow("add-on 1", 104);
    storedRow("a category in the last two digits only", 102);
    storedRow("negative", -2);
    storedRow("least", std::numeric_limits<int>::min());
}

void TestPrintableItemBase::categoryFollowsTheRank()
{
    QFETCH(int, rank);
    m_item->setRank(rank);
    m_item->setCategory(QStringLiteral("stored"));
    QTEST(m_item->getCategory(), "category");

    EveryTextTranslator translator;
    QTEST(m_item->getCategory(), "translated");
    QTEST(translator.takeAsked(), "asked");
}

void TestPrintableItemBase::categoryIsTranslatedWhenAskedFor()
{
    m_item->setRank(CategorySort::device);
    {
        EveryTextTranslator translator;
        QCOMPARE(m_item->getCategory(), QStringLiteral("xx Device"));
    }
    QCOMPARE(m_item->getCategory(), QStringLiteral("Device"));
    m_item->setRank(CategorySort::protocol);
    QCOMPARE(m_item->getCategory(), QString());
}

void TestPrintableItemBase::enabledInASubset_data()
{
    QTest::addColumn<int>("enable");
    QTest::addColumn<int>("types");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("nothing of nothing") << 0 << 0 << true;
    QTest::newRow("nothing of some") << 3 << 0 << true;
    QTest::newRow("one of nothing") << 0 << 1 << false;
    QTest::newRow("the one") << 1 << 1 << true;
    QTest::newRow("another one") << 1 << 2 << false;
    QTest::newRow("two of one") << 1 << 3 << false;
    QTest::newRow("one of two") << 3 << 2 << true;
    QTest::newRow("both of two") << 3 << 3 << true;
    QTest::newRow("overlapping") << 6 << 3 << false;
    QTest::newRow("the highest bit") << std::numeric_limits<int>::min() << std::numeric_limits<int>::min()
                                     << true;
    QTest::newRow("everything of almost everything") << std::numeric_limits<int>::max() << -1 << false;
}

void TestPrintableItemBase::enabledInASubset()
{
    QFETCH(int, enable);
    QFETCH(int, types);
    m_item->setEnable(QFlags<ProtocolType>(QFlag(enable)));
    m_item->setProtocolArea(QFlags<ProtocolArea>(QFlag(~enable)));
    QTEST(m_item->isEnabled(QFlags<ProtocolType>(QFlag(types))), "enabled");
}

void TestPrintableItemBase::availableInASubset_data()
{
    enabledInASubset_data();
}

void TestPrintableItemBase::availableInASubset()
{
    QFETCH(int, enable);
    QFETCH(int, types);
    m_item->setProtocolArea(QFlags<ProtocolArea>(QFlag(enable)));
    m_item->setEnable(QFlags<ProtocolType>(QFlag(~enable)));
    QTEST(m_item->isAvailableIn(QFlags<ProtocolArea>(QFlag(types))), "enabled");
}

void TestPrintableItemBase::setValueChangesNothing()
{
    settersStore();
    static_cast<IPrintableItem*>(m_item.get())->setValue();
    QCOMPARE(m_item.get()->*memberOf(NameMember()), QStringLiteral("name"));
    QCOMPARE(m_item->getUId(), QStringLiteral("uid"));
    QCOMPARE(m_item->getCategory(), QStringLiteral("category"));
    QCOMPARE(m_item->getRank(), -7);
}

void TestPrintableItemBase::isUsableThroughItsInterface()
{
    m_item->setUid(QStringLiteral("uid"));
    m_item->setRank(9);
    m_item->setEnable(ProtocolType::Series);
    m_item->setProtocolArea(ProtocolArea::Footer);
    QObject* const object = m_item.get();
    IPrintableItem* const face = qobject_cast<IPrintableItem*>(object);
    QCOMPARE(face, static_cast<IPrintableItem*>(m_item.get()));
    QCOMPARE(face->getName(), QStringLiteral("own name"));
    QCOMPARE(face->getUId(), QStringLiteral("uid"));
    QCOMPARE(face->getCategory(), QStringLiteral("Control"));
    QCOMPARE(face->getRank(), 9);
    QVERIFY(face->isEnabled(ProtocolType::Series));
    QVERIFY(!face->isEnabled(ProtocolType::Summary));
    QVERIFY(face->isAvailableIn(ProtocolArea::Footer));
    QVERIFY(!face->isAvailableIn(ProtocolArea::Header));
    QVERIFY(face->Print(nullptr, nullptr));
}

void TestPrintableItemBase::answersToTheNamesOfItsInterface_data()
{
    QTest::addColumn<bool>("isInterface");
    QTest::newRow("IPrintableItem") << true;
    QTest::newRow("Brimvale.Protocol.IPrintableItem/1.0") << true;
    QTest::newRow("Brimvale.Protocol.IPrintableItem") << false;
    QTest::newRow("PrintableItemBase") << false;
}

void TestPrintableItemBase::answersToTheNamesOfItsInterface()
{
    QFETCH(bool, isInterface);
    IPrintableItem* const face = isInterface ? m_item.get() : nullptr;
    QCOMPARE(m_item->qt_metacast(QTest::currentDataTag()), static_cast<void*>(face));
}

void TestPrintableItemBase::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintableItemBase::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintableItemBase");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintableItemBase::destructorWritesNothing()
{
    LogCapture log;
    m_item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintableItemBase)
#include "tst_printableitembase.moc"
