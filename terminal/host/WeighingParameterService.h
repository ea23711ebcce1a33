// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHINGPARAMETERSERVICE_H
#define BRIMVALE_WEIGHINGPARAMETERSERVICE_H

#include "IWeighingParameterService.h"

#include <QMap>
#include <QtGlobal>

#include <array>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// The weighing parameters in force. The sources of this terminal have no filters that they could set; the
/// values are kept and can be read back.
class WeighingParameterService : public IWeighingParameterService
{
public:
    static constexpr int ParameterCount = 4;

    explicit WeighingParameterService(HostCallLog& calls);
    Q_DISABLE_COPY(WeighingParameterService)

    // IWeighingParameterService
    void SetParameterProfile(QString profile) override;
    void SetParameter2(QString value, int range) override;
    void SetParameter0(QString value) override;
    void SetParameter1(QString value) override;
    void SetParameter3(QString value) override;

    QString profile() const { return m_profile; }
    /// Parameter @p number, 0 to 3; of parameter 2 the value set last.
    QString parameter(int number) const;
    /// Parameter 2 of a weighing range.
    QString parameter2(int range) const { return m_parameter2.value(range); }

private:
    HostCallLog& m_calls;
    QString m_profile;
    std::array<QString, ParameterCount> m_parameters;
    QMap<int, QString> m_parameter2;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WEIGHINGPARAMETERSERVICE_H
