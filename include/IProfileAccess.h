// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IPROFILEACCESS_H
#define BRIMVALE_IPROFILEACCESS_H

#include "SharedLibsGlobal.h"

#include <QString>
#include <QVariant>

namespace Brimvale
{

/// How settings reach a plug-in: the face that `SettingsProfile` calls. Implemented by `PluginBase`;
/// `ApplyProfileItem()` is left to the concrete plug-in.
class BRIMVALE_EXPORT IProfileAccess
{
public:
    virtual ~IProfileAccess();

    /// Connects the settings profile to the plug-in and lets it apply changes from now on.
    virtual void InitializeProfile() = 0;

    /// Stores a setting in the profile, which applies it when it differs. `text` is the setting in words
    /// and is not used by the library.
    virtual void SetProfileItem(int id, QVariant value, QString text) = 0;

    /// Puts a changed setting into effect.
    virtual void ApplyProfileItem(int id, QVariant value) = 0;
};

} // namespace Brimvale

#endif
