// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINMANAGER_H
#define BRIMVALE_PLUGINMANAGER_H

#include "IPluginManager.h"
#include "loading/PluginLoader.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QVector>

#include <memory>
#include <vector>

class QTranslator;

namespace Brimvale
{

class IInfobox;
class IMenuList;
class IPlugin;
class ISystem;
class IView;
class IWeighingParameters;

namespace Terminal
{

class AddonHost;
class LifecycleObserver;
class PluginController;
class Sequencer;
class ViewHost;

/// What a PluginManager works with; nothing is owned, everything must outlive it.
struct PluginEnvironment
{
    ISystem& system;
    ViewHost& view;
    IMenuList& menuList;
    IWeighingParameters& weighingParameters;
    IInfobox& infobox;
    PluginController& controller;
    LifecycleObserver& lifecycleObserver;
    Sequencer& sequencer;
    AddonHost& addons;
};

/// Where a plug-in is in its life.
enum class PluginState
{
    Initialised, ///< InitPlugin() returned true; not started, or closed again.
    Starting,    ///< StartPlugin() is running.
    Running,     ///< Started: the active plug-in.
    Closing,     ///< ClosePlugin() was called; its notification is awaited.
    Failed       ///< Taken out after a fault; none of its operations is called any more.
};

/// A plug-in as lists show it.
struct PluginInfo
{
    QString file;
    QString identifier; ///< `PluginId::identifier`, or the base name of the file when that is empty.
    QString kind;       ///< `PluginId::kind`.
    QString name;       ///< Display name, translated.
    QString icon;       ///< Path of its icon; empty for none.
    PluginState state = PluginState::Initialised;
    QString fault;  ///< Why it failed; empty unless it did.
    int number = 0; ///< `PluginId::addonNumber`.
};

/// What a plug-in did wrong in a step of its life.
struct PluginFault
{
    QString plugin; ///< Display name.
    QString file;
    QObject* object = nullptr; ///< Its object; null when it has deleted it.
    QString step;    ///< "InitPlugin", "StartPlugin", "PostStartAddons", "ClosePlugin", "destruction".
    QString message; ///< Plug-in, step, cause and what to do about it, in one text.
};

/// Loads plug-ins and drives their lives: InitPlugin() once for each, then at most one active at a time.
///
/// Switching. The active plug-in is closed first; when it has notified its close through the sequencer (50 ms
/// of real time later, by a timer of its own), the next one is started from the event loop. So everything
/// that starts or closes needs the event loop; isSettled() tells whether something is under way.
///
/// Start. The plug-in is active before StartPlugin() is called. After it returned true, PostStartAddons()
/// follows.
///
/// Faults. An exception or a false from an operation is reported by faultOccurred() with the names of plug-in
/// and step. A plug-in that had started is closed then; after that it is Failed: what it published and
/// offered is taken back, and none of its operations is called any more. The others go on. A plug-in that
/// does not notify its close within CloseTimeoutMs has failed too; one that has failed in ClosePlugin() is
/// given FaultyCloseTimeoutMs. All objects live until the manager is destroyed, so that late timers of a
/// plug-in find theirs; a plug-in that deletes its own object has failed.
class PluginManager : public QObject, public IPluginManager
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginManager)

public:
    static constexpr int CloseTimeoutMs = 2000;
    static constexpr int FaultyCloseTimeoutMs = 500;

    explicit PluginManager(const PluginEnvironment& environment, QObject* parent = nullptr);

    /// Does what deleteAll() does.
    ~PluginManager() override;

    // IPluginManager
    /// The initialised plug-ins in the order of their loading, without those that failed.
    QList<IPlugin*> GetPlugins() override;

    /// Loads a file and initialises the plug-in. A file that is loaded already and an identifier that another
    /// plug-in bears are refused.
    LoadResult load(const QString& file);

    /// Loads every plug-in of a folder by name. Of those that fail the others are not affected. A folder that
    /// cannot be read or has no plug-in is one failed result.
    QVector<LoadResult> loadFolder(const QString& folder);

    /// Every plug-in of which an object was made, the failed ones included, in the order of loading.
    QVector<PluginInfo> plugins() const;
    int count() const { return static_cast<int>(m_plugins.size()); }

    /// The index of the plug-in that bears the identifier, one that has not failed if there is one; -1 for
    /// none.
    int indexOf(const QString& identifier) const;

    /// The plug-in @p index; null when it has not the interface.
    IPlugin* plugin(int index) const { return at(index).plugin; }

    /// The index of the plug-in that is starting, running or closing; -1 for none.
    int activeIndex() const { return m_active; }
    /// The index of the plug-in whose file is @p library, or whose code @p object or one of its parents is; -1 for
    /// none.
    int ownerOf(const QString& library) const;
    int ownerOf(const QObject* object) const;

    /// A file that load() refuses: the terminal ended unexpectedly while it was loaded.
    void setSuspect(const QString& canonicalFile) { m_suspect = canonicalFile; }

    /// Whether the active plug-in is running: neither starting nor closing.
    bool isRunning() const;
    /// The active plug-in, or null.
    IPlugin* activePlugin() const;
    /// Its object, or null.
    QObject* activeObject() const;
    /// Its display name, or an empty text.
    QString activeName() const;

    /// Makes the plug-in @p index the active one, at once or after the active one has closed. Returns false
    /// when there is no such plug-in, or it has failed already or in this call.
    bool activate(int index);
    bool activate(const QString& identifier);

    /// Closes the active plug-in; none is active afterwards. What activate() asked for meanwhile is
    /// forgotten.
    void deactivate();

    /// Nothing is starting or closing and nothing waits to be started.
    bool isSettled() const;

    /// Runs the event loop until isSettled(). Returns false when that took longer than @p timeoutMs of real
    /// time.
    bool waitUntilSettled(int timeoutMs = 2 * CloseTimeoutMs);

    /// Closes the active plug-in and waits until it has closed. Returns whether that was without a fault.
    bool closeAll();

    /// Closes what still runs, as closeAll() does, then destroys the plug-ins' objects, the last loaded first.
    void deleteAll();

    /// Installs the translations of all plug-ins for @p language ("de"): the file that `PluginTranslator()`
    /// finds under "<base name of the plug-in file>_<language>", for example ":/translations/weighing_de.qm"
    /// of weighing.so. A plug-in without it stays in its source language. Then the running plug-in
    /// translates its warnings again.
    void setLanguage(const QString& language);

signals:
    /// plugins() has changed.
    void pluginsChanged();
    /// Another plug-in is active, or none; or the active one has changed its state.
    void activePluginChanged();
    /// Code of the plug-in in this file is about to be run for the first time, and has come back.
    void aboutToLoad(const QString& canonicalFile);
    void loaded();
    /// The destructor of the plug-in in this file is about to be run.
    void aboutToDelete(const QString& canonicalFile);
    /// The plug-in of this folder is about to be initialised or started: relative paths that it names are meant from
    /// there.
    void entered(const QString& folder);
    /// InitPlugin() of the plug-in @p index, the last one, has returned true, and its names are known.
    void initialised(int index);
    /// A plug-in is about to be started; it is active already.
    void aboutToStart();
    /// The active plug-in is running.
    void pluginStarted();
    /// The active plug-in is about to be closed; all its objects still exist.
    void aboutToClose();
    /// What the active plug-in published and offered must be taken back now: it begins to close or has
    /// failed.
    void released();
    void faultOccurred(const Brimvale::Terminal::PluginFault& fault);
    /// isSettled() has become true.
    void settled();

private:
    struct Plugin
    {
        QPointer<QObject> object;  ///< Destroyed by the manager.
        IPlugin* plugin = nullptr; ///< Null when the object has not the interface; it has failed then.
        QString file;
        QString canonicalFile;
        QString identifier;
        QString kind;
        QString name;
        QString icon;
        PluginState state = PluginState::Initialised;
        QString fault;
        int number = 0;
        std::unique_ptr<QTranslator> translator;
    };

    /// Whether its operations can be called.
    static bool isUsable(const Plugin& plugin)
    {
        return plugin.state != PluginState::Failed && plugin.object != nullptr && plugin.plugin != nullptr;
    }
    Plugin& at(int index) const { return *m_plugins[static_cast<std::size_t>(index)]; }
    void initialise(Plugin& plugin, LoadResult& result);
    void proceed();
    void start();
    void close();
    void end();
    void onPluginClosing();
    void onPluginClosed();
    void onCloseTimeout();
    void onObjectDestroyed();
    void report(Plugin& plugin, const QString& step, const QString& cause, const QString& mend);
    void installTranslation(Plugin& plugin);
    void readTexts(Plugin& plugin);

    const PluginEnvironment m_environment;
    std::vector<std::unique_ptr<Plugin>> m_plugins;
    QString m_language;
    QString m_suspect;
    int m_active = -1;          ///< The plug-in that is starting, running or closing.
    int m_wanted = -1;          ///< The plug-in that is to be active when everything has settled.
    bool m_closeFaulty = false; ///< A plug-in had a fault while it closed.
    // Of the plug-in that is closing:
    bool m_released = false;      ///< It was told to begin to close.
    bool m_closeNotified = false; ///< It has told that it has closed.
    QTimer m_closeTimer;
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::PluginFault)

#endif // BRIMVALE_PLUGINMANAGER_H
