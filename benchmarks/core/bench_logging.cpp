// SPDX-License-Identifier: BSD-3-Clause

// What a log statement costs that is below the configured level. The library has one in every destructor.

#include "AllocationCount.h"
#include "core/Logging.h"

#include <atomic>
#include <spdlog/logger.h>
#include <spdlog/sinks/null_sink.h>

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
BENCHMARK(relaxedLoadAndBranch)->Name("Logger level check/limit:relaxed load and branch");

void levelCheck(benchmark::State& state)
{
    silence();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        if (QsLogging::Logger::instance().loggingLevel() <= QsLogging::TraceLevel) {
            state.SkipWithError("the statement is enabled");
            break;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(levelCheck)->Name("Logger level check/ours");

void disabledStatementOfTheLogger(benchmark::State& state)
{
    silence();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        QLOG_TRACE() << "Class::Operation" << text();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disabledStatementOfTheLogger)->Name("Disabled log statement/limit:the logger's own macro");

void disabledStatementOfTheLibrary(benchmark::State& state)
{
    silence();
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        BRIMVALE_LOG_TRACE("Class::Operation" << text());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disabledStatementOfTheLibrary)->Name("Disabled log statement/ours");

// Its arguments must be texts of the standard library, but they are not looked at here.
void disabledStatementOfSpdlog(benchmark::State& state)
{
    spdlog::logger logger("benchmark", std::make_shared<spdlog::sinks::null_sink_st>());
    logger.set_level(spdlog::level::warn);
    const std::string value = "a text that nobody reads";
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state) {
        logger.trace("Class::Operation {}", value);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disabledStatementOfSpdlog)->Name("Disabled log statement/peer:spdlog");

void ignoreLine(const QString&, QsLogging::Level) { }

void enabledStatement(benchmark::State& state)
{
    silence();
    QsLogging::Logger::instance().addDestination(
        QsLogging::DestinationFactory::MakeFunctorDestination(ignoreLine));
    const AllocationCount::Reporter reporter(state);
    for (auto _ : state)
        BRIMVALE_LOG_WARN("Class::Operation" << text());
    QsLogging::Logger::destroyInstance();
}
BENCHMARK(enabledStatement)->Name("Written log line/ours");

} // namespace
