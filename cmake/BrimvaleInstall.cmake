# SPDX-License-Identifier: BSD-3-Clause
#
# What is installed: the library, its logger, the terminal and the SDK (headers, test kit, CMake package,
# pkg-config file). Nothing installed knows the prefix, so that the prefix can be moved.

include(CMakePackageConfigHelpers)

if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR and CMAKE_INSTALL_INCLUDEDIR must be relative to the prefix: "
        "the installation is relocatable")
endif()

install(TARGETS SharedLibs EXPORT SharedLibsTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${BRIMVALE_INSTALL_INCLUDEDIR}")

if(TARGET QsLog)
    install(TARGETS QsLog EXPORT SharedLibsTargets
        LIBRARY DESTINATION "${BRIMVALE_INSTALL_PRIVATE_LIBDIR}"
        FILE_SET HEADERS DESTINATION "${BRIMVALE_INSTALL_QSLOG_INCLUDEDIR}")
    set(BRIMVALE_FIND_QSLOG "")
    set(BRIMVALE_PC_RPATH_LINK " -Wl,-rpath-link,\${libdir}/SharedLibs")
else()
    # The package then finds the installed QsLog on the machine where it is used.
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/FindQsLog.cmake" DESTINATION "${BRIMVALE_INSTALL_CMAKEDIR}")
    set(BRIMVALE_FIND_QSLOG "list(APPEND CMAKE_MODULE_PATH \"\${CMAKE_CURRENT_LIST_DIR}\")\nfind_dependency(QsLog)\n")
    set(BRIMVALE_PC_RPATH_LINK "")
endif()

if(TARGET BrimvaleTestKit)
    install(TARGETS BrimvaleTestKit EXPORT SharedLibsTargets
        ARCHIVE DESTINATION "${BRIMVALE_INSTALL_PRIVATE_LIBDIR}"
        FILE_SET HEADERS DESTINATION "${BRIMVALE_INSTALL_INCLUDEDIR}")
endif()

if(TARGET brimvale-terminal)
    install(TARGETS brimvale-terminal RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

install(EXPORT SharedLibsTargets NAMESPACE Brimvale:: DESTINATION "${BRIMVALE_INSTALL_CMAKEDIR}")
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/SharedLibsConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/sdk/SharedLibsConfig.cmake"
    INSTALL_DESTINATION "${BRIMVALE_INSTALL_CMAKEDIR}"
    PATH_VARS CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/sdk/SharedLibsConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/sdk/SharedLibsConfig.cmake"
    "${PROJECT_BINARY_DIR}/sdk/SharedLibsConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/BrimvaleAddPlugin.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/BrimvaleArguments.cmake"
    DESTINATION "${BRIMVALE_INSTALL_CMAKEDIR}")

file(RELATIVE_PATH BRIMVALE_PC_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" BRIMVALE_PC_PREFIX "${BRIMVALE_PC_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/SharedLibs.pc.in" "${PROJECT_BINARY_DIR}/sdk/SharedLibs.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/sdk/SharedLibs.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(FILES "${PROJECT_SOURCE_DIR}/LICENSES/BSD-3-Clause.txt" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
