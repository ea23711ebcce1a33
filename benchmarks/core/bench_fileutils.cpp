// SPDX-License-Identifier: BSD-3-Clause

// Copying what a plug-in exports: many small files, and a large one. The medium is that of the temporary directory
// (TMPDIR). BRIMVALE_BENCHMARK_SHORT in the environment makes everything small.

#include "FileUtils.h"

#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using Brimvale::FileUtils;

namespace
{

bool isShort()
{
    return qEnvironmentVariableIsSet("BRIMVALE_BENCHMARK_SHORT");
}

// A tree to copy, and room for its copies beside it.
class Workload
{
public:
    Workload(int directories, int filesPerDirectory, int fileSize)
        : m_files(directories * filesPerDirectory)
        , m_bytes(qint64(m_files) * fileSize)
        , m_isComplete(m_room.isValid() && fill(directories, filesPerDirectory, fileSize))
    {
    }

    bool isComplete() const { return m_isComplete; }
    QString source() const { return m_room.filePath(QStringLiteral("source")); }
    qint64 bytes() const { return m_bytes; }

    /// Where nothing is yet. Copies of many files stay until the end of the program: a file system that does not use
    /// again what was removed a moment ago (ext4) would search ever longer for room.
    QString nextCopy()
    {
        if (m_files == 1 && !m_copy.isEmpty())
            QFile::remove(m_copy + QStringLiteral("/0/file 0"));
        m_copy = m_room.filePath(QStringLiteral("copy %1").arg(++m_copies));
        return m_copy;
    }

    /// Until the medium has nothing more to do.
    void waitForMedium() const
    {
        const int room =
            ::open(QFile::encodeName(m_room.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (room >= 0) {
            ::syncfs(room);
            ::close(room);
        }
    }

    bool isCopied() const
    {
        int files = 0;
        qint64 bytes = 0;
        QDirIterator entries(m_copy, QDir::Files, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            bytes += QFileInfo(entries.next()).size();
            ++files;
        }
        return files == m_files && bytes == m_bytes;
    }

private:
    bool fill(int directories, int filesPerDirectory, int fileSize) const
    {
        QByteArray content(fileSize, '\0');
        for (int i = 0; i < fileSize; ++i)
            content[i] = char(i % 251);
        for (int d = 0; d < directories; ++d) {
            const QDir directory(source() + QStringLiteral("/%1").arg(d));
            if (!QDir().mkpath(directory.path()))
                return false;
            for (int f = 0; f < filesPerDirectory; ++f) {
                QFile file(directory.filePath(QStringLiteral("file %1").arg(f)));
                if (!file.open(QIODevice::WriteOnly) || file.write(content) != fileSize)
                    return false;
            }
        }
        return true;
    }

    const QTemporaryDir m_room;
    const int m_files;
    const qint64 m_bytes;
    const bool m_isComplete;
    QString m_copy;
    int m_copies = 0;
};

Workload& smallFiles()
{
    static Workload workload(20, isShort() ? 1 : 100, 4000);
    return workload;
}

Workload& largeFile()
{
    static Workload workload(1, 1, isShort() ? 2000000 : 200000000);
    return workload;
}

bool copyWithLibrary(const QString& source, const QString& destination)
{
    return FileUtils().CopyRecursivelyOverwrite(source, destination, {});
}

bool copyWithProgram(const QString& source, const QString& destination)
{
    QByteArray from = QFile::encodeName(source);
    QByteArray to = QFile::encodeName(destination);
    char program[] = "cp";
    char option[] = "-a";
    char* arguments[] = {program, option, from.data(), to.data(), nullptr};
    pid_t process = 0;
    int status = -1;
    return ::posix_spawnp(&process, program, nullptr, nullptr, arguments, environ) == 0
           && ::waitpid(process, &status, 0) == process && status == 0;
}

// The plain way with Qt, which waits for the medium at every file.
bool copyWithQt(const QString& source, const QString& destination)
{
    bool isCopied = QDir().mkdir(destination);
    const QDir from(source);
    QDirIterator entries(source, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString entry = entries.next();
        const QString copy = destination + QLatin1Char('/') + from.relativeFilePath(entry);
        isCopied &= entries.fileInfo().isDir() ? QDir().mkdir(copy) : QFile::copy(entry, copy);
    }
    return isCopied;
}

using Copy = bool (*)(const QString&, const QString&);
using MakeWorkload = Workload& (*)();

void copyTree(benchmark::State& state, MakeWorkload makeWorkload, Copy copy)
{
    Workload& workload = makeWorkload();
    if (!workload.isComplete()) {
        state.SkipWithError("the files to copy could not be made");
        return;
    }
    const QString source = workload.source();
    bool isCopied = true;
    for (auto _ : state) {
        const QString destination = workload.nextCopy();
        workload.waitForMedium();
        const auto start = std::chrono::steady_clock::now();
        isCopied &= copy(source, destination);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(time.count());
    }
    if (!isCopied || !workload.isCopied())
        state.SkipWithError("the copy is not complete");
    state.SetBytesProcessed(int64_t(state.iterations()) * workload.bytes());
}

void add(const char* name, MakeWorkload workload, Copy copy)
{
    benchmark::RegisterBenchmark(name, copyTree, workload, copy)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool areAdded = [] {
    add("FileUtils::CopyRecursivelyOverwrite, small files/ours", smallFiles, copyWithLibrary);
    add("FileUtils::CopyRecursivelyOverwrite, small files/limit:cp -a", smallFiles, copyWithProgram);
    add("FileUtils::CopyRecursivelyOverwrite, small files/peer:QFile::copy", smallFiles, copyWithQt);
    add("FileUtils::CopyRecursivelyOverwrite, large file/ours", largeFile, copyWithLibrary);
    add("FileUtils::CopyRecursivelyOverwrite, large file/limit:cp -a", largeFile, copyWithProgram);
    add("FileUtils::CopyRecursivelyOverwrite, large file/peer:QFile::copy", largeFile, copyWithQt);
    return true;
}();

} // namespace
