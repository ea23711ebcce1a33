// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SETTINGSPROFILE_H
#define BRIMVALE_SETTINGSPROFILE_H

#include "SharedLibsGlobal.h"

#include <QMap>
#include <QVariant>

namespace Brimvale
{

class IProfileAccess;

/// The settings of a plug-in: values under numbers, which are applied to the plug-in through its `IProfileAccess`
/// face. `PluginBase::InitPlugin()` makes one per plug-in.
class BRIMVALE_EXPORT SettingsProfile
{
    Q_DISABLE_COPY(SettingsProfile)

public:
    /// Makes an empty profile without an access object, which does not apply settings.
    SettingsProfile();
    virtual ~SettingsProfile();

    /// Sets the receiver of applied settings. It is not owned and must outlive the profile; null takes it away.
    void SetProfileAccess(IProfileAccess* profileAccess);

    /// Applies changed items from now on. Items that were stored before are not applied: see `ApplyAllSettings()`.
    void EnableApplySettings();

    /// Stores changed items from now on without applying them.
    void DisableApplySettings();

    /// The value stored under `id`, or an invalid value when there is none.
    QVariant GetProfileItem(int id);

    /// Stores `value` under `id` and, when applying is enabled, applies it. Nothing happens when the stored value
    /// equals `value` as `QVariant` compares (the number 1 equals the text "1"), nor when nothing is stored and `value` is invalid.
    void SetProfileItem(int id, QVariant value);

    /// Hands `value` to the access object's `ApplyProfileItem()`. Without an access object a warning is logged.
    void ApplySetting(int id, QVariant value);

    /// Applies every stored item in ascending order of its number, whether applying is enabled or not. The
    /// receiver may change the profile meanwhile: an item that was replaced is applied with its new value, one
    /// that was removed is left out, and one that was added is not applied.
    void ApplyAllSettings();

    /// Removes all items; nothing is applied.
    void ClearProfile();

private:
    IProfileAccess* m_profileAccess = nullptr;
    bool m_applyEnabled = false;
    QMap<int, QVariant> m_profileItems;
};

} // namespace Brimvale

#endif
