// SPDX-License-Identifier: BSD-3-Clause
#include "menu/PluginProfiles.h"

#include "IMenuList.h"
#include "IPlugin.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "host/StatusInfo.h"
#include "host/StoredParameters.h"
#include "menu/MenuStore.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

namespace
{

/// The nearest whole number, 0 for none; beyond the range the end of the range.
int clampedRound(double number)
{
    if (std::isnan(number)) {
        return 0;
    }
    constexpr double Minimum = std::numeric_limits<int>::min();
    constexpr double Maximum = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::round(number), Minimum, Maximum));
}

} // namespace

PluginProfiles::PluginProfiles(MenuStore& menus, StoredParameters& parameters, const StatusInfo& statusInfo,
                               Notices& notices)
    : m_menus(menus)
    , m_parameters(parameters)
    , m_statusInfo(statusInfo)
    , m_notices(notices)
{
}

template <typename Code>
bool PluginProfiles::call(const char* operation, Code&& code)
{
    const auto exception = exceptionOf(std::forward<Code>(code));
    if (exception) {
        m_notices.postPluginFault(tr("The application failed in %1() while it was given its settings: %2")
                                      .arg(QLatin1String(operation), *exception));
    }
    return !exception;
}

void PluginProfiles::load(IPlugin& plugin, const QString& identifier, IPluginManager& manager)
{
    IMenuList* menu = nullptr;
    if (!call("GetPluginMenu", [&] { menu = plugin.GetPluginMenu(); }) || menu == nullptr) {
        return;
    }
    call("SetPluginManager", [&] { menu->SetPluginManager(&manager); });
    const QMap<int, QVariant> values = valuesOf(plugin, identifier, true);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        call("SetProfileItem",
             [&] { plugin.SetProfileItem(value.key(), *value, menu->GetItemText(value.key())); });
    }
}

void PluginProfiles::apply(IPlugin& plugin, const QString& identifier)
{
    IMenuList* menu = nullptr;
    if (!call("GetPluginMenu", [&] { menu = plugin.GetPluginMenu(); }) || menu == nullptr) {
        return;
    }
    call("InitializeProfile", [&] { plugin.InitializeProfile(); });
    const QMap<int, QVariant> values = valuesOf(plugin, identifier, false);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        call("ApplyProfileItem", [&] { plugin.ApplyProfileItem(value.key(), *value); });
    }
    m_started = &plugin;
    m_known = menuValuesOf(plugin);
}

void PluginProfiles::storeChanges(IPlugin& plugin, const QString& identifier)
{
    if (m_started != &plugin) {
        return; // it was not given its values either
    }
    const QMap<int, QVariant> now = menuValuesOf(plugin);
    const QMap<int, QVariant> before = std::exchange(m_known, now);
    if (now == before) {
        return;
    }
    IMenuList* const menu = plugin.GetPluginMenu(); // has been asked by menuValuesOf()
    const QString path = menu->GetMenuFilePath();
    const QMap<int, QString> stored = m_parameters.values(path, m_statusInfo.owner(), identifier);
    QMap<int, QVariant> changed;
    for (auto value = now.cbegin(); value != now.cend(); ++value) {
        if (before.value(value.key()) == *value) {
            continue;
        }
        // What was set on the settings screen is stored already.
        const auto text = stored.constFind(value.key());
        if (text != stored.constEnd() && *text == storedText(*menu, value.key(), *value)) {
            continue;
        }
        bool accepted = false;
        call("IsItemValueValid", [&] { accepted = menu->IsItemValueValid(value.key(), *value); });
        if (accepted) {
            changed.insert(value.key(), *value);
        }
    }
    if (!changed.isEmpty()) {
        store(*menu, path, identifier, changed);
    }
}

/// The values of all items as the menu of the plug-in has them; none when it has no menu or fails.
QMap<int, QVariant> PluginProfiles::menuValuesOf(IPlugin& plugin)
{
    IMenuList* menu = nullptr;
    QString path;
    const bool found = call("GetPluginMenu", [&] { menu = plugin.GetPluginMenu(); }) && menu != nullptr
                       && call("GetMenuFilePath", [&] { path = menu->GetMenuFilePath(); });
    const MenuFile* const file = found ? m_menus.menu(path) : nullptr;
    QMap<int, QVariant> values;
    const QList<MenuItem> items = file != nullptr ? file->items() : QList<MenuItem>();
    for (const MenuItem& item : items) {
        QVariant value;
        if (hasValue(item) && call("GetItemValue", [&] { value = typed(item, menu->GetItemValue(item.id)); })
            && value.isValid()) {
            values.insert(item.id, value);
        }
    }
    return values;
}

/// What is stored of a selection may be the unique name of an entry.
QVariant PluginProfiles::resolved(IMenuList& menu, const MenuItem& item, const QVariant& stored)
{
    if (item.kind != QLatin1String("selection") || !stored.isValid()) {
        return stored;
    }
    QVariant value = stored;
    call("GetIndexFromUniqueNameInSelectionList", [&] {
        const int index = menu.GetIndexFromUniqueNameInSelectionList(item.id, stored.toString());
        const MenuSelection list = selectionOf(menu, item.id);
        if (index >= 0 && index < list.values.size()) {
            value = list.values.at(index);
        }
    });
    return value;
}

QString PluginProfiles::storedText(IMenuList& menu, int id, const QVariant& value)
{
    QString name;
    call("GetUniqueNameFromIndexInSelectionList", [&] {
        const int index = selectionOf(menu, id).values.indexOf(value.toString());
        if (index >= 0) {
            name = menu.GetUniqueNameFromIndexInSelectionList(id, index);
        }
    });
    return name.isEmpty() ? textOf(value) : name;
}

MenuSelection PluginProfiles::selectionOf(IMenuList& menu, int id)
{
    MenuSelection selection;
    menu.GetSelectionList(id, &selection.names, &selection.values);
    // An entry without a value is known by its name.
    for (int i = selection.values.size(); i < selection.names.size(); ++i) {
        selection.values.append(selection.names.at(i));
    }
    return selection;
}

QMap<int, QVariant> PluginProfiles::valuesOf(IPlugin& plugin, const QString& identifier, bool tell)
{
    IMenuList* const menu = plugin.GetPluginMenu();
    QString path;
    if (!call("GetMenuFilePath", [&] { path = menu->GetMenuFilePath(); })) {
        return {};
    }
    const MenuFile* const file = m_menus.menu(path);
    if (file == nullptr) {
        return {};
    }
    const QMap<int, QString> stored = m_parameters.values(path, m_statusInfo.owner(), identifier);
    QMap<int, QVariant> values;
    const QList<MenuItem> items = file->items();
    for (const MenuItem& item : items) {
        if (!hasValue(item)) {
            continue;
        }
        QVariant value = resolved(*menu, item, item.defaultValue);
        const auto text = stored.constFind(item.id);
        if (text != stored.constEnd()) {
            const QVariant own = resolved(*menu, item, valueOf(item, *text));
            bool accepted = own.isValid();
            if (accepted) {
                call("IsItemValueValid", [&] { accepted = menu->IsItemValueValid(item.id, own); });
            }
            if (accepted) {
                value = own;
            } else if (tell) {
                m_notices.post(
                    NoticeSeverity::Warning,
                    tr("The stored value \"%1\" of the setting \"%2\" (%3, item %4) cannot be used; the "
                       "default holds. Set it again.")
                        .arg(*text, item.text, identifier)
                        .arg(item.id));
            }
        }
        if (value.isValid()) {
            values.insert(item.id, value);
        }
    }
    return values;
}

bool PluginProfiles::store(IMenuList& menu, const QString& menuFilePath, const QString& identifier,
                           const QMap<int, QVariant>& values)
{
    QMap<int, QString> texts;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        texts.insert(value.key(), storedText(menu, value.key(), *value));
    }
    QString error;
    if (m_parameters.setValues(menuFilePath, m_statusInfo.owner(), identifier, texts, &error)) {
        return true;
    }
    m_notices.post(NoticeSeverity::Error,
                   tr("The setting holds until the terminal ends, but was not stored. %1").arg(error));
    return false;
}

bool PluginProfiles::hasValue(const MenuItem& item)
{
    return item.kind != QLatin1String("menu") && item.kind != QLatin1String("command");
}

QString PluginProfiles::textOf(const QVariant& value)
{
    // The shortest text that is read as the same number.
    const bool isReal =
        value.type() == QVariant::Double || static_cast<int>(value.type()) == QMetaType::Float;
    return isReal ? QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest) : value.toString();
}

QVariant PluginProfiles::valueOf(const MenuItem& item, const QString& text)
{
    if (item.kind == QLatin1String("bool")) {
        const bool isTrue = text == QLatin1String("true");
        return isTrue || text == QLatin1String("false") ? QVariant(isTrue) : QVariant();
    }
    if (item.kind == QLatin1String("number")) {
        bool isNumber = false;
        const double number = text.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number)) {
            return QVariant();
        }
        if (item.decimals != 0) {
            return number;
        }
        const int whole = text.toInt(&isNumber);
        return isNumber ? QVariant(whole) : QVariant();
    }
    return text;
}

QVariant PluginProfiles::typed(const MenuItem& item, const QVariant& value)
{
    if (!value.isValid()) {
        return value;
    }
    if (item.kind == QLatin1String("bool")) {
        return value.toBool();
    }
    if (item.kind == QLatin1String("number")) {
        const double number = value.toDouble();
        if (item.decimals != 0) {
            return std::isfinite(number) ? number : 0.0;
        }
        return clampedRound(number);
    }
    return value.toString();
}

} // namespace Terminal
} // namespace Brimvale
