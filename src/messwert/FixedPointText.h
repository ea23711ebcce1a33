// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FIXEDPOINTTEXT_H
#define BRIMVALE_FIXEDPOINTTEXT_H

#include <QString>

namespace Brimvale
{

/// Writes `value` with `places` decimal places: the text of `QString("%1").arg(value, 0, 'f', places)`, made with one
/// allocation and without the general conversion where the value allows that.
QString fixedPointText(double value, int places);

} // namespace Brimvale

#endif
