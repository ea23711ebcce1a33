// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IACTION_H
#define BRIMVALE_IACTION_H

#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Brimvale
{

/// A button of the action bar, as the host sees it. A plug-in derives from `ActionBase`; the host finds the
/// interface with `qobject_cast<Brimvale::IAction*>`. All operations are called on the host's event-loop
/// thread.
class BRIMVALE_EXPORT IAction
{
public:
    virtual ~IAction();

    /// Whether the button can be pressed.
    virtual bool enabled() const = 0;

    /// The text on the button, translated.
    virtual QString name() const = 0;

    /// The unique identifier of the action within its plug-in.
    virtual QString uid() const = 0;

    /// The place of the button in the bar: lower ranks stand first; see `CategoryOrder`.
    virtual int getRank() const = 0;

    /// Does the work with the data stored before. Without a worker nothing happens.
    virtual void doAction() = 0;

    /// Stores `data` and does the work.
    virtual void doAction(QVariant data) = 0;

    /// Signal of the implementing object: name, state or rank have changed, read the button again.
    virtual void actionUpdated() = 0;

    /// Signal of the implementing object: the work was done with the result `data` (invalid when there is
    /// none).
    virtual void workDone(QVariant data) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IAction, "Brimvale.CustomAction.IAction/1.0")

#endif
