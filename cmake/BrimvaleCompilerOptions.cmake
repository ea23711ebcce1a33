# SPDX-License-Identifier: BSD-3-Clause
#
# Compiler options of everything that is built in this tree.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

option(CMAKE_COMPILE_WARNING_AS_ERROR "Warnings are errors" ON)

# Below build/ it serves all configurations of this tree and goes with `make clean`. The build directory is no part of
# what is compared, so that release and benchmark builds share the library's objects.
option(BRIMVALE_CCACHE "Compile through ccache, where it is installed" ON)
if(BRIMVALE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(CCACHE_PROGRAM ccache)
    mark_as_advanced(CCACHE_PROGRAM)
    if(CCACHE_PROGRAM)
        set(CMAKE_CXX_COMPILER_LAUNCHER env "CCACHE_DIR=${PROJECT_SOURCE_DIR}/build/ccache"
            "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1
            # What it asks for where headers are precompiled.
            CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE_PROGRAM}")
    endif()
endif()

add_compile_options(
    -Wall -Wextra -Wpedantic
    # A desktop with fused multiply-add must compute what the terminal's processor computes.
    -ffp-contract=off)

add_compile_definitions(
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_ASCII
    QT_DEPRECATED_WARNINGS
    QT_STRICT_ITERATORS)

# float-divide-by-zero is left out of the presets: the library relies on what IEEE 754 says of a division by zero.
set(BRIMVALE_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize= (address,undefined or thread)")
if(BRIMVALE_SANITIZE)
    add_compile_options(-fsanitize=${BRIMVALE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fsanitize=${BRIMVALE_SANITIZE})
else()
    # An undefined symbol is an error when a library is linked, not when a host loads it. (The sanitizers'
    # run-time libraries are resolved from the executable only, hence not with them.)
    add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,--no-undefined>)
endif()
