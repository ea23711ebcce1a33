// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IINFOBOX_H
#define BRIMVALE_IINFOBOX_H

#include "SharedLibsGlobal.h"

#include <QList>

class QObject;

namespace Brimvale
{

/// The host's info box: lines of titles and values beside the weight. Implemented by the host.
class BRIMVALE_EXPORT IInfobox
{
public:
    virtual ~IInfobox();

    /// Shows `items` (`InfoboxListItem` objects) in that order, in place of those shown before. They are
    /// not owned; an item that is destroyed disappears.
    virtual void SetItems(const QList<QObject*>& items) = 0;
};

} // namespace Brimvale

#endif
