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
    // A plug-in may change its profile while a setting is applied: what it replaced or removed meanwhile must not be
    // put into effect after all.
    const QList<int> ids = m_profileItems.keys();
    for (const int id : ids) {
        const auto item = m_profileItems.constFind(id);
        if (item != m_profileItems.constEnd()) {
            ApplySetting(id, item.value());
        }
    }
}

void SettingsProfile::ClearProfile()
{
    m_profileItems.clear();
}

} // namespace Brimvale
