// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IACTIONBAR_H
#define BRIMVALE_IACTIONBAR_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

class IAction;

/// The action bar: the row of buttons below the screen. Implemented by the host.
class BRIMVALE_EXPORT IActionbar
{
public:
    virtual ~IActionbar();

    /// Loads the entries stored for an add-on and an owner text.
    virtual void LoadEntries(int addonNumber, QString text) = 0;

    /// Puts the loaded entries into effect.
    virtual void ApplyEntries(int addonNumber, QString text) = 0;

    /// Reads all actions again.
    virtual void Refresh() = 0;

    /// Sets the entry at a place of the bar; 0 empties it.
    virtual void SetEntry(int index, int value) = 0;

    /// Enables (1) or disables (0) the whole bar.
    virtual void SetEnabled(int enabled) = 0;

    /// Adds a plug-in's action. It is not owned; it must be removed before it dies.
    virtual void AddAction(IAction* action) = 0;

    /// Removes an action; one that is not there is ignored.
    virtual void RemoveAction(IAction* action) = 0;
};

} // namespace Brimvale

#endif
