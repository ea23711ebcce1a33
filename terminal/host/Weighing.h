// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHING_H
#define BRIMVALE_WEIGHING_H

#include "IWeighing.h"
#include "measuring/Scale.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;

/// The scale as plug-ins see it.
///
/// NotifyNewMeasurementValue() comes for every reading of the source, those without a weight included (ask
/// `IRegisterValueProvider::GetMesswert()` what it is), and once more when zero, tare or clearing the tare
/// changes the weight between two readings. A refused operation is reported with its reason.
class Weighing : public QObject, public IWeighing
{
    Q_OBJECT
    Q_DISABLE_COPY(Weighing)

public:
    /// @param scale not owned, must outlive the object.
    Weighing(HostCallLog& calls, Notices& notices, Scale& scale, QObject* parent = nullptr);

    // IWeighing
    bool Tare() override;
    bool Zero() override;
    bool ClearTare() override;

    // The same for the terminal's own buttons.
    bool tare();
    bool zero();
    bool clearTare();

signals:
    /// A stable value has been reached. @p stableCounter counts them, @p netDigits is in digits of the gram
    /// reading.
    void NotifyLoadChanged(int stableCounter, double netDigits);
    /// A value is ready in register 74.
    void NotifyNewMeasurementValue();

    /// One of the two was sent and taken in by all plug-ins.
    void announced();

public:
    /// Announces the present value once more, as after a change of the unit in which it is shown.
    void announceValue();

private:
    /// What a plug-in could have read at the last NotifyNewMeasurementValue().
    struct Snapshot
    {
        Reading::Status status;
        double gross;
        double tare;
        bool stable;
        bool coarse;
        bool presetTare;
        int decimals;

        bool operator==(const Snapshot& other) const;
    };

    Snapshot snapshot() const;
    void onLoadChanged(int stableCounter, double netDigits);
    void onStateChanged();
    bool reportRefusal(bool done);

    HostCallLog& m_calls;
    Notices& m_notices;
    Scale& m_scale;
    Snapshot m_announced;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WEIGHING_H
