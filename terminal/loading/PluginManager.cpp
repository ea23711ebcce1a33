// SPDX-License-Identifier: BSD-3-Clause
#include "loading/PluginManager.h"

#include "IInfobox.h"
#include "IMenuList.h"
#include "IPlugin.h"
#include "ISystem.h"
#include "IWeighingParameters.h"
#include "host/AddonHost.h"
#include "host/LifecycleObserver.h"
#include "host/PluginController.h"
#include "host/PluginGuard.h"
#include "host/Sequencer.h"
#include "host/ViewHost.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QTranslator>

#include <optional>
#include <utility>

namespace Brimvale
{
namespace Terminal
{

PluginManager::PluginManager(const PluginEnvironment& environment, QObject* parent)
    : QObject(parent)
    , m_environment(environment)
{
    qRegisterMetaType<Brimvale::Terminal::PluginFault>();
    m_closeTimer.setSingleShot(true);
    m_closeTimer.setInterval(CloseTimeoutMs);
    connect(&m_closeTimer, &QTimer::timeout, this, &PluginManager::onCloseTimeout);
    connect(&m_environment.lifecycleObserver, &LifecycleObserver::pluginClosing, this,
            &PluginManager::onPluginClosing);
    connect(&m_environment.sequencer, &Sequencer::pluginClosed, this, &PluginManager::onPluginClosed);
    connect(&m_environment.sequencer, &Sequencer::continued, this, [this] { m_environment.addons.finish(); });
}

PluginManager::~PluginManager()
{
    deleteAll();
}

void PluginManager::deleteAll()
{
    closeAll();
    m_closeTimer.stop(); // for one that has not closed
    m_active = -1;
    while (!m_plugins.empty()) {
        const std::unique_ptr<Plugin> plugin = std::move(m_plugins.back());
        m_plugins.pop_back();
        emit aboutToDelete(plugin->canonicalFile);
        const RunningCode running("its destructor");
        if (plugin->object != nullptr) {
            disconnect(plugin->object, &QObject::destroyed, this, &PluginManager::onObjectDestroyed);
        }
        plugin->translator.reset(); // removes itself from the application
        delete plugin->object;
    }
}

QList<IPlugin*> PluginManager::GetPlugins()
{
    QList<IPlugin*> plugins;
    for (const auto& plugin : m_plugins) {
        if (isUsable(*plugin)) {
            plugins.append(plugin->plugin);
        }
    }
    return plugins;
}

LoadResult PluginManager::load(const QString& file)
{
    const QString canonicalFile = QFileInfo(file).canonicalFilePath();
    for (const auto& plugin : m_plugins) {
        if (!canonicalFile.isEmpty() && plugin->canonicalFile == canonicalFile) {
            LoadResult result;
            result.stage = LoadStage::File;
            result.file = file;
            result.message = loadFailureMessage(file, result.stage, tr("it is loaded already"),
                                                tr("Name every plug-in once."));
            return result;
        }
    }
    if (!canonicalFile.isEmpty() && canonicalFile == m_suspect) {
        LoadResult result;
        result.stage = LoadStage::File;
        result.file = file;
        result.message = loadFailureMessage(
            file, result.stage, tr("the terminal ended unexpectedly when it was loaded the last time"),
            tr("Mend it, or start the terminal again to try once more."));
        return result;
    }
    emit aboutToLoad(canonicalFile);
    LoadResult result = loadPluginFile(file);
    if (result.object == nullptr) {
        emit loaded();
        return result;
    }
    auto plugin = std::make_unique<Plugin>();
    plugin->object = result.object;
    plugin->plugin = result.plugin;
    plugin->file = file;
    plugin->canonicalFile = canonicalFile;
    plugin->name = QFileInfo(file).completeBaseName();
    plugin->identifier = plugin->name;
    if (result.ok) {
        emit entered(QFileInfo(canonicalFile).path());
        initialise(*plugin, result);
    }
    emit loaded();
    if (result.ok && plugin->object == nullptr) {
        result.ok = false;
        result.stage = LoadStage::Initialise;
        result.message = loadFailureMessage(file, result.stage, tr("it has deleted its own object"),
                                            tr("Leave that to the terminal, which deletes it at its end."));
    }
    const bool isInitialised = result.ok;
    if (!result.ok) {
        plugin->state = PluginState::Failed;
        plugin->fault = result.message;
    }
    m_plugins.push_back(std::move(plugin));
    if (isInitialised) {
        emit initialised(count() - 1);
    }
    if (m_active >= 0) {
        emit entered(QFileInfo(at(m_active).canonicalFile).path());
    }
    emit pluginsChanged();
    return result;
}

void PluginManager::initialise(Plugin& plugin, LoadResult& result)
{
    const auto fail = [&](const QString& cause, const QString& mend) {
        result.ok = false;
        result.stage = LoadStage::Initialise;
        result.message = loadFailureMessage(result.file, result.stage, cause, mend);
    };
    bool accepted = false;
    auto exception = exceptionOf("InitPlugin()", [&] {
        accepted =
            plugin.plugin->InitPlugin(&m_environment.system, &m_environment.view, &m_environment.menuList,
                                      &m_environment.weighingParameters, &m_environment.infobox);
    });
    if (plugin.object == nullptr) {
        return;
    }
    if (exception) {
        fail(tr("InitPlugin() threw %1").arg(*exception),
             tr("Catch the exception in the plug-in and return false from PreInitPlugin() or "
                "PostInitPlugin()."));
        return;
    }
    if (!accepted) {
        fail(tr("InitPlugin() returned false: the plug-in refuses to be initialised"),
             tr("See why its PreInitPlugin() or PostInitPlugin() returns false."));
        return;
    }
    PluginId id;
    exception = exceptionOf([&] { id = plugin.plugin->GetId(); });
    if (exception) {
        fail(tr("GetId() threw %1").arg(*exception),
             tr("Let no exception out of FillPluginId() and GetPluginName()."));
        return;
    }
    for (const auto& other : m_plugins) {
        if (other->state != PluginState::Failed && other->identifier == id.identifier) {
            result.ok = false;
            result.stage = LoadStage::Identifier;
            result.message =
                loadFailureMessage(result.file, result.stage,
                                   tr("its identifier \"%1\" is that of %2, which was loaded before")
                                       .arg(id.identifier, other->file),
                                   tr("Give the plug-in an identifier of its own in FillPluginId(), or load "
                                      "only one of the two."));
            return;
        }
    }
    if (!id.identifier.isEmpty()) {
        plugin.identifier = id.identifier;
    }
    plugin.kind = id.kind;
    plugin.number = id.addonNumber;
    installTranslation(plugin);
    readTexts(plugin);
}

QVector<LoadResult> PluginManager::loadFolder(const QString& folder)
{
    QString error;
    const QStringList files = pluginFilesOf(folder, &error);
    QVector<LoadResult> results;
    if (files.isEmpty()) {
        LoadResult result;
        result.stage = LoadStage::Folder;
        result.file = folder;
        result.message = error;
        results.append(result);
    }
    for (const QString& file : files) {
        results.append(load(file));
    }
    return results;
}

QVector<PluginInfo> PluginManager::plugins() const
{
    QVector<PluginInfo> infos;
    for (const auto& plugin : m_plugins) {
        infos.append(PluginInfo{plugin->file, plugin->identifier, plugin->kind, plugin->name, plugin->icon,
                                plugin->state, plugin->fault, plugin->number});
    }
    return infos;
}

int PluginManager::indexOf(const QString& identifier) const
{
    int found = -1;
    for (int i = 0; i < count(); ++i) {
        if (at(i).identifier != identifier) {
            continue;
        }
        if (at(i).state != PluginState::Failed) {
            return i;
        }
        if (found < 0) {
            found = i;
        }
    }
    return found;
}

int PluginManager::ownerOf(const QString& library) const
{
    for (int i = 0; i < count(); ++i) {
        if (!library.isEmpty() && at(i).canonicalFile == library) {
            return i;
        }
    }
    return -1;
}

int PluginManager::ownerOf(const QObject* object) const
{
    int owner = -1;
    for (; object != nullptr && owner < 0; object = object->parent()) {
        owner = ownerOf(libraryOf(codeOf(object)));
    }
    return owner;
}

bool PluginManager::isRunning() const
{
    return m_active >= 0 && at(m_active).state == PluginState::Running;
}

IPlugin* PluginManager::activePlugin() const
{
    return m_active < 0 ? nullptr : at(m_active).plugin;
}

QObject* PluginManager::activeObject() const
{
    return m_active < 0 ? nullptr : at(m_active).object;
}

QString PluginManager::activeName() const
{
    return m_active < 0 ? QString() : at(m_active).name;
}

bool PluginManager::activate(int index)
{
    if (index < 0 || index >= count() || at(index).state == PluginState::Failed) {
        return false;
    }
    m_wanted = index;
    proceed();
    return at(index).state != PluginState::Failed;
}

bool PluginManager::activate(const QString& identifier)
{
    return activate(indexOf(identifier));
}

void PluginManager::deactivate()
{
    m_wanted = -1;
    proceed();
}

bool PluginManager::isSettled() const
{
    return m_active == m_wanted && (m_active < 0 || isRunning());
}

bool PluginManager::waitUntilSettled(int timeoutMs)
{
    // Event by event and not with exec(), which refuses while the application quits.
    QEventLoop loop;
    const QDeadlineTimer deadline(timeoutMs);
    // Only wakes the loop: a plug-in's event filter may swallow what it tells.
    QTimer timer(this);
    timer.start(timeoutMs);
    while (!isSettled() && !deadline.hasExpired()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return isSettled();
}

bool PluginManager::closeAll()
{
    m_closeFaulty = false;
    deactivate();
    return waitUntilSettled() && !m_closeFaulty;
}

void PluginManager::setLanguage(const QString& language)
{
    m_language = language;
    for (const auto& plugin : m_plugins) {
        if (isUsable(*plugin)) {
            installTranslation(*plugin);
            readTexts(*plugin);
        }
    }
    if (isRunning()) {
        Plugin& plugin = at(m_active);
        if (const auto exception =
                exceptionOf("TranslateWarnInfo()", [&] { plugin.plugin->TranslateWarnInfo(); });
            exception && plugin.object != nullptr) {
            report(plugin, QStringLiteral("TranslateWarnInfo"),
                   tr("TranslateWarnInfo() threw %1").arg(*exception), tr("Let no exception out of it."));
            m_wanted = -1;
            proceed();
        }
    }
    emit pluginsChanged();
}

void PluginManager::proceed()
{
    if (m_active < 0) {
        if (m_wanted >= 0) {
            start();
        }
    } else if (isRunning() && m_wanted != m_active) {
        close();
    }
    if (isSettled()) {
        emit settled();
    }
}

void PluginManager::start()
{
    m_active = m_wanted;
    Plugin& plugin = at(m_active);
    plugin.state = PluginState::Starting;
    m_closeNotified = false;
    if (plugin.object == nullptr) { // it went while it was not at work
        onObjectDestroyed();
        return;
    }
    // A plug-in cuts all connections of its object when it closes.
    connect(plugin.object, &QObject::destroyed, this, &PluginManager::onObjectDestroyed,
            Qt::UniqueConnection);
    m_environment.controller.setActivePlugin(plugin.plugin);
    const QString folder = QFileInfo(plugin.canonicalFile).path();
    m_environment.view.setFolder(folder);
    emit entered(folder);
    emit aboutToStart();
    emit pluginsChanged();
    emit activePluginChanged();

    bool started = false;
    auto exception = exceptionOf("StartPlugin()", [&] { started = plugin.plugin->StartPlugin(); });
    if (plugin.object == nullptr) {
        return;
    }
    if (exception) {
        report(plugin, QStringLiteral("StartPlugin"), tr("StartPlugin() threw %1").arg(*exception),
               tr("Catch the exception in the plug-in and return false from PreStartPlugin() or "
                  "PostStartPlugin()."));
    } else if (!started) {
        report(plugin, QStringLiteral("StartPlugin"),
               tr("StartPlugin() returned false: the plug-in refuses to start"),
               tr("See why its PreStartPlugin() or PostStartPlugin() returns false."));
    }
    if (!started) {
        // It has not started, so there is nothing that it could close.
        if (m_wanted == m_active) {
            m_wanted = -1;
        }
        end();
        return;
    }

    exception = exceptionOf("PostStartAddons()", [&] { plugin.plugin->PostStartAddons(); });
    m_environment.addons.finish();
    if (plugin.object == nullptr) {
        return;
    }
    plugin.state = PluginState::Running;
    if (exception) {
        report(plugin, QStringLiteral("PostStartAddons"), tr("PostStartAddons() threw %1").arg(*exception),
               tr("Let no exception out of PostInitPluginAndAddons()."));
        if (m_wanted == m_active) {
            m_wanted = -1;
        }
    } else {
        emit pluginStarted();
        emit pluginsChanged();
        emit activePluginChanged();
    }
    if (m_wanted != m_active) {
        close();
    }
}

void PluginManager::close()
{
    emit aboutToClose();
    Plugin& plugin = at(m_active);
    plugin.state = PluginState::Closing;
    m_released = false;
    m_closeNotified = false;
    emit pluginsChanged();
    emit activePluginChanged();

    bool closed = false;
    const auto exception = exceptionOf("ClosePlugin()", [&] { closed = plugin.plugin->ClosePlugin(); });
    if (plugin.object == nullptr) {
        onObjectDestroyed();
        return;
    }
    if (exception) {
        report(plugin, QStringLiteral("ClosePlugin"), tr("ClosePlugin() threw %1").arg(*exception),
               tr("Let no exception out of PreClosePlugin()."));
    } else if (!closed) {
        report(plugin, QStringLiteral("ClosePlugin"), tr("ClosePlugin() returned false"),
               tr("A plug-in cannot refuse to close: return true."));
    }
    onPluginClosing(); // a plug-in that did not tell has nevertheless begun to close
    if (!m_closeNotified) {
        m_closeTimer.start(exception || !closed ? FaultyCloseTimeoutMs : CloseTimeoutMs);
    }
}

void PluginManager::onPluginClosing()
{
    if (m_active >= 0 && at(m_active).state == PluginState::Closing && !m_released) {
        m_released = true;
        emit released();
    }
}

void PluginManager::onPluginClosed()
{
    if (m_active < 0 || at(m_active).state != PluginState::Closing || m_closeNotified) {
        return; // a late timer of a plug-in that was taken out
    }
    m_closeNotified = true;
    m_closeTimer.stop();
    // Its last words, PostClosePlugin() and the end of the control mode, come after this call. They must not
    // meet the next plug-in.
    QTimer::singleShot(0, this, &PluginManager::end);
}

void PluginManager::onCloseTimeout()
{
    Plugin& plugin = at(m_active);
    if (plugin.object == nullptr) {
        onObjectDestroyed();
        return;
    }
    if (plugin.fault.isEmpty()) {
        report(plugin, QStringLiteral("ClosePlugin"),
               tr("it has not told within %1 s that it has closed").arg(CloseTimeoutMs / 1000),
               tr("Do not override ClosePlugin(), or call PluginBase::ClosePlugin() from it, and do not "
                  "block the event "
                  "loop."));
    }
    end();
}

/// The object of the active plug-in is gone, by no doing of the manager: nothing of it can be called any more. Who
/// deleted it may still be running, so that nothing else is started before the event loop runs.
void PluginManager::onObjectDestroyed()
{
    if (m_active < 0 || at(m_active).object != nullptr || at(m_active).plugin == nullptr) {
        return;
    }
    Plugin& plugin = at(m_active);
    m_closeTimer.stop();
    plugin.plugin = nullptr;
    report(plugin, QStringLiteral("destruction"), tr("it has deleted its own object"),
           tr("Leave that to the terminal, which deletes it at its end."));
    if (m_wanted == m_active) {
        m_wanted = -1;
    }
    plugin.state = PluginState::Closing;
    m_environment.controller.setActivePlugin(nullptr);
    if (!m_closeNotified) { // otherwise it was about to end
        m_closeNotified = true;
        QTimer::singleShot(0, this, &PluginManager::end);
    }
}

void PluginManager::end()
{
    Plugin& plugin = at(m_active);
    emit released(); // what it may have offered since it began to close
    plugin.state = plugin.fault.isEmpty() ? PluginState::Initialised : PluginState::Failed;
    m_active = -1;
    m_environment.controller.setActivePlugin(nullptr);
    m_environment.controller.resetControlMode();
    m_environment.addons.finish();
    emit pluginsChanged();
    emit activePluginChanged();
    proceed();
}

void PluginManager::report(Plugin& plugin, const QString& step, const QString& cause, const QString& mend)
{
    PluginFault fault;
    fault.plugin = plugin.name;
    fault.file = plugin.file;
    fault.object = plugin.object;
    fault.step = step;
    fault.message =
        tr("The plug-in \"%1\" (%2) was taken out: %3. %4").arg(plugin.name, plugin.file, cause, mend);
    plugin.fault = fault.message;
    m_closeFaulty = true;
    emit faultOccurred(fault);
}

void PluginManager::installTranslation(Plugin& plugin)
{
    plugin.translator.reset(); // removes itself from the application
    if (m_language.isEmpty()) {
        return;
    }
    auto translator = std::make_unique<QTranslator>();
    bool loaded = false;
    const QString name = QFileInfo(plugin.file).completeBaseName() + QLatin1Char('_') + m_language;
    // A plug-in that throws here stays in its source language.
    exceptionOf([&] { loaded = plugin.plugin->PluginTranslator(translator.get(), name); });
    if (loaded && QCoreApplication::installTranslator(translator.get())) {
        plugin.translator = std::move(translator);
    }
}

void PluginManager::readTexts(Plugin& plugin)
{
    // What cannot be read stays as it was; the name of the file at first.
    exceptionOf([&] { plugin.name = plugin.plugin->GetPluginName(true); });
    exceptionOf([&] { plugin.icon = plugin.plugin->GetPluginIcon(); });
}

} // namespace Terminal
} // namespace Brimvale
