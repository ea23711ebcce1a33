// SPDX-License-Identifier: BSD-3-Clause

// What a log statement costs that is below the configured level. The library has one in every destructor.

#include "core/Logging.h"

#include <atomic>
#include <benchmark/benchmark.h>

namespace
{

// Something with a cost, so that a statement that formats it shows.
const QString& text()
{
    static const QString value = QStringLiteral("a text that nobody reads");
    return value;
}

void silence()
{
    QsLogging::Logger::destroyInstance();
    QsLogging::Logger::instance().setLoggingLevel(QsLogging::WarnLevel);
}

// The yardstick: a relaxed load of an integer and a branch.
void relaxedLoadAndBranch(benchmark::State& state)
{
    std::atomic<int> level{QsLogging::WarnLevel};
    benchmark::DoNotOptimize(level);
    for (auto _ : state) {
        if (level.load(std::memory_order_relaxed) <= QsLogging::TraceLevel) {
            state.SkipWithError("the statement is enabled");
            break;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(relaxedLoadAndBranch);

void levelCheck(benchmark::State& state)
{
    silence();
    for (auto _ : state) {
        if (QsLogging::Logger::instance().loggingLevel() <= QsLogging::TraceLevel) {
            state.SkipWithError("the statement is enabled");
            break;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(levelCheck);

void disabledStatementOfTheLogger(benchmark::State& state)
{
    silence();
    for (auto _ : state) {
        QLOG_TRACE() << "Class::Operation" << text();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disabledStatementOfTheLogger);

void disabledStatementOfTheLibrary(benchmark::State& state)
{
    silence();
    for (auto _ : state) {
        BRIMVALE_LOG_TRACE("Class::Operation" << text());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disabledStatementOfTheLibrary);

void ignoreLine(const QString&, QsLogging::Level) { }

void enabledStatement(benchmark::State& state)
{
    silence();
    QsLogging::Logger::instance().addDestination(
        QsLogging::DestinationFactory::MakeFunctorDestination(ignoreLine));
    for (auto _ : state)
        BRIMVALE_LOG_WARN("Class::Operation" << text());
    QsLogging::Logger::destroyInstance();
}
BENCHMARK(enabledStatement);

} // namespace
