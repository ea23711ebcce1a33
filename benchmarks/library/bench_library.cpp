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

// What a library costs in a process.
struct Costs
{
    quint64 text = 0; // never written: shared by all processes
    quint64 data = 0; // written at least by the dynamic linker
    quint64 bss = 0;
    int relative = 0; // relocations that need the library's address alone
    int symbolic = 0; // relocations that look a name up
};

Costs costsOf(const char* path)
{
    const QByteArray file = contents(path);
    const auto header = recordAt<ElfW(Ehdr)>(file, 0);
    Costs costs;
    for (int i = 0; i < header.e_shnum; ++i) {
        const auto section = recordAt<ElfW(Shdr)>(file, header.e_shoff + quint64(i) * header.e_shentsize);
        if ((section.sh_flags & SHF_ALLOC) == 0)
            continue;
        quint64& kind = section.sh_type == SHT_NOBITS         ? costs.bss
                        : (section.sh_flags & SHF_WRITE) != 0 ? costs.data
                                                              : costs.text;
        kind += section.sh_size;
        if ((section.sh_type != SHT_RELA && section.sh_type != SHT_REL) || section.sh_entsize == 0)
            continue;
        for (quint64 at = 0; at + section.sh_entsize <= section.sh_size; at += section.sh_entsize) {
            // Both forms begin alike.
            const auto relocation = recordAt<ElfW(Rel)>(file, section.sh_offset + at);
            const bool hasSymbol =
                (sizeof(void*) == 8 ? quint64(relocation.r_info) >> 32 : relocation.r_info >> 8) != 0;
            ++(hasSymbol ? costs.symbolic : costs.relative);
        }
    }
    return costs;
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

template <typename Number>
void cost(benchmark::State& state, const char* path, Number Costs::*part, const char* unit)
{
    report(state, double(costsOf(path).*part), unit);
}
#define COST(part, name, unit)                                                                               \
    BENCHMARK_CAPTURE(cost, ours_##part, Ours, &Costs::part, unit)->Name(name "/ours")->Iterations(1);       \
    BENCHMARK_CAPTURE(cost, empty_##part, Empty, &Costs::part, unit)                                         \
        ->Name(name "/limit:empty library")                                                                  \
        ->Iterations(1)
COST(text, "Library: text", "bytes");
COST(data, "Library: data", "bytes");
COST(bss, "Library: bss", "bytes");
COST(relative, "Library: relative relocations", "relocations");
COST(symbolic, "Library: symbolic relocations", "relocations");
#undef COST

enum LoadKind
{
    FirstLoad, // read from the medium, with all that it needs
    WarmLoad,  // in memory, with all that it needs
    AloneLoad  // in memory, into a process that has all that it needs: what it adds to the start of a host
};

// The time that a process takes to load the library, in seconds; 0 if it cannot.
double loadTime(const QString& library, LoadKind kind)
{
    QProcess loader;
    QStringList arguments{library};
    if (kind == AloneLoad)
        arguments += {QStringLiteral("libQt5Core.so.5"), QStringLiteral(BRIMVALE_LOGGER_LIBRARY)};
    loader.start(QStringLiteral(BRIMVALE_LIBRARY_LOADER), arguments);
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

void load(benchmark::State& state, const char* path, LoadKind kind)
{
    // A copy of its own, which no other process holds in memory.
    const QTemporaryDir room;
    const QString library = room.filePath(QStringLiteral("library.so"));
    if (!room.isValid() || !QFile::copy(QFile::decodeName(path), library) || loadTime(library, kind) == 0) {
        state.SkipWithError("the library cannot be copied and loaded");
        return;
    }
    for (auto _ : state) {
        if (kind == FirstLoad && !forget(library)) {
            state.SkipWithError("the library stays in the page cache");
            return;
        }
        const double seconds = loadTime(library, kind);
        if (seconds == 0) {
            state.SkipWithError("the library cannot be loaded");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK_CAPTURE(load, oursFirst, Ours, FirstLoad)
    ->Name("Library: first load/ours")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, emptyFirst, Empty, FirstLoad)
    ->Name("Library: first load/limit:empty library")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, oursWarm, Ours, WarmLoad)
    ->Name("Library: warm load/ours")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, emptyWarm, Empty, WarmLoad)
    ->Name("Library: warm load/limit:empty library")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, oursAlone, Ours, AloneLoad)
    ->Name("Library: load beside Qt/ours")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(load, emptyAlone, Empty, AloneLoad)
    ->Name("Library: load beside Qt/limit:empty library")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();

} // namespace
