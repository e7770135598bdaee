# What every target of this repository shares, and what its five libraries share beyond that.
include_guard(GLOBAL)
include(GenerateExportHeader)

# Objects that were compiled once, here or in another checkout, are not compiled again.
find_program(VT_CCACHE ccache)
mark_as_advanced(VT_CCACHE)

# Settings go on our targets, never on a host's build.
function(vt_target_defaults target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        AUTOMOC ON
        AUTOUIC ON
        AUTORCC ON
        AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/colorscheme/forms)
    if(VT_CCACHE)
        # It serves what was compiled by a precompiled header only if macros of time do not count.
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER
            "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${VT_CCACHE}")
    endif()
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_BYTEARRAY QT_DISABLE_DEPRECATED_BEFORE=0x050F00 QT_NO_KEYWORDS)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
        if(VT_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
        if(VT_SANITIZE)
            target_compile_options(${target} PRIVATE
                -fsanitize=${VT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
            target_link_options(${target} PUBLIC -fsanitize=${VT_SANITIZE})
        endif()
    endif()
endfunction()

# What the users of an archive have to know: its names come from no other file, and the linker, which
# takes out of it what is asked for and no more, has to be asked for the symbol that is to be kept.
function(vt_static_usage target name kept_symbol)
    string(TOUPPER ${name} upper)
    target_compile_definitions(${target} PUBLIC ${upper}_STATIC_DEFINE)
    if(kept_symbol AND MSVC)
        target_link_options(${target} INTERFACE /INCLUDE:${kept_symbol})
    elseif(kept_symbol)
        target_link_options(${target} INTERFACE LINKER:-u,${kept_symbol})
    endif()
endfunction()

# vt_add_library(<name>
#     [FOLDER <folder>]   # where it lives below the root, if not in a folder of its own name
#     [KEEP <symbol>]     # what else a static link leaves out, because nobody calls it
#     SOURCES <file>...   # .cpp, .ui and inner headers
#     HEADERS <file>...   # installed, below the folder
#     LINK <target>...)   # public: our headers name the types of all of them
#
# A library shows what its export macro marks, and no more. Tests and benchmarks that reach an inner
# unit link <name>_inner instead, never both: an archive of the same objects. A static library is
# its own inner one, because what is hidden is hidden from other shared libraries only.
function(vt_add_library name)
    cmake_parse_arguments(arg "" "FOLDER;KEEP" "SOURCES;HEADERS;LINK" ${ARGN})
    if(NOT arg_FOLDER)
        set(arg_FOLDER ${name})
    endif()
    set(generated ${PROJECT_BINARY_DIR}/generated)
    set(targets ${name})
    if(BUILD_SHARED_LIBS AND (VT_BUILD_TESTS OR VT_BUILD_BENCHMARKS))
        # Compiled once, for both.
        set(targets ${name} ${name}_objects ${name}_inner)
        add_library(${name}_objects OBJECT ${arg_SOURCES} ${arg_HEADERS})
        target_compile_definitions(${name}_objects PRIVATE ${name}_EXPORTS)
        add_library(${name} $<TARGET_OBJECTS:${name}_objects>)
        add_library(${name}_inner STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${name}_objects>)
        vt_static_usage(${name}_inner ${name} "${arg_KEEP}")
    else()
        add_library(${name} ${arg_SOURCES} ${arg_HEADERS})
        if(NOT BUILD_SHARED_LIBS)
            vt_static_usage(${name} ${name} "${arg_KEEP}")
            add_library(${name}_inner ALIAS ${name})
        endif()
    endif()
    add_library(vtcontrolcolorscheme::${name} ALIAS ${name})
    generate_export_header(${name} EXPORT_FILE_NAME ${generated}/${arg_FOLDER}/${name}_export.h)

    foreach(target IN LISTS targets)
        vt_target_defaults(${target})
        set_target_properties(${target} PROPERTIES
            LINKER_LANGUAGE CXX
            POSITION_INDEPENDENT_CODE ON
            CXX_VISIBILITY_PRESET hidden
            VISIBILITY_INLINES_HIDDEN ON)
        target_include_directories(${target} PUBLIC
            $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
            $<BUILD_INTERFACE:${generated}>
            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
        foreach(used IN LISTS arg_LINK)
            if(target STREQUAL "${name}_inner" AND TARGET ${used}_inner)
                set(used ${used}_inner)
            endif()
            target_link_libraries(${target} PUBLIC ${used})
        endforeach()
    endforeach()
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        # As in the version file of the package: each minor version may break the one before.
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        # They find each other, wherever they are installed.
        INSTALL_RPATH "$ORIGIN")

    if(VT_INSTALL)
        install(TARGETS ${name} EXPORT vtcontrolcolorscheme
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
        foreach(header IN LISTS arg_HEADERS)
            get_filename_component(sub ${header} DIRECTORY)
            install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${arg_FOLDER}/${sub})
        endforeach()
        install(FILES ${generated}/${arg_FOLDER}/${name}_export.h
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${arg_FOLDER})
    endif()
endfunction()
