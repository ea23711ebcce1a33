// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ACTIONBASETOGGLE_H
#define BRIMVALE_ACTIONBASETOGGLE_H

#include "ActionBase.h"
#include "IActionToggle.h"
#include "SharedLibsGlobal.h"

namespace Brimvale
{

/// A button with several states, which it shows beside its text. The action itself does not step through the states:
/// the worker does, with `setToggleIndex()`.
class BRIMVALE_EXPORT ActionBaseToggle : public ActionBase, public IActionToggle
{
    Q_OBJECT
    Q_DISABLE_COPY(ActionBaseToggle)

public:
    /// Makes an action with the single state 0; `parent` owns it.
    explicit ActionBaseToggle(QObject* parent);
    ~ActionBaseToggle() override;

    int toggleIndex() const override;
    int maxToggleIndex() const override;

    /// Sets the state that the button shows, 0 to `maxToggleIndex()`; not checked. Emits `actionUpdated()` on change.
    void setToggleIndex(int index);

    /// Sets the highest state: the count of states less one. Emits `actionUpdated()` on change.
    void setMaxToggleIndex(int index);

private:
    int m_toggleIndex = 0;
    int m_maxToggleIndex = 0;
};

} // namespace Brimvale

#endif
