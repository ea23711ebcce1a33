// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FORMULA_H
#define BRIMVALE_FORMULA_H

#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

/// Formulas for the correction of air buoyancy. Densities are in g/cm³, temperatures in °C, relative humidity in
/// percent, barometric pressure in hPa. No operation depends on the object, and no range is checked.
class BRIMVALE_EXPORT Formula : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Formula)

public:
    /// `parent` owns the object.
    explicit Formula(QObject* parent);
    ~Formula() override;

    /// The density of moist air from the ideal-gas law of dry air and water vapour, rounded to `decimals` places.
    ///
    /// The saturation vapour pressure is the Magnus formula 611.213 Pa · exp(17.5043 t / (t + 241.2 °C)), the gas
    /// constants are 287.058 J/(kg·K) for dry air and 461.523 J/(kg·K) for water vapour. Returns -1.0 where the
    /// formula would divide by zero: at -241.2 °C, at -273.15 °C, and when the gas constant of the air is 0. A caller
    /// treats a negative density as invalid.
    ///
    /// It departs from the CIPM-2007 equation by less than 7e-4 of the value over 0 to 40 °C, 0 to 100 % and 600 to
    /// 1100 hPa.
    double AirDensityExact(double temperature, double humidity, double pressure, int decimals);

    /// The density of moist air from the approximation (0.348444 p - h (0.00252 t - 0.020582)) / (t + 273.15) kg/m³,
    /// rounded to `decimals` places. Returns -1.0 at -273.15 °C.
    ///
    /// It departs from the CIPM-2007 equation by less than 1.4e-2 of the value over the same range.
    double AirDensityNIST(double temperature, double humidity, double pressure, int decimals);

    /// The conventional density of air, 0.0012 g/cm³ (OIML R 111 and D 28).
    double AirDensityStandard();

    /// The conventional density of steel calibration weights, 8.0 g/cm³ (OIML R 111 and D 28).
    double SteelDensityOfStandardCalWeight();

    /// The buoyancy of a steel calibration weight in air of the given density: 1 - airDensity / 8.0.
    double AirDensity_CalWeight_CorrectionFactor(double airDensity);
};

} // namespace Brimvale

#endif
