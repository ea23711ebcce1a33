// SPDX-License-Identifier: BSD-3-Clause
#include "IApprovedMode.h"
#include "LogRecorder.h"
#include "UnitsList.h"

#include <QSet>
#include <QSignalSpy>
#include <QtTest>

#include <limits>
#include <memory>

using namespace Brimvale;

namespace
{

constexpr int AllUnits = 0xFFFF;

/// An approval mode with a set of bits in force, which notes what it is asked for.
class Mode : public IApprovedMode
{
public:
    explicit Mode(QSet<int> active)
        : m_active(std::move(active))
    {
    }

    bool IsModeActive(int modeFlag) override
    {
        asked.append(modeFlag);
        return m_active.contains(modeFlag);
    }

    QList<int> asked;

private:
    QSet<int> m_active;
};

/// An approval mode of a host that rebuilds the list whenever it is asked.
class RebuildingMode : public IApprovedMode
{
public:
    explicit RebuildingMode(UnitsList& list)
        : m_list(list)
    {
    }

    bool IsModeActive(int modeFlag) override
    {
        m_list.InitFixUnits(5);
        return modeFlag == ApprovedUnitsOnly || modeFlag == MinimumDecimals;
    }

private:
    UnitsList& m_list;
};

/// A list that knows a name of its own, and answers for every unit with another.
class ListWithDozen : public UnitsList
{
public:
    using UnitsList::getUnitByName;
    using UnitsList::UnitsList;

    UnitDef getUnitByName(const QString&) override
    {
        return UnitDef(QStringLiteral("dozen"), QStringLiteral("dz"), 12.0, 0, 1, false, UnitDef::Gram);
    }

    bool UnitListContainsName(QString name) override
    {
        return name == QLatin1String("dozen") || UnitsList::UnitListContainsName(name);
    }
};

QString described(const UnitDef& unit)
{
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(unit.name(), unit.printName(), QString::number(unit.factor(), 'g', 17))
        .arg(unit.isInverse())
        .arg(unit.format())
        .arg(unit.rounding());
}

} // namespace

class TestUnitsList : public QObject
{
    Q_OBJECT

private slots:
    void fixedUnits_data();
    void fixedUnits();
    void eachUnitHasItsBit();
    void castGivesTheInterface();
    void negativeDecimalsAreLogged();
    void negativeDecimalsChangeNothing();
    void anotherCountReplacesTheUnits();
    void lookups();
    void referenceUnit();
    void referenceUnitIsAnnouncedEveryTime();
    void referenceUnitGoesThroughTheInterface();
    void approvedUnit_data();
    void approvedUnit();
    void approvedUnitAsksOnlyWhatItNeeds();
    void offeredUnits_data();
    void offeredUnits();
    void approvedNames();
    void namesWhileTheHostRebuildsTheList();
    void hugeCountOfDecimals();
    void destructorWritesItsLine();
};

void TestUnitsList::fixedUnits_data()
{
    QTest::addColumn<int>("decimals");
    for (int decimals = 0; decimals <= 8; ++decimals) {
        QTest::addRow("%d", decimals) << decimals;
    }
}

void TestUnitsList::fixedUnits()
{
    QFETCH(int, decimals);
    const int k = decimals;
    struct Row
    {
        const char* text;
        int format;
        bool present;
    };
    const Row rows[] = {{"g|g|1|0|%1|1", k, true},
                        {"mg|mg|1000|0|%1|1", k - 3, k > 2},
                        {"kg|kg|0.001|0|%1|1", k + 3, k <= 4},
                        {"GN|GN|15.43235835|0|%1|1", k - 1, true},
                        {"dwt|dwt|0.643014931|0|%1|1", k, true},
                        {"ozt|ozt|0.0321507466|0|%1|1", k + 1, true},
                        {"oz|oz|0.0352739619|0|%1|1", k + 1, true},
                        {"lb|lb|0.00220462262|0|%1|1", k + 3, true},
                        {"ct|ct|5|0|%1|5", k, true},
                        {"C.M.|C.M.|5|0|%1|5", k, true},
                        {"tlh|tlh|0.0267172513|0|%1|1", k + 1, true},
                        {"tls|tls|0.02645547|0|%1|1", k + 1, true},
                        {"tlt|tlt|0.0266666667|0|%1|1", k + 1, true},
                        {"mom|mom|0.266666667|0|%1|1", k, true},
                        {"tola|tola|11.6638038|1|%1|1", k + 1, true},
                        {"bht|baht|15.2|1|%1|1", k + 1, true}};
    UnitsList list(nullptr, decimals);
    int count = 0;
    for (const Row& row : rows) {
        const QString expected = QString::fromLatin1(row.text).arg(row.format);
        const QString name = expected.section(QLatin1Char('|'), 0, 0);
        QCOMPARE(list.UnitListContainsName(name), row.present);
        if (!row.present) {
            continue;
        }
        ++count;
        const UnitDef unit = list.getUnitByName(name);
        QCOMPARE(unit.factor(), expected.section(QLatin1Char('|'), 2, 2).toDouble());
        QCOMPARE(unit.printName(), expected.section(QLatin1Char('|'), 1, 1));
        QCOMPARE(unit.isInverse(), expected.section(QLatin1Char('|'), 3, 3) == QLatin1String("1"));
        QCOMPARE(unit.format(), row.format);
        QCOMPARE(unit.rounding(), expected.section(QLatin1Char('|'), 5, 5).toInt());
    }
    Mode mode({});
    QCOMPARE(list.getUnitNames(&mode, 0, AllUnits).size(), count);
    QCOMPARE(count, k == 3 || k == 4 ? 16 : 15);
}

void TestUnitsList::eachUnitHasItsBit()
{
    UnitsList list(nullptr, 3);
    Mode mode({});
    const QStringList names =
        QStringLiteral("g mg kg GN dwt ozt oz lb ct C.M. tlh tls tlt mom tola bht").split(QLatin1Char(' '));
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(list.getUnitNames(&mode, 0, 1 << i), QStringList(names.at(i)));
    }
}

void TestUnitsList::castGivesTheInterface()
{
    UnitsList units(nullptr, 1);
    QObject& object = units;
    QCOMPARE(qobject_cast<IUnitsList*>(&object), static_cast<IUnitsList*>(&units));
    QCOMPARE(qobject_interface_iid<IUnitsList*>(), "Brimvale.Messwert.IUnitsList/1.0");
}

void TestUnitsList::negativeDecimalsAreLogged()
{
    const QString line =
        QStringLiteral("WARN  UnitsList::InitFixUnits, cannot intialize fix units with negative koma. ");
    for (const QsLogging::Level level : {QsLogging::WarnLevel, QsLogging::ErrorLevel}) {
        UnitsList list(nullptr, 2);
        const LogRecorder log(level);
        list.InitFixUnits(0);
        QCOMPARE(log.lines(), QStringList());
        list.InitFixUnits(-1);
        QCOMPARE(log.lines(), level == QsLogging::WarnLevel ? QStringList(line) : QStringList());
    }
}

void TestUnitsList::negativeDecimalsChangeNothing()
{
    UnitsList list(nullptr, 2);
    list.InitFixUnits(-1);
    QCOMPARE(list.getUnitByName(QStringLiteral("g")).format(), 2);

    UnitsList empty(nullptr, -1);
    QVERIFY(!empty.UnitListContainsName(QStringLiteral("g")));
    QCOMPARE(empty.getReferenzUnitName(), QStringLiteral("g"));
}

void TestUnitsList::anotherCountReplacesTheUnits()
{
    UnitsList list(nullptr, 5);
    list.setReferenzUnit(QStringLiteral("mg"));
    list.InitFixUnits(0);
    QVERIFY(!list.UnitListContainsName(QStringLiteral("mg")));
    QVERIFY(list.UnitListContainsName(QStringLiteral("kg")));
    QCOMPARE(list.getUnitByName(QStringLiteral("GN")).format(), -1);
    QCOMPARE(list.getReferenzUnitName(), QStringLiteral("mg")); // kept
}

void TestUnitsList::lookups()
{
    UnitsList list(nullptr, 2);
    QVERIFY(!list.UnitListContainsName(QStringLiteral("KG")));
    QVERIFY(!list.UnitListContainsName(QString()));

    UnitDef unit = list.getUnitByName(QStringLiteral("ct"));
    const QString before = described(unit);
    QVERIFY(!list.getUnitByName(QStringLiteral("stone"), unit));
    QCOMPARE(described(unit), before);
    QVERIFY(list.getUnitByName(QStringLiteral("lb"), unit));
    QCOMPARE(unit.name(), QStringLiteral("lb"));

    const UnitDef unknown = list.getUnitByName(QStringLiteral("stone"));
    QCOMPARE(described(unknown), QStringLiteral("g|g|1|0|4|1"));
    QVERIFY(UnitDef(unknown).CheckEnableFlag(1));
}

void TestUnitsList::referenceUnit()
{
    UnitsList list(nullptr, 2);
    QSignalSpy changed(&list, &UnitsList::notifyReferenceUnitChanged);
    QCOMPARE(described(list.getReferenzUnit()), QStringLiteral("g|g|1|0|4|1"));

    list.setReferenzUnit(QStringLiteral("stone"));
    QCOMPARE(list.getReferenzUnitName(), QStringLiteral("g"));
    QCOMPARE(changed.size(), 0);

    list.setReferenzUnit(QStringLiteral("bht"));
    QCOMPARE(list.getReferenzUnitName(), QStringLiteral("bht"));
    QCOMPARE(list.getReferenzUnit().format(), 3);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("bht"));
}

void TestUnitsList::referenceUnitIsAnnouncedEveryTime()
{
    UnitsList list(nullptr, 2);
    QSignalSpy changed(&list, &UnitsList::notifyReferenceUnitChanged);
    list.setReferenzUnit(QStringLiteral("kg"));
    list.setReferenzUnit(QStringLiteral("kg"));
    QCOMPARE(changed.size(), 2);
}

void TestUnitsList::referenceUnitGoesThroughTheInterface()
{
    ListWithDozen list(nullptr, 2);
    QSignalSpy changed(&list, &UnitsList::notifyReferenceUnitChanged);
    list.setReferenzUnit(QStringLiteral("dozen"));
    QCOMPARE(changed.size(), 1);
    // The unit is that of the list itself, or the gram, whatever an override would answer.
    QCOMPARE(described(list.getReferenzUnit()), QStringLiteral("g|g|1|0|4|1"));
    list.setReferenzUnit(QStringLiteral("kg"));
    QCOMPARE(described(list.getReferenzUnit()), QStringLiteral("kg|kg|0.001|0|5|1"));
}

void TestUnitsList::approvedUnit_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("modes");
    QTest::addColumn<int>("minDecimals");
    QTest::addColumn<bool>("approved");
    const QList<int> none;
    const QList<int> minimum = {4096};
    const QList<int> extended = {8192};
    QTest::newRow("gram") << 2 << "g" << none << 9 << true;
    QTest::newRow("carat") << 2 << "ct" << none << 0 << false;
    QTest::newRow("kilogram with enough decimals") << 2 << "kg" << minimum << 3 << true;
    QTest::newRow("kilogram with just enough") << 2 << "kg" << minimum << 5 << true;
    QTest::newRow("kilogram with too few") << 2 << "kg" << minimum << 6 << false;
    QTest::newRow("milligram with too few") << 3 << "mg" << minimum << 3 << false;
    QTest::newRow("milligram, other rule") << 3 << "mg" << extended << 1 << false;
    QTest::newRow("gram, other rule") << 3 << "g" << extended << 3 << true;
    QTest::newRow("ounce with enough decimals") << 3 << "oz" << minimum << 0 << false;
}

void TestUnitsList::approvedUnit()
{
    QFETCH(int, decimals);
    QFETCH(QString, name);
    QFETCH(QList<int>, modes);
    QFETCH(int, minDecimals);
    UnitsList list(nullptr, decimals);
    Mode mode(QSet<int>(modes.begin(), modes.end()));
    QTEST(list.isApprovedUnit(list.getUnitByName(name), &mode, minDecimals), "approved");
}

void TestUnitsList::approvedUnitAsksOnlyWhatItNeeds()
{
    UnitsList list(nullptr, 2);
    Mode none({});
    list.isApprovedUnit(list.getUnitByName(QStringLiteral("oz")), &none, 0);
    QCOMPARE(none.asked, QList<int>());
    list.isApprovedUnit(list.getUnitByName(QStringLiteral("g")), &none, 0);
    QCOMPARE(none.asked, (QList<int>{4096, 8192}));
    Mode minimum({4096, 8192});
    list.isApprovedUnit(list.getUnitByName(QStringLiteral("g")), &minimum, 0);
    QCOMPARE(minimum.asked, QList<int>{4096});
}

void TestUnitsList::offeredUnits_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QList<int>>("modes");
    QTest::addColumn<int>("minDecimals");
    QTest::addColumn<int>("mask");
    QTest::addColumn<QString>("names");
    QTest::newRow("all") << 3 << QList<int>() << 0 << AllUnits
                         << "bht C.M. ct dwt g GN kg lb mg mom oz ozt tlh tls tlt tola";
    QTest::newRow("empty mask") << 3 << QList<int>() << 0 << 0 << "";
    QTest::newRow("some of the mask") << 3 << QList<int>() << 0 << 0x145 << "ct g kg oz";
    QTest::newRow("approved only") << 3 << QList<int>{16} << 0 << AllUnits << "g kg mg";
    QTest::newRow("approved and masked") << 3 << QList<int>{16} << 0 << 0x103 << "g mg";
    QTest::newRow("approved with carat") << 3 << QList<int>{16, 32} << 0 << AllUnits << "ct g kg mg";
    QTest::newRow("carat not in the mask") << 3 << QList<int>{16, 32} << 0 << 0x7 << "g kg mg";
    QTest::newRow("approved with minimum") << 3 << QList<int>{16, 4096} << 3 << AllUnits << "g kg";
    QTest::newRow("minimum without approval") << 3 << QList<int>{4096} << 3 << 0x7 << "g kg mg";
}

void TestUnitsList::offeredUnits()
{
    QFETCH(int, decimals);
    QFETCH(QList<int>, modes);
    QFETCH(int, minDecimals);
    QFETCH(int, mask);
    UnitsList list(nullptr, decimals);
    Mode mode(QSet<int>(modes.begin(), modes.end()));
    QTEST(list.getUnitNames(&mode, minDecimals, mask).join(QLatin1Char(' ')), "names");
}

void TestUnitsList::approvedNames()
{
    UnitsList list(nullptr, 3);
    Mode none({});
    QCOMPARE(list.getApprovedUnitNames(&none, 9).join(QLatin1Char(' ')), QStringLiteral("g kg mg"));
    Mode minimum({8192});
    QCOMPARE(list.getApprovedUnitNames(&minimum, 4).join(QLatin1Char(' ')), QStringLiteral("kg"));
}

void TestUnitsList::namesWhileTheHostRebuildsTheList()
{
    UnitsList offered(nullptr, 3);
    RebuildingMode offeredMode(offered);
    QCOMPARE(offered.getUnitNames(&offeredMode, 1, AllUnits).join(QLatin1Char(' ')), QStringLiteral("g kg"));
    QVERIFY(!offered.UnitListContainsName(QStringLiteral("kg")));

    UnitsList approved(nullptr, 3);
    RebuildingMode approvedMode(approved);
    QCOMPARE(approved.getApprovedUnitNames(&approvedMode, 1).join(QLatin1Char(' ')), QStringLiteral("g kg"));
}

void TestUnitsList::hugeCountOfDecimals()
{
    UnitsList list(nullptr, std::numeric_limits<int>::max());
    QCOMPARE(list.getUnitByName(QStringLiteral("lb")).format(), std::numeric_limits<int>::max());
}

void TestUnitsList::destructorWritesItsLine()
{
    for (const QsLogging::Level level : {QsLogging::TraceLevel, QsLogging::DebugLevel}) {
        const LogRecorder log(level);
        auto units = std::make_unique<UnitsList>(nullptr, 2);
        const QString address = QStringLiteral("0x%1").arg(quintptr(units.get()), 0, 16);
        units.reset();
        const QString line =
            QStringLiteral("TRACE Running destructor ->  Brimvale::UnitsList(%1) ").arg(address);
        QCOMPARE(log.lines(), level == QsLogging::TraceLevel ? QStringList(line) : QStringList());
    }
}

QTEST_APPLESS_MAIN(TestUnitsList)
#include "tst_unitslist.moc"
