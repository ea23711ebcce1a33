// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "InfoValueUnit.h"

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

using Change = void (*)(InfoValueUnit&);

QVariantList valuesOf(const InfoValueUnit& item)
{
    return {item.isVisible(), item.info(), item.value(), item.unit()};
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestInfoValueUnit : public QObject
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
    void visibilityGoesBothWays();
    void screenReadsEveryProperty_data();
    void screenReadsEveryProperty();
    void declaresPropertiesAndSignals();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<InfoValueUnit> m_item;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestInfoValueUnit::init()
{
    m_item = std::make_unique<InfoValueUnit>(nullptr, false, QStringLiteral("Net"), QStringLiteral("12.5"),
                                             QStringLiteral("g"));
    m_signals = std::make_unique<SignalRecorder>(m_item.get());
}

void TestInfoValueUnit::constructorStores()
{
    QCOMPARE(valuesOf(*m_item),
             (QVariantList{false, QStringLiteral("Net"), QStringLiteral("12.5"), QStringLiteral("g")}));
}

void TestInfoValueUnit::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = new InfoValueUnit(parent.get(), false, QStringLiteral("Net"),
                                                     QStringLiteral("12.5"), QStringLiteral("g"));
    parent.reset();
    QVERIFY(item.isNull());
}

void TestInfoValueUnit::setterStoresAndSignalsOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("emitted");

    QTest::newRow("isVisible") << Change([](InfoValueUnit& item) { item.setVisble(true); }) << 0
                               << QVariant(true) << QStringList(QStringLiteral("visibleChanged()"));
    QTest::newRow("info") << Change([](InfoValueUnit& item) { item.setInfo(QStringLiteral("Gross")); }) << 1
                          << QVariant(QStringLiteral("Gross"))
                          << QStringList(QStringLiteral("infoChanged()"));
    QTest::newRow("value") << Change([](InfoValueUnit& item) { item.setValue(QStringLiteral("13")); }) << 2
                           << QVariant(QStringLiteral("13")) << QStringList(QStringLiteral("valueChanged()"));
    QTest::newRow("unit") << Change([](InfoValueUnit& item) { item.setUnit(QStringLiteral("kg")); }) << 3
                          << QVariant(QStringLiteral("kg")) << QStringList(QStringLiteral("unitChanged()"));
}

void TestInfoValueUnit::setterStoresAndSignalsOnce()
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

void TestInfoValueUnit::setterOfTheSameValueSignalsNothing()
{
    QFETCH(Change, change);
    change(*m_item);
    m_signals->clearCalls();
    const QVariantList values = valuesOf(*m_item);
    change(*m_item);
    QCOMPARE(valuesOf(*m_item), values);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoValueUnit::nullTextIsTheEmptyText()
{
    m_item->setInfo(QStringLiteral(""));
    m_signals->clearCalls();
    m_item->setInfo(QString());
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoValueUnit::receiverSeesTheNewValue()
{
    QFETCH(Change, change);
    QFETCH(int, index);
    QVariant seen;
    for (const auto changed : {&InfoValueUnit::visibleChanged, &InfoValueUnit::infoChanged,
                               &InfoValueUnit::valueChanged, &InfoValueUnit::unitChanged}) {
        connect(m_item.get(), changed, this, [&] { seen = valuesOf(*m_item).at(index); });
    }
    change(*m_item);
    QTEST(seen, "value");
}

void TestInfoValueUnit::visibilityGoesBothWays()
{
    m_item->setVisble(true);
    m_item->setVisble(false);
    QVERIFY(!m_item->isVisible());
    BRIMVALE_COMPARE_CALLS(*m_signals, "visibleChanged()", "visibleChanged()");
}

void TestInfoValueUnit::screenReadsEveryProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("isVisible") << QVariant(false);
    QTest::newRow("info") << QVariant(QStringLiteral("Net"));
    QTest::newRow("value") << QVariant(QStringLiteral("12.5"));
    QTest::newRow("unit") << QVariant(QStringLiteral("g"));
}

void TestInfoValueUnit::screenReadsEveryProperty()
{
    const char* const name = QTest::currentDataTag();
    QTEST(m_item->property(name), "value");
    QVERIFY(!m_item->setProperty(name, m_item->property(name).type() == QVariant::Bool
                                           ? QVariant(!m_item->property(name).toBool())
                                           : QVariant(QStringLiteral("written"))));
    QTEST(m_item->property(name), "value");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoValueUnit::declaresPropertiesAndSignals()
{
    const QMetaObject& type = InfoValueUnit::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::InfoValueUnit");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::propertiesOf(type),
             (QStringList{QStringLiteral("bool isVisible read visibleChanged()"),
                          QStringLiteral("QString info read infoChanged()"),
                          QStringLiteral("QString value read valueChanged()"),
                          QStringLiteral("QString unit read unitChanged()")}));
    QCOMPARE(ObjectTest::methodsOf(type),
             (QStringList{QStringLiteral("signal visibleChanged()"), QStringLiteral("signal infoChanged()"),
                          QStringLiteral("signal valueChanged()"), QStringLiteral("signal unitChanged()")}));
}

void TestInfoValueUnit::destructorWritesItsLine()
{
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::InfoValueUnit", m_item.get());
    m_item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestInfoValueUnit::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    m_item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestInfoValueUnit)
#include "tst_infovalueunit.moc"
