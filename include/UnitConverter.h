// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_UNITCONVERTER_H
#define BRIMVALE_UNITCONVERTER_H

#include "MesswertData.h"
#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class UnitDef;

/// Converts weights between digits and units and writes them as the display shows them.
///
/// *Digits* are a weight as a count of steps of 10^-d gram, where d is the count of decimal places of the gram
/// reading. A *unit by name* is one of a built-in table: "g", "mg", "kg", "GN", "dwt", "ozt", "oz", "lb", "ct",
/// "C.M.", "tlh", "tls", "tlt", "mom", "tola" and "bht", compared exactly; any other name counts as the gram. Rounding
/// is that of `Utility::Round()`.
///
/// No operation reports an error: a zero factor or rounding step gives an infinite value or none. The converter has
/// no state, so one object, even a temporary, serves all.
///
/// The factors of the table against the legal definitions (grain 64.79891 mg, avoirdupois pound 7000 grains,
/// pennyweight 24 grains, troy ounce 480 grains; tael of Hong Kong 37.429 g, of Singapore 37.799364167 g, of Taiwan
/// 37.5 g, momme 3.75 g, tola 11.6638038 g, baht 15.2 g): each is the definition written with nine significant digits,
/// so that it departs from it by less than 1.5e-9 of its value; gram, kilogram, milligram and carat are exact.
class BRIMVALE_EXPORT UnitConverter
{
public:
    /// Stores the factor and the exponent of a unit by name: one unit stands for `factor` units per 10^`exponent` g.
    void getUnitFactor(QString unit, double* factor, int* exponent);

    /// Rounds to a multiple of 10^(max(k, 0) + 1) if `oneMore` is set, else of 10^max(k, 0).
    double Round(double value, int k, bool oneMore);

    /// As the simpler `Round()`, but in the carat units ("ct", "C.M.") to the unit's rounding step, truncated to a
    /// 32-bit integer. The simpler rounding is kept when the unit's step is 1 and where nothing is to be rounded: with
    /// `mode` "single" for k of 0 or less; with any other mode for k of 0 or less if `oneMore` is set and for k of 1 or
    /// less if it is not.
    double Round(double value, int k, bool oneMore, const UnitDef& unit, QString mode);

    /// Rounds to an integer in the range of 32 bits.
    double RoundToInt(double x);

    /// Converts `value` in a unit by name into digits with `decimals` places of the gram reading, with `fraction`
    /// decimal places of a digit.
    double GetDigitValue(double value, int decimals, QString unit, int fraction);

    /// Writes `value` with `decimals` places, less `reduction` if that is above 0 and not above `decimals`. A text of
    /// more than nine characters, the point included and a leading "-" not counted, gives "OF". A negative number of
    /// places gives six, as in `QString::arg()`.
    QString GetValueString(double value, int decimals, int reduction);

    /// The smaller of `decimals` and `requested`. `isGrobRange` changes nothing.
    int CalculateResolutionReduction(int decimals, int requested, bool isGrobRange);

    /// Converts digits into a unit: value, text, unit texts, decimals and resolution reduction as the display needs
    /// them, all other members as in the empty record.
    ///
    /// \param digits the weight in steps of 10^-`decimals` gram
    /// \param decimals decimal places of the gram reading; with 0 or less nothing is reduced
    /// \param maxReduction digits to take off the value, limited to the decimals shown
    /// \param isGrobRange the weight lies in the coarse range, which shows one decimal place less
    /// \param unit the unit, with its rounding step
    ///
    /// When the text is "OF" the unit text stays empty, and the numeric value is still given.
    MesswertData ConvertDigitToUnit(double digits, int decimals, int maxReduction, bool isGrobRange,
                                    const UnitDef& unit);

    /// As above for a unit by name: the value is rounded to whole digits of the unit, there is no rounding step, a
    /// negative count of decimals becomes 0, the reduction applies whatever `decimals` is, and the unit's print text
    /// stays empty.
    MesswertData ConvertDigitToUnit(double digits, int decimals, int maxReduction, bool isGrobRange,
                                    QString unit);
};

} // namespace Brimvale

#endif
