// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINMENU_H
#define BRIMVALE_PLUGINMENU_H

#include "host/ListModel.h"

#include <QCoreApplication>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

namespace Brimvale
{

class IMenuList;
class IPlugin;

namespace Terminal
{

class MenuStore;
class Notices;
struct MenuSelection;

/// The menu of the plug-in at work: the items of its menu file, and what the plug-in's IMenuList says of them.
///
/// An exception of the plug-in is told as a notice, and the answer is then that of a menu which allows nothing and has
/// no values. The plug-in may close itself in any call, after which there are no items: whoever calls works on copies.
class PluginMenu
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::PluginMenu)
    Q_DISABLE_COPY(PluginMenu)

public:
    /// Nothing is owned, everything must outlive the object.
    PluginMenu(MenuStore& menus, Notices& notices);

    /// Asks a plug-in for its menu. @p name is its display name, for messages.
    void load(IPlugin& plugin, const QString& name);
    void setName(const QString& name) { m_name = name; }

    /// The plug-in goes: nothing of it is called any more.
    void clear();

    /// Whether there is a menu with a menu file that can be read.
    bool isAvailable() const { return m_menu != nullptr; }
    IMenuList* list() const { return m_menu; }
    /// Path of the menu file.
    QString path() const { return m_path; }

    const QList<MenuItem>& items() const { return m_items.items(); }
    /// Null when there is no such item.
    const MenuItem* item(int id) const;
    /// A text of the menu file in the language of the terminal.
    static QString translated(const MenuItem& item, const QString& text);

    /// The menu's own name, or the plug-in's.
    QString title();
    bool isVisible(int id);
    bool isEnabled(int id);
    /// Whether the item and all menus above it are visible, and those enabled.
    bool isReachable(const MenuItem& item);
    bool isToggleAllowed(int id);
    QString text(const MenuItem& item);
    QString unit(int id);
    QString helpFile(const MenuItem& item);
    /// Whether there is a range with a minimum that is not above its maximum.
    bool range(int id, double* minimum, double* maximum);
    MenuSelection selection(int id);

    /// Of the type that the kind of the item has; invalid for none.
    QVariant value(const MenuItem& item);
    /// The value as the screen shows it, without its unit.
    QString valueText(const MenuItem& item);
    /// The values of all items that have one.
    QMap<int, QVariant> values();

    /// A number with the decimal places of the item.
    static QString numberText(const MenuItem& item, double number);
    /// Reads a number that was entered. Returns the empty text, or why it cannot be the value of the item.
    QString readNumber(const MenuItem& item, const QString& text, QVariant* value);

    bool accepts(int id, const QVariant& value);
    bool setValue(int id, const QVariant& value);
    void setProfileItem(int id, const QVariant& value, const QString& text);
    void notifyChanged(int id);
    /// Returns whether the command has come to its end.
    bool execute(int id);

    /// Tells what the plug-in threw in an operation.
    void tellFault(const char* operation, const QString& exception);

private:
    template <typename Result, typename Code>
    Result ask(const char* operation, Result fallback, Code&& code);

    MenuStore& m_menus;
    Notices& m_notices;
    IPlugin* m_plugin = nullptr;
    IMenuList* m_menu = nullptr;
    QString m_name;
    QString m_path;
    ListModel m_items;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINMENU_H
