# SPDX-License-Identifier: BSD-3-Clause

include("${CMAKE_CURRENT_LIST_DIR}/BrimvaleArguments.cmake")

# Builds a Google Benchmark executable and registers a short run of it with CTest, so that it never rots.
#
#   brimvale_add_benchmark(NAME <name> SOURCES <file>... [LIBRARIES <target>...] [INCLUDE_DIRECTORIES <dir>...])
#
# Brimvale::SharedLibs and Google Benchmark's main() are linked always. BRIMVALE_BENCHMARK_SHORT is set in the
# environment of the short run, for a benchmark that has to do less there. `make bench` runs every executable
# whose name begins with "bench_".
function(brimvale_add_benchmark)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;LIBRARIES;INCLUDE_DIRECTORIES")
    brimvale_refuse_bad_arguments(brimvale_add_benchmark)
    brimvale_require_arguments(brimvale_add_benchmark NAME SOURCES)
    if(NOT arg_NAME MATCHES "^bench_")
        message(FATAL_ERROR "brimvale_add_benchmark: the name ${arg_NAME} does not begin with bench_")
    endif()
    brimvale_require_files("brimvale_add_benchmark(NAME ${arg_NAME})" ${arg_SOURCES})

    add_executable(${arg_NAME} ${arg_SOURCES})
    set_target_properties(${arg_NAME} PROPERTIES AUTOMOC ON)
    target_link_libraries(${arg_NAME} PRIVATE Brimvale::SharedLibs ${arg_LIBRARIES} benchmark::benchmark_main)
    target_include_directories(${arg_NAME} PRIVATE ${arg_INCLUDE_DIRECTORIES})

    add_test(NAME ${arg_NAME} COMMAND ${arg_NAME} --benchmark_min_time=0.001)
    brimvale_set_test_properties(${arg_NAME} LABELS benchmark ENVIRONMENT "BRIMVALE_BENCHMARK_SHORT=1")
endfunction()
