// SPDX-License-Identifier: BSD-3-Clause
#include "MesswertData.h"

#include "Utility.h"

#include <utility>

namespace Brimvale
{

MesswertData::MesswertData() = default;

MesswertData::MesswertData(QString messwert, QString unit, QString unitPrintName, QString errorText,
                           int stabilityValue, int rangeNumber, int eichDigit, int decimals,
                           int resolutionReduction, double value, double tareValue, bool isValid,
                           bool isCalculated, bool isStable, bool net, bool isPresetTare, bool isGrobRange,
                           bool isOverload, int registerNumber)
    : messwert(std::move(messwert))
    , unit(std::move(unit))
    , unitPrintName(std::move(unitPrintName))
    , errorText(std::move(errorText))
    , stabilityValue(stabilityValue)
    , rangeNumber(rangeNumber)
    , eichDigit(eichDigit)
    , decimals(decimals)
    , resolutionReduction(resolutionReduction)
    , value(value)
    , tareValue(tareValue)
    , isValid(isValid)
    , isCalculated(isCalculated)
    , isStable(isStable)
    , net(net)
    , isPresetTare(isPresetTare)
    , isGrobRange(isGrobRange)
    , isOverload(isOverload)
    , registerNumber(registerNumber)
{
}

MesswertData::MesswertData(const MesswertData& other) = default;

MesswertData& MesswertData::operator=(const MesswertData& other) = default;

MesswertData::~MesswertData() = default;

bool MesswertData::isEqual(const MesswertData* other)
{
    // Every member is compared, without an early exit.
    bool equal = messwert == other->messwert;
    equal &= unit == other->unit;
    equal &= unitPrintName == other->unitPrintName;
    equal &= errorText == other->errorText;
    equal &= stabilityValue == other->stabilityValue;
    equal &= rangeNumber == other->rangeNumber;
    equal &= eichDigit == other->eichDigit;
    equal &= decimals == other->decimals;
    equal &= resolutionReduction == other->resolutionReduction;
    equal &= Utility::isEqual(value, other->value);
    equal &= Utility::isEqual(tareValue, other->tareValue);
    equal &= isValid == other->isValid;
    equal &= isCalculated == other->isCalculated;
    equal &= isStable == other->isStable;
    equal &= net == other->net;
    equal &= isPresetTare == other->isPresetTare;
    equal &= isGrobRange == other->isGrobRange;
    equal &= isOverload == other->isOverload;
    equal &= registerNumber == other->registerNumber;
    return equal;
}

} // namespace Brimvale
