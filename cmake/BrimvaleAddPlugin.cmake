# SPDX-License-Identifier: BSD-3-Clause

include("${CMAKE_CURRENT_LIST_DIR}/BrimvaleArguments.cmake")

# Builds a plug-in for the terminal.
#
#   brimvale_add_plugin(<name>
#                       SOURCES <file>...             C++ sources and headers
#                       METADATA <file.json>          what Q_PLUGIN_METADATA names in FILE
#                       [RESOURCES <file.qrc>...]     screens, pictures, menu files
#                       [TRANSLATIONS <file.ts>...]   compiled and embedded as :/translations/<file>.qm
#                       [LIBRARIES <target>...]       linked besides Brimvale::SharedLibs and Qt5::Core
#                       [OUTPUT_DIRECTORY <dir>])     where <name>.so is built; <build>/plugins unless stated
#
# The plug-in's class carries, besides Q_OBJECT:
#
#   Q_PLUGIN_METADATA(IID "Brimvale.Plugin.IPlugin" FILE "<file.json>")
#   Q_INTERFACES(Brimvale::IPlugin)
#
# Beside the file's contents, the plug-in's metadata hold the version of the library it was built against, as
# "SharedLibsVersion": ["<version>"].
#
# All plug-ins of a terminal share one resource tree, so translations and resources are named after the plug-in.
function(brimvale_add_plugin name)
    cmake_parse_arguments(PARSE_ARGV 1 arg ""
        "METADATA;OUTPUT_DIRECTORY"
        "SOURCES;RESOURCES;TRANSLATIONS;LIBRARIES")
    brimvale_refuse_bad_arguments("brimvale_add_plugin(${name})")
    brimvale_require_arguments("brimvale_add_plugin(${name})" SOURCES METADATA)
    brimvale_require_files("brimvale_add_plugin(${name})"
        ${arg_SOURCES} ${arg_METADATA} ${arg_RESOURCES} ${arg_TRANSLATIONS})

    get_filename_component(metadata "${arg_METADATA}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
    file(READ "${metadata}" json)
    string(JSON type ERROR_VARIABLE error TYPE "${json}")
    if(error OR NOT type STREQUAL "OBJECT")
        message(FATAL_ERROR "brimvale_add_plugin(${name}): ${metadata} is no JSON object: ${error}")
    endif()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${metadata}")

    if(NOT DEFINED arg_OUTPUT_DIRECTORY)
        set(arg_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/plugins")
    endif()

    find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
    add_library(${name} MODULE ${arg_SOURCES} ${arg_RESOURCES})
    cmake_path(GET metadata PARENT_PATH metadata_directory)
    set_target_properties(${name} PROPERTIES
        PREFIX ""
        LIBRARY_OUTPUT_DIRECTORY "${arg_OUTPUT_DIRECTORY}"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        AUTOMOC ON
        AUTORCC ON
        # The version lets a host tell, before it loads the plug-in, which library it was built for.
        AUTOMOC_MOC_OPTIONS "-I${metadata_directory};-MSharedLibsVersion=${SharedLibs_VERSION}")
    target_compile_features(${name} PRIVATE cxx_std_17)
    # The same arithmetic on every processor, as in the library.
    target_compile_options(${name} PRIVATE -ffp-contract=off)
    # A missing symbol is an error here and not on the terminal. A sanitizer's symbols come from the host.
    if(NOT BRIMVALE_SANITIZE)
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    target_link_libraries(${name} PRIVATE Brimvale::SharedLibs Qt5::Core ${arg_LIBRARIES})

    if(arg_TRANSLATIONS)
        brimvale_embed_translations(${name} ${arg_TRANSLATIONS})
    endif()
endfunction()

# Compiles translations and embeds them in a target as :/translations/<file>.qm. brimvale_add_plugin() calls it.
#
#   brimvale_embed_translations(<target> <file.ts>...)
#
# In a static library the resource is initialised with Q_INIT_RESOURCE(<target>_translations).
function(brimvale_embed_translations name)
    if(NOT ARGN)
        message(FATAL_ERROR "brimvale_embed_translations(${name}): no .ts file is given")
    endif()
    brimvale_require_files("brimvale_embed_translations(${name})" ${ARGN})
    find_package(Qt5 5.15 REQUIRED COMPONENTS LinguistTools)
    set(directory "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations")
    file(MAKE_DIRECTORY "${directory}")
    set(compiled)
    set(entries "")
    foreach(ts IN LISTS ARGN)
        get_filename_component(ts "${ts}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
        cmake_path(GET ts STEM LAST_ONLY stem)
        add_custom_command(
            OUTPUT "${directory}/${stem}.qm"
            COMMAND Qt5::lrelease -silent "${ts}" -qm "${directory}/${stem}.qm"
            DEPENDS "${ts}"
            COMMENT "Compiling ${stem}.qm"
            VERBATIM)
        list(APPEND compiled "${directory}/${stem}.qm")
        string(APPEND entries "        <file>${stem}.qm</file>\n")
    endforeach()
    set(qrc "${directory}/${name}_translations.qrc")
    file(CONFIGURE OUTPUT "${qrc}" @ONLY CONTENT
        "<RCC>\n    <qresource prefix=\"/translations\">\n@entries@    </qresource>\n</RCC>\n")
    set(source "${directory}/qrc_${name}_translations.cpp")
    add_custom_command(
        OUTPUT "${source}"
        COMMAND Qt5::rcc --name ${name}_translations --output "${source}" "${qrc}"
        DEPENDS "${qrc}" ${compiled}
        COMMENT "Embedding the translations of ${name}"
        VERBATIM)
    set_source_files_properties("${source}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${name} PRIVATE "${source}")
endfunction()
