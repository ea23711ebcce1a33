// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINMANAGER_H
#define BRIMVALE_PLUGINMANAGER_H

#include "IPluginManager.h"
#include "loading/PluginLoader.h"

#include <QObject>
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
class HostCallLog;
class LifecycleObserver;
class PluginController;
class Sequencer;
class ViewHost;

/// What a PluginManager works with; nothing is owned, everything must outlive it.
struct PluginEnvironment
{
    HostCallLog& calls;
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
    QString fault; ///< Why it failed; empty unless it did.
};

/// What a plug-in did wrong in a step of its life.
struct PluginFault
{
    QString plugin; ///< Display name.
    QString file;
    QString step;    ///< "InitPlugin", "StartPlugin", "PostStartAddons", "ClosePlugin", …
    QString message; ///< Plug-in, step, cause and what to do about it, in one text.
};

/// Loads plug-ins and drives their lives: InitPlugin() once for each, then at most one active at a time.
///
/// Switching. The active plug-in is closed first; when it has notified its close through the sequencer (50 ms of real
/// time later, by a timer of its own), the next one is started from the event loop. So everything that starts or closes
/// needs the event loop; isSettled() tells whether something is under way.
///
/// Start. The plug-in is active before StartPlugin() is called. After it returned true, PostStartAddons() follows.
///
/// Faults. An exception or a false from an operation is reported by faultOccurred() with the names of plug-in and step.
/// The plug-in is Failed from then on: what it published and offered is taken back and none of its operations is called
/// any more; the others go on. A plug-in that does not notify its close within CloseTimeoutMs has failed too. All
/// objects live until the manager is destroyed, so that late timers of a plug-in find theirs.
class PluginManager : public QObject, public IPluginManager
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginManager)

public:
    static constexpr int CloseTimeoutMs = 5000;

    explicit PluginManager(const PluginEnvironment& environment, QObject* parent = nullptr);

    /// Closes what still runs, as closeAll() does, then destroys the plug-ins' objects, the last loaded first.
    ~PluginManager() override;

    // IPluginManager
    /// The initialised plug-ins in the order of their loading, without those that failed.
    QList<IPlugin*> GetPlugins() override;

    /// Loads a file and initialises the plug-in. A file that is loaded already and an identifier that another plug-in
    /// bears are refused.
    LoadResult load(const QString& file);

    /// Loads every plug-in of a folder by name. Of those that fail the others are not affected. A folder that cannot be
    /// read or has no plug-in is one failed result.
    QVector<LoadResult> loadFolder(const QString& folder);

    /// Everything that was initialised, the failed ones included, in the order of loading.
    QVector<PluginInfo> plugins() const;
    int count() const { return static_cast<int>(m_plugins.size()); }

    /// The index of the plug-in that bears the identifier; -1 for none.
    int indexOf(const QString& identifier) const;

    /// The index of the plug-in that is starting, running or closing; -1 for none.
    int activeIndex() const { return m_active; }
    /// It, or null.
    IPlugin* activePlugin() const;
    /// Its object, or null.
    QObject* activeObject() const;
    /// Its display name, or an empty text.
    QString activeName() const;

    /// Makes the plug-in @p index the active one, at once or after the active one has closed. Returns false, after
    /// posting nothing, when there is no such plug-in or it has failed.
    bool activate(int index);
    bool activate(const QString& identifier);

    /// Closes the active plug-in; none is active afterwards. What activate() asked for meanwhile is forgotten.
    void deactivate();

    /// Nothing is starting or closing and nothing waits to be started.
    bool isSettled() const;

    /// Runs the event loop until isSettled(). Returns false when that took longer than @p timeoutMs of real time.
    bool waitUntilSettled(int timeoutMs = 2 * CloseTimeoutMs);

    /// Closes the active plug-in and waits until it has closed. Returns whether that was without a fault.
    bool closeAll();

    /// Installs the translations of all plug-ins for @p language ("de"): the file that `PluginTranslator()` finds under
    /// "<base name of the plug-in file>_<language>", for example ":/translations/weighing_de.qm" of weighing.so. A
    /// plug-in without it stays in its source language. Then every plug-in translates its warnings again.
    void setLanguage(const QString& language);

    /// Takes the active plug-in out for a fault that showed outside of its life-cycle steps.
    void failActive(const QString& step, const QString& cause);

signals:
    /// plugins() has changed.
    void pluginsChanged();
    /// Another plug-in is active, or none; or the active one has changed its state.
    void activePluginChanged();
    /// A plug-in is about to be started; it is active already.
    void aboutToStart();
    /// The active plug-in is running.
    void started();
    /// What the active plug-in published and offered must be taken back now: it begins to close or has failed.
    void released();
    void faultOccurred(const Brimvale::Terminal::PluginFault& fault);
    /// isSettled() has become true.
    void settled();

private:
    struct Plugin
    {
        QObject* object = nullptr;
        IPlugin* plugin = nullptr;
        QString file;
        QString canonicalFile;
        QString identifier;
        QString kind;
        PluginState state = PluginState::Initialised;
        QString fault;
        std::unique_ptr<QTranslator> translator;
    };

    LoadResult initialise(LoadResult loaded);
    void start(int index);
    void close();
    void onPluginClosing();
    void onPluginClosed();
    void onCloseTimeout();
    void proceed();
    void endActive();
    void setState(Plugin& plugin, PluginState state);
    void fail(int index, const QString& step, const QString& cause, const QString& mend);
    void installTranslation(Plugin& plugin);
    QString nameOf(const Plugin& plugin) const;

    const PluginEnvironment m_environment;
    std::vector<std::unique_ptr<Plugin>> m_plugins;
    std::vector<QObject*> m_refused; ///< Objects of plug-ins that were not initialised.
    int m_active = -1;
    int m_next = -1;               ///< Waits for the active one to close.
    bool m_closeAnnounced = false; ///< The closing plug-in has told that it begins to close.
    bool m_closeFaulty = false;    ///< The last close was not without a fault.
    bool m_proceedQueued = false;
    QTimer m_closeTimer;
    QString m_language;
};

} // namespace Terminal
} // namespace Brimvale

Q_DECLARE_METATYPE(Brimvale::Terminal::PluginFault)

#endif // BRIMVALE_PLUGINMANAGER_H
