// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IVIEW_H
#define BRIMVALE_IVIEW_H

#include "SharedLibsGlobal.h"

#include <QString>

class QObject;

namespace Brimvale
{

class IScreenLoader;

/// The host's screen. Implemented by the host.
class BRIMVALE_EXPORT IView
{
public:
    virtual ~IView();

    /// Publishes `object` to the user interface under `name`, in place of what stood there. `object` is not
    /// owned and must live until the plug-in is closed.
    virtual void SetContextObject(const QString& name, QObject* object) = 0;

    /// The loader of screen files; the host's, never null.
    virtual IScreenLoader* GetScreenLoader() = 0;
};

} // namespace Brimvale

#endif
