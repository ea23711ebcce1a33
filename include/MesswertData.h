// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MESSWERTDATA_H
#define BRIMVALE_MESSWERTDATA_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// One reading of the scale: what is shown, the numbers behind it and its state. A value that is passed by
/// value between the host's measuring system, print items and plug-ins.
///
/// The order of the members, and of the constructor's arguments, is part of the binary contract.
class BRIMVALE_EXPORT MesswertData
{
public:
    /// Builds the empty record, which stands for a reading that has not arrived yet: empty texts, no
    /// stability indicator, zeros, valid, no other flag, no register.
    MesswertData();

    /// Stores the 19 values as they are given; nothing is derived.
    MesswertData(QString messwert, QString unit, QString unitPrintName, QString errorText, int stabilityValue,
                 int rangeNumber, int eichDigit, int decimals, int resolutionReduction, double value,
                 double tareValue, bool isValid, bool isCalculated, bool isStable, bool net,
                 bool isPresetTare, bool isGrobRange, bool isOverload, int registerNumber);

    MesswertData(const MesswertData& other);
    MesswertData& operator=(const MesswertData& other);
    virtual ~MesswertData();

    /// True when all members are equal to those of `other`, which must not be null: texts, integers and
    /// flags exactly, the two doubles by `Utility::isEqual()`, whose tolerance is relative to this object's
    /// number.
    bool isEqual(const MesswertData* other);

    QString messwert;        ///< the measured value, formatted for display
    QString unit;            ///< the unit text shown beside the value
    QString unitPrintName;   ///< the print text of the unit; empty when the value was converted by unit name
    QString errorText;       ///< the error of the reading; empty when there is none
    int stabilityValue = -1; ///< the stability indicator; -1: none is shown
    int rangeNumber = 0;     ///< the weighing range of the reading
    int eichDigit = 0;       ///< count of trailing digits that are not verified
    int decimals = 0; ///< decimal places of the shown value, before the resolution reduction is taken off
    int resolutionReduction = 0; ///< count of trailing digits taken off the shown value
    double value = 0.0;          ///< the value in the shown unit, rounded to the shown decimal places
    double tareValue = 0.0;      ///< the tare in the shown unit; 0 in records made by the unit conversion
    bool isValid = true;         ///< the reading is valid
    bool isCalculated = false;   ///< the value is calculated and not directly weighed
    bool isStable = false;       ///< the reading is stable
    bool net = false;            ///< the value is a net value
    bool isPresetTare = false;   ///< the tare was entered and not weighed
    bool isGrobRange = false;    ///< the value lies in the coarse range of a multi-range scale
    bool isOverload = false;     ///< the load is beyond the capacity
    int registerNumber = -1;     ///< the system register that the reading came from; -1: none
};

} // namespace Brimvale

#endif
