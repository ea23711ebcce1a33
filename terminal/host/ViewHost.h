// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_VIEWHOST_H
#define BRIMVALE_VIEWHOST_H

#include "IScreenLoader.h"
#include "IView.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;
class Notices;
class ScreenHost;

/// The screen as plug-ins see it. What they publish and load goes to the ScreenHost and is taken back when
/// the plug-in closes.
class ViewHost : public QObject, public IView, public IScreenLoader
{
    Q_OBJECT
    Q_DISABLE_COPY(ViewHost)

public:
    ViewHost(HostCallLog& calls, Notices& notices, ScreenHost& screen, QObject* parent = nullptr);

    // IView
    void SetContextObject(const QString& name, QObject* object) override;
    IScreenLoader* GetScreenLoader() override;

    // IScreenLoader
    /// Shows the screen file at @p path, see screenUrl(). A file that does not exist is reported; the plug-in
    /// runs on without a screen.
    void LoadScreen(QString path) override;

    /// The URL of a screen file: a resource (":/a.qml", "qrc:/a.qml"), a file URL, or a path of a file. A
    /// relative path begins at @p folder.
    static QUrl screenUrl(const QString& path, const QString& folder);

    /// Where relative paths of screen files begin: the folder of the active plug-in.
    void setFolder(const QString& folder);

    /// The screen that is shown; empty for none.
    QUrl screen() const { return m_screen; }

    /// The published objects in the order of their publication; those that were destroyed are left out.
    QList<QObject*> publishedObjects() const;

    /// Unloads the screen and withdraws what was published.
    void clear();

public slots:
    /// The outcome of ScreenHost::showScreen(): on failure @p errors is reported, one line per error with
    /// file and line.
    void onScreenLoaded(bool ok, const QString& errors);

signals:
    /// What is published has changed.
    void publishedObjectsChanged();
    void screenChanged(const QUrl& screen);

private:
    struct Published
    {
        QString name;
        QPointer<QObject> object;
    };

    HostCallLog& m_calls;
    Notices& m_notices;
    ScreenHost& m_screenHost;
    QString m_folder;
    QUrl m_screen;
    QList<Published> m_published;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_VIEWHOST_H
