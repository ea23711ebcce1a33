// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "InfoItemIcon.h"

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

using Change = void (*)(InfoItemIcon&);

QVariantList valuesOf(const InfoItemIcon& item)
{
    return {item.value(), item.unit(), item.image()};
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TestInfoItemIcon : public QObject
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
    void screenReadsEveryProperty_data();
    void screenReadsEveryProperty();
    void declaresPropertiesAndSignals();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<InfoItemIcon> m_item;
    std::unique_ptr<SignalRecorder> m_signals;
};

void TestInfoItemIcon::init()
{
    m_item = std::make_unique<InfoItemIcon>(nullptr, QStringLiteral("12.5"), QStringLiteral("g"),
                                            QStringLiteral("qrc:/a.svg"));
    m_signals = std::make_unique<SignalRecorder>(m_item.get());
}

void TestInfoItemIcon::constructorStores()
{
    QCOMPARE(valuesOf(*m_item),
             (QVariantList{QStringLiteral("12.5"), QStringLiteral("g"), QStringLiteral("qrc:/a.svg")}));
}

void TestInfoItemIcon::parentOwnsTheItem()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> item = new InfoItemIcon(parent.get(), QStringLiteral("12.5"), QStringLiteral("g"),
                                                    QStringLiteral("qrc:/a.svg"));
    parent.reset();
    QVERIFY(item.isNull());
}

void TestInfoItemIcon::setterStoresAndSignalsOnce_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("emitted");

    QTest::newRow("value") << Change([](InfoItemIcon& item) { item.setValue(QStringLiteral("13")); }) << 0
                           << QVariant(QStringLiteral("13")) << QStringList(QStringLiteral("valueChanged()"));
    QTest::newRow("unit") << Change([](InfoItemIcon& item) { item.setUnit(QStringLiteral("kg")); }) << 1
                          << QVariant(QStringLiteral("kg")) << QStringList(QStringLiteral("unitChanged()"));
    QTest::newRow("image") << Change([](InfoItemIcon& item) { item.setImage(QStringLiteral("qrc:/b.svg")); })
                           << 2 << QVariant(QStringLiteral("qrc:/b.svg"))
                           << QStringList(QStringLiteral("imageChanged()"));
}

void TestInfoItemIcon::setterStoresAndSignalsOnce()
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

void TestInfoItemIcon::setterOfTheSameValueSignalsNothing()
{
    QFETCH(Change, change);
    change(*m_item);
    m_signals->clearCalls();
    const QVariantList values = valuesOf(*m_item);
    change(*m_item);
    QCOMPARE(valuesOf(*m_item), values);
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoItemIcon::nullTextIsTheEmptyText()
{
    m_item->setUnit(QStringLiteral(""));
    m_signals->clearCalls();
    m_item->setUnit(QString());
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoItemIcon::receiverSeesTheNewValue()
{
    QFETCH(Change, change);
    QFETCH(int, index);
    QVariant seen;
    for (const auto changed :
         {&InfoItemIcon::valueChanged, &InfoItemIcon::unitChanged, &InfoItemIcon::imageChanged}) {
        connect(m_item.get(), changed, this, [&] { seen = valuesOf(*m_item).at(index); });
    }
    change(*m_item);
    QTEST(seen, "value");
}

void TestInfoItemIcon::screenReadsEveryProperty_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("value") << QVariant(QStringLiteral("12.5"));
    QTest::newRow("unit") << QVariant(QStringLiteral("g"));
    QTest::newRow("image") << QVariant(QStringLiteral("qrc:/a.svg"));
}

void TestInfoItemIcon::screenReadsEveryProperty()
{
    const char* const name = QTest::currentDataTag();
    QTEST(m_item->property(name), "value");
    QVERIFY(!m_item->setProperty(name, m_item->property(name).type() == QVariant::Bool
                                           ? QVariant(!m_item->property(name).toBool())
                                           : QVariant(QStringLiteral("written"))));
    QTEST(m_item->property(name), "value");
    BRIMVALE_COMPARE_CALLS(*m_signals);
}

void TestInfoItemIcon::declaresPropertiesAndSignals()
{
    const QMetaObject& type = InfoItemIcon::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::InfoItemIcon");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::propertiesOf(type),
             (QStringList{QStringLiteral("QString value read valueChanged()"),
                          QStringLiteral("QString unit read unitChanged()"),
                          QStringLiteral("QString image read imageChanged()")}));
    QCOMPARE(ObjectTest::methodsOf(type),
             (QStringList{QStringLiteral("signal valueChanged()"), QStringLiteral("signal unitChanged()"),
                          QStringLiteral("signal imageChanged()")}));
}

void TestInfoItemIcon::destructorWritesItsLine()
{
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::InfoItemIcon", m_item.get());
    m_item.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestInfoItemIcon::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    m_item.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestInfoItemIcon)
#include "tst_infoitemicon.moc"
