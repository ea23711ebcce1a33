// SPDX-License-Identifier: BSD-3-Clause
#include "Parameters.h"

#include <QSettings>

#include <cmath>

namespace
{

struct Definition
{
    const char* key;
    const char* title;
    const char* unit;
    int decimals;
    double minimum;
    double maximum;
    double initial;
    double step;
};

// The state of the air within the range for which the formulas are known to be good.
const Definition Definitions[Parameters::Count] = {
    {"temperature", QT_TRANSLATE_NOOP("Parameters", "Temperature"), "°C", 1, 0.0, 40.0, 20.0, 0.5},
    {"humidity", QT_TRANSLATE_NOOP("Parameters", "Humidity"), "%", 0, 0.0, 100.0, 50.0, 1.0},
    {"pressure", QT_TRANSLATE_NOOP("Parameters", "Pressure"), "hPa", 2, 600.0, 1100.0, 1013.25, 1.0},
    {"sampleDensity", QT_TRANSLATE_NOOP("Parameters", "Sample density"), "kg/m³", 1, 50.0, 23000.0, 1000.0,
     10.0},
    {"weightsDensity", QT_TRANSLATE_NOOP("Parameters", "Weights density"), "kg/m³", 1, 1000.0, 23000.0,
     8000.0, 10.0},
};

const QLatin1String FormulaKey("formula");
const QLatin1String Exact("exact");
const QLatin1String Approximate("approximate");

} // namespace

Parameters::Parameters()
{
    for (const Definition& definition : Definitions) {
        m_values.append(definition.initial);
    }
}

bool Parameters::setValue(int id, double value)
{
    const Definition& definition = Definitions[id];
    const double scale = std::pow(10.0, definition.decimals);
    const double rounded = std::round(value * scale) / scale;
    if (!(rounded >= definition.minimum && rounded <= definition.maximum)) {
        return false;
    }
    m_values[id] = rounded;
    return true;
}

void Parameters::step(int id, int direction)
{
    const Definition& definition = Definitions[id];
    setValue(id,
             qBound(definition.minimum, m_values.at(id) + direction * definition.step, definition.maximum));
}

QString Parameters::title(int id) const
{
    return tr(Definitions[id].title);
}

QString Parameters::unit(int id) const
{
    return QString::fromUtf8(Definitions[id].unit);
}

QString Parameters::text(int id) const
{
    return QString::number(m_values.at(id), 'f', decimals(id));
}

QString Parameters::rangeText(int id) const
{
    return QStringLiteral("%1 – %2 %3")
        .arg(QString::number(Definitions[id].minimum, 'f', decimals(id)),
             QString::number(Definitions[id].maximum, 'f', decimals(id)), unit(id));
}

int Parameters::decimals(int id) const
{
    return Definitions[id].decimals;
}

bool Parameters::load(const QString& fileName)
{
    QSettings file(fileName, QSettings::IniFormat);
    bool isWell = true;
    for (int id = 0; id < Count; ++id) {
        const QString stored = file.value(QLatin1String(Definitions[id].key), text(id)).toString();
        bool isNumber = false;
        const double value = stored.toDouble(&isNumber);
        isWell = isNumber && setValue(id, value) && isWell;
    }
    const QString formula = file.value(FormulaKey, m_isExact ? Exact : Approximate).toString();
    isWell = isWell && (formula == Exact || formula == Approximate);
    m_isExact = formula != Approximate;
    return isWell && file.status() == QSettings::NoError;
}

bool Parameters::save(const QString& fileName) const
{
    QSettings file(fileName, QSettings::IniFormat);
    for (int id = 0; id < Count; ++id) {
        file.setValue(QLatin1String(Definitions[id].key), text(id));
    }
    file.setValue(FormulaKey, m_isExact ? Exact : Approximate);
    file.sync();
    return file.status() == QSettings::NoError;
}
