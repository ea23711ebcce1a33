// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_IUNIVERSALMENULIST_H
#define BRIMVALE_IUNIVERSALMENULIST_H

#include "SharedLibsGlobal.h"

#include <QList>
#include <QString>

namespace Brimvale
{

struct MenuItem;

/// The host's store of menu files; the base of `ISystem`. Implemented by the host.
class BRIMVALE_EXPORT IUniversalMenuList
{
public:
    virtual ~IUniversalMenuList();

    /// Whether the store holds that menu file.
    virtual bool HasMenuFile(QString menuFilePath) = 0;

    /// Replaces `items` by the items of a menu file, in file order. Returns false and leaves `items`
    /// untouched when there is no such file.
    virtual bool GetMenuItemList(QString menuFilePath, QList<MenuItem>* items) = 0;

    /// Fills `item` with one item of a menu file. Returns false and leaves `item` untouched when there is
    /// none of that number.
    virtual bool GetMenuItemById(QString menuFilePath, int id, MenuItem* item) = 0;
};

} // namespace Brimvale

#endif
