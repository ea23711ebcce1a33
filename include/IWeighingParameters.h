// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWEIGHINGPARAMETERS_H
#define BRIMVALE_IWEIGHINGPARAMETERS_H

#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

/// Switches the scale between sets of weighing parameters. Implemented by `WeighingParameters`.
class BRIMVALE_EXPORT IWeighingParameters
{
public:
    virtual ~IWeighingParameters();

    /// Remembers the fixed range and switches to the standard set. Returns true.
    virtual bool InitStandardWeighingParameters() = 0;

    /// Remembers the fixed range and switches to the MSW set of the host. Returns true.
    virtual bool InitMSWWeighingParameters() = 0;

    /// Restores the stored parameters and, when one was remembered, the fixed range. Returns true.
    virtual bool ResetWeighingParameters() = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IWeighingParameters, "Brimvale.MeasuringSystem.IWeighingParameters/1.0")

#endif
