# SPDX-License-Identifier: BSD-3-Clause
#
# Compiles for the terminal's processor, 32-bit ARM, and runs tests in an emulator.
# BRIMVALE_ARM_SYSROOT names the folder that tools/arm-sysroot has made.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

# Without "..", since paths within the sysroot are recognised by their text.
get_filename_component(sysroot "${CMAKE_CURRENT_LIST_DIR}/../../build/arm/sysroot" ABSOLUTE)
set(BRIMVALE_ARM_SYSROOT "${sysroot}" CACHE PATH
    "Sysroot of the target, see tools/arm-sysroot")
if(NOT EXISTS "${BRIMVALE_ARM_SYSROOT}/.complete")
    message(FATAL_ERROR "There is no complete sysroot in ${BRIMVALE_ARM_SYSROOT}; run tools/arm-sysroot.")
endif()
# Checks of the compiler run in projects of their own and need it too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES BRIMVALE_ARM_SYSROOT)

set(CMAKE_SYSROOT "${BRIMVALE_ARM_SYSROOT}")
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

set(CMAKE_FIND_ROOT_PATH "${BRIMVALE_ARM_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ENV{PKG_CONFIG_SYSROOT_DIR} "${BRIMVALE_ARM_SYSROOT}")
set(ENV{PKG_CONFIG_LIBDIR}
    "${BRIMVALE_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${BRIMVALE_ARM_SYSROOT}/usr/share/pkgconfig")

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L "${BRIMVALE_ARM_SYSROOT}")
