// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_STEPFUNCTIONBUTTONFLAG_H
#define BRIMVALE_STEPFUNCTIONBUTTONFLAG_H

#include <QFlags>

namespace Brimvale
{

/// The buttons that a workflow step offers while its function runs. The values are single bits.
enum class StepFunctionButtonFlag : quint32
{
    Back = 0x01,   ///< return to the step before
    Repeat = 0x02, ///< run the function of this step again
    Abort = 0x04,  ///< abandon the workflow
    Print = 0x08   ///< print the result of this step
};

/// A set of step buttons.
using StepFunctionButtonFlags = QFlags<StepFunctionButtonFlag>;
Q_DECLARE_OPERATORS_FOR_FLAGS(StepFunctionButtonFlags)

} // namespace Brimvale

#endif
