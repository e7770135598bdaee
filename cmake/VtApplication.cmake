# Programs: applications, examples, tests.
include_guard(GLOBAL)

set(vt_warning_movie ${PROJECT_SOURCE_DIR}/colorscheme/resources/warning.gif)

# The name field plays a file that lies beside the program, so every program's folder gets it.
function(vt_ship_resources target)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:${target}>/resources
        COMMAND ${CMAKE_COMMAND} -E copy_if_different
            ${vt_warning_movie} $<TARGET_FILE_DIR:${target}>/resources/warning.gif
        VERBATIM)
endfunction()

# vt_add_application(<name> SOURCES <file>... LINK <target>...)
function(vt_add_application name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    vt_target_defaults(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${arg_LINK})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    vt_ship_resources(${name})
    if(VT_INSTALL)
        # The libraries are looked up relative to the program, so the tree can be moved.
        set_target_properties(${name} PROPERTIES
            INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
        install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
        install(FILES ${vt_warning_movie} DESTINATION ${CMAKE_INSTALL_BINDIR}/resources)
    endif()
endfunction()
