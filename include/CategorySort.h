// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_CATEGORYSORT_H
#define BRIMVALE_CATEGORYSORT_H

#include "SharedLibsGlobal.h"

#include <QList>
#include <QObject>

namespace Brimvale
{

class IAction;
class IInfosectionItemProvider;
class IPrintableItem;

/// Sorts what plug-ins offer by category and uid, and carries the scale of categories.
class BRIMVALE_EXPORT CategorySort : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(CategorySort)

public:
    /// The categories in the order of display; the rank of an item is one of them, or that of an add-on.
    enum CategoryOrder
    {
        plugin = 0,
        plugin_settings = 1,
        measurement = 2,
        protocol = 3,
        addon_byUid =
            4, ///< the rank of the add-on u is 100 u + 4, so that add-ons follow the fixed categories by uid
        addon = 5,
        addon_settings = 6,
        general = 7,
        plugin_general = 8,
        control = 9,
        device = 10,
        unselectable = 11
    };
    Q_ENUM(CategoryOrder)

    /// Makes a sorter, which has no state. `parent` owns it.
    explicit CategorySort(QObject* parent = nullptr);
    ~CategorySort() override;

    // Each returns a sorted copy. Entries that are equal in rank and uid have no guaranteed order; no entry may be
    // null.

    /// Sorts print items by rank, then by uid.
    QList<IPrintableItem*> SortByCategory(QList<IPrintableItem*> items);

    /// Sorts providers of the info section by rank, then by uid.
    QList<IInfosectionItemProvider*> SortByCategory(QList<IInfosectionItemProvider*> items);

    /// Sorts actions by the last two digits of their rank, then by uid: those of add-ons stand among the others.
    QList<IAction*> SortByCategory(QList<IAction*> actions);

    /// The rank of the add-on with that uid: 100 × uid + 4, limited to the range of 32 bits.
    static int getAddonByUidRank(int uid);

    /// The uid of the add-on with that rank: (rank - 4) / 100, truncated toward zero.
    static int getAddonUidByRank(int rank);
};

/// Whether print item `a` stands before `b`: by rank, among equals by uid in the order of UTF-16 code units.
BRIMVALE_EXPORT bool SortFunction(IPrintableItem* a, IPrintableItem* b);

/// Whether provider `a` stands before `b`: by rank, among equals by uid.
BRIMVALE_EXPORT bool SortFunctionInfo(IInfosectionItemProvider* a, IInfosectionItemProvider* b);

/// Whether action `a` stands before `b`: by rank modulo 100 (with the sign of the rank), among equals by uid.
BRIMVALE_EXPORT bool SortFunctionAction(IAction* a, IAction* b);

} // namespace Brimvale

#endif
