// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PLUGINCONTROLLER_H
#define BRIMVALE_PLUGINCONTROLLER_H

#include "IPluginController.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Knows which plug-in is active and whether a control application has the whole terminal.
class PluginController : public QObject, public IPluginController
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginController)

public:
    explicit PluginController(HostCallLog& calls, QObject* parent = nullptr);

    // IPluginController
    /// Null while no plug-in is active.
    IPlugin* GetActivePlugin() override;
    void SetControlMode(bool control) override;
    void PluginClosed(QString kind) override;

    IPlugin* activePlugin() const { return m_active; }
    void setActivePlugin(IPlugin* plugin) { m_active = plugin; }

    bool isControlMode() const { return m_controlMode; }
    /// Takes the whole terminal back from a plug-in that cannot give it back any more.
    void resetControlMode();

signals:
    void controlModeChanged(bool control);
    /// The active plug-in, of that kind, closes.
    void pluginClosing(const QString& kind);

private:
    void changeControlMode(bool control);

    HostCallLog& m_calls;
    IPlugin* m_active = nullptr;
    bool m_controlMode = false;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_PLUGINCONTROLLER_H
