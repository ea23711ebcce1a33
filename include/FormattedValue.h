// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FORMATTEDVALUE_H
#define BRIMVALE_FORMATTEDVALUE_H

#include <QString>

namespace Brimvale
{

/// A measured value as the host's formatter has laid it out for printing. Filled by `IFormat::ConvertValue` and
/// handed back to the line operations of `IFormat`; the library reads only `isStable` and `errorText`.
struct FormattedValue
{
    char valueMark = 0; ///< mark printed beside the value (such as calculated), 0 or a blank for none
    char bracketedDigitCount = 0; ///< count of trailing digits set in brackets: they are not verified
    bool isStable = false;        ///< the value was stable when it was read
    QString text;                 ///< the value with its unit, ready for a column
    QString errorText; ///< not empty when the value cannot be given (overload, underload, no reading)
};

} // namespace Brimvale

#endif
