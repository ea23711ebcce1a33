// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MEASUREMENTTRANSFER_H
#define BRIMVALE_MEASUREMENTTRANSFER_H

#include "IMeasurementTransfer.h"
#include "host/TransferRecord.h"
#include "host/TransferTarget.h"

#include <QList>
#include <QObject>

#include <array>

namespace Brimvale
{
namespace Terminal
{

class Clock;
class HostCallLog;
class Notices;

/// Hands measurements to the outputs and keeps a record of them.
///
/// A measurement goes to every active output while the transfer is switched on, and into records() in any
/// case, with whether an output took it. The transfer flag of the plug-in is kept; the outputs of this
/// terminal write the same with and without it.
class MeasurementTransfer : public QObject, public IMeasurementTransfer
{
    Q_OBJECT
    Q_DISABLE_COPY(MeasurementTransfer)

public:
    static constexpr int TargetCount = 5;
    /// How many records are kept, the newest.
    static constexpr int MaximumRecords = 1000;

    MeasurementTransfer(HostCallLog& calls, Notices& notices, const Clock& clock, QObject* parent = nullptr);

    // IMeasurementTransfer
    void SetTransferFlag(bool flag) override;
    bool TransferMeasurement(MesswertData current, MesswertData register72, MesswertData register73) override;

    /// What TransferMeasurement() does, for the terminal itself.
    bool transfer(const MesswertData& current, const MesswertData& gross, const MesswertData& tare);

    bool transferFlag() const { return m_transferFlag; }

    /// The host-wide switch. Initially on.
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);

    /// The place @p number, 1 to TargetCount.
    TransferTarget& target(int number);
    /// Whether at least one output is active.
    bool isAnyTargetActive() const;
    /// Connects an output to the place @p number.
    void setOutput(int number, std::unique_ptr<TransferOutput> output);

    const QList<TransferRecord>& records() const { return m_records; }

signals:
    /// A measurement was handed over; @p record says whether an output took it.
    void transferred(const Brimvale::Terminal::TransferRecord& record);
    /// isEnabled() or isAnyTargetActive() may have changed.
    void availabilityChanged();

private:
    HostCallLog& m_calls;
    Notices& m_notices;
    const Clock& m_clock;
    bool m_transferFlag = false;
    bool m_enabled = true;
    std::array<TransferTarget, TargetCount> m_targets;
    QList<TransferRecord> m_records;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_MEASUREMENTTRANSFER_H
