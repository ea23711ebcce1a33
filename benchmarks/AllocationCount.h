// SPDX-License-Identifier: BSD-3-Clause

#ifndef BRIMVALE_BENCHMARKS_ALLOCATIONCOUNT_H
#define BRIMVALE_BENCHMARKS_ALLOCATIONCOUNT_H

/// \file
/// Counts what a benchmark allocates, in Qt and in the library too: the benchmark's malloc() stands in for that of the
/// C library (glibc) in the whole process. Include it in one source file of an executable, which has one thread.

#include <benchmark/benchmark.h>
#include <cstddef>

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

namespace AllocationCount
{
inline long total = 0;

/// Reports the allocations since it was made as a counter of the benchmark, per iteration.
class Reporter
{
public:
    explicit Reporter(benchmark::State& state)
        : m_state(state)
        , m_before(total)
    {
    }
    ~Reporter()
    {
        m_state.counters["allocations"] =
            benchmark::Counter(double(total - m_before), benchmark::Counter::kAvgIterations);
    }
    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;

private:
    benchmark::State& m_state;
    const long m_before;
};

} // namespace AllocationCount

extern "C" __attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    ++AllocationCount::total;
    return __libc_malloc(size);
}

extern "C" __attribute__((visibility("default"))) void* realloc(void* block, std::size_t size)
{
    ++AllocationCount::total;
    return __libc_realloc(block, size);
}

#endif // BRIMVALE_BENCHMARKS_ALLOCATIONCOUNT_H
