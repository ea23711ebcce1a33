// SPDX-License-Identifier: BSD-3-Clause

// What load-change detection costs per measured value: it runs on every reading of the scale.

#include "AllocationCount.h"
#include "ISystemRegister.h"
#include "IWeighing.h"
#include "LoadChange.h"

#include <QObject>

using Brimvale::ISystemRegister;
using Brimvale::IWeighing;
using Brimvale::LoadChange;

namespace
{

constexpr double Reference = 1000.0;
constexpr double UpperLimit = 30000.0;

class Scale : public QObject, public IWeighing
{
    Q_OBJECT

public:
    bool Tare() override { return false; }
    bool Zero() override { return false; }
    bool ClearTare() override { return false; }

signals:
    void NotifyLoadChanged(int stableCounter, double netDigits);
    void NotifyNewMeasurementValue();
};

class Registers : public ISystemRegister
{
public:
    double GetRegisterValue(int registerNumber) override
    {
        ++calls;
        return registerNumber == UpperLimitRegister ? UpperLimit : value;
    }

    double value = Reference;
    long calls = 0;
};

// The yardstick: it reads the register whenever there is a new value, and no more.
class Reader : public QObject
{
    Q_OBJECT

public:
    Reader(Scale* scale, ISystemRegister* registers)
        : m_registers(registers)
    {
        connect(scale, SIGNAL(NotifyNewMeasurementValue()), this, SLOT(onNewMeasurementValue()));
    }

public slots:
    void onNewMeasurementValue()
    {
        benchmark::DoNotOptimize(m_registers->GetRegisterValue(ISystemRegister::CurrentRegister));
    }

private:
    ISystemRegister* m_registers;
};

void deliver(benchmark::State& state, Scale& scale, Registers& registers)
{
    registers.calls = 0;
    {
        const AllocationCount::Reporter reporter(state);
        for (auto _ : state)
            emit scale.NotifyNewMeasurementValue();
    }
    if (registers.calls != long(state.iterations()))
        state.SkipWithError("the register was not read once per value");
}

void signalAndRegister(benchmark::State& state)
{
    Scale scale;
    Registers registers;
    const Reader reader(&scale, &registers);
    deliver(state, scale, registers);
}
BENCHMARK(signalAndRegister)->Name("LoadChange per measured value/limit:signal and register call");

// The load does not change, as with nearly every value.
void watching(benchmark::State& state)
{
    Scale scale;
    Registers registers;
    LoadChange detector(nullptr, &scale, &registers);
    if (!detector.Start(LoadChange::Absolute, 50, 100, false)) {
        state.SkipWithError("the detector does not start");
        return;
    }
    emit scale.NotifyLoadChanged(1, Reference);
    deliver(state, scale, registers);
}
BENCHMARK(watching)->Name("LoadChange per measured value/ours");

} // namespace

#include "bench_loadchange.moc"
