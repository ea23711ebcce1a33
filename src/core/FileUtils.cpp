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
    if (fileExists(source) && !isSameFile(source, destination)) {
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
    return CopyFileOverwrite(sourceDir + QLatin1Char('/') + fileName, destDir + QLatin1Char('/') + fileName);
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
    if (!QFileInfo(source).isDir()) {
        return copyFile(source, destination);
    }
    if (!makeDir(destination)) {
        return false;
    }
    const QStringList names = QDir(source).entryList(AllEntries, QDir::Unsorted);
    for (const QString& name : names) {
        if (!copyRecursively(source + QLatin1Char('/') + name, destination + QLatin1Char('/') + name)) {
            return false;
        }
    }
    return true;
}

bool FileUtils::CopyRecursivelyOverwrite(const QString& source, const QString& destination,
                                         const QStringList& nameFilters)
{
    if (!QFileInfo(source).isDir()) {
        const bool isOntoItself = isSameFile(source, destination);
        if (!isOntoItself && fileExists(destination) && !QFile::remove(destination)) {
            BRIMVALE_LOG_TRACE("could not remove old file " << destination);
            return false;
        }
        if (isOntoItself || !copyFile(source, destination)) {
            BRIMVALE_LOG_TRACE("could not copy file " << source);
            return false;
        }
        BRIMVALE_LOG_TRACE("copied file" << source);
        return true;
    }

    if (!dirExists(destination)) {
        if (!makeDir(destination)) {
            BRIMVALE_LOG_TRACE("could not create dir " << destination);
            return false;
        }
        BRIMVALE_LOG_TRACE("created dir " << destination);
    }
    const QStringList names = QDir(source).entryList(nameFilters, AllEntries, QDir::Unsorted);
    for (const QString& name : names) {
        if (!CopyRecursivelyOverwrite(source + QLatin1Char('/') + name, destination + QLatin1Char('/') + name,
                                      nameFilters)) {
            return false;
        }
    }
    return true;
}

bool FileUtils::removeDir(const QString& path)
{
    QDir dir(path);
    if (!dir.exists(path)) {
        return true;
    }
    if (QFileInfo(path).isSymLink()) {
        return QFile::remove(path);
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
