// SPDX-License-Identifier: BSD-3-Clause

#include "../common/ObjectTest.h"
#include "CategorySort.h"
#include "IAction.h"
#include "IInfosectionItemProvider.h"
#include "IPrintableItem.h"

#include <QPair>
#include <QPointer>
#include <QRandomGenerator>
#include <QVector>
#include <QtTest>

#include <TestKit/LogCapture.h>
#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

using namespace Brimvale;

namespace
{

// A rank and a unique id; counts how often it is asked. The ranks answer one call each, the last one all that follow.
struct Entry
{
    QVector<int> ranks{0};
    QString id;
    mutable int ranksAsked = 0;
    mutable int idsAsked = 0;

    int nextRank() const
    {
        const int call = ranksAsked++;
        return ranks.at(qMin(call, ranks.size() - 1));
    }
    QString nextId() const
    {
        ++idsAsked;
        return id;
    }
};

struct Item : Entry, IPrintableItem
{
    QString getName() const override { return QString(); }
    QString getUId() const override { return nextId(); }
    QString getCategory() const override { return QString(); }
    int getRank() const override { return nextRank(); }
    bool isEnabled(QFlags<ProtocolType>) const override { return false; }
    bool isAvailableIn(QFlags<ProtocolArea>) const override { return false; }
    void setValue() override { }
    bool Print(IPrinter*, IFormat*) override { return false; }

    static bool less(IPrintableItem* a, IPrintableItem* b) { return SortFunction(a, b); }
    static int key(int rank) { return rank; }
    using Interface = IPrintableItem;
};

struct Provider : Entry, IInfosectionItemProvider
{
    QString getUId() override { return nextId(); }
    int getRank() override { return nextRank(); }

    static bool less(IInfosectionItemProvider* a, IInfosectionItemProvider* b)
    {
        return SortFunctionInfo(a, b);
    }
    static int key(int rank) { return rank; }
    using Interface = IInfosectionItemProvider;
};

struct Action : Entry, IAction
{
    bool enabled() const override { return false; }
    QString name() const override { return QString(); }
    QString uid() const override { return nextId(); }
    int getRank() const override { return nextRank(); }
    void doAction() override { }
    void doAction(QVariant) override { }
    void actionUpdated() override { }
    void workDone(QVariant) override { }

    static bool less(IAction* a, IAction* b) { return SortFunctionAction(a, b); }
    static int key(int rank) { return rank % 100; }
    using Interface = IAction;
};

// The rule, literally: by rank, and by unique id where the ranks are equal.
template <typename Type>
bool ruleLess(const Type& a, const Type& b)
{
    const int keyA = Type::key(a.ranks.first());
    const int keyB = Type::key(b.ranks.first());
    if (keyA != keyB)
        return keyA < keyB;
    return QString::compare(a.id, b.id, Qt::CaseSensitive) < 0;
}

// Runs a function with each of the three types.
template <typename Function>
void withType(const QString& name, Function function)
{
    if (name == QLatin1String("print items"))
        function(Item());
    else if (name == QLatin1String("info providers"))
        function(Provider());
    else if (name == QLatin1String("actions"))
        function(Action());
    else
        QFAIL("unknown type");
}

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Greatest = std::numeric_limits<int>::max();

} // namespace

class TestCategorySort : public QObject
{
    Q_OBJECT

private slots:
    void categoriesAreKnownByName();
    void declaresNothingElse();
    void parentOwnsTheObject();
    void destructorWritesNothing();
    void rankOfAddon_data();
    void rankOfAddon();
    void addonOfRank_data();
    void addonOfRank();
    void comparison_data();
    void comparison();
    void comparisonOfRanks_data() { types(); }
    void comparisonOfRanks();
    void rankIsAskedAgain_data() { types(); }
    void rankIsAskedAgain();
    void idIsAskedForEqualRanksOnly_data() { types(); }
    void idIsAskedForEqualRanksOnly();
    void equalRanksAreNotAskedAgain_data() { types(); }
    void equalRanksAreNotAskedAgain();
    void sorts_data();
    void sorts();
    void shortListsAreUnchanged_data() { types(); }
    void shortListsAreUnchanged();
    void listOfTheCallerIsUnchanged_data() { types(); }
    void listOfTheCallerIsUnchanged();
    void randomListsAreSortedAsTheRuleSays_data() { types(); }
    void randomListsAreSortedAsTheRuleSays();
    void comparisonIsAStrictWeakOrder_data() { types(); }
    void comparisonIsAStrictWeakOrder();

private:
    static void types()
    {
        QTest::addColumn<QString>("type");
        for (const char* name : {"print items", "info providers", "actions"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
};

void TestCategorySort::categoriesAreKnownByName()
{
    const QMetaEnum order = QMetaEnum::fromType<CategorySort::CategoryOrder>();
    QCOMPARE(order.name(), "CategoryOrder");
    QCOMPARE(order.scope(), "Brimvale::CategorySort");
    QVERIFY(!order.isFlag());
    QVERIFY(!order.isScoped());
    QStringList keys;
    for (int i = 0; i < order.keyCount(); ++i)
        keys.append(QStringLiteral("%1=%2").arg(QLatin1String(order.key(i))).arg(order.value(i)));
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("plugin=0 plugin_settings=1 measurement=2 protocol=3 addon_byUid=4 addon=5 "
                            "addon_settings=6 general=7 plugin_general=8 control=9 device=10 "
                            "unselectable=11"));
}

void TestCategorySort::declaresNothingElse()
{
    const QMetaObject& type = CategorySort::staticMetaObject;
    QCOMPARE(type.superClass(), &QObject::staticMetaObject);
    QCOMPARE(type.enumeratorCount() - type.enumeratorOffset(), 1);
    QCOMPARE(ObjectTest::methodsOf(type), QStringList());
    QCOMPARE(ObjectTest::propertiesOf(type), QStringList());
    QCOMPARE(sizeof(CategorySort), sizeof(QObject));
}

void TestCategorySort::parentOwnsTheObject()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<CategorySort> sorter = new CategorySort(parent.get());
    parent.reset();
    QVERIFY(sorter.isNull());
}

void TestCategorySort::destructorWritesNothing()
{
    TestKit::LogCapture log;
    std::make_unique<CategorySort>().reset();
    QCOMPARE(log.lines(), QStringList());
}

void TestCategorySort::rankOfAddon_data()
{
    QTest::addColumn<int>("uid");
    QTest::addColumn<int>("rank");
    QTest::newRow("0") << 0 << 4;
    QTest::newRow("1") << 1 << 104;
    QTest::newRow("2") << 2 << 204;
    QTest::newRow("negative") << -1 << -96;
    QTest::newRow("greatest that has a rank") << 21474836 << 2147483604;
    QTest::newRow("beyond") << 21474837 << Greatest;
    QTest::newRow("greatest") << Greatest << Greatest;
    QTest::newRow("least that has a rank") << -21474836 << -2147483596;
    QTest::newRow("below") << -21474837 << Least;
    QTest::newRow("least") << Least << Least;
}

void TestCategorySort::rankOfAddon()
{
    QFETCH(int, uid);
    QTEST(CategorySort::getAddonByUidRank(uid), "rank");
}

void TestCategorySort::addonOfRank_data()
{
    QTest::addColumn<int>("rank");
    QTest::addColumn<int>("uid");
    QTest::newRow("4") << 4 << 0;
    QTest::newRow("104") << 104 << 1;
    QTest::newRow("204") << 204 << 2;
    QTest::newRow("103") << 103 << 0;
    QTest::newRow("203") << 203 << 1;
    QTest::newRow("3, towards zero") << 3 << 0;
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("-95, towards zero") << -95 << 0;
    QTest::newRow("-96") << -96 << -1;
    QTest::newRow("-195, towards zero") << -195 << -1;
    QTest::newRow("greatest") << Greatest << 21474836;
    QTest::newRow("least") << Least << -21474836;
}

void TestCategorySort::addonOfRank()
{
    QFETCH(int, rank);
    QTEST(CategorySort::getAddonUidByRank(rank), "uid");
}

void TestCategorySort::comparison_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("rankA");
    QTest::addColumn<QString>("idA");
    QTest::addColumn<int>("rankB");
    QTest::addColumn<QString>("idB");
    QTest::addColumn<bool>("aFirst");
    QTest::addColumn<bool>("bFirst");

    // The same rows for all types; an action is ranked by the last two digits.
    const auto row = [](const char* name, int rankA, const char* idA, int rankB, const char* idB, int order,
                        int orderOfActions) {
        const char* const names[] = {"print items", "info providers", "actions"};
        for (int i = 0; i < 3; ++i) {
            const int expected = i == 2 ? orderOfActions : order;
            QTest::addRow("%s: %s", names[i], name)
                << QString::fromLatin1(names[i]) << rankA << QString::fromUtf8(idA) << rankB
                << QString::fromUtf8(idB) << (expected < 0) << (expected > 0);
        }
    };
    row("lower rank", 2, "b", 3, "a", -1, -1);
    row("equal ranks, lower id", 2, "a", 2, "b", -1, -1);
    row("equal ranks and ids", 2, "a", 2, "a", 0, 0);
    row("empty id", 2, "", 2, "a", -1, -1);
    row("prefix of an id", 2, "a", 2, "aa", -1, -1);
    row("digits as text", 2, "10", 2, "9", -1, -1);
    row("capitals first", 2, "B", 2, "a", -1, -1);
    row("case counts", 2, "A", 2, "a", -1, -1);
    row("code units, not the alphabet", 2, "z", 2, "ä", -1, -1);
    row("surrogates before the private area", 2, "\xF0\x9F\x98\x80", 2, "\xEF\x80\x80", -1, -1);
    row("add-on after every category", 11, "b", 104, "a", -1, +1);
    row("add-ons by uid", 104, "b", 204, "a", -1, +1);
    row("205 and 7", 205, "a", 7, "b", +1, -1);
    row("3 and 103", 3, "a", 103, "b", -1, -1);
    row("3 and 103, ids the other way", 3, "b", 103, "a", -1, +1);
    row("negative before zero", -1, "b", 0, "a", -1, -1);
    row("negative, signed remainder", -205, "b", -7, "a", -1, +1);
    row("-100 and 0", -100, "b", 0, "a", -1, +1);
    row("extremes", Least, "b", Greatest, "a", -1, -1);
}

void TestCategorySort::comparison()
{
    QFETCH(QString, type);
    QFETCH(int, rankA);
    QFETCH(QString, idA);
    QFETCH(int, rankB);
    QFETCH(QString, idB);
    withType(type, [&](auto a) {
        decltype(a) b;
        a.ranks = {rankA};
        a.id = idA;
        b.ranks = {rankB};
        b.id = idB;
        QTEST(a.less(&a, &b), "aFirst");
        QTEST(a.less(&b, &a), "bFirst");
        QVERIFY(!a.less(&a, &a));
    });
}

void TestCategorySort::comparisonOfRanks()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        decltype(a) b;
        a.ranks = {2};
        b.ranks = {3};
        QVERIFY(a.less(&a, &b));
        QCOMPARE(a.ranksAsked, 2);
        QCOMPARE(b.ranksAsked, 2);
    });
}

void TestCategorySort::rankIsAskedAgain()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        decltype(a) b;
        a.ranks = {5, 1};
        b.ranks = {3, 3};
        QVERIFY(a.less(&a, &b));
        a.ranksAsked = b.ranksAsked = 0;
        a.ranks = {3, 3};
        b.ranks = {5, 1};
        QVERIFY(!a.less(&a, &b));
        a.ranksAsked = b.ranksAsked = 0;
        // Equal by then: neither is less, and the ids do not matter any more.
        b.ranks = {5, 3};
        a.id = QStringLiteral("a");
        b.id = QStringLiteral("b");
        QVERIFY(!a.less(&a, &b));
        QCOMPARE(a.idsAsked + b.idsAsked, 0);
    });
}

void TestCategorySort::idIsAskedForEqualRanksOnly()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        decltype(a) b;
        b.ranks = {1};
        QVERIFY(a.less(&a, &b));
        QCOMPARE(a.idsAsked, 0);
        QCOMPARE(b.idsAsked, 0);
    });
}

void TestCategorySort::equalRanksAreNotAskedAgain()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        decltype(a) b;
        a.id = QStringLiteral("b");
        b.id = QStringLiteral("a");
        QVERIFY(!a.less(&a, &b));
        QCOMPARE(a.ranksAsked, 1);
        QCOMPARE(b.ranksAsked, 1);
        QCOMPARE(a.idsAsked, 1);
        QCOMPARE(b.idsAsked, 1);
    });
}

void TestCategorySort::sorts_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("sorted");

    const auto row = [](const char* type, const char* name, const char* list, const char* sorted) {
        QTest::addRow("%s: %s", type, name)
            << QString::fromLatin1(type) << QString::fromLatin1(list) << QString::fromLatin1(sorted);
    };
    for (const char* type : {"print items", "info providers", "actions"}) {
        row(type, "ids", "2b 2a", "2a 2b");
        row(type, "categories", "11a 9a 2a 10a 0a 7a", "0a 2a 7a 9a 10a 11a");
        row(type, "sorted already", "0a 0b 1a", "0a 0b 1a");
    }
    for (const char* type : {"print items", "info providers"})
        row(type, "add-ons last", "204a 104b 11a 0a 104a", "0a 11a 104a 104b 204a");
    row("actions", "add-ons among the categories", "7a 205a 103a 3b 204a 0a", "0a 103a 3b 204a 205a 7a");
}

void TestCategorySort::sorts()
{
    QFETCH(QString, type);
    QFETCH(QString, list);
    withType(type, [&](auto type) {
        using Type = decltype(type);
        std::vector<std::unique_ptr<Type>> entries;
        QList<typename Type::Interface*> interfaces;
        for (const QString& text : list.split(QLatin1Char(' '))) {
            entries.push_back(std::make_unique<Type>());
            entries.back()->ranks = {text.chopped(1).toInt()};
            entries.back()->id = text.right(1);
            interfaces.append(entries.back().get());
        }
        CategorySort sorter;
        QStringList sorted;
        for (typename Type::Interface* entry : sorter.SortByCategory(interfaces)) {
            const Type* const found = static_cast<Type*>(entry);
            sorted.append(QString::number(found->ranks.first()) + found->id);
        }
        QTEST(sorted.join(QLatin1Char(' ')), "sorted");
    });
}

void TestCategorySort::shortListsAreUnchanged()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        using List = QList<typename decltype(a)::Interface*>;
        CategorySort sorter;
        QCOMPARE(sorter.SortByCategory(List()), List());
        const List one{&a};
        QCOMPARE(sorter.SortByCategory(one), one);
    });
}

void TestCategorySort::listOfTheCallerIsUnchanged()
{
    QFETCH(QString, type);
    withType(type, [](auto a) {
        decltype(a) b;
        using List = QList<typename decltype(a)::Interface*>;
        a.ranks = {2};
        b.ranks = {1};
        CategorySort sorter;
        const List list{&a, &b};
        const List shared = list;
        QCOMPARE(sorter.SortByCategory(list), (List{&b, &a}));
        QCOMPARE(list, (List{&a, &b}));
        QCOMPARE(shared, (List{&a, &b}));
    });
}

namespace
{

const int Ranks[] = {Least, -205, -100, -1,  0,   1,   2,   3,    4,       7,
                     11,    99,   100,  103, 104, 204, 205, 1004, Greatest};
const char* const Ids[] = {"", "a", "A", "aa", "b", "10", "9", "ä", "\xF0\x9F\x98\x80"};

template <typename Type>
void fill(Type& entry, QRandomGenerator& random)
{
    // Half of the entries crowd on few keys, so that ids decide; the others take any rank.
    const quint32 kind = random.bounded(10u);
    entry.ranks = {kind < 5   ? Ranks[random.bounded(4, 8)] + 100 * random.bounded(3)
                   : kind < 9 ? Ranks[random.bounded(int(std::size(Ranks)))]
                              : int(random.generate())};
    entry.id = QString::fromUtf8(Ids[random.bounded(int(std::size(Ids)))]);
}

} // namespace

void TestCategorySort::randomListsAreSortedAsTheRuleSays()
{
    QFETCH(QString, type);
    withType(type, [](auto type) {
        using Type = decltype(type);
        using List = QList<typename Type::Interface*>;
        QRandomGenerator random(20201);
        std::vector<Type> entries(40);
        CategorySort sorter;
        for (int round = 0; round < 10000; ++round) {
            const int count = random.bounded(int(entries.size()) + 1);
            List list;
            QVector<const Type*> expected;
            for (int i = 0; i < count; ++i) {
                fill(entries[i], random);
                list.append(&entries[i]);
                // Put in before the first that is greater.
                int place = expected.size();
                while (place > 0 && ruleLess(entries[i], *expected.at(place - 1)))
                    --place;
                expected.insert(place, &entries[i]);
            }

            const List sorted = sorter.SortByCategory(list);
            QCOMPARE(sorted.size(), count);
            List found = sorted;
            std::sort(found.begin(), found.end());
            std::sort(list.begin(), list.end());
            QCOMPARE(found, list); // the same entries, each once
            for (int i = 0; i < count; ++i) {
                // Those that are equal may stand in any order.
                const Type& entry = *static_cast<Type*>(sorted.at(i));
                QVERIFY2(!ruleLess(entry, *expected.at(i)) && !ruleLess(*expected.at(i), entry),
                         qPrintable(QStringLiteral("list %1, place %2: %3 \"%4\" instead of %5 \"%6\"")
                                        .arg(round)
                                        .arg(i)
                                        .arg(entry.ranks.first())
                                        .arg(entry.id)
                                        .arg(expected.at(i)->ranks.first())
                                        .arg(expected.at(i)->id)));
            }
        }
    });
}

void TestCategorySort::comparisonIsAStrictWeakOrder()
{
    QFETCH(QString, type);
    withType(type, [](auto type) {
        using Type = decltype(type);
        QRandomGenerator random(30303);
        constexpr int Count = 7;
        std::vector<Type> entries(Count);
        for (int round = 0; round < 10000; ++round) {
            bool less[Count][Count];
            for (Type& entry : entries)
                fill(entry, random);
            for (int a = 0; a < Count; ++a) {
                for (int b = 0; b < Count; ++b) {
                    less[a][b] = Type::less(&entries[a], &entries[b]);
                    QCOMPARE(less[a][b], ruleLess(entries[a], entries[b]));
                }
            }
            for (int a = 0; a < Count; ++a) {
                QVERIFY(!less[a][a]);
                for (int b = 0; b < Count; ++b) {
                    QVERIFY(!(less[a][b] && less[b][a]));
                    for (int c = 0; c < Count; ++c) {
                        if (less[a][b] && less[b][c] && !less[a][c])
                            QFAIL("not transitive");
                        const bool equalPairs = !less[a][b] && !less[b][a] && !less[b][c] && !less[c][b];
                        if (equalPairs && (less[a][c] || less[c][a]))
                            QFAIL("equality is not transitive");
                    }
                }
            }
        }
    });
}

QTEST_GUILESS_MAIN(TestCategorySort)
#include "tst_categorysort.moc"
