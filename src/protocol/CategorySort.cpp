// SPDX-License-Identifier: BSD-3-Clause
#include "CategorySort.h"

#include "IAction.h"
#include "IInfosectionItemProvider.h"
#include "IPrintableItem.h"

#include <algorithm>
#include <limits>

namespace Brimvale
{

namespace
{

// Ranks of add-ons are spread out by this, so that categories are told apart by the last two digits.
constexpr int AddonRankStep = 100;

qint64 saturated(qint64 value)
{
    return qBound<qint64>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max());
}

} // namespace

CategorySort::CategorySort(QObject* parent)
    : QObject(parent)
{
}

CategorySort::~CategorySort() = default;

QList<IPrintableItem*> CategorySort::SortByCategory(QList<IPrintableItem*> items)
{
    std::sort(items.begin(), items.end(), SortFunction);
    return items;
}

QList<IInfosectionItemProvider*> CategorySort::SortByCategory(QList<IInfosectionItemProvider*> items)
{
    std::sort(items.begin(), items.end(), SortFunctionInfo);
    return items;
}

QList<IAction*> CategorySort::SortByCategory(QList<IAction*> actions)
{
    std::sort(actions.begin(), actions.end(), SortFunctionAction);
    return actions;
}

int CategorySort::getAddonByUidRank(int uid)
{
    return static_cast<int>(saturated(qint64(AddonRankStep) * uid + addon_byUid));
}

int CategorySort::getAddonUidByRank(int rank)
{
    return static_cast<int>((qint64(rank) - addon_byUid) / AddonRankStep);
}

// Ranks are asked for again after the test for equality: nothing is kept between two calls of an item.

bool SortFunction(IPrintableItem* a, IPrintableItem* b)
{
    if (a->getRank() == b->getRank()) {
        return a->getUId() < b->getUId();
    }
    return a->getRank() < b->getRank();
}

bool SortFunctionInfo(IInfosectionItemProvider* a, IInfosectionItemProvider* b)
{
    if (a->getRank() == b->getRank()) {
        return a->getUId() < b->getUId();
    }
    return a->getRank() < b->getRank();
}

bool SortFunctionAction(IAction* a, IAction* b)
{
    if (a->getRank() % AddonRankStep == b->getRank() % AddonRankStep) {
        return a->uid() < b->uid();
    }
    return a->getRank() % AddonRankStep < b->getRank() % AddonRankStep;
}

} // namespace Brimvale
