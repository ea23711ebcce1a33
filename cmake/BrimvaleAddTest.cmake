# SPDX-License-Identifier: BSD-3-Clause

include("${CMAKE_CURRENT_LIST_DIR}/BrimvaleArguments.cmake")

# What every test sees: no display, one locale (texts of the system and file names in UTF-8), and no settings
# of whoever runs it.
set(BRIMVALE_TEST_ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen"
    "QT_QUICK_BACKEND=software"
    "LC_ALL=C.UTF-8"
    "QT_LOGGING_RULES="
    # A test may run on a machine on which what takes a moment on a terminal takes long.
    "BRIMVALE_BLOCKED_LIMIT_MS=600000"
    "XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-home/config"
    "XDG_DATA_HOME=${CMAKE_BINARY_DIR}/test-home/data"
    "XDG_CACHE_HOME=${CMAKE_BINARY_DIR}/test-home/cache")

if(CMAKE_CROSSCOMPILING)
    # Tests leave out what an emulator cannot do.
    list(APPEND BRIMVALE_TEST_ENVIRONMENT "BRIMVALE_EMULATED=1"
        # The search for QML modules does not follow the emulator into the sysroot.
        "QML2_IMPORT_PATH=${CMAKE_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/qt5/qml")
endif()

set(BRIMVALE_TEST_TIMEOUT_FACTOR 1 CACHE STRING "What time-outs of tests are multiplied by, where an instrument slows them")

# Sets the environment, the labels and the time-out of a test made with add_test().
#
#   brimvale_set_test_properties(<name> [LABELS <label>...] [ENVIRONMENT <NAME=value>...] [TIMEOUT <seconds>])
function(brimvale_set_test_properties name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "LABELS;ENVIRONMENT")
    brimvale_refuse_bad_arguments(brimvale_set_test_properties)
    if(NOT DEFINED arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    math(EXPR timeout "${arg_TIMEOUT} * ${BRIMVALE_TEST_TIMEOUT_FACTOR}")
    # The folder below tests/ is a label, so that `ctest -L core` runs one subsystem.
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${BRIMVALE_TEST_ENVIRONMENT};${arg_ENVIRONMENT}"
        LABELS "${folder};${arg_LABELS}"
        TIMEOUT ${timeout})
endfunction()

option(BRIMVALE_PRECOMPILE_QTTEST "Precompile <QtTest> for the tests, which is most of the work on a short one" ON)

# Has a test use the <QtTest> that is compiled once: for those of the terminal, where Qt Gui and Network add to what it
# declares, and for those that link Qt Core alone. The few others compile it each. (A wrong choice is an error:
# -Winvalid-pch.)
function(brimvale_precompile_qttest test)
    get_target_property(linked ${test} LINK_LIBRARIES)
    if(NOT BRIMVALE_PRECOMPILE_QTTEST OR linked MATCHES "Qt5::(Gui|Network|QuickTest)")
        return()
    endif()
    set(precompiled brimvale_qttest)
    set(libraries Qt5::Test)
    if("terminal_core" IN_LIST linked)
        find_package(Qt5 5.15 REQUIRED COMPONENTS Gui Network)
        string(APPEND precompiled _terminal)
        list(APPEND libraries Qt5::Gui Qt5::Network)
    endif()
    if(NOT TARGET ${precompiled})
        set(source "${CMAKE_BINARY_DIR}/${precompiled}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "// Is compiled for its precompiled header.\n")
        add_library(${precompiled} OBJECT EXCLUDE_FROM_ALL "${source}")
        target_link_libraries(${precompiled} PRIVATE ${libraries})
        target_precompile_headers(${precompiled} PRIVATE <QtTest>)
    endif()
    target_precompile_headers(${test} REUSE_FROM ${precompiled})
    # Without it ccache cannot tell what a source consists of.
    target_compile_options(${test} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

# Builds a QtTest executable and registers it with CTest.
#
#   brimvale_add_test(NAME <name> SOURCES <file>... [LIBRARIES <target>...] [INCLUDE_DIRECTORIES <dir>...]
#                     [DEFINITIONS <NAME=value>...] [DEPENDS <target>...] [LABELS <label>...]
#                     [ENVIRONMENT <NAME=value>...] [TIMEOUT <seconds>])
#
# Qt5::Test and Brimvale::SharedLibs are linked always. DEPENDS names targets that the test uses at run time
# (a plug-in it loads, a program it starts). The time-out is 120 seconds unless stated.
function(brimvale_add_test)
    cmake_parse_arguments(PARSE_ARGV 0 arg ""
        "NAME;TIMEOUT"
        "SOURCES;LIBRARIES;INCLUDE_DIRECTORIES;DEFINITIONS;DEPENDS;LABELS;ENVIRONMENT")
    brimvale_refuse_bad_arguments(brimvale_add_test)
    brimvale_require_arguments(brimvale_add_test NAME SOURCES)
    brimvale_require_files("brimvale_add_test(NAME ${arg_NAME})" ${arg_SOURCES})

    find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
    add_executable(${arg_NAME} ${arg_SOURCES})
    set_target_properties(${arg_NAME} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(${arg_NAME} PRIVATE Brimvale::SharedLibs ${arg_LIBRARIES} Qt5::Test)
    target_include_directories(${arg_NAME} PRIVATE ${arg_INCLUDE_DIRECTORIES})
    target_compile_definitions(${arg_NAME} PRIVATE ${arg_DEFINITIONS})
    brimvale_precompile_qttest(${arg_NAME})
    if(arg_DEPENDS)
        add_dependencies(${arg_NAME} ${arg_DEPENDS})
    endif()

    add_test(NAME ${arg_NAME} COMMAND ${arg_NAME})
    set(forwarded)
    foreach(keyword IN ITEMS LABELS ENVIRONMENT TIMEOUT)
        if(DEFINED arg_${keyword})
            list(APPEND forwarded ${keyword} ${arg_${keyword}})
        endif()
    endforeach()
    brimvale_set_test_properties(${arg_NAME} ${forwarded})
endfunction()
