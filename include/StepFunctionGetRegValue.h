// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STEPFUNCTIONGETREGVALUE_H
#define BRIMVALE_STEPFUNCTIONGETREGVALUE_H

#include "SharedLibsGlobal.h"
#include "StepFunctionBase.h"

namespace Brimvale
{

class ISystemRegister;

/// A step function that reads a system register. It sets no worker: its owner calls `doFunction()`.
class BRIMVALE_EXPORT StepFunctionGetRegValue : public StepFunctionBase
{
    Q_OBJECT
    Q_DISABLE_COPY(StepFunctionGetRegValue)

public:
    /// `registers` is the host's, not owned, and must outlive the function; `parent` owns the function.
    StepFunctionGetRegValue(QObject* parent, int registerNumber, ISystemRegister* registers);
    ~StepFunctionGetRegValue() override;

    /// Reads the register.
    virtual void doFunction();

    /// The value read last, 0.0 before the first `doFunction()`.
    double getValue();

private:
    ISystemRegister* m_registers;
    int m_registerNumber;
    double m_value = 0.0;
};

} // namespace Brimvale

#endif
