// SPDX-License-Identifier: BSD-3-Clause
#ifndef FORMULATIONMENU_H
#define FORMULATIONMENU_H

#include <MenuListBase.h>

class FormulationPlugin;

/// The settings of the plug-in as the terminal shows them. The values live in the profile of the plug-in; an item has
/// the number of its setting.
class FormulationMenu : public Brimvale::MenuListBase
{
    Q_OBJECT

public:
    /// @param plugin owns the menu.
    explicit FormulationMenu(FormulationPlugin* plugin);

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

private:
    FormulationPlugin* const m_plugin;
};

#endif
