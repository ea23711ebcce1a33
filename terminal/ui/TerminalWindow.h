// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINALWINDOW_H
#define BRIMVALE_TERMINALWINDOW_H

#include <QList>
#include <QMap>
#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class QQmlContext;
class QQmlEngine;
class QQmlError;
class QQuickItem;
class QQuickRenderControl;
class QQuickWindow;
class QTranslator;
class QUrl;

namespace Brimvale
{
namespace Terminal
{

class BenchModel;
class InstrumentModel;
class WorkflowModel;

/// The terminal's window: the screen of 1024 x 600 and, beside it, the bench.
///
/// It shows an InstrumentModel, a BenchModel and a WorkflowModel, which must outlive it, loads the screen of the active plug-in into
/// the application area, and follows the language. It works attended and headless: on the platform "offscreen" no
/// window appears, and grab() renders on its own. A QGuiApplication must exist.
///
/// The screens are drawn by Qt Quick's software renderer, which needs no graphics driver and draws the same picture
/// everywhere; the environment variable QT_QUICK_BACKEND chooses another one for an attended terminal.
class TerminalWindow : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TerminalWindow)

public:
    TerminalWindow(InstrumentModel& instrument, BenchModel& bench, WorkflowModel& workflow);
    ~TerminalWindow() override;

    /// Loads the terminal's own screen, and that of the active plug-in if one is set. To be called once, before any
    /// other window of Qt Quick exists. Makes the terminal's font the font of the application, so that screens of
    /// plug-ins have it without asking.
    /// \return false on failure; \a error (may be null) then says why.
    bool load(QString* error);

    /// Shows the window on the desktop; without effect on the platform "offscreen", and before load().
    void show();

    /// Writes what the window shows at this moment as a PNG file of size() pixels. Everything set before the call is
    /// in the picture; images and nested loaders of the plug-in's screen that still load are waited for, two seconds
    /// at most. On other platforms than "offscreen" the window must be shown.
    /// \return false on failure (not loaded, file not writable); \a error (may be null) then says why.
    bool grab(const QString& pngFile, QString* error);

    /// Size of the window: 1024 x 600, or 1360 x 600 with the bench.
    QSize size() const;

    /// Whether the bench stands beside the screen. Initially true.
    bool benchVisible() const;
    void setBenchVisible(bool visible);

    /// Whether the screen moves and times anything on its own (transitions, notices that go by themselves). Headless
    /// runs switch it off, so that a picture depends on the models alone. Initially true.
    bool animationsEnabled() const;
    void setAnimationsEnabled(bool enabled);

    /// Publishes \a object under \a name to the screens of plug-ins, in place of an earlier one; null withdraws it.
    /// The object stays the caller's. When a published object is destroyed while a plug-in's screen is shown, the
    /// screen is unloaded first, so that none of its bindings meets a missing object.
    void setContextObject(const QString& name, QObject* object);

    /// Unloads the screen of the active plug-in and withdraws every object published with setContextObject(). To be
    /// called before a plug-in is closed, since closing destroys what its screen shows.
    void clearPluginScreen();

    /// The engine that runs the screens; null before load() succeeded.
    QQmlEngine* engine() const;

    /// The root object of the plug-in's screen; null while none is shown.
    QQuickItem* pluginScreen() const;

    /// The window; null before load() succeeded. On the platform "offscreen" it never appears, but takes events.
    QQuickWindow* window() const;

    /// The root object of the terminal's own screen; null before load() succeeded. Tests reach the controls by it.
    QQuickItem* rootItem() const;

    /// Returns the warnings of the screens since the last call, the terminal's own and those of plug-ins, one text
    /// per warning with file and line, and forgets them.
    QStringList takeQmlWarnings();

public slots:
    /// Evaluates all translated texts of the screens anew. The window does so itself when the terminal's language
    /// changes; call it after a plug-in's translator was installed.
    void retranslate();

signals:
    /// The person closed the window.
    void closed();

private:
    /// An object of a plug-in under its name, and the connection that tells of its end.
    struct Published
    {
        QPointer<QObject> object;
        QMetaObject::Connection end;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool createRootItem(QString* error);
    void followLanguage();
    void followPluginScreen();
    QString createPluginScreen(const QUrl& screen);
    void unloadPluginScreen();
    void fitPluginScreen();
    void onContextObjectDestroyed(const QString& name);
    void onQmlWarnings(const QList<QQmlError>& warnings);
    void waitForPendingItems() const;

    InstrumentModel& m_instrument;
    BenchModel& m_bench;
    WorkflowModel& m_workflow;
    bool m_benchVisible = true;
    bool m_animationsEnabled = true;
    QStringList m_qmlWarnings;
    std::unique_ptr<QTranslator> m_translator;
    QMap<QString, Published> m_contextObjects;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    /// Renders in place of a window system; only on the platform "offscreen". Goes before its window.
    std::unique_ptr<QQuickRenderControl> m_renderControl;
    std::unique_ptr<QQuickItem> m_root;
    QPointer<QQuickItem> m_pluginArea;
    std::unique_ptr<QQmlContext> m_pluginContext;
    QPointer<QQuickItem> m_pluginScreen;
    /// Unloaded screens that the event loop has not deleted yet.
    QVector<QPointer<QQuickItem>> m_unloadedScreens;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TERMINALWINDOW_H
