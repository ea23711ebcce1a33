// SPDX-License-Identifier: BSD-3-Clause
#include "MesswertInfo.h"

#include "MesswertData.h"

#include <cstring>

namespace Brimvale
{

namespace
{

/// Whether two texts have the same contents. Those of a display are a few characters, for which a call of the general
/// comparison takes longer than the comparison: most readings are like the one before, and this is all they cost.
bool isSame(const QString& a, const QString& b)
{
    constexpr int BlockSize = sizeof(quint64) / sizeof(QChar);
    const int size = a.size();
    if (size != b.size()) {
        return false;
    }
    const QChar* const textA = a.constData();
    const QChar* const textB = b.constData();
    if (textA == textB) {
        return true;
    }
    if (size < BlockSize) {
        for (int i = 0; i < size; ++i) {
            if (textA[i] != textB[i]) {
                return false;
            }
        }
        return true;
    }
    const auto isSameBlock = [textA, textB](int position) {
        quint64 blockA = 0;
        quint64 blockB = 0;
        std::memcpy(&blockA, textA + position, sizeof(blockA));
        std::memcpy(&blockB, textB + position, sizeof(blockB));
        return blockA == blockB;
    };
    for (int position = 0; position < size - BlockSize; position += BlockSize) {
        if (!isSameBlock(position)) {
            return false;
        }
    }
    return isSameBlock(size - BlockSize); // the last block may overlap the one before
}

} // namespace

MesswertInfo::MesswertInfo(QObject* parent, const QString& messwert, const QString& unit,
                           bool messwertVisible, int eichDigit, bool isValid, bool isCalculated,
                           bool isGrobRange, int resolutionReduction, const QString& messwertKlein,
                           const QString& unitKlein, bool messwertKleinVisible, int eichDigitKlein,
                           bool isValidKlein, bool isGrobRangeKlein, int resolutionReductionKlein,
                           const QString& netText, const QString& ptText, const QString& errorText,
                           int bargraphValue, int stabilityValue, bool netVisible, bool ptVisible,
                           bool bargraphVisible, bool stabilityVisible, bool allVisible)
    : QObject(parent)
    , m_messwert(messwert)
    , m_unit(unit)
    , m_messwertVisible(messwertVisible)
    , m_eichDigit(eichDigit)
    , m_isValid(isValid)
    , m_isCalculated(isCalculated)
    , m_isGrobRange(isGrobRange)
    , m_resolutionReduction(resolutionReduction)
    , m_messwertKlein(messwertKlein)
    , m_unitKlein(unitKlein)
    , m_messwertKleinVisible(messwertKleinVisible)
    , m_eichDigitKlein(eichDigitKlein)
    , m_isValidKlein(isValidKlein)
    , m_isGrobRangeKlein(isGrobRangeKlein)
    , m_resolutionReductionKlein(resolutionReductionKlein)
    , m_netText(netText)
    , m_ptText(ptText)
    , m_errorText(errorText)
    , m_bargraphValue(bargraphValue)
    , m_stabilityValue(stabilityValue)
    , m_netVisible(netVisible)
    , m_ptVisible(ptVisible)
    , m_bargraphVisible(bargraphVisible)
    , m_stabilityVisible(stabilityVisible)
    , m_allVisible(allVisible)
{
    qRegisterMetaType<MesswertInfo*>("MesswertInfo*");
    translateText();
}

MesswertInfo::~MesswertInfo() = default;

QString MesswertInfo::messwert() const
{
    return m_messwert;
}

void MesswertInfo::setMesswert(const QString& messwert)
{
    if (isSame(m_messwert, messwert)) {
        return;
    }
    m_messwert = messwert;
    emit messwertChanged();
}

QString MesswertInfo::unit() const
{
    return m_unit;
}

void MesswertInfo::setUnit(const QString& unit)
{
    if (isSame(m_unit, unit)) {
        return;
    }
    m_unit = unit;
    emit unitChanged();
}

bool MesswertInfo::messwertVisible() const
{
    return m_messwertVisible;
}

void MesswertInfo::setMesswertVisible(bool messwertVisible)
{
    if (m_messwertVisible == messwertVisible) {
        return;
    }
    m_messwertVisible = messwertVisible;
    emit messwertVisibleChanged();
}

int MesswertInfo::eichDigit() const
{
    return m_eichDigit;
}

void MesswertInfo::setEichDigit(int eichDigit)
{
    if (m_eichDigit == eichDigit) {
        return;
    }
    m_eichDigit = eichDigit;
    emit eichDigitChanged();
}

bool MesswertInfo::isValid() const
{
    return m_isValid;
}

void MesswertInfo::setIsValid(bool isValid)
{
    if (m_isValid == isValid) {
        return;
    }
    m_isValid = isValid;
    emit isValidChanged();
}

bool MesswertInfo::isCalculated() const
{
    return m_isCalculated;
}

void MesswertInfo::setIsCalculated(bool isCalculated)
{
    if (m_isCalculated == isCalculated) {
        return;
    }
    m_isCalculated = isCalculated;
    emit isCalculatedChanged();
}

bool MesswertInfo::isGrobRange() const
{
    return m_isGrobRange;
}

void MesswertInfo::setIsGrobRange(bool isGrobRange)
{
    if (m_isGrobRange == isGrobRange) {
        return;
    }
    m_isGrobRange = isGrobRange;
    emit isGrobRangeChanged();
}

int MesswertInfo::resolutionReduction() const
{
    return m_resolutionReduction;
}

void MesswertInfo::setResoluionReduction(int resolutionReduction)
{
    if (m_resolutionReduction == resolutionReduction) {
        return;
    }
    m_resolutionReduction = resolutionReduction;
    emit resolutionReductionChanged();
}

QString MesswertInfo::messwertKlein() const
{
    return m_messwertKlein;
}

void MesswertInfo::setMesswertKlein(const QString& messwertKlein)
{
    if (isSame(m_messwertKlein, messwertKlein)) {
        return;
    }
    m_messwertKlein = messwertKlein;
    emit messwertKleinChanged();
}

QString MesswertInfo::unitKlein() const
{
    return m_unitKlein;
}

void MesswertInfo::setUnitKlein(const QString& unitKlein)
{
    if (isSame(m_unitKlein, unitKlein)) {
        return;
    }
    m_unitKlein = unitKlein;
    emit unitKleinChanged();
}

bool MesswertInfo::messwertKleinVisible() const
{
    return m_messwertKleinVisible;
}

void MesswertInfo::setMesswertKleinVisible(bool messwertKleinVisible)
{
    if (m_messwertKleinVisible == messwertKleinVisible) {
        return;
    }
    m_messwertKleinVisible = messwertKleinVisible;
    emit messwertKleinVisibleChanged();
}

int MesswertInfo::eichDigitKlein() const
{
    return m_eichDigitKlein;
}

void MesswertInfo::setEichDigitKlein(int eichDigitKlein)
{
    if (m_eichDigitKlein == eichDigitKlein) {
        return;
    }
    m_eichDigitKlein = eichDigitKlein;
    emit eichDigitKleinChanged();
}

bool MesswertInfo::isValidKlein() const
{
    return m_isValidKlein;
}

void MesswertInfo::setIsValidKlein(bool isValidKlein)
{
    if (m_isValidKlein == isValidKlein) {
        return;
    }
    m_isValidKlein = isValidKlein;
    emit isValidKleinChanged();
}

bool MesswertInfo::isGrobRangeKlein() const
{
    return m_isGrobRangeKlein;
}

void MesswertInfo::setIsGrobRangeKlein(bool isGrobRangeKlein)
{
    if (m_isGrobRangeKlein == isGrobRangeKlein) {
        return;
    }
    m_isGrobRangeKlein = isGrobRangeKlein;
    emit isGrobRangeKleinChanged();
}

int MesswertInfo::resolutionReductionKlein() const
{
    return m_resolutionReductionKlein;
}

void MesswertInfo::setResoluionReductionKlein(int resolutionReductionKlein)
{
    if (m_resolutionReductionKlein == resolutionReductionKlein) {
        return;
    }
    m_resolutionReductionKlein = resolutionReductionKlein;
    emit resolutionReductionKleinChanged();
}

QString MesswertInfo::netText() const
{
    return m_netText;
}

void MesswertInfo::setNetText(const QString& netText)
{
    if (isSame(m_netText, netText)) {
        return;
    }
    m_netText = netText;
    emit netTextChanged();
}

QString MesswertInfo::ptText() const
{
    return m_ptText;
}

void MesswertInfo::setPtText(const QString& ptText)
{
    if (isSame(m_ptText, ptText)) {
        return;
    }
    m_ptText = ptText;
    emit ptTextChanged();
}

QString MesswertInfo::errorText() const
{
    return m_errorText;
}

void MesswertInfo::setErrorText(const QString& errorText)
{
    if (isSame(m_errorText, errorText)) {
        return;
    }
    m_errorText = errorText;
    emit errorTextChanged();
}

int MesswertInfo::bargraphValue() const
{
    return m_bargraphValue;
}

void MesswertInfo::setBargraphValue(int bargraphValue)
{
    if (m_bargraphValue == bargraphValue) {
        return;
    }
    m_bargraphValue = bargraphValue;
    emit bargraphValueChanged();
}

int MesswertInfo::stabilityValue() const
{
    return m_stabilityValue;
}

void MesswertInfo::setStabilityValue(int stabilityValue)
{
    if (m_stabilityValue == stabilityValue) {
        return;
    }
    m_stabilityValue = stabilityValue;
    emit stabilityValueChanged();
}

bool MesswertInfo::netVisible() const
{
    return m_netVisible;
}

void MesswertInfo::setNetVisible(bool netVisible)
{
    if (m_netVisible == netVisible) {
        return;
    }
    m_netVisible = netVisible;
    emit netVisibleChanged();
}

bool MesswertInfo::ptVisible() const
{
    return m_ptVisible;
}

void MesswertInfo::setPtVisible(bool ptVisible)
{
    if (m_ptVisible == ptVisible) {
        return;
    }
    m_ptVisible = ptVisible;
    emit ptVisibleChanged();
}

bool MesswertInfo::bargraphVisible() const
{
    return m_bargraphVisible;
}

void MesswertInfo::setBargraphVisible(bool bargraphVisible)
{
    if (m_bargraphVisible == bargraphVisible) {
        return;
    }
    m_bargraphVisible = bargraphVisible;
    emit bargraphVisibleChanged();
}

bool MesswertInfo::stabilityVisible() const
{
    return m_stabilityVisible;
}

void MesswertInfo::setStabilityVisible(bool stabilityVisible)
{
    if (m_stabilityVisible == stabilityVisible) {
        return;
    }
    m_stabilityVisible = stabilityVisible;
    emit stabilityVisibleChanged();
}

bool MesswertInfo::allVisible() const
{
    return m_allVisible;
}

void MesswertInfo::setAllVisible(bool allVisible)
{
    if (m_allVisible == allVisible) {
        return;
    }
    m_allVisible = allVisible;
    emit allVisibleChanged();
}

void MesswertInfo::translateText() { }

void MesswertInfo::setFromMesswertData(MesswertData* data)
{
    setMesswert(data->messwert);
    setUnit(data->unit);
    setStabilityValue(data->stabilityValue);
    setStabilityVisible(data->stabilityValue != -1);
    setNetVisible(data->net);
    setPtVisible(false);
    setIsGrobRange(data->isGrobRange);
    setResoluionReduction(data->resolutionReduction);
    setEichDigit(data->eichDigit);
    setIsValid(data->isValid);
    setIsCalculated(data->isCalculated);
    setErrorText(data->errorText);
}

} // namespace Brimvale

// In the same source file the signals are part of the setters: a change costs no more calls than it must.
#include "moc_MesswertInfo.cpp" // NOLINT(bugprone-suspicious-include)
