// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "SelectListItem.h"

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

using Change = void (*)(SelectListItem&);

QVariantList valuesOf(const SelectListItem& item)
{
    return {item.name(),     item.date(),       item.dateSort(), item.additionalInformation(),
            item.selected(), item.isProtected()};
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestSelectListItem : public QObject
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
    void itemWithoutValuesIsEmpty();
    void parentOwnsAnItemWithoutValues();
    void assignmentCopiesSilently();
    void assignmentToItselfChangesNothing();
    void assignmentKeepsTheObject();
    void assignedItemsAreIndependent();
    void screenReadsEveryProperty_data();
    void screenReadsEveryProperty();
    void declaresPropertiesAndSignals();
    void destructorWritesNothing();

private:
    std::unique_ptr<SelectListItem> m_item;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestSelectListItem::init()
{
    m_item =
        std::make_unique<SelectListItem>(nullptr, QStringLiteral("alloy"), QStringLiteral("1 May"),
                                         qlonglong(20260501000000), QStringLiteral("lot 1"), true, false);
    m_signals = std::make_unique<SignalRecorder>(m_item.get());
}

void TestSelectListItem::constructorStores()
{
    QCOMPARE(valuesOf(*m_item),
             (QVariantList{QStringLiteral("alloy"), QStringLiteral("1 May"), qlonglong(20260501000000),
                           QStringLiteral("lot 1"), true, false}));
}

void TestSelectListItem::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item =
        new SelectListItem(parent.get(), QStringLiteral("alloy"), QStringLiteral("1 May"),
                           qlonglong(20260501000000), QStringLiteral("lot 1"), true, false);
    parent.reset();
    QVERIFY(item.isNull());
}

void TestSelectListItem::setterStoresAndSignalsOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("emitted");

    QTest::newRow("name") << Change([](SelectListItem& item) { item.setName(QStringLiteral("steel")); }) << 0
                          << QVariant(QStringLiteral("steel"))
                          << QStringList(QStringLiteral("nameChanged()"));
    QTest::newRow("date") << Change([](SelectListItem& item) { item.setDate(QStringLiteral("2 May")); }) << 1
                          << QVariant(QStringLiteral("2 May"))
                          << QStringList(QStringLiteral("dateChanged()"));
    QTest::newRow("dateSort") << Change(
        [](SelectListItem& item) { item.setDateSort(qlonglong(-20260502000000)); })
                              << 2 << QVariant(qlonglong(-20260502000000)) << QStringList();
    QTest::newRow("additionalInformation")
        << Change([](SelectListItem& item) { item.setAdditionalInformation(QStringLiteral("lot 2")); }) << 3
        << QVariant(QStringLiteral("lot 2")) << QStringList(QStringLiteral("additionalInformationChanged()"));
    QTest::newRow("selected") << Change([](SelectListItem& item) { item.setSelected(false); }) << 4
                              << QVariant(false) << QStringList(QStringLiteral("selectedChanged()"));
    QTest::newRow("isProtected") << Change([](SelectListItem& item) { item.setProtected(true); }) << 5
                                 << QVariant(true) << QStringList(QStringLiteral("isProtectedChanged()"));
}

void TestSelectListItem::setterStoresAndSignalsOnce()
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

void TestSelectListItem::setterOfTheSameValueSignalsNothing()
{
    QFETCH(Change, change);
    change(*m_item);
    m_signals->clearCalls();
    const QVariantList values = valuesOf(*m_item);
    change(*m_item);
    QCOMPARE(valuesOf(*m_item), values);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestSelectListItem::nullTextIsTheEmptyText()
{
    m_item->setName(QStringLiteral(""));
    m_signals->clearCalls();
    m_item->setName(QString());
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestSelectListItem::receiverSeesTheNewValue()
{
    QFETCH(Change, change);
    QFETCH(int, index);
    QFETCH(QVariant, value);
    QFETCH(QStringList, emitted);
    QVariant seen;
    for (const auto changed : {&SelectListItem::nameChanged, &SelectListItem::dateChanged,
                               &SelectListItem::additionalInformationChanged,
                               &SelectListItem::selectedChanged, &SelectListItem::isProtectedChanged}) {
        connect(m_item.get(), changed, this, [&] { seen = valuesOf(*m_item).at(index); });
    }
    change(*m_item);
    QCOMPARE(seen, emitted.isEmpty() ? QVariant() : value);
}

void TestSelectListItem::itemWithoutValuesIsEmpty()
{
    const SelectListItem item(nullptr);
    QCOMPARE(valuesOf(item), (QVariantList{QString(), QString(), qlonglong(-1), QString(), false, false}));
}

void TestSelectListItem::parentOwnsAnItemWithoutValues()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = new SelectListItem(parent.get());
    parent.reset();
    QVERIFY(item.isNull());
}

void TestSelectListItem::assignmentCopiesSilently()
{
    SelectListItem other(nullptr);
    SignalRecorder recorder(&other);
    other = *m_item;
    QCOMPARE(valuesOf(other), valuesOf(*m_item));
    QCOMPARE(valuesOf(*m_item),
             (QVariantList{QStringLiteral("alloy"), QStringLiteral("1 May"), qlonglong(20260501000000),
                           QStringLiteral("lot 1"), true, false}));
    BRIMVALE_COMPARE_CALLS(recorder);
    BRIMVALE_COMPARE_CALLS(*m_signals);

    const SelectListItem turned(nullptr, QString(), QString(), 0, QString(), false, true);
    QCOMPARE(&(*m_item = turned), m_item.get());
    QCOMPARE(valuesOf(*m_item), valuesOf(turned));
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestSelectListItem::assignmentToItselfChangesNothing()
{
    const QVariantList values = valuesOf(*m_item);
    const SelectListItem& same = *m_item;
    *m_item = same;
    QCOMPARE(valuesOf(*m_item), values);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestSelectListItem::assignmentKeepsTheObject()
{
    QObject parent;
    SelectListItem item(&parent);
    item.setObjectName(QStringLiteral("entry"));
    m_item->setObjectName(QStringLiteral("other"));
    item = *m_item;
    QCOMPARE(item.parent(), &parent);
    QCOMPARE(item.objectName(), QStringLiteral("entry"));
    QCOMPARE(m_item->parent(), nullptr);
}

void TestSelectListItem::assignedItemsAreIndependent()
{
    SelectListItem other(nullptr);
    other = *m_item;
    m_item->setName(QStringLiteral("steel"));
    QCOMPARE(other.name(), QStringLiteral("alloy"));
}

void TestSelectListItem::screenReadsEveryProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("name") << QVariant(QStringLiteral("alloy"));
    QTest::newRow("date") << QVariant(QStringLiteral("1 May"));
    QTest::newRow("additionalInformation") << QVariant(QStringLiteral("lot 1"));
    QTest::newRow("selected") << QVariant(true);
    QTest::newRow("isProtected") << QVariant(false);
}

void TestSelectListItem::screenReadsEveryProperty()
{
    const char* const name = QTest::currentDataTag();
    QTEST(m_item->property(name), "value");
    QVERIFY(!m_item->setProperty(name, m_item->property(name).type() == QVariant::Bool
                                           ? QVariant(!m_item->property(name).toBool())
                                           : QVariant(QStringLiteral("written"))));
    QTEST(m_item->property(name), "value");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestSelectListItem::declaresPropertiesAndSignals()
{
    const QMetaObject& type = SelectListItem::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::SelectListItem");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::propertiesOf(type),
             (QStringList{QStringLiteral("QString name read nameChanged()"),
                          QStringLiteral("QString date read dateChanged()"),
                          QStringLiteral("QString additionalInformation read additionalInformationChanged()"),
                          QStringLiteral("bool selected read selectedChanged()"),
                          QStringLiteral("bool isProtected read isProtectedChanged()")}));
    QCOMPARE(ObjectTest::methodsOf(type),
             (QStringList{QStringLiteral("signal nameChanged()"), QStringLiteral("signal dateChanged()"),
                          QStringLiteral("signal additionalInformationChanged()"),
                          QStringLiteral("signal selectedChanged()"),
                          QStringLiteral("signal isProtectedChanged()")}));
}

void TestSelectListItem::destructorWritesNothing()
{
    LogCapture log;
    m_item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestSelectListItem)
#include "tst_selectlistitem.moc"
