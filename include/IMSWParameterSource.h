// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IMSWPARAMETERSOURCE_H
#define BRIMVALE_IMSWPARAMETERSOURCE_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// The MSW parameter set, and the four queries that decide whether a pressed print button is reported.
/// Implemented by the host.
class BRIMVALE_EXPORT IMSWParameterSource
{
public:
    virtual ~IMSWParameterSource();

    /// First query: false has every pressed print button reported.
    virtual bool QueryFlagA() = 0;

    /// Third query: true has the press reported.
    virtual bool QueryFlagB() = 0;

    /// Parameter 0 of the MSW set.
    virtual QString GetMSWParameter0() = 0;

    /// Parameter 1 of the MSW set.
    virtual QString GetMSWParameter1() = 0;

    /// Parameter 3 of the MSW set.
    virtual QString GetMSWParameter3() = 0;

    /// Parameter 2 of the MSW set.
    virtual QString GetMSWParameter2() = 0;

    /// Fourth query: true keeps the press to itself.
    virtual bool QueryFlagC() = 0;

    /// Second query: false has the press reported.
    virtual bool QueryFlagD() = 0;
};

} // namespace Brimvale

#endif
