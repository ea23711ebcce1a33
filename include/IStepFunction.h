// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISTEPFUNCTION_H
#define BRIMVALE_ISTEPFUNCTION_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

class IWorkflowScreen;

/// A unit of work that a workflow step runs. A plug-in derives from `StepFunctionBase`; the host's workflow
/// manager calls `startFunction()` and, with the result, `prepareResultForScreen()`.
class BRIMVALE_EXPORT IStepFunction
{
public:
    virtual ~IStepFunction();

    /// Whether the function may be offered.
    virtual bool enabled() const = 0;

    /// The translated display name.
    virtual QString name() const = 0;

    /// The unique id by which steps name the function.
    virtual QString uid() const = 0;

    /// The place among other functions: lower ranks stand first.
    virtual int getRank() const = 0;

    /// True when the work goes on after `startFunction()` and ends with `functionDone()`; false when the
    /// result is there at once.
    virtual bool isProcess() const = 0;

    /// Starts the work with two arguments. Without a worker nothing happens.
    virtual void startFunction(QVariant argument, QVariant data) = 0;

    /// Puts `result` on `screen`, which is not kept.
    virtual void prepareResultForScreen(QVariant result, IWorkflowScreen* screen) = 0;

    /// Undoes the state of the function, between runs or when the workflow is abandoned.
    virtual void reset() = 0;

    /// Signal of the implementing object: name, state or rank have changed.
    virtual void functionUpdated() = 0;

    /// Called by the plug-in when a process has ended with the result `data`. Ignored when none is
    /// outstanding.
    virtual void functionDone(QVariant data) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IStepFunction, "Brimvale.Workflow.IStepFunction/1.0")

#endif
