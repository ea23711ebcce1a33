// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOADCHANGE_H
#define BRIMVALE_LOADCHANGE_H

#include "ILoadChange.h"
#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

class ISystemRegister;
class IWeighing;

/// Detects that a load was put on or taken off.
///
/// After `Start()` the detector is *armed*: the next stable value becomes the reference around which the band is set.
/// Then it *watches*: a measured value outside the band (not on its bounds) triggers. *Triggered* it stays until
/// `ResetTrigger()` or `setTrigger()`; then the next stable value sets a band again, or in the fixed modes only begins
/// the watching again. In the percent modes the bounds are not put in order: around a negative reference every value
/// lies outside.
///
/// Values are digits of the gram reading. Current value and upper limit are read from the registers 74 and 90 of the
/// host. Everything runs on the thread of the weighing object's signals.
class BRIMVALE_EXPORT LoadChange : public QObject, public ILoadChange
{
    Q_OBJECT
    Q_DISABLE_COPY(LoadChange)
    Q_INTERFACES(Brimvale::ILoadChange)

public:
    /// Makes an inactive detector on the host's scale and registers, which are not owned and must outlive it. The
    /// object behind `weighing` has the signals `NotifyLoadChanged(int, double)` and `NotifyNewMeasurementValue()`.
    LoadChange(QObject* parent, IWeighing* weighing, ISystemRegister* registers);
    ~LoadChange() override;

    bool isActive() override;
    bool Start(LoadChangeMode mode, unsigned long range, long minimum, bool ignoreMinimum) override;
    void Stop() override;
    void ResetTrigger() override;
    bool isValueAvailable(long value) override;
    bool isAboveThreshold(long value) override;
    void setTrigger(int state) override;
    void setAutoTare(bool autoTare) override;
    void setLastSample(double lastSample) override;

    // What the detector does, for displays and tests. Values are in digits.

    /// The states of the detector, as `setTrigger()` takes them.
    enum State
    {
        Armed = 0,    ///< waits for a stable value
        Watching = 1, ///< has a band and waits for a value outside it
        Triggered = 2 ///< has fired and waits to be armed again
    };

    /// The state: one of `State`, unless `setTrigger()` was given another number.
    int state() const { return m_state; }
    /// The mode of the last `Start()`, a failed one included.
    LoadChangeMode mode() const { return m_mode; }
    /// Half the width of the band: digits, or percent in the percent modes.
    quint32 range() const { return m_range; }
    /// Stable values up to this one set no band, unless `isMinimumIgnored()`.
    qint32 minimum() const { return m_minimum; }
    /// Whether the minimum is ignored, as `Start()` was asked and until the first trigger.
    bool isMinimumIgnored() const { return m_ignoreMinimum; }
    /// The lower bound of the band; a value on it lies inside. 0 before the first band.
    qint32 bandLow() const { return m_bandLow; }
    /// The upper bound of the band; a value on it lies inside. 0 before the first band.
    qint32 bandHigh() const { return m_bandHigh; }

signals:
    /// The load has changed: the detector has triggered.
    void NotifyLoadChangedTriggerd() override;

public slots:
    /// Takes the stable value `lastStableNettoValue` as reference, if the detector is armed. `stableCtr` is not used.
    void onLoadChanged(int stableCtr, double lastStableNettoValue);

    /// Compares the current value with the band, if the detector watches.
    void onNewMeasurementValue();

private:
    void setBand(qint32 reference);

    bool m_active = false;
    bool m_referenceTaken = false;
    qint32 m_state = 0;
    LoadChangeMode m_mode = Absolute;
    quint32 m_range = 0;
    qint32 m_minimum = 0;
    bool m_ignoreMinimum = false;
    bool m_autoTare = false;
    double m_lastSample = 0.0;
    qint32 m_bandLow = 0;
    qint32 m_bandHigh = 0;
    ISystemRegister* m_registers;
};

} // namespace Brimvale

#endif
