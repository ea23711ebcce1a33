// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IACTIONTOGGLE_H
#define BRIMVALE_IACTIONTOGGLE_H

#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// The additional face of an action with several states. It has no identifier of its own: the host casts by
/// name, `object->qt_metacast("IActionToggle")`.
class BRIMVALE_EXPORT IActionToggle
{
public:
    virtual ~IActionToggle();

    /// The state that the button shows, 0 to `maxToggleIndex()`.
    virtual int toggleIndex() const = 0;

    /// The highest state; 0 means that there is only one.
    virtual int maxToggleIndex() const = 0;
};

} // namespace Brimvale

#endif
