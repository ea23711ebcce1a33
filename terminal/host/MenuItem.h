// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MENUITEM_H
#define BRIMVALE_MENUITEM_H

#include <QString>
#include <QVariant>

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

    QVariant defaultValue; ///< What holds until the person has set something else; invalid for none.
    int decimals = -1;     ///< Of a number: its places behind the point; -1 for as many as it has.
    int maximumLength =
        0; ///< Of a text: the most characters that the person can enter; 0 for the usual limit.
    QString confirmation; ///< Of a command: what the person is asked before it runs; empty to run it at once.
    QString context; ///< Translation context of text and confirmation; empty when they are not translated.
};

} // namespace Brimvale

#endif // BRIMVALE_MENUITEM_H
