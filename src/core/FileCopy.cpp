// SPDX-License-Identifier: BSD-3-Clause
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

/// Copies within the kernel as far as it can do that, and the rest through a buffer: from where both files stand.
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
    return copyThroughBuffer(from, to);
}

/// Gives an unnamed file its name, unless that exists.
bool publishUnnamed(int descriptor, const QByteArray& destination)
{
    char link[32];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor);
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

} // namespace

bool copyFile(const QString& source, const QString& destination)
{
    const QByteArray to = QFile::encodeName(destination);
    // Not blocking: a pipe without a writer would never open.
    const FileDescriptor in(::open(QFile::encodeName(source).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!in.isOpen() || ::fstat(in.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    struct stat existing = {};
    if (::lstat(to.constData(), &existing) == 0) {
        return false;
    }

    const auto fill = [&in, &status](const FileDescriptor& out) {
        return copyContent(in.get(), out.get(), status.st_size)
               && ::fchmod(out.get(), status.st_mode & PermissionBits) == 0;
    };

    const QByteArray directory = directoryOf(to);
    const FileDescriptor unnamed(
        ::open(directory.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (unnamed.isOpen()) {
        if (!fill(unnamed)) {
            return false;
        }
        if (publishUnnamed(unnamed.get(), to)) {
            return true;
        }
        if (errno == EEXIST || ::lseek(in.get(), 0, SEEK_SET) != 0) {
            return false;
        }
    }

    // A file system without unnamed files, or one that cannot name them.
    QByteArray temporary = directory + "/.copy.XXXXXX";
    FileDescriptor named(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!named.isOpen()) {
        return false;
    }
    const bool complete = fill(named);
    if (!named.close() || !complete) {
        ::unlink(temporary.constData());
        return false;
    }
    return publishNamed(temporary, to);
}

bool isSameFile(const QString& first, const QString& second)
{
    struct stat a = {};
    struct stat b = {};
    return ::stat(QFile::encodeName(first).constData(), &a) == 0
           && ::stat(QFile::encodeName(second).constData(), &b) == 0 && a.st_dev == b.st_dev
           && a.st_ino == b.st_ino;
}

} // namespace Brimvale
