// SPDX-License-Identifier: BSD-3-Clause
#include "StepFunctionGetRegValue.h"

#include "ISystemRegister.h"
#include "core/Logging.h"

namespace Brimvale
{

StepFunctionGetRegValue::StepFunctionGetRegValue(QObject* parent, int registerNumber,
                                                 ISystemRegister* registers)
    : StepFunctionBase(parent)
    , m_registers(registers)
    , m_registerNumber(registerNumber)
{
}

StepFunctionGetRegValue::~StepFunctionGetRegValue()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

void StepFunctionGetRegValue::doFunction()
{
    m_value = m_registers->GetRegisterValue(m_registerNumber);
}

double StepFunctionGetRegValue::getValue()
{
    return m_value;
}

} // namespace Brimvale
