// SPDX-License-Identifier: BSD-3-Clause
#ifndef INPUTS_H
#define INPUTS_H

#include "UnitDef.h"

#include <QDateTime>
#include <QString>

/// Arguments of all kinds from a generator of its own, since the distributions of the standard library differ between
/// its implementations: the edges of every type, what a scale delivers, and anything else.
class Inputs
{
public:
    explicit Inputs(quint64 seed)
        : m_state(seed)
    {
    }

    quint64 bits();
    int below(int bound) { return static_cast<int>(bits() % static_cast<quint64>(bound)); }
    bool flag() { return (bits() & 1) != 0; }

    /// Any number, also infinite ones, denormals, both zeros and no number at all.
    double number();
    /// A number as written with a few decimal places, a tie between two of these, or the next number to a tie.
    double decimal();

    int integer();
    qint64 longInteger();
    /// A count of decimal places or an exponent.
    int places();

    QString text();
    QString unitName();
    /// A number in decimal digits, also one beyond 64 bits, and what only begins like a number.
    QString numberText();
    Brimvale::UnitDef unit();
    QDateTime timestamp();

private:
    quint64 m_state;
};

#endif
