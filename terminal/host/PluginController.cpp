// SPDX-License-Identifier: BSD-3-Clause
#include "host/PluginController.h"

#include "host/HostCallLog.h"

namespace Brimvale
{
namespace Terminal
{

PluginController::PluginController(HostCallLog& calls, QObject* parent)
    : QObject(parent)
    , m_calls(calls)
{
}

IPlugin* PluginController::GetActivePlugin()
{
    m_calls.query("IPluginController::GetActivePlugin");
    return m_active;
}

void PluginController::SetControlMode(bool control)
{
    m_calls.command("IPluginController::SetControlMode", control);
    changeControlMode(control);
}

void PluginController::PluginClosed(QString kind)
{
    m_calls.command("IPluginController::PluginClosed", kind);
    emit pluginClosing(kind);
}

void PluginController::resetControlMode()
{
    changeControlMode(false);
}

void PluginController::changeControlMode(bool control)
{
    if (m_controlMode != control) {
        m_controlMode = control;
        emit controlModeChanged(control);
    }
}

} // namespace Terminal
} // namespace Brimvale
