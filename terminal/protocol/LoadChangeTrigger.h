// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LOADCHANGETRIGGER_H
#define BRIMVALE_LOADCHANGETRIGGER_H

#include "ISystemRegister.h"
#include "LoadChange.h"
#include "TriggerBase.h"

namespace Brimvale
{
namespace Terminal
{

class Scale;
class Weighing;

/// The terminal's own trigger for a change of the load: fires when another load, above the minimum, has come to rest.
/// What is a change and what is a load: more than ChangeIncrements display increments. Taking the load off fires
/// nothing; the same load put on again fires again.
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
    /// The scale's registers, without a trace in the record of what plug-ins call.
    class Registers : public ISystemRegister
    {
    public:
        explicit Registers(const Scale& scale)
            : m_scale(scale)
        {
        }
        double GetRegisterValue(int registerNumber) override;

    private:
        const Scale& m_scale;
        double m_net = 0.0; ///< Of the last valid reading: a fault of the scale is no change of the load.
    };

    void start();
    long changeDigits() const;
    void onStable(int stableCounter, double netDigits);

    const Scale& m_scale;
    Registers m_registers;
    LoadChange m_detector;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LOADCHANGETRIGGER_H
