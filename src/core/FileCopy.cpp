// SPDX-License-Identifier: BSD-3-Clause

// Files of more than 2 GB on 32-bit systems too.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the C library gives the name
#define _FILE_OFFSET_BITS 64

#include "core/FileCopy.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Brimvale
{

namespace
{

constexpr mode_t PermissionBits = 0777;
constexpr mode_t ResourcePermissions = 0444;

class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    ~FileDescriptor() { close(); }

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// Some file systems report a failed write only here.
    bool close()
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

bool writeAll(int to, const char* bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(to, bytes, static_cast<size_t>(count));
        if (written < 0 && errno != EINTR) {
            return false;
        }
        if (written > 0) {
            bytes += written;
            count -= written;
        }
    }
    return true;
}

bool copyThroughBuffer(int from, int to)
{
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t count = ::read(from, buffer, sizeof(buffer));
        if (count == 0) {
            return true;
        }
        if (count < 0 && errno != EINTR) {
            return false;
        }
        if (count > 0 && !writeAll(to, buffer, count)) {
            return false;
        }
    }
}

/// Copies within the kernel as far as it can do that, and the rest through a buffer: from where both files stand. A file
/// of the size 0 may have content all the same, as those that the kernel makes up.
bool copyContent(int from, int to, off_t size)
{
    constexpr size_t LargestStep = 1u << 30;
    off_t copied = 0;
    while (copied < size) {
        const ssize_t count = ::copy_file_range(from, nullptr, to, nullptr, LargestStep, 0);
        if (count <= 0) {
            break;
        }
        copied += count;
    }
    return (size > 0 && copied >= size) || copyThroughBuffer(from, to);
}

bool copyContent(QFile& from, int to)
{
    char buffer[16 * 1024];
    for (;;) {
        const qint64 count = from.read(buffer, sizeof(buffer));
        if (count <= 0) {
            return count == 0;
        }
        if (!writeAll(to, buffer, static_cast<ssize_t>(count))) {
            return false;
        }
    }
}

/// Gives an unnamed file its name, unless that exists.
bool publishUnnamed(int descriptor, const QByteArray& destination)
{
    // Without the way through /proc, for those who have the privilege; others are told that the empty name is none.
    if (::linkat(descriptor, "", AT_FDCWD, destination.constData(), AT_EMPTY_PATH) == 0) {
        return true;
    }
    if (errno == EEXIST) {
        return false;
    }
    char link[32];
    static_cast<void>(std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor));
    return ::linkat(AT_FDCWD, link, AT_FDCWD, destination.constData(), AT_SYMLINK_FOLLOW) == 0;
}

/// Gives a file under a temporary name its own, unless that exists. The temporary name is gone in any case.
bool publishNamed(const QByteArray& temporary, const QByteArray& destination)
{
    bool published =
        ::renameat2(AT_FDCWD, temporary.constData(), AT_FDCWD, destination.constData(), RENAME_NOREPLACE)
        == 0;
    if (!published && errno != EEXIST) {
        // A file system that cannot rename without replacing.
        published = ::link(temporary.constData(), destination.constData()) == 0
                    || (::access(destination.constData(), F_OK) != 0
                        && ::rename(temporary.constData(), destination.constData()) == 0);
    }
    if (!published || ::access(temporary.constData(), F_OK) == 0) {
        ::unlink(temporary.constData());
    }
    return published;
}

QByteArray directoryOf(const QByteArray& path)
{
    const int separator = path.lastIndexOf('/');
    if (separator < 0) {
        return QByteArrayLiteral(".");
    }
    return separator == 0 ? QByteArrayLiteral("/") : path.left(separator);
}

/// Makes a file of a name that must not exist. The name appears when the content, which `write` writes to a descriptor,
/// is complete. `write` begins anew when it is called again.
template <typename Write>
bool makeFile(const QByteArray& name, mode_t permissions, Write write)
{
    struct stat existing = {};
    if (::lstat(name.constData(), &existing) == 0) {
        return false;
    }
    const auto fill = [&](int descriptor) {
        if (!write(descriptor)) {
            return false;
        }
        // A file system without permissions refuses most; the copy is good all the same.
        ::fchmod(descriptor, permissions & PermissionBits);
        return true;
    };

    const QByteArray directory = directoryOf(name);
    const FileDescriptor unnamed(
        ::open(directory.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (unnamed.isOpen()) {
        if (!fill(unnamed.get())) {
            return false;
        }
        if (publishUnnamed(unnamed.get(), name)) {
            return true;
        }
        if (errno == EEXIST) {
            return false;
        }
    }

    // A file system without unnamed files, or one that cannot name them.
    QByteArray temporary = directory + "/.copy.XXXXXX";
    FileDescriptor named(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!named.isOpen()) {
        return false;
    }
    const bool complete = fill(named.get());
    if (!named.close() || !complete) {
        ::unlink(temporary.constData());
        return false;
    }
    return publishNamed(temporary, name);
}

/// A path for the system; empty when a null character would end it early.
QByteArray nativePath(const QString& path)
{
    const QByteArray native = QFile::encodeName(path);
    return native.contains('\0') ? QByteArray() : native;
}

FileIdentity identity(const QString& path, int flags)
{
    struct stat status = {};
    const QByteArray native = nativePath(path);
    if (native.isEmpty() || ::fstatat(AT_FDCWD, native.constData(), &status, flags) != 0) {
        return {};
    }
    return {true, status.st_dev, status.st_ino, status.st_nlink, status.st_mode, status.st_size};
}

} // namespace

bool copyFile(const QString& source, const QString& destination)
{
    return copyFile(source, FileIdentity::of(source), destination);
}

bool copyFile(const QString& source, const FileIdentity& status, const QString& destination)
{
    const QByteArray from = nativePath(source);
    const QByteArray to = nativePath(destination);
    if (from.isEmpty() || to.isEmpty()) {
        return false;
    }

    if (!status.exists) {
        // A resource, or nothing.
        QFile file(source);
        return file.open(QIODevice::ReadOnly) && makeFile(to, ResourcePermissions, [&file](int descriptor) {
                   return file.seek(0) && copyContent(file, descriptor);
               });
    }
    // Looked at before it is opened: that would do something to a device, and wait for the other end of a pipe.
    if (!S_ISREG(status.mode)) {
        return false;
    }
    const FileDescriptor in(::open(from.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    bool isFirst = true;
    return in.isOpen() && makeFile(to, status.mode, [&](int descriptor) {
               const bool isAtStart = isFirst || ::lseek(in.get(), 0, SEEK_SET) == 0;
               isFirst = false;
               return isAtStart && copyContent(in.get(), descriptor, status.size);
           });
}

FileIdentity FileIdentity::of(const QString& path)
{
    return identity(path, 0);
}

FileIdentity FileIdentity::ofEntry(const QString& path)
{
    return identity(path, AT_SYMLINK_NOFOLLOW);
}

bool FileIdentity::isDirectory() const
{
    return S_ISDIR(mode);
}

bool FileIdentity::operator==(const FileIdentity& other) const
{
    return exists && other.exists && device == other.device && inode == other.inode;
}

} // namespace Brimvale
