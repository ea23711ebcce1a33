// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_UNITS_H
#define BRIMVALE_UNITS_H

#include "MesswertData.h"
#include "UnitsList.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace Brimvale
{
namespace Terminal
{

class ApprovedMode;
class Scale;

/// What an approved scale restricts, as it is set at the bench.
struct ApprovalSettings
{
    /// Most decimal places that can be asked for, and most digits that can be taken off.
    static constexpr int MaximumDecimals = 7;
    static constexpr int MaximumReducedDigits = 3;

    bool approvedUnitsOnly = false; ///< Only gram, milligram and kilogram are offered.
    bool caratAllowed = false;      ///< The carat is offered in spite of that.
    int minimumDecimals = 0;        ///< An approved unit must show so many decimal places; 0: no such rule.
    bool auxiliaryDigit = false;    ///< The last digit is not verified and is shown in a frame.
    int reducedDigits = 0;          ///< Digits that the display leaves out.

    friend bool operator==(const ApprovalSettings& a, const ApprovalSettings& b)
    {
        return a.approvedUnitsOnly == b.approvedUnitsOnly && a.caratAllowed == b.caratAllowed
               && a.minimumDecimals == b.minimumDecimals && a.auxiliaryDigit == b.auxiliaryDigit
               && a.reducedDigits == b.reducedDigits;
    }
    friend bool operator!=(const ApprovalSettings& a, const ApprovalSettings& b) { return !(a == b); }
};

/// The units of the terminal: which ones are offered in the approval mode in force, in which ones main and small
/// display show the weight, and weights in them.
///
/// What the person chose is kept while it is not offered, and comes back with it; meanwhile the gram takes its place,
/// or the first unit that is offered. Where the mode leaves no unit at all, weights are shown in gram.
class Units : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Units)

public:
    /// The number of the gram. A unit's number is the position of its bit in UnitDef::UnitEnableFlag.
    static constexpr int Gram = 0;
    /// All units.
    static constexpr int AllUnits = 0xFFFF;

    /// @param mode, scale not owned, must outlive the object.
    Units(ApprovedMode& mode, const Scale& scale, QObject* parent = nullptr);

    ApprovalSettings approval() const { return m_approval; }
    /// Sets what is restricted, out of range limited. Changes what is offered at once.
    void setApproval(const ApprovalSettings& approval);

    /// Bits of the units that this scale has at all; 0 counts as AllUnits.
    void setEnabledUnits(int mask);
    /// The bits of @p names; 0, and the first unknown name in @p unknown, when there is one.
    static int enableMask(const QStringList& names, QString* unknown);
    /// The names of all units that there are, in the order of their numbers.
    static QStringList allNames();

    /// What the unit key steps through, sorted.
    QStringList offered() const;
    /// The unit of the main display: the reference unit of the units list.
    QString mainUnit() const;
    /// The unit of the small display; empty: it has none of its own.
    QString smallUnit() const;
    /// What the person chose, offered at the moment or not.
    QString chosenMainUnit() const { return m_chosenMain; }
    QString chosenSmallUnit() const { return m_chosenSmall; }

    /// Chooses a unit that is offered; returns false otherwise.
    bool setMainUnit(const QString& name);
    /// The same for the small display; empty takes its unit away.
    bool setSmallUnit(const QString& name);
    /// Chooses what need not be offered now, such as what was chosen in an earlier run. Unknown names are ignored.
    void restore(const QString& mainUnit, const QString& smallUnit);
    /// On to the next unit that is offered, after the last to the first.
    void stepMainUnit();
    /// The same, with no unit between the last and the first. The main display's unit is left out.
    void stepSmallUnit();

    /// The number of the main display's unit for `ISystem::GetCurrentUnit()`.
    int currentNumber() const;
    /// The name of the unit @p number, when there is one of that number on this scale; empty otherwise.
    QString nameOf(int number) const;

    /// @p digits of the gram reading in the unit @p name, as the display shows them: with value, text, unit, decimals,
    /// coarse range, reduced and unverified digits; everything else as in the empty record.
    MesswertData converted(double digits, const QString& name, bool coarse) const;
    /// What the text of a value is that does not fit into the display.
    static QString overflowText() { return QStringLiteral("OF"); }

signals:
    /// What is offered, or what the displays show, has changed.
    void changed();

private:
    void refresh();

    ApprovedMode& m_mode;
    const Scale& m_scale;
    // Asking it changes nothing, but its operations are not const.
    mutable UnitsList m_list;
    ApprovalSettings m_approval;
    int m_enabled = AllUnits;
    QString m_chosenMain = QStringLiteral("g");
    QString m_chosenSmall;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_UNITS_H
