// SPDX-License-Identifier: BSD-3-Clause

// Rounding runs for every displayed value of every reading.

#include "AllocationCount.h"
#include "Utility.h"

#include <array>
#include <cmath>
#include <cstddef>

using Brimvale::Utility;

namespace
{

constexpr int Decimals = 2;

// Weights between -200 g and 200 g, none of them round.
const std::array<double, 1024>& weights()
{
    static const auto values = [] {
        std::array<double, 1024> result{};
        for (std::size_t i = 0; i < result.size(); ++i)
            result[i] = std::sin(double(i)) * 200.0;
        return result;
    }();
    return values;
}

void roundToDecimals(benchmark::State& state)
{
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(Utility::Round(weights()[i++ % weights().size()], Decimals));
}
BENCHMARK(roundToDecimals)->Name("Utility::Round to decimals/ours");

void roundToWhole(benchmark::State& state)
{
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(Utility::Round(weights()[i++ % weights().size()]));
}
BENCHMARK(roundToWhole)->Name("Utility::Round to whole/ours");

// For comparison: rounding by formatting and reading the text back.
void roundByText(benchmark::State& state)
{
    std::size_t i = 0;
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            QByteArray::number(weights()[i++ % weights().size()], 'f', Decimals).toDouble());
}
BENCHMARK(roundByText)->Name("Utility::Round to decimals/peer:QByteArray::number and toDouble");

} // namespace
