// SPDX-License-Identifier: BSD-3-Clause
#include "host/Units.h"

#include "UnitConverter.h"
#include "UnitDef.h"
#include "host/ApprovedMode.h"
#include "measuring/Scale.h"

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// By their numbers.
const char* const UnitNames[] = {"g",  "mg",   "kg",  "GN",  "dwt", "ozt", "oz",   "lb",
                                 "ct", "C.M.", "tlh", "tls", "tlt", "mom", "tola", "bht"};

} // namespace

Units::Units(ApprovedMode& mode, const Scale& scale, QObject* parent)
    : QObject(parent)
    , m_mode(mode)
    , m_scale(scale)
    , m_list(nullptr, scale.decimals())
{
    m_list.setReferenzUnit(m_chosenMain);
    connect(&m_list, &UnitsList::notifyReferenceUnitChanged, this, &Units::changed);
    connect(&scale, &Scale::decimalsChanged, this, &Units::refresh);
}

void Units::setApproval(const ApprovalSettings& approval)
{
    ApprovalSettings limited = approval;
    limited.minimumDecimals = qBound(0, approval.minimumDecimals, ApprovalSettings::MaximumDecimals + 0);
    limited.reducedDigits = qBound(0, approval.reducedDigits, ApprovalSettings::MaximumReducedDigits + 0);
    if (limited == m_approval) {
        return;
    }
    m_approval = limited;
    m_mode.setModes((limited.approvedUnitsOnly ? IApprovedMode::ApprovedUnitsOnly : 0)
                    | (limited.caratAllowed ? IApprovedMode::CaratAllowed : 0)
                    | (limited.minimumDecimals > 0 ? IApprovedMode::MinimumDecimals : 0)
                    | (limited.auxiliaryDigit ? IApprovedMode::MinimumDecimalsExtended : 0));
    refresh();
}

void Units::setEnabledUnits(int mask)
{
    m_enabled = (mask & AllUnits) == 0 ? AllUnits : mask & AllUnits;
    refresh();
}

int Units::enableMask(const QStringList& names, QString* unknown)
{
    const QStringList all = allNames();
    int mask = 0;
    for (const QString& name : names) {
        const int number = all.indexOf(name);
        if (number < 0) {
            *unknown = name;
            return 0;
        }
        mask |= 1 << number;
    }
    return mask;
}

QStringList Units::allNames()
{
    QStringList names;
    for (const char* const name : UnitNames) {
        names.append(QString::fromLatin1(name));
    }
    return names;
}

QStringList Units::offered() const
{
    return m_list.getUnitNames(&m_mode.unlogged(), m_approval.minimumDecimals, m_enabled);
}

QString Units::mainUnit() const
{
    return m_list.getReferenzUnitName();
}

QString Units::smallUnit() const
{
    return offered().contains(m_chosenSmall) ? m_chosenSmall : QString();
}

bool Units::setMainUnit(const QString& name)
{
    if (!offered().contains(name)) {
        return false;
    }
    m_chosenMain = name;
    m_list.setReferenzUnit(name);
    return true;
}

bool Units::setSmallUnit(const QString& name)
{
    if (!name.isEmpty() && !offered().contains(name)) {
        return false;
    }
    m_chosenSmall = name;
    emit changed();
    return true;
}

void Units::restore(const QString& mainUnit, const QString& smallUnit)
{
    const QStringList all = allNames();
    if (all.contains(mainUnit)) {
        m_chosenMain = mainUnit;
    }
    if (smallUnit.isEmpty() || all.contains(smallUnit)) {
        m_chosenSmall = smallUnit;
    }
    refresh();
}

void Units::stepMainUnit()
{
    const QStringList names = offered();
    if (!names.isEmpty()) {
        setMainUnit(names.at((names.indexOf(mainUnit()) + 1) % names.size()));
    }
}

void Units::stepSmallUnit()
{
    QStringList names = offered();
    names.removeOne(mainUnit());
    setSmallUnit(names.value(names.indexOf(smallUnit()) + 1));
}

int Units::currentNumber() const
{
    return qMax(Gram + 0, allNames().indexOf(mainUnit()));
}

QString Units::nameOf(int number) const
{
    const QString name = number >= 0 ? allNames().value(number) : QString();
    return m_list.UnitListContainsName(name) ? name : QString();
}

MesswertData Units::converted(double digits, const QString& name, bool coarse) const
{
    const UnitDef unit = m_list.getUnitByName(name);
    UnitConverter converter;
    MesswertData data =
        converter.ConvertDigitToUnit(digits, m_scale.decimals(), m_approval.reducedDigits, coarse, unit);
    if (data.decimals < 0) {
        // The value is rounded to tens of the unit; its text needs no decimal places.
        data.decimals = 0;
        data.messwert = converter.GetValueString(data.value, 0, 0);
        data.unit = data.messwert == overflowText() ? QString() : unit.name();
    }
    data.eichDigit = m_approval.auxiliaryDigit && data.resolutionReduction == 0 ? 1 : 0;
    return data;
}

void Units::refresh()
{
    m_list.InitFixUnits(m_scale.decimals());
    const QStringList names = offered();
    QString unit = QStringLiteral("g");
    if (names.contains(m_chosenMain)) {
        unit = m_chosenMain;
    } else if (!names.isEmpty() && !names.contains(unit)) {
        unit = names.first();
    }
    // Even the same one again: it follows the decimals, and the displays are told.
    m_list.setReferenzUnit(unit);
}

} // namespace Terminal
} // namespace Brimvale
