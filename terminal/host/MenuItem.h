// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MENUITEM_H
#define BRIMVALE_MENUITEM_H

#include <QString>

namespace Brimvale
{

/// One item of a menu file as the host stores it.
struct MenuItem
{
    int id = 0;       ///< Number of the item within its file.
    QString kind;     ///< What the item is: "menu", "bool", "number", "text", "selection" or "command".
    QString text;     ///< Text of the item in the source language.
    int parentId = 0; ///< Number of the menu that the item stands in; 0 for the top.
    QString helpFile; ///< Path of the help text; empty for none.
};

} // namespace Brimvale

#endif // BRIMVALE_MENUITEM_H
