# SPDX-License-Identifier: BSD-3-Clause

include("${CMAKE_CURRENT_LIST_DIR}/BrimvaleArguments.cmake")

# Builds a fuzzer from <folder>/fuzz_<name>.cpp, which defines LLVMFuzzerTestOneInput().
#
#   brimvale_add_fuzzer(NAME <folder>/<name> [SOURCES <file>...] [LIBRARIES <target>...] [INCLUDE_DIRECTORIES <dir>...])
#
# Brimvale::SharedLibs is linked always. With BRIMVALE_BUILD_FUZZERS it is a libFuzzer executable, which `make fuzz`
# runs, and part of the target "fuzzers". Otherwise it is a test that replays the seeds in <folder>/corpus/<name> and
# what was ever found, in <folder>/findings/<name>.
function(brimvale_add_fuzzer)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;LIBRARIES;INCLUDE_DIRECTORIES")
    brimvale_refuse_bad_arguments(brimvale_add_fuzzer)
    brimvale_require_arguments(brimvale_add_fuzzer NAME)
    cmake_path(GET arg_NAME PARENT_PATH folder)
    cmake_path(GET arg_NAME FILENAME name)
    set(sources "${folder}/fuzz_${name}.cpp" ${arg_SOURCES})
    brimvale_require_files("brimvale_add_fuzzer(NAME ${arg_NAME})" ${sources})

    add_executable(fuzz_${name} ${sources})
    target_link_libraries(fuzz_${name} PRIVATE Brimvale::SharedLibs ${arg_LIBRARIES})
    target_include_directories(fuzz_${name} PRIVATE "${PROJECT_SOURCE_DIR}/fuzz" ${arg_INCLUDE_DIRECTORIES})
    if(BRIMVALE_BUILD_FUZZERS)
        target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer-no-link)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
        if(NOT TARGET fuzzers)
            add_custom_target(fuzzers)
        endif()
        add_dependencies(fuzzers fuzz_${name})
        return()
    endif()

    if(NOT TARGET fuzz_replay)
        add_library(fuzz_replay STATIC "${PROJECT_SOURCE_DIR}/fuzz/replay.cpp")
        target_link_libraries(fuzz_replay PUBLIC Qt5::Core)
    endif()
    target_link_libraries(fuzz_${name} PRIVATE fuzz_replay)
    set(folders "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/corpus/${name}")
    file(GLOB findings CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/findings/${name}/*")
    if(findings)
        list(APPEND folders "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/findings/${name}")
    endif()
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} ${folders})
    brimvale_set_test_properties(fuzz_${name} LABELS ${folder})
endfunction()
