// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_TERMINALWINDOW_H
#define BRIMVALE_TERMINALWINDOW_H

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class QQmlContext;
class QQmlEngine;
class QQmlError;
class QQuickItem;
class QQuickView;
class QTranslator;

namespace Brimvale
{
namespace Terminal
{

class BenchModel;
class InstrumentModel;

/// The terminal's window: the screen of 1024 x 600 and, beside it, the bench.
///
/// It shows an InstrumentModel and a BenchModel, which must outlive it, loads the screen of the active plug-in into
/// the application area, and follows the language. It works attended and headless; headless (platform "offscreen")
/// nothing need be shown: grab() renders on its own. A QGuiApplication must exist.
class TerminalWindow : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TerminalWindow)

public:
    /// Chooses the software renderer, which draws the same picture on every machine. To be called before the first
    /// window exists; headless runs need it.
    static void useSoftwareRendering();

    TerminalWindow(InstrumentModel& instrument, BenchModel& bench);
    ~TerminalWindow() override;

    /// Loads the terminal's own screen. To be called once, after setBenchVisible() and setAnimationsEnabled() or
    /// before, as you like.
    /// \return false on failure; \a error (may be null) then says why.
    bool load(QString* error);

    /// Shows the window on the desktop.
    void show();

    /// Writes what the window shows at this moment as a PNG file of size() pixels. Shown or not, everything set before the call
    /// is in the picture; images and nested loaders of the plug-in's screen that still load are waited for, two
    /// seconds at most.
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
    bool eventFilter(QObject* watched, QEvent* event) override;
    void followLanguage();
    void loadPluginScreen();
    void unloadPluginScreen();
    void onContextObjectDestroyed(const QString& name);
    void onQmlWarnings(const QList<QQmlError>& warnings);
    void fitPluginScreen();
    void waitForPendingItems() const;

    InstrumentModel& m_instrument;
    BenchModel& m_bench;
    bool m_benchVisible = true;
    bool m_animationsEnabled = true;
    QStringList m_qmlWarnings;
    std::unique_ptr<QTranslator> m_translator;
    QMap<QString, QPointer<QObject>> m_contextObjects;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<QQmlContext> m_pluginContext;
    QPointer<QQuickItem> m_pluginArea;
    QPointer<QQuickItem> m_pluginScreen;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_TERMINALWINDOW_H
