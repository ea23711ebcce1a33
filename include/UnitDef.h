// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_UNITDEF_H
#define BRIMVALE_UNITDEF_H

#include "SharedLibsGlobal.h"

#include <QString>

class QTextStream;

namespace Brimvale
{

/// One weighing unit: its name, how a value in it is converted from grams, shown and rounded, and the modes in which
/// it may be offered. A value that is copied freely; nothing is checked when it is set.
class BRIMVALE_EXPORT UnitDef
{
public:
    /// The unit's bit in a set of enabled units. Each fixed unit of `UnitsList` has its own; bits are combined by
    /// value into masks.
    enum UnitEnableFlag : quint16
    {
        NoUnit = 0,             ///< no bit: enabled only for the empty mask
        Gram = 0x0001,          ///< "g"
        Milligram = 0x0002,     ///< "mg"
        Kilogram = 0x0004,      ///< "kg"
        Grain = 0x0008,         ///< "GN"
        Pennyweight = 0x0010,   ///< "dwt"
        TroyOunce = 0x0020,     ///< "ozt"
        Ounce = 0x0040,         ///< "oz"
        Pound = 0x0080,         ///< "lb"
        Carat = 0x0100,         ///< "ct"
        MetricCarat = 0x0200,   ///< "C.M."
        TaelHongKong = 0x0400,  ///< "tlh"
        TaelSingapore = 0x0800, ///< "tls"
        TaelTaiwan = 0x1000,    ///< "tlt"
        Momme = 0x2000,         ///< "mom"
        Tola = 0x4000,          ///< "tola"
        Baht = 0x8000           ///< "bht"
    };

    /// Stores the seven values as they are given.
    ///
    /// \param name the unit's key in the units list and in settings
    /// \param printName the text shown or printed beside a value
    /// \param factor units per gram, or grams per unit when `isInverse` is set
    /// \param format count of decimal places of a value in this unit
    /// \param rounding rounding step in the last decimal place; 1 for every step
    /// \param isInverse whether `factor` is inverted before use
    /// \param enableFlag the modes in which the unit may be offered
    UnitDef(QString name, QString printName, double factor, int format, int rounding, bool isInverse,
            UnitEnableFlag enableFlag);

    UnitDef(const UnitDef& other);
    UnitDef& operator=(const UnitDef& other);
    virtual ~UnitDef();

    /// The unit's key in the units list and in settings.
    QString name() const;
    /// Sets the key.
    void setName(const QString& name);

    /// The text shown or printed beside a value.
    QString printName() const;
    /// Sets the text shown or printed beside a value.
    void setPrintName(const QString& printName);

    /// Units per gram, or grams per unit when `isInverse()` is set.
    double factor() const;
    /// Sets the factor.
    void setFactor(double factor);

    /// The count of decimal places of a value in this unit.
    int format() const;
    /// Sets the count of decimal places.
    void setFormat(int format);

    /// The rounding step in the last decimal place; 1 for every step.
    int rounding() const;
    /// Sets the rounding step.
    void setRounding(int rounding);

    /// Whether the factor is inverted before use.
    bool isInverse() const;
    /// Sets whether the factor is inverted before use.
    void setIsInverse(bool isInverse);

    /// Sets the modes in which the unit may be offered.
    void setEnableFlag(UnitEnableFlag enableFlag);

    /// Units per gram: the factor, or its reciprocal when it is inverted (infinite for a factor of 0).
    double getCalculatedFactor() const;

    /// Whether the unit is enabled in the modes of `mask`: all of its bits lie within the mask and it has at least
    /// one. For the empty mask only a unit without bits is enabled, which no other mask enables.
    bool CheckEnableFlag(int mask);

    /// All seven fields are equal; the factors by `Utility::isEqual()`, whose tolerance is relative to this unit's.
    bool operator==(const UnitDef& other) const;
    /// The opposite of `==`.
    bool operator!=(const UnitDef& other) const;

    /// Writes the unit as one record: header (4269603477), version (1), name, print name, factor, format, rounding,
    /// inverse (1 or 0) and enable bits, each followed by a no-break space (U+00A0).
    ///
    /// The stream's number settings are used as they are. By default a factor has six significant digits: one with
    /// more does not come back unchanged. Nor does a name that contains white space.
    void insertToDataStream(QTextStream& stream) const;

    /// Reads a record into this unit.
    ///
    /// \throws ProjectException when the header differs or the version is greater than 1; the unit is then left as it
    /// was. A record that ends early or is malformed after that gives what the stream delivers: 0 for a number.
    void extractFromDataStream(QTextStream& stream);

private:
    QString m_name;
    QString m_printName;
    double m_factor;
    int m_format;
    int m_rounding;
    bool m_isInverse;
    UnitEnableFlag m_enableFlag;
};

/// Writes `unit` with `UnitDef::insertToDataStream()`.
BRIMVALE_EXPORT QTextStream& operator<<(QTextStream& stream, const UnitDef& unit);

/// Reads `unit` with `UnitDef::extractFromDataStream()`, and throws as that does.
BRIMVALE_EXPORT QTextStream& operator>>(QTextStream& stream, UnitDef& unit);

} // namespace Brimvale

#endif
