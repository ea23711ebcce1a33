// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IWORKFLOWSCREEN_H
#define BRIMVALE_IWORKFLOWSCREEN_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

class InfoValueUnit;

/// One screen of a workflow: type, button texts, image, three lines of information and two results.
/// Implemented by `WorkflowScreen`. Texts are read when they are asked for, so a change of language shows
/// without notification.
class BRIMVALE_EXPORT IWorkflowScreen
{
public:
    virtual ~IWorkflowScreen();

    /// The kind of screen, as the workflow manager numbers them.
    virtual int screenType() const = 0;

    /// The text of the left button; empty when there is none.
    virtual QString leftButtonText() = 0;

    /// The text of the centre button; empty when there is none.
    virtual QString centerButtonText() = 0;

    /// The text of the right button; empty when there is none.
    virtual QString rightButtonText() = 0;

    /// Path or name of the picture; empty for none.
    virtual QString image() const = 0;

    /// Non-zero when the auxiliary display is on.
    virtual int auxiliaryOn() const = 0;

    /// The first line of information.
    virtual QString infoTextLine1() = 0;

    /// Makes `text` the first line. The pointer is kept, not owned, and must outlive the screen; null reads
    /// as empty.
    virtual void setInfoTextLine1(QString* text) = 0;

    /// The second line of information.
    virtual QString infoTextLine2() = 0;

    /// As `setInfoTextLine1()`, for the second line.
    virtual void setInfoTextLine2(QString* text) = 0;

    /// The third line of information.
    virtual QString infoTextLine3() = 0;

    /// As `setInfoTextLine1()`, for the third line.
    virtual void setInfoTextLine3(QString* text) = 0;

    /// The first result field: never null, owned by the screen, always the same object.
    virtual InfoValueUnit* getResult1() = 0;

    /// Copies visibility, information, value and unit of `result` into the first result field. `result` is
    /// not kept.
    virtual void setResult1(InfoValueUnit* result) = 0;

    /// The second result field: never null, owned by the screen, always the same object.
    virtual InfoValueUnit* getResult2() = 0;

    /// As `setResult1()`, for the second field.
    virtual void setResult2(InfoValueUnit* result) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IWorkflowScreen, "Brimvale.Workflow.IWorkflowScreen/1.0")

#endif
