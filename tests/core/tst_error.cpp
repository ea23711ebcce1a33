// SPDX-License-Identifier: BSD-3-Clause

#include "Error.h"

#include <QtTest>

#include <cstddef>
#include <cstring>
#include <type_traits>

using Brimvale::Error;

class TestError : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void valuesGoToTheirMembers();
    void reservedMembersAreZeroed();
    void membersStandInTheirOrder_data();
    void membersStandInTheirOrder();
    void isPlainMemory();
};

void TestError::defaults()
{
    const Error error;
    QCOMPARE(int(error.source), 0);
    QCOMPARE(error.code, -1);
    QCOMPARE(error.detail, 0);
    QCOMPARE(int(error.type), 3);
    QCOMPARE(error.flag, false);
    QCOMPARE(error.reserved1, 0);
    QCOMPARE(error.reserved2, 0);
    QCOMPARE(error.reserved3, 0);
}

void TestError::valuesGoToTheirMembers()
{
    const Error error(Error::Warning, Error::PrinterSource, 42, -7, true);
    QCOMPARE(int(error.type), int(Error::Warning));
    QCOMPARE(int(error.source), int(Error::PrinterSource));
    QCOMPARE(error.code, 42);
    QCOMPARE(error.detail, -7);
    QCOMPARE(error.flag, true);
}

void TestError::reservedMembersAreZeroed()
{
    // Built in memory that is not zero.
    alignas(Error) unsigned char memory[sizeof(Error)];
    std::memset(memory, 0xff, sizeof memory);
    const Error* const error = new (memory) Error(Error::Failure, Error::HostSource, 1, 2, true);
    QCOMPARE(error->reserved1, 0);
    QCOMPARE(error->reserved2, 0);
    QCOMPARE(error->reserved3, 0);
}

void TestError::membersStandInTheirOrder_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("expected");

    QTest::newRow("source") << int(offsetof(Error, source)) << 0;
    QTest::newRow("code") << int(offsetof(Error, code)) << 4;
    QTest::newRow("detail") << int(offsetof(Error, detail)) << 8;
    QTest::newRow("type") << int(offsetof(Error, type)) << 12;
    QTest::newRow("flag") << int(offsetof(Error, flag)) << 16;
    QTest::newRow("reserved1") << int(offsetof(Error, reserved1)) << 20;
    QTest::newRow("reserved2") << int(offsetof(Error, reserved2)) << 24;
    QTest::newRow("reserved3") << int(offsetof(Error, reserved3)) << 28;
    QTest::newRow("size") << int(sizeof(Error)) << 32;
}

void TestError::membersStandInTheirOrder()
{
    QFETCH(int, offset);
    QTEST(offset, "expected");
}

void TestError::isPlainMemory()
{
    QVERIFY(std::is_trivially_copyable_v<Error>);
    QVERIFY(std::is_trivially_destructible_v<Error>);
    QVERIFY(!std::is_polymorphic_v<Error>);

    const Error original(Error::Failure, Error::SensorSource, 3, 4, true);
    Error copy;
    std::memcpy(&copy, &original, sizeof copy);
    QCOMPARE(int(copy.type), int(Error::Failure));
    QCOMPARE(int(copy.source), int(Error::SensorSource));
    QCOMPARE(copy.code, 3);
    QCOMPARE(copy.detail, 4);
    QCOMPARE(copy.flag, true);
}

QTEST_APPLESS_MAIN(TestError)
#include "tst_error.moc"
