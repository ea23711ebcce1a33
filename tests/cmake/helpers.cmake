# SPDX-License-Identifier: BSD-3-Clause
#
# Every helper refuses a call that it does not understand, and says what is wrong with it. Run as
#
#   cmake -DSOURCE_DIR=<repository> -DWORK_DIR=<directory> -P helpers.cmake

# Runs <call> with the helpers loaded and expects it to stop with <message>.
function(expect_refusal call message)
    string(MD5 id "${call}")
    set(script "${WORK_DIR}/${id}.cmake")
    file(WRITE "${script}" "
        set(CMAKE_BINARY_DIR ${WORK_DIR}/build)
        include(${SOURCE_DIR}/cmake/BrimvaleAddTest.cmake)
        include(${SOURCE_DIR}/cmake/BrimvaleAddPlugin.cmake)
        include(${SOURCE_DIR}/cmake/BrimvaleAddBenchmark.cmake)
        ${call}")
    execute_process(COMMAND "${CMAKE_COMMAND}" -P "${script}" WORKING_DIRECTORY "${WORK_DIR}"
        RESULT_VARIABLE result ERROR_VARIABLE error OUTPUT_QUIET)
    # Long messages are wrapped.
    string(REGEX REPLACE "[ \n]+" " " error "${error}")
    string(FIND "${error}" "${message}" position)
    if(result EQUAL 0 OR position EQUAL -1)
        message(SEND_ERROR "${call}\n  expected: ${message}\n  result ${result}: ${error}")
    endif()
endfunction()

file(MAKE_DIRECTORY "${WORK_DIR}")
file(WRITE "${WORK_DIR}/a.cpp" "")
file(WRITE "${WORK_DIR}/a.json" "{}")
file(WRITE "${WORK_DIR}/list.json" "[]")
file(WRITE "${WORK_DIR}/broken.json" "{")

expect_refusal("brimvale_add_test(NAME t SOURCES a.cpp LIBS x)"
    "brimvale_add_test(NAME t): there is no file ${WORK_DIR}/LIBS")
expect_refusal("brimvale_add_test(t SOURCES a.cpp)" "brimvale_add_test: unknown arguments: t")
expect_refusal("brimvale_add_test(SOURCES a.cpp)" "brimvale_add_test: the argument NAME is missing")
expect_refusal("brimvale_add_test(NAME t)" "brimvale_add_test: the argument SOURCES is missing")
expect_refusal("brimvale_add_test(NAME t SOURCES a.cpp LIBRARIES)"
    "brimvale_add_test: these keywords need a value: LIBRARIES")
expect_refusal("brimvale_add_test(NAME t SOURCES b.cpp)" "there is no file ${WORK_DIR}/b.cpp")
expect_refusal("brimvale_set_test_properties(t LABEL x)"
    "brimvale_set_test_properties: unknown arguments: LABEL x")

expect_refusal("brimvale_add_plugin(p SOURCES a.cpp)" "brimvale_add_plugin(p): the argument METADATA is missing")
expect_refusal("brimvale_add_plugin(p METADATA a.json)" "brimvale_add_plugin(p): the argument SOURCES is missing")
expect_refusal("brimvale_add_plugin(p a.cpp METADATA a.json)" "brimvale_add_plugin(p): unknown arguments: a.cpp")
expect_refusal("brimvale_add_plugin(p SOURCES a.cpp METADATA)"
    "brimvale_add_plugin(p): these keywords need a value: METADATA")
expect_refusal("brimvale_add_plugin(p SOURCES a.cpp METADATA b.json)" "there is no file ${WORK_DIR}/b.json")
expect_refusal("brimvale_add_plugin(p SOURCES a.cpp METADATA a.json TRANSLATIONS p_de.ts)"
    "there is no file ${WORK_DIR}/p_de.ts")
expect_refusal("brimvale_add_plugin(p SOURCES a.cpp METADATA list.json)"
    "${WORK_DIR}/list.json is no JSON object")
expect_refusal("brimvale_add_plugin(p SOURCES a.cpp METADATA broken.json)"
    "${WORK_DIR}/broken.json is no JSON object")

expect_refusal("brimvale_embed_translations(p)" "brimvale_embed_translations(p): no .ts file is given")
expect_refusal("brimvale_embed_translations(p p_de.ts)" "there is no file ${WORK_DIR}/p_de.ts")

expect_refusal("brimvale_add_benchmark(NAME b)" "brimvale_add_benchmark: the argument SOURCES is missing")
expect_refusal("brimvale_add_benchmark(NAME bench_b SOURCES a.cpp TIMEOUT 3)"
    "there is no file ${WORK_DIR}/TIMEOUT")
expect_refusal("brimvale_add_benchmark(NAME b SOURCES a.cpp)" "the name b does not begin with bench_")
