# What the library's own build gives the map viewer, for a build that has the library installed.
find_package(vtcontrolcolorscheme CONFIG REQUIRED)

function(vt_target_defaults target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        AUTOMOC ON
        AUTORCC ON)
endfunction()

function(vt_add_application name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    vt_target_defaults(${name})
    target_link_libraries(${name} PRIVATE ${arg_LINK})
    # The name fields play a file that lies beside the program.
    add_custom_command(TARGET ${name} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:${name}>/resources
        COMMAND ${CMAKE_COMMAND} -E copy_if_different
            ${vtcontrolcolorscheme_RESOURCES}/warning.gif
            $<TARGET_FILE_DIR:${name}>/resources/warning.gif
        VERBATIM)
endfunction()
