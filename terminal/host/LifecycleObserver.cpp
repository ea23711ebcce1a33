// SPDX-License-Identifier: BSD-3-Clause
#include "host/LifecycleObserver.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

LifecycleObserver::LifecycleObserver(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

void LifecycleObserver::NotifyPluginClosing()
{
    m_calls.command("ILifecycleObserver::NotifyPluginClosing");
    emit pluginClosing();
}

} // namespace Terminal
} // namespace Brimvale
