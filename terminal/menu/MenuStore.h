// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_MENUSTORE_H
#define BRIMVALE_MENUSTORE_H

#include "menu/MenuFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QMap>
#include <QString>

#include <optional>

namespace Brimvale
{
namespace Terminal
{

class Notices;

/// The menu files that plug-ins name. Each is read once; one that has changed since is read again.
///
/// A path is that of a resource (":/…" or "qrc:/…"), or that of a file; one that is not absolute is taken from the
/// folder of the plug-in. What is wrong with a file is told as a notice, once until the file changes.
class MenuStore
{
    Q_DECLARE_TR_FUNCTIONS(Brimvale::Terminal::MenuStore)
    Q_DISABLE_COPY(MenuStore)

public:
    /// @param notices not owned, must outlive the store.
    explicit MenuStore(Notices& notices);

    /// Relative paths are taken from here: the folder of the plug-in that is at work.
    void setFolder(const QString& folder) { m_folder = folder; }

    /// The file that a path names; empty when the path is.
    QString resolved(const QString& path) const;

    /// Whether there is such a file and it is without fault. A missing file is not told.
    bool contains(const QString& path);

    /// The file, or null, which is told. Valid until the next call.
    const MenuFile* menu(const QString& path);

private:
    struct Entry
    {
        QDateTime changed;
        qint64 size = -1;
        std::optional<MenuFile> menu;
    };

    const MenuFile* read(const QString& file);

    Notices& m_notices;
    QString m_folder;
    QMap<QString, Entry> m_entries;
};

} // namespace Terminal
} // namespace Brimvale

#endif // BRIMVALE_MENUSTORE_H
