// SPDX-License-Identifier: BSD-3-Clause
#include "host/LoadChangeMonitor.h"

#include "host/Weighing.h"
#include "measuring/Scale.h"

#include <cmath>
#include <limits>

namespace Brimvale
{
namespace Terminal
{

LoadChangeMonitor::LoadChangeMonitor(Weighing& weighing, const Scale& scale,
                                     std::function<LoadChange*()> find, QObject* parent)
    : QObject(parent)
    , m_scale(scale)
    , m_find(std::move(find))
    , m_reference(std::numeric_limits<double>::quiet_NaN())
{
    connect(&weighing, &Weighing::announced, this, &LoadChangeMonitor::update);
    update();
}

void LoadChangeMonitor::update()
{
    find();
    judge();
    emit changed();
}

void LoadChangeMonitor::find()
{
    LoadChange* const detector = m_find();
    if (detector == m_detector) {
        return;
    }
    if (m_detector) {
        m_detector->disconnect(this);
    }
    m_detector = detector;
    m_bandLow = 0;
    m_bandHigh = 0;
    m_reference = std::numeric_limits<double>::quiet_NaN();
    m_triggerCount = 0;
    if (detector) {
        connect(detector, &LoadChange::NotifyLoadChangedTriggerd, this, &LoadChangeMonitor::onTriggered);
    }
}

void LoadChangeMonitor::onTriggered()
{
    m_triggerCount = m_triggerCount == std::numeric_limits<int>::max() ? 1 : m_triggerCount + 1;
    m_triggerValue = m_scale.netDigits();
    // Who answers the trigger may have laid another band already.
    m_triggerBound = m_triggerValue > m_bandHigh ? m_bandHigh : m_bandLow;
}

QString LoadChangeMonitor::lastTriggerText() const
{
    if (m_triggerCount == 0) {
        return QString();
    }
    return m_triggerValue > m_triggerBound
               ? tr("%1 was above the band up to %2").arg(grams(m_triggerValue), grams(m_triggerBound))
               : tr("%1 was below the band from %2").arg(grams(m_triggerValue), grams(m_triggerBound));
}

void LoadChangeMonitor::judge()
{
    if (!m_detector || !m_detector->isActive()) {
        m_reason = Reason::Off;
        m_reasonText = tr("switched off");
        m_reference = std::numeric_limits<double>::quiet_NaN();
        return;
    }
    const int state = m_detector->state();
    const bool moved = m_detector->bandLow() != m_bandLow || m_detector->bandHigh() != m_bandHigh;
    if (state == LoadChange::Watching && m_scale.isStable() && (moved || std::isnan(m_reference))) {
        m_reference = m_scale.netDigits();
    }
    m_bandLow = m_detector->bandLow();
    m_bandHigh = m_detector->bandHigh();

    if (!m_scale.isValid()) {
        m_reason = Reason::NoReading;
        m_reasonText = tr("no valid reading: %1").arg(m_scale.statusText());
    } else if (state == LoadChange::Watching) {
        m_reason = Reason::InsideBand;
        m_reasonText = tr("inside the band: %1").arg(grams(m_scale.netDigits()));
    } else if (state != LoadChange::Armed) {
        m_reason = Reason::LeftBand;
        m_reasonText = tr("triggered, waits to be armed again");
    } else if (m_scale.isStable() && !m_detector->isMinimumIgnored()
               && m_scale.netDigits() <= m_detector->minimum()) {
        m_reason = Reason::BelowMinimum;
        m_reasonText = tr("no band: %1 is not above the minimum of %2")
                           .arg(grams(m_scale.netDigits()), grams(m_detector->minimum()));
    } else {
        m_reason = Reason::NotLatched;
        m_reasonText = tr("not latched: waits for the next stable weight");
    }
}

QString LoadChangeMonitor::grams(double digits) const
{
    return m_scale.format(digits) + QStringLiteral(" g");
}

} // namespace Terminal
} // namespace Brimvale
