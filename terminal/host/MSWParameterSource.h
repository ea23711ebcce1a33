// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MSWPARAMETERSOURCE_H
#define BRIMVALE_MSWPARAMETERSOURCE_H

#include "IMSWParameterSource.h"

#include <QtGlobal>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class StatusInfo;
class StoredParameters;

/// The MSW parameter set: the stored parameters of the profile "msw" (menu file and owner as for the weighing
/// parameters), "normal" where none is stored. The four queries answer that every pressed print button is
/// reported, unless they are set otherwise.
class MSWParameterSource : public IMSWParameterSource
{
public:
    MSWParameterSource(HostCallLog& calls, const StoredParameters& parameters, const StatusInfo& statusInfo);
    Q_DISABLE_COPY(MSWParameterSource)

    // IMSWParameterSource
    bool QueryFlagA() override;
    bool QueryFlagB() override;
    QString GetMSWParameter0() override;
    QString GetMSWParameter1() override;
    QString GetMSWParameter3() override;
    QString GetMSWParameter2() override;
    bool QueryFlagC() override;
    bool QueryFlagD() override;

    /// Whether the set was read since the last call.
    bool takeRead();

    void setQueryFlags(bool a, bool b, bool c, bool d);

private:
    QString parameter(int index) const;

    HostCallLog& m_calls;
    const StoredParameters& m_parameters;
    const StatusInfo& m_statusInfo;
    bool m_read = false;
    bool m_flagA = false;
    bool m_flagB = false;
    bool m_flagC = false;
    bool m_flagD = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_MSWPARAMETERSOURCE_H
