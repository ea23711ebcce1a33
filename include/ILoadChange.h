// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ILOADCHANGE_H
#define BRIMVALE_ILOADCHANGE_H

#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

/// Detects that a load was put on or taken off: after a stable value a band is set around it, and a
/// measured value outside the band triggers. Implemented by `LoadChange`. Values are digits of the gram
/// reading (counts of 10^-koma g), except where percent are named.
class BRIMVALE_EXPORT ILoadChange
{
public:
    /// How the band around the reference value r is made from the range p.
    enum LoadChangeMode : int
    {
        Absolute = 0,      ///< r − p to r + p, anew at every stable value
        Percent = 1,       ///< r·(100 − p)/100 to r·(100 + p)/100, anew at every stable value
        AbsoluteFixed = 2, ///< as `Absolute`, but only at the first stable value after the start
        PercentFixed = 3   ///< as `Percent`, but only at the first stable value after the start
    };

    virtual ~ILoadChange();

    /// Whether the detector is running.
    virtual bool isActive() = 0;

    /// Starts the detector.
    /// `range` is the half-width of the band in digits, which must be less than register 90 (the upper
    /// limit), or in percent (1 to 99) in the percent modes.
    /// Values at or below `minimum` (digits) are not taken as a load, unless `ignoreMinimum` is set, which
    /// holds until the first trigger. Returns false when the mode or the range is not valid; `mode`,
    /// `minimum` and `ignoreMinimum` are stored even then.
    virtual bool Start(LoadChangeMode mode, unsigned long range, long minimum, bool ignoreMinimum) = 0;

    /// Stops the detector; its state and band stay.
    virtual void Stop() = 0;

    /// Whether `value` (digits) may be taken as the weighing that the trigger announced: only while the
    /// detector is triggered and for a value above the minimum (at least −999,999,999 while the minimum is
    /// ignored), in the fixed modes only within the band.
    virtual bool isValueAvailable(long value) = 0;

    /// True when the current value lies strictly above `value` (digits).
    virtual bool isAboveThreshold(long value) = 0;

    /// Arms the detector for the next stable value.
    virtual void ResetTrigger() = 0;

    /// Sets the state (0 armed, 1 band set, 2 triggered), unchecked.
    virtual void setTrigger(int state) = 0;

    /// In the percent modes: centre the band on 0 and size it from the last sample.
    virtual void setAutoTare(bool autoTare) = 0;

    /// The last sample in digits, for the automatic tare.
    virtual void setLastSample(double lastSample) = 0;

    /// Signal of the implementing object: the load has changed.
    virtual void NotifyLoadChangedTriggerd() = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::ILoadChange, "Brimvale.MeasuringSystem.ILoadChange/1.0")

#endif
