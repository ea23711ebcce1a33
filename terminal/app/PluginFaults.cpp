// SPDX-License-Identifier: BSD-3-Clause
#include "app/PluginFaults.h"

#include "QsLog.h"
#include "host/Host.h"
#include "ui/InstrumentModel.h"

#include <QFileInfo>
#include <QTimer>

namespace Brimvale
{
namespace Terminal
{
namespace
{

/// Of a fault that comes again and again the log has the 10th, the 100th, ... time.
bool isPowerOfTen(int count)
{
    while (count % 10 == 0)
        count /= 10;
    return count == 1;
}

/// A machine that is much slower than a terminal, such as an emulated one, needs another limit.
int blockedLimitMs()
{
    bool isNumber = false;
    const int limit = qEnvironmentVariableIntValue("BRIMVALE_BLOCKED_LIMIT_MS", &isNumber);
    return isNumber && limit > 0 ? limit : LoopWatch::DefaultLimitMs;
}

} // namespace

PluginFaults::PluginFaults(Host& host, InstrumentModel& instrument, const QString& crashNote, QObject* parent)
    : QObject(parent)
    , m_host(host)
    , m_instrument(instrument)
    , m_crashNote(crashNote)
    , m_loopWatch(blockedLimitMs())
{
    PluginManager* const plugins = &host.plugins();
    connect(&host.notices(), &Notices::pluginFault, this, &PluginFaults::onPluginFault);
    connect(&m_loopWatch, &LoopWatch::blocked, this, &PluginFaults::onBlocked);
    connect(&instrument, &InstrumentModel::closeRequested, plugins, &PluginManager::deactivate);
    connect(plugins, &PluginManager::activePluginChanged, this, &PluginFaults::onActivePluginChanged);
    connect(plugins, &PluginManager::aboutToLoad, this, [this](const QString& file) {
        m_crashNote.setLoading(file);
        m_loopWatch.setActive(file);
    });
    connect(plugins, &PluginManager::aboutToDelete, this, &PluginFaults::setActive);
    connect(plugins, &PluginManager::loaded, this, &PluginFaults::onActivePluginChanged);
    connect(plugins, &PluginManager::aboutToStart, this, [this, plugins] {
        m_events.clear();
        tellLeftovers();
        m_start = m_leftovers.begin();
        m_startedPlugin = plugins->activeIndex();
        m_leftoversTold = false;
    });
}

void PluginFaults::lookForCrash()
{
    const auto crash = m_crashNote.take();
    if (!crash)
        return;
    if (crash->whileLoading)
        m_host.plugins().setSuspect(crash->file);
    else
        m_crashed = crash->file;
}

bool PluginFaults::hasCrashed()
{
    const PluginManager& plugins = m_host.plugins();
    const int plugin = plugins.ownerOf(m_crashed);
    if (plugin < 0)
        return false;
    m_host.notices().post(
        NoticeSeverity::Warning,
        tr("The terminal ended unexpectedly while the application \"%1\" was at work. It was "
           "not started again; to start it, choose it from the list of applications.")
            .arg(plugins.plugins().at(plugin).name));
    return true;
}

void PluginFaults::reportException(const QString& receiver, const QString& exception, const QObject* object)
{
    const PluginManager& plugins = m_host.plugins();
    const int owner = plugins.ownerOf(object);
    const QString event =
        QStringLiteral("exception in an event of %1%2 : %3")
            .arg(receiver, owner < 0 ? QString() : QStringLiteral(" of ") + plugins.plugins().at(owner).file,
                 exception);
    const bool isNew = m_events.size() < Notices::MaximumPluginFaults && !m_events.contains(event);
    if (isNew) {
        m_events.insert(event);
        QLOG_ERROR().noquote() << event;
    }
    if (owner < 0 || owner == plugins.activeIndex()) {
        m_host.reportException(exception); // which counts them
    } else if (isNew) {
        m_host.notices().post(NoticeSeverity::Error, tr("The application \"%1\", which is closed, failed: %2")
                                                         .arg(plugins.plugins().at(owner).name, exception));
    }
}

void PluginFaults::reportQuit()
{
    const QString name = m_host.plugins().activeName();
    m_host.notices().postPluginFault(
        name.isEmpty()
            ? tr("An application asked the terminal to end, which only a person can do.")
            : tr("The application \"%1\" asked the terminal to end, which only a person can do.").arg(name));
}

void PluginFaults::onPluginFault(const QString& text, int count)
{
    const QString name = m_host.plugins().activeName();
    if (count == 1) {
        m_toldFault = text;
        m_instrument.showNotice(InstrumentModel::Severity::Error, text, name);
        m_instrument.setNoticeOffersClose(m_host.plugins().isRunning());
        return;
    }
    if (isPowerOfTen(count))
        QLOG_ERROR().noquote() << QStringLiteral("%1, %2 times: %3").arg(name, QString::number(count), text);
    // A notice that the person has put away does not come back.
    if (text == m_toldFault && m_instrument.noticeText() == text)
        m_instrument.setNoticeCount(count);
}

/// @param file empty: none is active.
void PluginFaults::setActive(const QString& file)
{
    m_loopWatch.setActive(file);
    if (file.isEmpty())
        m_crashNote.setNone();
    else
        m_crashNote.setActive(file);
}

void PluginFaults::onActivePluginChanged()
{
    const PluginManager& plugins = m_host.plugins();
    const int active = plugins.activeIndex();
    setActive(active < 0 ? QString() : QFileInfo(plugins.plugins().at(active).file).canonicalFilePath());
    if (!plugins.isRunning())
        m_instrument.setNoticeOffersClose(false);
    if (active < 0) {
        m_leftovers.end();
        // What it deletes later must have gone.
        QTimer::singleShot(0, this, [this] {
            if (m_host.plugins().activeIndex() < 0)
                tellLeftovers();
        });
    }
}

void PluginFaults::onBlocked(const QString& what, const QString& library, qint64 ms)
{
    const PluginManager& plugins = m_host.plugins();
    const int owner = plugins.ownerOf(library);
    const QString name = owner >= 0 ? plugins.plugins().at(owner).name : plugins.activeName();
    const QString seconds = QString::number(static_cast<double>(ms) / 1000.0, 'f', 1);
    if (name.isEmpty()) {
        QLOG_WARN().noquote() << QStringLiteral("the terminal was held up for %1 s by %2").arg(seconds, what);
        return;
    }
    // No error: how long it takes depends on the machine, too.
    const QString text =
        tr("The application \"%1\" blocked the terminal for %2 s (%3).").arg(name, seconds, what);
    m_host.notices().post(NoticeSeverity::Warning, text);
    m_instrument.setNoticeOffersClose(plugins.isRunning());
}

Remains PluginFaults::leftBehind() const
{
    const PluginManager& plugins = m_host.plugins();
    const int plugin = m_startedPlugin;
    return Leftovers::of(
        m_start, [&plugins, plugin](const QObject* object) { return plugins.ownerOf(object) == plugin; });
}

void PluginFaults::tellLeftovers()
{
    if (m_leftoversTold)
        return;
    m_leftoversTold = true;
    const Remains remains = leftBehind();
    if (remains.isEmpty())
        return;
    const QString name = m_host.plugins().plugins().at(m_startedPlugin).name;
    const QString separator = QStringLiteral(", ");
    if (!remains.objects.isEmpty())
        QLOG_WARN().noquote() << QStringLiteral("%1 has left behind at its close: %2")
                                     .arg(name, remains.objects.join(separator));
    if (!remains.working.isEmpty())
        m_host.notices().post(NoticeSeverity::Warning,
                              tr("The application \"%1\" is closed, but of it still works: %2.")
                                  .arg(name, remains.working.join(separator)));
}

} // namespace Terminal
} // namespace Brimvale
