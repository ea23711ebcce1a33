// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINFAULTS_H
#define BRIMVALE_PLUGINFAULTS_H

#include "app/CrashNote.h"
#include "app/LoopWatch.h"
#include "loading/Leftovers.h"

#include <QObject>
#include <QSet>
#include <QString>

namespace Brimvale
{
namespace Terminal
{

class Host;
class InstrumentModel;

/// Tells the person which application did what wrong, and closes it when the person says so: exceptions, an event loop
/// that was held up, what was left behind after the close, a crash of the last run.
class PluginFaults : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginFaults)

public:
    /// @param crashNote file of the CrashNote; empty: none is left.
    PluginFaults(Host& host, InstrumentModel& instrument, const QString& crashNote,
                 QObject* parent = nullptr);

    /// Looks whether an application has crashed the last run. One that did so while it was loaded is not loaded. Before
    /// plug-ins are loaded.
    void lookForCrash();

    /// Whether one of the loaded applications has crashed the last run while it was at work. That is told, and the
    /// person decides what is started.
    bool hasCrashed();

    /// An exception went as far as the event loop, in an event of @p object, named @p receiver; it may be gone: null.
    void reportException(const QString& receiver, const QString& exception, const QObject* object);

    /// Somebody has called QCoreApplication::quit(), which the terminal does not follow.
    void reportQuit();

    /// What the plug-in that was closed last has left behind.
    Remains leftBehind() const;

private:
    void onPluginFault(const QString& text, int count);
    void setActive(const QString& file);
    void onActivePluginChanged();
    void onBlocked(const QString& what, const QString& library, qint64 ms);
    void tellLeftovers();

    Host& m_host;
    InstrumentModel& m_instrument;
    CrashNote m_crashNote;
    LoopWatch m_loopWatch;
    Leftovers m_leftovers;
    QString m_crashed;      ///< File of the plug-in that was at work at a crash.
    QSet<QString> m_events; ///< Exceptions that were told since the last start of a plug-in.
    QString m_toldFault;    ///< The fault of the running plug-in that is shown.
    // Of the last start of a plug-in:
    int m_start = 0;
    int m_startedPlugin = -1;
    bool m_leftoversTold = true;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINFAULTS_H
