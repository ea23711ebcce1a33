# SPDX-License-Identifier: BSD-3-Clause
#
# Where things are installed, relative to the prefix, so that the prefix can be moved.

include(GNUInstallDirs)

set(BRIMVALE_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/SharedLibs")
set(BRIMVALE_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/SharedLibs")
# Libraries and plug-ins of our own that must not stand among the system's: the logger would shadow a real QsLog.
set(BRIMVALE_INSTALL_PRIVATE_LIBDIR "${CMAKE_INSTALL_LIBDIR}/SharedLibs")
set(BRIMVALE_INSTALL_PLUGINDIR "${BRIMVALE_INSTALL_PRIVATE_LIBDIR}/plugins")
set(BRIMVALE_INSTALL_QSLOG_INCLUDEDIR "${BRIMVALE_INSTALL_INCLUDEDIR}/QsLog")

# Sets <variable> to the RPATH which lets a binary installed in <directory> find the library and the logger.
function(brimvale_install_rpath variable directory)
    set(rpath)
    foreach(target_directory IN ITEMS "${CMAKE_INSTALL_LIBDIR}" "${BRIMVALE_INSTALL_PRIVATE_LIBDIR}")
        file(RELATIVE_PATH relative "/prefix/${directory}" "/prefix/${target_directory}")
        string(REGEX REPLACE "/$" "" relative "$ORIGIN/${relative}")
        list(APPEND rpath "${relative}")
    endforeach()
    set(${variable} "${rpath}" PARENT_SCOPE)
endfunction()
