# What every target of this repository shares, and what its five libraries share beyond that.
include_guard(GLOBAL)
include(GenerateExportHeader)

# Objects that were compiled once, here or in another checkout, are not compiled again.
find_program(VT_CCACHE ccache)
mark_as_advanced(VT_CCACHE)

# Settings go on our targets, never on a host's build.
function(vt_target_defaults target)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        AUTOMOC ON
        AUTOUIC ON
        AUTORCC ON
        AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/colorscheme/forms)
    if(VT_CCACHE)
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER ${VT_CCACHE})
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

# vt_add_library(<name>
#     [FOLDER <folder>]   # where it lives below the root, if not in a folder of its own name
#     SOURCES <file>...   # .cpp, .ui and inner headers
#     HEADERS <file>...   # installed, below the folder
#     LINK <target>...)   # public: our headers name the types of all of them
function(vt_add_library name)
    cmake_parse_arguments(arg "" "FOLDER" "SOURCES;HEADERS;LINK" ${ARGN})
    if(NOT arg_FOLDER)
        set(arg_FOLDER ${name})
    endif()
    add_library(${name} ${arg_SOURCES} ${arg_HEADERS})
    add_library(vtcontrolcolorscheme::${name} ALIAS ${name})
    vt_target_defaults(${name})
    set_target_properties(${name} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION}
        # As in the version file of the package: each minor version may break the one before.
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        # The five find each other, wherever they are installed.
        INSTALL_RPATH "$ORIGIN")
    # Tests reach inner units that the library does not export.
    if(NOT VT_BUILD_TESTS)
        set_target_properties(${name} PROPERTIES
            CXX_VISIBILITY_PRESET hidden
            VISIBILITY_INLINES_HIDDEN ON)
    endif()

    set(generated ${PROJECT_BINARY_DIR}/generated)
    generate_export_header(${name} EXPORT_FILE_NAME ${generated}/${arg_FOLDER}/${name}_export.h)
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER ${name} upper)
        target_compile_definitions(${name} PUBLIC ${upper}_STATIC_DEFINE)
    endif()
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${generated}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_link_libraries(${name} PUBLIC ${arg_LINK})

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
