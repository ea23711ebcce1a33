// SPDX-License-Identifier: BSD-3-Clause

#include "IProfileAccess.h"
#include "LogRecorder.h"
#include "SettingsProfile.h"

#include <QtTest>

#include <functional>
#include <limits>
#include <memory>

using Brimvale::IProfileAccess;
using Brimvale::SettingsProfile;

namespace
{

// Records what is applied, as "number=value".
class Access : public IProfileAccess
{
public:
    QStringList applied;
    std::function<void(int, const QVariant&)> onApply;

    void InitializeProfile() override { applied.append(QStringLiteral("InitializeProfile")); }
    void SetProfileItem(int, QVariant, QString) override { applied.append(QStringLiteral("SetProfileItem")); }
    void ApplyProfileItem(int id, QVariant value) override
    {
        applied.append(QStringLiteral("%1=%2").arg(id).arg(value.toString()));
        if (onApply)
            onApply(id, value);
    }
};

const QString NoAccess =
    QStringLiteral("WARN  SettingsProfile::ApplySetting, m_profileAccess pointer is NULL. "
                   "Use SetProfileAccess() to initialize it. ");

} // namespace

class TestSettingsProfile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_profile.reset(); }

    void newProfileIsEmpty();
    void newProfileDoesNotApply();
    void itemIsStoredAndReplaced();
    void storedItemKeepsItsType();
    void absentItemIsInvalid();
    void changedItemIsAppliedOnce();
    void itemIsStoredBeforeItIsApplied();
    void equalValueIsNeitherStoredNorApplied_data();
    void equalValueIsNeitherStoredNorApplied();
    void differentValueIsApplied_data();
    void differentValueIsApplied();
    void invalidValueOfAnAbsentItemDoesNothing();
    void invalidValueReplacesAStoredOne();
    void disabledProfileStoresOnly();
    void enablingAppliesNothingByItself();
    void everythingIsAppliedInAscendingOrder();
    void everythingIsAppliedWhetherEnabledOrNot_data();
    void everythingIsAppliedWhetherEnabledOrNot();
    void emptyProfileAppliesNothing();
    void applyingByHandStoresNothing();
    void accessMayBeReplacedAndTakenAway();
    void missingAccessIsLogged_data();
    void missingAccessIsLogged();
    void missingAccessIsLoggedForEveryItem();
    void missingAccessKeepsTheItem();
    void clearedProfileIsEmpty();
    void clearingKeepsAccessAndApplying();

    void receiverMaySetAnotherItem();
    void receiverMaySetTheItemAgain();
    void receiverMayChangeItemsWhileAllAreApplied();
    void receiverMayAddItemsWhileAllAreApplied();
    void receiverMayClearTheProfileWhileAllAreApplied();

    void destructorWritesItsLine();
    void destructorWritesNothingAboveTrace();

private:
    std::unique_ptr<SettingsProfile> m_profile;
    Access m_access;
};

void TestSettingsProfile::init()
{
    m_profile = std::make_unique<SettingsProfile>();
    m_access.applied.clear();
    m_access.onApply = nullptr;
}

void TestSettingsProfile::newProfileIsEmpty()
{
    QVERIFY(!m_profile->GetProfileItem(0).isValid());
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList());
}

void TestSettingsProfile::newProfileDoesNotApply()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->SetProfileItem(1, 2);
    QCOMPARE(m_access.applied, QStringList());
}

void TestSettingsProfile::itemIsStoredAndReplaced()
{
    m_profile->SetProfileItem(7, QStringLiteral("first"));
    QCOMPARE(m_profile->GetProfileItem(7), QVariant(QStringLiteral("first")));
    m_profile->SetProfileItem(7, QStringLiteral("second"));
    QCOMPARE(m_profile->GetProfileItem(7), QVariant(QStringLiteral("second")));
    m_profile->SetProfileItem(8, QStringLiteral("third"));
    QCOMPARE(m_profile->GetProfileItem(7), QVariant(QStringLiteral("second")));
}

void TestSettingsProfile::storedItemKeepsItsType()
{
    m_profile->SetProfileItem(1, 2.5);
    m_profile->SetProfileItem(2, QStringList{QStringLiteral("a"), QStringLiteral("b")});
    QCOMPARE(m_profile->GetProfileItem(1).type(), QVariant::Double);
    QCOMPARE(m_profile->GetProfileItem(2).type(), QVariant::StringList);
}

void TestSettingsProfile::absentItemIsInvalid()
{
    m_profile->SetProfileItem(1, 1);
    QVERIFY(!m_profile->GetProfileItem(2).isValid());
    // Asking does not make the item.
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("1=1")));
}

void TestSettingsProfile::changedItemIsAppliedOnce()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(3, QStringLiteral("on"));
    m_profile->SetProfileItem(3, QStringLiteral("off"));
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("3=on"), QStringLiteral("3=off")}));
}

void TestSettingsProfile::itemIsStoredBeforeItIsApplied()
{
    QVariant stored;
    m_access.onApply = [this, &stored](int id, const QVariant&) { stored = m_profile->GetProfileItem(id); };
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(3, QStringLiteral("on"));
    QCOMPARE(stored, QVariant(QStringLiteral("on")));
}

void TestSettingsProfile::equalValueIsNeitherStoredNorApplied_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("number") << QVariant(5) << QVariant(5);
    QTest::newRow("text") << QVariant(QStringLiteral("g")) << QVariant(QStringLiteral("g"));
    QTest::newRow("list") << QVariant(QVariantList{1, 2}) << QVariant(QVariantList{1, 2});
    QTest::newRow("null and empty text") << QVariant(QString()) << QVariant(QStringLiteral(""));
    // Values are compared as values, whatever their types.
    QTest::newRow("same number of another type") << QVariant(5) << QVariant(5.0);
    QTest::newRow("number and its text") << QVariant(5) << QVariant(QStringLiteral("5"));
}

void TestSettingsProfile::equalValueIsNeitherStoredNorApplied()
{
    QFETCH(QVariant, stored);
    QFETCH(QVariant, value);
    m_profile->SetProfileItem(1, stored);
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, value);
    QCOMPARE(m_access.applied, QStringList());
    QCOMPARE(m_profile->GetProfileItem(1).userType(), stored.userType());
}

void TestSettingsProfile::differentValueIsApplied_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("number") << QVariant(5) << QVariant(6);
    QTest::newRow("case") << QVariant(QStringLiteral("g")) << QVariant(QStringLiteral("G"));
    QTest::newRow("flag") << QVariant(false) << QVariant(true);
    QTest::newRow("zero for nothing") << QVariant() << QVariant(0);
}

void TestSettingsProfile::differentValueIsApplied()
{
    QFETCH(QVariant, stored);
    QFETCH(QVariant, value);
    m_profile->SetProfileItem(1, stored);
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, value);
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("1=") + value.toString()));
    QCOMPARE(m_profile->GetProfileItem(1), value);
}

void TestSettingsProfile::invalidValueOfAnAbsentItemDoesNothing()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, QVariant());
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList());
}

void TestSettingsProfile::invalidValueReplacesAStoredOne()
{
    m_profile->SetProfileItem(1, 5);
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, QVariant());
    QVERIFY(!m_profile->GetProfileItem(1).isValid());
    m_profile->ApplyAllSettings();
    // The item is there, with an invalid value.
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1="), QStringLiteral("1=")}));
}

void TestSettingsProfile::disabledProfileStoresOnly()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->DisableApplySettings();
    m_profile->SetProfileItem(2, QStringLiteral("b"));
    m_profile->SetProfileItem(1, QStringLiteral("a"));
    QCOMPARE(m_access.applied, QStringList());
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1=a"), QStringLiteral("2=b")}));
}

void TestSettingsProfile::enablingAppliesNothingByItself()
{
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    QCOMPARE(m_access.applied, QStringList());
    m_profile->SetProfileItem(2, 2);
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("2=2")));
}

void TestSettingsProfile::everythingIsAppliedInAscendingOrder()
{
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    for (const int id : {10, -1, highest, 0, 9, lowest, 100})
        m_profile->SetProfileItem(id, QStringLiteral("v%1").arg(id));
    m_profile->SetProfileItem(9, QStringLiteral("set again"));
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied,
             (QStringList{QStringLiteral("-2147483648=v-2147483648"), QStringLiteral("-1=v-1"),
                          QStringLiteral("0=v0"), QStringLiteral("9=set again"), QStringLiteral("10=v10"),
                          QStringLiteral("100=v100"), QStringLiteral("2147483647=v2147483647")}));
}

void TestSettingsProfile::everythingIsAppliedWhetherEnabledOrNot_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::newRow("enabled") << true;
    QTest::newRow("disabled") << false;
}

void TestSettingsProfile::everythingIsAppliedWhetherEnabledOrNot()
{
    QFETCH(bool, enabled);
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileAccess(&m_access);
    if (enabled)
        m_profile->EnableApplySettings();
    m_profile->ApplyAllSettings();
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1=1"), QStringLiteral("1=1")}));
}

void TestSettingsProfile::emptyProfileAppliesNothing()
{
    const LogRecorder log(QsLogging::TraceLevel);
    m_profile->ApplyAllSettings();
    QCOMPARE(log.lines(), QStringList());
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList());
}

void TestSettingsProfile::applyingByHandStoresNothing()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplySetting(4, QStringLiteral("x"));
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("4=x")));
    QVERIFY(!m_profile->GetProfileItem(4).isValid());
}

void TestSettingsProfile::accessMayBeReplacedAndTakenAway()
{
    Access other;
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileAccess(&other);
    m_profile->SetProfileItem(1, 2);
    m_profile->SetProfileAccess(nullptr);
    const LogRecorder log(QsLogging::WarnLevel);
    m_profile->SetProfileItem(1, 3);
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("1=1")));
    QCOMPARE(other.applied, QStringList(QStringLiteral("1=2")));
    QCOMPARE(log.lines(), QStringList(NoAccess));
}

void TestSettingsProfile::missingAccessIsLogged_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("trace") << int(QsLogging::TraceLevel) << QStringList(NoAccess);
    QTest::newRow("warn") << int(QsLogging::WarnLevel) << QStringList(NoAccess);
    QTest::newRow("error") << int(QsLogging::ErrorLevel) << QStringList();
    QTest::newRow("off") << int(QsLogging::OffLevel) << QStringList();
}

void TestSettingsProfile::missingAccessIsLogged()
{
    QFETCH(int, level);
    const LogRecorder log(static_cast<QsLogging::Level>(level));
    m_profile->ApplySetting(1, 1);
    QTEST(log.lines(), "lines");
}

void TestSettingsProfile::missingAccessIsLoggedForEveryItem()
{
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileItem(2, 2);
    const LogRecorder log(QsLogging::WarnLevel);
    m_profile->ApplyAllSettings();
    QCOMPARE(log.lines(), (QStringList{NoAccess, NoAccess}));
}

void TestSettingsProfile::missingAccessKeepsTheItem()
{
    const LogRecorder log(QsLogging::WarnLevel);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, 5);
    QCOMPARE(m_profile->GetProfileItem(1), QVariant(5));
    QCOMPARE(log.lines(), QStringList(NoAccess));
}

void TestSettingsProfile::clearedProfileIsEmpty()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileItem(2, 2);
    m_profile->ClearProfile();
    QVERIFY(!m_profile->GetProfileItem(1).isValid());
    QVERIFY(!m_profile->GetProfileItem(2).isValid());
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList());
}

void TestSettingsProfile::clearingKeepsAccessAndApplying()
{
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, 1);
    m_profile->ClearProfile();
    m_profile->SetProfileItem(1, 1);
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1=1"), QStringLiteral("1=1")}));
}

void TestSettingsProfile::receiverMaySetAnotherItem()
{
    m_access.onApply = [this](int id, const QVariant&) {
        if (id == 1)
            m_profile->SetProfileItem(2, QStringLiteral("follows"));
    };
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, 1);
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1=1"), QStringLiteral("2=follows")}));
}

void TestSettingsProfile::receiverMaySetTheItemAgain()
{
    // The same value ends there; another one, such as a value brought into its range, is applied in turn.
    m_access.onApply = [this](int id, const QVariant& value) {
        m_profile->SetProfileItem(id, qMin(value.toInt(), 10));
    };
    m_profile->SetProfileAccess(&m_access);
    m_profile->EnableApplySettings();
    m_profile->SetProfileItem(1, 5);
    m_profile->SetProfileItem(1, 50);
    QCOMPARE(m_access.applied,
             (QStringList{QStringLiteral("1=5"), QStringLiteral("1=50"), QStringLiteral("1=10")}));
    QCOMPARE(m_profile->GetProfileItem(1), QVariant(10));
}

void TestSettingsProfile::receiverMayChangeItemsWhileAllAreApplied()
{
    for (const int id : {1, 2, 3})
        m_profile->SetProfileItem(id, QStringLiteral("old"));
    m_access.onApply = [this](int id, const QVariant&) {
        if (id == 2) {
            m_profile->SetProfileItem(1, QStringLiteral("new"));
            m_profile->SetProfileItem(3, QStringLiteral("new"));
        }
    };
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    // What is applied last is what is stored.
    QCOMPARE(m_access.applied,
             (QStringList{QStringLiteral("1=old"), QStringLiteral("2=old"), QStringLiteral("3=new")}));
    QCOMPARE(m_profile->GetProfileItem(1), QVariant(QStringLiteral("new")));
}

void TestSettingsProfile::receiverMayAddItemsWhileAllAreApplied()
{
    // An item that is added on the way is none of those to be applied: this ends.
    m_profile->SetProfileItem(1, 1);
    m_profile->SetProfileItem(2, 2);
    m_access.onApply = [this](int id, const QVariant&) { m_profile->SetProfileItem(id + 10, id); };
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, (QStringList{QStringLiteral("1=1"), QStringLiteral("2=2")}));
    QCOMPARE(m_profile->GetProfileItem(11), QVariant(1));
}

void TestSettingsProfile::receiverMayClearTheProfileWhileAllAreApplied()
{
    for (const int id : {1, 2, 3})
        m_profile->SetProfileItem(id, id);
    m_access.onApply = [this](int, const QVariant&) { m_profile->ClearProfile(); };
    m_profile->SetProfileAccess(&m_access);
    m_profile->ApplyAllSettings();
    QCOMPARE(m_access.applied, QStringList(QStringLiteral("1=1")));
}

void TestSettingsProfile::destructorWritesItsLine()
{
    const LogRecorder log(QsLogging::TraceLevel);
    const QString address = QStringLiteral("0x%1").arg(quintptr(m_profile.get()), 0, 16);
    m_profile.reset();
    QCOMPARE(log.lines(), QStringList(QStringLiteral("TRACE Running destructor ->  %1 ").arg(address)));
}

void TestSettingsProfile::destructorWritesNothingAboveTrace()
{
    const LogRecorder log(QsLogging::DebugLevel);
    m_profile.reset();
    QCOMPARE(log.lines(), QStringList());
}

QTEST_APPLESS_MAIN(TestSettingsProfile)
#include "tst_settingsprofile.moc"
