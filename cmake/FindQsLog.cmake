# SPDX-License-Identifier: BSD-3-Clause
#
# Finds an installed QsLog. The cache or environment variable QSLOG_ROOT names its prefix.
#
#   QsLog_FOUND        whether header and library were found
#   QsLog::QsLog       the imported target

set(QSLOG_ROOT "$ENV{QSLOG_ROOT}" CACHE PATH "Prefix of an installed QsLog (empty: the usual paths)")

find_path(QsLog_INCLUDE_DIR NAMES QsLog.h
    HINTS "${QSLOG_ROOT}" PATH_SUFFIXES include include/QsLog QsLog)
find_library(QsLog_LIBRARY NAMES QsLog
    HINTS "${QSLOG_ROOT}" PATH_SUFFIXES lib "lib/${CMAKE_LIBRARY_ARCHITECTURE}")
mark_as_advanced(QsLog_INCLUDE_DIR QsLog_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(QsLog REQUIRED_VARS QsLog_LIBRARY QsLog_INCLUDE_DIR)

# A root that was asked for and has no QsLog is a mistake, not a reason to take another logger.
if(QSLOG_ROOT AND NOT QsLog_FOUND)
    message(FATAL_ERROR "QSLOG_ROOT is ${QSLOG_ROOT}, but there is no QsLog.h and libQsLog below it")
endif()

if(QsLog_FOUND AND NOT TARGET QsLog::QsLog)
    add_library(QsLog::QsLog UNKNOWN IMPORTED GLOBAL)
    set_target_properties(QsLog::QsLog PROPERTIES
        IMPORTED_LOCATION "${QsLog_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${QsLog_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES Qt5::Core)
endif()
