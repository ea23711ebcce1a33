// SPDX-License-Identifier: BSD-3-Clause
#ifndef COUNTINGMENU_H
#define COUNTINGMENU_H

#include <MenuListBase.h>

namespace Brimvale
{
class IProfileAccess;
class SettingsProfile;
} // namespace Brimvale

class CountingSettings;

/// The settings that are seldom changed. Their values live in the profile of the plug-in, and the terminal keeps them.
class CountingMenu : public Brimvale::MenuListBase
{
    Q_OBJECT

public:
    /// As in the menu file.
    enum Item
    {
        UsualCount = 1,       ///< int: what a reference should be good for when there is no target
        OptimiseByItself = 2, ///< bool: parts that were added become the new reference without a key
        DeleteReference = 3   ///< a command
    };

    /// Nothing is owned.
    CountingMenu(Brimvale::SettingsProfile& profile, Brimvale::IProfileAccess& access,
                 const CountingSettings& settings, QObject* parent);

    QString GetMenuName() override;
    bool IsItemVisible(int id, Brimvale::ListModel* model) override;
    bool IsItemEnabled(int id, Brimvale::ListModel* model) override;
    QVariant GetItemValue(int id) override;
    bool SetItemValue(int id, QVariant value) override;
    QString GetItemText(int id) override;
    QString GetItemUnit(int id) override;
    bool GetItemRange(int id, double* minimum, double* maximum) override;
    bool IsItemValueValid(int id, QVariant value) override;
    void OnItemValueChanged(int id) override;
    void ExecuteCommand(int id, Brimvale::ListModel* model) override;

signals:
    void deleteReferenceRequested();

private:
    Brimvale::SettingsProfile& m_profile;
    Brimvale::IProfileAccess& m_access;
    const CountingSettings& m_settings;
};

#endif
