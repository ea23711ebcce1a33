// SPDX-License-Identifier: BSD-3-Clause
#include "ISystemRegister.h"
#include "LoadChange.h"
#include "RangeSwitch.h"
#include "ResultTable.h"
#include "StepFunctionGetRegValue.h"
#include "TestKit/RecordingHost.h"
#include "WeighingParameters.h"
#include "operations.h"

using namespace Brimvale;

void writeMeasuringSystem(ResultTable& table)
{
    TestKit::RecordingHost host;

    // Each line is a state of the detector: start, stable values, readings.
    Inputs in = table.begin("LoadChange");
    for (int run = 0; run < 2000; ++run) {
        LoadChange detector(nullptr, host.weighing(), host.systemRegister());
        int triggered = 0;
        QObject::connect(&detector, &LoadChange::NotifyLoadChangedTriggerd, [&triggered] { ++triggered; });
        const double upperLimit = in.flag() ? 999999999.0 : in.number();
        host.setRegister(ISystemRegister::UpperLimitRegister, upperLimit);
        const auto mode =
            static_cast<ILoadChange::LoadChangeMode>(in.below(8) == 0 ? in.integer() : in.below(4));
        // Both types have 32 bits on the terminal.
        const auto range = static_cast<quint32>(in.flag() ? in.below(120) : in.integer());
        const qint32 minimum = in.integer();
        const bool ignoreMinimum = in.flag();
        const bool autoTare = in.flag();
        const double lastSample = in.number();
        detector.setAutoTare(autoTare);
        detector.setLastSample(lastSample);
        const bool started = detector.Start(mode, range, minimum, ignoreMinimum);
        table.row(line(upperLimit, int(mode), range, minimum, ignoreMinimum, autoTare, lastSample), started,
                  detector.isActive(), detector.range(), detector.minimum());
        for (int step = 0; step < 8; ++step) {
            const double value = in.flag() ? in.number() : in.below(2000000) - 1000000;
            const qint32 asked = in.integer();
            const int kind = in.below(5);
            if (kind == 0)
                detector.setTrigger(in.below(4));
            else if (kind < 3)
                host.emitLoadChanged(in.integer(), value);
            else
                host.emitNewMeasurement(value);
            table.row(line(kind, value, asked), detector.state(), detector.bandLow(), detector.bandHigh(),
                      detector.isMinimumIgnored(), detector.isValueAvailable(asked),
                      detector.isAboveThreshold(asked), triggered);
        }
        host.clearCalls();
    }

    in = table.begin("WeighingParameters");
    for (int i = 0; i < 300; ++i) {
        host.answer("IRangeSwitch::getFixRange", in.integer());
        host.answer("IRangeSwitch::getCurrentRange", in.integer());
        host.answer("IMSWParameterSource::GetMSWParameter2", in.text());
        host.answer("IStatusInfo::GetAddonText", in.text());
        WeighingParameters parameters(nullptr, host.system(), host.menuList());
        host.clearCalls();
        parameters.InitStandardWeighingParameters();
        parameters.InitMSWWeighingParameters();
        parameters.ResetWeighingParameters();
        table.row(line(i), host.takeCalls());
    }

    in = table.begin("RangeSwitch");
    for (int i = 0; i < 200; ++i) {
        const int current = in.integer();
        const int fix = in.integer();
        RangeSwitch rangeSwitch(current, fix);
        const int currentBefore = rangeSwitch.getCurrentRange();
        const int fixBefore = rangeSwitch.getFixRange();
        rangeSwitch.SetRangeSelection(fix);
        rangeSwitch.setFixRange(current);
        table.row(line(current, fix), currentBefore, fixBefore, rangeSwitch.getCurrentRange(),
                  rangeSwitch.getFixRange());
    }

    in = table.begin("StepFunctionGetRegValue");
    for (int i = 0; i < 500; ++i) {
        const int number = in.integer();
        const double value = in.number();
        host.setRegister(number, value);
        StepFunctionGetRegValue function(nullptr, number, host.systemRegister());
        function.doFunction();
        table.row(line(number, value), function.getValue());
        host.clearCalls();
    }
}
