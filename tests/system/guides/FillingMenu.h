// SPDX-License-Identifier: BSD-3-Clause
#ifndef FILLINGMENU_H
#define FILLINGMENU_H

#include <IProfileAccess.h>
#include <MenuListBase.h>
#include <SettingsProfile.h>

// clang-format off
// guide: header
class FillingMenu : public Brimvale::MenuListBase
{
    Q_OBJECT

public:
    enum Item { Filling = 10, Target = 11, Mode = 12, TareFirst = 20, Batch = 21, ClearBatch = 22 };

    FillingMenu(Brimvale::SettingsProfile& profile, Brimvale::IProfileAccess& access, QObject* parent);

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
    QPair<QString, QString> defineSelectionList(int id) override;
    void ExecuteCommand(int id, Brimvale::ListModel* model) override;

private:
    Brimvale::SettingsProfile& m_profile;
    Brimvale::IProfileAccess& m_access;
};
// guide: end
// clang-format on

#endif
