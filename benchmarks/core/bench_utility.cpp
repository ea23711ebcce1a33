// SPDX-License-Identifier: BSD-3-Clause

// Rounding runs for every displayed value of every reading.

#include "Utility.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstddef>

using Brimvale::Utility;

namespace
{

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
    const int decimals = int(state.range(0));
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(Utility::Round(weights()[i++ % weights().size()], decimals));
}
BENCHMARK(roundToDecimals)->Arg(-2)->Arg(0)->Arg(2)->Arg(5);

void roundToWhole(benchmark::State& state)
{
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(Utility::Round(weights()[i++ % weights().size()]));
}
BENCHMARK(roundToWhole);

// For comparison: rounding by formatting and reading the text back.
void roundByText(benchmark::State& state)
{
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(QByteArray::number(weights()[i++ % weights().size()], 'f', 2).toDouble());
}
BENCHMARK(roundByText);

} // namespace
