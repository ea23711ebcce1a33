// SPDX-License-Identifier: BSD-3-Clause
#include "host/MeasurementTransfer.h"

#include "clock/Clock.h"
#include "host/HostCallLog.h"
#include "host/Notices.h"

#include <algorithm>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

MeasurementTransfer::MeasurementTransfer(HostCallLog& calls, Notices& notices, const Clock& clock,
                                         QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_clock(clock)
    , m_targets{TransferTarget(calls), TransferTarget(calls), TransferTarget(calls), TransferTarget(calls),
                TransferTarget(calls)}
{
    qRegisterMetaType<Brimvale::Terminal::TransferRecord>();
}

void MeasurementTransfer::SetTransferFlag(bool flag)
{
    m_calls.command("IMeasurementTransfer::SetTransferFlag", flag);
    m_transferFlag = flag;
}

bool MeasurementTransfer::TransferMeasurement(MesswertData current, MesswertData register72,
                                              MesswertData register73)
{
    m_calls.command("IMeasurementTransfer::TransferMeasurement", current, register72, register73);
    return transfer(current, register72, register73);
}

bool MeasurementTransfer::transfer(const MesswertData& current, const MesswertData& gross,
                                   const MesswertData& tare)
{
    TransferRecord record{m_clock.dateTime(), current, gross, tare, false};
    bool failed = false;
    for (TransferTarget& target : m_targets) {
        if (!m_enabled || !target.isActive()) {
            continue;
        }
        if (target.output()->write(record)) {
            record.taken = true;
        } else {
            failed = true;
            m_notices.post(NoticeSeverity::Error, target.output()->error());
        }
    }
    m_records.append(record);
    if (m_records.size() > MaximumRecords) {
        m_records.removeFirst();
    }
    if (failed) {
        emit availabilityChanged();
    }
    emit transferred(record);
    return record.taken;
}

void MeasurementTransfer::setEnabled(bool enabled)
{
    if (m_enabled != enabled) {
        m_enabled = enabled;
        emit availabilityChanged();
    }
}

TransferTarget& MeasurementTransfer::target(int number)
{
    return m_targets.at(static_cast<std::size_t>(number - 1));
}

bool MeasurementTransfer::isAnyTargetActive() const
{
    return std::any_of(m_targets.begin(), m_targets.end(),
                       [](const TransferTarget& target) { return target.isActive(); });
}

void MeasurementTransfer::setOutput(int number, std::unique_ptr<TransferOutput> output)
{
    target(number).setOutput(std::move(output));
    emit availabilityChanged();
}

} // namespace Terminal
} // namespace Brimvale
