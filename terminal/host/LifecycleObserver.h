// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_LIFECYCLEOBSERVER_H
#define BRIMVALE_LIFECYCLEOBSERVER_H

#include "ILifecycleObserver.h"

#include <QObject>

namespace Brimvale
{
namespace Terminal
{

class HostCallLog;

/// Passes on that the active plug-in begins to close, while its objects still exist.
class LifecycleObserver : public QObject, public ILifecycleObserver
{
    Q_OBJECT
    Q_DISABLE_COPY(LifecycleObserver)

public:
    explicit LifecycleObserver(HostCallLog& calls, QObject* parent = nullptr);

    // ILifecycleObserver
    void NotifyPluginClosing() override;

signals:
    void pluginClosing();

private:
    HostCallLog& m_calls;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_LIFECYCLEOBSERVER_H
