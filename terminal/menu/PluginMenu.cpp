// SPDX-License-Identifier: BSD-3-Clause
#include "menu/PluginMenu.h"

#include "IMenuList.h"
#include "IPlugin.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "menu/MenuStore.h"
#include "menu/PluginProfiles.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace Brimvale
{
namespace Terminal
{

PluginMenu::PluginMenu(MenuStore& menus, Notices& notices)
    : m_menus(menus)
    , m_notices(notices)
{
}

/// Calls the menu. What it throws is told, and the fallback is the answer.
template <typename Result, typename Code>
Result PluginMenu::ask(const char* operation, Result fallback, Code&& code)
{
    if (m_menu == nullptr) {
        return fallback;
    }
    Result result = fallback;
    if (const auto exception = exceptionOf([&] { result = code(*m_menu); })) {
        tellFault(operation, *exception);
        return fallback;
    }
    return result;
}

void PluginMenu::tellFault(const char* operation, const QString& exception)
{
    m_notices.postPluginFault(tr("The menu of the application \"%1\" failed in %2(): %3")
                                  .arg(m_name, QLatin1String(operation), exception));
}

void PluginMenu::load(IPlugin& plugin, const QString& name)
{
    clear();
    m_plugin = &plugin;
    m_name = name;
    IMenuList* menu = nullptr;
    if (const auto exception = exceptionOf([&] { menu = plugin.GetPluginMenu(); })) {
        tellFault("GetPluginMenu", *exception);
    }
    if (menu == nullptr) {
        return;
    }
    m_menu = menu;
    m_path = ask("GetMenuFilePath", QString(), [](IMenuList& asked) { return asked.GetMenuFilePath(); });
    const MenuFile* const file = m_menus.menu(m_path);
    m_menu = file != nullptr ? menu : nullptr;
    m_items.setItems(file != nullptr ? file->items() : QList<MenuItem>());
}

void PluginMenu::clear()
{
    m_menu = nullptr;
    m_plugin = nullptr;
    m_items.setItems({});
}

const MenuItem* PluginMenu::item(int id) const
{
    const QList<MenuItem>& items = m_items.items();
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [id](const MenuItem& candidate) { return candidate.id == id; });
    return found != items.cend() ? &*found : nullptr;
}

QString PluginMenu::translated(const MenuItem& item, const QString& text)
{
    return item.context.isEmpty()
               ? text
               : QCoreApplication::translate(item.context.toUtf8().constData(), text.toUtf8().constData());
}

QString PluginMenu::title()
{
    return ask("GetMenuName", m_name, [](IMenuList& menu) { return menu.GetMenuName(); });
}

bool PluginMenu::isVisible(int id)
{
    return ask("IsItemVisible", false, [&](IMenuList& menu) { return menu.IsItemVisible(id, &m_items); });
}

bool PluginMenu::isEnabled(int id)
{
    return ask("IsItemEnabled", false, [&](IMenuList& menu) { return menu.IsItemEnabled(id, &m_items); });
}

bool PluginMenu::isReachable(const MenuItem& item)
{
    for (const MenuItem* at = &item; at != nullptr; at = this->item(at->parentId)) {
        if (!isVisible(at->id) || (at != &item && !isEnabled(at->id))) {
            return false;
        }
    }
    return true;
}

bool PluginMenu::isToggleAllowed(int id)
{
    return ask("IsItemBoolValueAllowedToToggle", false,
               [&](IMenuList& menu) { return menu.IsItemBoolValueAllowedToToggle(id, &m_items); });
}

QString PluginMenu::text(const MenuItem& item)
{
    const QString text =
        ask("GetItemText", QString(), [&](IMenuList& menu) { return menu.GetItemText(item.id); });
    return text.isEmpty() ? translated(item, item.text) : text;
}

QString PluginMenu::unit(int id)
{
    return ask("GetItemUnit", QString(), [&](IMenuList& menu) { return menu.GetItemUnit(id); });
}

QString PluginMenu::helpFile(const MenuItem& item)
{
    const QString file =
        ask("GetHelpFilePath", QString(), [&](IMenuList& menu) { return menu.GetHelpFilePath(item.id); });
    return file.isEmpty() ? item.helpFile : file;
}

bool PluginMenu::range(int id, double* minimum, double* maximum)
{
    return ask("GetItemRange", false,
               [&](IMenuList& menu) { return menu.GetItemRange(id, minimum, maximum); })
           && *minimum <= *maximum;
}

MenuSelection PluginMenu::selection(int id)
{
    return ask("GetSelectionList", MenuSelection(),
               [&](IMenuList& menu) { return PluginProfiles::selectionOf(menu, id); });
}

QVariant PluginMenu::value(const MenuItem& item)
{
    return PluginProfiles::typed(
        item, ask("GetItemValue", QVariant(), [&](IMenuList& menu) { return menu.GetItemValue(item.id); }));
}

QString PluginMenu::valueText(const MenuItem& item)
{
    if (!PluginProfiles::hasValue(item)) {
        return QString();
    }
    const QVariant value = this->value(item);
    if (!value.isValid()) {
        return QString();
    }
    if (item.kind == QLatin1String("bool")) {
        return value.toBool() ? tr("On") : tr("Off");
    }
    if (item.kind == QLatin1String("number")) {
        return numberText(item, value.toDouble());
    }
    if (item.kind == QLatin1String("selection")) {
        const MenuSelection list = selection(item.id);
        const int index = list.values.indexOf(value.toString());
        return index >= 0 && index < list.names.size() ? list.names.at(index) : value.toString();
    }
    return value.toString();
}

QMap<int, QVariant> PluginMenu::values()
{
    QMap<int, QVariant> values;
    const QList<MenuItem> items = m_items.items();
    for (const MenuItem& item : items) {
        if (PluginProfiles::hasValue(item)) {
            values.insert(item.id, value(item));
        }
    }
    return values;
}

QString PluginMenu::numberText(const MenuItem& item, double number)
{
    if (item.decimals >= 0) {
        return QString::number(number, 'f', item.decimals);
    }
    QString text = QString::number(number, 'f', MenuFile::MaximumDecimals);
    while (text.endsWith(QLatin1Char('0'))) {
        text.chop(1);
    }
    if (text.endsWith(QLatin1Char('.'))) {
        text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString PluginMenu::readNumber(const MenuItem& item, const QString& text, QVariant* value)
{
    static const QRegularExpression form(QStringLiteral("^[+-]?(\\d+(\\.(\\d*))?|\\.(\\d+))$"));
    const QString entered = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.'));
    const QRegularExpressionMatch match = form.match(entered);
    if (!match.hasMatch()) {
        return tr("This is no number.");
    }
    const int decimals = item.decimals >= 0 ? item.decimals : MenuFile::MaximumDecimals;
    if (match.captured(3).size() + match.captured(4).size() > decimals) {
        return decimals == 0 ? tr("Enter a whole number.") : tr("Decimals: at most %1.").arg(decimals);
    }
    const double number = QLocale::c().toDouble(entered);
    double minimum = 0.0;
    double maximum = 0.0;
    if (range(item.id, &minimum, &maximum) && !(number >= minimum && number <= maximum)) {
        return tr("Enter a number from %1 to %2.").arg(numberText(item, minimum), numberText(item, maximum));
    }
    *value = PluginProfiles::typed(item, number);
    if (!std::isfinite(number) || std::fabs(value->toDouble() - number) >= 0.5) {
        return tr("The number is too large."); // beyond what a whole number can be
    }
    return QString();
}

bool PluginMenu::accepts(int id, const QVariant& value)
{
    return ask("IsItemValueValid", false, [&](IMenuList& menu) { return menu.IsItemValueValid(id, value); });
}

bool PluginMenu::setValue(int id, const QVariant& value)
{
    return ask("SetItemValue", false, [&](IMenuList& menu) { return menu.SetItemValue(id, value); });
}

void PluginMenu::setProfileItem(int id, const QVariant& value, const QString& text)
{
    ask("SetProfileItem", false, [&](IMenuList&) {
        m_plugin->SetProfileItem(id, value, text);
        return true;
    });
}

void PluginMenu::notifyChanged(int id)
{
    ask("OnItemValueChanged", false, [&](IMenuList& menu) {
        menu.OnItemValueChanged(id);
        return true;
    });
}

bool PluginMenu::execute(int id)
{
    return ask("ExecuteCommand", false, [&](IMenuList& menu) {
        menu.ExecuteCommand(id, &m_items);
        return true;
    });
}

} // namespace Terminal
} // namespace Brimvale
