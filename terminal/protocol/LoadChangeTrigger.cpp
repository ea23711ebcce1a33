// SPDX-License-Identifier: BSD-3-Clause
#include "protocol/LoadChangeTrigger.h"

#include "host/Weighing.h"
#include "measuring/Scale.h"

#include <cmath>

namespace Brimvale
{
namespace Terminal
{

namespace
{

const ProtocolAreas EveryArea =
    ProtocolArea::Header | ProtocolArea::Body | ProtocolArea::Footer | ProtocolArea::Sics;

} // namespace

GrossLoad::GrossLoad(Weighing& weighing, const Scale& scale)
    : m_scale(scale)
{
    connect(&weighing, &Weighing::NotifyNewMeasurementValue, this, &GrossLoad::NotifyNewMeasurementValue);
    connect(&weighing, &Weighing::NotifyLoadChanged, this,
            [this](int stableCounter) { emit NotifyLoadChanged(stableCounter, m_scale.grossDigits()); });
}

double GrossLoad::GetRegisterValue(int registerNumber)
{
    if (registerNumber == UpperLimitRegister) {
        // Where the capacity is not known every weight may come.
        return m_scale.upperLimitDigits() > 0.0 ? m_scale.upperLimitDigits() : Scale::MaximumDigits;
    }
    if (m_scale.isValid()) {
        m_digits = m_scale.grossDigits();
    }
    return m_digits;
}

LoadChangeTrigger::LoadChangeTrigger(Weighing& weighing, const Scale& scale, QObject* parent)
    : TriggerBase(parent)
    , m_scale(scale)
    , m_load(weighing, scale)
    , m_detector(nullptr, &m_load, &m_load)
{
    setUid(QStringLiteral("terminal.loadChange"));
    setProtocolArea(EveryArea);
    // After the detector, which takes part in the same signal.
    connect(&m_load, &GrossLoad::NotifyLoadChanged, this, &LoadChangeTrigger::onStable);
    connect(&scale, &Scale::decimalsChanged, this, [this] {
        if (isRunning()) {
            start();
        }
    });
}

LoadChangeTrigger::~LoadChangeTrigger() = default;

QString LoadChangeTrigger::getName() const
{
    return tr("Change of load");
}

void LoadChangeTrigger::setRunning(bool running)
{
    if (running && !isRunning()) {
        start();
    } else if (!running) {
        m_detector.Stop();
    }
}

bool LoadChangeTrigger::isValueAvailable()
{
    return m_scale.isStable() && m_scale.grossDigits() > static_cast<double>(changeDigits());
}

void LoadChangeTrigger::start()
{
    const long change = changeDigits();
    // The load at the start is the first reference, an empty scale included.
    m_detector.Start(ILoadChange::Absolute, static_cast<unsigned long>(change), change, true);
    if (m_scale.isStable()) {
        m_detector.onLoadChanged(0, m_scale.grossDigits());
    }
}

/// How many digits a load must change by.
long LoadChangeTrigger::changeDigits() const
{
    return std::lround(m_scale.readability().incrementDigits()) * ChangeIncrements;
}

void LoadChangeTrigger::onStable(int stableCounter, double digits)
{
    if (!isRunning() || !m_detector.isValueAvailable(std::lround(digits))) {
        return;
    }
    m_detector.ResetTrigger();
    m_detector.onLoadChanged(stableCounter, digits); // the next reference
    doTrigger();
}

} // namespace Terminal
} // namespace Brimvale
