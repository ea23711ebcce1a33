// SPDX-License-Identifier: BSD-3-Clause
#include "host/MSWParameterSource.h"

#include "host/HostCallLog.h"
#include "host/HostMenuList.h"
#include "host/StatusInfo.h"
#include "host/StoredParameters.h"

namespace Brimvale
{
namespace Terminal
{

MSWParameterSource::MSWParameterSource(HostCallLog& calls, const StoredParameters& parameters,
                                       const StatusInfo& statusInfo)
    : m_calls(calls)
    , m_parameters(parameters)
    , m_statusInfo(statusInfo)
{
}

bool MSWParameterSource::QueryFlagA()
{
    m_calls.query("IMSWParameterSource::QueryFlagA");
    return m_flagA;
}

bool MSWParameterSource::QueryFlagB()
{
    m_calls.query("IMSWParameterSource::QueryFlagB");
    return m_flagB;
}

QString MSWParameterSource::GetMSWParameter0()
{
    m_calls.query("IMSWParameterSource::GetMSWParameter0");
    return parameter(0);
}

QString MSWParameterSource::GetMSWParameter1()
{
    m_calls.query("IMSWParameterSource::GetMSWParameter1");
    return parameter(1);
}

QString MSWParameterSource::GetMSWParameter3()
{
    m_calls.query("IMSWParameterSource::GetMSWParameter3");
    return parameter(3);
}

QString MSWParameterSource::GetMSWParameter2()
{
    m_calls.query("IMSWParameterSource::GetMSWParameter2");
    m_read = true;
    return parameter(2);
}

bool MSWParameterSource::QueryFlagC()
{
    m_calls.query("IMSWParameterSource::QueryFlagC");
    return m_flagC;
}

bool MSWParameterSource::QueryFlagD()
{
    m_calls.query("IMSWParameterSource::QueryFlagD");
    return m_flagD;
}

bool MSWParameterSource::takeRead()
{
    const bool read = m_read;
    m_read = false;
    return read;
}

void MSWParameterSource::setQueryFlags(bool a, bool b, bool c, bool d)
{
    m_flagA = a;
    m_flagB = b;
    m_flagC = c;
    m_flagD = d;
}

QString MSWParameterSource::parameter(int index) const
{
    return m_parameters.value(HostMenuList::menuFilePath(), m_statusInfo.owner(), QStringLiteral("msw"),
                              QStringLiteral("normal"), index);
}

} // namespace Terminal
} // namespace Brimvale
