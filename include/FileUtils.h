// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FILEUTILS_H
#define BRIMVALE_FILEUTILS_H

#include "SharedLibsGlobal.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Brimvale
{

/// Operations on files and directories of the terminal's flash file system.
///
/// Paths have "/" as separator. An operation reports by its result (`true`: success, or an empty text) and never
/// throws; a recursive one stops at the first failure and leaves what it has done. Nothing is locked, and every
/// operation blocks its caller. The object has no state, so one, even a temporary, serves all.
///
/// A copy appears under its name only when it is complete, and with the permissions of its source; links are followed.
/// It is not forced onto the medium. What is neither a file nor a directory (a pipe, a device) is not copied. A
/// directory that cannot be listed counts as empty.
class BRIMVALE_EXPORT FileUtils
{
public:
    /// Whether the path exists and is a file, or a link to one.
    bool fileExists(QString path);

    /// Whether the path exists and is a directory, or a link to one.
    bool dirExists(QString path);

    /// Copies a file and replaces the destination. Copying a file onto itself fails and leaves it as it is; another
    /// link to the source is replaced by a copy. When the old destination was removed and the copy fails, the
    /// destination is gone.
    bool CopyFileOverwrite(QString source, QString destination);

    /// As above, for the file of one name in two directories.
    bool CopyFileOverwrite(QString fileName, QString sourceDir, QString destDir);

    /// Makes one directory; its parent must exist. A directory that exists already is a success.
    bool createDir(QString path);

    /// Copies the files of one directory, hidden ones included, into another that must exist, and replaces those that
    /// are there. Subdirectories are left out. A failure does not stop the others; it makes the result false.
    bool CopyDirOverwrite(QString sourceDir, QString destDir);

    /// Copies a directory tree into a directory that must not exist yet, or one file to a name that must not. A tree
    /// that holds its own copy, or a link to a directory above, is not copied to its end: the result is false.
    bool copyRecursively(const QString& source, const QString& destination);

    /// Copies a directory tree, or one file, and replaces the files that exist. Fails as `copyRecursively()` does where
    /// a tree has no end. A source that does not exist fails after the file at `destination` was removed.
    ///
    /// \param nameFilters wildcards that select the entries of every directory, subdirectories too: with `*.txt` only
    /// subdirectories named so are entered. An empty list selects all.
    bool CopyRecursivelyOverwrite(const QString& source, const QString& destination,
                                  const QStringList& nameFilters);

    /// Deletes a directory tree. A link to a directory is removed and never followed. Returns true when there is
    /// nothing at `path`.
    ///
    /// `path` must be absolute: a relative one is looked for below itself, and true is returned without removing
    /// anything.
    bool removeDir(const QString& path);

    /// Writes `text` (in the locale's encoding) into a file, in place of what is in it, and onto the medium. Returns
    /// whether the file could be opened.
    bool CreateFile(QString path, QString text);

    /// The first line of a file without its end; empty when the file cannot be read.
    QString ReadFile(QString path);

    /// Appends to a file, made if it is missing, and onto the medium: `data` as it is when `binary` is set, otherwise
    /// `text` in UTF-8. Returns whether the file could be opened. Batch what is written: each call waits for the
    /// medium.
    bool WriteFile(QString path, QString text, QByteArray data, bool binary);
};

} // namespace Brimvale

#endif
