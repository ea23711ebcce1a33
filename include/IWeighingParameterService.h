// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWEIGHINGPARAMETERSERVICE_H
#define BRIMVALE_IWEIGHINGPARAMETERSERVICE_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The setters of the weighing parameters. Implemented by the host.
class BRIMVALE_EXPORT IWeighingParameterService
{
public:
    virtual ~IWeighingParameterService();

    /// Names the profile in force.
    virtual void SetParameterProfile(QString profile) = 0;

    /// Sets parameter 2 for a weighing range.
    virtual void SetParameter2(QString value, int range) = 0;

    /// Sets parameter 0.
    virtual void SetParameter0(QString value) = 0;

    /// Sets parameter 1.
    virtual void SetParameter1(QString value) = 0;

    /// Sets parameter 3.
    virtual void SetParameter3(QString value) = 0;
};

} // namespace Brimvale

#endif
