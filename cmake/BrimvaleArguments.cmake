# SPDX-License-Identifier: BSD-3-Clause
#
# Checks shared by the helper functions: a misspelt or missing argument stops the configuration at once.

# Refuses what cmake_parse_arguments(PARSE_ARGV ... arg ...) did not understand, and keywords without a value.
macro(brimvale_refuse_bad_arguments function_name)
    if(arg_UNPARSED_ARGUMENTS)
        list(JOIN arg_UNPARSED_ARGUMENTS " " brimvale_joined)
        message(FATAL_ERROR "${function_name}: unknown arguments: ${brimvale_joined}")
    endif()
    if(arg_KEYWORDS_MISSING_VALUES)
        list(JOIN arg_KEYWORDS_MISSING_VALUES " " brimvale_joined)
        message(FATAL_ERROR "${function_name}: these keywords need a value: ${brimvale_joined}")
    endif()
endmacro()

# Refuses a call that lacks one of the given keywords.
macro(brimvale_require_arguments function_name)
    foreach(brimvale_keyword IN ITEMS ${ARGN})
        if(NOT DEFINED arg_${brimvale_keyword})
            message(FATAL_ERROR "${function_name}: the argument ${brimvale_keyword} is missing")
        endif()
    endforeach()
endmacro()

# Refuses files that do not exist. Relative names are taken from the caller's source directory; files that the
# build generates lie in the binary directory and pass.
function(brimvale_require_files function_name)
    foreach(file IN LISTS ARGN)
        if(file MATCHES "\\$<")
            continue()
        endif()
        get_filename_component(path "${file}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
        cmake_path(IS_PREFIX CMAKE_BINARY_DIR "${path}" NORMALIZE generated)
        if(NOT generated AND NOT EXISTS "${path}")
            message(FATAL_ERROR "${function_name}: there is no file ${path}")
        endif()
    endforeach()
endfunction()
