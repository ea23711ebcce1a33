// SPDX-License-Identifier: BSD-3-Clause
#include "host/WeighingParameterService.h"

#include "host/HostCallLog.h"
#include "host/MSWParameterSource.h"

namespace Brimvale
{
namespace Terminal
{

WeighingParameterService::WeighingParameterService(HostCallLog& calls, MSWParameterSource& source)
    : m_calls(calls)
    , m_source(source)
{
}

void WeighingParameterService::store(int number, const QString& value)
{
    m_parameters[static_cast<std::size_t>(number)] = value;
    emit changed();
}

void WeighingParameterService::SetParameterProfile(QString profile)
{
    m_calls.command("IWeighingParameterService::SetParameterProfile", profile);
    m_profile = profile;
    if (profile == QLatin1String("standard")) {
        m_set = Set::Standard;
    }
    emit changed();
}

void WeighingParameterService::SetParameter2(QString value, int range)
{
    m_calls.command("IWeighingParameterService::SetParameter2", value, range);
    m_set = m_source.takeRead() ? Set::MSW : Set::System;
    m_parameter2.insert(range, value);
    store(2, value);
}

void WeighingParameterService::SetParameter0(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter0", value);
    store(0, value);
}

void WeighingParameterService::SetParameter1(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter1", value);
    store(1, value);
}

void WeighingParameterService::SetParameter3(QString value)
{
    m_calls.command("IWeighingParameterService::SetParameter3", value);
    store(3, value);
}

QString WeighingParameterService::parameter(int number) const
{
    return number >= 0 && number < ParameterCount ? m_parameters[static_cast<std::size_t>(number)]
                                                  : QString();
}

} // namespace Terminal
} // namespace Brimvale
