// SPDX-License-Identifier: BSD-3-Clause
#include "menu/MenuStore.h"

#include "host/Notices.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace Brimvale
{
namespace Terminal
{

MenuStore::MenuStore(Notices& notices)
    : m_notices(notices)
{
}

bool MenuStore::contains(const QString& path)
{
    const QString file = resolved(path);
    return QFileInfo(file).isFile() && read(file) != nullptr;
}

const MenuFile* MenuStore::menu(const QString& path)
{
    const QString file = resolved(path);
    if (!QFileInfo(file).isFile()) {
        m_notices.postPluginFault(
            path.isEmpty()
                ? tr("The menu of the application names no menu file. Set m_menuFilePath in its constructor.")
                : tr("The menu file %1 does not exist. Correct the path, or add the file to the resources of "
                     "the "
                     "plug-in.")
                      .arg(file));
        return nullptr;
    }
    return read(file);
}

QString MenuStore::resolved(const QString& path) const
{
    if (path.startsWith(QLatin1String("qrc:"))) {
        return QLatin1Char(':') + QUrl(path).path();
    }
    if (path.startsWith(QLatin1String("file:"))) {
        return QUrl(path).toLocalFile();
    }
    if (path.isEmpty() || path.startsWith(QLatin1Char(':'))) {
        return path;
    }
    return QDir::cleanPath(QDir(m_folder).absoluteFilePath(path));
}

const MenuFile* MenuStore::read(const QString& file)
{
    const QFileInfo info(file);
    Entry& entry = m_entries[file];
    if (entry.size != info.size() || entry.changed != info.lastModified()) {
        entry.size = info.size();
        entry.changed = info.lastModified();
        QStringList faults;
        entry.menu = MenuFile::load(file, &faults);
        if (!entry.menu) {
            m_notices.post(NoticeSeverity::Error, tr("The menu of the application cannot be shown.")
                                                      + QLatin1Char('\n') + faults.join(QLatin1Char('\n')));
        }
    }
    return entry.menu ? &*entry.menu : nullptr;
}

} // namespace Terminal
} // namespace Brimvale
