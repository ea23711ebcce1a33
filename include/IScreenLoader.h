// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_ISCREENLOADER_H
#define BRIMVALE_ISCREENLOADER_H

#include "SharedLibsGlobal.h"

#include <QString>

namespace Brimvale
{

/// Loads the screen files of plug-ins. Implemented by the host.
class BRIMVALE_EXPORT IScreenLoader
{
public:
    virtual ~IScreenLoader();

    /// Loads and shows the screen file (QML) at `path`, for example ":/weighing/Main.qml" or
    /// "qrc:/weighing/Main.qml". An error is reported by the host.
    virtual void LoadScreen(QString path) = 0;
};

} // namespace Brimvale

#endif
