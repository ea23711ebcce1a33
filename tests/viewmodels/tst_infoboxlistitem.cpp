// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "InfoboxListItem.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/CompareCalls.h>
#include <TestKit/LogCapture.h>
#include <TestKit/SignalRecorder.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;
using TestKit::SignalRecorder;

namespace
{

using Change = void (*)(InfoboxListItem&);

QVariantList valuesOf(const InfoboxListItem& item)
{
    return {item.itemGroupTitle(),   item.itemValueTitle(),          item.itemValue(),
            item.isGroupTitleBold(), item.isItemValueRightAligned(), item.isItemValueInvalid()};
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestInfoboxListItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_item.reset(); }

    void constructorStores();
    void parentOwnsTheItem();
    void setterStoresAndSignalsOnce_data();
    void setterStoresAndSignalsOnce();
    void setterOfTheSameValueSignalsNothing_data() { setterStoresAndSignalsOnce_data(); }
    void setterOfTheSameValueSignalsNothing();
    void nullTextIsTheEmptyText();
    void receiverSeesTheNewValue_data() { setterStoresAndSignalsOnce_data(); }
    void receiverSeesTheNewValue();
    void eachFlagIsStoredInItsPlace_data();
    void eachFlagIsStoredInItsPlace();
    void signalOfTheValueTitleIsNeverEmitted();
    void valueTitleIsAnnouncedAsTheGroupTitle();
    void screenReadsEveryProperty_data();
    void screenReadsEveryProperty();
    void declaresPropertiesAndSignals();
    void destructorWritesNothing();

private:
    std::unique_ptr<InfoboxListItem> m_item;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestInfoboxListItem::init()
{
    m_item = std::make_unique<InfoboxListItem>(nullptr, QStringLiteral("group"), QStringLiteral("title"),
                                               QStringLiteral("value"), true, false, true);
    m_signals = std::make_unique<SignalRecorder>(m_item.get());
}

void TestInfoboxListItem::constructorStores()
{
    QCOMPARE(valuesOf(*m_item), (QVariantList{QStringLiteral("group"), QStringLiteral("title"),
                                              QStringLiteral("value"), true, false, true}));
}

void TestInfoboxListItem::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item =
        new InfoboxListItem(parent.get(), QStringLiteral("group"), QStringLiteral("title"),
                            QStringLiteral("value"), true, false, true);
    parent.reset();
    QVERIFY(item.isNull());
}

void TestInfoboxListItem::setterStoresAndSignalsOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("emitted");

    QTest::newRow("itemGroupTitle") << Change([](InfoboxListItem& item) {
        item.setItemGroupTitle(QStringLiteral("group 2"));
    }) << 0 << QVariant(QStringLiteral("group 2"))
                                    << QStringList(QStringLiteral("itemGroupTitleChanged()"));
    QTest::newRow("itemValueTitle") << Change([](InfoboxListItem& item) {
        item.setItemValueTitle(QStringLiteral("title 2"));
    }) << 1 << QVariant(QStringLiteral("title 2"))
                                    << QStringList(QStringLiteral("itemGroupTitleChanged()"));
    QTest::newRow("itemValue") << Change([](InfoboxListItem& item) {
        item.setItemValue(QStringLiteral("value 2"));
    }) << 2 << QVariant(QStringLiteral("value 2"))
                               << QStringList(QStringLiteral("itemValueChanged()"));
    QTest::newRow("isGroupTitleBold")
        << Change([](InfoboxListItem& item) { item.setIsGroupTitleBold(false); }) << 3 << QVariant(false)
        << QStringList(QStringLiteral("isGroupTitleBoldChanged()"));
    QTest::newRow("isItemValueRightAligned")
        << Change([](InfoboxListItem& item) { item.setIsItemValueRightAligned(true); }) << 4 << QVariant(true)
        << QStringList(QStringLiteral("isItemValueRightAlignedChanged()"));
    QTest::newRow("isItemValueInvalid")
        << Change([](InfoboxListItem& item) { item.setIsItemValueInvalid(false); }) << 5 << QVariant(false)
        << QStringList(QStringLiteral("isItemValueInvalidChanged()"));
}

void TestInfoboxListItem::setterStoresAndSignalsOnce()
{
    QFETCH(Change, change);
    QFETCH(int, index);
    QFETCH(QVariant, value);
    QFETCH(QStringList, emitted);
    QVariantList expected = valuesOf(*m_item);
    QVERIFY(expected.at(index) != value);
    expected[index] = value;
    change(*m_item);
    QCOMPARE(valuesOf(*m_item), expected);
    BRIMVALE_COMPARE_CALLS(*m_signals, emitted);
}

void TestInfoboxListItem::setterOfTheSameValueSignalsNothing()
{
    QFETCH(Change, change);
    change(*m_item);
    m_signals->clearCalls();
    const QVariantList values = valuesOf(*m_item);
    change(*m_item);
    QCOMPARE(valuesOf(*m_item), values);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoboxListItem::nullTextIsTheEmptyText()
{
    m_item->setItemValue(QStringLiteral(""));
    m_signals->clearCalls();
    m_item->setItemValue(QString());
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoboxListItem::receiverSeesTheNewValue()
{
    QFETCH(Change, change);
    QFETCH(int, index);
    QVariant seen;
    for (const auto changed :
         {&InfoboxListItem::itemGroupTitleChanged, &InfoboxListItem::itemValueTitleChanged,
          &InfoboxListItem::itemValueChanged, &InfoboxListItem::isGroupTitleBoldChanged,
          &InfoboxListItem::isItemValueRightAlignedChanged, &InfoboxListItem::isItemValueInvalidChanged}) {
        connect(m_item.get(), changed, this, [&] { seen = valuesOf(*m_item).at(index); });
    }
    change(*m_item);
    QTEST(seen, "value");
}

void TestInfoboxListItem::eachFlagIsStoredInItsPlace_data()
{
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("rightAligned");
    QTest::addColumn<bool>("invalid");
    QTest::newRow("bold") << true << false << false;
    QTest::newRow("right-aligned") << false << true << false;
    QTest::newRow("invalid") << false << false << true;
}

void TestInfoboxListItem::eachFlagIsStoredInItsPlace()
{
    QFETCH(bool, bold);
    QFETCH(bool, rightAligned);
    QFETCH(bool, invalid);
    const InfoboxListItem item(nullptr, QString(), QString(), QString(), bold, rightAligned, invalid);
    QCOMPARE(item.isGroupTitleBold(), bold);
    QCOMPARE(item.isItemValueRightAligned(), rightAligned);
    QCOMPARE(item.isItemValueInvalid(), invalid);
}

void TestInfoboxListItem::signalOfTheValueTitleIsNeverEmitted()
{
    int emitted = 0;
    connect(m_item.get(), &InfoboxListItem::itemValueTitleChanged, this, [&emitted] { ++emitted; });
    m_item->setItemGroupTitle(QStringLiteral("1"));
    m_item->setItemValueTitle(QStringLiteral("2"));
    m_item->setItemValue(QStringLiteral("3"));
    m_item->setIsGroupTitleBold(false);
    m_item->setIsItemValueRightAligned(true);
    m_item->setIsItemValueInvalid(false);
    QCOMPARE(emitted, 0);
}

void TestInfoboxListItem::valueTitleIsAnnouncedAsTheGroupTitle()
{
    QString seen;
    connect(m_item.get(), &InfoboxListItem::itemGroupTitleChanged, this,
            [&] { seen = m_item->itemValueTitle(); });
    m_item->setItemValueTitle(QStringLiteral("new"));
    QCOMPARE(seen, QStringLiteral("new"));
    QCOMPARE(m_item->itemGroupTitle(), QStringLiteral("group"));
}

void TestInfoboxListItem::screenReadsEveryProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("itemGroupTitle") << QVariant(QStringLiteral("group"));
    QTest::newRow("itemValueTitle") << QVariant(QStringLiteral("title"));
    QTest::newRow("itemValue") << QVariant(QStringLiteral("value"));
    QTest::newRow("isGroupTitleBold") << QVariant(true);
    QTest::newRow("isItemValueRightAligned") << QVariant(false);
    QTest::newRow("isItemValueInvalid") << QVariant(true);
}

void TestInfoboxListItem::screenReadsEveryProperty()
{
    const char* const name = QTest::currentDataTag();
    QTEST(m_item->property(name), "value");
    QVERIFY(!m_item->setProperty(name, m_item->property(name).type() == QVariant::Bool
                                           ? QVariant(!m_item->property(name).toBool())
                                           : QVariant(QStringLiteral("written"))));
    QTEST(m_item->property(name), "value");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoboxListItem::declaresPropertiesAndSignals()
{
    const QMetaObject& type = InfoboxListItem::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::InfoboxListItem");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(
        ObjectTest::propertiesOf(type),
        (QStringList{QStringLiteral("QString itemGroupTitle read itemGroupTitleChanged()"),
                     QStringLiteral("QString itemValueTitle read itemValueTitleChanged()"),
                     QStringLiteral("QString itemValue read itemValueChanged()"),
                     QStringLiteral("bool isGroupTitleBold read isGroupTitleBoldChanged()"),
                     QStringLiteral("bool isItemValueRightAligned read isItemValueRightAlignedChanged()"),
                     QStringLiteral("bool isItemValueInvalid read isItemValueInvalidChanged()")}));
    QCOMPARE(ObjectTest::methodsOf(type),
             (QStringList{QStringLiteral("signal itemGroupTitleChanged()"),
                          QStringLiteral("signal itemValueTitleChanged()"),
                          QStringLiteral("signal itemValueChanged()"),
                          QStringLiteral("signal isGroupTitleBoldChanged()"),
                          QStringLiteral("signal isItemValueRightAlignedChanged()"),
                          QStringLiteral("signal isItemValueInvalidChanged()")}));
}

void TestInfoboxListItem::destructorWritesNothing()
{
    LogCapture log;
    m_item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestInfoboxListItem)
#include "tst_infoboxlistitem.moc"
