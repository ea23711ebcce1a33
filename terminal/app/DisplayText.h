// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_DISPLAYTEXT_H
#define BRIMVALE_DISPLAYTEXT_H

#include <QString>

namespace Brimvale
{
namespace Terminal
{

class InstrumentModel;

/// What a person reads off the main display, in words.
struct DisplayText
{
    /// What @p instrument shows.
    static DisplayText of(const InstrumentModel& instrument);

    QString value;       ///< The value with its unit, or the error; empty: nothing is shown.
    bool stable = false; ///< The stability mark is lit.
    bool net = false;    ///< The net mark is lit.
    bool error = false;  ///< value is an error.
    QString small;       ///< The small display with its unit; empty: it shows nothing.
    bool coarse = false; ///< The mark of the coarse range is lit.

    /// All of it in one line: "36.4 g  stable  net", "Overload", "nothing".
    QString line() const;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_DISPLAYTEXT_H
