// SPDX-License-Identifier: BSD-3-Clause
#include "host/Weighing.h"

#include "host/HostCallLog.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"

namespace Brimvale
{
namespace Terminal
{

Weighing::Weighing(HostCallLog& calls, Notices& notices, Scale& scale, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_scale(scale)
    , m_announced(snapshot())
{
    connect(&m_scale, &Scale::newMeasurement, this, &Weighing::announceValue);
    connect(&m_scale, &Scale::loadChanged, this, &Weighing::onLoadChanged);
    connect(&m_scale, &Scale::stateChanged, this, &Weighing::onStateChanged);
}

bool Weighing::Tare()
{
    m_calls.command("IWeighing::Tare");
    return tare();
}

bool Weighing::Zero()
{
    m_calls.command("IWeighing::Zero");
    return zero();
}

bool Weighing::ClearTare()
{
    m_calls.command("IWeighing::ClearTare");
    return clearTare();
}

bool Weighing::tare()
{
    return reportRefusal(m_scale.tare());
}

bool Weighing::zero()
{
    return reportRefusal(m_scale.zero());
}

bool Weighing::clearTare()
{
    if (!m_scale.isTareSet()) {
        m_notices.post(NoticeSeverity::Warning, tr("There is no tare to clear."));
        return false;
    }
    return reportRefusal(m_scale.clearTare());
}

bool Weighing::reportRefusal(bool done)
{
    if (!done) {
        m_notices.post(NoticeSeverity::Warning, m_scale.lastRefusalText());
    }
    return done;
}

Weighing::Snapshot Weighing::snapshot() const
{
    Snapshot snapshot;
    snapshot.status = m_scale.status();
    // A reading without a weight is told by its status, and not-a-number equals nothing.
    snapshot.gross = m_scale.isValid() ? m_scale.grossDigits() : 0.0;
    snapshot.tare = m_scale.tareDigits();
    snapshot.stable = m_scale.isStable();
    snapshot.coarse = m_scale.isCoarseRange();
    snapshot.presetTare = m_scale.isPresetTare();
    snapshot.decimals = m_scale.decimals();
    return snapshot;
}

void Weighing::announceValue()
{
    m_announced = snapshot();
    if (const auto exception =
            exceptionOf("a slot of a new weight", [this] { emit NotifyNewMeasurementValue(); })) {
        m_notices.postPluginFault(
            tr("The application failed while it took in a new weight: %1").arg(*exception));
    }
    emit announced();
}

void Weighing::onLoadChanged(int stableCounter, double netDigits)
{
    if (const auto exception = exceptionOf("a slot of a stable weight",
                                           [&] { emit NotifyLoadChanged(stableCounter, netDigits); })) {
        m_notices.postPluginFault(
            tr("The application failed while it took in a stable weight: %1").arg(*exception));
    }
    emit announced();
}

void Weighing::onStateChanged()
{
    // After a reading the value was announced already; what an operation changes was not.
    if (!(snapshot() == m_announced)) {
        announceValue();
    }
}

bool Weighing::Snapshot::operator==(const Snapshot& other) const
{
    return status == other.status && gross == other.gross && tare == other.tare && stable == other.stable
           && coarse == other.coarse && presetTare == other.presetTare && decimals == other.decimals;
}

} // namespace Terminal
} // namespace Brimvale
