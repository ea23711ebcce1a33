// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOADCHANGETRIGGER_H
#define BRIMVALE_LOADCHANGETRIGGER_H

#include "ISystemRegister.h"
#include "IWeighing.h"
#include "LoadChange.h"
#include "TriggerBase.h"

namespace Brimvale
{
namespace Terminal
{

class Scale;
class Weighing;

/// The load on the scale as a load-change detector reads it: the gross weight, so that taring is no change, and through
/// a fault of the scale the weight before it. Asking it leaves no trace in the record of what plug-ins call.
class GrossLoad : public QObject, public IWeighing, public ISystemRegister
{
    Q_OBJECT
    Q_DISABLE_COPY(GrossLoad)

public:
    /// @param weighing tells of new and stable weights; neither is owned, both must outlive the object.
    GrossLoad(Weighing& weighing, const Scale& scale);

    // ISystemRegister
    double GetRegisterValue(int registerNumber) override;

    // IWeighing: nothing is operated from here.
    bool Tare() override { return false; }
    bool Zero() override { return false; }
    bool ClearTare() override { return false; }

signals:
    void NotifyLoadChanged(int stableCounter, double digits);
    void NotifyNewMeasurementValue();

private:
    const Scale& m_scale;
    double m_digits = 0.0; ///< Of the last valid reading.
};

/// The terminal's own trigger for a change of the load: fires when another load, above the minimum, has come to rest.
/// What is a change and what is a load: more than ChangeIncrements display increments. Taking the load off and taring
/// fire nothing; the same load put on again fires again.
class LoadChangeTrigger : public TriggerBase
{
    Q_OBJECT
    Q_DISABLE_COPY(LoadChangeTrigger)

public:
    static constexpr int ChangeIncrements = 10;

    /// @param weighing tells of new and stable weights; neither is owned, both must outlive the trigger.
    LoadChangeTrigger(Weighing& weighing, const Scale& scale, QObject* parent = nullptr);
    ~LoadChangeTrigger() override;

    // ITrigger
    QString getName() const override;
    bool Check() override { return isRunning(); }
    void setRunning(bool running) override;
    bool isRunning() override { return m_detector.isActive(); }
    bool isValueAvailable() override;

private:
    void start();
    long changeDigits() const;
    void onStable(int stableCounter, double digits);

    const Scale& m_scale;
    GrossLoad m_load;
    LoadChange m_detector;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LOADCHANGETRIGGER_H
