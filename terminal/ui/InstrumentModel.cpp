// SPDX-License-Identifier: BSD-3-Clause
#include "InstrumentModel.h"

#include <QFileInfo>
#include <QVariantMap>

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

bool PluginEntry::operator==(const PluginEntry& other) const
{
    return id == other.id && name == other.name && icon == other.icon && active == other.active;
}

InstrumentModel::InstrumentModel(QObject* parent)
    : QObject(parent)
{
}

QUrl InstrumentModel::urlFromPath(const QString& path)
{
    if (path.isEmpty()) {
        return QUrl();
    }
    if (path.startsWith(QLatin1String(":/"))) {
        return QUrl(QStringLiteral("qrc") + path);
    }
    if (path.startsWith(QLatin1String("qrc:/")) || path.startsWith(QLatin1String("file:/"))) {
        return QUrl(path);
    }
    return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
}

QObject* InstrumentModel::terminalDisplay() const
{
    return m_terminalDisplay.object;
}

QObject* InstrumentModel::display() const
{
    return m_display.object ? m_display.object.data() : m_terminalDisplay.object.data();
}

QObject* InstrumentModel::warnings() const
{
    return m_warnings.object.data();
}

ActionListModel* InstrumentModel::actions()
{
    return &m_actions;
}

ProtocolModel* InstrumentModel::protocol()
{
    return &m_protocol;
}

ActionListModel* InstrumentModel::hostActions()
{
    return &m_hostActions;
}

bool InstrumentModel::printEnabled() const
{
    return m_printEnabled;
}

QVariantList InstrumentModel::plugins() const
{
    QVariantList list;
    for (const PluginEntry& plugin : m_plugins) {
        list.append(QVariantMap{{QStringLiteral("id"), plugin.id},
                                {QStringLiteral("name"), plugin.name},
                                {QStringLiteral("icon"), urlFromPath(plugin.icon)},
                                {QStringLiteral("active"), plugin.active}});
    }
    return list;
}

const PluginEntry* InstrumentModel::activePlugin() const
{
    const auto active = std::find_if(m_plugins.cbegin(), m_plugins.cend(),
                                     [](const PluginEntry& plugin) { return plugin.active; });
    return active == m_plugins.cend() ? nullptr : &*active;
}

QString InstrumentModel::activePluginName() const
{
    const PluginEntry* active = activePlugin();
    return active ? active->name : QString();
}

QUrl InstrumentModel::activePluginIcon() const
{
    const PluginEntry* active = activePlugin();
    return active ? urlFromPath(active->icon) : QUrl();
}

bool InstrumentModel::pluginActive() const
{
    return activePlugin() != nullptr;
}

QUrl InstrumentModel::pluginScreen() const
{
    return m_pluginScreen;
}

QList<QObject*> InstrumentModel::infoItems() const
{
    QList<QObject*> items;
    for (const Watched& item : m_infoItems) {
        if (item.object) {
            items.append(item.object.data());
        }
    }
    return items;
}

QString InstrumentModel::scalePlate() const
{
    return m_scalePlate;
}

QString InstrumentModel::sourceText() const
{
    return m_sourceText;
}

bool InstrumentModel::sourceOk() const
{
    return m_sourceOk;
}

QString InstrumentModel::dateTimeText() const
{
    return m_dateTimeText;
}

QString InstrumentModel::statusText() const
{
    return m_statusText;
}

int InstrumentModel::sicsClients() const
{
    return m_sicsClients;
}

bool InstrumentModel::levelOk() const
{
    return m_levelOk;
}

QString InstrumentModel::language() const
{
    return m_language;
}

bool InstrumentModel::noticeVisible() const
{
    return !m_noticeText.isEmpty();
}

QString InstrumentModel::noticeText() const
{
    return m_noticeText;
}

QString InstrumentModel::noticeTitle() const
{
    return m_noticeTitle;
}

InstrumentModel::Severity InstrumentModel::noticeSeverity() const
{
    return m_noticeSeverity;
}

void InstrumentModel::setDisplay(QObject* display)
{
    watchDisplay(m_display, display);
}

void InstrumentModel::setTerminalDisplay(QObject* display)
{
    watchDisplay(m_terminalDisplay, display);
}

void InstrumentModel::watchDisplay(Watched& watched, QObject* object)
{
    const QObject* shownBefore = display();
    disconnect(watched.end);
    watched.object = object;
    if (object) {
        // The guarded pointer is null already when the signal arrives, so that display() gives the fallback.
        watched.end = connect(object, &QObject::destroyed, this, &InstrumentModel::displayChanged);
    }
    if (display() != shownBefore) {
        emit displayChanged();
    }
}

void InstrumentModel::setWarnings(QObject* warnings)
{
    if (m_warnings.object == warnings) {
        return;
    }
    disconnect(m_warnings.end);
    m_warnings.object = warnings;
    if (warnings) {
        m_warnings.end = connect(warnings, &QObject::destroyed, this, &InstrumentModel::warningsChanged);
    }
    emit warningsChanged();
}

void InstrumentModel::setPrintEnabled(bool enabled)
{
    if (m_printEnabled != enabled) {
        m_printEnabled = enabled;
        emit printEnabledChanged();
    }
}

void InstrumentModel::setPlugins(const QVector<PluginEntry>& plugins)
{
    if (m_plugins != plugins) {
        m_plugins = plugins;
        emit pluginsChanged();
    }
}

void InstrumentModel::setPluginScreen(const QUrl& screen)
{
    if (m_pluginScreen != screen) {
        m_pluginScreen = screen;
        emit pluginScreenChanged();
    }
}

void InstrumentModel::setInfoItems(const QList<QObject*>& items)
{
    QList<QObject*> wanted = items;
    wanted.removeAll(nullptr);
    if (infoItems() == wanted) {
        return;
    }
    for (const Watched& item : qAsConst(m_infoItems)) {
        disconnect(item.end);
    }
    m_infoItems.clear();
    for (QObject* item : qAsConst(wanted)) {
        m_infoItems.append(
            {item, connect(item, &QObject::destroyed, this, &InstrumentModel::infoItemsChanged)});
    }
    emit infoItemsChanged();
}

void InstrumentModel::setSettings(QObject* settings)
{
    if (m_settings != settings) {
        m_settings = settings;
        emit settingsChanged();
    }
}

void InstrumentModel::setScalePlate(const QString& text)
{
    if (m_scalePlate != text) {
        m_scalePlate = text;
        emit scalePlateChanged();
    }
}

void InstrumentModel::setSourceText(const QString& text)
{
    if (m_sourceText != text) {
        m_sourceText = text;
        emit sourceTextChanged();
    }
}

void InstrumentModel::setSourceOk(bool ok)
{
    if (m_sourceOk != ok) {
        m_sourceOk = ok;
        emit sourceOkChanged();
    }
}

void InstrumentModel::setDateTimeText(const QString& text)
{
    if (m_dateTimeText != text) {
        m_dateTimeText = text;
        emit dateTimeTextChanged();
    }
}

void InstrumentModel::setStatusText(const QString& text)
{
    if (m_statusText != text) {
        m_statusText = text;
        emit statusTextChanged();
    }
}

void InstrumentModel::setFailedPrints(int count)
{
    if (m_failedPrints != count) {
        m_failedPrints = count;
        emit failedPrintsChanged();
    }
}

void InstrumentModel::setSicsClients(int count)
{
    if (m_sicsClients != count) {
        m_sicsClients = count;
        emit sicsClientsChanged();
    }
}

void InstrumentModel::setLevelOk(bool ok)
{
    if (m_levelOk != ok) {
        m_levelOk = ok;
        emit levelOkChanged();
    }
}

void InstrumentModel::setLanguage(const QString& language)
{
    const QString offered = language == QLatin1String("de") ? language : QStringLiteral("en");
    if (m_language != offered) {
        m_language = offered;
        emit languageChanged();
    }
}

void InstrumentModel::showNotice(Severity severity, const QString& text, const QString& title)
{
    if (text.isEmpty()) {
        clearNotice();
        return;
    }
    if (m_noticeText == text && m_noticeTitle == title && m_noticeSeverity == severity) {
        return;
    }
    m_noticeSeverity = severity;
    m_noticeText = text;
    m_noticeTitle = title;
    m_noticeCount = 0;
    m_noticeOffersClose = false;
    emit noticeChanged();
}

void InstrumentModel::setNoticeCount(int count)
{
    if (noticeVisible() && m_noticeCount != count) {
        m_noticeCount = count;
        emit noticeChanged();
    }
}

void InstrumentModel::setNoticeOffersClose(bool offers)
{
    if (noticeVisible() && m_noticeOffersClose != offers) {
        m_noticeOffersClose = offers;
        emit noticeChanged();
    }
}

void InstrumentModel::closeFromNotice()
{
    clearNotice();
    emit closeRequested();
}

void InstrumentModel::clearNotice()
{
    if (m_noticeText.isEmpty()) {
        return;
    }
    m_noticeText.clear();
    m_noticeTitle.clear();
    m_noticeCount = 0;
    m_noticeOffersClose = false;
    emit noticeChanged();
}

} // namespace Terminal
} // namespace Brimvale
