// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IUNITSLIST_H
#define BRIMVALE_IUNITSLIST_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace Brimvale
{

class IApprovedMode;
class UnitDef;

/// The catalogue of weighing units and the reference unit. Implemented by `UnitsList`.
class BRIMVALE_EXPORT IUnitsList
{
public:
    virtual ~IUnitsList();

    /// The names of the units that may be offered in the approval mode in force, sorted without regard to
    /// case: all of them, or, with approved units only in force, the approved ones and the carat where it is
    /// allowed. `minDecimals` is the least count of decimal places of an approved unit, asked for only in
    /// the modes with that rule. `enableMask` holds the bits of the units that are switched on
    /// (`UnitDef::UnitEnableFlag`). `mode` must not be null and is not kept.
    virtual QStringList getUnitNames(IApprovedMode* mode, int minDecimals, int enableMask) = 0;

    /// The names of the units approved for trade, sorted without regard to case. `mode` and `minDecimals` as
    /// for `getUnitNames()`.
    virtual QStringList getApprovedUnitNames(IApprovedMode* mode, int minDecimals) = 0;

    /// Copies the unit into `out`. Returns false and leaves `out` untouched when there is none of that
    /// name.
    virtual bool getUnitByName(const QString& name, UnitDef& out) = 0;

    /// The unit of that name, or the gram when there is none.
    virtual UnitDef getUnitByName(const QString& name) = 0;

    /// Whether there is a unit of exactly that name.
    virtual bool UnitListContainsName(QString name) = 0;

    /// Makes the unit of that name the reference unit and announces it; an unknown name is ignored.
    virtual void setReferenzUnit(QString name) = 0;

    /// A copy of the reference unit.
    virtual UnitDef getReferenzUnit() = 0;

    /// The name of the reference unit.
    virtual QString getReferenzUnitName() = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IUnitsList, "Brimvale.Messwert.IUnitsList/1.0")

#endif
