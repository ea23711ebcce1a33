// SPDX-License-Identifier: BSD-3-Clause
#include "FileUtils.h"

#include "core/FileCopy.h"
#include "core/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <unistd.h>

namespace Brimvale
{

namespace
{

constexpr QDir::Filters FileEntries = QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
constexpr QDir::Filters AllEntries = FileEntries | QDir::Dirs;
constexpr QDir::Filters EntriesToRemove = FileEntries | QDir::AllDirs;

/// Makes the last level of `path`. Fails when it exists.
bool makeDir(const QString& path)
{
    const QFileInfo info(QDir::cleanPath(path));
    return QDir(info.path()).mkdir(info.fileName());
}

/// Whether both paths name one and the same, so that removing the destination would take the source away. A link that
/// leads to the source, and another hard link to its file, can be replaced.
bool isOntoItself(const QString& source, const QString& destination, const FileIdentity& replaced)
{
    if (!replaced.exists) {
        return false;
    }
    if (!(replaced == FileIdentity::of(source)) && !(replaced == FileIdentity::ofEntry(source))) {
        return false;
    }
    return replaced.names == 1
           || QFileInfo(source).canonicalFilePath() == QFileInfo(destination).canonicalFilePath();
}

/// Whether it is one, after links. What only Qt knows, such as a resource, has no identity.
bool isDirectory(const QString& path, const FileIdentity& identity)
{
    return identity.exists ? identity.isDirectory() : QFileInfo(path).isDir();
}

/// The directories above the one that is copied, from the inside out: those of the source, and the destination as a
/// whole. Entering one of them again would never end.
struct CopiedDirectory
{
    FileIdentity identity;
    const CopiedDirectory* outer = nullptr;
};

bool isBeingCopied(const FileIdentity& directory, const CopiedDirectory* copied)
{
    for (; copied != nullptr; copied = copied->outer) {
        if (copied->identity == directory) {
            return true;
        }
    }
    return false;
}

QString below(const QString& directory, const QString& name)
{
    return directory + QLatin1Char('/') + name;
}

bool copyTree(const QString& source, const QString& destination, const CopiedDirectory* outer)
{
    const FileIdentity identity = FileIdentity::of(source);
    if (!isDirectory(source, identity)) {
        return copyFile(source, identity, destination);
    }
    if (isBeingCopied(identity, outer) || !makeDir(destination)) {
        return false;
    }
    CopiedDirectory target = {};
    if (outer == nullptr) {
        target.identity = FileIdentity::of(destination);
        outer = &target;
    }
    const CopiedDirectory copied = {identity, outer};
    const QStringList names = QDir(source).entryList(AllEntries, QDir::Unsorted);
    for (const QString& name : names) {
        if (!copyTree(below(source, name), below(destination, name), &copied)) {
            return false;
        }
    }
    return true;
}

bool copyFileOver(const QString& source, const FileIdentity& status, const QString& destination)
{
    const FileIdentity replaced = FileIdentity::ofEntry(destination);
    const bool isSame = isOntoItself(source, destination, replaced);
    if (!isSame && replaced.exists && FileUtils().fileExists(destination) && !QFile::remove(destination)) {
        BRIMVALE_LOG_TRACE("could not remove old file " << destination);
        return false;
    }
    if (isSame || !copyFile(source, status, destination)) {
        BRIMVALE_LOG_TRACE("could not copy file " << source);
        return false;
    }
    BRIMVALE_LOG_TRACE("copied file" << source);
    return true;
}

bool copyTreeOver(const QString& source, const QString& destination, const QStringList& nameFilters,
                  const CopiedDirectory* outer)
{
    const FileIdentity identity = FileIdentity::of(source);
    if (!isDirectory(source, identity)) {
        return copyFileOver(source, identity, destination);
    }
    if (isBeingCopied(identity, outer)) {
        BRIMVALE_LOG_TRACE("could not copy file " << source);
        return false;
    }
    if (!FileUtils().dirExists(destination)) {
        if (!makeDir(destination)) {
            BRIMVALE_LOG_TRACE("could not create dir " << destination);
            return false;
        }
        BRIMVALE_LOG_TRACE("created dir " << destination);
    }
    CopiedDirectory target = {};
    if (outer == nullptr) {
        target.identity = FileIdentity::of(destination);
        outer = &target;
    }
    const CopiedDirectory copied = {identity, outer};
    const QStringList names = QDir(source).entryList(nameFilters, AllEntries, QDir::Unsorted);
    for (const QString& name : names) {
        if (!copyTreeOver(below(source, name), below(destination, name), nameFilters, &copied)) {
            return false;
        }
    }
    return true;
}

/// Writes out what the file still holds, onto the medium.
void syncToMedium(QFile& file)
{
    file.flush();
    ::fsync(file.handle());
}

} // namespace

bool FileUtils::fileExists(QString path)
{
    const QFileInfo info(path);
    return info.exists() && info.isFile();
}

bool FileUtils::dirExists(QString path)
{
    const QFileInfo info(path);
    return info.exists() && info.isDir();
}

bool FileUtils::CopyFileOverwrite(QString source, QString destination)
{
    bool copied = false;
    if (fileExists(source) && !isOntoItself(source, destination, FileIdentity::ofEntry(destination))) {
        const bool removed = !fileExists(destination) || QFile::remove(destination);
        copied = copyFile(source, destination) && removed;
    }
    if (copied) {
        BRIMVALE_LOG_TRACE("FileUtils::CopyFileOverwrite, copied " << source.toLocal8Bit().constData());
    } else {
        BRIMVALE_LOG_TRACE("FileUtils::CopyFileOverwrite, failed to copy "
                           << source.toLocal8Bit().constData());
    }
    return copied;
}

bool FileUtils::CopyFileOverwrite(QString fileName, QString sourceDir, QString destDir)
{
    return CopyFileOverwrite(below(sourceDir, fileName), below(destDir, fileName));
}

bool FileUtils::createDir(QString path)
{
    return dirExists(path) || QDir().mkdir(path);
}

bool FileUtils::CopyDirOverwrite(QString sourceDir, QString destDir)
{
    bool allCopied = true;
    const QStringList names = QDir(sourceDir).entryList(FileEntries, QDir::Unsorted);
    for (const QString& name : names) {
        allCopied &= CopyFileOverwrite(name, sourceDir, destDir);
    }
    return allCopied;
}

bool FileUtils::copyRecursively(const QString& source, const QString& destination)
{
    return copyTree(source, destination, nullptr);
}

bool FileUtils::CopyRecursivelyOverwrite(const QString& source, const QString& destination,
                                         const QStringList& nameFilters)
{
    return copyTreeOver(source, destination, nameFilters, nullptr);
}

bool FileUtils::removeDir(const QString& path)
{
    QDir dir(path);
    if (!dir.exists(path)) {
        return true;
    }
    // With a separator or a point at its end, the name of a link would stand for what it leads to.
    const QFileInfo info(QDir::cleanPath(path));
    if (info.isDir() && info.isSymLink()) {
        return QFile::remove(info.filePath());
    }
    const QFileInfoList entries = dir.entryInfoList(EntriesToRemove, QDir::DirsFirst);
    for (const QFileInfo& entry : entries) {
        const QString entryPath = entry.absoluteFilePath();
        const bool removed =
            entry.isDir() && !entry.isSymLink() ? removeDir(entryPath) : QFile::remove(entryPath);
        if (!removed) {
            return false;
        }
    }
    return dir.rmdir(path);
}

bool FileUtils::CreateFile(QString path, QString text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QTextStream stream(&file);
    stream << text;
    stream.flush();
    syncToMedium(file);
    file.close();
    return true;
}

QString FileUtils::ReadFile(QString path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return QString();
    }
    QTextStream stream(&file);
    return stream.readLine();
}

bool FileUtils::WriteFile(QString path, QString text, QByteArray data, bool binary)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return false;
    }
    if (binary) {
        file.write(data);
    } else {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        stream << text;
        stream.flush();
    }
    syncToMedium(file);
    file.close();
    return true;
}

} // namespace Brimvale
