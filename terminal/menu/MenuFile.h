// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MENUFILE_H
#define BRIMVALE_MENUFILE_H

#include "host/MenuItem.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

/// A menu file: the items of a plug-in's menu, written in JSON. The format is described in docs/menu-files.md.
class MenuFile
{
public:
    static constexpr int MaximumSize = 256 * 1024; ///< Bytes of a file.
    static constexpr int MaximumItems = 500;
    static constexpr int MaximumDepth = 8;        ///< Menus inside one another.
    static constexpr int MaximumTextLength = 200; ///< Characters of a text.
    static constexpr int MaximumDecimals = 6;     ///< Places of a number behind the point.

    /// Reads the file @p path, which may be a resource (":/…"). On failure nothing is returned and @p faults has a
    /// text for every fault, in the order of the lines: "FILE:LINE: what is wrong; what would be right".
    static std::optional<MenuFile> load(const QString& path, QStringList* faults);

    /// Reads @p content; @p name names it in the messages.
    static std::optional<MenuFile> parse(const QByteArray& content, const QString& name, QStringList* faults);

    /// In the order of the file.
    const QList<MenuItem>& items() const { return m_items; }

    /// The item of that number; null for none.
    const MenuItem* item(int id) const;

private:
    MenuFile() = default;

    QList<MenuItem> m_items;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_MENUFILE_H
