// SPDX-License-Identifier: BSD-3-Clause
#include "PluginId.h"

#include <QObject>
#include <QtTest>

#include <utility>

using Brimvale::PluginId;

class TestPluginId : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void fieldsInOrder();
    void flagsInOrder_data();
    void flagsInOrder();
    void copies();
};

namespace
{

/// The sixteen flags in their order.
QVector<QPair<const char*, bool PluginId::*>> flags()
{
    return {
        {"hasProtocol", &PluginId::hasProtocol},
        {"protocolFlag", &PluginId::protocolFlag},
        {"flag1", &PluginId::flag1},
        {"flag2", &PluginId::flag2},
        {"flag3", &PluginId::flag3},
        {"flag4", &PluginId::flag4},
        {"flag5", &PluginId::flag5},
        {"checkPrintOnClose", &PluginId::checkPrintOnClose},
        {"resetOnStart", &PluginId::resetOnStart},
        {"usesCalibrationService", &PluginId::usesCalibrationService},
        {"usesLevellingService", &PluginId::usesLevellingService},
        {"hasAddons", &PluginId::hasAddons},
        {"flag6", &PluginId::flag6},
        {"flag7", &PluginId::flag7},
        {"flag8", &PluginId::flag8},
        {"transferFlag", &PluginId::transferFlag},
    };
}

/// A record whose flag of that place is set, by the order of the fields alone.
PluginId withFlag(int place)
{
    const auto is = [place](int flag) { return place == flag; };
    const QString none;
    return {none,  none,  none,  none,  none,  none,  none,   0,      0,      is(0),  is(1),  is(2), is(3),
            is(4), is(5), is(6), is(7), is(8), is(9), is(10), is(11), is(12), is(13), is(14), is(15)};
}

} // namespace

void TestPluginId::defaults()
{
    const PluginId id;
    for (const QString& text :
         {id.identifier, id.kind, id.name, id.text1, id.text2, id.text3, id.protocolName})
        QCOMPARE(text, QString());
    QCOMPARE(id.addonNumber, 0);
    QCOMPARE(id.parentNumber, 0);
    for (const auto& flag : flags())
        QVERIFY2(!(id.*flag.second), flag.first);
}

void TestPluginId::fieldsInOrder()
{
    const PluginId id{QStringLiteral("1"),
                      QStringLiteral("2"),
                      QStringLiteral("3"),
                      QStringLiteral("4"),
                      QStringLiteral("5"),
                      QStringLiteral("6"),
                      QStringLiteral("7"),
                      8,
                      9};
    QCOMPARE(id.identifier, QStringLiteral("1"));
    QCOMPARE(id.kind, QStringLiteral("2"));
    QCOMPARE(id.name, QStringLiteral("3"));
    QCOMPARE(id.text1, QStringLiteral("4"));
    QCOMPARE(id.text2, QStringLiteral("5"));
    QCOMPARE(id.text3, QStringLiteral("6"));
    QCOMPARE(id.protocolName, QStringLiteral("7"));
    QCOMPARE(id.addonNumber, 8);
    QCOMPARE(id.parentNumber, 9);
    QCOMPARE(id.hasProtocol, false);
}

void TestPluginId::flagsInOrder_data()
{
    QTest::addColumn<int>("place");
    const auto all = flags();
    QCOMPARE(all.size(), 16);
    for (int place = 0; place < all.size(); ++place)
        QTest::newRow(all[place].first) << place;
}

void TestPluginId::flagsInOrder()
{
    QFETCH(int, place);
    const PluginId id = withFlag(place);
    const auto all = flags();
    for (int other = 0; other < all.size(); ++other)
        QVERIFY2(id.*all[other].second == (other == place), all[other].first);
}

void TestPluginId::copies()
{
    PluginId id;
    id.name = QStringLiteral("name");
    id.addonNumber = 7;
    id.transferFlag = true;
    const PluginId copy = id;
    id = PluginId();
    QCOMPARE(copy.name, QStringLiteral("name"));
    QCOMPARE(copy.addonNumber, 7);
    QCOMPARE(copy.transferFlag, true);
}

QTEST_GUILESS_MAIN(TestPluginId)
#include "tst_pluginid.moc"
