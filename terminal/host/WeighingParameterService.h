// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHINGPARAMETERSERVICE_H
#define BRIMVALE_WEIGHINGPARAMETERSERVICE_H

#include "IWeighingParameterService.h"

#include <QMap>
#include <QObject>
#include <QString>

#include <array>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class MSWParameterSource;

/// The weighing parameters in force. The sources of this terminal have no filters that they could set; the
/// values are kept and can be read back.
class WeighingParameterService : public QObject, public IWeighingParameterService
{
    Q_OBJECT
public:
    static constexpr int ParameterCount = 4;

    /// A set, as plug-ins bring them into force.
    enum class Set
    {
        None,     ///< Nothing was set yet.
        Standard, ///< It began with the profile "standard".
        MSW,      ///< It began with parameter 2 of the MSW set.
        System ///< It began with parameter 2 from elsewhere: the user's own, stored parameters were restored.
    };
    Q_ENUM(Set)

    /// @param source tells when the MSW set is read. Not owned, must outlive the object.
    WeighingParameterService(HostCallLog& calls, MSWParameterSource& source);
    Q_DISABLE_COPY(WeighingParameterService)

    // IWeighingParameterService
    void SetParameterProfile(QString profile) override;
    void SetParameter2(QString value, int range) override;
    void SetParameter0(QString value) override;
    void SetParameter1(QString value) override;
    void SetParameter3(QString value) override;

    /// The set in force.
    Set set() const { return m_set; }

    QString profile() const { return m_profile; }
    /// Parameter @p number, 0 to 3; of parameter 2 the value set last.
    QString parameter(int number) const;
    /// Parameter 2 of a weighing range.
    QString parameter2(int range) const { return m_parameter2.value(range); }

signals:
    /// The set, or a parameter of it, has changed.
    void changed();

private:
    void store(int number, const QString& value);

    HostCallLog& m_calls;
    MSWParameterSource& m_source;
    Set m_set = Set::None;
    QString m_profile;
    std::array<QString, ParameterCount> m_parameters;
    QMap<int, QString> m_parameter2;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_WEIGHINGPARAMETERSERVICE_H
