// SPDX-License-Identifier: BSD-3-Clause
#include "Formula.h"

#include "Utility.h"
#include "core/Logging.h"

#include <cmath>

namespace Brimvale
{

namespace
{

constexpr double InvalidDensity = -1.0;
constexpr double AbsoluteZero = -273.15;   // °C
constexpr double MagnusPole = -241.2;      // °C, where the denominator of the Magnus formula is 0
constexpr double DryAirConstant = 287.058; // J/(kg·K)
// 1 - 287.058 / 461.523, from the gas constants of dry air and of water vapour, to full precision.
constexpr double VapourDeficit = 0.3780201636754832;

} // namespace

Formula::Formula(QObject* parent)
    : QObject(parent)
{
}

Formula::~Formula()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

double Formula::AirDensityExact(double temperature, double humidity, double pressure, int decimals)
{
    if (Utility::isEqual(temperature, MagnusPole) || Utility::isEqual(temperature, AbsoluteZero)) {
        return InvalidDensity;
    }
    const double saturation = 611.213 * std::exp(17.5043 * temperature / (temperature + 241.2)); // Pa
    const double total = pressure * 100.0;                                                       // Pa
    const double vapour = humidity / 100.0 * saturation;                                         // Pa
    const double gasConstant = DryAirConstant / (1.0 - vapour / total * VapourDeficit);
    if (Utility::isEqual(gasConstant, 0.0)) {
        return InvalidDensity;
    }
    const double density = total / ((temperature + 273.15) * gasConstant); // kg/m³
    return Utility::Round(density / 1000.0, decimals);
}

double Formula::AirDensityNIST(double temperature, double humidity, double pressure, int decimals)
{
    if (Utility::isEqual(temperature, AbsoluteZero)) {
        return InvalidDensity;
    }
    const double density = (0.348444 * pressure - humidity * (0.00252 * temperature - 0.020582))
                           / (temperature + 273.15); // kg/m³
    return Utility::Round(density / 1000.0, decimals);
}

double Formula::AirDensityStandard()
{
    return 0.0012;
}

double Formula::SteelDensityOfStandardCalWeight()
{
    return 8.0;
}

double Formula::AirDensity_CalWeight_CorrectionFactor(double airDensity)
{
    return 1.0 - airDensity / SteelDensityOfStandardCalWeight();
}

} // namespace Brimvale
