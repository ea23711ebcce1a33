// SPDX-License-Identifier: BSD-3-Clause
#include "SettingsProfile.h"

#include "IProfileAccess.h"
#include "core/Logging.h"

namespace Brimvale
{

SettingsProfile::SettingsProfile() = default;

SettingsProfile::~SettingsProfile()
{
    BRIMVALE_LOG_TRACE("Running destructor -> " << this);
}

void SettingsProfile::SetProfileAccess(IProfileAccess* profileAccess)
{
    m_profileAccess = profileAccess;
}

void SettingsProfile::EnableApplySettings()
{
    m_applyEnabled = true;
}

void SettingsProfile::DisableApplySettings()
{
    m_applyEnabled = false;
}

QVariant SettingsProfile::GetProfileItem(int id)
{
    return m_profileItems.value(id);
}

void SettingsProfile::SetProfileItem(int id, QVariant value)
{
    if (GetProfileItem(id) == value) {
        return;
    }
    m_profileItems.insert(id, value);
    if (m_applyEnabled) {
        ApplySetting(id, value);
    }
}

void SettingsProfile::ApplySetting(int id, QVariant value)
{
    if (m_profileAccess == nullptr) {
        BRIMVALE_LOG_WARN("SettingsProfile::ApplySetting, m_profileAccess pointer is NULL. "
                          "Use SetProfileAccess() to initialize it.");
        return;
    }
    m_profileAccess->ApplyProfileItem(id, value);
}

void SettingsProfile::ApplyAllSettings()
{
    // A plug-in may change its profile while a setting is applied: the walk is over a (shared) copy.
    const QMap<int, QVariant> items = m_profileItems;
    for (auto item = items.constBegin(); item != items.constEnd(); ++item) {
        ApplySetting(item.key(), item.value());
    }
}

void SettingsProfile::ClearProfile()
{
    m_profileItems.clear();
}

} // namespace Brimvale
