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
        QVariant value = item.defaultValue;
        const auto text = stored.constFind(item.id);
        if (text != stored.constEnd()) {
            const QVariant own = valueOf(item, *text);
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

bool PluginProfiles::store(const QString& menuFilePath, const QString& identifier,
                           const QMap<int, QVariant>& values)
{
    QMap<int, QString> texts;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        texts.insert(value.key(), textOf(*value));
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
