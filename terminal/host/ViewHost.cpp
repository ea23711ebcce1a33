// SPDX-License-Identifier: BSD-3-Clause
#include "host/ViewHost.h"

#include "host/HostCallLog.h"
#include "host/Notices.h"
#include "host/ScreenHost.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Brimvale
{
namespace Terminal
{

ViewHost::ViewHost(HostCallLog& calls, Notices& notices, ScreenHost& screen, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
    , m_notices(notices)
    , m_screenHost(screen)
{
}

void ViewHost::SetContextObject(const QString& name, QObject* object)
{
    m_calls.command("IView::SetContextObject", name, object);
    m_published.erase(std::remove_if(m_published.begin(), m_published.end(),
                                     [&name](const Published& entry) { return entry.name == name; }),
                      m_published.end());
    if (object != nullptr) {
        m_published.append({name, object});
    } else {
        m_notices.post(
            NoticeSeverity::Warning,
            tr("The application has published nothing under the name \"%1\": its view model is null. "
               "CreateViewModel() must return an object.")
                .arg(name));
    }
    m_screenHost.setContextObject(name, object);
    emit publishedObjectsChanged();
}

IScreenLoader* ViewHost::GetScreenLoader()
{
    m_calls.query("IView::GetScreenLoader");
    return this;
}

void ViewHost::LoadScreen(QString path)
{
    m_calls.command("IScreenLoader::LoadScreen", path);
    if (path.isEmpty()) {
        m_notices.post(
            NoticeSeverity::Error,
            tr("The application names no screen. GetPluginScreen() must return the path of a QML file."));
        return;
    }
    const QUrl url = screenUrl(path, m_folder);
    const QString file =
        url.scheme() == QLatin1String("qrc") ? QLatin1Char(':') + url.path() : url.toLocalFile();
    if (file.isEmpty() || !QFileInfo(file).isFile()) {
        m_notices.post(
            NoticeSeverity::Error,
            tr("The screen %1 of the application does not exist. Correct GetPluginScreen(), or add the file "
               "to the resources of the plug-in.")
                .arg(file.isEmpty() ? path : file));
        return;
    }
    m_screen = url;
    m_screenHost.showScreen(url);
    emit screenChanged(url);
}

QUrl ViewHost::screenUrl(const QString& path, const QString& folder)
{
    if (path.startsWith(QLatin1String(":/"))) {
        return QUrl(QStringLiteral("qrc") + path);
    }
    if (path.startsWith(QLatin1String("qrc:")) || path.startsWith(QLatin1String("file:"))) {
        return QUrl(path);
    }
    return QUrl::fromLocalFile(QDir::cleanPath(QDir(folder).absoluteFilePath(path)));
}

void ViewHost::setFolder(const QString& folder)
{
    m_folder = folder;
}

QList<QObject*> ViewHost::publishedObjects() const
{
    QList<QObject*> objects;
    for (const Published& entry : m_published) {
        if (entry.object) {
            objects.append(entry.object);
        }
    }
    return objects;
}

void ViewHost::clear()
{
    if (m_published.isEmpty() && m_screen.isEmpty()) {
        return;
    }
    m_published.clear();
    m_screen.clear();
    m_screenHost.clearScreen();
    emit publishedObjectsChanged();
    emit screenChanged(m_screen);
}

void ViewHost::onScreenLoaded(bool ok, const QString& errors)
{
    if (!ok) {
        m_notices.post(NoticeSeverity::Error,
                       tr("The screen of the application cannot be shown.") + QLatin1Char('\n') + errors);
    }
}

} // namespace Terminal
} // namespace Brimvale
