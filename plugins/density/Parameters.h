// SPDX-License-Identifier: BSD-3-Clause
#ifndef PARAMETERS_H
#define PARAMETERS_H

#include <QCoreApplication>
#include <QString>
#include <QVector>

/// What the person enters: the state of the air, the densities, and the formula. Every value is within its range always.
class Parameters
{
    Q_DECLARE_TR_FUNCTIONS(Parameters)

public:
    enum Id
    {
        Temperature,
        Humidity,
        Pressure,
        SampleDensity,
        WeightsDensity,
        Count
    };

    Parameters();

    double value(int id) const { return m_values.at(id); }
    /// Rounds to the decimal places of the parameter. Returns false, and changes nothing, when it is out of range.
    bool setValue(int id, double value);
    /// One step (-1 or 1), to the end of the range at most.
    void step(int id, int direction);

    bool isExact() const { return m_isExact; }
    void setExact(bool exact) { m_isExact = exact; }

    QString title(int id) const;
    QString unit(int id) const;
    QString text(int id) const;
    /// `0.0 – 40.0 °C`
    QString rangeText(int id) const;
    int decimals(int id) const;

    /// Reads an INI file. What is missing keeps its value; what is unreadable or out of range, too, and makes the result
    /// false. A file that does not exist is well.
    bool load(const QString& fileName);
    /// Returns whether everything is in the file.
    bool save(const QString& fileName) const;

private:
    QVector<double> m_values;
    bool m_isExact = true;
};

#endif
