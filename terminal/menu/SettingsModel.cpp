// SPDX-License-Identifier: BSD-3-Clause
#include "menu/SettingsModel.h"

#include "SelectListItem.h"
#include "host/Notices.h"
#include "host/PluginGuard.h"
#include "menu/MenuStore.h"
#include "menu/PluginProfiles.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace Brimvale
{
namespace Terminal
{
namespace
{

constexpr int UsualTextLength = 80;
constexpr qint64 MaximumHelpSize = Q_INT64_C(64) * 1024;

} // namespace

bool SettingsModel::Row::operator==(const Row& other) const
{
    return id == other.id && kind == other.kind && text == other.text && valueText == other.valueText
           && unit == other.unit && checked == other.checked && changeable == other.changeable
           && hasHelp == other.hasHelp;
}

SettingsModel::SettingsModel(MenuStore& menus, PluginProfiles& profiles, Notices& notices, QObject* parent)
    : QAbstractListModel(parent)
    , m_menu(menus, notices)
    , m_menus(menus)
    , m_profiles(profiles)
    , m_notices(notices)
{
}

SettingsModel::~SettingsModel() = default;

void SettingsModel::setSubject(const SettingsSubject& subject)
{
    const bool wasAvailable = isAvailable();
    if (subject.plugin != nullptr && subject.plugin == m_subject.plugin) {
        m_subject.name = subject.name;
        m_menu.setName(subject.name);
        return;
    }
    // Nothing of the plug-in that goes is called any more.
    m_menu.clear();
    closeScreen();
    m_subject = subject;
    m_object = subject.object;
    if (subject.plugin != nullptr) {
        m_menu.load(*subject.plugin, subject.name);
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
    } else if (const MenuItem* const asked = m_menu.item(m_dialog.id)) {
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

SettingsModel::Row SettingsModel::row(const MenuItem& item)
{
    Row row;
    row.id = item.id;
    row.kind = item.kind;
    row.text = m_menu.text(item);
    row.valueText = m_menu.valueText(item);
    if (item.kind == QLatin1String("number")) {
        row.unit = m_menu.unit(item.id);
    }
    row.changeable = m_menu.isEnabled(item.id);
    if (item.kind == QLatin1String("bool")) {
        row.checked = m_menu.value(item).toBool();
        row.changeable = row.changeable && m_menu.isToggleAllowed(item.id);
    }
    row.hasHelp = !m_menu.helpFile(item).isEmpty();
    return row;
}

QVector<SettingsModel::Row> SettingsModel::rows()
{
    QVector<Row> rows;
    const QList<MenuItem> items = m_menu.items(); // a copy: the plug-in may close itself in any call
    for (const MenuItem& item : items) {
        if (item.parentId == m_page && m_menu.isVisible(item.id)) {
            rows.append(row(item));
        }
    }
    return rows;
}

// The page.

void SettingsModel::refresh()
{
    const MenuItem* const page = m_menu.item(m_page);
    const int parentId = page != nullptr ? page->parentId : 0;
    const QString top = m_menu.title();
    const auto titleOf = [&](int id) {
        const MenuItem* const found = m_menu.item(id);
        return found != nullptr ? m_menu.text(MenuItem(*found)) : top;
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
    const MenuItem* const page = m_menu.item(m_page);
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
    const MenuItem* const found = m_menu.item(id);
    if (found == nullptr || !m_menu.isReachable(MenuItem(*found))) {
        return tr("There is no setting %1 now.").arg(id);
    }
    cancel();
    const MenuItem* const still = m_menu.item(id);
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
    QString refusal = refusalOf(id);
    const MenuItem* const found = m_menu.item(id);
    if (!refusal.isEmpty() || found == nullptr) {
        return refusal;
    }
    const MenuItem pressed = *found;
    if (pressed.kind == QLatin1String("menu")) {
        showPage(id);
        return QString();
    }
    if (pressed.kind == QLatin1String("bool")) {
        QString error = change(pressed, !m_menu.value(pressed).toBool());
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
    dialog.title = m_menu.text(item);
    qDeleteAll(m_choices);
    m_choices.clear();
    if (item.kind == QLatin1String("number")) {
        dialog.name = QStringLiteral("number");
        const QVariant value = m_menu.value(item);
        dialog.text = value.isValid() ? m_menu.numberText(item, value.toDouble()) : QString();
        dialog.unit = m_menu.unit(item.id);
        dialog.decimals = item.decimals >= 0 ? item.decimals : MenuFile::MaximumDecimals;
        double minimum = 0.0;
        double maximum = 0.0;
        const bool hasRange = m_menu.range(item.id, &minimum, &maximum);
        if (hasRange) {
            dialog.range =
                tr("%1 to %2").arg(m_menu.numberText(item, minimum), m_menu.numberText(item, maximum));
        }
        dialog.isSigned = !hasRange || minimum < 0.0;
    } else if (item.kind == QLatin1String("text")) {
        dialog.name = QStringLiteral("text");
        dialog.text = m_menu.valueText(item);
        dialog.maximumLength = item.maximumLength > 0 ? item.maximumLength : UsualTextLength;
    } else if (item.kind == QLatin1String("selection")) {
        dialog.name = QStringLiteral("selection");
        const MenuSelection list = m_menu.selection(item.id);
        const QString current = m_menu.value(item).toString();
        for (int i = 0; i < list.names.size(); ++i) {
            m_choices.append(new SelectListItem(this, list.names.at(i), QString(), i, QString(),
                                                list.values.at(i) == current, false));
        }
    } else if (item.kind == QLatin1String("command")) {
        dialog.name = QStringLiteral("confirmation");
        dialog.text = m_menu.translated(item, item.confirmation);
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
    if (closed.name == QLatin1String("number") && m_object && m_menu.isAvailable()) {
        if (const auto exception = exceptionOf([&] {
                QMetaObject::invokeMethod(m_object, "onNumericDialogClosed", Qt::DirectConnection,
                                          Q_ARG(int, closed.id), Q_ARG(bool, entered), Q_ARG(QString, text));
            })) {
            m_menu.tellFault("onNumericDialogClosed", *exception);
        }
    }
}

QString SettingsModel::showHelp(int id)
{
    const MenuItem* const found = m_menu.item(id);
    if (!m_open || found == nullptr) {
        return tr("There is no setting %1 now.").arg(id);
    }
    const MenuItem asked = *found;
    QString path = m_menus.resolved(m_menu.helpFile(asked));
    // The text in the person's language, when there is one.
    const QFileInfo info(path);
    const QString own = info.path() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('_')
                        + m_language + QLatin1Char('.') + info.suffix();
    if (!m_language.isEmpty() && QFileInfo(own).isFile()) {
        path = own;
    }
    QFile file(path);
    if (path.isEmpty() || !QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        QString error = tr("The help text %1 cannot be read.").arg(path);
        m_notices.post(NoticeSeverity::Warning, error);
        return error;
    }
    Dialog dialog;
    dialog.name = QStringLiteral("help");
    dialog.id = id;
    dialog.title = m_menu.text(asked);
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

QString SettingsModel::enter(const QString& text)
{
    const MenuItem* const found = m_menu.item(m_dialog.id);
    if (found == nullptr
        || (m_dialog.name != QLatin1String("number") && m_dialog.name != QLatin1String("text"))) {
        return tr("Nothing is asked for.");
    }
    const MenuItem asked = *found;
    QVariant value = text;
    QString error;
    if (m_dialog.name == QLatin1String("number")) {
        error = m_menu.readNumber(asked, text, &value);
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
    const MenuItem* const still = m_menu.item(asked.id);
    const bool isNumber = asked.kind == QLatin1String("number");
    closeDialog(true, isNumber && still != nullptr ? m_menu.numberText(asked, value.toDouble()) : text);
    refresh(); // the plug-in may have reacted to the end of the dialog
    return QString();
}

QString SettingsModel::choose(int index)
{
    const MenuItem* const found = m_menu.item(m_dialog.id);
    if (found == nullptr || m_dialog.name != QLatin1String("selection")) {
        return tr("Nothing is asked for.");
    }
    const MenuItem asked = *found;
    const MenuSelection list = m_menu.selection(asked.id);
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
    const MenuItem* const found = m_menu.item(m_dialog.id);
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
    if (!m_menu.isEnabled(item.id)) {
        return tr("\"%1\" cannot be changed now.").arg(m_menu.text(item));
    }
    if (!m_menu.accepts(item.id, value)) {
        return tr("This value is not allowed.");
    }
    const QMap<int, QVariant> before = m_menu.values();
    if (!m_menu.setValue(item.id, value)) {
        return tr("The application has refused the value.");
    }
    // A menu may have rounded the value. One that keeps its values in the profile has it there already, and setting it
    // again does nothing.
    QVariant now = m_menu.value(item);
    if (!now.isValid()) {
        now = value;
    }
    m_menu.setProfileItem(item.id, now, m_menu.text(item));
    m_menu.notifyChanged(item.id);
    storeChanges(before, {{item.id, now}});
    refresh();
    return QString();
}

QString SettingsModel::execute(const MenuItem& item)
{
    const QMap<int, QVariant> before = m_menu.values();
    const QString failure = tr("\"%1\" has failed.").arg(m_menu.text(item));
    const bool executed = m_menu.execute(item.id);
    storeChanges(before, {});
    refresh();
    return executed ? QString() : failure;
}

/// Stores what was set, and what the plug-in has changed along with it.
void SettingsModel::storeChanges(const QMap<int, QVariant>& before, const QMap<int, QVariant>& set)
{
    QMap<int, QVariant> changed = set;
    const QMap<int, QVariant> now = m_menu.values();
    for (auto value = now.cbegin(); value != now.cend(); ++value) {
        if (value->isValid() && before.value(value.key()) != *value) {
            changed.insert(value.key(), *value);
        }
    }
    if (!changed.isEmpty() && m_menu.isAvailable()) {
        m_profiles.store(*m_menu.list(), m_menu.path(), m_subject.identifier, changed);
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
    const MenuItem* const found = m_menu.item(id);
    if (found == nullptr) {
        return goTo(id);
    }
    const MenuItem wanted = *found;
    if (!PluginProfiles::hasValue(wanted)) {
        return tr("\"%1\" has no value.").arg(m_menu.text(wanted));
    }
    if (wanted.kind == QLatin1String("bool")) {
        const bool on = text == QLatin1String("on");
        if (!on && text != QLatin1String("off")) {
            return tr("A yes/no is set to on or off.");
        }
        const QString error = goTo(id);
        return !error.isEmpty() || m_menu.value(wanted).toBool() == on ? error : press(id);
    }
    QString error = pressAnywhere(id);
    if (!error.isEmpty()) {
        return error;
    }
    if (wanted.kind != QLatin1String("selection")) {
        return enter(text);
    }
    const MenuSelection list = m_menu.selection(id);
    const int byName = list.names.indexOf(text);
    const int index = byName >= 0 ? byName : list.values.indexOf(text);
    return index >= 0 ? choose(index)
                      : setDialogError(tr("There is no entry \"%1\"; there are: %2.")
                                           .arg(text, list.names.join(QStringLiteral(", "))));
}

std::optional<QString> SettingsModel::shownText(int id)
{
    const MenuItem* const found = m_menu.item(id);
    if (!m_open || found == nullptr || !m_menu.isReachable(MenuItem(*found))) {
        return std::nullopt;
    }
    const Row shown = row(MenuItem(*m_menu.item(id)));
    if (shown.kind == QLatin1String("menu") || shown.kind == QLatin1String("command")) {
        return shown.text;
    }
    return shown.unit.isEmpty() ? shown.valueText : shown.valueText + QLatin1Char(' ') + shown.unit;
}

} // namespace Terminal
} // namespace Brimvale
