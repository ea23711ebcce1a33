// SPDX-License-Identifier: BSD-3-Clause
#include "Buoyancy.h"

#include <Formula.h>
#include <UnitConverter.h>
#include <cmath>

using namespace Brimvale;

namespace
{

int shownDecimals(const MesswertData& reading)
{
    return qMax(0, reading.decimals - reading.resolutionReduction);
}

/// As text; what rounds to zero has no sign.
QString shown(double value, int decimals)
{
    const QString text = QString::number(value, 'f', decimals);
    return text.toDouble() == 0.0 && text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
}

double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale; // half away from zero, as the scale does
}

} // namespace

double Buoyancy::airDensity(const Parameters& parameters)
{
    Formula formula(nullptr);
    const double temperature = parameters.value(Parameters::Temperature);
    const double humidity = parameters.value(Parameters::Humidity);
    const double pressure = parameters.value(Parameters::Pressure);
    // In g/cm³; ten millionths of it are a tenth of a gram per cubic metre.
    const double density = parameters.isExact() ? formula.AirDensityExact(temperature, humidity, pressure, 7)
                                                : formula.AirDensityNIST(temperature, humidity, pressure, 7);
    return density * 1000.0;
}

double Buoyancy::factor(double airDensity, double sampleDensity, double weightsDensity)
{
    if (!(airDensity >= 0.0) || !(sampleDensity > airDensity) || !(weightsDensity > airDensity)) {
        return 0.0;
    }
    return (1.0 - airDensity / weightsDensity) / (1.0 - airDensity / sampleDensity);
}

bool Buoyancy::isWeight(const MesswertData& reading)
{
    bool isNumber = false;
    reading.messwert.toDouble(&isNumber); // what does not fit the display is shown as "OF"
    return reading.isValid && reading.errorText.isEmpty() && isNumber && std::isfinite(reading.value);
}

MesswertData Buoyancy::corrected(const MesswertData& reading, double factor)
{
    MesswertData result = reading;
    if (!isWeight(reading)) {
        result.isValid = false;
        return result;
    }
    if (factor <= 0.0) {
        result.isValid = false;
        return result;
    }
    const double value = rounded(reading.value * factor, shownDecimals(reading));
    if (UnitConverter().GetValueString(value, shownDecimals(reading), 0) == QLatin1String("OF")) {
        result.isValid = false; // it does not fit the display any more
        return result;
    }
    result.value = value;
    result.messwert = shown(value, shownDecimals(reading));
    result.isCalculated = true;
    return result;
}

QString Buoyancy::correction(const MesswertData& reading, const MesswertData& corrected)
{
    const int decimals = shownDecimals(reading);
    const double difference = rounded(corrected.value - reading.value, decimals);
    const QString text = shown(difference, decimals);
    return difference > 0.0 ? QLatin1Char('+') + text : text;
}
