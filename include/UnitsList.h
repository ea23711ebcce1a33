// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_UNITSLIST_H
#define BRIMVALE_UNITSLIST_H

#include "IUnitsList.h"
#include "SharedLibsGlobal.h"
#include "UnitDef.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

namespace Brimvale
{

/// The terminal's catalogue of weighing units and its reference unit.
///
/// Used on the thread that owns it.
class BRIMVALE_EXPORT UnitsList : public QObject, public IUnitsList
{
    Q_OBJECT
    Q_DISABLE_COPY(UnitsList)
    Q_INTERFACES(Brimvale::IUnitsList)

public:
    /// Makes the fixed units for `decimals` places of the gram reading ("koma"), see `InitFixUnits()`. The reference
    /// unit is the gram with four decimal places, whatever `decimals` is. `parent` owns the list.
    UnitsList(QObject* parent, int decimals);
    ~UnitsList() override;

    QStringList getUnitNames(IApprovedMode* mode, int minDecimals, int enableMask) override;
    QStringList getApprovedUnitNames(IApprovedMode* mode, int minDecimals) override;
    bool getUnitByName(const QString& name, UnitDef& out) override;
    UnitDef getUnitByName(const QString& name) override;
    bool UnitListContainsName(QString name) override;

    /// Makes the unit of that name the reference unit and emits `notifyReferenceUnitChanged()`, also when it is the
    /// reference unit already. Nothing happens for an unknown name.
    void setReferenzUnit(QString name) override;

    UnitDef getReferenzUnit() override;
    QString getReferenzUnitName() override;

    /// Replaces the units by the fixed ones for `decimals` places of the gram reading: milligrams only with more than
    /// two, kilograms only with up to four. A negative count is refused with a warning in the log, and the units stay
    /// as they are. The reference unit stays in either case.
    void InitFixUnits(int decimals);

    /// Whether the unit may be used for trade: the gram, milligram and kilogram, and while the approval mode asks for
    /// a minimum of decimal places (`IApprovedMode::MinimumDecimals` or `MinimumDecimalsExtended`) only with at least
    /// `minDecimals`. `mode` must not be null.
    bool isApprovedUnit(UnitDef unit, IApprovedMode* mode, int minDecimals);

signals:
    /// The reference unit was set to the unit of that name.
    void notifyReferenceUnitChanged(QString name);

private:
    QMap<QString, UnitDef> m_units;
    UnitDef m_referenceUnit;
};

} // namespace Brimvale

#endif
