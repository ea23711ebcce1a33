// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IREGISTERVALUEPROVIDER_H
#define BRIMVALE_IREGISTERVALUEPROVIDER_H

#include "MesswertData.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// System registers as measured values. Implemented by the host.
class BRIMVALE_EXPORT IRegisterValueProvider
{
public:
    virtual ~IRegisterValueProvider();

    /// A register as a measured value in the given unit (see `ISystem::GetCurrentUnit()`). A reading that
    /// is not there is returned as such, with its error text.
    virtual MesswertData GetMesswert(int unit, int registerNumber) = 0;
};

} // namespace Brimvale

#endif
