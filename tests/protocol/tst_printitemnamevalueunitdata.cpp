// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "PrintItemNameValueUnitData.h"

#include <QPointer>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <memory>

using namespace Brimvale;
using TestKit::LogCapture;

class TestPrintItemNameValueUnitData : public QObject
{
    Q_OBJECT

private slots:
    void newObjectIsEmpty();
    void settersStore();
    void parentOwnsTheObject();
    void declaresNothingToTheMetaObject();
    void destructorWritesItsLine_data();
    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();
};

void TestPrintItemNameValueUnitData::newObjectIsEmpty()
{
    const PrintItemNameValueUnitData data(nullptr);
    QCOMPARE(data.getCategory(), QString());
    QCOMPARE(data.getName(), QString());
    QCOMPARE(data.getDescription(), QString());
}

void TestPrintItemNameValueUnitData::settersStore()
{
    PrintItemNameValueUnitData object(nullptr);
    IPrintItemNameValueUnitData& data = object;
    data.setCategory(QStringLiteral("category"));
    QCOMPARE(data.getCategory(), QStringLiteral("category"));
    QCOMPARE(data.getName() + data.getDescription(), QString());
    data.setName(QStringLiteral("name"));
    QCOMPARE(data.getName(), QStringLiteral("name"));
    QCOMPARE(data.getDescription(), QString());
    data.setDescription(QStringLiteral("description"));
    QCOMPARE(data.getDescription(), QStringLiteral("description"));
    QCOMPARE(data.getCategory(), QStringLiteral("category"));
    QCOMPARE(data.getName(), QStringLiteral("name"));
}

void TestPrintItemNameValueUnitData::parentOwnsTheObject()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<QObject> data = new PrintItemNameValueUnitData(parent.get());
    parent.reset();
    QVERIFY(data.isNull());
}

void TestPrintItemNameValueUnitData::declaresNothingToTheMetaObject()
{
    const QMetaObject& type = PrintItemNameValueUnitData::staticMetaObject;
    QCOMPARE(type.className(), "Brimvale::PrintItemNameValueUnitData");
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
}

void TestPrintItemNameValueUnitData::destructorWritesItsLine_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::newRow("without a name") << QString();
    QTest::newRow("with a name") << QStringLiteral("texts");
}

void TestPrintItemNameValueUnitData::destructorWritesItsLine()
{
    QFETCH(QString, objectName);
    auto data = std::make_unique<PrintItemNameValueUnitData>(nullptr);
    data->setObjectName(objectName);
    LogCapture log;
    const QString line = ObjectTest::destructorLine("Brimvale::PrintItemNameValueUnitData", data.get());
    data.reset();
    QCOMPARE(log.lines(), QStringList(line));
}

void TestPrintItemNameValueUnitData::destructorWritesNothingAboveTrace()
{
    LogCapture log(QsLogging::DebugLevel);
    std::make_unique<PrintItemNameValueUnitData>(nullptr).reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrintItemNameValueUnitData)
#include "tst_printitemnamevalueunitdata.moc"
