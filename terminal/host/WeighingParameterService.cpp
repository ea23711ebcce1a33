// SPDX-License-Identifier: BSD-3-Clause
#include "host/WeighingParameterService.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

WeighingParameterService::WeighingParameterService(HostCallLog& calls)
    : m_calls(calls)
{
}

void WeighingParameterService::SetParameterProfile(QString profile)
{
    m_calls.command("IWeighingParameterService::SetParameterProfile", profile);
    m_profile = profile;
}

void WeighingParameterService::SetParameter2(QString value, int range)
{
    m_calls.command("IWeighingParameterService::SetParameter2", value, range);
    m_parameters[2] = value;
    m_parameter2.insert(range, value);
}

void WeighingParameterService::SetParameter0(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter0", value);
    m_parameters[0] = value;
}

void WeighingParameterService::SetParameter1(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter1", value);
    m_parameters[1] = value;
}

void WeighingParameterService::SetParameter3(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter3", value);
    m_parameters[3] = value;
}

QString WeighingParameterService::parameter(int number) const
{
    return number >= 0 && number < ParameterCount ? m_parameters[static_cast<std::size_t>(number)]
                                                  : QString();
}

} // namespace Terminal
} // namespace Brimvale
