// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_APPLICATIONTYPE_H
#define BRIMVALE_APPLICATIONTYPE_H

#include <QtGlobal>

namespace Brimvale
{

/// The kind of application that a protocol trigger serves.
enum class ApplicationType : qint32
{
    Any = -1,     ///< every kind; the default of a trigger
    Weighing = 0, ///< weighing applications
    Addon = 1,    ///< add-ons, which work beside a weighing application
    Control = 2,  ///< control applications, which take over the whole terminal
    Workflow = 3  ///< guided procedures
};

} // namespace Brimvale

#endif
