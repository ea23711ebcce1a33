// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TRIGGERTYPE_H
#define BRIMVALE_TRIGGERTYPE_H

#include <QtGlobal>

namespace Brimvale
{

/// What moves a workflow step on: the workflow manager waits for it before (pre) and after (post) the step's function.
enum class TriggerType : qint32
{
    None = 0,        ///< goes on at once
    Button = 1,      ///< the user presses the step's button
    LoadChange = 2,  ///< the load on the scale changes
    StableValue = 3, ///< the scale reports a stable value
    Timer = 4        ///< the time given in the step's settings has passed
};

} // namespace Brimvale

#endif
