// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FILECOPY_H
#define BRIMVALE_FILECOPY_H

#include <QString>

namespace Brimvale
{

/// What a path leads to.
struct FileIdentity
{
    /// After links.
    static FileIdentity of(const QString& path);

    /// Of the link itself where the path ends in one.
    static FileIdentity ofEntry(const QString& path);

    /// Whether both are the same existing file or directory.
    bool operator==(const FileIdentity& other) const;

    bool isDirectory() const;

    bool exists = false;
    quint64 device = 0;
    quint64 inode = 0;
    quint64 names = 0; ///< hard links
    quint32 mode = 0;  ///< type and permissions, as the system has them
    qint64 size = 0;
};

/// Copies the content and the permissions of a file, or of a resource, to a name that must not exist. The name appears
/// when the copy is complete. Unlike `QFile::copy()` it does not wait for the medium, file by file.
bool copyFile(const QString& source, const QString& destination);

/// The same when what the source leads to is known already.
bool copyFile(const QString& source, const FileIdentity& status, const QString& destination);

} // namespace Brimvale

#endif
