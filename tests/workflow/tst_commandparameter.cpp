// SPDX-License-Identifier: BSD-3-Clause

#include "CommandParameter.h"

#include <QtTest>

#include <limits>
#include <type_traits>

using Brimvale::CommandParameter;

class TestCommandParameter : public QObject
{
    Q_OBJECT

private slots:
    void constructorStores_data();
    void constructorStores();
    void isAPlainRecord();
    void membersAreWritable();
};

void TestCommandParameter::constructorStores_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("parameter");
    QTest::newRow("command with parameter") << 7 << QStringLiteral("net");
    QTest::newRow("command without parameter") << 0 << QString();
    QTest::newRow("negative command") << std::numeric_limits<int>::min() << QStringLiteral("ä\n");
}

void TestCommandParameter::constructorStores()
{
    QFETCH(int, command);
    QFETCH(QString, parameter);
    const CommandParameter pair(command, parameter);
    QCOMPARE(pair.command, command);
    QCOMPARE(pair.parameter, parameter);
}

void TestCommandParameter::isAPlainRecord()
{
    QVERIFY(!std::is_polymorphic_v<CommandParameter>);
    QVERIFY(std::is_standard_layout_v<CommandParameter>);
    QVERIFY((std::is_same_v<decltype(CommandParameter::command), int>));
    // The command stands first.
    const CommandParameter pair(7, QString());
    QCOMPARE(*reinterpret_cast<const int*>(&pair), 7);
}

void TestCommandParameter::membersAreWritable()
{
    CommandParameter pair(7, QStringLiteral("net"));
    const CommandParameter copy = pair;
    pair.command = 8;
    pair.parameter = QStringLiteral("gross");
    QCOMPARE(pair.command, 8);
    QCOMPARE(pair.parameter, QStringLiteral("gross"));
    QCOMPARE(copy.command, 7);
    QCOMPARE(copy.parameter, QStringLiteral("net"));
}

QTEST_GUILESS_MAIN(TestCommandParameter)
#include "tst_commandparameter.moc"
