// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FIXEDPOINTTEXT_H
#define BRIMVALE_FIXEDPOINTTEXT_H

#include <QString>

namespace Brimvale
{

struct RoundedValue;

/// Writes `value` with `places` decimal places: the text of `QString("%1").arg(value, 0, 'f', places)`, or a null text
/// when that has more than nine characters, a leading "-" not counted. It is made with one allocation and without the
/// general conversion, except near a tie and for what is no ordinary number or count of places.
QString fixedPointText(double value, int places);

/// As above for a value that is rounded to the same places: its digits need not be found again.
QString fixedPointText(const RoundedValue& rounded, int places);

} // namespace Brimvale

#endif
