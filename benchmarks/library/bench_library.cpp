// SPDX-License-Identifier: BSD-3-Clause

// What the library itself costs, beside a library on Qt Core that does nothing: its size on the medium, what the
// dynamic linker has to adjust in it, and how long it takes until it is loaded.

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <unistd.h>

namespace
{

const char* const Ours = BRIMVALE_STRIPPED_LIBRARY;
const char* const Empty = BRIMVALE_EMPTY_LIBRARY;

QByteArray contents(const char* path)
{
    QFile file(QFile::decodeName(path));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// A record of the file; zero where it lies outside.
template <typename Record>
Record recordAt(const QByteArray& file, quint64 offset)
{
    Record record = {};
    if (offset + sizeof(record) <= quint64(file.size()))
        std::memcpy(&record, file.constData() + offset, sizeof(record));
    return record;
}

// The relocations of a library.
int countRelocations(const char* path)
{
    const QByteArray file = contents(path);
    const auto header = recordAt<ElfW(Ehdr)>(file, 0);
    int count = 0;
    for (int i = 0; i < header.e_shnum; ++i) {
        const auto section = recordAt<ElfW(Shdr)>(file, header.e_shoff + quint64(i) * header.e_shentsize);
        if ((section.sh_type == SHT_RELA || section.sh_type == SHT_REL) && section.sh_entsize != 0)
            count += int(section.sh_size / section.sh_entsize);
    }
    return count;
}

void report(benchmark::State& state, double figure, const char* unit)
{
    for (auto _ : state)
        benchmark::ClobberMemory();
    if (figure <= 0) {
        state.SkipWithError("the library cannot be read");
        return;
    }
    state.counters["figure"] = figure;
    state.SetLabel(unit);
}

void size(benchmark::State& state, const char* path)
{
    report(state, contents(path).size(), "bytes");
}
BENCHMARK_CAPTURE(size, ours, Ours)->Name("Library: stripped size/ours")->Iterations(1);
BENCHMARK_CAPTURE(size, empty, Empty)->Name("Library: stripped size/limit:empty library")->Iterations(1);

void relocations(benchmark::State& state, const char* path)
{
    report(state, countRelocations(path), "relocations");
}
BENCHMARK_CAPTURE(relocations, ours, Ours)->Name("Library: relocations/ours")->Iterations(1);
BENCHMARK_CAPTURE(relocations, empty, Empty)->Name("Library: relocations/limit:empty library")->Iterations(1);

// The time that a process takes to load the library with all that it needs, in seconds; 0 if it cannot.
double loadTime(const QString& library)
{
    QProcess loader;
    loader.start(QStringLiteral(BRIMVALE_LIBRARY_LOADER), {library});
    if (!loader.waitForFinished() || loader.exitStatus() != QProcess::NormalExit || loader.exitCode() != 0)
        return 0;
    return loader.readAllStandardOutput().trimmed().toDouble() * 1e-9;
}

// Drops the file from the page cache, so that it is read from the medium.
bool forget(const QString& path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool isForgotten = ::fdatasync(file) == 0 && ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED) == 0;
    ::close(file);
    return isForgotten;
}

void load(benchmark::State& state, const char* path, bool isFirst)
{
    // A copy of its own, which no other process holds in memory.
    const QTemporaryDir room;
    const QString library = room.filePath(QStringLiteral("library.so"));
    if (!room.isValid() || !QFile::copy(QFile::decodeName(path), library) || loadTime(library) == 0) {
        state.SkipWithError("the library cannot be copied and loaded");
        return;
    }
    for (auto _ : state) {
        if (isFirst && !forget(library)) {
            state.SkipWithError("the library stays in the page cache");
            return;
        }
        const double seconds = loadTime(library);
        if (seconds == 0) {
            state.SkipWithError("the library cannot be loaded");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK_CAPTURE(load, oursFirst, Ours, true)
    ->Name("Library: first load/ours")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, emptyFirst, Empty, true)
    ->Name("Library: first load/limit:empty library")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, oursWarm, Ours, false)
    ->Name("Library: warm load/ours")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, emptyWarm, Empty, false)
    ->Name("Library: warm load/limit:empty library")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();

} // namespace
