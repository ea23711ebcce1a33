// SPDX-License-Identifier: BSD-3-Clause
#include "measuring/Scale.h"

#include "source/WeightSource.h"

#include <cmath>
#include <limits>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// How many fine increments a coarse one has.
constexpr int CoarseMultiple = 10;

/// Part of an increment that rounding errors may take from or add to a limit.
constexpr double LimitTolerance = 1.0e-6;

} // namespace

Scale::Scale(const ScaleSettings& settings, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
    , m_readability(settings.readability.value_or(Readability()))
    , m_stability(settings.stability)
{
    m_stability.setIncrement(m_readability.grams());
}

Scale::~Scale() = default;

void Scale::setSource(WeightSource* source)
{
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    m_stability.reset();
    m_reading = Reading();
    m_status = m_reading.status;
    m_stable = false;
    m_zeroGrams = 0.0;
    m_tareGrams = 0.0;
    m_presetTare = false;
    m_coarse = false;
    m_refusal = Refusal::None;
    if (m_source) {
        connect(m_source, &WeightSource::reading, this, &Scale::processReading);
        connect(m_source, &WeightSource::readabilityChanged, this, &Scale::onSourceReadability);
        onSourceReadability(m_source->readability());
    }
    emit stateChanged();
}

WeightSource* Scale::source() const
{
    return m_source;
}

QString Scale::statusText() const
{
    switch (m_status) {
    case Reading::Status::Valid:
        return QString();
    case Reading::Status::Overload:
        return tr("Overload");
    case Reading::Status::Underload:
        return tr("Underload");
    case Reading::Status::Unreadable:
        return tr("Unreadable");
    case Reading::Status::Disconnected:
        break;
    }
    return tr("No connection");
}

double Scale::grossDigits() const
{
    return isValid() ? rounded(m_reading.grams - m_zeroGrams) : std::numeric_limits<double>::quiet_NaN();
}

double Scale::netDigits() const
{
    // From the gross weight that is shown, so that gross, tare and net agree on the display. Only in the
    // coarse range can there be anything left to round.
    return rounded(m_readability.toGrams(grossDigits() - tareDigits()));
}

double Scale::tareDigits() const
{
    return m_readability.round(m_tareGrams);
}

double Scale::grossGrams() const
{
    return m_readability.toGrams(grossDigits());
}

double Scale::netGrams() const
{
    return m_readability.toGrams(netDigits());
}

double Scale::tareGrams() const
{
    return m_readability.toGrams(tareDigits());
}

double Scale::incrementDigits() const
{
    return static_cast<double>(m_readability.incrementDigits()) * (m_coarse ? CoarseMultiple : 1);
}

double Scale::capacity() const
{
    if (m_settings.capacity > 0.0)
        return m_settings.capacity;
    return m_source ? m_source->capacity() : 0.0;
}

double Scale::upperLimitDigits() const
{
    return capacity() > 0.0 ? qMin(m_readability.round(capacity()), MaximumDigits) : MaximumDigits;
}

double Scale::zeroRangeGrams() const
{
    return ZeroRange * (capacity() > 0.0 ? capacity() : AssumedCapacityIncrements * m_readability.grams());
}

QString Scale::grossText() const
{
    return format(grossDigits());
}

QString Scale::netText() const
{
    return format(netDigits());
}

QString Scale::tareText() const
{
    return format(tareDigits());
}

QString Scale::format(double digits) const
{
    return m_readability.format(digits);
}

bool Scale::zero()
{
    if (!isValid())
        return refuse(Refusal::NotValid);
    if (!m_stable)
        return refuse(Refusal::NotStable);
    if (std::fabs(m_reading.grams) > zeroRangeGrams() + LimitTolerance * m_readability.grams())
        return refuse(Refusal::OutsideZeroRange);
    m_zeroGrams = m_reading.grams;
    m_tareGrams = 0.0;
    m_presetTare = false;
    updateRange();
    return carriedOut();
}

bool Scale::tare()
{
    if (!isValid())
        return refuse(Refusal::NotValid);
    if (!m_stable)
        return refuse(Refusal::NotStable);
    if (grossDigits() < 0.0)
        return refuse(Refusal::NegativeLoad);
    m_tareGrams = grossGrams();
    m_presetTare = false;
    return carriedOut();
}

bool Scale::presetTare(double grams)
{
    if (!std::isfinite(grams))
        return refuse(Refusal::TareNotANumber);
    const double digits = m_readability.round(grams);
    if (digits < 0.0)
        return refuse(Refusal::TareNegative);
    if (digits > upperLimitDigits())
        return refuse(Refusal::TareAboveCapacity);
    m_tareGrams = m_readability.toGrams(digits);
    m_presetTare = digits > 0.0;
    return carriedOut();
}

bool Scale::clearTare()
{
    m_tareGrams = 0.0;
    m_presetTare = false;
    return carriedOut();
}

QString Scale::lastRefusalText() const
{
    switch (m_refusal) {
    case Refusal::None:
        break;
    case Refusal::NotValid:
        return tr("There is no valid weight (%1).").arg(statusText());
    case Refusal::NotStable:
        return tr("The weight is not stable: wait until it is.");
    case Refusal::OutsideZeroRange:
        return tr("Zero can be set within %1 g of the zero at switch-on only: take the load off.")
            .arg(QString::number(zeroRangeGrams(), 'g', 10));
    case Refusal::NegativeLoad:
        return tr("The gross weight is below zero: set zero first.");
    case Refusal::TareNotANumber:
        return tr("The preset tare is not a number.");
    case Refusal::TareNegative:
        return tr("The preset tare is below zero: give 0 or more.");
    case Refusal::TareAboveCapacity:
        return tr("The preset tare is above %1 g: give less.").arg(format(upperLimitDigits()));
    }
    return QString();
}

void Scale::processReading(const Reading& reading)
{
    const Reading::Status oldStatus = m_status;
    const QString oldDetail = m_reading.detail;
    const bool wasStable = m_stable;
    const bool wasCoarse = m_coarse;

    m_reading = reading;
    m_status = judge(reading);
    if (isValid()) {
        updateRange();
        m_stable = m_stability.add(reading.timeMs, reading.grams) && reading.stableMark.value_or(true);
    } else {
        m_stability.reset();
        m_stable = false;
    }
    const bool reachedStable = m_stable && !wasStable;
    if (reachedStable)
        m_stableCounter = m_stableCounter == std::numeric_limits<int>::max() ? 1 : m_stableCounter + 1;

    const bool changed = m_status != oldStatus || m_reading.detail != oldDetail || m_stable != wasStable
                         || m_coarse != wasCoarse;
    const int counter = m_stableCounter;
    const double net = netDigits();
    const QPointer<Scale> self(this);
    emit newMeasurement();
    if (self && reachedStable)
        emit loadChanged(counter, net);
    if (self && changed)
        emit stateChanged();
}

Reading::Status Scale::judge(const Reading& reading) const
{
    if (!reading.isValid())
        return reading.status;
    if (!std::isfinite(reading.grams))
        return Reading::Status::Unreadable;
    const double increment = m_readability.grams();
    const double limit = m_readability.toGrams(MaximumDigits);
    if (reading.grams - m_zeroGrams > limit
        || (capacity() > 0.0
            && reading.grams > capacity() + (OverloadIncrements + LimitTolerance) * increment))
        return Reading::Status::Overload;
    // The net weight may be as far below the gross weight as the tare reaches.
    if (reading.grams - m_zeroGrams - m_tareGrams < -limit)
        return Reading::Status::Underload;
    return Reading::Status::Valid;
}

void Scale::onSourceReadability(double grams)
{
    const std::optional<Readability> readability =
        m_settings.readability ? m_settings.readability : Readability::fromGrams(grams);
    if (!readability || *readability == m_readability)
        return;
    const int oldDecimals = decimals();
    m_readability = *readability;
    m_stability.setIncrement(m_readability.grams() * (m_coarse ? CoarseMultiple : 1));
    if (decimals() != oldDecimals)
        emit decimalsChanged(decimals());
}

bool Scale::refuse(Refusal refusal)
{
    m_refusal = refusal;
    return false;
}

bool Scale::carriedOut()
{
    m_refusal = Refusal::None;
    emit stateChanged();
    return true;
}

void Scale::updateRange()
{
    if (m_settings.coarseAbove > 0.0) {
        const double gross = m_readability.toGrams(m_readability.round(m_reading.grams - m_zeroGrams));
        const double increment = m_readability.grams();
        const double tolerance = LimitTolerance * increment;
        if (m_coarse)
            m_coarse = gross > m_settings.coarseAbove - CoarseMultiple * increment + tolerance;
        else
            m_coarse = gross > m_settings.coarseAbove + tolerance;
    }
    m_stability.setIncrement(m_readability.grams() * (m_coarse ? CoarseMultiple : 1));
}

double Scale::rounded(double grams) const
{
    return m_readability.round(grams, m_coarse ? CoarseMultiple : 1);
}

} // namespace Terminal
} // namespace Brimvale
