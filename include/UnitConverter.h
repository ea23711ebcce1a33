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
/// The factors of the table are fixed, most of them rounded to nine digits. How far each one departs from the unit's
/// definition, relative to the value:
///
/// | unit | definition | departure |
/// |---|---|---|
/// | "g", "mg", "kg", "ct", "C.M." | SI; the carat 0.2 g | none |
/// | "GN" grain | 64.79891 mg | -1.91e-10 |
/// | "dwt" pennyweight | 24 grains | -5.79e-10 |
/// | "ozt" troy ounce | 480 grains | +9.76e-10 |
/// | "oz" ounce | 1/16 pound | -1.41e-9 |
/// | "lb" pound | 7000 grains = 453.59237 g | -8.39e-10 |
/// | "tlh" tael of Hong Kong | 37.429 g (tael troy) | -1.09e-9 |
/// | "tls" tael of Singapore | 4/3 ounce | -5.53e-8 (seven digits) |
/// | "tlt" tael of Taiwan | 37.5 g | +1.25e-9 |
/// | "mom" momme | 3.75 g | +1.25e-9 |
/// | "tola" tola | 180 grains = 11.6638038 g | none |
/// | "bht" baht | 15.2 g by trade custom | none |
///
/// "None" is within the precision of a double. On 1 kg the largest departure, that of "tls", is 0.06 mg.
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
