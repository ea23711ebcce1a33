// SPDX-License-Identifier: BSD-3-Clause
#include "host/Sequencer.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

Sequencer::Sequencer(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

void Sequencer::Continue()
{
    m_calls.command("ISequencer::Continue");
    emit continued();
}

void Sequencer::PluginClosed()
{
    m_calls.command("ISequencer::PluginClosed");
    emit pluginClosed();
}

void Sequencer::SetPrintPending(bool pending)
{
    m_calls.command("ISequencer::SetPrintPending", pending);
    m_printPending = pending;
}

void Sequencer::NotifyHostEvent(QString event)
{
    m_calls.command("ISequencer::NotifyHostEvent", event);
    emit hostEvent(event);
}

void Sequencer::NotifyMeasurementTransferred()
{
    m_calls.command("ISequencer::NotifyMeasurementTransferred");
    m_printPending = false; // the requested print, if there was one, has been carried out
    emit measurementTransferred();
}

} // namespace Terminal
} // namespace Brimvale
