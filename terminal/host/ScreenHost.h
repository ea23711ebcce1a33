// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_SCREENHOST_H
#define BRIMVALE_SCREENHOST_H

#include <QString>
#include <QUrl>

class QObject;

namespace Brimvale
{
namespace Terminal
{

/// Where the screens of plug-ins are shown: the window, or nothing at all in a run without one. Implemented
/// by whoever has the window.
class ScreenHost
{
public:
    virtual ~ScreenHost() = default;

    /// Publishes @p object to the screens under @p name, in place of what stood there; null withdraws it. The
    /// object stays the plug-in's.
    virtual void setContextObject(const QString& name, QObject* object) = 0;

    /// Loads and shows a screen file. Its outcome is told to ViewHost::onScreenLoaded(), now or later.
    virtual void showScreen(const QUrl& screen) = 0;

    /// Unloads the screen and withdraws every published object. Comes before the objects die.
    virtual void clearScreen() = 0;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_SCREENHOST_H
