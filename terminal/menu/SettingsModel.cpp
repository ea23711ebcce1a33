// SPDX-License-Identifier: BSD-3-Clause
#include "menu/SettingsModel.h"

#include "IMenuList.h"
#include "IPlugin.h"
#include "SelectListItem.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "menu/MenuStore.h"
#include "menu/PluginProfiles.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int UsualTextLength = 80;
constexpr qint64 MaximumHelpSize = 64 * 1024;

} // namespace

bool SettingsModel::Row::operator==(const Row& other) const
{
    return id == other.id && kind == other.kind && text == other.text && valueText == other.valueText
           && unit == other.unit && checked == other.checked && changeable == other.changeable
           && hasHelp == other.hasHelp;
}

SettingsModel::SettingsModel(MenuStore& menus, PluginProfiles& profiles, Notices& notices, QObject* parent)
    : QAbstractListModel(parent)
    , m_menus(menus)
    , m_profiles(profiles)
    , m_notices(notices)
{
}

SettingsModel::~SettingsModel() = default;

/// Calls the menu. What it throws is told, and the fallback is the answer.
template <typename Result, typename Code>
Result SettingsModel::ask(const char* operation, Result fallback, Code&& code)
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

void SettingsModel::tellFault(const char* operation, const QString& exception)
{
    m_notices.postPluginFault(tr("The menu of the application \"%1\" failed in %2(): %3")
                                  .arg(m_subject.name, QLatin1String(operation), exception));
}

void SettingsModel::setSubject(const SettingsSubject& subject)
{
    const bool wasAvailable = isAvailable();
    if (subject.plugin != nullptr && subject.plugin == m_subject.plugin) {
        m_subject.name = subject.name;
        return;
    }
    // Nothing of the plug-in that goes is called any more.
    m_menu = nullptr;
    closeScreen();
    m_items.setItems({});
    m_subject = subject;
    m_object = subject.object;
    IMenuList* menu = nullptr;
    if (subject.plugin != nullptr) {
        if (const auto exception = exceptionOf([&] { menu = subject.plugin->GetPluginMenu(); })) {
            tellFault("GetPluginMenu", *exception);
        }
    }
    if (menu != nullptr) {
        m_menu = menu;
        m_path = ask("GetMenuFilePath", QString(), [](IMenuList& asked) { return asked.GetMenuFilePath(); });
        const MenuFile* const file = m_menus.menu(m_path);
        m_menu = file != nullptr ? menu : nullptr;
        m_items.setItems(file != nullptr ? file->items() : QList<MenuItem>());
    }
    if (isAvailable() != wasAvailable) {
        emit availableChanged();
    }
}

void SettingsModel::setLanguage(const QString& language)
{
    m_language = language;
    if (!m_open) {
        return;
    }
    refresh();
    if (m_dialog.name == QLatin1String("help")) {
        showHelp(m_dialog.id);
    } else if (const MenuItem* const asked = item(m_dialog.id)) {
        const QString text = m_dialog.text;
        Dialog dialog = dialogOf(MenuItem(*asked));
        if (dialog.name == QLatin1String("number") || dialog.name == QLatin1String("text")) {
            dialog.text = text; // what the person has before them
        }
        if (m_open) {
            setDialog(dialog);
        }
    }
}

int SettingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant SettingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size()) {
        return QVariant();
    }
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case ItemIdRole:
        return row.id;
    case KindRole:
        return row.kind;
    case Qt::DisplayRole:
    case TextRole:
        return row.text;
    case ValueTextRole:
        return row.valueText;
    case UnitRole:
        return row.unit;
    case CheckedRole:
        return row.checked;
    case ChangeableRole:
        return row.changeable;
    case HelpRole:
        return row.hasHelp;
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> SettingsModel::roleNames() const
{
    return {{ItemIdRole, "itemId"},         {KindRole, "kind"},   {TextRole, "text"},
            {ValueTextRole, "valueText"},   {UnitRole, "unit"},   {CheckedRole, "checked"},
            {ChangeableRole, "changeable"}, {HelpRole, "hasHelp"}};
}

QList<QObject*> SettingsModel::dialogChoices() const
{
    QList<QObject*> choices;
    for (SelectListItem* const choice : m_choices) {
        choices.append(choice);
    }
    return choices;
}

// What the menu says of its items.

const MenuItem* SettingsModel::item(int id) const
{
    const QList<MenuItem>& items = m_items.items();
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [id](const MenuItem& candidate) { return candidate.id == id; });
    return found != items.cend() ? &*found : nullptr;
}

QString SettingsModel::translated(const MenuItem& item, const QString& text) const
{
    return item.context.isEmpty()
               ? text
               : QCoreApplication::translate(item.context.toUtf8().constData(), text.toUtf8().constData());
}

bool SettingsModel::isItemVisible(int id)
{
    return ask("IsItemVisible", false, [&](IMenuList& menu) { return menu.IsItemVisible(id, &m_items); });
}

bool SettingsModel::isItemEnabled(int id)
{
    return ask("IsItemEnabled", false, [&](IMenuList& menu) { return menu.IsItemEnabled(id, &m_items); });
}

QString SettingsModel::itemText(const MenuItem& item)
{
    const QString text =
        ask("GetItemText", QString(), [&](IMenuList& menu) { return menu.GetItemText(item.id); });
    return text.isEmpty() ? translated(item, item.text) : text;
}

QVariant SettingsModel::itemValue(const MenuItem& item)
{
    return PluginProfiles::typed(
        item, ask("GetItemValue", QVariant(), [&](IMenuList& menu) { return menu.GetItemValue(item.id); }));
}

bool SettingsModel::range(int id, double* minimum, double* maximum)
{
    return ask("GetItemRange", false,
               [&](IMenuList& menu) { return menu.GetItemRange(id, minimum, maximum); })
           && *minimum <= *maximum;
}

MenuSelection SettingsModel::selection(int id)
{
    return ask("GetSelectionList", MenuSelection(),
               [&](IMenuList& menu) { return PluginProfiles::selectionOf(menu, id); });
}

QString SettingsModel::numberText(const MenuItem& item, double number)
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

QString SettingsModel::valueText(const MenuItem& item)
{
    if (!PluginProfiles::hasValue(item)) {
        return QString();
    }
    const QVariant value = itemValue(item);
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

QString SettingsModel::helpFile(const MenuItem& item)
{
    const QString file =
        ask("GetHelpFilePath", QString(), [&](IMenuList& menu) { return menu.GetHelpFilePath(item.id); });
    return file.isEmpty() ? item.helpFile : file;
}

SettingsModel::Row SettingsModel::row(const MenuItem& item)
{
    Row row;
    row.id = item.id;
    row.kind = item.kind;
    row.text = itemText(item);
    row.valueText = valueText(item);
    if (item.kind == QLatin1String("number")) {
        row.unit = ask("GetItemUnit", QString(), [&](IMenuList& menu) { return menu.GetItemUnit(item.id); });
    }
    row.changeable = isItemEnabled(item.id);
    if (item.kind == QLatin1String("bool")) {
        row.checked = itemValue(item).toBool();
        row.changeable = row.changeable && ask("IsItemBoolValueAllowedToToggle", false, [&](IMenuList& menu) {
                             return menu.IsItemBoolValueAllowedToToggle(item.id, &m_items);
                         });
    }
    row.hasHelp = !helpFile(item).isEmpty();
    return row;
}

QVector<SettingsModel::Row> SettingsModel::rows()
{
    QVector<Row> rows;
    const QList<MenuItem> items = m_items.items(); // a copy: the plug-in may close itself in any call
    for (const MenuItem& item : items) {
        if (item.parentId == m_page && isItemVisible(item.id)) {
            rows.append(row(item));
        }
    }
    return rows;
}

bool SettingsModel::isReachable(const MenuItem& item)
{
    for (const MenuItem* at = &item; at != nullptr; at = this->item(at->parentId)) {
        if (!isItemVisible(at->id) || (at != &item && !isItemEnabled(at->id))) {
            return false;
        }
    }
    return true;
}

// The page.

void SettingsModel::refresh()
{
    const MenuItem* const page = item(m_page);
    const int parentId = page != nullptr ? page->parentId : 0;
    const QString top =
        ask("GetMenuName", m_subject.name, [](IMenuList& menu) { return menu.GetMenuName(); });
    const auto titleOf = [&](int id) {
        const MenuItem* const found = item(id);
        return found != nullptr ? itemText(MenuItem(*found)) : top;
    };
    m_title = titleOf(m_page);
    m_parentTitle = m_page != 0 ? titleOf(parentId) : QString();
    const QVector<Row> now = rows();
    if (!m_open) {
        return; // the plug-in has gone meanwhile
    }
    // Rows that stay are changed in place, so that a list keeps its position.
    const bool sameItems =
        now.size() == m_rows.size()
        && std::equal(now.cbegin(), now.cend(), m_rows.cbegin(),
                      [](const Row& a, const Row& b) { return a.id == b.id && a.kind == b.kind; });
    if (!sameItems) {
        beginResetModel();
        m_rows = now;
        endResetModel();
    } else {
        for (int i = 0; i < now.size(); ++i) {
            if (!(m_rows.at(i) == now.at(i))) {
                m_rows[i] = now.at(i);
                emit dataChanged(index(i), index(i));
            }
        }
    }
    emit pageChanged();
}

void SettingsModel::showPage(int id)
{
    m_page = id;
    refresh();
}

QString SettingsModel::openScreen()
{
    if (!isAvailable()) {
        return tr("The application has no settings.");
    }
    if (!m_open) {
        m_open = true;
        showPage(0);
        if (m_open) {
            emit openChanged();
        }
    }
    return QString();
}

void SettingsModel::closeScreen()
{
    cancel();
    if (!m_open) {
        return;
    }
    m_open = false;
    m_page = 0;
    beginResetModel();
    m_rows.clear();
    endResetModel();
    emit openChanged();
}

void SettingsModel::back()
{
    if (!m_dialog.name.isEmpty()) {
        cancel();
        return;
    }
    const MenuItem* const page = item(m_page);
    if (page != nullptr) {
        showPage(page->parentId);
    } else {
        closeScreen();
    }
}

QString SettingsModel::goTo(int id)
{
    if (!m_open) {
        return tr("The settings are not open.");
    }
    const MenuItem* const found = item(id);
    if (found == nullptr || !isReachable(MenuItem(*found))) {
        return tr("There is no setting %1 now.").arg(id);
    }
    cancel();
    const MenuItem* const still = item(id);
    if (still != nullptr && still->parentId != m_page) {
        showPage(still->parentId);
    }
    return QString();
}

QString SettingsModel::refusalOf(int id)
{
    const auto found =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [id](const Row& row) { return row.id == id; });
    if (found == m_rows.cend()) {
        return tr("There is no setting %1 now.").arg(id);
    }
    if (!found->changeable) {
        return tr("\"%1\" cannot be changed now.").arg(found->text);
    }
    return QString();
}

// Taps.

QString SettingsModel::press(int id)
{
    refresh(); // what the plug-in allows may have changed since the page was shown
    const QString refusal = refusalOf(id);
    const MenuItem* const found = item(id);
    if (!refusal.isEmpty() || found == nullptr) {
        return refusal;
    }
    const MenuItem pressed = *found;
    if (pressed.kind == QLatin1String("menu")) {
        showPage(id);
        return QString();
    }
    if (pressed.kind == QLatin1String("bool")) {
        const QString error = change(pressed, !itemValue(pressed).toBool());
        if (!error.isEmpty()) {
            m_notices.post(NoticeSeverity::Warning, error);
        }
        return error;
    }
    if (pressed.kind == QLatin1String("command") && pressed.confirmation.isEmpty()) {
        return execute(pressed);
    }
    openDialog(pressed);
    return QString();
}

SettingsModel::Dialog SettingsModel::dialogOf(const MenuItem& item)
{
    Dialog dialog;
    dialog.id = item.id;
    dialog.title = itemText(item);
    qDeleteAll(m_choices);
    m_choices.clear();
    if (item.kind == QLatin1String("number")) {
        dialog.name = QStringLiteral("number");
        const QVariant value = itemValue(item);
        dialog.text = value.isValid() ? numberText(item, value.toDouble()) : QString();
        dialog.unit =
            ask("GetItemUnit", QString(), [&](IMenuList& menu) { return menu.GetItemUnit(item.id); });
        dialog.decimals = item.decimals >= 0 ? item.decimals : MenuFile::MaximumDecimals;
        double minimum = 0.0;
        double maximum = 0.0;
        const bool hasRange = range(item.id, &minimum, &maximum);
        if (hasRange) {
            dialog.range = tr("%1 to %2").arg(numberText(item, minimum), numberText(item, maximum));
        }
        dialog.isSigned = !hasRange || minimum < 0.0;
    } else if (item.kind == QLatin1String("text")) {
        dialog.name = QStringLiteral("text");
        dialog.text = valueText(item);
        dialog.maximumLength = item.maximumLength > 0 ? item.maximumLength : UsualTextLength;
    } else if (item.kind == QLatin1String("selection")) {
        dialog.name = QStringLiteral("selection");
        const MenuSelection list = selection(item.id);
        const QString current = itemValue(item).toString();
        for (int i = 0; i < list.names.size(); ++i) {
            m_choices.append(new SelectListItem(this, list.names.at(i), QString(), i, QString(),
                                                list.values.at(i) == current, false));
        }
    } else if (item.kind == QLatin1String("command")) {
        dialog.name = QStringLiteral("confirmation");
        dialog.text = translated(item, item.confirmation);
    }
    return dialog;
}

void SettingsModel::openDialog(const MenuItem& item)
{
    const Dialog dialog = dialogOf(item);
    if (m_open) { // the plug-in may have gone meanwhile
        setDialog(dialog);
    }
}

void SettingsModel::setDialog(const Dialog& dialog)
{
    m_dialog = dialog;
    setDialogError(QString());
    emit dialogChanged();
}

QString SettingsModel::setDialogError(const QString& error)
{
    if (m_dialogError != error) {
        m_dialogError = error;
        emit dialogErrorChanged();
    }
    return error;
}

/// Takes the dialog away. A plug-in is told that a numeric dialog has closed.
void SettingsModel::closeDialog(bool entered, QString text)
{
    const Dialog closed = m_dialog;
    if (closed.name.isEmpty()) {
        return;
    }
    setDialog(Dialog());
    if (closed.name == QLatin1String("number") && m_object && m_menu != nullptr) {
        if (const auto exception = exceptionOf([&] {
                QMetaObject::invokeMethod(m_object, "onNumericDialogClosed", Qt::DirectConnection,
                                          Q_ARG(int, closed.id), Q_ARG(bool, entered), Q_ARG(QString, text));
            })) {
            tellFault("onNumericDialogClosed", *exception);
        }
    }
}

QString SettingsModel::showHelp(int id)
{
    const MenuItem* const found = item(id);
    if (!m_open || found == nullptr) {
        return tr("There is no setting %1 now.").arg(id);
    }
    const MenuItem asked = *found;
    QString path = m_menus.resolved(helpFile(asked));
    // The text in the person's language, when there is one.
    const QFileInfo info(path);
    const QString own = info.path() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('_')
                        + m_language + QLatin1Char('.') + info.suffix();
    if (!m_language.isEmpty() && QFileInfo(own).isFile()) {
        path = own;
    }
    QFile file(path);
    if (path.isEmpty() || !QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        const QString error = tr("The help text %1 cannot be read.").arg(path);
        m_notices.post(NoticeSeverity::Warning, error);
        return error;
    }
    Dialog dialog;
    dialog.name = QStringLiteral("help");
    dialog.id = id;
    dialog.title = itemText(asked);
    dialog.text = QString::fromUtf8(file.read(MaximumHelpSize));
    const QString suffix = info.suffix().toLower();
    dialog.format = suffix == QLatin1String("md")     ? QStringLiteral("markdown")
                    : suffix == QLatin1String("html") ? QStringLiteral("rich")
                                                      : QStringLiteral("plain");
    if (m_open) {
        setDialog(dialog);
    }
    return QString();
}

QString SettingsModel::number(const MenuItem& item, const QString& text, QVariant* value)
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

QString SettingsModel::enter(const QString& text)
{
    const MenuItem* const found = item(m_dialog.id);
    if (found == nullptr
        || (m_dialog.name != QLatin1String("number") && m_dialog.name != QLatin1String("text"))) {
        return tr("Nothing is asked for.");
    }
    const MenuItem asked = *found;
    QVariant value = text;
    QString error;
    if (m_dialog.name == QLatin1String("number")) {
        error = number(asked, text, &value);
    } else if (text.size() > m_dialog.maximumLength) {
        error = tr("Characters: at most %1.").arg(m_dialog.maximumLength);
    }
    if (error.isEmpty()) {
        error = change(asked, value);
    }
    if (!error.isEmpty()) {
        m_dialog.text = text;
        emit dialogChanged();
        return setDialogError(error);
    }
    const MenuItem* const still = item(asked.id);
    const bool isNumber = asked.kind == QLatin1String("number");
    closeDialog(true, isNumber && still != nullptr ? numberText(asked, value.toDouble()) : text);
    refresh(); // the plug-in may have reacted to the end of the dialog
    return QString();
}

QString SettingsModel::choose(int index)
{
    const MenuItem* const found = item(m_dialog.id);
    if (found == nullptr || m_dialog.name != QLatin1String("selection")) {
        return tr("Nothing is asked for.");
    }
    const MenuItem asked = *found;
    const MenuSelection list = selection(asked.id);
    if (index < 0 || index >= list.names.size()) {
        return tr("There is no such entry.");
    }
    const QString error = change(asked, list.values.at(index));
    if (!error.isEmpty()) {
        return setDialogError(error);
    }
    closeDialog(true, QString());
    return QString();
}

QString SettingsModel::confirm()
{
    const MenuItem* const found = item(m_dialog.id);
    if (found == nullptr || m_dialog.name != QLatin1String("confirmation")) {
        return tr("Nothing is asked for.");
    }
    const MenuItem asked = *found;
    closeDialog(true, QString());
    return execute(asked);
}

void SettingsModel::cancel()
{
    closeDialog(false, m_dialog.text);
}

// Changes.

QString SettingsModel::change(const MenuItem& item, const QVariant& value)
{
    if (!isItemEnabled(item.id)) {
        return tr("\"%1\" cannot be changed now.").arg(itemText(item));
    }
    if (!ask("IsItemValueValid", false,
             [&](IMenuList& menu) { return menu.IsItemValueValid(item.id, value); })) {
        return tr("This value is not allowed.");
    }
    const QMap<int, QVariant> before = values();
    if (!ask("SetItemValue", false, [&](IMenuList& menu) { return menu.SetItemValue(item.id, value); })) {
        return tr("The application has refused the value.");
    }
    // A menu may have rounded the value. One that keeps its values in the profile has it there already, and setting it
    // again does nothing.
    QVariant now = itemValue(item);
    if (!now.isValid()) {
        now = value;
    }
    const QString text = itemText(item);
    ask("SetProfileItem", false, [&](IMenuList&) {
        m_subject.plugin->SetProfileItem(item.id, now, text);
        return true;
    });
    ask("OnItemValueChanged", false, [&](IMenuList& menu) {
        menu.OnItemValueChanged(item.id);
        return true;
    });
    storeChanges(before, {{item.id, now}});
    refresh();
    return QString();
}

QString SettingsModel::execute(const MenuItem& item)
{
    const QMap<int, QVariant> before = values();
    const QString failure = tr("\"%1\" has failed.").arg(itemText(item));
    const bool executed = ask("ExecuteCommand", false, [&](IMenuList& menu) {
        menu.ExecuteCommand(item.id, &m_items);
        return true;
    });
    storeChanges(before, {});
    refresh();
    return executed ? QString() : failure;
}

/// The values of all items as the menu has them.
QMap<int, QVariant> SettingsModel::values()
{
    QMap<int, QVariant> values;
    const QList<MenuItem> items = m_items.items();
    for (const MenuItem& item : items) {
        if (PluginProfiles::hasValue(item)) {
            values.insert(item.id, itemValue(item));
        }
    }
    return values;
}

/// Stores what was set, and what the plug-in has changed along with it.
void SettingsModel::storeChanges(const QMap<int, QVariant>& before, const QMap<int, QVariant>& set)
{
    QMap<int, QVariant> changed = set;
    const QMap<int, QVariant> now = values();
    for (auto value = now.cbegin(); value != now.cend(); ++value) {
        if (value->isValid() && before.value(value.key()) != *value) {
            changed.insert(value.key(), *value);
        }
    }
    if (!changed.isEmpty() && m_menu != nullptr) {
        m_profiles.store(*m_menu, m_path, m_subject.identifier, changed);
    }
}

// Scripts.

QString SettingsModel::pressAnywhere(int id)
{
    const QString error = goTo(id);
    return error.isEmpty() ? press(id) : error;
}

QString SettingsModel::set(int id, const QString& text)
{
    const MenuItem* const found = item(id);
    if (found == nullptr) {
        return goTo(id);
    }
    const MenuItem wanted = *found;
    if (!PluginProfiles::hasValue(wanted)) {
        return tr("\"%1\" has no value.").arg(itemText(wanted));
    }
    if (wanted.kind == QLatin1String("bool")) {
        const bool on = text == QLatin1String("on");
        if (!on && text != QLatin1String("off")) {
            return tr("A yes/no is set to on or off.");
        }
        const QString error = goTo(id);
        return !error.isEmpty() || itemValue(wanted).toBool() == on ? error : press(id);
    }
    QString error = pressAnywhere(id);
    if (!error.isEmpty()) {
        return error;
    }
    if (wanted.kind != QLatin1String("selection")) {
        return enter(text);
    }
    const MenuSelection list = selection(id);
    const int byName = list.names.indexOf(text);
    const int index = byName >= 0 ? byName : list.values.indexOf(text);
    return index >= 0 ? choose(index)
                      : setDialogError(tr("There is no entry \"%1\"; there are: %2.")
                                           .arg(text, list.names.join(QStringLiteral(", "))));
}

std::optional<QString> SettingsModel::shownText(int id)
{
    const MenuItem* const found = item(id);
    if (!m_open || found == nullptr || !isReachable(MenuItem(*found))) {
        return std::nullopt;
    }
    const Row shown = row(MenuItem(*item(id)));
    if (shown.kind == QLatin1String("menu") || shown.kind == QLatin1String("command")) {
        return shown.text;
    }
    return shown.unit.isEmpty() ? shown.valueText : shown.valueText + QLatin1Char(' ') + shown.unit;
}

} // namespace Terminal
} // namespace Brimvale
