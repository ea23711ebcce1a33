// SPDX-License-Identifier: BSD-3-Clause
#ifndef BUOYANCY_H
#define BUOYANCY_H

#include "Parameters.h"

#include <MesswertData.h>

/// The correction of a weight for the buoyancy of the air.
///
/// A scale is adjusted with calibration weights in air, and shows what such weights would show. With the densities a of
/// the air, w of the weights and s of the sample, the mass of the sample is
///
///     m = reading · (1 - a / w) / (1 - a / s)
namespace Buoyancy
{

/// Of the air, in kg/m³; negative when it cannot be computed.
double airDensity(const Parameters& parameters);

/// What the reading is multiplied by; 0 when it cannot be computed. Densities are in one unit.
double factor(double airDensity, double sampleDensity, double weightsDensity);

/// Whether the reading is a weight that can be corrected.
bool isWeight(const Brimvale::MesswertData& reading);

/// A reading times the factor, with as many decimal places as the reading is shown with, marked as calculated. A reading
/// without a weight comes back as it is; so does every reading when the factor is 0, and one that does not fit the display when
/// it is corrected: as not valid then.
Brimvale::MesswertData corrected(const Brimvale::MesswertData& reading, double factor);

/// The difference of the two values as they are shown, with its sign.
QString correction(const Brimvale::MesswertData& reading, const Brimvale::MesswertData& corrected);

} // namespace Buoyancy

#endif
