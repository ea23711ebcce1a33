// SPDX-License-Identifier: BSD-3-Clause

// What it costs to put the entries of menus and print-outs in order.

#include "ActionBase.h"
#include "AllocationCount.h"
#include "CategorySort.h"
#include "PrintableItemBase.h"

#include <QList>
#include <QObject>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

using namespace Brimvale;

namespace
{

constexpr int Count = 200;
constexpr unsigned Seed = 1;

class Item : public PrintableItemBase
{
public:
    using PrintableItemBase::PrintableItemBase;

    QString getName() const override { return getUId(); }
    bool Print(IPrinter*, IFormat*) override { return false; }
};

// Many entries share a category, so that their uids decide.
template <typename Entry, typename Interface>
const QList<Interface*>& entries()
{
    static std::vector<std::unique_ptr<Entry>> owned;
    static const QList<Interface*> list = [] {
        QList<Interface*> result;
        std::mt19937 random(Seed);
        for (int i = 0; i < Count; ++i) {
            auto entry = std::make_unique<Entry>(nullptr);
            entry->setUid(QStringLiteral("com.example.entry.%1").arg(random() % 1000));
            entry->setRank(int(random() % 12) + 100 * int(random() % 5));
            result.append(entry.get());
            owned.push_back(std::move(entry));
        }
        return result;
    }();
    return list;
}

template <typename Interface>
void sortWithStd(benchmark::State& state, const QList<Interface*>& list,
                 bool (*isBefore)(Interface*, Interface*))
{
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        QList<Interface*> sorted = list;
        std::sort(sorted.begin(), sorted.end(), isBefore);
        benchmark::DoNotOptimize(sorted);
    }
}

template <typename Interface>
void sortByCategory(benchmark::State& state, const QList<Interface*>& list,
                    bool (*isBefore)(Interface*, Interface*))
{
    CategorySort sort;
    const QList<Interface*> sorted = sort.SortByCategory(list);
    if (!std::is_sorted(sorted.begin(), sorted.end(), isBefore)) {
        state.SkipWithError("the entries are not sorted");
        return;
    }
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(sort.SortByCategory(list));
}

void actionsWithStd(benchmark::State& state)
{
    sortWithStd<IAction>(state, entries<ActionBase, IAction>(), SortFunctionAction);
}
BENCHMARK(actionsWithStd)->Name("CategorySort of 200 actions/limit:std::sort");

void actions(benchmark::State& state)
{
    sortByCategory<IAction>(state, entries<ActionBase, IAction>(), SortFunctionAction);
}
BENCHMARK(actions)->Name("CategorySort of 200 actions/ours");

void printItemsWithStd(benchmark::State& state)
{
    sortWithStd<IPrintableItem>(state, entries<Item, IPrintableItem>(), SortFunction);
}
BENCHMARK(printItemsWithStd)->Name("CategorySort of 200 print items/limit:std::sort");

void printItems(benchmark::State& state)
{
    sortByCategory<IPrintableItem>(state, entries<Item, IPrintableItem>(), SortFunction);
}
BENCHMARK(printItems)->Name("CategorySort of 200 print items/ours");

} // namespace
