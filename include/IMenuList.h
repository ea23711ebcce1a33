// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IMENULIST_H
#define BRIMVALE_IMENULIST_H

#include "SharedLibsGlobal.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace Brimvale
{

class IPluginManager;
class ListModel;
struct MenuItem;

/// The menu of a plug-in: what its items are called, whether they are shown, their values and ranges. A
/// plug-in derives from `MenuListBase`, which supplies defaults for all operations but ten. Items are named
/// by the number that they have in the menu file.
class BRIMVALE_EXPORT IMenuList
{
public:
    virtual ~IMenuList();

    /// Path of the menu file that lists the items.
    virtual QString GetMenuFilePath() = 0;

    /// The translated title of the menu.
    virtual QString GetMenuName() = 0;

    /// Replaces the title.
    virtual void SetMenuName(QString name) = 0;

    /// The translated title of the menu as shown in an add-on; empty for none.
    virtual QString GetAddonMenuName() = 0;

    /// Whether the item is shown.
    virtual bool IsItemVisible(int id, ListModel* model) = 0;

    /// Whether the item can be changed.
    virtual bool IsItemEnabled(int id, ListModel* model) = 0;

    /// Whether a yes/no item may be switched now.
    virtual bool IsItemBoolValueAllowedToToggle(int id, ListModel* model) = 0;

    /// The value of the item; invalid for an unknown number.
    virtual QVariant GetItemValue(int id) = 0;

    /// Sets the value. Returns whether it was accepted.
    virtual bool SetItemValue(int id, QVariant value) = 0;

    /// The translated text of the item.
    virtual QString GetItemText(int id) = 0;

    /// The unit shown behind the value; empty for none.
    virtual QString GetItemUnit(int id) = 0;

    /// Stores the range of a number. Returns false and stores nothing when the item has none.
    virtual bool GetItemRange(int id, double* minimum, double* maximum) = 0;

    /// The names and the values of a selection, each a list joined by ";". Two empty texts when the item is
    /// none.
    virtual QPair<QString, QString> defineSelectionList(int id) = 0;

    /// Whether `SetItemValue()` would accept the value.
    virtual bool IsItemValueValid(int id, QVariant value) = 0;

    /// Replaces both lists by the selection's names and values. Returns false and leaves them untouched
    /// when the item has no selection.
    virtual bool GetSelectionList(int id, QStringList* names, QStringList* values) = 0;

    /// A handle of the selection's data; -1 for none.
    virtual int GetSelectionListDataPtr(int id, QString value) = 0;

    /// The language-independent name of an entry; empty for none.
    virtual QString GetUniqueNameFromIndexInSelectionList(int id, int index) = 0;

    /// The place of the entry with that language-independent name; -1 for none.
    virtual int GetIndexFromUniqueNameInSelectionList(int id, QString name) = 0;

    /// Path of the item's help text; empty for none.
    virtual QString GetHelpFilePath(int id) = 0;

    /// Fills `items` with the menu's items as the host stores them. Returns the host's answer.
    virtual bool GetMenuItemList(QList<MenuItem>* items) = 0;

    /// Fills `item` with one item as the host stores it. Returns the host's answer.
    virtual bool GetMenuItemById(int id, MenuItem* item) = 0;

    /// Told after the value of an item was changed by the user.
    virtual void OnItemValueChanged(int id) = 0;

    /// Runs the command behind an item.
    virtual void ExecuteCommand(int id, ListModel* model) = 0;

    /// Hands over the host's plug-in manager, which is not owned.
    virtual void SetPluginManager(IPluginManager* manager) = 0;

    /// Told that the customise button of an item was pressed.
    virtual void OnCustomizeButton(int id) = 0;

    /// Told that the text of an item is to be customised on `object`.
    virtual void OnCustomizeString(QObject* object, int id) = 0;
};

} // namespace Brimvale

Q_DECLARE_INTERFACE(Brimvale::IMenuList, "Brimvale.Menu.IMenuList/1.0")

#endif
