// SPDX-License-Identifier: BSD-3-Clause
#include "host/AutomaticTransfer.h"

#include "host/Weighing.h"
#include "measuring/Scale.h"

#include <cmath>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Below every weight that a scale can show.
constexpr long NoMinimum = -1000000000;

} // namespace

QStringList AutomaticTransferSettings::modeNames()
{
    return {QStringLiteral("off"), QStringLiteral("absolute"), QStringLiteral("percent"),
            QStringLiteral("absolute-fixed"), QStringLiteral("percent-fixed")};
}

QString AutomaticTransferSettings::nameOf(Mode mode)
{
    return modeNames().value(mode - Off);
}

AutomaticTransferSettings::Mode AutomaticTransferSettings::modeOf(const QString& name, bool* ok)
{
    const int index = modeNames().indexOf(name);
    *ok = index >= 0;
    return static_cast<Mode>(Off + qMax(0, index));
}

AutomaticTransfer::AutomaticTransfer(Weighing& weighing, ISystemRegister& registers, const Scale& scale,
                                     QObject* parent)
    : QObject(parent)
    , m_scale(scale)
    , m_detector(nullptr, &weighing, &registers)
{
    connect(&m_detector, &LoadChange::NotifyLoadChangedTriggerd, this, &AutomaticTransfer::onTriggered);
    // The detector was connected before, so that it has taken the weight in already.
    connect(&weighing, &Weighing::NotifyLoadChanged, this, &AutomaticTransfer::onStableWeight);
    // The band is in digits.
    connect(&scale, &Scale::decimalsChanged, this, &AutomaticTransfer::restart);
}

bool AutomaticTransfer::setSettings(const AutomaticTransferSettings& settings, QString* error)
{
    const QString fault = faultOf(settings);
    if (!fault.isEmpty()) {
        if (error) {
            *error = fault;
        }
        return false;
    }
    m_settings = settings;
    m_decision.clear();
    restart();
    emit settingsChanged();
    emit decisionChanged();
    return true;
}

QString AutomaticTransfer::faultOf(const AutomaticTransferSettings& settings) const
{
    if (!std::isfinite(settings.minimumLoad) || settings.minimumLoad < 0.0) {
        return tr("The minimum load of the automatic transfer must not be below 0 g.");
    }
    if (settings.mode == AutomaticTransferSettings::Off) {
        return QString();
    }
    if (settings.isPercent()) {
        const bool whole = settings.threshold == std::floor(settings.threshold);
        return whole && settings.threshold >= 1.0 && settings.threshold <= 99.0
                   ? QString()
                   : tr("The threshold of the automatic transfer must be a whole number from 1 to 99 "
                        "percent.");
    }
    const double digits = std::round(m_scale.readability().toDigits(settings.threshold));
    return digits >= 1.0 && digits < m_scale.upperLimitDigits()
               ? QString()
               : tr("The threshold of the automatic transfer must be above 0 g and below %1 g.")
                     .arg(m_scale.format(m_scale.upperLimitDigits()));
}

bool AutomaticTransfer::isLeftToApplication() const
{
    return m_settings.mode != AutomaticTransferSettings::Off && m_applicationDetects
           && m_applicationDetects();
}

unsigned long AutomaticTransfer::range() const
{
    const double range = m_settings.isPercent()
                             ? m_settings.threshold
                             : std::round(m_scale.readability().toDigits(m_settings.threshold));
    return static_cast<unsigned long>(qBound(1.0, range, Scale::MaximumDigits + 0.0));
}

double AutomaticTransfer::minimumDigits() const
{
    const double digits = std::floor(m_scale.readability().toDigits(m_settings.minimumLoad) + 1.0e-6);
    return qBound(MinimumIncrements * m_scale.readability().incrementDigits(), digits,
                  Scale::MaximumDigits + 0.0);
}

void AutomaticTransfer::restart()
{
    m_detector.Stop();
    if (m_settings.mode == AutomaticTransferSettings::Off) {
        return;
    }
    const bool fixed = m_settings.isFixed();
    m_detector.Start(static_cast<ILoadChange::LoadChangeMode>(m_settings.mode), range(),
                     fixed ? static_cast<long>(minimumDigits()) : NoMinimum, !fixed);
    // A weight that is stable already is not announced again.
    if (m_scale.isStable()) {
        m_detector.onLoadChanged(m_scale.stableCounter(), m_scale.netDigits());
    }
}

void AutomaticTransfer::onTriggered()
{
    // Drift and tare lead out of the band without an unstable time: nothing else would follow.
    if (m_scale.isStable()) {
        decide(m_scale.stableCounter(), m_scale.netDigits());
    }
}

void AutomaticTransfer::onStableWeight(int counter, double digits)
{
    if (m_detector.isActive() && m_detector.state() == LoadChange::Triggered) {
        decide(counter, digits);
    }
}

void AutomaticTransfer::decide(int counter, double digits)
{
    const bool heavy = m_detector.isAboveThreshold(static_cast<long>(minimumDigits()));
    const bool available = m_detector.isValueAvailable(std::lround(digits));
    const QString weight = m_scale.format(digits) + QStringLiteral(" g");
    if (!heavy) {
        m_decision = tr("%1 not transferred: not above the minimum load").arg(weight);
    } else if (!available) {
        m_decision = tr("%1 not transferred: outside the reference's band").arg(weight);
    } else {
        m_decision = tr("%1 transferred").arg(weight);
    }
    const bool accepted = heavy && available;
    const bool due = accepted && !isLeftToApplication();
    if (accepted && !due) {
        m_decision = tr("%1 left to the application").arg(weight);
    }
    if (accepted || !m_settings.isFixed()) {
        m_detector.ResetTrigger();
        m_detector.onLoadChanged(counter, digits);
    }
    emit decisionChanged();
    if (due) {
        emit transferDue();
    }
}

} // namespace Terminal
} // namespace Brimvale
